// Which rules take part, how they are counted, and what they weigh.

#include "RuleChecker.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

/// A rule of the type N for one word.
std::string Word(const std::string& Source, const std::string& Target) {
  return "N::N : [\"" + Source + "\"] -> [\"" + Target + "\"]\n(\n(X1::Y1)\n)\n";
}

Strings CodesOf(const std::vector<Grammar::Finding>& vFindings) {
  Strings vsCodes;
  for (const Grammar::Finding& Found : vFindings) {
    vsCodes.push_back(Found.Code);
  }
  return vsCodes;
}

/// What `check` finds in a text's rules, notes included.
Strings CheckedCodesOf(const std::string& Text) {
  const ReadGrammar Read(Text);
  std::vector<Grammar::Finding> vFindings;
  for (const Grammar::RuleText& Rule : Read.Texts) {
    Grammar::RuleRecord Record;
    Grammar::CheckRule(Rule, Record, vFindings);
  }
  return CodesOf(vFindings);
}

TEST(UsableRules, OmitRulesThatCannotBeParsed) {
  const std::string Long(100001, 'v');
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"TR001", "{N,1}\n(\n(X1::Y1)\n)\n"},
      {"TR002", "N::N : [\"a\"] -> [\"x\"]\n"},
      {"TR003", "N::N : [\"a\"] -> [\"x\"]\nN::N : [\"b\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"},
      {"TR004", "N :: N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"},
      {"TR005", "N::N : \"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"},
      {"TR006", "N::N : [\"a\"] -> [\"x\"\n(\n(X1::Y1)\n)\n"},
      {"TR007", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::1)\n)\n"},
      {"TR008", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n((x0 num) = )\n)\n"},
      {"TR009", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n((x2 num) = sg)\n)\n"},
      {"TR010", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y2)\n)\n"},
      {"TR012", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n(x0 = n)\n)\n"},
      // The second constraint can only not be written.
      {"TR012", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n(x0 = n)\n(x0 = (x1 tax))\n)\n"},
      {"TR013", "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n((x0 num) = " + Long + ")\n)\n"},
      {"TR015", "N::N : [\"a\"] -> [\"x\" N]\n(\n(X1::Y1)\n)\n"},
  };
  for (const auto& [sCode, sRule] : Cases) {
    SCOPED_TRACE(sCode);
    EXPECT_EQ(CodesOf(ReadGrammar(sRule).vFindings), Strings{sCode});
    EXPECT_EQ(TestEngine(sRule + "{N,2}\n" + Word("a", "y")).All("a"), "0.000000\ty\n\n");
  }
}

TEST(UsableRules, IncludeRulesThatOnlyCannotBeWritten) {
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{"TR011"},
       "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n((x1 num) = (x0 num))\n((x0 num) = (x1 num))\n)\n"},
      // Without a number after the last X.
      {{"TR012"}, "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n(x0 = (x1 tax))\n)\n"},
      {{"TR021", "TR040", "TR022"}, "{NOUN,12}\nN::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"},
      {{"TR023"}, "{N}\nN::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"},
      {{"TR031"}, "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n((x0 f) = p)\n((x0 f) = p)\n)\n"},
      {{"TR035"}, "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\nsee above\n)\n"},
      {{"TR036"}, "N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n(X1::Y1)\n)\n"},
  };
  for (const auto& [vsCodes, sRule] : Cases) {
    SCOPED_TRACE(sRule);
    EXPECT_EQ(CheckedCodesOf(sRule), vsCodes);
    EXPECT_EQ(CodesOf(ReadGrammar(sRule).vFindings), Strings());
    EXPECT_EQ(TestEngine(sRule).Plain("a"), "x\n");
  }
  // TR014: its first place, `b;;"`, is nothing that a rule makes.
  const ReadGrammar Quoted("N::N \"a [b;;\" c] -> [\"x\"]\n(\n(X1::Y1)\n)\n");
  EXPECT_EQ(CodesOf(Quoted.vFindings), Strings());
  EXPECT_EQ(Quoted.vRules.size(), 1U);
}

TEST(UsableRules, SumCountsBeyond32Bits) {
  const std::string Most = ";;Score: 2147483647\n";
  EXPECT_EQ(
      TestEngine(Most + Word("a", "x") + Most + Word("a", "y") + Most + Word("a", "z")).All("a"),
      "-1.098612\tx\n-1.098612\ty\n-1.098612\tz\n\n");
}

TEST(UsableRules, RoundWeightsBeforeTheyAreAdded) {
  // ln(1/3) is -1.0986123: three of them are -3.295837 together, and -3.295836 if each is rounded.
  const std::string Grammar = "S::S : [N N N] -> [N N N]\n(\n(X1::Y1)\n(X2::Y2)\n(X3::Y3)\n)\n" +
                              Word("a", "x") + Word("b", "y") + Word("c", "z");
  EXPECT_EQ(TestEngine(Grammar).All("a b c"), "-3.295836\tx y z\n\n");
}

