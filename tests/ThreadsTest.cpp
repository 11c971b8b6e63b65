// Threads may use the library at the same time if none changes a rule or a constraint that another
// uses, and none changes the debugging level. Under the thread sanitizer, these tests also show
// that the library has no hidden shared state.

#include "support/Samples.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>
#include <vector>

namespace {

constexpr std::size_t ThreadCount = 4;
constexpr int Rounds = 50;

/// Runs the work on several threads at once, passing each its number.
template <typename WorkT>
void OnThreads(WorkT Work) {
  std::vector<std::thread> vThreads;
  for (std::size_t Number = 0; Number < ThreadCount; ++Number) {
    vThreads.emplace_back(Work, Number);
  }
  for (std::thread& Thread : vThreads) {
    Thread.join();
  }
}

/// Reads, edits, flips, copies and writes a separate rule.
std::string WorkOnOneRule() {
  TrRule Rule;
  Rule.SetTrRuleFromString(SampleText);
  Rule.SetConstraint(4, 2, "NUM", "SG", -1, true);
  Rule.FlipRuleNoConstraints();
  TrRule Copy(Rule);
  Copy.EraseConstraint(2, "NUM", "SG", "empty", {4});
  return Rule.ReturnAsStringForPrint() + Copy.ReturnAsStringForComparison() +
         (Copy < Rule ? "<" : ">=") + (Copy == Rule ? "==" : "!=");
}

}  // namespace

TEST(Threads, MayUseSeparateRules) {
  const std::string Expected = WorkOnOneRule();
  std::array<int, ThreadCount> Same{};
  OnThreads([&](std::size_t Number) {
    for (int Round = 0; Round < Rounds; ++Round) {
      Same[Number] += WorkOnOneRule() == Expected ? 1 : 0;
    }
  });
  EXPECT_EQ(Same, (std::array<int, ThreadCount>{Rounds, Rounds, Rounds, Rounds}));
}

TEST(Threads, MayReadOneRuleTogether) {
  TrRule Rule;
  Rule.SetTrRuleFromString(SampleText);
  const TrRule& Shared = Rule;
  const std::string Expected = Shared.ReturnAsStringForPrintNoConstraints();
  std::array<int, ThreadCount> Same{};
  OnThreads([&](std::size_t Number) {
    for (int Round = 0; Round < Rounds; ++Round) {
      const bool IsSame = Shared.ReturnAsStringForPrintNoConstraints() == Expected &&
                          Shared.GetConstraints(5).size() == 4U && Shared == Shared;
      Same[Number] += IsSame ? 1 : 0;
    }
  });
  EXPECT_EQ(Same, (std::array<int, ThreadCount>{Rounds, Rounds, Rounds, Rounds}));
}
