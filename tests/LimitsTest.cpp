// Large inputs: texts around each length limit, numbers at and beyond the limits of int, and rules
// with thousands of constraints, alignments and values.
//
// The tests of Tokenizer, Splitter, StringUtils, Constraint, AddAlignment, the reader and the
// reversal cover each length limit by itself. These tests reach the limits through a whole rule.

#include "LineUp.h"
#include "TrRule.h"
#include "support/HaltGuard.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cstdio>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

using std::string_literals::operator""s;

namespace {

const Written Nothing;

const std::size_t LengthsAroundTheCaps[] = {99999, 100000, 100001, 999999, 1000000, 1000001};

/// Whether two texts are the same. Only the position of the first difference is shown, since the
/// texts are long.
testing::AssertionResult Same(const std::string& Actual, const std::string& Expected) {
  if (Actual == Expected) {
    return testing::AssertionSuccess();
  }
  const auto Place = static_cast<std::size_t>(
      std::mismatch(Actual.begin(), Actual.end(), Expected.begin(), Expected.end()).first -
      Actual.begin());
  const std::size_t Start = Place - std::min<std::size_t>(Place, 20);
  return testing::AssertionFailure()
         << "sizes " << Actual.size() << " and " << Expected.size() << ", byte " << Place << ":\n  "
         << Actual.substr(Start, 60) << "\nand not\n  " << Expected.substr(Start, 60);
}

std::string Lines(const Strings& vsLines) {
  std::string Text;
  for (const std::string& sLine : vsLines) {
    Text += sLine + '\n';
  }
  return Text;
}

/// A number with five digits, so that texts sort like numbers.
std::string Padded(int Number) {
  char Digits[8];
  std::snprintf(Digits, sizeof Digits, "%05d", Number);
  return Digits;
}

/// A rule with one label on each side, so that index 1 is displayed without a message.
TrRule SmallRule() {
  TrRule Rule;
  Rule.SetSLType("NP");
  Rule.SetTLType("NP");
  Rule.SetSLPOS(Strings{"N"});
  Rule.SetTLPOS(Strings{"N"});
  return Rule;
}

// ---- Long texts -------------------------------------------------------------------------------

TEST(Limits, KeepTextsOfAnyLengthInSetters) {
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'A');
    TrRule Rule;
    EXPECT_FALSE(Same(Rule.GetCStructure(), Long));
    Rule.SetCStructure(" " + Long);
    Rule.SetsWordLevelAl(" (" + Long);
    Rule.SetSLWords(Strings{" " + Long});
    Rule.SetTLWords(Strings{" " + Long + "'"});
    Rule.SetSLPOS(Strings{" " + Long});
    EXPECT_TRUE(Same(Rule.GetCStructure(), " " + Long));
    EXPECT_TRUE(Same(Rule.GetsWordLevelAl(), " (" + Long));
    EXPECT_TRUE(Same(Rule.GetSLString(), " " + Long));
    EXPECT_TRUE(Same(Rule.GetTLString(), " " + Long + "\\'"));
    EXPECT_TRUE(Same(Lines(Rule.GetSLPOS()), " " + Long + "\n"));
  }
}

TEST(Limits, Keep100000BytesAfterABlankInSettersFromText) {
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'a');
    const std::string First(Length, 'A');
    const std::string Rest = First.substr(0, 100000);
    TrRule Rule;
    Rule.SetSLPOS(Long + " " + Long);
    Rule.SetWordLevelTLPOS(" " + Long);
    Rule.SetSLWords(Long + " " + Long);
    Rule.SetTLWords(" b " + Long);
    EXPECT_TRUE(Same(Lines(Rule.GetSLPOS()), Lines({First, Rest})));
    EXPECT_TRUE(Same(Lines(Rule.GetWordLevelTLPOS()), Lines({Rest})));
    EXPECT_TRUE(Same(Lines(Rule.GetSLWords()), Lines({First, Rest})));
    EXPECT_TRUE(Same(Rule.GetTLString(), "B " + First.substr(0, 99998)));
  }
}

