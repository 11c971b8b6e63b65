// Flipping a rule: the members that are exchanged, lost or unchanged, the traces, and the alignment
// strings that cannot be flipped. Also the private query whether neither of two indices has more
// than one partner.

#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/HaltGuard.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <type_traits>

using std::string_literals::operator""s;

namespace {

/// Sets every member of a rule to a different value.
void Fill(TrRule& Rule) {
  Rule.SetSLPOSFromParse("lost");
  Rule.FlipRuleNoConstraints();
  Rule.SetTrRuleFromString(
      ";; note\n{QP,7}\nNP::VP [DET N] -> [N DET ADJ]\n"
      "(X1::Y2)\n(X2::Y1)\n((x1 num) = sg)\n(y0 = x0)\n");
  Rule.SetSLWords("the dog");
  Rule.SetTLWords("perro el gran");
  Rule.SetWordLevelSLPOS("dt nn");
  Rule.SetWordLevelTLPOS("nn dt jj");
  Rule.SetSLPOSFromParse("parsed");
  Rule.SetsWordLevelAl("((1,3),(2,1))");
  Rule.SetCStructure("(S)");
  Rule.SetCSet({4, 5});
  Rule.SetSLWord2Comp({{0, 1}, {1, 0}});
  Rule.SetTLWord2Comp({{0, 2}});
  Rule.SetNumTrExamples(3);
  Rule.SetHeadIndex(6);
  Rule.SetXHeadIndex(9);
  Rule.SetYHeadIndex(8);
  Rule.AddAlterTrInfo("s alt", "t alt", "((2,1))", "(A)", {{5, 6}}, {{7, 8}}, {"SA"}, {"TA"});
}

const std::string FilledPrinted =
    ";; note\n{QP,7}\nNP::VP [DET N] -> [N DET ADJ]\n"
    "(\n(X1::Y2)\n(X2::Y1)\n((X1 NUM) = SG)\n(Y0 = X0)\n)\n";

const std::string FilledDump = "Print:\n" + FilledPrinted +
                               "SLWords: { <THE> <DOG> }\n"
                               "vsAllSLSents: { <s alt> }\n"
                               "SLPOS: { <DET> <N> }\n"
                               "WordLevelSLPOS: { <DT> <NN> }\n"
                               "SLPOSFromParse: { <PARSED> }\n"
                               "TLPOSFromParse: { <LOST> }\n"
                               "vvsAllWordLevelSLPOSs: { { <SA> } }\n"
                               "TLWords: { <PERRO> <EL> <GRAN> }\n"
                               "vsAllTLSents: { <t alt> }\n"
                               "TLPOS: { <N> <DET> <ADJ> }\n"
                               "WordLevelTLPOS: { <NN> <DT> <JJ> }\n"
                               "vvsAllWordLevelTLPOSs: { { <TA> } }\n"
                               "AlignmentString: <((1,2),(2,1))>\n"
                               "sWordLevelAl: <((1,3),(2,1))>\n"
                               "vsAllAlignments: { <((1,2),(2,1))> <((2,1))> }\n"
                               "CStructure: <(S)>\n"
                               "vsAllCStructures: { <(A)> }\n"
                               "SLType: <NP>\n"
                               "TLType: <VP>\n"
                               "Constraint: <((X1 NUM) = SG) category 1 rank -1>\n"
                               "Constraint: <(Y0 = X0) category 3 rank -1>\n"
                               "RuleIndex: 7\n"
                               "CSet: { 4 5 }\n"
                               "SLWord2Comp: { 0->1 1->0 }\n"
                               "vmiiAllSLWord2Comps: { { 0->1 1->0 } { 5->6 } }\n"
                               "TLWord2Comp: { 0->2 }\n"
                               "vmiiAllTLWord2Comps: { { 0->2 } { 7->8 } }\n"
                               "NumTrExamples: 3\n"
                               "HeadIndex: 6\n"
                               "XHeadIndex: 9\n"
                               "YHeadIndex: 8\n";

const std::string FlippedDump =
    "Print:\n"
    ";; note\n{QP,7}\nVP::NP [N DET ADJ] -> [DET N]\n"
    "(\n(X2::Y1)\n(X1::Y2)\n((X1 NUM) = SG)\n(Y0 = X0)\n)\n"
    "SLWords: { <PERRO> <EL> <GRAN> }\n"
    "vsAllSLSents: { <t alt> }\n"
    "SLPOS: { <N> <DET> <ADJ> }\n"
    "WordLevelSLPOS: { <NN> <DT> <JJ> }\n"
    "SLPOSFromParse: { }\n"
    "TLPOSFromParse: { <PARSED> }\n"
    "vvsAllWordLevelSLPOSs: { { <TA> } }\n"
    "TLWords: { <THE> <DOG> }\n"
    "vsAllTLSents: { <s alt> }\n"
    "TLPOS: { <DET> <N> }\n"
    "WordLevelTLPOS: { <DT> <NN> }\n"
    "vvsAllWordLevelTLPOSs: { { <SA> } }\n"
    "AlignmentString: <((2,1),(1,2))>\n"
    "sWordLevelAl: <((3,1),(1,2))>\n"
    "vsAllAlignments: { <((2,1),(1,2))> <((1,2))> }\n"
    "CStructure: <(S)>\n"
    "vsAllCStructures: { <(A)> }\n"
    "SLType: <VP>\n"
    "TLType: <NP>\n"
    "Constraint: <((X1 NUM) = SG) category 1 rank -1>\n"
    "Constraint: <(Y0 = X0) category 3 rank -1>\n"
    "RuleIndex: 7\n"
    "CSet: { 4 5 }\n"
    "SLWord2Comp: { 0->2 }\n"
    "vmiiAllSLWord2Comps: { { 0->2 } { 7->8 } }\n"
    "TLWord2Comp: { 0->1 1->0 }\n"
    "vmiiAllTLWord2Comps: { { 0->1 1->0 } { 5->6 } }\n"
    "NumTrExamples: 3\n"
    "HeadIndex: 6\n"
    "XHeadIndex: 9\n"
    "YHeadIndex: 8\n";

/// The output of a call at a debug level.
template <typename CodeT>
Written WrittenAt(int Level, CodeT Code) {
  const DebugLevel Debug(Level);
  return WrittenBy(Code);
}

std::string ReversedMessage(const std::string& Alignments) {
  return "ERROR in TrRule::GetReversedAlignments: incorrect alignment string:|" + Alignments +
         "|\n";
}

}  // namespace

