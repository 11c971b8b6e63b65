// The settings of the process, and the traces of each debugging level: in every operation that has
// traces, a level prints exactly its own, and other levels print none.

#include "GlobalParams.h"

#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <cstdlib>
#include <set>
#include <string>
#include <type_traits>

static_assert(std::is_empty_v<GlobalParams>, "no instance data");
static_assert(std::is_default_constructible_v<GlobalParams> &&
              std::is_copy_constructible_v<GlobalParams> &&
              std::is_copy_assignable_v<GlobalParams>);
static_assert(std::is_same_v<decltype(GlobalParams::L2), std::string>);
static_assert(std::is_same_v<decltype(GlobalParams::DebuggingLevel), int>);
static_assert(std::is_same_v<decltype(GlobalParams::OrigGrammarFile), std::string>);
static_assert(std::is_same_v<decltype(GlobalParams::HeadTableFile), std::string>);
static_assert(std::is_same_v<decltype(GlobalParams::ssRelevantTypes), std::set<std::string>>);

static_assert(std::is_empty_v<GlobalParams> && std::is_copy_assignable_v<GlobalParams>);

namespace {

/// The fifteen switches, in the order of their declaration. A switch of another type does not
/// compile.
bool* const Switches[] = {
    &GlobalParams::SeedGenOnly,        &GlobalParams::ComposOnly,
    &GlobalParams::MoveToPOS,          &GlobalParams::BasicConstraints,
    &GlobalParams::Compounds,          &GlobalParams::ProDrop,
    &GlobalParams::FindL2Root,         &GlobalParams::AdvConstraints,
    &GlobalParams::ComplexCases,       &GlobalParams::MaxCompos,
    &GlobalParams::LeaveLexForDiffPOS, &GlobalParams::LenientPOS,
    &GlobalParams::FilterRules,        &GlobalParams::NounPerson3,
    &GlobalParams::StrictValConstr,
};

/// The values of the settings during static initialisation.
const int LevelBeforeMain = GlobalParams::DebuggingLevel;

const std::string Printed1 = "{,-1}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n(X0 = X1)\n)\n";
const std::string Reordered1 =
    "In ReorderAlignments, AlignmentString is:((1,1))"
    "At the end of ReorderAlignments, AlignmentString is:((1,1))\n";
const std::string Copied1 = "In TrRule's copy constructor.\n" + Reordered1;
const std::string SLMap = "Now printing inited SLWord2Comp map.\n0--0\n";
const std::string TLMap = "Now printing inited TLWord2Comp map.\n0--0\n";
const std::string FlippedMaps =
    "Now printing flipped SLWord2Comp map.\n0--0\nNow printing flipped TLWord2Comp map.\n0--0\n";
const std::string Reversing1 = "In TrRule::GetReversedAlignments() AlignmentString is:|((1,1))|\n";

/// A rule of one word, one label, one alignment and one constraint.
void MakeRule(TrRule& Rule) {
  Rule.SetSLType("NP");
  Rule.SetTLType("NP");
  Rule.SetSLWords("dog");
  Rule.SetTLWords("perro");
  Rule.SetSLPOS("n");
  Rule.SetTLPOS("n");
  Rule.SetAlignment("((1,1))");
  Rule.SetConstraint(1, 0, "all", "X1", -1, false);
}

/// An operation on the rule of `MakeRule`, and its output at the levels that have traces.
struct Traced {
  const char* Name;
  void (*Run)(TrRule& Rule);
  std::string At1;
  std::string At3;
  std::string At4;

