#pragma once

#include "Details.h"
#include "TestRun.h"

#include <string>
#include <vector>

namespace Examples {

/// Appends what people want to know: each example that does not pass, or passes by another rule,
/// what is not covered, and how many there are of each.
///
///   np.trr:5: differs: the red car
///     wanted: el auto rojo
///     given:  el rojo auto
///   2 examples: 1 passes, 1 differs
void AppendPlainReport(const TestedGrammar& Tested, const TestResults& Results,
                       std::string& OutReturn);

/// Appends details, a line each: "  wanted: el auto rojo".
void AppendDetails(const std::vector<Detail>& vDetails, std::string& OutReturn);

}  // namespace Examples
