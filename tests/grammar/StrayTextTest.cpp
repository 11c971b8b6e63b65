// Text on the lines of a rule that is not part of it: what is found, and the comment that keeps it.

#include "StrayText.h"

#include "GrammarSupport.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

Strings StraysOf(const std::string& Line) {
  Strings vsTexts;
  for (const std::string_view Text : Grammar::StrayTexts(Grammar::PartsOf(Line))) {
    vsTexts.emplace_back(Text);
  }
  return vsTexts;
}

TEST(StrayText, IsAllTextWithoutAMeaning) {
  const std::vector<std::pair<std::string, Strings>> Cases{
      // Whole lines.
      {"see above", {"see above"}},
      {"  # note \r", {"# note"}},
      {"(X1:Y1)", {"(X1:Y1)"}},
      {"((x1 num) -> sg)", {"((x1 num) -> sg)"}},
      {"note ;; and a comment", {"note"}},
      {"\"a ;; b\"", {"\"a ;; b\""}},
      {"( note", {"( note"}},
      {"))", {"))"}},
      {"", {}},
      {" \t\r", {}},
      {"(", {}},
      {")", {}},
      {";; a comment", {}},
      {"; another", {}},
      // Headers.
      {"{NP,1}", {}},
      {" { NP , 1 } ;; comment", {}},
      {"{NP,1} note", {"note"}},
      {"1. {NP,1}", {"1."}},
      {"1. {NP,1} of 2", {"1.", "of 2"}},
      {"{NP,1} {NP,2}", {"{NP,2}"}},
      {"{NP,1} a::b = c", {"a::b = c"}},
      {"{NP,1}}", {"}"}},
      {"{NP} note", {}},
      {"{NP,one} note", {}},
      // Rule lines.
      {"NP::NP : [DET N] -> [N DET]", {}},
      {"NP::NP [DET N] -> [N DET]", {}},
      {"NP::NP  :[DET N] -> [N DET] ;; comment", {}},
      {"NP::NP : [N] -> [N] note", {"note"}},
      {"NP::NP : [N] -> [N] = {x}", {"= {x}"}},
      {"NP::NP see [N] -> [N]", {"see"}},
      {"NP::NP : see [N] -> [N] there", {"see", "there"}},
      {"NP::NP :: [N] -> [N]", {":"}},
      {"NP::NP a::b [N] -> [N]", {"a::b"}},
      {"NP::NP {NP,1} : [N] -> [N]", {"{NP,1} :"}},
      {"NP::NP : N] -> [N] note", {}},
      {"NP NP : see [N] -> [N] note", {}},
      // Alignments.
      {"(X1::Y1)", {}},
      {"( X1 :: Y1 )", {}},
      {";--;(X1::Y1)", {}},
      {";--; (X1::Y1)", {}},
      {";--;see (X1::Y1)", {"see"}},
      {"(X1::Y1) note", {"note"}},
      {"(X1::Y1), {1}", {", {1}"}},
      {"1) 2 (X1::Y1)", {"1) 2"}},
      {"a (X1::Y1) b = c::d", {"a", "b = c::d"}},
      {"(X1::Y1) (X2::Y2)", {}},
      {"(X1::1) note", {}},
      // Nothing can stand around a constraint.
      {"(x0 = x1)", {}},
      {"(x0 = x1))", {}},
      {"(x0 = x1) note", {}},
      {"note (x0 = x1)", {}},
  };
  for (const auto& [sLine, vsExpected] : Cases) {
    EXPECT_EQ(StraysOf(sLine), vsExpected) << sLine;
  }
}

TEST(StrayText, IsKeptInAComment) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"# note", ";; not read: # note"},
      {"(X1:Y1)", ";; not read: (X1:Y1)"},
      {"SL: the car", ";; not read: SL: the car"},
      {"see {NP,3}", ";; not read: see %7BNP,3}"},
      {"a = b", ";; not read: a %3D b"},
      {"a::b", ";; not read: a:%3Ab"},
      {":::::", ";; not read: :%3A:%3A:"},
      {"[A] -> [B]", ";; not read: [A] -> %5BB]"},
      {"] -> [ ] -> [", ";; not read: ] -> %5B ] -> %5B"},
      {"100% of 5%", ";; not read: 100% of 5%"},
      {"%3D and %3d and %3", ";; not read: %253D and %253d and %3"},
      {"%{3D", ";; not read: %%7B3D"},
      {"%%41", ";; not read: %%2541"},
      {"a\tb;;c\"", ";; not read: a\tb;;c\""},
  };
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Grammar::StrayComment(sText), sExpected);
  }
}

