#include "QueryParser.h"

#include "QuerySupport.h"

#include <gtest/gtest.h>

#include <string>

TEST(QueryWriter, WritesQueriesInOneForm) {
  const struct {
    std::string Query;
    std::string Written;
  } Cases[] = {
      {"[ DET *N ]", "[DET * N]"},
      {"[]", "[]"},
      {"[^]", "[^]"},
      {"[^$]", "[^ $]"},
      {"[$]", "[ $]"},
      {"source[^det|\"la\" ?$]", "source [^ det|\"la\" ? $]"},
      {"target [\"a\\\"\\\\\"]", "target [\"a\\\"\\\\\"]"},
      {"[and or not \\]]", "[\\and \\or \\not \\]]"},
      {"NP :: ?", "NP::*"},
      {"NP|VP::*", "NP|VP::*"},
      {"not::and", "\\not::\\and"},
      {"monotone and crossing and unaligned", "monotone and crossing and unaligned"},
      {"1:1 or 1 : n or n:1 or n:n", "1:1 or 1:n or n:1 or n:n"},
      {"1::n", "1::n"},
      {"Y2:agr:*=sg|PL", "y2:agr:* = sg|PL"},
      {"x=*", "x = *"},
      {"*=x03", "* = x3"},
      {"x:f=*:*:g", "x:f = *:*:g"},
      {"x:f = \\y", "x:f = \\y"},
      {"x:f = \\xylophone|y", "x:f = \\xylophone|y"},
      {"x:f = *OR*", "x:f = *or*"},
      {"x:f = *not* a ? b|\"c\" and crossing", "x:f = *not* a ? b|\"c\" and crossing"},
      {"passes agr : num", "passes agr:num"},
      {"count>10", "count > 10"},
      {"source components!=0", "source components != 0"},
      {"target components<=2147483647", "target components <= 2147483647"},
      {"components = 1 and alignments < 2", "components = 1 and alignments < 2"},
      {"constraints >= 3 and comments > 4", "constraints >= 3 and comments > 4"},
      {"comment \"red car\"", "comment \"red car\""},
      {"comment /a\\/b/i", "comment /a\\/b/i"},
      {"line /./ and crossing", "line /./ and crossing"},
      {"(crossing)", "crossing"},
      {"crossing or monotone and 1:1", "crossing or monotone and 1:1"},
      {"(crossing or monotone) and 1:1", "(crossing or monotone) and 1:1"},
      {"(crossing and monotone) and 1:1", "(crossing and monotone) and 1:1"},
      {"1:1 and (crossing and monotone)", "1:1 and (crossing and monotone)"},
      {"(crossing and monotone) or 1:1", "crossing and monotone or 1:1"},
      {"(crossing or monotone) or 1:1", "(crossing or monotone) or 1:1"},
      {"not not crossing", "not not crossing"},
      {"not(crossing)and not (1:1 or n:n)", "not crossing and not (1:1 or n:n)"},
      {"not (crossing and 1:1)", "not (crossing and 1:1)"},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(Rewritten(Row.Query), Row.Written) << Row.Query;
    EXPECT_EQ(Rewritten(Row.Written), Row.Written) << Row.Query;
  }
}

namespace {

std::string FaultOf(const std::string& Text) {
  Query::QueryNode Tree;
  Query::QueryFault Fault;
  EXPECT_FALSE(Query::ParseQuery(Text, Tree, Fault)) << Text;
  return std::to_string(Fault.Place) + ' ' + Fault.Message;
}

const char* const ExpectedCondition =
    "expected a condition such as [DET N], NP::NP, crossing or y:num = sg";
const char* const ExpectedItem =
    "expected a label, a literal in quotes, \"?\", \"*\", \"$\" or \"]\"";

}  // namespace