  std::string At(int Level) const {
    return Level == 1 ? At1 : Level == 3 ? At3 : Level == 4 ? At4 : "";
  }
};

const Traced Operations[] = {
    {"read", [](TrRule&) { TrRule().SetTrRuleFromString("N::N [A] -> [B]\n(X1::Y1)\n"); },
     "TrRule::SetTrRuleFromString: TypeAndConstSeq part is N::N [A]\n"
     "Setting SL type:N\n"
     "Setting TL type:N\n"
     "Now printing inited SLWord2Comp map.\n"
     "Now printing inited SLWord2Comp map (from SetSLPOS).\n"
     "Now printing inited SLWord2Comp map.\n"
     "Now printing inited SLWord2Comp map (from SetWordLevelSLPOS).\n"
     "TrRule::SetTrRuleFromString: TypeAndConstSeq part is [B]\n"
     "Now printing inited TLWord2Comp map.\n"
     "Now printing inited TLWord2Comp map (from SetTLPOS).\n"
     "Now printing inited TLWord2Comp map.\n"
     "Now printing inited TLWord2Comp map (from SetWordLevelTLPOS).\n"
     "In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
     "In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
     "At the end of AddAlignment, AlignmentString is:((1,1))\n"
     "Successfully read in a transfer rule from a string:\n"
     "{,-1}\nN::N [A] -> [B]\n(\n(X1::Y1)\n)\n",
     "", Reordered1},
    {"SL labels", [](TrRule& Rule) { Rule.SetSLPOS("n"); },
     SLMap + "Now printing inited SLWord2Comp map (from SetSLPOS).\n0--0\n", "", ""},
    {"SL labels in a list", [](TrRule& Rule) { Rule.SetSLPOS(Strings{"n"}); },
     SLMap + "Now printing inited SLWord2Comp map (from SetSLPOS).\n0--0\n", "", ""},
    {"SL word labels", [](TrRule& Rule) { Rule.SetWordLevelSLPOS("n"); },
     SLMap + "Now printing inited SLWord2Comp map (from SetWordLevelSLPOS).\n0--0\n", "", ""},
    {"SL word labels in a list", [](TrRule& Rule) { Rule.SetWordLevelSLPOS(Strings{"n"}); },
     SLMap + "Now printing inited SLWord2Comp map (from SetWordLevelSLPOS).\n0--0\n", "", ""},
    {"SL parse labels", [](TrRule& Rule) { Rule.SetSLPOSFromParse("n"); },
     SLMap + "Now printing inited SLWord2Comp map (from SetSLPOSFromParse).\n0--0\n", "", ""},
    {"SL parse labels in a list", [](TrRule& Rule) { Rule.SetSLPOSFromParse(Strings{"n"}); },
     SLMap + "Now printing inited SLWord2Comp map (from SetSLPOSFromParse).\n0--0\n", "", ""},
    {"TL labels", [](TrRule& Rule) { Rule.SetTLPOS("n"); },
     TLMap + "Now printing inited TLWord2Comp map (from SetTLPOS).\n0--0\n", "", ""},
    {"TL labels in a list", [](TrRule& Rule) { Rule.SetTLPOS(Strings{"n"}); },
     TLMap + "Now printing inited TLWord2Comp map (from SetTLPOS).\n0--0\n", "", ""},
    {"TL word labels", [](TrRule& Rule) { Rule.SetWordLevelTLPOS("n"); },
     TLMap + "Now printing inited TLWord2Comp map (from SetWordLevelTLPOS).\n0--0\n", "", ""},
    {"TL word labels in a list", [](TrRule& Rule) { Rule.SetWordLevelTLPOS(Strings{"n"}); },
     TLMap + "Now printing inited TLWord2Comp map (from SetWordLevelTLPOS).\n0--0\n", "", ""},
    {"SL map", [](TrRule& Rule) { Rule.InitSLWord2Comp(); }, SLMap, "", ""},
    {"TL map", [](TrRule& Rule) { Rule.InitTLWord2Comp(); }, TLMap, "", ""},
    {"structure", [](TrRule& Rule) { Rule.SetCStructure("s"); }, "Setting CStructure:|s|\n", "",
     ""},
    {"adding an alignment", [](TrRule& Rule) { Rule.AddAlignment("-(x1::y2)-"); },
     "In TrRule::AddAlignment, string is:|-(X1::Y2)-|\n"
     "In TrRule::AddAlignment, string is:|(X1::Y2)|\n"
     "At the end of AddAlignment, AlignmentString is:((1,1),(1,2))\n",
     "",
     "In ReorderAlignments, AlignmentString is:((1,1),(1,2))"
     "At the end of ReorderAlignments, AlignmentString is:((1,1),(1,2))\n"},
    {"reversing", [](TrRule& Rule) { CallGetReversedAlignments(Rule, "((2,3))"); },
     Reversing1 + "In TrRule::GetReversedAlignments() ReturnAlStr is:|((3,2))|\n", "", ""},
    {"ordering", [](TrRule& Rule) { Rule.SetAlignment("((2,1),(1,1))"); }, "", "",
     "In ReorderAlignments, AlignmentString is:((2,1),(1,1))"
     "At the end of ReorderAlignments, AlignmentString is:((1,1),(2,1))\n"},
    {"flipping", [](TrRule& Rule) { Rule.FlipRuleNoConstraints(); },
     "In FlipRule.\n" + Printed1 + "Now printing flipped SLWord2Comp map.\n0--0\n" + Reversing1 +
         "In TrRule::GetReversedAlignments() ReturnAlStr is:|((1,1))|\n" + Reversing1 +
         FlippedMaps + FlippedMaps,
     "", ""},
    {"less", [](TrRule& Rule) { EXPECT_FALSE(Rule < Rule); },
     "In TrRule's overloaded less than operator.\n", "", Copied1 + Copied1 + Copied1},
    {"equal", [](TrRule& Rule) { EXPECT_TRUE(Rule == Rule); },
     "In overloaded operator==.\nNow comparing constraints.\n"
     "Comparing:1__0__all__X1 and 1__0__all__X1\n",
     "", Copied1},
    {"constraint from text", [](TrRule& Rule) { Rule.SetConstraint("((X1 NUM) = SG)", -1, 1); },
     "In SetConstraint, ConstraintPassIn is:((X1 NUM) = SG)\n", "", ""},
    {"erasing", [](TrRule& Rule) { Rule.EraseConstraint(0, "all", "X1", "empty", {1}); },
     "Now erasing constraint.\nConstraints map before erasing:\nConstraint:1__0__all__X1\n"
     "Constraints map after erasing:\n",
     "", ""},
    {"assignment", [](TrRule& Rule) { TrRule().operator=(Rule); }, "",
     "In TrRule's overloaded assignment operator.\n"
     "Leaving TrRule's overloaded assignment operator, rule is now:" +
         Printed1,
     Copied1},
    {"copy", [](TrRule& Rule) { const TrRule Copy(Rule); }, "", "", Copied1},
};

/// Operations that print messages at every level, and nothing else at most levels.
void PrintMessages(TrRule& Rule) {
  TrRule Other;
  Other.SetTrRuleFromString("");
  Rule.SetTrRuleFromString("x::");
  Rule.SetConstraint("no sign");
  CallIsLexicalized(Rule, 4, 1);
  StringUtils::IsNumeric("12a");
  StringUtils::EscapeChar("'", '\'');
}

}  // namespace

