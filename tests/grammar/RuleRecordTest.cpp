// Rules on their way through the record, and what is written of them.

#include "GrammarPaths.h"
#include "GrammarSupport.h"
#include "RuleGenerator.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <utility>

namespace {

using Grammar::Finding;
using Grammar::FormOptions;
using Grammar::RuleRecord;

/// Reads the first rule of a text, which has to be readable.
struct ReadRecord : OwnedRecord {
  explicit ReadRecord(const std::string& Text) {
    std::vector<Finding> vFindings;
    EXPECT_TRUE(ReadFirst(Text, vFindings)) << Text;
    EXPECT_EQ(PlacesOf(vFindings), std::vector<std::string>()) << Text;
  }
};

const std::string Body = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";

TEST(RuleRecord, KeepsWhatTheLibraryDoesNot) {
  ReadRecord Record(
      ";; a = b\n"
      "{ADJP,12} ;; behind\n"
      "NP::NP : [N] -> [N]\n"
      "(X1::Y1) ;; one\n"
      "  ; two\r\n"
      ";; three\n");
  EXPECT_EQ(Record.Comments(), (Strings{";; a = b", ";; behind", ";; one", "; two", ";; three"}));
  EXPECT_EQ(Record.Header().Type, "ADJP");
  EXPECT_EQ(Record.Header().Number, "12");
  EXPECT_EQ(Record.Rule().GetRuleIndex(), 12);
  EXPECT_EQ(Record.Rule().GetNumConstraints(), 0);
}

TEST(RuleRecord, KeepsNothingOfThePreviousRule) {
  ReadRecord Record(";; SL: a\n;;Score:7\n{NP,8}\n" + Body);
  std::vector<Finding> vFindings;
  ASSERT_TRUE(Record.ReadFirst("VP::VP [V] -> [V]\n(X1::Y1)\n", vFindings));
  EXPECT_EQ(Record.Comments(), Strings());
  EXPECT_FALSE(Record.Header().IsPresent);
  EXPECT_EQ(Record.Count(), 1);
  EXPECT_EQ(Record.Rule().GetRuleIndex(), -1);
  EXPECT_EQ(Record.Rule().GetSLString(), "");
  EXPECT_EQ(Record.Block(), "VP::VP [V] -> [V]\n(\n(X1::Y1)\n)");
  EXPECT_EQ(Record.ComparisonText(), ";V \nVP::VP [V] -> [V]\n(\n(X1::Y1)\n)");
}

TEST(RuleRecord, PutsExamplesBackIntoTheRecord) {
  for (const std::string sBlank : {"", " ", "\t "}) {
    ReadRecord Record(";;" + sBlank + "SL:" + sBlank + "the car\n;;" + sBlank + "TL:" + sBlank +
                      "l\\'auto\n;;" + sBlank + "C-Structure:" + sBlank + "(NP (N))\n;;" + sBlank +
                      "Score:" + sBlank + "5\n" + Body);
    EXPECT_EQ(Record.Count(), 5);
    EXPECT_EQ(Record.Rule().GetSLString(), "THE CAR");
    EXPECT_EQ(Record.Rule().GetTLString(), "L\\'AUTO");
    EXPECT_EQ(Record.Rule().GetCStructure(), "(NP (N))");
    EXPECT_EQ(Record.Rule().GetNumTrExamples(), 5);
  }
}

TEST(RuleRecord, IgnoresOtherComments) {
  ReadRecord Record("; SL: a\n;; TLx: b\n;; SL_alt: c\n;;Score: many\n;; x SL: d\n" + Body);
  EXPECT_EQ(Record.Count(), 1);
  EXPECT_EQ(Record.Rule().GetSLString(), "");
  EXPECT_EQ(Record.Rule().GetTLString(), "");
  EXPECT_EQ(Record.Rule().GetNumTrExamples(), 1);
}

TEST(RuleRecord, ReadsTheTextOfTheStringWriter) {
  TrRule First = ReadRecord("{NP,8}\n" + Body).Rule();
  First.SetSLWords(std::string("the car"));
  First.SetTLWords(Strings{"l'auto"});
  First.SetCStructure("(NP)");
  First.SetNumTrExamples(3);
  TrRule Second = ReadRecord(First.ReturnAsStringForPrint()).Rule();
  EXPECT_EQ(Second.ReturnAsStringForPrint(), First.ReturnAsStringForPrint());
}

TEST(RuleRecord, KeepsAlignmentsWithoutTheirBlanks) {
  ReadRecord Record("NP::NP : [A B] -> [C D]\n;--;(X2::Y1)\n(x1 ::\t Y2 )\n");
  EXPECT_EQ(Record.Rule().GetAlignmentStr(), "((1,2),(2,1))");
}

TEST(RuleRecord, WritesACountInPlaceOfTheOldOne) {
  const std::vector<std::pair<std::string, Strings>> Cases{
      {";; a\n;; Score: 2\n;; b\n", {";; a", ";;Score:9", ";; b"}},
      {";; a\n", {";; a", ";;Score:9"}},
      {"", {";;Score:9"}}};
  for (const auto& [sComments, vsExpected] : Cases) {
    ReadRecord Record(sComments + Body);
    EXPECT_NE(Record.Count(), 9);
    Record.SetCount(9);
    EXPECT_EQ(Record.Count(), 9);
    EXPECT_EQ(Record.Rule().GetNumTrExamples(), 9);
    EXPECT_EQ(Record.Comments(), vsExpected);
  }
}

TEST(RuleRecord, ReportsWhyARuleCannotBeRead) {
  const std::string Head = "{NP,8}\nNP::NP : [N] -> [N]\n";
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"{NP,8}\n(X1::Y1)\n", {"1:1+6 TR001"}},
      {Head, {"2:1+19 TR002"}},
      {Head + "NP::NP : [N] -> [N]\n(X1::Y1)\n", {"3:1+19 TR003"}},
      {"NP ::NP : [N] -> [N]\n(X1::Y1)\n", {"1:1+2 TR004"}},
      {"NP::NP : N] -> [N]\n(X1::Y1)\n", {"1:1+11 TR005"}},
      {"NP::NP : [N] -> [N\n(X1::Y1)\n", {"1:17+2 TR006"}},
      {Head + "(X1::Y1))\n", {"3:1+9 TR007"}},
      {Head + "(X1::Y1)\n  (x0 x1) = a\n", {"4:7+7 TR008"}},
      {Head + "(X1::Y1)\n(x0 = n)\n", {"4:7+1 TR012"}},
      {Head + "(X1::Y1)\n(x0 = x1)\n(x1 = x0)\n", {"4:1+9 TR011"}},
      {Head + "(X1::Y1)\n" + std::string(100001, '(') + '\n', {"1:1+1 TR013"}},
      {"NP::NP \"a [b;;\" c] -> [N]\n(X1::Y1)\n", {"1:1+25 TR014"}},
      // Errors of one rule come together; components that are not there do not keep it from
      // being read, and warnings are not reported.
      {"{ADJP,8}\nNP::NP : N] -> [N]\n(X1)\n(X1::Y9)\n(x9 = x1)\n", {"2:1+11 TR005"}},
      {Head + "(X1::1)\n(X1::Y)\n(x0 = x1)\n(x1 = x0)\n",
       {"3:1+7 TR007", "4:1+7 TR007", "5:1+9 TR011"}}};
  for (const auto& [sText, vsExpected] : Cases) {
    RuleRecord Record;
    std::vector<Finding> vFindings;
    const std::vector<Grammar::RuleText> vRules = RulesOf(sText);
    bool IsRead = true;
    const Written Streams = WrittenBy([&] { IsRead = ReadRule(vRules.at(0), Record, vFindings); });
    EXPECT_FALSE(IsRead) << sText;
    EXPECT_EQ(PlacesOf(vFindings), vsExpected) << sText;
    EXPECT_EQ(Streams, (Written{"", ""})) << sText;
  }
}

