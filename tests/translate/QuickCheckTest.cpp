#include "QuickCheck.h"

#include "Evaluator.h"
#include "ProgramRunner.h"
#include "RandomGrammar.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

using Translate::AtomSetId;
using Translate::AtomSets;
using Translate::ProgramRunner;
using Translate::QuickCheck;
using Translate::RuleSet;
using Translate::StructureId;
using Translate::StructureStore;

/// What a rule with some constraints is checked with.
struct CheckedRule {
  explicit CheckedRule(const std::string& Constraints)
      : Engine("S::S : [A B] -> [A B]\n(X1::Y1)\n(X2::Y2)\n" + Constraints),
        Atoms(Engine.Set().Atoms()),
        Check(Engine.Set(), Store, Atoms) {}

  /// The structure with one feature, and one of the atoms of the grammar.
  StructureId One(const std::string& Feature, const std::string& Atom) {
    std::uint32_t FeatureNumber = 0;
    while (Engine.Set().FeatureName(FeatureNumber) != Feature) {
      ++FeatureNumber;
    }
    std::uint32_t AtomNumber = 0;
    while (Engine.Set().AtomName(AtomNumber) != Atom) {
      ++AtomNumber;
    }
    const AtomSetId Set = Atoms.Intern({false, {AtomNumber}});
    return Store.Complex({1, 1, FeatureNumber, Store.Atomic(Set)});
  }

  TestEngine Engine;
  StructureStore Store;
  AtomSets Atoms;
  QuickCheck Check;
};

TEST(QuickCheck, RefusesByTheStepThatFailedMost) {
  CheckedRule Rule(
      "((x1 num) = (x2 num))\n((x1 gen) = (x2 gen))\n((x1 num) = (*OR* sg pl))\n"
      "((x1 gen) = (*OR* m f))\n");
  const StructureId Sg = Rule.One("NUM", "SG");
  const StructureId Pl = Rule.One("NUM", "PL");
  const StructureId M = Rule.One("GEN", "M");
  const StructureId F = Rule.One("GEN", "F");
  // Nothing is known to fail yet.
  EXPECT_FALSE(Rule.Check.Fails(0, {Sg, Pl}, {}));
  Rule.Check.Learn(0, {Sg, Pl}, {});
  EXPECT_TRUE(Rule.Check.Fails(0, {Sg, Pl}, {}));
  EXPECT_FALSE(Rule.Check.Fails(0, {Sg, Sg}, {}));
  EXPECT_FALSE(Rule.Check.Fails(0, {Sg, StructureStore::Open}, {}));
  EXPECT_FALSE(Rule.Check.Fails(0, {M, F}, {}));
  for (int Times = 0; Times < 5; ++Times) {
    Rule.Check.Learn(0, {M, F}, {});
  }
  EXPECT_TRUE(Rule.Check.Fails(0, {M, F}, {}));
  EXPECT_FALSE(Rule.Check.Fails(0, {Sg, Pl}, {}));
}

TEST(QuickCheck, LooksAtValuesAndAtTheTargetSide) {
  CheckedRule Values("((x2 num) = sg)\n((y1 num) = (*NOT* pl))\n((y0 num) = pl)\n");
  const StructureId Open = StructureStore::Open;
  const StructureId Sg = Values.One("NUM", "SG");
  const StructureId Pl = Values.One("NUM", "PL");
  Values.Check.Learn(0, {Sg}, {Sg});
  EXPECT_FALSE(Values.Check.Fails(0, {Pl}, {Open}));
  Values.Check.Learn(0, {Pl}, {Open});
  EXPECT_TRUE(Values.Check.Fails(0, {Pl}, {Open}));
  CheckedRule Target("((y1 num) = (*NOT* pl))\n((y0 num) = sg)\n");
  Target.Check.Learn(0, {}, {Target.One("NUM", "PL")});
  EXPECT_FALSE(Target.Check.Fails(0, {}, {Target.One("NUM", "SG")}));
  EXPECT_TRUE(Target.Check.Fails(0, {}, {Target.One("NUM", "PL")}));
}

/// Programs of random rules, on parts that random rules made: what is refused clashes.
TEST(QuickCheck, RefusesOnlyWhatClashes) {
  std::size_t Refused = 0;
  for (unsigned Seed = 0; Seed < 300 && !HasFailure(); ++Seed) {
    RandomGrammar Random(Seed);
    const TestEngine Engine(TextOf(Random.Rules()));
    const RuleSet& Rules = Engine.Set();
    StructureStore Store;
    AtomSets Atoms(Rules.Atoms());
    ProgramRunner Runner(Store, Atoms);
    QuickCheck Check(Rules, Store, Atoms);
    std::vector<StructureId> vStructures{StructureStore::Open};
    std::mt19937 Numbers(Seed);
    const auto Some = [&] { return vStructures[Numbers() % vStructures.size()]; };
    for (int Count = 0; Count < 300; ++Count) {
      const RuleSet::Rule& Rule =
          Rules.At(static_cast<std::uint32_t>(Numbers() % std::max<std::size_t>(Rules.Size(), 1)));
      if (Rule.Evaluation == RuleSet::None) {
        continue;
      }
      const std::uint32_t Number = Rules.EvaluationAt(Rule.Evaluation).Program;
      const Translate::Program& Which = Rules.ProgramAt(Number);
      std::vector<StructureId> vSources(Which.vSourceParts.size());
      std::vector<StructureId> vTargets(Which.vTargetParts.size());
      std::generate(vSources.begin(), vSources.end(), Some);
      std::generate(vTargets.begin(), vTargets.end(), Some);
      const bool Fails = Check.Fails(Number, vSources, vTargets);
      const auto Result = Runner.Run(Which, vSources, vTargets);
      if (Result) {
        EXPECT_FALSE(Fails) << "seed " << Seed;
        vStructures.push_back(Result->Source);
        vStructures.push_back(Result->Target);
      } else {
        Check.Learn(Number, vSources, vTargets);
      }
      Refused += Fails ? 1 : 0;
    }
  }
  EXPECT_GT(Refused, 50U);
}

}  // namespace
