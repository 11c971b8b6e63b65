// What is found in rules, and what `print` makes of them.

#include "RuleChecker.h"

#include "GrammarSupport.h"
#include "PrintCommand.h"
#include "RunError.h"
#include "TestFolder.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Grammar::Finding;
using Grammar::RunOptions;

/// A rule with three components on each side and some lines in its body, the first of them line 7.
std::string RuleWith(const std::string& Lines) {
  return "{NP,8}\nNP::NP : [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n" + Lines +
         "\n)\n";
}

TEST(RuleChecker, FindsNothingInAValidRule) {
  EXPECT_EQ(PlacesOf(FindingsIn(RuleWith("((x0 num) = (x3 num))\n(x0 = x3)\n(y0 = x0)"))),
            Strings());
  EXPECT_EQ(PlacesOf(FindingsIn(RuleWith("(y2 = y0))"))), Strings());
  EXPECT_EQ(PlacesOf(FindingsIn("")), Strings());
  EXPECT_EQ(PlacesOf(FindingsIn(";; only a comment\n\n")), Strings());
}

TEST(RuleChecker, SaysWhatTheLibraryReadsInComments) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {";; [a] -> [b]", "also reads this comment as a rule line"},
      {";; see a::b", "also reads this comment as an alignment"},
      {";; a = b", "also reads this comment as a constraint"},
      {";; {a}", "also reads this comment as a header"},
      {"(x0 = x3) ;; c = d", "reads this comment as part of the line"},
  };
  for (const auto& [sLine, sExpected] : Cases) {
    const std::vector<Finding> vFindings = FindingsIn(RuleWith(sLine));
    ASSERT_EQ(vFindings.size(), 1U) << sLine;
    EXPECT_EQ(vFindings[0].Message,
              "the library's reader " + sExpected + "; trrule keeps it as a comment");
  }
}

TEST(RuleChecker, ReportsWhatIsNotKeptAsWritten) {
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"(y1 == (y0 det))", {"7:5+2 TR024?"}},
      {"((y1 num) == (y2 num))", {"7:11+2 TR024?"}},
      {"((x1 agr gen) = sg)", {"7:6+7 TR025?"}},
      {"((x1 agr gen) = (x2 agr gen))", {"7:6+7 TR025?", "7:21+7 TR025?"}},
      {"((y1 num) = (y2 per))", {"7:17+3 TR026?"}},
      {"((y1 NUM) = (y2 num))", {}},
      {"((x1 num) = (*NOT* sg))", {"7:13+10 TR027"}},
      {"((X1 NUM) = (*NOT* SG)", {}},
      {"((y1 tense) = next)", {"7:15+4 TR028"}},
      {"((x1 tense) = next)", {}},
      {"((y1 num) = (*OR* sg max))", {"7:19+6 TR028"}},
      {"((y1 num) = x3)", {}},
      {"(x0 = x3 )", {"7:9+1 TR038?"}},
      {"((x0 num) = sg )", {}},
      {";; a = b", {"7:1+8 TR029"}},
      {";; [a] -> [b]", {"7:1+13 TR029"}},
      {"  ; {a}", {"7:3+5 TR029"}},
      {";; plain", {}},
      {"(x0 = x3) ;; c = d", {"7:11+8 TR029"}},
      {"(x0 = x3) ;; c", {}},
      {"(X1::Y2) ;; (see there)", {"7:10+14 TR029"}},
      {"(X1::Y2) ;; see = there", {}},
      {"see there", {"7:1+9 TR035?"}},
      {"(X1::Y2) see", {"7:10+3 TR035?"}},
      {"1. (X1::Y2) a::b", {"7:1+2 TR035?", "7:13+4 TR035?"}}};
  for (const auto& [sLine, vsExpected] : Cases) {
    EXPECT_EQ(PlacesOf(FindingsIn(RuleWith(sLine))), vsExpected) << sLine;
  }
}

