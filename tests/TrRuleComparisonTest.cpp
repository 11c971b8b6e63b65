// Assignment, ordering and equality of rules. Each member of a rule is changed by itself, to show
// which of the three operations notice the change. Also covered: the two members that an assignment
// does not change, the asymmetries of the equality, the number of copies that each operation makes,
// and all traces.

#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/HaltGuard.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

using std::string_literals::operator""s;

namespace {

/// The members of a rule, each with a different value.
struct Fields {
  std::string Head = ";; note\n{QP,7}\n";
  Strings SLWords = {"THE", "DOG"};
  Strings SLPOS = {"DET", "ADJ", "N"};
  Strings WordLevelSLPOS = {"DT", "JJ"};
  Strings SLPOSFromParse = {"SP"};
  Strings TLPOSFromParse = {"TP"};
  Strings TLWords = {"EL", "PERRO"};
  Strings TLPOS = {"DET", "N", "ADJ"};
  Strings WordLevelTLPOS = {"DT", "NN"};
  std::string Alignment = "((1,2),(2,1))";
  std::string WordLevelAl = "((1,3))";
  std::string CStructure = "(C)";
  std::string SLType = "NP";
  std::string TLType = "VP";
  std::vector<Constraint> vConstraints = {Constraint(1, 1, "NUM", "SG", 11, true),
                                          Constraint(3, 0, "all", "X0", 12, false)};
  int RuleIndex = 17;
  std::set<int> CSet = {4, 5};
  std::map<int, int> SLWord2Comp = {{0, 1}};
  std::map<int, int> TLWord2Comp = {{0, 2}};
  int NumTrExamples = 3;
  int HeadIndex = 6;
  int XHeadIndex = 9;
  int YHeadIndex = 8;
  std::string AltSLSent = "s";
  std::string AltTLSent = "t";
  std::string AltAlignment = "((2,1))";
  std::string AltCStructure = "(D)";
  std::map<int, int> AltSLWord2Comp = {{5, 6}};
  std::map<int, int> AltTLWord2Comp = {{7, 8}};
  Strings AltWordLevelSLPOS = {"SA"};
  Strings AltWordLevelTLPOS = {"TA"};
};

using Change = void (*)(Fields&);

void FillSequences(TrRule& Rule, const Fields& Of) {
  // Only a flip sets the TL labels of a parse.
  Rule.SetSLPOSFromParse(Of.TLPOSFromParse);
  Rule.FlipRuleNoConstraints();
  // Only the reader sets the comments and the header type.
  Rule.SetTrRuleFromString(Of.Head + "NP::NP [N] -> [N]\n(X1::Y1)\n");
  Rule.SetSLWords(Of.SLWords);
  Rule.SetTLWords(Of.TLWords);
  Rule.SetSLPOS(Of.SLPOS);
  Rule.SetTLPOS(Of.TLPOS);
  Rule.SetWordLevelSLPOS(Of.WordLevelSLPOS);
  Rule.SetWordLevelTLPOS(Of.WordLevelTLPOS);
  Rule.SetSLPOSFromParse(Of.SLPOSFromParse);
  Rule.SetSLWord2Comp(Of.SLWord2Comp);
  Rule.SetTLWord2Comp(Of.TLWord2Comp);
}

/// A rule with the fields, one of which is changed. Returns a pointer, since a copy would lose
/// some.
std::unique_ptr<TrRule> Make(Change ChangeOne = nullptr) {
  Fields Of;
  if (ChangeOne != nullptr) {
    ChangeOne(Of);
  }
  auto Rule = std::make_unique<TrRule>();
  FillSequences(*Rule, Of);
  Rule->SetAlignment(Of.Alignment);
  Rule->SetsWordLevelAl(Of.WordLevelAl);
  Rule->SetCStructure(Of.CStructure);
  Rule->SetSLType(Of.SLType);
  Rule->SetTLType(Of.TLType);
  for (const Constraint& Record : Of.vConstraints) {
    Rule->InsertConstraintIntoMap(Record);
  }
  Rule->SetRuleIndex(Of.RuleIndex);
  Rule->SetCSet(Of.CSet);
  Rule->SetNumTrExamples(Of.NumTrExamples);
  Rule->SetHeadIndex(Of.HeadIndex);
  Rule->SetXHeadIndex(Of.XHeadIndex);
  Rule->SetYHeadIndex(Of.YHeadIndex);
  Rule->AddAlterTrInfo(Of.AltSLSent, Of.AltTLSent, Of.AltAlignment, Of.AltCStructure,
                       Of.AltSLWord2Comp, Of.AltTLWord2Comp, Of.AltWordLevelSLPOS,
                       Of.AltWordLevelTLPOS);
  return Rule;
}

const std::string BodyPrinted =
    "NP::VP [DET ADJ N] -> [DET N ADJ]\n"
    "(\n(X1::Y2)\n(X2::Y1)\n((X1 NUM) = SG)\n(Y0 = X0)\n)\n";

/// The rule of `Make`, except for what `Print` shows.
const std::string MadeMembers =
    "SLWords: { <THE> <DOG> }\n"
    "vsAllSLSents: { <s> }\n"
    "SLPOS: { <DET> <ADJ> <N> }\n"
    "WordLevelSLPOS: { <DT> <JJ> }\n"
    "SLPOSFromParse: { <SP> }\n"
    "TLPOSFromParse: { <TP> }\n"
    "vvsAllWordLevelSLPOSs: { { <SA> } }\n"
    "TLWords: { <EL> <PERRO> }\n"
    "vsAllTLSents: { <t> }\n"
    "TLPOS: { <DET> <N> <ADJ> }\n"
    "WordLevelTLPOS: { <DT> <NN> }\n"
    "vvsAllWordLevelTLPOSs: { { <TA> } }\n"
    "AlignmentString: <((1,2),(2,1))>\n"
    "sWordLevelAl: <((1,3))>\n"
    "vsAllAlignments: { <((1,1))> <((2,1))> }\n"
    "CStructure: <(C)>\n"
    "vsAllCStructures: { <(D)> }\n"
    "SLType: <NP>\n"
    "TLType: <VP>\n"
    "Constraint: <((X1 NUM) = SG) category 1 rank 11>\n"
    "Constraint: <(Y0 = X0) category 3 rank 12>\n"
    "RuleIndex: 17\n"
    "CSet: { 4 5 }\n"
    "SLWord2Comp: { 0->1 }\n"
    "vmiiAllSLWord2Comps: { { 0->1 } { 5->6 } }\n"
    "TLWord2Comp: { 0->2 }\n"
    "vmiiAllTLWord2Comps: { { 0->2 } { 7->8 } }\n"
    "NumTrExamples: 3\n"
    "HeadIndex: 6\n"
    "XHeadIndex: 9\n"
    "YHeadIndex: 8\n";

/// The text of each member by its name, and the printed rule as "Print".
std::map<std::string, std::string> MembersByName(TrRule& Rule) {
  const std::string Text = Dump(Rule);
  const std::size_t Start = Text.find("SLWords: ");
  std::map<std::string, std::string> mssMembers{{"Print", Text.substr(0, Start)}};
  for (const std::string& sLine : Tokenizer()(Text.substr(Start), "\n")) {
    mssMembers[sLine.substr(0, sLine.find(": "))] += sLine + '\n';
  }
  return mssMembers;
}

/// The names of the members that differ in two rules, each after a blank.
std::string Differing(TrRule& Left, TrRule& Right) {
  const auto mssLeft = MembersByName(Left);
  auto mssRight = MembersByName(Right);
  std::string Names;
  for (const auto& [Name, Text] : mssLeft) {
    if (Text != mssRight[Name]) {
      Names += ' ' + Name;
    }
  }
  return Names;
}

// The traces of the equality: it stops before the constraints, compares them all, or stops at the
// first or the second pair.
constexpr const char* Stops = "In overloaded operator==.\n";
constexpr const char* Walks =
    "In overloaded operator==.\nNow comparing constraints.\n"
    "Comparing:1__1__NUM__SG and 1__1__NUM__SG\n"
    "Comparing:3__0__all__X0 and 3__0__all__X0\n";
constexpr const char* WalksTo1st =
    "In overloaded operator==.\nNow comparing constraints.\n"
    "Comparing:1__1__NUM__SG and 1__1__NUM__PL\n";
constexpr const char* WalksTo2nd =
    "In overloaded operator==.\nNow comparing constraints.\n"
    "Comparing:1__1__NUM__SG and 1__1__NUM__SG\n"
    "Comparing:3__0__all__X0 and 3__0__all__X9\n";

/// How the rule of `Make` sorts relative to the changed one.
enum class Sorts { Before, Nowhere, After };

/// The results of the operators on the rule of `Make` and a changed one.
struct Outcome {
  bool Equals;        ///< the rule of `Make` on the left
  bool IsEqualled;    ///< the changed rule on the left
  Sorts Order;        ///< how the rule of `Make` sorts
  const char* Trace;  ///< the trace of the equality, with the rule of `Make` on the left
};
constexpr Outcome Unseen{true, true, Sorts::Nowhere, Walks};
constexpr Outcome Differs{false, false, Sorts::Nowhere, Stops};
constexpr Outcome DiffersBefore{false, false, Sorts::Before, Stops};
constexpr Outcome DiffersBehind{false, false, Sorts::After, Stops};
constexpr Outcome SortsBefore{true, true, Sorts::Before, Walks};
constexpr Outcome SortsBehind{true, true, Sorts::After, Walks};

struct Perturbation {
  const char* Name;
  const char* Differing;
  Change ChangeOne;
  Outcome Result;
};

/// Each member changed by itself. Lists that are compared are also made longer and shorter.
const Perturbation Perturbations[] = {
    {"Comments", " Print", [](Fields& Of) { Of.Head = ";; other\n{QP,7}\n"; }, Unseen},
    {"no comments", " Print", [](Fields& Of) { Of.Head = "{QP,7}\n"; }, Unseen},
    {"SLWords, first", " SLWords", [](Fields& Of) { Of.SLWords[0] = "ZZ"; }, Differs},
    {"SLWords, last", " SLWords", [](Fields& Of) { Of.SLWords[1] = "ZZ"; }, Differs},
    {"SLWords, longer", " SLWords", [](Fields& Of) { Of.SLWords.emplace_back("ZZ"); }, Differs},
    {"SLWords, shorter", " SLWords", [](Fields& Of) { Of.SLWords.pop_back(); }, Differs},
    {"vsAllSLSents", " vsAllSLSents", [](Fields& Of) { Of.AltSLSent = "z"; }, Unseen},
    {"SLPOS, first", " Print SLPOS", [](Fields& Of) { Of.SLPOS[0] = "ZZ"; }, DiffersBefore},
    {"SLPOS, last", " Print SLPOS", [](Fields& Of) { Of.SLPOS[2] = "A"; }, DiffersBehind},
    {"SLPOS, longer", " Print SLPOS", [](Fields& Of) { Of.SLPOS.emplace_back("ZZ"); },
     DiffersBehind},
    {"SLPOS, shorter", " Print SLPOS", [](Fields& Of) { Of.SLPOS.pop_back(); }, DiffersBefore},
    {"WordLevelSLPOS", " WordLevelSLPOS", [](Fields& Of) { Of.WordLevelSLPOS[1] = "ZZ"; }, Unseen},
    {"SLPOSFromParse", " SLPOSFromParse", [](Fields& Of) { Of.SLPOSFromParse[0] = "ZZ"; }, Unseen},
    {"TLPOSFromParse", " TLPOSFromParse", [](Fields& Of) { Of.TLPOSFromParse[0] = "ZZ"; }, Unseen},
    {"vvsAllWordLevelSLPOSs", " vvsAllWordLevelSLPOSs",
     [](Fields& Of) { Of.AltWordLevelSLPOS[0] = "ZZ"; }, Unseen},
    {"TLWords, first", " TLWords", [](Fields& Of) { Of.TLWords[0] = "ZZ"; }, Differs},
    {"TLWords, last", " TLWords", [](Fields& Of) { Of.TLWords[1] = "ZZ"; }, Differs},
    {"TLWords, longer", " TLWords", [](Fields& Of) { Of.TLWords.emplace_back("ZZ"); }, Differs},
    {"TLWords, shorter", " TLWords", [](Fields& Of) { Of.TLWords.pop_back(); }, Differs},
    {"vsAllTLSents", " vsAllTLSents", [](Fields& Of) { Of.AltTLSent = "z"; }, Unseen},
    {"TLPOS, first", " Print TLPOS", [](Fields& Of) { Of.TLPOS[0] = "ZZ"; }, DiffersBefore},
    {"TLPOS, last", " Print TLPOS", [](Fields& Of) { Of.TLPOS[2] = "ADI"; }, DiffersBehind},
    {"TLPOS, longer", " Print TLPOS", [](Fields& Of) { Of.TLPOS.emplace_back("ZZ"); },
     DiffersBehind},
    {"TLPOS, shorter", " Print TLPOS", [](Fields& Of) { Of.TLPOS.pop_back(); }, DiffersBefore},
    {"WordLevelTLPOS", " WordLevelTLPOS", [](Fields& Of) { Of.WordLevelTLPOS[1] = "ZZ"; },
     SortsBefore},
    {"vvsAllWordLevelTLPOSs", " vvsAllWordLevelTLPOSs",
     [](Fields& Of) { Of.AltWordLevelTLPOS[0] = "ZZ"; }, Unseen},
    {"AlignmentString", " AlignmentString Print",
     [](Fields& Of) { Of.Alignment = "((1,2),(2,2))"; }, DiffersBefore},
    {"AlignmentString, shorter", " AlignmentString Print",
     [](Fields& Of) { Of.Alignment = "((1,2))"; }, DiffersBehind},
    {"sWordLevelAl", " sWordLevelAl", [](Fields& Of) { Of.WordLevelAl = "((9,9))"; }, Unseen},
    {"vsAllAlignments", " vsAllAlignments", [](Fields& Of) { Of.AltAlignment = "((9,9))"; },
     Unseen},
    {"CStructure", " CStructure", [](Fields& Of) { Of.CStructure = "(Z)"; }, Unseen},
    {"vsAllCStructures", " vsAllCStructures", [](Fields& Of) { Of.AltCStructure = "(Z)"; }, Unseen},
    {"SLType", " Print SLType", [](Fields& Of) { Of.SLType = "ZP"; }, DiffersBefore},
    {"SLType, other case", " Print SLType", [](Fields& Of) { Of.SLType = "Np"; }, DiffersBefore},
    {"TLType", " Print TLType", [](Fields& Of) { Of.TLType = "AP"; }, DiffersBehind},
    {"a constraint's key, first",
     " Constraint Print",
     [](Fields& Of) { Of.vConstraints[0].SetFeatValue("PL"); },
     {false, false, Sorts::After, WalksTo1st}},
    {"a constraint's key, last",
     " Constraint Print",
     [](Fields& Of) { Of.vConstraints[1].SetFeatValue("X9"); },
     {false, false, Sorts::Before, WalksTo2nd}},
    {"a constraint less", " Constraint Print", [](Fields& Of) { Of.vConstraints.pop_back(); },
     DiffersBefore},
    {"a constraint more", " Constraint Print",
     [](Fields& Of) { Of.vConstraints.emplace_back(4, 2, "NUM", "SG", 0, true); }, DiffersBehind},
    {"a constraint's flag", " Constraint Print",
     [](Fields& Of) { Of.vConstraints[1].SetValueConstraint(true); }, SortsBehind},
    {"a constraint's rank", " Constraint",
     [](Fields& Of) { Of.vConstraints[0].SetRankInCategory(0); }, Unseen},
    {"RuleIndex", " Print RuleIndex", [](Fields& Of) { Of.RuleIndex = 18; }, Unseen},
    {"POS", " Print", [](Fields& Of) { Of.Head = ";; note\n{ZP,7}\n"; }, Unseen},
    {"CSet", " CSet", [](Fields& Of) { Of.CSet.insert(9); }, Unseen},
    {"SLWord2Comp", " SLWord2Comp vmiiAllSLWord2Comps", [](Fields& Of) { Of.SLWord2Comp[0] = 9; },
     Unseen},
    {"vmiiAllSLWord2Comps", " vmiiAllSLWord2Comps", [](Fields& Of) { Of.AltSLWord2Comp[5] = 9; },
     Unseen},
    {"TLWord2Comp", " TLWord2Comp vmiiAllTLWord2Comps", [](Fields& Of) { Of.TLWord2Comp[0] = 9; },
     Unseen},
    {"vmiiAllTLWord2Comps", " vmiiAllTLWord2Comps", [](Fields& Of) { Of.AltTLWord2Comp[7] = 9; },
     Unseen},
    {"NumTrExamples, more",
     " NumTrExamples",
     [](Fields& Of) { Of.NumTrExamples = 4; },
     {true, false, Sorts::Nowhere, Stops}},
    {"NumTrExamples, fewer",
     " NumTrExamples",
     [](Fields& Of) { Of.NumTrExamples = -4; },
     {false, true, Sorts::Nowhere, Stops}},
    {"HeadIndex", " HeadIndex", [](Fields& Of) { Of.HeadIndex = 0; }, Unseen},
    {"XHeadIndex", " XHeadIndex", [](Fields& Of) { Of.XHeadIndex = 0; }, Unseen},
    {"YHeadIndex", " YHeadIndex", [](Fields& Of) { Of.YHeadIndex = 0; }, Unseen},
};

/// The output of a call at a debug level.
template <typename CodeT>
Written WrittenAt(int Level, CodeT Code) {
  const DebugLevel Debug(Level);
  return WrittenBy(Code);
}

/// The trace at level 4 of one copy of a rule with an ordered alignment string.
std::string CopyTrace(const std::string& Alignments, const std::string& Ordered) {
  return "In TrRule's copy constructor.\nIn ReorderAlignments, AlignmentString is:" + Alignments +
         "At the end of ReorderAlignments, AlignmentString is:" + Ordered + '\n';
}

/// The messages of one copy of a rule with a malformed alignment string.
std::string CopyMessages(const std::string& Alignments) {
  return "ALIGNMENT string is not in correct format:|" + Alignments +
         "|\nAlignment string is not in correct format:|" + Alignments + "|\n";
}

/// A rule with an alignment string that is not in order, as after a flip.
void FillDisordered(TrRule& Rule) {
  Rule.SetSLPOS("n adj");
  Rule.SetTLPOS("n adj");
  Rule.SetAlignment("((1,2),(2,1))");
  Rule.FlipRuleNoConstraints();
}

/// A rule whose alignment string cannot be ordered.
void FillMalformed(TrRule& Rule, const char* Alignments) {
  Rule.SetSLPOS("n adj");
  Rule.SetTLPOS("n adj");
  WrittenBy([&] { Rule.SetAlignment(Alignments); });
}

const char* const CycleMessage1 =
    "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 order.";
const char* const CycleMessage3and4 =
    "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category3and4 order.";

}  // namespace

