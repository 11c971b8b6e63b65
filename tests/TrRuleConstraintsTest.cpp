// The constraints of a rule: their keys and order, merging the values of a feature, the forms of
// SetConstraint, queries and erasing, including the call that waits forever.

#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/HaltGuard.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <climits>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <typeinfo>
#include <utility>
#include <vector>

using std::string_literals::operator""s;

namespace {

const Written Nothing;

/// The keys in order. Erasing nothing lists them at level 1.
Strings Keys(TrRule& Rule) {
  const DebugLevel Debug(1);
  std::istringstream Listing(WrittenBy([&] { Rule.EraseConstraint(0, "", "", "", {}); }).Out);
  const std::string Start = "Constraint:";
  Strings vsKeys;
  for (std::string Line; std::getline(Listing, Line) && Line != "Constraints map after erasing:";) {
    if (Line.compare(0, Start.size(), Start) == 0) {
      vsKeys.push_back(Line.substr(Start.size()));
    }
  }
  return vsKeys;
}

std::string Fields(const Constraint& Record) {
  return std::to_string(Record.GetCategory()) + '|' + std::to_string(Record.GetConstrainedIndex()) +
         '|' + Record.GetFeature() + '|' + Record.GetFeatValue() + '|' +
         std::to_string(Record.GetRankInCategory()) + '|' +
         (Record.IsValueConstraint() ? "value" : "agreement");
}

/// All fields of the constraints, in the order of their texts.
Strings Records(const TrRule& Rule) {
  Strings vsRecords;
  for (const Constraint& Record : Rule.GetConstraintsAsSetC()) {
    vsRecords.push_back(Fields(Record));
  }
  return vsRecords;
}

std::string Merging(const std::string& Old, const std::string& New, const std::string& Key) {
  return "OldFeat:|" + Old + "|\nInsertFeat:|" + New + "|\nNewKey is now:" + Key + '\n';
}

std::string PieceCountError(const std::string& Text) {
  return "ERROR in TrRule::SetConstraint: Constraint does not have correct format:" + Text + '\n';
}

std::string IncorrectFormat(const std::string& Text) {
  return "Constraint was not in correct format:" + Text + '\n';
}

/// The sample rule's constraints, without the rest of it.
TrRule Sample() {
  TrRule Rule;
  for (const char* Text : {"((x0 det) = x1)", "((x0 mod) = x2)", "(x0 = x3)", "(y0 = x0)",
                           "(y1 == (y0 det))", "(y3 == (y0 mod))", "(y2 = y0))"}) {
    Rule.SetConstraint(Text);
  }
  return Rule;
}

/// One constraint of each category, two of other categories, and a repeated text.
TrRule Mixed() {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "SG", 41, true);
  Rule.SetConstraint(2, 1, "NUM", "SG", 21, true);
  Rule.SetConstraint(1, 1, "NUM", "SG", 11, true);
  Rule.SetConstraint(3, 0, "all", "X0", 31, false);
  Rule.SetConstraint(5, 7, "NUM", "PL", 51, true);
  Rule.SetConstraint(-1, 7, "GEN", "M", 61, true);
  return Rule;
}

}  // namespace

// ---- Keys -------------------------------------------------------------------------------------

TEST(TrRuleConstraints, AreEmptyInANewRule) {
  TrRule Rule;
  EXPECT_EQ(Rule.GetNumConstraints(), 0);
  EXPECT_EQ(Keys(Rule), Strings{});
  EXPECT_EQ(Rule.GetConstraints(), Strings{});
  EXPECT_EQ(Rule.GetConstraints(5), Strings{});
  EXPECT_TRUE(Rule.GetConstraintsAsSet().empty());
  EXPECT_TRUE(Rule.GetConstraintsAsSet(1).empty());
  EXPECT_TRUE(Rule.GetConstraintsAsSetC().empty());
  EXPECT_TRUE(Rule.GetConstraintsAsSetC(1).empty());
  EXPECT_TRUE(Rule.GetConstraintsForInd(0, {1, 2, 3, 4}).empty());
}

TEST(TrRuleConstraints, HaveKeysOfCategoryIndexFeatureAndValue) {
  TrRule Rule = Sample();
  EXPECT_EQ(Keys(Rule), (Strings{"1__0__DET__X1", "1__0__MOD__X2", "1__0__all__X3", "3__0__all__X0",
                                 "4__1__all__(Y0 DET", "4__2__all__Y0", "4__3__all__(Y0 MOD"}));
  EXPECT_EQ(Rule.GetNumConstraints(), 7);
}

TEST(TrRuleConstraints, SortByKeyByteByByte) {
  TrRule Rule;
  for (const int Index : {2, 10, -1, 1, INT_MAX, INT_MIN}) {
    Rule.SetConstraint(4, Index, "NUM", "SG", 0, true);
  }
  for (const char* Feature : {"\xE9", "num", "", "Z"}) {
    Rule.SetConstraint(-2, 0, Feature, "SG", 0, false);
  }
  EXPECT_EQ(Keys(Rule), (Strings{"-2__0__Z__SG", "-2__0____SG", "-2__0__num__SG", "-2__0__\xE9__SG",
                                 "4__-1__NUM__SG", "4__-2147483648__NUM__SG", "4__10__NUM__SG",
                                 "4__1__NUM__SG", "4__2147483647__NUM__SG", "4__2__NUM__SG"}));
}

TEST(TrRuleConstraints, KeepAnExistingKey) {
  const Constraint First(4, 1, "NUM", "SG", 1, true);
  for (const bool IsValue : {true, false}) {
    const Constraint Again(4, 1, "NUM", "SG", 2, IsValue);
    ASSERT_NE(Fields(Again), Fields(First));
    TrRule Rule;
    EXPECT_TRUE(Rule.InsertConstraintIntoMap(First));
    EXPECT_EQ(WrittenBy([&] { EXPECT_FALSE(Rule.InsertConstraintIntoMap(Again)); }), Nothing);
    EXPECT_EQ(Rule.GetNumConstraints(), 1);
    EXPECT_EQ(Records(Rule), Strings{Fields(First)});
  }
}

