// The keys that constraints are stored under, and merging the values of a feature.

#include "ConstraintStore.h"

#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <optional>
#include <string>
#include <vector>

using std::string_literals::operator""s;
using TrRuleInternal::ExtractAndMerge;
using TrRuleInternal::HasNeighbour;
using TrRuleInternal::MakeKey;
using TrRuleInternal::MergedValue;
using TrRuleInternal::Merging;

namespace {

/// Keys with the values of value constraints; an agreement has none.
using Entries = std::map<std::string, std::optional<std::string>>;

const std::string* ValueOf(const std::optional<std::string>& Entry) {
  return Entry ? &*Entry : nullptr;
}

/// The remaining map, the new key and the mergings, each as one text.
struct Merged {
  Strings vsKeys;
  std::string Key;
  Strings vsMergings;

  friend bool operator==(const Merged& Left, const Merged& Right) {
    return Left.vsKeys == Right.vsKeys && Left.Key == Right.Key &&
           Left.vsMergings == Right.vsMergings;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Merged& Result) {
    return Stream << testing::PrintToString(Result.vsKeys) << ' ' << Result.Key << ' '
                  << testing::PrintToString(Result.vsMergings);
  }
};

Merged Merge(Entries Stored, const std::string& Prefix, const std::string& Value) {
  Merged Result;
  Result.Key = Prefix + Value;
  std::vector<Merging> vMergings;
  ExtractAndMerge(Stored, ValueOf, Prefix.size(), Result.Key, vMergings);
  for (const auto& [Key, Entry] : Stored) {
    Result.vsKeys.push_back(Key);
  }
  for (const auto& [OldValue, NewValue, NewKey] : vMergings) {
    Result.vsMergings.push_back(OldValue + " + " + NewValue + " > " + NewKey);
  }
  return Result;
}

}  // namespace

TEST(ConstraintStore, MakesKeys) {
  struct Case {
    int Category;
    int Index;
    std::string Feature;
    std::string Value;
    std::string Expected;
  };
  const std::vector<Case> vCases = {
      {4, 1, "NUM", "SG", "4__1__NUM__SG"},
      {-1, -1, "", "", "-1__-1____"},
      {1, 10, "all", "X3", "1__10__all__X3"},
      {4, 0, "A__B", "(*OR* SG PL)", "4__0__A__B__(*OR* SG PL)"},
      {INT_MIN, INT_MAX, "\0\xE9"s, "\n", "-2147483648__2147483647__\0\xE9__\n"s},
  };
  for (const auto& [Category, Index, Feature, Value, Expected] : vCases) {
    const TrRuleInternal::ConstraintKey Key = MakeKey(Category, Index, Feature, Value);
    EXPECT_EQ(Key.Text, Expected);
    EXPECT_EQ(Key.Text.substr(Key.FeatureBegin, Key.FeatureSize), Feature);
    EXPECT_EQ(Key.Text.substr(Key.ValueBegin), Value);
  }
}

/// Compares the key that was appended to a text with "4__1__AGRGEN__SG", and its places.
void ExpectAppended(const std::string& Before, const TrRuleInternal::KeyPlaces& Places,
                    const std::string& Text) {
  EXPECT_EQ(Text, Before + "4__1__AGRGEN__SG");
  EXPECT_EQ(Places.Begin, Before.size());
  EXPECT_EQ(Text.substr(Places.FeatureBegin, Places.FeatureSize), "AGRGEN");
  EXPECT_EQ(Text.substr(Places.ValueBegin), "SG");
}

TEST(ConstraintStore, AppendsKeysToATextWithTheirPlaces) {
  for (const std::string& Before : {""s, "4__2__GEN__M"s}) {
    std::string Text = Before;
    const TrRuleInternal::KeyPlaces Kept =
        TrRuleInternal::AppendKey({4, 1, "AGRGEN", "SG", true}, Text);
    ExpectAppended(Before, Kept, Text);

    TrRuleInternal::ConstraintParts Parts;
    ASSERT_TRUE(ParseCommonForm("((y1 agr gen) = sg)", Parts));
    Text = Before;
    const TrRuleInternal::KeyPlaces Written = AppendKey(Parts, ViewOfCommonForm(Parts), Text);
    ExpectAppended(Before, Written, Text);
  }
}

