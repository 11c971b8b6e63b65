// Nothing of a grammar is lost silently: what the commands write, what they report, and
// when they leave a file alone.

#include "RuleRun.h"

#include "ProgramRun.h"
#include "RuleGenerator.h"
#include "TestFolder.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const std::string Stray =
    ";; SL: the car\n"
    "{NP,1} first\n"
    "NP::NP : [DET N] -> [DET N] see {NP,2}\n"
    "(\n"
    "(X1::Y1) = sure\n"
    "(X2:Y2)\n"
    "(X2::Y2) ;; a comment\n"
    "((x1 num) -> sg)\n"
    "# note\n"
    "(x0 = x2)\n"
    ")\n";

const std::string StrayReport =
    "a.trr:2:8: error TR035: this text is not part of a rule\n"
    "a.trr:3:29: error TR035: this text is not part of a rule\n"
    "a.trr:5:10: error TR035: this text is not part of a rule\n"
    "a.trr:6:1: error TR035: this line is not part of a rule; an alignment needs \"::\"\n"
    "a.trr:8:1: error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
    "a.trr:9:1: error TR035: this line is not part of a rule; a comment begins with \";;\"\n";

const std::string StrayBlock =
    "{NP,1}\n"
    "NP::NP [DET N] -> [DET N]\n"
    "(\n"
    "(X1::Y1)\n"
    "(X2::Y2)\n"
    "(X0 = X2)\n"
    ")\n";

const std::string StrayWritten =
    ";; SL: the car\n"
    ";; not read: first\n"
    ";; not read: see %7BNP,2}\n"
    ";; not read: %3D sure\n"
    ";; not read: (X2:Y2)\n"
    ";; a comment\n"
    ";; not read: ((x1 num) -> sg)\n"
    ";; not read: # note\n" +
    StrayBlock;

const std::string Good = "{NP,3}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
const std::string Bad = "{NP,2}\nNP::NP [N] -> [N]\n";

/// What a command makes of a file a.trr.
ChildEnd RunOn(const std::string& Text, Strings vsArguments) {
  const TestFolder Folder;
  Folder.Write("a.trr", Text);
  vsArguments.emplace_back("a.trr");
  return RunTrrule(vsArguments, Folder.Path(""));
}

TEST(RuleRun, KeepsStrayTextAsComments) {
  EXPECT_EQ(RunOn(Stray + Good, {"print"}), (ChildEnd{1, StrayWritten + Good, StrayReport}));
  EXPECT_EQ(RunOn(Good + Stray, {"sort"}).Out, StrayWritten + Good);
  EXPECT_EQ(RunOn(Stray + Good, {"sort"}), (ChildEnd{1, StrayWritten + Good, StrayReport}));
  EXPECT_EQ(RunOn(Stray + Good, {"unique"}), (ChildEnd{1, StrayWritten + Good, StrayReport}));
  EXPECT_EQ(RunOn(Stray + Good, {"unique", "--sorted"}),
            (ChildEnd{1, StrayWritten + Good, StrayReport}));
  EXPECT_EQ(RunOn(Stray, {"print", "--no-comments"}), (ChildEnd{1, StrayBlock, StrayReport}));
}

TEST(RuleRun, KeepsStrayTextOfMergedRules) {
  EXPECT_EQ(RunOn(StrayBlock + Stray + Stray, {"unique"}).Out,
            StrayWritten.substr(0, StrayWritten.find("{NP,1}")) + ";;Score:3\n" + StrayBlock);
}

TEST(RuleRun, KeepsStrayTextInJson) {
  const TestFolder Folder;
  Folder.Write("a.trr", Stray + Good);
  const ChildEnd Json = RunTrrule({"json", "a.trr"}, Folder.Path(""));
  EXPECT_EQ(Json.Status, 1);
  EXPECT_EQ(Json.Err, StrayReport);
  Folder.Write("a.jsonl", Json.Out);
  EXPECT_EQ(RunTrrule({"from-json", "a.jsonl"}, Folder.Path("")),
            (ChildEnd{0, StrayWritten + Good, ""}));
}

