// What is found in rules, and how the findings are written.

#include "RuleChecker.h"

#include "CheckCommand.h"
#include "GrammarSupport.h"
#include "PrintCommand.h"
#include "RunError.h"
#include "TestFolder.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
#include <utility>

namespace {

using Grammar::CheckOptions;
using Grammar::Finding;
using Grammar::FindingFormat;
using Grammar::RunOptions;
using Grammar::Severity;

/// A rule with three components on each side and some lines in its body, the first of them line 7.
std::string RuleWith(const std::string& Lines) {
  return "{NP,8}\nNP::NP : [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n" + Lines +
         "\n)\n";
}

TEST(RuleChecker, FindsNothingInASoundRule) {
  EXPECT_EQ(PlacesOf(FindingsIn(RuleWith("((x0 num) = (x3 num))\n(x0 = x3)\n(y0 = x0)"))),
            Strings());
  EXPECT_EQ(PlacesOf(FindingsIn(RuleWith("(y2 = y0))"))), Strings());
  EXPECT_EQ(PlacesOf(FindingsIn("")), Strings());
  EXPECT_EQ(PlacesOf(FindingsIn(";; only a remark\n\n")), Strings());
}

TEST(RuleChecker, TellsWhatIsNotKeptAsItIsWritten) {
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

TEST(RuleChecker, TellsOfComponentsThatAreNotThereOrNotAligned) {
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

TEST(RuleChecker, TellsOfRepetitionsAndMergings) {
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

TEST(RuleChecker, TellsWhatAHeaderLoses) {
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

TEST(RuleChecker, TellsErrorsAndWarningsOfOneRuleInTheOrderOfItsLines) {
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

TEST(RuleChecker, OutlivesEveryPrefixOfTheSampleInSilence) {
  const Written Streams = WrittenBy([] {
    for (std::size_t Size = 0; Size <= SampleText.size(); ++Size) {
      FindingsIn(SampleText.substr(0, Size));
      FindingsIn(SampleText.substr(0, Size) + std::string("\0\xFF=::\n", 6));
    }
  });
  EXPECT_EQ(Streams, (Written{"", ""}));
}

TEST(Codes, AscendAndAreFound) {
  std::string Last;
  for (const Grammar::CodeInfo& Each : Grammar::AllCodes()) {
    EXPECT_LT(Last, Each.Code);
    EXPECT_EQ(Grammar::FindCode(Each.Code), &Each);
    Last = Each.Code;
  }
  EXPECT_EQ(Grammar::FindCode("TR000"), nullptr);
  EXPECT_EQ(Grammar::FindCode("tr001"), nullptr);
}

// ---- How findings are written -----------------------------------------------------------------

TEST(FindingText, HasACaretBelowWhatIsMeant) {
  Finding Each{
      "a b", 3, 4, 2, Severity::Warning, "TR024", "doubled", "\t\xC3\xA9==", "=", "b", 7, "e"};
  EXPECT_EQ(TextOf(Each, false),
            "a b:3:4: warning TR024: doubled\n  \t\xC3\xA9==\n  \t ^~\n  instead: =\n"
            "  for example: e\n  see b:7\n");
  EXPECT_EQ(TextOf(Each, true),
            "\x1b[1ma b:3:4: \x1b[0m\x1b[1;35mwarning TR024\x1b[0m: doubled\n  \t\xC3\xA9==\n  "
            "\x1b[32m\t ^~\x1b[0m\n  instead: =\n  for example: e\n  see b:7\n");
}

TEST(FindingText, ShowsNoBytesThatMoveTheCursor) {
  const Finding Each{"a\x1b", 1,  9, 5, Severity::Error, "TR008", "m\x7F", "\x1b[1m\r",
                     "",      "", 0, ""};
  EXPECT_EQ(TextOf(Each, false), "a?:1:9: error TR008: m?\n  ?[1m?\n       ^\n");
}

TEST(FindingText, CutsLongLinesAroundWhatIsMeant) {
  const Finding Each{"a", 1,  501, 2, Severity::Error, "TR008", "m", std::string(1000, 'x'),
                     "",  "", 0,   ""};
  EXPECT_EQ(TextOf(Each, false), "a:1:501: error TR008: m\n  " + std::string(160, 'x') + "\n  " +
                                     std::string(40, ' ') + "^~\n");
}

/// Runs check over a file and gives its status, its result and what it wrote to the streams.
struct CheckEnd {
  int Status;
  std::string Result;
  Written Streams;
};

CheckEnd Check(const std::string& Text, const CheckOptions& Options) {
  const TestFolder Folder;
  RunOptions Run;
  Run.vsFiles = {Folder.Write("a b.trr", Text)};
  Run.Output = Folder.Path("out");
  CheckEnd End{-1, "", {}};
  End.Streams = WrittenBy([&] { End.Status = RunCheck(Run, Options); });
  End.Result = StringUtils::ReplaceAll(Folder.Read("out"), Folder.Path(""), "");
  return End;
}

const std::string TwoEqual = RuleWith("(x0 = x3)") + RuleWith("(x0 = x3)");

TEST(CheckCommand, TellsOfEqualRulesAndNumbersWithBothPlaces) {
  const CheckEnd End = Check(TwoEqual, CheckOptions());
  EXPECT_EQ(End.Status, Grammar::StatusFindings);
  EXPECT_EQ(End.Result,
            "a b.trr:9:1: warning TR034: {NP,8} is the header of another rule, too\n"
            "  {NP,8}\n  ^~~~~~\n  see a b.trr:1\n"
            "a b.trr:10:1: warning TR033: this rule says the same as another one\n"
            "  NP::NP : [DET ADJ N] -> [DET N ADJ]\n  " +
                std::string("^") + std::string(34, '~') + "\n  see a b.trr:2\n");
  EXPECT_EQ(End.Streams, (Written{"", ""}));
}

TEST(CheckCommand, TellsTheCodesThatAreWanted) {
  const std::string Text = RuleWith("(x0 == x3)\n(x9 = x3)");
  const auto CodesFor = [&](Severity Least, const Strings& vsOnly, const Strings& vsExcept) {
    CheckOptions Options;
    Options.Format = FindingFormat::Json;
    Options.Least = Least;
    Options.vsOnly = vsOnly;
    Options.vsExcept = vsExcept;
    const CheckEnd End = Check(Text, Options);
    Strings vsCodes;
    for (const auto& Each : nlohmann::json::parse(End.Result)) {
      vsCodes.push_back(Each["code"]);
    }
    EXPECT_EQ(End.Status, vsCodes.empty() ? Grammar::StatusClean : Grammar::StatusFindings);
    return vsCodes;
  };
  EXPECT_EQ(CodesFor(Severity::Warning, {}, {}), (Strings{"TR024", "TR009"}));
  EXPECT_EQ(CodesFor(Severity::Error, {}, {}), (Strings{"TR009"}));
  EXPECT_EQ(CodesFor(Severity::Warning, {"TR024"}, {}), (Strings{"TR024"}));
  EXPECT_EQ(CodesFor(Severity::Warning, {}, {"TR024"}), (Strings{"TR009"}));
  EXPECT_EQ(CodesFor(Severity::Error, {"TR024"}, {}), Strings());
  EXPECT_EQ(CodesFor(Severity::Warning, {"TR024", "TR009"}, {"TR009"}), (Strings{"TR024"}));
}

TEST(CheckCommand, KnowsNoOtherCodes) {
  CheckOptions Only;
  Only.vsOnly = {"TR001", "TR099"};
  CheckOptions Except;
  Except.vsExcept = {"TR1"};
  EXPECT_THROW(Check("", Only), Grammar::RunError);
  EXPECT_THROW(Check("", Except), Grammar::RunError);
}

TEST(CheckCommand, WritesJson) {
  CheckOptions Options;
  Options.Format = FindingFormat::Json;
  EXPECT_EQ(Check("", Options).Result, "[]\n");
  EXPECT_EQ(
      Check(RuleWith("(x0 == x3\xFF)"), Options).Result,
      "[\n{\"file\":\"a b.trr\",\"line\":7,\"column\":8,\"length\":3,\"severity\":\"error\","
      "\"code\":\"TR012\",\"message\":\"\\\"x3\xEF\xBF\xBD\\\" is no node, and only a node can "
      "equal x0\",\"text\":\"(x0 == x3\xEF\xBF\xBD)\",\"example\":\"((x0 feature) = "
      "x3\xEF\xBF\xBD)\"}\n]\n");
  EXPECT_EQ(nlohmann::json::parse(Check(TwoEqual, Options).Result)[1]["other"],
            nlohmann::json({{"file", "a b.trr"}, {"line", 2}}));
}

TEST(CheckCommand, WritesSarifWithColumnsInCharacters) {
  CheckOptions Options;
  Options.Format = FindingFormat::Sarif;
  Options.Version = "1.2.3";
  const auto Log = nlohmann::json::parse(Check(RuleWith("((x1 \xC3\x89) == a)"), Options).Result);
  EXPECT_EQ(Log["version"], "2.1.0");
  const auto& Run = Log["runs"][0];
  EXPECT_EQ(Run["tool"]["driver"]["name"], "trrule");
  EXPECT_EQ(Run["tool"]["driver"]["version"], "1.2.3");
  EXPECT_EQ(Run["tool"]["driver"]["rules"].size(), Grammar::AllCodes().size());
  ASSERT_EQ(Run["results"].size(), 1U);
  const auto& Result = Run["results"][0];
  EXPECT_EQ(Result["ruleId"], "TR024");
  EXPECT_EQ(Result["level"], "warning");
  const auto& Place = Result["locations"][0]["physicalLocation"];
  EXPECT_EQ(Place["region"]["startLine"], 7);
  EXPECT_EQ(Place["region"]["startColumn"], 9);
  EXPECT_EQ(Place["region"]["endColumn"], 11);
  const std::string Uri = Place["artifactLocation"]["uri"];
  EXPECT_EQ(Uri.substr(Uri.rfind('/') + 1), "a%20b.trr");
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

TEST(PrintCommand, PassesOverWhatCannotBeReadOrThroughAsItStands) {
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

TEST(PrintCommand, ReadsBackWhatItWroteOnOneLine) {
  Grammar::PrintOptions OneLine;
  OneLine.Form.OneLine = true;
  const std::string Text = ";; a\\b\tc\n" + SamplePrinted + Bad + ";; t\n" + Good + ";; end\n";
  const PrintEnd Folded = Print(Text, OneLine);
  EXPECT_EQ(std::count(Folded.Result.begin(), Folded.Result.end(), '\n'), 2);
  EXPECT_EQ(Print(Folded.Result, {}, false, true).Result, Print(Text, {}).Result);
  EXPECT_EQ(Print(Bad + Good, OneLine, true).Result,
            ";; bad\r\t{NP,2}\tNP::NP [N] -> [N]\n{NP,3}\tNP::NP [N] -> [N]\t(\t(X1::Y1)\t)\n");
}

TEST(PrintCommand, TurnsRulesRound) {
  Grammar::PrintOptions Turned;
  Turned.Flip = true;
  EXPECT_EQ(Print("N::V [A B] -> [C D]\n(X1::Y2)\n(x0 = x1)\n", Turned).Result,
            "V::N [C D] -> [A B]\n(\n(X2::Y1)\n(X0 = X1)\n)\n");
}

}  // namespace
