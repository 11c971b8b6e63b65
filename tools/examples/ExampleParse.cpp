// Sections: words, ways, the outcome, texts.

#include "ExampleParse.h"

#include "Bytes.h"
#include "DerivationMatch.h"
#include "TargetTexts.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Examples {

// ---- Words ------------------------------------------------------------------------------------

namespace {

/// Takes the first word off a text; empty after the last.
std::string_view TakeWord(std::string_view& TextReturn) {
  TextReturn = Grammar::WithoutLeadingSpace(TextReturn);
  const auto End = std::find_if(TextReturn.begin(), TextReturn.end(), Grammar::IsSpace);
  const std::string_view Word =
      TextReturn.substr(0, static_cast<std::size_t>(End - TextReturn.begin()));
  TextReturn.remove_prefix(Word.size());
  return Word;
}

}  // namespace

bool HaveSameWords(std::string_view Left, std::string_view Right) {
  for (;;) {
    const std::string_view One = TakeWord(Left);
    if (!Grammar::IsSameInCapitals(One, TakeWord(Right))) {
      return false;
    }
    if (One.empty()) {
      return true;
    }
  }
}

// ---- Ways -------------------------------------------------------------------------------------

bool IsStartOfPairs(const ParseOptions& Options, std::uint32_t Type) {
  return !Options.HasStarts ||
         std::find(Options.vStarts.begin(), Options.vStarts.end(), Type) != Options.vStarts.end();
}

void ExampleParse::Begin(const Example& Given) {
  IsWhole = Parsed.Parse(Given.Source, Options.Limits, Equations);
  vRootWays.clear();
  vOtherWays.clear();
  Best.Begin();
  Words.Clear();
  if (IsWhole) {
    FindWays(Given);
  }
}

/// A rule's example has to be of the rule's type, a pair of a file of any start type.
bool ExampleParse::IsStart(const Example& Given, std::uint32_t Type) const {
  return Given.Rule == NoRule ? IsStartOfPairs(Options, Type)
                              : Tested.AllRules()[Given.Rule].SourceType == Type;
}

/// Finds the ways to make what spans the whole text. What has no rule of its own has every root.
void ExampleParse::FindWays(const Example& Given) {
  const std::size_t Size = Parsed.Tokens().size();
  const Translate::Chart::Cell* Whole = Size == 0 ? nullptr : Parsed.FindCell(0, Size);
  const std::uint32_t Root = Given.Rule == NoRule ? NoRule : Tested.AllRules()[Given.Rule].Usable;
  for (std::uint32_t Index = 0; Whole != nullptr && Index < Whole->ConstituentCount; ++Index) {
    const Translate::Chart::Constituent& Made =
        Parsed.Constituents()[Whole->FirstConstituent + Index];
    if (!IsStart(Given, Tested.Rules().SourceTypeOf(Made.Types))) {
      continue;
    }
    for (std::uint32_t Way = Made.FirstWay; Way != Translate::Chart::None;
         Way = Parsed.Ways()[Way].Next) {
      const bool IsRoot = Given.Rule == NoRule || Parsed.Ways()[Way].Rule == Root;
      (IsRoot ? vRootWays : vOtherWays).push_back(Way);
    }
  }
}

// ---- The outcome ------------------------------------------------------------------------------

std::optional<ExampleParse::TreeId> ExampleParse::BestOf(const std::vector<std::uint32_t>& vWays) {
  Best.SetGoalWays(vWays);
  return Best.Next();
}

/// The first derivation, in order, with the wanted words. What is too long to be written has
/// others.
/// @param IsTooManyReturn whether it was given up, since too many had other words
std::optional<ExampleParse::TreeId> ExampleParse::FindFit(const std::vector<std::uint32_t>& vWays,
                                                          const std::string& Wanted,
                                                          bool& IsTooManyReturn) {
  Best.SetGoalWays(vWays);
  std::uint64_t InVain = 0;
  while (const std::optional<TreeId> Tree = Best.Next()) {
    const std::optional<std::string> Text = Words.Text(*Tree);
    if (Text && HaveSameWords(*Text, Wanted)) {
      return Tree;
    }
    if (++InVain > Options.MaxDerivations) {
      IsTooManyReturn = true;
      return std::nullopt;
    }
  }
  return std::nullopt;
}

