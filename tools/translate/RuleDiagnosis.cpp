// Sections: a rule, ways through, stops, combinations, uses, what is missing above, all of it.

#include "RuleDiagnosis.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Translate {

// ---- A rule -----------------------------------------------------------------------------------

RuleDiagnosis::RuleDiagnosis(const RuleSet& RulesPassIn, Translator& EnginePassIn,
                             const TextResult& Result, const TextOptions& OptionsPassIn,
                             std::size_t MaxListedPassIn)
    : Rules(RulesPassIn),
      Engine(EnginePassIn),
      Parsed(EnginePassIn.ParsedChart()),
      Options(OptionsPassIn),
      Limit(MaxListedPassIn),
      Equations(RulesPassIn),
      InOrder(Parsed, MaxListedPassIn),
      TargetText(RulesPassIn, InOrder.Trees()) {
  if (!Result.vTranslations.empty()) {
    vBestNodes = Engine.NodesOf(Result.vTranslations.front().Tree, 0);
  }
}

namespace {

/// The nodes of the trie after each component of a rule that is not unary.
std::vector<std::uint32_t> PrefixNodes(const RuleSet& Rules, const RuleSet::Rule& Rule) {
  std::vector<std::uint32_t> vNodes;
  std::uint32_t Node = SourceTrie::Root;
  for (const SourceSymbol Symbol : Rules.SymbolsOf(Rule)) {
    Node = Rules.Trie().Child(Node, Symbol);
    vNodes.push_back(Node);
  }
  return vNodes;
}

bool IsLiteralSymbol(SourceSymbol Symbol) {
  return (Symbol & SourceTrie::LiteralMark) != 0;
}

}  // namespace

/// Finds out what is known of a rule wherever it begins.
void RuleDiagnosis::SetRule(std::uint32_t Rule) {
  if (HasAsked && Asked == Rule) {
    return;
  }
  HasAsked = true;
  Asked = Rule;
  vPrefixNodes.clear();
  if (!Rules.IsUnary(Rules.At(Rule))) {
    vPrefixNodes = PrefixNodes(Rules, Rules.At(Rule));
  }
  vMade.clear();
  for (std::uint32_t Index = 0; Index < Parsed.Constituents().size(); ++Index) {
    for (std::uint32_t Way = Parsed.Constituents()[Index].FirstWay; Way != NoEntry;
         Way = Parsed.Ways()[Way].Next) {
      if (Parsed.Ways()[Way].Rule == Rule) {
        vMade.emplace_back(Parsed.Ways()[Way].Part(), Index);
      }
    }
  }
  std::sort(vMade.begin(), vMade.end());
}

/// The constituent that the rule makes of an item or a constituent; `NoEntry` for none.
std::uint32_t RuleDiagnosis::MadeFrom(std::uint32_t Part) const {
  const auto Found = std::lower_bound(vMade.begin(), vMade.end(), std::pair(Part, 0U));
  return Found != vMade.end() && Found->first == Part ? Found->second : NoEntry;
}

// ---- Ways through -----------------------------------------------------------------------------

bool RuleDiagnosis::HasPlaceFor(SourceSymbol Symbol, std::uint32_t Types) const {
  return Symbol == Rules.SlotOfAnyTarget(Types) || Symbol == Rules.SlotOfBoth(Types);
}

/// What keeps a unary rule from being put upon a constituent, its equations aside.
RuleDiagnosis::ChainState RuleDiagnosis::ChainStateOf(std::uint32_t Below,
                                                      std::uint32_t Rule) const {
  const auto Chain = Parsed.ChainRules(Parsed.Constituents()[Below].Chain);
  if (std::binary_search(Chain.begin(), Chain.end(), Rule)) {
    return ChainState::Used;
  }
  return Chain.size() >= Options.Limits.MaxChain ? ChainState::Longest : ChainState::Free;
}

