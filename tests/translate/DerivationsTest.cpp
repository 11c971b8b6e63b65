#include "Derivations.h"

#include <gtest/gtest.h>

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

}  // namespace
