#pragma once

#include "RuleRun.h"

namespace Grammar {

/// Writes the rules that the objects stand for, one object a line, each in the normal form, in the
/// order of the input. A line that is not such an object, and a member that a grammar cannot hold,
/// are reported on standard error.
int RunFromJson(const RunOptions& Run);

}  // namespace Grammar
