#pragma once

#include "DiagnosisWriter.h"
#include "RuleDescription.h"
#include "RuleDiagnosis.h"
#include "TranslateSupport.h"

#include <cstdint>
#include <deque>
#include <string>
#include <utility>
#include <vector>

/// A grammar, and what is said of its rules, which are counted from 0, left-out ones aside.
///
///   WhyAnswers Why("N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n");
///   Why.Plain(0, "bus");  // a line about the only word
class WhyAnswers {
 public:
  explicit WhyAnswers(const std::string& Grammar, Translate::RuleSetOptions Rules = {})
      : Engine(Grammar, Rules) {
    for (const Grammar::RuleText& Text : Engine.Read.Texts) {
      Grammar::SourceRule& Current = Lines.emplace_back();
      Current.Read(Text);
      Grammar::SourceRule Scratch;
      Grammar::UsableRule Usable;
      std::vector<Grammar::Finding> vFindings;
      if (ReadUsableRule(Text, Rules.IsReversed, Scratch, Usable, vFindings)) {
        vDescriptions.push_back(Translate::DescribeRule(Scratch, &Usable));
        vDescriptions.back().Index = static_cast<std::uint32_t>(vDescriptions.size() - 1);
      }
    }
  }

  std::string Plain(std::uint32_t Rule, const std::string& Text) {
    std::string Out;
    ForEachBegin(Rule, Text,
                 [&](Translate::RuleDiagnosis& Why, const Translate::BeginFacts& Facts) {
                   Translate::DiagnosisText(Why, vDescriptions[Rule]).Append(Facts, Out);
                 });
    return Out;
  }

  std::string Json(std::uint32_t Rule, const std::string& Text) {
    std::string Out;
    ForEachBegin(Rule, Text,
                 [&](Translate::RuleDiagnosis& Why, const Translate::BeginFacts& Facts) {
                   Translate::DiagnosisJson(Why, vDescriptions[Rule]).Append(Facts, Out);
                   Out += '\n';
                 });
    return Out;
  }

  std::string FurthestCause(std::uint32_t Rule, const std::string& Text) {
    const Translate::TextResult Result = Engine.Engine.Translate(Text, Options);
    Translate::RuleDiagnosis Why(Engine.Set(), Engine.Engine, Result, Options);
    return Translate::DiagnosisText(Why, vDescriptions[Rule]).FurthestCause();
  }

  /// Visits what is known of a rule at each begin; nothing if the text reaches a limit.
  template <typename VisitT>
  void ForEachBegin(std::uint32_t Rule, const std::string& Text, VisitT Visit) {
    const Translate::TextResult Result = Engine.Engine.Translate(Text, Options);
    if (!Result.Error.empty()) {
      return;
    }
    Translate::RuleDiagnosis Why(Engine.Set(), Engine.Engine, Result, Options, MaxListed);
    for (std::size_t Begin = 0; Begin < Why.Size(); ++Begin) {
      Visit(Why, Why.FactsAt(Rule, Begin));
    }
  }

  bool IsMeant(const std::string& Name, std::size_t Rule) const {
    return Translate::IsRuleMeant(Name, Lines[Rule]);
  }

  TestEngine Engine;
  Translate::TextOptions Options;
  std::size_t MaxListed = Translate::RuleDiagnosis::MaxListed;
  std::deque<Grammar::SourceRule> Lines;
  std::vector<Translate::RuleDescription> vDescriptions;
};
