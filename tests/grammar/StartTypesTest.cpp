#include "StartTypes.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(StartTypes, AreSplitAtCommas) {
  struct Case {
    std::string Written;
    std::vector<std::string> vsTypes;
  };
  const std::vector<Case> Cases = {
      {"S", {"S"}}, {"S,NP", {"S", "NP"}}, {" S , N P ", {"S", "NP"}},
      {"", {""}},   {",", {"", ""}},       {"S,,NP,", {"S", "", "NP", ""}}};
  for (const Case& Row : Cases) {
    EXPECT_EQ(Grammar::ParseStartTypes(Row.Written), Row.vsTypes) << Row.Written;
  }
}

TEST(StartTypes, AreNamedIfNoUsableRuleHasThem) {
  EXPECT_EQ(Grammar::MissingStartText("Np"), "trrule: --start: no usable rule has the type \"Np\"");
}
