#pragma once

#include "ComparedRule.h"

#include <string>
#include <vector>

namespace Grammar {

/// Two versions of a rule and what they come from, merged.
struct MergedRule {
  std::string Text;  ///< in the normal form; with a conflict, what ours says, and both versions
  std::vector<std::string> vsConflicts;  ///< what cannot be both, each in words
};

/// Merges two versions of a rule part by part. What only one of them has changed is changed; what
/// both have changed to the same, once; counts are added, and comments and examples are joined.
/// Changes of one part to different things are a conflict, and so are changes that together make no
/// rule, such as constraints in a cycle.
///
/// @code
/// const auto Base = ComparedRule::Of("NP::NP [N] -> [N]\n(\n(X1::Y1)\n)");
/// const auto Ours = ComparedRule::Of("NP::NP [N] -> [ADJ]\n(\n(X1::Y1)\n)");
/// const auto Theirs = ComparedRule::Of("NP::NP [N] -> [N]\n(\n(X1::Y1)\n(X0 = X1)\n)");
/// const MergedRule Merged = MergeRules(*Base, *Ours, *Theirs);
/// Merged.Text;                // "NP::NP [N] -> [ADJ]\n(\n(X1::Y1)\n(X0 = X1)\n)\n"
/// Merged.vsConflicts.size();  // 0
/// @endcode
MergedRule MergeRules(const ComparedRule& Base, const ComparedRule& Ours,
                      const ComparedRule& Theirs);

/// A rule that one version has removed and the other one has changed: it stays, with a conflict.
/// @param IsOurs whether it is ours that has changed it
MergedRule KeepChanged(const ComparedRule& Base, const ComparedRule& Changed, bool IsOurs);

/// A rule that both versions have added, with other comments: the comments are joined, and the
/// counts added.
std::string JoinAdded(const ComparedRule& Ours, const ComparedRule& Theirs);

/// A rule with a header that the other version has added, too, to a rule that says something else.
MergedRule KeepAdded(const ComparedRule& Added, bool IsOurs);

}  // namespace Grammar
