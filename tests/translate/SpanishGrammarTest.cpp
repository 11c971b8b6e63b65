// The grammar to learn from, examples/grammar/spanish: it is clean, translates its sentences as
// shown, and keeps what its comments say. Each phrase rule has an example.

#include "GrammarPaths.h"
#include "ProgramRun.h"
#include "RuleReader.h"
#include "RuleSet.h"
#include "RuleUse.h"
#include "Translator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <deque>
#include <fstream>
#include <iterator>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const std::string Folder = GrammarPaths::SourceFolder + std::string("/examples/grammar/spanish");
const Strings Files{"grammar.trr", "lexicon.trr"};

std::string ReadFile(const std::string& Name) {
  std::ifstream File(Folder + '/' + Name, std::ios::binary);
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

/// What the command gives for both files, in their folder.
ChildEnd RunOnGrammar(const std::string& Command, const Strings& vsOptions,
                      const std::string& Input) {
  Strings vsArguments{Command, Files[0], Files[1]};
  vsArguments.insert(vsArguments.end(), vsOptions.begin(), vsOptions.end());
  return RunTrrule(vsArguments, Folder, Input);
}

/// Both files, ready to translate.
class SpanishGrammar {
 public:
  SpanishGrammar() {
    for (const std::string& sFile : Files) {
      Read(sFile);
    }
    Rules.Finish();
    Engine.emplace(Rules);
  }

  SpanishGrammar(const SpanishGrammar&) = delete;
  SpanishGrammar& operator=(const SpanishGrammar&) = delete;

  /// The texts of all derivations with a rule at the root.
  Strings TextsWithRoot(std::size_t Index, const std::string& Source) {
    Translate::TextOptions Options;
    Options.AllDerivations = true;
    Options.Translations = std::numeric_limits<std::uint64_t>::max();
    Options.HasStarts = true;
    Options.vStarts = {Rules.FindSourceType(vRules[Index].X.Type)};
    Strings vsTexts;
    for (const Translate::Translation& Best : Engine->Translate(Source, Options).vTranslations) {
      if (Engine->NodesOf(Best.Tree, 0)[0].Rule == Index) {
        vsTexts.push_back(Best.Target);
      }
    }
    return vsTexts;
  }

  std::deque<Grammar::RuleText> vTexts;  // the rules point into them
  std::vector<Grammar::UsableRule> vRules;
  std::vector<Grammar::Finding> vFindings;

 private:
  void Read(const std::string& Name) {
    std::ifstream File(Folder + '/' + Name);
    Grammar::RuleReader Reader(File, Name);
    for (Grammar::RuleText Text; Reader.Next(Text);) {
      if (Text.HasRule) {
        vTexts.push_back(Text);
        vRules.emplace_back();
        EXPECT_TRUE(ReadUsableRule(vTexts.back(), false, Lines, vRules.back(), vFindings));
        Rules.Add(vRules.back(), static_cast<std::uint32_t>(vRules.size()));
      }
    }
  }

  Grammar::SourceRule Lines;
  Translate::RuleSet Rules{Translate::RuleSetOptions{}};
  std::optional<Translate::Translator> Engine;  // of the finished rules
};

/// The texts of the comments at a rule that begin in this way, such as ";; SL:".
Strings ExamplesOf(const Grammar::RuleText& Text, const std::string& Label) {
  Strings vsTexts;
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const std::string sComment(Text.Line(Line));
    if (sComment.rfind(Label, 0) == 0) {
      const std::size_t Begin = sComment.find_first_not_of(' ', Label.size());
      vsTexts.push_back(Begin == std::string::npos ? "" : sComment.substr(Begin));
    }
  }
  return vsTexts;
}

TEST(SpanishGrammar, HasNoFindings) {
  EXPECT_EQ(RunOnGrammar("check", {}, "/dev/null"), (ChildEnd{0, "", ""}));
}

TEST(SpanishGrammar, TranslatesItsSentences) {
  const std::vector<std::pair<std::string, Strings>> Cases{{"sentences", {}},
                                                           {"ambiguous", {"-k", "9"}}};
  for (const auto& [sName, vsOptions] : Cases) {
    EXPECT_EQ(RunOnGrammar("translate", vsOptions, Folder + '/' + sName + ".txt"),
              (ChildEnd{0, ReadFile(sName + ".expected.txt"), ""}));
  }
}

TEST(SpanishGrammar, KeepsItsExamples) {
  SpanishGrammar Spanish;
  for (std::size_t Index = 0; Index < Spanish.vRules.size(); ++Index) {
    const Grammar::UsableRule& Rule = Spanish.vRules[Index];
    SCOPED_TRACE(std::string(Rule.File) + ':' + std::to_string(Rule.Line));
    const Grammar::RuleText& Text = Spanish.vTexts[Index];
    const Strings vsSources = ExamplesOf(Text, ";; SL:");
    const Strings vsTargets = ExamplesOf(Text, ";; TL:");
    ASSERT_EQ(vsSources.size(), vsTargets.size());
    EXPECT_EQ(vsSources.empty(), Rule.File == "lexicon.trr");
    for (std::size_t Pair = 0; Pair < vsSources.size(); ++Pair) {
      const Strings vsTexts = Spanish.TextsWithRoot(Index, vsSources[Pair]);
      EXPECT_NE(std::count(vsTexts.begin(), vsTexts.end(), vsTargets[Pair]), 0)
          << vsSources[Pair] << " gives " << testing::PrintToString(vsTexts);
    }
    for (const std::string& sRefused : ExamplesOf(Text, ";; *SL:")) {
      EXPECT_EQ(Spanish.TextsWithRoot(Index, sRefused), Strings()) << sRefused;
    }
  }
}

}  // namespace
