// The five texts of a rule: what `Print` writes and flushes and what the four functions return, in
// pieces and as a whole; that writing changes and traces nothing; when it ends the process; and
// reading and writing a text again.

#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

using std::string_literals::operator""s;

namespace {

/// The five texts of a rule.
struct Forms {
  std::string Print;
  std::string NoConstraints;
  std::string ForPrint;
  std::string AllAlts;
  std::string Comparison;
};

Forms FormsOf(TrRule& Rule) {
  return {Printed(Rule), Rule.ReturnAsStringForPrintNoConstraints(), Rule.ReturnAsStringForPrint(),
          Rule.ReturnAsStringWithAllAlts(), Rule.ReturnAsStringForComparison()};
}

void ExpectForms(TrRule& Rule, const Forms& Expected) {
  const Forms Texts = FormsOf(Rule);
  EXPECT_EQ(Texts.Print, Expected.Print);
  EXPECT_EQ(Texts.NoConstraints, Expected.NoConstraints);
  EXPECT_EQ(Texts.ForPrint, Expected.ForPrint);
  EXPECT_EQ(Texts.AllAlts, Expected.AllAlts);
  EXPECT_EQ(Texts.Comparison, Expected.Comparison);
}

/// The pieces of the texts, for an empty rule.
struct Pieces {
  std::string POS;
  std::string SLType;
  std::string Index = "-1";
  std::string Words = ";;SL:\n;;TL:\n";
  std::string Structure;
  std::string Score = ";;Score:1\n";
  std::string Alternatives;
  std::string Maps = ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n";
  std::string SLLabels = ";;WordLevelSLPOS:\n";
  std::string TLLabels = ";;WordLevelTLPOS:\n";
  std::string Key = ";\n";
  std::string RuleLine = ":: [] -> []\n";
  std::string Alignments;
  std::string Constraints;
};

/// Composes each of the texts from the pieces.
Forms Compose(const Pieces& Rule) {
  const std::string Block = Rule.RuleLine + "(\n" + Rule.Alignments + Rule.Constraints + ")";
  const std::string Start =
      "{" + Rule.SLType + "," + Rule.Index + "}\n" + Rule.Words + Rule.Structure + Rule.Score;
  return {"{" + Rule.POS + "," + Rule.Index + "}\n" + Block + "\n",
          Start + Rule.RuleLine + "(\n" + Rule.Alignments + ")", Start + Block,
          Rule.Alternatives + Rule.Maps + Rule.SLLabels + Rule.TLLabels + Rule.Score + Block,
          Rule.Key + Block};
}

/// A change of an empty rule and the pieces that show it.
struct Change {
  const char* Name;
  void (*Make)(TrRule&);
  void (*Expect)(Pieces&);
};

/// A rule with no empty member.
void Fill(TrRule& Rule) {
  Rule.SetSLWords("the red car");
  Rule.SetTLWords(Strings{"el", "auto's", "\"rojo\""});
  Rule.SetTrRuleFromString(
      ";; c\n{NX,8}\nNP::VP [DET ADJ N] -> [DET \"DE\" N]\n(X1::Y1)\n(X3::Y2)\n"
      "((x1 num) = sg)\n(x0 = x3)\n(y0 = x0)\n(y1 == (y0 det))");
  Rule.SetCStructure("(S)");
  Rule.SetNumTrExamples(12);
  Rule.SetWordLevelSLPOS("A B");
  Rule.SetWordLevelTLPOS("F G");
  Rule.ResetAlterTrInfo();
  Rule.AddAlterTrInfo("sl", "tl", "al", "cs", {{0, 0}, {1, 2}}, {{-1, 7}}, {"h", "i"}, {"j"});
  Rule.SetTLWord2Comp({{10, 3}, {2, 1}});
  Rule.SetSLPOSFromParse("P Q");
  Rule.SetsWordLevelAl("((1,2))");
  Rule.SetCSet({1});
  Rule.SetHeadIndex(1);
  Rule.SetXHeadIndex(2);
  Rule.SetYHeadIndex(3);
}

/// Records what was written to standard output at each flush.
class FlushRecorder : public std::stringbuf {
 public:
  FlushRecorder() : OldOut(std::cout.rdbuf(this)) {}
  ~FlushRecorder() override { std::cout.rdbuf(OldOut); }
  FlushRecorder(const FlushRecorder&) = delete;
  FlushRecorder& operator=(const FlushRecorder&) = delete;

  Strings vsFlushed;

 protected:
  int sync() override {
    vsFlushed.push_back(str());
    str("");
    return 0;
  }

