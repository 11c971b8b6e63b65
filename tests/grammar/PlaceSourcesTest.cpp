#include "PlaceSources.h"

#include "GrammarSupport.h"

#include "Bytes.h"
#include "Literal.h"
#include "UsableRule.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <set>
#include <string>
#include <utility>

namespace {

using Grammar::PlaceSources;
using Grammar::SourceRule;

/// The sources of the target components, counted from 1, "-" for a literal or a place without one;
/// and each misfit with its column.
std::string Described(const SourceRule& Rule, bool IsReversed) {
  PlaceSources Places;
  const bool IsFound = Places.Find(Rule, IsReversed);
  EXPECT_EQ(IsFound, Places.Mismatches().empty());
  std::string Text;
  for (const std::uint32_t Number : Places.Sources()) {
    Text += Number == PlaceSources::None ? "-" : std::to_string(Number + 1);
  }
  const std::string_view Line = Rule.Text().Line(Rule.RuleLines().front().Line);
  for (const PlaceSources::Mismatch& Current : Places.Mismatches()) {
    const char* const Names[] = {" none@", " many@", " labels@"};
    Text += Names[static_cast<std::size_t>(Current.What)] +
            std::to_string(Grammar::OffsetIn(Line, Current.Label) + 1);
  }
  return Text;
}

std::string SourcesOf(const std::string& Labels, const std::string& Pairs,
                      bool IsReversed = false) {
  const std::vector<Grammar::RuleText> vRules = RulesOf("A::A " + Labels + "\n" + Pairs);
  SourceRule Rule;
  Rule.Read(vRules.at(0));
  return Described(Rule, IsReversed);
}

}  // namespace

TEST(PlaceSources, AreTheAlignedPlaces) {
  const struct {
    std::string Labels;
    std::string Pairs;
    std::string Expected;
    std::string Reversed;
  } Cases[] = {
      {"[N] -> [N]", "(X1::Y1)\n", "1", "1"},
      {"[ADJ N] -> [\"el\" N ADJ]", "(X1::Y3)\n(X2::Y2)\n", "-21", "32"},
      // Of several, the one with the same label, in any case.
      {"[N V] -> [v]", "(X1::Y1)\n(X2::Y1)\n", "2", "11 labels@16"},
      {"[N V] -> [A]", "(X1::Y1)\n(X2::Y1)\n", "- many@16", "11 labels@16"},
      {"[V V] -> [V]", "(X1::Y1)\n(X2::Y1)\n", "- many@16", "11"},
      // The same pair twice is one pair.
      {"[N] -> [A]", "(X1::Y1)\n(X1::Y1)\n", "1", "1"},
      // What stands beside a literal means nothing.
      {"[\"a\" N] -> [N]", "(X1::Y1)\n(X2::Y1)\n", "2", "-1"},
      {"[\"a\"] -> [N]", "(X1::Y1)\n", "- none@16", "-"},
      {"[N] -> [\"a\"]", "(X1::Y1)\n", "-", "- none@7"},
      {"[\"a\"] -> [\"b\"]", "(X1::Y1)\n", "-", "-"},
      // A place may be written several times, with one label.
      {"[N] -> [N n]", "(X1::Y1)\n(X1::Y2)\n", "11", "- many@7"},
      {"[N] -> [N V]", "(X1::Y1)\n(X1::Y2)\n", "11 labels@7", "1"},
      {"[N A] -> [N V B C]", "(X1::Y1)\n(X1::Y2)\n(X2::Y1)\n", "11-- labels@7 none@20 none@22",
       "11 labels@16"},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(SourcesOf(Row.Labels, Row.Pairs), Row.Expected) << Row.Labels;
    EXPECT_EQ(SourcesOf(Row.Labels, Row.Pairs, true), Row.Reversed) << Row.Labels;
  }
}

namespace {

/// The same by its definition, with a look at all pairs for each place.
std::string SlowSources(const SourceRule& Rule) {
  const auto& vFrom = Rule.SLLabels();
  const auto& vTo = Rule.TLLabels();
  std::vector<std::size_t> vSources;
  std::set<std::pair<const char*, std::string>> ssMisfits;
  const auto Column = [&](std::string_view Label) {
    return std::to_string(Grammar::OffsetIn(Rule.Text().Line(0), Label) + 1);
  };
  std::string Text;
  for (std::size_t Target = 0; Target < vTo.size(); ++Target) {
    std::set<std::size_t> ssAligned;
    std::set<std::size_t> ssSame;
    for (const SourceRule::AlignmentLine& Line : Rule.Alignments()) {
      const auto Source = static_cast<std::size_t>(Line.Parts.X - 1);
      if (static_cast<std::size_t>(Line.Parts.Y) == Target + 1 &&
          !Grammar::IsLiteral(vFrom[Source])) {
        ssAligned.insert(Source);
        if (Grammar::Upper(vFrom[Source]) == Grammar::Upper(vTo[Target])) {
          ssSame.insert(Source);
        }
      }
    }
    const bool IsPlace = !Grammar::IsLiteral(vTo[Target]);
    const std::set<std::size_t>& ssFit = ssAligned.size() > 1 ? ssSame : ssAligned;
    const bool IsFound = IsPlace && ssFit.size() == 1;
    vSources.push_back(IsFound ? *ssFit.begin() : vFrom.size());
    Text += IsFound ? std::to_string(*ssFit.begin() + 1) : "-";
    if (IsPlace && !IsFound) {
      ssMisfits.emplace(vTo[Target].data(),
                        (ssAligned.empty() ? " none@" : " many@") + Column(vTo[Target]));
    }
  }
  for (std::size_t Source = 0; Source < vFrom.size(); ++Source) {
    std::set<std::string> ssLabels;
    for (std::size_t Target = 0; Target < vTo.size(); ++Target) {
      if (vSources[Target] == Source) {
        ssLabels.insert(Grammar::Upper(vTo[Target]));
      }
    }
    if (ssLabels.size() > 1) {
      ssMisfits.emplace(vFrom[Source].data(), " labels@" + Column(vFrom[Source]));
    }
  }
  for (const auto& [Place, sMisfit] : ssMisfits) {
    Text += sMisfit;
  }
  return Text;
}

}  // namespace

TEST(PlaceSources, MatchTheDefinitionForRandomRules) {
  std::mt19937 Numbers(15);
  const auto Below = [&](std::size_t Limit) { return Numbers() % Limit; };
  for (int Count = 0; Count < 3000; ++Count) {
    const char* const Labels[] = {"A", "a", "B", "\"w\""};
    std::size_t Sizes[2] = {};
    std::string Text = "S::S ";
    for (const int Side : {0, 1}) {
      Text += Side == 0 ? "[" : "] -> [";
      Sizes[Side] = 1 + Below(4);
      for (std::size_t At = 0; At < Sizes[Side]; ++At) {
        Text += (At == 0 ? "" : " ") + std::string(Labels[Below(4)]);
      }
    }
    Text += "]\n";
    for (std::size_t Pairs = 1 + Below(6); Pairs > 0; --Pairs) {
      Text += "(X" + std::to_string(1 + Below(Sizes[0])) + "::Y" +
              std::to_string(1 + Below(Sizes[1])) + ")\n";
    }
    const std::vector<Grammar::RuleText> vRules = RulesOf(Text);
    SourceRule Rule;
    Rule.Read(vRules.at(0));
    ASSERT_EQ(Described(Rule, false), SlowSources(Rule)) << Text;
  }
}
