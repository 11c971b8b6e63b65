#include "RuleMatcher.h"

#include "ComparedEntryReader.h"
#include "RandomVersions.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace Grammar;
using Strings = std::vector<std::string>;

constexpr std::size_t Plenty = std::size_t{1} << 20;

/// The entries of a text, each with a text of its own.
struct Entries {
  explicit Entries(const std::string& Text) {
    const TestFolder Folder;
    const bool IsRead =
        ReadEntries({Folder.Write("a.trr", Text), true, 1}, [&](const ReadEntry& Read) {
          vEntries.push_back(Read.Entry);
          vsTexts.emplace_back(Read.Entry.Text);
          vsBytes.emplace_back(Read.Bytes);
        });
    EXPECT_TRUE(IsRead);
    for (std::size_t At = 0; At < vEntries.size(); ++At) {
      vEntries[At].Text = vsTexts[At];
    }
  }

  std::vector<ComparedEntry> vEntries;
  Strings vsTexts;
  Strings vsBytes;
};

const char* NameOf(const RuleMatch& Match) {
  switch (Match.Reason) {
    case MatchReason::Same:
      return "same";
    case MatchReason::Header:
      return "header";
    case MatchReason::Meaning:
      return "meaning";
    case MatchReason::Nearest:
      return "nearest";
    default:
      return Match.HasOld ? "removed" : "added";
  }
}

/// Each match as "header 0-2 85", with the numbers of the entries and the score.
Strings Matches(const std::string& Old, const std::string& New, std::size_t Memory = Plenty,
                RuleMatcher::Scope Wanted = RuleMatcher::Scope::All) {
  const Entries OldEntries(Old);
  const Entries NewEntries(New);
  RuleMatcher Matcher(Memory, Wanted);
  for (const ComparedEntry& Entry : OldEntries.vEntries) {
    Matcher.AddOld(Entry);
  }
  for (const ComparedEntry& Entry : NewEntries.vEntries) {
    Matcher.AddNew(Entry);
  }
  Matcher.Match();
  Strings vsMatches;
  for (RuleMatch Match; Matcher.Next(Match);) {
    EXPECT_TRUE(!Match.HasOld || Match.Old.Text == OldEntries.vsTexts[Match.Old.Number]);
    EXPECT_TRUE(!Match.HasNew || Match.New.Text == NewEntries.vsTexts[Match.New.Number]);
    vsMatches.push_back(std::string(NameOf(Match)) + ' ' +
                        (Match.HasOld ? std::to_string(Match.Old.Number) : "") + '-' +
                        (Match.HasNew ? std::to_string(Match.New.Number) : "") + ' ' +
                        std::to_string(Match.Score));
  }
  return vsMatches;
}

const std::string Noun = "NP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)\n";
const std::string Crossed = "NP::NP : [DET N] -> [DET N]\n(\n(X1::Y2)\n(X2::Y1)\n)\n";
const std::string Short = "NP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n)\n";
const std::string Verb = "VP::VP : [V] -> [V]\n(\n(X1::Y1)\n)\n";
const std::string Phrase = "VP::VP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)\n";
const std::string Bad = "{NP,9}\nNP::NP : [DET N] -> [DET N\n(\n(X1::Y1)\n)\n";

TEST(RuleMatcher, MatchesByHeaderThenByMeaningThenByNearest) {
  const struct {
    std::string Old;
    std::string New;
    Strings vsExpected;
  } Cases[] = {
      {"", "", {}},
      {Noun, "", {"removed 0- 0"}},
      {"", Noun, {"added -0 0"}},
      {"{NP,1}\n" + Noun + "{VP,1}\n" + Verb,
       "{VP,1}\n" + Verb + "\n{NP,1}\n" + Noun,
       {"same 0-1 100", "same 1-0 100"}},
      {"{NP,1}\n" + Noun, "{NP,1}\n" + Short, {"header 0-0 92"}},
      {"{NP,1}\n" + Noun, "{NP,1}\n" + Verb, {"header 0-0 18"}},
      {"{NP,1}\n" + Noun, "{ NP , 01 }\n" + Verb, {"header 0-0 18"}},
      {"{NP,1}\n" + Noun, ";; new\n{NP,1}\n" + Noun, {"header 0-0 100"}},
      {"{NP,1}\n" + Noun, "{NP,2}\n" + Noun, {"meaning 0-0 100"}},
      {"{NP,1}\n" + Noun + "{NP,2}\n" + Verb, "{NP,1}\n" + Verb, {"header 0-0 18", "removed 1- 0"}},
      {"{NP,1}\n" + Noun, "{NP,2}\n" + Short, {"nearest 0-0 92"}},
      {"{NP,1}\n" + Noun, "{NP,2}\n" + Verb, {"removed 0- 0", "added -0 0"}},
      {"{NP,1}\n" + Noun, "{NP,2}\n" + Phrase, {"nearest 0-0 85"}},
      {Noun + Verb, Short + Verb, {"nearest 0-0 92", "same 1-1 100"}},
      {Noun + Noun + Noun, Noun, {"same 0-0 100", "removed 1- 0", "removed 2- 0"}},
      {"{NP,1}\n" + Noun + "{NP,1}\n" + Crossed,
       "{NP,1}\n" + Crossed + "{NP,1}\n" + Short,
       {"header 0-1 92", "same 1-0 100"}},
      {"{NP,1}\n" + Noun + "{NP,1}\n" + Crossed,
       ";; x\n{NP,1}\n" + Verb + ";; x\n{NP,1}\n" + Crossed,
       {"header 0-0 18", "header 1-1 100"}},
      {Bad, Bad, {"same 0-0 100"}},
      {Bad, "\r\n" + Bad, {"same 0-0 100"}},
      {Bad + "; end\r\r\r\n", Bad + "; end\n", {"same 0-0 100"}},
      {Bad, "; about it\n" + Bad, {"removed 0- 0", "added -0 0"}},
      {"; alone\n", "; alone", {"same 0-0 100"}},
  };
  for (const auto& Current : Cases) {
    EXPECT_EQ(Matches(Current.Old, Current.New), Current.vsExpected) << Current.Old << "---\n"
                                                                     << Current.New;
  }
}

