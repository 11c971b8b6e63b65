#include "ConstraintPattern.h"

#include "QuerySupport.h"

#include <gtest/gtest.h>

#include <string>
#include <variant>

namespace {

/// Whether a pattern fits the one constraint of a rule.
bool Fits(const std::string& Pattern, const std::string& Constraint) {
  const ReadRuleText Rule("NP::NP : [A B] -> [C D]\n(X1::Y1)\n" + Constraint + "\n");
  EXPECT_EQ(Rule.Rule().Constraints().size(), 1U) << Constraint;
  return Query::Fits(TreeOf(Pattern), Rule.Rule());
}

}  // namespace

TEST(ConstraintPattern, FitsWhatItSays) {
  const struct {
    std::string Pattern;
    std::string Constraint;
    bool IsFit;
  } Cases[] = {
      // Nodes and features of the left side.
      {"x1:num = *", "((x1 num) = sg)", true},
      {"X1:NUM = *", "((x1 num) = sg)", true},
      {"x:num = *", "((x1 num) = sg)", true},
      {"*:num = *", "((x1 num) = sg)", true},
      {"y:num = *", "((x1 num) = sg)", false},
      {"x2:num = *", "((x1 num) = sg)", false},
      {"x01:num = *", "((x1 num) = sg)", true},
      {"x1:gen = *", "((x1 num) = sg)", false},
      {"x1 = *", "((x1 num) = sg)", false},
      {"x1:* = *", "((x1 num) = sg)", true},
      {"x0 = *", "(x0 = x2)", true},
      {"x0:* = *", "(x0 = x2)", true},
      {"x0:? = *", "(x0 = x2)", false},
      // What is on the right is named as well.
      {"y2:num = *", "((x1 num) = (y2 num))", true},
      {"y2:gen = *", "((x1 num) = (y2 num))", false},
      {"x2 = *", "(x0 = x2)", true},
      // Paths, in either order.
      {"x0 = x2", "(x0 = x2)", true},
      {"x2 = x0", "(x0 = x2)", true},
      {"x0 = x0", "(x0 = x2)", false},
      {"x = x", "(x0 = x2)", true},
      {"x = y", "(x0 = x2)", false},
      {"x:num = y:num", "((y2 num) = (x1 num))", true},
      {"x:num = y:gen", "((y2 num) = (x1 num))", false},
      {"x:num = y:gen", "((y2 gen) = (x1 num))", true},
      {"x:num = *:*", "((x1 num) = (x2 agr num))", true},
      {"x:num = *:*", "((x1 num) = sg)", false},
      {"x1:num = x2", "((x1 num) = x2)", true},
      {"x1:num = y:agr:num", "((x1 num) = (y2 agr num))", true},
      // Values.
      {"x1:num = sg", "((x1 num) = sg)", true},
      {"x1:num = SG", "((x1 num) = sg)", true},
      {"x1:num = pl", "((x1 num) = sg)", false},
      {"x1:num = pl|sg", "((x1 num) = sg)", true},
      {"x1:num = ?", "((x1 num) = sg)", true},
      {"x1:num = ?", "((x1 num) = (x2 num))", false},
      {"x1:num = sg", "((x1 num) = (x2 num))", false},
      {"x1:num = \\x2", "((x1 num) = x2)", false},
      {"x1:num = sg", "((x1 num) = (*OR* pl sg))", true},
      {"x1:num = sg", "((x1 num) = (*NOT* pl sg))", false},
      {"x1:num = du|sg", "((x1 num) = (*OR* pl sg))", true},
      {"x1:num = ?", "((x1 num) = (*OR* pl sg))", true},
      {"x1:num = sg\\ pl", "((x1 num) = sg pl)", true},
      {"x1:def = +", "((x1 def) = +)", true},
      // Lists.
      {"x1:num = *or*", "((x1 num) = (*OR* pl sg))", true},
      {"x1:num = *or* sg pl", "((x1 num) = (*OR* pl sg))", true},
      {"x1:num = *or* sg du", "((x1 num) = (*OR* pl sg))", false},
      {"x1:num = *or* du|sg", "((x1 num) = (*OR* pl sg))", true},
      {"x1:num = *or*", "((x1 num) = sg)", false},
      {"x1:num = *or*", "((x1 num) = (*NOT* pl sg))", false},
      {"x1:num = *NOT*", "((x1 num) = (*NOT* pl sg))", true},
      {"x1:num = *not* pl", "((x1 num) = (*NOT* pl sg))", true},
      {"x1:num = *not* du", "((x1 num) = (*NOT* pl sg))", false},
      {"x1:num = *not*", "((x1 num) = (*OR* pl sg))", false},
      {"x1:num = *", "((x1 num) = (*NOT* pl sg))", true},
      // What passes from side to side.
      {"passes num", "((y2 num) = (x1 num))", true},
      {"passes num", "((x1 num) = (y2 gen))", true},
      {"passes gen", "((x1 num) = (y2 gen))", true},
      {"passes per", "((x1 num) = (y2 gen))", false},
      {"passes num", "((x1 num) = (x2 num))", false},
      {"passes num", "((y1 num) = sg)", false},
      {"passes agr:*", "((y1 agr gen) = (x2 gen))", true},
      {"passes *", "(y0 = x0)", true},
      {"passes ?", "(y0 = x0)", false},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(Fits(Row.Pattern, Row.Constraint), Row.IsFit) << Row.Pattern << ' ' << Row.Constraint;
  }
}
