#pragma once

#include "TestRun.h"

#include <string>

namespace Examples {

/// Appends an object a line for each example, and one for what is not covered:
///
///   {"rule":"np.trr:5","source":"the car","wanted":"el auto","outcome":"passes","best":"el auto"}
///   {"uncovered":{"rules":["np.trr:9"],"constraints":["np.trr:14"]}}
void AppendJsonReport(const TestedGrammar& Tested, const TestResults& Results,
                      std::string& OutReturn);

}  // namespace Examples
