// How much the examples of the grammar to learn from hold in place: 300 changes are planted in its
// constraints, and some example has to notice nearly all of them: by another outcome, or, since no
// example can say what a text must not become, by other translations of its text.

#include "ExampleParse.h"
#include "GrammarPaths.h"
#include "TestFolder.h"
#include "TestedGrammar.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <iterator>
#include <map>
#include <numeric>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Examples::Example;
using Strings = std::vector<std::string>;

// ---- The words of a constraint ----------------------------------------------------------------

/// A stretch of a line.
struct Stretch {
  std::size_t Begin;
  std::size_t Size;
};

/// What can be changed in a line such as "((x1 num) = (x2 num))".
struct ConstraintWords {
  std::vector<Stretch> vNodes;
  std::vector<Stretch> vFeatures;
  std::optional<Stretch> Value;  ///< of one word
};

bool IsWordByte(char Byte) {
  return std::isspace(static_cast<unsigned char>(Byte)) == 0 && Byte != '(' && Byte != ')' &&
         Byte != '=';
}

bool IsNode(const std::string& Word) {
  return Word.size() > 1 && (Word[0] == 'x' || Word[0] == 'y') &&
         std::isdigit(static_cast<unsigned char>(Word[1])) != 0;
}

/// Words are nodes, the features after them within the same parenthesis, or else a value.
ConstraintWords WordsOf(const std::string& Line) {
  ConstraintWords Found;
  bool IsBehindNode = false;
  for (std::size_t At = 0; At < Line.size();) {
    const std::size_t Begin = At;
    while (At < Line.size() && IsWordByte(Line[At])) {
      ++At;
    }
    if (At == Begin) {
      IsBehindNode = IsBehindNode && Line[At] != ')';
      ++At;
      continue;
    }
    const Stretch Word{Begin, At - Begin};
    if (IsNode(Line.substr(Begin, Word.Size))) {
      Found.vNodes.push_back(Word);
      IsBehindNode = true;
    } else if (IsBehindNode) {
      Found.vFeatures.push_back(Word);
    } else if (Line[Begin] != '*') {
      Found.Value = Word;
    }
  }
  return Found;
}

std::string TextAt(const std::string& Line, const Stretch& Where) {
  return Line.substr(Where.Begin, Where.Size);
}

// ---- The grammar ------------------------------------------------------------------------------

Strings LinesOf(const std::string& Text) {
  Strings vsLines;
  std::istringstream Stream(Text);
  for (std::string sLine; std::getline(Stream, sLine);) {
    vsLines.push_back(sLine);
  }
  return vsLines;
}

const Strings Files{"grammar.trr", "lexicon.trr"};

/// A copy of the grammar that can be changed, one line at a time.
class ChangeableGrammar {
 public:
  ChangeableGrammar() {
    for (const std::string& sFile : Files) {
      std::ifstream Stream(GrammarPaths::SourceFolder + std::string("/examples/grammar/spanish/") +
                           sFile);
      const std::string Text{std::istreambuf_iterator<char>(Stream),
                             std::istreambuf_iterator<char>()};
      Lines[sFile] = LinesOf(Text);
      Folder.Write(sFile, Text);
    }
  }

  Strings Paths() const { return {Folder.Path(Files[0]), Folder.Path(Files[1])}; }

  /// "/tmp/…/grammar.trr:12" is the line "grammar.trr", 12.
  std::string& LineAt(const std::string& Place) {
    const std::size_t Colon = Place.rfind(':');
    const std::size_t Slash = Place.rfind('/');
    return Lines.at(
        Place.substr(Slash + 1, Colon - Slash - 1))[std::stoul(Place.substr(Colon + 1)) - 1];
  }

  void Write() const {
    for (const auto& [sFile, vsLines] : Lines) {
      std::string Text;
      for (const std::string& sLine : vsLines) {
        Text += sLine + '\n';
      }
      Folder.Write(sFile, Text);
    }
  }

 private:
  TestFolder Folder;
  std::map<std::string, Strings> Lines;
};

// ---- Changes ----------------------------------------------------------------------------------

