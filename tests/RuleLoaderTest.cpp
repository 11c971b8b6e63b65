// A loader fills a rule from parsed lines exactly like the lenient rules, whatever the contents of
// the rule were before.

#include "RuleLoader.h"

#include "FuzzSupport.h"
#include "RoundTrip.h"
#include "RuleChecks.h"
#include "support/LineLoading.h"
#include "support/PrivateAccess.h"
#include "support/RandomInput.h"
#include "support/ReferenceReader.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using TrRuleInternal::AlignmentParts;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::ConstraintView;
using TrRuleInternal::Merging;
using TrRuleInternal::RuleLineParts;
using TrRuleInternal::RuleLoader;

namespace {

/// All observable state of a rule: its members, and each form of its text with the output of
/// writing it, or the halt.
Strings SeenOf(TrRule& Rule) {
  Strings vsSeen = {MembersOf(Rule)};
  for (const Form Which : AllForms) {
    Outcome<std::string> Text;
    const Written Streams =
        WrittenBy([&] { Text = OutcomeOf([&] { return Write(Rule, Which); }); });
    vsSeen.push_back(Text.Result);
    vsSeen.push_back(Text.Halt ? Text.Halt->Message : "no halt");
    vsSeen.push_back(Streams.Out + Streams.Err);
  }
  return vsSeen;
}

/// The contents of a rule before reading.
struct Start {
  const char* Name;
  std::function<void(TrRule&)> Fill;
};

const std::vector<Start>& Starts() {
  static const std::vector<Start> vStarts = {
      {"a new rule", [](TrRule&) {}},
      {"a rule that was read",
       [](TrRule& Rule) {
         Rule.SetTrRuleFromString(
             ";; c\n{VP,7}\nA::B [C D] -> [E F]\n(X1::Y1)\n(X2::Y3)\n((y1 num) = sg)\n"
             "((y1 num) = (y2 num))\n((x1 num) = (*OR* sg pl))\n(y0 = x0)\n");
       }},
      {"words for each component",
       [](TrRule& Rule) {
         Rule.SetSLWords("a b c");
         Rule.SetTLWords("d e f");
         Rule.SetSLWord2Comp({{0, 2}, {5, 5}});
       }},
      {"alignments that are not in order",
       [](TrRule& Rule) {
         Rule.SetAlignment("((1,1),(2,3),(3,2))");
         Rule.FlipRuleNoConstraints();
       }},
      {"a pair without an index", [](TrRule& Rule) { Rule.SetAlignment("((1),(2,3))"); }},
      {"a pair with leading zeros", [](TrRule& Rule) { Rule.SetAlignment("((02,003),(4,4))"); }},
      {"empty parentheses", [](TrRule& Rule) { Rule.SetAlignment("()"); }},
      {"numbers of ten digits", [](TrRule& Rule) { Rule.SetAlignment("((1,1234567890))"); }},
  };
  return vStarts;
}

/// Lines in their common form.
const Strings& CommonLines() {
  static const Strings vsLines = {"{NP,8}",
                                  "{np-adj,12}",
                                  "{A,0}",
                                  "NP::NP : [DET ADJ N] -> [DET N ADJ]",
                                  "np::\"vp\" [\"de\"  n ] -> [ (x1) ]",
                                  "(X1::Y1)",
                                  "(x2::y3)",
                                  "(X2::Y03)",
                                  "(X002::Y1)",
                                  "(X0::Y0)",
                                  "(X3::Y999999999)",
                                  "((x1 num) = sg)",
                                  "((x1 num) = (*OR* pl du))",
                                  "((x1 num) = (*not* sg))",
                                  "((y1 num) = pl)",
                                  "((y1 num) = next)",
                                  "((y0 num__a) = sg)",
                                  "((y1 num) = (y2 num))",
                                  "((y1 agr) = (x2 num))",
                                  "((x0 det) = x1)",
                                  "(x0 = x3)",
                                  "(y0 == x0)",
                                  "(y1 == (y0 det))",
                                  "((y3 agr gen) = (y2 agr gen))",
                                  "((x1 p1 p2 a) = sg)",
                                  "(y2 = (y0 p1 p2 a))",
                                  "(Y01 = Y1)"};
  return vsLines;
}

/// Reads lines into two rules, one with a loader for lines in their common form, the other only
/// with the reference reader, and compares all observable state.
class BothWays {
 public:
  explicit BothWays(const Start& Begin) {
    WrittenBy([&] { Begin.Fill(Rule); });
    WrittenBy([&] { Begin.Fill(Expected); });
  }