TEST(TrRuleConstraints, IgnoreARepeatedText) {
  for (const char* Text : {"((x1 num) = sg)", "(x0 = x3)"}) {
    TrRule Rule;
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(Text); }), Nothing);
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(Text); }), Nothing);
    EXPECT_EQ(Rule.GetNumConstraints(), 1);
  }
}

TEST(TrRuleConstraints, InsertATextAsAConstraint) {
  TrRule Rule;
  EXPECT_TRUE(Rule.InsertConstraintIntoMap(std::string("(x0 = x3)")));
  EXPECT_FALSE(Rule.InsertConstraintIntoMap("(X0 = X3)"s));
  EXPECT_EQ(Records(Rule), (Strings{"1|0|all|X3|-1|agreement"}));
}

// ---- Merging ----------------------------------------------------------------------------------

TEST(TrRuleConstraints, MergeASecondValueIntoADisjunction) {
  for (const int Level : {0, 1, 2, 3, 4}) {
    SCOPED_TRACE(Level);
    const DebugLevel Debug(Level);
    TrRule Rule;
    Rule.SetConstraint("((x1 num) = sg)");
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint("((x1 num) = pl)"); }),
              (Written{Merging("SG", "PL", "1__1__NUM__(*OR* SG PL)"), ""}));
    EXPECT_EQ(Keys(Rule), Strings{"1__1__NUM__(*OR* SG PL)"});
    EXPECT_EQ(Rule.GetConstraints(), Strings{"((X1 NUM) = (*OR* SG PL))"});
  }
}

TEST(TrRuleConstraints, MergeAContainedValueToTheSameKey) {
  TrRule Rule;
  const Written Streams = WrittenBy([&] {
    for (const char* Text : {"((y1 num) = sg)", "((y1 num) = pl)", "((y1 num) = sg)"}) {
      Rule.SetConstraint(Text);
    }
  });
  const std::string Key = "4__1__NUM__(*OR* SG PL)";
  EXPECT_EQ(Streams, (Written{Merging("SG", "PL", Key) + Merging("(*OR* SG PL)", "SG", Key), ""}));
  EXPECT_EQ(Keys(Rule), Strings{Key});
}

TEST(TrRuleConstraints, KeepTheNewConstraintWithTheMergedValue) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "SG", 1, true);
  const Written Streams = WrittenBy(
      [&] { EXPECT_TRUE(Rule.InsertConstraintIntoMap(Constraint(4, 1, "NUM", "PL", 2, true))); });
  EXPECT_EQ(Streams, (Written{Merging("SG", "PL", "4__1__NUM__(*OR* SG PL)"), ""}));
  EXPECT_EQ(Records(Rule), Strings{"4|1|NUM|(*OR* SG PL)|2|value"});
  WrittenBy([&] { Rule.SetConstraint(4, 1, "NUM", "SG", 3, true); });
  EXPECT_EQ(Records(Rule), Strings{"4|1|NUM|(*OR* SG PL)|3|value"});
}

TEST(TrRuleConstraints, MergeEachAlternativeOnceAndOldOnesFirst) {
  struct Case {
    std::string Old;
    std::string New;
    std::string Merged;
  };
  const std::vector<Case> vCases = {
      {"SG", "PL", "(*OR* SG PL)"},
      {"PL", "SG", "(*OR* PL SG)"},
      {"SG", "sg", "(*OR* SG sg)"},
      {"SG", "", "(*OR* SG)"},
      {"", "SG", "(*OR* SG)"},
      {" ", "SG ", "(*OR* SG)"},
      {")", "(*OR*", "(*OR*)"},
      {"X1", "X2", "(*OR* X1 X2)"},
      {"(*OR* SG PL)", "PL", "(*OR* SG PL)"},
      {"(*OR* SG PL)", "(*OR* PL DU)", "(*OR* SG PL DU)"},
      {"SG", "(*OR* PL SG)", "(*OR* SG PL)"},
      {"SG SG", "PL  PL DU", "(*OR* SG PL DU)"},
      {"(*NOT* SG", "PL", "(*OR* (*NOT* SG PL)"},
      {"(*NOT* SG)", "(*NOT* PL)", "(*OR* (*NOT* SG PL)"},
      {"A)B(*OR*C))", "(*OR*(*OR*D", "(*OR* ABC D)"},
      {"(*O(*OR*R*", "A", "(*OR* (*OR* A)"},
      {"(*or* SG", "PL", "(*OR* (*or* SG PL)"},
      {"\tA\r", "A \t B", "(*OR* A B)"},
      {"A\tB", "A", "(*OR* A\tB A)"},
      {"A\t)", "A", "(*OR* A\t A)"},
      {"\xE9", "\0\xE9"s, "(*OR* \xE9 \0\xE9)"s},
  };
  for (const Case& Row : vCases) {
    SCOPED_TRACE(Row.Old + " and " + Row.New);
    TrRule Rule;
    Rule.SetConstraint(4, 1, "NUM", Row.Old, 0, true);
    const Written Streams = WrittenBy([&] { Rule.SetConstraint(4, 1, "NUM", Row.New, 0, true); });
    EXPECT_EQ(Streams, (Written{Merging(Row.Old, Row.New, "4__1__NUM__" + Row.Merged), ""}));
    EXPECT_EQ(Keys(Rule), Strings{"4__1__NUM__" + Row.Merged});
    EXPECT_EQ(Records(Rule), Strings{"4|1|NUM|" + Row.Merged + "|0|value"});
  }
}

TEST(TrRuleConstraints, KeepAgreementsOfOneFeatureSeparate) {
  TrRule Rule;
  const Written Streams = WrittenBy([&] {
    EXPECT_TRUE(Rule.InsertConstraintIntoMap(Constraint(4, 1, "NUM", "(Y3", 0, false)));
    EXPECT_TRUE(Rule.InsertConstraintIntoMap(Constraint(4, 1, "NUM", "(Y2", 0, false)));
    EXPECT_TRUE(Rule.InsertConstraintIntoMap(Constraint(4, 1, "NUM", "SG", 0, true)));
    EXPECT_TRUE(Rule.InsertConstraintIntoMap(Constraint(4, 1, "NUM", "Z", 0, false)));
  });
  EXPECT_EQ(Streams, Nothing);
  EXPECT_EQ(Rule.GetConstraints(), (Strings{"((Y1 NUM) = (Y2 NUM))", "((Y1 NUM) = (Y3 NUM))",
                                            "((Y1 NUM) = SG)", "((Y1 NUM) = Z NUM))"}));
}

