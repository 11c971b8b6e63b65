// Sections: a text, one start, one cell, unary chains, slots and groups, items, questions.

#include "Chart.h"

#include "Bytes.h"

#include <algorithm>
#include <functional>

namespace Translate {

// ---- A text -----------------------------------------------------------------------------------

void Chart::Clear() {
  vTokens.clear();
  vLiterals.clear();
  vConstituents.clear();
  vWays.clear();
  vItems.clear();
  vSteps.clear();
  vGroups.clear();
  vCells.clear();
  vSlots.clear();
  vMembers.clear();
  vChains.assign(1, {0, 0});
  vChainRules.clear();
  ChainSteps.Clear();
  vChainOfStep.clear();
  ChainIndex.Clear();
}

/// Cuts the text at white space, and finds the literals that its tokens match.
void Chart::Tokenize(std::string_view Text) {
  for (;;) {
    Text = Grammar::WithoutLeadingSpace(Text);
    if (Text.empty()) {
      break;
    }
    const auto End = std::find_if(Text.begin(), Text.end(), Grammar::IsSpace);
    const auto Size = static_cast<std::size_t>(End - Text.begin());
    vTokens.push_back(Text.substr(0, Size));
    vLiterals.push_back(Rules.FindLiteral(vTokens.back(), Scratch));
    Text.remove_prefix(Size);
  }
}

bool Chart::Parse(std::string_view Text, const ChartLimits& LimitsPassIn,
                  Evaluator& EquationsPassIn) {
  Clear();
  Limits = LimitsPassIn;
  Equations = &EquationsPassIn;
  Tokenize(Text);
  const auto Size = static_cast<std::uint32_t>(vTokens.size());
  vFirstCell.assign(Size + 2, 0);
  vFrontiers.assign(Size + 1, {false, false, 0, 0, None});
  for (std::uint32_t Start = Size; Start > 0; --Start) {
    vFirstCell[Start - 1] = static_cast<std::uint32_t>(vCells.size());
    if (!ParseFrom(Start - 1)) {
      return false;
    }
  }
  return true;
}

// ---- One start --------------------------------------------------------------------------------

/// Finds all constituents that begin at a token, the shortest first. Those that begin further to
/// the right are there already.
bool Chart::ParseFrom(std::uint32_t Start) {
  vLinks.clear();
  vGoingOn.clear();
  Touch(Start + 1);
  bool IsWithin = true;
  while (!vEnds.empty()) {
    std::pop_heap(vEnds.begin(), vEnds.end(), std::greater<>());
    const std::uint32_t End = vEnds.back();
    vEnds.pop_back();
    if (IsWithin) {
      ReachEnd(Start, End);
      IsWithin = FillCell(Start, End);
      GoOn(End);
    }
    vTouched.push_back(End);
  }
  for (const std::uint32_t End : vTouched) {
    vFrontiers[End] = {false, false, 0, 0, None};
  }
  vTouched.clear();
  return IsWithin;
}

void Chart::Touch(std::uint32_t End) {
  if (!vFrontiers[End].IsTouched) {
    vFrontiers[End].IsTouched = true;
    vEnds.push_back(End);
    std::push_heap(vEnds.begin(), vEnds.end(), std::greater<>());
  }
}

/// Makes the items that end at a token: those before it go on with a literal, or over a cell.
void Chart::ReachEnd(std::uint32_t Start, std::uint32_t End) {
  FirstItem = static_cast<std::uint32_t>(vItems.size());
  ItemIndex.Clear();
  if (End == Start + 1) {
    FollowLiteral(None, SourceTrie::Root, Start);
  }
  const Frontier& Into = vFrontiers[End];
  if (Into.WantsLiteral) {
    const Frontier& From = vFrontiers[End - 1];
    for (std::uint32_t Index = From.First; Index < From.First + From.Count; ++Index) {
      FollowLiteral(vGoingOn[Index], vItems[vGoingOn[Index]].Node, End - 1);
    }
  }
  for (std::uint32_t Link = Into.Cells; Link != None; Link = vLinks[Link].Next) {
    const Frontier& From = vFrontiers[vCells[vLinks[Link].Cell].Start];
    for (std::uint32_t Index = From.First; Index < From.First + From.Count; ++Index) {
      ExtendOver(vGoingOn[Index], vLinks[Link].Cell);
    }
  }
}

/// Notes how far the items that end at a token will reach.
void Chart::GoOn(std::uint32_t End) {
  Frontier& From = vFrontiers[End];
  if (End == vTokens.size()) {
    return;
  }
  bool WantsLiteral = false;
  From.First = static_cast<std::uint32_t>(vGoingOn.size());
  for (std::uint32_t Each = FirstItem; Each < vItems.size(); ++Each) {
    if (Rules.Trie().HasEdges(vItems[Each].Node)) {
      vGoingOn.push_back(Each);
      WantsLiteral = WantsLiteral || Rules.Trie().HasLiterals(vItems[Each].Node);
    }
  }
  From.Count = static_cast<std::uint32_t>(vGoingOn.size()) - From.First;
  if (WantsLiteral && vLiterals[End] != RuleSet::None) {
    Touch(End + 1);
    vFrontiers[End + 1].WantsLiteral = true;
  }
  // The cells of a start stand behind those of the starts to the right of it.
  for (std::uint32_t Over = vFirstCell[End]; From.Count > 0 && Over < vFirstCell[End - 1]; ++Over) {
    Frontier& Into = vFrontiers[vCells[Over].End];
    Touch(vCells[Over].End);
    vLinks.push_back({Over, Into.Cells});
    Into.Cells = static_cast<std::uint32_t>(vLinks.size() - 1);
  }
}

// ---- One cell ---------------------------------------------------------------------------------

/// Makes the constituents of a span: by the rules whose sequences end there, then by unary rules.
bool Chart::FillCell(std::uint32_t Start, std::uint32_t End) {
  Cell New{Start, End, static_cast<std::uint32_t>(vConstituents.size()), 0, 0, 0};
  CellStart = New.FirstConstituent;
  ConstituentIndex.Clear();
  for (std::uint32_t Each = FirstItem; Each < vItems.size(); ++Each) {
    if (!Complete(Each)) {
      return false;
    }
  }
  for (std::uint32_t Each = CellStart; Each < vConstituents.size(); ++Each) {
    if (!AddUnary(Each)) {
      return false;
    }
  }
  New.ConstituentCount = static_cast<std::uint32_t>(vConstituents.size()) - CellStart;
  if (New.ConstituentCount > 0) {
    FillSlots(New);
    vCells.push_back(New);
    StartItems(New);
  }
  return true;
}

/// Applies the rules whose sequence an item has come through.
bool Chart::Complete(std::uint32_t Through) {
  const auto InCell = static_cast<std::uint32_t>(vCells.size());
  for (const RuleSet::Ending& By : Rules.EndingsAt(vItems[Through].Node)) {
    const std::optional<StructurePair> Made =
        Equations->Evaluate(By.Evaluation, vItems[Through].Keys);
    if (Made &&
        !AddConstituent({InCell, By.Types, Made->Source, Made->Target, 0, None, 0}, By, Through)) {
      return false;
    }
  }
  return true;
}

/// Adds a way to make a constituent, and the constituent where it is new.
/// @return false where there are too many of them
bool Chart::AddConstituent(Constituent New, const RuleSet::Ending& By, std::uint32_t From) {
  const auto HashOfOne = [](const Constituent& Each) {
    return Mixed(Mixed(Pair(Each.Source, Each.Target)) ^ Pair(Each.Types, Each.Chain));
  };
  std::uint32_t& Slot = ConstituentIndex.Find(HashOfOne(New), [&](std::uint32_t Each) {
    const Constituent& Other = vConstituents[Each];
    return Other.Types == New.Types && Other.Source == New.Source && Other.Target == New.Target &&
           Other.Chain == New.Chain;
  });
  const auto NewWay = static_cast<std::uint32_t>(vWays.size());
  const std::uint32_t Part = From & ~Way::UnaryMark;
  New.Score = By.Weight + (Part == From ? vItems[Part].Score : vConstituents[Part].Score);
  if (Slot != NoEntry) {
    vConstituents[Slot].Score = std::max(vConstituents[Slot].Score, New.Score);
    vWays.push_back({By.Rule, From, vConstituents[Slot].FirstWay, By.Weight});
    vConstituents[Slot].FirstWay = NewWay;
    return true;
  }
  if (vConstituents.size() >= Limits.MaxConstituents) {
    return false;
  }
  vWays.push_back({By.Rule, From, None, By.Weight});
  New.FirstWay = NewWay;
  Slot = static_cast<std::uint32_t>(vConstituents.size());
  vConstituents.push_back(New);
  ConstituentIndex.NoteAdded([&](std::uint32_t Each) { return HashOfOne(vConstituents[Each]); });
  return true;
}

// ---- Unary chains -----------------------------------------------------------------------------

bool Chart::AddUnary(std::uint32_t Below) {
  const std::uint32_t Types = vConstituents[Below].Types;
  for (const SourceSymbol Slot : {Rules.SlotOfAnyTarget(Types), Rules.SlotOfBoth(Types)}) {
    if (Slot != RuleSet::None && !ApplyUnary(Below, Slot)) {
      return false;
    }
  }
  return true;
}

bool Chart::ApplyUnary(std::uint32_t Below, SourceSymbol Slot) {
  const Constituent Part = vConstituents[Below];
  if (vChains[Part.Chain].Size >= Limits.MaxChain) {
    return true;
  }
  for (const RuleSet::Ending& By : Rules.UnaryRules(Slot)) {
    if (Contains(Part.Chain, By.Rule)) {
      continue;
    }
    Evaluator::KeysId Keys = Evaluator::NoKeys;
    if (By.Evaluation != RuleSet::None && Rules.EvaluationAt(By.Evaluation).Keys > 0) {
      Keys = Equations->AddKey(Keys, {Part.Source, Part.Target});
    }
    const std::optional<StructurePair> Made = Equations->Evaluate(By.Evaluation, Keys);
    if (Made && !AddConstituent({Part.Cell, By.Types, Made->Source, Made->Target,
                                 ChainWith(Part.Chain, By.Rule), None, 0},
                                By, Below | Way::UnaryMark)) {
      return false;
    }
  }
  return true;
}

SourceTrie::Range<std::uint32_t> Chart::ChainRules(std::uint32_t Which) const {
  const std::uint32_t* First = vChainRules.data() + vChains[Which].First;
  return {First, First + vChains[Which].Size};
}

bool Chart::Contains(std::uint32_t Which, std::uint32_t Rule) const {
  const SourceTrie::Range<std::uint32_t> In = ChainRules(Which);
  return std::binary_search(In.begin(), In.end(), Rule);
}

/// The chain with one more rule. Chains of the same rules are one, in whatever order they stand.
std::uint32_t Chart::ChainWith(std::uint32_t Before, std::uint32_t Rule) {
  const std::uint32_t Number = ChainSteps.Intern(Before, Rule);
  if (Number < vChainOfStep.size()) {
    return vChainOfStep[Number];
  }
  const SourceTrie::Range<std::uint32_t> Old = ChainRules(Before);
  vSorted.assign(Old.begin(), Old.end());
  vSorted.insert(std::upper_bound(vSorted.begin(), vSorted.end(), Rule), Rule);
  const auto HashOfChain = [&](std::uint32_t Each) {
    return HashOf(vChainRules.data() + vChains[Each].First, vChains[Each].Size);
  };
  std::uint32_t& Slot =
      ChainIndex.Find(HashOf(vSorted.data(), vSorted.size()), [&](std::uint32_t Each) {
        const SourceTrie::Range<std::uint32_t> Other = ChainRules(Each);
        return std::equal(Other.begin(), Other.end(), vSorted.begin(), vSorted.end());
      });
  const bool IsNew = Slot == NoEntry;
  const std::uint32_t Result = IsNew ? static_cast<std::uint32_t>(vChains.size()) : Slot;
  if (IsNew) {
    Slot = Result;
    vChains.push_back({static_cast<std::uint32_t>(vChainRules.size()),
                       static_cast<std::uint32_t>(vSorted.size())});
    vChainRules.insert(vChainRules.end(), vSorted.begin(), vSorted.end());
    ChainIndex.NoteAdded(HashOfChain);
  }
  vChainOfStep.push_back(Result);
  return Result;
}

// ---- Slots and groups -------------------------------------------------------------------------

/// Sorts the constituents of a cell by the slots that they fill.
void Chart::FillSlots(Cell& CellReturn) {
  vBySlot.clear();
  for (std::uint32_t Each = CellStart; Each < vConstituents.size(); ++Each) {
    const std::uint32_t Types = vConstituents[Each].Types;
    for (const SourceSymbol Slot : {Rules.SlotOfAnyTarget(Types), Rules.SlotOfBoth(Types)}) {
      if (Slot != RuleSet::None) {
        vBySlot.push_back(Pair(Slot, Each));
      }
    }
  }
  std::sort(vBySlot.begin(), vBySlot.end());
  CellReturn.FirstSlot = static_cast<std::uint32_t>(vSlots.size());
  for (const std::uint64_t Each : vBySlot) {
    const auto Slot = static_cast<SourceSymbol>(Each >> 32U);
    if (vSlots.size() == CellReturn.FirstSlot || vSlots.back().Slot != Slot) {
      vSlots.push_back(
          {Slot, static_cast<std::uint32_t>(vMembers.size()), 0, {None, None, None, None}});
    }
    vMembers.push_back(static_cast<std::uint32_t>(Each));
    ++vSlots.back().Count;
  }
  CellReturn.SlotCount = static_cast<std::uint32_t>(vSlots.size()) - CellReturn.FirstSlot;
}

/// What a rule sees of a constituent.
StructurePair Chart::KeyOf(std::uint32_t Which, std::uint8_t Needs) const {
  const Constituent& Each = vConstituents[Which];
  return {(Needs & SourceTrie::NeedsSource) != 0 ? Each.Source : StructureId{StructureStore::Open},
          (Needs & SourceTrie::NeedsTarget) != 0 ? Each.Target : StructureId{StructureStore::Open}};
}

/// The groups that the constituents for a slot fall into: the first, and each leads to the next.
std::uint32_t Chart::GroupsOf(std::uint32_t Entry, std::uint8_t Needs) {
  if (vSlots[Entry].FirstGroup[Needs] == None) {
    MakeGroups(vSlots[Entry], Needs);
  }
  return vSlots[Entry].FirstGroup[Needs];
}

void Chart::MakeGroups(SlotEntry& EntryReturn, std::uint8_t Needs) {
  if (Needs == 0) {
    EntryReturn.FirstGroup[Needs] = static_cast<std::uint32_t>(vGroups.size());
    vGroups.push_back({{},
                       EntryReturn.First,
                       EntryReturn.Count,
                       None,
                       BestScore(EntryReturn.First, EntryReturn.Count)});
    return;
  }
  const auto IsLess = [&](std::uint32_t Left, std::uint32_t Right) {
    const StructurePair One = KeyOf(Left, Needs);
    const StructurePair Other = KeyOf(Right, Needs);
    return Pair(One.Source, One.Target) < Pair(Other.Source, Other.Target);
  };
  const auto First = vMembers.begin() + EntryReturn.First;
  vSorted.assign(First, First + EntryReturn.Count);
  std::stable_sort(vSorted.begin(), vSorted.end(), IsLess);
  std::uint32_t Begin = 0;
  while (Begin < vSorted.size()) {
    std::uint32_t End = Begin + 1;
    while (End < vSorted.size() && !IsLess(vSorted[Begin], vSorted[End])) {
      ++End;
    }
    vGroups.push_back({KeyOf(vSorted[Begin], Needs), static_cast<std::uint32_t>(vMembers.size()),
                       End - Begin, EntryReturn.FirstGroup[Needs], 0});
    EntryReturn.FirstGroup[Needs] = static_cast<std::uint32_t>(vGroups.size() - 1);
    vMembers.insert(vMembers.end(), vSorted.begin() + Begin, vSorted.begin() + End);
    vGroups.back().Score = BestScore(vGroups.back().First, End - Begin);
    Begin = End;
  }
}

/// The best score of a stretch of members.
std::int64_t Chart::BestScore(std::uint32_t First, std::uint32_t Count) const {
  std::int64_t Best = vConstituents[vMembers[First]].Score;
  for (std::uint32_t Index = 1; Index < Count; ++Index) {
    Best = std::max(Best, vConstituents[vMembers[First + Index]].Score);
  }
  return Best;
}

std::uint32_t Chart::FindEntry(const Cell& In, SourceSymbol Slot) const {
  const auto First = vSlots.begin() + In.FirstSlot;
  const auto Last = First + In.SlotCount;
  const auto Found = std::lower_bound(
      First, Last, Slot,
      [](const SlotEntry& Each, SourceSymbol Wanted) { return Each.Slot < Wanted; });
  return Found == Last || Found->Slot != Slot ? None
                                              : static_cast<std::uint32_t>(Found - vSlots.begin());
}

// ---- Items ------------------------------------------------------------------------------------

/// Begins sequences with the constituents of a cell.
void Chart::StartItems(const Cell& From) {
  const auto Over = static_cast<std::uint32_t>(vCells.size() - 1);
  for (std::uint32_t Entry = From.FirstSlot; Entry < From.FirstSlot + From.SlotCount; ++Entry) {
    const std::uint32_t Node = Rules.Trie().Child(SourceTrie::Root, vSlots[Entry].Slot);
    if (Node != NoEntry) {
      Follow(None, Node, Over, Entry);
    }
  }
}

/// Looks for what an item wants in what a cell has, or the other way about, whichever is shorter.
void Chart::ExtendOver(std::uint32_t Before, std::uint32_t Over) {
  const Cell& Into = vCells[Over];
  const std::uint32_t Node = vItems[Before].Node;
  const SourceTrie::Range<SourceTrie::EdgeTo> Wanted = Rules.Trie().Slots(Node);
  if (Wanted.size() <= Into.SlotCount) {
    for (const SourceTrie::EdgeTo& Each : Wanted) {
      const std::uint32_t Entry = FindEntry(Into, Each.Symbol);
      if (Entry != None) {
        Follow(Before, Each.Target, Over, Entry);
      }
    }
    return;
  }
  for (std::uint32_t Entry = Into.FirstSlot; Entry < Into.FirstSlot + Into.SlotCount; ++Entry) {
    const std::uint32_t Target = Rules.Trie().Child(Node, vSlots[Entry].Slot);
    if (Target != NoEntry) {
      Follow(Before, Target, Over, Entry);
    }
  }
}

/// Adds the items that a node behind an item and the constituents for its slot make.
void Chart::Follow(std::uint32_t Before, std::uint32_t Node, std::uint32_t Over,
                   std::uint32_t Entry) {
  const std::uint8_t Needs = Rules.Trie().Needs(Node);
  const Evaluator::KeysId Earlier =
      Before == None ? Evaluator::KeysId{Evaluator::NoKeys} : vItems[Before].Keys;
  for (std::uint32_t Each = GroupsOf(Entry, Needs); Each != None; Each = vGroups[Each].Next) {
    const Evaluator::KeysId Keys =
        Needs == 0 ? Earlier : Equations->AddKey(Earlier, vGroups[Each].Key);
    AddItem(Node, vCells[Over].End, Keys, {Before, Each, None});
  }
}

void Chart::FollowLiteral(std::uint32_t Before, std::uint32_t Node, std::uint32_t At) {
  if (vLiterals[At] == RuleSet::None || !Rules.Trie().HasLiterals(Node)) {
    return;
  }
  const std::uint32_t Target = Rules.Trie().Child(Node, vLiterals[At]);
  if (Target != NoEntry) {
    const Evaluator::KeysId Keys =
        Before == None ? Evaluator::KeysId{Evaluator::NoKeys} : vItems[Before].Keys;
    AddItem(Target, At + 1, Keys, {Before, None, None});
  }
}

/// Adds a step to an item, and the item where it is new.
void Chart::AddItem(std::uint32_t Node, std::uint32_t End, Evaluator::KeysId Keys, Step Last) {
  const auto HashOfItem = [](const Item& Each) { return Mixed(Pair(Each.Node, Each.Keys)); };
  Item New{Node, End, Keys, None, 0};
  New.Score = (Last.Before == None ? 0 : vItems[Last.Before].Score) +
              (Last.Group == None ? 0 : vGroups[Last.Group].Score);
  std::uint32_t& Slot = ItemIndex.Find(HashOfItem(New), [&](std::uint32_t Each) {
    return vItems[Each].Node == Node && vItems[Each].Keys == Keys;
  });
  const auto NewStep = static_cast<std::uint32_t>(vSteps.size());
  if (Slot != NoEntry) {
    vItems[Slot].Score = std::max(vItems[Slot].Score, New.Score);
    Last.Next = vItems[Slot].FirstStep;
    vItems[Slot].FirstStep = NewStep;
    vSteps.push_back(Last);
    return;
  }
  New.FirstStep = NewStep;
  Slot = static_cast<std::uint32_t>(vItems.size());
  vSteps.push_back(Last);
  vItems.push_back(New);
  ItemIndex.NoteAdded([&](std::uint32_t Each) { return HashOfItem(vItems[Each]); });
}

// ---- Questions --------------------------------------------------------------------------------

SourceTrie::Range<Chart::Cell> Chart::CellsAt(std::size_t Start) const {
  const std::size_t Last = Start == 0 ? vCells.size() : vFirstCell[Start - 1];
  return {vCells.data() + vFirstCell[Start], vCells.data() + Last};
}

const Chart::Cell* Chart::FindCell(std::size_t Start, std::size_t End) const {
  const SourceTrie::Range<Cell> In = CellsAt(Start);
  const Cell* Found =
      std::lower_bound(In.begin(), In.end(), End,
                       [](const Cell& Each, std::size_t Wanted) { return Each.End < Wanted; });
  return Found != In.end() && Found->End == End ? Found : nullptr;
}

Chart::Counts Chart::Count() const {
  return {vConstituents.size(), vWays.size(), vItems.size(), vSteps.size()};
}

std::size_t Chart::Bytes() const {
  return vConstituents.size() * sizeof(Constituent) + vWays.size() * sizeof(Way) +
         vItems.size() * sizeof(Item) + vSteps.size() * sizeof(Step) +
         vGroups.size() * sizeof(Group) + vCells.size() * sizeof(Cell) +
         vSlots.size() * sizeof(SlotEntry) + vMembers.size() * sizeof(std::uint32_t);
}

}  // namespace Translate
