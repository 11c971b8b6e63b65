#include "AtomSets.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace {

using Translate::AtomSet;
using Translate::AtomSetId;
using Translate::AtomSets;

TEST(AtomSets, StoresEachSetOnceInAnyOrder) {
  AtomSets Sets;
  EXPECT_EQ(Sets.Intern({false, {3, 1, 3}}), Sets.Intern({false, {1, 3}}));
  EXPECT_NE(Sets.Intern({false, {1, 3}}), Sets.Intern({true, {1, 3}}));
  EXPECT_EQ(Sets.Size(), 2U);
}

TEST(AtomSets, IntersectsWhatIsLeft) {
  struct Case {
    AtomSet Left;
    AtomSet Right;
    std::optional<AtomSet> Both;
  };
  const std::vector<Case> vCases = {
      {{false, {1, 2}}, {false, {2, 3}}, AtomSet{false, {2}}},
      {{false, {1}}, {false, {2}}, std::nullopt},
      {{false, {1, 2}}, {true, {2, 3}}, AtomSet{false, {1}}},
      {{false, {2}}, {true, {2}}, std::nullopt},
      {{true, {1}}, {true, {2}}, AtomSet{true, {1, 2}}},
      {{true, {1}}, {true, {1}}, AtomSet{true, {1}}},
  };
  AtomSets Sets;
  for (const Case& Row : vCases) {
    const AtomSetId Left = Sets.Intern(Row.Left);
    const AtomSetId Right = Sets.Intern(Row.Right);
    for (const std::optional<AtomSetId> Both :
         {Sets.Intersect(Left, Right), Sets.Intersect(Right, Left)}) {
      EXPECT_EQ(Both ? std::optional<AtomSet>(Sets.Set(*Both)) : std::nullopt, Row.Both);
    }
  }
}

}  // namespace
