// Sections: what is wanted, where it comes from, settling, clashes.

#include "SuppliedValues.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Grammar {

using Shape = GrammarShapes::Shape;
using Equation = GrammarShapes::Equation;

// ---- What is wanted ---------------------------------------------------------------------------

namespace {

constexpr std::uint32_t MaxPaths = 256;          // of a slot
constexpr std::size_t MaxAtoms = 1U << 16U;      // of a path
constexpr std::size_t MaxUnordered = 1U << 12U;  // atoms of a path

}  // namespace

/// The variable of a path, a new one where there is none. One path too many can
/// be anything.
std::uint32_t SuppliedValues::Demand(std::uint32_t Slot, std::uint32_t Path) {
  const std::uint32_t Number = Numbers.Intern(Slot, Path);
  if (Number == Variables.size()) {
    Variable& New = Variables.emplace_back();
    New.Slot = Slot;
    New.Path = Path;
    New.IsAny = ++vPathCounts[Slot] > MaxPaths;
  }
  return Number;
}

std::uint32_t SuppliedValues::Demand(const Shape& Which, const ShapeGraph::Origin& From,
                                     const std::vector<std::uint32_t>& vFeatures) {
  std::uint32_t Path = From.Path;
  for (const std::uint32_t Feature : vFeatures) {
    Path = Shapes.Extended(Path, Feature);
  }
  return Demand(Shapes.PlacesOf(Which).First[From.Place].Slot, Path);
}

/// A node with features has no value, and one that is given nothing clashes by
/// itself.
void SuppliedValues::AddMeetings(std::uint32_t Index) {
  const Shape& Which = Shapes.At(Index);
  if (Which.PlaceCount == 0 || Which.EquationCount == 0) {
    return;
  }
  Graph.Build(Which);
  for (std::size_t At = 0; At < Graph.Nodes().size(); ++At) {
    const ShapeGraph::Node& Node = Graph.Nodes()[At];
    const bool IsMet = Node.vOrigins.size() > (Node.Given.IsAnything() ? 1U : 0U);
    if (!Graph.IsOwn(At) || !Node.vFeatures.empty() || !IsMet || Node.Given.IsNothing()) {
      continue;
    }
    Meeting& New = Meetings.emplace_back();
    New.Shape = Index;
    New.Line = Node.ValueLine != 0 ? Node.ValueLine : Node.LinkLine;
    New.Given = Node.Given;
    New.vOrigins = Node.vOrigins;
    for (const ShapeGraph::Origin& Current : New.vOrigins) {
      New.vVariables.push_back(Demand(Which, Current, {}));
    }
  }
}

// ---- Where it comes from ----------------------------------------------------------------------

/// @return false if the path can be anything
bool SuppliedValues::AddGiven(std::uint32_t Number, const AtomRange& Given) {
  if (Given.IsNegated) {
    return false;
  }
  std::vector<std::uint32_t>& vNew = Variables[Number].vNew;
  vNew.insert(vNew.end(), Given.vAtoms.begin(), Given.vAtoms.end());
  return true;
}

/// Of a shape without links, such as an entry of a lexicon: only values of the
/// very path count.
bool SuppliedValues::AddFlowOfValues(std::uint32_t Number, const Shape& Which) {
  AtomRange Any;
  AtomRange Not;
  for (const Equation& Current : Shapes.EquationsOf(Which)) {
    if (Current.Left.Node != 0 || Current.Left.Path != Variables[Number].Path) {
      continue;
    }
    AtomRange& Range = Current.What == GrammarShapes::Kind::Any ? Any : Not;
    Any.IsNegated = Any.IsNegated && Current.What == GrammarShapes::Kind::Not;
    for (std::uint32_t Index = 0; Index < Current.AtomCount; ++Index) {
      Range.vAtoms.push_back(Shapes.AtomAt(Current.FirstAtom + Index));
    }
  }
  Tidy(Any.vAtoms);
  Tidy(Not.vAtoms);
  return AddGiven(Number, Common(Any, Not));
}

/// @return false if the shape lets the path be anything
bool SuppliedValues::AddFlow(std::uint32_t Number, const Shape& Which) {
  const auto IsLink = [](const Equation& Current) {
    return Current.What == GrammarShapes::Kind::Link;
  };
  const auto Equations = Shapes.EquationsOf(Which);
  if (!Which.IsUsable) {
    return false;
  }
  if (std::none_of(Equations.begin(), Equations.end(), IsLink)) {
    return AddFlowOfValues(Number, Which);
  }
  Graph.Build(Which);
  const ShapeGraph::Node& Node = Graph.Follow(Variables[Number].Path, vRest);
  if (vRest.empty() ? !Node.vFeatures.empty() : !Node.Given.IsAnything()) {
    return false;
  }
  if (Node.vOrigins.empty()) {
    return AddGiven(Number, Node.Given);
  }
  Flow& New = Flows.emplace_back();
  New.To = Number;
  New.Given = Node.Given;
  for (const ShapeGraph::Origin& Current : Node.vOrigins) {
    New.vFrom.push_back(Demand(Which, Current, vRest));
  }
  for (const std::uint32_t From : New.vFrom) {
    Variables[From].vUsers.push_back(static_cast<std::uint32_t>(Flows.size() - 1));
  }
  return true;
}

