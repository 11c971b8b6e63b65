// The two queries on an alignment string, the index that answers them, and strings that are
// truncated, overlong or without outer parentheses.

#include "LineUp.h"

#include <gtest/gtest.h>

#include "support/DebugLevel.h"
#include "support/PrivateAccess.h"
#include "support/ReferenceImplementation.h"
#include "support/StreamCapture.h"

#include <map>
#include <random>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

using std::string_literals::operator""s;

using IndexMap = std::map<int, std::vector<int>>;
using IntSet = std::set<int>;
using Reference::IntPairs;

static_assert(!std::is_polymorphic_v<LineUp>);
static_assert(std::is_default_constructible_v<LineUp> && std::is_copy_constructible_v<LineUp> &&
              std::is_copy_assignable_v<LineUp>);
static_assert(sizeof(LineUp) == 2 * sizeof(IndexMap), "two maps and nothing else");

struct FillHashTag {
  using Member = void (LineUp::*)(int, std::string);
  friend constexpr Member GetMember(FillHashTag Tag);
};
template struct PrivateMember<FillHashTag, &LineUp::FillHash>;

struct SrcTgtTag {
  using Member = IndexMap LineUp::*;
  friend constexpr Member GetMember(SrcTgtTag Tag);
};
template struct PrivateMember<SrcTgtTag, &LineUp::SrcTgt>;

struct TgtSrcTag {
  using Member = IndexMap LineUp::*;
  friend constexpr Member GetMember(TgtSrcTag Tag);
};
template struct PrivateMember<TgtSrcTag, &LineUp::TgtSrc>;

namespace {

void Fill(LineUp& Index, int Which, const std::string& Alignments) {
  (Index.*GetMember(FillHashTag()))(Which, Alignments);
}

IndexMap& SrcTgt(LineUp& Index) {
  return Index.*GetMember(SrcTgtTag());
}

IndexMap& TgtSrc(LineUp& Index) {
  return Index.*GetMember(TgtSrcTag());
}

IndexMap SourceIndex(const std::string& Alignments) {
  LineUp Index;
  Fill(Index, 1, Alignments);
  return SrcTgt(Index);
}

IndexMap TargetIndex(const std::string& Alignments) {
  LineUp Index;
  Fill(Index, 2, Alignments);
  return TgtSrc(Index);
}

IndexMap Grouped(const IntPairs& vPairs, bool BySource) {
  IndexMap Groups;
  for (const auto& [X, Y] : vPairs) {
    Groups[BySource ? X : Y].push_back(BySource ? Y : X);
  }
  return Groups;
}

}  // namespace

