// The engine and the reference implementation find the same derivations, with the same structures,
// scores and order, and the same number of constituents, on random grammars and texts.

#include "RandomGrammar.h"
#include "ReferenceTranslator.h"
#include "StructureText.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

/// A derivation in the reference implementation's words.
std::string TextOf(TestEngine& Grammar, const Translate::Translation& Each) {
  Translate::StructureText Structures(Grammar.Set(), Grammar.Engine.Structures(),
                                      Grammar.Engine.Atoms());
  std::string Text = std::to_string(Each.Score) + ' ' + Each.Target + ' ';
  std::vector<std::uint32_t> vLeft;
  for (const Translate::TreeNode& Node : Grammar.Engine.NodesOf(Each.Tree, 0)) {
    Text += std::to_string(Grammar.Set().At(Node.Rule).Line);
    Structures.AppendJson(Node.Structures.Source, Text);
    Structures.AppendJson(Node.Structures.Target, Text);
    Text += '(';
    vLeft.push_back(Node.Parts);
    while (!vLeft.empty() && vLeft.back() == 0) {
      Text += ')';
      vLeft.pop_back();
      if (!vLeft.empty()) {
        --vLeft.back();
      }
    }
  }
  return Text;
}

Strings DerivationsOf(TestEngine& Grammar, const std::string& Text) {
  Strings vsDerivations;
  for (const Translate::Translation& Each :
       Grammar.Engine.Translate(Text, TestEngine::AllDerivations()).vTranslations) {
    vsDerivations.push_back(TextOf(Grammar, Each));
  }
  return vsDerivations;
}

/// @return how many derivations were compared
std::size_t Compare(unsigned Seed, bool IsReversed) {
  RandomGrammar Random(Seed);
  const std::string Text = Random.Grammar();
  Translate::RuleSetOptions Options;
  Options.IsReversed = IsReversed;
  TestEngine Grammar(Text, Options);
  const ReferenceTranslator Slow(Grammar.Read.vRules, Grammar.Read.vNumbers);
  std::size_t Compared = 0;
  for (int Round = 0; Round < 4; ++Round) {
    const std::string Words = Random.Text(IsReversed ? "axyz" : "abc");
    const ReferenceTranslator::Result Expected = Slow.Translate(Words);
    if (!Expected.IsTooMuch) {
      EXPECT_EQ(DerivationsOf(Grammar, Words), Expected.vDerivations)
          << "seed " << Seed << ", \"" << Words << "\"\n"
          << Text;
      EXPECT_EQ(Grammar.Engine.ParsedChart().Count().Constituents, Expected.Constituents)
          << "seed " << Seed << ", \"" << Words << "\"\n"
          << Text;
      Compared += Expected.vDerivations.size();
    }
  }
  return Compared;
}

TEST(Reference, FindsTheSameDerivationsInTheSameOrder) {
  std::size_t Compared = 0;
  for (unsigned Seed = 0; Seed < 400 && !testing::Test::HasFailure(); ++Seed) {
    Compared += Compare(Seed, false);
  }
  // Grammars without derivations would prove nothing.
  EXPECT_GT(Compared, 5000U);
}

TEST(Reference, FindsTheSameDerivationsInReverse) {
  std::size_t Compared = 0;
  for (unsigned Seed = 1000; Seed < 1200 && !testing::Test::HasFailure(); ++Seed) {
    Compared += Compare(Seed, true);
  }
  EXPECT_GT(Compared, 1000U);
}

}  // namespace