TEST(TrRuleFlipping, ExchangesOnlyTheSides) {
  TrRule Rule;
  Fill(Rule);
  ASSERT_EQ(Dump(Rule), FilledDump);
  EXPECT_EQ(WrittenBy([&] { Rule.FlipRuleNoConstraints(); }), (Written{"", ""}));
  EXPECT_EQ(Dump(Rule), FlippedDump);
}

TEST(TrRuleFlipping, RestoresAllButTheParseLabelsWhenRepeated) {
  TrRule Rule;
  Fill(Rule);
  Rule.FlipRuleNoConstraints();
  ASSERT_NE(Dump(Rule), FilledDump);
  Rule.FlipRuleNoConstraints();
  std::string Expected = FilledDump;
  Expected = StringUtils::ReplaceAll(Expected, "{ <PARSED> }", "{ }");
  Expected = StringUtils::ReplaceAll(Expected, "{ <LOST> }", "{ }");
  EXPECT_EQ(Dump(Rule), Expected);
}

TEST(TrRuleFlipping, DoesNotRestoreANonCanonicalOrderWhenRepeated) {
  TrRule Rule;
  Rule.SetsWordLevelAl("(( 2 ,1),(1,2))");
  Rule.FlipRuleNoConstraints();
  EXPECT_EQ(Rule.GetsWordLevelAl(), "((1,2),(2,1))");
  Rule.FlipRuleNoConstraints();
  EXPECT_EQ(Rule.GetsWordLevelAl(), "((2,1),(1,2))");
}

TEST(TrRuleFlipping, MovesTheParseLabels) {
  struct Case {
    const char* Parsed;
    Strings vsTLAfter;
  };
  for (const Case& Row : {Case{"dt nn", {"DT", "NN"}}, Case{"", {}}}) {
    SCOPED_TRACE(Row.Parsed);
    TrRule Rule;
    Rule.SetSLPOSFromParse("before");
    Rule.FlipRuleNoConstraints();
    Rule.SetSLPOSFromParse(Row.Parsed);
    Rule.FlipRuleNoConstraints();
    const TrRule& Flipped = Rule;
    EXPECT_EQ(Flipped.GetTLPOSFromParseAfterFlipping(), Row.vsTLAfter);
    EXPECT_EQ(Flipped.GetSLPOSFromParse(), Strings());
  }
}