// ---- Assignment

TEST(TrRuleAssignment, CopiesAllButTheCommentsAndTheHeaderType) {
  const auto Source = Make();
  TrRule Target;
  ASSERT_EQ(Dump(*Source), "Print:\n;; note\n{QP,17}\n" + BodyPrinted + MadeMembers);
  ASSERT_NE(Dump(Target), Dump(*Source));
  static_assert(std::is_void_v<decltype(Target = *Source)>);
  EXPECT_EQ(WrittenBy([&] { Target = *Source; }), (Written{"", ""}));
  EXPECT_EQ(Dump(Target), "Print:\n{,17}\n" + BodyPrinted + MadeMembers);
}

TEST(TrRuleAssignment, CopiesEachMember) {
  for (const Perturbation& Variant : Perturbations) {
    SCOPED_TRACE(Variant.Name);
    const auto Target = Make();
    const auto Source = Make(Variant.ChangeOne);
    const std::string Before = Dump(*Source);
    ASSERT_EQ(Differing(*Target, *Source), Variant.Differing);
    *Target = *Source;
    const bool IsKept = Variant.Differing == " Print"s;
    EXPECT_EQ(Differing(*Target, *Source), IsKept ? " Print" : "");
    EXPECT_EQ(Differing(*Target, *Make()), IsKept ? "" : Variant.Differing);
    EXPECT_EQ(Dump(*Source), Before);
  }
}

