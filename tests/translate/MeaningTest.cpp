// What a grammar means, with known answers: each test is named by what it shows. Sections: rules as
// they are read, constraints as equations, structures, constituents, translations, output.

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;
using Translate::TextOptions;
using Translate::WriterOptions;

/// What is found in a grammar, as "line:column code: message".
Strings FindingsIn(const std::string& Grammar, bool IsReversed = false) {
  Strings vsFindings;
  const ReadGrammar Read(Grammar, IsReversed);
  for (const Grammar::Finding& Found : Read.vFindings) {
    vsFindings.push_back(std::to_string(Found.Line) + ':' + std::to_string(Found.Column) + ' ' +
                         Found.Code + ": " + Found.Message);
  }
  return vsFindings;
}

/// The words of the best translation; empty if there is none.
std::string Best(const std::string& Grammar, const std::string& Text) {
  std::string Line = TestEngine(Grammar).Plain(Text);
  Line.pop_back();
  return Line;
}

/// S and T of the root of the best derivation, as JSON.
std::string Structures(const std::string& Grammar, const std::string& Text) {
  TestEngine Engine(Grammar);
  const Translate::TextResult Result = Engine.Engine.Translate(Text, {});
  if (Result.vTranslations.empty()) {
    return "none";
  }
  const auto vNodes = Engine.Engine.NodesOf(Result.vTranslations[0].Tree, 0);
  Translate::StructureText Writer(Engine.Set(), Engine.Engine.Structures(), Engine.Engine.Atoms());
  std::string Written;
  Writer.AppendJson(vNodes[0].Structures.Source, Written);
  Written += " -> ";
  Writer.AppendJson(vNodes[0].Structures.Target, Written);
  return Written;
}

/// A lexical rule: a type, a word, what it becomes, and constraints.
std::string Word(const std::string& Type, const std::string& Source, const std::string& Target,
                 const std::string& Constraints = "") {
  return Type + "::" + Type + " : [\"" + Source + "\"] -> [\"" + Target + "\"]\n(X1::Y1)\n" +
         Constraints;
}

/// A rule with its alignments and constraints.
std::string Rule(const std::string& Line, const std::string& Body) {
  return Line + '\n' + Body;
}

// ---- Rules as they are read -------------------------------------------------------------------

TEST(Meaning, SkipsAnUnreadableRule) {
  const std::string Bad = "N::N : [\"a\"] -> [\"x\"]\n(X1::1)\n";
  EXPECT_EQ(Best(Bad + Word("N", "a", "y"), "a"), "y");
  EXPECT_EQ(FindingsIn(Bad), (Strings{"2:1 TR007: this is not an alignment of one x with one y"}));
}

TEST(Meaning, UsesARuleThatTheLibraryCannotWrite) {
  // A cycle of references, and a reference without a number after the last X.
  const std::string Cycle =
      Rule("S::S : [N N] -> [\"x\"]", "(X1::Y1)\n((x1 num) = (x2 num))\n((x2 num) = (x1 num))\n");
  EXPECT_EQ(Best(Cycle + Word("N", "a", "y"), "a a"), "x");
  EXPECT_EQ(FindingsIn(Cycle), Strings());
  const std::string NoNumber = Word("N", "a", "y", "((x0 ext) = (x1 ext))\n");
  EXPECT_EQ(Best(NoNumber, "a"), "y");
}

TEST(Meaning, ChecksComponentsEvenIfTheLibraryCannotWriteTheConstraint) {
  EXPECT_EQ(FindingsIn(Word("N", "a", "y", "((x0 ext) = (x2 ext))\n")),
            (Strings{"3:14 TR009: there is no x2: the source side has 1 component"}));
}

TEST(Meaning, RejectsAParenthesisInAList) {
  EXPECT_EQ(FindingsIn(Word("N", "a", "y", "((x0 num) = (*OR* sg (*NOT* pl))\n")),
            (Strings{"3:22 TR008: the constraint is not in the format from here on"}));
}

TEST(Meaning, NamesARuleByItsRuleLineOrItsHeader) {
  EXPECT_EQ(TestEngine(";; first\n\n{N,007}\n;; second\n" + Word("N", "a", "x")).Json("a"),
            "{\"source\":\"a\",\"translations\":[{\"target\":\"x\",\"score\":0.000000,\"tree\":"
            "{\"rule\":\"a.trr:5\",\"header\":\"N,7\",\"span\":[0,1],\"types\":[\"N\",\"N\"],"
            "\"source\":{},\"target\":{},\"children\":[]}}],\"error\":null}\n");
  const ReadGrammar Read(";; one\n{N,1}\n(X1::Y1)\n");
  EXPECT_EQ(Grammar::LineOfRule(Read.Texts[0]), 2U);
}

