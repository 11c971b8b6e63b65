#pragma once

#include "AtomSets.h"
#include "Program.h"
#include "RuleSet.h"
#include "StructureStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

/// Refuses parts that do not fit before anything is unified, by the step of a program that has
/// failed most often: the atoms that two paths have, or a path and a value, have nothing in common.
///
/// What the parts have at a path can only become less by unification, so what is refused would
/// clash. A program that never failed is not checked, and costs nothing.
///
///   QuickCheck Check(Rules, Store, Atoms);
///   if (!Check.Fails(Program, vSources, vTargets) && !Runner.Run(…)) {
///     Check.Learn(Program, vSources, vTargets);
///   }
class QuickCheck {
 public:
  QuickCheck(const RuleSet& RulesPassIn, const StructureStore& StorePassIn, AtomSets& AtomsPassIn)
      : Rules(RulesPassIn), Store(StorePassIn), Atoms(AtomsPassIn) {}

  /// Whether the step of the program that has failed most often fails for these parts.
  /// @param vSources the S of each of the program's source parts
  /// @param vTargets the T of each of the program's target parts
  bool Fails(std::uint32_t Program, const std::vector<StructureId>& vSources,
             const std::vector<StructureId>& vTargets);

  /// Finds the steps that fail for parts which have clashed.
  void Learn(std::uint32_t Program, const std::vector<StructureId>& vSources,
             const std::vector<StructureId>& vTargets);

 private:
  /// A step that has failed.
  struct Failure {
    StepKind Kind;
    std::uint32_t Index;  ///< among the steps of its kind
    std::uint32_t Times;
  };

  bool FailsAt(const Failure& Step, const Program& Which, const std::vector<StructureId>& vSources,
               const std::vector<StructureId>& vTargets);
  bool AreDisjoint(std::optional<AtomSetId> Left, std::optional<AtomSetId> Right);

  const RuleSet& Rules;
  const StructureStore& Store;
  AtomSets& Atoms;
  std::vector<std::vector<Failure>> vOfProgram;  // the most frequent first
};

}  // namespace Translate
