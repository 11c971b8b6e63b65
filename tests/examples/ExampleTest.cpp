// The examples in the comments of a rule.

#include "Example.h"

#include "RuleReader.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

/// All that is found in a rule, a line each.
std::string Found(const std::string& Comments) {
  std::istringstream Stream(Comments + "N::N : [\"a\"] -> [\"b\"]\n(X1::Y1)\n");
  Grammar::RuleReader Reader(Stream, "a.trr");
  Grammar::RuleText Text;
  Reader.Next(Text);
  const Examples::CommentExamples Examples = Examples::ReadExamples(Text);
  std::string Lines;
  for (const auto& Current : Examples.vPairs) {
    Lines += '[' + Current.Source + "] -> [" + Current.Target + "]\n";
  }
  for (const std::string& sEach : Examples.vsRefused) {
    Lines += "*[" + sEach + "]\n";
  }
  for (const std::string& sEach : Examples.vsMessages) {
    Lines += sEach + '\n';
  }
  return Lines;
}

TEST(Example, IsReadFromTheCommentsOfItsRule) {
  struct Case {
    const char* Comments;
    const char* Expected;
  };
  const std::vector<Case> vCases{
      {"", ""},
      {";; SL of nothing\n;SL: a\n;;sl: a\n;;SL a\n;;; SL: a\n", ""},
      {";;SL:the car\n;;TL:el auto\n", "[the car] -> [el auto]\n"},
      {"  ;;  SL: \t the  car \t\r\n;; TL: El AUTO\n", "[the  car] -> [El AUTO]\n"},
      // The n-th goes with the n-th, wherever they stand.
      {";;TL:1\n;;TL:2\n;;SL:a\n;;SL:b\n", "[a] -> [1]\n[b] -> [2]\n"},
      {";;SL:a\n;;SL:b\n;;TL:1\n",
       "[a] -> [1]\n"
       "a.trr:2: warning: the ;;SL: has no ;;TL:, and so is not an example\n"},
      {";;TL:1\n;;SL:a\n;;TL:2\n;;TL:3\n",
       "[a] -> [1]\n"
       "a.trr:3: warning: the ;;TL: has no ;;SL:, and so is not an example\n"
       "a.trr:4: warning: the ;;TL: has no ;;SL:, and so is not an example\n"},
      // Nothing after ";;SL:" is not an example, but has its partner anyway.
      {";;SL:\n;;SL:b\n;;TL:1\n;;TL:2\n", "[b] -> [2]\n"},
      {";;SL:a\n;;TL:\n", "[a] -> []\n"},
      {";;*SL: the\n;;SL:a\n;;TL:1\n;;*SL:\n;; *SL:the the\n", "[a] -> [1]\n*[the]\n*[the the]\n"},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Found(Row.Comments), Row.Expected) << Row.Comments;
  }
}

TEST(Example, IsReadAfterALineOrInTheBody) {
  std::istringstream Stream(
      "{N,1}  ;;SL: a\nN::N : [\"a\"] -> [\"b\"] ;; TL: b\n(\n(X1::Y1)\n;;*SL: c\n)\n");
  Grammar::RuleReader Reader(Stream, "a.trr");
  Grammar::RuleText Text;
  Reader.Next(Text);
  const Examples::CommentExamples Examples = Examples::ReadExamples(Text);
  ASSERT_EQ(Examples.vPairs.size(), 1U);
  EXPECT_EQ(Examples.vPairs[0].Source, "a");
  EXPECT_EQ(Examples.vPairs[0].Target, "b");
  EXPECT_EQ(Examples.vsRefused, std::vector<std::string>{"c"});
}

}  // namespace