TEST(Meaning, ComparesTypesAndLabelsInCapitals) {
  EXPECT_EQ(Best("np::Np : [n] -> [N]\n(X1::Y1)\n" + Word("N", "a", "x"), "a"), "x");
}

TEST(Meaning, SplitsLabelsAtBlanksBeforeItReadsQuotes) {
  // Three components: neither quote closes what the other has opened.
  const std::string Grammar = "S::S : [\"new york\"] -> [\"x\"]\n(X1::Y1)\n";
  EXPECT_EQ(Best(Grammar, "new york"), "");
  EXPECT_EQ(Best("S::S : [\"new\"  \"york\"] -> [\"x\"]\n(X1::Y1)\n", "new york"), "x");
}

TEST(Meaning, ReadsASingleQuoteAsAPlace) {
  EXPECT_EQ(FindingsIn("S::S : [\"a\"] -> [\"]\n(X1::Y1)\n"),
            (Strings{"1:18 TR015: the target component has no source to come from"}));
}

TEST(Meaning, MatchesWordsInAnyCaseAndWritesThemUnchanged) {
  EXPECT_EQ(Best(Word("N", "Car", "elAuto"), "cAR"), "elAuto");
}

TEST(Meaning, MatchesBytesOnRequest) {
  Translate::RuleSetOptions Options;
  Options.MatchCase = true;
  TestEngine Engine(Word("N", "Car", "auto"), Options);
  EXPECT_EQ(Engine.Plain("Car"), "auto\n");
  EXPECT_EQ(Engine.Plain("car"), "\n");
}

TEST(Meaning, WritesNothingForTheEmptyLiteralAndNeverMatchesIt) {
  EXPECT_EQ(Best("S::S : [D N] -> [\"\" N]\n(X1::Y1)\n(X2::Y2)\n" + Word("N", "a", "x") +
                     "D::D : [\"la\"] -> [\"\"]\n(X1::Y1)\n",
                 "la a"),
            "x");
  EXPECT_EQ(Best(Word("N", "", "x"), "a"), "");
}

TEST(Meaning, TakesEachTargetPlaceFromItsAlignedSource) {
  const std::string Words = Word("A", "a", "x") + Word("B", "b", "y");
  EXPECT_EQ(Best("S::S : [A B] -> [B A]\n(X1::Y2)\n(X2::Y1)\n" + Words, "a b"), "y x");
  // Of several, the only one with its own label.
  EXPECT_EQ(Best("S::S : [A B] -> [B]\n(X1::Y1)\n(X2::Y1)\n" + Words, "a b"), "y");
  // An alignment with a literal has no effect.
  EXPECT_EQ(Best("S::S : [\"a\" B] -> [B \"z\"]\n(X1::Y1)\n(X2::Y1)\n(X2::Y2)\n" + Words, "a b"),
            "y z");
}

TEST(Meaning, SkipsARuleWithoutASingleSourceForATarget) {
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"S::S : [A B] -> [A B]\n(X1::Y1)\n",
       {"1:20 TR015: the target component has no source to come from"}},
      {"S::S : [A A] -> [A]\n(X1::Y1)\n(X2::Y1)\n",
       {"1:18 TR015: the target component has more than one source"}},
      {"S::S : [A B] -> [C]\n(X1::Y1)\n(X2::Y1)\n",
       {"1:18 TR015: the target component has more than one source"}},
      {"S::S : [A] -> [A B]\n(X1::Y1)\n(X1::Y2)\n",
       {"1:9 TR015: the source component is wanted with two labels"}},
      {"S::S : [A B] -> [\"a\"]\n(X1::Y1)\n(X2::Y1)\n", {}},
      {"S::S : [A] -> [A a]\n(X1::Y1)\n(X1::Y2)\n", {}},
      // Twice the same is one source.
      {"S::S : [A] -> [A]\n(X1::Y1)\n(X1::Y1)\n", {}},
      // A rule with another error has no such warning.
      {"S::S : [A B] -> [A B]\n(X1::Y1)\n((x3 num) = sg)\n",
       {"3:3 TR009: there is no x3: the source side has 2 components"}},
  };
  for (const auto& [sGrammar, vsExpected] : Cases) {
    EXPECT_EQ(FindingsIn(sGrammar), vsExpected) << sGrammar;
  }
}

