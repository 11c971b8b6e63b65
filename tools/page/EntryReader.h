#pragma once

#include "RuleEntry.h"
#include "RuleRun.h"

#include <vector>

namespace Page {

/// Reads, checks and draws the rules of files, on the threads of the run. What `trrule check` shows
/// of a rule is in its entry, and what concerns the whole grammar in that of the rule where it
/// stands. Files that cannot be read are reported on standard error.
///
/// @code
/// Grammar::RunOptions Options;
/// Options.vsFiles = {"np.trr"};
/// Options.Quiet = true;
/// std::vector<RuleEntry> vEntries;
/// ReadEntries(Options, vEntries);     // true
/// vEntries.size();                    // 4
/// vEntries.front().Name;              // "{NP,1}"
/// vEntries.front().vFindings.size();  // 0
/// @endcode
///
/// @param vEntriesReturn receives the rules in the order of the input
/// @return whether all files could be read
bool ReadEntries(const Grammar::RunOptions& Run, std::vector<RuleEntry>& vEntriesReturn);

}  // namespace Page