TEST(RuleRun, KeepsARuleWithStrayTextUnchanged) {
  EXPECT_EQ(RunOn(Stray + Good, {"print", "--keep-bad"}), (ChildEnd{1, Stray + Good, StrayReport}));
  EXPECT_EQ(RunOn(Stray + Good, {"sort", "--keep-bad"}), (ChildEnd{1, Good + Stray, StrayReport}));
  EXPECT_EQ(RunOn(Stray + Good, {"unique", "--keep-bad"}),
            (ChildEnd{1, Stray + Good, StrayReport}));
  const ChildEnd Json = RunOn(Stray, {"json", "--keep-bad"});
  EXPECT_EQ(Json.Status, 1);
  EXPECT_EQ(Json.Err, StrayReport);
  EXPECT_EQ(Json.Out.substr(0, 28), "{\"text\":\";; SL: the car\\n{NP");
}

TEST(RuleRun, WritesAStableOutput) {
  for (const std::string sCommand : {"print", "sort", "unique"}) {
    EXPECT_EQ(RunOn(StrayWritten + Good, {sCommand}), (ChildEnd{0, StrayWritten + Good, ""}));
  }
}

TEST(RuleRun, ReportsHowManyRulesWereLeftOut) {
  const std::string OneReport = "a.trr:2:1: error TR002: the rule has no alignment\n";
  const std::string TwoReport = OneReport + "a.trr:4:1: error TR002: the rule has no alignment\n";
  const struct {
    std::string Text;
    std::string Written;
    std::string Err;
  } Cases[] = {
      {Bad, "", OneReport + "1 of 1 rule was left out\n"},
      {Bad + Good, Good, OneReport + "1 of 2 rules was left out\n"},
      {Bad + Bad, "", TwoReport + "2 of 2 rules were left out\n"},
      {Bad + Bad + Good, Good, TwoReport + "2 of 3 rules were left out\n"},
  };
  for (const auto& Row : Cases) {
    for (const std::string sCommand : {"print", "sort", "unique"}) {
      EXPECT_EQ(RunOn(Row.Text, {sCommand}), (ChildEnd{1, Row.Written, Row.Err})) << sCommand;
    }
    EXPECT_EQ(RunOn(Row.Text, {"json"}).Err, Row.Err);
  }
  // A rule with stray text is not left out.
  EXPECT_EQ(
      RunOn(Bad + Stray.substr(0, Stray.find("# note")) + ")\n", {"print"}).Err,
      OneReport +
          "a.trr:4:8: error TR035: this text is not part of a rule\n"
          "a.trr:5:29: error TR035: this text is not part of a rule\n"
          "a.trr:7:10: error TR035: this text is not part of a rule\n"
          "a.trr:8:1: error TR035: this line is not part of a rule; an alignment needs \"::\"\n"
          "a.trr:10:1: error TR035: this line is not part of a rule; a constraint needs \"=\"\n"
          "1 of 2 rules was left out\n");
  EXPECT_EQ(RunOn(Bad + Good, {"print", "--keep-bad"}), (ChildEnd{1, Bad + Good, OneReport}));
}

TEST(RuleRun, CountsARuleInPiecesOnce) {
  const std::string Long = "{NP,1}\n" + std::string(std::size_t{5} << 20, 'a') + '\n';
  EXPECT_EQ(RunOn(Long + Good, {"print"}),
            (ChildEnd{1, Good,
                      "a.trr:1:1: error TR013: the library's reader reads 100,000 bytes after the "
                      "first line of a rule, and as many of a line\n"
                      "1 of 2 rules was left out\n"}));
}

