#pragma once

#include <HeaderLine.h>

#include <optional>
#include <string>
#include <string_view>

namespace Grammar {

/// The header of a rule, whole: the record keeps two letters of the type and one digit.
struct RuleHeader {
  bool IsPresent = false;
  /// A header that is not "{type,number}" is kept as it was written, in `Type`, with its braces.
  bool IsReadable = true;
  std::string Type;    ///< "ADJP"
  std::string Number;  ///< "12", as written, without white space and leading zeros
};

/// The header of a rule as it is kept.
/// @param Parts the parts of the line; nothing if it cannot be read
/// @param Code the line itself
RuleHeader HeaderOf(const std::optional<TrRuleInternal::HeaderParts>& Parts, std::string_view Code);

/// The number of a header, as the record holds it: -1 if it has none that can be read.
int NumberOf(const RuleHeader& Header);

/// Appends the header with a line end, as it is written; nothing if there is none.
///
/// @code
/// std::string Output;
/// AppendHeader({true, true, "ADJP", "12"}, Output);
/// Output;  // "{ADJP,12}\n"
/// @endcode
void AppendHeader(const RuleHeader& Header, std::string& TextReturn);

}  // namespace Grammar