RuleDiagnosis::Through RuleDiagnosis::FindThroughUnary(std::size_t Begin) const {
  Through Found;
  const SourceSymbol Symbol = *Rules.SymbolsOf(Rules.At(Asked)).begin();
  for (const Chart::Cell& Cell : Parsed.CellsAt(Begin)) {
    for (std::uint32_t Index = 0; Index < Cell.ConstituentCount; ++Index) {
      const std::uint32_t Current = Cell.FirstConstituent + Index;
      if (!HasPlaceFor(Symbol, Parsed.Constituents()[Current].Types)) {
        continue;
      }
      const ChainState State = ChainStateOf(Current, Asked);
      (MadeFrom(Current) != NoEntry   ? Found.vMade
       : State == ChainState::Used    ? Found.vUsed
       : State == ChainState::Longest ? Found.vLongest
                                      : Found.vClashing)
          .push_back(Current);
    }
  }
  return Found;
}

RuleDiagnosis::Through RuleDiagnosis::FindThroughItems(std::size_t Begin) const {
  Through Found;
  const auto Items = Parsed.ItemsAt(Begin);
  for (std::uint32_t Index = Items.First; Index < Items.Last; ++Index) {
    if (Parsed.Items()[Index].Node == vPrefixNodes.back()) {
      (MadeFrom(Index) != NoEntry ? Found.vMade : Found.vClashing).push_back(Index);
    }
  }
  return Found;
}

// ---- Stops ------------------------------------------------------------------------------------

StopPlace RuleDiagnosis::PlaceAt(std::size_t Position) const {
  StopPlace Place{Position, {}};
  if (Position == Size()) {
    return Place;
  }
  for (const Chart::Cell& Cell : Parsed.CellsAt(Position)) {
    for (std::uint32_t Index = 0; Index < Cell.ConstituentCount; ++Index) {
      Place.vThere.push_back(
          {Parsed.Constituents()[Cell.FirstConstituent + Index].Types, Cell.End});
    }
  }
  const auto KeyOf = [&](const Beginning& Current) {
    return std::tuple<std::size_t, const std::string&, const std::string&>(
        Current.End, Rules.LabelName(Rules.SourceTypeOf(Current.Types)),
        Rules.LabelName(Rules.TargetTypeOf(Current.Types)));
  };
  std::sort(
      Place.vThere.begin(), Place.vThere.end(),
      [&](const Beginning& Left, const Beginning& Right) { return KeyOf(Left) < KeyOf(Right); });
  Place.vThere.erase(std::unique(Place.vThere.begin(), Place.vThere.end()), Place.vThere.end());
  return Place;
}

/// Finds the furthest component that is reached, where no way leads through all of them.
Stop RuleDiagnosis::FindStop(std::size_t Begin) const {
  Stop Found;
  std::vector<std::size_t> vPositions{Begin};
  const auto Items = Parsed.ItemsAt(Begin);
  for (std::uint32_t Index = Items.First; Index < Items.Last; ++Index) {
    const auto Node =
        std::find(vPrefixNodes.begin(), vPrefixNodes.end(), Parsed.Items()[Index].Node);
    const auto Met = static_cast<std::size_t>(Node - vPrefixNodes.begin()) + 1;
    if (Node == vPrefixNodes.end() || Met < Found.Component) {
      continue;
    }
    if (Met > Found.Component) {
      vPositions.clear();
      Found.Component = Met;
    }
    vPositions.push_back(Parsed.Items()[Index].End);
  }
  Found.Wanted = Rules.SymbolsOf(Rules.At(Asked)).First[Found.Component];
  ++Found.Component;
  std::sort(vPositions.begin(), vPositions.end());
  vPositions.erase(std::unique(vPositions.begin(), vPositions.end()), vPositions.end());
  for (const std::size_t Position : vPositions) {
    Found.vPlaces.push_back(PlaceAt(Position));
  }
  return Found;
}

// ---- Combinations -----------------------------------------------------------------------------