TEST(RuleRun, OmitsWhatCannotBeCountedOrRepeated) {
  const std::string Report = "a.trr:2:1: error TR002: the rule has no alignment\n";
  for (const std::string sOption : {"--count", "--repeated"}) {
    EXPECT_EQ(
        RunOn(Bad + Good + Good, {"unique", "--keep-bad", sOption}),
        (ChildEnd{1,
                  sOption == "--count" ? "2\t;;Score:2\t{NP,3}\tNP::NP [N] -> [N]\t(\t(X1::Y1)\t)\n"
                                       : ";;Score:2\n" + Good,
                  Report + "1 of 3 rules was left out\n"}));
  }
}

TEST(RuleRun, CountsTheLinesOfJsonThatAreNotRules) {
  const std::string Rule =
      R"j({"slType":"NP","tlType":"NP","slLabels":["N"],"tlLabels":["N"],"alignments":"((1,1))"})j"
      "\n";
  const std::string Written = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
  EXPECT_EQ(RunOn(Rule + "[]\n\n{\"text\":\"; a\\n\"}\n" + Rule, {"from-json"}),
            (ChildEnd{1, Written + "; a\n" + Written,
                      "a.trr:2: error: should be an object\n1 of 3 rules was left out\n"}));
}

// ---- When a file is left alone ----------------------------------------------------------------

const std::string Refusal =
    "trrule: did not replace a.trr: it is an input, and what was left out would be lost "
    "(--keep-bad keeps that, --force drops it)\n";

TEST(RuleRun, DoesNotReplaceAnInputByLess) {
  const std::string Err =
      "a.trr:2:1: error TR002: the rule has no alignment\n1 of 2 rules was left out\n" + Refusal;
  for (const std::string sCommand : {"print", "sort", "unique", "json"}) {
    const TestFolder Folder;
    Folder.Write("a.trr", Bad + Good);
    EXPECT_EQ(RunTrrule({sCommand, "-o", "a.trr", "a.trr"}, Folder.Path("")),
              (ChildEnd{2, "", Err}))
        << sCommand;
    EXPECT_EQ(Folder.Names(), std::set<std::string>{"a.trr"});
    EXPECT_EQ(Folder.Read("a.trr"), Bad + Good);
  }
}

/// Runs print on a.trr and gives what then stands in it; what else is there stays in the folder.
std::string Replaced(const TestFolder& Folder, const std::string& Text, const Strings& vsArguments,
                     int Status, const std::string& Input = "/dev/null") {
  Folder.Write("a.trr", Text);
  EXPECT_EQ(RunTrrule(vsArguments, Folder.Path(""), Input).Status, Status);
  return Folder.Read("a.trr");
}

TEST(RuleRun, RecognisesAnInputUnderEveryName) {
  const TestFolder Folder;
  const std::string Text = Bad + Good;
  ASSERT_EQ(symlink("a.trr", Folder.Path("link").c_str()), 0);
  Folder.Write("a.trr", "");
  ASSERT_EQ(link(Folder.Path("a.trr").c_str(), Folder.Path("hard").c_str()), 0);
  ASSERT_EQ(mkdir(Folder.Path("b").c_str(), 0700), 0);
  Folder.Write("other", Good);
  for (const Strings& vsNames :
       {Strings{"a.trr", "link"}, Strings{"link", "a.trr"}, Strings{"a.trr", "hard"},
        Strings{"b/../a.trr", "a.trr"}, Strings{"a.trr", "other", "./a.trr"}}) {
    Strings vsArguments{"print", "-o"};
    vsArguments.insert(vsArguments.end(), vsNames.begin(), vsNames.end());
    EXPECT_EQ(Replaced(Folder, Text, vsArguments, 2), Text) << vsNames[0] << ' ' << vsNames[1];
  }
  // Standard input may be the file, too.
  EXPECT_EQ(Replaced(Folder, Text, {"print", "-o", "a.trr"}, 2, "a.trr"), Text);
  EXPECT_EQ(Replaced(Folder, Text, {"print", "-o", "a.trr", "-"}, 2, "a.trr"), Text);
}