 private:
  std::streambuf* OldOut;
};

/// A rule whose constraints have no order, and the message about it.
struct Unorderable {
  void (*Add)(TrRule&);
  std::string Message;
};

const std::vector<Unorderable> vUnorderables{
    {[](TrRule& Rule) { Rule.SetConstraint("(x0 = sg)"); },
     "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint "
     "(X0 = SG)\n"},
    {[](TrRule& Rule) {
       Rule.SetConstraint("((x1 num) = (x2 num))");
       Rule.SetConstraint("((x2 num) = (x1 num))");
     },
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 order.\n"},
    {[](TrRule& Rule) {
       Rule.SetConstraint("(y1 = y2)");
       Rule.SetConstraint("(y2 = y0)");
       Rule.SetConstraint("(y0 = y1)");
     },
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category3and4 order.\n"}};

/// The writers that order constraints.
struct Writer {
  const char* Name;
  void (*Write)(TrRule&);
  std::string Out;
};

const std::vector<Writer> vOrderingWriters{
    {"Print", [](TrRule& Rule) { Rule.Print(); }, "{,-1}\n:: [A] -> [B]\n(\n(X1::Y1)\n"},
    {"ForPrint", [](TrRule& Rule) { Rule.ReturnAsStringForPrint(); }, ""},
    {"AllAlts", [](TrRule& Rule) { Rule.ReturnAsStringWithAllAlts(); }, ""},
    {"Comparison", [](TrRule& Rule) { Rule.ReturnAsStringForComparison(); }, ""},
    {"less", [](TrRule& Rule) { static_cast<void>(Rule < TrRule()); }, ""}};

/// The printed form of a rule that was read from a text.
std::string Reprinted(const std::string& Text) {
  TrRule Rule;
  EXPECT_TRUE(Rule.SetTrRuleFromString(Text));
  return Printed(Rule);
}

}  // namespace

// ---- Whole texts ------------------------------------------------------------------------------

TEST(TrRuleWriters, WriteAnEmptyRule) {
  TrRule Rule;
  ExpectForms(Rule,
              {"{,-1}\n:: [] -> []\n(\n)\n", "{,-1}\n;;SL:\n;;TL:\n;;Score:1\n:: [] -> []\n(\n)",
               "{,-1}\n;;SL:\n;;TL:\n;;Score:1\n:: [] -> []\n(\n)",
               ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\n"
               ";;WordLevelTLPOS:\n;;Score:1\n:: [] -> []\n(\n)",
               ";\n:: [] -> []\n(\n)"});
}

TEST(TrRuleWriters, WriteTheSample) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  const std::string Start = "{NP,8}\n;;SL:\n;;TL:\n;;Score:1\n";
  const std::string Open = "NP::NP [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n";
  const std::string Block = Open +
                            "((X0 DET) = X1)\n((X0 MOD) = X2)\n(X0 = X3)\n(Y0 = X0)\n"
                            "(Y1 = (Y0 DET)\n(Y2 = Y0)\n(Y3 = (Y0 MOD)\n)";
  ExpectForms(Rule, {SamplePrinted, Start + Open + ")", Start + Block,
                     ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\tDET\tADJ\tN\n"
                     ";;WordLevelTLPOS:\tDET\tN\tADJ\n;;Score:1\n" +
                         Block,
                     ";DET N ADJ \n" + Block});
}

TEST(TrRuleWriters, WriteAFilledRule) {
  TrRule Rule;
  Fill(Rule);
  const std::string Start =
      "{NP,8}\n;;SL: THE RED CAR\n;;TL: EL AUTO\\'S \\\"ROJO\\\"\n;;C-Structure:(S)\n"
      ";;Score:12\n";
  const std::string Open = "NP::VP [DET ADJ N] -> [DET \"DE\" N]\n(\n(X1::Y1)\n;--;(X3::Y2)\n";
  const std::string Block = Open + "((X1 NUM) = SG)\n(X0 = X3)\n(Y0 = X0)\n(Y1 = (Y0 DET)\n)";
  ExpectForms(Rule, {";; c\n{NX,8}\n" + Block + "\n", Start + Open + ")", Start + Block,
                     ";;SL_alt:THE RED CAR\n;;TL_alt:EL AUTO\\'S \\\"ROJO\\\"\n"
                     ";;Alignment_alt:((1,1),(3,2))\n;;CStructure_alt:(S)\n"
                     ";;SLWord2Comp_alt:\t0->0,\t1->1,\t2->2,\n;;TLWord2Comp_alt:\t2->1,\t10->3,\n"
                     ";;WordLevelSLPOS_alt:\tA\tB\n;;WordLevelTLPOS_alt:\tF\tG\n"
                     ";;SL_alt:sl\n;;TL_alt:tl\n;;Alignment_alt:al\n;;CStructure_alt:cs\n"
                     ";;SLWord2Comp_alt:\t0->0,\t1->2,\n;;TLWord2Comp_alt:\t-1->7,\n"
                     ";;WordLevelSLPOS_alt:\th\ti\n;;WordLevelTLPOS_alt:\tj\n"
                     ";;SLWord2Comp:\t0->0,\t1->1,\t2->2,\n;;TLWord2Comp_alt:\t2->1,\t10->3,\n"
                     ";;WordLevelSLPOS:\tA\tB\n;;WordLevelTLPOS:\tF\tG\n;;Score:12\n" +
                         Block,
                     ";F G \n" + Block});
}

// ---- Pieces -----------------------------------------------------------------------------------

TEST(TrRuleWriters, ShowEachMemberOnlyInItsPlace) {
  const std::vector<Change> vChanges{
      {"nothing", [](TrRule&) {}, [](Pieces&) {}},
      {"RuleIndex", [](TrRule& R) { R.SetRuleIndex(120); }, [](Pieces& P) { P.Index = "120"; }},
      {"zero", [](TrRule& R) { R.SetRuleIndex(0); }, [](Pieces& P) { P.Index = "0"; }},
      {"least", [](TrRule& R) { R.SetRuleIndex(std::numeric_limits<int>::min()); },
       [](Pieces& P) { P.Index = "-2147483648"; }},
      {"SLType", [](TrRule& R) { R.SetSLType("adjp"); },
       [](Pieces& P) {
         P.SLType = "adjp";
         P.RuleLine = "adjp:: [] -> []\n";
       }},
      {"TLType", [](TrRule& R) { R.SetTLType("VP"); },
       [](Pieces& P) { P.RuleLine = "::VP [] -> []\n"; }},
      {"SLWords", [](TrRule& R) { R.SetSLWords("I see"); },
       [](Pieces& P) { P.Words = ";;SL: I SEE\n;;TL:\n"; }},
      {"SLWords with an empty word",
       [](TrRule& R) {
         R.SetSLWords(Strings{"", "a'\"", ""});
       },
       [](Pieces& P) { P.Words = ";;SL:  A'\" \n;;TL:\n"; }},
      {"TLWords", [](TrRule& R) { R.SetTLWords("l'auto"); },
       [](Pieces& P) { P.Words = ";;SL:\n;;TL: L'AUTO\n"; }},
      {"TLWords with quotes",
       [](TrRule& R) {
         R.SetTLWords(Strings{"l'auto", "\""});
       },
       [](Pieces& P) { P.Words = ";;SL:\n;;TL: L\\'AUTO \\\"\n"; }},
      {"CStructure", [](TrRule& R) { R.SetCStructure("(S x)"); },
       [](Pieces& P) { P.Structure = ";;C-Structure:(S x)\n"; }},
      {"CStructure of a blank", [](TrRule& R) { R.SetCStructure(" "); },
       [](Pieces& P) { P.Structure = ";;C-Structure: \n"; }},
      {"CStructure of nothing", [](TrRule& R) { R.SetCStructure(""); }, [](Pieces&) {}},
      {"NumTrExamples", [](TrRule& R) { R.SetNumTrExamples(-30); },
       [](Pieces& P) { P.Score = ";;Score:-30\n"; }},
      {"SLPOS", [](TrRule& R) { R.SetSLPOS("det n"); },
       [](Pieces& P) { P.RuleLine = ":: [DET N] -> []\n"; }},
      {"TLPOS", [](TrRule& R) { R.SetTLPOS("n det x"); },
       [](Pieces& P) { P.RuleLine = ":: [] -> [N DET X]\n"; }},
      {"empty labels",
       [](TrRule& R) {
         R.SetSLPOS(Strings{"", "a", ""});
       },
       [](Pieces& P) { P.RuleLine = ":: [ A ] -> []\n"; }},
      {"WordLevelSLPOS", [](TrRule& R) { R.SetWordLevelSLPOS("det n"); },
       [](Pieces& P) { P.SLLabels = ";;WordLevelSLPOS:\tDET\tN\n"; }},
      {"WordLevelTLPOS", [](TrRule& R) { R.SetWordLevelTLPOS("det n"); },
       [](Pieces& P) {
         P.TLLabels = ";;WordLevelTLPOS:\tDET\tN\n";
         P.Key = ";DET N \n";
       }},
      {"empty word-level label", [](TrRule& R) { R.SetWordLevelTLPOS(Strings{""}); },
       [](Pieces& P) {
         P.TLLabels = ";;WordLevelTLPOS:\t\n";
         P.Key = "; \n";
       }},
      {"SLWord2Comp",
       [](TrRule& R) {
         R.SetSLWord2Comp({{10, -2}, {-1, 0}, {3, 7}});
       },
       [](Pieces& P) { P.Maps = ";;SLWord2Comp:\t-1->0,\t3->7,\t10->-2,\n;;TLWord2Comp_alt:\n"; }},
      {"TLWord2Comp",
       [](TrRule& R) {
         R.SetTLWord2Comp({{0, 1}});
       },
       [](Pieces& P) { P.Maps = ";;SLWord2Comp:\n;;TLWord2Comp_alt:\t0->1,\n"; }},
      {"AlignmentString",
       [](TrRule& R) {
         R.SetSLPOS("\"a\" b");
         R.SetTLPOS("c \"d\"");
         R.SetAlignment("((2,1),(1,1),(2,2))");
       },
       [](Pieces& P) {
         P.RuleLine = ":: [\"A\" B] -> [C \"D\"]\n";
         P.Alignments = ";--;(X1::Y1)\n(X2::Y1)\n;--;(X2::Y2)\n";
       }},
      {"one alternative",
       [](TrRule& R) {
         R.AddAlterTrInfo("s", "t", "a", "c", {{0, 1}}, {{2, 3}}, {"p"}, {"q"});
       },
       [](Pieces& P) {
         P.Alternatives =
             ";;SL_alt:s\n;;TL_alt:t\n;;Alignment_alt:a\n;;CStructure_alt:c\n"
             ";;SLWord2Comp_alt:\t0->1,\n;;TLWord2Comp_alt:\t2->3,\n"
             ";;WordLevelSLPOS_alt:\tp\n;;WordLevelTLPOS_alt:\tq\n";
       }},
      {"two empty alternatives",
       [](TrRule& R) {
         R.AddAlterTrInfo();
         R.AddAlterTrInfo();
       },
       [](Pieces& P) {
         const std::string One =
             ";;SL_alt:\n;;TL_alt:\n;;Alignment_alt:\n;;CStructure_alt:\n"
             ";;SLWord2Comp_alt:\n;;TLWord2Comp_alt:\n"
             ";;WordLevelSLPOS_alt:\n;;WordLevelTLPOS_alt:\n";
         P.Alternatives = One + One;
       }},
      {"value constraint", [](TrRule& R) { R.SetConstraint(1, "agr gen", "Sg", "", 0, 4); },
       [](Pieces& P) { P.Constraints = "((Y1 agr gen) = Sg)\n"; }},
      {"agreement constraints",
       [](TrRule& R) {
         R.SetConstraint("(y1 = y0)");
         R.SetConstraint("(y0 = x0)");
         R.SetConstraint("(x1 = x2)");
         R.SetConstraint("(x2 = x3)");
       },
       [](Pieces& P) { P.Constraints = "(X2 = X3)\n(X1 = X2)\n(Y0 = X0)\n(Y1 = Y0)\n"; }},
      {"category 2 cycle",
       [](TrRule& R) {
         R.SetConstraint("((y2 num) = (x1 num))");
         R.SetConstraint("((y1 num) = (x2 num))");
       },
       [](Pieces& P) { P.Constraints = "((Y1 NUM) = (X2 NUM))\n((Y2 NUM) = (X1 NUM))\n"; }},
      {"SLPOSFromParse", [](TrRule& R) { R.SetSLPOSFromParse("a"); }, [](Pieces&) {}},
      {"sWordLevelAl", [](TrRule& R) { R.SetsWordLevelAl("((1,1))"); }, [](Pieces&) {}},
      {"CSet", [](TrRule& R) { R.AddToCSet(1); }, [](Pieces&) {}},
      {"HeadIndex", [](TrRule& R) { R.SetHeadIndex(1); }, [](Pieces&) {}},
      {"XHeadIndex", [](TrRule& R) { R.SetXHeadIndex(1); }, [](Pieces&) {}},
      {"YHeadIndex", [](TrRule& R) { R.SetYHeadIndex(1); }, [](Pieces&) {}},
  };
  for (const Change& Variant : vChanges) {
    SCOPED_TRACE(Variant.Name);
    TrRule Rule;
    Variant.Make(Rule);
    Pieces Expected;
    Variant.Expect(Expected);
    ExpectForms(Rule, Compose(Expected));
  }
}

TEST(TrRuleWriters, PrintReadCommentsAndHeaderTypes) {
  TrRule Rule;
  EXPECT_TRUE(Rule.SetTrRuleFromString(" ;; b \n;;a\n;; b\n{AX,7}\nY::Z [\"B\"] -> [C]\n(X1::Y1)"));
  Pieces Expected;
  Expected.POS = "AX";
  Expected.SLType = "Y";
  Expected.Index = "7";
  Expected.SLLabels = ";;WordLevelSLPOS:\t\"B\"\n";
  Expected.TLLabels = ";;WordLevelTLPOS:\tC\n";
  Expected.Key = ";C \n";
  Expected.RuleLine = "Y::Z [\"B\"] -> [C]\n";
  Expected.Alignments = ";--;(X1::Y1)\n";
  Forms Texts = Compose(Expected);
  Texts.Print = " ;; b \n;;a\n;; b\n" + Texts.Print;
  ExpectForms(Rule, Texts);
}

TEST(TrRuleWriters, EscapeNothing) {
  const std::string Any = "\0\xFF\"'\\\t\n[] "s;
  TrRule Rule;
  Rule.SetSLType(Any);
  Rule.SetTLType(Any);
  Rule.SetSLWords(Strings{Any});
  Rule.SetCStructure(Any);
  Rule.SetSLPOS(Strings{Any});
  Rule.SetTLPOS(Strings{Any});
  Rule.SetWordLevelSLPOS(Strings{Any});
  Rule.SetWordLevelTLPOS(Strings{Any});
  Rule.AddAlterTrInfo(Any, Any, Any, Any, {}, {}, {Any}, {Any});
  Rule.SetConstraint(4, 1, Any, Any, -1, true);
  Pieces Expected;
  Expected.SLType = Any;
  Expected.RuleLine = Any + "::" + Any + " [" + Any + "] -> [" + Any + "]\n";
  Expected.Words = ";;SL: " + Any + "\n;;TL:\n";
  Expected.Structure = ";;C-Structure:" + Any + "\n";
  Expected.Maps = ";;SLWord2Comp:\t0->0,\n;;TLWord2Comp_alt:\n";
  Expected.SLLabels = ";;WordLevelSLPOS:\t" + Any + "\n";
  Expected.TLLabels = ";;WordLevelTLPOS:\t" + Any + "\n";
  Expected.Key = ";" + Any + " \n";
  Expected.Alternatives = ";;SL_alt:" + Any + "\n;;TL_alt:" + Any + "\n;;Alignment_alt:" + Any +
                          "\n;;CStructure_alt:" + Any +
                          "\n;;SLWord2Comp_alt:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS_alt:\t" +
                          Any + "\n;;WordLevelTLPOS_alt:\t" + Any + "\n";
  Expected.Constraints = "((Y1 " + Any + ") = " + Any + ")\n";
  ExpectForms(Rule, Compose(Expected));
}

TEST(TrRuleWriters, PrintACopyWithoutCommentsAndHeaderType) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  TrRule Copy(Rule);
  const std::string Rest = SamplePrinted.substr(SamplePrinted.find("{NP") + 3);
  EXPECT_NE(Printed(Copy), Printed(Rule));
  EXPECT_EQ(Printed(Copy), "{" + Rest);
  EXPECT_EQ(Copy.ReturnAsStringForPrint(), Rule.ReturnAsStringForPrint());
}

// ---- Alternatives -----------------------------------------------------------------------------

TEST(TrRuleWriters, CountAlternativesByTheirSourceSentences) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString("A::B [C] -> [D]\n(X1::Y1)"));
  Rule.SetSLWord2Comp({{5, 6}});
  const std::string Own =
      ";;SLWord2Comp:\t5->6,\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\tC\n;;WordLevelTLPOS:\tD\n"
      ";;Score:1\nA::B [C] -> [D]\n(\n(X1::Y1)\n)";
  EXPECT_EQ(Rule.ReturnAsStringWithAllAlts(), Own);
  // The first alternative is paired with the existing first alignments and map.
  Rule.AddAlterTrInfo("s", "t", "a", "c", {{0, 1}}, {{2, 3}}, {"p"}, {"q"});
  EXPECT_EQ(Rule.ReturnAsStringWithAllAlts(),
            ";;SL_alt:s\n;;TL_alt:t\n;;Alignment_alt:((1,1))\n;;CStructure_alt:c\n"
            ";;SLWord2Comp_alt:\t5->6,\n;;TLWord2Comp_alt:\t2->3,\n;;WordLevelSLPOS_alt:\tp\n"
            ";;WordLevelTLPOS_alt:\tq\n" +
                Own);
}

