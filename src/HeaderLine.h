#pragma once

#include <string_view>

/// @file
/// Taking a header line apart: "{NP,8}".

namespace TrRuleInternal {

/// A header line, taken apart. The views point into the line.
struct HeaderParts {
  std::string_view Type;
  std::string_view Number;  ///< the digits, as written
};

/// Takes a header line in its common form apart: nothing around the braces, a type without the
/// marks of other lines, and digits. Linear.
///
///   ParseCommonHeader("{NP,8}", Parts);  // Parts.Type is "NP", Parts.Number is "8"
///
/// @return whether the line is in the common form; if not, the parts mean nothing
bool ParseCommonHeader(std::string_view Line, HeaderParts& PartsReturn);

}  // namespace TrRuleInternal