TEST(RuleRun, ReplacesAnInputWhenNothingIsLostOrWhenForced) {
  const TestFolder Folder;
  const std::string Text = Bad + Good;
  EXPECT_EQ(Replaced(Folder, Text, {"print", "-o", "a.trr", "--keep-bad", "a.trr"}, 1), Text);
  EXPECT_EQ(Replaced(Folder, Text, {"sort", "-o", "a.trr", "--keep-bad", "a.trr"}, 1), Good + Bad);
  EXPECT_EQ(Replaced(Folder, Text, {"print", "-o", "a.trr", "--force", "a.trr"}, 1), Good);
  EXPECT_EQ(Replaced(Folder, Stray, {"print", "-o", "a.trr", "a.trr"}, 1), StrayWritten);
  EXPECT_EQ(Replaced(Folder, Stray, {"print", "-o", "a.trr", "--keep-bad", "a.trr"}, 1), Stray);
  EXPECT_EQ(Replaced(Folder, Good, {"print", "-o", "a.trr", "a.trr"}, 0), Good);
  // Stray text is lost where there are no comments.
  EXPECT_EQ(Replaced(Folder, Stray, {"print", "-o", "a.trr", "--no-comments", "a.trr"}, 2), Stray);
  EXPECT_EQ(
      Replaced(Folder, Stray, {"print", "-o", "a.trr", "--no-comments", "--force", "a.trr"}, 1),
      StrayBlock);
  // Another file may get what can be read.
  Folder.Write("a.trr", Text);
  EXPECT_EQ(RunTrrule({"print", "-o", "b.trr", "a.trr"}, Folder.Path("")).Status, 1);
  EXPECT_EQ(Folder.Read("b.trr"), Good);
  EXPECT_EQ(Folder.Read("a.trr"), Text);
}

TEST(RuleRun, DoesNotReplaceJsonByLess) {
  const TestFolder Folder;
  Folder.Write("a.trr", "[]\n");
  const std::string Report = "a.trr:1: error: should be an object\n1 of 1 rule was left out\n";
  EXPECT_EQ(
      RunTrrule({"from-json", "-o", "a.trr", "a.trr"}, Folder.Path("")),
      (ChildEnd{2, "",
                Report + "trrule: did not replace a.trr: it is an input, and what was left out "
                         "would be lost (--force drops it)\n"}));
  EXPECT_EQ(Folder.Read("a.trr"), "[]\n");
  EXPECT_EQ(RunTrrule({"from-json", "-o", "a.trr", "--force", "a.trr"}, Folder.Path("")),
            (ChildEnd{1, "", Report}));
  EXPECT_EQ(Folder.Read("a.trr"), "");
}

TEST(RuleRun, DoesNotReplaceAGrammarByItsFindings) {
  const TestFolder Folder;
  Folder.Write("a.trr", Good);
  EXPECT_EQ(RunTrrule({"check", "-o", "a.trr", "a.trr"}, Folder.Path("")),
            (ChildEnd{2, "",
                      "trrule: did not replace a.trr: it is an input (--force replaces it by the "
                      "findings)\n"}));
  EXPECT_EQ(Folder.Read("a.trr"), Good);
  EXPECT_EQ(RunTrrule({"check", "-o", "a.trr", "--force", "a.trr"}, Folder.Path("")),
            (ChildEnd{0, "", ""}));
  EXPECT_EQ(Folder.Read("a.trr"), "");
}

// ---- Files that cannot be read ----------------------------------------------------------------

