#include "JoinedTexts.h"

#include "DiffSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Grammar;

const std::string Rule = "NP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n";
const std::string RuleAsWritten = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
const std::string Open = "NP::NP : [N] -> [N]\n(\n(X1::Y1)\n";
const std::string BadOpen = "{NP,1}\n(\n(X1::Y1)\n";

/// A text as it stands in some file.
JoinedText TextOf(const std::string& Bytes, bool FollowsAsBefore = false) {
  JoinedText Text;
  PassEntries(Bytes, [&](const ReadEntry& Read) {
    Text = {Bytes, std::string(Read.Entry.IsRule ? Read.Entry.Text : ""), Read.HasReturns,
            FollowsAsBefore};
  });
  return Text;
}

std::string Joined(const std::vector<JoinedText>& vTexts,
                   const std::vector<JoinedText>& vLast = {}) {
  JoinedTexts All;
  for (const JoinedText& Text : vTexts) {
    All.Add(Text);
  }
  for (const JoinedText& Text : vLast) {
    All.AddLast(Text);
  }
  if (!All.Finish()) {
    return "not apart";
  }
  std::string Bytes;
  All.PassTo([&](std::string_view Piece) { Bytes += Piece; });
  return Bytes;
}

TEST(JoinedTexts, StayAsTheyAreWhereTheyAreApart) {
  EXPECT_EQ(Joined({}), "");
  EXPECT_EQ(Joined({TextOf(Rule), TextOf(Rule)}), Rule + Rule);
  EXPECT_EQ(Joined({TextOf(Rule), TextOf("{NP,1}\n" + Open)}), Rule + "{NP,1}\n" + Open);
  EXPECT_EQ(Joined({TextOf(Rule.substr(0, Rule.size() - 1)), TextOf(Rule)}), Rule + Rule);
  EXPECT_EQ(Joined({TextOf(Rule)}, {TextOf(Rule)}), Rule + Rule);
}

TEST(JoinedTexts, AreInTheNormalFormWhereTheyWouldGrow) {
  EXPECT_EQ(Joined({TextOf(Open), TextOf(Rule)}), RuleAsWritten + Rule);
  EXPECT_EQ(Joined({TextOf(Open), TextOf(Rule, true)}), Open + Rule);
  EXPECT_EQ(Joined({TextOf(Rule + "; after\n"), TextOf(Rule)}), "; after\n" + RuleAsWritten + Rule);
  EXPECT_EQ(Joined({TextOf("NP::NP : [N] -> [N]\r\n(X1::Y1)\r\n; after\r\n"), TextOf(Rule)}),
            "; after\r\nNP::NP [N] -> [N]\r\n(\r\n(X1::Y1)\r\n)\r\n" + Rule);
}

TEST(JoinedTexts, ComeLastWhereTheyCannotStayApart) {
  EXPECT_EQ(Joined({TextOf(BadOpen), TextOf(Rule)}), Rule + BadOpen);
  EXPECT_EQ(Joined({TextOf(Rule), TextOf(BadOpen), TextOf(Rule)}), Rule + Rule + BadOpen);
  EXPECT_EQ(Joined({TextOf(BadOpen)}, {TextOf(Rule)}), Rule + BadOpen);
  EXPECT_EQ(Joined({}, {TextOf(BadOpen), TextOf(Rule)}), Rule + BadOpen);
  EXPECT_EQ(Joined(std::vector<JoinedText>(20, TextOf(BadOpen))).size(), 20 * BadOpen.size());
}

TEST(JoinedTexts, AreReportedWhereTheyJoin) {
  EXPECT_EQ(Joined({TextOf(Rule), TextOf("(X2::Y2)\n")}), "not apart");
}

}  // namespace
