// What `check` reports of files, in all formats, and how it counts.

#include "CheckCommand.h"

#include "FindingCodes.h"
#include "RuleGenerator.h"
#include "RunError.h"
#include "StringUtils.h"
#include "TestFolder.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace {

using Grammar::CheckOptions;
using Grammar::FindingFormat;
using Grammar::RunOptions;
using Grammar::Severity;

/// A rule with three components on each side and some lines in its body, the first of them line 7.
std::string RuleWith(const std::string& Lines) {
  return "{NP,8}\nNP::NP : [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n" + Lines +
         "\n)\n";
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

/// Rules of many kinds, sound and not, of some 300,000 bytes: several batches.
std::string LargeGrammar() {
  std::string Text;
  const std::vector<Grammar::CodeInfo>& vCodes = Grammar::AllCodes();
  std::size_t Next = 0;
  for (const std::string& sRule : GeneratedRules(12, 1000)) {
    const Grammar::CodeInfo& Code = vCodes[Next++ % vCodes.size()];
    // These two are about a rule or a file by their size.
    if (Code.Code != "TR013" && Code.Code != "TR016") {
      Text += WholeExample(Code, Code.Wrong) + '\n';
    }
    Text += sRule + '\n';
  }
  return Text;
}

const std::string TwoEqual = RuleWith("(x0 = x3)") + RuleWith("(x0 = x3)");

TEST(CheckCommand, ReportsDuplicateRulesAndHeadersWithBothPlaces) {
  const CheckEnd End = Check(TwoEqual, CheckOptions());
  EXPECT_EQ(End.Status, Grammar::StatusFindings);
  EXPECT_EQ(End.Result,
            "a b.trr:9:1: warning TR034: {NP,8} is also the header of another rule\n"
            "  {NP,8}\n  ^~~~~~\n  see a b.trr:1\n"
            "a b.trr:10:1: warning TR033: this rule duplicates another one\n"
            "  NP::NP : [DET ADJ N] -> [DET N ADJ]\n  " +
                std::string("^") + std::string(34, '~') + "\n  see a b.trr:2\n");
  EXPECT_EQ(End.Streams, (Written{"", "0 errors, 2 warnings, 0 notes\n"}));
}

TEST(CheckCommand, ReportsOnlyTheSelectedCodes) {
  const std::string Text = RuleWith("(x0 == x3)\n(x9 = x3)");
  const auto CodesFor = [&](std::optional<Severity> Least, const Strings& vsOnly,
                            const Strings& vsExcept) {
    CheckOptions Options;
    Options.Format = FindingFormat::Json;
    Options.Least = Least;
    Options.vsOnly = vsOnly;
    Options.vsExcept = vsExcept;
    Options.vsExcept.emplace_back("TR050");
    const CheckEnd End = Check(Text, Options);
    Strings vsCodes;
    for (const auto& Current : nlohmann::json::parse(End.Result)) {
      vsCodes.push_back(Current["code"]);
    }
    EXPECT_EQ(End.Status, vsCodes.empty() ? Grammar::StatusClean : Grammar::StatusFindings);
    return vsCodes;
  };
  EXPECT_EQ(CodesFor(std::nullopt, {}, {}), (Strings{"TR009"}));
  EXPECT_EQ(CodesFor(Severity::Note, {}, {}), (Strings{"TR024", "TR009"}));
  EXPECT_EQ(CodesFor(Severity::Warning, {}, {}), (Strings{"TR009"}));
  EXPECT_EQ(CodesFor(Severity::Error, {}, {}), (Strings{"TR009"}));
  // A note that is named is wanted, unless the severity says otherwise.
  EXPECT_EQ(CodesFor(std::nullopt, {"TR024"}, {}), (Strings{"TR024"}));
  EXPECT_EQ(CodesFor(std::nullopt, {"tr009", " tr024"}, {}), (Strings{"TR024", "TR009"}));
  EXPECT_EQ(CodesFor(Severity::Warning, {"TR024"}, {}), Strings());
  EXPECT_EQ(CodesFor(Severity::Note, {}, {"TR024"}), (Strings{"TR009"}));
  EXPECT_EQ(CodesFor(Severity::Error, {"TR024"}, {}), Strings());
  EXPECT_EQ(CodesFor(Severity::Note, {"TR024", "TR009"}, {"TR009"}), (Strings{"TR024"}));
}

TEST(CheckCommand, RejectsUnknownCodes) {
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
      "\"code\":\"TR012\",\"message\":\"\\\"x3\xEF\xBF\xBD\\\" is not a node, and only a node can "
      "equal x0\",\"text\":\"(x0 == x3\xEF\xBF\xBD)\",\"example\":\"((x0 feature) = "
      "x3\xEF\xBF\xBD)\"}\n]\n");
  EXPECT_EQ(nlohmann::json::parse(Check(TwoEqual, Options).Result)[1]["other"],
            nlohmann::json({{"file", "a b.trr"}, {"line", 2}}));
}

