// Copying or assigning a rule loses its comments and header type. These tests show the effect on
// containers of rules, and the two ways to keep many rules intact.

#include <gtest/gtest.h>

#include "TrRule.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <numeric>
#include <type_traits>

namespace {

/// The text of a rule, as read and as printed, with its own comment, header type and label.
std::string TextOf(char Name) {
  const std::string sName(1, Name);
  return ";; comment on " + sName + "\n{T" + sName + ",1}\n" + sName + "::" + sName + " [" + sName +
         "] -> [" + sName + "]\n(\n(X1::Y1)\n)\n";
}

/// The printed text of a rule with the comment and the header type of another.
std::string MixedText(char Comments, char Rest) {
  const std::string Head = TextOf(Comments);
  const std::string Body = TextOf(Rest);
  return Head.substr(0, Head.find('}')) + Body.substr(Body.find('}'));
}

void ReadInto(TrRule& Rule, char Name) {
  ASSERT_TRUE(Rule.SetTrRuleFromString(TextOf(Name)));
  ASSERT_EQ(Printed(Rule), TextOf(Name));
}

/// A vector of rules that were read in place, so that none has been copied.
std::vector<TrRule> MakeVector(const std::string& Names) {
  std::vector<TrRule> vRules(Names.size());
  for (std::size_t Place = 0; Place < Names.size(); ++Place) {
    ReadInto(vRules[Place], Names[Place]);
  }
  return vRules;
}

template <typename RangeT>
Strings PrintedAll(RangeT& Rules) {
  Strings vsTexts;
  for (TrRule& Rule : Rules) {
    vsTexts.push_back(Printed(Rule));
  }
  return vsTexts;
}

}  // namespace

TEST(KeepingRules, CopiesAMovedRule) {
  static_assert(std::is_copy_constructible_v<TrRule>);
  TrRule Rule;
  ReadInto(Rule, 'A');
  TrRule Moved(std::move(Rule));
  EXPECT_EQ(Printed(Rule), TextOf('A'));  // the source is unchanged
  const std::string Text = TextOf('A');
  EXPECT_EQ(Printed(Moved), "{" + Text.substr(Text.find(",1}")));
}

TEST(KeepingRules, LeavesTheCommentsInPlaceWhenRulesAreSwapped) {
  std::vector<TrRule> vRules = MakeVector("AB");
  std::swap(vRules[0], vRules[1]);
  EXPECT_EQ(PrintedAll(vRules), (Strings{MixedText('A', 'B'), MixedText('B', 'A')}));
}

TEST(KeepingRules, MixesUpCommentsWhenAVectorIsSorted) {
  std::vector<TrRule> vRules = MakeVector("CBA");
  std::sort(vRules.begin(), vRules.end(), [](const TrRule& Left, const TrRule& Right) {
    return Left.GetSLType() < Right.GetSLType();
  });
  const char* Names = "ABC";
  for (std::size_t Place = 0; Place < vRules.size(); ++Place) {
    EXPECT_EQ(vRules[Place].GetSLType(), std::string(1, Names[Place]));
  }
  EXPECT_NE(PrintedAll(vRules), (Strings{TextOf('A'), TextOf('B'), TextOf('C')}));
}

TEST(KeepingRules, MixesUpCommentsWhenRulesAreErasedOrInserted) {
  std::vector<TrRule> vRules = MakeVector("ABC");
  vRules.erase(vRules.begin());
  EXPECT_EQ(PrintedAll(vRules), (Strings{MixedText('A', 'B'), MixedText('B', 'C')}));
  TrRule Rule;
  ReadInto(Rule, 'D');
  vRules.reserve(vRules.size() + 1);
  vRules.insert(vRules.begin(), Rule);
  EXPECT_EQ(vRules.front().GetSLType(), "D");
  EXPECT_NE(Printed(vRules.front()), TextOf('D'));
}

TEST(KeepingRules, LosesCommentsWhenAVectorGrows) {
  std::vector<TrRule> vRules = MakeVector("A");
  vRules.reserve(vRules.capacity() + 1);
  const std::string Text = TextOf('A');
  EXPECT_EQ(PrintedAll(vRules), Strings{"{" + Text.substr(Text.find(",1}"))});
}

TEST(KeepingRules, KeepsRulesIntactWithPointers) {
  std::vector<std::unique_ptr<TrRule>> vRules;
  for (const char Name : std::string("CBAB")) {
    vRules.push_back(std::make_unique<TrRule>());
    ReadInto(*vRules.back(), Name);
  }
  const auto SortsBefore = [](const auto& Left, const auto& Right) { return *Left < *Right; };
  std::stable_sort(vRules.begin(), vRules.end(), SortsBefore);
  vRules.erase(vRules.begin() + 1);
  Strings vsTexts;
  for (const auto& Kept : vRules) {
    vsTexts.push_back(Printed(*Kept));
  }
  EXPECT_EQ(vsTexts, (Strings{TextOf('A'), TextOf('B'), TextOf('C')}));
}

TEST(KeepingRules, KeepsRulesIntactWithSortedIndices) {
  std::deque<TrRule> Rules;
  Strings vsTexts;
  for (const char Name : std::string("CBA")) {
    ReadInto(Rules.emplace_back(), Name);
    vsTexts.push_back(Rules.back().ReturnAsStringForComparison());
  }
  std::vector<std::size_t> vOrder(Rules.size());
  std::iota(vOrder.begin(), vOrder.end(), 0U);
  std::sort(vOrder.begin(), vOrder.end(),
            [&](std::size_t Left, std::size_t Right) { return vsTexts[Left] < vsTexts[Right]; });
  EXPECT_EQ(vOrder, (std::vector<std::size_t>{2, 1, 0}));
  EXPECT_EQ(PrintedAll(Rules), (Strings{TextOf('C'), TextOf('B'), TextOf('A')}));
}
