#pragma once

#include "TestRun.h"

#include <string>

namespace Examples {

/// Appends the lines that TAP consumers read:
///
///   TAP version 13
///   1..1
///   not ok 1 - np.trr:5: the car
///     ---
///     outcome: "differs"
///     wanted: "el auto"
///     given: "la auto"
///     ...
void AppendTapReport(const TestedGrammar& Tested, const TestResults& Results, bool IsStrict,
                     std::string& OutReturn);

}  // namespace Examples