TEST(RuleRun, ReadsTheOtherFilesWhenOneIsMissing) {
  const std::string Missing = "trrule: cannot read none: No such file or directory\n";
  const std::string Folders = "trrule: cannot read .: Is a directory\n";
  const TestFolder Folder;
  Folder.Write("a.trr", Good);
  Folder.Write("b.trr", StrayBlock);
  Folder.Write("c.trr", "{NP,9}\nNP::NP : [N] -> [N]\n(X1::Y2)\n");
  for (const std::string sCommand : {"print", "unique"}) {
    EXPECT_EQ(RunTrrule({sCommand, "none", "a.trr", ".", "b.trr"}, Folder.Path("")),
              (ChildEnd{2, Good + StrayBlock, Missing + Folders}));
  }
  EXPECT_EQ(RunTrrule({"print", "--from-one-line", "none", ".", "a.trr"}, Folder.Path("")),
            (ChildEnd{2, Good, Missing + Folders}));
  EXPECT_EQ(RunTrrule({"sort", "a.trr", "none", "b.trr", "none"}, Folder.Path("")),
            (ChildEnd{2, StrayBlock + Good, Missing + Missing}));
  EXPECT_EQ(RunTrrule({"check", "c.trr", "none"}, Folder.Path("")),
            (ChildEnd{2,
                      "c.trr:3:6: error TR010: there is no Y2: the target side has 1 component\n"
                      "  (X1::Y2)\n"
                      "       ^~\n",
                      Missing + "1 error, 0 warnings, 0 notes\n"}));
  Folder.Write("a.jsonl", RunTrrule({"json", "none", "a.trr"}, Folder.Path("")).Out);
  EXPECT_EQ(RunTrrule({"from-json", "none", "a.jsonl", "."}, Folder.Path("")),
            (ChildEnd{2, Good, Missing + Folders}));
  EXPECT_EQ(RunTrrule({"print", "none"}, Folder.Path("")), (ChildEnd{2, "", Missing}));
}

TEST(RuleRun, WritesNoFileWhenAnInputIsMissing) {
  const TestFolder Folder;
  Folder.Write("a.trr", Bad + Good);
  Folder.Write("b.trr", "before");
  const std::string Report =
      "a.trr:2:1: error TR002: the rule has no alignment\n"
      "trrule: cannot read none: No such file or directory\n"
      "1 of 2 rules was left out\n";
  const std::string Refused =
      "trrule: did not write b.trr: not all inputs could be read (--force writes it all the "
      "same)\n";
  EXPECT_EQ(RunTrrule({"print", "-o", "b.trr", "a.trr", "none"}, Folder.Path("")),
            (ChildEnd{2, "", Report + Refused}));
  EXPECT_EQ(Folder.Read("b.trr"), "before");
  EXPECT_EQ(RunTrrule({"print", "--force", "-o", "b.trr", "a.trr", "none"}, Folder.Path("")),
            (ChildEnd{2, "", Report}));
  EXPECT_EQ(Folder.Read("b.trr"), Good);
  EXPECT_EQ(Folder.Names(), (std::set<std::string>{"a.trr", "b.trr"}));
}

TEST(RuleRun, LeavesOutWhatTheLibraryCannotWrite) {
  const TestFolder Folder;
  const std::string Text =
      "{NP,3}\nNP::NP : [\"n\"] -> [N] [\n(X1::Y1)\n"
      "{NP,1}\nNP::NP : [N] -> [N]\n;; [a] -> [b]\n(X1::Y1)\n"
      "{NP,2}\nNP::NP : [A] -> [N]\n(X1::Y1)\n;; (x2 = x1)\n(x1 = x0)\n";
  Folder.Write("a.trr", Text);
  EXPECT_EQ(
      RunTrrule({"print", "--as-library", "a.trr"}, Folder.Path("")),
      (ChildEnd{1, "{NP,3}\nNP::NP [\"N\"] -> [N]\n(\n;--;(X1::Y1)\n)\n",
                "a.trr:2:23: error TR035: this text is not part of a rule\n"
                "a.trr:5:1: error TR014: the library's reader looks into comments, too, and cannot "
                "read this rule\n"
                "a.trr:9:1: error TR014: the library's reader looks into comments, too, and cannot "
                "put what it finds in order\n"
                "2 of 3 rules were left out\n"}));
  EXPECT_EQ(RunTrrule({"print", "--as-library", "--keep-bad", "a.trr"}, Folder.Path("")).Out, Text);
}

