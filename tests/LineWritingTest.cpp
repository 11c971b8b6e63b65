// The bytes of each kind of line.

#include "LineWriting.h"

#include "support/Samples.h"

#include <gtest/gtest.h>

#include <climits>
#include <string>
#include <vector>

using std::string_literals::operator""s;
using namespace std::string_view_literals;

namespace {

/// The text that a function appends to a non-empty text.
template <typename FunctionT, typename... ArgumentsT>
std::string Appended(FunctionT Function, const ArgumentsT&... Arguments) {
  const std::string Before = "before|";
  std::string Text = Before;
  Function(Text, Arguments...);
  EXPECT_EQ(Text.substr(0, Before.size()), Before);
  return Text.substr(Before.size());
}

}  // namespace

TEST(LineWriting, WritesHeaders) {
  using TrRuleInternal::AppendHeaderLine;
  EXPECT_EQ(Appended(AppendHeaderLine, "NP", 8), "{NP,8}\n");
  EXPECT_EQ(Appended(AppendHeaderLine, "", -1), "{,-1}\n");
  EXPECT_EQ(Appended(AppendHeaderLine, "N\0\xE9"sv, INT_MIN), "{N\0\xE9,-2147483648}\n"s);
}

TEST(LineWriting, WritesTheLinesOfTheExample) {
  using namespace TrRuleInternal;
  EXPECT_EQ(Appended(AppendWordsLine, ";;SL:", Strings{}), ";;SL:\n");
  EXPECT_EQ(Appended(AppendWordsLine, ";;SL:", Strings{"I", "SEE"}), ";;SL: I SEE\n");
  EXPECT_EQ(Appended(AppendWordsLine, "", Strings{"", "a b"}), "  a b\n");
  EXPECT_EQ(Appended(AppendScoreLine, 1), ";;Score:1\n");
  EXPECT_EQ(Appended(AppendScoreLine, INT_MAX), ";;Score:2147483647\n");
  EXPECT_EQ(Appended(AppendTextLine, ";;SL_alt:", "I SEE"), ";;SL_alt:I SEE\n");
  EXPECT_EQ(Appended(AppendTextLine, "", ""), "\n");
}

TEST(LineWriting, WritesMapsAndLists) {
  using namespace TrRuleInternal;
  const std::map<int, int> miiMap = {{0, 0}, {1, 2}, {-1, 10}};
  EXPECT_EQ(Appended(AppendMapLine, ";;M:", miiMap), ";;M:\t-1->10,\t0->0,\t1->2,\n");
  EXPECT_EQ(Appended(AppendMapLine, ";;M:", std::map<int, int>()), ";;M:\n");
  EXPECT_EQ(Appended(AppendListLine, ";;L:", Strings{"DET", "", "N"}), ";;L:\tDET\t\tN\n");
  EXPECT_EQ(Appended(AppendListLine, ";;L:", Strings{}), ";;L:\n");
  EXPECT_EQ(Appended(AppendLabelsLine, Strings{"DET", "", "N"}), ";DET  N \n");
  EXPECT_EQ(Appended(AppendLabelsLine, Strings{}), ";\n");
}

TEST(LineWriting, WritesRuleLines) {
  using namespace TrRuleInternal;
  EXPECT_EQ(Appended(AppendRuleLine, "NP", "VP", Strings{"DET", "N"}, Strings{"N"}),
            "NP::VP [DET N] -> [N]");
  EXPECT_EQ(Appended(AppendRuleLine, "", "", Strings{}, Strings{}), ":: [] -> []");
  EXPECT_EQ(Appended(AppendRuleLine, "\0"sv, "\xE9", Strings{"", ""}, Strings{"]"}),
            "\0::\xE9 [ ] -> []]"s);
  EXPECT_EQ(Appended(AppendJoined, Strings{"a", "", "b"}), "a  b");
}

TEST(LineWriting, WritesAlignments) {
  using TrRuleInternal::AppendAlignmentLine;
  EXPECT_EQ(Appended(AppendAlignmentLine, "2", "3", false), "(X2::Y3)");
  EXPECT_EQ(Appended(AppendAlignmentLine, "2", "3", true), ";--;(X2::Y3)");
  EXPECT_EQ(Appended(AppendAlignmentLine, "", " 03\n", false), "(X::Y 03\n)");
}

TEST(LineWriting, WritesConstraints) {
  struct Case {
    TrRuleInternal::ConstraintView Fields;
    std::string Expected;
  };
  const Case Cases[] = {
      {{1, 0, "DET", "X1", true}, "((X0 DET) = X1)"},
      {{4, 1, "NUM", "(*OR* SG PL)", true}, "((Y1 NUM) = (*OR* SG PL))"},
      {{4, 1, "NUM", "(*NOT* SG", true}, "((Y1 NUM) = (*NOT* SG)"},
      {{1, 0, "all", "X3", false}, "(X0 = X3)"},
      {{1, 0, "all", "X3", true}, "((X0 all) = X3)"},
      {{4, 1, "all", "(Y0 DET", false}, "(Y1 = (Y0 DET)"},
      {{4, 3, "AGR", "(Y2", false}, "((Y3 AGR) = (Y2 AGR))"},
      {{2, 3, "AGR", "(X2", false}, "((Y3 AGR) = (X2 AGR))"},
      {{3, 0, "ALL", "X0", false}, "((Y0 ALL) = X0 ALL))"},
      {{-1, -1, "", "", true}, "((Y-1 ) = )"},
      {{-1, -1, "", "", false}, "((Y-1 ) =  ))"},
      {{1, INT_MAX, "\0"sv, "\xE9", true}, "((X2147483647 \0) = \xE9)"s},
  };
  for (const Case& Row : Cases) {
    EXPECT_EQ(Appended(TrRuleInternal::AppendConstraint, Row.Fields), Row.Expected);
  }
}