// ---- Comparison text --------------------------------------------------------------------------

TEST(TrRuleWriters, WriteOneComparisonTextForRulesThatDifferElsewhere) {
  TrRule Plain;
  TrRule Filled;
  const std::string Text = "A::B [C] -> [D]\n(X1::Y1)\n(x1 = x2)\n((x1 num) = sg)\n(y0 = x0)";
  ASSERT_TRUE(Plain.SetTrRuleFromString(Text));
  ASSERT_TRUE(Filled.SetTrRuleFromString(";; c\n{NP,8}\n" + Text));
  Filled.SetSLWords("a b");
  Filled.SetTLWords("c d");
  Filled.SetCStructure("(S)");
  Filled.SetNumTrExamples(9);
  Filled.SetWordLevelSLPOS("P Q");
  Filled.AddAlterTrInfo();
  Filled.SetSLWord2Comp({{0, 1}});
  Filled.SetTLWord2Comp({{0, 1}});
  EXPECT_NE(Filled.ReturnAsStringForPrint(), Plain.ReturnAsStringForPrint());
  EXPECT_NE(Filled.ReturnAsStringWithAllAlts(), Plain.ReturnAsStringWithAllAlts());
  EXPECT_EQ(Filled.ReturnAsStringForComparison(), Plain.ReturnAsStringForComparison());
  EXPECT_EQ(Plain.ReturnAsStringForComparison(),
            ";D \nA::B [C] -> [D]\n(\n(X1::Y1)\n((X1 NUM) = SG)\n(X1 = X2)\n(Y0 = X0)\n)");
}

