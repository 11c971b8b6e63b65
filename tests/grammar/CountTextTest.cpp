// Counts, wherever one is read.

#include "CountText.h"

#include "GrammarSupport.h"
#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Case {
  std::string Text;  ///< after ";;Score:"
  int Value;
  bool IsExact;
};

const std::vector<Case> Cases{
    {"1", 1, true},
    {"7", 7, true},
    {"007", 7, true},
    {"2147483647", 2147483647, true},
    {"0000000000000000000002147483647", 2147483647, true},
    {"", 1, false},
    {"0", 1, false},
    {"000", 1, false},
    {"2147483648", 2147483647, false},
    {"4294967297", 2147483647, false},
    {"99999999999999999999999999", 2147483647, false},
    {"18446744073709551617", 2147483647, false},
    {"+5", 1, false},
    {"-3", 1, false},
    {"abc", 1, false},
    {"x5", 1, false},
    {"5x", 5, false},
    {"5 or so", 5, false},
    {"1.5", 1, false},
    {"12,000", 12, false},
    {"0x10", 1, false},
    {"1e3", 1, false},
    {"\xD9\xA3", 1, false},
    {"3\xC2\xA0", 3, false},
};

TEST(CountText, IsTheLeadingDigits) {
  for (const Case& Row : Cases) {
    const Grammar::CountText Count = Grammar::ParseCount(Row.Text);
    EXPECT_EQ(Count.Value, Row.Value) << Row.Text;
    EXPECT_EQ(Count.IsExact, Row.IsExact) << Row.Text;
  }
}

const std::string Body = "{NP,1}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";

TEST(CountText, IsTheSameInTheRecordAndInItsRule) {
  for (const Case& Row : Cases) {
    OwnedRecord Record;
    std::vector<Grammar::Finding> vFindings;
    ASSERT_TRUE(Record.ReadFirst(";;Score:" + Row.Text + '\n' + Body, vFindings));
    EXPECT_EQ(Record.Count(), Row.Value) << Row.Text;
    EXPECT_EQ(Record.Rule().GetNumTrExamples(), Row.Value) << Row.Text;
    EXPECT_EQ(Record.Count(), Row.Value) << Row.Text;
  }
}

TEST(CountText, IsRestoredFromJsonUnchanged) {
  const TestFolder Folder;
  std::string Text;
  for (const Case& Row : Cases) {
    Text += ";;Score:" + Row.Text + '\n' + Body;
  }
  Folder.Write("a.trr", Text);
  EXPECT_EQ(RunTrrule({"json", "-o", "a.jsonl", "a.trr"}, Folder.Path("")), (ChildEnd{0, "", ""}));
  EXPECT_EQ(RunTrrule({"from-json", "a.jsonl"}, Folder.Path("")), (ChildEnd{0, Text, ""}));
}

TEST(CountText, IsReportedWhenItIsReadDifferently) {
  for (const Case& Row : Cases) {
    const std::vector<Grammar::Finding> vFindings =
        FindingsIn("\n;;Score: " + Row.Text + '\n' + Body);
    ASSERT_EQ(vFindings.size(), Row.IsExact ? 0U : 1U) << Row.Text;
    if (!Row.IsExact) {
      EXPECT_EQ(vFindings[0].Code, "TR049");
      EXPECT_EQ(vFindings[0].Line, 2U);
      EXPECT_EQ(vFindings[0].Message,
                '"' + Row.Text + "\" is not a count: it is read as " + std::to_string(Row.Value));
    }
  }
}

TEST(CountText, IsReportedWithItsPosition) {
  const TestFolder Folder;
  Folder.Write("a.trr",
               ";; Score: abc\n"
               "{NP,1}\n"
               "NP::NP : [N] -> [N]\n"
               "(\n"
               "(X1::Y1) ;;Score:4\n"
               ")\n"
               ";;Score:\n"
               "{NP,2}\n"
               "NP::NP : [DET] -> [DET]\n"
               "(X1::Y1)\n"
               "; Score: not a label\n"
               ";; Scores: nor this\n");
  EXPECT_EQ(RunTrrule({"check", "a.trr"}, Folder.Path("")),
            (ChildEnd{1,
                      "a.trr:1:11: warning TR049: \"abc\" is not a count: it is read as 1\n"
                      "  ;; Score: abc\n"
                      "            ^~~\n"
                      "a.trr:5:18: warning TR049: the rule has a count already, on line 1\n"
                      "  (X1::Y1) ;;Score:4\n"
                      "                   ^\n"
                      "a.trr:7:1: warning TR049: \"\" is not a count: it is read as 1\n"
                      "  ;;Score:\n"
                      "  ^~~~~~~~\n"
                      "a.trr:11:1: warning TR047: this is only a comment: the label is "
                      "written \";;Score:\"\n"
                      "  ; Score: not a label\n"
                      "  ^~~~~~~~\n",
                      "0 errors, 4 warnings, 0 notes\n"}));
  Folder.Write("a.trr", ";;Score: abc\n");
  EXPECT_EQ(RunTrrule({"check", "a.trr"}, Folder.Path("")), (ChildEnd{0, "", ""}));
}

TEST(CountText, IsSummedUpToALimit) {
  const TestFolder Folder;
  Folder.Write("a.trr", ";;Score:4294967297\n" + Body + ";;Score:+5\n" + Body);
  EXPECT_EQ(RunTrrule({"unique", "a.trr"}, Folder.Path("")),
            (ChildEnd{0, ";;Score:2147483647\n" + Body, ""}));
  Folder.Write("a.trr", ";;Score:-7\n" + Body + ";;Score:+5\n" + Body + ";;Score:0\n" + Body);
  EXPECT_EQ(RunTrrule({"unique", "a.trr"}, Folder.Path("")),
            (ChildEnd{0, ";;Score:3\n" + Body, ""}));
}

TEST(CountText, IsWrittenFromJsonIfAGrammarCanContainIt) {
  const std::string Rule =
      R"j("slType":"NP","tlType":"NP","slLabels":["N"],"tlLabels":["N"],"alignments":"((1,1))")j";
  const std::string Written = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
  const std::string Lost = "a:1: warning: count: a grammar cannot hold it as it is given\n";
  const struct {
    std::string Members;
    ChildEnd End;
  } Lines[] = {
      {R"j("count":1)j", {0, Written, ""}},
      {R"j("count":5)j", {0, ";;Score:5\n" + Written, ""}},
      {R"j("count":5,"comments":[";;Score:+5"])j", {0, ";;Score:5\n" + Written, ""}},
      {R"j("count":1,"comments":[";;Score:+5"])j", {0, ";;Score:+5\n" + Written, ""}},
      {R"j("count":2147483647,"comments":[";;Score:9999999999"])j",
       {0, ";;Score:9999999999\n" + Written, ""}},
      {R"j("count":0)j", {1, Written, Lost}},
      {R"j("count":-4,"comments":[";;Score:-4"])j", {1, ";;Score:-4\n" + Written, Lost}},
  };
  for (const auto& Row : Lines) {
    const TestFolder Folder;
    Folder.Write("a", "{" + Rule + "," + Row.Members + "}\n");
    EXPECT_EQ(RunTrrule({"from-json", "a"}, Folder.Path("")), Row.End) << Row.Members;
  }
}

}  // namespace