  void Read(const Strings& vsLines) {
    SCOPED_TRACE(testing::PrintToString(vsLines));
    const Written Streams = WrittenBy([&] {
      for (const std::string& sLine : vsLines) {
        LoadOne(sLine);
      }
    });
    const Written ExpectedStreams = WrittenBy([&] {
      for (const std::string& sLine : vsLines) {
        Reference.ReadLine(sLine);
      }
    });
    ASSERT_EQ(Streams, ExpectedStreams);
    ASSERT_EQ(SeenOf(Rule), SeenOf(Expected));
  }

  int Loaded = 0;

 private:
  /// Lines that the loader rejects go to the reference reader.
  void LoadOne(const std::string& Line) {
    if (LoadCommonLine(Line, Loader)) {
      ++Loaded;
      return;
    }
    Fallback.ReadLine(Line);
    Loader.NoteAlignment();
    if (Reference::Holds(Line, "] -> [")) {
      Loader.NoteRuleLine();
    }
  }

  TrRule Rule;
  TrRule Expected;
  RuleLoader Loader{Rule};
  ReferenceReader Fallback{Rule};
  ReferenceReader Reference{Expected};
};

AlignmentParts Pair(const char* Line) {
  AlignmentParts Parts;
  EXPECT_TRUE(TrRuleInternal::ParseCommonAlignment(Line, Parts)) << Line;
  return Parts;
}

ConstraintParts Text(const char* Line) {
  ConstraintParts Parts;
  EXPECT_TRUE(TrRuleInternal::ParseCommonForm(Line, Parts)) << Line;
  return Parts;
}

}  // namespace

// ---- Loader and reader ------------------------------------------------------------------------

TEST(RuleLoader, LoadsALineLikeTheLenientRules) {
  for (const Start& State : Starts()) {
    SCOPED_TRACE(State.Name);
    for (const std::string& sLine : CommonLines()) {
      BothWays(State).Read({sLine});
    }
  }
}

TEST(RuleLoader, LoadsEveryPairOfLines) {
  for (const Start& State : Starts()) {
    SCOPED_TRACE(State.Name);
    for (const std::string& sFirst : CommonLines()) {
      for (const std::string& sSecond : CommonLines()) {
        // A second rule line is rejected: the expected result is that of SetRuleLine.
        if (Reference::Holds(sFirst, "->") && Reference::Holds(sSecond, "->")) {
          continue;
        }
        BothWays(State).Read({sFirst, sSecond});
      }
    }
  }
}

TEST(RuleLoader, LoadsRandomLines) {
  RandomInput Random;
  const Strings vsOtherLines = {"(X1::Y1) ",        "(x9::y)", "(1::Y1)",
                                "((x1 num) == sg)", "(y1=y2)", "((y1 a b) = sg))",
                                "{NP , 3} = ::",    "= x"};
  int Loaded = 0;
  for (int Case = 0; Case < 3000; ++Case) {
    Strings vsLines;
    for (std::size_t Left = Random.Below(8); Left > 0; --Left) {
      const std::string Line = Random.Pick(Random.Below(5) == 0 ? vsOtherLines : CommonLines());
      if (!Reference::Holds(Line, "->")) {
        vsLines.push_back(Line);
      }
    }
    BothWays Both(Starts()[Random.Below(Starts().size())]);
    ASSERT_NO_FATAL_FAILURE(Both.Read(vsLines));
    Loaded += Both.Loaded;
  }
  EXPECT_GT(Loaded, 3000);
}