ExampleResult ExampleParse::ResultOf(Outcome What, std::optional<TreeId> Tree) {
  ExampleResult Result;
  Result.What = What;
  if (!Tree) {
    return Result;
  }
  Result.Best = Words.Text(*Tree);
  if (!Result.Best) {
    Result.What = Outcome::Error;
    Result.Error = Translate::LengthError();
    return Result;
  }
  Result.BestRule = Best.Trees().Rule(*Tree);
  if (IsPassing(What)) {
    Result.vRules = Best.Trees().RulesOf(*Tree);
  }
  return Result;
}

ExampleResult ExampleParse::Judge(const Example& Given) {
  if (!IsWhole) {
    ExampleResult Result = ResultOf(Outcome::Error, std::nullopt);
    Result.Error = Translate::LimitError(Parsed.Outcome(), Options.Limits);
    return Result;
  }
  if (Given.Wanted) {
    return JudgePair(*Given.Wanted);
  }
  const std::optional<TreeId> Analysis = BestOf(vRootWays);
  return ResultOf(Analysis ? Outcome::Fails : Outcome::Passes, Analysis);
}

ExampleResult ExampleParse::JudgePair(const std::string& Wanted) {
  bool IsTooMany = false;
  std::optional<TreeId> Fit = FindFit(vRootWays, Wanted, IsTooMany);
  Outcome What = Outcome::Passes;
  if (!Fit && !IsTooMany) {
    Fit = FindFit(vOtherWays, Wanted, IsTooMany);
    What = Outcome::PassesByAnotherRule;
  }
  if (IsTooMany) {
    ExampleResult Result = ResultOf(Outcome::Error, std::nullopt);
    Result.Error = "more than " + std::to_string(Options.MaxDerivations) +
                   " derivations give other words than wanted";
    return Result;
  }
  if (Fit) {
    return ResultOf(What, Fit);
  }
  const std::optional<TreeId> Other = BestOf(vRootWays);
  return ResultOf(Other ? Outcome::Differs : Outcome::Fails, Other);
}

// ---- Texts ------------------------------------------------------------------------------------

std::vector<std::uint32_t> ExampleParse::AllWays() const {
  std::vector<std::uint32_t> vAll(vRootWays);
  vAll.insert(vAll.end(), vOtherWays.begin(), vOtherWays.end());
  return vAll;
}

bool ExampleParse::HasOneDerivation() {
  Best.SetGoalWays(AllWays());
  return IsWhole && (!Best.Next() || !Best.Next());
}

bool ExampleParse::HasSameDerivations(const ExampleParse& Other) const {
  if (!IsWhole || !Other.IsWhole || vRootWays.size() != Other.vRootWays.size()) {
    return false;
  }
  return DerivationMatch(Parsed, Other.Parsed).AreSame(AllWays(), Other.AllWays());
}

/// Returns the different texts to a function, until it wants no more, or they are too long.
template <typename TakeT>
void ExampleParse::ForEachText(TakeT Take) {
  Best.WantDistinct(true);
  Best.SetGoalWays(AllWays());
  std::unordered_set<std::string> ssGiven;
  std::size_t Bytes = 0;
  bool WantsMore = true;
  while (WantsMore) {
    const std::optional<TreeId> Tree = Best.Next();
    const std::optional<std::string> Text = Tree ? Words.Text(*Tree) : std::nullopt;
    Bytes += Text ? Text->size() : 0;
    WantsMore = Text && Bytes <= Translate::TargetTexts::MaxBytes &&
                (!ssGiven.insert(*Text).second || Take(*Text));
  }
  Best.WantDistinct(false);
}

std::vector<std::string> ExampleParse::Texts() {
  std::vector<std::string> vsTexts;
  ForEachText([&](const std::string& sText) {
    vsTexts.push_back(sText);
    return vsTexts.size() < MaxTexts;
  });
  return vsTexts;
}

bool ExampleParse::HasTexts(const std::vector<std::string>& vsTexts) {
  std::size_t Count = 0;
  bool IsSame = true;
  ForEachText([&](const std::string& sText) {
    IsSame = Count < vsTexts.size() && vsTexts[Count] == sText;
    return IsSame && ++Count < MaxTexts;
  });
  return IsSame && Count == vsTexts.size();
}

}  // namespace Examples