TEST(ConstraintStore, MergesTheWordsOfTwoValues) {
  struct Case {
    std::string Old;
    std::string New;
    std::string Expected;
  };
  const std::vector<Case> vCases = {
      {"SG", "PL", "(*OR* SG PL)"},
      {"PL", "SG", "(*OR* PL SG)"},
      {"SG", "SG", "(*OR* SG)"},
      {"(*OR* SG PL)", "DU", "(*OR* SG PL DU)"},
      {"DU", "(*OR* SG DU PL)", "(*OR* DU SG PL)"},
      {"(*OR* SG PL)", "(*OR* PL SG)", "(*OR* SG PL)"},
      {"(*NOT* SG", "PL", "(*OR* (*NOT* SG PL)"},
      {"(*OR*SG", "PL", "(*OR* SG PL)"},
      {"", "", "(*OR*)"},
      {" ", ")", "(*OR*)"},
      {"\tSG\r", "sg", "(*OR* SG sg)"},
      {"S)G", "(S(*OR*G", "(*OR* SG (SG)"},
      {"\0"s, "\xE9", "(*OR* \0 \xE9)"s},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(MergedValue(Row.Old, Row.New), Row.Expected) << Row.Old << " / " << Row.New;
  }
}

TEST(ConstraintStore, MergesRandomValuesLikeTheReference) {
  RandomInput Random;
  const Strings vsWords = {"(*OR*", "(*NOT*", " ", "  ", "SG", "PL", "DU", ")", "\t", "\xE9"};
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Old = Random.WordsOf(vsWords, 8);
    const std::string New = Random.WordsOf(vsWords, 8);
    ASSERT_EQ(MergedValue(Old, New), Reference::MergedValue(Old, New)) << Old << " / " << New;
  }
}

TEST(ConstraintStore, FindsTheNeighboursOfAnEntry) {
  const auto IsBesideOther = [](const std::string& Key, const std::string& Prefix) {
    Entries Stored = {{"1__1__B__M", "M"}, {"1__1__D__M", "M"}};
    return HasNeighbour(Stored, Stored.emplace(Key, "V").first, Prefix);
  };
  EXPECT_TRUE(IsBesideOther("1__1__B__A", "1__1__B__"));
  EXPECT_TRUE(IsBesideOther("1__1__B__Z", "1__1__B__"));
  EXPECT_TRUE(IsBesideOther("1__1__D__A", "1__1__D__"));
  EXPECT_TRUE(IsBesideOther("1__1__D__Z", "1__1__D__"));
  EXPECT_FALSE(IsBesideOther("1__1__A__M", "1__1__A__"));
  EXPECT_FALSE(IsBesideOther("1__1__C__M", "1__1__C__"));
  EXPECT_FALSE(IsBesideOther("1__1__E__M", "1__1__E__"));
  const Entries Alone = {{"1__1__A__M", "M"}};
  EXPECT_FALSE(HasNeighbour(Alone, Alone.begin(), ""));
}

TEST(ConstraintStore, ExtractsMergedEntries) {
  struct Case {
    const char* What;
    Entries Stored;
    std::string Value;
    Merged Expected;
  };
  const std::string Prefix = "1__1__F__";
  const std::vector<Case> vCases = {
      {"nothing is there", {}, "PL", {{}, "1__1__F__PL", {}}},
      {"only others are there",
       {{"1__1__E__SG", "SG"}, {"1__1__F_", "SG"}, {"1__1__G__SG", "SG"}},
       "PL",
       {{"1__1__E__SG", "1__1__F_", "1__1__G__SG"}, "1__1__F__PL", {}}},
      {"one value",
       {{"1__1__F__SG", "SG"}},
       "PL",
       {{}, "1__1__F__(*OR* SG PL)", {"SG + PL > 1__1__F__(*OR* SG PL)"}}},
      {"an agreement stays",
       {{"1__1__F__(Y2", std::nullopt}, {"1__1__F__SG", "SG"}, {"1__1__F__X", std::nullopt}},
       "PL",
       {{"1__1__F__(Y2", "1__1__F__X"},
        "1__1__F__(*OR* SG PL)",
        {"SG + PL > 1__1__F__(*OR* SG PL)"}}},
      {"values in key order, also of a longer feature",
       {{"1__1__F__B__SG", "SG"}, {"1__1__F__DU", "DU"}},
       "PL",
       {{},
        "1__1__F__(*OR* DU SG PL)",
        {"SG + PL > 1__1__F__(*OR* SG PL)", "DU + (*OR* SG PL) > 1__1__F__(*OR* DU SG PL)"}}},
      {"the value of the entry counts, not its key",
       {{"1__1__F__SG", "DU"}},
       "",
       {{}, "1__1__F__(*OR* DU)", {"DU +  > 1__1__F__(*OR* DU)"}}},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Merge(Row.Stored, Prefix, Row.Value), Row.Expected) << Row.What;
  }
}

TEST(ConstraintStore, AppendsMergingsToTheList) {
  Entries Stored = {{"1__1__F__SG", "SG"}};
  std::vector<Merging> vMergings = {{"A", "B", "C"}};
  std::string Key = "1__1__F__PL";
  ExtractAndMerge(Stored, ValueOf, std::string("1__1__F__").size(), Key, vMergings);
  ASSERT_EQ(vMergings.size(), 2U);
  EXPECT_EQ(vMergings[0].NewKey, "C");
  EXPECT_EQ(vMergings[1].NewKey, Key);
}