TEST(TrRuleConstraints, KeepValuesOfOtherNodesAndFeaturesSeparate) {
  const std::vector<Constraint> vOthers = {
      Constraint(3, 1, "NUM", "PL", 0, true),  Constraint(4, 2, "NUM", "PL", 0, true),
      Constraint(4, 10, "NUM", "PL", 0, true), Constraint(4, 1, "NUMB", "PL", 0, true),
      Constraint(4, 1, "num", "PL", 0, true),  Constraint(4, 1, "", "PL", 0, true)};
  for (const Constraint& Other : vOthers) {
    SCOPED_TRACE(Fields(Other));
    TrRule Rule;
    Rule.SetConstraint(4, 1, "NUM", "SG", 0, true);
    EXPECT_EQ(WrittenBy([&] { EXPECT_TRUE(Rule.InsertConstraintIntoMap(Other)); }), Nothing);
    EXPECT_EQ(Rule.GetNumConstraints(), 2);
  }
}

TEST(TrRuleConstraints, MergeAllKeysWithTheSamePrefix) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "A__B", "SG", 0, true);
  Rule.SetConstraint(4, 1, "A__C", "PL", 0, true);
  Rule.SetConstraint(4, 1, "A__D", "X1", 0, false);
  Rule.SetConstraint(4, 1, "A__E", "SG", 0, true);
  const Written Streams = WrittenBy([&] { Rule.SetConstraint(4, 1, "A", "DU", 7, true); });
  EXPECT_EQ(Streams, (Written{Merging("SG", "DU", "4__1__A__(*OR* SG DU)") +
                                  Merging("PL", "(*OR* SG DU)", "4__1__A__(*OR* PL SG DU)") +
                                  Merging("SG", "(*OR* PL SG DU)", "4__1__A__(*OR* SG PL DU)"),
                              ""}));
  EXPECT_EQ(Keys(Rule), (Strings{"4__1__A__(*OR* SG PL DU)", "4__1__A__D__X1"}));
  EXPECT_EQ(Records(Rule), (Strings{"4|1|A|(*OR* SG PL DU)|7|value", "4|1|A__D|X1|0|agreement"}));
}

TEST(TrRuleConstraints, KeepAnAgreementWithTheMergedKey) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "(*OR* SG PL)", 8, false);
  Rule.SetConstraint(4, 1, "NUM", "SG", 9, true);
  const Written Streams = WrittenBy(
      [&] { EXPECT_TRUE(Rule.InsertConstraintIntoMap(Constraint(4, 1, "NUM", "PL", 7, true))); });
  EXPECT_EQ(Streams, (Written{Merging("SG", "PL", "4__1__NUM__(*OR* SG PL)"), ""}));
  EXPECT_EQ(Records(Rule), Strings{"4|1|NUM|(*OR* SG PL)|8|agreement"});
}

// ---- Setting from values ----------------------------------------------------------------------

TEST(TrRuleConstraints, SelectAFormWithSixValuesByTheLastArgument) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "SG", 2, true);
  Rule.SetConstraint(4, 0, "all", "X1", 3, false);
  Rule.SetConstraint(1, "GEN", "M", "empty", 5, 3);
  Rule.SetConstraint(0, "PERS", "empty", "X1", 6, 4);
  EXPECT_EQ(Records(Rule), (Strings{"4|0|PERS|X1|6|agreement", "3|1|GEN|M|5|value",
                                    "4|1|NUM|SG|2|value", "4|0|all|X1|3|agreement"}));
}

TEST(TrRuleConstraints, AcceptANumberAsTheFlag) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "SG", 2, 1);
  Rule.SetConstraint(4, 0, "GEN", "M", 2, -7);
  Rule.SetConstraint(3, 0, "all", "X0", 0, 0);
  EXPECT_EQ(Records(Rule),
            (Strings{"4|0|GEN|M|2|value", "4|1|NUM|SG|2|value", "3|0|all|X0|0|agreement"}));
}

namespace {

template <typename FlagT>
void ExpectFlagOfType() {
  SCOPED_TRACE(typeid(FlagT).name());
  const auto No = static_cast<FlagT>(0);
  const auto Yes = static_cast<FlagT>(1);
  const int Index = 0;
  TrRule Rule;
  Rule.SetConstraint(4, 0, "A", "V", 2, Yes);
  Rule.SetConstraint(4, 0, "B", "V", 2, No);
  Rule.SetConstraint(4, Index, "C", "V", 2, Yes);
  Rule.SetConstraint(4, Index, "D"s, "V"s, 2, No);
  EXPECT_EQ(Records(Rule), (Strings{"4|0|A|V|2|value", "4|0|B|V|2|agreement", "4|0|C|V|2|value",
                                    "4|0|D|V|2|agreement"}));
}

}  // namespace

TEST(TrRuleConstraints, AcceptAnyIntegralTypeAsTheFlag) {
  ExpectFlagOfType<bool>();
  ExpectFlagOfType<char>();
  ExpectFlagOfType<signed char>();
  ExpectFlagOfType<unsigned char>();
  ExpectFlagOfType<wchar_t>();
  ExpectFlagOfType<char16_t>();
  ExpectFlagOfType<char32_t>();
  ExpectFlagOfType<short>();
  ExpectFlagOfType<unsigned short>();
  ExpectFlagOfType<int>();
  ExpectFlagOfType<unsigned>();
  ExpectFlagOfType<long>();
  ExpectFlagOfType<unsigned long>();
  ExpectFlagOfType<long long>();
  ExpectFlagOfType<unsigned long long>();
}

TEST(TrRuleConstraints, TreatAnyNonZeroFlagAsTrue) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "A", "V", 2, 256U);
  Rule.SetConstraint(4, 1, "B", "V", 2, LLONG_MIN);
  Rule.SetConstraint(4, 1, "C", "V", 2, Rule.GetConstraintsAsSet().count("((Y1 A) = V)"));
  Rule.SetConstraint(4, 1, "D", "V", 2, Rule.GetConstraintsAsSet().count("none"));
  EXPECT_EQ(Records(Rule), (Strings{"4|1|A|V|2|value", "4|1|B|V|2|value", "4|1|C|V|2|value",
                                    "4|1|D|V|2|agreement"}));
}