TEST(TrRuleWriters, WriteDifferentComparisonTextsForRulesThatDifferInThem) {
  const auto TextOf = [](void (*Make)(TrRule&)) {
    TrRule Rule;
    Rule.SetTrRuleFromString("A::B [C] -> [D]\n(X1::Y1)\n((x1 num) = sg)");
    Make(Rule);
    return Rule.ReturnAsStringForComparison();
  };
  const std::string Text = TextOf([](TrRule&) {});
  const std::vector<void (*)(TrRule&)> vChanges{
      [](TrRule& R) { R.SetSLType("Z"); },         [](TrRule& R) { R.SetTLType("Z"); },
      [](TrRule& R) { R.SetSLPOS("Z"); },          [](TrRule& R) { R.SetTLPOS("Z"); },
      [](TrRule& R) { R.SetWordLevelTLPOS("Z"); }, [](TrRule& R) { R.SetAlignment(""); },
      [](TrRule& R) { R.ClearConstraints(); },     [](TrRule& R) { R.SetConstraint("(y0 = x0)"); }};
  for (std::size_t Number = 0; Number < vChanges.size(); ++Number) {
    SCOPED_TRACE(Number);
    EXPECT_NE(TextOf(vChanges[Number]), Text);
  }
  EXPECT_EQ(TextOf([](TrRule& R) { R.SetWordLevelSLPOS("Z"); }), Text);
}

