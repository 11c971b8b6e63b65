#include "Hashing.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <utility>

namespace {

using Grammar::NoEntry;
using Grammar::PairTable;

TEST(PairTable, NumbersPairsInTheOrderOfInsertion) {
  PairTable Table;
  EXPECT_EQ(Table.Find(1, 2), NoEntry);
  EXPECT_EQ(Table.Intern(1, 2), 0U);
  EXPECT_EQ(Table.Intern(2, 1), 1U);
  EXPECT_EQ(Table.Intern(1, 2), 0U);
  EXPECT_EQ(Table.Find(2, 1), 1U);
  EXPECT_EQ(Table.First(1), 2U);
  EXPECT_EQ(Table.Second(1), 1U);
  Table.Clear();
  EXPECT_EQ(Table.Find(1, 2), NoEntry);
  EXPECT_EQ(Table.Intern(NoEntry, 0), 0U);
}

TEST(PairTable, MatchesAMap) {
  PairTable Table;
  std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> Expected;
  for (std::uint32_t Number = 0; Number < 20000; ++Number) {
    const std::uint32_t First = Number * 7919 % 173;
    const std::uint32_t Second = Number * 104729 % 97;
    const auto New = static_cast<std::uint32_t>(Expected.size());
    EXPECT_EQ(Table.Intern(First, Second),
              Expected.emplace(std::pair(First, Second), New).first->second);
  }
  EXPECT_EQ(Table.Size(), Expected.size());
}

}  // namespace
