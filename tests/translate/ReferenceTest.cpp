// The engine and the reference implementation find the same derivations, with the same structures,
// scores and order, and the same number of constituents, on random grammars and texts.

#include "RandomGrammar.h"
#include "ReferenceTranslator.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <string>

namespace {

/// Holds the engine and the reference implementation together on a grammar and some texts.
/// @return how many derivations were compared
std::size_t Compare(unsigned Seed, const Translate::RuleSetOptions& Rules, std::uint32_t MaxChain) {
  RandomGrammar Random(Seed);
  const std::string Text = TextOf(Random.Rules());
  TestEngine Grammar(Text, Rules);
  const ReferenceTranslator Slow(Grammar.Read.vRules, Grammar.Read.vNumbers);
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.WantsCount = true;
  Options.Limits.MaxChain = MaxChain;
  std::size_t Compared = 0;
  for (int Round = 0; Round < 4; ++Round) {
    const std::string Words = Random.Text(Rules.IsReversed ? "axyz" : "abc");
    const ReferenceTranslator::Result Expected = Slow.Translate(Words, {MaxChain, Rules.MatchCase});
    if (Expected.IsTooMuch) {
      continue;
    }
    const std::string Where = "seed " + std::to_string(Seed) + ", \"" + Words + "\"\n" + Text;
    const Translate::TextResult Result = Grammar.Engine.Translate(Words, Options);
    EXPECT_EQ(DerivationTexts(Grammar, Result), Expected.vDerivations) << Where;
    EXPECT_EQ(Result.Derivations, Expected.vDerivations.size()) << Where;
    EXPECT_EQ(Grammar.Engine.ParsedChart().Count().Constituents, Expected.Constituents) << Where;
    Compared += Expected.vDerivations.size();
  }
  return Compared;
}

struct Case {
  const char* Name;
  Translate::RuleSetOptions Rules;
  std::uint32_t MaxChain;
  unsigned FirstSeed;
  unsigned Seeds;
  std::size_t Derivations;  ///< to be compared at least: grammars without them would prove nothing
};

class Reference : public testing::TestWithParam<Case> {};

TEST_P(Reference, FindsTheSameDerivationsInTheSameOrder) {
  std::size_t Compared = 0;
  for (unsigned Seed = 0; Seed < GetParam().Seeds && !HasFailure(); ++Seed) {
    Compared += Compare(GetParam().FirstSeed + Seed, GetParam().Rules, GetParam().MaxChain);
  }
  EXPECT_GT(Compared, GetParam().Derivations);
}

INSTANTIATE_TEST_SUITE_P(Settings, Reference,
                         testing::Values(Case{"Plain", {false, false}, 8, 0, 300, 2000},
                                         Case{"Reverse", {true, false}, 8, 1000, 150, 300},
                                         Case{"MatchCase", {false, true}, 8, 2000, 150, 300},
                                         Case{"ShortChains", {false, false}, 2, 3000, 150, 300},
                                         Case{"NoChains", {true, true}, 0, 4000, 150, 100}),
                         [](const auto& Current) { return std::string(Current.param.Name); });

}  // namespace