/// Makes changes of constraints. Values are exchanged for others of their feature.
class ChangeMaker {
 public:
  explicit ChangeMaker(const std::vector<Examples::ConstraintLine>& vConstraints) {
    for (const Examples::ConstraintLine& Current : vConstraints) {
      const ConstraintWords Words = WordsOf(Current.Text);
      for (const Stretch& Feature : Words.vFeatures) {
        ssFeatures.insert(TextAt(Current.Text, Feature));
      }
      if (Words.Value) {
        ssValues[TextAt(Current.Text, Words.vFeatures.back())].insert(
            TextAt(Current.Text, *Words.Value));
      }
    }
  }

  /// Another text in the place of a constraint; nothing where the kind of change has no place in
  /// it.
  /// @param Components how many there are on the sides x and y
  std::optional<std::string> Change(const std::string& Line,
                                    const std::pair<std::size_t, std::size_t>& Components) {
    const ConstraintWords Words = WordsOf(Line);
    switch (Below(4)) {
      case 0:
        return "";
      case 1:
        return Words.Value
                   ? Exchange(Line, *Words.Value, ssValues[TextAt(Line, Words.vFeatures.back())])
                   : std::nullopt;
      case 2:
        return Words.vFeatures.empty() ? std::nullopt
                                       : Exchange(Line, Any(Words.vFeatures), ssFeatures);
      default:
        return ChangeNode(Line, Any(Words.vNodes), Components);
    }
  }

  std::size_t Below(std::size_t Limit) { return Numbers() % Limit; }

 private:
  Stretch Any(const std::vector<Stretch>& vWords) { return vWords[Below(vWords.size())]; }

  /// Another node of the same side.
  std::optional<std::string> ChangeNode(const std::string& Line, const Stretch& Where,
                                        const std::pair<std::size_t, std::size_t>& Components) {
    const char Letter = Line[Where.Begin];
    std::set<std::string> ssNodes;
    for (std::size_t Node = 0; Node <= (Letter == 'x' ? Components.first : Components.second);
         ++Node) {
      ssNodes.insert(Letter + std::to_string(Node));
    }
    return Exchange(Line, Where, ssNodes);
  }

  std::optional<std::string> Exchange(std::string Line, const Stretch& Where,
                                      std::set<std::string> ssOthers) {
    ssOthers.erase(TextAt(Line, Where));
    if (ssOthers.empty()) {
      return std::nullopt;
    }
    const auto Chosen =
        std::next(ssOthers.begin(), static_cast<std::ptrdiff_t>(Below(ssOthers.size())));
    return Line.replace(Where.Begin, Where.Size, *Chosen);
  }

  std::mt19937 Numbers{300};
  std::set<std::string> ssFeatures;
  std::map<std::string, std::set<std::string>> ssValues;  // of each feature
};

// ---- Planting ---------------------------------------------------------------------------------

/// A grammar that was read from files, in silence.
struct LoadedGrammar {
  LoadedGrammar(const Strings& vsFiles, bool WantsConstraints) : Tested({}, WantsConstraints) {
    testing::internal::CaptureStderr();
    Tested.Load(vsFiles, true);
    testing::internal::GetCapturedStderr();
  }

  Examples::TestedGrammar Tested;
};

/// The rule of a constraint line, by its number among those that can be used.
std::uint32_t RuleOf(const Examples::TestedGrammar& Tested, std::size_t Constraint) {
  std::uint32_t Rule = 0;
  while (Tested.FirstConstraint(Rule + 1) <= Constraint) {
    ++Rule;
  }
  return Rule;
}

