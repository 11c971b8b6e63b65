#include "MovedPlaces.h"

#include "support/RandomInput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using namespace Grammar;
using Numbers = std::vector<std::uint64_t>;

/// How many places a longest ordered part has, found by trying all parts.
std::size_t LongestOrdered(const Numbers& vNew) {
  std::size_t Longest = 0;
  for (std::size_t Chosen = 0; Chosen < std::size_t{1} << vNew.size(); ++Chosen) {
    Numbers vPart;
    for (std::size_t At = 0; At < vNew.size(); ++At) {
      if ((Chosen >> At & 1) != 0) {
        vPart.push_back(vNew[At]);
      }
    }
    Longest =
        std::is_sorted(vPart.begin(), vPart.end()) ? std::max(Longest, vPart.size()) : Longest;
  }
  return Longest;
}

TEST(MovedPlaces, AreTheFewestThatLeaveTheOthersInOrder) {
  RandomInput Random;
  for (int Round = 0; Round < 300; ++Round) {
    Numbers vNew(Random.Below(9));
    std::vector<PlacePair> vPairs;
    for (std::size_t At = 0; At < vNew.size(); ++At) {
      vNew[At] = At;
    }
    for (std::size_t At = vNew.size(); At > 1; --At) {
      std::swap(vNew[At - 1], vNew[Random.Below(At)]);
    }
    for (std::size_t At = 0; At < vNew.size(); ++At) {
      vPairs.insert(vPairs.begin(), {At, vNew[At]});
    }
    const Numbers vMoved = FindMoved(vPairs);
    Numbers vStayed;
    for (std::size_t At = 0; At < vNew.size(); ++At) {
      if (!std::binary_search(vMoved.begin(), vMoved.end(), At)) {
        vStayed.push_back(vNew[At]);
      }
    }
    EXPECT_TRUE(std::is_sorted(vStayed.begin(), vStayed.end()));
    EXPECT_TRUE(std::is_sorted(vMoved.begin(), vMoved.end()));
    EXPECT_EQ(vStayed.size() + vMoved.size(), vNew.size());
    EXPECT_EQ(vStayed.size(), LongestOrdered(vNew));
  }
}

TEST(MovedPlaces, AreThoseOfOneThingThatHasMovedFar) {
  EXPECT_EQ(FindMoved({{0, 2}, {1, 0}, {2, 1}}), Numbers{0});
  EXPECT_EQ(FindMoved({{0, 1}, {1, 2}, {2, 0}}), Numbers{2});
  EXPECT_EQ(FindMoved({{4, 7}, {5, 9}}), Numbers());
}

}  // namespace