// ---- Threads ----------------------------------------------------------------------------------

/// Many rules with bad ones, stray text and texts that are not rules among them.
std::string MixedGrammar() {
  std::string Text = ";; before all\n";
  std::size_t Number = 0;
  for (const std::string& sRule : GeneratedRules(23, 3000)) {
    Text += sRule;
    Text += ++Number % 7 == 0 ? "{NP,1}\nNP::NP : [N -> [N]\n(X1::Y1)\n" : "";
    Text += Number % 11 == 0 ? Stray : "";
  }
  return Text;
}

/// Expects that a run over some files, of which one is missing, ends in the same way with any
/// number of threads.
/// @param Run runs with a number of threads
void ExpectTheSameFromAnyNumberOfThreads(
    const std::function<ChildEnd(const std::string& Threads)>& Run) {
  const ChildEnd One = Run("1");
  EXPECT_EQ(One.Status, 2);
  EXPECT_NE(One.Out, "");
  for (const char* const Count : {"2", "3", "8"}) {
    EXPECT_TRUE(Run(Count) == One) << Count << " threads write something else";
  }
}

TEST(RuleRun, WritesTheSameForAnyNumberOfThreads) {
  const TestFolder Folder;
  Folder.Write("a.trr", MixedGrammar());
  Folder.Write("b.trr", "; only a comment");
  for (const Strings& vsCommand :
       {Strings{"print"}, Strings{"print", "--keep-bad", "--flip"},
        Strings{"print", "--as-library"}, Strings{"sort"}, Strings{"sort", "--by", "type"},
        Strings{"unique"}, Strings{"unique", "--sorted", "--count"}, Strings{"json"}}) {
    SCOPED_TRACE(testing::PrintToString(vsCommand));
    const auto WithThreads = [&](const std::string& Count) {
      Strings vsArguments = vsCommand;
      vsArguments.insert(vsArguments.end(),
                         {"--threads", Count, "b.trr", "none", "a.trr", "b.trr"});
      return RunTrrule(vsArguments, Folder.Path(""));
    };
    ExpectTheSameFromAnyNumberOfThreads(WithThreads);
  }
}

TEST(RuleRun, ReadsTheSameFromJsonForAnyNumberOfThreads) {
  const TestFolder Folder;
  Folder.Write("a.trr", MixedGrammar());
  const std::string Json = RunTrrule({"json", "a.trr"}, Folder.Path("")).Out;
  std::string Mixed;
  std::size_t Number = 0;
  for (std::size_t At = 0; At < Json.size();) {
    const std::size_t End = Json.find('\n', At) + 1;
    Mixed.append(Json, At, End - At);
    ++Number;
    Mixed += Number % 5 == 0 ? "[]\n\n" : "";
    Mixed += Number % 7 == 0 ? "{\"slType\":\"NP\",\"more\":1}\n" : "";
    Mixed += Number % 9 == 0 ? "{\"text\":\"; no end\"}\n" : "";
    At = End;
  }
  Folder.Write("a.json", Mixed);
  Folder.Write("b.json", "{\"text\":\"; b\"}");
  const auto WithThreads = [&](const std::string& Count) {
    return RunTrrule({"from-json", "--threads", Count, "b.json", "none", "a.json", "b.json"},
                     Folder.Path(""));
  };
  ExpectTheSameFromAnyNumberOfThreads(WithThreads);
}

TEST(RuleRun, LeavesNothingOfABrokenRunFromJson) {
  const TestFolder Folder;
  Folder.Write("a.json", "{\"text\":\"; a\\n\"}\n");
  for (const std::string sCount : {"1", "2"}) {
    EXPECT_EQ(RunTrrule({"from-json", "--threads", sCount, "-o", "out.trr", "a.json", "none"},
                        Folder.Path(""))
                  .Status,
              2);
    EXPECT_EQ(Folder.Names(), (std::set<std::string>{"a.json"}));
  }
}

}  // namespace