TEST(TrRuleAssignment, ReplacesTheContentsOfTheTarget) {
  const auto Target = Make([](Fields& Of) {
    Of.Head = ";; first\n;; second\n{ZP,1}\n";
    Of.vConstraints.emplace_back(4, 2, "NUM", "SG", 0, true);
  });
  TrRule Empty;
  *Target = Empty;
  EXPECT_EQ(Differing(*Target, Empty), " Print");
  EXPECT_EQ(Printed(*Target), ";; first\n;; second\n{ZP,-1}\n:: [] -> []\n(\n)\n");
}

TEST(TrRuleAssignment, KeepsTheCommentsOfATargetReadFromText) {
  TrRule Target;
  Target.SetTrRuleFromString(";; mine\n{VP,3}\nVP::VP [V] -> [V]\n(X1::Y1)\n");
  TrRule Source;
  ASSERT_TRUE(Source.SetTrRuleFromString(SampleText));
  const std::string Assigned =
      ";; mine\n{VP,8}\nNP::NP [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n"
      "((X0 DET) = X1)\n((X0 MOD) = X2)\n(X0 = X3)\n(Y0 = X0)\n(Y1 = (Y0 DET)\n(Y2 = Y0)\n"
      "(Y3 = (Y0 MOD)\n)\n";
  EXPECT_EQ(WrittenAt(3, [&] { Target = Source; }),
            (Written{"In TrRule's overloaded assignment operator.\n"
                     "Leaving TrRule's overloaded assignment operator, rule is now:" +
                         Assigned,
                     ""}));
  EXPECT_EQ(Printed(Target), Assigned);
  EXPECT_EQ(Printed(Source), SamplePrinted);
}

