// Alignment strings: canonical order, displayed pairs and exchanged sides, of well-formed and
// malformed strings. Order and display are also compared with the reference implementation
// (ReferenceImplementationTest.cpp does so with random strings).

#include "AlignmentText.h"

#include <gtest/gtest.h>

#include "support/LibraryResults.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

using std::string_literals::operator""s;
using Library::Canonical;
using Library::Displayed;
using Reference::Ordered;
using Reference::TextPairs;
using TrRuleInternal::DisplayPair;
using TrRuleInternal::DisplayWalk;
using TrRuleInternal::MissingIndex;
using TrRuleInternal::ReversedAlignments;

namespace {

const std::string Sample = "((1,1),(2,3),(3,2))";

}  // namespace

TEST(AlignmentText, RequiresOuterParenthesesFromThreeCharactersOn) {
  const std::pair<std::string, bool> Cases[] = {
      {"", true},
      {"x", true},
      {"ab", true},
      {"()", true},
      {")(", true},
      {"1,1", false},
      {"(1,1", false},
      {"1,1)", false},
      {"((1,1))", true},
      {"(1,1)", true},
      {"((1,1)) ", false},
      {" ((1,1))", false},
      {"((1,1))\0"s, false},
      {"((1,1))\r\n", false},
      {"(\xFF)", true},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(TrRuleInternal::HasOuterParentheses(Text), Expected);
  }
}

TEST(AlignmentText, SortsPairsByNumberAndRemovesDuplicates) {
  const std::pair<std::string, std::string> Cases[] = {
      {"", ""},
      {"()", "()"},
      {"((1,1))", "((1,1))"},
      {Sample, Sample},
      {"((1,1),(3,2),(2,3))", Sample},
      {"((2,1),(1,2),(1,1))", "((1,1),(1,2),(2,1))"},
      {"((10,1),(9,1))", "((9,1),(10,1))"},
      {"((1,10),(1,9))", "((1,9),(1,10))"},
      {"((0,1),(-1,1))", "((-1,1),(0,1))"},
      {"((1,1),(1,1))", "((1,1))"},
      {"((2,2),(1,1),(2,2),(1,1))", "((1,1),(2,2))"},
      {"((1,1),(01,1),( 1,1))", "((1,1))"},
      {"(( 1,1),(1,1))", "(( 1,1))"},
      {"((4294967298,1),(1,1))", "((1,1),(4294967298,1))"},
      {"((99999999999999999999,1),(0,1))", "((99999999999999999999,1),(0,1))"},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(Canonical(Text), (Ordered{Expected, ""}));
  }
}

TEST(AlignmentText, RecognisesACanonicalStringOfPlainNumbers) {
  const std::pair<std::string, bool> Cases[] = {
      {"((1,1))", true},
      {Sample, true},
      {"((0,0))", true},
      {"((1,1),(1,2))", true},
      {"((9,1),(10,1))", true},
      {"((01,1))", true},
      {"((999999999,999999999))", true},
      {"", false},
      {"()", false},
      {"x", false},
      {"1,1", false},
      {"(1,1)", false},
      {"((1,1)", false},
      {"((1,1),)", false},
      {"((1,1),(1,1))", false},
      {"((1,2),(1,1))", false},
      {"((2,1),(1,1))", false},
      {"((10,1),(9,1))", false},
      {"((1,1),(01,1))", false},
      {"((1000000000,1))", false},
      {"((1,1000000000))", false},
      {"((-1,1))", false},
      {"((+1,1))", false},
      {"(( 1,1))", false},
      {"((1,1 ))", false},
      {"((1,1), (2,2))", false},
      {"((1,1)(2,2))", false},
      {"((,1))", false},
      {"((1,))", false},
      {"((1))", false},
      {"((1,1))x", false},
      {"x((1,1))", false},
      {"((1,1))\r\n", false},
      {"((1,1))\0"s, false},
      {"((\xB2,1))", false},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(TrRuleInternal::IsCanonical(Text), Expected);
  }
}

