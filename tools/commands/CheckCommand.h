#pragma once

#include "FindingWriter.h"
#include "RuleRun.h"

#include <optional>
#include <string>
#include <vector>

namespace Grammar {

struct CheckOptions {
  FindingFormat Format = FindingFormat::Text;
  std::optional<Severity> Least;      ///< what is less than that is not shown; see `RunCheck`
  std::vector<std::string> vsOnly;    ///< the codes to report; none stands for all
  std::vector<std::string> vsExcept;  ///< the codes not to report
  bool Statistics = false;            ///< show a table of codes and counts in place of the findings
  std::optional<std::string> Starts;  ///< start types between commas
  std::string Version;                ///< of the program, for SARIF
};

/// Reports everything that is wrong with the rules or will surprise, and on standard error how much
/// that is, if anything. Throws `RunError`, also where a code is not known, in whatever case it is
/// written, and where the output would replace an input.
///
/// Without a least severity, notes are counted and not shown, unless a code of `vsOnly` is one of a
/// note.
/// @return `StatusFindings` where something was found that is shown, or, with statistics, would be
int RunCheck(const RunOptions& Run, const CheckOptions& OptionsPassIn);

}  // namespace Grammar
