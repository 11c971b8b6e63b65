// The command as people meet it: whole outputs, both streams and the status.

#include "GrammarPaths.h"
#include "TestFolder.h"
#include "WhyCommand.h"
#include "support/ChildProcess.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

ChildEnd RunWhyProgram(Strings vsArguments, const std::string& Input = "/dev/null") {
  return RunInChild([&] {
    dup2(open(Input.c_str(), O_RDONLY), STDIN_FILENO);
    vsArguments.insert(vsArguments.begin(), {GrammarPaths::Program, "why"});
    std::vector<char*> vArguments;
    for (std::string& sArgument : vsArguments) {
      vArguments.push_back(sArgument.data());
    }
    vArguments.push_back(nullptr);
    execv(GrammarPaths::Program, vArguments.data());
  });
}

const std::string Nouns = "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n";
const std::string Phrases = "{NP,1}\nNP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n";
const std::string Bad = "{NP,1}\nNP::NP : [\"a\" N] -> [N N]\n(X2::Y1)\n";

const std::string Stops =
    "NP,1 does not begin at \"car\"; x1 wants the word \"THE\", and at \"car\" begins N::N "
    "\"car\"\n";

TEST(WhyProgram, ExplainsAllMatchingRules) {
  const TestFolder Folder;
  const std::string First = Folder.Write("a.trr", Phrases);
  const std::string Second = Folder.Write("b.trr", Nouns + Phrases);
  EXPECT_EQ(RunWhyProgram({"np,1", First, "--lexicon", Second, "--text", "car"}),
            (ChildEnd{0,
                      First + ":2: {NP,1} NP::NP : [\"the\" N] -> [\"el\" N]\n" + Stops + "\n" +
                          Second + ":5: {NP,1} NP::NP : [\"the\" N] -> [\"el\" N]\n" + Stops,
                      ""}));
  EXPECT_EQ(RunWhyProgram({"--text", "car", "--", "-:3", "-", First}, Second),
            (ChildEnd{0,
                      "-:2: {N,1} N::N : [\"car\"] -> [\"auto\"]\nN,1 makes N::N of \"car\": [] -> "
                      "[], words \"auto\"; it is in the best derivation\n",
                      ""}));
}

TEST(WhyProgram, ShowsWordsInCapitalsUnlessCaseCounts) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", "NP::NP : [\"The\"] -> [\"el\"]\n(X1::Y1)\n");
  const auto Expected = [&](const std::string& Word) {
    return ChildEnd{0,
                    Grammar + ":1: NP::NP : [\"The\"] -> [\"el\"]\n" + Grammar +
                        ":1 does not begin at \"car\"; x1 wants the word \"" + Word +
                        "\", and no constituent begins at \"car\"\n",
                    ""};
  };
  EXPECT_EQ(RunWhyProgram({Grammar + ":1", Grammar, "--text", "car"}), Expected("THE"));
  EXPECT_EQ(RunWhyProgram({Grammar + ":1", Grammar, "--text", "car", "--match-case"}),
            Expected("The"));
}

TEST(WhyProgram, ReportsASkippedRule) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Bad + Nouns);
  const std::string Finding =
      Grammar + ":2:24: error TR015: the target component has no source to come from\n";
  EXPECT_EQ(
      RunWhyProgram({"NP,1", Grammar, "--text", "car"}),
      (ChildEnd{1, Grammar + ":2: {NP,1} NP::NP : [\"a\" N] -> [N N]\nNP,1 is left out: " + Finding,
                Finding + "1 of 2 rules was left out\n"}));
  EXPECT_EQ(RunWhyProgram({Grammar + ":2", Grammar, "--text", "car", "--format", "json"}),
            (ChildEnd{1,
                      "{\"rule\":\"" + Grammar + ":2\",\"header\":\"NP,1\",\"findings\":[{" +
                          "\"place\":\"" + Grammar + ":2:24\",\"code\":\"TR015\",\"message\":" +
                          "\"the target component has no source to come from\"}]}\n",
                      Finding + "1 of 2 rules was left out\n"}));
}