TEST(AlignmentText, RejectsPrefixesOfACanonicalString) {
  for (std::size_t Length = 0; Length < Sample.size(); ++Length) {
    SCOPED_TRACE(Length);
    EXPECT_FALSE(TrRuleInternal::IsCanonical(Sample.substr(0, Length)));
  }
}

TEST(AlignmentText, KeepsTheTextOfEachPair) {
  const std::pair<std::string, std::string> Cases[] = {
      {"((2, 1),( 1 ,1))", "(( 1 ,1),(2, 1))"}, {"((1\0x,2),(1,1))"s, "((1,1),(1\0x,2))"s},
      {"((1,1),(\xB2,1))", "((\xB2,1),(1,1))"}, {"((2,1),(\r\n1,1))", "((\r\n1,1),(2,1))"},
      {"((2b,1),(1a,1))", "((1a,1),(2b,1))"},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(Canonical(Text), (Ordered{Expected, ""}));
  }
}

TEST(AlignmentText, SeparatesPairsOnlyAtACommaBetweenParentheses) {
  const std::pair<std::string, std::string> Cases[] = {
      {"((2,1), (1,1))", "((2,1), (1,1))"}, {"((1,1), (2,3))", "((1,1), (2,3))"},
      {"((2,1) ,(1,1))", "((2,1) ,(1,1))"}, {"((2,1),,(1,1))", "((2,1),,(1,1))"},
      {"((2,1)(1,1))", "((2,1)(1,1))"},     {"((2,1),\r\n(1,1))", "((2,1),\r\n(1,1))"},
      {"((2,1),x)", "((2,1),x)"},           {"(,(1,1))", "(,(1,1))"},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(Canonical(Text), (Ordered{Expected, ""}));
  }
}

TEST(AlignmentText, DropsTheLastPairBeforeATrailingComma) {
  const std::pair<std::string, std::string> Cases[] = {
      {"((1,1),(2,2),)", "((1,1))"},
      {"((1,1),)", ""},
      {"(,)", ""},
      {"(,,)", ""},
      {"((2,2),(1,1),(3,3),)", "((1,1),(2,2))"},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(Canonical(Text), (Ordered{Expected, ""}));
  }
}

