// What changes nothing: the normal form of a grammar, the order of constraints, rules and features,
// threads, and limits that are far away. And what only adds derivations: another rule, or one
// constraint less.

#include "GrammarPaths.h"
#include "GrammarSupport.h"
#include "Literal.h"
#include "OrderedTexts.h"
#include "RandomGrammar.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

constexpr std::size_t MaxDerivations = 300;

/// All derivations of a text in order; nothing if there are very many.
std::optional<Strings> DerivationsOf(
    TestEngine& Grammar, const std::string& Text,
    const RuleName& Name = [](std::uint32_t Number) { return std::to_string(Number); }) {
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.Translations = MaxDerivations + 1;
  const Translate::TextResult Result = Grammar.Engine.Translate(Text, Options);
  if (Result.vTranslations.size() > MaxDerivations) {
    return std::nullopt;
  }
  return DerivationTexts(Grammar, Result, Name);
}

Strings Sorted(Strings vsTexts) {
  std::sort(vsTexts.begin(), vsTexts.end());
  return vsTexts;
}

/// A derivation without its score.
std::string WithoutScore(const std::string& Derivation) {
  return Derivation.substr(Derivation.find(' '));
}

/// A random grammar, some texts, and how much has been compared.
struct Trial {
  explicit Trial(unsigned Seed) : Random(Seed), vRules(Random.Rules()) {
    for (int Count = 0; Count < 4; ++Count) {
      vsTexts.push_back(Random.Text("abc"));
    }
  }

  RandomGrammar Random;
  std::vector<RandomRule> vRules;
  Strings vsTexts;
};

// ---- The normal form --------------------------------------------------------------------------

/// The normal form of a grammar; rules that have none stay as they are.
std::string NormalFormOrText(const std::string& Text) {
  std::string Written;
  Grammar::RuleRecord Record;
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    if (Record.Read(Rule)) {
      AppendNormalForm(Record, Grammar::FormOptions(), Written);
    } else {
      for (std::size_t Line = 0; Line < Rule.vLines.size(); ++Line) {
        Written.append(Rule.Line(Line)).append(1, '\n');
      }
    }
  }
  return Written;
}

std::size_t CompareNormalForm(const std::string& Text, const Strings& vsTexts) {
  TestEngine AsWritten(Text);
  const std::string NormalForm = NormalFormOrText(Text);
  TestEngine Normal(NormalForm);
  std::size_t Compared = 0;
  for (const std::string& sText : vsTexts) {
    const std::optional<Strings> vsExpected = DerivationsOf(AsWritten, sText);
    const std::optional<Strings> vsFound = DerivationsOf(Normal, sText);
    EXPECT_EQ(vsFound, vsExpected) << sText << '\n' << Text << "----\n" << NormalForm;
    Compared += vsExpected ? vsExpected->size() : 0;
  }
  return Compared;
}

TEST(Invariance, HoldsForNormalForms) {
  std::size_t Compared = 0;
  for (unsigned Seed = 0; Seed < 150 && !HasFailure(); ++Seed) {
    const Trial Current(Seed);
    Compared += CompareNormalForm(TextOf(Current.vRules), Current.vsTexts);
  }
  EXPECT_GT(Compared, 1000U);
}

/// Texts of a few of the words that the rules know.
Strings TextsFor(const std::string& Grammar, RandomGrammar& Random) {
  Strings vsWords{"a"};
  for (const Grammar::UsableRule& Rule : ReadGrammar(Grammar).vRules) {
    for (const std::string_view Label : Rule.X.vLabels) {
      if (Grammar::IsLiteral(Label)) {
        vsWords.emplace_back(Grammar::WordOf(Label));
      }
    }
  }
  Strings vsTexts;
  for (int Count = 0; Count < 200; ++Count) {
    std::string Text;
    for (std::size_t Words = 1 + Random.Below(6); Words > 0; --Words) {
      Text += vsWords[Random.Below(vsWords.size())] + ' ';
    }
    vsTexts.push_back(Text);
  }
  return vsTexts;
}

std::string ContentOf(const std::filesystem::path& File) {
  std::ifstream Stream(File, std::ios::binary);
  std::ostringstream Content;
  Content << Stream.rdbuf();
  return Content.str();
}