/// The first combinations of some items, or of some constituents below a unary rule, in the order
/// of rule numbers, and how many more there are.
Listed<RuleDiagnosis::Ranked> RuleDiagnosis::FirstOf(const std::vector<std::uint32_t>& vParts) {
  const bool IsUnary = vPrefixNodes.empty();
  const Derivations& Trees = InOrder.Trees();
  Listed<Ranked> All;
  for (const std::uint32_t Part : vParts) {
    for (const std::uint32_t Number :
         IsUnary ? InOrder.OfConstituent(Part) : InOrder.OfItem(Part)) {
      All.vFirst.push_back({Number, Part});
    }
    All.More =
        SumOf(All.More, IsUnary ? InOrder.CountOfConstituent(Part) : InOrder.CountOfItem(Part));
  }
  std::sort(All.vFirst.begin(), All.vFirst.end(), [&](const Ranked& Left, const Ranked& Right) {
    return (IsUnary ? Trees.CompareTrees(Left.Trees, Right.Trees)
                    : Trees.CompareLists(Left.Trees, Right.Trees)) < 0;
  });
  All.vFirst.resize(std::min(All.vFirst.size(), Limit));
  if (All.More) {
    *All.More -= All.vFirst.size();
  }
  return All;
}

/// The derivations of the rule's places.
std::vector<Derivations::TreeId> RuleDiagnosis::TreesOf(const Ranked& Which) const {
  std::vector<Derivations::TreeId> vTrees;
  if (vPrefixNodes.empty()) {
    vTrees.push_back(Which.Trees);
    return vTrees;
  }
  for (Derivations::ListId List = Which.Trees; List != Derivations::NoList;
       List = InOrder.Trees().Before(List)) {
    vTrees.push_back(InOrder.Trees().Last(List));
  }
  std::reverse(vTrees.begin(), vTrees.end());
  return vTrees;
}

/// Finds where the parts stand, and works out their structures.
Combination RuleDiagnosis::MakeCombination(const std::vector<Derivations::TreeId>& vTrees,
                                           std::size_t Begin) {
  Combination Way;
  std::size_t At = Begin;
  std::size_t Component = 0;
  vPartStructures.clear();
  for (const SourceSymbol Symbol : Rules.SymbolsOf(Rules.At(Asked))) {
    ++Component;
    if (IsLiteralSymbol(Symbol)) {
      ++At;
      continue;
    }
    std::vector<TreeNode> vNodes = NodesOf(Rules, InOrder.Trees(), vTrees[Way.vParts.size()], At);
    const std::vector<StructurePair> vStructures =
        StructuresOf(vNodes, [&](std::uint32_t Rule, const std::vector<StructurePair>& vParts) {
          return Equations.Apply(Rules.At(Rule), vParts);
        });
    for (std::size_t Node = 0; Node < vNodes.size(); ++Node) {
      vNodes[Node].Structures = vStructures[Node];
    }
    vPartStructures.push_back(vStructures.front());
    const std::size_t End = vNodes.front().End;
    Way.vParts.push_back({Component, At, End, std::move(vNodes)});
    At = End;
  }
  Way.End = At;
  return Way;
}

std::optional<std::string> RuleDiagnosis::WordsOfRule(
    const std::vector<Derivations::TreeId>& vTrees) {
  std::string Words;
  for (const TargetItem& Item : Rules.TargetsOf(Rules.At(Asked))) {
    const std::optional<std::string> Next = Item.IsLiteral
                                                ? std::optional(Rules.WordName(Item.Value))
                                                : TargetText.Text(vTrees[Item.Value]);
    if (!Next || Words.size() + Next->size() >= TargetWords::MaxBytes) {
      return std::nullopt;
    }
    Words.append(Words.empty() || Next->empty() ? "" : " ").append(*Next);
  }
  return Words;
}