TEST(TrRuleWriters, WriteConstraintsInOneOrder) {
  Strings vsConstraints{"((x0 det) = x1)", "(x0 = x3)", "(y0 = x0)", "(y1 == (y0 det))",
                        "((y1 num) = (x1 num))"};
  for (std::size_t Turn = 0; Turn < vsConstraints.size(); ++Turn) {
    TrRule Rule;
    for (const std::string& sConstraint : vsConstraints) {
      Rule.SetConstraint(sConstraint);
    }
    Pieces Ordered;
    Ordered.Constraints =
        "((X0 DET) = X1)\n(X0 = X3)\n((Y1 NUM) = (X1 NUM))\n(Y0 = X0)\n(Y1 = (Y0 DET)\n";
    ExpectForms(Rule, Compose(Ordered));
    vsConstraints.push_back(vsConstraints.front());
    vsConstraints.erase(vsConstraints.begin());
  }
}

// ---- Streams ----------------------------------------------------------------------------------

TEST(TrRuleWriters, FlushEachPrintedLine) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(
      ";; a\n;; b\n{NP,8}\nA::B [C] -> [D E]\n(X1::Y1)\n(X1::Y2)\n(x0 = x3)\n((x1 num) = sg)"));
  FlushRecorder Recorder;
  Rule.Print();
  EXPECT_EQ(Recorder.vsFlushed,
            (Strings{";; a\n", ";; b\n", "{NP,8}\nA::B [C] -> [D E]\n", "(\n", "(X1::Y1)\n",
                     "(X1::Y2)\n", "((X1 NUM) = SG)\n", "(X0 = X3)\n", ")\n"}));
  EXPECT_EQ(Recorder.str(), "");
}