TEST(TrRuleConstraints, SelectTheTextFormsForLiterals) {
  TrRule Rule;
  Rule.SetConstraint("((y1 num) = sg)");
  Rule.SetConstraint("((Y1 GEN) = M)", 2, 3);
  Rule.SetConstraint("((y2 num) = sg)"s);
  Rule.SetConstraint("((Y2 GEN) = M)"s, 1, 0);
  EXPECT_EQ(Records(Rule), (Strings{"3|1|GEN|M|2|value", "4|1|NUM|SG|-1|value", "0|2|GEN|M|1|value",
                                    "4|2|NUM|SG|-1|value"}));
}

TEST(TrRuleConstraints, StoreSixValuesUnchecked) {
  TrRule Rule;
  EXPECT_EQ(WrittenBy([&] {
              Rule.SetConstraint(9, -3, "a b", "empty", -7, true);
              Rule.SetConstraint(0, 0, "\0"s, "\xFF", INT_MAX, false);
            }),
            Nothing);
  EXPECT_EQ(Records(Rule),
            (Strings{"9|-3|a b|empty|-7|value", "0|0|\0|\xFF|2147483647|agreement"s}));
}

TEST(TrRuleConstraints, StoreAnAgreementForTheValueEmpty) {
  struct Case {
    const char* Value;
    const char* Agreed;
    const char* Record;
  };
  const std::vector<Case> vCases = {
      {"SG", "empty", "4|1|NUM|SG|6|value"},       {"SG", "(Y2", "4|1|NUM|SG|6|value"},
      {"empty", "(Y2", "4|1|NUM|(Y2|6|agreement"}, {"empty", "empty", "4|1|NUM|empty|6|agreement"},
      {"empty", "", "4|1|NUM||6|agreement"},       {"", "(Y2", "4|1|NUM||6|value"},
      {"Empty", "(Y2", "4|1|NUM|Empty|6|value"},
  };
  for (const Case& Row : vCases) {
    TrRule Rule;
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(1, "NUM", Row.Value, Row.Agreed, 6, 4); }),
              Nothing);
    EXPECT_EQ(Records(Rule), Strings{Row.Record});
  }
}

TEST(TrRuleConstraints, MergeValuesWithAnAgreedPlace) {
  TrRule Rule;
  Rule.SetConstraint("((y1 num) = sg)");
  EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(1, "NUM", "PL", "empty", 6, 4); }),
            (Written{Merging("SG", "PL", "4__1__NUM__(*OR* SG PL)"), ""}));
}

TEST(TrRuleConstraints, AcceptFourCategories) {
  for (const int Category : {1, 2, 3, 4}) {
    TrRule Rule;
    Rule.SetConstraint(1, "NUM", "SG", "empty", 0, Category);
    EXPECT_EQ(Keys(Rule), Strings{std::to_string(Category) + "__1__NUM__SG"});
  }
}

TEST(TrRuleConstraints, EndTheProcessOnAnyOtherCategory) {
  const std::vector<int> vCategories = {0, 5, -1, INT_MAX, INT_MIN};
  for (std::size_t Level = 0; Level < vCategories.size(); ++Level) {
    const DebugLevel Debug(static_cast<int>(Level));
    EXPECT_EQ(
        RunInChild([&] { TrRule().SetConstraint(1, "NUM", "SG", "empty", 0, vCategories[Level]); }),
        (ChildEnd{1, "", "Constraint::SetCategory must be called with 1,2,3, or 4.\n"}));
  }
}

TEST(TrRuleConstraints, StoreNothingUnderARejectedCategory) {
  TrRule Rule;
  WrittenBy([&] {
    EXPECT_EQ(HaltOf([&] { Rule.SetConstraint(1, "NUM", "SG", "empty", 0, 5); }),
              (Halted{HaltReason::CategoryRange,
                      "Constraint::SetCategory must be called with 1,2,3, or 4."}));
  });
  EXPECT_EQ(Rule.GetNumConstraints(), 0);
}

// ---- Setting from text ------------------------------------------------------------------------

TEST(TrRuleConstraints, ReadTextsLikeConstraints) {
  struct Case {
    const char* Text;
    const char* Key;
    const char* Back;
  };
  const std::vector<Case> vCases = {
      {"((x0 det) = x1)", "1__0__DET__X1", "((X0 DET) = X1)"},
      {"(x0 = x3)", "1__0__all__X3", "(X0 = X3)"},
      {"((y1 num) = (x1 num))", "2__1__NUM__(X1", "((Y1 NUM) = (X1 NUM))"},
      {"(y0 = x0)", "3__0__all__X0", "(Y0 = X0)"},
      {"(y1 == (y0 det))", "4__1__all__(Y0 DET", "(Y1 = (Y0 DET)"},
      {"((y1 num) = sg", "4__1__NUM__", "((Y1 NUM) = )"},
      {"((z1 num) = sg)", "-1__0__NUM__SG", "((Y0 NUM) = SG)"},
      {"((y1 num) = sg)\r\n", "4__1__NUM__SG", "((Y1 NUM) = SG)"},
      {"x0 = =", "-1__-1____", "((Y-1 ) = )"},
  };
  for (const int Level : {0, 1, 2, 3, 4}) {
    const DebugLevel Debug(Level);
    for (const Case& Row : vCases) {
      TrRule Rule;
      EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(Row.Text); }), Nothing);
      EXPECT_EQ(Keys(Rule), Strings{Row.Key});
      EXPECT_EQ(Rule.GetConstraints(), Strings{Row.Back});
    }
  }
}

TEST(TrRuleConstraints, StoreAnUnreadableTextAsAnEmptyConstraint) {
  TrRule Rule;
  for (const std::string& sText : {"(Y1 ="s, "(Y1 ="s, ""s, "A = B = C"s, "\0\xE9"s}) {
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(sText); }),
              (Written{"",
                       "ERROR in Constraint::Constraint(string): Constraint was not in "
                       "correct format:|" +
                           sText + "|\n"}));
    EXPECT_EQ(Keys(Rule), Strings{"-1__-1____"});
    EXPECT_EQ(Records(Rule), Strings{"-1|-1|||-1|value"});
  }
}

