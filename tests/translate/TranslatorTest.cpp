// Texts that would break an engine with a stack, a table of all pairs, or a copy of all there is.

#include "Translator.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

namespace {

std::string Repeated(const std::string& Word, int Count) {
  std::string Text;
  for (int Index = 0; Index < Count; ++Index) {
    Text += Word + ' ';
  }
  return Text;
}

TEST(Translator, FindsTheBestOfManyEquallyScoredDerivations) {
  TestEngine Engine(
      "S::S : [S S] -> [S S]\n(X1::Y1)\n(X2::Y2)\nS::S : [\"a\"] -> [\"x\"]\n(X1::Y1)\n");
  Translate::TextOptions Options;
  Options.Translations = 3;
  Options.AllDerivations = true;
  const auto Result = Engine.Engine.Translate(Repeated("a", 100), Options);
  ASSERT_EQ(Result.vTranslations.size(), 3U);
  // All branches go to the left: the first rule comes first wherever it can.
  const auto vNodes = Engine.Engine.NodesOf(Result.vTranslations[0].Tree, 0);
  for (std::size_t Index = 0; Index < 99; ++Index) {
    EXPECT_EQ(vNodes[Index].End, 100 - Index);
  }
  // A constituent, with its share of all there is, takes some hundred bytes for each way.
  EXPECT_LT(Engine.Engine.ParsedChart().Bytes(), std::size_t{20} << 20);
}

TEST(Translator, TranslatesLongTextsAndDeepTrees) {
  const std::string Lexicon = "A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\n";
  TestEngine Words(Lexicon);
  EXPECT_EQ(Words.Plain(Repeated("a", 100000)), "\n");
  TestEngine Right(Lexicon +
                   "S::S : [A \"b\" S] -> [S A]\n(X1::Y2)\n(X3::Y1)\n((x0 f) = x3)\n"
                   "S::S : [\"b\"] -> [\"y\"]\n(X1::Y1)\n((x0 f) = p)\n");
  const std::string Text = Repeated("a b", 1000) + 'b';
  EXPECT_EQ(Right.Plain(Text), "y " + Repeated("x", 999) + "x\n");
  EXPECT_GT(Right.Json(Text).size(), 1000U * 1000U);
}

TEST(Translator, TranslatesLongChains) {
  std::string Grammar = "T0::T : [\"a\"] -> [\"x\"]\n(X1::Y1)\n";
  for (int Level = 0; Level < 800; ++Level) {
    Grammar += 'T' + std::to_string(Level + 1) + "::T : [T" + std::to_string(Level) +
               "] -> [T]\n(X1::Y1)\n";
  }
  TestEngine Engine(Grammar);
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.Limits.MaxChain = 5000;
  EXPECT_EQ(Engine.Engine.Translate("a", Options).vTranslations.size(), 801U);
}

TEST(Translator, CopiesStructuresWithoutUnfoldingThem) {
  // Each level holds what is below it twice: written out, the structure would not fit anywhere.
  TestEngine Engine(
      "S::S : [S \"b\"] -> [S S]\n(X1::Y1)\n(X1::Y2)\n((y0 l) = y1)\n((y0 r) = y2)\n"
      "S::S : [\"a\"] -> [\"\"]\n(X1::Y1)\n((y0 f) = p)\n");
  EXPECT_EQ(Engine.Engine.Translate("a " + Repeated("b", 20), {}).vTranslations.size(), 1U);
  EXPECT_LT(Engine.Engine.Structures().Size(), 50U);
}

}  // namespace