TEST(TrRuleWriters, PrintNothingElseAtAnyLevel) {
  TrRule Rule;
  Fill(Rule);
  const Forms Texts = FormsOf(Rule);
  for (const int Level : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(Level);
    const DebugLevel Set(Level);
    ExpectForms(Rule, Texts);
    EXPECT_EQ(WrittenBy([&] { Rule.Print(); }), (Written{Texts.Print, ""}));
    EXPECT_EQ(WrittenBy([&] {
                Rule.ReturnAsStringForPrintNoConstraints();
                Rule.ReturnAsStringForPrint();
                Rule.ReturnAsStringWithAllAlts();
                Rule.ReturnAsStringForComparison();
              }),
              (Written{"", ""}));
  }
}

TEST(TrRuleWriters, ChangeNothing) {
  TrRule Rule;
  TrRule Written;
  Fill(Rule);
  Fill(Written);
  TrRule Empty;
  ASSERT_NE(Dump(Written), Dump(Empty));
  FormsOf(Written);
  const Forms Again = FormsOf(Written);
  EXPECT_EQ(Dump(Written), Dump(Rule));
  ExpectForms(Rule, Again);
}

TEST(TrRuleWriters, AreConstOnlyWithoutConstraints) {
  static_assert(std::is_same_v<void (TrRule::*)(), decltype(&TrRule::Print)>);
  static_assert(std::is_same_v<std::string (TrRule::*)() const,
                               decltype(&TrRule::ReturnAsStringForPrintNoConstraints)>);
  static_assert(
      std::is_same_v<std::string (TrRule::*)(), decltype(&TrRule::ReturnAsStringForPrint)>);
  static_assert(
      std::is_same_v<std::string (TrRule::*)(), decltype(&TrRule::ReturnAsStringWithAllAlts)>);
  static_assert(
      std::is_same_v<std::string (TrRule::*)(), decltype(&TrRule::ReturnAsStringForComparison)>);
  const TrRule Rule;
  EXPECT_EQ(Rule.ReturnAsStringForPrintNoConstraints(),
            "{,-1}\n;;SL:\n;;TL:\n;;Score:1\n:: [] -> []\n(\n)");
}

TEST(TrRuleWriters, ListAlignmentsOnceWithTheirMessages) {
  TrRule Rule;
  Rule.SetAlignment("((1,0))");
  const std::string Messages =
      "TrRule::IsLexicalized called with invalid x index:1, where there are 0 indices.\n"
      "TrRule::IsLexicalized called with invalid y index:0, where there are 0 indices.\n";
  const auto Errors = [&](auto Write) { return WrittenBy([&] { Write(); }); };
  EXPECT_EQ(Errors([&] { Rule.Print(); }),
            (Written{"{,-1}\n:: [] -> []\n(\n(X1::Y0)\n)\n", Messages}));
  EXPECT_EQ(Errors([&] { Rule.ReturnAsStringForPrintNoConstraints(); }), (Written{"", Messages}));
  EXPECT_EQ(Errors([&] { Rule.ReturnAsStringForPrint(); }), (Written{"", Messages}));
  EXPECT_EQ(Errors([&] { Rule.ReturnAsStringWithAllAlts(); }), (Written{"", Messages}));
  EXPECT_EQ(Errors([&] { Rule.ReturnAsStringForComparison(); }), (Written{"", Messages}));
}

// ---- Ending the process ----------------------------------------------------------------------

TEST(TrRuleWriters, EndTheProcessOnUnorderableConstraints) {
  for (const Unorderable& Example : vUnorderables) {
    for (const Writer& Form : vOrderingWriters) {
      SCOPED_TRACE(Form.Name + (": " + Example.Message));
      const ChildEnd End = RunInChild([&] {
        TrRule Rule;
        Rule.SetSLPOS("a");
        Rule.SetTLPOS("b");
        Rule.SetAlignment("((1,1))");
        Example.Add(Rule);
        Form.Write(Rule);
      });
      EXPECT_EQ(End, (ChildEnd{1, Form.Out, Example.Message}));
    }
  }
}