TEST(CheckCommand, WritesSarifWithColumnsInCharacters) {
  CheckOptions Options;
  Options.Format = FindingFormat::Sarif;
  Options.Version = "1.2.3";
  Options.Least = Severity::Note;
  Options.vsExcept = {"TR050"};
  const auto Log = nlohmann::json::parse(Check(RuleWith("((x1 \xC3\x89) == a)"), Options).Result);
  EXPECT_EQ(Log["version"], "2.1.0");
  const auto& Run = Log["runs"][0];
  EXPECT_EQ(Run["tool"]["driver"]["name"], "trrule");
  EXPECT_EQ(Run["tool"]["driver"]["version"], "1.2.3");
  EXPECT_EQ(Run["tool"]["driver"]["rules"].size(), Grammar::AllCodes().size());
  ASSERT_EQ(Run["results"].size(), 1U);
  const auto& Result = Run["results"][0];
  EXPECT_EQ(Result["ruleId"], "TR024");
  EXPECT_EQ(Result["level"], "note");
  const auto& Place = Result["locations"][0]["physicalLocation"];
  EXPECT_EQ(Place["region"]["startLine"], 7);
  EXPECT_EQ(Place["region"]["startColumn"], 9);
  EXPECT_EQ(Place["region"]["endColumn"], 11);
  const std::string Uri = Place["artifactLocation"]["uri"];
  EXPECT_EQ(Uri.substr(Uri.rfind('/') + 1), "a%20b.trr");
}

TEST(CheckCommand, WritesSuggestionsAndExamplesInSarif) {
  CheckOptions Options;
  Options.Format = FindingFormat::Sarif;
  const auto MessageOf = [&](const std::string& Line) {
    return nlohmann::json::parse(
               Check(RuleWith(Line), Options).Result)["runs"][0]["results"][0]["message"]["text"]
        .get<std::string>();
  };
  EXPECT_EQ(MessageOf("(X1::Y2"),
            "this is not an alignment of one x with one y; instead: (X1::Y2)");
  EXPECT_EQ(MessageOf("((x1 num) = "), "the constraint ends too early: expected a value or a node");
  EXPECT_EQ(MessageOf("(x0 = n)"),
            "\"n\" is not a node, and only a node can equal x0; for example: ((x0 feature) = n)");
}

TEST(CheckCommand, WritesTheOtherRuleOfARepeatedHeaderInSarif) {
  CheckOptions Options;
  Options.Format = FindingFormat::Sarif;
  const std::string Text =
      "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n"
      "\n{NP,1}\nNP::NP : [DET] -> [DET]\n(X1::Y1)\n";
  const nlohmann::json Results =
      nlohmann::json::parse(Check(Text, Options).Result)["runs"][0]["results"];
  ASSERT_EQ(Results.size(), 1u);
  EXPECT_EQ(Results[0]["ruleId"], "TR034");
  EXPECT_EQ(Results[0]["locations"][0]["physicalLocation"]["region"]["startLine"], 5);
  EXPECT_EQ(
      Results[0]["relatedLocations"].dump(),
      R"j([{"physicalLocation":{"artifactLocation":{"uri":"a%20b.trr"},"region":{"startLine":1}}}])j");
}

