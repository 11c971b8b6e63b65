// What holds of every merge. TRRULE_TEST_MERGES says how many triples of files are merged.

#include "CommentMerge.h"
#include "MergeSupport.h"
#include "RandomVersions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::ComparedRule;
using Strings = std::vector<std::string>;

std::size_t TripleCount() {
  const char* Text = std::getenv("TRRULE_TEST_MERGES");
  constexpr std::size_t Usual = 400;
  return Text == nullptr ? Usual : std::strtoul(Text, nullptr, 10);
}

/// Rules with a header each that no other has.
std::vector<ComparedRule> RandomRules(RandomInput& Random, std::size_t MaxCount) {
  std::vector<ComparedRule> vRules;
  for (std::size_t Count = Random.Below(MaxCount + 1); Count > 0; --Count) {
    vRules.push_back(RandomRule(Random));
    vRules.back().Header = "{NP," + std::to_string(vRules.size()) + '}';
  }
  return vRules;
}

std::string TextOf(RandomInput& Random, const std::vector<ComparedRule>& vRules) {
  std::string Text;
  for (const ComparedRule& Rule : vRules) {
    Text += RandomLayout(Random, Rule);
  }
  return Text;
}

/// A version of some rules: rules that stay, are changed, removed, renumbered and added, in some
/// order.
std::vector<ComparedRule> RandomVersion(RandomInput& Random, std::vector<ComparedRule> vRules) {
  std::vector<ComparedRule> vVersion;
  for (ComparedRule& Rule : vRules) {
    const std::size_t Fate = Random.Below(6);
    if (Fate > 3) {
      ChangeSomeParts(Random, Rule);
    }
    if (Fate != 0) {
      vVersion.push_back(Rule);
    }
    if (Fate == 1) {
      vVersion.push_back(RandomRule(Random));
    }
  }
  if (Random.Below(4) == 0 && !vVersion.empty()) {
    std::rotate(vVersion.begin(),
                vVersion.begin() + static_cast<std::ptrdiff_t>(Random.Below(vVersion.size())),
                vVersion.end());
  }
  return vVersion;
}

struct RandomTriple {
  explicit RandomTriple(RandomInput& Random) {
    const std::vector<ComparedRule> vBase = RandomRules(Random, 5);
    Base = TextOf(Random, vBase);
    Ours = TextOf(Random, RandomVersion(Random, vBase));
    Theirs = TextOf(Random, RandomVersion(Random, vBase));
  }

  std::string Base;
  std::string Ours;
  std::string Theirs;
};

std::string Shown(const RandomTriple& Files) {
  return "--- base\n" + Files.Base + "--- ours\n" + Files.Ours + "--- theirs\n" + Files.Theirs;
}

TEST(RandomMerges, ChangeNothingWhereOneVersionIsTheBase) {
  RandomInput Random;
  for (std::size_t Round = TripleCount(); Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const std::pair<std::string, std::string> Cases[] = {{Versions.Old, Versions.New},
                                                         {Versions.New, Versions.Old}};
    for (const auto& [sOurs, sTheirs] : Cases) {
      const MergedText Merged = MergeOf(Versions.Old, sOurs, sTheirs);
      ASSERT_EQ(ContentsOf(Merged.Text), ContentsOf(Versions.New)) << Versions.Old << "=======\n"
                                                                   << Versions.New << "=======\n"
                                                                   << Merged.Text;
      ASSERT_TRUE(Merged.vConflicts.empty());
    }
  }
}

/// What a text says without the counts of its rules, in order.
Strings ContentsWithoutCounts(const std::string& Text) {
  Strings vsContents;
  Grammar::PassEntries(Text, [&](const Grammar::ReadEntry& Read) {
    std::string Lines;
    std::string_view Rest = Read.Entry.Text;
    while (!Rest.empty()) {
      const std::size_t Size = Rest.find('\n') + 1;
      const bool IsCount = Rest.substr(0, Size).find("Score") != std::string_view::npos;
      Lines += IsCount ? "" : Rest.substr(0, Size);
      Rest.remove_prefix(Size);
    }
    vsContents.push_back(Lines);
  });
  std::sort(vsContents.begin(), vsContents.end());
  return vsContents;
}

TEST(RandomMerges, ChangeNothingButCountsWhereBothVersionsAreTheSame) {
  RandomInput Random;
  for (std::size_t Round = TripleCount(); Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const MergedText Merged = MergeOf(Versions.Old, Versions.New, Versions.New);
    ASSERT_EQ(ContentsWithoutCounts(Merged.Text), ContentsWithoutCounts(Versions.New))
        << Versions.Old << "=======\n"
        << Versions.New << "=======\n"
        << Merged.Text;
    ASSERT_TRUE(Merged.vConflicts.empty());
  }
}