TEST(Meaning, TakesSourcesFromTheOtherSideInReverse) {
  const std::string Grammar = "S::S : [A B] -> [A]\n(X1::Y1)\n";
  EXPECT_EQ(FindingsIn(Grammar, false), Strings());
  EXPECT_EQ(FindingsIn(Grammar, true),
            (Strings{"1:11 TR015: the target component has no source to come from"}));
}

TEST(Meaning, TranslatesAPlaceOnceAndWritesItAtEachTarget) {
  EXPECT_EQ(Best("S::S : [A] -> [A \"and\" A]\n(X1::Y1)\n(X1::Y3)\n" + Word("A", "a", "x"), "a"),
            "x and x");
}

TEST(Meaning, OmitsAPlaceWithoutATarget) {
  // A place that is wanted nowhere takes any target type.
  EXPECT_EQ(Best("S::S : [A B] -> [B]\n(X2::Y1)\nA::Q : [\"a\"] -> [\"x\"]\n(X1::Y1)\n" +
                     Word("B", "b", "y"),
                 "a b"),
            "y");
}

TEST(Meaning, ReadsTheCountFromTheFirstScore) {
  const std::vector<std::pair<std::string, std::uint32_t>> Cases{
      {"", 1},
      {";;Score: 12\n;;Score: 3\n", 12},
      {";; Score:7x\n", 7},
      {"  ;;\tScore: \t8\n", 8},
      {";;Score: x7\n;;Score: 3\n", 1},
      {";;Score: 0\n", 1},
      {";;Score: -4\n", 1},
      {";;Score: 2147483647\n", 2147483647},
      {";;Score: 99999999999999999999999\n", 2147483647},
      {";;score: 5\n", 1},
  };
  for (const auto& [sComment, Count] : Cases) {
    const ReadGrammar Read(sComment + Word("N", "a", "x"));
    ASSERT_EQ(Read.vRules.size(), 1U) << sComment;
    EXPECT_EQ(Read.vRules[0].Count, Count) << sComment;
  }
}

// ---- Constraints as equations -----------------------------------------------------------------

TEST(Meaning, ReadsANodeWithFeaturesAsAPath) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 agr num) = sg)\n((y0 AGR\tgen) = masc)\n"), "a"),
            R"({"AGR":{"NUM":"SG"}} -> {"AGR":{"GEN":"MASC"}})");
}

TEST(Meaning, ReadsALoneNodeAsAPathInPlaceOfAValue) {
  EXPECT_EQ(Structures("S::S : [N] -> [\"x\"]\n(X1::Y1)\n((x0 head) = x1)\n" +
                           Word("N", "a", "x", "((x0 num) = sg)\n"),
                       "a"),
            R"({"HEAD":{"NUM":"SG"}} -> {})");
}

TEST(Meaning, KeepsSeveralWordsAsOneAtom) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 of) =  new york )\n"), "a"),
            R"({"OF":"NEW YORK"} -> {})");
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 of) = (*OR* new york))\n"), "a"),
            R"({"OF":{"*OR*":["NEW","YORK"]}} -> {})");
}

TEST(Meaning, ReadsANodeInAListAsAnAtom) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 f) = (*OR* x1 y7))\n"), "a"),
            R"({"F":{"*OR*":["X1","Y7"]}} -> {})");
}

TEST(Meaning, ReadsADoubledEqualsSignAsOne) {
  EXPECT_EQ(Structures("S::S : [N] -> [\"x\"]\n(X1::Y1)\n((x0 num) == (x1 num))\n" +
                           Word("N", "a", "x", "((x0 num) == sg)\n"),
                       "a"),
            R"({"NUM":"SG"} -> {})");
}

