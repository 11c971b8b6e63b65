#pragma once

#include "TestRun.h"

#include <string>
#include <string_view>
#include <vector>

namespace Examples {

/// One thing to know of an example that does not simply pass.
struct Detail {
  std::string_view Name;  ///< "wanted", "given", "cause" or "by"
  std::string Text;
};

/// What was wanted of an example and what came, or why nothing did; the rule by which it passed
/// where that is not its own.
///
/// @code
/// ExampleResult Result;
/// Result.What = Outcome::Differs;
/// Result.Best = "un coche";
/// const auto vDetails = DetailsOf(Tested, Tested.AllExamples().front(), Result);
/// vDetails[0].Text;    // "un auto"
/// vDetails[1].Name;    // "given"
/// vDetails[1].Text;    // "un coche"
/// TotalsOf({Result});  // "1 example: 1 differs"
/// @endcode
std::vector<Detail> DetailsOf(const TestedGrammar& Tested, const Example& Current,
                              const ExampleResult& Result);

/// The counts of examples and outcomes: "3 examples: 2 pass, 1 differs".
std::string TotalsOf(const std::vector<ExampleResult>& vResults);

/// A line for each rule and each constraint that is not covered, without line ends: "not covered:
/// rule np.trr:9".
std::vector<std::string> UncoveredLines(const TestedGrammar& Tested, const Coverage& Covered);

/// "covered: 8 of 9 rules, 13 of 14 constraints".
std::string CoveredLine(const TestedGrammar& Tested, const Coverage& Covered);

}  // namespace Examples