TEST(Invariance, HoldsForTheNormalFormOfEveryGrammarOfTheRepository) {
  RandomGrammar Random(1);
  std::size_t Files = 0;
  std::size_t Compared = 0;
  for (const char* Folder :
       {"examples/grammar", "fuzz/corpus/GrammarFuzz", "fuzz/corpus/LoaderFuzz",
        "fuzz/corpus/RuleTextFuzz", "fuzz/corpus/TranslateFuzz", "tests/regressions"}) {
    for (const auto& Entry : std::filesystem::recursive_directory_iterator(
             std::filesystem::path(GrammarPaths::SourceFolder) / Folder)) {
      if (Entry.is_regular_file()) {
        SCOPED_TRACE(Entry.path().string());
        const std::string Text = ContentOf(Entry.path());
        Compared += CompareNormalForm(Text, TextsFor(Text, Random));
        ++Files;
      }
    }
  }
  EXPECT_GT(Files, 20U);
  EXPECT_GT(Compared, 100U);
}

// ---- Order ------------------------------------------------------------------------------------

TEST(Invariance, HoldsForAnyOrderOfConstraints) {
  std::size_t Compared = 0;
  for (unsigned Seed = 1000; Seed < 1150 && !HasFailure(); ++Seed) {
    Trial Current(Seed);
    TestEngine Before(TextOf(Current.vRules));
    for (RandomRule& Rule : Current.vRules) {
      Current.Random.Shuffle(Rule.vConstraints);
    }
    TestEngine After(TextOf(Current.vRules));
    for (const std::string& sText : Current.vsTexts) {
      const std::optional<Strings> vsExpected = DerivationsOf(Before, sText);
      EXPECT_EQ(DerivationsOf(After, sText), vsExpected) << sText << '\n' << TextOf(Current.vRules);
      Compared += vsExpected ? vsExpected->size() : 0;
    }
  }
  EXPECT_GT(Compared, 1000U);
}

/// The order of rules decides between equal scores alone; that of features and atoms, which come up
/// with the rules, decides nothing.
TEST(Invariance, HoldsForAnyOrderOfRules) {
  std::size_t Compared = 0;
  for (unsigned Seed = 2000; Seed < 2150 && !HasFailure(); ++Seed) {
    Trial Current(Seed);
    TestEngine Before(TextOf(Current.vRules));
    std::vector<std::size_t> vOrder(Current.vRules.size());
    for (std::size_t Index = 0; Index < vOrder.size(); ++Index) {
      vOrder[Index] = Index;
    }
    Current.Random.Shuffle(vOrder);
    std::vector<RandomRule> vShuffled;
    for (const std::size_t Index : vOrder) {
      vShuffled.push_back(Current.vRules[Index]);
    }
    TestEngine After(TextOf(vShuffled));
    const auto OldNumber = [&](std::uint32_t Number) {
      return std::to_string(vOrder[Number - 1] + 1);
    };
    for (const std::string& sText : Current.vsTexts) {
      const std::optional<Strings> vsExpected = DerivationsOf(Before, sText);
      const std::optional<Strings> vsFound = DerivationsOf(After, sText, OldNumber);
      ASSERT_EQ(vsFound.has_value(), vsExpected.has_value()) << sText << '\n' << TextOf(vShuffled);
      if (vsExpected) {
        EXPECT_EQ(Sorted(*vsFound), Sorted(*vsExpected)) << sText << '\n' << TextOf(vShuffled);
        Compared += vsExpected->size();
      }
    }
  }
  EXPECT_GT(Compared, 1000U);
}

