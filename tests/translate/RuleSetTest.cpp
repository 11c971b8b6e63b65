#include "RuleSet.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using Translate::RuleSet;

constexpr const char* Small =
    ";;Score: 3\nnp::NP : [\"the\" N] -> [N \"la\" n]\n(X2::Y1)\n(X2::Y3)\n"
    ";;Score: 1\n{NP,2}\nNP::NP : [N] -> [\"\"]\n(X1::Y1)\n"
    "N::N : [\"Car\"] -> [\"Auto\"]\n(X1::Y1)\n";

TEST(RuleSet, WeighsARuleByItsShareOfItsType) {
  const TestEngine Engine(Small);
  const RuleSet& Rules = Engine.Set();
  ASSERT_EQ(Rules.Size(), 3U);
  EXPECT_EQ(Rules.At(0).Weight, -287682);
  EXPECT_EQ(Rules.At(1).Weight, -1386294);
  EXPECT_EQ(Rules.At(2).Weight, 0);
}

TEST(RuleSet, KnowsTheLinesOfItsRules) {
  const TestEngine Engine(Small);
  const RuleSet& Rules = Engine.Set();
  EXPECT_EQ(Rules.FileOf(Rules.At(0)), "a.trr");
  EXPECT_EQ(Rules.At(0).Line, 2U);
  EXPECT_EQ(Rules.At(0).Header, RuleSet::None);
  EXPECT_EQ(Rules.HeaderOf(Rules.At(1)), "NP,2");
  EXPECT_EQ(Rules.At(2).Number, 3U);
}

TEST(RuleSet, WritesAPlaceAtEachOfItsTargets) {
  const TestEngine Engine(Small);
  const RuleSet& Rules = Engine.Set();
  std::string Targets;
  for (std::uint32_t Rule = 0; Rule < Rules.Size(); ++Rule) {
    for (const Translate::TargetItem& Item : Rules.TargetsOf(Rules.At(Rule))) {
      Targets += Item.IsLiteral ? Rules.WordName(Item.Value) : '#' + std::to_string(Item.Value);
      Targets += ' ';
    }
    Targets += '|';
  }
  EXPECT_EQ(Targets, "#0 la #0 ||Auto |");
}

TEST(RuleSet, DistinguishesUnaryRules) {
  const TestEngine Engine(Small);
  const RuleSet& Rules = Engine.Set();
  EXPECT_FALSE(Rules.IsUnary(Rules.At(0)));
  EXPECT_TRUE(Rules.IsUnary(Rules.At(1)));
  EXPECT_FALSE(Rules.IsUnary(Rules.At(2)));
  // A noun fills the slot of any target for the second rule, and that of a noun for the first.
  const std::uint32_t Nouns = Rules.At(2).Types;
  ASSERT_NE(Rules.SlotOfAnyTarget(Nouns), RuleSet::None);
  EXPECT_EQ(Rules.UnaryRules(Rules.SlotOfAnyTarget(Nouns)).size(), 1U);
  ASSERT_NE(Rules.SlotOfBoth(Nouns), RuleSet::None);
  EXPECT_EQ(Rules.LabelName(Rules.SlotWanted(Rules.SlotOfBoth(Nouns))), "N");
  EXPECT_EQ(Rules.UnaryRules(Rules.SlotOfBoth(Nouns)).size(), 0U);
}

TEST(RuleSet, FindsTypesAndLiterals) {
  std::string Scratch;
  const TestEngine AnyCase(Small);
  EXPECT_EQ(AnyCase.Set().LabelName(AnyCase.Set().FindSourceType("Np")), "NP");
  EXPECT_EQ(AnyCase.Set().FindSourceType("DET"), RuleSet::None);
  EXPECT_NE(AnyCase.Set().FindLiteral("cAR", Scratch), RuleSet::None);
  EXPECT_EQ(AnyCase.Set().FindLiteral("Auto", Scratch), RuleSet::None);
  const TestEngine SameCase(Small, {false, true});
  EXPECT_EQ(SameCase.Set().FindLiteral("car", Scratch), RuleSet::None);
  EXPECT_NE(SameCase.Set().FindLiteral("Car", Scratch), RuleSet::None);
  const TestEngine Reversed(Small, {true, false});
  EXPECT_NE(Reversed.Set().FindLiteral("auto", Scratch), RuleSet::None);
}

}  // namespace
