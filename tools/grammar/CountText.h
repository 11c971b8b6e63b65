#pragma once

#include <string_view>

namespace Grammar {

/// The label of the comment that says how many examples a rule stands for: ";;Score:4".
constexpr std::string_view ScoreLabel = "Score:";

/// A count, as everything that reads one takes it.
struct CountText {
  int Value;
  bool IsExact;  ///< whether the text says that number and nothing else
};

/// Reads the text after the label: the digits at its beginning, at most 2,147,483,647. Without
/// digits, and for 0, the count is 1.
///
/// @code
/// ParseCount("12 or so").Value;    // 12
/// ParseCount("12 or so").IsExact;  // false
/// @endcode
CountText ParseCount(std::string_view Text);

}  // namespace Grammar