// ---- Setting from text with rank and category -------------------------------------------------

namespace {

struct RankedCase {
  std::string Text;
  std::string Key;  ///< after "4__"
};

void ExpectRanked(const std::vector<RankedCase>& vCases) {
  for (const RankedCase& Row : vCases) {
    SCOPED_TRACE(Row.Text);
    TrRule Rule;
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(Row.Text, 2, 4); }), Nothing);
    EXPECT_EQ(Keys(Rule), Strings{"4__" + Row.Key});
  }
}

void ExpectRefused(const std::vector<std::string>& vsTexts,
                   Written (*Expected)(const std::string&)) {
  for (const std::string& sText : vsTexts) {
    SCOPED_TRACE(sText);
    TrRule Rule = Sample();
    const Strings vsBefore = Keys(Rule);
    EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(sText, 2, 4); }), Expected(sText));
    EXPECT_EQ(Keys(Rule), vsBefore);
  }
}

}  // namespace

TEST(TrRuleConstraints, ReadIndexFeatureAndValueFromARankedText) {
  ExpectRanked({
      {"((X1 NUM) = SG)", "1__NUM__SG"},
      {"((Y12 num) = sg)", "12__num__sg"},
      {"((x1 num) = sg)", "0__num__sg"},  // small letters do not name nodes here
      {"X1 num = sg", "1__num__sg"},
      {"(XY(X(-3 num = sg", "-3__num__sg"},
      {"\r\n(\v(\fX3 num = sg", "3__num__sg"},
      {"1X2 num = sg", "1__num__sg"},
      {"A1 num = sg", "0__num__sg"},
      {"X1  num)\t)  = sg", "1__num__sg"},
      {"X1 n)um = sg", "1__n)um__sg"},
      {"X1 ) = sg", "1____sg"},
      {"X1 num = sg) ) \t)", "1__num__sg"},
      {"X1 num =  s ) g )\r\n", "1__num__s ) g"},
      {"X1 num = )", "1__num__"},
      {"X1 num = \t ", "1__num__"},
      {"X1 num =  = sg", "1__num__sg"},
      {" = X1 num = sg = ", "1__num__sg"},
      {"X1 num = a=b", "1__num__a=b"},
      {"X1 num = (x1)", "1__num__(x1"},
      {"((X1 num) = (Z1 num))", "1__num__(Z1 num"},
      {"X1 n\xE9m = \xFF\x85", "1__n\xE9m__\xFF\x85"},
      {"X1\0 n\0m = \0)"s, "1__n\0m__\0"s},
      {"((X1 num) = sg) trailing junk", "1__num__sg) trailing junk"},
  });
}

TEST(TrRuleConstraints, ReadARankedDisjunctionOrNegationFromTheLastParenthesis) {
  ExpectRanked({
      {"((X1 num) = (*OR* sg pl))", "1__num__(*OR* sg pl)"},
      {"((x1 num) = (*OR* sg pl))", "0__num__(*OR* sg pl)"},
      {"((X1 num) = (*NOT* sg))", "1__num__(*NOT* sg)"},
      {"((X1 num) = (*NOT* sg)", "1__num__(*NOT* sg"},
      {"((X1 num) = (*NOT* (*OR* sg pl)))", "1__num__(*OR* sg pl))"},
      {"((X1 num) = (*OR* sg pl)) junk) junk", "1__num__(*OR* sg pl)) junk"},
      {"((X1 num) = *OR* sg pl)", "1__num__(X1 num) = *OR* sg pl"},
      {"((X1 num) = (*or* sg pl))", "1__num__(*or* sg pl"},
      {"((X1 *OR*) = sg)", "1__*OR*__sg"},
  });
}

TEST(TrRuleConstraints, TakeRankAndCategoryFromTheArguments) {
  for (const int Category : {-1, 0, 1, 2, 3, 4, 5}) {
    TrRule Rule;
    Rule.SetConstraint("((X1 NUM) = X2)", 10 + Category, Category);
    EXPECT_EQ(Records(Rule), Strings{std::to_string(Category) + "|1|NUM|X2|" +
                                     std::to_string(10 + Category) + "|value"});
  }
}

TEST(TrRuleConstraints, MergeRankedValues) {
  TrRule Rule;
  Rule.SetConstraint("((y1 num) = sg)");
  EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint("((Y1 NUM) = (*OR* PL SG))", 2, 4); }),
            (Written{Merging("SG", "(*OR* PL SG)", "4__1__NUM__(*OR* SG PL)"), ""}));
  EXPECT_EQ(Records(Rule), Strings{"4|1|NUM|(*OR* SG PL)|2|value"});
}

TEST(TrRuleConstraints, TraceARankedTextAtLevel1) {
  struct Case {
    std::string Text;
    Written Untraced;
  };
  const std::vector<Case> vCases = {
      {"((X1 NUM) = SG)", Nothing},
      {"oh", {"", PieceCountError("oh")}},
      {"X1 = SG", {"", PieceCountError("X1 = SG")}},
      {"X1 = (X3)", {IncorrectFormat("X1 = (X3)"), ""}},
  };
  for (const int Level : {0, 1, 2, 3, 4}) {
    const DebugLevel Debug(Level);
    for (const Case& Row : vCases) {
      const std::string Trace = "In SetConstraint, ConstraintPassIn is:" + Row.Text + '\n';
      TrRule Rule;
      EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(Row.Text, 2, 4); }),
                (Written{(Level == 1 ? Trace : "") + Row.Untraced.Out, Row.Untraced.Err}));
    }
  }
}