TEST(Limits, ReadALongFirstLineWhole) {
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'A');
    const std::string Rest = "\n{NP,8}\nNP::NP : [N] -> [N]\n(X1::Y1)";
    const std::string Printed = "{NP,8}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
    TrRule Commented;
    EXPECT_TRUE(Commented.SetTrRuleFromString(";; " + Long + Rest));
    EXPECT_TRUE(Same(::Printed(Commented), ";; " + Long + '\n' + Printed));
    TrRule Labelled;
    EXPECT_TRUE(Labelled.SetTrRuleFromString("NP::VP : [" + Long + "] -> [N]\n(X1::Y1)"));
    EXPECT_TRUE(Same(::Printed(Labelled), "{,-1}\nNP::VP [" + Long + "] -> [N]\n(\n(X1::Y1)\n)\n"));
  }
}

TEST(Limits, MissTheEndOfATargetSideOfMoreThan100000Bytes) {
  const std::string Error =
      "Error in SetTrRuleFromStr: missing or incorrect tl const seq information.\n";
  for (const std::size_t Length : {99997U, 99998U, 99999U, 100000U, 100001U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'A');
    const bool Fits = Length <= 99998;  // with its brackets
    TrRule Rule;
    const Written Messages = WrittenBy([&] {
      EXPECT_EQ(Rule.SetTrRuleFromString("NP::NP [N] -> [" + Long + "]\n(X1::Y1)"), Fits);
    });
    EXPECT_EQ(Messages, (Written{"", Fits ? "" : Error}));
    EXPECT_TRUE(Same(Lines(Rule.GetTLPOS()), Fits ? Long + "\n" : ""));
  }
}

TEST(Limits, ReadAsManyLinesAsFitInto100000Bytes) {
  const std::string Start = "A::B [C] -> [D]\n";
  std::string Body = "(X1::Y1)\n";
  Strings vsExpected;
  std::size_t Fitting = 0;
  for (int Index = 0; Index < 10000; ++Index) {
    Body += "(x1=x" + Padded(Index) + ")\n";
    // The last line fits without its line end.
    Fitting = Body.size() - 1 <= 100000 ? vsExpected.size() + 1 : Fitting;
    vsExpected.push_back("(X1 = X" + Padded(Index) + ")");
  }
  ASSERT_EQ(Fitting, 8332U);
  ASSERT_EQ(9 + 12 * Fitting, 99993U);
  vsExpected.resize(Fitting);
  // Seven bytes of the next line remain, without the parenthesis after its value.
  vsExpected.insert(vsExpected.begin(), "(X1 = )");
  TrRule Rule;
  EXPECT_EQ(WrittenBy([&] { EXPECT_TRUE(Rule.SetTrRuleFromString(Start + Body)); }), Nothing);
  EXPECT_TRUE(Same(Lines(Rule.GetConstraints()), Lines(vsExpected)));
}

TEST(Limits, AllowALongLeftSideOfAConstraint) {
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'F');
    const std::string Text = "((X1 " + Long + ") = SG)";
    EXPECT_TRUE(Same(Constraint(Text).ReturnAsString(), Text));
    // A leading blank truncates the whole text, so that nothing remains after the feature.
    const Written Messages = WrittenBy(
        [&] { EXPECT_TRUE(Same(Constraint(" " + Text).ReturnAsString(), "((Y-1 ) = )")); });
    EXPECT_EQ(Messages.Out, "");
    EXPECT_TRUE(Same(Messages.Err,
                     "ERROR in Constraint::Constraint(string): Constraint was not in correct "
                     "format:| " +
                         Text + "|\n"));
  }
}

TEST(Limits, Keep100000BytesAfterTheFirstBlankAndTheSignOfARankedConstraint) {
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'V');
    TrRule Rule;
    Rule.SetConstraint("((X1 NUM) = " + Long + ")", 1, 1);
    EXPECT_TRUE(
        Same(Lines(Rule.GetConstraints()), "((X1 NUM) = " + Long.substr(0, 100000) + ")\n"));
    Rule.ClearConstraints();
    Rule.SetConstraint("((X1 " + Long + ") = SG)", 1, 1);
    EXPECT_TRUE(Same(Lines(Rule.GetConstraints()), "((X1 " + Long.substr(0, 100000) + ") = SG)\n"));
  }
}