TEST(TrRuleWriters, ListAlignmentsBeforeTheyOrderConstraints) {
  const std::string Messages =
      "TrRule::IsLexicalized called with invalid x index:2, where there are 1 indices.\n";
  for (const Writer& Form : vOrderingWriters) {
    SCOPED_TRACE(Form.Name);
    const std::string Out = Form.Out.empty() ? "" : Form.Out + "(X2::Y1)\n";
    const ChildEnd End = RunInChild([&] {
      TrRule Rule;
      Rule.SetSLPOS("a");
      Rule.SetTLPOS("b");
      Rule.SetAlignment("((1,1),(2,1))");
      vUnorderables.front().Add(Rule);
      Form.Write(Rule);
    });
    EXPECT_EQ(End, (ChildEnd{1, Out, Messages + vUnorderables.front().Message}));
  }
}

TEST(TrRuleWriters, WriteARuleWithoutItsUnorderableConstraints) {
  for (const Unorderable& Example : vUnorderables) {
    SCOPED_TRACE(Example.Message);
    TrRule Rule;
    Example.Add(Rule);
    std::string Text;
    EXPECT_EQ(WrittenBy([&] { Text = Rule.ReturnAsStringForPrintNoConstraints(); }),
              (Written{"", ""}));
    EXPECT_EQ(Text, Compose({}).NoConstraints);
  }
}

// ---- Reading written texts --------------------------------------------------------------------

TEST(TrRuleWriters, PrintAPrintedRuleUnchanged) {
  for (
      const std::string& sText : {
          SamplePrinted,
          "{,1}\nA::B [C] -> [D]\n(\n(X1::Y1)\n)\n"s,
          "{NP,1}\na::b [\"C\" D] -> [D]\n(\n;--;(X1::Y1)\n(X2::Y1)\n)\n"s,
          "{A,0}\nA::B []] -> []]\n(\n(X1::Y1)\n)\n"s,
          "{A,0}\nA::B [C] -> [D]\n(\n(X1::Y1)\n((X1 NUM) = (*NOT* SG)\n"
          "((X2 NUM) = (*OR* SG PL))\n((X2 AGRGEN) = (X3 AGRGEN))\n"
          "((Y1 NUM) = (X1 NUM))\n(Y0 = X0)\n((Y2 NUM) = (Y3 NUM))\n(Y1 = (Y0 DET)\n)\n"s,
          ";; (X2::Y1)\n;; {B,9}\n{B,9}\nA::B [C D] -> [D]\n(\n(X1::Y1)\n(X2::Y1)\n)\n"s,
          ";; \0\xFF\n{\0\xC3,8}\n\xC3\x84::B [\0] -> [\xFF]\n(\n(X1::Y1)\n((X1 \xE4) = \x80)\n)\n"s,
      }) {
    EXPECT_EQ(Reprinted(sText), sText);
  }
}

TEST(TrRuleWriters, PrintAStableTextAfterTheFirstReading) {
  struct Rewriting {
    const char* What;
    std::string Before;
    std::string After;
  };
  const std::string Rule = "A::B [C] -> [D]\n(\n(X1::Y1)\n";
  const std::vector<Rewriting> vRewritings{
      {"no number", "{,-1}\n" + Rule + ")\n", "{,1}\n" + Rule + ")\n"},
      {"long number", "{NP,128}\n" + Rule + ")\n", "{NP,8}\n" + Rule + ")\n"},
      {"long type", "{ADJP,8}\n" + Rule + ")\n", "{AD,8}\n" + Rule + ")\n"},
      {"no labels", "{A,8}\nA::B [] -> []\n(\n(X1::Y1)\n)\n",
       "{A,8}\nA::B []] -> []]\n(\n(X1::Y1)\n)\n"},
      {"small letters", "{A,8}\n" + Rule + "((Y1 num) = sg)\n)\n",
       "{A,8}\n" + Rule + "((Y1 NUM) = SG)\n)\n"},
      {"two words", "{A,8}\n" + Rule + "((Y3 AGR GEN) = (Y2 AGR GEN))\n)\n",
       "{A,8}\n" + Rule + "((Y3 AGRGEN) = (Y2 AGRGEN))\n)\n"},
      {"two signs", "{A,8}\n" + Rule + "(Y1 == (Y0 DET))\n)\n",
       "{A,8}\n" + Rule + "(Y1 = (Y0 DET)\n)\n"},
      {"other order", "{A,8}\n" + Rule + "((Y0 NUM) = SG)\n((Y1 TENSE) = NEXT)\n)\n",
       "{A,8}\n" + Rule + "((Y1 TENSE) = NEXT)\n((Y0 NUM) = SG)\n)\n"}};
  for (const Rewriting& Example : vRewritings) {
    SCOPED_TRACE(Example.What);
    ASSERT_NE(Example.Before, Example.After);
    EXPECT_EQ(Reprinted(Example.Before), Example.After);
    EXPECT_EQ(Reprinted(Example.After), Example.After);
  }
}