TEST(LineUp, FindsThePartnersOfAComponent) {
  struct Case {
    const char* Alignments;
    int Key;
    IntSet siTargets;
    IntSet siSources;
  };
  const Case Cases[] = {
      {"((1,1),(2,3),(3,2))", 1, {1}, {1}},
      {"((1,1),(2,3),(3,2))", 2, {3}, {3}},
      {"((1,1),(2,3),(3,2))", 3, {2}, {2}},
      {"((1,1),(2,3),(3,2))", 4, {}, {}},
      {"((1,1),(2,3),(3,2))", 0, {}, {}},
      {"((1,1),(2,3),(3,2))", -1, {}, {}},
      {"((1,1),(1,2))", 1, {1, 2}, {1}},
      {"((1,1),(1,2))", 2, {}, {1}},
      {"((1,3),(2,3))", 3, {}, {1, 2}},
      {"((0,4),(0,2))", 0, {2, 4}, {}},
      {"((10,11))", 10, {11}, {}},
      {"((10,11))", 1, {}, {}},
      {"()", 0, {}, {}},
      {"()", 1, {}, {}},
      {"", 0, {}, {}},
      {"", 1, {}, {}},
      {"(1,1),(2,2)", 1, {}, {}},
      {"(1,1),(2,2)", 2, {2}, {2}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(testing::Message() << Row.Alignments << " asked for " << Row.Key);
    LineUp Index;
    IntSet siTargets;
    IntSet siSources;
    EXPECT_EQ(Index.GetEq(Row.Alignments, Row.Key, siTargets), !Row.siTargets.empty());
    EXPECT_EQ(Index.GetEqFromY(Row.Alignments, Row.Key, siSources), !Row.siSources.empty());
    EXPECT_EQ(siTargets, Row.siTargets);
    EXPECT_EQ(siSources, Row.siSources);
  }
}

TEST(LineUp, AddsToTheSetOfTheCaller) {
  LineUp Index;
  IntSet siPartners{7};
  EXPECT_TRUE(Index.GetEq("((1,1),(2,3))", 1, siPartners));
  EXPECT_EQ(siPartners, (IntSet{1, 7}));
  EXPECT_TRUE(Index.GetEq("((1,1),(2,3))", 2, siPartners));
  EXPECT_EQ(siPartners, (IntSet{1, 3, 7}));
  EXPECT_TRUE(Index.GetEqFromY("((5,1),(2,3))", 1, siPartners));
  EXPECT_EQ(siPartners, (IntSet{1, 3, 5, 7}));
}

TEST(LineUp, LeavesTheSetUnchangedWithoutAPartner) {
  LineUp Index;
  IntSet siPartners{7};
  EXPECT_FALSE(Index.GetEq("((1,2))", 2, siPartners));
  EXPECT_FALSE(Index.GetEqFromY("((1,2))", 1, siPartners));
  EXPECT_EQ(siPartners, IntSet{7});
}

TEST(LineUp, StartsEmpty) {
  LineUp Index;
  EXPECT_EQ(SrcTgt(Index), IndexMap{});
  EXPECT_EQ(TgtSrc(Index), IndexMap{});
}

TEST(LineUp, FillsTheSourceIndexFor1AndTheTargetIndexOtherwise) {
  const std::string Alignments = "((1,2),(3,2))";
  const IndexMap BySource{{1, {2}}, {3, {2}}};
  const IndexMap ByTarget{{2, {1, 3}}};
  for (const int Which : {1, 2, 0, 3, -1}) {
    SCOPED_TRACE(Which);
    LineUp Index;
    Fill(Index, Which, Alignments);
    EXPECT_EQ(SrcTgt(Index), Which == 1 ? BySource : IndexMap{});
    EXPECT_EQ(TgtSrc(Index), Which == 1 ? IndexMap{} : ByTarget);
  }
}

TEST(LineUp, KeepsTheOrderAndTheDuplicatesOfPairs) {
  EXPECT_EQ(SourceIndex("((1,3),(1,1),(1,3))"), (IndexMap{{1, {3, 1, 3}}}));
  EXPECT_EQ(TargetIndex("((3,1),(1,1),(3,1))"), (IndexMap{{1, {3, 1, 3}}}));
}

TEST(LineUp, AddsToAFilledIndex) {
  LineUp Index;
  Fill(Index, 1, "((1,2))");
  Fill(Index, 1, "((1,3),(2,2))");
  Fill(Index, 2, "((9,8))");
  EXPECT_EQ(SrcTgt(Index), (IndexMap{{1, {2, 3}}, {2, {2}}}));
  EXPECT_EQ(TgtSrc(Index), (IndexMap{{8, {9}}}));
}

TEST(LineUp, ClearsOnlyTheQueriedIndex) {
  for (const int Key : {1, 4}) {  // found, and not found
    SCOPED_TRACE(Key);
    LineUp Index;
    IntSet siPartners;
    Fill(Index, 2, "((9,8))");
    Index.GetEq("((1,1))", Key, siPartners);
    EXPECT_EQ(SrcTgt(Index), IndexMap{});
    EXPECT_EQ(TgtSrc(Index), (IndexMap{{8, {9}}}));
    Fill(Index, 1, "((9,8))");
    Index.GetEqFromY("((1,1))", Key, siPartners);
    EXPECT_EQ(SrcTgt(Index), (IndexMap{{9, {8}}}));
    EXPECT_EQ(TgtSrc(Index), IndexMap{});
  }
}

TEST(LineUp, KeepsNothingBetweenQueries) {
  LineUp Index;
  IntSet siPartners;
  EXPECT_TRUE(Index.GetEq("((1,1))", 1, siPartners));
  EXPECT_FALSE(Index.GetEq("((2,2))", 1, siPartners));
  EXPECT_TRUE(Index.GetEqFromY("((3,3))", 3, siPartners));
  EXPECT_FALSE(Index.GetEqFromY("()", 3, siPartners));
  EXPECT_EQ(siPartners, (IntSet{1, 3}));
}

TEST(LineUp, CopiesItsIndex) {
  LineUp Index;
  Fill(Index, 1, "((1,2))");
  LineUp Copy(Index);
  Fill(Copy, 1, "((1,3))");
  EXPECT_EQ(SrcTgt(Index), (IndexMap{{1, {2}}}));
  EXPECT_EQ(SrcTgt(Copy), (IndexMap{{1, {2, 3}}}));
  Index = Copy;
  EXPECT_EQ(SrcTgt(Index), (IndexMap{{1, {2, 3}}}));
}

TEST(LineUp, StopsAtTheEndOfATruncatedString) {
  const std::string Whole = "((1,1),(2,3),(3,2))";
  const IntPairs vPairs{{1, 1}, {2, 3}, {3, 2}};
  for (std::size_t Length = 0; Length <= Whole.size(); ++Length) {
    SCOPED_TRACE(Length);
    const auto Complete = static_cast<std::ptrdiff_t>(Length / 6);  // pairs end at 6, 12 and 18
    const IntPairs vExpected(vPairs.begin(), vPairs.begin() + Complete);
    EXPECT_EQ(SourceIndex(Whole.substr(0, Length)), Grouped(vExpected, true));
    EXPECT_EQ(TargetIndex(Whole.substr(0, Length)), Grouped(vExpected, false));
  }
}

TEST(LineUp, SkipsPairsWithIndexTextsOfTenCharacters) {
  EXPECT_EQ(SourceIndex("((123456789,123456789))"), (IndexMap{{123456789, {123456789}}}));
  EXPECT_EQ(SourceIndex("((1234567890,1),(2,2))"), (IndexMap{{2, {2}}}));
  EXPECT_EQ(SourceIndex("((1,1234567890),(2,2))"), (IndexMap{{2, {2}}}));
  EXPECT_EQ(TargetIndex("((0000000001,1),(1,0000000001),(2,000000001))"), (IndexMap{{1, {2}}}));
  EXPECT_EQ(SourceIndex("((" + std::string(100000, '1') + ",1),(3,4))"), (IndexMap{{3, {4}}}));
}

TEST(LineUp, ReadsAnyIndexText) {
  struct Case {
    std::string Alignments;
    IndexMap BySource;
  };
  const Case Cases[] = {
      {"(( 1, 2 ))", {{1, {2}}}},
      {"((1,2)junk(3,4)) trailing", {{1, {2}}, {3, {4}}}},
      {"(\r\n(1,2),\r\n(\r\n3,4)\r\n)", {{1, {2}}, {3, {4}}}},
      {"((-1,+2))", {{-1, {2}}}},
      {"((x,y))", {{0, {0}}}},
      {"((,))", {{0, {0}}}},
      {"((1a,2b))", {{1, {2}}}},
      {"((1\0009,2))"s, {{1, {2}}}},
      {"((\xB2,\xFF"
       "3))",
       {{0, {0}}}},
      {"(((1,2)))", {{0, {2}}}},
      {"((1),(2,3))", {{1, {0}}}},
      {"((1,(2,3))", {{1, {0}}}},
      {"x(1,2)", {{1, {2}}}},
      {")1,2)(3,4)", {{3, {4}}}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Alignments);
    EXPECT_EQ(SourceIndex(Row.Alignments), Row.BySource);
  }
}

TEST(LineUp, IndexesRandomStringsLikeTheReference) {
  constexpr unsigned Seed = 20301;
  std::mt19937 Engine(Seed);
  const std::string Damage = "((,,))123456789 x\0\xFF"s;
  for (int Round = 0; Round < 4000; ++Round) {
    SCOPED_TRACE(testing::Message() << "seed " << Seed << " round " << Round);
    std::string Text = "(";
    for (unsigned long Pair = Engine() % 5; Pair > 0; --Pair) {
      Text += '(' + std::to_string(Engine() % 12) + ',' + std::to_string(Engine() % 12) + "),";
    }
    Text.back() = ')';
    for (unsigned long Byte = Round % 2 == 0 ? 0 : Engine() % 8; Byte > 0; --Byte) {
      Text[Engine() % Text.size()] = Damage[Engine() % Damage.size()];
    }
    const IntPairs vExpected = Reference::IndexedPairs(Text);
    EXPECT_EQ(SourceIndex(Text), Grouped(vExpected, true)) << Text;
    EXPECT_EQ(TargetIndex(Text), Grouped(vExpected, false)) << Text;
  }
}
