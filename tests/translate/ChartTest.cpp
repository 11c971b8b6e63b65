#include "Chart.h"

#include "RandomGrammar.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using Translate::Chart;
using Translate::ChartOutcome;

constexpr const char* Binary =
    "S::S : [S S] -> [S S]\n(X1::Y1)\n(X2::Y2)\nS::S : [\"a\"] -> [\"x\"]\n(X1::Y1)\n";

std::string Repeated(const std::string& Word, int Count) {
  std::string Text;
  for (int Index = 0; Index < Count; ++Index) {
    Text += Word + ' ';
  }
  return Text;
}

/// The spans that have constituents, as "start-end:count".
std::string SpansOf(const Chart& Parsed) {
  std::string Spans;
  for (std::size_t Start = 0; Start < Parsed.Tokens().size(); ++Start) {
    for (const Chart::Cell& Current : Parsed.CellsAt(Start)) {
      Spans += std::to_string(Current.Start) + '-' + std::to_string(Current.End) + ':' +
               std::to_string(Current.ConstituentCount) + ' ';
    }
  }
  return Spans;
}

TEST(Chart, SplitsTheTextAtWhiteSpace) {
  TestEngine Engine(Binary);
  Engine.Engine.Translate(" a\t\vb  cd\f", {});
  EXPECT_EQ(Engine.Engine.ParsedChart().Tokens(), (std::vector<std::string_view>{"a", "b", "cd"}));
  Engine.Engine.Translate(" \r\n", {});
  EXPECT_TRUE(Engine.Engine.ParsedChart().Tokens().empty());
}

TEST(Chart, FindsTheSpansOfConstituents) {
  TestEngine Engine(Binary);
  Engine.Engine.Translate("a a b a", {});
  const Chart& Parsed = Engine.Engine.ParsedChart();
  EXPECT_EQ(SpansOf(Parsed), "0-1:1 0-2:1 1-2:1 3-4:1 ");
  EXPECT_EQ(Parsed.FindCell(0, 2)->ConstituentCount, 1U);
  EXPECT_EQ(Parsed.FindCell(0, 3), nullptr);
  EXPECT_EQ(Parsed.FindCell(2, 3), nullptr);
}

TEST(Chart, PacksEqualConstituents) {
  TestEngine Engine(Binary);
  Engine.Engine.Translate(Repeated("a", 5), {});
  const Chart::Counts Counts = Engine.Engine.ParsedChart().Count();
  // A constituent and a way for each span, and a step for each place at which a span can be cut.
  EXPECT_EQ(Counts.Constituents, 15U);
  EXPECT_EQ(Counts.Ways, 15U);
  EXPECT_EQ(Counts.Items, 5U + 15U + 10U);
  EXPECT_EQ(Counts.Steps, 5U + 15U + 20U);
}

/// How many steps lead to all items; and whether each of them fits and comes once.
std::uint64_t CountSteps(const Chart& Parsed) {
  std::uint64_t Count = 0;
  for (std::uint32_t Item = 0; Item < Parsed.Items().size(); ++Item) {
    std::set<std::pair<std::uint32_t, std::uint32_t>> Seen;
    Parsed.ForEachStep(Item, [&](std::uint32_t Before, std::uint32_t Group) {
      EXPECT_TRUE(Seen.emplace(Before, Group).second);
      const std::size_t End = Parsed.Items()[Item].End;
      if (Group != Chart::None) {
        const std::uint32_t Member = Parsed.Members()[Parsed.Groups()[Group].First];
        const Chart::Cell& Over = Parsed.Cells()[Parsed.Constituents()[Member].Cell];
        EXPECT_EQ(Over.End, End);
        EXPECT_TRUE(Before == Chart::None || Parsed.Items()[Before].End == Over.Start);
      } else {
        EXPECT_TRUE(Before == Chart::None || Parsed.Items()[Before].End + 1 == End);
      }
      ++Count;
    });
    EXPECT_FALSE(Seen.empty());
  }
  return Count;
}