TEST(TrRuleConstraints, RequireTwoSidesAndTwoPiecesOnTheLeftOfARankedText) {
  ExpectRefused(
      {"", " ", "\0\xE9"s, "X1 num", "((X1 num)=sg)", "((X1 num) =\tsg)", " = ",
       "X1 num = ", "X1 num =", " = sg", "X1 a = b = c", "(Y1 == (Y0 det))", "X1 num\r\n=\r\nsg",
       // the left side
       "X1 = sg", "(X1 = X3)", "(x1 = (x3", "X1 two words = sg", "X1 \t num = sg", "X1\tnum = sg",
       "\t = sg",
       // and nothing more is printed once a side has failed
       "X1 = *OR*", "(X1 = (*NOT* sg"},
      [](const std::string& sText) {
        return Written{"", PieceCountError(sText)};
      });
}

TEST(TrRuleConstraints, RequireTheParenthesesOfARankedDisjunction) {
  ExpectRefused({"X1 num = *OR* sg", "X1 num = *NOT* sg)", "X1 num) = *OR* sg)",
                 "((X1 num) = (*OR* sg pl", "((X1 num) = (*NOT* sg", "X1 num = ) (*OR*"},
                [](const std::string& sText) {
                  return Written{IncorrectFormat(sText), ""};
                });
}

TEST(TrRuleConstraints, ReportTheMissingIndexOfARankedAgreement) {
  ExpectRefused({"X1 = (X3)", "X1 = (Y3 num)", "X1 num) = (X3)", "a ) = (Y1"},
                [](const std::string& sText) {
                  return Written{IncorrectFormat(sText), ""};
                });
}

TEST(TrRuleConstraints, ReportTheMissingValueOfARankedAgreement) {
  ExpectRefused({"X1 = (X3", ") = (X3", "X) = (Y1", "X1 = sg (Y", "= = (X"},
                [](const std::string& sText) {
                  return Written{IncorrectFormat(sText) + IncorrectFormat(sText), ""};
                });
}

TEST(TrRuleConstraints, EndTheProcessOnARankedComplexAgreement) {
  const std::string Message =
      "Expected simple agreement consraint of the form (Xi = Xj), but got complex agreement "
      "constraint.\n";
  const Strings vsTexts = {"(X1 = (X3))", "((X1 NUM) = (X3 NUM))", "a = ((Y1", "a = (X)(Y)",
                           "(a = (Y"};
  for (std::size_t Level = 0; Level < vsTexts.size(); ++Level) {
    const DebugLevel Debug(static_cast<int>(Level));
    const std::string Trace = "In SetConstraint, ConstraintPassIn is:((X1 NUM) = (X3 NUM))\n";
    EXPECT_EQ(RunInChild([&] { TrRule().SetConstraint(vsTexts[Level], 2, 4); }),
              (ChildEnd{1, (Level == 1 ? Trace : "") + Message, ""}));
  }
}

// ---- Erasing ----------------------------------------------------------------------------------

namespace {

struct Erasure {
  int Index;
  const char* Feature;
  const char* Value;
  const char* Agreed;
  std::set<int> siCategories;

  bool From(TrRule& Rule) const {
    return Rule.EraseConstraint(Index, Feature, Value, Agreed, siCategories);
  }
};

}  // namespace

TEST(TrRuleConstraints, EraseByTheGivenFields) {
  TrRule Rule = Sample();
  ASSERT_EQ(Rule.GetNumConstraints(), 7);
  const std::vector<std::pair<Erasure, Strings>> vCases = {
      {{0, "DET", "X1", "empty", {1}},
       {"1__0__MOD__X2", "1__0__all__X3", "3__0__all__X0", "4__1__all__(Y0 DET", "4__2__all__Y0",
        "4__3__all__(Y0 MOD"}},
      {{1, "all", "empty", "(Y0 DET", {3, 4}},
       {"1__0__MOD__X2", "1__0__all__X3", "3__0__all__X0", "4__2__all__Y0", "4__3__all__(Y0 MOD"}},
      {{2, "all", "Y0", "Y1", {1, 2, 3, 4}},
       {"1__0__MOD__X2", "1__0__all__X3", "3__0__all__X0", "4__3__all__(Y0 MOD"}},
  };
  for (const auto& [Erased, vsLeft] : vCases) {
    EXPECT_EQ(WrittenBy([&, Erased = Erased] { EXPECT_TRUE(Erased.From(Rule)); }), Nothing);
    EXPECT_EQ(Keys(Rule), vsLeft);
    EXPECT_EQ(WrittenBy([&, Erased = Erased] { EXPECT_FALSE(Erased.From(Rule)); }), Nothing);
    EXPECT_EQ(Keys(Rule), vsLeft);
  }
}

TEST(TrRuleConstraints, SkipOtherNodesFeaturesAndCategoriesInErasing) {
  const std::vector<Erasure> vCases = {
      {2, "NUM", "SG", "empty", {4}}, {1, "num", "SG", "empty", {4}},
      {1, "", "SG", "empty", {4}},    {1, "NUM", "SG", "empty", {1, 2, 3, 5}},
      {1, "NUM", "SG", "empty", {}},  {2, "NUM", "PL", "empty", {4}},
      {1, "NUM", "PL", "PL", {3}},
  };
  for (const Erasure& Row : vCases) {
    TrRule Rule;
    Rule.SetConstraint(4, 1, "NUM", "SG", 0, true);
    EXPECT_FALSE(Row.From(Rule));
    EXPECT_EQ(Keys(Rule), Strings{"4__1__NUM__SG"});
  }
  TrRule Empty;
  EXPECT_FALSE((Erasure{1, "NUM", "SG", "empty", {4}}.From(Empty)));
}

TEST(TrRuleConstraints, EraseTheFirstCategoryInKeyOrder) {
  TrRule Rule = Mixed();
  const Erasure Erased{1, "NUM", "SG", "empty", {1, 2, 4}};
  for (const int Gone : {1, 2, 4}) {
    EXPECT_EQ(Rule.GetConstraints(Gone),
              Strings{Gone == 1 ? "((X1 NUM) = SG)" : "((Y1 NUM) = SG)"});
    EXPECT_TRUE(Erased.From(Rule));
    EXPECT_EQ(Rule.GetConstraints(Gone), Strings{});
  }
  EXPECT_EQ(Rule.GetNumConstraints(), 3);
  EXPECT_FALSE(Erased.From(Rule));
}

