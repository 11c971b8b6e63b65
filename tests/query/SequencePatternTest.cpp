#include "SequencePattern.h"

#include "QuerySupport.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace {

using Query::SequencePattern;
using Labels = std::vector<std::string_view>;

bool Fits(const std::string& Pattern, const Labels& vLabels) {
  const Query::QueryNode Tree = TreeOf(Pattern);
  return std::get<Query::SequenceCondition>(Tree.Own).Pattern.Fits(vLabels);
}

bool FitsFeature(const std::string& Pattern, const std::string& Feature) {
  const Query::QueryNode Tree = TreeOf("passes " + Pattern);
  return std::get<Query::PassCondition>(Tree.Own).Features.Fits(Feature);
}

}  // namespace

TEST(SequencePattern, FitsStretchesOfComponents) {
  const Labels vPhrase{"DET", "\"the\"", "adj", "N"};
  const struct {
    std::string Pattern;
    bool IsFit;
  } Cases[] = {
      {"[]", true},
      {"[^ $]", false},
      {"[DET]", true},
      {"[det]", true},
      {"[ADJ N]", true},
      {"[DET ADJ]", false},
      {"[DET * N]", true},
      {"[ADJ * DET]", false},
      {"[DET ? ADJ]", true},
      {"[DET ? N]", false},
      {"[DET ? ? N]", true},
      {"[? ? ? ?]", true},
      {"[? ? ? ? ?]", false},
      {"[ADJ|N]", true},
      {"[V|P]", false},
      {"[V|\"the\"]", true},
      {"[\"the\"]", true},
      {"[\"The\"]", false},
      {"[the]", false},
      {"[\"N\"]", false},
      {"[^ DET]", true},
      {"[^ ADJ]", false},
      {"[^ * ADJ]", true},
      {"[N $]", true},
      {"[ADJ $]", false},
      {"[ADJ * $]", true},
      {"[^ DET * N $]", true},
      {"[^ DET N $]", false},
      {"[* *]", true},
      // The first DET ... ADJ that comes to mind need not be the right one.
      {"[* ? N $]", true},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(Fits(Row.Pattern, vPhrase), Row.IsFit) << Row.Pattern;
  }
  EXPECT_TRUE(Fits("[^ $]", {}));
  EXPECT_TRUE(Fits("[^ * $]", {}));
  EXPECT_FALSE(Fits("[?]", {}));
  EXPECT_TRUE(Fits("[A * B C $]", {"A", "B", "B", "D", "B", "C"}));
  EXPECT_FALSE(Fits("[^ A B]", {"A", "C", "A", "B"}));
}

TEST(SequencePattern, FitsInTimeThatGrowsWithBothSizes) {
  std::string Pattern = "[^ ";
  for (int Count = 0; Count < 200; ++Count) {
    Pattern += "* A ";
  }
  const Labels vLabels(20000, "A");
  EXPECT_FALSE(Fits(Pattern + "B $]", vLabels));
  EXPECT_TRUE(Fits(Pattern + "$]", vLabels));
}

TEST(FeaturePattern, FitsAllWordsOfAFeature) {
  const struct {
    std::string Pattern;
    std::string Feature;
    bool IsFit;
  } Cases[] = {
      {"num", "NUM", true},       {"num", "agr num", false}, {"agr:num", " agr  num ", true},
      {"agr:num", "agr", false},  {"agr:*", "agr", true},    {"agr:*", "agr num gen", true},
      {"*:num", "agr num", true}, {"*", "", true},           {"*", "a b", true},
      {"?", "", false},           {"?", "a", true},          {"?", "a b", false},
      {"num|gen", "GEN", true},   {"num", "", false},        {"?:?", "a b", true},
      {"\"a\"", "\"A\"", true},   {"a", "\"a\"", false},     {"\"a\"", "a", false},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(FitsFeature(Row.Pattern, Row.Feature), Row.IsFit) << Row.Pattern << Row.Feature;
  }
}
