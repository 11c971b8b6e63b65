#pragma once

#include "RuleRun.h"

namespace Grammar {

/// Writes each rule as one JSON object on a line of its own. What is not a rule, such as a file of
/// comments alone, is an object with its text, so that nothing of a file is lost.
int RunJson(const RunOptions& Run);

}  // namespace Grammar
