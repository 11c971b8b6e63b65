#pragma once

#include "PictureOutput.h"
#include "RuleRun.h"

#include <optional>
#include <string>
#include <vector>

namespace Grammar {

/// The options of a run that draws rules.
struct DrawOptions {
  std::vector<std::string> vsRules;  ///< "NP,8", or "np.trr:5"; none stands for all
  std::optional<DrawFormat> Format;  ///< otherwise the name of the output says it
  std::optional<int> Width;          ///< of text, in columns; otherwise that of the terminal, or 80
  bool IsAscii = false;
};

/// Draws rules: into one file, or, where the output is a folder, each into a file of its own. What
/// is wrong with them is reported on standard error. Throws `RunError`.
///
/// A rule is drawn as soon as its rule line can be read; lines that cannot be drawn are listed
/// below it.
/// @return `StatusFindings` where something was reported of a rule that was asked for, or no rule
///         fits a name
int RunDraw(const RunOptions& Run, const DrawOptions& Options);

}  // namespace Grammar
