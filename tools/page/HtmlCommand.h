#pragma once

#include "RuleRun.h"

#include <string>
#include <vector>

namespace Page {

/// The options of a run that writes a grammar as a page.
struct HtmlOptions {
  bool WithTests = false;            ///< run the examples, and show outcomes and coverage
  std::vector<std::string> vsPairs;  ///< files with more examples
};

/// Writes a grammar as one page for a browser. Throws `Grammar::RunError`.
///
/// All of the page is held in memory. What is found is on the page, not on standard error.
/// @return `Grammar::StatusFindings` where the page shows a finding or an example that does not
///         pass
int RunHtml(const Grammar::RunOptions& Run, const HtmlOptions& Options);

}  // namespace Page
