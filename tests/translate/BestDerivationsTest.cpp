#include "BestDerivations.h"

#include "RandomGrammar.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using Translate::BestDerivations;
using Translate::Derivations;

/// The numbers of the rules of a tree, root first and parts in order.
std::vector<std::uint32_t> RulesOf(const Derivations& Trees, Derivations::TreeId Tree) {
  std::vector<std::uint32_t> vRules{Trees.Rule(Tree)};
  std::vector<Derivations::TreeId> vParts;
  Trees.PartsOf(Tree, vParts);
  for (const Derivations::TreeId Part : vParts) {
    const std::vector<std::uint32_t> vBelow = RulesOf(Trees, Part);
    vRules.insert(vRules.end(), vBelow.begin(), vBelow.end());
  }
  return vRules;
}

std::vector<std::uint32_t> AllConstituents(const Translate::Chart& Parsed) {
  std::vector<std::uint32_t> vAll(Parsed.Constituents().size());
  std::iota(vAll.begin(), vAll.end(), 0U);
  return vAll;
}

/// Each chart is asked for the derivations of all of its constituents together.
TEST(BestDerivations, ReturnsEachOnceBestFirstAndAsManyAsItCounts) {
  constexpr std::uint64_t Most = 500;
  std::size_t Compared = 0;
  for (unsigned Seed = 0; Seed < 200 && !HasFailure(); ++Seed) {
    RandomGrammar Random(Seed);
    TestEngine Engine(TextOf(Random.Rules()));
    Engine.Engine.Translate(Random.Text("abc"), {});
    const Translate::Chart& Parsed = Engine.Engine.ParsedChart();
    BestDerivations Best(Parsed);
    Best.Begin();
    Best.SetGoals(AllConstituents(Parsed));
    const std::optional<std::uint64_t> Count = Best.CountGoals();
    if (!Count || *Count > Most) {
      continue;
    }
    std::uint64_t Given = 0;
    std::int64_t LastScore = 0;
    std::vector<std::uint32_t> vLast;
    while (const auto Tree = Best.Next()) {
      const std::int64_t Score = Best.Trees().ScoreOfTree(*Tree);
      const std::vector<std::uint32_t> vRules = RulesOf(Best.Trees(), *Tree);
      EXPECT_TRUE(Given == 0 || Score <= LastScore);
      // The same tree can stand at several places of a text.
      EXPECT_TRUE(Given == 0 || Score != LastScore || vLast <= vRules);
      LastScore = Score;
      vLast = vRules;
      ++Given;
    }
    EXPECT_EQ(Given, *Count) << "seed " << Seed;
    Compared += Given;
  }
  EXPECT_GT(Compared, 1000U);
}

TEST(BestDerivations, RestartsWithOtherGoals) {
  TestEngine Engine("A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\nB::B : [\"a\"] -> [\"y\"]\n(X1::Y1)\n");
  Engine.Engine.Translate("a", {});
  BestDerivations Best(Engine.Engine.ParsedChart());
  Best.Begin();
  EXPECT_EQ(Best.Next(), std::nullopt);
  EXPECT_EQ(Best.CountGoals(), std::uint64_t{0});
  for (const std::uint32_t Goal : {0U, 1U, 0U}) {
    Best.SetGoals({Goal});
    EXPECT_EQ(Best.CountGoals(), std::uint64_t{1});
    const auto Tree = Best.Next();
    ASSERT_TRUE(Tree.has_value());
    EXPECT_EQ(Best.Trees().Rule(*Tree), Goal);
    EXPECT_EQ(Best.Next(), std::nullopt);
  }
}

TEST(BestDerivations, CountsOtherGoalsAnew) {
  TestEngine Engine(
      "A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\nA::A : [\"a\"] -> [\"z\"]\n(X1::Y1)\n"
      "B::B : [\"a\"] -> [\"y\"]\n(X1::Y1)\n");
  Engine.Engine.Translate("a", {});
  BestDerivations Best(Engine.Engine.ParsedChart());
  Best.Begin();
  const std::vector<std::pair<std::vector<std::uint32_t>, std::uint64_t>> vCases{
      {{0}, 2}, {{1}, 1}, {{0, 1}, 3}, {{}, 0}, {{1}, 1}, {{0}, 2}};
  for (const auto& [vGoals, Count] : vCases) {
    Best.SetGoals(vGoals);
    EXPECT_EQ(Best.CountGoals(), Count) << testing::PrintToString(vGoals);
  }
}

}  // namespace