TEST(Invariance, HoldsForAnyOrderOfFeaturesAndAtoms) {
  // A rule that nothing uses names them first, in another order.
  const std::string Names =
      "Q::Q : [\"q\"] -> [\"q\"]\n(X1::Y1)\n((y0 h) = r)\n((y0 g) = new york)\n((y0 f) = q)\n";
  std::size_t Compared = 0;
  for (unsigned Seed = 3000; Seed < 3100 && !HasFailure(); ++Seed) {
    const Trial Current(Seed);
    TestEngine Before(TextOf(Current.vRules));
    TestEngine After(Names + TextOf(Current.vRules));
    const auto OldNumber = [](std::uint32_t Number) { return std::to_string(Number - 1); };
    for (const std::string& sText : Current.vsTexts) {
      const std::optional<Strings> vsExpected = DerivationsOf(Before, sText);
      EXPECT_EQ(DerivationsOf(After, sText, OldNumber), vsExpected) << sText << '\n'
                                                                    << TextOf(Current.vRules);
      Compared += vsExpected ? vsExpected->size() : 0;
    }
  }
  EXPECT_GT(Compared, 600U);
}

// ---- More derivations -------------------------------------------------------------------------

/// Whether all derivations of the one are derivations of the other, whatever they score.
void ExpectAllOf(const Strings& vsFewer, const Strings& vsMore, const std::string& Where) {
  Strings vsOne;
  Strings vsOther;
  std::transform(vsFewer.begin(), vsFewer.end(), std::back_inserter(vsOne), WithoutScore);
  std::transform(vsMore.begin(), vsMore.end(), std::back_inserter(vsOther), WithoutScore);
  vsOne = Sorted(vsOne);
  vsOther = Sorted(vsOther);
  Strings vsLost;
  std::set_difference(vsOne.begin(), vsOne.end(), vsOther.begin(), vsOther.end(),
                      std::back_inserter(vsLost));
  EXPECT_EQ(vsLost, Strings()) << Where;
}

TEST(Invariance, HoldsWithAnotherRule) {
  std::size_t Gained = 0;
  for (unsigned Seed = 4000; Seed < 4150 && !HasFailure(); ++Seed) {
    Trial Current(Seed);
    TestEngine Before(TextOf(Current.vRules));
    Current.vRules.push_back(Current.Random.PhraseRule());
    TestEngine After(TextOf(Current.vRules));
    for (const std::string& sText : Current.vsTexts) {
      const std::optional<Strings> vsFewer = DerivationsOf(Before, sText);
      const std::optional<Strings> vsMore = DerivationsOf(After, sText);
      if (vsFewer && vsMore) {
        ExpectAllOf(*vsFewer, *vsMore, sText + '\n' + TextOf(Current.vRules));
        Gained += vsMore->size() - vsFewer->size();
      }
    }
  }
  EXPECT_GT(Gained, 100U);
}

/// Whether a value stands on a path on which another one stands, too.
bool HasAlternative(const RandomRule& Rule, const RandomConstraint& Constraint) {
  return !Constraint.Path.empty() &&
         std::count_if(
             Rule.vConstraints.begin(), Rule.vConstraints.end(),
             [&](const RandomConstraint& Other) { return Other.Path == Constraint.Path; }) > 1;
}

/// Takes a constraint out of about every second rule, unless it is an alternative.
void TakeConstraintsOut(Trial& TrialReturn) {
  for (RandomRule& Rule : TrialReturn.vRules) {
    if (Rule.vConstraints.empty() || TrialReturn.Random.OneIn(2)) {
      continue;
    }
    const auto Which =
        Rule.vConstraints.begin() +
        static_cast<std::ptrdiff_t>(TrialReturn.Random.Below(Rule.vConstraints.size()));
    if (!HasAlternative(Rule, *Which)) {
      Rule.vConstraints.erase(Which);
    }
  }
}

/// The derivations of a text as rules and words, since structures may know less now.
std::optional<Strings> RuleTreesOf(TestEngine& Grammar, const std::string& Text) {
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.Translations = MaxDerivations + 1;
  const Translate::TextResult Result = Grammar.Engine.Translate(Text, Options);
  if (Result.vTranslations.size() > MaxDerivations) {
    return std::nullopt;
  }
  Strings vsTrees;
  for (const Translate::Translation& Best : Result.vTranslations) {
    std::string& sTree = vsTrees.emplace_back("- " + Best.Target);
    for (const Translate::TreeNode& Node : Grammar.Engine.NodesOf(Best.Tree, 0)) {
      sTree += ' ' + std::to_string(Grammar.Set().At(Node.Rule).Number) + '/' +
               std::to_string(Node.Parts);
    }
  }
  return vsTrees;
}