/// Lists combinations, and says something of each.
template <typename FactsT, typename MakeT>
Listed<FactsT> RuleDiagnosis::List(const std::vector<std::uint32_t>& vParts, std::size_t Begin,
                                   MakeT Make) {
  const Listed<Ranked> All = FirstOf(vParts);
  Listed<FactsT> Facts;
  Facts.More = All.More;
  for (const Ranked& Current : All.vFirst) {
    const std::vector<Derivations::TreeId> vTrees = TreesOf(Current);
    Facts.vFirst.push_back(Make(MakeCombination(vTrees, Begin), vTrees, Current.Part));
  }
  return Facts;
}

// ---- Uses -------------------------------------------------------------------------------------

bool RuleDiagnosis::IsInBest(const Combination& Way, std::size_t Begin) const {
  std::vector<std::uint32_t> vRules{Asked};
  for (const PartFacts& Facts : Way.vParts) {
    for (const TreeNode& Node : Facts.vNodes) {
      vRules.push_back(Node.Rule);
    }
  }
  const auto IsSame = [](const TreeNode& Node, std::uint32_t Rule) { return Node.Rule == Rule; };
  for (auto Node = vBestNodes.begin(); Node != vBestNodes.end(); ++Node) {
    if (Node->Start == Begin && Node->End == Way.End &&
        static_cast<std::size_t>(vBestNodes.end() - Node) >= vRules.size() &&
        std::equal(Node, Node + static_cast<std::ptrdiff_t>(vRules.size()), vRules.begin(),
                   IsSame)) {
      return true;
    }
  }
  return false;
}

Use RuleDiagnosis::FindUse(const Combination& Way, std::size_t Begin, std::uint32_t Constituent) {
  if (!Uses) {
    Uses.emplace(Parsed);
    Uses->MarkBelow(Engine.Goals(Options));
  }
  if (IsInBest(Way, Begin)) {
    return Use::Best;
  }
  return Uses->IsMarked(Constituent) ? Use::Other : Use::None;
}

// ---- What is missing above --------------------------------------------------------------------

namespace {

template <typename NumberT>
void SortWithoutRepeats(std::vector<NumberT>& vReturn) {
  std::sort(vReturn.begin(), vReturn.end());
  vReturn.erase(std::unique(vReturn.begin(), vReturn.end()), vReturn.end());
}

}  // namespace

/// The items of a node that end with a constituent.
std::vector<std::uint32_t> RuleDiagnosis::ItemsOver(std::uint32_t Constituent,
                                                    std::uint32_t Node) const {
  std::vector<std::uint32_t> vItems;
  Uses->ForEachItemOver(Constituent, [&](std::uint32_t Item) {
    if (Parsed.Items()[Item].Node == Node) {
      vItems.push_back(Item);
    }
  });
  return vItems;
}

/// The items of a node that continue one of these items, ascending.
std::vector<std::uint32_t> RuleDiagnosis::ItemsAfter(const std::vector<std::uint32_t>& vItems,
                                                     std::uint32_t Node) const {
  std::vector<std::uint32_t> vAfter;
  for (const std::uint32_t Item : vItems) {
    Uses->ForEachItemAfter(Item, [&](std::uint32_t After) {
      if (Parsed.Items()[After].Node == Node) {
        vAfter.push_back(After);
      }
    });
  }
  SortWithoutRepeats(vAfter);
  return vAfter;
}

