#include "RuleOutline.h"

#include "GrammarSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using Grammar::RuleOutline;

RuleOutline OutlineOf(const std::string& Text) {
  const Grammar::RuleText Rule = RulesOf(Text).at(0);
  Grammar::SourceRule Lines;
  Lines.Read(Rule);
  RuleOutline Outline;
  Grammar::OutlineMaker().Make(Lines, Outline);
  return Outline;
}

/// The key, with blanks between its lines.
std::string KeyOf(const std::string& Text) {
  std::string Key = OutlineOf(Text).Key;
  for (char& Byte : Key) {
    Byte = Byte == '\n' ? '|' : Byte;
  }
  return Key;
}

const std::string Head = "NP::NP : [ADJ N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n";

}  // namespace

TEST(RuleOutline, HasAKeyOfTypesComponentsAndEquations) {
  struct Case {
    std::string Text;
    std::string Key;
  };
  const std::vector<Case> Cases = {
      {Head, "NP|NP|pADJ|wADJ|pN|wN|"},
      {"np::Np : [adj \"the\"] -> [a]\n(X1::Y1)\n", "NP|NP|pADJ|wA|\"|"},
      {"NP::NP : [N D] -> [N]\n(X1::Y1)\n", "NP|NP|pN|wN|pD|w|"},
      {Head + "((x1 agr num) = sg)\n", "NP|NP|pADJ|wADJ|pN|wN|+1 AGR NUM|aSG|"},
      {Head + "((x0 num) = (x2 num))\n(x0 = x1)\n", "NP|NP|pADJ|wADJ|pN|wN|=0 NUM|2 NUM|=0|1|"},
      {Head + "((x1 num) = (*OR* sg pl))\n", "NP|NP|pADJ|wADJ|pN|wN|+1 NUM|aSG|aPL|"},
      {Head + "((x1 num) = (*NOT* du))\n", "NP|NP|pADJ|wADJ|pN|wN|-1 NUM|aDU|"},
      {Head + "((y1 num) = sg)\n((y0 gen) = (y1 gen))\n", "NP|NP|pADJ|wADJ|pN|wN|"},
      {"NP::NP : [N] -> [N]\n", "!NP|NP|pN|w|"},
      {"{NP,8}\n(X1::Y1)\n", ""}};
  for (const Case& Row : Cases) {
    EXPECT_EQ(KeyOf(Row.Text), Row.Key) << Row.Text;
  }
}

TEST(RuleOutline, KnowsThePlacesOfItsKey) {
  const RuleOutline Outline = OutlineOf(";; a comment\n{NP,8}\n" + Head + "((y1 num) = sg)\n" +
                                        "((x1 num) = sg)\n((x2 num) = sg)\n");
  EXPECT_TRUE(Outline.IsUsable);
  EXPECT_EQ(Outline.RuleLine, 2U);
  EXPECT_EQ(Outline.vColumns, (std::vector<std::uint32_t>{11, 15}));
  EXPECT_EQ(Outline.vLines, (std::vector<std::uint32_t>{6, 7}));
}

TEST(RuleOutline, HasEqualSumsForEqualParts) {
  struct Case {
    std::string Left;
    std::string Right;
    bool IsSameKey;
    bool IsSameSource;
    bool IsSameRest;
  };
  const std::string Car = "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n";
  const std::string Number = "((x1 num) = sg)\n";
  const std::string Gender = "((x2 gen) = masc)\n";
  const std::vector<Case> Cases = {
      {Head, ";; a comment\n{NP,8}\n" + Head, true, true, true},
      {Car, "N::N : [\"CAR\"] -> [\"auto\"]\n(X1::Y1)\n", true, true, true},
      {Car, "N::N : [\"bus\"] -> [\"auto\"]\n(X1::Y1)\n", true, false, true},
      {Car, "N::N : [\"car\"] -> [\"Auto\"]\n(X1::Y1)\n", true, true, false},
      {Head + Number + Gender, Head + Gender + Number, false, true, true},
      {Head + Number, Head + Gender, false, false, true},
      {Head, Head + "((y1 num) = sg)\n", true, true, false},
      {Head, "NP::NP : [ADJ N] -> [N ADJ]\n(X2::Y1)\n(X1::Y2)\n", true, true, true}};
  for (const Case& Row : Cases) {
    const RuleOutline Left = OutlineOf(Row.Left);
    const RuleOutline Right = OutlineOf(Row.Right);
    const std::string Input = Row.Left + Row.Right;
    EXPECT_EQ(Left.KeySum == Right.KeySum, Row.IsSameKey) << Input;
    EXPECT_EQ(Left.OtherKeySum == Right.OtherKeySum, Row.IsSameKey) << Input;
    EXPECT_EQ(Left.SourceSum == Right.SourceSum, Row.IsSameSource) << Input;
    EXPECT_EQ(Left.OtherSourceSum == Right.OtherSourceSum, Row.IsSameSource) << Input;
    EXPECT_EQ(Left.RestSum == Right.RestSum, Row.IsSameRest) << Input;
  }
}