TEST(Invariance, HoldsWithFewerConstraints) {
  std::size_t Gained = 0;
  for (unsigned Seed = 5000; Seed < 5200 && !HasFailure(); ++Seed) {
    Trial Current(Seed);
    TestEngine Before(TextOf(Current.vRules));
    const std::string Text = TextOf(Current.vRules);
    TakeConstraintsOut(Current);
    TestEngine After(TextOf(Current.vRules));
    for (const std::string& sText : Current.vsTexts) {
      const std::optional<Strings> vsFewer = RuleTreesOf(Before, sText);
      const std::optional<Strings> vsMore = RuleTreesOf(After, sText);
      if (vsFewer && vsMore) {
        ExpectAllOf(*vsFewer, *vsMore, sText + '\n' + Text + "----\n" + TextOf(Current.vRules));
        Gained += vsMore->size() - vsFewer->size();
      }
    }
  }
  EXPECT_GT(Gained, 100U);
}

// ---- Threads and limits -----------------------------------------------------------------------

/// The JSON of all texts, worked on by that many threads.
std::string Written(const Translate::RuleSet& Rules, const Strings& vsTexts, unsigned Threads) {
  std::size_t Next = 0;
  std::string Out;
  Translate::OrderedTexts Run(
      Threads,
      [&](std::string& Text) {
        Text = Next < vsTexts.size() ? vsTexts[Next] : "";
        return Next++ < vsTexts.size();
      },
      [&](const Translate::TextOutput& Result, bool) { Out += Result.Out; });
  Run.Run([&]() -> Translate::OrderedTexts::Worker {
    const auto Engine = std::make_shared<Translate::Translator>(Rules);
    return [Engine, &Rules](const std::string& Text, std::size_t) {
      Translate::TextOptions Options;
      Options.Translations = 20;
      Options.IsPartial = true;
      Options.WantsCount = true;
      Options.MaxDerivations = 300;
      Translate::WriterOptions Form;
      Form.Format = Translate::TextFormat::Json;
      Form.HasCount = true;
      Translate::TextOutput Made;
      Translate::TranslationWriter(Rules, *Engine, Form)
          .Append(Text, Engine->Translate(Text, Options), Made.Out);
      return Made;
    };
  });
  return Out;
}

TEST(Invariance, HoldsForAnyNumberOfThreads) {
  for (unsigned Seed = 6000; Seed < 6020; ++Seed) {
    Trial Current(Seed);
    for (int Count = 0; Count < 40; ++Count) {
      Current.vsTexts.push_back(Current.Random.Text("abc"));
    }
    const TestEngine Grammar(TextOf(Current.vRules));
    const std::string Alone = Written(Grammar.Set(), Current.vsTexts, 1);
    for (const unsigned Threads : {2U, 3U, 8U}) {
      EXPECT_EQ(Written(Grammar.Set(), Current.vsTexts, Threads), Alone) << TextOf(Current.vRules);
    }
  }
}

TEST(Invariance, HoldsForLargeLimits) {
  for (unsigned Seed = 7000; Seed < 7060 && !HasFailure(); ++Seed) {
    const Trial Current(Seed);
    TestEngine Grammar(TextOf(Current.vRules));
    Translate::WriterOptions Form;
    Form.Format = Translate::TextFormat::Json;
    Translate::TextOptions Usual;
    Usual.Translations = 20;
    Translate::TextOptions Far = Usual;
    Far.MaxDerivations = UINT64_MAX;
    Far.Limits.MaxConstituents = UINT64_MAX;
    for (const std::string& sText : Current.vsTexts) {
      const std::string Expected = Grammar.Written(sText, Usual, Form);
      EXPECT_EQ(Grammar.Written(sText, Far, Form), Expected) << TextOf(Current.vRules);
      // A limit that is just not reached is as good as none.
      Translate::TextOptions Near = Usual;
      Near.Limits.MaxConstituents = Grammar.Engine.ParsedChart().Count().Constituents;
      EXPECT_EQ(Grammar.Written(sText, Near, Form), Expected) << TextOf(Current.vRules);
    }
  }
}

}  // namespace