TEST(Limits, AllowIndexTextsOfAnyLengthInAlignments) {
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Zeros(Length, '0');
    TrRule Rule = SmallRule();
    Rule.SetAlignment("((2,1),(" + Zeros + "1,1),(1,1))");
    EXPECT_TRUE(Same(Rule.GetAlignmentStr(), "((" + Zeros + "1,1),(2,1))"));
    Rule.SetAlignment("((2,1))");
    EXPECT_TRUE(Rule.AddAlignment("(x" + Zeros + "1::y1)"));
    EXPECT_TRUE(Same(Rule.GetAlignmentStr(), "((" + Zeros + "1,1),(2,1))"));
    Rule.SetAlignment("((" + Zeros + "1," + Zeros + "1))");
    EXPECT_EQ(
        WrittenBy([&] {
          EXPECT_TRUE(Same(Lines(Rule.GetAlignments()), "(X" + Zeros + "1::Y" + Zeros + "1)\n"));
        }),
        Nothing);
  }
}

// ---- Numbers ----------------------------------------------------------------------------------

struct NumberCase {
  const char* Text;
  int Value;  ///< the value that is read
};

/// Numbers at the limits of 32 and 64 bits, and beyond them.
const NumberCase Numbers[] = {
    {"2147483646", INT_MAX - 1},
    {"2147483647", INT_MAX},
    {"2147483648", INT_MIN},
    {"2147483649", INT_MIN + 1},
    {"4294967295", -1},
    {"4294967296", 0},
    {"4294967297", 1},
    {"9223372036854775807", -1},
    {"9223372036854775808", -1},
    {"18446744073709551617", -1},
    {"99999999999999999999", -1},
    {"-2147483647", -INT_MAX},
    {"-2147483648", INT_MIN},
    {"-2147483649", INT_MAX},
    {"-4294967295", 1},
    {"-9223372036854775807", 1},
    {"-9223372036854775808", 0},
    {"-99999999999999999999", 0},
};

TEST(Limits, Take32BitIndicesInConstraints) {
  for (const auto& [Text, Value] : Numbers) {
    SCOPED_TRACE(Text);
    const std::string Number = std::to_string(Value);
    const std::string Digits = Text;
    EXPECT_EQ(Constraint("((x" + Digits + " num) = sg)").GetConstrainedIndex(), Value);
    EXPECT_EQ(Constraint("((x" + Digits + " num) = sg)").ReturnAsString(),
              "((X" + Number + " NUM) = SG)");
    EXPECT_EQ(Constraint("(y" + Digits + " = x1)").GetConstrainedIndex(), Value);
    EXPECT_EQ(Constraint("((y1 num) = (y" + Digits + " num))").ReturnAsString(),
              "((Y1 NUM) = (Y" + Digits + " NUM))");
    EXPECT_EQ(Constraint().GetAgreedIndex("(Y" + Digits + " NUM"), Value);
    TrRule Rule;
    Rule.SetConstraint("((X" + Digits + " NUM) = SG)", 0, 1);
    EXPECT_EQ(Rule.GetConstraints(), Strings{"((X" + Number + " NUM) = SG)"});
  }
}

TEST(Limits, OrderByTheLow32BitsOfAnAgreedIndex) {
  TrRule Rule;
  Rule.SetConstraint("(x1 = x2147483647)");
  Rule.SetConstraint("(x2147483647 = x2147483648)");
  Rule.SetConstraint("(x-2147483648 = x4294967296)");
  Rule.SetConstraint("(x0 = x4294967298)");
  Rule.SetConstraint("(x2 = x4294967298)");  // 2 itself
  const Strings vsOrder = {"(X2 = X4294967298)", "(X0 = X4294967298)",
                           "(X-2147483648 = X4294967296)", "(X2147483647 = X2147483648)",
                           "(X1 = X2147483647)"};
  EXPECT_NE(Rule.GetConstraints(), vsOrder);
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule), vsOrder);
}