// ---- Operations -------------------------------------------------------------------------------

TEST(RuleLoader, AppendsComments) {
  TrRule Rule;
  RuleLoader Loader(Rule);
  Loader.AddComment(";; a");
  Loader.AddComment("");
  EXPECT_EQ(CommentsOf(Rule), (Strings{";; a", ""}));
  RuleLoader(Rule).AddComment(";; b");
  EXPECT_EQ(CommentsOf(Rule), (Strings{";; a", "", ";; b"}));
}

TEST(RuleLoader, StoresTheHeaderUnchanged) {
  TrRule Rule;
  RuleLoader(Rule).SetHeader("adjp", 12);
  EXPECT_EQ(HeaderTypeOf(Rule), "adjp");
  EXPECT_EQ(Rule.GetRuleIndex(), 12);
}

TEST(RuleLoader, RejectsASecondRuleLine) {
  TrRule Rule;
  RuleLoader Loader(Rule);
  EXPECT_TRUE(Loader.SetRuleLine({"A", "B", "c d", "e"}));
  const std::string Before = MembersOf(Rule);
  EXPECT_FALSE(Loader.SetRuleLine({"F", "G", "h", "i"}));
  EXPECT_FALSE(Loader.NoteRuleLine());
  EXPECT_EQ(MembersOf(Rule), Before);
  EXPECT_EQ(Rule.GetSLPOS(), (Strings{"C", "D"}));
  EXPECT_TRUE(RuleLoader(Rule).SetRuleLine({"F", "G", "h", "i"}));
  EXPECT_EQ(Rule.GetTLType(), "G");
}

TEST(RuleLoader, RejectsARuleLineAfterANotedOne) {
  TrRule Rule;
  RuleLoader Loader(Rule);
  EXPECT_TRUE(Loader.NoteRuleLine());
  EXPECT_FALSE(Loader.SetRuleLine({"A", "B", "C", "D"}));
  EXPECT_EQ(Rule.GetSLType(), "");
}

TEST(RuleLoader, OrdersPairs) {
  const std::pair<std::vector<const char*>, const char*> Cases[] = {
      {{"(X1::Y1)"}, "((1,1))"},
      {{"(X1::Y2)", "(X1::Y1)", "(X2::Y1)"}, "((1,1),(1,2),(2,1))"},
      {{"(X2::Y1)", "(X1::Y9)", "(X3::Y3)"}, "((1,9),(2,1),(3,3))"},
      {{"(X10::Y1)", "(X9::Y1)"}, "((9,1),(10,1))"},
      {{"(X1::Y1)", "(X1::Y1)"}, "((1,1))"},
      {{"(X01::Y1)", "(X1::Y01)"}, "((01,1))"},
      {{"(X2::Y2)", "(X01::Y1)", "(X2::Y02)"}, "((01,1),(2,2))"},
      {{"(X0::Y0)", "(X0::Y0)", "(X1::Y0)"}, "((0,0),(1,0))"},
  };
  for (const auto& [vLines, Expected] : Cases) {
    TrRule Rule;
    RuleLoader Loader(Rule);
    for (const char* Line : vLines) {
      EXPECT_TRUE(Loader.AddAlignment(Pair(Line)));
    }
    EXPECT_EQ(Rule.GetAlignmentStr(), Expected);
  }
}

TEST(RuleLoader, AddsOnlyToOrderedAlignments) {
  const std::pair<const char*, bool> Cases[] = {
      {"", true},          {"((1,1))", true},      {"((01,1),(2,3))", true},
      {"()", false},       {"((1),(2,3))", false}, {"((1,1234567890))", false},
      {"(( 1,1))", false},
  };
  for (const auto& [Alignments, IsTaken] : Cases) {
    TrRule Rule;
    WrittenBy([&Rule, Set = Alignments] { Rule.SetAlignment(Set); });
    const std::string Before = MembersOf(Rule);
    EXPECT_EQ(RuleLoader(Rule).AddAlignment(Pair("(X1::Y2)")), IsTaken) << Alignments;
    EXPECT_EQ(MembersOf(Rule) == Before, !IsTaken) << Alignments;
  }
}

