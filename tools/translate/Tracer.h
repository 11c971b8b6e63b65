#pragma once

#include "Program.h"
#include "ProgramRunner.h"
#include "RuleSet.h"
#include "StructureStore.h"
#include "TracedAtomSets.h"
#include "Unifier.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

/// A path of a rule: a node and features.
struct RulePath {
  Side OnSide = Side::X;
  std::uint32_t Node = 0;
  std::vector<std::uint32_t> vFeatures;
};

/// Two values that cannot be one. Both know where they come from.
struct Conflict {
  RulePath ThereAt;
  StructureId There = StructureStore::Open;  ///< the value that was there
  std::optional<RulePath> CameAt;            ///< nothing for a value that the equation states
  StructureId Came = StructureStore::Open;   ///< the value that came
  std::size_t Depth = 0;                     ///< features below what the equation itself names
};

/// An equation that does not hold together with those before it.
struct EquationClash {
  StepKind Kind = StepKind::AnalysisValue;
  std::uint32_t Line = 0;            ///< of alternatives, the first
  bool IsCycle = false;              ///< a structure would contain itself
  std::vector<Conflict> vConflicts;  ///< at least one
};

/// Carries out the equations of rules as `ProgramRunner` does, but slowly, and knows more: where
/// each value comes from, and which equations clash.
///
/// The equations come in the order analysis, transfer, generation, each in the order of the text.
/// One that clashes with those before it is left aside.
///
/// @code
/// Tracer Trace(Rules);
/// const StructurePair Red = Trace.Apply(Rules.At(0), {});
/// const StructurePair Car = Trace.Apply(Rules.At(1), {});
/// const StructurePair Phrase = Trace.Apply(Rules.At(2), {Red, Car});
/// Trace.Clashes().size();                      // 0
/// Trace.Origins(Phrase.Source).front().Line;  // 10
/// @endcode
class Tracer {
 public:
  explicit Tracer(const RuleSet& RulesPassIn);

  Tracer(const Tracer&) = delete;
  Tracer& operator=(const Tracer&) = delete;

  /// S and T of a rule.
  /// @param vParts those of its source places, made by this same tracer
  StructurePair Apply(const RuleSet::Rule& Rule, const std::vector<StructurePair>& vParts);

  /// The equations of the last rule that were left aside.
  const std::vector<EquationClash>& Clashes() const { return vClashes; }

  /// The constraints that gave an atomic structure, or the features of a complex one, by files and
  /// lines. Nothing gave an open one.
  std::vector<Origin> Origins(StructureId Structure) const;

  /// To be called between texts: forgets all structures once they take much memory.
  void Trim();

  const StructureStore& Structures() const { return Store; }
  const TracedAtomSets& Atoms() const { return Sets; }

 private:
  using NodeId = TracedUnifier::NodeId;

  /// An equation in its place in the order.
  struct Equation {
    StepKind Kind{};
    std::size_t Index = 0;  ///< among the steps of its kind
    std::uint32_t Line = 0;
    std::optional<std::size_t> Clash;  ///< where it is left aside
  };

  /// The structures of one side.
  struct SideState {
    explicit SideState(StructureStore& Store, TracedAtomSets& Sets) : Nodes(Store, Sets) {}

    TracedUnifier Nodes;
    std::vector<NodeId> vRoots;
  };

  /// A node, and the path that leads to it; none leads to a value that an equation states.
  struct PlacedNode {
    NodeId Node{};
    std::optional<RulePath> Path;
  };

  void SetEquations(const RuleSet::Rule& Rule);
  void AddNodes(std::uint32_t Max, const std::vector<ProgramNode>& vNodes,
                const std::vector<StructurePair>& vParts, bool IsSource);
  void RunStage(const std::vector<StructurePair>& vParts, bool IsSource);
  bool RunEquations(bool IsSource);
  void RunEquation(const Equation& Current, EquationClash& ClashReturn);
  void SetValue(const ValueStep& Step, Side OnSide, EquationClash& ClashReturn);
  void Link(const LinkStep& Step, Side OnSide, EquationClash& ClashReturn);
  void Transfer(const LinkStep& Step, EquationClash& ClashReturn);
  void Unify(const PlacedNode& There, const PlacedNode& Came, EquationClash& ClashReturn);
  NodeId Make(const ProgramPath& Path, Side OnSide, EquationClash& ClashReturn);
  NodeId AddFeature(TracedUnifier& Nodes, NodeId Node, const std::uint32_t* Feature);
  StructureId Look(const RulePath& Path);
  void FillCycle(const Equation& Current);
  RulePath PathOf(const ProgramPath& Path, Side OnSide) const;
  SideState& StateOf(Side OnSide) { return OnSide == Side::X ? X : Y; }

  const RuleSet& Rules;
  StructureStore Store;
  TracedAtomSets Sets;
  SideState X;
  SideState Y;
  const Program* Steps = nullptr;
  Origin Here;
  std::vector<Equation> vEquations;
  std::vector<EquationClash> vClashes;
};

}  // namespace Translate
