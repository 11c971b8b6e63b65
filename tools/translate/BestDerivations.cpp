// Sections: nodes, candidates, the best, those after it, goals, counting.

#include "BestDerivations.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace Translate {

// ---- Nodes ------------------------------------------------------------------------------------

void BestDerivations::Begin() {
  const std::size_t Nodes =
      Parsed.Constituents().size() + Parsed.Items().size() + Parsed.Groups().size() + 1;
  Store.Clear();
  Texts.Clear();
  vBest.assign(Nodes, NoEntry);
  vFrontiers.clear();
  Opened.clear();
  vCounts.clear();
  vIsTooMany.clear();
  vGoals.clear();
  NextRank = 0;
}

BestDerivations::NodeId BestDerivations::NodeOfItem(std::uint32_t Item) const {
  return static_cast<NodeId>(Parsed.Constituents().size() + Item);
}

BestDerivations::NodeId BestDerivations::NodeOfGroup(std::uint32_t Group) const {
  return static_cast<NodeId>(Parsed.Constituents().size() + Parsed.Items().size() + Group);
}

BestDerivations::NodeId BestDerivations::GoalsNode() const {
  return static_cast<NodeId>(vBest.size() - 1);
}

BestDerivations::Kind BestDerivations::KindOf(NodeId Node) const {
  if (Node < Parsed.Constituents().size() || Node == GoalsNode()) {
    return Kind::Constituent;
  }
  return Node < NodeOfGroup(0) ? Kind::Item : Kind::Group;
}

/// Visits the ways of a constituent, the steps of an item, or the members of a group, each with the
/// nodes that it is made of.
template <typename VisitT>
void BestDerivations::ForEachAlternative(NodeId Node, VisitT Visit) const {
  switch (KindOf(Node)) {
    case Kind::Constituent:
      if (Node == GoalsNode()) {
        for (const std::uint32_t Way : vGoals) {
          Visit(Parts{Way, PartOfWay(Way), NoEntry});
        }
        break;
      }
      for (std::uint32_t Way = Parsed.Constituents()[Node].FirstWay; Way != NoEntry;
           Way = Parsed.Ways()[Way].Next) {
        Visit(Parts{Way, PartOfWay(Way), NoEntry});
      }
      break;
    case Kind::Item:
      Parsed.ForEachStep(Node - NodeOfItem(0), [&](std::uint32_t Before, std::uint32_t Group) {
        Visit(Parts{Before, Before == NoEntry ? NoEntry : NodeOfItem(Before),
                    Group == NoEntry ? NoEntry : NodeOfGroup(Group)});
      });
      break;
    case Kind::Group: {
      const Chart::Group& Group = Parsed.Groups()[Node - NodeOfGroup(0)];
      for (std::uint32_t Index = 0; Index < Group.Count; ++Index) {
        const std::uint32_t Member = Parsed.Members()[Group.First + Index];
        Visit(Parts{Member, Member, NoEntry});
      }
      break;
    }
  }
}

BestDerivations::NodeId BestDerivations::PartOfWay(std::uint32_t Way) const {
  const Chart::Way& Taken = Parsed.Ways()[Way];
  return Taken.IsUnary() ? Taken.Part() : NodeOfItem(Taken.Part());
}

// ---- Candidates -------------------------------------------------------------------------------

int BestDerivations::Compare(Kind What, const Candidate& Left, const Candidate& Right) const {
  if (What == Kind::Constituent) {
    const std::uint32_t One = Parsed.Ways()[Left.Made.Alternative].Rule;
    const std::uint32_t Other = Parsed.Ways()[Right.Made.Alternative].Rule;
    if (One != Other) {
      return One < Other ? -1 : 1;
    }
    return Store.CompareLists(Left.First, Right.First);
  }
  if (What != Kind::Item) {
    return Store.CompareTrees(Left.First, Right.First);
  }
  const int First = Store.CompareLists(Left.First, Right.First);
  return First != 0 || Left.Last == NoEntry ? First : Store.CompareTrees(Left.Last, Right.Last);
}

bool BestDerivations::IsBetter(Kind What, const Candidate& Left, const Candidate& Right) const {
  return Left.Score != Right.Score ? Left.Score > Right.Score : Compare(What, Left, Right) < 0;
}

