#pragma once

#include <string>
#include <string_view>
#include <vector>

/// @file
/// The comments that a merge leaves where two versions of a rule say different things.
///
/// @code
/// ConflictComments({"component 1 of the target: N becomes ADJ"}, {"removed"}).size();  // 3
/// ConflictComments({"(X1::Y1)"}, {}).at(1);  // ";; ours: (X1:%3AY1)"
/// @endcode
///
/// What would make a line of the rule of a comment is written as in StrayText.h.

namespace Grammar {

/// The label of the first of these comments; a rule that has one is an error.
constexpr std::string_view ConflictLabel = "Conflict:";

/// The comments for a rule, a line each without its end.
/// @param vsOurs what one of the versions says or does, @param vsTheirs the other
std::vector<std::string> ConflictComments(const std::vector<std::string>& vsOurs,
                                          const std::vector<std::string>& vsTheirs);

}  // namespace Grammar
