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

}  // namespace TrRuleInternal
