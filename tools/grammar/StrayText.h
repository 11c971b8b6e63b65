#pragma once

#include "LineKind.h"

#include <string>
#include <string_view>
#include <vector>

/// @file
/// Text on the lines of a rule that is not part of the rule.
///
/// @code
/// StrayTexts(PartsOf("(X1::Y1) see {NP,3}"));  // {"see {NP,3}"}
/// StrayComment("see {NP,3}");                  // ";; not read: see %7BNP,3}"
/// @endcode
///
/// The library's reader passes over such text silently. Here it is reported (TR035) and goes
/// on as a comment of its rule.

namespace Grammar {

/// Whether a line can have such text.
constexpr bool MayHaveStrayTexts(LineKind Kind) {
  return Kind == LineKind::Header || Kind == LineKind::Sequence || Kind == LineKind::Alignment ||
         Kind == LineKind::Other;
}

/// What means nothing on a line that can be read: all of it, or the text before and after the
/// header, the rule line or the alignment. In the order of the line, without blanks at the ends.
std::vector<std::string_view> StrayTexts(const LineParts& Parts);

/// A text for a comment that the library's reader takes for nothing but a comment.
///
/// What would make a line of the rule of it is written as "%" and two hexadecimal digits: "{", "=",
/// the second colon of "::" and the last bracket of "] -> [". So is a "%" that is before two such
/// digits.
std::string HiddenText(std::string_view Text);

/// A comment that keeps a text, hidden: after ";; not read: ". The label keeps "SL: a car" from
/// becoming the example of the rule, and "Score: 3" its count.
std::string StrayComment(std::string_view Text);

}  // namespace Grammar
