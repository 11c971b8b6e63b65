#pragma once

#include "FindingWriter.h"
#include "RuleRun.h"

#include <string>
#include <vector>

namespace Grammar {

struct CheckOptions {
  FindingFormat Format = FindingFormat::Text;
  Severity Least = Severity::Warning;  ///< what is less than that is not told
  std::vector<std::string> vsOnly;     ///< the codes to tell; none stands for all
  std::vector<std::string> vsExcept;   ///< the codes not to tell
  std::string Version;                 ///< of the program, for SARIF
};

/// Tells everything that is wrong with the rules or will surprise. Throws `RunError`, also where a
/// code is not known, in whatever case it is written, and where the output would replace an input.
/// @return `StatusFindings` where something was told
int RunCheck(const RunOptions& Run, const CheckOptions& OptionsPassIn);

}  // namespace Grammar