TEST(Limits, RejectAnAgreedIndexThatWrapsToMinusOne) {
  for (const char* Digits : {"4294967295", "9223372036854775807", "99999999999999999999"}) {
    SCOPED_TRACE(Digits);
    const std::string Text = "(X1 = X"s + Digits + ')';
    const std::string Message =
        "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint " +
        Text;
    TrRule Rule = SmallRule();
    Rule.SetConstraint(Text);
    std::optional<Halted> Halt;
    EXPECT_EQ(WrittenBy([&] { Halt = HaltOf([&] { Rule.ReturnAsStringForPrint(); }); }),
              (Written{"", Message + '\n'}));
    EXPECT_EQ(Halt, (Halted{HaltReason::AgreedIndex, Message}));
  }
}

TEST(Limits, OrderAndLookUpAlignmentsBy32Bits) {
  for (const auto& [Text, Value] : Numbers) {
    SCOPED_TRACE(Text);
    const std::string Pair = "("s + Text + ",5)";
    const std::string Low = Value < 5 ? Pair : "(5,5)";
    const std::string High = Value < 5 ? "(5,5)" : Pair;
    TrRule Set;
    Set.SetAlignment("((5,5)," + Pair + ")");
    EXPECT_EQ(Set.GetAlignmentStr(), "(" + Low + "," + High + ")");
    TrRule Added;
    Added.AddAlignment("(X5::Y5)");
    Added.AddAlignment("(X"s + Text + "::Y5)");
    EXPECT_EQ(Added.GetAlignmentStr(), Set.GetAlignmentStr());
    // Two texts of one number are one pair; the first text is kept.
    Added.SetAlignment("((" + std::to_string(Value) + ",5),(5,5)," + Pair + ")");
    EXPECT_EQ(Added.GetAlignmentStr(), Value < 5 ? "((" + std::to_string(Value) + ",5),(5,5))"
                                                 : "((5,5),(" + std::to_string(Value) + ",5))");
  }
}

TEST(Limits, ReportA32BitIndexWithoutALabel) {
  for (const auto& [Text, Value] : Numbers) {
    SCOPED_TRACE(Text);
    TrRule Rule = SmallRule();
    Rule.SetAlignment("((1,"s + Text + "))");
    const std::string Message =
        "TrRule::IsLexicalized called with invalid y index:" + std::to_string(Value) +
        ", where there are 1 indices.\n";
    const Strings vsLines = {"(X1::Y"s + Text + ")"};
    EXPECT_EQ(WrittenBy([&] { EXPECT_EQ(Rule.GetAlignments(), vsLines); }),
              (Written{"", Value == 1 ? "" : Message}));
  }
}

TEST(Limits, ReadTheLastDigitOfAnyHeaderNumber) {
  for (const char* Digits : {"2147483647", "2147483648", "-2147483648", "99999999999999999999"}) {
    TrRule Rule;
    EXPECT_TRUE(Rule.SetTrRuleFromString("{NP,"s + Digits + "}\nNP::NP [N] -> [N]\n(X1::Y1)\n"));
    EXPECT_EQ(Rule.GetRuleIndex(), Digits[std::string(Digits).size() - 1] - '0') << Digits;
  }
}

TEST(Limits, WrapTheCountOfExamplesToNegative) {
  TrRule Rule;
  Rule.SetNumTrExamples(INT_MAX - 1);
  Rule.IncrementNumTrExamples();
  EXPECT_EQ(Rule.GetNumTrExamples(), INT_MAX);
  Rule.IncrementNumTrExamples();
  EXPECT_EQ(Rule.GetNumTrExamples(), INT_MIN);
  EXPECT_EQ(Rule.ReturnAsStringForPrint(),
            "{,-1}\n;;SL:\n;;TL:\n;;Score:-2147483648\n:: [] -> []\n(\n)");
}

