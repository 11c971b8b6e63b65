// The order of numbers that depend on each other: by levels, ascending within a level, with
// references that do not count and cycles that have no order; also against a reference
// implementation that makes one pass after another.

#include "DependencyOrder.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

using TrRuleInternal::OrderByDependency;
using TrRuleInternal::Reference;

namespace {

using Ints = std::vector<int>;

/// Each key with the numbers that it refers to.
using DependencyTable = std::map<int, std::set<int>>;

/// An order, and whether it contains every key.
using Result = std::pair<bool, Ints>;

/// The references of a table. A key without references refers to itself, which does not count.
std::vector<Reference> ReferencesOf(const DependencyTable& misiTable) {
  std::vector<Reference> vReferences;
  for (const auto& [Key, siDependencies] : misiTable) {
    for (const int Dependency : siDependencies.empty() ? std::set<int>{Key} : siDependencies) {
      vReferences.push_back({Key, Dependency});
    }
  }
  return vReferences;
}

Result OrderOfReferences(const std::vector<Reference>& vReferences) {
  Ints vOrder{99, 98};  // must be replaced
  const bool Complete = OrderByDependency(vReferences, vOrder);
  return {Complete, vOrder};
}

Result OrderOf(const DependencyTable& misiTable) {
  return OrderOfReferences(ReferencesOf(misiTable));
}

/// One pass: drops the references that do not count, then moves the keys that wait for nothing.
bool ReferencePass(DependencyTable& misiTable, Ints& vOrder) {
  DependencyTable misiPruned;
  for (const auto& [Key, siDependencies] : misiTable) {
    misiPruned[Key];
    for (const int Dependency : siDependencies) {
      if (Dependency != Key && misiTable.count(Dependency) != 0) {
        misiPruned[Key].insert(Dependency);
      }
    }
  }
  DependencyTable misiLeft;
  for (const auto& [Key, siDependencies] : misiPruned) {
    if (siDependencies.empty()) {
      vOrder.push_back(Key);
    } else {
      misiLeft[Key] = siDependencies;
    }
  }
  const bool CouldProceed = misiLeft.size() < misiTable.size();
  misiTable = misiLeft;
  return CouldProceed;
}

Result ReferenceOrder(DependencyTable misiTable) {
  Ints vOrder;
  bool CouldProceed = true;
  while (!misiTable.empty() && CouldProceed) {
    CouldProceed = ReferencePass(misiTable, vOrder);
  }
  return {misiTable.empty(), vOrder};
}

/// A table of random keys; without `Damage`, a key depends only on larger keys.
DependencyTable RandomTable(std::mt19937& Engine, bool Damage) {
  DependencyTable misiTable;
  const unsigned long Range = 2 + Engine() % 10;
  for (unsigned long Keys = Engine() % 10; Keys > 0; --Keys) {
    const int Key = static_cast<int>(Engine() % 12) - 2;
    std::set<int>& siDependencies = misiTable[Key];
    for (unsigned long Count = Engine() % 4; Count > 0; --Count) {
      const int Other = static_cast<int>(Engine() % Range);
      siDependencies.insert(Damage ? Other : Key + 1 + Other);
    }
  }
  return misiTable;
}

}  // namespace

TEST(DependencyOrder, OrdersByLevelAndAscendsWithinALevel) {
  const std::pair<DependencyTable, Ints> Cases[] = {
      {{}, {}},
      {{{5, {}}}, {5}},
      {{{3, {}}, {1, {}}, {2, {}}}, {1, 2, 3}},
      {{{1, {2}}, {2, {3}}, {4, {}}}, {2, 4, 1}},
      {{{1, {2}}, {2, {3}}, {3, {}}}, {3, 2, 1}},
      {{{1, {3}}, {2, {3}}, {3, {4}}, {4, {}}}, {4, 3, 1, 2}},
      {{{1, {2, 4}}, {2, {3}}, {3, {}}, {4, {}}}, {3, 4, 2, 1}},
      {{{1, {4}}, {2, {}}, {3, {1}}, {4, {}}, {5, {2}}}, {2, 4, 1, 5, 3}},
      {{{-2, {-1}}, {-1, {}}, {0, {-2}}}, {-1, -2, 0}},
      {{{INT_MIN, {INT_MAX}}, {INT_MAX, {}}}, {INT_MAX, INT_MIN}},
  };
  for (const auto& [misiTable, vExpected] : Cases) {
    SCOPED_TRACE(testing::PrintToString(misiTable));
    EXPECT_EQ(OrderOf(misiTable), Result(true, vExpected));
  }
}

