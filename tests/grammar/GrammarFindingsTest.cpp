// What is found by looking at a grammar as a whole.

#include "GrammarFindings.h"

#include "RivalRules.h"
#include "ShapeSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Grammar::Finding;
using Strings = std::vector<std::string>;

/// "line:column+length severity code message", and the other place.
Strings TextsOf(const std::vector<Finding>& vFindings) {
  Strings vsTexts;
  for (const Finding& Found : vFindings) {
    std::string& sText = vsTexts.emplace_back(PlaceOf(Found) + ' ');
    sText.append(NameOf(Found.Level)).append(": ").append(Found.Message);
    sText += Found.OtherLine == 0 ? "" : " (" + std::to_string(Found.OtherLine) + ')';
  }
  return vsTexts;
}

Strings LabelsIn(const std::string& Text) {
  Grammar::GrammarShapes Shapes;
  AddRules(Text, Shapes);
  Grammar::GrammarFindings Whole(Shapes);
  Whole.AddUnprovidedLabels();
  return TextsOf(Whole.Take());
}

Strings UnreachableIn(const std::string& Text, const Strings& vsStarts) {
  Grammar::GrammarShapes Shapes;
  AddRules(Text, Shapes);
  Grammar::GrammarFindings Whole(Shapes);
  Whole.AddUnreachableRules(vsStarts);
  return TextsOf(Whole.Take());
}

Strings ValuesIn(const std::string& Text) {
  Grammar::GrammarShapes Shapes;
  AddRules(Text, Shapes);
  Grammar::GrammarFindings Whole(Shapes);
  Whole.AddUnsuppliedValues();
  return TextsOf(Whole.Take());
}

Strings CyclesIn(const std::string& Text) {
  Grammar::GrammarShapes Shapes;
  AddRules(Text, Shapes);
  Grammar::GrammarFindings Whole(Shapes);
  Whole.AddUnaryCycles();
  return TextsOf(Whole.Take());
}

Strings RivalsIn(const std::string& Text) {
  Grammar::OutlineMaker Maker;
  Grammar::SourceRule Lines;
  Grammar::RivalRules Rivals;
  std::vector<Finding> vFindings;
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    Grammar::RuleOutline Outline;
    Lines.Read(Rule);
    Maker.Make(Lines, Outline);
    Rivals.Check(Rule, Outline, vFindings);
  }
  return TextsOf(vFindings);
}

/// A rule of one line, with its first components aligned.
std::string Rule(const std::string& Line, const std::string& Equations = "") {
  return Line + "\n(X1::Y1)\n" + Equations + "\n";
}

const std::string Nouns = Rule("N::N [\"car\"] -> [\"auto\"]", "((x0 num) = sg)") +
                          Rule("N::N [\"cars\"] -> [\"autos\"]", "((x0 num) = pl)");

}  // namespace

// ---- Labels -----------------------------------------------------------------------------------

TEST(GrammarFindings, NameLabelsThatNoRuleProvides) {
  EXPECT_EQ(LabelsIn(Nouns), Strings());
  EXPECT_EQ(LabelsIn(Nouns + Rule("NP::NP [n] -> [n]")), Strings());
  EXPECT_EQ(LabelsIn(Nouns + Rule("NP::NP [N Adj] -> [N]") + Rule("S::S [NP ADJ adj] -> [NP]")),
            (Strings{"7:11+3 TR050 warning: no rule has the source type \"ADJ\"; 2 more components "
                     "want it"}));
  EXPECT_EQ(LabelsIn(Nouns + Rule("NP::NP [N] -> [DET]")),
            (Strings{"7:9+1 TR050 warning: no rule has the types \"N::DET\", which this component "
                     "needs"}));
}

TEST(GrammarFindings, ReportLabelsAsNotesWithoutALexicon) {
  // Words alone make no N, so that its rules may stand elsewhere, too.
  const std::string Phrase = Rule("NP::NP [N V] -> [N]") + Rule("NP::NP [V] -> [V]");
  EXPECT_EQ(LabelsIn(Phrase),
            (Strings{"1:9+1 TR050 note: no rule has the source type \"N\"",
                     "1:11+1 TR050 note: no rule has the source type \"V\"; 1 more component wants "
                     "it"}));
  EXPECT_EQ(LabelsIn(Rule("NP::NP [\"hello\"] -> [\"hola\"]") + Rule("S::S [NP N] -> [NP]") +
                     Rule("NP::NP [N] -> [N]")),
            (Strings{"4:10+1 TR050 note: no rule has the source type \"N\"; 1 more component wants "
                     "it"}));
}