TEST(Limits, SetAndWriteTheLimitsOfInt) {
  TrRule Rule;
  Rule.SetRuleIndex(INT_MIN);
  Rule.SetNumTrExamples(INT_MAX);
  Rule.SetCSet({INT_MIN, 0});
  Rule.AddToCSet(INT_MAX);
  Rule.SetSLWord2Comp({{INT_MIN, INT_MAX}, {INT_MAX, INT_MIN}});
  Rule.SetTLWord2Comp({{INT_MAX, INT_MAX}});
  Rule.SetConstraint(INT_MIN, "F", "V", "", INT_MAX, 4);
  Rule.SetConstraint(INT_MAX, INT_MAX, "F", "V", INT_MIN, true);
  EXPECT_EQ(Rule.GetCSet(), (std::set<int>{INT_MIN, 0, INT_MAX}));
  EXPECT_EQ(Rule.ReturnAsStringForPrint(),
            "{,-2147483648}\n;;SL:\n;;TL:\n;;Score:2147483647\n:: [] -> []\n(\n"
            "((Y2147483647 F) = V)\n((Y-2147483648 F) = V)\n)");
  EXPECT_EQ(Rule.ReturnAsStringWithAllAlts(),
            ";;SLWord2Comp:\t-2147483648->2147483647,\t2147483647->-2147483648,\n"
            ";;TLWord2Comp_alt:\t2147483647->2147483647,\n;;WordLevelSLPOS:\n;;WordLevelTLPOS:\n"
            ";;Score:2147483647\n:: [] -> []\n(\n"
            "((Y2147483647 F) = V)\n((Y-2147483648 F) = V)\n)");
}

TEST(Limits, QueryAndEraseTheLimitsOfInt) {
  TrRule Rule;
  Rule.SetConstraint(INT_MIN, INT_MAX, "F", "V", 0, true);
  Rule.SetConstraint(INT_MAX, INT_MIN, "F", "W", 0, true);
  Rule.SetAlignment("((1,1),(1,2))");
  EXPECT_EQ(Rule.GetConstraints(INT_MIN), Strings{"((Y2147483647 F) = V)"});
  EXPECT_EQ(Rule.GetConstraintsForInd(INT_MIN, {INT_MIN, INT_MAX}),
            (std::map<std::string, std::pair<std::string, std::string>>{{"F", {"W", "empty"}}}));
  EXPECT_TRUE(CallIsOneToOne(Rule, INT_MIN, INT_MAX));
  EXPECT_FALSE(Rule.EraseConstraint(INT_MAX, "F", "V", "", {INT_MAX}));
  EXPECT_TRUE(Rule.EraseConstraint(INT_MAX, "F", "V", "", {INT_MIN}));
  EXPECT_EQ(Rule.GetConstraints(), Strings{"((Y-2147483648 F) = W)"});
  EXPECT_TRUE(Rule.EraseCategoryConstraints(INT_MAX));
  EXPECT_EQ(Rule.GetNumConstraints(), 0);
}

// ---- Many of a kind ---------------------------------------------------------------------------

/// Constraints with a feature for each number, so that they are stored in the order of the numbers.
Strings ManyConstraints(int Count) {
  Strings vsTexts;
  for (int Number = 0; Number < Count; ++Number) {
    const std::string Feature = "F" + Padded(Number);
    vsTexts.push_back("((X0 " + Feature + ") = SG)");
  }
  return vsTexts;
}

TEST(Limits, KeepWriteAndEraseTenThousandConstraints) {
  constexpr int Count = 10000;
  const Strings vsTexts = ManyConstraints(Count);
  Strings vsShuffled = vsTexts;
  std::shuffle(vsShuffled.begin(), vsShuffled.end(), std::mt19937(4));
  ASSERT_NE(vsShuffled, vsTexts);
  TrRule Rule = SmallRule();
  EXPECT_EQ(WrittenBy([&] {
              for (const std::string& sText : vsShuffled) {
                Rule.SetConstraint(sText);
              }
            }),
            Nothing);
  EXPECT_EQ(Rule.GetNumConstraints(), Count);
  EXPECT_TRUE(Same(Lines(Rule.GetConstraints()), Lines(vsTexts)));
  EXPECT_TRUE(
      Same(Rule.ReturnAsStringForComparison(), ";\nNP::NP [N] -> [N]\n(\n" + Lines(vsTexts) + ")"));
  TrRule Copy(Rule);
  EXPECT_TRUE(Rule == Copy && Copy == Rule);
  EXPECT_TRUE(Copy.EraseConstraint(0, "F09999", "SG", "", {1}));
  EXPECT_EQ(Copy.GetNumConstraints(), Count - 1);
  EXPECT_FALSE(Rule == Copy);
  EXPECT_TRUE(Rule < Copy);  // the next constraint's "(" sorts before the last ")"
  EXPECT_FALSE(Copy < Rule);
  EXPECT_TRUE(Rule.EraseCategoryConstraints(4));
  EXPECT_EQ(Rule.GetNumConstraints(), Count);
  EXPECT_TRUE(Rule.EraseCategoryConstraints(1));
  EXPECT_EQ(Rule.GetNumConstraints(), 0);
}