int HexValue(char Digit) {
  const std::string Digits = "0123456789ABCDEF0123456789abcdef";
  const std::size_t Found = Digits.find(Digit);
  return Found == std::string::npos ? -1 : static_cast<int>(Found % 16);
}

/// The text that a comment keeps.
std::string KeptText(const std::string& Comment) {
  std::string Text;
  for (std::size_t At = std::string(";; not read: ").size(); At < Comment.size(); ++At) {
    const bool IsHidden = Comment[At] == '%' && At + 2 < Comment.size() &&
                          HexValue(Comment[At + 1]) >= 0 && HexValue(Comment[At + 2]) >= 0;
    if (IsHidden) {
      Text += static_cast<char>(HexValue(Comment[At + 1]) * 16 + HexValue(Comment[At + 2]));
      At += 2;
    } else {
      Text += Comment[At];
    }
  }
  return Text;
}

/// A text of the pieces that matter.
std::string RandomText(std::mt19937& Random) {
  const Strings vsPieces{"{",  "}",  "=",  ":",   "::", "[",    "]",    "] -> [",   " -> ", "%",
                         "%3", "3D", "7b", "(",   ")",  ";",    ";;",   "\"",       " ",    "\t",
                         "\r", "x1", "Y2", "SL:", "NP", ";--;", "\xFF", "Score: 3", "*OR*"};
  std::string Text;
  for (auto Count = Random() % 12; Count > 0; --Count) {
    Text += vsPieces[Random() % vsPieces.size()];
  }
  return Text;
}

TEST(StrayText, IsRestoredFromItsComment) {
  std::mt19937 Random(7);
  for (int Round = 0; Round < 20000; ++Round) {
    const std::string Text = RandomText(Random);
    EXPECT_EQ(KeptText(Grammar::StrayComment(Text)), Text);
  }
}

const std::string Head = ";; first\n{NP,8}\n";
const std::string Rest = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n(X0 = X1)\n)\n";

TEST(StrayText, IsOnlyACommentForTheLibrary) {
  std::mt19937 Random(8);
  for (int Round = 0; Round < 5000; ++Round) {
    const std::string Comment = Grammar::StrayComment(RandomText(Random));
    TrRule Rule;
    ASSERT_TRUE(Rule.SetTrRuleFromString(Head + Comment + '\n' + Rest)) << Comment;
    const Written Streams = WrittenBy([&] { Rule.Print(); });
    const bool HasReturn = !Comment.empty() && Comment.back() == '\r';
    EXPECT_EQ(Streams.Out, ";; first\n" + Comment.substr(0, Comment.size() - (HasReturn ? 1 : 0)) +
                               '\n' + Head.substr(9) + Rest);
  }
}

TEST(StrayText, IsNeitherAnExampleNorACount) {
  for (const std::string sText :
       {"SL: a car", "TL: un auto", "C-Structure: (NP)", "Score: 7", ";;SL: a car", ";;Score: 7"}) {
    OwnedRecord Record;
    std::vector<Grammar::Finding> vFindings;
    const std::string Text = Head + Grammar::StrayComment(sText) + '\n' + Rest;
    ASSERT_TRUE(Record.ReadFirst(Text, vFindings));
    EXPECT_EQ(Record.Count(), 1);
    EXPECT_EQ(Record.Rule().GetSLString() + Record.Rule().GetTLString(), "");
    EXPECT_EQ(Record.Rule().GetCStructure(), "");
  }
}

TEST(StrayText, StaysInARoundTrip) {
  std::mt19937 Random(9);
  std::size_t WithStray = 0;
  for (int Round = 0; Round < 5000; ++Round) {
    std::string Text = Head + Rest;
    for (int Place = 0; Place < 3; ++Place) {
      // At a line's beginning or end, or as a line of its own.
      const std::size_t Line = std::min(Text.find('\n', Random() % Text.size()), Text.size() - 1);
      // One after the other, so that each compiler draws the same.
      const std::size_t Column = Line + Random() % 2;
      const std::string sNew = RandomText(Random);
      Text.insert(Column, sNew + (Random() % 2 == 0 ? "\n" : ""));
    }
    for (const Grammar::RuleText& Rule : RulesOf(Text)) {
      Grammar::RuleRecord Record;
      std::vector<Grammar::Finding> vFindings;
      if (ReadRule(Rule, Record, vFindings)) {
        EXPECT_EQ(Record.HasStrayText(), !vFindings.empty()) << Text;
        WithStray += Record.HasStrayText() ? 1 : 0;
        std::string Once;
        AppendNormalForm(Record, {}, Once);
        EXPECT_EQ(NormalFormOf(Once), Once) << Text;
        std::vector<Grammar::Finding> vNone;
        EXPECT_TRUE(ReadRule(RulesOf(Once).at(0), Record, vNone)) << Text;
        EXPECT_EQ(PlacesOf(vNone), Strings()) << Text;
      }
    }
  }
  EXPECT_GT(WithStray, 200U);
}