TEST(Meaning, MergesValuesOfOneWrittenPath) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"((x0 num) = sg)\n((x0 NUM) = pl)\n", R"({"NUM":{"*OR*":["PL","SG"]}})"},
      {"((x0 num) = sg)\n((x00 num) = (*OR* pl du))\n", R"({"NUM":{"*OR*":["DU","PL","SG"]}})"},
      {"((x0 a  b) = p)\n((x0 A\tB) = q)\n", R"({"A":{"B":{"*OR*":["P","Q"]}}})"},
      // A negation never merges.
      {"((x0 num) = sg)\n((x0 num) = (*NOT* pl))\n", R"({"NUM":"SG"})"},
      {"((x0 num) = sg)\n((x0 num) = (*NOT* sg))\n", "none"},
      {"((x0 num) = (*NOT* sg))\n((x0 num) = (*NOT* pl))\n", R"({"NUM":{"*NOT*":["PL","SG"]}})"},
      // Other paths to the same structure do not merge, they clash.
      {"(x0 = x1)\n((x0 num) = sg)\n((x1 num) = pl)\n", "none"},
      {"((x0 f) = (x0 g))\n((x0 f) = p)\n((x0 g) = q)\n", "none"},
  };
  for (const auto& [sConstraints, sExpected] : Cases) {
    const std::string Found = Structures(Word("N", "a", "x", sConstraints), "a");
    EXPECT_EQ(Found.substr(0, Found.find(" -> ")), sExpected) << sConstraints;
  }
}

TEST(Meaning, MergesValuesOfEachSideSeparately) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 n) = sg)\n((y0 n) = pl)\n"), "a"),
            R"({"N":"SG"} -> {"N":"PL"})");
}

// ---- Structures -------------------------------------------------------------------------------

TEST(Meaning, DistinguishesComplexAndOpenStructures) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 f) = (x0 f))\n"), "a"), R"({"F":{}} -> {})");
  EXPECT_EQ(Structures(Word("N", "a", "x", "(x0 = x1)\n"), "a"), R"({} -> {})");
  // So a value clashes with the one, and not with the other.
  const std::string Top = "S::S : [N \"t\"] -> [\"x\"]\n(X1::Y1)\n((x0 v) = x1)\n((x0 v) = sg)\n";
  EXPECT_EQ(Structures(Top + Word("N", "a", "x", "((x0 f) = (x0 f))\n"), "a t"), "none");
  EXPECT_EQ(Structures(Top + Word("N", "a", "x"), "a t"), R"({"V":"SG"} -> {})");
}

TEST(Meaning, IntersectsAtoms) {
  const std::string Top = "S::S : [N M] -> [\"x\"]\n(X1::Y1)\n((x1 f) = (x2 f))\n(x0 = x1)\n";
  const std::vector<Strings> Cases{
      {"p", "p", R"({"F":"P"} -> {})"},
      {"p", "q", "none"},
      {"(*OR* p q)", "(*OR* q r)", R"({"F":"Q"} -> {})"},
      {"(*OR* p q r)", "(*NOT* q)", R"({"F":{"*OR*":["P","R"]}} -> {})"},
      {"(*OR* p)", "(*NOT* p)", "none"},
      {"(*NOT* p)", "(*NOT* q p)", R"({"F":{"*NOT*":["P","Q"]}} -> {})"},
  };
  for (const Strings& vsEach : Cases) {
    EXPECT_EQ(Structures(Top + Word("N", "a", "x", "((x0 f) = " + vsEach[0] + ")\n") +
                             Word("M", "b", "x", "((x0 f) = " + vsEach[1] + ")\n"),
                         "a b"),
              vsEach[2])
        << vsEach[0] << ' ' << vsEach[1];
  }
}

TEST(Meaning, ClashesOnAFeatureOfAnAtom) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 f) = p)\n((x0 f g) = q)\n"), "a"), "none");
}

TEST(Meaning, ClashesOnAStructureThatContainsItself) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "(x0 = (x0 f))\n"), "a"), "none");
  // Also where nothing of it is kept.
  EXPECT_EQ(Structures(Word("N", "a", "x", "(x1 = (x1 f g))\n"), "a"), "none");
  EXPECT_EQ(Structures(Word("N", "a", "x", "((y1 f) = (y1 g))\n((y1 g h) = (y1 f))\n"), "a"),
            "none");
}

