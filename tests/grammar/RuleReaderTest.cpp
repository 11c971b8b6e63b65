#include "RuleReader.h"

#include "GrammarSupport.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <utility>

namespace {

using Grammar::RuleReader;
using Grammar::RuleText;

std::vector<std::string> TextsOf(const std::string& Text) {
  std::vector<std::string> vsTexts;
  for (const RuleText& Rule : RulesOf(Text)) {
    vsTexts.push_back(Rule.Text);
  }
  return vsTexts;
}

TEST(RuleReader, SplitsBeforeTheCommentsOfTheNextRule) {
  using Cuts = std::vector<std::string>;
  const std::vector<std::pair<std::string, Cuts>> Cases{
      {"", {}},
      {"\n", {"\n"}},
      {";; nothing else", {";; nothing else"}},
      // Headers begin rules, with the comment and blank lines right before them.
      {"{N,1}\nA\n{N,2}\nB\n", {"{N,1}\nA\n", "{N,2}\nB\n"}},
      {"{N,1}\nA\n\n;; b\n\n{N,2}\n", {"{N,1}\nA\n", "\n;; b\n\n{N,2}\n"}},
      {"{N,1}\nA\n;; a\nA\n;; b\n{N,2}\n", {"{N,1}\nA\n;; a\nA\n", ";; b\n{N,2}\n"}},
      {"{N,1}\n{N,2}\n", {"{N,1}\n", "{N,2}\n"}},
      {"1. {N,1}\n2. {N,2}\n", {"1. {N,1}\n", "2. {N,2}\n"}},
      // After the last rule, comments are its own.
      {"{N,1}\nA\n;; end\n", {"{N,1}\nA\n;; end\n"}},
      // Without headers, rule lines do.
      {"N::N : [N] -> [N]\n(X1::Y1)\nV::V : [V] -> [V]\n(X1::Y1)\n",
       {"N::N : [N] -> [N]\n(X1::Y1)\n", "V::V : [V] -> [V]\n(X1::Y1)\n"}},
      {"N::N : [N] -> [N]\n(\n)\nV::V : [V] -> [V]\n",
       {"N::N : [N] -> [N]\n(\n)\n", "V::V : [V] -> [V]\n"}},
      {"N::N : [N] -> [N]\n(\n(y2 = y0))\nV::V : [V] -> [V]\n",
       {"N::N : [N] -> [N]\n(\n(y2 = y0))\n", "V::V : [V] -> [V]\n"}},
      // In a body that is open, or before it, a second rule line is a mistake.
      {"N::N : [N] -> [N]\n(\n(X1::Y1)\nV::V : [V] -> [V]\n)\n",
       {"N::N : [N] -> [N]\n(\n(X1::Y1)\nV::V : [V] -> [V]\n)\n"}},
      {"N::N : [N] -> [N]\nV::V : [V] -> [V]\n(X1::Y1)\n",
       {"N::N : [N] -> [N]\nV::V : [V] -> [V]\n(X1::Y1)\n"}},
      {"{N,1}\nN::N : [N] -> [N]\n(\n(X1::Y1)\n{N,2}\nN::N : [N] -> [N]\n",
       {"{N,1}\nN::N : [N] -> [N]\n(\n(X1::Y1)\n", "{N,2}\nN::N : [N] -> [N]\n"}},
      // The lines of the first rule may come in any order.
      {"(X1::Y1)\n(x0 = x1)\nN::N : [N] -> [N]\n{N,2}\n",
       {"(X1::Y1)\n(x0 = x1)\nN::N : [N] -> [N]\n", "{N,2}\n"}},
      // What looks like a header in a comment or in a constraint is not one.
      {"{N,1}\n;; {N,2}\n((x1 sem) = {N,3})\n", {"{N,1}\n;; {N,2}\n((x1 sem) = {N,3})\n"}},
      // CRLF, a last line without an end, NUL and other bytes.
      {"{N,1}\r\nA\r\n\r\n{N,2}\r\nB", {"{N,1}\r\nA\r\n", "\r\n{N,2}\r\nB"}},
      {std::string("{N,1}\n\0\xFF\n{N,2}\n", 15), {std::string("{N,1}\n\0\xFF\n", 9), "{N,2}\n"}}};
  for (const auto& [sText, vsExpected] : Cases) {
    EXPECT_EQ(TextsOf(sText), vsExpected) << sText;
  }
}

TEST(RuleReader, ReturnsLinesWithoutTheirEnds) {
  const std::vector<RuleText> vRules = RulesOf("\n;; a\r\n{N,1}\r\r\n\n{N,2}");
  ASSERT_EQ(vRules.size(), 2U);
  const RuleText& First = vRules[0];
  ASSERT_EQ(First.vLines.size(), 3U);
  EXPECT_EQ(First.Line(0), "");
  EXPECT_EQ(First.Line(1), ";; a");
  EXPECT_EQ(First.Line(2), "{N,1}\r");
  EXPECT_EQ(First.File, "a.trr");
  EXPECT_EQ(First.FirstLine, 1U);
  EXPECT_TRUE(First.HasReturns);
  EXPECT_FALSE(First.LacksFinalNewline);
  EXPECT_TRUE(First.HasRule);
  const RuleText& Second = vRules[1];
  ASSERT_EQ(Second.vLines.size(), 2U);
  EXPECT_EQ(Second.Line(1), "{N,2}");
  EXPECT_EQ(Second.FirstLine, 4U);
  EXPECT_FALSE(Second.HasReturns);
  EXPECT_TRUE(Second.LacksFinalNewline);
}

TEST(RuleReader, DetectsCommentsWithoutARule) {
  for (const auto& [sText, HasRule] : std::vector<std::pair<std::string, bool>>{
           {"\n", false}, {";; a\n; b\n \t\n", false}, {"A\n", true}, {";--;(X1::Y1)\n", true}}) {
    const std::vector<RuleText> vRules = RulesOf(sText);
    ASSERT_EQ(vRules.size(), 1U) << sText;
    EXPECT_EQ(vRules[0].HasRule, HasRule) << sText;
  }
}

/// All bytes of the texts, one after the other, with the lines counted on the way.
void ExpectAllBytes(const std::string& Text) {
  std::string All;
  std::size_t Line = 1;
  for (const RuleText& Rule : RulesOf(Text)) {
    EXPECT_EQ(Rule.FirstLine, Line);
    All += Rule.Text;
    Line = 1 + static_cast<std::size_t>(std::count(All.begin(), All.end(), '\n'));
  }
  EXPECT_EQ(All, Text);
}

TEST(RuleReader, LosesNoByteOfAnyPrefix) {
  std::string Text = SampleText + "\n;; b\r\n" + SamplePrinted + ";; end";
  for (std::size_t Size = 0; Size <= Text.size(); ++Size) {
    ExpectAllBytes(Text.substr(0, Size));
  }
}

TEST(RuleReader, FindsRulesAcrossBlocks) {
  std::string Text;
  for (int Rule = 0; Rule < 1000; ++Rule) {
    Text += ";; " + std::string(static_cast<std::size_t>(Rule % 97), 'a') + "\n" + SamplePrinted;
  }
  EXPECT_EQ(RulesOf(Text).size(), 1000U);
  ExpectAllBytes(Text);
}

TEST(RuleReader, ReturnsALongRuleInPieces) {
  const std::string Long = "{N,1}\n" + std::string(3 * RuleReader::MaxHeld, 'a') + "\nb\n";
  const std::string Many = [] {
    std::string Lines;
    while (Lines.size() < 2 * RuleReader::MaxHeld) {
      Lines += "(x0 = x1)\n";
    }
    return Lines;
  }();
  for (const std::string& sText : {Long + "{N,2}\n", Long, "{N,1}\n" + Many + "{N,2}\n", Many}) {
    ExpectAllBytes(sText);
    const std::vector<RuleText> vRules = RulesOf(sText);
    ASSERT_GE(vRules.size(), 2U);
    EXPECT_TRUE(vRules[0].IsPiece);
    EXPECT_FALSE(vRules[0].Continues);
    EXPECT_TRUE(vRules[1].IsPiece);
    EXPECT_TRUE(vRules[1].Continues);
    for (const RuleText& Rule : vRules) {
      EXPECT_LE(Rule.Text.size(), RuleReader::MaxHeld + (1U << 17U));
    }
  }
  EXPECT_FALSE(RulesOf(Long + "{N,2}\n").back().IsPiece);
  EXPECT_EQ(RulesOf(Long + "{N,2}\n").back().Text, "{N,2}\n");
}

TEST(RuleReader, EndsALineInPiecesBeforeTheNextRule) {
  const std::string Long = "{N,1}\n" + std::string(2 * RuleReader::MaxHeld + 500, 'a');
  const std::vector<RuleText> vRules = RulesOf(Long + "\n{N,2}\nN::N : [N] -> [N]\n");
  EXPECT_EQ(vRules.back().Text, "{N,2}\nN::N : [N] -> [N]\n");
  EXPECT_FALSE(vRules.back().IsPiece);
  for (const std::string sEnd : {"", "\n", "\n\n;; end\n"}) {
    const RuleText Last = RulesOf(Long + sEnd).back();
    EXPECT_TRUE(Last.HasRule);
    EXPECT_TRUE(Last.Continues);
    ExpectAllBytes(Long + sEnd);
  }
}

TEST(RuleReader, ReplacesTheContentsOfTheText) {
  std::istringstream Stream("{N,1}");
  RuleReader Reader(Stream, "b.trr");
  RuleText Text = RulesOf("a\r\nb\r\nc").front();
  Text.IsPiece = true;
  Text.Continues = true;
  ASSERT_TRUE(Reader.Next(Text));
  EXPECT_EQ(Text.Text, "{N,1}");
  EXPECT_EQ(Text.File, "b.trr");
  EXPECT_EQ(Text.vLines.size(), 1U);
  EXPECT_FALSE(Text.HasReturns);
  EXPECT_FALSE(Text.IsPiece);
  EXPECT_FALSE(Text.Continues);
  EXPECT_EQ(Reader.BytesRead(), 5U);
  EXPECT_FALSE(Reader.Next(Text));
  EXPECT_FALSE(Reader.HasFailed());
}

}  // namespace
