#include "Derivations.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

namespace {

using Translate::Derivations;

TEST(Derivations, NumbersEqualTreesAlike) {
  Derivations Trees;
  const auto Leaf = Trees.Tree(4, Derivations::NoList, -5);
  const auto Both = Trees.List(Trees.List(Derivations::NoList, Leaf), Leaf);
  const auto Root = Trees.Tree(1, Both, -2);
  EXPECT_EQ(Trees.ScoreOfTree(Root), -12);
  EXPECT_EQ(Trees.Tree(1, Trees.List(Trees.List(Derivations::NoList, Leaf), Leaf), -2), Root);
  std::vector<Derivations::TreeId> vParts;
  Trees.PartsOf(Root, vParts);
  EXPECT_EQ(vParts, (std::vector<Derivations::TreeId>{Leaf, Leaf}));
}

TEST(Derivations, ComparesTheFirstDifferentRule) {
  Derivations Trees;
  const auto Three = Trees.Tree(3, Derivations::NoList, 0);
  const auto Four = Trees.Tree(4, Derivations::NoList, 0);
  const auto With = [&](Derivations::TreeId First, Derivations::TreeId Second) {
    return Trees.Tree(1, Trees.List(Trees.List(Derivations::NoList, First), Second), 0);
  };
  EXPECT_LT(Trees.CompareTrees(With(Three, Four), With(Four, Three)), 0);
  EXPECT_GT(Trees.CompareTrees(With(Four, Four), With(Four, Three)), 0);
  EXPECT_EQ(Trees.CompareTrees(With(Four, Four), With(Four, Four)), 0);
  EXPECT_LT(Trees.CompareTrees(With(Four, Four), Three), 0);
}

/// The same pairs are compared again, both ways, when much is remembered of them.
TEST(Derivations, ComparesDeepTreesAsTheirRulesInOrder) {
  std::mt19937 Random(7);
  const auto Below = [&](std::size_t Limit) { return Random() % Limit; };
  Derivations Trees;
  std::vector<Derivations::TreeId> vTrees;
  std::vector<std::vector<std::uint32_t>> vRules;  // of each tree, root first
  const auto Add = [&](std::uint32_t Rule, Derivations::ListId Parts,
                       const std::vector<std::uint32_t>& vBelow) {
    vTrees.push_back(Trees.Tree(Rule, Parts, 0));
    vRules.push_back({Rule});
    vRules.back().insert(vRules.back().end(), vBelow.begin(), vBelow.end());
  };
  for (std::uint32_t Leaf = 2; Leaf < 5; ++Leaf) {
    Add(Leaf, Derivations::NoList, {});
  }
  while (vTrees.size() < 400) {
    // Mostly one of the last, so that trees become deep.
    const std::size_t Deep = vTrees.size() - 1 - Below(3);
    const std::size_t Leaf = Below(3);
    const bool IsFirst = Below(4) > 0;
    const std::size_t First = IsFirst ? Deep : Leaf;
    const std::size_t Second = IsFirst ? Leaf : Deep;
    std::vector<std::uint32_t> vBoth(vRules[First]);
    vBoth.insert(vBoth.end(), vRules[Second].begin(), vRules[Second].end());
    const Derivations::ListId Parts =
        Trees.List(Trees.List(Derivations::NoList, vTrees[First]), vTrees[Second]);
    Add(1, Parts, vBoth);
  }
  const auto Sign = [](bool IsLess, bool IsMore) { return IsLess ? -1 : IsMore ? 1 : 0; };
  for (std::size_t Count = 0; Count < 40000; ++Count) {
    const std::size_t Left = Below(vTrees.size());
    const std::size_t Right = Below(vTrees.size());
    EXPECT_EQ(Trees.CompareTrees(vTrees[Left], vTrees[Right]),
              Sign(vRules[Left] < vRules[Right], vRules[Right] < vRules[Left]));
  }
  EXPECT_GT(vRules.back().size(), 100U);
}

}  // namespace