TEST(Meaning, ClashesOnATransferThatMakesAStructureContainItself) {
  // B is what A has below F, and in the other one A is what B has below F: both hold in a ring
  // only.
  const std::string Words = Word("N", "a", "x", "((x0 b) = (x0 a f))\n((y0 a) = (y0 b f))\n") +
                            Word("M", "b", "y", "((x0 a) = (x0 b f))\n");
  const std::string Pair = "S::S : [N M] -> [N M]\n(X1::Y1)\n(X2::Y2)\n";
  EXPECT_EQ(Structures(Pair + "(y0 = x1)\n" + Words, "a b"),
            R"({} -> {"A":{"F":{"#":1,"is":{}}},"B":{"#":1}})");
  EXPECT_EQ(Structures(Pair + "(y0 = x1)\n(y0 = x2)\n" + Words, "a b"), "none");
  // Also where it is brought to a part, of which nothing is kept.
  EXPECT_EQ(Structures(Pair + "(y1 = x2)\n" + Words, "a b"), "{} -> {}");
  EXPECT_EQ(Structures(Pair + "(y1 = x1)\n" + Words, "a b"), "none");
}

TEST(Meaning, DistinguishesSharedAndEqualStructures) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 b) = (x0 a))\n((x0 a) = p)\n"), "a"),
            R"({"A":{"#":1,"is":"P"},"B":{"#":1}} -> {})");
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 a) = p)\n((x0 b) = p)\n"), "a"),
            R"({"A":"P","B":"P"} -> {})");
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 b) = (x0 a))\n((x0 c d) = (x0 a e))\n"), "a"),
            R"({"A":{"#":1,"is":{"E":{"#":2,"is":{}}}},"B":{"#":1},"C":{"D":{"#":2}}} -> {})");
}

// ---- Constituents -----------------------------------------------------------------------------

const std::string Phrase =
    "NP::NP : [D N] -> [D N]\n(X1::Y1)\n(X2::Y2)\n((x1 num) = (x2 num))\n(x0 = x2)\n"
    "((y0 num) = (x0 num))\n((y1 gen) = (y2 gen))\n";

TEST(Meaning, AcceptsOnlyAgreement) {
  const std::string Words = Word("D", "this", "el", "((x0 num) = sg)\n((y0 gen) = m)\n") +
                            Word("D", "this", "la", "((x0 num) = sg)\n((y0 gen) = f)\n") +
                            Word("N", "car", "auto", "((x0 num) = sg)\n((y0 gen) = m)\n") +
                            Word("N", "cars", "autos", "((x0 num) = pl)\n((y0 gen) = m)\n");
  EXPECT_EQ(TestEngine(Phrase + Words).All("this car"), "-1.386294\tel auto\n\n");
  EXPECT_EQ(Best(Phrase + Words, "this cars"), "");
  EXPECT_EQ(Structures(Phrase + Words, "this car"), R"({"NUM":"SG"} -> {"NUM":"SG"})");
}

TEST(Meaning, IgnoresATransferOfAMissingPath) {
  EXPECT_EQ(
      Structures(Word("N", "a", "x", "((y0 f g) = (x0 f))\n((y0 h) = (x0 v w))\n((x0 v) = p)\n"),
                 "a"),
      R"({"V":"P"} -> {})");
}

TEST(Meaning, CreatesTheTargetPathOfATransfer) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((y0 f g) = (x0 v))\n((x0 v) = p)\n"), "a"),
            R"({"V":"P"} -> {"F":{"G":"P"}})");
}

TEST(Meaning, TransfersWithTheSourceOnEitherSide) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 v) = (y0 w))\n((x0 v) = p)\n"), "a"),
            R"({"V":"P"} -> {"W":"P"})");
}

TEST(Meaning, TransfersWithoutChangingTheAnalysis) {
  EXPECT_EQ(
      Structures(Word("N", "a", "x", "((y0 v) = (x0 v))\n((x0 v) = (*OR* p q))\n((y0 v) = p)\n"),
                 "a"),
      R"({"V":{"*OR*":["P","Q"]}} -> {"V":"P"})");
}