TEST(DependencyOrder, IgnoresReferencesToItselfAndToOtherNumbers) {
  EXPECT_EQ(OrderOf({{0, {0}}}), Result(true, {0}));
  EXPECT_EQ(OrderOf({{0, {3}}}), Result(true, {0}));
  EXPECT_EQ(OrderOf({{2, {2, 9}}, {1, {1}}}), Result(true, {1, 2}));
}

TEST(DependencyOrder, OrdersTheWholeNodeBeforeWhatAgreesWithIt) {
  EXPECT_EQ(OrderOf({{0, {0}}, {1, {0}}, {2, {0}}, {3, {0}}}), Result(true, {0, 1, 2, 3}));
  EXPECT_EQ(OrderOf({{0, {1}}, {1, {}}}), Result(true, {1, 0}));
}

TEST(DependencyOrder, OmitsACycleAndItsDependents) {
  const std::pair<DependencyTable, Ints> Cases[] = {
      {{{1, {2}}, {2, {1}}}, {}},
      {{{1, {2}}, {2, {3}}, {3, {1}}}, {}},
      {{{1, {2}}, {2, {1}}, {3, {}}}, {3}},
      {{{0, {1}}, {1, {2}}, {2, {1}}, {3, {4}}, {4, {}}}, {4, 3}},
      {{{1, {2, 3}}, {2, {1}}, {3, {}}}, {3}},
  };
  for (const auto& [misiTable, vExpected] : Cases) {
    SCOPED_TRACE(testing::PrintToString(misiTable));
    EXPECT_EQ(OrderOf(misiTable), Result(false, vExpected));
  }
}

TEST(DependencyOrder, OrdersAnyNumberOfLevels) {
  constexpr int Levels = 500;
  DependencyTable misiChain;
  Ints vExpected;
  for (int Key = 0; Key < Levels; ++Key) {
    misiChain[Key] = {Key + 1};
    vExpected.push_back(Levels - 1 - Key);
  }
  EXPECT_TRUE(OrderOf(misiChain) == Result(true, vExpected));
  misiChain[Levels - 1] = {0};
  EXPECT_EQ(OrderOf(misiChain), Result(false, {}));
}

TEST(DependencyOrder, OrdersRandomTablesLikeTheReference) {
  constexpr unsigned Seed = 10401;
  std::mt19937 Engine(Seed);
  for (int Round = 0; Round < 4000; ++Round) {
    const DependencyTable misiTable = RandomTable(Engine, Round % 2 == 1);
    SCOPED_TRACE(testing::Message() << "seed " << Seed << " round " << Round << ' '
                                    << testing::PrintToString(misiTable));
    EXPECT_EQ(OrderOf(misiTable), ReferenceOrder(misiTable));
    if (Round % 2 == 0) {
      EXPECT_TRUE(OrderOf(misiTable).first);
    }
  }
}

TEST(DependencyOrder, AcceptsReferencesInAnyOrderAndRepeated) {
  const std::vector<Reference> vReferences{{4, 4}, {2, 3}, {1, 2}, {2, 3}, {1, 9}, {1, 2}, {4, 4}};
  EXPECT_EQ(OrderOfReferences(vReferences), Result(true, {2, 4, 1}));
  EXPECT_EQ(OrderOfReferences({vReferences.rbegin(), vReferences.rend()}), Result(true, {2, 4, 1}));
}
