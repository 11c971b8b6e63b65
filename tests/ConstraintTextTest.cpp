// The common form of constraint texts: which texts are in it, their parts, and that the stored
// fields are those of the lenient rules.

#include "ConstraintText.h"

#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using std::string_literals::operator""s;
using TrRuleInternal::AgreedIndexIn;
using TrRuleInternal::ConstraintFields;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::FieldsOfCommonForm;
using TrRuleInternal::NodeText;
using TrRuleInternal::ParseCommonForm;
using TrRuleInternal::ReadConstraint;
using TrRuleInternal::RightKind;

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

std::string NameOf(RightKind Kind) {
  switch (Kind) {
    case RightKind::Node:
      return "node";
    case RightKind::Reference:
      return "reference";
    case RightKind::Value:
      return "value";
    case RightKind::Or:
      return "or";
    case RightKind::Not:
      return "not";
  }
  return "";
}

/// Checks that side and number of a node match its text, and returns the text.
std::string TextOf(const NodeText& Node) {
  const std::string Text(Node.Text);
  EXPECT_EQ(Reference::Upper(Text.substr(0, 1)), std::string(1, Node.Side)) << Text;
  EXPECT_EQ(Node.Index, std::atoi(Text.substr(1).c_str())) << Text;
  return Text;
}

/// The parts in the order of `Reference::ConstraintParts`, parsed into an object that has held
/// other parts before.
std::optional<Strings> PartsOf(const std::string& Text) {
  ConstraintParts Parts;
  ParseCommonForm("((y9 before) = (y8 before))", Parts);
  if (!ParseCommonForm(Text, Parts)) {
    return std::nullopt;
  }
  EXPECT_EQ(Parts.IsWholeNode, Parts.Feature.empty()) << Text;
  return Strings{TextOf(Parts.Left),
                 std::string(Parts.Feature),
                 std::string(Parts.Equals),
                 NameOf(Parts.Kind),
                 std::string(Parts.Right),
                 Parts.RightNode ? TextOf(*Parts.RightNode) : "",
                 std::string(Parts.RightFeature),
                 std::string(Parts.Value)};
}

const std::string ConstraintBytes = "()=* xyXY0129-\t\r_orOR\0\xE9"s;

}  // namespace

TEST(ConstraintText, ParsesTheCommonForm) {
  const std::pair<std::string, Strings> Cases[] = {
      {"(x0 = x3)", {"x0", "", "=", "node", "x3", "x3", "", "x3"}},
      {"(Y0 == X10)", {"Y0", "", "==", "node", "X10", "X10", "", "X10"}},
      {"(y1 == (y0 det))", {"y1", "", "==", "reference", "(y0 det)", "y0", "det", ""}},
      {"((x0 det) = x1)", {"x0", "det", "=", "value", "x1", "x1", "", "x1"}},
      {"((y1 num) = sg)", {"y1", "num", "=", "value", "sg", "", "", "sg"}},
      {"((y1 agr gen) = (y2 a b))",
       {"y1", "agr gen", "=", "reference", "(y2 a b)", "y2", "a b", ""}},
      {"((y1 num) = x1a)", {"y1", "num", "=", "value", "x1a", "", "", "x1a"}},
      {"((y1 num) = (y2 gen))", {"y1", "num", "=", "reference", "(y2 gen)", "y2", "gen", ""}},
      {"((x1 num) = (*OR* sg pl))", {"x1", "num", "=", "or", "(*OR* sg pl)", "", "", "sg pl"}},
      {"((x1 num) = (*or*  a  b ))", {"x1", "num", "=", "or", "(*or*  a  b )", "", "", " a  b"}},
      {"((x1 num) = (*Not* sg))", {"x1", "num", "=", "not", "(*Not* sg)", "", "", "sg"}},
      {"((x01 +-_9) = x1234567890)",
       {"x01", "+-_9", "=", "value", "x1234567890", "", "", "x1234567890"}},
  };
  for (const auto& [Text, vsExpected] : Cases) {
    EXPECT_EQ(PartsOf(Text), std::optional(vsExpected)) << Text;
    EXPECT_EQ(Reference::ConstraintParts(Text), std::optional(vsExpected)) << Text;
  }
}

TEST(ConstraintText, ReturnsViewsOfTheText) {
  const std::string Text = "((x1 num) = (y2 gen))";
  ConstraintParts Parts;
  ASSERT_TRUE(ParseCommonForm(Text, Parts));
  EXPECT_EQ(Parts.Left.Text.data(), Text.data() + 2);
  EXPECT_EQ(Parts.Feature.data(), Text.data() + 5);
  EXPECT_EQ(Parts.Equals.data(), Text.data() + 10);
  EXPECT_EQ(Parts.Right.data(), Text.data() + 12);
  EXPECT_EQ(Parts.RightNode->Text.data(), Text.data() + 13);
  EXPECT_EQ(Parts.RightFeature.data(), Text.data() + 16);
}

TEST(ConstraintText, ParsesEveryPrefixLikeTheReference) {
  for (const std::string& sSample : ConstraintSamples) {
    for (std::size_t Size = 0; Size <= sSample.size(); ++Size) {
      const std::string Prefix = sSample.substr(0, Size);
      EXPECT_EQ(PartsOf(Prefix), Reference::ConstraintParts(Prefix)) << Prefix;
    }
  }
}