TEST(TrRuleAssignment, TracesAtLevel3AndItsOneCopyAtLevel4) {
  const std::string Traces[] = {"", "", "",
                                "In TrRule's overloaded assignment operator.\n"
                                "Leaving TrRule's overloaded assignment operator, rule is now:"
                                "{,17}\n" +
                                    BodyPrinted,
                                CopyTrace("((1,2),(2,1))", "((1,2),(2,1))")};
  int Level = 0;
  for (const std::string& Trace : Traces) {
    SCOPED_TRACE(Level);
    const auto Source = Make();
    TrRule Target;
    EXPECT_EQ(WrittenAt(Level++, [&] { Target = *Source; }), (Written{Trace, ""}));
    EXPECT_EQ(Dump(Target), "Print:\n{,17}\n" + BodyPrinted + MadeMembers);
  }
}

TEST(TrRuleAssignment, OrdersTheAlignmentsOfItsCopyOnly) {
  TrRule Source;
  FillDisordered(Source);
  ASSERT_EQ(Source.GetAlignmentStr(), "((2,1),(1,2))");
  TrRule Target;
  EXPECT_EQ(WrittenAt(4, [&] { Target = Source; }),
            (Written{CopyTrace("((2,1),(1,2))", "((1,2),(2,1))"), ""}));
  EXPECT_EQ(Target.GetAlignmentStr(), "((1,2),(2,1))");
  EXPECT_EQ(Source.GetAlignmentStr(), "((2,1),(1,2))");
}