TEST(Limits, OrderTenThousandAgreementsForPrint) {
  // Feature agreements of node 1 with node 0, in categories 1, 2, 3 and 4 in turn. Categories 3 and
  // 4 share an order, and no agreement waits for another.
  constexpr int Count = 10000;
  TrRule Rule;
  std::map<int, Strings> mvsByCategory;
  for (int Number = Count - 1; Number >= 0; --Number) {
    const int Category = Number % 4 + 1;
    const std::string Side = Category == 1 ? "X" : "Y";
    const std::string Agreed = Category == 2 ? "(X0" : "(" + Side + "0";
    const std::string Feature = "F" + Padded(Number);
    Rule.SetConstraint(1, Feature, "empty", Agreed, -1, Category);
    mvsByCategory[Category].push_back("((" + Side + "1 " + Feature + ") = " + Agreed + " " +
                                      Feature + "))");
  }
  Strings vsExpected;
  for (auto& [Category, vsTexts] : mvsByCategory) {
    vsExpected.insert(vsExpected.end(), vsTexts.rbegin(), vsTexts.rend());
  }
  EXPECT_EQ(Rule.GetNumConstraints(), Count);
  EXPECT_TRUE(Same(Lines(CallGetConstraintsInPrintOrder(Rule)), Lines(vsExpected)));
}

TEST(Limits, WriteAChainOfFiveThousandFromItsEnd) {
  constexpr int Count = 5000;
  TrRule Rule;
  Strings vsExpected;
  for (int Index = 1; Index <= Count; ++Index) {
    Rule.SetConstraint(1, Index, "all", "X" + std::to_string(Index + 1), -1, false);
    vsExpected.push_back("(X" + std::to_string(Index) + " = X" + std::to_string(Index + 1) + ")");
  }
  std::reverse(vsExpected.begin(), vsExpected.end());
  EXPECT_TRUE(Same(Lines(CallGetConstraintsInPrintOrder(Rule)), Lines(vsExpected)));
  // Reversed, it is the same chain.
  TrRule Descending;
  for (const std::string& sText : vsExpected) {
    Descending.SetConstraint(sText);
  }
  EXPECT_TRUE(Same(Lines(CallGetConstraintsInPrintOrder(Descending)), Lines(vsExpected)));
}

TEST(Limits, EndTheProcessOnACycleOfFiveThousand) {
  constexpr int Count = 5000;
  const std::string Message =
      "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category3and4 order.";
  TrRule Rule;
  for (int Index = 1; Index <= Count; ++Index) {
    const int Next = Index == Count ? 1 : Index + 1;
    Rule.SetConstraint(4, Index, "all", "Y" + std::to_string(Next), -1, false);
  }
  std::optional<Halted> Halt;
  EXPECT_EQ(WrittenBy([&] { Halt = HaltOf([&] { CallGetConstraintsInPrintOrder(Rule); }); }),
            (Written{"", Message + '\n'}));
  EXPECT_EQ(Halt, (Halted{HaltReason::Category3and4Order, Message}));
  EXPECT_TRUE(Rule.EraseConstraint(Count, "all", "empty", "Y1", {4}));
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule).size(), Count - 1U);
}

