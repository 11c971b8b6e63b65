#pragma once

#include "TestedGrammar.h"

#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace Examples {

/// How the rules of a grammar differ from those that it had before. A rule is the same while its
/// lines are, comments aside, and its count is, wherever it stands; of rules that have changed
/// places, some count as the same and the others as gone and new.
struct GrammarChanges {
  std::vector<std::uint32_t> vBefore;   ///< of each rule, the one that it was; or `NoRule`
  std::vector<std::uint32_t> vChanged;  ///< rules in the place of others that are gone, ascending
  std::vector<std::uint32_t> vNew;      ///< the other new rules
  std::vector<std::uint32_t> vGone;     ///< of the rules before
  /// Source types whose rules have other shares of the count of all now.
  std::set<std::string> ssReweighted;
};

/// Compares two states of a grammar. Both have to know the lines of their rules.
GrammarChanges FindChanges(const TestedGrammar& Before, const TestedGrammar& Now);

/// "np.trr:31 changed, np.trr:40 new, 2 gone": the rules that differ; of many, the first ones.
std::string ShownChanges(const GrammarChanges& Changes, const TestedGrammar& Now);

}  // namespace Examples
