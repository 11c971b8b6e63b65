#pragma once

#include "AtomSets.h"
#include "StructureStore.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Translate {

class TracedAtomSets;

/// What unifications need to keep in mind of where they are: nothing, and it costs nothing.
class NoTrail {
 public:
  void Start() {}
  void Take() {}
  void Enter(std::uint32_t) {}
  bool NoteClash(std::uint32_t, std::uint32_t) { return false; }
};

/// Knows by which features a unification has come to the nodes that clash, and lets it go on to the
/// other ones.
class ClashTrail {
 public:
  /// Two nodes that cannot be one, and the features that lead there from where both began.
  struct Clash {
    std::vector<std::uint32_t> vFeatures;
    std::uint32_t Left;
    std::uint32_t Right;
  };

  void Start();
  /// The pair of nodes that was entered last, and not taken yet, is worked on.
  void Take();
  /// A pair of nodes is to be worked on: those after a feature of the present one.
  void Enter(std::uint32_t Feature);
  bool NoteClash(std::uint32_t Left, std::uint32_t Right);

  const std::vector<Clash>& Clashes() const { return vClashes; }

 private:
  struct Place {
    std::uint32_t Before;
    std::uint32_t Feature;
  };

  std::vector<Place> vPlaces;
  std::vector<std::uint32_t> vEntered;
  std::uint32_t Present = NoEntry;
  std::vector<Clash> vClashes;
};

/// What a kind of atom sets goes with.
template <typename AtomsT>
struct TrailOf {
  using Type = NoTrail;
};
template <>
struct TrailOf<TracedAtomSets> {
  using Type = ClashTrail;
};

/// The structures of one rule while its equations are unified.
///
/// A node stands for a structure. What comes from a `StructureStore` stays there until a path or a
/// unification reaches into it; only then its features become nodes. Nothing recurses, however
/// deep a structure is.
///
/// @code
/// StructureStore Store;
/// AtomSets Atoms;
/// const StructureId Sg = Store.Atomic(Atoms.Intern({false, {0}}));
/// const StructureId Pl = Store.Atomic(Atoms.Intern({false, {1}}));
/// const std::uint32_t Num = 0;
/// Unifier Nodes(Store, Atoms);
/// const auto X1 = Nodes.Add(StructureStore::Open);
/// Nodes.Unify(Nodes.Make(X1, &Num, 1), Nodes.Add(Sg));  // true
/// Nodes.Freeze(X1);                                     // Store.Complex({1, 1, Num, Sg})
/// Nodes.Unify(Nodes.Look(X1, &Num, 1), Nodes.Add(Pl));  // false
/// @endcode
///
/// With `TracedAtomSets`, atoms know what gave them, and clashes where they are. Nothing else is
/// different, and with `AtomSets` nothing is paid for it.
template <typename AtomsT>
class BasicUnifier {
 public:
  using NodeId = std::uint32_t;
  static constexpr NodeId None = NoEntry;
  /// For one rule; where more are needed, `StructureTooLarge` is thrown.
  static constexpr std::size_t MaxNodes = std::size_t{1} << 20U;

  BasicUnifier(StructureStore& StorePassIn, AtomsT& AtomsPassIn)
      : Store(StorePassIn), Atoms(AtomsPassIn) {}

  /// Forgets all nodes.
  void Clear();

  /// A new node: a copy of a structure.
  NodeId Add(StructureId Structure);

  /// The node at the end of a path, which is made where it is not there.
  /// @return `None` where the path leads through an atom
  NodeId Make(NodeId From, const std::uint32_t* Features, std::size_t Count);

  /// The node at the end of a path; `None` where it is not there.
  NodeId Look(NodeId From, const std::uint32_t* Features, std::size_t Count);

  /// Makes two structures one. @return false if they clash
  bool Unify(NodeId Left, NodeId Right);

  /// Where the last unification clashed, if it is one that can tell.
  const typename TrailOf<AtomsT>::Type& LastTrail() const { return Trail; }

  bool IsOpen(NodeId Node) { return vNodes[Find(Node)].What == Kind::Open; }
  bool IsAtomic(NodeId Node) { return vNodes[Find(Node)].What == Kind::Atomic; }

  /// Whether features have become nodes of a structure in which something is shared. Where that is
  /// not so, and no two nodes of one structure were unified, no structure contains itself.
  bool HasShared() const { return ExpandedShared; }

  /// Whether some structure contains itself.
  bool HasCycle();

  /// The number of a node's structure, which must not contain itself.
  StructureId Freeze(NodeId Node);

 private:
  enum class Kind : std::uint8_t { Open, Atomic, Frozen, Complex };

  struct NodeState {
    NodeId Forward;       ///< itself, or what it has become one with
    std::uint32_t Value;  ///< the set of an atomic one, the structure of a frozen, the first arc
    Kind What;
    // What a walk notes of it.
    std::uint32_t Number;  ///< in the order of the walk, from 1; 0 if it was not reached
    std::uint32_t Last;    ///< the greatest number below it
    std::uint32_t Arrivals;
    NodeId Parent;
    StructureId Result;
    std::uint32_t Local;
    bool IsClosed;  ///< nothing below it is reached but through it
  };

  /// The arcs of a node are a list in the order of their features.
  struct Arc {
    std::uint32_t Feature;
    NodeId Target;
    std::uint32_t Next;
  };

  NodeId Find(NodeId Node);
  NodeId Push(Kind What, std::uint32_t Value);
  void Expand(NodeId Node);
  NodeId TargetOf(NodeId Node, std::uint32_t Feature);
  NodeId AddArc(NodeId Node, std::uint32_t Feature);
  bool Merge(NodeId Left, NodeId Right);
  bool MergeAtoms(NodeId Left, NodeId Right);
  void MergeArcs(NodeId Left, NodeId Right);
  void Walk(NodeId Root);
  void Enter(NodeId Node, NodeId Parent);
  void NoteShared();
  void MarkUpTo(NodeId Node, NodeId Other);
  bool IsBelow(const NodeState& Upper, const NodeState& Lower) const;
  StructureId Resolve(NodeId Node);
  StructureId KnotOf(NodeId Root);
  void NumberLocals(NodeId Root);
  bool IsOwn(const NodeState& State) const;
  std::uint32_t ArcCount(NodeId Node) const;

  /// A place in a walk: a node, and the arc that comes next.
  struct Step {
    NodeId Node;
    std::uint32_t NextArc;
  };

  StructureStore& Store;
  AtomsT& Atoms;
  typename TrailOf<AtomsT>::Type Trail;
  std::vector<NodeState> vNodes;
  std::vector<Arc> vArcs;
  std::vector<std::pair<NodeId, NodeId>> vPending;
  // Of a walk; kept for their storage.
  std::vector<Step> vSteps;
  std::vector<NodeId> vOrder;                         // the nodes that a walk left, in that order
  std::vector<std::pair<NodeId, NodeId>> vCrossings;  // arcs to nodes that had been reached before
  std::vector<NodeId> vReached;
  std::vector<NodeId> vLocals;
  std::vector<std::uint32_t> vKnot;
  std::vector<NodeId> vExpanded;
  std::uint32_t LastNumber = 0;
  bool ExpandedShared = false;
};

using Unifier = BasicUnifier<AtomSets>;
using TracedUnifier = BasicUnifier<TracedAtomSets>;

}  // namespace Translate
