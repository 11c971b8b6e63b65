// What could be otherwise without a rule meaning anything else: docs/behaviour.md names these
// tests. Sections: grammars, options, output.

#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const std::string Phrases =
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n"
    "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n";

/// What the command gives for a grammar.
ChildEnd RunOn(const std::string& Grammar, Strings vsOptions,
               const std::string& Input = "/dev/null") {
  const TestFolder Folder;
  Folder.Write("a.trr", Grammar);
  vsOptions.insert(vsOptions.begin(), {"translate", "a.trr"});
  return RunTrrule(vsOptions, Folder.Path(""), Input);
}

const std::string NoTranslation = "--text:1: error: there is no translation\n";

// ---- Grammars ---------------------------------------------------------------------------------

/// A rule for "car" with more lines.
std::string CarRule(const std::string& Lines) {
  return "N::N : [\"car\"] -> [\"auto\"]\n" + Lines + '\n';
}

TEST(TranslateChoices, CountsAScoreAnywhereInTheRule) {
  const std::string Equal = "-0.693147\tauto\n-0.693147\tcoche\n\n";
  const std::string Four = "-0.223144\tauto\n-1.609438\tcoche\n\n";
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"(X1::Y1) ;;Score: 4", Four},
      {"(\n(X1::Y1)\n;;Score: 4\n)", Four},
      {";;Score: 4.9\n(X1::Y1)", Four},
      {";;Score: +4\n(X1::Y1)", Equal},
      {";;Score: -4\n(X1::Y1)", Equal},
      {";;Score 4\n(X1::Y1)", Equal},
      // After the last line of a body, a comment is the next rule's.
      {"(X1::Y1)\n;;Score: 4", "-0.223144\tcoche\n-1.609438\tauto\n\n"},
  };
  for (const auto& [sLines, sExpected] : Cases) {
    const std::string Grammar = CarRule(sLines) + "N::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n";
    EXPECT_EQ(RunOn(Grammar, {"--text", "car", "-k", "2"}), (ChildEnd{0, sExpected, ""})) << sLines;
  }
}

TEST(TranslateChoices, RejectsAListWithoutWordsAndAnEquationWithoutAValue) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"((x0 num) = (*OR*))",
       "18: error TR008: the constraint is not in the format from here on: "
       "expected a blank and words"},
      {"((x0 num) = (*NOT* ))",
       "20: error TR008: the constraint is not in the format from here "
       "on: expected a blank and words"},
      {"((x0 num) = )",
       "13: error TR008: the constraint is not in the format from here on: "
       "expected a value or a node"},
  };
  for (const auto& [sEquation, sMessage] : Cases) {
    EXPECT_EQ(
        RunOn(CarRule("(X1::Y1)\n" + sEquation), {"--text", "car"}),
        (ChildEnd{1, "\n",
                  "a.trr:3:" + sMessage + '\n' + NoTranslation + "1 of 1 rule was left out\n"}));
  }
}

TEST(TranslateChoices, AcceptsTheLibrarysConstraintsWithoutTheirLastParenthesis) {
  for (const char* Equation : {"((X0 NUM) = (*NOT* SG)", "(X0 = (X1 NUM)"}) {
    EXPECT_EQ(RunOn(CarRule(std::string("(X1::Y1)\n") + Equation), {"--text", "car"}),
              (ChildEnd{0, "auto\n", ""}));
  }
}

TEST(TranslateChoices, ReadsANodeByItsNumber) {
  const ChildEnd Ended = RunOn(CarRule("(X1::Y1)\n((x00 num) = sg)"), {"--text", "car"});
  EXPECT_EQ(Ended, (ChildEnd{0, "auto\n", ""}));
}