TEST(CheckCommand, WritesExplanationsAsSarifHelp) {
  CheckOptions Options;
  Options.Format = FindingFormat::Sarif;
  const auto Rules =
      nlohmann::json::parse(Check("", Options).Result)["runs"][0]["tool"]["driver"]["rules"];
  std::size_t Next = 0;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    EXPECT_EQ(Rules[Next++],
              nlohmann::json({{"id", Info.Code},
                              {"shortDescription", {{"text", Info.Title}}},
                              {"fullDescription", {{"text", Info.Explanation}}},
                              {"help", {{"text", Explanation(Info)}}},
                              {"defaultConfiguration", {{"level", NameOf(Info.Level)}}}}));
  }
  EXPECT_EQ(Rules.size(), Next);
}

// ---- Severities and counts --------------------------------------------------------------------

/// A note on line 1, a warning on line 7 and an error on line 8.
const std::string AllSeverities =
    "{ADJP,8}\nADJP::NP : [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n"
    "(X2::Y3)\n(X3::Y2)\n(X1::Y1)\n(x9 = x3)\n)\n";
const std::string OneNote = RuleWith("(x0 == x3)");

const std::string NoteText =
    "a b.trr:1:2: note TR021: the library's reader keeps two letters of this type, \"AD\"; trrule "
    "keeps all of it\n  {ADJP,8}\n   ^~~~\n";
const std::string WarningText =
    "a b.trr:7:1: warning TR036: this alignment is repeated\n  (X1::Y1)\n  ^~~~~~~~\n";
const std::string ErrorText =
    "a b.trr:8:2: error TR009: there is no x9: the source side has 3 components\n  (x9 = x3)\n"
    "   ^~\n";

TEST(CheckCommand, ShowsAndCountsBySeverity) {
  struct Case {
    std::string Text;
    std::optional<Severity> Least;
    int Status;
    std::string Result;
    std::string Err;
  };
  const std::string All = "1 error, 1 warning, 1 note";
  const std::string Hidden = " not shown (--severity note shows all)\n";
  const std::vector<Case> vCases{
      {AllSeverities, Severity::Note, Grammar::StatusFindings, NoteText + WarningText + ErrorText,
       All + "\n"},
      {AllSeverities, std::nullopt, Grammar::StatusFindings, WarningText + ErrorText,
       All + "; 1" + Hidden},
      {AllSeverities, Severity::Warning, Grammar::StatusFindings, WarningText + ErrorText,
       All + "; 1" + Hidden},
      {AllSeverities, Severity::Error, Grammar::StatusFindings, ErrorText, All + "; 2" + Hidden},
      {OneNote, std::nullopt, Grammar::StatusClean, "", "0 errors, 0 warnings, 1 note; 1" + Hidden},
      {OneNote, Severity::Note, Grammar::StatusFindings,
       "a b.trr:7:5: note TR024: \"==\" is kept as \"=\"\n  (x0 == x3)\n      ^~\n"
       "  instead: (x0 = x3)\n",
       "0 errors, 0 warnings, 1 note\n"},
      {RuleWith("(x0 = x3)"), Severity::Note, Grammar::StatusClean, "", ""}};
  for (const Case& Row : vCases) {
    CheckOptions Options;
    Options.Least = Row.Least;
    Options.vsExcept = {"TR050"};
    const CheckEnd End = Check(Row.Text, Options);
    EXPECT_EQ(End.Status, Row.Status);
    EXPECT_EQ(End.Result, Row.Result);
    EXPECT_EQ(End.Streams, (Written{"", Row.Err}));
  }
}