TEST(TrRuleWriters, PrintRulesThatTheReaderRejects) {
  struct Refusal {
    std::string Text;
    std::string Err;
  };
  const std::vector<Refusal> vRefusals{
      {"{,-1}\n:: [] -> []\n(\n)\n",
       "Error in SetTrRuleFromStr: missing or incorrect type information.\n"},
      {"{,8}\nA:: [C] -> [D]\n(\n(X1::Y1)\n)\n",
       "Error in SetTrRuleFromStr: missing or incorrect type information.\n"},
      {"{,8}\nA::B [C] -> [D]\n(\n)\n",
       "Error in SetTrRuleFromStr: Couldn't set rule -- something missing.\n"}};
  for (const Refusal& Example : vRefusals) {
    TrRule Rule;
    EXPECT_EQ(WrittenBy([&] { EXPECT_FALSE(Rule.SetTrRuleFromString(Example.Text)); }),
              (Written{"", Example.Err}));
  }
}

TEST(TrRuleWriters, WriteExtraLinesThatTheReaderKeepsAsComments) {
  TrRule Rule;
  Fill(Rule);
  const std::string Block = "NP::VP [DET ADJ N] -> [DET \"DE\" N]\n(\n(X1::Y1)\n;--;(X3::Y2)\n";
  const std::string Rest = "((X1 NUM) = SG)\n(X0 = X3)\n(Y0 = X0)\n(Y1 = (Y0 DET)\n)\n";
  const std::string Extra =
      ";;SL: THE RED CAR\n;;TL: EL AUTO\\'S \\\"ROJO\\\"\n;;C-Structure:(S)\n;;Score:12\n";
  EXPECT_EQ(Reprinted(Rule.ReturnAsStringForPrint()), Extra + "{NP,8}\n" + Block + Rest);
  EXPECT_EQ(Reprinted(Rule.ReturnAsStringForPrintNoConstraints()),
            Extra + "{NP,8}\n" + Block + ")\n");
  const std::string AllAlts = Rule.ReturnAsStringWithAllAlts();
  EXPECT_EQ(Reprinted(AllAlts),
            AllAlts.substr(0, AllAlts.find("NP::VP")) + "{,-1}\n" + Block + Rest);
  EXPECT_EQ(Reprinted(Rule.ReturnAsStringForComparison()), "{,-1}\n" + Block + Rest);
  TrRule Other;
  ASSERT_TRUE(Other.SetTrRuleFromString(AllAlts));
  EXPECT_EQ(Other.ReturnAsStringWithAllAlts(),
            ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\tDET\tADJ\tN\n"
            ";;WordLevelTLPOS:\tDET\t\"DE\"\tN\n;;Score:1\n" +
                Block + Rest.substr(0, Rest.size() - 1));
  EXPECT_EQ(Other.ReturnAsStringForPrintNoConstraints(),
            "{NP,-1}\n;;SL:\n;;TL:\n;;Score:1\n" + Block + ")");
}

TEST(TrRuleWriters, WriteExtraLinesThatTheReaderReadsAsMore) {
  struct Misreading {
    const char* Name;
    void (*Make)(TrRule&);
    std::string Reprinted;
  };
  const std::vector<Misreading> vMisreadings{
      {"constraint", [](TrRule& R) { R.SetCStructure("(x0 = x3)"); },
       ";;SL:\n;;TL:\n;;C-Structure:(x0 = x3)\n;;Score:1\n{A,8}\nA::B [C] -> [D]\n(\n(X1::Y1)\n"
       "(X0 = X3)\n)\n"},
      {"alignment", [](TrRule& R) { R.SetCStructure("(X1::Y0)"); },
       ";;SL:\n;;TL:\n;;C-Structure:(X1::Y0)\n;;Score:1\n{A,8}\nA::B [C] -> [D]\n(\n(X1::Y0)\n"
       "(X1::Y1)\n)\n"},
      {"header", [](TrRule& R) { R.SetTLWords("{ q,3}"); },
       ";;SL:\n;;TL: { Q,3}\n;;Score:1\n{ Q,3}\nA::B [C] -> [D]\n(\n(X1::Y1)\n)\n"}};
  for (const Misreading& Example : vMisreadings) {
    SCOPED_TRACE(Example.Name);
    TrRule Rule;
    Rule.SetTrRuleFromString("{A,8}\nA::B [C] -> [D]\n(X1::Y1)");
    Example.Make(Rule);
    EXPECT_EQ(Reprinted(Rule.ReturnAsStringForPrint()), Example.Reprinted);
  }
}

TEST(TrRuleWriters, WriteAlternativesThatTheReaderReadsAsAlignments) {
  TrRule Rule;
  Rule.SetTrRuleFromString("A::B [C] -> [D]\n(X1::Y1)");
  Rule.ResetAlterTrInfo();
  Rule.AddAlterTrInfo("", "", "(X1::Y0)", "", {}, {}, {}, {});
  TrRule Other;
  ASSERT_TRUE(Other.SetTrRuleFromString(Rule.ReturnAsStringWithAllAlts()));
  EXPECT_EQ(Other.GetAlignmentStr(), "((1,0),(1,1))");
}