/// A rule with its comments in order: that of joined ones is that of ours.
std::string WithSortedComments(const std::string& Rule) {
  ComparedRule Parts = *ComparedRule::Of(Rule);
  std::sort(Parts.vsComments.begin(), Parts.vsComments.end());
  return *Parts.Text();
}

Strings SortedRules(const std::string& Text) {
  Strings vsRules;
  Grammar::PassEntries(Text, [&](const Grammar::ReadEntry& Read) {
    if (Read.Entry.IsRule) {
      vsRules.push_back(WithSortedComments(std::string(Read.Entry.Text)));
    }
  });
  std::sort(vsRules.begin(), vsRules.end());
  return vsRules;
}

TEST(RandomMerges, AreTheSameWithTheVersionsExchanged) {
  RandomInput Random;
  std::size_t Clean = 0;
  for (std::size_t Round = TripleCount(); Round > 0; --Round) {
    const RandomTriple Files(Random);
    const MergedText Merged = MergeOf(Files.Base, Files.Ours, Files.Theirs);
    const MergedText Exchanged = MergeOf(Files.Base, Files.Theirs, Files.Ours);
    ASSERT_EQ(Merged.vConflicts.size(), Exchanged.vConflicts.size()) << Shown(Files);
    if (Merged.vConflicts.empty()) {
      ++Clean;
      ASSERT_EQ(SortedRules(Merged.Text), SortedRules(Exchanged.Text)) << Shown(Files);
    }
  }
  EXPECT_GT(Clean, TripleCount() / 10);
}

TEST(RandomMerges, DoNotDependOnTheMemory) {
  RandomInput Random;
  for (std::size_t Round = TripleCount() / 10; Round > 0; --Round) {
    const RandomTriple Files(Random);
    const MergedText Merged = MergeOf(Files.Base, Files.Ours, Files.Theirs);
    ASSERT_EQ(MergeOf(Files.Base, Files.Ours, Files.Theirs, std::size_t{1} << 24).Text, Merged.Text)
        << Shown(Files);
  }
}

// ---- Edits of different parts -----------------------------------------------------------------

constexpr std::size_t Kinds = 6;

void AddUnlessThere(const std::string& New, Strings& vsReturn) {
  if (std::find(vsReturn.begin(), vsReturn.end(), New) == vsReturn.end()) {
    vsReturn.push_back(New);
  }
}

/// Edits one kind of part; kinds have no part in common.
void Edit(std::size_t Kind, RandomInput& Random, ComparedRule& RuleReturn) {
  switch (Kind) {
    case 0:
      RuleReturn.Types[0] = Random.Below(2) == 0 ? "QP" : "RP";
      break;
    case 1:
      RuleReturn.Types[1] = Random.Below(2) == 0 ? "QP" : "RP";
      break;
    case 2:
      RuleReturn.Labels[0].front() = Random.Below(2) == 0 ? "Q" : "R";
      break;
    case 3:
      RuleReturn.Labels[1].back() = Random.Below(2) == 0 ? "Q" : "\"r\"";
      break;
    case 4:
      AddUnlessThere("((X1 EXTRA) = " + std::string(Random.Below(2) == 0 ? "A" : "B") + ')',
                     RuleReturn.vsConstraints);
      break;
    default:
      RuleReturn.vsAlignments = {"(X1::Y1)"};
      break;
  }
}

ComparedRule Normal(const ComparedRule& Rule) {
  return *ComparedRule::Of(*Rule.Text());
}

TEST(RandomMerges, HaveNoConflictWhereTheEditsTouchDifferentParts) {
  RandomInput Random;
  for (std::size_t Round = TripleCount(); Round > 0; --Round) {
    std::vector<ComparedRule> vBase = RandomRules(Random, 4);
    std::vector<ComparedRule> vOurs = vBase;
    std::vector<ComparedRule> vTheirs = vBase;
    std::vector<ComparedRule> vExpected = vBase;
    for (std::size_t At = 0; At < vBase.size(); ++At) {
      for (std::size_t Kind = 0; Kind < Kinds; ++Kind) {
        const std::size_t Who = Random.Below(3);
        if (Who > 0) {
          RandomInput Same = Random;
          Edit(Kind, Random, (Who == 1 ? vOurs : vTheirs)[At]);
          Edit(Kind, Same, vExpected[At]);
        }
      }
    }
    const MergedText Merged =
        MergeOf(TextOf(Random, vBase), TextOf(Random, vOurs), TextOf(Random, vTheirs));
    std::string Expected;
    for (const ComparedRule& Rule : vExpected) {
      Expected += *Normal(Rule).Text();
    }
    ASSERT_TRUE(Merged.vConflicts.empty()) << Merged.vConflicts.front().vsSentences.front();
    ASSERT_EQ(Printed(Merged.Text), Expected);
  }
}

