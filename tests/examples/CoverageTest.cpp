// What no example holds in place: known answers, and the obvious way to find it, which takes each
// constraint line out of the text of the grammar and runs everything again.

#include "RandomGrammar.h"
#include "TestFolder.h"
#include "TestRun.h"
#include "Translator.h"

#include <gtest/gtest.h>

#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Examples::Outcome;
using Strings = std::vector<std::string>;

/// A grammar in a file, and what has become of its examples.
struct TestedText {
  /// Reads the grammar alone.
  explicit TestedText(const std::string& Text) : Tested({}, true) {
    const TestFolder Folder;
    testing::internal::CaptureStderr();
    Tested.Load({Folder.Write("a.trr", Text)}, true);
    testing::internal::GetCapturedStderr();
  }

  TestedText(const std::string& Text, unsigned Threads) : TestedText(Text) { Run(Threads, true); }

  void Run(unsigned Threads, bool WantsCoverage, const Examples::ParseOptions& Options = {}) {
    Results = RunExamples(Tested, Options, Threads, WantsCoverage);
  }

  /// The line numbers of what is not covered: rules, then constraints.
  std::pair<Strings, Strings> Uncovered() const {
    std::pair<Strings, Strings> Lines;
    const auto LineOf = [](const std::string& Place) { return Place.substr(Place.rfind(':') + 1); };
    for (const std::uint32_t Number : Results.Covered.vUncoveredRules) {
      Lines.first.push_back(LineOf(Tested.AllRules()[Number].Place));
    }
    for (const std::size_t Index : Results.Covered.vUncoveredConstraints) {
      Lines.second.push_back(LineOf(Tested.Constraints()[Index].Place));
    }
    return Lines;
  }

  Examples::TestedGrammar Tested;
  Examples::TestResults Results;
};

// ---- The obvious way --------------------------------------------------------------------------

Strings LinesOf(const std::string& Text) {
  Strings vsLines;
  std::istringstream Stream(Text);
  for (std::string Line; std::getline(Stream, Line);) {
    vsLines.push_back(Line);
  }
  return vsLines;
}

constexpr std::uint64_t MaxDerivations = 500;

/// Adds all that an example's text becomes; false if that would take too long.
bool AddTexts(const Examples::TestedGrammar& Tested, const Examples::Example& Given,
              std::string& TextReturn) {
  Translate::Translator Engine(Tested.Rules());
  Translate::TextOptions Texts;
  Texts.Translations = 100;
  Texts.WantsCount = true;
  Texts.HasStarts = true;
  Texts.vStarts = {Tested.AllRules()[Given.Rule].SourceType};
  Texts.MaxDerivations = MaxDerivations;
  const Translate::TextResult Made = Engine.Translate(Given.Source, Texts);
  for (const auto& Translation : Made.vTranslations) {
    TextReturn += '\n' + Translation.Target;
  }
  return Made.Derivations.value_or(MaxDerivations + 1) <= MaxDerivations;
}

/// The outcome of each example, with all that its text becomes; nothing if that would take too
/// long.
std::optional<Strings> AllResults(const std::string& Text) {
  TestedText Whole(Text);
  Strings vsTexts;
  for (const Examples::Example& Current : Whole.Tested.AllExamples()) {
    if (!AddTexts(Whole.Tested, Current, vsTexts.emplace_back())) {
      return std::nullopt;
    }
  }
  Whole.Run(1, false);
  for (std::size_t Index = 0; Index < vsTexts.size(); ++Index) {
    const Outcome What = Whole.Results.vResults[Index].What;
    vsTexts[Index] += IsPassing(What) ? " passes" : std::string(NameOf(What));
  }
  return vsTexts;
}

/// The lines of the constraints that nothing notices when they are blanked.
std::optional<Strings> UnnoticedConstraints(const std::string& Text) {
  Strings vsUnnoticed;
  const std::optional<Strings> vsWhole = AllResults(Text);
  const Strings vsLines = LinesOf(Text);
  const TestedText Covered(Text);
  for (const Examples::ConstraintLine& Current : Covered.Tested.Constraints()) {
    const std::string Number = Current.Place.substr(Current.Place.rfind(':') + 1);
    std::string Changed;
    for (std::size_t Line = 0; Line < vsLines.size(); ++Line) {
      Changed += (std::to_string(Line + 1) == Number ? "" : vsLines[Line]) + '\n';
    }
    const std::optional<Strings> vsChanged = AllResults(Changed);
    if (!vsWhole || !vsChanged) {
      return std::nullopt;
    }
    if (vsChanged == vsWhole) {
      vsUnnoticed.push_back(Number);
    }
  }
  return vsUnnoticed;
}

/// A random grammar with examples: of what its rules make, and of what they do not.
std::string GrammarWithExamples(unsigned Seed) {
  RandomGrammar Random(Seed);
  const std::string Plain = TextOf(Random.Rules());
  const TestedText Known(Plain);
  Translate::Translator Engine(Known.Tested.Rules());
  Translate::TextOptions Options;
  Options.Translations = 3;
  std::string Text;
  for (const std::string& sLine : LinesOf(Plain)) {
    if (sLine.find("] -> [") != std::string::npos) {
      const std::string Source = Random.Text("ab");
      const auto vMade = Engine.Translate(Source, Options).vTranslations;
      if (!vMade.empty()) {
        Text += ";;SL: " + Source + "\n;;TL: " + vMade.back().Target + '\n';
      }
      Text += vMade.size() == 1 ? ";;*SL: " + Random.Text("ab") + '\n' : "";
    }
    Text += sLine + '\n';
  }
  return Text;
}