/// An alternative with the parts of some rank, which have to be known.
BestDerivations::Candidate BestDerivations::MakeCandidate(Kind What, const Parts& Made,
                                                          std::uint32_t Rank,
                                                          std::uint32_t LastRank) {
  Candidate New{0, Made, Rank, LastRank, Derivations::NoList, NoEntry};
  if (Made.First != NoEntry) {
    New.First = Ranked(Made.First, Rank);
  }
  if (What == Kind::Constituent) {
    const Chart::Way& Way = Parsed.Ways()[Made.Alternative];
    New.First = Way.IsUnary() ? Store.List(Derivations::NoList, New.First) : New.First;
    New.Score = Store.ScoreOfList(New.First) + Way.Weight;
  } else if (What == Kind::Item) {
    New.Score = Store.ScoreOfList(New.First);
    if (Made.Last != NoEntry) {
      New.Last = Ranked(Made.Last, LastRank);
      New.Score += Store.ScoreOfTree(New.Last);
    }
  } else {
    New.Score = Store.ScoreOfTree(New.First);
  }
  return New;
}

/// The tree or the list that a candidate is.
std::uint32_t BestDerivations::Keep(NodeId Node, const Candidate& Which) {
  switch (KindOf(Node)) {
    case Kind::Constituent: {
      const Chart::Way& Way = Parsed.Ways()[Which.Made.Alternative];
      return Store.Tree(Way.Rule, Which.First, Way.Weight);
    }
    case Kind::Item:
      return Which.Last == NoEntry ? Which.First : Store.List(Which.First, Which.Last);
    default:
      return Which.First;
  }
}

// ---- The best ---------------------------------------------------------------------------------

/// The score of a node's best derivation, which the chart knows.
std::int64_t BestDerivations::ScoreOf(NodeId Node) const {
  switch (KindOf(Node)) {
    case Kind::Constituent:
      return Node == GoalsNode() ? ScoreOfGoals() : Parsed.Constituents()[Node].Score;
    case Kind::Item:
      return Parsed.Items()[Node - NodeOfItem(0)].Score;
    case Kind::Group:
      break;
  }
  return Parsed.Groups()[Node - NodeOfGroup(0)].Score;
}

std::int64_t BestDerivations::ScoreOfGoals() const {
  std::int64_t Best = std::numeric_limits<std::int64_t>::min();
  for (const std::uint32_t Way : vGoals) {
    Best = std::max(Best, Parsed.Ways()[Way].Weight + ScoreOf(PartOfWay(Way)));
  }
  return Best;
}

/// Visits the alternatives with the best score: only between those the rules have to decide.
template <typename VisitT>
void BestDerivations::ForEachBestAlternative(NodeId Node, VisitT Visit) const {
  const bool HasWeight = KindOf(Node) == Kind::Constituent;
  const std::int64_t Best = ScoreOf(Node);
  ForEachAlternative(Node, [&](const Parts& Current) {
    const std::int64_t Score = (HasWeight ? Parsed.Ways()[Current.Alternative].Weight : 0) +
                               (Current.First == NoEntry ? 0 : ScoreOf(Current.First)) +
                               (Current.Last == NoEntry ? 0 : ScoreOf(Current.Last));
    if (Score == Best) {
      Visit(Current);
    }
  });
}

/// Puts on the stack what has to be worked out before a node.
void BestDerivations::PushUnknownParts(NodeId Node, bool OnlyBest) {
  const auto Push = [&](const Parts& Current) {
    for (const NodeId Part : {Current.First, Current.Last}) {
      if (Part != NoEntry && !IsKnown(Part, OnlyBest)) {
        vStack.push_back(Part);
      }
    }
  };
  if (OnlyBest) {
    ForEachBestAlternative(Node, Push);
  } else {
    ForEachAlternative(Node, Push);
  }
}

void BestDerivations::ChooseBest(NodeId Node) {
  const Kind What = KindOf(Node);
  std::optional<Candidate> Best;
  ForEachBestAlternative(Node, [&](const Parts& Current) {
    const Candidate New = MakeCandidate(What, Current, 0, 0);
    if (!Best || IsBetter(What, New, *Best)) {
      Best = New;
    }
  });
  vBest[Node] = Keep(Node, *Best);
}

