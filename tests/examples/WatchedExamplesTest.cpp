// Examples of a grammar that changes: only what a change can reach is run again, and what is known
// of the others is what a whole run finds.

#include "WatchedExamples.h"

#include "RandomGrammar.h"
#include "TestFolder.h"
#include "Translator.h"
#include "WatchCommand.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace {

using Examples::TestedGrammar;
using Examples::WatchedExamples;
using Strings = std::vector<std::string>;
using Indices = std::vector<std::size_t>;

/// A grammar in a file that changes.
class ChangingGrammar {
 public:
  std::unique_ptr<TestedGrammar> Load(const std::string& Text) const {
    auto New = std::make_unique<TestedGrammar>(Translate::RuleSetOptions{}, false);
    New->KeepLines();
    testing::internal::CaptureStderr();
    New->Load({Folder.Write("a.trr", Text)}, true);
    testing::internal::GetCapturedStderr();
    return New;
  }

  /// A report with the file's name in the place of its path.
  std::string WithoutFolder(std::string Report) const {
    const std::string Path = Folder.Path("");
    for (std::size_t At = Report.find(Path); At != std::string::npos; At = Report.find(Path)) {
      Report.erase(At, Path.size());
    }
    return Report;
  }

 private:
  TestFolder Folder;
};

std::unique_ptr<WatchedExamples> Watch() {
  Examples::ParseOptions Options;
  Options.MaxDerivations = 200;
  Options.WantsCauses = true;
  return std::make_unique<WatchedExamples>(Options, std::nullopt, 1);
}

// ---- Reports ----------------------------------------------------------------------------------

std::string Word(const std::string& Source, const std::string& Target,
                 const std::string& Comments = "") {
  return Comments + "N::N : [\"" + Source + "\"] -> [\"" + Target + "\"]\n(X1::Y1)\n";
}

std::string Example(const std::string& Source, const std::string& Target) {
  return ";;SL: " + Source + "\n;;TL: " + Target + '\n';
}

const std::string Phrase = Example("the car", "el auto") + Example("the bus", "el bus") +
                           "NP::NP : [\"the\" N] -> [\"el\" N]\n(X2::Y2)\n";

struct State {
  std::string Grammar;
  std::string Report;
};

/// Takes states, one after the other.
void ExpectReports(const std::vector<State>& vStates) {
  const ChangingGrammar Grammar;
  const auto Watched = Watch();
  for (const State& Next : vStates) {
    EXPECT_EQ(Grammar.WithoutFolder(Watched->Take(Grammar.Load(Next.Grammar))), Next.Report);
  }
}

TEST(WatchedExamples, ReportWhatHasChanged) {
  const std::string Bus = Word("bus", "bus");
  ExpectReports({
      {Phrase + Word("car", "coche") + Bus,
       "a.trr:5: differs: the car\n  wanted: el auto\n  given:  el coche\n"
       "2 examples: 1 passes, 1 differs\n"},
      // The bus is not reached.
      {Phrase + Word("car", "auto") + Bus,
       "a.trr:7 changed\n1 of 2 examples run\n"
       "newly passing: a.trr:5: the car\n  given:  el auto\n1 example changed\n"
       "2 examples: 2 pass\n"},
      // Comments and blanks aside, nothing has changed.
      {Phrase + ";; cars\n\n" + Word("car", "auto") + "\n  " + Bus,
       "no rule changed\n0 of 2 examples run\n0 examples changed\n2 examples: 2 pass\n"},
      // The examples of a rule that has changed are run in any case.
      {Phrase + "((y0 num) = sg)\n" + Word("car", "auto") + Bus,
       "a.trr:5 changed\n2 of 2 examples run\n0 examples changed\n2 examples: 2 pass\n"},
      {Phrase + "((y0 num) = sg)\n" + Word("car", "auto"),
       "1 gone\n1 of 2 examples run\n"
       "newly failing: a.trr:5: the bus\n  wanted: el bus\n"
       "  cause:  a.trr:5 fits x1 at \"the\"; x2 wants N::N, and no constituent begins at \"bus\"\n"
       "1 example changed\n2 examples: 1 passes, 1 fails\n"},
  });
}

TEST(WatchedExamples, AreRunWhereTheyAreNewOrTheirTextsHaveChanged) {
  ExpectReports({
      {Word("car", "auto", Example("car", "auto")), "1 example: 1 passes\n"},
      {Word("car", "auto", Example("car", "coche")),
       "no rule changed\n1 of 1 examples run\n"
       "new: a.trr:3: car\n  wanted: coche\n  given:  auto\ngone: a.trr: car\n2 examples changed\n"
       "1 example: 1 differs\n"},
      {Word("car", "auto", Example("car", "coche") + ";;*SL: bus\n"),
       "no rule changed\n1 of 2 examples run\nnew: a.trr:4: bus\n1 example changed\n"
       "2 examples: 1 passes, 1 differs\n"},
  });
}

TEST(WatchedExamples, AreRunWhereScoresMayHaveChangedTheOrder) {
  const std::string Two = Word("car", "auto") + Word("car", "coche");
  const std::string Rules = Example("the car", "x") + Phrase.substr(Phrase.find("NP::"));
  // Another noun changes the shares of all nouns, which decide between two derivations alone.
  ExpectReports(
      {{Rules + Word("car", "auto") + Two,
        "a.trr:3: differs: the car\n  wanted: x\n  given:  el auto\n"
        "1 example: 1 differs\n"},
       {Rules + Word("car", "auto") + Two + Word("bus", "bus"),
        "a.trr:11 new\n1 of 1 examples run\n0 examples changed\n1 example: 1 differs\n"}});
  ExpectReports({{Rules + Word("car", "auto"),
                  "a.trr:3: differs: the car\n  wanted: x\n  given:  el auto\n"
                  "1 example: 1 differs\n"},
                 {Rules + Word("car", "auto") + Word("bus", "bus"),
                  "a.trr:7 new\n0 of 1 examples run\n0 examples changed\n1 example: 1 differs\n"}});
}