TEST(QueryParser, SaysWhatItExpectedAndWhere) {
  const std::string Condition = ExpectedCondition;
  const std::string Item = ExpectedItem;
  const struct {
    std::string Query;
    std::string Fault;
  } Cases[] = {
      {"", "0 " + Condition},
      {"  ", "2 " + Condition},
      {"and", "0 " + Condition},
      {"not", "3 " + Condition},
      {"crossing and", "12 " + Condition},
      {"crossing or )", "12 " + Condition},
      {"crossing monotone", "9 expected \"and\", \"or\" or the end"},
      {"crossing)", "8 expected \"and\", \"or\" or the end"},
      {"(crossing", "9 expected \"and\", \"or\" or \")\""},
      {"(crossing monotone)", "10 expected \"and\", \"or\" or \")\""},
      {"()", "1 " + Condition},
      {"\"la\"", "0 " + Condition},
      {"/a/", "0 " + Condition},
      {"\\crossing", "0 " + Condition},
      {"crosing", "0 unknown condition \"crosing\"; did you mean crossing?"},
      {"NP", "0 unknown condition \"NP\"; trrule find --help lists them"},
      {"[DET", "4 " + Item},
      {"[DET ^", "5 " + Item},
      {"[DET )", "5 " + Item},
      {"[DET $ N]", "7 expected \"]\""},
      {"[DET|]", "5 expected a label or a literal in quotes after \"|\""},
      {"[DET|*]", "5 expected a label or a literal in quotes after \"|\""},
      {"[\"la]", "1 this quote is not closed"},
      {"source", "6 expected \"[\" or \"components\""},
      {"target crossing", "7 expected \"[\" or \"components\""},
      {"NP::", "4 expected a type or \"*\""},
      {"NP|VP", "5 expected \"::\""},
      {"NP|::VP", "3 expected a label or a literal in quotes after \"|\""},
      {"y:", "2 expected a feature, \"*\" or \"?\""},
      {"y:num", "5 expected \"=\""},
      {"y:num:=", "6 expected a feature, \"*\" or \"?\""},
      {"y:num =", "7 expected a value, a node such as x1, \"*\", \"?\", \"*or*\" or \"*not*\""},
      {"y:num = *:", "10 expected a feature, \"*\" or \"?\""},
      {"y:num = *or* a|", "15 expected a label or a literal in quotes after \"|\""},
      {"z:num = sg", "0 expected a node such as x1, y or \"*\""},
      {"x1x:num = sg", "0 expected a node such as x1, y or \"*\""},
      {"\\x:num = sg", "0 expected a node such as x1, y or \"*\""},
      {"x1234567890:num = sg", "0 expected a node such as x1, y or \"*\""},
      {"num = sg", "0 unknown condition \"num\"; trrule find --help lists them"},
      {"passes", "6 expected a feature, \"*\" or \"?\""},
      {"1:2", "0 expected a node such as x1, y or \"*\""},
      {"count", "5 expected \"=\", \"!=\", \"<\", \"<=\", \">\" or \">=\""},
      {"count | 3", "9 expected \"::\""},
      {"count >", "7 expected a number up to 2147483647"},
      {"count > many", "8 expected a number up to 2147483647"},
      {"count > -1", "8 expected a number up to 2147483647"},
      {"count > 2147483648", "8 expected a number up to 2147483647"},
      {"source components 3", "18 expected \"=\", \"!=\", \"<\", \"<=\", \">\" or \">=\""},
      {"comment", "7 expected a text in quotes or a regular expression between slashes"},
      {"line red", "5 expected a text in quotes or a regular expression between slashes"},
      {"comment /a/x", "11 expected \"i\" or a blank after the regular expression"},
      {"comment /a", "8 this regular expression has no \"/\" at its end"},
      {"comment /a[b/", "10 the regular expression has an error: missing ]: [b"},
      {"名詞 x", "0 unknown condition \"名詞\"; trrule find --help lists them"},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(FaultOf(Row.Query), Row.Fault) << Row.Query;
  }
}

TEST(QueryParser, LimitsHowDeepQueriesAreNested) {
  const auto Nested = [](int Depth, const std::string& Open, const std::string& Close) {
    std::string Text = "crossing";
    for (int Count = 0; Count < Depth; ++Count) {
      Text.insert(0, Open).append(Close);
    }
    return Text;
  };
  EXPECT_EQ(Rewritten(Nested(Query::MaxQueryDepth, "(", ")")), "crossing");
  EXPECT_EQ(Rewritten(Nested(Query::MaxQueryDepth, "not ", "")),
            Nested(Query::MaxQueryDepth, "not ", ""));
  EXPECT_EQ(FaultOf(Nested(Query::MaxQueryDepth + 1, "(", ")")),
            "101 parentheses and negations are nested deeper than 100");
  EXPECT_EQ(FaultOf(Nested(100000, "not(", ")")),
            "203 parentheses and negations are nested deeper than 100");
  EXPECT_EQ(FaultOf(std::string(100000, '(')),
            "101 parentheses and negations are nested deeper than 100");
}