TEST(TrRuleFlipping, FlipsTheSample) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  const Strings vsConstraints = Rule.GetConstraints();
  ASSERT_EQ(Rule.GetAlignmentStr(), "((1,1),(2,3),(3,2))");
  Rule.FlipRuleNoConstraints();
  EXPECT_EQ(Rule.GetSLPOS(), (Strings{"DET", "N", "ADJ"}));
  EXPECT_EQ(Rule.GetTLPOS(), (Strings{"DET", "ADJ", "N"}));
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(3,2),(2,3))");
  EXPECT_EQ(Rule.GetNumConstraints(), 7);
  EXPECT_EQ(Rule.GetConstraints(), vsConstraints);
  EXPECT_EQ(Rule.GetRuleIndex(), 8);
  EXPECT_EQ(Printed(Rule),
            ";; SL: I see the red car\n;; TL: veo el auto rojo\n;; Users: 2\n{NP,8}\n"
            "NP::NP [DET N ADJ] -> [DET ADJ N]\n(\n(X1::Y1)\n(X3::Y2)\n(X2::Y3)\n"
            "((X0 DET) = X1)\n((X0 MOD) = X2)\n(X0 = X3)\n(Y0 = X0)\n(Y1 = (Y0 DET)\n"
            "(Y2 = Y0)\n(Y3 = (Y0 MOD)\n)\n");
}

TEST(TrRuleFlipping, ChangesNothingInANewRule) {
  TrRule Rule;
  TrRule New;
  static_assert(std::is_void_v<decltype(Rule.FlipRuleNoConstraints())>);
  EXPECT_EQ(WrittenBy([&] { Rule.FlipRuleNoConstraints(); }), (Written{"", ""}));
  EXPECT_EQ(Dump(Rule), Dump(New));
}

TEST(TrRuleFlipping, TracesTheRuleTheStringsAndTheMapsAtLevel1) {
  const std::string Trace =
      "In FlipRule.\n" + FilledPrinted +
      "Now printing flipped SLWord2Comp map.\n0--1\n1--0\n"
      "In TrRule::GetReversedAlignments() AlignmentString is:|((1,2),(2,1))|\n"
      "In TrRule::GetReversedAlignments() ReturnAlStr is:|((2,1),(1,2))|\n"
      "In TrRule::GetReversedAlignments() AlignmentString is:|((1,2),(2,1))|\n"
      "In TrRule::GetReversedAlignments() ReturnAlStr is:|((1,2))|\n"
      "In TrRule::GetReversedAlignments() AlignmentString is:|((1,2),(2,1))|\n"
      "In TrRule::GetReversedAlignments() ReturnAlStr is:|((2,1),(1,2))|\n"
      "In TrRule::GetReversedAlignments() AlignmentString is:|((2,1),(1,2))|\n"
      "In TrRule::GetReversedAlignments() ReturnAlStr is:|((3,1),(1,2))|\n"
      "Now printing flipped SLWord2Comp map.\n0--1\n1--0\n"
      "Now printing flipped TLWord2Comp map.\n0--2\n"
      "Now printing flipped SLWord2Comp map.\n0--2\n"
      "Now printing flipped TLWord2Comp map.\n0--1\n1--0\n";
  for (const int Level : {0, 1, 2, 3, 4}) {
    SCOPED_TRACE(Level);
    TrRule Rule;
    Fill(Rule);
    EXPECT_EQ(WrittenAt(Level, [&] { Rule.FlipRuleNoConstraints(); }),
              (Written{Level == 1 ? Trace : "", ""}));
    EXPECT_EQ(Dump(Rule), FlippedDump);
  }
}

TEST(TrRuleFlipping, TracesNoResultForStringsThatAreEmpty) {
  TrRule Rule;
  EXPECT_EQ(WrittenAt(1, [&] { Rule.FlipRuleNoConstraints(); }),
            (Written{"In FlipRule.\n{,-1}\n:: [] -> []\n(\n)\n"
                     "Now printing flipped SLWord2Comp map.\n"
                     "In TrRule::GetReversedAlignments() AlignmentString is:||\n"
                     "In TrRule::GetReversedAlignments() AlignmentString is:||\n"
                     "Now printing flipped SLWord2Comp map.\n"
                     "Now printing flipped TLWord2Comp map.\n"
                     "Now printing flipped SLWord2Comp map.\n"
                     "Now printing flipped TLWord2Comp map.\n",
                     ""}));
}

TEST(TrRuleFlipping, EndsTheProcessAtLevel1WhenTheRuleCannotBePrinted) {
  TrRule Rule;
  Rule.SetConstraint("(x1 = x2)");
  Rule.SetConstraint("(x2 = x1)");
  Rule.SetSLType("NP");
  const auto FlipAt1 = [&] {
    const DebugLevel Debug(1);
    Rule.FlipRuleNoConstraints();
  };
  EXPECT_EQ(RunInChild(FlipAt1),
            (ChildEnd{1, "In FlipRule.\n{,-1}\nNP:: [] -> []\n(\n",
                      "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 "
                      "order.\n"}));
  Rule.FlipRuleNoConstraints();
  EXPECT_EQ(Rule.GetTLType(), "NP");
}