/// All examples, the most likely ones to notice a change of a rule first: its own, then those with
/// its word.
std::vector<std::size_t> LikelyFirst(const Examples::TestedGrammar& Tested, std::uint32_t Rule) {
  const Translate::RuleSet& Rules = Tested.Rules();
  const Translate::SourceSymbol First = *Rules.SymbolsOf(Rules.At(Rule)).begin();
  const bool IsWord =
      !Rules.IsUnary(Rules.At(Rule)) && (First & Translate::SourceTrie::LiteralMark) != 0;
  const auto RankOf = [&](std::size_t Index) {
    const Example& Current = Tested.AllExamples()[Index];
    std::string Scratch;
    std::istringstream Words(Current.Source);
    bool HasWord = false;
    for (std::string sWord; IsWord && Words >> sWord;) {
      HasWord = HasWord || Rules.FindLiteral(sWord, Scratch) == First;
    }
    return Current.Rule != Examples::NoRule && Tested.AllRules()[Current.Rule].Usable == Rule ? 0
           : HasWord                                                                          ? 1
                                                                                              : 2;
  };
  std::vector<std::size_t> vIndices(Tested.AllExamples().size());
  std::iota(vIndices.begin(), vIndices.end(), 0U);
  std::stable_sort(vIndices.begin(), vIndices.end(), [&](std::size_t Left, std::size_t Right) {
    return RankOf(Left) < RankOf(Right);
  });
  return vIndices;
}

/// What the texts of all examples are translated to.
std::vector<Strings> AllTexts(const Examples::TestedGrammar& Tested) {
  const Examples::ParseOptions Options;
  Translate::Evaluator Equations(Tested.Rules());
  Examples::ExampleParse Parse(Tested, Options, Equations);
  std::vector<Strings> vvsTexts;
  for (const Example& Current : Tested.AllExamples()) {
    Parse.Begin(Current);
    vvsTexts.push_back(Parse.Texts());
  }
  return vvsTexts;
}

enum class Notice { Nothing, OtherTexts, OtherOutcome };

/// How the examples notice that the grammar of some files has changed.
/// @param vvsTexts that the examples had before; all of them passed
Notice NoticeOf(const Strings& vsFiles, const std::vector<Strings>& vvsTexts,
                const std::vector<std::size_t>& vOrder) {
  const LoadedGrammar Changed(vsFiles, false);
  if (Changed.Tested.Tally().LeftOut > 0) {
    return Notice::OtherOutcome;
  }
  const Examples::ParseOptions Options;
  Translate::Evaluator Equations(Changed.Tested.Rules());
  Examples::ExampleParse Parse(Changed.Tested, Options, Equations);
  for (const std::size_t Index : vOrder) {
    const Example& Current = Changed.Tested.AllExamples()[Index];
    Parse.Begin(Current);
    if (Parse.Judge(Current).What != Examples::Outcome::Passes) {
      return Notice::OtherOutcome;
    }
    if (!Parse.HasTexts(vvsTexts[Index])) {
      return Notice::OtherTexts;
    }
  }
  return Notice::Nothing;
}

TEST(PlantedChanges, AreNoticedByAnExample) {
  constexpr std::size_t Count = 300;
  ChangeableGrammar Spanish;
  const LoadedGrammar Whole(Spanish.Paths(), true);
  const Examples::TestedGrammar& Tested = Whole.Tested;
  const std::vector<Strings> vvsTexts = AllTexts(Tested);
  ChangeMaker Maker(Tested.Constraints());
  std::set<std::pair<std::size_t, std::string>> ssPlanted;
  std::string Missed;
  std::size_t MissedCount = 0;
  while (ssPlanted.size() < Count) {
    const std::size_t Constraint = Maker.Below(Tested.Constraints().size());
    const Examples::ConstraintLine& Where = Tested.Constraints()[Constraint];
    const std::uint32_t Rule = RuleOf(Tested, Constraint);
    const Translate::RuleSet::Rule& Of = Tested.Rules().At(Rule);
    const std::optional<std::string> New =
        Maker.Change(Where.Text, {Of.SymbolCount, Of.TargetCount});
    if (!New || !ssPlanted.emplace(Constraint, *New).second) {
      continue;
    }
    std::string& sLine = Spanish.LineAt(Where.Place);
    const std::string Before = std::exchange(sLine, *New);
    Spanish.Write();
    if (NoticeOf(Spanish.Paths(), vvsTexts, LikelyFirst(Tested, Rule)) == Notice::Nothing) {
      ++MissedCount;
      Missed += Where.Place.substr(Where.Place.rfind('/') + 1) + ": " + Where.Text + " became " +
                *New + '\n';
    }
    sLine = Before;
  }
  // No constraint was uncovered before: see SpanishExamplesTest.cpp.
  EXPECT_LE(MissedCount, Count / 20) << Missed;
}

}  // namespace
