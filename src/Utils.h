#pragma once

#include <string>

/// The one text operation that is not in `StringUtils`: upper-casing under its older name.
///
/// Worked example:
/// @code
///   Utils::AllCaps("Det n1");  // "DET N1"
/// @endcode
class __attribute__((visibility("default"))) Utils {
 public:
  /// The text with every ASCII letter upper-cased; the same operation as
  /// `StringUtils::StringToUpper`. Nothing is printed. Linear.
  /// @param SmallCaps the text
  /// @return its upper-cased copy
  static std::string AllCaps(std::string SmallCaps);
};