TEST(RuleLoader, ChecksTheAlignmentsAgainAfterANotedOne) {
  TrRule Rule;
  RuleLoader Loader(Rule);
  EXPECT_TRUE(Loader.AddAlignment(Pair("(X1::Y1)")));
  Rule.SetAlignment("((5,5))");
  Loader.NoteAlignment();
  EXPECT_TRUE(Loader.AddAlignment(Pair("(X2::Y2)")));
  EXPECT_EQ(Rule.GetAlignmentStr(), "((2,2),(5,5))");
}

TEST(RuleLoader, ReturnsTheMergings) {
  TrRule Rule;
  RuleLoader Loader(Rule);
  std::vector<Merging> vMergings;
  const Written Streams = WrittenBy([&] {
    for (const char* Line : {"((x1 num) = sg)", "((x1 num) = pl)", "((x1 num) = pl)",
                             "((x1 num) = (*OR* sg pl))", "((x2 num) = pl)", "(x1 = x2)"}) {
      Loader.AddConstraint(Text(Line), vMergings);
    }
  });
  EXPECT_EQ(Streams, (Written{"", ""}));
  ASSERT_EQ(vMergings.size(), 2U);
  EXPECT_EQ(vMergings[0].OldValue, "SG");
  EXPECT_EQ(vMergings[0].NewValue, "PL");
  EXPECT_EQ(vMergings[0].NewKey, "1__1__NUM__(*OR* SG PL)");
  EXPECT_EQ(vMergings[1].OldValue, "(*OR* SG PL)");
  EXPECT_EQ(vMergings[1].NewValue, "PL");
  EXPECT_EQ(vMergings[1].NewKey, "1__1__NUM__(*OR* SG PL)");
  EXPECT_EQ(Rule.GetConstraints(),
            (Strings{"((X1 NUM) = (*OR* SG PL))", "(X1 = X2)", "((X2 NUM) = PL)"}));
}

TEST(RuleLoader, AddsFieldsWithARank) {
  TrRule Rule;
  RuleLoader Loader(Rule);
  std::vector<Merging> vMergings;
  EXPECT_TRUE(Loader.AddConstraint(ConstraintView{4, 1, "f", "v", true}, 3, vMergings));
  EXPECT_FALSE(Loader.AddConstraint(ConstraintView{4, 1, "f", "v", false}, 5, vMergings));
  EXPECT_TRUE(Loader.AddConstraint(ConstraintView{4, 1, "f", "(Y2", false}, 7, vMergings));
  EXPECT_TRUE(vMergings.empty());
  const auto& Stored = ConstraintsOf(Rule);
  ASSERT_EQ(Stored.size(), 2U);
  EXPECT_EQ(Stored.at("4__1__f__v").GetRankInCategory(), 3);
  EXPECT_TRUE(Stored.at("4__1__f__v").IsValueConstraint());
  EXPECT_EQ(Stored.at("4__1__f__(Y2").GetRankInCategory(), 7);
  EXPECT_FALSE(Stored.at("4__1__f__(Y2").IsValueConstraint());
}

TEST(RuleLoader, RequiresARuleLineAndAnAlignment) {
  for (const bool HasRuleLine : {false, true}) {
    for (const bool HasAlignment : {false, true}) {
      TrRule Rule;
      Rule.SetAlignment("((1,1))");
      RuleLoader Loader(Rule);
      if (HasRuleLine) {
        Loader.NoteRuleLine();
      }
      if (HasAlignment) {
        Loader.AddAlignment(Pair("(X2::Y2)"));
      }
      const bool IsWhole = HasRuleLine && HasAlignment;
      EXPECT_EQ(Loader.Finish(), IsWhole);
      EXPECT_EQ(Rule.*GetMember(AllAlignmentsTag()),
                IsWhole ? Strings{"((1,1),(2,2))"} : Strings{});
    }
  }
}
