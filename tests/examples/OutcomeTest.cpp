// What becomes of examples: each sentence that decides it, with whole outputs.

#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const std::string Body = "\n(X1::Y1)\n";

/// What `trrule test` says of a grammar, as JSON without coverage.
ChildEnd TestGrammar(const std::string& Grammar, Strings vsOptions = {}) {
  const TestFolder Folder;
  Folder.Write("a.trr", Grammar);
  vsOptions.insert(vsOptions.begin(), {"test", "--format", "json", "--no-coverage", "a.trr"});
  return RunTrrule(vsOptions, Folder.Path(""));
}

/// One line of it.
std::string Line(int RuleLine, const std::string& Source, const std::string& Wanted,
                 const std::string& What, const std::string& Best) {
  const auto Quoted = [](const std::string& Text) {
    return Text == "null" ? Text : '"' + Text + '"';
  };
  return "{\"rule\":\"a.trr:" + std::to_string(RuleLine) + "\",\"source\":\"" + Source +
         "\",\"wanted\":" + Quoted(Wanted) + ",\"outcome\":\"" + What +
         "\",\"best\":" + Quoted(Best) + "}\n";
}

/// A word with its examples above it.
std::string Word(const std::string& Examples, const std::string& Type, const std::string& Source,
                 const std::string& Target) {
  return Examples + Type + "::" + Type + " : [\"" + Source + "\"] -> [\"" + Target + "\"]" + Body;
}

TEST(Outcome, PassesIfADerivationWithTheRuleAtItsRootGivesTheWords) {
  EXPECT_EQ(TestGrammar(Word(";;SL: car\n;;TL: auto\n", "N", "car", "auto")),
            (ChildEnd{0, Line(3, "car", "auto", "passes", "auto"), ""}));
  // Token by token unchanged, but for ASCII capitals.
  EXPECT_EQ(TestGrammar(Word(";;SL: car\n;;TL:  AUTO\n", "N", "Car", "Auto"), {"--strict"}),
            (ChildEnd{0, Line(3, "car", "AUTO", "passes", "Auto"), ""}));
  // Not only the best one counts.
  EXPECT_EQ(TestGrammar(Word(";;Score: 9\n", "N", "car", "auto") +
                        Word(";;Score: 9\n", "N", "car", "coche") +
                        ";;SL: the car\n;;TL: el coche\n"
                        "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n"),
            (ChildEnd{0, Line(9, "the car", "el coche", "passes", "el coche"), ""}));
}

TEST(Outcome, RequiresNoWordsIfTheTargetIsEmpty) {
  EXPECT_EQ(TestGrammar(Word(";;SL: the\n;;TL:\n", "DET", "the", "")),
            (ChildEnd{0, Line(3, "the", "", "passes", ""), ""}));
  EXPECT_EQ(TestGrammar(Word(";;SL: the\n;;TL:\n", "DET", "the", "el")),
            (ChildEnd{1, Line(3, "the", "", "differs", "el"), ""}));
}

TEST(Outcome, PassesByAnotherRuleIfOnlyOtherRootsGiveTheWords) {
  const std::string Grammar = Word(";;SL: car\n;;TL: coche\n", "N", "car", "auto") +
                              Word("", "N", "car", "coche") + Word("", "NP", "car", "coche");
  const std::string Expected = Line(3, "car", "coche", "passes by another rule", "coche");
  EXPECT_EQ(TestGrammar(Grammar), (ChildEnd{0, Expected, ""}));
  EXPECT_EQ(TestGrammar(Grammar, {"--strict"}), (ChildEnd{1, Expected, ""}));
}

TEST(Outcome, TakesTheBestOfTheOtherRules) {
  EXPECT_EQ(TestGrammar(Word(";;SL: car\n;;TL: coche\n", "N", "car", "auto") +
                        Word(";;Score: 2\n", "N", "Car", "Coche") +
                        Word(";;Score: 3\n", "N", "car", "COCHE")),
            (ChildEnd{0, Line(3, "car", "coche", "passes by another rule", "COCHE"), ""}));
}

TEST(Outcome, CountsOnlyOtherRulesOfTheSameSourceType) {
  EXPECT_EQ(TestGrammar(Word(";;SL: car\n;;TL: coche\n", "N", "car", "auto") +
                        Word("", "NP", "car", "coche")),
            (ChildEnd{1, Line(3, "car", "coche", "differs", "auto"), ""}));
  EXPECT_EQ(TestGrammar(Word(";;SL: car\n;;TL: coche\n", "N", "cars", "autos") +
                        "n::NP : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n"),
            (ChildEnd{0, Line(3, "car", "coche", "passes by another rule", "coche"), ""}));
}