/// Works the best derivation of a node out, or its count, and first that of what it is made of.
void BestDerivations::Compute(NodeId Root, bool OnlyBest) {
  vStack.assign(1, Root);
  while (!vStack.empty()) {
    const NodeId Node = vStack.back();
    const std::size_t Size = vStack.size();
    if (!IsKnown(Node, OnlyBest)) {
      PushUnknownParts(Node, OnlyBest);
    }
    if (vStack.size() > Size) {
      continue;
    }
    vStack.pop_back();
    if (IsKnown(Node, OnlyBest)) {
      continue;
    }
    if (OnlyBest) {
      ChooseBest(Node);
    } else {
      CountNode(Node);
    }
  }
}

// ---- Those after it --------------------------------------------------------------------------

bool BestDerivations::Has(NodeId Node, std::uint32_t Rank) const {
  if (Rank == 0) {
    return true;
  }
  const std::uint32_t Index = vFrontiers.empty() ? NoEntry : vFrontiers[Node];
  return Index != NoEntry && Opened[Index].vBest.size() > Rank;
}

std::uint32_t BestDerivations::Ranked(NodeId Node, std::uint32_t Rank) const {
  return Rank == 0 ? vBest[Node] : Opened[vFrontiers[Node]].vBest[Rank];
}

void BestDerivations::PushCandidate(NodeId Node, const Candidate& New,
                                    Frontier& FrontierReturn) const {
  const Kind What = KindOf(Node);
  FrontierReturn.vHeap.push_back(New);
  std::push_heap(
      FrontierReturn.vHeap.begin(), FrontierReturn.vHeap.end(),
      [&](const Candidate& Left, const Candidate& Right) { return IsBetter(What, Right, Left); });
}

/// Whether a derivation gives words that the better ones of its node do not. Where it does not,
/// nothing that has it as a part gives new words, since a better one could be the part.
bool BestDerivations::IsWanted(NodeId Node, std::uint32_t Which, Frontier& FrontierReturn) {
  return !IsDistinct ||
         FrontierReturn.sTexts
             .insert(KindOf(Node) == Kind::Item ? Texts.OfList(Which) : Texts.OfTree(Which))
             .second;
}

/// Takes the best candidate; those that come after it have to wait for their parts.
void BestDerivations::TakeBest(NodeId Node, Frontier& FrontierReturn) {
  const Kind What = KindOf(Node);
  std::pop_heap(
      FrontierReturn.vHeap.begin(), FrontierReturn.vHeap.end(),
      [&](const Candidate& Left, const Candidate& Right) { return IsBetter(What, Right, Left); });
  const Candidate Used = FrontierReturn.vHeap.back();
  FrontierReturn.vHeap.pop_back();
  const std::uint32_t Kept = Keep(Node, Used);
  if (IsWanted(Node, Kept, FrontierReturn)) {
    FrontierReturn.vBest.push_back(Kept);
  }
  Candidate Next = Used;
  if (Used.Made.Last != NoEntry) {
    ++Next.LastRank;
    FrontierReturn.vPending.push_back(Next);
  }
  // Each pair of ranks is reached in one way only.
  if (Used.Made.First != NoEntry && Used.LastRank == 0) {
    Next = Used;
    ++Next.Rank;
    FrontierReturn.vPending.push_back(Next);
  }
}

/// What is known of a node beyond its best, with the best as the first.
BestDerivations::Frontier& BestDerivations::Open(NodeId Node) {
  if (vFrontiers.empty()) {
    vFrontiers.assign(vBest.size(), NoEntry);
  }
  if (vFrontiers[Node] != NoEntry) {
    return Opened[vFrontiers[Node]];
  }
  vFrontiers[Node] = static_cast<std::uint32_t>(Opened.size());
  Frontier& New = Opened.emplace_back();
  ForEachAlternative(Node, [&](const Parts& Current) {
    for (const NodeId Part : {Current.First, Current.Last}) {
      if (Part != NoEntry) {
        Compute(Part, true);
      }
    }
    PushCandidate(Node, MakeCandidate(KindOf(Node), Current, 0, 0), New);
  });
  TakeBest(Node, New);
  return New;
}

/// Whether a part of some rank is there; where that is not known yet, it is put on the stack.
BestDerivations::PartState BestDerivations::Require(NodeId Node, std::uint32_t Rank) {
  if (Node == NoEntry || Has(Node, Rank)) {
    return PartState::Known;
  }
  if (Open(Node).IsExhausted) {
    return PartState::Missing;
  }
  vWanted.push_back({Node, Rank});
  return PartState::Awaited;
}