TEST(TrRuleFlipping, FlipsEveryPrefixOfAStringOrEndsTheProcess) {
  // No value means the end of the process.
  const std::optional<std::string> Ends;
  const std::string Whole = "((1,1),(2,3),(3,2))";
  const std::optional<std::string> Reversed[] = {
      "",
      Ends,                   // (
      Ends,                   // ((
      Ends,                   // ((1
      Ends,                   // ((1,
      "((1,1))",              // ((1,1
      "((1,1))",              // ((1,1)
      "((1),1))",             // ((1,1),
      "((1,1))",              // ((1,1),(
      Ends,                   // ((1,1),(2
      Ends,                   // ((1,1),(2,
      "((1,1),(3,2))",        // ((1,1),(2,3
      "((1,1),(3,2))",        // ((1,1),(2,3)
      "((1,1),(3),2))",       // ((1,1),(2,3),
      "((1,1),(3,2))",        // ((1,1),(2,3),(
      Ends,                   // ((1,1),(2,3),(3
      Ends,                   // ((1,1),(2,3),(3,
      "((1,1),(3,2),(2,3))",  // ((1,1),(2,3),(3,2
      "((1,1),(3,2),(2,3))",  // ((1,1),(2,3),(3,2)
      "((1,1),(3,2),(2,3))",  // ((1,1),(2,3),(3,2))
  };
  std::size_t Size = 0;
  for (const std::optional<std::string>& Expected : Reversed) {
    const std::string Start = Whole.substr(0, Size++);
    SCOPED_TRACE(Start);
    TrRule Rule;
    Rule.SetsWordLevelAl(Start);
    std::optional<Halted> Halt;
    const Written Texts = WrittenBy([&] { Halt = HaltOf([&] { Rule.FlipRuleNoConstraints(); }); });
    EXPECT_EQ(Halt.has_value(), !Expected);
    EXPECT_EQ(Texts, (Written{"", Expected ? "" : ReversedMessage(Start)}));
    EXPECT_EQ(Rule.GetsWordLevelAl(), Expected.value_or(Start));
  }
  EXPECT_EQ(Size, Whole.size() + 1);
}