TEST(TrRuleConstraints, EraseTheKeyMadeFromTheArguments) {
  struct Case {
    const char* First;
    const char* Second;
    Erasure Erased;
    Strings vsLeft;
  };
  const std::vector<Case> vCases = {
      // found by its value
      {"A", "B", {1, "F", "A", "empty", {4}}, {"4__1__F__B"}},
      {"A", "B", {1, "F", "A", "B", {4}}, {"4__1__F__B"}},
      // found by its agreed value: the key is still made with the value
      {"A", "B", {1, "F", "B", "A", {4}}, {"4__1__F__A"}},
      {"A", "B", {1, "F", "C", "A", {4}}, {"4__1__F__A", "4__1__F__B"}},
      {"A", "B", {1, "F", "", "A", {4}}, {"4__1__F__A", "4__1__F__B"}},
      {"A", "B", {1, "F", "empty", "A", {4}}, {"4__1__F__B"}},
      // the value "empty" finds the entry but does not erase it
      {"empty", "z", {1, "F", "empty", "z", {4}}, {"4__1__F__empty"}},
      {"empty", "z", {1, "F", "empty", "A", {4}}, {"4__1__F__empty", "4__1__F__z"}},
      {"empty", "z", {1, "F", "empty", "empty", {4}}, {"4__1__F__z"}},
  };
  for (const Case& Row : vCases) {
    SCOPED_TRACE(std::string(Row.Erased.Value) + " or " + Row.Erased.Agreed);
    TrRule Rule;
    Rule.SetConstraint(4, 1, "F", Row.First, 0, false);
    Rule.SetConstraint(4, 1, "F", Row.Second, 0, false);
    EXPECT_TRUE(Row.Erased.From(Rule));
    EXPECT_EQ(Keys(Rule), Row.vsLeft);
  }
}

TEST(TrRuleConstraints, TraceErasingAtLevel1) {
  const std::string Before = "Now erasing constraint.\nConstraints map before erasing:\n";
  const std::string After = "Constraints map after erasing:\n";
  const std::string KeyA = "Constraint:4__1__F__A\n";
  const std::string KeyB = "Constraint:4__1__F__B\n";
  for (const int Level : {0, 1, 2, 3, 4}) {
    SCOPED_TRACE(Level);
    const DebugLevel Debug(Level);
    TrRule Rule;
    Rule.SetConstraint(4, 1, "F", "B", 0, false);
    Rule.SetConstraint(4, 1, "F", "A", 0, false);
    const auto Traced = [&](const Erasure& Row, const std::string& Trace) {
      EXPECT_EQ(WrittenBy([&] { Row.From(Rule); }), (Written{Level == 1 ? Trace : "", ""}));
    };
    Traced({2, "F", "A", "empty", {4}}, Before + KeyA + KeyB + After + KeyA + KeyB);
    Traced({1, "F", "C", "A", {4}}, Before + KeyA + KeyB + After + KeyA + KeyB);
    const HaltGuard Guard;  // the next call does not return, so it has no second listing
    const auto Waiting = [&] { EXPECT_THROW(Rule.EraseConstraint(1, "F", "C", "C", {4}), Halted); };
    EXPECT_EQ(WrittenBy(Waiting), (Written{Level == 1 ? Before + KeyA + KeyB : "", ""}));
    Traced({1, "F", "A", "empty", {4}}, Before + KeyA + KeyB + After + KeyB);
    Traced({1, "F", "empty", "B", {4}}, Before + KeyB + After);
    Traced({1, "F", "empty", "B", {4}}, Before + After);
  }
}

TEST(TrRuleConstraints, WaitForeverInErasingAnotherValue) {
  for (const int Level : {0, 1}) {
    SCOPED_TRACE(Level);
    const DebugLevel Debug(Level);
    const ChildWait Wait = WatchInChild([] {
      TrRule Rule;
      Rule.SetConstraint(4, 1, "F", "A", 0, false);
      Rule.SetConstraint(4, 1, "F", "B", 0, false);
      Rule.EraseConstraint(1, "F", "B", "empty", {4});  // A comes before B
    });
    EXPECT_TRUE(Wait.Alive);
    EXPECT_TRUE(Wait.KeptMemory);
    EXPECT_TRUE(Wait.KeptProcessor);
    EXPECT_EQ(Wait.Out, Level == 1 ? "Now erasing constraint.\nConstraints map before erasing:\n"
                                     "Constraint:4__1__F__A\nConstraint:4__1__F__B\n"
                                   : "");
    EXPECT_EQ(Wait.Err, "");
  }
}

TEST(TrRuleConstraints, EraseAllOfACategory) {
  struct Case {
    int Category;
    Strings vsLeft;
  };
  const std::vector<Case> vCases = {
      {1, {"-1__7__GEN__M", "2__1__NUM__SG", "3__0__all__X0", "4__1__NUM__SG", "5__7__NUM__PL"}},
      {5, {"-1__7__GEN__M", "2__1__NUM__SG", "3__0__all__X0", "4__1__NUM__SG"}},
      {6, {"-1__7__GEN__M", "2__1__NUM__SG", "3__0__all__X0", "4__1__NUM__SG"}},
      {4, {"-1__7__GEN__M", "2__1__NUM__SG", "3__0__all__X0"}},
      {-1, {"2__1__NUM__SG", "3__0__all__X0"}},
      {3, {"2__1__NUM__SG"}},
      {3, {"2__1__NUM__SG"}},
      {2, {}},
      {2, {}},
  };
  TrRule Rule = Mixed();
  ASSERT_EQ(Rule.GetNumConstraints(), 6);
  for (const Case& Row : vCases) {
    EXPECT_EQ(WrittenBy([&] { EXPECT_TRUE(Rule.EraseCategoryConstraints(Row.Category)); }),
              Nothing);
    EXPECT_EQ(Keys(Rule), Row.vsLeft);
  }
}

TEST(TrRuleConstraints, EraseAll) {
  TrRule Rule = Mixed();
  for (int Round = 0; Round < 2; ++Round) {
    EXPECT_EQ(WrittenBy([&] { Rule.ClearConstraints(); }), Nothing);
    EXPECT_EQ(Rule.GetNumConstraints(), 0);
    EXPECT_EQ(Keys(Rule), Strings{});
  }
  Rule.SetConstraint("(x0 = x3)");
  EXPECT_EQ(Rule.GetNumConstraints(), 1);
}