TEST(Limits, MergeTwoThousandValuesOfOneFeature) {
  constexpr int Count = 2000;
  const std::string Key = "4__1__NUM__";
  TrRule Rule;
  std::string Merged;
  for (int Number = 0; Number < Count; ++Number) {
    const std::string Value = "V" + Padded(Number);
    const std::string Old = Number == 1 ? Merged : "(*OR* " + Merged + ")";
    Merged += (Merged.empty() ? "" : " ") + Value;
    const Written Expected{"OldFeat:|" + Old + "|\nInsertFeat:|" + Value +
                               "|\nNewKey is now:" + Key + "(*OR* " + Merged + ")\n",
                           ""};
    const Written Actual = WrittenBy([&] { Rule.SetConstraint("((y1 num) = " + Value + ")"); });
    ASSERT_TRUE(Actual == (Number == 0 ? Nothing : Expected)) << Value;
  }
  EXPECT_TRUE(Same(Lines(Rule.GetConstraints()), "((Y1 NUM) = (*OR* " + Merged + "))\n"));
}

using Pairs = std::vector<std::pair<int, int>>;

/// `Count` components, each aligned to its mirror image.
Pairs MirroredPairs(int Count) {
  Pairs vPairs;
  for (int X = 1; X <= Count; ++X) {
    vPairs.emplace_back(X, Count + 1 - X);
  }
  return vPairs;
}

std::string AlignmentsOf(const Pairs& vPairs) {
  std::string Text;
  for (const auto& [X, Y] : vPairs) {
    Text += (Text.empty() ? "((" : ",(") + std::to_string(X) + ',' + std::to_string(Y) + ')';
  }
  return Text + ')';
}

TEST(Limits, OrderAndShowTenThousandAlignments) {
  constexpr int Count = 10000;
  const Pairs vPairs = MirroredPairs(Count);
  Pairs vShuffled = vPairs;
  std::shuffle(vShuffled.begin(), vShuffled.end(), std::mt19937(5));
  ASSERT_NE(AlignmentsOf(vShuffled), AlignmentsOf(vPairs));
  Strings vsExpected;
  for (const auto& [X, Y] : vPairs) {
    vsExpected.push_back((X == 2 || Y == 1 ? ";--;(X" : "(X") + std::to_string(X) + "::Y" +
                         std::to_string(Y) + ")");
  }
  TrRule Rule;
  Strings vsLabels(Count, "N");
  vsLabels[1] = "\"A\"";
  Rule.SetSLPOS(vsLabels);
  std::swap(vsLabels[0], vsLabels[1]);
  Rule.SetTLPOS(vsLabels);
  Rule.SetAlignment(AlignmentsOf(vShuffled));
  EXPECT_TRUE(Same(Rule.GetAlignmentStr(), AlignmentsOf(vPairs)));
  EXPECT_EQ(WrittenBy([&] { EXPECT_TRUE(Same(Lines(Rule.GetAlignments()), Lines(vsExpected))); }),
            Nothing);
  EXPECT_TRUE(CallIsOneToOne(Rule, 1, 1));
  EXPECT_TRUE(Rule.AddAlignment("(X10000::Y10000)"));
  EXPECT_FALSE(CallIsOneToOne(Rule, 10000, 2));
  std::set<int> siPartners;
  EXPECT_TRUE(LineUp().GetEqFromY(Rule.GetAlignmentStr(), 10000, siPartners));
  EXPECT_EQ(siPartners, (std::set<int>{1, 10000}));
}