TEST(GrammarFindings, IncludeTheTypesOfUnusableRules) {
  EXPECT_EQ(LabelsIn(Nouns + Rule("ADJ::ADJ [\"red\"] -> [\"rojo\"]", "(x0 = red)") +
                     Rule("NP::NP [N ADJ] -> [N]")),
            Strings());
}

// ---- Start types ------------------------------------------------------------------------------

TEST(GrammarFindings, NameRulesThatNoStartTypeReaches) {
  const std::string Text =
      Nouns + Rule("NP::NP [N] -> [N]") + Rule("VP::VP [V NP] -> [V]") + Rule("VP::VP [V] -> [V]");
  EXPECT_EQ(UnreachableIn(Text, {"VP", "NP"}), Strings());
  EXPECT_EQ(UnreachableIn(Text, {"VP"}), Strings());
  EXPECT_EQ(UnreachableIn(Text, {"NP"}),
            (Strings{"10:1+20 TR051 warning: no start type leads to a rule with the types "
                     "\"VP::VP\"; 1 more rule has them"}));
  EXPECT_EQ(UnreachableIn(Text, {"S"}),
            (Strings{"1:1+24 TR051 warning: no start type leads to a rule with the types "
                     "\"N::N\"; 1 more rule has them",
                     "7:1+17 TR051 warning: no start type leads to a rule with the types "
                     "\"NP::NP\"",
                     "10:1+20 TR051 warning: no start type leads to a rule with the types "
                     "\"VP::VP\"; 1 more rule has them"}));
  EXPECT_EQ(UnreachableIn(Text + Rule("VP::VP [NP] -> [NP]"), {"NP"}),
            (Strings{"10:1+20 TR051 warning: no start type leads to a rule with the types "
                     "\"VP::VP\"; 2 more rules have them"}));
}

TEST(GrammarFindings, FollowTheTargetTypesOfComponents) {
  const std::string Text =
      Rule("S::S [N] -> [A]") + Rule("N::A [\"a\"] -> [\"x\"]") + Rule("N::B [\"a\"] -> [\"y\"]");
  EXPECT_EQ(UnreachableIn(Text, {"S"}),
            (Strings{"7:1+19 TR051 warning: no start type leads to a rule with the types "
                     "\"N::B\""}));
  // A place that is not translated takes any.
  EXPECT_EQ(UnreachableIn(Text + Rule("S::S [A N] -> [A]"), {"S"}), Strings());
}

// ---- Values -----------------------------------------------------------------------------------

TEST(GrammarFindings, NameValuesThatNoRuleSupplies) {
  const struct {
    std::string Text;
    Strings vsExpected;
  } Cases[] = {
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 num) = sg)"), {}},
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 num) = du)"),
       {"9:1+15 TR052 warning: this never holds: NUM of x1 (N) is always PL or SG (1)"}},
      // Alternatives of one path are one value.
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 num) = du)\n((x1 num) = sg)"), {}},
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 num) = (*OR* du tri))"),
       {"9:1+26 TR052 warning: this never holds: NUM of x1 (N) is always PL or SG (1)"}},
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 num) = (*NOT* sg pl))"),
       {"9:1+26 TR052 warning: this never holds: NUM of x1 (N) is always PL or SG (1)"}},
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 num) = (*NOT* sg))"), {}},
      // A feature that one rule leaves open can be anything.
      {Nouns + Rule("N::N [\"sheep\"] -> [\"oveja\"]") +
           Rule("NP::NP [N] -> [N]", "((x1 num) = du)"),
       {}},
      {Nouns + Rule("N::N [\"fish\"] -> [\"pez\"]", "((x0 num) = (*NOT* pl))") +
           Rule("NP::NP [N] -> [N]", "((x1 num) = du)"),
       {}},
      {Nouns + Rule("NP::NP [N] -> [N]", "((x1 gen) = masc)"), {}},
      // So can one that has features itself.
      {Rule("N::N [\"a\"] -> [\"b\"]", "((x0 num of) = sg)") +
           Rule("NP::NP [N] -> [N]", "((x1 num) = du)"),
       {}},
      // Where nothing fills the place, something else is wrong.
      {Nouns + Rule("NP::NP [V] -> [V]", "((x1 num) = du)"), {}},
      {Nouns + Rule("NP::NP [N V] -> [N]", "((x1 num) = (x2 num))"), {}},
      // Words of the rule itself can have any value.
      {Nouns + Rule("NP::NP [\"two\" N] -> [\"dos\" N]", "((x1 num) = du)"), {}},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(ValuesIn(Row.Text), Row.vsExpected) << Row.Text;
  }
}

