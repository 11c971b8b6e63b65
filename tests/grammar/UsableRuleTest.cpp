#include "UsableRule.h"

#include "GrammarSupport.h"

#include "RuleUse.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace {

using Grammar::Equation;
using Grammar::EquationKind;
using Grammar::NodePath;
using Grammar::UsableRule;

std::string TextOf(const NodePath& Path) {
  std::string Text = (Path.OnSide == Grammar::Side::X ? "x" : "y") + std::to_string(Path.Index);
  for (const std::string_view Current : Path.vFeatures) {
    Text.append(" ").append(Current);
  }
  return Text;
}

std::string TextOf(const Equation& Current) {
  std::string Text = std::to_string(Current.Line) + ": " + TextOf(Current.Left);
  if (Current.Kind == EquationKind::Path) {
    return Text + " = " + TextOf(Current.Right) + '\n';
  }
  Text += Current.Kind == EquationKind::Any ? " in" : " not in";
  for (const std::string_view Atom : Current.vAtoms) {
    Text.append(" <").append(Atom).append(">");
  }
  return Text + '\n';
}

std::string TextOf(const Grammar::RuleSide& Side) {
  std::string Text(Side.Type);
  for (const std::string_view Label : Side.vLabels) {
    Text.append(" ").append(Label);
  }
  return Text;
}

/// All that a rule means; or the findings that say why it means nothing.
std::string MeaningOf(const std::string& Text, bool IsReversed = false) {
  const std::vector<Grammar::RuleText> vRules = RulesOf(Text);
  Grammar::SourceRule Lines;
  UsableRule Rule;
  std::vector<Grammar::Finding> vFindings;
  if (!ReadUsableRule(vRules.at(0), IsReversed, Lines, Rule, vFindings)) {
    std::string Places;
    for (const Grammar::Finding& Found : vFindings) {
      Places += NameOf(Found.Level);
      Places += ' ' + PlaceOf(Found) + ' ' + Found.Message + '\n';
    }
    return Places;
  }
  std::string Meaning(Rule.File);
  Meaning += ':' + std::to_string(Rule.Line) + ' ' + (Rule.HasHeader ? Rule.Header : "-") + " x" +
             std::to_string(Rule.Count) + '\n' + TextOf(Rule.X) + " / " + TextOf(Rule.Y) + '\n';
  for (const Equation& Current : Rule.vEquations) {
    Meaning += TextOf(Current);
  }
  return Meaning;
}

const std::string Example =
    ";;Score: 12 or so\n"
    "{NP,007}\n"
    "NP::Np : [\"La\" N] -> [n]\n"
    "(\n"
    "(X2::Y1)\n"
    "((x2 Agr  num) = (*OR* sg\tPl))\n"
    "((y0 gen) == (y1 gen))\n"
    "(y1 = x2) ;;Score: 3\n"
    "((x0 lex) = New  York )\n"
    "((x1 num) = (*NOT* sg))\n"
    ")\n";

TEST(UsableRule, IsNamedByTheLineOfItsRule) {
  const struct {
    std::string Text;
    std::size_t Line;
  } Cases[] = {
      {";; a\n{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n", 3},
      {"\n;; a\n{NP,1}\n(X1::Y1)\n", 3},
      {";; a\n\n(X1::Y1)\n", 3},
      {"(X1::Y1)\n;; a\n{NP,1}\n", 3},
      {";; a\n", 1},
  };
  for (const auto& Case : Cases) {
    const std::vector<Grammar::RuleText> vRules = RulesOf(Case.Text);
    ASSERT_FALSE(vRules.empty());
    EXPECT_EQ(Grammar::LineOfRule(vRules.front()), Case.Line) << Case.Text;
  }
}

}  // namespace

TEST(UsableRule, HasTheMeaningOfTheLines) {
  EXPECT_EQ(MeaningOf(Example),
            "a.trr:3 NP,7 x12\n"
            "NP \"La\" N / Np n\n"
            "6: x2 Agr num in <sg> <Pl>\n"
            "7: y0 gen = y1 gen\n"
            "8: y1 = x2\n"
            "9: x0 lex in <New  York>\n"
            "10: x1 num not in <sg>\n");
}

TEST(UsableRule, ExchangesAllSides) {
  EXPECT_EQ(
      MeaningOf("NP::Np : [A N] -> [n a]\n(X2::Y1)\n(X1::Y2)\n(y1 = x2)\n((x0 num) = sg)\n", true),
      "a.trr:1 - x1\n"
      "Np n a / NP A N\n"
      "4: x1 = y2\n"
      "5: y0 num in <sg>\n");
}

TEST(UsableRule, HasTheHeaderAndTheCountThatCanBeRead) {
  const struct {
    std::string Before;
    std::string Expected;
  } Cases[] = {
      {"", "- x1"},
      {"{NP,0}\n", "NP,0 x1"},
      {"{NP}\n", "- x1"},
      {"{NP,2147483648}\n", "- x1"},
      {"{ADJP,12} ;; Score:4\n", "ADJP,12 x4"},
      {";;Score:\n;;Score: 5\n", "- x1"},
      {";;Score: 0\n", "- x1"},
      {";;Score: 99999999999\n", "- x2147483647"},
      {";;;Score: 5\n;Score: 6\n;; a Score: 7\n", "- x1"},
  };
  for (const auto& Row : Cases) {
    const std::string Meaning = MeaningOf(Row.Before + "A::A [\"a\"] -> [\"b\"]\n(X1::Y1)\n");
    EXPECT_EQ(Meaning.substr(Meaning.find(' ') + 1), Row.Expected + "\nA \"a\" / A \"b\"\n");
  }
}

TEST(UsableRule, IsMissingWithAReason) {
  const std::string Line = "N::N [A] -> [A]\n";
  const struct {
    std::string Text;
    std::string Expected;
  } Cases[] = {
      {Line, "error 1:1+15 TR002 the rule has no alignment\n"},
      {Line + "(X1::Y1)\n(x0 = sg)\n",
       "error 3:7+2 TR012 \"sg\" is not a node, and only a node can equal x0\n"},
      {Line + "(X1::Y1)\n((x0 num) = (*OR* a (b)))\n",
       "error 3:21+2 TR008 the constraint is not in the format from here on\n"},
      {Line + "(X1::Y1)\n((x0 ext) = (x3 ext))\n",
       "error 3:14+2 TR009 there is no x3: the source side has 1 component\n"},
      {Line + "(X1::Y1)\n((y2 num) = (x3 num))\n",
       "error 3:3+2 TR009 there is no y2: the target side has 1 component\n"
       "error 3:14+2 TR009 there is no x3: the source side has 1 component\n"},
      {"N::N [A] -> [B C]\n(X1::Y2)\n",
       "error 1:14+1 TR015 the target component has no source to come from\n"},
      {"N::N [A B] -> [C]\n(X1::Y1)\n(X2::Y1)\n",
       "error 1:16+1 TR015 the target component has more than one source\n"},
      {"N::N [A] -> [B C]\n(X1::Y1)\n(X1::Y2)\n",
       "error 1:7+1 TR015 the source component is wanted with two labels\n"},
      // Another error goes first.
      {"N::N [A] -> [B C]\n(X1::Y1)\n(X1::Y3)\n",
       "error 3:6+2 TR010 there is no Y3: the target side has 2 components\n"},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(MeaningOf(Row.Text), Row.Expected);
  }
  EXPECT_EQ(MeaningOf("N::N [A B] -> [C]\n(X1::Y1)\n", true),
            "error 1:9+1 TR015 the target component has no source to come from\n");
}