TEST(Meaning, CopiesSeparatelyForEachTransfer) {
  EXPECT_EQ(Structures(Word("N", "a", "x",
                            "((x0 v w) = p)\n((x0 u) = (x0 v))\n((y0 a) = (x0 v))\n"
                            "((y0 b) = (x0 v))\n"),
                       "a"),
            R"({"U":{"#":1,"is":{"W":"P"}},"V":{"#":1}} -> {"A":{"W":"P"},"B":{"W":"P"}})");
}

TEST(Meaning, KeepsSharingWithinACopy) {
  EXPECT_EQ(Structures(Word("N", "a", "x", "((x0 v) = (x0 w))\n(y0 = x0)\n((y0 v f) = p)\n"), "a"),
            R"({"V":{"#":1,"is":{}},"W":{"#":1}} -> {"V":{"#":1,"is":{"F":"P"}},"W":{"#":1}})");
}

TEST(Meaning, GeneratesAWholeNodeFromAFeature) {
  EXPECT_EQ(Structures("S::S : [N] -> [N]\n(X1::Y1)\n(y1 = (y0 det))\n" +
                           Word("N", "a", "x", "((y0 def) = plus)\n"),
                       "a"),
            R"({} -> {"DET":{"DEF":"PLUS"}})");
}

TEST(Meaning, CopiesForEachTargetPlace) {
  const std::string Top = "S::S : [N] -> [N N]\n(X1::Y1)\n(X1::Y2)\n((y0 a) = y1)\n((y0 b) = y2)\n";
  const std::string Noun = Word("N", "a", "x", "((y0 g) = (*OR* m f))\n");
  EXPECT_EQ(Structures(Top + Noun, "a"),
            R"({} -> {"A":{"G":{"*OR*":["F","M"]}},"B":{"G":{"*OR*":["F","M"]}}})");
  EXPECT_EQ(Structures(Top + "((y1 g) = m)\n((y2 g) = f)\n" + Noun, "a"),
            R"({} -> {"A":{"G":"M"},"B":{"G":"F"}})");
}

TEST(Meaning, DoesNotChangeAConstituentFromAbove) {
  TestEngine Engine("S::S : [N \"t\"] -> [N]\n(X1::Y1)\n((x1 num) = sg)\n((y1 num) = pl)\n" +
                    Word("N", "a", "x", "((y0 num) = (x0 num))\n"));
  EXPECT_EQ(Engine.Json("a t"),
            "{\"source\":\"a t\",\"translations\":[{\"target\":\"x\",\"score\":0.000000,"
            "\"tree\":{\"rule\":\"a.trr:1\",\"header\":null,\"span\":[0,2],"
            "\"types\":[\"S\",\"S\"],\"source\":{},\"target\":{},\"children\":["
            "{\"rule\":\"a.trr:5\",\"header\":null,\"span\":[0,1],\"types\":[\"N\",\"N\"],"
            "\"source\":{},\"target\":{},\"children\":[]}]}}],\"error\":null}\n");
}

TEST(Meaning, LeavesTheNodesOfLiteralsOpen) {
  EXPECT_EQ(
      Structures(Word("N", "a", "x", "((x1 f) = p)\n(x0 = x1)\n((y1 g) = q)\n(y0 = y1)\n"), "a"),
      R"({"F":"P"} -> {"G":"Q"})");
}

TEST(Meaning, DoesNotRepeatAUnaryRuleInAChain) {
  const std::string Words = Word("A", "a", "x");
  const std::string There = "B::B : [A] -> [A \"t\"]\n(X1::Y1)\n";
  const std::string Back = "A::A : [B] -> [B \"b\"]\n(X1::Y1)\n";
  TestEngine Engine(There + Back + Words);
  EXPECT_EQ(Engine.All("a"), "-0.693147\tx t\n-0.693147\tx\n-1.386294\tx t b\n\n");
}

TEST(Meaning, BeginsANewChainWithAnyOtherRule) {
  const std::string Grammar =
      "B::B : [A] -> [A \"t\"]\n(X1::Y1)\nA::A : [B \"c\"] -> [B]\n(X1::Y1)\n" +
      Word("A", "a", "x");
  EXPECT_EQ(Best(Grammar, "a c c"), "x t t t");
}

TEST(Meaning, LimitsTheLengthOfAChain) {
  std::string Grammar = Word("L0", "a", "x");
  for (int Level = 0; Level < 10; ++Level) {
    Grammar += 'L' + std::to_string(Level + 1) + "::L : [L" + std::to_string(Level) + "] -> [\"" +
               std::to_string(Level + 1) + "\"]\n(X1::Y1)\n";
  }
  TestEngine Engine(Grammar);
  TextOptions Options = TestEngine::AllDerivations();
  EXPECT_EQ(Engine.Engine.Translate("a", Options).vTranslations.size(), 9U);
  Options.Limits.MaxChain = 3;
  EXPECT_EQ(Engine.Engine.Translate("a", Options).vTranslations.size(), 4U);
  Options.Limits.MaxChain = 0;
  EXPECT_EQ(Engine.Engine.Translate("a", Options).vTranslations.size(), 1U);
}

// ---- Translations -----------------------------------------------------------------------------

TEST(Meaning, ScoresByTheShareOfTheCount) {
  EXPECT_EQ(TestEngine(";;Score: 1\n" + Word("N", "a", "x") + ";;Score: 3\n" + Word("n", "a", "y"))
                .All("a"),
            "-0.287682\ty\n-1.386294\tx\n\n");
}

TEST(Meaning, CountsOnlyUsableRulesInTheTotal) {
  EXPECT_EQ(TestEngine(Word("N", "a", "x") + "N::N : [\"a\"] -> [A]\n(X1::Y1)\n").All("a"),
            "0.000000\tx\n\n");
}

TEST(Meaning, OrdersEqualScoresByTheNumbersOfTheRules) {
  // The first rule is left out, and counts in the numbers.
  const std::string Grammar = "N::N : [\"a\"] -> [\"w\"]\n(1::Y1)\n" + Word("N", "a", "x") +
                              Word("N", "a", "y") + "S::S : [N N] -> [N N]\n(X1::Y1)\n(X2::Y2)\n";
  EXPECT_EQ(TestEngine(Grammar).All("a a"),
            "-1.386294\tx x\n-1.386294\tx y\n-1.386294\ty x\n-1.386294\ty y\n\n");
}

TEST(Meaning, ListsTheRootFirstAndChildrenInTheOrderOfTheSource) {
  const std::string Grammar =
      "S::S : [S S] -> [\"(\" S S \")\"]\n(X1::Y2)\n(X2::Y3)\n" + Word("S", "a", "x");
  EXPECT_EQ(TestEngine(Grammar).All("a a a"),
            "-3.465735\t( ( x x ) x )\n-3.465735\t( x ( x x ) )\n\n");
}

TEST(Meaning, SkipsATextThatWasReturnedBefore) {
  const std::string Grammar = Word("N", "a", "x") + Word("N", "a", "x") + Word("N", "a", "y");
  TestEngine Engine(Grammar);
  TextOptions Options;
  WriterOptions Form;
  Form.IsList = true;
  Options.Translations = 5;
  EXPECT_EQ(Engine.Written("a", Options, Form), "-1.098612\tx\n-1.098612\ty\n\n");
  Options.AllDerivations = true;
  EXPECT_EQ(Engine.Written("a", Options, Form), "-1.098612\tx\n-1.098612\tx\n-1.098612\ty\n\n");
  Options.Translations = 2;
  EXPECT_EQ(Engine.Written("a", Options, Form), "-1.098612\tx\n-1.098612\tx\n\n");
}

TEST(Meaning, StopsAfterTooManySkippedTexts) {
  std::string Grammar = Word("N", "a", "y");
  for (int Count = 0; Count < 4; ++Count) {
    Grammar += Word("N", "a", "x");
  }
  TestEngine Engine(Grammar);
  TextOptions Options;
  Options.Translations = 3;
  Options.MaxDerivations = 3;
  EXPECT_EQ(Engine.Engine.Translate("a", Options).Error, "");
  Options.MaxDerivations = 2;
  const Translate::TextResult Result = Engine.Engine.Translate("a", Options);
  EXPECT_EQ(Result.Error, "more than 2 derivations repeat earlier texts");
  EXPECT_EQ(Result.vTranslations.size(), 2U);
}

TEST(Meaning, StopsAtTooManyConstituents) {
  TestEngine Engine("S::S : [N N] -> [N N]\n(X1::Y1)\n(X2::Y2)\n" + Word("N", "a", "x"));
  TextOptions Options;
  Options.Limits.MaxConstituents = 3;
  EXPECT_EQ(Engine.Engine.Translate("a a", Options).Error, "");
  Options.Limits.MaxConstituents = 2;
  Options.IsPartial = true;
  WriterOptions Form;
  Form.Format = Translate::TextFormat::Json;
  EXPECT_EQ(Engine.Written("a a", Options, Form),
            "{\"source\":\"a a\",\"translations\":[],\"pieces\":[],\"error\":"
            "\"there are more than 2 constituents\"}\n");
}

TEST(Meaning, TranslatesOnlyAsStartTypes) {
  TestEngine Engine(Word("N", "a", "x") + "S::S : [N] -> [N \"s\"]\n(X1::Y1)\n");
  TextOptions Options;
  Options.HasStarts = true;
  EXPECT_EQ(Engine.Written("a", Options, {}), "\n");
  Options.vStarts = {Engine.Set().FindSourceType("s")};
  EXPECT_EQ(Engine.Written("a", Options, {}), "x s\n");
  EXPECT_EQ(Engine.Set().FindSourceType("Q"), Translate::RuleSet::None);
}

TEST(Meaning, HasNoTranslationOfAnEmptyText) {
  TestEngine Engine(Word("N", "a", "x"));
  EXPECT_EQ(Engine.All(""), "\n");
  EXPECT_EQ(Engine.All(" \t\v\f\r "), "\n");
}

TEST(Meaning, SplitsATextWithoutTranslationIntoTheFewestPieces) {
  TestEngine Engine(Word("A", "a", "x") + Word("B", "b", "y") + Word("E", "e", "") +
                    "P::P : [\"a\" \"b\"] -> [\"ab\"]\n(X1::Y1)\n" +
                    "P::P : [\"b\" \"c\"] -> [\"bc\"]\n(X1::Y1)\n");
  TextOptions Options;
  Options.IsPartial = true;
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"a b c", "ab c\n"},     // the first piece as long as possible
      {"b c a b", "bc ab\n"},  //
      {"A z", "x z\n"},        // a token is copied where nothing spans it
      {"e q e", "q\n"},        // no words, no blanks
      {"e e", "\n"},          {"", "\n"},
  };
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Engine.Written(sText, Options, {}), sExpected) << sText;
  }
  WriterOptions Form;
  Form.IsList = true;
  EXPECT_EQ(Engine.Written("a b c", Options, Form), "ab c\n\n");
}