TEST(GrammarFindings, FollowValuesThroughEquations) {
  const std::string Heads = Nouns + Rule("NP::NP [N] -> [N]", "((x0 agr num) = (x1 num))");
  const std::string Want = "((x1 agr num) = du)";
  EXPECT_EQ(ValuesIn(Heads + Rule("S::S [NP] -> [NP]", Want)),
            (Strings{"12:1+19 TR052 warning: this never holds: AGR NUM of x1 (NP) is always PL or "
                     "SG (7)"}));
  // Whole nodes carry all paths, also around a cycle of rules.
  const std::string Chain = Heads + Rule("NP::NP [NP PP] -> [NP]", "(x0 = x1)") +
                            Rule("PP::PP [NP] -> [NP]", "(x1 = x0)");
  EXPECT_EQ(ValuesIn(Chain + Rule("S::S [PP] -> [PP]", Want)),
            (Strings{"18:1+19 TR052 warning: this never holds: AGR NUM of x1 (PP) is always PL or "
                     "SG (13)"}));
  EXPECT_EQ(
      ValuesIn(Chain + Rule("PP::PP [\"here\"] -> [\"ahi\"]") + Rule("S::S [PP] -> [PP]", Want)),
      Strings());
  // A rule that gives the head's feature a value narrows it.
  EXPECT_EQ(ValuesIn(Nouns + Rule("NP::NP [N] -> [N]", "(x0 = x1)\n((x0 num) = (*OR* sg du))") +
                     Rule("S::S [NP] -> [NP]", "((x1 num) = pl)")),
            (Strings{"13:1+15 TR052 warning: this never holds: NUM of x1 (NP) is always SG (7)"}));
}

TEST(GrammarFindings, NameAgreementsThatNeverHold) {
  const std::string Text = Nouns + Rule("DET::DET [\"a\"] -> [\"un\"]", "((x0 num) = du)");
  EXPECT_EQ(ValuesIn(Text + Rule("NP::NP [DET N] -> [DET]", "((x1 num) = (x2 num))")),
            (Strings{"12:1+21 TR052 warning: this never holds: NUM of x1 (DET) is always DU, and "
                     "NUM of x2 (N) is always PL or SG (7)"}));
  EXPECT_EQ(ValuesIn(Text + Rule("NP::NP [DET N] -> [DET]",
                                 "((x1 agr) = (x2 agr))\n((x0 num) = (x1 num))")),
            Strings());
  // Below paths that are one.
  EXPECT_EQ(ValuesIn(Text + Rule("NP::NP [DET N] -> [DET]", "(x1 = x2)\n((x0 num) = (x1 num))")),
            (Strings{"12:1+9 TR052 warning: this never holds: NUM of x1 (DET) is always DU, and "
                     "NUM of x2 (N) is always PL or SG (7)"}));
}