TEST(TranslateChoices, NamesAHeaderAsFarAsItCanBeRead) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"{N,007}", "\"N,7\""},
      {"{ N, 8 } text", "\"N,8\""},
      {"{N,-8}", "\"N,-8\""},
      {"{,-1}", "\",-1\""},
      {"{N,2147483647}", "\"N,2147483647\""},
      {"{N,2147483648}", "null"},
      {"{N,}", "null"},
      {"{N}", "null"},
  };
  for (const auto& [sHeader, sExpected] : Cases) {
    EXPECT_EQ(RunOn(sHeader + '\n' + CarRule("(X1::Y1)"), {"--text", "car", "--format", "json"}),
              (ChildEnd{0,
                        "{\"source\":\"car\",\"translations\":[{\"target\":\"auto\",\"score\":"
                        "0.000000,\"tree\":{\"rule\":\"a.trr:2\",\"header\":" +
                            sExpected +
                            ",\"span\":[0,1],\"types\":[\"N\",\"N\"],\"source\":{},\"target\":{},"
                            "\"children\":[]}}],\"error\":null}\n",
                        ""}));
  }
}

// ---- Options ----------------------------------------------------------------------------------

TEST(TranslateChoices, TreatsTheEmptyStartTypeAsOneWithoutRules) {
  const std::string Unknown = "trrule: --start: no usable rule has the type \"\"\n";
  const std::vector<std::pair<std::string, ChildEnd>> Cases{
      {"", {1, "\n", Unknown + NoTranslation}},
      {" ", {1, "\n", Unknown + NoTranslation}},
      {",", {1, "\n", Unknown + Unknown + NoTranslation}},
      {",np", {0, "el auto\n", Unknown}},
  };
  for (const auto& [sStart, Expected] : Cases) {
    EXPECT_EQ(RunOn(Phrases, {"--text", "the car", "--start", sStart}), Expected) << sStart;
  }
}

TEST(TranslateChoices, SplitsIntoPiecesOfTypesThatAreNotStartTypes) {
  EXPECT_EQ(RunOn(Phrases, {"--text", "a car", "--start", "NP", "--partial"}),
            (ChildEnd{1, "a auto\n", NoTranslation}));
}

TEST(TranslateChoices, ListsAllDerivationsEvenIfOneIsRequested) {
  EXPECT_EQ(RunOn(Phrases, {"--text", "the car", "--all-derivations", "-k", "1"}),
            (ChildEnd{0, "0.000000\tel auto\n\n", ""}));
}

TEST(TranslateChoices, AcceptsLimitsOfZero) {
  EXPECT_EQ(RunOn(Phrases, {"--text", "the car", "--max-chain", "0", "--max-derivations", "0"}),
            (ChildEnd{0, "el auto\n", ""}));
  EXPECT_EQ(RunOn(Phrases, {"--text", "the car", "--max-constituents", "0"}),
            (ChildEnd{1, "\n", "--text:1: error: there are more than 0 constituents\n"}));
}

TEST(TranslateChoices, CountsSkippedTextsEvenIfNoOtherTextFollows) {
  const std::string Twice = CarRule("(X1::Y1)") + CarRule("(X1::Y1)");
  EXPECT_EQ(RunOn(Twice, {"--text", "car", "-k", "2", "--max-derivations", "1"}),
            (ChildEnd{0, "-0.693147\tauto\n\n", ""}));
  EXPECT_EQ(RunOn(Twice, {"--text", "car", "-k", "2", "--max-derivations", "0"}),
            (ChildEnd{1, "-0.693147\tauto\n\n",
                      "--text:1: error: more than 0 derivations repeat earlier texts\n"}));
}

// ---- Output -----------------------------------------------------------------------------------

TEST(TranslateChoices, WritesAnEmptyLineForAFailedTextInPieces) {
  const std::string Message = "--text:1: error: there are more than 1 constituents\n";
  const Strings vsFailing{"--text", "the car", "--partial", "--max-constituents", "1"};
  EXPECT_EQ(RunOn(Phrases, vsFailing), (ChildEnd{1, "\n", Message}));
}

TEST(TranslateChoices, CountsNothingAtALimit) {
  const std::string Message = "there are more than 1 constituents";
  const Strings vsFailing{"--text",   "the car", "--max-constituents", "1", "--count",
                          "--format", "json"};
  EXPECT_EQ(RunOn(Phrases, vsFailing),
            (ChildEnd{1,
                      "{\"source\":\"the car\",\"translations\":[],\"derivations\":null,\"error\":"
                      "\"" +
                          Message + "\"}\n",
                      "--text:1: error: " + Message + '\n'}));
}

