#pragma once

#include "ExampleParse.h"
#include "ExampleRunner.h"
#include "Outcome.h"
#include "TestedGrammar.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace Examples {

/// What no passing example holds in place. Both lists ascend.
struct Coverage {
  bool IsKnown = false;                        ///< whether it was looked for
  std::vector<std::uint32_t> vUncoveredRules;  ///< among all rules, those left out included
  std::vector<std::size_t> vUncoveredConstraints;
};

/// What has become of all examples of a grammar.
struct TestResults {
  std::vector<ExampleResult> vResults;  ///< in the order of the examples
  std::vector<double> vSeconds;         ///< that each took
  Coverage Covered;
};

/// Calls a function with each of these examples, on several threads at once, and with a runner that
/// the thread has for itself.
void ForEachExample(const TestedGrammar& Tested, const ParseOptions& Options, unsigned Threads,
                    const std::vector<std::size_t>& vIndices,
                    const std::function<void(std::size_t Index, ExampleRunner& Runner)>& Work);

/// Runs all examples of a grammar. The results, but for the times, are the same for any number of
/// threads.
/// @param WantsCoverage needs a grammar with variants
TestResults RunExamples(const TestedGrammar& Tested, const ParseOptions& Options, unsigned Threads,
                        bool WantsCoverage);

}  // namespace Examples
