// `merge` as a program: what it writes and reports, damaged files, and git with it.

#include "ConsolePage.h"
#include "MergeSupport.h"
#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace std::string_literals;

using Strings = std::vector<std::string>;

// ---- Files ------------------------------------------------------------------------------------

std::string Rule(const std::string& Number, const std::string& Label,
                 const std::string& Comments = "") {
  return Comments + "{NP," + Number + "}\nNP::NP : [" + Label + " n] -> [N]\n(X2::Y1)\n";
}

const std::string One = Rule("1", "A");
const std::string Two = Rule("2", "B", "; two\n");
const std::string Three = Rule("3", "C");
const std::string Bad = "{XP,1}\nXP::XP : [N -> [N]\n(X1::Y1)\n\n";

TEST(FileMerge, KeepsBytesAndPutsNewRulesWhereTheyStand) {
  const struct {
    std::string Base;
    std::string Ours;
    std::string Theirs;
    std::string Merged;
  } Cases[] = {
      {"", "", "", ""},
      {One, One, One, One},
      {One + Two, Two + One, One + Two, Two + One},
      {One + Two, One + Two, One + Three + Two, One + Three + Two},
      {One + Two, Three + One + Two, One + Two + Bad, Three + One + Two + Bad},
      {"", One, Two, Two + One},
      {"", One, One, One},
      {One + Two + Three, Two + Three, One + Two, Two},
      {One + Bad, One + Bad, Bad + One, One + Bad},
      {One + Bad, One, One + Bad, One},
      {One + Bad, One + Bad + Two, One, One + "\n" + Two},
      {"; text", "; text", "; text\n" + One, "; text\n" + One},
      {"", "\n\n", One, One + "\n\n"},
  };
  for (const auto& Case : Cases) {
    const MergedText Merged = MergeOf(Case.Base, Case.Ours, Case.Theirs);
    EXPECT_EQ(Merged.Text, Case.Merged);
    EXPECT_TRUE(Merged.vConflicts.empty());
  }
}

TEST(FileMerge, WritesMergedRulesWithTheLineEndsOfOurs) {
  const std::string Ours = "{NP,1}\r\nNP::NP : [A n] -> [N]\r\n(X2::Y1)\r\n(x0 = x2)\r\n";
  EXPECT_EQ(MergeOf(One, Ours, Rule("1", "A", "; new\n")).Text,
            "; new\r\n{NP,1}\r\nNP::NP [A N] -> [N]\r\n(\r\n(X2::Y1)\r\n(X0 = X2)\r\n)\r\n");
}

TEST(FileMerge, JoinsARuleThatBothHaveAdded) {
  EXPECT_EQ(MergeOf("", Rule("1", "A", ";;Score:3\n"), Rule("1", "a", "; new\n")).Text,
            ";;Score:4\n; new\n{NP,1}\nNP::NP [A N] -> [N]\n(\n(X2::Y1)\n)\n");
}

TEST(FileMerge, AddsCountsAlsoWhereBothVersionsAreTheSame) {
  const std::string Body = "{NP,1}\nNP::NP [A N] -> [N]\n(\n(X2::Y1)\n)\n";
  EXPECT_EQ(MergeOf(";;Score:3\n" + Body, ";;Score:5\n" + Body, ";;Score:5\n" + Body).Text,
            ";;Score:7\n" + Body);
  EXPECT_EQ(MergeOf("", ";;Score:5\n" + Body, ";;Score:5\n" + Body).Text, ";;Score:10\n" + Body);
  EXPECT_EQ(MergeOf("", Body, Body).Text, Body);
}

TEST(FileMerge, NeverLosesAByteOfOursWhereOnlyOursIsDamaged) {
  const std::string Text = One + Two + Bad + Three;
  for (std::size_t Size = 0; Size <= Text.size(); ++Size) {
    const std::string Prefix = Text.substr(0, Size);
    EXPECT_EQ(MergeOf(Text, Prefix, Text).Text, Prefix);
    EXPECT_EQ(MergeOf(Prefix, Prefix, Prefix).Text, Prefix);
    EXPECT_EQ(ContentsOf(MergeOf(Prefix, Prefix, Text).Text), ContentsOf(Text));
  }
  for (const std::string& sDamage : {"\0"s, "\xFF\xFE"s, "\r"s, ")"s, "{"s}) {
    const std::string Damaged = One + sDamage + Two;
    EXPECT_EQ(MergeOf(One + Two, Damaged, One + Two).Text, Damaged);
  }
}

// ---- The program ------------------------------------------------------------------------------

ChildEnd Merge(const TestFolder& Folder, Strings vsArguments) {
  vsArguments.insert(vsArguments.begin(), "merge");
  return RunTrrule(vsArguments, Folder.Path(""));
}