// ---- Queries ----------------------------------------------------------------------------------

TEST(TrRuleConstraints, ListTheSampleInKeyOrder) {
  const TrRule Rule = Sample();
  EXPECT_EQ(Rule.GetNumConstraints(), 7);
  EXPECT_EQ(Rule.GetConstraints(),
            (Strings{"((X0 DET) = X1)", "((X0 MOD) = X2)", "(X0 = X3)", "(Y0 = X0)",
                     "(Y1 = (Y0 DET)", "(Y2 = Y0)", "(Y3 = (Y0 MOD)"}));
  EXPECT_EQ(Rule.GetConstraints(5),
            (Strings{"(Y0 = X0)", "(Y1 = (Y0 DET)", "(Y2 = Y0)", "(Y3 = (Y0 MOD)"}));
}

TEST(TrRuleConstraints, SelectOneCategoryOrTwoWith5) {
  struct Case {
    int Selector;
    Strings vsTexts;
    Strings vsRecords;
  };
  const std::vector<Case> vCases = {
      {-1, {"((Y7 GEN) = M)"}, {"-1|7|GEN|M|61|value"}},
      {0, {}, {}},
      {1, {"((X1 NUM) = SG)"}, {"1|1|NUM|SG|11|value"}},
      {2, {"((Y1 NUM) = SG)"}, {"2|1|NUM|SG|21|value"}},
      {3, {"(Y0 = X0)"}, {"3|0|all|X0|31|agreement"}},
      {4, {"((Y1 NUM) = SG)"}, {"4|1|NUM|SG|41|value"}},
      {5, {"(Y0 = X0)", "((Y1 NUM) = SG)"}, {"4|1|NUM|SG|41|value", "3|0|all|X0|31|agreement"}},
      {6, {}, {}},
  };
  const TrRule Rule = Mixed();
  for (const Case& Row : vCases) {
    SCOPED_TRACE(Row.Selector);
    EXPECT_EQ(Rule.GetConstraints(Row.Selector), Row.vsTexts);
    EXPECT_EQ(Rule.GetConstraintsAsSet(Row.Selector),
              std::set<std::string>(Row.vsTexts.begin(), Row.vsTexts.end()));
    Strings vsRecords;
    for (const Constraint& Record : Rule.GetConstraintsAsSetC(Row.Selector)) {
      vsRecords.push_back(Fields(Record));
    }
    EXPECT_EQ(vsRecords, Row.vsRecords);
  }
}

TEST(TrRuleConstraints, ListEachTextOnceInSets) {
  const TrRule Rule = Mixed();
  EXPECT_EQ(Rule.GetConstraints(), (Strings{"((Y7 GEN) = M)", "((X1 NUM) = SG)", "((Y1 NUM) = SG)",
                                            "(Y0 = X0)", "((Y1 NUM) = SG)", "((Y7 NUM) = PL)"}));
  EXPECT_EQ(Rule.GetConstraintsAsSet(),
            (std::set<std::string>{"((X1 NUM) = SG)", "((Y1 NUM) = SG)", "((Y7 GEN) = M)",
                                   "((Y7 NUM) = PL)", "(Y0 = X0)"}));
  // Of several with one text, the first in key order is kept: category 2 here.
  EXPECT_EQ(Records(Rule),
            (Strings{"1|1|NUM|SG|11|value", "2|1|NUM|SG|21|value", "-1|7|GEN|M|61|value",
                     "5|7|NUM|PL|51|value", "3|0|all|X0|31|agreement"}));
}

TEST(TrRuleConstraints, ListTheValueOrAgreedValueOfEachFeatureOfANode) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "(Y3", 0, false);
  Rule.SetConstraint(4, 1, "NUM", "SG", 0, true);
  Rule.SetConstraint(4, 1, "GEN", "M", 0, true);
  Rule.SetConstraint(4, 1, "PERS", "", 0, false);
  Rule.SetConstraint(2, 1, "GEN", "(X1", 0, false);
  Rule.SetConstraint(4, 2, "GEN", "F", 0, true);
  using Answer = std::map<std::string, std::pair<std::string, std::string>>;
  struct Case {
    int Index;
    std::set<int> siCategories;
    Answer mspExpected;
  };
  const std::vector<Case> vCases = {
      {1, {4}, {{"GEN", {"M", "empty"}}, {"NUM", {"empty", "(Y3"}}, {"PERS", {"empty", ""}}}},
      {1, {2}, {{"GEN", {"empty", "(X1"}}}},
      {1, {2, 4}, {{"GEN", {"empty", "(X1"}}, {"NUM", {"empty", "(Y3"}}, {"PERS", {"empty", ""}}}},
      {2, {1, 2, 3, 4}, {{"GEN", {"F", "empty"}}}},
      {1, {}, {}},
      {1, {5}, {}},
      {3, {4}, {}},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Rule.GetConstraintsForInd(Row.Index, Row.siCategories), Row.mspExpected);
  }
}

// ---- Reading ranked texts, step by step -------------------------------------------------------
//
// ReferenceImplementationTest.cpp does the same with damaged texts, and merges and erases at
// random.

TEST(TrRuleConstraints, ReadEveryPrefixOfARankedTextLikeTheReference) {
  for (const std::string& sText :
       {"((X1 NUM) = (*OR* SG PL))\r\n"s, "((Y2 GEN) = (*NOT* M)) = junk"s, "X1 = (Y3 num)"s,
        "(X1 = X3)"s, "((X1 \0\xE9) = \xFF)"s}) {
    for (std::size_t Size = 0; Size <= sText.size(); ++Size) {
      SCOPED_TRACE(sText.substr(0, Size));
      const Reference::RankedReading Expected = Reference::ReadRanked(sText.substr(0, Size), 2, 4);
      ASSERT_FALSE(Expected.Ended);
      TrRule Rule;
      EXPECT_EQ(WrittenBy([&] { Rule.SetConstraint(sText.substr(0, Size), 2, 4); }),
                (Written{Expected.Out, Expected.Err}));
      EXPECT_EQ(Records(Rule), Expected.Record ? Strings{Fields(*Expected.Record)} : Strings{});
    }
  }
}
