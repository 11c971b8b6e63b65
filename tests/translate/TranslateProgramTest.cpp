// The command as people meet it: whole outputs, both streams and the status.

#include "GrammarPaths.h"
#include "TestFolder.h"
#include "support/ChildProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

/// Runs the command on a file as its standard input.
ChildEnd RunTranslate(Strings vsArguments, const std::string& Input = "/dev/null") {
  return RunInChild([&] {
    dup2(open(Input.c_str(), O_RDONLY), STDIN_FILENO);
    vsArguments.insert(vsArguments.begin(), {GrammarPaths::Program, "translate"});
    std::vector<char*> vArguments;
    for (std::string& sArgument : vsArguments) {
      vArguments.push_back(sArgument.data());
    }
    vArguments.push_back(nullptr);
    execv(GrammarPaths::Program, vArguments.data());
  });
}

const std::string Nouns = "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n";
const std::string Phrases = "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n";

TEST(TranslateProgram, TranslatesEachLineInOrder) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns + Phrases);
  std::string Texts;
  std::string Expected;
  for (int Count = 0; Count < 2000; ++Count) {
    Texts += Count % 2 == 0 ? "the car\r\n" : "car\n";
    Expected += Count % 2 == 0 ? "el auto\n" : "auto\n";
  }
  const std::string Input = Folder.Write("texts", Texts);
  for (const char* Threads : {"1", "2", "7"}) {
    EXPECT_EQ(RunTranslate({Grammar, "--threads", Threads}, Input), (ChildEnd{0, Expected, ""}));
  }
}

TEST(TranslateProgram, ReportsLinesWithoutTranslation) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  const std::string Input = Folder.Write("texts", "car\nbus\n\ncar");
  const std::string Messages =
      "-:2: error: there is no translation\n-:3: error: there is no translation\n";
  EXPECT_EQ(RunTranslate({Grammar}, Input), (ChildEnd{1, "auto\n\n\nauto\n", Messages}));
  EXPECT_EQ(RunTranslate({Grammar, "-k", "2"}, Input),
            (ChildEnd{1, "0.000000\tauto\n\n\n\n0.000000\tauto\n\n", Messages}));
  EXPECT_EQ(RunTranslate({Grammar, "--partial"}, Input),
            (ChildEnd{1, "auto\nbus\n\nauto\n", Messages}));
  EXPECT_EQ(RunTranslate({Grammar}), (ChildEnd{0, "", ""}));
}

TEST(TranslateProgram, TranslatesAGivenText) {
  const TestFolder Folder;
  const std::string First = Folder.Write("a.trr", Phrases);
  const std::string Second = Folder.Write("b.trr", Nouns);
  EXPECT_EQ(RunTranslate({First, Second, "--text", "The Car"}), (ChildEnd{0, "el auto\n", ""}));
  EXPECT_EQ(RunTranslate({First, "--text", "The Car", "--lexicon", Second}),
            (ChildEnd{0, "el auto\n", ""}));
  EXPECT_EQ(RunTranslate({First, "-", "--text", "the\ncar"}, Second),
            (ChildEnd{0, "el auto\n", ""}));
  EXPECT_EQ(RunTranslate({First, "--text", "car"}),
            (ChildEnd{1, "\n", "--text:1: error: there is no translation\n"}));
  EXPECT_EQ(RunTranslate({First, Second, "--text", "el auto", "--reverse"}),
            (ChildEnd{0, "the car\n", ""}));
  EXPECT_EQ(RunTranslate({First, Second, "--text", "The car", "--match-case", "--partial"}),
            (ChildEnd{1, "The auto\n", "--text:1: error: there is no translation\n"}));
}

TEST(TranslateProgram, ReportsSkippedRules) {
  const TestFolder Folder;
  const std::string Grammar =
      Folder.Write("a.trr", "NP::NP : [\"the\" N] -> [N N]\n(X2::Y1)\n" + Nouns);
  const std::string Place = Grammar + ":1:26: error TR015: ";
  EXPECT_EQ(RunTranslate({Grammar, "--text", "car"}),
            (ChildEnd{1, "auto\n",
                      Place + "the target component has no source to come from\n"
                              "1 of 2 rules was left out\n"}));
}

TEST(TranslateProgram, ReportsStartTypesWithoutRules) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  EXPECT_EQ(RunTranslate({Grammar, "--text", "car", "--start", " n , S"}),
            (ChildEnd{0, "auto\n", "trrule: --start: no usable rule has the type \"S\"\n"}));
}