TEST(CheckCommand, CountsARepetitionForTheLibraryOnlyAsANote) {
  CheckOptions Options;
  Options.vsOnly = {"TR031"};
  Options.Least = Severity::Note;
  const CheckEnd End =
      Check(RuleWith("((y1 num) = (x1 num))\n((y1 num) = (x1 per))\n((Y1 NUM) = (x1 num))\n"
                     "((x1 agr gen) = fem)\n((x1 agrgen) = fem)"),
            Options);
  EXPECT_EQ(End.Result,
            "a b.trr:8:1: note TR031: the library reads this constraint as the one on line 7, and "
            "drops it; trrule keeps it\n  ((y1 num) = (x1 per))\n  ^~~~~~~~~~~~~~~~~~~~~\n"
            "a b.trr:9:1: warning TR031: this constraint repeats line 7\n"
            "  ((Y1 NUM) = (x1 num))\n  ^~~~~~~~~~~~~~~~~~~~~\n"
            "a b.trr:11:1: note TR031: the library reads this constraint as the one on line 10, "
            "and drops it; trrule keeps it\n  ((x1 agrgen) = fem)\n  ^~~~~~~~~~~~~~~~~~~\n");
  EXPECT_EQ(End.Streams, (Written{"", "0 errors, 1 warning, 2 notes\n"}));
}

TEST(CheckCommand, CountsInsteadOfShowing) {
  CheckOptions Options;
  Options.Statistics = true;
  const CheckEnd Table = Check(AllSeverities + OneNote, Options);
  EXPECT_EQ(Table.Status, Grammar::StatusFindings);
  EXPECT_EQ(Table.Result,
            "1  TR009  error    a constraint names a component that the rule does not have\n"
            "1  TR021  note     the reader shortens the type of the header\n"
            "1  TR024  note     a doubled equals sign\n"
            "1  TR036  warning  an alignment is given twice\n"
            "3  TR050  note     no rule provides the label of a component\n");
  EXPECT_EQ(Table.Streams, (Written{"", "1 error, 1 warning, 5 notes\n"}));
  EXPECT_EQ(Check(OneNote, Options).Status, Grammar::StatusClean);
  EXPECT_EQ(Check("", Options).Result, "");
  Options.Format = FindingFormat::Json;
  EXPECT_EQ(Check(OneNote, Options).Result,
            "[\n{\"code\":\"TR024\",\"severity\":\"note\",\"count\":1,\"title\":\"a doubled "
            "equals sign\"},\n{\"code\":\"TR050\",\"severity\":\"note\",\"count\":3,\"title\":"
            "\"no rule provides the label of a component\"}\n]\n");
  Options.Format = FindingFormat::Sarif;
  EXPECT_THROW(Check(OneNote, Options), Grammar::RunError);
}

/// What is counted where notes are not shown is what is counted where they are.
TEST(CheckCommand, CountsNotesThatAreNotShown) {
  CheckOptions Options;
  Options.Statistics = true;
  CheckOptions AllOptions = Options;
  AllOptions.Least = Severity::Note;
  const std::string Text = LargeGrammar();
  const CheckEnd Counted = Check(Text, Options);
  const CheckEnd Shown = Check(Text, AllOptions);
  EXPECT_EQ(Counted.Result, Shown.Result);
  EXPECT_EQ(Counted.Streams, Shown.Streams);
}

// ---- The whole grammar ------------------------------------------------------------------------

const std::string Lexicon = "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n";
const std::string Missing = "NP::NP : [N A] -> [N]\n(X1::Y1)\n((x1 num) = pl)\n";