/// How far a rule comes that takes a constituent for one of its components.
Taker RuleDiagnosis::FindTaker(std::uint32_t Rule, std::size_t Component,
                               std::uint32_t Constituent) const {
  const RuleSet::Rule& Which = Rules.At(Rule);
  Taker Found{Rule, Component, TakerState::Clashes, 0, 0, {}};
  if (Rules.IsUnary(Which)) {
    const bool IsFree = ChainStateOf(Constituent, Rule) == ChainState::Free;
    Found.State = IsFree ? TakerState::Clashes : TakerState::InChain;
    return Found;
  }
  const SourceSymbol* Symbols = Rules.SymbolsOf(Which).First;
  const std::vector<std::uint32_t> vNodes = PrefixNodes(Rules, Which);
  std::vector<std::uint32_t> vItems = ItemsOver(Constituent, vNodes[Component - 1]);
  const auto Want = [&](TakerState State, std::size_t Wanted) {
    Found.State = State;
    Found.WantedComponent = Wanted;
    Found.Wanted = Symbols[Wanted - 1];
  };
  if (vItems.empty()) {
    Want(TakerState::WantsBefore, Component - 1);
    Found.vPositions = {Parsed.Cells()[Parsed.Constituents()[Constituent].Cell].Start};
    return Found;
  }
  for (std::size_t Next = Component; Next < vNodes.size(); ++Next) {
    std::vector<std::uint32_t> vAfter = ItemsAfter(vItems, vNodes[Next]);
    if (vAfter.empty()) {
      Want(TakerState::WantsAfter, Next + 1);
      for (const std::uint32_t Item : vItems) {
        Found.vPositions.push_back(Parsed.Items()[Item].End);
      }
      break;
    }
    vItems.swap(vAfter);
  }
  SortWithoutRepeats(Found.vPositions);
  return Found;
}

MissingAbove RuleDiagnosis::FindMissing(std::uint32_t Constituent) {
  const std::uint32_t Top = Uses->TopAbove(Constituent);
  const Chart::Cell& Cell = Parsed.Cells()[Parsed.Constituents()[Top].Cell];
  MissingAbove Missing;
  Missing.Start = Cell.Start;
  Missing.End = Cell.End;
  Missing.Types = Parsed.Constituents()[Top].Types;
  Missing.IsWhole = Cell.Start == 0 && Cell.End == Size();
  if (Missing.IsWhole) {
    return Missing;
  }
  for (std::uint32_t Rule = 0; Rule < Rules.Size(); ++Rule) {
    const auto Symbols = Rules.SymbolsOf(Rules.At(Rule));
    for (std::size_t Component = 1; Component <= Symbols.size(); ++Component) {
      if (!HasPlaceFor(Symbols.First[Component - 1], Missing.Types)) {
        continue;
      }
      if (Missing.Takers.vFirst.size() < Limit) {
        Missing.Takers.vFirst.push_back(FindTaker(Rule, Component, Top));
      } else {
        ++*Missing.Takers.More;
      }
    }
  }
  return Missing;
}

// ---- All of it --------------------------------------------------------------------------------

BeginFacts RuleDiagnosis::FactsAt(std::uint32_t Rule, std::size_t Begin) {
  SetRule(Rule);
  const Through Found = vPrefixNodes.empty() ? FindThroughUnary(Begin) : FindThroughItems(Begin);
  BeginFacts Facts;
  Facts.Begin = Begin;
  if (Found.vMade.empty() && Found.vClashing.empty() && Found.vUsed.empty() &&
      Found.vLongest.empty()) {
    Facts.Stopped = FindStop(Begin);
    return Facts;
  }
  using Trees = std::vector<Derivations::TreeId>;
  Facts.Clashes =
      List<ClashFacts>(Found.vClashing, Begin, [&](Combination Way, const Trees&, std::uint32_t) {
        Equations.Apply(Rules.At(Asked), vPartStructures);
        return ClashFacts{std::move(Way), Equations.Clashes()};
      });
  Facts.Made = List<MadeFacts>(
      Found.vMade, Begin, [&](Combination Way, const Trees& vTrees, std::uint32_t Part) {
        MadeFacts Made;
        Made.Structures = Equations.Apply(Rules.At(Asked), vPartStructures);
        Made.Words = WordsOfRule(vTrees);
        Made.In = FindUse(Way, Begin, MadeFrom(Part));
        if (Made.In == Use::None) {
          Made.Missing = FindMissing(MadeFrom(Part));
        }
        Made.Way = std::move(Way);
        return Made;
      });
  const auto AsIs = [](Combination Way, const Trees&, std::uint32_t) { return Way; };
  Facts.Used = List<Combination>(Found.vUsed, Begin, AsIs);
  Facts.Longest = List<Combination>(Found.vLongest, Begin, AsIs);
  return Facts;
}

}  // namespace Translate
