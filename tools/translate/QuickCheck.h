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
/// For example, the first program of a grammar has ((x1 num) = (x2 num)), and the others make a
/// singular and a plural:
///
/// @code
/// const RuleSet& Agreement = Tested.Rules();
/// StructureStore Store;
/// AtomSets Atoms = Agreement.Atoms();
/// ProgramRunner Runner(Store, Atoms);
/// const StructureId Sg = Runner.Run(Agreement.ProgramAt(1), {}, {})->Source;
/// const StructureId Pl = Runner.Run(Agreement.ProgramAt(2), {}, {})->Source;
/// QuickCheck Check(Agreement, Store, Atoms);
/// Check.Fails(0, {Sg, Pl}, {});                                  // false
/// Runner.Run(Agreement.ProgramAt(0), {Sg, Pl}, {}).has_value();  // false
/// Check.Learn(0, {Sg, Pl}, {});
/// Check.Fails(0, {Sg, Pl}, {});  // true
/// Check.Fails(0, {Sg, Sg}, {});  // false
/// @endcode
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