TEST(RuleChecker, ReportsMissingAndUnalignedComponents) {
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"((x4 num) = sg)", {"7:3+2 TR009"}},          {"((x3 num) = (x4 num))", {"7:14+2 TR009"}},
      {"(Y4 = X5)", {"7:2+2 TR009", "7:7+2 TR009"}}, {"((x0 det) = x4)", {"7:13+2 TR009"}},
      {"(X4::Y0)", {"7:2+2 TR010", "7:6+2 TR010"}},  {"(X1::Y1)", {"7:1+8 TR036"}}};
  for (const auto& [sLine, vsExpected] : Cases) {
    EXPECT_EQ(PlacesOf(FindingsIn(RuleWith(sLine))), vsExpected) << sLine;
  }
  const std::string Unaligned =
      "NP::NP : [DET \"a\" N] -> [DET N]\n(X1::Y1)\n((x3 n) = a)\n((x3 m) = a)\n((x2 n) = a)\n"
      "((y2 n) = (x1 n))\n";
  EXPECT_EQ(PlacesOf(FindingsIn(Unaligned)), (Strings{"3:3+2 TR030", "6:3+2 TR030"}));
}

TEST(RuleChecker, ReportsRepetitionsAndMergings) {
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"(x0 = x3)\n(X0=X3)", {"8:1+7 TR031"}},
      {"((x1 n) = a)\n((x1 n) = b)", {"8:11+1 TR032"}},
      {"((x1 n) = a)\n((x1 n) = b)\n((x1 n) = a)", {"8:11+1 TR032", "9:1+12 TR031"}},
      {"((x1 n) = a)\n((x2 n) = b)\n((x1 m) = b)", {}},
      {"((y1 n) = a)\n((y1 n) = ax)", {"8:11+2 TR028"}},
      {"((x1 n) = (x2 n))\n((x1 n) = (x3 n))", {}}};
  for (const auto& [sLines, vsExpected] : Cases) {
    EXPECT_EQ(PlacesOf(FindingsIn(RuleWith(sLines))), vsExpected) << sLines;
  }
}

TEST(RuleChecker, ReportsWhatAHeaderLoses) {
  const std::string Rest = "NP::NP [N] -> [N]\n(X1::Y1)\n";
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"{NP,8}", {}},
      {"{ADJP,8}", {"1:2+4 TR021", "1:2+4 TR040"}},
      {"{NP, 12 }", {"1:6+2 TR022"}},
      {"a,{ADJP,-1}", {"1:1+2 TR035", "1:4+4 TR021", "1:4+4 TR040", "1:9+2 TR022"}},
      {"{NP}", {"1:1+4 TR023"}},
      {"{NP 8}", {"1:1+6 TR023?"}},
      {"(x0 = x1)\n;; a\n{NP,8}", {"1:1+9 TR037"}}};
  for (const auto& [sHeader, vsExpected] : Cases) {
    EXPECT_EQ(PlacesOf(FindingsIn(sHeader + "\n" + Rest)), vsExpected) << sHeader;
  }
}

TEST(RuleChecker, ReportsErrorsAndWarningsInTheOrderOfTheLines) {
  EXPECT_EQ(
      PlacesOf(FindingsIn("{ADJP,8}\nADJP::NP [N] -> [N]\n(X1::Y2)\n(x1 == x0)\n(x0 = x1)\n(x0")),
      (Strings{"1:2+4 TR021", "3:6+2 TR010", "4:1+10 TR011", "4:5+2 TR024", "6:1+3 TR035?"}));
}

TEST(RuleChecker, SuggestsTextsThatAreInTheFormat) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"(x1 num) = sg)", "((x1 num) = sg)"},
      {"x0 = x1)", "(x0 = x1)"},
      {"(x0 = x1", "(x0 = x1)"},
      {"x0 = x1", "(x0 = x1)"},
      {"(x0 = n)", ""},
      {"((y1 num) == pl)", "((y1 num) = pl)"},
      {"((y1 num) = (y2 per))", "((y1 num) = (y2 num))"},
      {"(X1:: 1)", ""},
      {"X1::Y2", "(X1::Y2)"},
      {"X1::Y1", ""},
      {"(X1::Y2))", "(X1::Y2)"}};
  for (const auto& [sLine, sExpected] : Cases) {
    const std::vector<Finding> vFindings = FindingsIn(RuleWith(sLine));
    ASSERT_EQ(vFindings.size(), 1U) << sLine;
    EXPECT_EQ(vFindings[0].Suggestion, sExpected);
    EXPECT_EQ(vFindings[0].LineText, sLine);
  }
}

TEST(RuleChecker, CountsLinesInFilesWithReturns) {
  EXPECT_EQ(PlacesOf(FindingsIn("\r\n;; a\r\n{NP}\r\nN::N [N] -> [N]\r\n(X1::Y9)\r\n")),
            (Strings{"3:1+4 TR023", "5:6+2 TR010"}));
}