void SuppliedValues::Expand(std::uint32_t Number) {
  for (const std::uint32_t Current : Shapes.ProvidersOf(Variables[Number].Slot)) {
    if (Variables[Number].IsAny || !AddFlow(Number, Shapes.At(Current))) {
      SetAny(Number);
      return;
    }
  }
  TakeNewAtoms(Number);
}

// ---- Settling ---------------------------------------------------------------------------------

void SuppliedValues::Wake(std::uint32_t Number) {
  if (!Variables[Number].IsWaiting) {
    Variables[Number].IsWaiting = true;
    Waiting.push_back(Number);
  }
}

void SuppliedValues::SetAny(std::uint32_t Number) {
  Variable& Current = Variables[Number];
  Current.IsAny = true;
  Current.vAtoms = {};
  Current.vNew = {};
  Wake(Number);
}

/// Atoms come in one by one where there are many entries, so that they are put
/// in order later.
void SuppliedValues::AddAtoms(std::uint32_t Number, const std::vector<std::uint32_t>& vAtoms) {
  Variable& Current = Variables[Number];
  for (const std::uint32_t Atom : vAtoms) {
    if (!std::binary_search(Current.vAtoms.begin(), Current.vAtoms.end(), Atom)) {
      Current.vNew.push_back(Atom);
    }
  }
  if (!Current.vNew.empty()) {
    Wake(Number);
  }
  if (Current.vNew.size() > Current.vAtoms.size() + MaxUnordered) {
    TakeNewAtoms(Number);
  }
}

void SuppliedValues::TakeNewAtoms(std::uint32_t Number) {
  Variable& Current = Variables[Number];
  Current.vAtoms.insert(Current.vAtoms.end(), Current.vNew.begin(), Current.vNew.end());
  Current.vNew.clear();
  Tidy(Current.vAtoms);
  if (Current.vAtoms.size() > MaxAtoms) {
    SetAny(Number);
  }
}

void SuppliedValues::Apply(const Flow& Current) {
  if (Variables[Current.To].IsAny) {
    return;
  }
  AtomRange Range = Current.Given;
  for (const std::uint32_t From : Current.vFrom) {
    if (!Variables[From].IsAny) {
      Narrow(Range, Variables[From].vAtoms);
    }
  }
  if (Range.IsNegated) {
    SetAny(Current.To);
  } else {
    AddAtoms(Current.To, Range.vAtoms);
  }
}

/// Lets values flow until nothing is new. They only ever become more, so that
/// the order does not matter.
void SuppliedValues::Settle() {
  std::for_each(Flows.begin(), Flows.end(), [this](const Flow& Current) { Apply(Current); });
  while (!Waiting.empty()) {
    const std::uint32_t Number = Waiting.front();
    Waiting.pop_front();
    Variables[Number].IsWaiting = false;
    TakeNewAtoms(Number);
    for (const std::uint32_t User : Variables[Number].vUsers) {
      Apply(Flows[User]);
    }
  }
}

// ---- Clashes ----------------------------------------------------------------------------------

/// Where a place gets no value at all, nothing can fill it; that is another
/// matter.
bool SuppliedValues::IsClash(const Meeting& Current) const {
  AtomRange Range = Current.Given;
  for (const std::uint32_t Number : Current.vVariables) {
    const Variable& From = Variables[Number];
    if (!From.IsAny && From.vAtoms.empty()) {
      return false;
    }
    if (!From.IsAny) {
      Narrow(Range, From.vAtoms);
    }
  }
  return Range.IsNothing();
}

SuppliedValues::Clash SuppliedValues::ClashOf(const Meeting& Current) const {
  Clash Found{Current.Shape, Current.Line, {}};
  for (std::size_t Index = 0; Index < Current.vVariables.size(); ++Index) {
    const Variable& From = Variables[Current.vVariables[Index]];
    if (!From.IsAny) {
      Supply& New = Found.vSupplies.emplace_back();
      New.From = Current.vOrigins[Index];
      New.Count = From.vAtoms.size();
      New.vAtoms = New.Count > Supply::MaxAtoms ? std::vector<std::uint32_t>() : From.vAtoms;
    }
  }
  return Found;
}

std::vector<SuppliedValues::Clash> SuppliedValues::FindClashes() {
  vPathCounts.assign(Shapes.SlotCount(), 0);
  for (std::uint32_t Index = 0; Index < Shapes.Size(); ++Index) {
    AddMeetings(Index);
  }
  for (std::uint32_t Number = 0; Number < Variables.size(); ++Number) {
    Expand(Number);
  }
  Settle();
  std::vector<Clash> vClashes;
  for (const Meeting& Current : Meetings) {
    if (IsClash(Current)) {
      vClashes.push_back(ClashOf(Current));
    }
  }
  return vClashes;
}

}  // namespace Grammar
