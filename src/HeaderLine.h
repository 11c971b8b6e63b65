#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// @file
/// Taking a header line apart: "{NP,8}".

namespace TrRuleInternal {

/// The record keeps two letters of the header's type, and the last digit of its number; grammars
/// rely on it.
constexpr std::size_t KeptLetters = 2;

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

/// Takes a header apart as it is meant: the whole type and the whole number, without the white
/// space around them, whatever stands outside the braces. Linear.
/// @return nothing where there is no "{", type, ",", number that fits 32 bits, "}"
std::optional<HeaderParts> ParseHeader(std::string_view Code);

/// The value of a number in decimal, with a minus sign or without; nothing where the text is
/// another one, or the number does not fit.
std::optional<int> ParseWholeNumber(std::string_view Text);

}  // namespace TrRuleInternal
