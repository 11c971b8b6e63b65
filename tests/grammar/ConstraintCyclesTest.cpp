// Constraints that wait for each other: which cycles are found, and how they are named.

#include "ConstraintCycles.h"

#include <ConstraintText.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::Reference;
using Strings = std::vector<std::string>;

/// The agreements among constraints, the first of them on line 1.
std::vector<Reference> ReferencesIn(const Strings& vsTexts) {
  std::vector<Reference> vReferences;
  std::size_t Line = 0;
  for (const std::string& sText : vsTexts) {
    ++Line;
    TrRuleInternal::ConstraintFields Fields;
    TrRuleInternal::ReadConstraint(sText, Fields);
    if (!Fields.ValueConstraint) {
      vReferences.push_back({Fields.Category, Fields.ConstrainedIndex,
                             TrRuleInternal::AgreedIndexIn(Fields.FeatValue), Line});
    }
  }
  return vReferences;
}

Strings CyclesIn(const std::vector<Reference>& vReferences) {
  Strings vsFound;
  for (const Grammar::ConstraintCycle& Cycle : Grammar::FindCycles(vReferences)) {
    vsFound.push_back(std::to_string(Cycle.Line) + ": " + Cycle.Nodes);
  }
  return vsFound;
}

TEST(ConstraintCycles, StartAtTheirFirstLine) {
  const std::vector<std::pair<Strings, Strings>> Cases{
      {{"(x0 = x1)", "(x1 = x2)"}, {}},
      {{"(x0 = x0)"}, {}},
      {{"(x1 = x2)", "(x2 = x1)"}, {"1: x1 → x2 → x1"}},
      {{"(x3 = x1)", "(x1 = x2)", "(x0 = x1)", "(x2 = x3)"}, {"1: x3 → x1 → x2 → x3"}},
      {{"(y0 = x1)", "(y1 = x0)"}, {"1: y0 → y1 → y0"}},
      {{"((y1 n) = (x2 n))", "((y2 n) = (x1 n))"}, {}},
      {{"((x1 n) = x2)", "((x2 n) = x1)"}, {}},
      {{"(x1 = x2)", "(x2 = x1)", "(y1 = y2)", "(y2 = y1)"},
       {"1: x1 → x2 → x1", "3: y1 → y2 → y1"}},
      {{"(x1 = x2)", "(x2 = x1)", "(x3 = x4)", "(x4 = x3)"},
       {"1: x1 → x2 → x1", "3: x3 → x4 → x3"}}};
  for (const auto& [vsTexts, vsExpected] : Cases) {
    EXPECT_EQ(CyclesIn(ReferencesIn(vsTexts)), vsExpected) << vsTexts[0];
  }
}

/// The first cycle on the way from the last node of a path, as the nodes up to the one that comes
/// again; empty if there is none. Each node is tried over and over.
std::vector<int> FirstCycle(const std::vector<Reference>& vReferences, std::vector<int> vPath,
                            std::set<int>& siDoneReturn) {
  const int Last = vPath.back();
  for (const Reference& Current : vReferences) {
    if (Current.ConstrainedIndex != Last || siDoneReturn.count(Current.AgreedIndex) > 0) {
      continue;
    }
    const auto Met = std::find(vPath.begin(), vPath.end(), Current.AgreedIndex);
    if (Met != vPath.end()) {
      return {Met, vPath.end()};
    }
    std::vector<int> vLonger = vPath;
    vLonger.push_back(Current.AgreedIndex);
    std::vector<int> vCycle = FirstCycle(vReferences, std::move(vLonger), siDoneReturn);
    if (!vCycle.empty()) {
      return vCycle;
    }
  }
  siDoneReturn.insert(Last);
  return {};
}

/// The cycles of source nodes, found by beginning anew after each of them.
Strings CyclesOneByOne(std::vector<Reference> vReferences) {
  Strings vsFound;
  for (int Start = 0; Start < 10;) {
    std::set<int> siDone;
    std::vector<int> vCycle = FirstCycle(vReferences, {Start}, siDone);
    if (vCycle.empty()) {
      ++Start;
      continue;
    }
    std::map<std::size_t, int> mNodes;  // by the line on which each waits for the next
    std::size_t Size = vCycle.size();
    for (std::size_t Step = 0; Step < Size; ++Step) {
      const auto IsStep = [&](const Reference& Current) {
        return Current.ConstrainedIndex == vCycle[Step] &&
               Current.AgreedIndex == vCycle[(Step + 1) % Size];
      };
      mNodes.emplace(std::find_if(vReferences.begin(), vReferences.end(), IsStep)->Line,
                     vCycle[Step]);
      vReferences.erase(std::remove_if(vReferences.begin(), vReferences.end(), IsStep),
                        vReferences.end());
    }
    std::rotate(vCycle.begin(), std::find(vCycle.begin(), vCycle.end(), mNodes.begin()->second),
                vCycle.end());
    std::string Text = std::to_string(mNodes.begin()->first) + ": ";
    for (const int Node : vCycle) {
      Text += 'x' + std::to_string(Node) + " → ";
    }
    vsFound.push_back(Text + 'x' + std::to_string(vCycle.front()));
  }
  return vsFound;
}

TEST(ConstraintCycles, AreThoseOfARestartedSearch) {
  std::mt19937 Random(20);
  const auto Below = [&](std::size_t Limit) { return static_cast<std::size_t>(Random() % Limit); };
  std::size_t Found = 0;
  for (int Round = 0; Round < 3000; ++Round) {
    const std::size_t Nodes = 2 + Below(7);
    std::vector<Reference> vReferences(Below(18));
    for (std::size_t Line = 0; Line < vReferences.size(); ++Line) {
      const auto From = static_cast<int>(Below(Nodes));
      const auto To = static_cast<int>(Below(Nodes));
      // A node that waits for itself is not one.
      vReferences[Line] = {1, From, To == From ? 99 : To, Line};
    }
    const Strings vsCycles = CyclesIn(vReferences);
    EXPECT_EQ(vsCycles, CyclesOneByOne(vReferences)) << "round " << Round;
    Found += vsCycles.size();
  }
  EXPECT_GT(Found, 2000U);
}

TEST(ConstraintCycles, AreFoundAmongManyNodesInOneWalk) {
  constexpr int Nodes = 200000;
  std::vector<Reference> vReferences;
  for (int Node = 1; Node < Nodes; ++Node) {
    vReferences.push_back({1, Node, Node + 1, vReferences.size()});
    vReferences.push_back({1, Node + 1, Node, vReferences.size()});
  }
  EXPECT_EQ(Grammar::FindCycles(vReferences).size(), static_cast<std::size_t>(Nodes - 1));
}

}  // namespace
