// Sections: nodes, candidates, the best, those behind it, goals, counting.

#include "BestDerivations.h"

#include <algorithm>
#include <utility>

namespace Translate {

// ---- Nodes ------------------------------------------------------------------------------------

void BestDerivations::Begin() {
  const std::size_t Nodes =
      Parsed.Constituents().size() + Parsed.Items().size() + Parsed.Groups().size() + 1;
  Store.Clear();
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
  if (Node < Parsed.Constituents().size()) {
    return Kind::Constituent;
  }
  if (Node < NodeOfGroup(0)) {
    return Kind::Item;
  }
  return Node == GoalsNode() ? Kind::Goals : Kind::Group;
}

/// Visits the ways of a constituent, the steps of an item, or the members of a group.
template <typename VisitT>
void BestDerivations::ForEachAlternative(NodeId Node, VisitT Visit) const {
  switch (KindOf(Node)) {
    case Kind::Constituent:
      for (std::uint32_t Way = Parsed.Constituents()[Node].FirstWay; Way != NoEntry;
           Way = Parsed.Ways()[Way].Next) {
        Visit(Way);
      }
      break;
    case Kind::Item:
      for (std::uint32_t Step = Parsed.Items()[Node - NodeOfItem(0)].FirstStep; Step != NoEntry;
           Step = Parsed.Steps()[Step].Next) {
        Visit(Step);
      }
      break;
    case Kind::Group: {
      const Chart::Group& Group = Parsed.Groups()[Node - NodeOfGroup(0)];
      for (std::uint32_t Index = 0; Index < Group.Count; ++Index) {
        Visit(Parsed.Members()[Group.First + Index]);
      }
      break;
    }
    case Kind::Goals:
      for (const std::uint32_t Goal : vGoals) {
        Visit(Goal);
      }
      break;
  }
}

/// The one or two nodes that an alternative is made of; `NoEntry` for none.
void BestDerivations::PartsOf(NodeId Node, std::uint32_t Alternative, NodeId& FirstReturn,
                              NodeId& LastReturn) const {
  LastReturn = NoEntry;
  switch (KindOf(Node)) {
    case Kind::Constituent: {
      const Chart::Way& Way = Parsed.Ways()[Alternative];
      const bool IsUnary = Parsed.Grammar().IsUnary(Parsed.Grammar().At(Way.Rule));
      FirstReturn = IsUnary ? Way.From : NodeOfItem(Way.From);
      break;
    }
    case Kind::Item: {
      const Chart::Step& Step = Parsed.Steps()[Alternative];
      FirstReturn = Step.Before == NoEntry ? NoEntry : NodeOfItem(Step.Before);
      LastReturn = Step.Group == NoEntry ? NoEntry : NodeOfGroup(Step.Group);
      break;
    }
    case Kind::Group:
    case Kind::Goals:
      FirstReturn = Alternative;
      break;
  }
}

// ---- Candidates -------------------------------------------------------------------------------

int BestDerivations::Compare(Kind What, const Candidate& Left, const Candidate& Right) const {
  if (What == Kind::Constituent) {
    const std::uint32_t One = Parsed.Ways()[Left.Alternative].Rule;
    const std::uint32_t Other = Parsed.Ways()[Right.Alternative].Rule;
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
BestDerivations::Candidate BestDerivations::MakeCandidate(NodeId Node, std::uint32_t Alternative,
                                                          std::uint32_t Rank,
                                                          std::uint32_t LastRank) {
  NodeId FirstPart = NoEntry;
  NodeId LastPart = NoEntry;
  PartsOf(Node, Alternative, FirstPart, LastPart);
  Candidate New{0, Alternative, Rank, LastRank, Derivations::NoList, NoEntry};
  if (FirstPart != NoEntry) {
    New.First = Ranked(FirstPart, Rank);
  }
  switch (KindOf(Node)) {
    case Kind::Constituent: {
      const RuleSet::Rule& Rule = Parsed.Grammar().At(Parsed.Ways()[Alternative].Rule);
      if (Parsed.Grammar().IsUnary(Rule)) {
        New.First = Store.List(Derivations::NoList, New.First);
      }
      New.Score = Store.ScoreOfList(New.First) + Rule.Weight;
      break;
    }
    case Kind::Item:
      New.Score = Store.ScoreOfList(New.First);
      if (LastPart != NoEntry) {
        New.Last = Ranked(LastPart, LastRank);
        New.Score += Store.ScoreOfTree(New.Last);
      }
      break;
    case Kind::Group:
    case Kind::Goals:
      New.Score = Store.ScoreOfTree(New.First);
      break;
  }
  return New;
}

/// The tree or the list that a candidate is.
std::uint32_t BestDerivations::Keep(NodeId Node, const Candidate& Which) {
  switch (KindOf(Node)) {
    case Kind::Constituent: {
      const std::uint32_t Rule = Parsed.Ways()[Which.Alternative].Rule;
      return Store.Tree(Rule, Which.First, Parsed.Grammar().At(Rule).Weight);
    }
    case Kind::Item:
      return Which.Last == NoEntry ? Which.First : Store.List(Which.First, Which.Last);
    default:
      return Which.First;
  }
}

// ---- The best ---------------------------------------------------------------------------------

/// Works nodes out, each after those that its alternatives are made of.
template <typename IsKnownT, typename WorkOutT>
void BestDerivations::WorkOut(NodeId Root, IsKnownT IsKnown, WorkOutT WorkOutNode) {
  vStack.assign(1, Root);
  while (!vStack.empty()) {
    const NodeId Node = vStack.back();
    if (IsKnown(Node)) {
      vStack.pop_back();
      continue;
    }
    const std::size_t Size = vStack.size();
    ForEachAlternative(Node, [&](std::uint32_t Alternative) {
      NodeId First = NoEntry;
      NodeId Last = NoEntry;
      PartsOf(Node, Alternative, First, Last);
      for (const NodeId Part : {First, Last}) {
        if (Part != NoEntry && !IsKnown(Part)) {
          vStack.push_back(Part);
        }
      }
    });
    if (vStack.size() == Size) {
      WorkOutNode(Node);
      vStack.pop_back();
    }
  }
}

void BestDerivations::ChooseBest(NodeId Node) {
  const Kind What = KindOf(Node);
  std::optional<Candidate> Best;
  ForEachAlternative(Node, [&](std::uint32_t Alternative) {
    const Candidate New = MakeCandidate(Node, Alternative, 0, 0);
    if (!Best || IsBetter(What, New, *Best)) {
      Best = New;
    }
  });
  vBest[Node] = Keep(Node, *Best);
}

void BestDerivations::FindBest(NodeId Root) {
  WorkOut(
      Root, [&](NodeId Node) { return vBest[Node] != NoEntry; },
      [&](NodeId Node) { ChooseBest(Node); });
}

// ---- Those behind it --------------------------------------------------------------------------

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

/// Takes the best candidate; those that come behind it have to wait for their parts.
void BestDerivations::TakeBest(NodeId Node, Frontier& FrontierReturn) {
  const Kind What = KindOf(Node);
  std::pop_heap(
      FrontierReturn.vHeap.begin(), FrontierReturn.vHeap.end(),
      [&](const Candidate& Left, const Candidate& Right) { return IsBetter(What, Right, Left); });
  const Candidate Used = FrontierReturn.vHeap.back();
  FrontierReturn.vHeap.pop_back();
  FrontierReturn.vBest.push_back(Keep(Node, Used));
  NodeId First = NoEntry;
  NodeId Last = NoEntry;
  PartsOf(Node, Used.Alternative, First, Last);
  Candidate Next = Used;
  if (Last != NoEntry) {
    ++Next.LastRank;
    FrontierReturn.vPending.push_back(Next);
  }
  // Each pair of ranks is reached in one way only.
  if (First != NoEntry && Used.LastRank == 0) {
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
  if (vFrontiers[Node] == NoEntry) {
    vFrontiers[Node] = static_cast<std::uint32_t>(Opened.size());
    Frontier& New = Opened.emplace_back();
    ForEachAlternative(Node, [&](std::uint32_t Alternative) {
      PushCandidate(Node, MakeCandidate(Node, Alternative, 0, 0), New);
    });
    TakeBest(Node, New);
  }
  return Opened[vFrontiers[Node]];
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

/// Makes candidates of all that waits for its parts. @return false where some part is still awaited
bool BestDerivations::Settle(NodeId Node, Frontier& FrontierReturn) {
  while (!FrontierReturn.vPending.empty()) {
    const Candidate Each = FrontierReturn.vPending.back();
    NodeId First = NoEntry;
    NodeId Last = NoEntry;
    PartsOf(Node, Each.Alternative, First, Last);
    const PartState FirstPart = Require(First, Each.Rank);
    const PartState LastPart =
        FirstPart == PartState::Known ? Require(Last, Each.LastRank) : PartState::Known;
    if (FirstPart == PartState::Awaited || LastPart == PartState::Awaited) {
      return false;
    }
    FrontierReturn.vPending.pop_back();
    if (FirstPart == PartState::Known && LastPart == PartState::Known) {
      PushCandidate(Node, MakeCandidate(Node, Each.Alternative, Each.Rank, Each.LastRank),
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

void BestDerivations::SetGoals(std::vector<std::uint32_t> vConstituents) {
  vGoals = std::move(vConstituents);
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

std::optional<Derivations::TreeId> BestDerivations::Next() {
  if (vGoals.empty()) {
    return std::nullopt;
  }
  const NodeId Goals = GoalsNode();
  FindBest(Goals);
  if (NextRank > 0) {
    FindRanked(Goals, NextRank);
  }
  if (!Has(Goals, NextRank)) {
    return std::nullopt;
  }
  return Ranked(Goals, NextRank++);
}

// ---- Counting ---------------------------------------------------------------------------------

void BestDerivations::CountNode(NodeId Node) {
  std::uint64_t Sum = 0;
  bool IsTooMany = false;
  ForEachAlternative(Node, [&](std::uint32_t Alternative) {
    NodeId First = NoEntry;
    NodeId Last = NoEntry;
    PartsOf(Node, Alternative, First, Last);
    std::uint64_t Product = 1;
    for (const NodeId Part : {First, Last}) {
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
  WorkOut(
      GoalsNode(), [&](NodeId Node) { return vCounts[Node] != 0; },
      [&](NodeId Node) { CountNode(Node); });
  return vIsTooMany[GoalsNode()] ? std::nullopt
                                 : std::optional<std::uint64_t>(vCounts[GoalsNode()]);
}

}  // namespace Translate