/// A rule with lines, the first of them line 5, each with its severity.
Strings LevelsOf(const std::string& Text) {
  Strings vsLevels;
  for (const Grammar::Finding& Found : FindingsIn(Text)) {
    if (Found.Code == "TR035") {
      vsLevels.push_back(std::to_string(Found.Line) + ' ' + std::string(NameOf(Found.Level)));
    }
  }
  return vsLevels;
}

TEST(StrayText, IsAnErrorWithinARuleAndAWarningOutside) {
  const std::string Rule = "{NP,1}\nNP::NP : [N] -> [N]\n";
  const std::vector<std::pair<std::string, Strings>> Cases{
      {"title\n" + Rule + "(X1::Y1)\n", {"1 warning"}},
      {"title\n(X1::Y1)\n" + Rule, {"1 warning"}},
      {"{NP,1} a\nb\nNP::NP : [N] -> [N] c\nd\n(X1::Y1) e\n",
       {"1 error", "2 error", "3 error", "4 error", "5 error"}},
      {Rule + "a\n(\nb\n(X1::Y1)\nc\n)\nd\n", {"3 error", "5 error", "7 error", "9 warning"}},
      {Rule + "(\n(X1::Y1)\n(x0 = x1))\nd\n", {"6 warning"}},
      {Rule + "(\n(X1::Y1)\n(x0 = x1))\n(\nd\n)\ne\n", {"7 error", "9 warning"}},
      {Rule + "(X1::Y1)\n\n;; behind\nd\n", {"6 error"}},
      {Rule + "(\n(X1::Y1)\na ) )\nd\n", {"5 error", "6 warning"}},
      {"NP::NP : [N] -> [N]\n(X1::Y1)\na\n", {"3 error"}},
  };
  for (const auto& [sText, vsExpected] : Cases) {
    EXPECT_EQ(LevelsOf(sText), vsExpected) << sText;
  }
}

// The line that the rule is read without is reported, and not only the one that it is read with.
TEST(StrayText, IsReportedWhereItWasMeantAsARuleLine) {
  const std::string Misspelt = "NP:NP : [N] > [N]\n";
  const std::string Good = "NP::NP : [N] -> [N]\n";
  const std::string Message = ": this line is not part of a rule; a rule line needs \"] -> [\"";
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"{NP,1}\n" + Misspelt + Good + "(X1::Y1)\n", "2:1+17 TR035" + Message},
      {"{NP,1}\n" + Good + Misspelt + "(X1::Y1)\n", "3:1+17 TR035" + Message},
      {"{NP,1}\nScore: 3}3D -> x1\n" + Good + "(X1::Y1)\n", "2:1+17 TR035" + Message},
  };
  for (const auto& [sText, sExpected] : Cases) {
    for (const bool WithNotes : {false, true}) {
      Grammar::RuleRecord Record;
      std::vector<Grammar::Finding> vFindings;
      ASSERT_TRUE(WithNotes ? CheckRule(RulesOf(sText).at(0), Record, vFindings, nullptr)
                            : ReadRule(RulesOf(sText).at(0), Record, vFindings));
      ASSERT_EQ(vFindings.size(), 1U) << sText;
      EXPECT_EQ(PlacesOf(vFindings).front() + ": " + vFindings.front().Message, sExpected);
      EXPECT_EQ(vFindings.front().Suggestion, "");
    }
  }
  EXPECT_EQ(PlacesOf(FindingsIn("{NP,1}\n" + Misspelt + "(X1::Y1)\n")), Strings{"2:12+3 TR001?"});
}

TEST(StrayText, IsLimitedByTheLengthOfTheNormalForm) {
  // Every "=" takes three bytes in the comment.
  const auto RuleWith = [](std::size_t Size) {
    return "{NP,1} " + std::string(Size, '=') + "\nNP::NP : [N] -> [N]\n(X1::Y1)\n";
  };
  Grammar::RuleRecord Record;
  std::vector<Grammar::Finding> vFindings;
  EXPECT_TRUE(ReadRule(RulesOf(RuleWith(33000)).at(0), Record, vFindings));
  EXPECT_EQ(PlacesOf(vFindings), Strings{"1:8+33000 TR035"});
  vFindings.clear();
  EXPECT_FALSE(ReadRule(RulesOf(RuleWith(34000)).at(0), Record, vFindings));
  EXPECT_EQ(PlacesOf(vFindings), Strings{"2:1+19 TR014"});
}

}  // namespace