TEST(TranslateChoices, CountsSilentlyInThePlainForm) {
  EXPECT_EQ(RunOn(Phrases, {"--text", "the car", "--count"}), (ChildEnd{0, "el auto\n", ""}));
}

TEST(TranslateChoices, HasNoErrorInJsonForATextWithoutTranslation) {
  EXPECT_EQ(
      RunOn(Phrases, {"--text", "bus", "--format", "json"}),
      (ChildEnd{1, "{\"source\":\"bus\",\"translations\":[],\"error\":null}\n", NoTranslation}));
}

TEST(TranslateChoices, KeepsACarriageReturnWithinALine) {
  const TestFolder Folder;
  const std::string Input = Folder.Write("texts", "bus\r\r\nbus\r");
  EXPECT_EQ(RunOn(Phrases, {"--format", "json"}, Input),
            (ChildEnd{1,
                      "{\"source\":\"bus\\r\",\"translations\":[],\"error\":null}\n"
                      "{\"source\":\"bus\\r\",\"translations\":[],\"error\":null}\n",
                      "-:1: error: there is no translation\n"
                      "-:2: error: there is no translation\n"}));
}

TEST(TranslateChoices, ReportsAStructureThatIsTooLong) {
  // Each level has what is below it twice, and no words.
  const std::string Doubling =
      "S::S : [\"b\" S] -> [S S]\n(X2::Y1)\n(X2::Y2)\n((y0 l) = y1)\n((y0 r) = y2)\n"
      "S::S : [\"a\"] -> [\"\"]\n(X1::Y1)\n((y0 f) = p)\n";
  std::string Text = "a";
  for (int Count = 0; Count < 30; ++Count) {
    Text.insert(0, "b ");
  }
  const std::string Error = "a structure takes more than 4194304 bytes";
  const std::string Message = "--text:1: error: " + Error + '\n';
  EXPECT_EQ(RunOn(Doubling, {"--text", Text}), (ChildEnd{0, "\n", ""}));
  const std::string Json =
      "{\"source\":\"" + Text + "\",\"translations\":[],\"error\":\"" + Error + "\"}\n";
  EXPECT_EQ(RunOn(Doubling, {"--text", Text, "--format", "json"}), (ChildEnd{1, Json, Message}));
  EXPECT_EQ(RunOn(Doubling, {"--text", Text, "--format", "tree"}),
            (ChildEnd{1, Text + "\n" + Error + "\n\n", Message}));
  const TestFolder Folder;
  Folder.Write("a.trr", Doubling);
  EXPECT_EQ(
      RunTrrule({"why", "a.trr:1", "a.trr", "--text", Text}, Folder.Path("")),
      (ChildEnd{1,
                "a.trr:1: S::S : [\"b\" S] -> [S S]\nnothing is known of a.trr:1: " + Error + "\n",
                Message}));
}

TEST(TranslateChoices, ReportsStructuresThatAreTooLargeToBeUnified) {
  const std::string Grammar =
      "S::S : [A B] -> [A B]\n(X1::Y1)\n(X2::Y2)\n(y1 = y2)\n"
      "A::A : [\"a\" A] -> [A A]\n(X2::Y1)\n(X2::Y2)\n((y0 l) = y1)\n((y0 r) = y2)\n"
      "A::A : [\"c\"] -> [\"\"]\n(X1::Y1)\n((y0 f) = p)\n"
      "B::B : [\"b\" B] -> [B B]\n(X2::Y1)\n(X2::Y2)\n((y0 l) = y1)\n((y0 r) = y2)\n"
      "B::B : [\"d\"] -> [\"\"]\n(X1::Y1)\n((y0 g) = q)\n";
  const auto Text = [](int Count) {
    std::string Left = "c";
    std::string Right = "d";
    for (; Count > 0; --Count) {
      Left.insert(0, "a ");
      Right.insert(0, "b ");
    }
    return Left + ' ' + Right;
  };
  EXPECT_EQ(RunOn(Grammar, {"--text", Text(5)}), (ChildEnd{0, "\n", ""}));
  EXPECT_EQ(
      RunOn(Grammar, {"--text", Text(30)}),
      (ChildEnd{1, "\n",
                "--text:1: error: structures with more than 1048576 features are unified\n"}));
}

}  // namespace