// ---- What becomes of rules --------------------------------------------------------------------

/// The comments that name rules in a text.
Strings NamesIn(const std::string& Text) {
  Strings vsNames;
  for (std::size_t At = Text.find(";; name "); At != std::string::npos;
       At = Text.find(";; name ", At + 1)) {
    const std::size_t End = Text.find_first_of("\r\n", At);
    vsNames.push_back(Text.substr(At, End - At));
  }
  std::sort(vsNames.begin(), vsNames.end());
  return vsNames;
}

struct NamedVersion {
  std::map<std::string, ComparedRule> Rules;
  std::string Text;
};

NamedVersion NamedVersionOf(RandomInput& Random, const std::vector<ComparedRule>& vBase,
                            std::size_t FirstNew) {
  NamedVersion Version;
  const auto Add = [&](const ComparedRule& Rule) {
    Version.Rules[Rule.vsComments.back()] = Rule;
    Version.Text += RandomLayout(Random, Rule);
  };
  for (const ComparedRule& Rule : vBase) {
    ComparedRule Changed = Rule;
    const std::size_t Fate = Random.Below(5);
    if (Fate > 2) {
      Edit(Random.Below(Kinds), Random, Changed);
      Changed = Normal(Changed);
    }
    if (Fate != 0) {
      Add(Changed);
    }
    if (Fate == 1) {
      const std::string Number = std::to_string(FirstNew++);
      const std::string Label = "Z" + Number;  // so that it resembles no other rule
      Add(*ComparedRule::Of(";; name NEW," + Number + "\n{NEW," + Number + "}\n" + Label +
                            "::" + Label + " [" + Label + "] -> [" + Label + "]\n(X1::Y1)\n"));
    }
  }
  return Version;
}

TEST(RandomMerges, LoseNoRule) {
  RandomInput Random;
  for (std::size_t Round = TripleCount(); Round > 0; --Round) {
    std::vector<ComparedRule> vBase = RandomRules(Random, 6);
    std::map<std::string, ComparedRule> Base;
    for (ComparedRule& Rule : vBase) {
      Rule.vsComments = {";; name " + Rule.Header.substr(1, Rule.Header.size() - 2)};
      Base[Rule.vsComments.back()] = Rule;
    }
    const NamedVersion Ours = NamedVersionOf(Random, vBase, 1);
    const NamedVersion Theirs = NamedVersionOf(Random, vBase, 100);
    Strings vsExpected;
    std::size_t Removed = 0;  // by one version, and changed by the other
    const auto Expect = [&](const NamedVersion& Version, const NamedVersion& Other) {
      for (const auto& [Name, Rule] : Version.Rules) {
        const bool IsNew = Base.count(Name) == 0;
        const bool IsChanged = !IsNew && *Rule.Text() != *Base[Name].Text();
        const bool IsInBoth = Other.Rules.count(Name) > 0;
        if (IsInBoth ? &Version == &Ours : IsNew || IsChanged) {
          vsExpected.push_back(Name);
        }
        Removed += IsChanged && !IsInBoth ? 1 : 0;
      }
    };
    Expect(Ours, Theirs);
    Expect(Theirs, Ours);
    std::sort(vsExpected.begin(), vsExpected.end());
    std::string BaseText;
    for (const ComparedRule& Rule : vBase) {
      BaseText += RandomLayout(Random, Rule);
    }
    const MergedText Merged = MergeOf(BaseText, Ours.Text, Theirs.Text);
    ASSERT_EQ(NamesIn(Merged.Text), vsExpected) << BaseText << "--- ours\n"
                                                << Ours.Text << "--- theirs\n"
                                                << Theirs.Text;
    ASSERT_GE(Merged.vConflicts.size(), Removed);
  }
}

// ---- Comments ---------------------------------------------------------------------------------

TEST(RandomMerges, AddCountsAsTheSumOfBothChanges) {
  RandomInput Random;
  const auto Comments = [](std::size_t Count) {
    return Strings{";;Score:" + std::to_string(Count)};
  };
  for (std::size_t Round = TripleCount(); Round > 0; --Round) {
    const std::size_t Base = 1 + Random.Below(20);
    const std::size_t Ours = Base + Random.Below(5);
    const std::size_t Theirs = Base + Random.Below(5);
    ASSERT_EQ(Grammar::MergedComments(Comments(Base), Comments(Ours), Comments(Theirs),
                                      static_cast<int>(Base)),
              Comments(Ours + Theirs - Base));
  }
}

}  // namespace
