// A text of rules and a text to be translated, separated by a line "====", go through the engine:
// no crash, no hang, limits hold, and what comes out is in order.

#include "FuzzSupport.h"
#include "RuleDiagnosis.h"
#include "TranslationWriter.h"
#include "Translator.h"
#include "support/RuleSetText.h"
#include "support/StreamCapture.h"

#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr const char* Separator = "\n====\n";

void RequireOrder(const Translate::TextResult& Result) {
  for (std::size_t Index = 1; Index < Result.vTranslations.size(); ++Index) {
    Require(Result.vTranslations[Index].Score <= Result.vTranslations[Index - 1].Score,
            "the higher score comes first");
  }
}

/// What every form of the output needs is there, whatever was found.
void RequireWritable(const Translate::RuleSet& Rules, Translate::Translator& Engine,
                     const std::string& Text, const Translate::TextResult& Result) {
  for (const auto Form :
       {Translate::TextFormat::Plain, Translate::TextFormat::Json, Translate::TextFormat::Tree}) {
    Translate::WriterOptions Options;
    Options.Format = Form;
    std::string Out;
    Translate::TranslationWriter(Rules, Engine, Options).Append(Text, Result, Out);
    Require(!Out.empty() && Out.back() == '\n', "each text has a line");
  }
}

/// Each rule has a cause wherever it makes nothing.
void RequireCauses(const Translate::RuleSet& Rules, Translate::Translator& Engine,
                   const Translate::TextResult& Result, const Translate::TextOptions& Wanted) {
  if (!Result.Error.empty()) {
    return;
  }
  Translate::RuleDiagnosis Why(Rules, Engine, Result, Wanted);
  for (std::uint32_t Rule = 0; Rule < Rules.Size(); ++Rule) {
    for (std::size_t Begin = 0; Begin < Why.Size(); ++Begin) {
      const Translate::BeginFacts Facts = Why.FactsAt(Rule, Begin);
      Require(Facts.Stopped || !Facts.Clashes.IsEmpty() || !Facts.Made.IsEmpty() ||
                  !Facts.Used.IsEmpty() || !Facts.Longest.IsEmpty(),
              "something is known of each begin");
      for (const Translate::ClashFacts& Current : Facts.Clashes.vFirst) {
        Require(!Current.vEquations.empty(), "what clashes is named");
      }
    }
  }
}

void RequireText(bool IsReversed, const std::string& Grammar, const std::string& Text) {
  Translate::RuleSetOptions Options;
  Options.IsReversed = IsReversed;
  Translate::RuleSet Rules(Options);
  AddRules(Grammar, Rules, [](bool IsUsable, const std::vector<Grammar::Finding>& vFindings) {
    Require(IsUsable == vFindings.empty(),
            "a rule that is left out has a finding, no other has one");
  });
  Translate::Translator Engine(Rules);
  Translate::TextOptions Wanted;
  Wanted.Translations = 5;
  Wanted.MaxDerivations = 100;
  Wanted.Limits.MaxConstituents = 500;
  Wanted.IsPartial = true;
  Wanted.WantsCount = true;
  const Translate::TextResult Result = Engine.Translate(Text, Wanted);
  Require(Engine.ParsedChart().Constituents().size() <= Wanted.Limits.MaxConstituents,
          "the limit holds");
  Require(Result.vTranslations.size() <= Wanted.Translations, "no more than are wanted");
  RequireOrder(Result);
  RequireWritable(Rules, Engine, Text, Result);
  RequireCauses(Rules, Engine, Result, Wanted);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size) {
  constexpr std::size_t MaxText = 40;
  const std::string All(Data, Data + Size);
  const std::size_t Cut = All.find(Separator);
  const std::string Grammar = All.substr(0, Cut);
  const std::string Text =
      Cut == std::string::npos ? "a b a" : All.substr(Cut + std::string(Separator).size(), MaxText);
  StreamCapture Streams;
  RequireText(false, Grammar, Text);
  RequireText(true, Grammar, Text);
  Require(Streams.TakeOut().empty() && Streams.TakeErr().empty(), "nothing reaches the streams");
  return 0;
}
