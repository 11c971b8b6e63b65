#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

/// @file
/// Parsing a header line: "{NP,8}".

namespace TrRuleInternal {

/// The record keeps two letters of the type in the header, and the last digit of the number.
/// Grammars rely on it.
constexpr std::size_t KeptLetters = 2;

/// The parts of a header line, as views of the line.
struct HeaderParts {
  std::string_view Type;
  std::string_view Number;  ///< the digits, as written
};

/// Parses a header line in its common form: nothing around the braces, a type without the marks of
/// other lines, and digits. Linear.
///
/// @code
///   HeaderParts Parts;
///   ParseCommonHeader("{NP,8}", Parts);  // true
///   Parts.Type;                          // "NP"
///   Parts.Number;                        // "8"
/// @endcode
///
/// @return whether the line is in the common form; if not, the parts are unspecified
bool ParseCommonHeader(std::string_view Line, HeaderParts& PartsReturn);

/// Parses a header in full: the whole type and the whole number, without the white space around
/// them and with any text outside the braces. Linear.
/// @return nothing unless there are "{", type, ",", a number that fits 32 bits, and "}"
std::optional<HeaderParts> ParseHeader(std::string_view Code);

/// Takes a header apart by the lenient rules of the library's reader: the type is cut after its
/// second letter when the brace comes first, and of the number only the last digit is read. Linear.
///
/// @code
///   HeaderParts Parts;
///   ReadHeader("{ADJP,12}", Parts);  // true
///   Parts.Type;                      // "AD"
///   Parts.Number;                    // "2"
/// @endcode
///
/// @return false where the line gives neither type nor number
bool ReadHeader(std::string_view Line, HeaderParts& PartsReturn);

/// The value of a decimal number, with or without a minus sign; nothing if the text is not such a
/// number or the number does not fit.
std::optional<int> ParseWholeNumber(std::string_view Text);

}  // namespace TrRuleInternal