TEST(GrammarFindings, CountEqualRulesOnceAndFollowAnyLength) {
  std::string Text = Nouns;
  for (const char* const Word : {"\"a\"", "\"b\"", "\"c\""}) {
    Text += Rule("NP::NP [" + std::string(Word) + " N] -> [\"x\" N]", "(X2::Y2)\n((x2 num) = du)");
  }
  EXPECT_EQ(ValuesIn(Text), (Strings{"10:1+15 TR052 warning: this never holds: NUM of x2 (N) is "
                                     "always PL or SG; 2 more rules have it (1)"}));
  std::string Many;
  for (const char* const Value : {"a", "b", "c", "d", "e"}) {
    Many += Rule("N::N [\"w\"] -> [\"w\"]", "((x0 lex) = " + std::string(Value) + ")");
  }
  EXPECT_EQ(ValuesIn(Many + Rule("NP::NP [N] -> [N]", "((x1 lex) = f)")),
            (Strings{"18:1+14 TR052 warning: this never holds: LEX of x1 (N) is always one of 5 "
                     "values (1)"}));
  std::string Chain = Rule("T0::T0 [\"a\"] -> [\"b\"]", "((x0 f) = v)");
  for (int Index = 1; Index < 3000; ++Index) {
    const std::string Type = "T" + std::to_string(Index);
    Chain += Rule(Type + "::" + Type + " [T" + std::to_string(Index - 1) + "] -> [T" +
                      std::to_string(Index - 1) + "]",
                  "(x0 = x1)");
  }
  EXPECT_EQ(ValuesIn(Chain + Rule("S::S [T2999] -> [T2999]", "((x1 f) = w)")),
            (Strings{"9003:1+12 TR052 warning: this never holds: F of x1 (T2999) is always V "
                     "(8998)"}));
}

// ---- Unary rules ------------------------------------------------------------------------------

TEST(GrammarFindings, NameUnaryRulesThatFormACycle) {
  EXPECT_EQ(CyclesIn(Nouns + Rule("NP::NP [N] -> [N]")), Strings());
  EXPECT_EQ(CyclesIn(Rule("A::A [a] -> [a]")),
            (Strings{"1:1+15 TR053 note: unary rules lead in a cycle: A::A → A::A"}));
  EXPECT_EQ(CyclesIn(Rule("A::A [B] -> [B]") + Rule("C::C [A] -> [A]") + Rule("B::B [C] -> [C]")),
            (Strings{"1:1+15 TR053 note: unary rules lead in a cycle: A::A → B::B → C::C → A::A "
                     "(7)"}));
  // The target types belong to it, and a literal is not a place.
  EXPECT_EQ(CyclesIn(Rule("A::B [A] -> [A]") + Rule("C::C [\"x\" C] -> [\"x\"]")), Strings());
  EXPECT_EQ(CyclesIn(Rule("A::B [A] -> [\"x\"]")),
            (Strings{"1:1+17 TR053 note: unary rules lead in a cycle: A::B → A::B"}));
}

// ---- Rivals -----------------------------------------------------------------------------------

TEST(RivalRules, AreAlikeButForTheirTargetSide) {
  const std::string First =
      Rule("N::N [\"Bank\" A] -> [\"banco\" A]", "(X2::Y2)\n((x1 f) = (x2 g))");
  const std::string Message =
      " TR054 note: only the target of this rule differs from that of another one: the source does not "
      "decide between them (1)";
  const struct {
    std::string Second;
    Strings vsExpected;
  } Cases[] = {
      {First, {}},
      {Rule("N::N [\"bank\" A] -> [\"banca\" a]", "(X2::Y2)\n((X1 F) = (x2 g))"),
       {"5:1+30" + Message}},
      {Rule("N::M [\"bank\" A] -> [\"banco\" A]", "(X2::Y2)\n((x1 f) = (x2 g))"),
       {"5:1+30" + Message}},
      {Rule("N::N [\"bank\" A] -> [\"banco\" A]", "(X2::Y2)\n((y1 f) = a)\n((x1 f) = (x2 g))"),
       {"5:1+30" + Message}},
      {Rule("M::N [\"bank\" A] -> [\"banca\" A]", "(X2::Y2)\n((x1 f) = (x2 g))"), {}},
      {Rule("N::N [\"banks\" A] -> [\"banca\" A]", "(X2::Y2)\n((x1 f) = (x2 g))"), {}},
      {Rule("N::N [\"bank\" A] -> [\"banca\" A]", "(X2::Y2)\n((x1 f) = (x2 f))"), {}},
      // The order of constraints does not count.
      {Rule("N::N [\"bank\" A] -> [\"banco\" A]", "((x1 f) = (x2 g))\n(X2::Y2)"), {}},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(RivalsIn(First + Row.Second), Row.vsExpected) << Row.Second;
  }
}