// One text twice is two examples, of which each keeps what is known of it.
TEST(WatchedExamples, AreAllRunAgainWhereOneTextStandsTwice) {
  const std::string Twice = Word("car", "auto", Example("car", "auto") + Example("car", "auto"));
  ExpectReports({{Twice, "2 examples: 2 pass\n"},
                 {Twice + Word("bus", "bus"),
                  "a.trr:7 new\n0 of 2 examples run\n0 examples changed\n2 examples: 2 pass\n"},
                 {Twice + Word("bus", "bus") + Word("car", "coche"),
                  "a.trr:9 new\n2 of 2 examples run\n0 examples changed\n2 examples: 2 pass\n"}});
}

TEST(WatchedExamples, ShowTheFirstOfManyChanges) {
  std::string Words;
  for (const char* sWord : {"a", "b", "c", "d", "e", "f"}) {
    Words += Word(sWord, sWord);
  }
  ExpectReports({{Word("car", "auto"), "0 examples\n"},
                 {Words,
                  "a.trr:1 changed, a.trr:3 new, a.trr:5 new, a.trr:7 new, 2 more new\n"
                  "0 of 0 examples run\n0 examples changed\n0 examples\n"}});
}

// ---- Against a whole run ----------------------------------------------------------------------

/// A random grammar, its rules apart, with examples of what they make and of what they do not.
Strings RulesWithExamples(RandomGrammar& RandomReturn) {
  Strings vsRules;
  std::string Plain;
  for (const RandomRule& Rule : RandomReturn.Rules()) {
    vsRules.push_back(Rule.Text());
    Plain += vsRules.back();
  }
  const ChangingGrammar Grammar;
  const auto Known = Grammar.Load(Plain);
  Translate::Translator Engine(Known->Rules());
  for (std::string& sRule : vsRules) {
    const std::string Source = RandomReturn.Text("ab");
    const Translate::TextResult Made = Engine.Translate(Source, {});
    sRule = (Made.vTranslations.empty() ? ";;*SL: " + Source + '\n'
                                        : Example(Source, Made.vTranslations.front().Target)) +
            sRule;
  }
  return vsRules;
}

/// Takes a rule out, doubles or changes one, or exchanges two.
void Change(RandomGrammar& RandomReturn, Strings& vsRulesReturn) {
  const std::size_t Which = RandomReturn.Below(vsRulesReturn.size());
  const auto At = vsRulesReturn.begin() + static_cast<std::ptrdiff_t>(Which);
  switch (RandomReturn.Below(vsRulesReturn.size() > 2 ? 5 : 4)) {
    case 0:
      vsRulesReturn.insert(At, RandomReturn.PhraseRule().Text());
      return;
    case 1:
      *At = RandomReturn.PhraseRule().Text();
      return;
    case 2:
      *At = ";;Score: " + std::to_string(RandomReturn.Below(4)) + '\n' + *At;
      return;
    case 3:
      std::swap(*At, vsRulesReturn[RandomReturn.Below(vsRulesReturn.size())]);
      return;
    default:
      vsRulesReturn.erase(At);
  }
}

TEST(WatchedExamples, KnowWhatAWholeRunFinds) {
  std::size_t Kept = 0;
  std::size_t Run = 0;
  for (unsigned Seed = 0; Seed < 30; ++Seed) {
    RandomGrammar Random(Seed);
    Strings vsRules = RulesWithExamples(Random);
    const ChangingGrammar Grammar;
    const auto Watched = Watch();
    for (int Round = 0; Round < 6; ++Round) {
      std::string Text;
      for (const std::string& sRule : vsRules) {
        Text += sRule;
      }
      Watched->Take(Grammar.Load(Text));
      const auto Whole = Watch();
      Whole->Take(Grammar.Load(Text));
      ASSERT_EQ(Watched->Results().size(), Whole->Results().size());
      for (std::size_t Index = 0; Index < Whole->Results().size(); ++Index) {
        const Examples::ExampleResult& Known = Watched->Results()[Index];
        const Examples::ExampleResult& Expected = Whole->Results()[Index];
        EXPECT_EQ(Known.What, Expected.What) << Seed << ' ' << Round << '\n' << Text;
        EXPECT_EQ(Known.Best, Expected.Best) << Seed << ' ' << Round << '\n' << Text;
        EXPECT_EQ(Known.BestRule, Expected.BestRule) << Seed << ' ' << Round << '\n' << Text;
      }
      Run += Round == 0 ? 0 : Watched->LastRun().size();
      Kept += Whole->Results().size() - Watched->LastRun().size();
      Change(Random, vsRules);
    }
  }
  // It would say nothing if all, or none, were run again.
  EXPECT_GT(Kept, 200U);
  EXPECT_GT(Run, 200U);
}

// ---- A screen ---------------------------------------------------------------------------------

TEST(WatchedExamples, AreCutToAScreen) {
  EXPECT_EQ(Examples::CutToLines("a\nb\nc\nd\n", 4), "a\nb\nc\nd\n");
  EXPECT_EQ(Examples::CutToLines("a\nb\nc\nd\ne\n", 4), "a\nb\n… 2 more lines\ne\n");
  EXPECT_EQ(Examples::CutToLines("a\nb\nc\nd\ne\n", 0), "a\n… 3 more lines\ne\n");
  EXPECT_EQ(Examples::CutToLines("", 9), "");
}

}  // namespace
