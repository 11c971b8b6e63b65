#pragma once

#include "RuleRun.h"

namespace Grammar {

/// Writes each rule as one JSON object on a line of its own. What is no rule, such as a file of
/// comments alone, is an object with its text, so that nothing of a file is lost.
int RunJson(const RunOptions& Run);

/// Writes the rules that the objects stand for, each in the normal form. A line that is no such
/// object, and a member that a grammar cannot hold, are told on standard error.
int RunFromJson(const RunOptions& Run);

}  // namespace Grammar
