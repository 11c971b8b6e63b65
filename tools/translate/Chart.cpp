// Sections: a text, one start, one cell, unary chains, slots and groups, items, questions.

#include "Chart.h"

#include "Bytes.h"

#include <algorithm>
#include <functional>

namespace Translate {

// ---- A text -----------------------------------------------------------------------------------

std::string LimitError(ChartOutcome Outcome, const ChartLimits& Limits) {
  if (Outcome == ChartOutcome::TooLargeStructures) {
    return "structures with more than " + std::to_string(Unifier::MaxNodes) +
           " features are unified";
  }
  return Outcome == ChartOutcome::TooManyItems
             ? "the rules match in too many ways before their last component"
             : "there are more than " + std::to_string(Limits.MaxConstituents) + " constituents";
}

void Chart::Clear() {
  vTokens.clear();
  vLiterals.clear();
  vConstituents.clear();
  vWays.clear();
  vItems.clear();
  Steps = 0;
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
  HowFar = ChartOutcome::Whole;
  Equations = &EquationsPassIn;
  Tokenize(Text);
  const auto Size = static_cast<std::uint32_t>(vTokens.size());
  vFirstCell.assign(Size + 2, 0);
  vFirstItem.assign(Size + 1, 0);
  vFrontiers.assign(Size + 1, {false, false, 0, 0, None});
  vEnds.clear();
  vTouched.clear();
  try {
    for (std::uint32_t Start = Size; Start > 0 && HowFar == ChartOutcome::Whole; --Start) {
      vFirstCell[Start - 1] = static_cast<std::uint32_t>(vCells.size());
      vFirstItem[Start - 1] = static_cast<std::uint32_t>(vItems.size());
      ParseFrom(Start - 1);
    }
  } catch (const StructureTooLarge&) {
    HowFar = ChartOutcome::TooLargeStructures;
  }
  return HowFar == ChartOutcome::Whole;
}

// ---- One start --------------------------------------------------------------------------------

/// Finds all constituents that begin at a token, the shortest first. Those that begin further to
/// the right are there already.
void Chart::ParseFrom(std::uint32_t Start) {
  vLinks.clear();
  vGoingOn.clear();
  ItemIndex.Clear();
  Touch(Start + 1);
  while (!vEnds.empty()) {
    std::pop_heap(vEnds.begin(), vEnds.end(), std::greater<>());
    const std::uint32_t End = vEnds.back();
    vEnds.pop_back();
    if (HowFar == ChartOutcome::Whole) {
      ReachEnd(Start, End);
      FillCell(Start, End);
      GoOn(End);
    }
    vTouched.push_back(End);
  }
  for (const std::uint32_t End : vTouched) {
    vFrontiers[End] = {false, false, 0, 0, None};
  }
  vTouched.clear();
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
  for (std::uint32_t Index = FirstItem; Index < vItems.size(); ++Index) {
    if (Rules.Trie().HasEdges(vItems[Index].Node)) {
      vGoingOn.push_back(Index);
      WantsLiteral = WantsLiteral || Rules.Trie().HasLiterals(vItems[Index].Node);
    }
  }
  From.Count = static_cast<std::uint32_t>(vGoingOn.size()) - From.First;
  if (WantsLiteral && vLiterals[End] != RuleSet::None) {
    Touch(End + 1);
    vFrontiers[End + 1].WantsLiteral = true;
  }
  // The cells of a start are after those of the starts to the right of it.
  for (std::uint32_t Over = vFirstCell[End]; From.Count > 0 && Over < vFirstCell[End - 1]; ++Over) {
    Frontier& Into = vFrontiers[vCells[Over].End];
    Touch(vCells[Over].End);
    vLinks.push_back({Over, Into.Cells});
    Into.Cells = static_cast<std::uint32_t>(vLinks.size() - 1);
  }
}

// ---- One cell ---------------------------------------------------------------------------------

/// Makes the constituents of a span: by the rules whose sequences end there, then by unary rules.
void Chart::FillCell(std::uint32_t Start, std::uint32_t End) {
  Cell New{Start, End, static_cast<std::uint32_t>(vConstituents.size()), 0, 0, 0};
  CellStart = New.FirstConstituent;
  ConstituentIndex.Clear();
  for (std::uint32_t Index = FirstItem; Index < vItems.size(); ++Index) {
    Complete(Index);
  }
  for (std::uint32_t Index = CellStart; Index < vConstituents.size(); ++Index) {
    AddUnary(Index);
  }
  New.ConstituentCount = static_cast<std::uint32_t>(vConstituents.size()) - CellStart;
  if (New.ConstituentCount > 0) {
    FillSlots(New);
    vCells.push_back(New);
    StartItems(New);
  }
}

/// Applies the rules whose sequence an item has come through.
void Chart::Complete(std::uint32_t Through) {
  const auto InCell = static_cast<std::uint32_t>(vCells.size());
  for (const RuleSet::Ending& By : Rules.EndingsAt(vItems[Through].Node)) {
    if (HowFar != ChartOutcome::Whole) {
      return;
    }
    const std::optional<StructurePair> Made =
        Equations->Evaluate(EvaluationOf(By), vItems[Through].Keys);
    if (Made) {
      AddConstituent({InCell, By.Types, Made->Source, Made->Target, 0, None, 0}, By, Through);
    }
  }
}

/// Adds a way to make a constituent, and the constituent where it is new.
void Chart::AddConstituent(Constituent New, const RuleSet::Ending& By, std::uint32_t From) {
  const auto HashOfOne = [](const Constituent& Current) {
    return Mixed(Mixed(Pair(Current.Source, Current.Target)) ^ Pair(Current.Types, Current.Chain));
  };
  std::uint32_t& Slot = ConstituentIndex.Find(HashOfOne(New), [&](std::uint32_t Number) {
    const Constituent& Other = vConstituents[Number];
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
    return;
  }
  if (vConstituents.size() >= Limits.MaxConstituents) {
    HowFar = ChartOutcome::TooManyConstituents;
    return;
  }
  vWays.push_back({By.Rule, From, None, By.Weight});
  New.FirstWay = NewWay;
  Slot = static_cast<std::uint32_t>(vConstituents.size());
  vConstituents.push_back(New);
  ConstituentIndex.NoteAdded(
      [&](std::uint32_t Number) { return HashOfOne(vConstituents[Number]); });
}

// ---- Unary chains -----------------------------------------------------------------------------

void Chart::AddUnary(std::uint32_t Below) {
  const std::uint32_t Types = vConstituents[Below].Types;
  for (const SourceSymbol Slot : {Rules.SlotOfAnyTarget(Types), Rules.SlotOfBoth(Types)}) {
    if (Slot != RuleSet::None) {
      ApplyUnary(Below, Slot);
    }
  }
}

void Chart::ApplyUnary(std::uint32_t Below, SourceSymbol Slot) {
  const Constituent Part = vConstituents[Below];
  if (vChains[Part.Chain].Size >= Limits.MaxChain) {
    return;
  }
  for (const RuleSet::Ending& By : Rules.UnaryRules(Slot)) {
    if (HowFar != ChartOutcome::Whole) {
      return;
    }
    if (Contains(Part.Chain, By.Rule)) {
      continue;
    }
    const std::optional<StructurePair> Made =
        Equations->Evaluate(EvaluationOf(By), UnaryKeys(By, Part));
    if (Made) {
      AddConstituent({Part.Cell, By.Types, Made->Source, Made->Target,
                      ChainWith(Part.Chain, By.Rule), None, 0},
                     By, Below | Way::UnaryMark);
    }
  }
}

/// What a unary rule reads in its only part.
Evaluator::KeysId Chart::UnaryKeys(const RuleSet::Ending& By, const Constituent& Part) const {
  const bool Looks = By.Evaluation != RuleSet::None && Rules.EvaluationAt(By.Evaluation).Keys > 0;
  return Looks ? Equations->AddKey(Evaluator::NoKeys, {Part.Source, Part.Target})
               : Evaluator::KeysId{Evaluator::NoKeys};
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
  const auto HashOfChain = [&](std::uint32_t Candidate) {
    return HashOf(vChainRules.data() + vChains[Candidate].First, vChains[Candidate].Size);
  };
  std::uint32_t& Slot =
      ChainIndex.Find(HashOf(vSorted.data(), vSorted.size()), [&](std::uint32_t Candidate) {
        const SourceTrie::Range<std::uint32_t> Other = ChainRules(Candidate);
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
  for (std::uint32_t Index = CellStart; Index < vConstituents.size(); ++Index) {
    const std::uint32_t Types = vConstituents[Index].Types;
    for (const SourceSymbol Slot : {Rules.SlotOfAnyTarget(Types), Rules.SlotOfBoth(Types)}) {
      if (Slot != RuleSet::None) {
        vBySlot.push_back(Pair(Slot, Index));
      }
    }
  }
  std::sort(vBySlot.begin(), vBySlot.end());
  CellReturn.FirstSlot = static_cast<std::uint32_t>(vSlots.size());
  for (const std::uint64_t Current : vBySlot) {
    const auto Slot = static_cast<SourceSymbol>(Current >> 32U);
    if (vSlots.size() == CellReturn.FirstSlot || vSlots.back().Slot != Slot) {
      vSlots.push_back(
          {Slot, static_cast<std::uint32_t>(vMembers.size()), 0, {None, None, None, None}, {}});
    }
    vMembers.push_back(static_cast<std::uint32_t>(Current));
    ++vSlots.back().Count;
  }
  CellReturn.SlotCount = static_cast<std::uint32_t>(vSlots.size()) - CellReturn.FirstSlot;
}

/// What a rule sees of a constituent.
StructurePair Chart::KeyOf(std::uint32_t Which, std::uint8_t Needs) const {
  const Constituent& Made = vConstituents[Which];
  return {(Needs & SourceTrie::NeedsSource) != 0 ? Made.Source : StructureId{StructureStore::Open},
          (Needs & SourceTrie::NeedsTarget) != 0 ? Made.Target : StructureId{StructureStore::Open}};
}

/// Makes the groups that the constituents for a slot fall into, unless they are there.
void Chart::NeedGroups(std::uint32_t Entry, std::uint8_t Needs) {
  if (vSlots[Entry].FirstGroup[Needs] == None) {
    MakeGroups(vSlots[Entry], Needs);
  }
}

void Chart::MakeGroups(SlotEntry& EntryReturn, std::uint8_t Needs) {
  const auto FirstGroup = static_cast<std::uint32_t>(vGroups.size());
  EntryReturn.FirstGroup[Needs] = FirstGroup;
  if (Needs == 0) {
    EntryReturn.GroupCount[Needs] = 1;
    vGroups.push_back({{},
                       EntryReturn.First,
                       EntryReturn.Count,
                       BestScore(EntryReturn.First, EntryReturn.Count)});
    return;
  }
  const auto NumberOf = [&](std::uint32_t Which) {
    const StructurePair Key = KeyOf(Which, Needs);
    return Pair(Key.Source, Key.Target);
  };
  const auto First = vMembers.begin() + EntryReturn.First;
  vSorted.assign(First, First + EntryReturn.Count);
  std::stable_sort(vSorted.begin(), vSorted.end(), [&](std::uint32_t Left, std::uint32_t Right) {
    return NumberOf(Left) < NumberOf(Right);
  });
  std::uint32_t Begin = 0;
  while (Begin < vSorted.size()) {
    std::uint32_t End = Begin + 1;
    while (End < vSorted.size() && NumberOf(vSorted[Begin]) == NumberOf(vSorted[End])) {
      ++End;
    }
    vGroups.push_back({KeyOf(vSorted[Begin], Needs), static_cast<std::uint32_t>(vMembers.size()),
                       End - Begin, 0});
    vMembers.insert(vMembers.end(), vSorted.begin() + Begin, vSorted.begin() + End);
    vGroups.back().Score = BestScore(vGroups.back().First, End - Begin);
    Begin = End;
  }
  EntryReturn.GroupCount[Needs] = static_cast<std::uint32_t>(vGroups.size()) - FirstGroup;
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
      [](const SlotEntry& Entry, SourceSymbol Wanted) { return Entry.Slot < Wanted; });
  return Found == Last || Found->Slot != Slot ? None
                                              : static_cast<std::uint32_t>(Found - vSlots.begin());
}

/// What is looked at of the last part of an item.
StructurePair Chart::LastKeyOf(const Item& Partial) const {
  return Rules.Trie().Needs(Partial.Node) == 0 ? StructurePair() : Equations->LastKey(Partial.Keys);
}

/// The group that has a key among those that fill the slot at a node of the trie with a span;
/// `None` where there is none.
std::uint32_t Chart::FindGroup(std::uint32_t Start, std::uint32_t End, std::uint32_t Node,
                               const StructurePair& Key) const {
  const std::uint8_t Needs = Rules.Trie().Needs(Node);
  const Cell* In = FindCell(Start, End);
  const std::uint32_t Entry =
      In == nullptr ? std::uint32_t{None} : FindEntry(*In, Rules.Trie().Symbol(Node));
  if (Entry == None || vSlots[Entry].FirstGroup[Needs] == None) {
    return None;
  }
  const auto NumberOf = [](const StructurePair& Of) { return Pair(Of.Source, Of.Target); };
  const auto First = vGroups.begin() + vSlots[Entry].FirstGroup[Needs];
  const auto Last = First + vSlots[Entry].GroupCount[Needs];
  const auto Found = std::lower_bound(
      First, Last, NumberOf(Key),
      [&](const Group& Current, std::uint64_t Wanted) { return NumberOf(Current.Key) < Wanted; });
  return Found == Last || NumberOf(Found->Key) != NumberOf(Key)
             ? std::uint32_t{None}
             : static_cast<std::uint32_t>(Found - vGroups.begin());
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
    for (const SourceTrie::EdgeTo& To : Wanted) {
      const std::uint32_t Entry = FindEntry(Into, To.Symbol);
      if (Entry != None) {
        Follow(Before, To.Target, Over, Entry);
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

/// Adds the items that a node after an item and the constituents for its slot make.
void Chart::Follow(std::uint32_t Before, std::uint32_t Node, std::uint32_t Over,
                   std::uint32_t Entry) {
  const std::uint8_t Needs = Rules.Trie().Needs(Node);
  const std::uint32_t End = vCells[Over].End;
  const Evaluator::KeysId Earlier =
      Before == None ? Evaluator::KeysId{Evaluator::NoKeys} : vItems[Before].Keys;
  const std::int64_t Score = Before == None ? 0 : vItems[Before].Score;
  NeedGroups(Entry, Needs);
  const std::uint32_t First = vSlots[Entry].FirstGroup[Needs];
  for (std::uint32_t Index = First; Index < First + vSlots[Entry].GroupCount[Needs]; ++Index) {
    const Evaluator::KeysId Keys =
        Needs == 0 ? Earlier : Equations->AddKey(Earlier, vGroups[Index].Key);
    AddItem({Node, End, Keys, None, Before == None ? Index : Before, Score + vGroups[Index].Score});
  }
}

void Chart::FollowLiteral(std::uint32_t Before, std::uint32_t Node, std::uint32_t At) {
  if (vLiterals[At] == RuleSet::None || !Rules.Trie().HasLiterals(Node)) {
    return;
  }
  const std::uint32_t Target = Rules.Trie().Child(Node, vLiterals[At]);
  if (Target == NoEntry) {
    return;
  }
  if (Before == None) {
    AddItem({Target, At + 1, Evaluator::NoKeys, None, None, 0});
  } else {
    AddItem({Target, At + 1, vItems[Before].Keys, None, Before, vItems[Before].Score});
  }
}

/// The numbers of ways hold items with a mark, so there is an end to them in any case.
std::uint64_t Chart::MaxItems() const {
  constexpr std::uint64_t ForConstituent = 16;
  constexpr std::uint64_t Most = Way::UnaryMark - 1;
  if (Limits.MaxConstituents > Most / ForConstituent) {
    return Most;
  }
  return std::min(Most, std::max(Limits.MaxItems, Limits.MaxConstituents * ForConstituent));
}

/// Adds an item, or, where it is there already, only the step that leads to it.
void Chart::AddItem(const Item& New) {
  const auto HashOfItem = [](const Item& Current) {
    return Mixed(Pair(Current.Node, Current.Keys));
  };
  std::uint32_t& Slot = ItemIndex.Find(HashOfItem(New), [&](std::uint32_t Number) {
    return vItems[Number].Node == New.Node && vItems[Number].Keys == New.Keys;
  });
  const std::uint32_t Latest = Slot;
  if (Latest != NoEntry && vItems[Latest].End == New.End) {
    ++Steps;
    vItems[Latest].Score = std::max(vItems[Latest].Score, New.Score);
    // The items of a start are numbered in the order of their ends.
    vItems[Latest].Before = std::max(vItems[Latest].Before, New.Before);
    return;
  }
  if (vItems.size() >= MaxItems()) {
    HowFar = ChartOutcome::TooManyItems;
    return;
  }
  ++Steps;
  Slot = static_cast<std::uint32_t>(vItems.size());
  vItems.push_back(New);
  vItems.back().Previous = Latest;
  if (Latest == NoEntry) {
    ItemIndex.NoteAdded([&](std::uint32_t Number) { return HashOfItem(vItems[Number]); });
  }
}

// ---- Questions --------------------------------------------------------------------------------

SourceTrie::Range<Chart::Cell> Chart::CellsAt(std::size_t Start) const {
  const std::size_t Last = Start == 0 ? vCells.size() : vFirstCell[Start - 1];
  return {vCells.data() + vFirstCell[Start], vCells.data() + Last};
}

Chart::ItemRange Chart::ItemsAt(std::size_t Start) const {
  const std::size_t Last = Start == 0 ? vItems.size() : vFirstItem[Start - 1];
  return {vFirstItem[Start], static_cast<std::uint32_t>(Last)};
}

const Chart::Cell* Chart::FindCell(std::size_t Start, std::size_t End) const {
  const SourceTrie::Range<Cell> In = CellsAt(Start);
  // In an ambiguous text, there is a cell for each end.
  if (End > Start && In.size() >= End - Start && In.First[End - Start - 1].End == End) {
    return In.First + (End - Start - 1);
  }
  const Cell* Found = std::lower_bound(
      In.begin(), In.end(), End,
      [](const Cell& Current, std::size_t Wanted) { return Current.End < Wanted; });
  return Found != In.end() && Found->End == End ? Found : nullptr;
}

Chart::Counts Chart::Count() const {
  return {vConstituents.size(), vWays.size(), vItems.size(), Steps};
}

std::size_t Chart::Bytes() const {
  return vConstituents.size() * sizeof(Constituent) + vWays.size() * sizeof(Way) +
         vItems.size() * sizeof(Item) + vGroups.size() * sizeof(Group) +
         vCells.size() * sizeof(Cell) + vSlots.size() * sizeof(SlotEntry) +
         vMembers.size() * sizeof(std::uint32_t);
}

}  // namespace Translate