TEST(GlobalParams, StartZeroFalseAndEmpty) {
  EXPECT_EQ(LevelBeforeMain, 0);
  EXPECT_EQ(GlobalParams::DebuggingLevel, 0);
  EXPECT_EQ(GlobalParams::L2, "");
  EXPECT_EQ(GlobalParams::OrigGrammarFile, "");
  EXPECT_EQ(GlobalParams::HeadTableFile, "");
  EXPECT_EQ(GlobalParams::ssRelevantTypes, std::set<std::string>{});
  for (std::size_t Switch = 0; Switch < std::size(Switches); ++Switch) {
    SCOPED_TRACE(Switch);
    EXPECT_FALSE(*Switches[Switch]);
  }
}

TEST(GlobalParams, AreSeparateVariables) {
  const std::set<const bool*> Places(std::begin(Switches), std::end(Switches));
  EXPECT_EQ(Places.size(), std::size(Switches));
  const ChildEnd End = RunInChild([] {
    GlobalParams::L2 = std::string(100, 'l');
    GlobalParams::OrigGrammarFile = std::string(100, 'o');
    GlobalParams::HeadTableFile = std::string(100, 'h');
    GlobalParams::ssRelevantTypes = {std::string(100, 'r'), "NP"};
    for (bool* Switch : Switches) {
      *Switch = true;
    }
    const bool Kept = GlobalParams::L2[0] == 'l' && GlobalParams::OrigGrammarFile[0] == 'o' &&
                      GlobalParams::HeadTableFile[0] == 'h' &&
                      GlobalParams::ssRelevantTypes.size() == 2;
    std::exit(Kept ? 42 : 1);  // destroys all of them
  });
  EXPECT_EQ(End, (ChildEnd{42, "", ""}));
}

