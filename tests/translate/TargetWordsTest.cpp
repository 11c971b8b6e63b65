#include "TargetWords.h"

#include "BestDerivations.h"
#include "RandomGrammar.h"
#include "TargetTexts.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Translate::BestDerivations;
using Translate::Derivations;
using Translate::TargetTexts;
using Translate::TargetWords;

/// A text of so many words "a" has twice as many words for each word that it has more.
const std::string Doubling =
    "S::S : [\"a\" S] -> [S S]\n(X2::Y1)\n(X2::Y2)\nS::S : [\"a\"] -> [\"x\"]\n(X1::Y1)\n";

std::string Times(std::size_t Count) {
  std::string Text;
  for (; Count > 0; --Count) {
    Text += "a ";
  }
  return Text;
}

/// The words of a tree, one after the other.
std::vector<std::string> WordsOf(const Translate::RuleSet& Rules, const Derivations& Trees,
                                 Derivations::TreeId Tree) {
  std::vector<Derivations::TreeId> vParts;
  Trees.PartsOf(Tree, vParts);
  std::vector<std::string> vsWords;
  for (const Translate::TargetItem& Item : Rules.TargetsOf(Rules.At(Trees.Rule(Tree)))) {
    const std::vector<std::string> vsNext =
        Item.IsLiteral ? std::vector<std::string>{Rules.WordName(Item.Value)}
                       : WordsOf(Rules, Trees, vParts[Item.Value]);
    vsWords.insert(vsWords.end(), vsNext.begin(), vsNext.end());
  }
  return vsWords;
}

std::string Joined(const std::vector<std::string>& vsWords) {
  std::string Text;
  for (const std::string& sWord : vsWords) {
    Text += (Text.empty() ? "" : " ") + sWord;
  }
  return Text;
}

/// Each derivation is asked for after others, so that what was noted of them is there.
TEST(TargetWords, AreThoseOfTheTargetComponentsInOrder) {
  constexpr std::size_t Most = 50;
  std::size_t Compared = 0;
  for (unsigned Seed = 0; Seed < 200 && !HasFailure(); ++Seed) {
    RandomGrammar Random(Seed);
    TestEngine Engine(TextOf(Random.Rules()) + Doubling);
    Engine.Engine.Translate(Random.Text("abc"), {});
    const Translate::Chart& Parsed = Engine.Engine.ParsedChart();
    std::vector<std::uint32_t> vAll(Parsed.Constituents().size());
    std::iota(vAll.begin(), vAll.end(), 0U);
    BestDerivations Best(Parsed);
    Best.Begin();
    Best.SetGoals(vAll);
    TargetWords Words(Engine.Set(), Best.Trees());
    TargetTexts Texts(Engine.Set(), Best.Trees());
    std::vector<std::pair<std::uint32_t, std::string>> vNumbers;
    for (std::size_t Count = 0; Count < Most; ++Count) {
      const std::optional<Derivations::TreeId> Tree = Best.Next();
      if (!Tree) {
        break;
      }
      const std::string Expected = Joined(WordsOf(Engine.Set(), Best.Trees(), *Tree));
      EXPECT_EQ(Words.Text(*Tree), Expected) << "seed " << Seed;
      const std::uint32_t Number = Texts.OfTree(*Tree);
      for (const auto& [Other, sText] : vNumbers) {
        EXPECT_EQ(Number == Other, Expected == sText) << "seed " << Seed;
      }
      vNumbers.emplace_back(Number, Expected);
      ++Compared;
    }
  }
  EXPECT_GT(Compared, 2000U);
}

TEST(TargetWords, AreWrittenUpToALength) {
  TestEngine Engine(Doubling);
  EXPECT_EQ(Engine.Plain(Times(3)), "x x x x\n");
  EXPECT_EQ(Engine.Plain(Times(24)).size(), TargetWords::MaxBytes);
  for (const std::size_t Count : {25U, 26U, 33U, 100U}) {
    const Translate::TextResult Result =
        Engine.Engine.Translate(Times(Count), TestEngine::AllDerivations());
    EXPECT_EQ(Result.Error, "a translation has more than 16777216 bytes") << Count;
    EXPECT_TRUE(Result.vTranslations.empty()) << Count;
  }
}