TEST(RuleMatcher, LeavesOutWhatIsTheSameUnlessAllIsWanted) {
  EXPECT_EQ(Matches(Noun + Verb, Short + Verb, Plenty, RuleMatcher::Scope::Differences),
            (Strings{"nearest 0-0 92"}));
}

TEST(RuleMatcher, HasEachEntryInOneMatch) {
  RandomInput Random;
  for (int Round = 0; Round < 100; ++Round) {
    const RandomVersions Versions(Random);
    std::size_t Old = 0;
    std::size_t New = 0;
    for (const std::string& sMatch : Matches(Versions.Old, Versions.New)) {
      const std::size_t Dash = sMatch.find('-');
      Old += sMatch[Dash - 1] == ' ' ? 0 : 1;
      New += sMatch[Dash + 1] == ' ' ? 0 : 1;
    }
    EXPECT_EQ(Old, Entries(Versions.Old).vEntries.size());
    EXPECT_EQ(New, Entries(Versions.New).vEntries.size());
  }
}

TEST(RuleMatcher, PairsManyRulesInLittleMemory) {
  constexpr std::size_t Little = 60'000;
  constexpr std::size_t Count = 2000;
  std::string Old;
  std::string New;
  Strings vsExpected;
  for (std::size_t At = 0; At < Count; ++At) {
    const std::string Header = "{NP," + std::to_string(At) + "}\n";
    Old += Header + Noun;
    New += Header + (At % 3 == 0 ? Short : Noun);
    if (At % 3 == 0) {
      vsExpected.push_back("header " + std::to_string(At) + '-' + std::to_string(At) + " 92");
    }
  }
  EXPECT_EQ(Matches(Old, New, Little, RuleMatcher::Scope::Differences), vsExpected);
}

// ---- Reading entries --------------------------------------------------------------------------

TEST(ComparedEntryReader, StandsForAllBytesOfTheFile) {
  RandomInput Random;
  for (int Round = 0; Round < 100; ++Round) {
    const RandomVersions Versions(Random);
    std::string Bytes;
    for (const std::string& sBytes : Entries(Versions.Old).vsBytes) {
      Bytes += sBytes;
    }
    EXPECT_EQ(Bytes, Versions.Old);
  }
}

TEST(ComparedEntryReader, PassesOnRulesAndTexts) {
  const std::string Text = ";; one\r\n{NP,1}\r\n" + Noun + "\n; bad\n\n" + Bad + "\n\n; last";
  const Entries Read(Text);
  EXPECT_EQ(Read.vsTexts,
            (Strings{";; one\n{NP,1}\nNP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)\n",
                     "; bad\n\n" + Bad + "\n\n; last\n"}));
  EXPECT_EQ(Read.vEntries[0].Header(), "{NP,1}");
  EXPECT_EQ(Read.vEntries[0].Block(), "NP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)\n");
  EXPECT_TRUE(Read.vEntries[0].IsRule);
  EXPECT_FALSE(Read.vEntries[1].IsRule);
  EXPECT_EQ(Read.vEntries[1].Line, 8U);
}

TEST(ComparedEntryReader, PutsTogetherARuleThatComesInPieces) {
  std::string Large = "{NP,1}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n";
  while (Large.size() < 5'000'000) {
    Large += "((x1 feature) = value" + std::to_string(Large.size()) + ")\n";
  }
  Large += ")\n";
  const Entries Read("{NP,0}\n" + Noun + Large + "{NP,2}\n" + Verb);
  ASSERT_EQ(Read.vEntries.size(), 3U);
  EXPECT_EQ(Read.vsTexts[1], Large);
  EXPECT_EQ(Read.vsBytes[1], Large);
  EXPECT_EQ(Read.vEntries[1].Line, 7U);
  EXPECT_EQ(Read.vEntries[2].Header(), "{NP,2}");
}

}  // namespace