TEST(Limits, KeepThePairsIn100000BytesAfterTheFirstInFlipping) {
  // From the third pair on, each takes 14 bytes including the "),(" after it. Blanks in the second
  // pair move the limit through a later pair, byte by byte.
  struct Case {
    std::size_t Left;  ///< the bytes that remain of the pair at the limit
    const char* Last;  ///< the pair that is read
    bool IsFatal;      ///< whether it is not a pair any more
  };
  const Case Cases[] = {
      {0, "", false},
      {1, "", true},
      {5, "", true},
      {6, "", true},
      {7, ",(1,17142)", false},
      {10, ",(1714,17142)", false},
      {11, ",(17142,17142)", false},
      {12, ",(17142,17142)", false},
      // A comma after it hides the parenthesis, which becomes part of the index.
      {13, ",(17142),17142)", false},
  };
  std::string Rest;
  for (int Number = 10001; Number <= 18000; ++Number) {
    Rest += ",(" + std::to_string(Number) + ',' + std::to_string(Number) + ')';
  }
  const std::string Kept = Rest.substr(0, Rest.find(",(17142,17142)"));
  ASSERT_EQ(Kept.size(), 7141 * 14U);
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Left);
    const std::string Blanks(100000 - Kept.size() - Row.Left - std::string("2,2),(").size(), ' ');
    TrRule Rule;
    Rule.SetAlignment("((1,1),(2," + Blanks + "2)" + Rest + ")");
    const std::string Before = Rule.GetAlignmentStr();
    ASSERT_TRUE(Same(Before, "((1,1),(2," + Blanks + "2)" + Rest + ")"));
    const std::string Message =
        "ERROR in TrRule::GetReversedAlignments: incorrect alignment string:|" + Before + "|\n";
    StreamCapture Streams;
    const std::optional<Halted> Halt = HaltOf([&] { Rule.FlipRuleNoConstraints(); });
    EXPECT_EQ(Halt.has_value(), Row.IsFatal);
    EXPECT_EQ(Streams.TakeOut(), "");
    EXPECT_TRUE(Same(Streams.TakeErr(), Row.IsFatal ? Message : ""));
    EXPECT_TRUE(Same(Rule.GetAlignmentStr(),
                     Row.IsFatal ? Before : "((1,1),(2,2)" + Kept + Row.Last + ")"));
  }
}

TEST(Limits, CopyAndWriteTenThousandOfEverythingElse) {
  constexpr int Count = 10000;
  Strings vsWords;
  std::string Alternatives;
  TrRule Rule;
  for (int Number = 0; Number < Count; ++Number) {
    const std::string Word = "W" + Padded(Number);
    vsWords.push_back(Word);
    Rule.AddToCSet(Number);
    Rule.AddAlterTrInfo(Word, "T", "", "", {{Number, 0}}, {}, {Word}, {});
    Alternatives += ";;SL_alt:" + Word +
                    "\n;;TL_alt:T\n;;Alignment_alt:\n;;CStructure_alt:\n;;SLWord2Comp_alt:\t" +
                    std::to_string(Number) + "->0,\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS_alt:\t" +
                    Word + "\n;;WordLevelTLPOS_alt:\n";
  }
  Rule.SetSLWords(vsWords);
  Rule.SetSLPOS(vsWords);
  ASSERT_EQ(Rule.GetSLWord2Comp().size(), Count);
  EXPECT_EQ(*Rule.GetSLWord2Comp().rbegin(), (std::pair<const int, int>(Count - 1, Count - 1)));
  Rule.SetSLPOS(Strings{"N"});
  const TrRule Copy(Rule);
  EXPECT_EQ(Copy.GetCSet().size(), Count);
  EXPECT_TRUE(Same(Lines(Copy.GetSLWords()), Lines(vsWords)));
  EXPECT_TRUE(Same(Rule.ReturnAsStringWithAllAlts(),
                   Alternatives +
                       ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\n;;WordLevelTLPOS:\n"
                       ";;Score:1\n:: [N] -> []\n(\n)"));
  TrRule Lopsided;  // much more on one side
  Lopsided.SetTLWords(vsWords);
  Lopsided.SetWordLevelTLPOS(vsWords);
  EXPECT_TRUE(
      Same(Lopsided.ReturnAsStringForPrint(),
           "{,-1}\n;;SL:\n;;TL: " + Lopsided.GetTLString() + "\n;;Score:1\n:: [] -> []\n(\n)"));
  EXPECT_TRUE(Same(Lopsided.ReturnAsStringForComparison(),
                   ";" + Lopsided.GetTLString() + " \n:: [] -> []\n(\n)"));
  EXPECT_TRUE(Rule.ResetAlterTrInfo());
  EXPECT_NE(Rule.ReturnAsStringWithAllAlts().find(";;SL_alt:W00000 W00001"), std::string::npos);
}

}  // namespace
