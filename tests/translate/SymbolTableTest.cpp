#include "SymbolTable.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace {

using Grammar::SymbolTable;

TEST(SymbolTable, NumbersTextsInTheOrderOfInsertion) {
  SymbolTable Table;
  EXPECT_EQ(Table.Intern("NP"), 0U);
  EXPECT_EQ(Table.Intern("DET"), 1U);
  EXPECT_EQ(Table.Intern("NP"), 0U);
  EXPECT_EQ(Table.Intern(""), 2U);
  EXPECT_EQ(Table.Find("DET"), 1U);
  EXPECT_EQ(Table.Find("N"), SymbolTable::None);
  EXPECT_EQ(Table.Name(1), "DET");
  EXPECT_EQ(Table.Size(), 3U);
}

TEST(SymbolTable, CapitalisesOnlyAsciiLetters) {
  SymbolTable Table;
  EXPECT_EQ(Table.InternUpper("n\xc3\xa9"), Table.Intern("N\xc3\xa9"));
  EXPECT_NE(Table.Intern("n"), Table.InternUpper("n"));
}

TEST(SymbolTable, DoesNotMoveItsTexts) {
  SymbolTable Table;
  const std::string& First = Table.Name(Table.Intern("first"));
  for (std::uint32_t Number = 1; Number < 10000; ++Number) {
    EXPECT_EQ(Table.Intern(std::to_string(Number)), Number);
  }
  EXPECT_EQ(First, "first");
  EXPECT_EQ(Table.Find("9999"), 9999U);
}

}  // namespace