TEST(GlobalParams, PrintTracesOnlyAtTheirOwnLevel) {
  for (const Traced& Operation : Operations) {
    for (int Level = -1; Level <= 6; ++Level) {
      SCOPED_TRACE(testing::Message() << Operation.Name << " at level " << Level);
      TrRule Rule;
      MakeRule(Rule);
      const DebugLevel Scope(Level);
      EXPECT_EQ(WrittenBy([&] { Operation.Run(Rule); }), (Written{Operation.At(Level), ""}));
      EXPECT_EQ(GlobalParams::DebuggingLevel, Level) << "no operation sets it";
    }
  }
}

TEST(GlobalParams, ChangeNoTraceApartFromTheLevel) {
  for (bool* Switch : Switches) {
    *Switch = true;
    for (const Traced& Operation : Operations) {
      SCOPED_TRACE(Operation.Name);
      TrRule Rule;
      MakeRule(Rule);
      EXPECT_EQ(WrittenBy([&] { Operation.Run(Rule); }), (Written{"", ""}));
    }
    *Switch = false;
  }
}

TEST(GlobalParams, PrintCopiesButNoLevel1TracesAtLevel4) {
  TrRule Rule;
  const DebugLevel Scope(4);
  const auto CopyTwiceAndCompare = [&] {
    TrRule Copy(Rule);
    Copy = Rule;
    EXPECT_TRUE(Copy == Rule);
    Copy.SetCStructure("s");
    Copy.InitSLWord2Comp();
  };
  // Ordering an empty alignment string has no second line.
  const std::string Copied =
      "In TrRule's copy constructor.\nIn ReorderAlignments, AlignmentString is:";
  EXPECT_EQ(WrittenBy(CopyTwiceAndCompare), (Written{Copied + Copied + Copied, ""}));
}

TEST(GlobalParams, PrintTheSameMessagesAtEveryLevelWithoutTraces) {
  const Written Expected{
      "Not a digit.\nsEscapedEsc is:\\'\nsPassIn is now:'\n",
      "Error in SetTrRuleFromStr: Couldn't set rule -- something missing.\n"
      "Error in SetTrRuleFromStr: Alignment couldn't be set:x::\n"
      "ERROR in Constraint::Constraint(string): Constraint was not in correct format:|NO SIGN|\n"
      "TrRule::IsLexicalized called with invalid x index:4, where there are 1 indices.\n"};
  for (const int Level : {0, 2, 3, 4, 5, -1}) {
    SCOPED_TRACE(Level);
    TrRule Rule;
    MakeRule(Rule);
    const DebugLevel Scope(Level);
    EXPECT_EQ(WrittenBy([&] { PrintMessages(Rule); }), Expected);
  }
  TrRule Rule;
  MakeRule(Rule);
  const DebugLevel Scope(1);
  EXPECT_EQ(WrittenBy([&] { PrintMessages(Rule); }),
            (Written{"In TrRule::AddAlignment, string is:|X::|\n" + Expected.Out, Expected.Err}));
}

TEST(GlobalParams, PrintNoTraceOfTheSampleAt0And2) {
  for (const int Level : {0, 2}) {
    SCOPED_TRACE(Level);
    const DebugLevel Scope(Level);
    const auto ReadAndPrint = [] {
      TrRule Rule;
      EXPECT_TRUE(Rule.SetTrRuleFromString(SampleText));
      Rule.Print();
    };
    EXPECT_EQ(WrittenBy(ReadAndPrint), (Written{SamplePrinted, ""}));
  }
}
