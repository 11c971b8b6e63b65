// Sections: a rule, stages, equations, paths, cycles, origins.

#include "Tracer.h"

#include <algorithm>
#include <utility>

namespace Translate {

// ---- A rule -----------------------------------------------------------------------------------

Tracer::Tracer(const RuleSet& RulesPassIn)
    : Rules(RulesPassIn), Sets(RulesPassIn.Atoms()), X(Store, Sets), Y(Store, Sets) {}

StructurePair Tracer::Apply(const RuleSet::Rule& Rule, const std::vector<StructurePair>& vParts) {
  vClashes.clear();
  if (Rule.Evaluation == RuleSet::None) {
    return {};
  }
  Steps = &Rules.ProgramAt(Rules.EvaluationAt(Rule.Evaluation).Program);
  Here.File = Rule.File;
  SetEquations(Rule);
  RunStage(vParts, true);
  const StructureId Source = X.Nodes.Freeze(X.vRoots[0]);
  RunStage(vParts, false);
  return {Source, Y.Nodes.Freeze(Y.vRoots[0])};
}

void Tracer::Trim() {
  constexpr std::size_t MaxEntries = std::size_t{1} << 20;
  if (Store.Size() > MaxEntries || Sets.Size() > MaxEntries) {
    Store.Clear();
    Sets = TracedAtomSets(Rules.Atoms());
  }
}

/// Puts the equations in order: a program has values before links, whatever their lines.
void Tracer::SetEquations(const RuleSet::Rule& Rule) {
  const std::pair<StepKind, std::size_t> Sizes[] = {
      {StepKind::AnalysisValue, Steps->vAnalysisValues.size()},
      {StepKind::AnalysisLink, Steps->vAnalysisLinks.size()},
      {StepKind::Transfer, Steps->vTransfers.size()},
      {StepKind::GenerationValue, Steps->vGenerationValues.size()},
      {StepKind::GenerationLink, Steps->vGenerationLinks.size()}};
  vEquations.clear();
  for (const auto& [Kind, Size] : Sizes) {
    for (std::size_t Index = 0; Index < Size; ++Index) {
      vEquations.push_back({Kind, Index, Rules.LineOfStep(Rule, vEquations.size()), std::nullopt});
    }
  }
  const auto IsOfLater = [](StepKind Kind) {
    return Kind < StepKind::Transfer ? 0 : Kind == StepKind::Transfer ? 1 : 2;
  };
  std::stable_sort(vEquations.begin(), vEquations.end(),
                   [&](const Equation& Left, const Equation& Right) {
                     return std::pair(IsOfLater(Left.Kind), Left.Line) <
                            std::pair(IsOfLater(Right.Kind), Right.Line);
                   });
}

// ---- Stages -----------------------------------------------------------------------------------

/// Makes the nodes of one side: open ones, and copies of the parts' structures.
void Tracer::AddNodes(std::uint32_t Max, const std::vector<ProgramNode>& vNodes,
                      const std::vector<StructurePair>& vParts, bool IsSource) {
  SideState& In = IsSource ? X : Y;
  In.Nodes.Clear();
  In.vRoots.clear();
  std::size_t Next = 0;
  for (std::uint32_t Node = 0; Node <= Max; ++Node) {
    StructureId Structure = StructureStore::Open;
    if (Next < vNodes.size() && vNodes[Next].Node == Node) {
      const StructurePair& Part = vParts[vNodes[Next++].Place];
      Structure = IsSource ? Part.Source : Part.Target;
    }
    In.vRoots.push_back(In.Nodes.Add(Structure));
  }
}

/// Runs the analysis, or transfer and generation, until only equations that hold are left. What a
/// clash has left behind half done is gone with each new beginning.
void Tracer::RunStage(const std::vector<StructurePair>& vParts, bool IsSource) {
  do {
    if (IsSource) {
      AddNodes(Steps->MaxX, Steps->vSourceParts, vParts, true);
    } else {
      AddNodes(Steps->MaxY, Steps->vTargetParts, vParts, false);
    }
  } while (!RunEquations(IsSource));
}

namespace {

bool IsOf(StepKind Kind, bool IsSource) {
  return (Kind < StepKind::Transfer) == IsSource;
}

}  // namespace

/// @return false if one clashes, which is left aside from then on
bool Tracer::RunEquations(bool IsSource) {
  for (Equation& Current : vEquations) {
    if (!IsOf(Current.Kind, IsSource)) {
      continue;
    }
    if (Current.Clash) {
      FillCycle(Current);
      continue;
    }
    EquationClash New;
    RunEquation(Current, New);
    if (New.IsCycle || !New.vConflicts.empty()) {
      New.Kind = Current.Kind;
      New.Line = Current.Line;
      Current.Clash = vClashes.size();
      vClashes.push_back(std::move(New));
      return false;
    }
  }
  return true;
}

// ---- Equations --------------------------------------------------------------------------------

void Tracer::RunEquation(const Equation& Current, EquationClash& ClashReturn) {
  Here.Line = Current.Line;
  switch (Current.Kind) {
    case StepKind::AnalysisValue:
      SetValue(Steps->vAnalysisValues[Current.Index], Side::X, ClashReturn);
      break;
    case StepKind::AnalysisLink:
      Link(Steps->vAnalysisLinks[Current.Index], Side::X, ClashReturn);
      break;
    case StepKind::Transfer:
      Transfer(Steps->vTransfers[Current.Index], ClashReturn);
      break;
    case StepKind::GenerationValue:
      SetValue(Steps->vGenerationValues[Current.Index], Side::Y, ClashReturn);
      break;
    case StepKind::GenerationLink:
      Link(Steps->vGenerationLinks[Current.Index], Side::Y, ClashReturn);
      break;
  }
}

void Tracer::SetValue(const ValueStep& Step, Side OnSide, EquationClash& ClashReturn) {
  const NodeId There = Make(Step.Path, OnSide, ClashReturn);
  if (There != TracedUnifier::None) {
    const AtomSetId Value = Sets.Intern(Step.Atoms, Sets.Only(Here));
    const NodeId Came = StateOf(OnSide).Nodes.Add(Store.Atomic(Value));
    Unify({There, PathOf(Step.Path, OnSide)}, {Came, std::nullopt}, ClashReturn);
  }
}

void Tracer::Link(const LinkStep& Step, Side OnSide, EquationClash& ClashReturn) {
  const NodeId There = Make(Step.Left, OnSide, ClashReturn);
  const NodeId Came = There == TracedUnifier::None ? There : Make(Step.Right, OnSide, ClashReturn);
  if (Came != TracedUnifier::None) {
    Unify({There, PathOf(Step.Left, OnSide)}, {Came, PathOf(Step.Right, OnSide)}, ClashReturn);
  }
}

/// What is open says nothing, and makes no path.
void Tracer::Transfer(const LinkStep& Step, EquationClash& ClashReturn) {
  const StructureId Brought = Look(PathOf(Step.Left, Side::X));
  if (Brought == StructureStore::Open) {
    return;
  }
  const NodeId There = Make(Step.Right, Side::Y, ClashReturn);
  if (There != TracedUnifier::None) {
    Unify({There, PathOf(Step.Right, Side::Y)}, {Y.Nodes.Add(Brought), PathOf(Step.Left, Side::X)},
          ClashReturn);
  }
}

/// Unifies two nodes of one side. Both are looked at as they were before where one would contain
/// itself, which can only be known afterwards.
void Tracer::Unify(const PlacedNode& There, const PlacedNode& Came, EquationClash& ClashReturn) {
  TracedUnifier& Nodes = StateOf(There.Path->OnSide).Nodes;
  const bool AreOne = Nodes.Unify(There.Node, Came.Node);
  if (Nodes.HasCycle()) {
    ClashReturn.IsCycle = true;
    return;
  }
  if (AreOne) {
    return;
  }
  for (const ClashTrail::Clash& Current : Nodes.LastTrail().Clashes()) {
    Conflict New{*There.Path, Nodes.Freeze(Current.Left), Came.Path, Nodes.Freeze(Current.Right),
                 Current.vFeatures.size()};
    const auto Extend = [&](std::vector<std::uint32_t>& vFeatures) {
      vFeatures.insert(vFeatures.end(), Current.vFeatures.begin(), Current.vFeatures.end());
    };
    Extend(New.ThereAt.vFeatures);
    if (New.CameAt) {
      Extend(New.CameAt->vFeatures);
    }
    ClashReturn.vConflicts.push_back(std::move(New));
  }
  const auto IsBefore = [&](const Conflict& Left, const Conflict& Right) {
    return std::lexicographical_compare(
        Left.ThereAt.vFeatures.begin(), Left.ThereAt.vFeatures.end(),
        Right.ThereAt.vFeatures.begin(), Right.ThereAt.vFeatures.end(),
        [&](std::uint32_t One, std::uint32_t Other) {
          return Rules.FeatureName(One) < Rules.FeatureName(Other);
        });
  };
  std::stable_sort(ClashReturn.vConflicts.begin(), ClashReturn.vConflicts.end(), IsBefore);
}

// ---- Paths ------------------------------------------------------------------------------------

RulePath Tracer::PathOf(const ProgramPath& Path, Side OnSide) const {
  const auto First = Steps->vFeatures.begin() + Path.FirstFeature;
  return {OnSide, Path.Node, {First, First + Path.FeatureCount}};
}

/// The structure at the end of a path as it is now; open where it is not there.
StructureId Tracer::Look(const RulePath& Path) {
  SideState& In = StateOf(Path.OnSide);
  const NodeId Node =
      In.Nodes.Look(In.vRoots[Path.Node], Path.vFeatures.data(), Path.vFeatures.size());
  return Node == TracedUnifier::None ? StructureId{StructureStore::Open} : In.Nodes.Freeze(Node);
}

/// The node at the end of a path. What is not there yet comes from this equation. Through an atom
/// leads no path: then the atom was there, and a feature came.
Tracer::NodeId Tracer::Make(const ProgramPath& Path, Side OnSide, EquationClash& ClashReturn) {
  TracedUnifier& Nodes = StateOf(OnSide).Nodes;
  NodeId At = StateOf(OnSide).vRoots[Path.Node];
  for (std::uint32_t Depth = 0; Depth < Path.FeatureCount; ++Depth) {
    const std::uint32_t* Feature = Steps->vFeatures.data() + Path.FirstFeature + Depth;
    if (Nodes.IsAtomic(At)) {
      RulePath Start = PathOf(Path, OnSide);
      Start.vFeatures.resize(Depth);
      const NodeId Came = Nodes.Add(StructureStore::Open);
      AddFeature(Nodes, Came, Feature);
      ClashReturn.vConflicts.push_back(
          {std::move(Start), Nodes.Freeze(At), std::nullopt, Nodes.Freeze(Came), 0});
      return TracedUnifier::None;
    }
    const NodeId Next = Nodes.Look(At, Feature, 1);
    At = Next == TracedUnifier::None ? AddFeature(Nodes, At, Feature) : Next;
  }
  return At;
}

/// Adds a feature that comes from this equation.
Tracer::NodeId Tracer::AddFeature(TracedUnifier& Nodes, NodeId Node, const std::uint32_t* Feature) {
  const std::uint32_t OriginFeature = StructureStore::OriginFeature;
  const NodeId Added = Nodes.Make(Node, Feature, 1);
  const NodeId Mark = Nodes.Make(Node, &OriginFeature, 1);
  Nodes.Unify(Mark, Nodes.Add(Store.Atomic(Sets.Mark(Here))));
  return Added;
}

// ---- Cycles -----------------------------------------------------------------------------------

/// Notes what an equation that was left aside, since a structure would contain itself, would have
/// made one.
void Tracer::FillCycle(const Equation& Current) {
  EquationClash& Clash = vClashes[*Current.Clash];
  if (!Clash.IsCycle || !Clash.vConflicts.empty()) {
    return;
  }
  const LinkStep& Step =
      Current.Kind == StepKind::AnalysisLink ? Steps->vAnalysisLinks[Current.Index]
      : Current.Kind == StepKind::Transfer   ? Steps->vTransfers[Current.Index]
                                             : Steps->vGenerationLinks[Current.Index];
  const Side OnSide = Current.Kind == StepKind::AnalysisLink ? Side::X : Side::Y;
  const bool IsTransfer = Current.Kind == StepKind::Transfer;
  RulePath There = PathOf(IsTransfer ? Step.Right : Step.Left, OnSide);
  RulePath Came = PathOf(IsTransfer ? Step.Left : Step.Right, IsTransfer ? Side::X : OnSide);
  const StructureId ThereValue = Look(There);
  const StructureId CameValue = Look(Came);
  Clash.vConflicts.push_back({std::move(There), ThereValue, std::move(Came), CameValue, 0});
}

// ---- Origins ----------------------------------------------------------------------------------

std::vector<Origin> Tracer::Origins(StructureId Structure) const {
  if (Store.IsOpen(Structure)) {
    return {};
  }
  if (Store.IsAtomic(Structure)) {
    return Sets.Origins(Store.Atoms(Structure));
  }
  // local = arc count { feature target }: of the root, the first
  const std::uint32_t* Word = Store.Knot(Structure) + 1;
  for (std::uint32_t Arcs = *Word++; Arcs > 0; --Arcs, Word += 2) {
    if (Word[0] == StructureStore::OriginFeature) {
      return Sets.Origins(Store.Atoms(Word[1]));
    }
  }
  return {};
}

}  // namespace Translate