TEST(UsableRules, ShareTheTotalOfTheirSourceType) {
  // Types in any case are one; target types mean nothing, but for the other direction.
  const std::string Grammar =
      "N::P : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"
      "n::Q : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"
      "M::Q : [\"a\"] -> [\"y\"]\n(\n(X1::Y1)\n)\n";
  TestEngine Forward(Grammar);
  EXPECT_EQ(Forward.All("a"), "0.000000\ty\n-0.693147\tx\n-0.693147\tx\n\n");
  Translate::RuleSetOptions Options;
  Options.IsReversed = true;
  TestEngine Backward(Grammar, Options);
  EXPECT_EQ(Backward.All("x"), "0.000000\ta\n-0.693147\ta\n\n");
}

TEST(UsableRules, AreSkippedAndCountedByDirection) {
  // The first rule has no source for its target place, and in reverse it is the second one.
  const std::string Grammar =
      "N::N : [\"a\"] -> [N \"x\"]\n(\n(X1::Y1)\n)\n"
      "N::N : [N \"b\"] -> [\"x\"]\n(\n(X2::Y1)\n)\n" +
      Word("a", "x");
  Translate::RuleSetOptions Options;
  EXPECT_EQ(CodesOf(ReadGrammar(Grammar, false).vFindings), Strings{"TR015"});
  EXPECT_EQ(TestEngine(Grammar, Options).All("a"), "-0.693147\tx\n\n");
  Options.IsReversed = true;
  EXPECT_EQ(CodesOf(ReadGrammar(Grammar, true).vFindings), Strings{"TR015"});
  EXPECT_EQ(TestEngine(Grammar, Options).All("x"), "-0.693147\ta\n\n");
}

TEST(UsableRules, FillPlacesByBothTypes) {
  const std::string Words =
      "N::P : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n)\n"
      "N::Q : [\"a\"] -> [\"y\"]\n(\n(X1::Y1)\n)\n";
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"[N \"t\"] -> [P]\n(\n(X1::Y1)\n)\n", "-0.693147\tx\n\n"},
      {"[n \"t\"] -> [q]\n(\n(X1::Y1)\n)\n", "-0.693147\ty\n\n"},
      {"[N \"t\"] -> [N]\n(\n(X1::Y1)\n)\n", "\n"},
      {"[P \"t\"] -> [P]\n(\n(X1::Y1)\n)\n", "\n"},
      // A place without a target takes constituents of any target type.
      {"[N \"t\"] -> [\"z\"]\n(\n(X1::Y1)\n)\n", "-0.693147\tz\n-0.693147\tz\n\n"},
  };
  for (const auto& [sSides, sExpected] : Cases) {
    EXPECT_EQ(TestEngine("S::S : " + sSides + Words).All("a t"), sExpected) << sSides;
  }
}

TEST(UsableRules, AreUnaryByTheirSourceComponents) {
  // One source place and several target components: no rule of these twice in a chain.
  TestEngine Engine("N::N : [N] -> [\"y\" N]\n(\n(X1::Y2)\n)\n" + Word("a", "x"));
  EXPECT_EQ(Engine.All("a"), "-0.693147\tx\n-1.386294\ty x\n\n");
  // In reverse its two components are on the source side.
  Translate::RuleSetOptions Options;
  Options.IsReversed = true;
  TestEngine Backward("N::N : [N] -> [\"y\" N]\n(\n(X1::Y2)\n)\n" + Word("a", "x"), Options);
  EXPECT_EQ(Backward.All("y y y x"), "-2.772588\ta\n\n");
}

TEST(UsableRules, KeepInnerBlanksOfAValueAndDropOuterOnes) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"((x0 of) =   new  york   )", "\"NEW  YORK\""},
      {"((x0 of) = new\tyork)", "\"NEW\\tYORK\""},
      {"((x0 of) = (*OR*   a \t b))", "{\"*OR*\":[\"A\",\"B\"]}"},
      {"((x0 of) = (*OR* a))", "\"A\""},
      {"((x0 of) = (*OR* a A))", "\"A\""},
      {"((x0 of) = (*NOT* a A))", "{\"*NOT*\":[\"A\"]}"},
  };
  for (const auto& [sEquation, sValue] : Cases) {
    EXPECT_EQ(
        TestEngine("N::N : [\"a\"] -> [\"x\"]\n(\n(X1::Y1)\n" + sEquation + "\n)\n").Json("a"),
        "{\"source\":\"a\",\"translations\":[{\"target\":\"x\",\"score\":0.000000,\"tree\":"
        "{\"rule\":\"a.trr:1\",\"header\":null,\"span\":[0,1],\"types\":[\"N\",\"N\"],"
        "\"source\":{\"OF\":" +
            sValue + "},\"target\":{},\"children\":[]}}],\"error\":null}\n")
        << sEquation;
  }
}

}  // namespace
