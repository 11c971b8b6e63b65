#include "CommonLines.h"

#include "support/RandomInput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

using Grammar::CommonLines;

CommonLines Compared(const std::string& Old, const std::string& New) {
  return {Old.size(), New.size(),
          [&](std::size_t OldAt, std::size_t NewAt) { return Old[OldAt] == New[NewAt]; }};
}

/// The bytes of each text that are kept.
std::pair<std::string, std::string> Kept(const std::string& Old, const std::string& New) {
  const CommonLines Common = Compared(Old, New);
  std::pair<std::string, std::string> Texts;
  for (std::size_t At = 0; At < Old.size(); ++At) {
    Texts.first += Common.HasOld(At) ? std::string(1, Old[At]) : "";
  }
  for (std::size_t At = 0; At < New.size(); ++At) {
    Texts.second += Common.HasNew(At) ? std::string(1, New[At]) : "";
  }
  return Texts;
}

/// The size of a longest common part, from its definition.
std::size_t LongestCommon(const std::string& Old, const std::string& New) {
  if (Old.empty() || New.empty()) {
    return 0;
  }
  const std::string OldRest = Old.substr(1);
  const std::string NewRest = New.substr(1);
  return Old[0] == New[0] ? 1 + LongestCommon(OldRest, NewRest)
                          : std::max(LongestCommon(OldRest, New), LongestCommon(Old, NewRest));
}

TEST(CommonLines, AreALongestCommonPart) {
  RandomInput Random;
  for (int Round = 0; Round < 1000; ++Round) {
    const std::string Old = Random.TextOf("abc", 8);
    const std::string New = Random.TextOf("abc", 8);
    const auto [OldKept, NewKept] = Kept(Old, New);
    EXPECT_EQ(OldKept, NewKept) << Old << ' ' << New;
    EXPECT_EQ(OldKept.size(), LongestCommon(Old, New)) << Old << ' ' << New;
  }
}

TEST(CommonLines, AreBothEndsAloneWhereTheRestIsTooLong) {
  const std::string Middle(1100, 'm');
  const auto [OldKept, NewKept] = Kept("a1" + Middle + "2z", "a3" + Middle + "4z");
  EXPECT_EQ(OldKept, "az");
  EXPECT_EQ(NewKept, "az");
}

}  // namespace