TEST(Chart, ReturnsAllStepsOfAConstituent) {
  std::uint64_t Steps = 0;
  for (unsigned Seed = 0; Seed < 150 && !HasFailure(); ++Seed) {
    RandomGrammar Random(Seed);
    TestEngine Engine(TextOf(Random.Rules()));
    for (int Round = 0; Round < 3; ++Round) {
      Engine.Engine.Translate(Random.Text("abc") + ' ' + Random.Text("abc"), {});
      const Chart& Parsed = Engine.Engine.ParsedChart();
      EXPECT_EQ(CountSteps(Parsed), Parsed.Count().Steps) << "seed " << Seed;
      Steps += Parsed.Count().Steps;
    }
  }
  EXPECT_GT(Steps, 10000U);
}

TEST(Chart, GrowsWithTheSquareOfTheText) {
  TestEngine Engine(Binary);
  Engine.Engine.Translate(Repeated("a", 40), {});
  const std::size_t Once = Engine.Engine.ParsedChart().Bytes();
  Engine.Engine.Translate(Repeated("a", 80), {});
  EXPECT_LT(Engine.Engine.ParsedChart().Bytes(), 41 * Once / 10);
}

TEST(Chart, StopsAtItsLimits) {
  // Each word has two structures, and the rule reads all of them.
  std::string Line = "S::S : [";
  std::string Body = "] -> [\"y\"]\n(X1::Y1)\n";
  for (int Index = 1; Index <= 40; ++Index) {
    Line += "A ";
    Body += "((x0 f) = (x" + std::to_string(Index) + " f))\n";
  }
  const std::string Words =
      "A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\n((x0 f) = p)\n"
      "A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\n((x0 f) = q)\n";
  TestEngine Engine(Line + Body + Words);
  Translate::Evaluator Equations(Engine.Set());
  Chart Parsed(Engine.Set());
  Translate::ChartLimits Limits;
  Limits.MaxItems = 5000;
  Limits.MaxConstituents = 80;
  const std::string Text = Repeated("a", 40);
  EXPECT_FALSE(Parsed.Parse(Text, Limits, Equations));
  EXPECT_EQ(Parsed.Outcome(), ChartOutcome::TooManyItems);
  EXPECT_EQ(Parsed.Items().size(), 5000U);
  EXPECT_FALSE(Parsed.Parse("a a", {8, 3, 0}, Equations));
  EXPECT_EQ(Parsed.Outcome(), ChartOutcome::TooManyConstituents);
  EXPECT_TRUE(Parsed.Parse("a a", {8, 4, 0}, Equations));
  EXPECT_EQ(Parsed.Outcome(), ChartOutcome::Whole);
}

TEST(Chart, ReportsTheLimitThatWasReached) {
  TestEngine Engine(Binary);
  Translate::TextOptions Options;
  Options.Limits.MaxConstituents = 2;
  EXPECT_EQ(Engine.Engine.Translate("a a", Options).Error, "there are more than 2 constituents");
  EXPECT_EQ(LimitError(ChartOutcome::TooManyItems, Options.Limits),
            "the rules match in too many ways before their last component");
  EXPECT_EQ(LimitError(ChartOutcome::TooLargeStructures, Options.Limits),
            "structures with more than 1048576 features are unified");
}

TEST(Chart, StoresTheRulesOfAChain) {
  TestEngine Engine(
      "A::A : [B] -> [B]\n(X1::Y1)\nB::B : [A] -> [A]\n(X1::Y1)\nA::A : [\"a\"] -> [\"x\"]\n"
      "(X1::Y1)\n");
  Engine.Engine.Translate("a", {});
  const Chart& Parsed = Engine.Engine.ParsedChart();
  std::set<std::vector<std::uint32_t>> Chains;
  for (const Chart::Constituent& Current : Parsed.Constituents()) {
    const auto Rules = Parsed.ChainRules(Current.Chain);
    Chains.emplace(Rules.begin(), Rules.end());
  }
  EXPECT_EQ(Chains, (std::set<std::vector<std::uint32_t>>{{}, {1}, {0, 1}}));
}

}  // namespace