TEST(TargetWords, MayBeNoneHoweverOftenAPlaceIsWritten) {
  TestEngine Engine(
      "S::S : [\"a\" S] -> [S S]\n(X2::Y1)\n(X2::Y2)\nS::S : [\"a\"] -> [\"\"]\n(X1::Y1)\n");
  EXPECT_EQ(Engine.Plain(Times(200)), "\n");
}

TEST(TargetWords, OfEarlierDerivationsStandBesideTheErrorOfATooLongOne) {
  // The short word is the better one.
  TestEngine Engine(Doubling +
                    "T::T : [S] -> [\"short\"]\n(X1::Y1) ;;Score: 2\nT::T : [S] -> [S]\n"
                    "(X1::Y1)\n");
  Translate::TextOptions Options;
  Options.Translations = 5;
  Options.HasStarts = true;
  Options.vStarts = {Engine.Set().FindSourceType("T")};
  const std::string Text = Times(40);
  const Translate::TextResult Result = Engine.Engine.Translate(Text, Options);
  ASSERT_EQ(Result.vTranslations.size(), 1U);
  EXPECT_EQ(Result.vTranslations[0].Target, "short");
  EXPECT_EQ(Result.Error, "a translation has more than 16777216 bytes");
}

TEST(TargetWords, OfPiecesAreLimitedTogether) {
  TestEngine Engine(Doubling);
  Translate::TextOptions Options;
  Options.IsPartial = true;
  const std::string Once = Times(23) + "z";
  EXPECT_EQ(Engine.Engine.Translate(Once + " " + Once, Options).vPieces.size(), 4U);
  const std::string Thrice = Once + " " + Once + " " + Once;
  const Translate::TextResult Result = Engine.Engine.Translate(Thrice, Options);
  EXPECT_EQ(Result.Error, "a translation has more than 16777216 bytes");
  EXPECT_TRUE(Result.vPieces.empty());
}

TEST(TargetTexts, AreOneWhereTheyAreTooLong) {
  TestEngine Engine(Doubling + "S::S : [\"a\" S] -> [S \"y\" S]\n(X2::Y1)\n(X2::Y3)\n");
  Engine.Engine.Translate(Times(30), {});
  const Translate::Chart& Parsed = Engine.Engine.ParsedChart();
  BestDerivations Best(Parsed);
  Best.Begin();
  Best.SetGoals(Engine.Engine.Goals({}));
  TargetTexts Texts(Engine.Set(), Best.Trees());
  const auto First = Best.Next();
  const auto Second = Best.Next();
  ASSERT_TRUE(First && Second);
  EXPECT_NE(*First, *Second);
  EXPECT_EQ(Texts.OfTree(*First), Texts.OfTree(*Second));
}

TEST(TargetTexts, AreDifferentWhereNoMoreAreKept) {
  std::string Grammar = "S::S : [\"a\" S] -> [S S]\n(X2::Y1)\n(X2::Y2)\n";
  for (const std::string sWord : {"x", "y", "z", "u", "v", "w"}) {
    const std::string Rule = "S::S : [\"a\"] -> [\"" + sWord + "\"]\n(X1::Y1)\n";
    Grammar += Rule + Rule;
  }
  TestEngine Engine(Grammar);
  Engine.Engine.Translate(Times(24), {});
  BestDerivations Best(Engine.Engine.ParsedChart());
  Best.Begin();
  Best.SetGoals(Engine.Engine.Goals({}));
  TargetTexts Texts(Engine.Set(), Best.Trees());
  std::vector<std::uint32_t> vNumbers;
  for (std::optional<Derivations::TreeId> Tree; (Tree = Best.Next());) {
    vNumbers.push_back(Texts.OfTree(*Tree));
  }
  ASSERT_EQ(vNumbers.size(), 12U);
  // Each text comes twice. The first three are found again; the fourth leaves no room.
  EXPECT_EQ(std::set<std::uint32_t>(vNumbers.begin(), vNumbers.end()).size(), 9U);
}

}  // namespace
