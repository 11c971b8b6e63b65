#include "SourceTrie.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

TEST(SourceTrie, SharesPrefixesAndMergesNeeds) {
  Translate::SourceTrie Trie;
  Trie.Add({7, 9}, {0, 1}, 0);
  Trie.Add({7}, {2}, 1);
  Trie.Add({7, 9}, {0, 2}, 2);
  Trie.Add({5 | Translate::SourceTrie::LiteralMark}, {0}, 3);
  Trie.Finish();
  const auto First = Trie.Child(Translate::SourceTrie::Root, 7);
  const auto Second = Trie.Child(First, 9);
  EXPECT_EQ(Trie.Child(First, 8), Translate::NoEntry);
  EXPECT_EQ(Trie.Needs(First), 2);
  EXPECT_EQ(Trie.Needs(Second), 3);
  EXPECT_EQ(std::vector<std::uint32_t>(Trie.Rules(Second).begin(), Trie.Rules(Second).end()),
            (std::vector<std::uint32_t>{0, 2}));
  EXPECT_TRUE(Trie.HasLiterals(Translate::SourceTrie::Root));
  EXPECT_FALSE(Trie.HasLiterals(First));
  EXPECT_TRUE(Trie.HasEdges(First));
  EXPECT_EQ(Trie.Slots(Translate::SourceTrie::Root).size(), 1U);
}

TEST(SourceTrie, SortsEdgesForAnyOrderOfRules) {
  Translate::SourceTrie Trie;
  const std::uint32_t Literal = 1 | Translate::SourceTrie::LiteralMark;
  Trie.Add({Literal, 4}, {0, 0}, 0);
  Trie.Add({9}, {0}, 1);
  Trie.Add({2, 2}, {0, 0}, 2);
  Trie.Finish();
  std::vector<std::uint32_t> vSlots;
  for (const auto& Current : Trie.Slots(Translate::SourceTrie::Root)) {
    EXPECT_EQ(Trie.Parent(Current.Target), Translate::SourceTrie::Root);
    EXPECT_EQ(Trie.Symbol(Current.Target), Current.Symbol);
    vSlots.push_back(Current.Symbol);
  }
  EXPECT_EQ(vSlots, (std::vector<std::uint32_t>{2, 9}));
  EXPECT_EQ(Trie.Size(), 6U);
  EXPECT_EQ(Trie.AllRules().size(), 3U);
}

TEST(SourceTrie, WorksWithoutRules) {
  Translate::SourceTrie Trie;
  Trie.Finish();
  EXPECT_EQ(Trie.Size(), 1U);
  EXPECT_FALSE(Trie.HasEdges(Translate::SourceTrie::Root));
  EXPECT_EQ(Trie.Rules(Translate::SourceTrie::Root).size(), 0U);
  EXPECT_EQ(Trie.Child(Translate::SourceTrie::Root, 1), Translate::NoEntry);
}

}  // namespace