TEST(RuleChecker, ReadsEveryPrefixOfTheSampleWithoutOutput) {
  const Written Streams = WrittenBy([] {
    for (std::size_t Size = 0; Size <= SampleText.size(); ++Size) {
      FindingsIn(SampleText.substr(0, Size));
      FindingsIn(SampleText.substr(0, Size) + std::string("\0\xFF=::\n", 6));
    }
  });
  EXPECT_EQ(Streams, (Written{"", ""}));
}

// ---- Printing ---------------------------------------------------------------------------------

struct PrintEnd {
  int Status;
  std::string Result;
  std::string Err;
};

PrintEnd Print(const std::string& Text, const Grammar::PrintOptions& Options, bool KeepBad = false,
               bool Folded = false) {
  const TestFolder Folder;
  RunOptions Run;
  Run.vsFiles = {Folder.Write("a.trr", Text)};
  Run.Output = Folder.Path("out");
  Run.KeepBad = KeepBad;
  Run.Folded = Folded;
  PrintEnd End{-1, "", ""};
  const Written Streams = WrittenBy([&] { End.Status = RunPrint(Run, Options); });
  EXPECT_EQ(Streams.Out, "");
  End.Result = Folder.Read("out");
  End.Err = StringUtils::ReplaceAll(Streams.Err, Folder.Path(""), "");
  return End;
}

const std::string Bad = ";; bad\r\n{NP,2}\nNP::NP [N] -> [N]\n";
const std::string BadMessage = "a.trr:3:1: error TR002: the rule has no alignment\n";
const std::string Good = "{NP,3}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";

TEST(PrintCommand, SkipsUnreadableRulesOrKeepsThemUnchanged) {
  const PrintEnd Without = Print(Bad + Good, {});
  EXPECT_EQ(Without.Status, Grammar::StatusFindings);
  EXPECT_EQ(Without.Result, Good);
  EXPECT_EQ(Without.Err, BadMessage + "1 of 2 rules was left out\n");
  const PrintEnd With = Print(Bad + Good, {}, true);
  EXPECT_EQ(With.Status, Grammar::StatusFindings);
  EXPECT_EQ(With.Result, Bad + Good);
  EXPECT_EQ(With.Err, BadMessage);
  EXPECT_EQ(Print(Good + Bad.substr(0, Bad.size() - 1), {}, true).Result, Good + Bad);
}

TEST(PrintCommand, KeepsCommentsOfAFileWithoutRules) {
  Grammar::PrintOptions NoComments;
  NoComments.Form.NoComments = true;
  for (const auto& [sText, sExpected] : std::vector<std::pair<std::string, std::string>>{
           {"", ""}, {"\n \n", ""}, {"  ;; a\r\r\n\n; b", ";; a\n; b\n"}}) {
    EXPECT_EQ(Print(sText, {}).Result, sExpected);
    EXPECT_EQ(Print(sText, {}).Status, Grammar::StatusClean);
    EXPECT_EQ(Print(sText, NoComments).Result, "");
  }
}

TEST(PrintCommand, ReadsItsOneLineFormat) {
  Grammar::PrintOptions OneLine;
  OneLine.Form.OneLine = true;
  const std::string Text = ";; a\\b\tc\n" + SamplePrinted + Bad + ";; t\n" + Good + ";; end\n";
  const PrintEnd Folded = Print(Text, OneLine);
  EXPECT_EQ(std::count(Folded.Result.begin(), Folded.Result.end(), '\n'), 2);
  EXPECT_EQ(Print(Folded.Result, {}, false, true).Result, Print(Text, {}).Result);
  EXPECT_EQ(Print(Bad + Good, OneLine, true).Result,
            ";; bad\r\t{NP,2}\tNP::NP [N] -> [N]\n{NP,3}\tNP::NP [N] -> [N]\t(\t(X1::Y1)\t)\n");
}

TEST(PrintCommand, FlipsRules) {
  Grammar::PrintOptions Turned;
  Turned.Flip = true;
  EXPECT_EQ(Print("N::V [A B] -> [C D]\n(X1::Y2)\n(x0 = x1)\n", Turned).Result,
            "V::N [C D] -> [A B]\n(\n(X2::Y1)\n(X0 = X1)\n)\n");
}

}  // namespace
