#include "RuleQuery.h"

#include "QuerySupport.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const char* const Phrase =
    ";;SL: the red car\n"
    ";; Score:12\n"
    "{NP,8} ;; of learners\n"
    "np::NP : [\"the\" ADJ N] -> [\"el\" N ADJ]\n"
    "(\n"
    "(X2::Y3)\n"
    "(X3::Y2)\n"
    "(x0 = x3)\n"
    "((y2 num) = (x3 num))\n"
    "((y2 def) = +)\n"
    ")\n";

}  // namespace

TEST(RuleQuery, AnswersEachCondition) {
  const struct {
    std::string Query;
    bool IsFit;
  } Cases[] = {
      {"[ADJ N]", true},
      {"[N ADJ]", true},
      {"source [ADJ N]", true},
      {"source [N ADJ]", false},
      {"target [ADJ N]", false},
      {"target [\"el\" N]", true},
      {"NP::NP", true},
      {"*::np|VP", true},
      {"VP::NP", false},
      {"NP::VP", false},
      {"crossing", true},
      {"monotone", false},
      {"unaligned", true},
      {"1:1", true},
      {"1:n", false},
      {"n:1", false},
      {"n:n", false},
      {"x0 = x3", true},
      {"passes num", true},
      {"y:def = + and y:num = *", true},
      {"y:def = -", false},
      {"count = 12", true},
      {"count != 12", false},
      {"count < 12", false},
      {"count <= 12", true},
      {"count > 12", false},
      {"count >= 12", true},
      {"components = 6", true},
      {"source components = 3 and target components = 3", true},
      {"alignments = 2", true},
      {"constraints = 3", true},
      {"comments = 3", true},
      {"comment \"red car\"", true},
      {"comment \"Red\"", false},
      {"comment /^SL: the/", true},
      {"comment /^of LEARNERS$/i", true},
      {"comment /NP/", false},
      {"line /NP,8/", true},
      {"line \"X3::Y2\"", true},
      {"line /^;;SL/", true},
      {"line /^the/", false},
      {"not crossing", false},
      {"crossing and monotone", false},
      {"crossing or monotone", true},
      {"monotone or not 1:n and crossing", true},
      {"not (crossing and unaligned)", false},
  };
  const ReadRuleText Rule(Phrase);
  ASSERT_TRUE(Rule.Rule().IsWhole());
  for (const auto& Row : Cases) {
    EXPECT_EQ(Query::Fits(TreeOf(Row.Query), Rule.Rule()), Row.IsFit) << Row.Query;
  }
}