TEST(TrRuleAssignment, NeitherCopiesATemporaryNorOrdersItsAlignments) {
  TrRule Target;
  Target.SetAlignment("((1,1))");
  EXPECT_EQ(WrittenAt(4, [&] { Target = TrRule(); }), (Written{"", ""}));
  EXPECT_EQ(Target.GetAlignmentStr(), "");
}

TEST(TrRuleAssignment, OrdersOnlyTheAlignmentsOnSelfAssignment) {
  const auto Rule = Make();
  const std::string Before = Dump(*Rule);
  const TrRule& Same = *Rule;
  *Rule = Same;
  EXPECT_EQ(Dump(*Rule), Before);
  TrRule Disordered;
  FillDisordered(Disordered);
  TrRule& SameDisordered = Disordered;
  ASSERT_EQ(Disordered.GetAlignmentStr(), "((2,1),(1,2))");
  Disordered = SameDisordered;
  EXPECT_EQ(Disordered.GetAlignmentStr(), "((1,2),(2,1))");
}

TEST(TrRuleAssignment, ReportsMalformedAlignmentsOnceForItsOneCopy) {
  TrRule Target;
  TrRule Source;
  FillMalformed(Target, "(1,1)");
  FillMalformed(Source, "(2,2)");
  EXPECT_EQ(WrittenBy([&] { Target = Source; }), (Written{"", CopyMessages("(2,2)")}));
  EXPECT_EQ(Target.GetAlignmentStr(), "(2,2)");
}

TEST(TrRuleAssignment, EndsTheProcessAtLevel3WhenTheRuleCannotBePrinted) {
  TrRule Source;
  Source.SetConstraint("(x1 = x2)");
  Source.SetConstraint("(x2 = x1)");
  Source.SetRuleIndex(5);
  TrRule Target;
  const auto AssignAt3 = [&] {
    const DebugLevel Debug(3);
    Target = Source;
  };
  const std::string Trace =
      "In TrRule's overloaded assignment operator.\n"
      "Leaving TrRule's overloaded assignment operator, rule is now:{,5}\n:: [] -> []\n(\n";
  EXPECT_EQ(RunInChild(AssignAt3), (ChildEnd{1, Trace, CycleMessage1 + "\n"s}));
  ASSERT_EQ(Target.GetRuleIndex(), -1);
  Target = Source;
  EXPECT_EQ(Target.GetConstraints(), (Strings{"(X1 = X2)", "(X2 = X1)"}));
  EXPECT_EQ(Target.GetRuleIndex(), 5);
}

// ---- Ordering

TEST(TrRuleLess, ComparesWhatTheComparisonTextShows) {
  for (const Perturbation& Variant : Perturbations) {
    SCOPED_TRACE(Variant.Name);
    const auto Left = Make();
    const auto Right = Make(Variant.ChangeOne);
    ASSERT_EQ(Differing(*Left, *Right), Variant.Differing);
    EXPECT_EQ(*Left < *Right, Variant.Result.Order == Sorts::Before);
    EXPECT_EQ(*Right < *Left, Variant.Result.Order == Sorts::After);
  }
}

