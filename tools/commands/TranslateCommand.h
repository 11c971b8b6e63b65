#pragma once

#include "RuleRun.h"
#include "RuleSet.h"
#include "TranslationWriter.h"
#include "Translator.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Translate {

/// The options of a run over texts.
struct TranslateOptions {
  std::vector<std::string> vsGrammars;  ///< "-" for standard input, with a text of its own
  std::optional<std::string> Text;      ///< otherwise each line of standard input is one
  std::string Output;                   ///< "" or "-" for standard output
  bool Quiet = false;                   ///< show no progress
  unsigned Threads = 0;  ///< how many texts are translated at once; 0 for one on each core
  RuleSetOptions Rules;
  std::optional<std::string> Starts;  ///< start types between commas
  std::optional<std::uint64_t> Translations;
  TextOptions Texts;  ///< but for the two above
  WriterOptions Format;
};

/// Translates texts. Rules that are left out, and texts without translation, are reported on
/// standard error. Throws `Grammar::RunError`.
/// @return `Grammar::StatusFindings` where something was reported of a rule or a text
int RunTranslate(const TranslateOptions& Options);

/// Gets each rule of a grammar right after it has been added to the rule set, and may change it;
/// one that is left out as null, with what keeps it from being used.
using LoadedRuleVisitor = std::function<void(const Grammar::SourceRule& Lines, UsableRule* Rule,
                                             const std::vector<Grammar::Finding>& vFindings)>;

/// Reads grammars into a rule set, as every command that applies rules does. What is wrong with
/// rules that are left out is reported on standard error. Throws `Grammar::RunError`.
/// @param Visit may be empty
/// @return how many rules there are, and how many of them are left out
Grammar::RunTally LoadRules(const std::vector<std::string>& vsGrammars, bool Quiet,
                            RuleSet& RulesReturn, const LoadedRuleVisitor& Visit = {});

/// The labels of start types, as `--start` has them. A type without usable rules is reported on
/// standard error.
std::vector<std::uint32_t> FindStarts(const std::string& Written, const RuleSet& Rules);

/// Sets the start types, which are between commas; blanks mean nothing, and nothing stands for
/// all types. A type without rules is reported on standard error.
void SetStarts(const std::optional<std::string>& Starts, const RuleSet& Rules,
               TextOptions& OptionsReturn);

}  // namespace Translate