TEST(Outcome, DiffersIfTheRuleGivesOtherWords) {
  const std::string Grammar = Word("", "N", "car", "auto") +
                              Word(";;Score: 2\n", "N", "car", "coche") +
                              ";;SL: the car\n;;TL: la casa\n"
                              "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n";
  EXPECT_EQ(TestGrammar(Grammar),
            (ChildEnd{1, Line(8, "the car", "la casa", "differs", "el coche"), ""}));
}

TEST(Outcome, FailsIfNoDerivationHasTheRuleAtItsRoot) {
  // The text of another root is not given, since it fits nothing.
  EXPECT_EQ(TestGrammar(Word(";;SL: bus\n;;TL: coche\n", "N", "car", "auto") +
                        Word("", "N", "bus", "autobus")),
            (ChildEnd{1, Line(3, "bus", "coche", "fails", "null"), ""}));
}

TEST(Outcome, IsOppositeForATextThatMustNotBeAnalysed) {
  EXPECT_EQ(TestGrammar(Word(";;*SL: bus\n;;*SL: the car\n", "N", "car", "auto") +
                        Word("", "N", "bus", "autobus")),
            (ChildEnd{0,
                      Line(3, "bus", "null", "passes", "null") +
                          Line(3, "the car", "null", "passes", "null"),
                      ""}));
  EXPECT_EQ(TestGrammar(Word(";;*SL: car\n", "N", "car", "auto")),
            (ChildEnd{1, Line(2, "car", "null", "fails", "auto"), ""}));
  // With the best of what the rule makes.
  EXPECT_EQ(TestGrammar(Word("", "N", "car", "auto") + Word(";;Score: 2\n", "N", "car", "coche") +
                        ";;*SL: car\nNP::NP : [N] -> [N]\n(X1::Y1)\n"),
            (ChildEnd{1, Line(7, "car", "null", "fails", "coche"), ""}));
}

TEST(Outcome, ListsPairsThenRejectedTextsInTheOrderOfRules) {
  EXPECT_EQ(
      TestGrammar(
          Word(";;*SL: a\n;;SL: car\n;;TL: auto\n;;SL: Car\n;;TL: Auto\n", "N", "car", "auto") +
          Word(";;SL: bus\n;;TL: bus\n", "N", "bus", "bus")),
      (ChildEnd{
          0,
          Line(6, "car", "auto", "passes", "auto") + Line(6, "Car", "Auto", "passes", "auto") +
              Line(6, "a", "null", "passes", "null") + Line(10, "bus", "bus", "passes", "bus"),
          ""}));
}

TEST(Outcome, ReportsCommentsWithoutAPartner) {
  EXPECT_EQ(TestGrammar(Word(";;SL: car\n;;TL: auto\n;;SL: bus\n", "N", "car", "auto")),
            (ChildEnd{0, Line(4, "car", "auto", "passes", "auto"),
                      "a.trr:3: warning: the ;;SL: has no ;;TL:, and so is not an example\n"}));
}

TEST(Outcome, IsAFailureOrByAnotherRuleForASkippedRule) {
  const std::string Broken = "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y2)\n";
  const std::string Examples = ";;SL: car\n;;TL: auto\n;;*SL: car\n";
  EXPECT_EQ(TestGrammar(Examples + Broken).Out,
            Line(4, "car", "auto", "fails", "null") + Line(4, "car", "null", "passes", "null"));
  EXPECT_EQ(TestGrammar(Examples + Broken + Word("", "N", "car", "auto")).Out,
            Line(4, "car", "auto", "passes by another rule", "auto") +
                Line(4, "car", "null", "passes", "null"));
  // All pass, but a rule was left out.
  EXPECT_EQ(TestGrammar(Broken + Word("", "N", "car", "auto")).Status, 1);
}

TEST(Outcome, HasNoDerivationForARuleWithoutReadableTypes) {
  EXPECT_EQ(TestGrammar(";;SL: car\n;;TL: auto\n;;*SL: car\nN : [\"car\"] -> [\"auto\"]\n"
                        "(X1::Y1)\n" +
                        Word("", "N", "car", "auto"))
                .Out,
            Line(4, "car", "auto", "fails", "null") + Line(4, "car", "null", "passes", "null"));
}

