// Pins the cutting of a text without copying it: which pieces come out, in which order, how far
// behind a cut the cutter looks, and the two forms that ask for exactly two pieces.

#include "PieceCutter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using std::string_view_literals::operator""sv;
using TrRuleInternal::CutInTwo;
using TrRuleInternal::CutInTwoTrimmed;
using TrRuleInternal::PieceCutter;
using TrRuleInternal::PiecePair;
using TrRuleInternal::TrimmedPiece;

namespace {

using Views = std::vector<std::string_view>;

Views PiecesOf(std::string_view Text, std::string_view Delimiter) {
  Views vPieces;
  PieceCutter Cutter(Text, Delimiter);
  for (std::string_view Piece; Cutter.Next(Piece);) {
    vPieces.push_back(Piece);
  }
  return vPieces;
}

/// The two pieces as "first|second", or "none".
std::string Shown(const std::optional<PiecePair>& Pair) {
  return Pair ? std::string(Pair->First) + '|' + std::string(Pair->Second) : "none";
}

}  // namespace

TEST(PieceCutter, HandsOutNonEmptyPiecesInOrder) {
  struct Case {
    std::string_view Text;
    std::string_view Delimiter;
    Views vExpected;
  };
  const Case Cases[] = {
      {"", "::", {}},
      {"::", "::", {}},
      {"::::", "::", {}},
      {"abc", "x", {"abc"}},
      {"abc", "abcd", {"abc"}},
      {"NP::NP", "::", {"NP", "NP"}},
      {"::a::::b::", "::", {"a", "b"}},
      {":::a", "::", {":a"}},
      {"aaa", "aa", {"a"}},
      {" a\tb ", " ", {"a\tb"}},
      {"a\r\nb\r\n", "\n", {"a\r", "b\r"}},
      {"a\0b\0\0c"sv, "\0"sv, {"a", "b", "c"}},
      {"\xC3\xA4\xFF", "\xA4", {"\xC3", "\xFF"}},
  };
  for (const Case& Each : Cases) {
    SCOPED_TRACE(testing::Message() << Each.Text << " / " << Each.Delimiter);
    EXPECT_EQ(PiecesOf(Each.Text, Each.Delimiter), Each.vExpected);
  }
}

TEST(PieceCutter, AnEmptyDelimiterDoesNotCut) {
  EXPECT_EQ(PiecesOf("abc", ""), Views{"abc"});
  EXPECT_EQ(PiecesOf("", ""), Views{});
}

TEST(PieceCutter, PiecesPointIntoTheText) {
  const std::string Text = "ab::cd";
  const Views vPieces = PiecesOf(Text, "::");
  ASSERT_EQ(vPieces.size(), 2U);
  EXPECT_EQ(vPieces[0].data(), Text.data());
  EXPECT_EQ(vPieces[1].data(), Text.data() + 4);
}

TEST(PieceCutter, StaysAtItsEnd) {
  PieceCutter Cutter("a", ":");
  std::string_view Piece;
  EXPECT_TRUE(Cutter.Next(Piece));
  EXPECT_FALSE(Cutter.Next(Piece));
  EXPECT_FALSE(Cutter.Next(Piece));
}

TEST(PieceCutter, LooksAt100000BytesBehindACut) {
  static_assert(PieceCutter::MaxRest == 100000);
  for (const std::size_t Length : {99999U, 100000U, 100001U, 999999U, 1000000U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    const std::string Rest(std::min<std::size_t>(Length, 100000), 'x');
    EXPECT_EQ(PiecesOf(Long, ":"), Views{Long});
    EXPECT_EQ(PiecesOf(Long + ":b", ":"), (Views{Long, "b"}));
    EXPECT_EQ(PiecesOf("a:" + Long, ":"), (Views{"a", Rest}));
    EXPECT_EQ(PiecesOf(":" + Long, ":"), Views{Rest});
  }
}

TEST(PieceCutter, TrimsAPieceAndCapsOneThatBeginsWithABlank) {
  struct Case {
    std::string_view Piece;
    std::string_view Expected;
  };
  constexpr Case Cases[] = {
      {"", ""},          {" ", ""},   {"\t\r\n\v\f ", ""},  {"a", "a"},
      {" a", "a"},       {"a ", "a"}, {"\ta b\r\n", "a b"}, {"\0 a \0"sv, "\0 a \0"sv},
      {"\xA0 ", "\xA0"},
  };
  for (const Case& Each : Cases) {
    SCOPED_TRACE(Each.Piece);
    EXPECT_EQ(TrimmedPiece(Each.Piece), Each.Expected);
  }
  for (const std::size_t Length : {100001U, 999999U, 1000000U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    EXPECT_EQ(TrimmedPiece(Long + ' '), Long);
    EXPECT_EQ(TrimmedPiece(' ' + Long), Long.substr(0, 1000000));
    EXPECT_EQ(TrimmedPiece("  " + Long), Long.substr(0, 999999));
  }
}

TEST(PieceCutter, CutInTwoWantsExactlyTwoPieces) {
  struct Case {
    std::string_view Text;
    const char* Plain;
    const char* Trimmed;
  };
  constexpr Case Cases[] = {
      {"", "none", "none"},
      {"=", "none", "none"},
      {"a", "none", "none"},
      {"a=", "none", "none"},
      {"=a", "none", "none"},
      {"a=b", "a|b", "a|b"},
      {"a=b=c", "none", "none"},
      {"=a==b=", "a|b", "a|b"},
      {" a = b\r\n", " a | b\r\n", "a|b"},
      {" = ", " | ", "|"},
      {"a= ", "a| ", "a|"},
      {"a=b=", "a|b", "a|b"},
      {"a=b= ", "none", "none"},
      {"\xFF=\xFE", "\xFF|\xFE", "\xFF|\xFE"},
  };
  for (const Case& Each : Cases) {
    SCOPED_TRACE(Each.Text);
    EXPECT_EQ(Shown(CutInTwo(Each.Text, "=")), Each.Plain);
    EXPECT_EQ(Shown(CutInTwoTrimmed(Each.Text, "=")), Each.Trimmed);
  }
  EXPECT_EQ(Shown(CutInTwo("a=b", "")), "none");
  EXPECT_EQ(Shown(CutInTwoTrimmed("a=b", "")), "none");
}

TEST(PieceCutter, CutInTwoMissesAThirdPieceBehindTheCap) {
  const std::string Filler(99999, 'x');
  EXPECT_EQ(Shown(CutInTwo("a=" + Filler + "=c", "=")), "a|" + Filler);
  EXPECT_EQ(Shown(CutInTwo("a=" + Filler.substr(1) + "=c", "=")), "none");
}

// Cutting works at compile time as well.
static_assert(CutInTwo("a=b", "=")->Second == "b");
static_assert(!CutInTwoTrimmed("a=b=c", "="));
static_assert(TrimmedPiece(" a ") == "a");
