// What a survey of rules counts, beside a slow way of counting the same in the normal form.

#include "RuleSurvey.h"

#include "GrammarSupport.h"
#include "NormalForm.h"
#include "RuleGenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::NameCounts;
using Grammar::RuleRecord;
using Grammar::RuleSurvey;
using Counted = std::map<std::string, std::uint64_t>;

Counted CountedIn(const NameCounts& Names) {
  Counted Counts;
  for (const Grammar::NameCount& Current : Names.Sorted()) {
    Counts[std::string(Current.Name)] = Current.Count;
  }
  return Counts;
}

void AddRules(const std::string& Text, RuleSurvey& SurveyReturn) {
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    RuleRecord Record;
    ASSERT_TRUE(Record.Read(Rule));
    SurveyReturn.Add(Record);
  }
}

Counted ValuesOf(const RuleSurvey& Survey, const std::string& Feature) {
  return CountedIn(Survey.Values(Survey.Features().Find(Feature)));
}

TEST(RuleSurvey, CountsFeaturesAndTheirValues) {
  RuleSurvey Survey;
  AddRules(
      "NP::NP [N N] -> [N N]\n(X1::Y1)\n((x1 num) = sg)\n((x2 num) = (*or* sg pl))\n"
      "((x2 agr  gen) = (*not* fem neut))\n((y1 num) == (x1 num))\n((y2 gen) = (x2 kind))\n"
      "(x0 = x1)\n((y2 num) = two words)\n",
      Survey);
  EXPECT_EQ(CountedIn(Survey.Features()),
            (Counted{{"NUM", 4}, {"AGR GEN", 1}, {"GEN", 1}, {"KIND", 1}}));
  EXPECT_EQ(ValuesOf(Survey, "NUM"),
            (Counted{{"SG", 2}, {"PL", 1}, {"(reference)", 1}, {"TWO WORDS", 1}}));
  EXPECT_EQ(ValuesOf(Survey, "AGR GEN"), (Counted{{"*NOT* FEM", 1}, {"*NOT* NEUT", 1}}));
  EXPECT_EQ(ValuesOf(Survey, "GEN"), (Counted{{"(reference)", 1}}));
  EXPECT_EQ(ValuesOf(Survey, "KIND"), (Counted{{"(reference)", 1}}));
}

TEST(RuleSurvey, CountsConstraintsByCategory) {
  RuleSurvey Survey;
  AddRules(
      "NP::NP [N N] -> [N N]\n(X1::Y1)\n((x1 num) = sg)\n((x2 num) = sg)\n((y1 num) = (x1 num))\n"
      "((y0 num) = (y1 num))\n((y2 num) = (y1 num))\n((y2 gen) = fem)\n",
      Survey);
  const std::vector<std::uint64_t> vExpected{2, 1, 1, 2};
  for (std::size_t Category = 1; Category <= RuleSurvey::Categories; ++Category) {
    EXPECT_EQ(Survey.Constraints(Category), vExpected[Category - 1]) << Category;
  }
}

TEST(RuleSurvey, CountsExamplesThatHaveAPartner) {
  const std::string Rule = "NP::NP [N] -> [N]\n(X1::Y1)\n";
  const struct {
    std::string Comments;
    std::uint64_t Pairs;
    std::uint64_t Rejected;
    std::uint64_t Rules;
  } Cases[] = {
      {"", 0, 0, 0},
      {";;SL: a\n;;TL: b\n", 1, 0, 1},
      {";;SL: a\n;;SL: b\n;;TL: c\n", 1, 0, 1},
      {";;SL:\n;;TL: c\n;; SL: a\n;;TL:\n", 1, 0, 1},
      {";;TL: c\n;;*SL: not this\n;;*SL:\n", 0, 1, 1},
      {"; SL: a\n; TL: b\n", 0, 0, 0},
  };
  for (const auto& Case : Cases) {
    RuleSurvey Survey;
    AddRules(Case.Comments + Rule, Survey);
    EXPECT_EQ(Survey.AllExamples().Pairs, Case.Pairs) << Case.Comments;
    EXPECT_EQ(Survey.AllExamples().Rejected, Case.Rejected) << Case.Comments;
    EXPECT_EQ(Survey.RulesWithExamples(), Case.Rules) << Case.Comments;
  }
}