TEST(Meaning, ExchangesTheSidesInReverse) {
  Translate::RuleSetOptions Options;
  Options.IsReversed = true;
  TestEngine Engine(
      "NP::SN : [\"the\" N] -> [N \"la\"]\n(X2::Y1)\n((x0 f) = p)\n"
      "((y0 g) = (y1 g))\nN::M : [\"house\"] -> [\"casa\"]\n(X1::Y1)\n"
      "((y0 g) = fem)\n",
      Options);
  EXPECT_EQ(Engine.Plain("casa la"), "\n");
  TestEngine Other(
      "NP::SN : [\"the\" N] -> [M \"la\"]\n(X2::Y1)\n((x0 f) = p)\n"
      "((y0 g) = (y1 g))\nN::M : [\"house\"] -> [\"casa\"]\n(X1::Y1)\n"
      "((y0 g) = fem)\n",
      Options);
  EXPECT_EQ(Other.Plain("casa la"), "the house\n");
}

// ---- Output -----------------------------------------------------------------------------------

TEST(Meaning, CountsDerivationsUpToALimit) {
  TestEngine Engine("S::S : [S S] -> [S S]\n(X1::Y1)\n(X2::Y2)\n" + Word("S", "a", "x"));
  TextOptions Options;
  Options.WantsCount = true;
  const auto Count = [&](std::size_t Tokens) {
    std::string Text;
    for (std::size_t Index = 0; Index < Tokens; ++Index) {
      Text += "a ";
    }
    return Engine.Engine.Translate(Text, Options).Derivations;
  };
  EXPECT_EQ(Count(0), 0U);
  EXPECT_EQ(Count(5), 14U);
  EXPECT_EQ(Count(37), 11959798385860453492U);  // the last Catalan number below 2^64
  EXPECT_EQ(Count(38), std::nullopt);
}

TEST(Meaning, WritesBytesAndControlCharactersInJson) {
  TestEngine Engine("S::S : [\"\xff\x01\"] -> [\"\\\x7f\"]\n(X1::Y1)\n");
  EXPECT_EQ(
      Engine.Json("\xff\x01\t").substr(0, 66),
      "{\"source\":\"\xef\x9f\xbf\\u0001\\t\",\"translations\":[{\"target\":\"\\\\\x7f\",\"score\":0.");
}

TEST(Meaning, SortsFeaturesAndAtomsByTheirBytes) {
  EXPECT_EQ(
      Structures(Word("N", "a", "x", "((x0 z) = p)\n((x0 a-b) = p)\n((x0 a) = (*OR* z b y))\n"),
                 "a"),
      R"({"A":{"*OR*":["B","Y","Z"]},"A-B":"P","Z":"P"} -> {})");
}

}  // namespace