TEST(TrRuleLess, ComparesTheTextsByteByByte) {
  struct Case {
    std::string First;
    std::string Second;
  };
  const Case Cases[] = {
      {"N", "P"},       {"B", "a"},    {"10", "9"},        {"Z", "\xC3\x89"},
      {"\x7F", "\x80"}, {"A\0"s, "A"}, {"A\0A"s, "A\0B"s}, {"A\r", "A"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.First);
    TrRule First;
    TrRule Second;
    First.SetSLType(Row.First);
    Second.SetSLType(Row.Second);
    const TrRule& ConstFirst = First;
    const TrRule& ConstSecond = Second;
    EXPECT_TRUE(ConstFirst < ConstSecond);
    EXPECT_FALSE(ConstSecond < ConstFirst);
  }
}

TEST(TrRuleLess, SortsAPrefixFirst) {
  TrRule Short;
  TrRule Long;
  Long.SetTLPOS(Strings{"]\n(\n)"});
  ASSERT_EQ(Short.ReturnAsStringForComparison(), ";\n:: [] -> []\n(\n)");
  ASSERT_EQ(Long.ReturnAsStringForComparison(), ";\n:: [] -> []\n(\n)]\n(\n)");
  EXPECT_TRUE(Short < Long);
  EXPECT_FALSE(Long < Short);
}

TEST(TrRuleLess, IsAStrictWeakOrder) {
  std::vector<std::unique_ptr<TrRule>> vRules;
  std::vector<std::string> vsKeys;
  for (const Perturbation& Variant : Perturbations) {
    vRules.push_back(Make(Variant.ChangeOne));
    vsKeys.push_back(vRules.back()->ReturnAsStringForComparison());
  }
  std::sort(vRules.begin(), vRules.end(),
            [](const auto& Left, const auto& Right) { return *Left < *Right; });
  std::sort(vsKeys.begin(), vsKeys.end());
  for (std::size_t Position = 0; Position < vRules.size(); ++Position) {
    SCOPED_TRACE(Position);
    EXPECT_EQ(vRules[Position]->ReturnAsStringForComparison(), vsKeys[Position]);
    EXPECT_FALSE(*vRules[Position] < *vRules[Position]);
    EXPECT_FALSE(*vRules[Position] < *vRules.front() && *vRules.front() < *vRules[Position]);
  }
  EXPECT_TRUE(*vRules.front() < *vRules.back());
}

TEST(TrRuleLess, IgnoresTheOrderOfSettingConstraints) {
  TrRule First;
  TrRule Second;
  First.SetConstraint("(x0 = x3)");
  First.SetConstraint("((y1 num) = sg)");
  Second.SetConstraint("((y1 num) = sg)");
  ASSERT_TRUE(First < Second || Second < First);
  Second.SetConstraint("(x0 = x3)");
  EXPECT_FALSE(First < Second);
  EXPECT_FALSE(Second < First);
}

TEST(TrRuleLess, TracesAtLevel1AndItsThreeCopiesAtLevel4) {
  const std::string One = CopyTrace("((1,2),(2,1))", "((1,2),(2,1))");
  const std::string Other = CopyTrace("((1,2),(2,2))", "((1,2),(2,2))");
  const std::string Traces[] = {"", "In TrRule's overloaded less than operator.\n", "", "",
                                Other + One + Other};
  int Level = 0;
  for (const std::string& Trace : Traces) {
    SCOPED_TRACE(Level);
    const auto Left = Make();
    const auto Right = Make([](Fields& Of) { Of.Alignment = "((1,2),(2,2))"; });
    const std::string LeftBefore = Dump(*Left);
    const std::string RightBefore = Dump(*Right);
    bool IsLess = false;
    EXPECT_EQ(WrittenAt(Level++, [&] { IsLess = *Left < *Right; }), (Written{Trace, ""}));
    EXPECT_TRUE(IsLess);
    EXPECT_EQ(Dump(*Left), LeftBefore);
    EXPECT_EQ(Dump(*Right), RightBefore);
  }
}

TEST(TrRuleLess, OrdersTheAlignmentsOfBothSides) {
  TrRule Disordered;
  TrRule Ordered;
  FillDisordered(Disordered);
  Ordered = Disordered;
  ASSERT_NE(Disordered.GetAlignmentStr(), Ordered.GetAlignmentStr());
  const std::string Disorder = CopyTrace("((2,1),(1,2))", "((1,2),(2,1))");
  const std::string Order = CopyTrace("((1,2),(2,1))", "((1,2),(2,1))");
  bool IsLess = true;
  EXPECT_EQ(WrittenAt(4, [&] { IsLess = Disordered < Ordered; }),
            (Written{Order + Disorder + Order, ""}));
  EXPECT_FALSE(IsLess);
  // The second copy of the other rule is a copy of the first, which is in order.
  EXPECT_EQ(WrittenAt(4, [&] { IsLess = Ordered < Disordered; }),
            (Written{Disorder + Order + Order, ""}));
  EXPECT_FALSE(IsLess);
  EXPECT_EQ(Disordered.GetAlignmentStr(), "((2,1),(1,2))");
}