// ---- Known answers ----------------------------------------------------------------------------

TEST(Coverage, CountsRulesOfTheBestFittingDerivationOfAPassingExample) {
  const TestedText Text(
      ";;SL: the car\n;;TL: el auto\n"
      "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n"
      "N::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n"
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n"
      // That it fails covers nothing, nor that it passes because nothing is analysed.
      ";;SL: bus\n;;TL: bus\n;;*SL: car\nN::N : [\"bus\"] -> [\"autobus\"]\n(X1::Y1)\n"
      "N::N : [\"bus\"] -> [\"autobus\"]\n(X1::Y2)\n",
      1);
  EXPECT_EQ(Text.Uncovered(), (std::pair<Strings, Strings>{{"5", "12", "14"}, {}}));
}

TEST(Coverage, CountsConstraintsWhoseRemovalAnExampleNotices) {
  const std::string Words =
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n((x0 kind) = thing)\n"
      "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n((x0 num) = pl)\n";
  const std::string Phrase = "NP::NP : [\"a\" N] -> [\"un\" N]\n(X2::Y2)\n((x2 num) = sg)\n";
  // With the pair alone, all could be taken out.
  EXPECT_EQ(TestedText(Words + ";;SL: a car\n;;TL: un auto\n" + Phrase, 1).Uncovered(),
            (std::pair<Strings, Strings>{{"5"}, {"3", "4", "7", "12"}}));
  // Now the phrase's is held by an outcome, and so is that of the plural noun.
  EXPECT_EQ(
      TestedText(Words + ";;SL: a car\n;;TL: un auto\n;;*SL: a cars\n" + Phrase, 1).Uncovered(),
      (std::pair<Strings, Strings>{{"5"}, {"3", "4"}}));
}

TEST(Coverage, NoticesOtherTextsWithTheSameOutcome) {
  const TestedText Text(
      ";;SL: car\n;;TL: auto\n"
      "NP::NP : [N] -> [N]\n(X1::Y1)\n((x1 num) = sg)\n"
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n"
      "N::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n((x0 num) = pl)\n",
      1);
  EXPECT_EQ(Text.Results.vResults[0].What, Outcome::Passes);
  EXPECT_EQ(Text.Uncovered().second, Strings{});
}

TEST(Coverage, NoticesThatALimitIsReached) {
  TestedText Text(
      "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n((x0 num) = pl)\n((x0 kind) = thing)\n"
      ";;*SL: a cars\nNP::NP : [\"a\" N] -> [\"un\" N]\n(X2::Y2)\n((x2 num) = sg)\n");
  Examples::ParseOptions Options;
  Options.Limits.MaxConstituents = 1;
  Text.Run(1, true, Options);
  EXPECT_EQ(Text.Results.vResults[0].What, Outcome::Passes);
  // Without the clash there is a second constituent, which is one too many.
  EXPECT_EQ(Text.Uncovered().second, Strings{"4"});
}

TEST(Coverage, RemovesOneOfSeveralAlternatives) {
  const TestedText Text(
      ";;SL: car\n;;TL: auto\n"
      "NP::NP : [N] -> [N]\n(X1::Y1)\n((x1 num) = sg)\n((x1 num) = pl)\n"
      "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n",
      1);
  // Without the first, the second alone would clash.
  EXPECT_EQ(Text.Uncovered().second, (Strings{"6", "9"}));
}

// ---- Against the obvious way ------------------------------------------------------------------

TEST(Coverage, MatchesTheRemovalOfEveryLine) {
  std::size_t Covered = 0;
  std::size_t Unnoticed = 0;
  for (unsigned Seed = 0; Seed < 20; ++Seed) {
    const std::string Text = GrammarWithExamples(Seed);
    const std::optional<Strings> vsExpected = UnnoticedConstraints(Text);
    if (vsExpected) {
      const TestedText Tested(Text, 1);
      EXPECT_EQ(Tested.Uncovered().second, *vsExpected) << Text;
      Unnoticed += vsExpected->size();
      Covered += Tested.Tested.Constraints().size() - vsExpected->size();
    }
  }
  // The grammars would say nothing if all were alike.
  EXPECT_GT(Covered, 5U);
  EXPECT_GT(Unnoticed, 50U);
}

TEST(Coverage, IsTheSameForAnyNumberOfThreads) {
  for (unsigned Seed = 200; Seed < 206; ++Seed) {
    const std::string Text = GrammarWithExamples(Seed);
    const auto Expected = TestedText(Text, 1).Uncovered();
    for (const unsigned Threads : {2U, 7U}) {
      EXPECT_EQ(TestedText(Text, Threads).Uncovered(), Expected) << Text;
    }
  }
}

}  // namespace