TEST(ConstraintText, ParsesRandomTextsLikeTheReference) {
  RandomInput Random;
  const Strings vsWords = {"((x1 ", "(y0",  " ",      "num",     ") = ", " = ", "==",
                           "x3",    "(y2 ", "(*OR* ", "(*not* ", "sg",   ")",   "))"};
  int Taken = 0;
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Text = Case % 2 == 0
                                 ? Random.Damaged(Random.Pick(ConstraintSamples), ConstraintBytes)
                                 : Random.WordsOf(vsWords, 7);
    const std::optional<Strings> vsExpected = Reference::ConstraintParts(Text);
    ASSERT_EQ(PartsOf(Text), vsExpected) << Text;
    if (vsExpected) {
      ConstraintParts Parts;
      ParseCommonForm(Text, Parts);
      ASSERT_EQ(FieldsOf(FieldsOfCommonForm(Parts)), FieldsOf(Reference::Read(Text).Record))
          << Text;
      ++Taken;
    }
  }
  EXPECT_GT(Taken, 1000);
}

TEST(ConstraintText, WritesNamesAsOneWord) {
  const std::pair<std::string, std::string> Cases[] = {
      {"", ""},
      {"num", "NUM"},
      {"agr gen", "AGRGEN"},
      {"(y0 det", "(Y0 DET"},
      {"a1 b c", "A1 BC"},
      {"a 1 b", "A1 B"},
      {"a b c 2 d", "ABC2 D"},
  };
  for (const auto& [Name, Expected] : Cases) {
    std::string Text = "ab " + Name + " cd";
    EXPECT_EQ(TrRuleInternal::WriteName(Text, 3, Name.size()), Expected.size());
    EXPECT_EQ(Text, "ab " + Expected + " cd");
  }
}

TEST(ConstraintText, LeavesTheFieldsUnchangedOnAnUnreadableText) {
  const std::pair<std::string, bool> Cases[] = {
      {"", false},
      {"x", false},
      {"=", false},
      {")=", false},
      {"(x1 = x2 = x3)", false},
      {"((x1 num)= ", false},
      {"x1= =", true},
  };
  for (const auto& [Text, IsInFormat] : Cases) {
    ConstraintFields Fields{7, 8, "FEATURE", "VALUE", true};
    EXPECT_EQ(ReadConstraint(Text, Fields), IsInFormat) << Text;
    EXPECT_EQ(FieldsOf(Fields), "7|8|FEATURE|VALUE|value") << Text;
  }
}

TEST(ConstraintText, FindsTheIndexThatAValueRefersTo) {
  const std::pair<std::string, int> Cases[] = {
      {"", -1},
      {"SG", -1},
      {"X3", 3},
      {"(Y2", 2},
      {"(Y0 DET", 0},
      {"X", -1},
      {"X3Y", -1},
      {"X1 Y12", 12},
      {"x3", -1},
      {"XA", 0},
      {"Y-3", -3},
      {"NEXT", 0},
      {"X 4", 4},
      {"X2147483648", -2147483647 - 1},
      {"X" + std::string(999, '0') + "7", 7},
      {"X" + std::string(1000, '0') + "7", 0},
  };
  for (const auto& [Value, Expected] : Cases) {
    EXPECT_EQ(AgreedIndexIn(Value), Expected) << Value;
  }
}

TEST(ConstraintText, ReadsTheCommonFormLikeTheLenientRules) {
  const std::string Word = "+-_0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
  for (const std::string& sText :
       {"(x0 = x3)"s, "(Y0 = X0)"s, "(x12 == y345678901)"s, "(y1 == (y0 det))"s, "((x0 det) = x1)"s,
        "((y1 num) = sg)"s, "((x1 tense) = +)"s, "((y3 agr) = (y2 agr))"s, "((y0 agr) = (x2 agr))"s,
        "((x1 num) = (*OR* sg pl))"s, "((X1 NUM) = (*NOT* SG))"s, "((x1 num) = (*or* sg ))"s,
        "((y3 agr gen) = (y2 agr gen))"s, "((x1 p1 p2 a b) = sg)"s, "(y1 == (y0 p1 p2 a b))"s,
        "(x1 = (y2 a 1))"s, "((x1 " + Word + ") = " + Word + ")", "((x1 num) = (y1 " + Word + "))",
        "((x1 num) = (*OR* " + Word + "))"}) {
    ConstraintParts Parts;
    ASSERT_TRUE(ParseCommonForm(sText, Parts)) << sText;
    EXPECT_EQ(FieldsOf(FieldsOfCommonForm(Parts)), FieldsOf(Reference::Read(sText).Record))
        << sText;
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
                                      "((y3 agr  gen) = sg)",
                                      "((y3 agr ) = sg)",
                                      "((y3  agr) = sg)",
                                      "(y3 = (y2 agr ))",
                                      "((x1 n\xE9) = sg)",
                                      "((x1 num) = s.g)"}) {
    ConstraintParts Parts;
    EXPECT_FALSE(ParseCommonForm(Text, Parts)) << Text;
  }
}