TEST(TrRuleLess, ReportsMalformedAlignmentsInTheOrderOfItsCopies) {
  TrRule Plain;
  TrRule Left;
  TrRule Right;
  FillMalformed(Left, "(1,1)");
  FillMalformed(Right, "(2,2)");
  const std::string OfLeft = CopyMessages("(1,1)");
  const std::string OfRight = CopyMessages("(2,2)");
  struct Case {
    const TrRule& Left;
    const TrRule& Right;
    std::string Messages;
    bool IsLess;
  };
  const Case Cases[] = {
      {Left, Right, OfRight + OfLeft + OfRight, true},
      {Plain, Right, OfRight + OfRight, false},
      {Left, Plain, OfLeft, true},
      {Plain, Plain, "", false},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Messages);
    bool IsLess = !Row.IsLess;
    EXPECT_EQ(WrittenBy([&] { IsLess = Row.Left < Row.Right; }), (Written{"", Row.Messages}));
    EXPECT_EQ(IsLess, Row.IsLess);
  }
}

TEST(TrRuleLess, EndsTheProcessOnUnorderableConstraintsOfTheOtherRuleFirst) {
  TrRule Plain;
  TrRule Cycle1;
  Cycle1.SetConstraint("(x1 = x2)");
  Cycle1.SetConstraint("(x2 = x1)");
  TrRule Cycle3and4;
  Cycle3and4.SetConstraint("(y1 = y2)");
  Cycle3and4.SetConstraint("(y2 = y1)");
  struct Case {
    const TrRule& Left;
    const TrRule& Right;
    const char* Message;
  };
  const Case Cases[] = {
      {Plain, Cycle1, CycleMessage1},
      {Cycle1, Plain, CycleMessage1},
      {Cycle1, Cycle3and4, CycleMessage3and4},
      {Cycle3and4, Cycle1, CycleMessage1},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Message);
    EXPECT_EQ(RunInChild([&] { static_cast<void>(Row.Left < Row.Right); }),
              (ChildEnd{1, "", Row.Message + "\n"s}));
  }
}

// ---- Equality

TEST(TrRuleEqual, ComparesOnlyWordsLabelsAlignmentsTypesCountsAndKeys) {
  for (const Perturbation& Variant : Perturbations) {
    SCOPED_TRACE(Variant.Name);
    const auto Left = Make();
    const auto Right = Make(Variant.ChangeOne);
    ASSERT_EQ(Differing(*Left, *Right), Variant.Differing);
    EXPECT_EQ(*Left == *Right, Variant.Result.Equals);
    EXPECT_EQ(*Right == *Left, Variant.Result.IsEqualled);
  }
}

TEST(TrRuleEqual, TracesItsStepsAtLevel1) {
  for (const Perturbation& Variant : Perturbations) {
    SCOPED_TRACE(Variant.Name);
    const auto Left = Make();
    const auto Right = Make(Variant.ChangeOne);
    bool IsEqual = !Variant.Result.Equals;
    EXPECT_EQ(WrittenAt(1, [&] { IsEqual = *Left == *Right; }),
              (Written{Variant.Result.Trace, ""}));
    EXPECT_EQ(IsEqual, Variant.Result.Equals);
  }
}

TEST(TrRuleEqual, TracesAtLevel1AndItsOneCopyAtLevel4) {
  const std::string Traces[] = {"", Walks, "", "", CopyTrace("((1,2),(2,1))", "((1,2),(2,1))")};
  int Level = 0;
  for (const std::string& Trace : Traces) {
    SCOPED_TRACE(Level);
    const auto Left = Make();
    const auto Right = Make();
    const std::string Before = Dump(*Left);
    const TrRule& ConstLeft = *Left;
    bool IsEqual = false;
    EXPECT_EQ(WrittenAt(Level++, [&] { IsEqual = ConstLeft == *Right; }), (Written{Trace, ""}));
    EXPECT_TRUE(IsEqual);
    EXPECT_EQ(Dump(*Left), Before);
    EXPECT_EQ(Dump(*Right), Before);
  }
}

TEST(TrRuleEqual, HoldsForACopyAndNeitherSortsFirst) {
  TrRule Sample;
  ASSERT_TRUE(Sample.SetTrRuleFromString(SampleText));
  TrRule Changed(Sample);
  Changed.SetSLType("PP");
  ASSERT_FALSE(Sample == Changed);
  ASSERT_TRUE(Sample < Changed);
  const TrRule Copy(Sample);
  EXPECT_TRUE(Sample == Copy);
  EXPECT_TRUE(Copy == Sample);
  EXPECT_TRUE(Sample == Sample);
  EXPECT_FALSE(Sample < Copy);
  EXPECT_FALSE(Copy < Sample);
}

TEST(TrRuleEqual, ComparesTheLengthsOfSequences) {
  struct Case {
    const char* Name;
    void (*Set)(TrRule& Rule, const Strings& vsTexts);
  };
  const Case Cases[] = {
      {"SLWords", [](TrRule& Rule, const Strings& vsTexts) { Rule.SetSLWords(vsTexts); }},
      {"SLPOS", [](TrRule& Rule, const Strings& vsTexts) { Rule.SetSLPOS(vsTexts); }},
      {"TLWords", [](TrRule& Rule, const Strings& vsTexts) { Rule.SetTLWords(vsTexts); }},
      {"TLPOS", [](TrRule& Rule, const Strings& vsTexts) { Rule.SetTLPOS(vsTexts); }},
  };
  const Strings Sequences[] = {{}, {""}, {"A"}, {"A", ""}, {"A", "B"}, {"AB"}, {"A\0"s}, {"\xE9"}};
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Name);
    for (const Strings& vsLeft : Sequences) {
      for (const Strings& vsRight : Sequences) {
        TrRule Left;
        TrRule Right;
        Row.Set(Left, vsLeft);
        Row.Set(Right, vsRight);
        EXPECT_EQ(Left == Right, &vsLeft == &vsRight);
      }
    }
  }
}

