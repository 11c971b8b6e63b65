#pragma once

#include <optional>
#include <string_view>

/// @file
/// Parsing an alignment line: "(X2::Y3)".

namespace TrRuleInternal {

/// The parts of an alignment line, with views of the line.
struct AlignmentParts {
  std::string_view XText;  ///< the digits, as written
  std::string_view YText;
  int X = 0;  ///< source component, from 1, or 0
  int Y = 0;  ///< target component
};

/// Parses an alignment line in its common form: letters of either case, numbers of up to nine
/// digits, and nothing before, between or after them. Linear.
///
/// @code
///   AlignmentParts Parts;
///   ParseCommonAlignment("(X2::Y3)", Parts);  // true
///   Parts.X;                                  // 2
///   Parts.YText;                              // "3"
/// @endcode
///
/// @return whether the line is in the common form; if not, the parts are unspecified
bool ParseCommonAlignment(std::string_view Line, AlignmentParts& PartsReturn);

/// Parses an alignment of two numbered components, with white space around the "::" and any text
/// around the parentheses. Linear.
/// @return nothing if the line is not such an alignment
std::optional<AlignmentParts> ParseAlignment(std::string_view Code);

/// The texts that the library's reader reads as the numbers of an alignment line.
struct AlignmentTexts {
  std::string_view X;
  std::string_view Y;
};

/// Why the library's reader rejects an alignment line.
enum class AlignmentFault {
  None,
  NoPair,  ///< not two sides around one "::" in parentheses
  XSide,
  YSide,
};

/// The text from the first "(" to the last ")"; empty if there is none. Linear.
std::string_view WithinParentheses(std::string_view Line);

/// Parses an alignment line by the lenient rules of the library's reader, which accept any text as
/// the numbers. Linear.
///
/// @code
///   AlignmentTexts Texts;
///   ReadAlignment("1. (X2::Y3) (a)", Texts);  // AlignmentFault::None
///   Texts.X;                                  // "2"
///   Texts.Y;                                  // "3) (a"
/// @endcode
///
/// @param Line the line, with the letters of the sides in capitals
AlignmentFault ReadAlignment(std::string_view Line, AlignmentTexts& TextsReturn);

}  // namespace TrRuleInternal
