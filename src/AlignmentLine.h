#pragma once

#include <optional>
#include <string_view>

/// @file
/// Taking an alignment line apart: "(X2::Y3)".

namespace TrRuleInternal {

/// An alignment line, taken apart. The views point into the line.
struct AlignmentParts {
  std::string_view XText;  ///< the digits, as written
  std::string_view YText;
  int X = 0;  ///< source component, from 1; 0 where the line says so
  int Y = 0;  ///< target component
};

/// Takes an alignment line in its common form apart: letters of either case, numbers of up to nine
/// digits, and nothing before, between or after them. Linear.
///
///   ParseCommonAlignment("(X2::Y3)", Parts);  // Parts.X is 2, Parts.YText is "3"
///
/// @return whether the line is in the common form; if not, the parts mean nothing
bool ParseCommonAlignment(std::string_view Line, AlignmentParts& PartsReturn);

/// Takes an alignment of two numbered components apart, with white space around the "::" and any
/// text around the parentheses. Linear.
/// @return nothing where the line is no such alignment
std::optional<AlignmentParts> ParseAlignment(std::string_view Code);

/// What stands for the numbers in an alignment line, as the library's reader takes it.
struct AlignmentTexts {
  std::string_view X;
  std::string_view Y;
};

/// Why the library's reader finds no alignment in a line.
enum class AlignmentFault {
  None,
  NoPair,  ///< not two sides of one "::" in parentheses
  XSide,
  YSide,
};

/// The text from the first "(" to the last ")"; empty where there is none. Linear.
std::string_view WithinParentheses(std::string_view Line);

/// Takes an alignment line apart by the lenient rules of the library's reader, which does not mind
/// what stands in the place of the numbers. Linear.
///
///   ReadAlignment("1. (X2::Y3) (a)", Texts);  // Texts.X is "2", Texts.Y is "3) (a"
///
/// @param Line with capitals for the letters of the sides
AlignmentFault ReadAlignment(std::string_view Line, AlignmentTexts& TextsReturn);

}  // namespace TrRuleInternal
