#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Page {

/// What the page shows of the examples of a rule.
struct RuleTests {
  std::string Html;         ///< outcomes with their derivations, and what is not covered
  bool HasFailure = false;  ///< some example does not pass
  bool IsUncovered = false;
};

/// What the page shows of all examples of a grammar.
struct PageTests {
  std::vector<RuleTests> vRules;  ///< in the order of the input
  std::string Others;             ///< HTML: the examples of files; empty where there are none
  std::string Totals;             ///< "3 examples: 2 pass, 1 differs"
  std::string Covered;            ///< "covered: 8 of 9 rules, 13 of 14 constraints"
  bool HasFailure = false;
};

/// Runs the examples in the comments of grammars, and those of files, as `trrule test` does. What
/// is wrong with rules that are left out is reported on standard error. Throws `Grammar::RunError`.
///
/// @code
/// const PageTests Tests = RunPageTests({"np.trr"}, {}, 2, true);
/// Tests.Totals;   // "2 examples: 2 pass"
/// Tests.Covered;  // "covered: 3 of 4 rules, 3 of 4 constraints"
/// @endcode
///
/// @param vsPairs files with more examples
/// @param Threads at least 1
/// @param Quiet show no progress
PageTests RunPageTests(const std::vector<std::string>& vsGrammars,
                       const std::vector<std::string>& vsPairs, unsigned Threads, bool Quiet);

}  // namespace Page