TEST(TrRuleFlipping, FlipsMalformedStrings) {
  struct Case {
    std::string Text;
    std::string Reversed;
  };
  const Case Cases[] = {
      {"( , )", "((,))"},
      {"((1,2)\r\n", "((2,1))"},
      {"(( 1\t, 2 ),( 3 ,4))\r", "((2,1),(4,3))"},
      {"((1,2)) end", "((2)) end,1))"},
      {"((1,2\0))"s, "((2\0,1))"s},
      {"((\xC3\xA9,2))", "((2,\xC3\xA9))"},
      {"1,2", "((2,1))"},
      {"((((1,2))))", "((2,1))"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    TrRule Rule;
    Rule.SetsWordLevelAl(Row.Text);
    EXPECT_EQ(WrittenBy([&] { Rule.FlipRuleNoConstraints(); }), (Written{"", ""}));
    EXPECT_EQ(Rule.GetsWordLevelAl(), Row.Reversed);
  }
}

TEST(TrRuleFlipping, EndsTheProcessOnAStringThatCannotBeFlipped) {
  struct Case {
    const char* Name;
    const char* Alternative;
    const char* Alignment;
    const char* WordLevel;
    const char* Quoted;
  };
  const Case Cases[] = {
      {"first the alternatives", "(a)", "()", "(b)", "(a)"},
      {"then the alignments", "((2,1))", "()", "(b)", "()"},
      {"then the word-level alignments", "((2,1))", "((1,2))", "()", "()"},
      {"three parts", "", "", "((1,2,3))", "((1,2,3))"},
      {"one part after a good one", "", "", "((1,2),(3))", "((1,2),(3))"},
      {"a missing part", "", "", "((1,))", "((1,))"},
      {"a blank in the separator", "", "", "((1,2), (3,4))", "((1,2), (3,4))"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Name);
    TrRule Rule;
    Rule.AddAlterTrInfo("", "", Row.Alternative, "", {}, {}, {}, {});
    Rule.SetAlignment(Row.Alignment);
    Rule.SetsWordLevelAl(Row.WordLevel);
    EXPECT_EQ(RunInChild([&] { Rule.FlipRuleNoConstraints(); }),
              (ChildEnd{1, "", ReversedMessage(Row.Quoted)}));
  }
}

TEST(TrRuleFlipping, EndsTheProcessOnALongStringWithATruncatedLastPair) {
  const std::string Digits(99996, '7');
  const std::string Uncut = "((1,1),(2," + Digits.substr(4) + "),(3,4))";
  const std::string Cut = "((1,1),(2," + Digits.substr(2) + "),(3,4))";
  TrRule Rule;
  Rule.SetsWordLevelAl(Uncut);
  Rule.FlipRuleNoConstraints();
  EXPECT_EQ(Rule.GetsWordLevelAl(), "((1,1),(" + Digits.substr(4) + ",2),(4,3))");
  Rule.SetsWordLevelAl(Cut);
  EXPECT_EQ(RunInChild([&] { Rule.FlipRuleNoConstraints(); }),
            (ChildEnd{1, "", ReversedMessage(Cut)}));
}

TEST(TrRuleFlipping, EndsTheProcessAtEveryLevelAfterTheTraces) {
  for (const int Level : {0, 1, 2, 3, 4}) {
    SCOPED_TRACE(Level);
    TrRule Rule;
    Rule.SetsWordLevelAl("()");
    const auto Flip = [&] {
      const DebugLevel Debug(Level);
      Rule.FlipRuleNoConstraints();
    };
    const std::string Trace =
        "In FlipRule.\n{,-1}\n:: [] -> []\n(\n)\nNow printing flipped SLWord2Comp map.\n"
        "In TrRule::GetReversedAlignments() AlignmentString is:||\n"
        "In TrRule::GetReversedAlignments() AlignmentString is:||\n";
    EXPECT_EQ(RunInChild(Flip), (ChildEnd{1, Level == 1 ? Trace : "", ReversedMessage("()")}));
  }
}

TEST(TrRuleOneToOne, IsFalseWhereAnIndexHasTwoPartners) {
  struct Case {
    const char* Alignments;
    int X;
    int Y;
    bool Expected;
  };
  const Case Cases[] = {
      {"((1,1),(1,2),(2,3))", 1, 3, false},  // x1 has two partners
      {"((1,1),(1,2),(2,3))", 2, 3, true},
      {"((1,1),(1,2),(2,3))", 3, 1, true},  // x3 has none, y1 has one
      {"((1,1),(1,2),(2,3))", 1, 1, false},
      {"((1,1),(1,2),(2,3))", 2, 1, true},   // each has one partner, but not the other
      {"((1,1),(2,1),(3,2))", 3, 1, false},  // y1 has two partners
      {"((1,1),(2,1),(3,2))", 1, 2, true},
      {"((1,1),(2,1),(3,2))", 1, 1, false},
      {"((1,1),(1,2),(2,1))", 1, 1, false},  // both have two
      {"((1,1),(1,2),(1,3))", 1, 4, false},  // three
      {"((0,0),(0,1))", 0, 0, false},
      {"((0,0),(0,1))", 1, 0, true},
      {"((9,3),(10,1),(10,2))", 10, 3, false},
      {"((9,3),(10,1),(10,2))", 1, 3, true},
      {"((1,2))", -1, -1, true},
      {"()", 1, 1, true},
      {"", 0, 0, true},
  };
  for (const Case& Row : Cases) {
    TrRule Rule;
    Rule.SetAlignment(Row.Alignments);
    SCOPED_TRACE(Row.Alignments);
    for (const int Level : {0, 1, 2, 3, 4}) {
      bool IsOneToOne = !Row.Expected;
      EXPECT_EQ(WrittenAt(Level, [&] { IsOneToOne = CallIsOneToOne(Rule, Row.X, Row.Y); }),
                (Written{"", ""}));
      EXPECT_EQ(IsOneToOne, Row.Expected) << Row.X << ' ' << Row.Y;
    }
    EXPECT_EQ(Rule.GetAlignmentStr(), Row.Alignments);
  }
}

TEST(TrRuleOneToOne, FollowsTheAlignmentsOfAFlippedRule) {
  TrRule Rule;
  Rule.SetAlignment("((1,1),(1,2),(2,3))");
  ASSERT_FALSE(CallIsOneToOne(Rule, 1, 3));
  ASSERT_TRUE(CallIsOneToOne(Rule, 3, 1) && CallIsOneToOne(Rule, 3, 2));
  Rule.FlipRuleNoConstraints();
  ASSERT_EQ(Rule.GetAlignmentStr(), "((1,1),(2,1),(3,2))");
  EXPECT_FALSE(CallIsOneToOne(Rule, 3, 1));
  EXPECT_TRUE(CallIsOneToOne(Rule, 1, 3));
  EXPECT_TRUE(CallIsOneToOne(Rule, 2, 3));
}
