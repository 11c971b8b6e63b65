#pragma once

#include "RuleSet.h"
#include "Translator.h"

#include <optional>
#include <string>
#include <vector>

namespace Translate {

enum class WhyFormat { Plain, Json, Html };

/// The options of a run that explains rules.
struct WhyOptions {
  std::vector<std::string> vsNames;     ///< of rules: "NP,8", or "g.trr:5"
  std::vector<std::string> vsGrammars;  ///< "-" for standard input
  std::string Text;
  std::string Output;  ///< "" or "-" for standard output
  bool Quiet = false;  ///< show no progress
  WhyFormat Format = WhyFormat::Plain;
  RuleSetOptions Rules;
  std::optional<std::string> Starts;  ///< start types between commas
  TextOptions Texts;                  ///< but for the start types
};

/// Reports what rules do with a text, and why they do no more. Throws `Grammar::RunError`.
/// @return `Grammar::StatusFindings` where no rule fits a name, rules are left out, or the text
///         reaches a limit
int RunWhy(const WhyOptions& Options);

/// Cuts the arguments of the command: the first one names a rule, and so does each one after it
/// that can, up to the first that cannot, or that is the name of a file.
void SplitRuleNames(const std::vector<std::string>& vsArguments, std::vector<std::string>& vsNames,
                    std::vector<std::string>& vsGrammars);

}  // namespace Translate