TEST(MergeProgram, MergesInPlace) {
  const TestFolder Folder;
  Folder.Write("base", One + Two);
  Folder.Write("ours", One + Rule("2", "D", "; two\n"));
  Folder.Write("theirs", Rule("1", "A", "; one\n") + Two);
  const std::string Expected = Rule("1", "A", "; one\n") + Rule("2", "D", "; two\n");
  for (const char* Memory : {"1", "64M"}) {
    for (const char* Threads : {"1", "3"}) {
      EXPECT_EQ(Merge(Folder, {"base", "ours", "theirs", "--memory", Memory, "--threads", Threads}),
                (ChildEnd{0, Expected, ""}));
    }
  }
  EXPECT_EQ(Merge(Folder, {"-o", "ours", "base", "ours", "theirs"}), (ChildEnd{0, "", ""}));
  EXPECT_EQ(Folder.Read("ours"), Expected);
}

TEST(MergeProgram, ReportsConflictsThatCheckFinds) {
  const TestFolder Folder;
  const auto Other = [](const std::string& Label) {
    return "{VP,4}\nVP::VP : [" + Label + "] -> [V V]\n(X1::Y2)\n";
  };
  Folder.Write("base", One + Two + Three);
  Folder.Write("ours", Rule("1", "D") + Other("X") + Three);
  Folder.Write("theirs", Rule("1", "E") + Rule("2", "F", "; two\n") + Other("Y") + Three);
  const ChildEnd End =
      Merge(Folder, {"-o", "merged", "--path", "np.trr", "base", "ours", "theirs"});
  EXPECT_EQ(End,
            (ChildEnd{1, "", R"(np.trr:1:1: error TR017: two versions of the rule are not merged
  ours: component 1 of the source: A becomes D
  theirs: component 1 of the source: A becomes E
theirs:4:1: error TR017: two versions of the rule are not merged
  theirs has changed the rule, and ours has removed it
np.trr:4:1: error TR017: two versions of the rule are not merged
  ours and theirs have added different rules with one header
)"}));
  EXPECT_EQ(Folder.Read("merged"),
            R"--(;;Conflict: see both versions, correct the rule, and remove these lines
;; ours: component 1 of the source: A becomes D
;; theirs: component 1 of the source: A becomes E
{NP,1}
NP::NP [D N] -> [N]
(
(X2::Y1)
)
;;Conflict: see both versions, correct the rule, and remove these lines
;; ours: the rule is removed
;; theirs: component 1 of the source: B becomes F
; two
{NP,2}
NP::NP [F N] -> [N]
(
(X2::Y1)
)
;;Conflict: see both versions, correct the rule, and remove these lines
;; ours: another rule with this header
;; theirs: this rule
{VP,4}
VP::VP [Y] -> [V V]
(
(X1::Y2)
)
;;Conflict: see both versions, correct the rule, and remove these lines
;; ours: this rule
;; theirs: another rule with this header
{VP,4}
VP::VP [X] -> [V V]
(
(X1::Y2)
)
{NP,3}
NP::NP : [C n] -> [N]
(X2::Y1)
)--");
  const ChildEnd Checked = RunTrrule({"check", "--only", "TR017", "merged"}, Folder.Path(""));
  EXPECT_EQ(
      Checked,
      (ChildEnd{1, R"(merged:1:1: error TR017: the comments from here on show what is to be merged
  ;;Conflict: see both versions, correct the rule, and remove these lines
  ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
merged:9:1: error TR017: the comments from here on show what is to be merged
  ;;Conflict: see both versions, correct the rule, and remove these lines
  ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
merged:18:1: error TR017: the comments from here on show what is to be merged
  ;;Conflict: see both versions, correct the rule, and remove these lines
  ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
merged:26:1: error TR017: the comments from here on show what is to be merged
  ;;Conflict: see both versions, correct the rule, and remove these lines
  ^~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~
)",
                "4 errors, 0 warnings, 0 notes\n"}));
}

TEST(MergeProgram, EndsWithStatus2AndOneLineWhenTheRunFails) {
  const TestFolder Folder;
  Folder.Write("a", One);
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{"a", "a"}, "THEIRS is required"},
      {{"a", "-", "-"}, "cannot read several versions from standard input"},
      {{"a", "none", "a"}, "cannot read none: No such file or directory"},
      {{"a", "a", "a", "-o", "none/a"}, "cannot write none/a: No such file or directory"},
  };
  for (const auto& [vsArguments, sMessage] : Cases) {
    EXPECT_EQ(Merge(Folder, vsArguments), (ChildEnd{2, "", "trrule: " + sMessage + "\n"}));
  }
  EXPECT_EQ(Merge(Folder, {"a", "-", "a"}), (ChildEnd{0, "", ""}));
}

TEST(GitDocument, ShowsWhatGitDoes) {
  // Whatever git has been told elsewhere.
  setenv("GIT_CONFIG_GLOBAL", "/dev/null", 1);
  setenv("GIT_CONFIG_NOSYSTEM", "1", 1);
  ExpectConsolesHold("docs/git.md", 2);
}

}  // namespace