TEST(RuleSurvey, HasTheQuantilesOfASortedList) {
  const std::vector<std::vector<int>> vvCounts{
      {7}, {1, 2}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, {5, 5, 5, 1, 2147483647}};
  for (std::vector<int> vCounts : vvCounts) {
    RuleSurvey Survey;
    for (const int Count : vCounts) {
      AddRules(";;Score:" + std::to_string(Count) + "\nNP::NP [N] -> [N]\n(X1::Y1)\n", Survey);
    }
    std::sort(vCounts.begin(), vCounts.end());
    for (const std::size_t PerThousand :
         {0U, 1U, 100U, 250U, 500U, 501U, 750U, 900U, 990U, 1000U}) {
      std::size_t Rank = 1;
      while (Rank * 1000 < PerThousand * vCounts.size()) {
        ++Rank;
      }
      EXPECT_EQ(Survey.Quantile(PerThousand), vCounts[Rank - 1]) << PerThousand;
    }
  }
}

/// What the rule lines of the normal form say, counted word by word.
struct SlowSurvey {
  Counted Types;
  Counted Labels[2];
  Counted Literals[2];
  std::map<std::size_t, std::uint64_t> Lengths[2];
  Counted Counts;

  void Add(const RuleRecord& Record) {
    std::istringstream Words(Record.Block().substr(0, Record.Block().find('\n')));
    std::string Word;
    Words >> Word;
    ++Types[Word];
    AddSide(Words, 0);
    Words >> Word;
    EXPECT_EQ(Word, "->");
    AddSide(Words, 1);
    ++Counts[std::to_string(Record.Count())];
  }

  void AddSide(std::istringstream& Words, std::size_t Side) {
    std::size_t Size = 0;
    for (std::string Word = "["; Word.back() != ']';) {
      Words >> Word;
      std::string Label = Word.substr(Word.front() == '[' ? 1 : 0);
      Label = Label.substr(0, Label.find(']'));
      const bool IsLiteral = Label.front() == '"';
      ++(IsLiteral ? Literals[Side][Label.substr(1, Label.size() - 2)] : Labels[Side][Label]);
      ++Size;
    }
    ++Lengths[Side][Size];
  }
};

TEST(RuleSurvey, CountsWhatTheNormalFormSaysHoweverTheRulesAreDivided) {
  SlowSurvey Slow;
  RuleSurvey Whole;
  std::vector<RuleSurvey> vParts(3);
  std::size_t Number = 0;
  for (std::string sRule : GeneratedRules(3, 600)) {
    if (Number % 5 == 0) {
      sRule.replace(sRule.find('[') + 1, 0, "\"Word" + std::to_string(Number % 7) + "\" ");
    }
    for (const Grammar::RuleText& Text : RulesOf(sRule)) {
      RuleRecord Record;
      if (Record.Read(Text)) {
        Slow.Add(Record);
        Whole.Add(Record);
        vParts[Number++ % 3].Add(Record);
      }
    }
  }
  EXPECT_GT(Number, 500U);
  RuleSurvey Joined;
  for (const std::size_t Part : {2U, 0U, 1U}) {
    Joined.Add(vParts[Part]);
  }
  for (const RuleSurvey* Survey : {&Whole, &Joined}) {
    EXPECT_EQ(CountedIn(Survey->Types()), Slow.Types);
    for (const std::size_t Side : {0U, 1U}) {
      EXPECT_EQ(CountedIn(Survey->Labels(Side)), Slow.Labels[Side]);
      EXPECT_EQ(CountedIn(Survey->Literals(Side)), Slow.Literals[Side]);
      EXPECT_EQ(Survey->Lengths(Side), Slow.Lengths[Side]);
    }
    Counted Counts;
    for (const auto& [Count, Rules] : Survey->Counts()) {
      Counts[std::to_string(Count)] = Rules;
    }
    EXPECT_EQ(Counts, Slow.Counts);
    EXPECT_EQ(CountedIn(Survey->Features()), CountedIn(Whole.Features()));
    for (const auto& [Feature, Count] : CountedIn(Whole.Features())) {
      EXPECT_EQ(ValuesOf(*Survey, Feature), ValuesOf(Whole, Feature));
    }
    EXPECT_EQ(CountedIn(Survey->Shapes()), CountedIn(Whole.Shapes()));
  }
}

}  // namespace
