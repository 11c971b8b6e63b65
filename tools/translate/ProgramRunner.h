#pragma once

#include "AtomSets.h"
#include "Program.h"
#include "StructureStore.h"
#include "Unifier.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

/// The structures of a constituent.
struct StructurePair {
  StructureId Source = StructureStore::Open;  ///< S
  StructureId Target = StructureStore::Open;  ///< T

  friend bool operator==(StructurePair Left, StructurePair Right) {
    return Left.Source == Right.Source && Left.Target == Right.Target;
  }
  friend bool operator!=(StructurePair Left, StructurePair Right) { return !(Left == Right); }
};

/// Carries out the equations of one rule over the structures of its parts, step by step. Each step
/// can be called by itself.
///
/// For example, a noun has ((x0 num) = sg), and a phrase ((x0 num) = (x3 num)):
///
/// @code
/// const Program& Noun = Rules.ProgramAt(0);
/// const Program& Phrase = Rules.ProgramAt(1);
/// StructureStore Store;
/// AtomSets Atoms = Rules.Atoms();
/// ProgramRunner Runner(Store, Atoms);
/// Runner.Analyse(Noun, {});  // true
/// const StructureId Singular = Runner.Source();
/// Runner.Analyse(Phrase, {Singular});  // true
/// Runner.Source();                     // Singular
/// Runner.Transfer(Phrase);
/// Runner.Generate(Phrase, {});  // true
/// Runner.Target();              // StructureStore::Open
/// @endcode
class ProgramRunner {
 public:
  ProgramRunner(StructureStore& StorePassIn, AtomSets& AtomsPassIn)
      : Store(StorePassIn), Nodes(StorePassIn, AtomsPassIn) {}

  /// Unifies the equations of the analysis.
  /// @param vSources the S of each of the program's source parts
  bool Analyse(const Program& Equations, const std::vector<StructureId>& vSources);

  /// S, after the analysis.
  StructureId Source() const { return SourceResult; }

  /// Copies what the transfers bring; to be called after the analysis, which it needs.
  void Transfer(const Program& Equations);

  /// What each transfer brings; open where it says nothing.
  const std::vector<StructureId>& Brought() const { return vBrought; }

  /// Unifies the equations of the generation with what was brought.
  /// @param vTargets the T of each of the program's target parts
  bool Generate(const Program& Equations, const std::vector<StructureId>& vTargets);

  /// T, after the generation.
  StructureId Target() const { return TargetResult; }

  /// All steps. Nothing if the equations clash.
  std::optional<StructurePair> Run(const Program& Equations,
                                   const std::vector<StructureId>& vSources,
                                   const std::vector<StructureId>& vTargets);

 private:
  void AddNodes(std::uint32_t Max, const std::vector<ProgramNode>& vParts,
                const std::vector<StructureId>& vStructures);
  Unifier::NodeId Make(const Program& Equations, const ProgramPath& Path);
  bool SetValues(const Program& Equations, const std::vector<ValueStep>& vSteps);
  bool Link(const Program& Equations, const std::vector<LinkStep>& vSteps);
  bool Bring(const Program& Equations);

  StructureStore& Store;
  Unifier Nodes;
  std::vector<Unifier::NodeId> vRoots;  // of x0, x1 …, or y0, y1 …
  std::vector<StructureId> vBrought;
  StructureId SourceResult = StructureStore::Open;
  StructureId TargetResult = StructureStore::Open;
};

}  // namespace Translate