TEST(Outcome, ExchangesThePairsAndHasNoRejectedTextsInReverse) {
  EXPECT_EQ(
      TestGrammar(Word(";;SL: car\n;;TL: auto\n;;*SL: bus\n", "N", "car", "auto"), {"--reverse"}),
      (ChildEnd{0, Line(4, "auto", "car", "passes", "car"), ""}));
  // Without words there is nothing to translate, and a pair without source is none from any side.
  EXPECT_EQ(
      TestGrammar(Word(";;SL: car\n;;TL:\n;;SL:\n;;TL: auto\n", "N", "car", "auto"), {"--reverse"}),
      (ChildEnd{1, Line(5, "", "car", "fails", "null"), ""}));
}

TEST(Outcome, DependsOnCaseOnRequest) {
  const std::string Grammar = Word(";;SL: Car\n;;TL: auto\n", "N", "car", "auto");
  EXPECT_EQ(TestGrammar(Grammar), (ChildEnd{0, Line(3, "Car", "auto", "passes", "auto"), ""}));
  EXPECT_EQ(TestGrammar(Grammar, {"--match-case"}),
            (ChildEnd{1, Line(3, "Car", "auto", "fails", "null"), ""}));
}

TEST(Outcome, IsAnErrorAtALimit) {
  const std::string Grammar = Word(";;SL: car\n;;TL: auto\n", "N", "car", "auto") +
                              Word("", "N", "car", "coche") + Word("", "N", "car", "carro");
  EXPECT_EQ(TestGrammar(Grammar, {"--max-constituents", "0"}),
            (ChildEnd{1, Line(3, "car", "auto", "error", "null"),
                      "a.trr:3: error: there are more than 0 constituents\n"}));
  EXPECT_EQ(TestGrammar(Grammar, {"--max-chain", "0"}).Status, 0);
}

TEST(Outcome, IsAnErrorWhereTheBestWordsAreTooLong) {
  std::string Text = "a";
  for (int Count = 1; Count < 25; ++Count) {
    Text += " a";
  }
  const std::string Grammar = ";;SL: " + Text + "\n;;TL: x\n" +
                              "S::S : [\"a\" S] -> [S S]\n(X2::Y1)\n(X2::Y2)\n" +
                              Word("", "S", "a", "x");
  EXPECT_EQ(TestGrammar(Grammar, {}),
            (ChildEnd{1, Line(3, Text, "x", "error", "null"),
                      "a.trr:3: error: a translation has more than 16777216 bytes\n"}));
}

TEST(Outcome, LimitsTheDerivationsWithTheRuleAndThenWithOthers) {
  // Two give other words with the rule, and two with other rules.
  const std::string Words = Word("", "N", "car", "auto") + Word("", "N", "car", "coche") +
                            Word("", "NP", "car", "carro") + Word("", "NP", "car", "buga");
  const auto Phrase = [&](const std::string& Wanted) {
    return ";;SL: car\n;;TL: " + Wanted + "\nNP::NP : [N] -> [N]\n(X1::Y1)\n" + Words;
  };
  struct Case {
    const char* Wanted;
    const char* Max;
    const char* What;
    const char* Best;
  };
  const std::vector<Case> vCases{
      {"auto", "0", "passes", "auto"},
      {"coche", "0", "error", "null"},
      {"coche", "1", "passes", "coche"},
      {"carro", "1", "error", "null"},
      {"carro", "2", "passes by another rule", "carro"},
      {"buga", "2", "passes by another rule", "buga"},
      {"casa", "1", "error", "null"},
      {"casa", "2", "differs", "auto"},
  };
  for (const Case& Row : vCases) {
    const ChildEnd End = TestGrammar(Phrase(Row.Wanted), {"--max-derivations", Row.Max});
    EXPECT_EQ(End.Out, Line(3, "car", Row.Wanted, Row.What, Row.Best))
        << Row.Wanted << ' ' << Row.Max;
  }
  const TestFolder Folder;
  Folder.Write("a.trr", Phrase("casa"));
  EXPECT_EQ(
      RunTrrule({"test", "--no-coverage", "--max-derivations", "1", "a.trr"}, Folder.Path("")),
      (ChildEnd{1,
                "a.trr:3: error: car\n  wanted: casa\n"
                "  cause:  more than 1 derivations give other words than wanted\n"
                "1 example: 1 reached a limit\n",
                ""}));
}

}  // namespace