TEST(CheckCommand, ReportsFindingsOfAllFilesLast) {
  const TestFolder Folder;
  RunOptions Run;
  Run.vsFiles = {Folder.Write("b.trr", Missing), Folder.Write("a.trr", Lexicon)};
  Run.Output = Folder.Path("out");
  CheckOptions Options;
  Options.Starts = "n, S";
  const auto CodesOf = [&] {
    Options.Format = FindingFormat::Json;
    WrittenBy([&] { RunCheck(Run, Options); });
    Strings vsCodes;
    for (const auto& Current : nlohmann::json::parse(Folder.Read("out"))) {
      vsCodes.push_back(Current["code"].get<std::string>() + ' ' +
                        Current["severity"].get<std::string>() + ' ' +
                        std::to_string(Current["line"].get<int>()));
    }
    return vsCodes;
  };
  EXPECT_EQ(CodesOf(), (Strings{"TR051 warning 1", "TR050 warning 1", "TR052 warning 3"}));
  Options.vsExcept = {"TR052", "TR051"};
  EXPECT_EQ(CodesOf(), (Strings{"TR050 warning 1"}));
  Options.vsExcept.clear();
  Options.Starts.reset();
  EXPECT_EQ(CodesOf(), (Strings{"TR050 warning 1", "TR052 warning 3"}));
  // Without the lexicon, nothing is said where notes are not shown.
  Run.vsFiles.pop_back();
  EXPECT_EQ(CodesOf(), Strings());
  Options.Least = Severity::Note;
  EXPECT_EQ(CodesOf(), (Strings{"TR050 note 1", "TR050 note 1"}));
}

TEST(CheckCommand, NamesStartTypesWithoutRules) {
  CheckOptions Options;
  Options.Starts = "n,S";
  const CheckEnd End = Check(Lexicon, Options);
  EXPECT_EQ(End.Status, Grammar::StatusClean);
  EXPECT_EQ(End.Streams, (Written{"", "trrule: --start: no usable rule has the type \"S\"\n"}));
}

TEST(CheckCommand, ReportsPlacesWithoutSourceUnlessThereIsAnError) {
  const std::string Rule = "NP::NP : [N] -> [DET N]\n(X1::Y2)\n";
  const CheckEnd End = Check(Rule, CheckOptions());
  EXPECT_EQ(End.Status, Grammar::StatusFindings);
  EXPECT_EQ(End.Result,
            "a b.trr:1:18: warning TR015: the target component has no source to come from\n"
            "  NP::NP : [N] -> [DET N]\n                   ^~~\n");
  EXPECT_EQ(Check(Rule + "(x9 = x1)\n", CheckOptions()).Result,
            "a b.trr:3:2: error TR009: there is no x9: the source side has 1 component\n"
            "  (x9 = x1)\n   ^~\n");
}

// ---- Threads ----------------------------------------------------------------------------------

/// Several files, one of them missing, and one that is not a grammar.
CheckEnd CheckWithThreads(const TestFolder& Folder, unsigned Threads, CheckOptions Options) {
  RunOptions Run;
  Run.vsFiles = {Folder.Path("a"), Folder.Path("none"), Folder.Path("b"), Folder.Path("a"),
                 Folder.Path("nor this")};
  Run.Output = Folder.Path("out");
  Run.Threads = Threads;
  Run.Force = true;
  CheckEnd End{-1, "", {}};
  End.Streams = WrittenBy([&] { End.Status = RunCheck(Run, Options); });
  End.Result = Folder.Read("out");
  return End;
}

TEST(CheckCommand, ReportsTheSameForAnyNumberOfThreads) {
  const TestFolder Folder;
  Folder.Write("a", LargeGrammar());
  Folder.Write("b", "Dear all,\nplease find\nthe grammar\nattached.\n");
  for (const FindingFormat Format :
       {FindingFormat::Text, FindingFormat::Json, FindingFormat::Sarif}) {
    CheckOptions Options;
    Options.Format = Format;
    Options.Least = Severity::Note;
    const CheckEnd One = CheckWithThreads(Folder, 1, Options);
    EXPECT_EQ(One.Status, Grammar::StatusFailed);
    for (const unsigned Threads : {2U, 3U, 8U}) {
      const CheckEnd Several = CheckWithThreads(Folder, Threads, Options);
      EXPECT_EQ(Several.Status, One.Status) << Threads;
      EXPECT_TRUE(Several.Result == One.Result) << Threads;
      EXPECT_EQ(Several.Streams, One.Streams) << Threads;
    }
  }
}

}  // namespace