TEST(AlignmentText, TakesAMissingIndexFromThePreviousPair) {
  struct Case {
    std::string Text;
    Ordered Expected;
  };
  const Case Cases[] = {
      {"x", {"()", "xy"}},
      {"(", {"()", "xy"}},
      {"ab", {"()", "xy"}},
      {"(x)", {"(x)", "xy"}},
      {"((1))", {"((1))", "xy"}},
      {"((1),(0,1))", {"((1),(0,1))", "xy"}},
      {"((2,2),(1),(3,3))", {"((2,2),(3,3))", "xy"}},
      {"((2,2),(1),(1,1))", {"((1,1),(2,2))", "xy"}},
      {"(1,2))", {"(1,2))", "x"}},
      {"(1,()", {"(1,()", "xy"}},
      {"((2,2),(1,3)", {"((1,3,(2,2))", "y"}},
      {"((1,1),(2,3)", {"((1,1),(2,3)", "y"}},
      {"(1,1),(2,2)", {"(1,1),(2,2)", "xy"}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(Canonical(Row.Text), Row.Expected);
  }
}

TEST(AlignmentText, ReadsIndicesInAnImpossibleOrderAsZero) {
  EXPECT_EQ(Canonical("((5,5),(4)3,(1))"), (Ordered{"((4)3,(1),(5,5))", ""}));
  EXPECT_EQ(Canonical("((0,1),()7,(9))"), (Ordered{"(()7,(9),(0,1))", ""}));
  EXPECT_EQ(Canonical("(3,(4),(1,1))"), (Ordered{"(3,(4),(1,1))", ""}));
  EXPECT_EQ(Canonical("(3,(4),(-1,1))"), (Ordered{"((-1,1),3,(4))", ""}));
}

TEST(AlignmentText, SortsLikeTheReferenceAtEveryPrefixOfAString) {
  for (const std::string& Text :
       {Sample, "((3,2),(2,3),(1,1))trailing"s, "((2,\0),\r\n(1,\xFF))"s}) {
    for (std::size_t Length = 0; Length <= Text.size(); ++Length) {
      const std::string Inner = Text.substr(0, Length);
      SCOPED_TRACE(Inner);
      EXPECT_EQ(Canonical('(' + Inner + ')'), Reference::Canonical('(' + Inner + ')'));
    }
  }
}

TEST(AlignmentText, DisplaysIndexTextsAsWritten) {
  struct Case {
    std::string Text;
    TextPairs vExpected;
  };
  const Case Cases[] = {
      {"", {}},
      {"()", {}},
      {"x", {}},
      {"((1,1))", {{"1", "1"}}},
      {Sample, {{"1", "1"}, {"2", "3"}, {"3", "2"}}},
      {"((3,2),(1,1))", {{"3", "2"}, {"1", "1"}}},
      {"((10,012))", {{"10", "012"}}},
      {"(( 1 , 2 ))", {{" 1 ", " 2 "}}},
      {"((1,1), (2,3))", {{"1", "1"}, {"2", "3"}}},
      {"((1,1)x(2,3))trailing", {{"1", "1"}, {"2", "3"}}},
      {"((\r\n1,2\r\n))", {{"\r\n1", "2\r\n"}}},
      {"((1\0,\xFF))"s, {{"1\0"s, "\xFF"}}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(Displayed(Row.Text), Row.vExpected);
  }
}

TEST(AlignmentText, EndsTheDisplayAtACommaThatIsLastOrBeforeAParenthesis) {
  struct Case {
    std::string Text;
    TextPairs vExpected;
  };
  const Case Cases[] = {
      {"(,(1,1))", {}},
      {",(", {}},
      {"((1,1),(,(2,2))", {{"1", "1"}}},
      {"((1,1),(2", {{"1", "1"}}},
      {"((1,1),(2,", {{"1", "1"}}},
      {",", {}},
      {"((1,1),", {{"1", "1"}}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(Displayed(Row.Text), Row.vExpected);
  }
}

TEST(AlignmentText, DisplaysTextsInAnImpossibleOrderAsEmpty) {
  struct Case {
    std::string Text;
    TextPairs vExpected;
  };
  const Case Cases[] = {
      {"1,2)", {{"1", "2"}}},
      {",2)", {{"", "2"}}},
      {"((1,1),2,3)", {{"1", "1"}, {"2", "3"}}},
      {"(1),2)", {{"1)", ""}}},
      {"1)2,3)", {{"", ""}, {"", "3"}}},
      {")1,2)", {{"", ""}, {"", "2"}}},
      {"(1)2,3)", {{"1)2", ""}, {"", "3"}}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(Displayed(Row.Text), Row.vExpected);
  }
}

TEST(AlignmentText, DisplaysAnUnclosedPairUpToTheEnd) {
  EXPECT_EQ(Displayed("((1,1),(2,3"), (TextPairs{{"1", "1"}, {"2", "3"}}));
  EXPECT_EQ(Displayed("1,2,3"), (TextPairs{{"1", "2,3"}}));
}

TEST(AlignmentText, DisplaysViewsOfTheString) {
  DisplayWalk Walk(Sample);
  DisplayPair Pair;
  ASSERT_TRUE(Walk.Next(Pair));
  EXPECT_EQ(Pair.X.data(), Sample.data() + 2);
  ASSERT_TRUE(Walk.Next(Pair));
  ASSERT_TRUE(Walk.Next(Pair));
  EXPECT_EQ(Pair.Y.data(), Sample.data() + 16);
  EXPECT_FALSE(Walk.Next(Pair));
}

TEST(AlignmentText, DisplaysLikeTheReferenceAtEveryPrefixOfAString) {
  for (const std::string& Text : {Sample, "1)2,(3),4)(5,6),(,(7,8)"s, "((\0,1),\r\n(2,\xFF))"s}) {
    for (std::size_t Length = 0; Length <= Text.size(); ++Length) {
      const std::string Prefix = Text.substr(0, Length);
      SCOPED_TRACE(Prefix);
      EXPECT_EQ(Displayed(Prefix), Reference::Displayed(Prefix));
    }
  }
}

TEST(AlignmentText, ReversesEveryPairInPlace) {
  const std::pair<std::string, std::string> Cases[] = {
      {"", ""},
      {"((1,2))", "((2,1))"},
      {Sample, "((1,1),(3,2),(2,3))"},
      {"((1,1),(3,2),(2,3))", Sample},
      {"(( 1 ,\t2\r\n),(3,4))", "((2,1),(4,3))"},
      {" ((1,2))\r\n", "((2,1))"},
      {"1,2", "((2,1))"},
      {"(((1,2)))", "((2,1))"},
      {"((1,,2))", "((2,1))"},
      {"((1,2),(),(3,4))", "((2,1),(4,3))"},
      {"(( ,2))", "((2,))"},
      {"),(", "()"},
      {"((a\0,\xFF))"s, "((\xFF,a\0))"s},
      {"((1,2),(3,4),)", "((2,1),(4),3))"},
      {"x((1,2))y", "((2))y,x((1))"},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(ReversedAlignments(Text), std::optional(Expected));
  }
}

TEST(AlignmentText, RejectsReversingAPairWithoutTwoParts) {
  for (const char* Text : {"()", " ", "(", ")", "x", "((1))", "((,2))", "((1,))", "((,))",
                           "((1,2,3))", "((1,2), (3,4))", "((1,2),(3))", "((1)),((2))"}) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(ReversedAlignments(Text), std::nullopt);
  }
}

TEST(AlignmentText, ReversesTheCompletePairsOfEveryPrefix) {
  const char* const Expected[] = {
      "",
      nullptr,
      nullptr,
      nullptr,
      nullptr,
      "((1,1))",
      "((1,1))",
      "((1),1))",
      "((1,1))",
      nullptr,
      nullptr,
      "((1,1),(3,2))",
      "((1,1),(3,2))",
      "((1,1),(3),2))",
      "((1,1),(3,2))",
      nullptr,
      nullptr,
      "((1,1),(3,2),(2,3))",
      "((1,1),(3,2),(2,3))",
      "((1,1),(3,2),(2,3))",
  };
  ASSERT_EQ(std::size(Expected), Sample.size() + 1);
  for (std::size_t Length = 0; Length <= Sample.size(); ++Length) {
    SCOPED_TRACE(Sample.substr(0, Length));
    const std::optional<std::string> Reversed = ReversedAlignments(Sample.substr(0, Length));
    EXPECT_EQ(Reversed.value_or("none"), Expected[Length] != nullptr ? Expected[Length] : "none");
  }
}

TEST(AlignmentText, ReversesOnly100000BytesAfterAPair) {
  for (const std::size_t Length : {99996U, 99997U, 99998U, 99999U, 100001U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Digits(Length, '7');
    EXPECT_EQ(ReversedAlignments("((1,1),(2," + Digits + "))"),
              "((1,1),(" + Digits.substr(0, 99998) + ",2))");
  }
}

TEST(AlignmentText, ReversesThePairAtTheLimitInPart) {
  constexpr std::size_t MaxRest = 100000;
  const std::string Second = "2,";
  const std::string Tail = "),(34,56))";
  struct Case {
    std::size_t KeptOfTail;
    std::optional<std::string> LastPairs;  ///< after the digits; nothing if there is no such pair
  };
  const Case Cases[] = {
      {0, ",2))"},         {1, ",2))"},
      {2, "),2))"},        // the comma of the separator leaves the parenthesis in the index
      {3, ",2))"},         // the last pair is lost
      {4, std::nullopt},   // "3"
      {5, std::nullopt},   // "34"
      {6, std::nullopt},   // "34,"
      {7, ",2),(5,34))"},  // an index without its end
      {8, ",2),(56,34))"}, {9, ",2),(56,34))"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.KeptOfTail);
    const std::string Digits(MaxRest - Second.size() - Row.KeptOfTail, '7');
    std::optional<std::string> Expected;
    if (Row.LastPairs) {
      Expected = "((1,1),(" + Digits + *Row.LastPairs;
    }
    EXPECT_EQ(ReversedAlignments("((1,1),(" + Second + Digits + Tail), Expected);
  }
}