TEST(TrRuleEqual, HoldsForFewerExamplesAndNotForMore) {
  struct Case {
    int Left;
    int Right;
    bool Expected;
  };
  const Case Cases[] = {{2, 1, false}, {1, 2, true}, {1, 1, true}, {-2, -1, true}, {0, -1, false}};
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Left);
    TrRule Left;
    TrRule Right;
    Left.SetNumTrExamples(Row.Left);
    Right.SetNumTrExamples(Row.Right);
    EXPECT_EQ(Left == Right, Row.Expected);
  }
}

TEST(TrRuleEqual, ComparesCountsBeforeConstraints) {
  TrRule Few;
  TrRule Many;
  Few.SetConstraint("((x1 num) = sg)");
  ASSERT_FALSE(Few == Many);
  Many.SetNumTrExamples(2);
  for (const bool FewFirst : {true, false}) {
    bool IsEqual = !FewFirst;
    EXPECT_EQ(WrittenAt(1, [&] { IsEqual = FewFirst ? Few == Many : Many == Few; }),
              (Written{Stops, ""}));
    EXPECT_EQ(IsEqual, FewFirst);
  }
}

TEST(TrRuleEqual, ComparesTypesBeforeCounts) {
  TrRule Few;
  TrRule Many;
  Many.SetNumTrExamples(2);
  ASSERT_TRUE(Few == Many);
  Many.SetTLType("NP");
  EXPECT_FALSE(Few == Many);
}

TEST(TrRuleEqual, ComparesKeysUpToTheFirstDifference) {
  TrRule Left;
  TrRule Right;
  for (TrRule* Rule : {&Left, &Right}) {
    Rule->SetConstraint("((x1 num) = sg)");
    Rule->SetConstraint("(y0 = x0)");
  }
  ASSERT_TRUE(Left == Right);
  Left.SetConstraint("((x2 num) = sg)");
  Right.SetConstraint("((x3 num) = sg)");
  EXPECT_EQ(WrittenAt(1, [&] { static_cast<void>(Left == Right); }),
            (Written{"In overloaded operator==.\nNow comparing constraints.\n"
                     "Comparing:1__1__NUM__SG and 1__1__NUM__SG\n"
                     "Comparing:1__2__NUM__SG and 1__3__NUM__SG\n",
                     ""}));
  EXPECT_FALSE(Left == Right);
}

TEST(TrRuleEqual, ComparesEmptyConstraints) {
  const TrRule Left;
  const TrRule Right;
  bool IsEqual = false;
  EXPECT_EQ(WrittenAt(1, [&] { IsEqual = Left == Right; }),
            (Written{"In overloaded operator==.\nNow comparing constraints.\n", ""}));
  EXPECT_TRUE(IsEqual);
}

TEST(TrRuleEqual, ComparesItsStoredAlignmentsWithOrderedOnes) {
  TrRule Disordered;
  TrRule Ordered;
  FillDisordered(Disordered);
  Ordered = Disordered;
  ASSERT_NE(Disordered.GetAlignmentStr(), Ordered.GetAlignmentStr());
  EXPECT_FALSE(Disordered == Ordered);
  EXPECT_TRUE(Ordered == Disordered);
  EXPECT_FALSE(Disordered == Disordered);
  EXPECT_FALSE(Disordered < Ordered);
  EXPECT_FALSE(Ordered < Disordered);
  EXPECT_EQ(WrittenAt(4, [&] { static_cast<void>(Ordered == Disordered); }),
            (Written{CopyTrace("((2,1),(1,2))", "((1,2),(2,1))"), ""}));
}

TEST(TrRuleEqual, ReportsMalformedAlignmentsOfTheOtherRuleOnly) {
  TrRule Left;
  TrRule Right;
  FillMalformed(Left, "(1,1)");
  FillMalformed(Right, "(2,2)");
  bool IsEqual = true;
  EXPECT_EQ(WrittenBy([&] { IsEqual = Left == Right; }), (Written{"", CopyMessages("(2,2)")}));
  EXPECT_FALSE(IsEqual);
}

TEST(TrRuleEqual, DoesNotOrderConstraints) {
  TrRule Left;
  TrRule Right;
  Left.SetConstraint("(x1 = x2)");
  Right.SetConstraint("(x1 = x2)");
  Left.SetConstraint("(x2 = x1)");
  ASSERT_FALSE(Left == Right);
  Right.SetConstraint("(x2 = x1)");
  EXPECT_TRUE(Left == Right);
}

TEST(TrRuleEqual, IsIndependentOfTheOrdering) {
  const auto Made = Make();
  const auto OtherWords = Make([](Fields& Of) { Of.SLWords = {"A"}; });
  EXPECT_FALSE(*Made == *OtherWords);
  EXPECT_FALSE(*Made < *OtherWords || *OtherWords < *Made);
  const auto OtherWordLevel = Make([](Fields& Of) { Of.WordLevelTLPOS = {"A"}; });
  EXPECT_TRUE(*Made == *OtherWordLevel);
  EXPECT_TRUE(*OtherWordLevel < *Made);
}