TEST(RuleRecord, PrintsNothingOfTheLibrary) {
  const Written Streams = WrittenBy([] {
    ReadRecord Record("NP::NP : [N] -> [N]\n(X1::Y1)\n(X9::Y9)\n((x1 n) = a)\n((x1 n) = b)\n");
    EXPECT_EQ(Record.Block(), "NP::NP [N] -> [N]\n(\n(X1::Y1)\n(X9::Y9)\n((X1 N) = (*OR* A B))\n)");
  });
  EXPECT_EQ(Streams, (Written{"", ""}));
}

// ---- The normal form --------------------------------------------------------------------------

TEST(NormalForm, WritesCommentsHeaderRuleLineAlignmentsAndConstraints) {
  const std::string Text =
      ";; SL: a\n\n"
      "{ADJP,0012}\n"
      "NP::NP : [DET N] -> [DET N]\n"
      "(\n"
      "(x0 = x2)\n"
      "(X2::Y2)\n"
      ";; inside\n"
      "(X1::Y1)\n"
      "((y1 num) = (y2 num))\n"
      "((y2 num) = sg))\r\n";
  EXPECT_EQ(NormalFormOf(Text),
            ";; SL: a\n"
            ";; inside\n"
            "{ADJP,12}\n"
            "NP::NP [DET N] -> [DET N]\n"
            "(\n"
            "(X1::Y1)\n"
            "(X2::Y2)\n"
            "((Y2 NUM) = SG)\n"
            "(X0 = X2)\n"
            "((Y1 NUM) = (Y2 NUM))\n"
            ")\n");
  EXPECT_EQ(
      NormalFormOf(Text, FormOptions{true, true}),
      "{ADJP,12}\tNP::NP [DET N] -> [DET N]\t(\t(X1::Y1)\t(X2::Y2)\t((Y2 NUM) = SG)\t(X0 = X2)"
      "\t((Y1 NUM) = (Y2 NUM))\t)\n");
}

