// The format of constraint texts: what is parsed, and where other texts depart from it.

#include "ConstraintFormat.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

using TrRuleInternal::ConstraintStop;
using TrRuleInternal::ForLibrary;
using TrRuleInternal::IsMistakenForValue;
using TrRuleInternal::ParseConstraint;

namespace {

/// A constraint as "whole? left feature equals kind right node feature value".
std::string Described(const std::string& Text) {
  ConstraintStop Stop;
  const auto Parts = ParseConstraint(Text, Stop);
  if (!Parts) {
    return "stopped at " + std::to_string(Stop.Place);
  }
  std::string Line = Parts->IsWholeNode ? "whole " : "";
  Line.append(1, Parts->Left.Side).append(std::to_string(Parts->Left.Index));
  Line.append(" [").append(Parts->Feature).append("] ").append(Parts->Equals);
  Line += " kind " + std::to_string(static_cast<int>(Parts->Kind));
  Line.append(" [").append(Parts->Right).append("]");
  if (Parts->RightNode) {
    Line.append(" -> ").append(1, Parts->RightNode->Side);
    Line.append(std::to_string(Parts->RightNode->Index));
  }
  Line.append(" [").append(Parts->RightFeature).append("] [").append(Parts->Value).append("]");
  return Line;
}

}  // namespace

TEST(ConstraintFormat, IsParsed) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"(x0 = x3)", "whole X0 [] = kind 0 [x3] -> X3 [] [x3]"},
      {"(Y1==(y0 det))", "whole Y1 [] == kind 1 [(y0 det)] -> Y0 [det] []"},
      {"(Y1 = (Y0 DET)", "whole Y1 [] = kind 1 [(Y0 DET)] -> Y0 [DET] []"},
      {"((y3 agr gen) = (y2 agr))", "Y3 [agr gen] = kind 1 [(y2 agr)] -> Y2 [agr] []"},
      {" ( ( y3  num ) = sg ) ", "Y3 [num] = kind 2 [sg] [] [sg]"},
      {"((x0 det) = x1)", "X0 [det] = kind 2 [x1] -> X1 [] [x1]"},
      {"((x1 n) = (*or* a b))", "X1 [n] = kind 3 [(*or* a b)] [] [a b]"},
      {"((x1 n) = (*NOT* a))", "X1 [n] = kind 4 [(*NOT* a)] [] [a]"},
      {"((x1 n) = (*NOT* a)", "X1 [n] = kind 4 [(*NOT* a)] [] [a]"},
      {"((x1 n) = (*OR* a (*NOT* b))", "X1 [n] = kind 3 [(*OR* a (*NOT* b)] [] [a (*NOT* b]"},
      {"(y2 = y0)))", "whole Y2 [] = kind 0 [y0] -> Y0 [] [y0]"},
      {"(x0 = n)", "whole X0 [] = kind 2 [n] [] [n]"},
      {"(x0 = x1b)", "whole X0 [] = kind 2 [x1b] [] [x1b]"}};
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Described(sText), sExpected) << sText;
  }
}

TEST(ConstraintFormat, ReportsWhereItDepartsFromTheFormat) {
  const std::vector<std::pair<std::string, std::size_t>> Cases{{"", 0},
                                                               {"x0 = x1", 0},
                                                               {"(z0 = x1)", 1},
                                                               {"(x = x1)", 1},
                                                               {"((x0) = a)", 4},
                                                               {"((x0 num = a)", 9},
                                                               {"(x0 x1)", 4},
                                                               {"(x0 = )", 6},
                                                               {"((x0 num) = sg", 14},
                                                               {"((x0 *num) = sg)", 9},
                                                               {"((x0 num) = (a b))", 13},
                                                               {"((x0 num) = (*OR*))", 17},
                                                               {"((x0 num) = a = b)", 14},
                                                               {"((x0 num) = a(b)", 13},
                                                               {"((x0 n(m) = a)", 6},
                                                               {"(x0 = x1) a", 10},
                                                               {"1. (x0 = x1)", 0}};
  for (const auto& [sText, Stopped] : Cases) {
    EXPECT_EQ(Described(sText), "stopped at " + std::to_string(Stopped)) << sText;
  }
}

TEST(ConstraintFormat, TakesNoBlankBeforeAListOrANode) {
  EXPECT_EQ(Described("((x0 num) = ( *OR* a))"), "stopped at 13");
  EXPECT_EQ(Described("((x0 num) = (x1))"), "stopped at 13");
}

TEST(ConstraintFormat, KnowsWhichReferencesTheLibraryMistakesForValues) {
  const std::pair<std::string, std::string> Cases[] = {
      {"((x0 num) = (x1 num))", ""},
      {"((x0 num) == (x1 num))", "((x0 num) = (x1 num))"},
      {"((x0 num) == sg)", ""},
      {"(y1 == (y0 det))", ""},
  };
  for (const auto& [sText, sForLibrary] : Cases) {
    ConstraintStop Stop;
    const auto Parts = ParseConstraint(sText, Stop);
    ASSERT_TRUE(Parts) << sText;
    EXPECT_EQ(IsMistakenForValue(*Parts), !sForLibrary.empty()) << sText;
    EXPECT_EQ(ForLibrary(sText, *Parts), sForLibrary.empty() ? sText : sForLibrary);
  }
}

TEST(ConstraintFormat, ReportsWhatIsExpectedThere) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"x0 = x1", "\"(\""},
      {"(z0 = x1)", "a node such as x1 or y2"},
      {"((x0) = a)", "a blank and a feature"},
      {"((x0 num = a)", "\")\""},
      {"(x0 x1)", "\"=\""},
      {"(x0 = )", "a value or a node"},
      {"((x0 num) = sg", "\")\""},
      {"((x0 num) = a(b)", "\")\""},
      {"((x0 n(m) = a)", "\")\""},
      {"((x0 num) = (a b))", "a node and a feature, or *OR* or *NOT* and words"},
      {"((x0 num) = (*OR*))", "a blank and words"},
      {"((x0 num) = (*OR* a = b))", "\")\""},
      {"(x0 = x1) a", "the end"}};
  for (const auto& [sText, sExpected] : Cases) {
    ConstraintStop Stop;
    EXPECT_FALSE(ParseConstraint(sText, Stop)) << sText;
    EXPECT_EQ(Stop.Expected, sExpected) << sText;
  }
}
