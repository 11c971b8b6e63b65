#include "RuleOutline.h"

#include "Ascii.h"
#include "GrammarSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Grammar::RuleOutline;

/// An outline, and the text that it looks into.
struct OutlinedRule {
  explicit OutlinedRule(const std::string& Text) : Rule(RulesOf(Text).at(0)) {
    Lines.Read(Rule);
    Grammar::OutlineMaker().Make(Lines, Outline);
  }

  const Grammar::RuleText Rule;
  Grammar::SourceRule Lines;
  RuleOutline Outline;
};

/// Texts in capitals, one after the other, each with its mark and ended by "|".
class KeyText {
 public:
  explicit KeyText(const RuleOutline& OutlinePassIn) : Outline(OutlinePassIn) {
    if (Outline.HasTypes) {
      Text += Outline.IsUsable ? "" : "!";
      Add("", Outline.SLType.Text);
      Add("", Outline.TLType.Text);
      AddComponents();
      AddEquations();
    }
  }

  std::string Text;

 private:
  void Add(const std::string& Mark, std::string_view Word) {
    Text.append(Mark).append(InCapitals(Word)).append("|");
  }

  void AddComponents() {
    auto Place = Outline.vPlaces.begin();
    for (std::uint32_t Component = 1; Component <= Outline.ComponentCount; ++Component) {
      if (Place == Outline.vPlaces.end() || Place->Component != Component) {
        Add("\"", "");
        continue;
      }
      Add("p", Place->Label.Text);
      Add("w", Place->Wanted.Text);
      ++Place;
    }
  }

  void AddEquations() {
    for (const RuleOutline::Equation& Equation : Outline.vEquations) {
      const bool IsLink = Equation.What == RuleOutline::Kind::Link;
      Add(IsLink                                    ? "="
          : Equation.What == RuleOutline::Kind::Any ? "+"
                                                    : "-",
          PathText(Equation.Left));
      if (IsLink) {
        Add("", PathText(Equation.Right));
      }
      for (std::uint32_t Index = 0; Index < Equation.Atoms.Count; ++Index) {
        Add("a", Outline.vWords[Equation.Atoms.First + Index].Text);
      }
    }
  }

  std::string PathText(const RuleOutline::Path& Path) const {
    std::string Joined = std::to_string(Path.Component);
    for (std::uint32_t Index = 0; Index < Path.Features.Count; ++Index) {
      Joined.append(" ").append(Outline.vWords[Path.Features.First + Index].Text);
    }
    return Joined;
  }

  static std::string InCapitals(std::string_view Word) {
    std::string Capitals(Word);
    std::transform(Capitals.begin(), Capitals.end(), Capitals.begin(),
                   [](char Byte) { return TrRuleInternal::ToUpper(Byte); });
    return Capitals;
  }

  const RuleOutline& Outline;
};

std::string KeyOf(const std::string& Text) {
  return KeyText(OutlinedRule(Text).Outline).Text;
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
  const OutlinedRule Rule(";; a comment\n{NP,8}\n" + Head + "((y1 num) = sg)\n" +
                          "((x1 num) = sg)\n((x2 num) = sg)\n");
  const RuleOutline& Outline = Rule.Outline;
  EXPECT_TRUE(Outline.IsUsable);
  EXPECT_EQ(Outline.RuleLine, 2U);
  ASSERT_EQ(Outline.vPlaces.size(), 2U);
  EXPECT_EQ(Outline.vPlaces[0].Column, 11U);
  EXPECT_EQ(Outline.vPlaces[1].Column, 15U);
  ASSERT_EQ(Outline.vEquations.size(), 2U);
  EXPECT_EQ(Outline.vEquations[0].Line, 6U);
  EXPECT_EQ(Outline.vEquations[1].Line, 7U);
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
  const std::string Noun = "NP::NP : [N] -> [N]\n(X1::Y1)\n";
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
      {Head, "NP::NP : [ADJ N] -> [N ADJ]\n(X2::Y1)\n(X1::Y2)\n", true, true, true},
      {Noun, "NP::NP : [N] -> [n]\n(X1::Y1)\n", true, true, true},
      {Noun, "NP::NP : [N] -> [A]\n(X1::Y1)\n", false, true, false}};
  for (const Case& Row : Cases) {
    const OutlinedRule LeftRule(Row.Left);
    const OutlinedRule RightRule(Row.Right);
    const RuleOutline& Left = LeftRule.Outline;
    const RuleOutline& Right = RightRule.Outline;
    const std::string Input = Row.Left + Row.Right;
    EXPECT_EQ(Left.Key == Right.Key, Row.IsSameKey) << Input;
    EXPECT_EQ(Left.Source == Right.Source, Row.IsSameSource) << Input;
    EXPECT_EQ(Left.Rest == Right.Rest, Row.IsSameRest) << Input;
  }
}