TEST(NormalForm, IsTheTextOfTheLibraryWithAllParentheses) {
  std::string Expected = SamplePrinted;
  for (const std::string sLine : {"(Y1 = (Y0 DET)", "(Y3 = (Y0 MOD)"}) {
    const std::size_t Found = Expected.find(sLine + '\n');
    ASSERT_NE(Found, std::string::npos) << sLine;
    Expected.insert(Found + sLine.size(), ")");
  }
  EXPECT_EQ(NormalFormOf(SampleText), Expected);
}

TEST(NormalForm, KeepsTheMeaningOfARule) {
  const std::string Head = "NP::NP [A B] -> [A B]\n(\n(X1::Y1)\n";
  const std::vector<std::pair<std::string, std::string>> Cases{
      // features of several words, on both sides
      {"((y1 agr  gen) = (y2 agr gen))", "((Y1 AGR GEN) = (Y2 AGR GEN))\n"},
      {"(y1 == (y0\tagr gen))", "(Y1 = (Y0 AGR GEN))\n"},
      // another feature on the right, also beside the same one
      {"((y1 num) = (x1 gen))", "((Y1 NUM) = (X1 GEN))\n"},
      {"((y1 num) = (x1 num))\n((y1 num) = (x1 gen))",
       "((Y1 NUM) = (X1 NUM))\n((Y1 NUM) = (X1 GEN))\n"},
      // parentheses of negations
      {"((x1 num) = (*not* sg pl))", "((X1 NUM) = (*NOT* SG PL))\n"},
      // values on one path become one list; others keep their lines, in their order
      {"((x1 num) = sg)\n((x1 num) = (*or* pl sg du))", "((X1 NUM) = (*OR* SG PL DU))\n"},
      {"((x1 num) = pl)\n((x1 num) = (*not* sg))", "((X1 NUM) = PL)\n((X1 NUM) = (*NOT* SG))\n"},
      {"((x0 a b) = u)\n((x0 ab) = t)", "((X0 A B) = U)\n((X0 AB) = T)\n"},
      {"((x0 det) = x2)\n((x0 det) = x1)", "((X0 DET) = X2)\n((X0 DET) = X1)\n"},
      // what the library takes for another node or feature
      {"((y01 num) = sg)\n((y1 num) = sg)", "((Y01 NUM) = SG)\n((Y1 NUM) = SG)\n"},
      {"((y00 num ) = sg)", "((Y0 NUM) = SG)\n"},
      {"((x1 num2 ) = sg)\n((x1 num2) = sg)", "((X1 NUM2 ) = SG)\n((X1 NUM2) = SG)\n"},
      // the same twice, in whatever writing
      {"((x1 num) = sg)\n( ( X01 Num ) = SG)", "((X1 NUM) = SG)\n"},
  };
  for (const auto& [sLines, sExpected] : Cases) {
    EXPECT_EQ(NormalFormOf(Head + sLines + "\n)\n"), Head + sExpected + ")\n") << sLines;
  }
  EXPECT_EQ(NormalFormOf("np::NP : [det \"Car\" N] -> [\"el\" n]\n(X2::Y1)\n"),
            "np::NP [DET \"Car\" N] -> [\"el\" N]\n(\n;--;(X2::Y1)\n)\n");
}

