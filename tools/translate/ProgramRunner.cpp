#include "ProgramRunner.h"

#include <cstddef>

namespace Translate {

/// Makes the nodes of one side: open ones, and copies of the parts' structures.
void ProgramRunner::AddNodes(std::uint32_t Max, const std::vector<ProgramNode>& vParts,
                             const std::vector<StructureId>& vStructures) {
  Nodes.Clear();
  vRoots.clear();
  std::size_t Part = 0;
  for (std::uint32_t Node = 0; Node <= Max; ++Node) {
    const bool IsPart = Part < vParts.size() && vParts[Part].Node == Node;
    vRoots.push_back(Nodes.Add(IsPart ? vStructures[Part] : StructureId{StructureStore::Open}));
    Part += IsPart ? 1 : 0;
  }
}

Unifier::NodeId ProgramRunner::Make(const Program& Equations, const ProgramPath& Path) {
  return Nodes.Make(vRoots[Path.Node], Equations.vFeatures.data() + Path.FirstFeature,
                    Path.FeatureCount);
}

bool ProgramRunner::SetValues(const Program& Equations, const std::vector<ValueStep>& vSteps) {
  for (const ValueStep& Step : vSteps) {
    const Unifier::NodeId Node = Make(Equations, Step.Path);
    if (Node == Unifier::None || !Nodes.Unify(Node, Nodes.Add(Store.Atomic(Step.Atoms)))) {
      return false;
    }
  }
  return true;
}

bool ProgramRunner::Link(const Program& Equations, const std::vector<LinkStep>& vSteps) {
  for (const LinkStep& Step : vSteps) {
    const Unifier::NodeId Left = Make(Equations, Step.Left);
    const Unifier::NodeId Right = Left == Unifier::None ? Left : Make(Equations, Step.Right);
    if (Right == Unifier::None || !Nodes.Unify(Left, Right)) {
      return false;
    }
  }
  return true;
}

bool ProgramRunner::Analyse(const Program& Equations, const std::vector<StructureId>& vSources) {
  AddNodes(Equations.MaxX, Equations.vSourceParts, vSources);
  if (!SetValues(Equations, Equations.vAnalysisValues) ||
      !Link(Equations, Equations.vAnalysisLinks)) {
    return false;
  }
  // Values alone make no structure part of itself.
  if (!Equations.vAnalysisLinks.empty() && Nodes.HasCycle()) {
    return false;
  }
  SourceResult = Nodes.Freeze(vRoots[0]);
  return true;
}

void ProgramRunner::Transfer(const Program& Equations) {
  vBrought.clear();
  for (const LinkStep& Step : Equations.vTransfers) {
    const ProgramPath& Path = Step.Left;
    const Unifier::NodeId Node = Nodes.Look(
        vRoots[Path.Node], Equations.vFeatures.data() + Path.FirstFeature, Path.FeatureCount);
    vBrought.push_back(Node == Unifier::None ? StructureId{StructureStore::Open}
                                             : Nodes.Freeze(Node));
  }
}

/// Unifies what was brought with the paths that it was brought to. What is open makes no path.
bool ProgramRunner::Bring(const Program& Equations) {
  for (std::size_t Index = 0; Index < vBrought.size(); ++Index) {
    if (vBrought[Index] == StructureStore::Open) {
      continue;
    }
    const Unifier::NodeId Node = Make(Equations, Equations.vTransfers[Index].Right);
    if (Node == Unifier::None || !Nodes.Unify(Node, Nodes.Add(vBrought[Index]))) {
      return false;
    }
  }
  return true;
}

bool ProgramRunner::Generate(const Program& Equations, const std::vector<StructureId>& vTargets) {
  AddNodes(Equations.MaxY, Equations.vTargetParts, vTargets);
  if (!Bring(Equations) || !SetValues(Equations, Equations.vGenerationValues) ||
      !Link(Equations, Equations.vGenerationLinks)) {
    return false;
  }
  // What was brought can close a ring only where something is shared in it.
  if ((!Equations.vGenerationLinks.empty() || Nodes.HasShared()) && Nodes.HasCycle()) {
    return false;
  }
  TargetResult = Nodes.Freeze(vRoots[0]);
  return true;
}

std::optional<StructurePair> ProgramRunner::Run(const Program& Equations,
                                                const std::vector<StructureId>& vSources,
                                                const std::vector<StructureId>& vTargets) {
  if (!Analyse(Equations, vSources)) {
    return std::nullopt;
  }
  Transfer(Equations);
  if (!Generate(Equations, vTargets)) {
    return std::nullopt;
  }
  return StructurePair{SourceResult, TargetResult};
}

}  // namespace Translate
