#include "NearestRules.h"

#include "RandomVersions.h"
#include "RuleReader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <vector>

namespace {

using namespace Grammar;
using Pairs = std::vector<std::tuple<std::size_t, std::size_t, unsigned>>;

RuleTokens RandomTokens(RandomInput& Random, std::size_t Kinds) {
  RuleTokens vTokens(Random.Below(6));
  for (std::uint64_t& Token : vTokens) {
    Token = Random.Below(Kinds);
  }
  std::sort(vTokens.begin(), vTokens.end());
  return vTokens;
}

std::vector<RuleTokens> RandomList(RandomInput& Random, std::size_t Size, std::size_t Kinds) {
  std::vector<RuleTokens> vList(Size);
  for (RuleTokens& vTokens : vList) {
    vTokens = RandomTokens(Random, Kinds);
  }
  return vList;
}

Pairs AsPairs(const std::vector<NearPair>& vPairs) {
  Pairs vReturn;
  for (const NearPair& Pair : vPairs) {
    vReturn.emplace_back(Pair.Old, Pair.New, Pair.Score);
  }
  return vReturn;
}

/// Takes the most alike of all pairs that are left, again and again.
Pairs SlowNearest(const std::vector<RuleTokens>& vOld, const std::vector<RuleTokens>& vNew,
                  unsigned LeastScore) {
  Pairs vChosen;
  std::vector<bool> vHasOld(vOld.size());
  std::vector<bool> vHasNew(vNew.size());
  for (;;) {
    std::tuple<std::size_t, std::size_t, unsigned> Best;
    bool HasBest = false;
    for (std::size_t New = 0; New < vNew.size(); ++New) {
      for (std::size_t Old = 0; Old < vOld.size(); ++Old) {
        const unsigned Score = Likeness(vOld[Old], vNew[New]);
        if (!vHasOld[Old] && !vHasNew[New] && Score >= LeastScore &&
            (!HasBest || Score > std::get<2>(Best))) {
          Best = {Old, New, Score};
          HasBest = true;
        }
      }
    }
    if (!HasBest) {
      return vChosen;
    }
    vHasOld[std::get<0>(Best)] = true;
    vHasNew[std::get<1>(Best)] = true;
    vChosen.push_back(Best);
  }
}

TEST(NearestRules, CompareTheTypesEachLabelAndEachLine) {
  const std::string Rule = "NP::NP [DET N] -> [A B]\n(\n(X1::Y1)\n(X2::Y2)\n)\n";
  const struct {
    std::string Other;
    unsigned Likeness;
  } Cases[] = {
      {Rule, 100},
      {"NP::AP [DET N] -> [A B]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 85},
      {"NP::NP [ADJ N] -> [A B]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 85},
      {"NP::NP [DET V] -> [A B]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 85},
      {"NP::NP [DET N] -> [C B]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 85},
      {"NP::NP [DET N] -> [A C]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 85},
      {"NP::NP [DET N] -> [A B]\n(\n(X1::Y1)\n(X2::Y1)\n)\n", 85},
      {"NP::NP [A B] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 42},
      {"NP::NP [N DET] -> [A B]\n(\n(X1::Y1)\n(X2::Y2)\n)\n", 100},
      {"NP::NP [DET N] -> [A B]\n(\n;--;(X1::Y1)\n(X2::Y2)\n)\n", 100},
      {"NP::NP [DET N] -> [A B]\n(\n(X1::Y1)\n)\n", 92},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(Likeness(TokensOf(Rule), TokensOf(Case.Other)), Case.Likeness) << Case.Other;
    EXPECT_EQ(Likeness(TokensOf(Case.Other), TokensOf(Rule)), Case.Likeness) << Case.Other;
  }
}

TEST(NearestRules, CountWhatRulesHaveInCommon) {
  const RuleTokens Sample =
      TokensOf("NP::NP [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n;--;(X2::Y2)\n)");
  const struct {
    const char* Block;
    unsigned Score;
  } Cases[] = {
      {"NP::NP [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n;--;(X2::Y2)\n)", 100},
      {"NP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)", 85},
      {"NP::NP [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n)", 92},
      {"VP::VP [V] -> [V]\n(\n(X1::Y1)\n)", 18},
      {"VP::VP [V] -> [V]\n(\n(X3::Y1)\n)", 0},
      {"VP::VP [] -> []\n(\n)", 0},
  };
  for (const auto& Current : Cases) {
    EXPECT_EQ(Likeness(Sample, TokensOf(Current.Block)), Current.Score) << Current.Block;
    EXPECT_EQ(Likeness(TokensOf(Current.Block), Sample), Current.Score) << Current.Block;
  }
}

TEST(NearestRules, ArePairedAsByLookingAtAllPairs) {
  RandomInput Random;
  for (int Round = 0; Round < 500; ++Round) {
    const auto vOld = RandomList(Random, Random.Below(12), 8);
    const auto vNew = RandomList(Random, Random.Below(12), 8);
    const unsigned Least = static_cast<unsigned>(Random.Below(101));
    EXPECT_EQ(AsPairs(FindNearest(vOld, vNew, Least)), SlowNearest(vOld, vNew, Least));
  }
}

TEST(NearestRules, AreFoundAmongManyByTheirRarestTokens) {
  constexpr std::uint64_t Common = 1'000'000;
  std::vector<RuleTokens> vOld;
  std::vector<RuleTokens> vNew;
  Pairs vExpected;
  for (std::size_t At = 0; At < 2000; ++At) {
    vOld.push_back({At, At + 5000, Common});
    vNew.insert(vNew.begin(), {At, At + 5000, Common, Common + 1 + At});
    vExpected.emplace_back(1999 - At, At, 85);
  }
  EXPECT_EQ(AsPairs(FindNearest(vOld, vNew, 51)), vExpected);
}

TEST(NearestRules, ArePairedInOrderAmongManyThatAreTheSame) {
  const std::vector<RuleTokens> vSame(500, RuleTokens{1, 2, 3});
  Pairs vExpected;
  for (std::size_t At = 0; At < vSame.size(); ++At) {
    vExpected.emplace_back(At, At, 100);
  }
  EXPECT_EQ(AsPairs(FindNearest(vSame, vSame, 51)), vExpected);
}

TEST(NearestRules, HaveEachRuleOnceAmongMany) {
  RandomInput Random;
  const auto vOld = RandomList(Random, 300, 12);
  const auto vNew = RandomList(Random, 300, 12);
  std::vector<int> vOldUses(vOld.size());
  std::vector<int> vNewUses(vNew.size());
  for (const NearPair& Pair : FindNearest(vOld, vNew, 60)) {
    EXPECT_EQ(Pair.Score, Likeness(vOld[Pair.Old], vNew[Pair.New]));
    EXPECT_GE(Pair.Score, 60U);
    EXPECT_EQ(++vOldUses[Pair.Old], 1);
    EXPECT_EQ(++vNewUses[Pair.New], 1);
  }
}

}  // namespace