TEST(TranslateProgram, WritesJsonWithPiecesAndCounts) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  EXPECT_EQ(
      RunTranslate({Grammar, "--text", "a car", "--partial", "--count", "--format", "json"}),
      (ChildEnd{1,
                "{\"source\":\"a car\",\"translations\":[],\"pieces\":[{\"span\":[0,1],"
                "\"target\":\"a\",\"tree\":null},{\"span\":[1,2],\"target\":\"auto\",\"tree\":"
                "{\"rule\":\"" +
                    Grammar +
                    ":1\",\"header\":null,\"span\":[1,2],\"types\":[\"N\",\"N\"],"
                    "\"source\":{},\"target\":{},\"children\":[]}}],\"derivations\":0,"
                    "\"error\":null}\n",
                "--text:1: error: there is no translation\n"}));
}

TEST(TranslateProgram, DrawsTrees) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write(
      "a.trr",
      Phrases + "((x0 f) = (*OR* p q))\n((y0 a) = (y0 b))\n((y0 b c) = (*NOT* p))\n" + Nouns);
  EXPECT_EQ(RunTranslate({Grammar, "--text", "the car", "--format", "tree"}),
            (ChildEnd{0,
                      "the car\n0.000000 el auto\nNP::NP " + Grammar +
                          ":1 \"the car\" [F=P|Q] -> [A=#1:[C=!P] B=#1]\n└─ N::N " + Grammar +
                          ":6 \"car\"\n\n",
                      ""}));
}

TEST(TranslateProgram, DrawsTheTreesOfPiecesAndNoneBeyondALimit) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Phrases + Nouns);
  const std::string Tree =
      "NP::NP " + Grammar + ":1 \"the car\"\n└─ N::N " + Grammar + ":3 \"car\"\n";
  EXPECT_EQ(RunTranslate({Grammar, "--text", "on the car", "--partial", "--format", "tree"}),
            (ChildEnd{1, "on the car\nno translation\non\nel auto\n" + Tree + "\n",
                      "--text:1: error: there is no translation\n"}));
  EXPECT_EQ(
      RunTranslate({Grammar, "--text", "the car", "--max-constituents", "1", "--format", "tree"}),
      (ChildEnd{1, "the car\nthere are more than 1 constituents\n\n",
                "--text:1: error: there are more than 1 constituents\n"}));
}

TEST(TranslateProgram, FailsAtALimit) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns + Nouns + Phrases);
  EXPECT_EQ(RunTranslate({Grammar, "--text", "the car", "--max-constituents", "1"}),
            (ChildEnd{1, "\n", "--text:1: error: there are more than 1 constituents\n"}));
  EXPECT_EQ(RunTranslate({Grammar, "--text", "car", "--max-derivations", "0", "-k", "2"}),
            (ChildEnd{1, "-0.693147\tauto\n\n",
                      "--text:1: error: more than 0 derivations repeat earlier texts\n"}));
}

TEST(TranslateProgram, EndsWithStatus2AndOneLineWhenTheRunFails) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{}, "FILE is required"},
      {{"-"}, "standard input holds the texts: a grammar from there needs --text"},
      {{Grammar, "-k", "0"}, "-k: invalid number 0; use a number from 1 on"},
      {{Grammar, "-k", "x"}, "-k: invalid number x; use a number from 1 on"},
      {{Grammar, "--threads", "0"}, "--threads: invalid number 0; use a number from 1 on"},
      {{Grammar, "--max-chain", "-1"}, "--max-chain: invalid number -1; use a number from 0 on"},
      {{Grammar, "--format", "xml"}, "--format: xml not in {plain,json,tree,svg,html}"},
      {{"/no/such/file"}, "cannot read /no/such/file: No such file or directory"},
      {{Grammar, "-o", "/no/such/file"}, "cannot write /no/such/file: No such file or directory"},
  };
  for (const auto& [vsArguments, sMessage] : Cases) {
    EXPECT_EQ(RunTranslate(vsArguments), (ChildEnd{2, "", "trrule: " + sMessage + "\n"}));
  }
}

TEST(TranslateProgram, WritesAFileThatAppearsWhole) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  EXPECT_EQ(RunTranslate({Grammar, "--text", "car", "-o", Folder.Path("out")}),
            (ChildEnd{0, "", ""}));
  EXPECT_EQ(Folder.Read("out"), "auto\n");
}

}  // namespace
