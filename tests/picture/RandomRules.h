#pragma once

#include "support/RandomInput.h"

#include <string>

/// The text of a rule for pictures: labels of many scripts, alignments in any order, and
/// constraints of all forms, also on components that there are not and in no form at all.
std::string RandomRuleText(RandomInput& Random);