/// Makes candidates of all that waits for its parts. @return false if some part is still awaited
bool BestDerivations::Settle(NodeId Node, Frontier& FrontierReturn) {
  while (!FrontierReturn.vPending.empty()) {
    const Candidate Pending = FrontierReturn.vPending.back();
    const PartState FirstPart = Require(Pending.Made.First, Pending.Rank);
    const PartState LastPart = FirstPart == PartState::Known
                                   ? Require(Pending.Made.Last, Pending.LastRank)
                                   : PartState::Known;
    if (FirstPart == PartState::Awaited || LastPart == PartState::Awaited) {
      return false;
    }
    FrontierReturn.vPending.pop_back();
    if (FirstPart == PartState::Known && LastPart == PartState::Known) {
      PushCandidate(Node, MakeCandidate(KindOf(Node), Pending.Made, Pending.Rank, Pending.LastRank),
                    FrontierReturn);
    }
  }
  return true;
}

/// Finds the next derivation of a node, unless parts of it have to be found before.
void BestDerivations::Advance(NodeId Node) {
  Frontier& Known = Open(Node);
  if (!Settle(Node, Known)) {
    return;
  }
  if (Known.vHeap.empty()) {
    Known.IsExhausted = true;
  } else {
    TakeBest(Node, Known);
  }
}

void BestDerivations::FindRanked(NodeId Root, std::uint32_t Rank) {
  vWanted.assign(1, {Root, Rank});
  while (!vWanted.empty()) {
    const Wanted Top = vWanted.back();
    if (Has(Top.Node, Top.Rank) || Open(Top.Node).IsExhausted) {
      vWanted.pop_back();
    } else {
      Advance(Top.Node);
    }
  }
}

// ---- Goals ------------------------------------------------------------------------------------

void BestDerivations::SetGoals(const std::vector<std::uint32_t>& vConstituents) {
  std::vector<std::uint32_t> vWays;
  for (const std::uint32_t Number : vConstituents) {
    for (std::uint32_t Way = Parsed.Constituents()[Number].FirstWay; Way != NoEntry;
         Way = Parsed.Ways()[Way].Next) {
      vWays.push_back(Way);
    }
  }
  SetGoalWays(std::move(vWays));
}

void BestDerivations::SetGoalWays(std::vector<std::uint32_t> vWays) {
  vGoals = std::move(vWays);
  vBest[GoalsNode()] = NoEntry;
  if (!vFrontiers.empty()) {
    vFrontiers[GoalsNode()] = NoEntry;
  }
  if (!vCounts.empty()) {
    vCounts[GoalsNode()] = 0;
    vIsTooMany[GoalsNode()] = false;
  }
  NextRank = 0;
}

void BestDerivations::WantDistinct(bool IsDistinctPassIn) {
  if (IsDistinct != IsDistinctPassIn) {
    vFrontiers.clear();
    Opened.clear();
  }
  IsDistinct = IsDistinctPassIn;
}

std::optional<Derivations::TreeId> BestDerivations::Next() {
  if (vGoals.empty()) {
    return std::nullopt;
  }
  const NodeId Goals = GoalsNode();
  Compute(Goals, true);
  FindRanked(Goals, NextRank);
  if (!Has(Goals, NextRank)) {
    return std::nullopt;
  }
  return Ranked(Goals, NextRank++);
}

// ---- Counting ---------------------------------------------------------------------------------

void BestDerivations::CountNode(NodeId Node) {
  std::uint64_t Sum = 0;
  bool IsTooMany = false;
  ForEachAlternative(Node, [&](const Parts& Current) {
    std::uint64_t Product = 1;
    for (const NodeId Part : {Current.First, Current.Last}) {
      if (Part != NoEntry) {
        IsTooMany = IsTooMany || vIsTooMany[Part] ||
                    __builtin_mul_overflow(Product, vCounts[Part], &Product);
      }
    }
    IsTooMany = IsTooMany || __builtin_add_overflow(Sum, Product, &Sum);
  });
  vCounts[Node] = IsTooMany ? 1 : Sum;
  vIsTooMany[Node] = IsTooMany;
}

std::optional<std::uint64_t> BestDerivations::CountGoals() {
  if (vGoals.empty()) {
    return 0;
  }
  if (vCounts.empty()) {
    vCounts.assign(vBest.size(), 0);
    vIsTooMany.assign(vBest.size(), false);
  }
  Compute(GoalsNode(), false);
  return vIsTooMany[GoalsNode()] ? std::nullopt
                                 : std::optional<std::uint64_t>(vCounts[GoalsNode()]);
}

}  // namespace Translate
