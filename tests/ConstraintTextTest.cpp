// Pins the common form of constraint texts: which texts are in it, what it is taken apart into, and
// that what a record keeps of it is what the lenient rules give.

#include "ConstraintText.h"

#include "support/SlowTwins.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using std::string_literals::operator""s;
using TrRuleInternal::ConstraintFields;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::FieldsOfCommonForm;
using TrRuleInternal::ParseCommonForm;

namespace {

/// The fields in their order: category, index, feature, value, kind.
std::string FieldsOf(const Constraint& Record) {
  return std::to_string(Record.GetCategory()) + '|' + std::to_string(Record.GetConstrainedIndex()) +
         '|' + Record.GetFeature() + '|' + Record.GetFeatValue() + '|' +
         (Record.IsValueConstraint() ? "value" : "agreement");
}

std::string FieldsOf(const ConstraintFields& Fields) {
  return FieldsOf(Constraint(Fields.Category, Fields.ConstrainedIndex, Fields.Feature,
                             Fields.FeatValue, 0, Fields.ValueConstraint));
}

}  // namespace

TEST(ConstraintText, ReadsTheCommonFormAsTheLenientRulesDo) {
  const std::string Word = "+-_0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (const std::string& sText :
       {"(x0 = x3)"s, "(Y0 = X0)"s, "(x12 == y345678901)"s, "(y1 == (y0 det))"s, "((x0 det) = x1)"s,
        "((y1 num) = sg)"s, "((x1 tense) = +)"s, "((y3 agr) = (y2 agr))"s, "((y0 agr) = (x2 agr))"s,
        "((x1 num) = (*OR* sg pl))"s, "((X1 NUM) = (*NOT* SG))"s, "((x1 num) = (*or* sg ))"s,
        "((x1 " + Word + ") = " + Word + ")", "((x1 num) = (y1 " + Word + "))",
        "((x1 num) = (*OR* " + Word + "))"}) {
    ConstraintParts Parts;
    ASSERT_TRUE(ParseCommonForm(sText, Parts)) << sText;
    EXPECT_EQ(FieldsOf(FieldsOfCommonForm(Parts)), FieldsOf(Slow::Read(sText).Record)) << sText;
  }
}

TEST(ConstraintText, LeavesTheRestToTheLenientRules) {
  for (const std::string_view Text : {"",
                                      "(",
                                      "((",
                                      "x1 = x2",
                                      "(x = x1)",
                                      "(z1 = x1)",
                                      "(x1",
                                      "(x1 = x)",
                                      "(x1 = sg)",
                                      "(x1 = x2",
                                      "(x1 = x2))",
                                      "(x1=x2)",
                                      "(x1 === x2)",
                                      "(x1 = (*OR* sg))",
                                      "(x1 = (y2))",
                                      "(x9999999999 = x1)",
                                      "((x num) = sg)",
                                      "((x1num) = sg)",
                                      "((x1 num)= sg)",
                                      "((x1 num) =sg)",
                                      "((x1 num) == sg)",
                                      "((x1 ) = sg)",
                                      "((x1 num) = )",
                                      "((x1 num) = sg",
                                      "((x1 num) = sg))",
                                      "((x1 num) = (y2))",
                                      "((x1 num) = (y2 ))",
                                      "((x1 num) = (y2 num)",
                                      "((x1 num) = (z2 num))",
                                      "((x1 num) = (sg))",
                                      "((x1 num) = (*OR* sg)",
                                      "((x1 num) = (*OR* ))",
                                      "((x1 num) = (*OR*sg))",
                                      "((x1 num) = (*XOR* sg))",
                                      "((x1 num) = (*NOT* *OR* sg))",
                                      "((x1 num) = (* sg ** pl *))",
                                      "((x1 num) = (*OR* s.g))",
                                      "((y3 agr gen) = sg)",
                                      "((x1 n\xE9) = sg)",
                                      "((x1 num) = s.g)"}) {
    ConstraintParts Parts;
    EXPECT_FALSE(ParseCommonForm(Text, Parts)) << Text;
  }
}
