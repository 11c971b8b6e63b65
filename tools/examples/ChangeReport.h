#pragma once

#include "Baseline.h"
#include "TestRun.h"

#include <string>
#include <vector>

namespace Examples {

/// Appends what has changed since an accepted state, and nothing else:
///
///   newly failing: np.trr:5: the car
///     wanted: el auto
///     given:  la auto
///   gone: np.trr: the bus
///   2 examples changed
void AppendChanges(const TestedGrammar& Tested, const TestResults& Results,
                   const std::vector<Change>& vChanges, const std::vector<BaselineLine>& vGone,
                   std::string& OutReturn);

}  // namespace Examples
