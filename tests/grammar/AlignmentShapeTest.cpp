#include "AlignmentShape.h"

#include "GrammarSupport.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <set>
#include <string>
#include <vector>

namespace {

using Grammar::AlignmentShape;
using Grammar::ShapeTrait;
using Pairs = std::vector<AlignmentShape::Pair>;

std::string ShapeOf(std::size_t SLSize, std::size_t TLSize, const Pairs& vPairs) {
  AlignmentShape Shape;
  Shape.Read(SLSize, TLSize, vPairs);
  return Shape.Text();
}

}  // namespace

TEST(AlignmentShape, NamesWhatTheAlignmentsAre) {
  const struct {
    std::size_t SLSize;
    std::size_t TLSize;
    Pairs vPairs;
    std::string Expected;
  } Cases[] = {
      {0, 0, {}, "monotone"},
      {1, 1, {}, "monotone unaligned"},
      {1, 1, {{1, 1}}, "monotone 1:1"},
      {2, 1, {{2, 1}}, "monotone 1:1 unaligned"},
      {1, 2, {{1, 1}}, "monotone 1:1 unaligned"},
      {2, 2, {{1, 2}, {2, 1}}, "crossing 1:1"},
      {2, 2, {{2, 2}, {1, 1}}, "monotone 1:1"},
      {1, 2, {{1, 2}, {1, 1}}, "monotone 1:n"},
      {2, 1, {{2, 1}, {1, 1}}, "monotone n:1"},
      // One path through four components is one group.
      {2, 2, {{1, 1}, {1, 2}, {2, 2}}, "monotone n:n"},
      {2, 2, {{1, 1}, {1, 2}, {2, 1}}, "crossing n:n"},
      {2, 2, {{1, 1}, {1, 2}, {2, 1}, {2, 2}}, "crossing n:n"},
      {4, 5, {{1, 1}, {2, 2}, {2, 3}, {3, 4}, {4, 4}}, "monotone 1:1 1:n n:1 unaligned"},
      // What comes before the pair that comes last does not hide what it crosses.
      {3, 3, {{1, 3}, {2, 1}, {3, 2}}, "crossing 1:1"},
      {3, 3, {{1, 1}, {2, 3}, {3, 2}}, "crossing 1:1"},
      // Components that are not there, and the same pair again.
      {1, 1, {{1, 1}, {1, 1}}, "monotone 1:1"},
      {1, 1, {{0, 1}, {1, 0}, {2, 1}, {1, 2}, {-1, -1}}, "monotone unaligned"},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(ShapeOf(Row.SLSize, Row.TLSize, Row.vPairs), Row.Expected)
        << ::testing::PrintToString(Row.vPairs);
  }
}

TEST(AlignmentShape, IsReadFromTheLinesOfARule) {
  const std::vector<Grammar::RuleText> vRules = RulesOf(
      "NP::NP : [DET N] -> [N DET]\n(X1::Y2)\n(X2::Y1)\n((x1 a) = b)\n"
      "{NP,2}\nNP::NP : DET] -> [N]\n(X1::Y1)\n");
  ASSERT_EQ(vRules.size(), 2U);
  const char* const Expected[] = {"crossing 1:1", "monotone"};
  AlignmentShape Shape;
  Grammar::SourceRule Rule;
  for (std::size_t At = 0; At < vRules.size(); ++At) {
    Rule.Read(vRules[At]);
    Shape.Read(Rule);
    EXPECT_EQ(Shape.Text(), Expected[At]) << At;
  }
}

TEST(AlignmentShape, HasANumberForEachText) {
  AlignmentShape First;
  AlignmentShape Second;
  First.Read(2, 2, {{1, 2}, {2, 1}});
  Second.Read(3, 3, {{1, 2}, {2, 1}, {3, 3}});
  EXPECT_EQ(First.Number(), Second.Number());
  Second.Read(3, 3, {{1, 2}, {2, 1}});
  EXPECT_NE(First.Number(), Second.Number());
}

namespace {

/// The same by its definition: all pairs of pairs, and groups that grow until nothing changes.
std::string SlowShape(int SLSize, int TLSize, const Pairs& vPairs) {
  bool IsCrossing = false;
  for (const auto& [X, Y] : vPairs) {
    for (const auto& [OtherX, OtherY] : vPairs) {
      IsCrossing = IsCrossing || (X < OtherX && Y > OtherY);
    }
  }
  std::set<std::string> ssNames;
  for (int Component = 1; Component <= SLSize + TLSize; ++Component) {
    std::set<int> ssXs;
    std::set<int> ssYs;
    (Component <= SLSize ? ssXs : ssYs)
        .insert(Component <= SLSize ? Component : Component - SLSize);
    for (std::size_t Round = 0; Round < vPairs.size(); ++Round) {
      for (const auto& [X, Y] : vPairs) {
        if (ssXs.count(X) + ssYs.count(Y) > 0) {
          ssXs.insert(X);
          ssYs.insert(Y);
        }
      }
    }
    const std::string Kind =
        std::string(ssXs.size() == 1 ? "1" : "n") + ':' + (ssYs.size() == 1 ? "1" : "n");
    ssNames.insert(ssXs.empty() || ssYs.empty() ? "unaligned" : Kind);
  }
  std::string Text = IsCrossing ? "crossing" : "monotone";
  for (const char* const Name : {"1:1", "1:n", "n:1", "n:n", "unaligned"}) {
    Text += ssNames.count(Name) > 0 ? std::string(" ") + Name : "";
  }
  return Text;
}

}  // namespace

TEST(AlignmentShape, MatchesTheDefinitionForRandomAlignments) {
  std::mt19937 Numbers(16);
  const auto Below = [&](int Limit) {
    return static_cast<int>(Numbers() % static_cast<unsigned>(Limit));
  };
  for (int Count = 0; Count < 5000; ++Count) {
    const int SLSize = 1 + Below(5);
    const int TLSize = 1 + Below(5);
    Pairs vPairs;
    for (int Left = Below(7); Left > 0; --Left) {
      vPairs.emplace_back(1 + Below(SLSize), 1 + Below(TLSize));
    }
    ASSERT_EQ(ShapeOf(static_cast<std::size_t>(SLSize), static_cast<std::size_t>(TLSize), vPairs),
              SlowShape(SLSize, TLSize, vPairs))
        << SLSize << ' ' << TLSize << ' ' << ::testing::PrintToString(vPairs);
  }
}