TEST(NormalForm, KeepsAReferenceAfterADoubledSign) {
  const std::string Head = "NP::NP [A B] -> [A B]\n(\n(X1::Y1)\n";
  EXPECT_EQ(NormalFormOf(Head + "((y1 num) == (y2 num))\n((x1 num) == sg)\n(y2 == (y0 num))\n)\n"),
            Head + "((X1 NUM) = SG)\n(Y2 = (Y0 NUM))\n((Y1 NUM) = (Y2 NUM))\n)\n");
}

TEST(NormalForm, IsStable) {
  std::string Generated;
  for (const std::string& sRule : GeneratedRules(11, 500)) {
    Generated += sRule;
  }
  for (const std::string& sText :
       {SampleText, Generated,
        std::string(";; a\r\r\n{x}\nNP::NP : [\"a;;b\" N] -> [N]\n(X1::Y1)\n"),
        std::string("NP::NP : [N] -> [N]\n(X1::Y1)\nVP::VP : [V] -> [V]\n(X1::Y1)\n")}) {
    const std::string Once = NormalFormOf(sText);
    EXPECT_NE(Once, "");
    EXPECT_EQ(NormalFormOf(Once), Once);
    EXPECT_EQ(RulesOf(Once).size(), RulesOf(sText).size());
  }
}

TEST(NormalForm, IsStableForEveryCorpus) {
  std::size_t Files = 0;
  for (const char* Folder : {"fuzz/corpus", "tests/regressions", "examples/grammar"}) {
    const std::filesystem::path Root = std::filesystem::path(GrammarPaths::SourceFolder) / Folder;
    for (const auto& Entry : std::filesystem::recursive_directory_iterator(Root)) {
      if (Entry.is_regular_file()) {
        std::ifstream File(Entry.path(), std::ios::binary);
        const std::string Text((std::istreambuf_iterator<char>(File)), {});
        const std::string Once = NormalFormOf(Text);
        EXPECT_EQ(NormalFormOf(Once), Once) << Entry.path();
        ++Files;
      }
    }
  }
  EXPECT_GT(Files, 10U);
}

TEST(NormalForm, IsStableForEveryReadablePrefixOfTheSample) {
  for (std::size_t Size = 0; Size <= SampleText.size(); ++Size) {
    const std::string Once = NormalFormOf(SampleText.substr(0, Size));
    EXPECT_EQ(NormalFormOf(Once), Once) << SampleText.substr(0, Size);
  }
}

TEST(NormalForm, IsRestoredFromOneLine) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"", ""},
      {"a\nb\n", "a\tb"},
      {"a\n\n", "a\t"},
      {"\ta\\t\\", "\\ta\\\\t\\\\"},
      {std::string("\0\xFF\r\n", 4), std::string("\0\xFF\r", 3)}};
  for (const auto& [sLines, sFolded] : Cases) {
    EXPECT_EQ(Grammar::Folded(sLines), sFolded);
    std::string Unfolded;
    Grammar::AppendUnfolded(sFolded + "\n", Unfolded);
    EXPECT_EQ(Unfolded, sLines.empty() || sLines.back() != '\n' ? sLines + "\n" : sLines);
  }
  std::string Odd;
  Grammar::AppendUnfolded("\\a\\", Odd);
  EXPECT_EQ(Odd, "\\a\\");
}

TEST(NormalForm, FlipsARule) {
  ReadRecord Record(
      ";; SL: the red car\n;;TL:el auto rojo\n;; SL_alt: a\n;; other\n"
      "{NP,8}\n"
      "NP::N : [DET ADJ N] -> [DET N]\n(X1::Y2)\n(X3::Y1)\n(x0 = x3)\n");
  Record.Flip();
  std::string Text;
  AppendNormalForm(Record, FormOptions(), Text);
  EXPECT_EQ(Text,
            ";; TL: the red car\n;;SL:el auto rojo\n;; SL_alt: a\n;; other\n"
            "{NP,8}\n"
            "N::NP [DET N] -> [DET ADJ N]\n(\n(X1::Y3)\n(X2::Y1)\n(X0 = X3)\n)\n");
}

}  // namespace
