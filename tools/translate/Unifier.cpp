// Sections: trails, nodes, copying on demand, paths, unification, cycles, freezing.

#include "Unifier.h"

#include "TracedAtomSets.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>

namespace Translate {

// ---- Trails -----------------------------------------------------------------------------------

void ClashTrail::Start() {
  vPlaces.clear();
  vEntered.assign(1, NoEntry);
  vClashes.clear();
}

void ClashTrail::Take() {
  Present = vEntered.back();
  vEntered.pop_back();
}

void ClashTrail::Enter(std::uint32_t Feature) {
  vEntered.push_back(static_cast<std::uint32_t>(vPlaces.size()));
  vPlaces.push_back({Present, Feature});
}

bool ClashTrail::NoteClash(std::uint32_t Left, std::uint32_t Right) {
  Clash New{{}, Left, Right};
  for (std::uint32_t Index = Present; Index != NoEntry; Index = vPlaces[Index].Before) {
    New.vFeatures.push_back(vPlaces[Index].Feature);
  }
  std::reverse(New.vFeatures.begin(), New.vFeatures.end());
  vClashes.push_back(std::move(New));
  return true;
}

// ---- Nodes ------------------------------------------------------------------------------------

template <typename AtomsT>
void BasicUnifier<AtomsT>::Clear() {
  vNodes.clear();
  vArcs.clear();
  ExpandedShared = false;
}

template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::Push(Kind What, std::uint32_t Value) {
  const auto New = static_cast<NodeId>(vNodes.size());
  vNodes.push_back({New, Value, What, 0, 0, 0, None, 0, 0, true});
  return New;
}

template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::Add(StructureId Structure) {
  if (Store.IsOpen(Structure)) {
    return Push(Kind::Open, 0);
  }
  return Store.IsAtomic(Structure) ? Push(Kind::Atomic, Store.Atoms(Structure))
                                   : Push(Kind::Frozen, Structure);
}

/// What a node has become one with, with the way there made shorter.
template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::Find(NodeId Node) {
  while (vNodes[Node].Forward != Node) {
    const NodeId Next = vNodes[Node].Forward;
    vNodes[Node].Forward = vNodes[Next].Forward;
    Node = Next;
  }
  return Node;
}

// ---- Copying on demand ------------------------------------------------------------------------

/// Makes nodes of the features of a frozen structure. Those below stay frozen, unless something is
/// shared between them.
template <typename AtomsT>
void BasicUnifier<AtomsT>::Expand(NodeId Node) {
  if (vNodes.size() > MaxNodes) {
    throw StructureTooLarge("structures with more than " + std::to_string(MaxNodes) +
                            " features are unified");
  }
  const StructureId Structure = vNodes[Node].Value;
  const std::uint32_t* Word = Store.Knot(Structure);
  const std::uint32_t Locals = *Word++;
  ExpandedShared = ExpandedShared || Locals > 1;
  vExpanded.assign(1, Node);
  for (std::uint32_t Local = 1; Local < Locals; ++Local) {
    vExpanded.push_back(Push(Kind::Complex, NoEntry));
  }
  for (const NodeId Local : vExpanded) {
    const std::uint32_t Head = *Word++;
    if (StructureStore::IsAlias(Head)) {
      const NodeId Copy = Add(StructureStore::Unmarked(Head));
      vNodes[Local].Forward = Copy;
      continue;
    }
    std::uint32_t Last = NoEntry;
    vNodes[Local].What = Kind::Complex;
    vNodes[Local].Value = NoEntry;
    for (std::uint32_t Count = 0; Count < Head; ++Count) {
      const std::uint32_t Feature = *Word++;
      const std::uint32_t Target = *Word++;
      const NodeId To = StructureStore::IsLocal(Target)
                            ? vExpanded[StructureStore::Unmarked(Target)]
                            : Add(Target);
      const auto New = static_cast<std::uint32_t>(vArcs.size());
      vArcs.push_back({Feature, To, NoEntry});
      (Last == NoEntry ? vNodes[Local].Value : vArcs[Last].Next) = New;
      Last = New;
    }
  }
}

// ---- Paths ------------------------------------------------------------------------------------

template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::TargetOf(NodeId Node,
                                                                     std::uint32_t Feature) {
  std::uint32_t Index = vNodes[Node].Value;
  while (Index != NoEntry && vArcs[Index].Feature < Feature) {
    Index = vArcs[Index].Next;
  }
  return Index != NoEntry && vArcs[Index].Feature == Feature ? vArcs[Index].Target : None;
}

/// Adds a feature, with an open structure, to a node that does not have it.
template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::AddArc(NodeId Node,
                                                                   std::uint32_t Feature) {
  const NodeId Target = Push(Kind::Open, 0);
  const auto New = static_cast<std::uint32_t>(vArcs.size());
  std::uint32_t Before = NoEntry;
  std::uint32_t After = vNodes[Node].Value;
  while (After != NoEntry && vArcs[After].Feature < Feature) {
    Before = After;
    After = vArcs[After].Next;
  }
  vArcs.push_back({Feature, Target, After});
  (Before == NoEntry ? vNodes[Node].Value : vArcs[Before].Next) = New;
  return Target;
}

template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::Make(NodeId From,
                                                                 const std::uint32_t* Features,
                                                                 std::size_t Count) {
  NodeId At = Find(From);
  for (std::size_t Index = 0; Index < Count; ++Index) {
    if (vNodes[At].What == Kind::Atomic) {
      return None;
    }
    if (vNodes[At].What == Kind::Frozen) {
      Expand(At);
    } else if (vNodes[At].What == Kind::Open) {
      vNodes[At].What = Kind::Complex;
      vNodes[At].Value = NoEntry;
    }
    const NodeId Next = TargetOf(At, Features[Index]);
    At = Find(Next == None ? AddArc(At, Features[Index]) : Next);
  }
  return At;
}

template <typename AtomsT>
typename BasicUnifier<AtomsT>::NodeId BasicUnifier<AtomsT>::Look(NodeId From,
                                                                 const std::uint32_t* Features,
                                                                 std::size_t Count) {
  NodeId At = Find(From);
  for (std::size_t Index = 0; Index < Count; ++Index) {
    if (vNodes[At].What == Kind::Frozen) {
      Expand(At);
    }
    const NodeId Next =
        vNodes[At].What == Kind::Complex ? TargetOf(At, Features[Index]) : NodeId{None};
    if (Next == None) {
      return None;
    }
    At = Find(Next);
  }
  return At;
}

// ---- Unification ------------------------------------------------------------------------------

template <typename AtomsT>
bool BasicUnifier<AtomsT>::Unify(NodeId Left, NodeId Right) {
  vPending.assign(1, {Left, Right});
  Trail.Start();
  bool AreOne = true;
  while (!vPending.empty()) {
    const auto [One, Other] = vPending.back();
    vPending.pop_back();
    Trail.Take();
    if (!Merge(Find(One), Find(Other))) {
      AreOne = false;
      if (!Trail.NoteClash(Find(One), Find(Other))) {
        break;
      }
    }
  }
  return AreOne;
}

template <typename AtomsT>
bool BasicUnifier<AtomsT>::Merge(NodeId Left, NodeId Right) {
  if (Left == Right) {
    return true;
  }
  if (vNodes[Left].What == Kind::Open) {
    vNodes[Left].Forward = Right;
    return true;
  }
  if (vNodes[Right].What == Kind::Open) {
    vNodes[Right].Forward = Left;
    return true;
  }
  if (vNodes[Left].What == Kind::Atomic || vNodes[Right].What == Kind::Atomic) {
    return MergeAtoms(Left, Right);
  }
  // Two untouched copies of one structure become one copy of it.
  if (vNodes[Left].What != Kind::Frozen || vNodes[Right].What != Kind::Frozen ||
      vNodes[Left].Value != vNodes[Right].Value) {
    MergeArcs(Left, Right);
  }
  vNodes[Right].Forward = Left;
  return true;
}

template <typename AtomsT>
bool BasicUnifier<AtomsT>::MergeAtoms(NodeId Left, NodeId Right) {
  if (vNodes[Left].What != vNodes[Right].What) {
    return false;
  }
  const std::optional<AtomSetId> Both = Atoms.Intersect(vNodes[Left].Value, vNodes[Right].Value);
  if (Both) {
    vNodes[Left].Value = *Both;
    vNodes[Right].Forward = Left;
  }
  return Both.has_value();
}

/// Returns the left node the features of both; what both have is to be unified.
template <typename AtomsT>
void BasicUnifier<AtomsT>::MergeArcs(NodeId Left, NodeId Right) {
  for (const NodeId Node : {Left, Right}) {
    if (vNodes[Node].What == Kind::Frozen) {
      Expand(Node);
    }
  }
  std::uint32_t One = vNodes[Left].Value;
  std::uint32_t Other = vNodes[Right].Value;
  std::uint32_t Last = NoEntry;
  const auto Append = [&](std::uint32_t Number) {
    (Last == NoEntry ? vNodes[Left].Value : vArcs[Last].Next) = Number;
    Last = Number;
  };
  while (One != NoEntry && Other != NoEntry) {
    const bool IsFirst = vArcs[One].Feature <= vArcs[Other].Feature;
    if (vArcs[One].Feature == vArcs[Other].Feature) {
      vPending.emplace_back(vArcs[One].Target, vArcs[Other].Target);
      Trail.Enter(vArcs[One].Feature);
      Other = vArcs[Other].Next;
    }
    std::uint32_t& Taken = IsFirst ? One : Other;
    Append(Taken);
    Taken = vArcs[Taken].Next;
  }
  Append(One == NoEntry ? Other : One);
}

// ---- Cycles -----------------------------------------------------------------------------------

/// Walks from each node that has not been reached, and looks for an arc back to where it came from.
template <typename AtomsT>
bool BasicUnifier<AtomsT>::HasCycle() {
  for (NodeState& State : vNodes) {
    State.Number = 0;
  }
  enum State : std::uint32_t { Unseen, Inside, Left };
  for (NodeId Root = 0; Root < vNodes.size(); ++Root) {
    if (vNodes[Root].Forward != Root || vNodes[Root].What != Kind::Complex ||
        vNodes[Root].Number != Unseen) {
      continue;
    }
    vNodes[Root].Number = Inside;
    vSteps.assign(1, {Root, vNodes[Root].Value});
    while (!vSteps.empty()) {
      Step& Top = vSteps.back();
      if (Top.NextArc == NoEntry) {
        vNodes[Top.Node].Number = Left;
        vSteps.pop_back();
        continue;
      }
      const NodeId To = Find(vArcs[Top.NextArc].Target);
      Top.NextArc = vArcs[Top.NextArc].Next;
      if (vNodes[To].What != Kind::Complex || vNodes[To].Number == Left) {
        continue;
      }
      if (vNodes[To].Number == Inside) {
        return true;
      }
      vNodes[To].Number = Inside;
      vSteps.push_back({To, vNodes[To].Value});
    }
  }
  return false;
}

// ---- Freezing ---------------------------------------------------------------------------------

template <typename AtomsT>
StructureId BasicUnifier<AtomsT>::Freeze(NodeId Node) {
  Node = Find(Node);
  if (vNodes[Node].What != Kind::Complex) {
    return Resolve(Node);
  }
  Walk(Node);
  NoteShared();
  for (const NodeId Ordered : vOrder) {
    if (vNodes[Ordered].IsClosed) {
      vNodes[Ordered].Result = Resolve(Ordered);
    }
  }
  return vNodes[Node].Result;
}

template <typename AtomsT>
void BasicUnifier<AtomsT>::Enter(NodeId Node, NodeId Parent) {
  NodeState& State = vNodes[Node];
  State.Number = ++LastNumber;
  State.Last = LastNumber;
  State.Arrivals = 1;
  State.Parent = Parent;
  State.IsClosed = true;
  vReached.push_back(Node);
  vSteps.push_back({Node, State.What == Kind::Complex ? State.Value : NoEntry});
}

/// Goes depth first through all that can be reached.
template <typename AtomsT>
void BasicUnifier<AtomsT>::Walk(NodeId Root) {
  for (NodeState& State : vNodes) {
    State.Number = 0;
  }
  LastNumber = 0;
  vOrder.clear();
  vReached.clear();
  vCrossings.clear();
  vSteps.clear();
  Enter(Root, None);
  while (!vSteps.empty()) {
    const Step Top = vSteps.back();
    if (Top.NextArc == NoEntry) {
      vNodes[Top.Node].Last = LastNumber;
      vOrder.push_back(Top.Node);
      vSteps.pop_back();
      continue;
    }
    const NodeId To = Find(vArcs[Top.NextArc].Target);
    vSteps.back().NextArc = vArcs[Top.NextArc].Next;
    if (vNodes[To].Number == 0) {
      Enter(To, Top.Node);
    } else {
      ++vNodes[To].Arrivals;
      vCrossings.emplace_back(Top.Node, To);
    }
  }
}

template <typename AtomsT>
bool BasicUnifier<AtomsT>::IsBelow(const NodeState& Upper, const NodeState& Lower) const {
  return Upper.Number <= Lower.Number && Lower.Number <= Upper.Last;
}

/// An arc from one branch of the walk into another opens all nodes that both ends hang on, up to
/// where the branches part.
template <typename AtomsT>
void BasicUnifier<AtomsT>::NoteShared() {
  for (const auto& [From, To] : vCrossings) {
    MarkUpTo(From, To);
    MarkUpTo(vNodes[To].Parent, From);
  }
}

template <typename AtomsT>
void BasicUnifier<AtomsT>::MarkUpTo(NodeId Node, NodeId Other) {
  while (!IsBelow(vNodes[Node], vNodes[Other])) {
    vNodes[Node].IsClosed = false;
    Node = vNodes[Node].Parent;
  }
}

/// The number of a node that shares nothing below it with the outside.
template <typename AtomsT>
StructureId BasicUnifier<AtomsT>::Resolve(NodeId Node) {
  const NodeState& State = vNodes[Node];
  switch (State.What) {
    case Kind::Open:
      return StructureStore::Open;
    case Kind::Atomic:
      return Store.Atomic(State.Value);
    case Kind::Frozen:
      return State.Value;
    case Kind::Complex:
      break;
  }
  return KnotOf(Node);
}

/// Whether a node below a knot is not part of it.
template <typename AtomsT>
bool BasicUnifier<AtomsT>::IsOwn(const NodeState& State) const {
  return State.IsClosed && State.Arrivals == 1;
}

/// Collects the locals of a knot in the order of a walk.
template <typename AtomsT>
void BasicUnifier<AtomsT>::NumberLocals(NodeId Root) {
  vLocals.clear();
  vSteps.clear();
  for (NodeId Next = Root;;) {
    if (Next != None) {
      vNodes[Next].Local = static_cast<std::uint32_t>(vLocals.size());
      vLocals.push_back(Next);
      const bool HasArcs = Next == Root || !vNodes[Next].IsClosed;
      vSteps.push_back({Next, HasArcs ? vNodes[Next].Value : NoEntry});
      Next = None;
    }
    if (vSteps.empty()) {
      return;
    }
    Step& Top = vSteps.back();
    if (Top.NextArc == NoEntry) {
      vSteps.pop_back();
      continue;
    }
    const NodeId To = Find(vArcs[Top.NextArc].Target);
    Top.NextArc = vArcs[Top.NextArc].Next;
    const bool IsKnown = vNodes[To].Local < vLocals.size() && vLocals[vNodes[To].Local] == To;
    if (!IsOwn(vNodes[To]) && !IsKnown) {
      Next = To;
    }
  }
}

template <typename AtomsT>
std::uint32_t BasicUnifier<AtomsT>::ArcCount(NodeId Node) const {
  std::uint32_t Count = 0;
  for (std::uint32_t Index = vNodes[Node].Value; Index != NoEntry; Index = vArcs[Index].Next) {
    ++Count;
  }
  return Count;
}

// knot = count { local }
template <typename AtomsT>
StructureId BasicUnifier<AtomsT>::KnotOf(NodeId Root) {
  NumberLocals(Root);
  vKnot.assign(1, static_cast<std::uint32_t>(vLocals.size()));
  for (const NodeId Local : vLocals) {
    if (Local != Root && vNodes[Local].IsClosed) {
      vKnot.push_back(StructureStore::Alias(vNodes[Local].Result));
      continue;
    }
    vKnot.push_back(ArcCount(Local));
    for (std::uint32_t Index = vNodes[Local].Value; Index != NoEntry; Index = vArcs[Index].Next) {
      const NodeId To = Find(vArcs[Index].Target);
      vKnot.push_back(vArcs[Index].Feature);
      vKnot.push_back(IsOwn(vNodes[To]) ? vNodes[To].Result
                                        : StructureStore::LocalTarget(vNodes[To].Local));
    }
  }
  return Store.Complex(vKnot);
}

template class BasicUnifier<AtomSets>;
template class BasicUnifier<TracedAtomSets>;

}  // namespace Translate
