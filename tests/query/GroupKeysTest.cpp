#include "GroupKeys.h"

#include "QuerySupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(GroupKeys, NameWhatRulesHaveInCommon) {
  using Query::GroupBy;
  const ReadRuleText Rule(
      ";;Score:3\n"
      "np::Np : [\"The\" adj N adj] -> [\"el\" n]\n"
      "(X3::Y2)\n"
      "((x3 agr  gen) = (y2 gen))\n"
      "((y2 GEN) = (*OR* m f))\n"
      "(x0 = x3)\n");
  ASSERT_TRUE(Rule.Rule().IsWhole());
  using Keys = std::vector<std::string>;
  const struct {
    GroupBy By;
    Keys vsKeys;
  } Cases[] = {
      {GroupBy::Type, {"NP::NP"}},
      {GroupBy::Sequence, {"[\"The\" ADJ N ADJ] -> [\"el\" N]"}},
      {GroupBy::Source, {"[\"The\" ADJ N ADJ]"}},
      {GroupBy::Target, {"[\"el\" N]"}},
      {GroupBy::Label, {"ADJ", "N"}},
      {GroupBy::Literal, {"\"The\"", "\"el\""}},
      {GroupBy::Feature, {"AGR GEN", "GEN"}},
      {GroupBy::Shape, {"monotone 1:1 unaligned"}},
      {GroupBy::Size, {"4 -> 2"}},
      {GroupBy::Count, {"3"}},
      {GroupBy::File, {"a.trr"}},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(Query::GroupKeys(Rule.Rule(), Row.By), Row.vsKeys) << static_cast<int>(Row.By);
  }
}
