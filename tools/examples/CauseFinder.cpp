// Sections: pairs of files, all examples.

#include "CauseFinder.h"

#include "DiagnosisWriter.h"

#include <algorithm>
#include <cstdint>
#include <vector>

namespace Examples {

// ---- Pairs of files ---------------------------------------------------------------------------

namespace {

/// Adds a text in quotes to a list between commas.
void AppendQuoted(const std::string& Text, std::string& ListReturn) {
  ListReturn.append(ListReturn.empty() ? "\"" : ", \"").append(Text).append(1, '"');
}

/// The words that stand in no rule. Those of pieces that were translated do.
std::string UnknownWords(const Translate::RuleSet& Rules, const Translate::TextResult& Result) {
  std::string List;
  std::string Scratch;
  for (const Translate::Piece& Current : Result.vPieces) {
    if (!Current.Tree && Rules.FindLiteral(Current.Target, Scratch) == Translate::RuleSet::None) {
      AppendQuoted(Current.Target, List);
    }
  }
  return List;
}

}  // namespace

/// Where a rule of a start type comes through the whole text, the equations that clash.
std::optional<std::string> CauseFinder::WholeClash(Translate::RuleDiagnosis& Why) const {
  const Translate::Chart& Parsed = Engine.ParsedChart();
  const Translate::RuleSet& Rules = Tested.Rules();
  std::uint32_t First = NoRule;
  const auto Items = Parsed.ItemsAt(0);
  for (std::uint32_t Item = Items.First; Item < Items.Last; ++Item) {
    if (Parsed.Items()[Item].End != Why.Size()) {
      continue;
    }
    for (const Translate::RuleSet::Ending& By : Rules.EndingsAt(Parsed.Items()[Item].Node)) {
      if (IsStartOfPairs(Options, Rules.SourceTypeOf(By.Types))) {
        First = std::min(First, By.Rule);
      }
    }
  }
  if (First == NoRule) {
    return std::nullopt;
  }
  Translate::BeginFacts All = Why.FactsAt(First, 0);
  Translate::BeginFacts Whole;
  for (Translate::ClashFacts& Clash : All.Clashes.vFirst) {
    if (Clash.Way.End == Why.Size() && Whole.Clashes.IsEmpty()) {
      Whole.Clashes.vFirst.push_back(std::move(Clash));
    }
  }
  if (Whole.Clashes.IsEmpty()) {
    return std::nullopt;
  }
  std::string Text;
  Translate::DiagnosisText(Why, Tested.DescriptionOf(Rules.At(First).Number - 1))
      .Append(Whole, Text);
  Text.pop_back();
  return Text;
}

/// No rule is wanted at the root, so all of them are asked: for the words, for the whole text, and
/// for its pieces.
std::string CauseFinder::CauseOfPair(const Translate::TextResult& Result,
                                     Translate::RuleDiagnosis& Why) {
  const std::string Unknown = UnknownWords(Tested.Rules(), Result);
  if (!Unknown.empty()) {
    return "no rule has the word " + Unknown;
  }
  if (Result.vPieces.size() == 1 && Result.vPieces.front().Tree) {
    const std::uint32_t Rule = Engine.NodesOf(*Result.vPieces.front().Tree, 0).front().Rule;
    return "the whole text is of the type " +
           Tested.Rules().LabelName(Tested.Rules().At(Rule).SourceType) +
           ", which is not a start type";
  }
  if (const std::optional<std::string> Clash = WholeClash(Why)) {
    return *Clash;
  }
  std::string Pieces;
  for (const Translate::Piece& Current : Result.vPieces) {
    std::string Words;
    for (std::size_t At = Current.Start; At < Current.End; ++At) {
      Words.append(At == Current.Start ? "" : " ").append(Why.Token(At));
    }
    AppendQuoted(Words, Pieces);
  }
  return (Result.vPieces.size() == 1 ? "no rule takes " : "no rule joins ") + Pieces;
}

// ---- All examples -----------------------------------------------------------------------------

Translate::TextOptions CauseFinder::TextOptionsOf(const Example& Given) const {
  Translate::TextOptions Texts;
  Texts.Limits = Options.Limits;
  Texts.MaxDerivations = Options.MaxDerivations;
  Texts.IsPartial = Given.Rule == NoRule;
  Texts.HasStarts = Given.Rule != NoRule || Options.HasStarts;
  Texts.vStarts = Options.vStarts;
  if (Given.Rule != NoRule) {
    Texts.vStarts.assign(1, Tested.AllRules()[Given.Rule].SourceType);
  }
  return Texts;
}

std::string CauseFinder::CauseOf(const Example& Given) {
  if (Given.Rule != NoRule && Tested.AllRules()[Given.Rule].Usable == NoRule) {
    return "the rule was left out: " + Tested.AllRules()[Given.Rule].Finding;
  }
  const Translate::TextOptions Texts = TextOptionsOf(Given);
  const Translate::TextResult Result = Engine.Translate(Given.Source, Texts);
  if (!Result.Error.empty()) {
    return Result.Error;
  }
  if (Engine.ParsedChart().Tokens().empty()) {
    return "the text has no words";
  }
  Translate::RuleDiagnosis Why(Tested.Rules(), Engine, Result, Texts);
  try {
    return Given.Rule == NoRule
               ? CauseOfPair(Result, Why)
               : Translate::DiagnosisText(Why, Tested.DescriptionOf(Given.Rule)).FurthestCause();
  } catch (const Translate::StructureTooLarge& TooLarge) {
    return TooLarge.what();
  }
}

}  // namespace Examples