TEST(WhyProgram, SuggestsANameIfNoRuleMatches) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns + Phrases);
  EXPECT_EQ(RunWhyProgram({"NP,2", Grammar, "--text", "car"}),
            (ChildEnd{1, "", "trrule: no rule fits NP,2; did you mean NP,1?\n"}));
  EXPECT_EQ(RunWhyProgram({Grammar + ":99", Grammar, "--text", "car"}),
            (ChildEnd{1, "", "trrule: no rule fits " + Grammar + ":99\n"}));
}

TEST(WhyProgram, ReportsALimitAndATextWithoutWords) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  const std::string Heading = Grammar + ":2: {N,1} N::N : [\"car\"] -> [\"auto\"]\n";
  const std::string Error = "there are more than 0 constituents";
  EXPECT_EQ(RunWhyProgram({"N,1", Grammar, "--text", "car", "--max-constituents", "0"}),
            (ChildEnd{1, Heading + "nothing is known of N,1: " + Error + "\n",
                      "--text:1: error: " + Error + "\n"}));
  EXPECT_EQ(
      RunWhyProgram(
          {"N,1", Grammar, "--text", "car", "--max-constituents", "0", "--format", "json"}),
      (ChildEnd{1,
                "{\"rule\":\"" + Grammar + ":2\",\"header\":\"N,1\",\"error\":\"" + Error + "\"}\n",
                "--text:1: error: " + Error + "\n"}));
  EXPECT_EQ(RunWhyProgram({"N,1", Grammar, "--text", " "}),
            (ChildEnd{0, Heading + "N,1 has nothing to do: the text has no words\n", ""}));
}

TEST(WhyProgram, EndsWithStatus2AndOneLineWhenTheRunFails) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{"NP,1", Grammar}, "--text is required"},
      {{"NP,1", "--text", "a"}, "no grammar is named after the rules"},
      {{Grammar, "--text", "a"}, "no grammar is named after the rules"},
      {{"NP,1", "/no/such/file", "--text", "a"},
       "cannot read /no/such/file: No such file or directory"},
      {{"NP,1", Grammar, "--text", "a", "--format", "tree"},
       "--format: tree not in {plain,json,html}"},
  };
  for (const auto& [vsArguments, sMessage] : Cases) {
    EXPECT_EQ(RunWhyProgram(vsArguments), (ChildEnd{2, "", "trrule: " + sMessage + "\n"}));
  }
}

TEST(WhyProgram, DistinguishesNamesOfRulesFromFiles) {
  const TestFolder Folder;
  const std::string Grammar = Folder.Write("a.trr", Nouns);
  const std::string Header = Folder.Write("NP,1", Phrases);
  const auto Split = [](const Strings& vsArguments) {
    Strings vsNames;
    Strings vsGrammars;
    Translate::SplitRuleNames(vsArguments, vsNames, vsGrammars);
    return std::pair(vsNames, vsGrammars);
  };
  using Both = std::pair<Strings, Strings>;
  EXPECT_EQ(Split({"NP,1", "N,2", Grammar, "N,3"}), Both({"NP,1", "N,2"}, {Grammar, "N,3"}));
  EXPECT_EQ(Split({Grammar + ":1", Grammar + ":2", Grammar}),
            Both({Grammar + ":1", Grammar + ":2"}, {Grammar}));
  // A file of that name is a file, but for the first argument, and so is what no file stands
  // before.
  EXPECT_EQ(Split({Header, Header, Grammar}), Both({Header}, {Header, Grammar}));
  EXPECT_EQ(Split({"N,1", "/no/such/file:1"}), Both({"N,1"}, {"/no/such/file:1"}));
  EXPECT_EQ(Split({"N,1", "-:1", "-"}), Both({"N,1", "-:1"}, {"-"}));
  EXPECT_EQ(Split({}), Both());
}

}  // namespace
