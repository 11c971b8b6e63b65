// The constraint record: its six fields, reading them from a constraint text and writing them back,
// where the two differ, the order of constraints, and the node that a value refers to.

#include "Constraint.h"

#include "StringUtils.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <climits>
#include <set>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

using std::string_literals::operator""s;

namespace {

/// The six fields in their order: category, index, feature, value, rank, kind.
std::string Fields(const Constraint& Record) {
  return std::to_string(Record.GetCategory()) + '|' + std::to_string(Record.GetConstrainedIndex()) +
         '|' + Record.GetFeature() + '|' + Record.GetFeatValue() + '|' +
         std::to_string(Record.GetRankInCategory()) + '|' +
         (Record.IsValueConstraint() ? "value" : "agreement");
}

constexpr const char* EmptyFields = "-1|-1|||-1|value";

/// The result of reading a text: the fields and the output.
struct Reading {
  std::string Record;
  Written Streams;
};

Reading Read(const std::string& Text) {
  Reading Result;
  Result.Streams = WrittenBy([&] { Result.Record = Fields(Constraint(Text)); });
  return Result;
}

std::string FormatError(const std::string& UpperText) {
  return "ERROR in Constraint::Constraint(string): Constraint was not in correct format:|" +
         UpperText + "|\n";
}

struct ReadCase {
  std::string Text;
  const char* Record;  ///< without the rank, which is not in the text
};

/// Reads each text and expects its fields and no output.
void ExpectRecords(const std::vector<ReadCase>& vCases) {
  for (const ReadCase& Case : vCases) {
    SCOPED_TRACE(Case.Text);
    const Reading Result = Read(Case.Text);
    std::string Expected = Case.Record;
    Expected.insert(Expected.rfind('|'), "|-1");
    EXPECT_EQ(Result.Record, Expected);
    EXPECT_EQ(Result.Streams, (Written{"", ""}));
  }
}

const Constraint Base(4, 1, "NUM", "SG", 2, true);

struct Perturbed {
  const char* Field;
  Constraint Record;
  bool ShowsInText;
};

/// `Base` with each field changed in turn, and whether the text shows it.
const std::vector<Perturbed> vPerturbed = {
    {"category, other side", Constraint(1, 1, "NUM", "SG", 2, true), true},
    {"category, same side", Constraint(2, 1, "NUM", "SG", 2, true), false},
    {"index", Constraint(4, 2, "NUM", "SG", 2, true), true},
    {"feature", Constraint(4, 1, "num", "SG", 2, true), true},
    {"value", Constraint(4, 1, "NUM", "PL", 2, true), true},
    {"rank", Constraint(4, 1, "NUM", "SG", 3, true), false},
    {"kind", Constraint(4, 1, "NUM", "SG", 2, false), true},
};

}  // namespace

// ---- The record -------------------------------------------------------------------------------

TEST(Constraint, StartsUnknown) {
  const Constraint Record;
  EXPECT_EQ(Fields(Record), EmptyFields);
  EXPECT_EQ(Record.ReturnAsString(), "((Y-1 ) = )");
}

TEST(Constraint, StoresSixValuesUnchecked) {
  EXPECT_EQ(Fields(Constraint(4, 1, "num", "sg", 7, false)), "4|1|num|sg|7|agreement");
  EXPECT_EQ(Fields(Constraint(0, -2, "", "", -3, true)), "0|-2|||-3|value");
  EXPECT_EQ(Fields(Constraint(INT_MAX, INT_MIN, "a b ", " \t", INT_MIN, true)),
            "2147483647|-2147483648|a b | \t|-2147483648|value");
  EXPECT_EQ(Fields(Constraint(9, 0, "\0\xE9"s, "(\xFF\0"s, 0, true)),
            "9|0|\0\xE9|(\xFF\0|0|value"s);
}

TEST(Constraint, CopiesAllSixFields) {
  for (const Perturbed& Variant : vPerturbed) {
    SCOPED_TRACE(Variant.Field);
    ASSERT_NE(Fields(Variant.Record), Fields(Base));
    const Constraint Copy(Variant.Record);
    EXPECT_EQ(Fields(Copy), Fields(Variant.Record));
  }
}

TEST(Constraint, CopiesWhenMoved) {
  const std::string LongValue(100, 'V');  // too long to be stored in the string object itself
  Constraint Source(4, 1, LongValue + "1", LongValue + "2", 2, true);
  const std::string Expected = Fields(Source);
  const Constraint Moved(std::move(Source));
  EXPECT_EQ(Fields(Moved), Expected);
  EXPECT_EQ(Fields(Source), Expected);  // the source is unchanged
  Constraint Assigned;
  Assigned = std::move(Source);
  EXPECT_EQ(Fields(Assigned), Expected);
  EXPECT_EQ(Fields(Source), Expected);
  TrRule Rule;
  EXPECT_TRUE(Rule.InsertConstraintIntoMap(std::move(Source)));
  EXPECT_EQ(Fields(*Rule.GetConstraintsAsSetC().begin()), Expected);
  EXPECT_EQ(Fields(Source), Expected);
}

TEST(Constraint, ConvertsFromText) {
  static_assert(std::is_convertible_v<std::string, Constraint>);
  const Constraint Record = std::string("(x0 = x3)");
  EXPECT_EQ(Fields(Record), "1|0|all|X3|-1|agreement");
  Constraint Assigned;
  Assigned = std::string("((y1 num) = sg)");
  EXPECT_EQ(Fields(Assigned), "4|1|NUM|SG|-1|value");
  EXPECT_TRUE(Record < std::string("(x0 = x4)"));
  EXPECT_FALSE(Record < std::string("(x0 = x3)"));
}

TEST(Constraint, AssignsAllSixFieldsAndReturnsNothing) {
  static_assert(std::is_void_v<decltype(std::declval<Constraint&>() = Base)>);
  for (const Perturbed& Variant : vPerturbed) {
    SCOPED_TRACE(Variant.Field);
    Constraint Filled(Base);
    ASSERT_NE(Fields(Filled), Fields(Variant.Record));
    Filled = Variant.Record;
    EXPECT_EQ(Fields(Filled), Fields(Variant.Record));
    const Constraint& Same = Filled;
    Filled = Same;
    EXPECT_EQ(Fields(Filled), Fields(Variant.Record));
  }
}

TEST(Constraint, SetsOneFieldAtATime) {
  Constraint Record(Base);
  Record.SetCategory(2);
  EXPECT_EQ(Fields(Record), "2|1|NUM|SG|2|value");
  Record.SetConstrainedIndex(-12);
  EXPECT_EQ(Fields(Record), "2|-12|NUM|SG|2|value");
  Record.SetFeature("agr gen");
  EXPECT_EQ(Fields(Record), "2|-12|agr gen|SG|2|value");
  Record.SetFeatValue("(y2");
  EXPECT_EQ(Fields(Record), "2|-12|agr gen|(y2|2|value");
  Record.SetRankInCategory(-5);
  EXPECT_EQ(Fields(Record), "2|-12|agr gen|(y2|-5|value");
  Record.SetValueConstraint(false);
  EXPECT_EQ(Fields(Record), "2|-12|agr gen|(y2|-5|agreement");
  Record.SetValueConstraint(true);
  EXPECT_EQ(Fields(Record), "2|-12|agr gen|(y2|-5|value");
}

TEST(Constraint, AcceptsFourCategories) {
  for (const int Category : {1, 2, 3, 4}) {
    Constraint Record;
    Record.SetCategory(Category);
    EXPECT_EQ(Fields(Record), std::to_string(Category) + "|-1|||-1|value");
  }
}

TEST(Constraint, EndsTheProcessOnAnyOtherCategory) {
  for (const int Category : {0, 5, -1, INT_MAX, INT_MIN}) {
    SCOPED_TRACE(Category);
    EXPECT_EQ(RunInChild([&] { Constraint().SetCategory(Category); }),
              (ChildEnd{1, "", "Constraint::SetCategory must be called with 1,2,3, or 4.\n"}));
  }
}

// ---- Reading ----------------------------------------------------------------------------------

TEST(Constraint, ReadsTheSampleTexts) {
  ExpectRecords({
      {"((x0 det) = x1)", "1|0|DET|X1|value"},
      {"((x0 mod) = x2)", "1|0|MOD|X2|value"},
      {"(x0 = x3)", "1|0|all|X3|agreement"},
      {"(y0 = x0)", "3|0|all|X0|agreement"},
      {"(y1 == (y0 det))", "4|1|all|(Y0 DET|agreement"},
      {"(y2 = y0)", "4|2|all|Y0|agreement"},
      {"((y1 num) = sg)", "4|1|NUM|SG|value"},
      {"((y3 agr gen) = (y2 agr gen))", "4|3|AGRGEN|(Y2|agreement"},
      {"((x1 num) = (x3 num))", "1|1|NUM|(X3|agreement"},
      {"((y1 num) = (x1 num))", "2|1|NUM|(X1|agreement"},
      {"((y1 num) = (*OR* sg pl))", "4|1|NUM|(*OR* SG PL)|value"},
      {"((x1 num) = (*OR* sg pl))", "1|1|NUM|(*OR* SG PL)|value"},
  });
}

TEST(Constraint, IgnoresCase) {
  EXPECT_NE(Read("(X0 = X4)").Record, Read("(x0 = x3)").Record);
  for (const std::string& sText : ConstraintSamples) {
    EXPECT_EQ(Read(StringUtils::StringToUpper(sText)).Record, Read(sText).Record) << sText;
  }
}

TEST(Constraint, DerivesTheCategoryFromTheNodesOnBothSides) {
  ExpectRecords({
      {"((x1 num) = next)", "1|1|NUM|NEXT|value"},
      {"((y0 num) = sg)", "3|0|NUM|SG|value"},
      {"((y0 num) = (y1 num))", "3|0|NUM|(Y1|agreement"},
      {"((y0 num) = (x0 num))", "2|0|NUM|(X0|agreement"},
      {"((y1 tense) = next)", "2|1|TENSE|NEXT|value"},
      {"((y0 tense) = next)", "2|0|TENSE|NEXT|value"},
      {"((y1 num) = (*or* x1 sg))", "2|1|NUM|(*OR* X1 SG)|value"},
      {"((y1 num) = x", "4|1|NUM||value"},          // the value is lost, and its letter
      {"((y1 num) = (x2))", "4|1|NUM||agreement"},  // so is the value of a node without a feature
      {"((y01 num) = sg)", "3|1|NUM|SG|value"},
      {"((y10 num) = sg)", "4|10|NUM|SG|value"},
      {"((y1 (x num) = sg)", "1|1|(XNUM|SG|value"},
      {"((y1 (y0 num) = sg)", "3|1|(Y0 NUM|SG|value"},
      {"((z1 num) = sg)", "-1|0|NUM|SG|value"},
      {"((z1 num) = x1)", "-1|0|NUM|X1|value"},
      {"y1 num) = sg)", "-1|1|NUM|SG|value"},
      {"(y1 = (x2 num))", "4|1|all|(X2 NUM|agreement"},
      {"(y10 = x1)", "4|10|all|X1|agreement"},
      {"(y01 = x1)", "3|1|all|X1|agreement"},
      {"(z1 = x1)", "4|0|all|X1|agreement"},
      {"y0 = x1", "4|0|all||agreement"},
      {"(y0(x1 = y2)", "1|1|all|Y2|agreement"},
  });
}

TEST(Constraint, ReadsTheIndexAfterTheNodeLetter) {
  ExpectRecords({
      {"((x12 num) = sg)", "1|12|NUM|SG|value"},
      {"((x007 num) = sg)", "1|7|NUM|SG|value"},
      {"((x-1 num) = sg)", "1|-1|NUM|SG|value"},
      {"((x+2 num) = sg)", "1|2|NUM|SG|value"},
      {"((x1y(2 num) = sg)", "1|12|NUM|SG|value"},
      {"((x1a2 num) = sg)", "1|1|NUM|SG|value"},
      {"((xa2 num) = sg)", "1|0|NUM|SG|value"},
      {"(x12 = x3)", "1|12|all|X3|agreement"},
      {"(x1y(2 = x3)", "1|12|all|X3|agreement"},
      {"(x1 2 = x3)", "1|1|all|X3|agreement"},
      {"(x = x3)", "1|0|all|X3|agreement"},
  });
}

TEST(Constraint, EndsTheIndexAtTheSignWithoutAFeature) {
  ExpectRecords({
      {"((x0)=x1)", "1|0||X1|value"},
      {"((x12) = x1)", "1|12||X1|value"},
      {"((y2) = (y1 num))", "4|2||(Y1|agreement"},
      {"((x1 ) = sg)", "1|1||SG|value"},
  });
}

TEST(Constraint, KeepsOnlyTheBlankAfterADigit) {
  ExpectRecords({
      {"((x1 num)=sg)", "1|1|NUM|SG|value"},
      {"((x1\tnum)\n=\v\fsg)", "1|1|NUM|SG|value"},
      {" \t( ( x1   n u m ) = sg ) \n", "1|1|NUM|SG |value"},
      {"((x1 2 num) = sg)", "1|1|2 NUM|SG|value"},
      {"((x1 a2 b 3) = sg)", "1|1|A2 B3|SG|value"},
      {"((x1 *num) = sg)", "1|1||SG|value"},
      {"((x1  *num) = sg)", "1|1|*NUM|SG|value"},
      {"((x1 num) = ( x 3 num))", "1|1|NUM|(X3|agreement"},
      {"((x1 num) = (x3num))", "1|1|NUM||agreement"},
      {"( x 0 = x 3 )", "1|0|all|X3 |agreement"},
      {"(x0  = x3)", "1|0|all|X3|agreement"},
      {"(y1==(y0   det))", "4|1|all|(Y0 DET|agreement"},
      {"(y1 = (y0 agr gen))", "4|1|all|(Y0 AGRGEN|agreement"},
  });
}

TEST(Constraint, ReadsAValueUpToItsFirstParenthesis) {
  ExpectRecords({
      {"((y1 num) = sg", "4|1|NUM||value"},
      {"((y1 num) = sg) and more)", "4|1|NUM|SG|value"},
      {"((y1 num) = s g)", "4|1|NUM|S G|value"},
      {"((y1 num) =   sg  )", "4|1|NUM|SG  |value"},
      {"((y1 num) = )", "4|1|NUM||value"},
      {"((y1 num) = (sg))", "4|1|NUM|(SG|value"},
      {"((y1 num) == sg)", "4|1|NUM|SG|value"},
      {"((x1 num) == (x3 num))", "1|1|NUM|(X3 NUM|value"},
      {"((y1 num) == (x3 num))", "2|1|NUM|(X3 NUM|value"},
      {"((y1 num) = *or* sg)", "4|1|NUM|*OR* SG)|value"},
      {"((y1 num) = sg) *or*)", "4|1|NUM|SG|value"},
      {"((y1 num) = (*not* sg))", "4|1|NUM|(*NOT* SG|value"},
      {"((y1 num) = (*not* (*or* sg pl)))", "4|1|NUM|(*NOT* (*OR* SG PL)|value"},
      {"(y1 = )", "4|1|all||agreement"},
      {"(y1 = x3", "4|1|all||agreement"},
      {"(y1 = x3) and more)", "4|1|all|X3|agreement"},
      {"(y1 = (*or* x2 x3))", "4|1|all|(*OR*X2 X3)|agreement"},
      {"(y1 = (*not* x2))", "4|1|all|(*NOT*X2|agreement"},
  });
}

TEST(Constraint, KeepsOtherBytes) {
  ExpectRecords({
      {"((y1 num) = sg)\r\n", "4|1|NUM|SG|value"},
      {"((y1 num) =\r\n sg)", "4|1|NUM|SG|value"},
      {"((y1\r\nnum) = sg)", "4|1|NUM|SG|value"},
      {"((y1 n\xC3\xA4m) = s\xE9)", "4|1|N\xC3\xA4M|S\xE9|value"},
      {"\xA0((y1 num) = sg\x85)", "4|0|NUM|SG\x85|value"},
      {"((y1 num) = \xFF", "4|1|NUM||value"},
  });
  EXPECT_EQ(Read("((y1 nu\0m) = s\0g)"s).Record, "4|1|NU\0M|S\0G|-1|value"s);
  EXPECT_EQ(Read("((y1\0 2 num) = sg)\0"s).Record, "4|1|NUM|SG|-1|value");
  EXPECT_EQ(Read("(x0 = \0x3)"s).Record, "1|0|all|\0X3|-1|agreement"s);
}

TEST(Constraint, ReadsAHundredThousandBytesAfterASplit) {
  struct Case {
    std::string Start;
    std::size_t Written;
    std::size_t Kept;
  };
  // The right side is truncated twice: with its leading blank, and without its blanks. Only the
  // second decides whether there is a value. A leading blank truncates the whole text.
  const std::vector<Case> vCases = {
      {"((x1 num) = ", 99998, 99998}, {"((x1 num) = ", 99999, 99999},  {"((x1 num) = ", 100000, 0},
      {"((x1 num) = ", 100001, 0},    {" ((x1 num) = ", 99987, 99987}, {" ((x1 num) = ", 99988, 0},
  };
  for (const Case& Row : vCases) {
    SCOPED_TRACE(Row.Written);
    const Constraint Record(Row.Start + std::string(Row.Written, 'V') + ")");
    EXPECT_EQ(Fields(Record), "1|1|NUM|" + std::string(Row.Kept, 'V') + "|-1|value");
  }
}

TEST(Constraint, ReportsATextWithoutTwoSides) {
  const std::vector<std::string> vsTexts = {
      "",
      " ",
      "\0"s,
      "nothing",
      "((x1 num) sg)",
      "=",
      "==",
      " = ",
      "(y1 =",
      "(y1 = ",
      "= x1)",
      "x0 = x1 = x2",
      "(x0 = = x1)",
      "((y1 num) = sg) = pl",
      ")=)=",
      "=)=a)==",
      " \t(y1 =\r\n",
      "\xE9 n\0t"s,
      "((x1 num) = sg)\n((x2 num) = sg)",
  };
  for (const std::string& sText : vsTexts) {
    SCOPED_TRACE(sText);
    const Reading Result = Read(sText);
    EXPECT_EQ(Result.Record, EmptyFields);
    EXPECT_EQ(Result.Streams, (Written{"", FormatError(StringUtils::StringToUpper(sText))}));
  }
}

TEST(Constraint, ReportsTheWholeTextInCapitals) {
  EXPECT_EQ(Read(" x0 \n").Streams,
            (Written{"",
                     "ERROR in Constraint::Constraint(string): Constraint was not in correct "
                     "format:| X0 \n|\n"}));
}

TEST(Constraint, PrintsNothingWhenOneOfTwoSidesIsBlank) {
  ExpectRecords({
      {"x0 = =", "-1|-1|||value"},
      {"= = x0", "-1|-1|||value"},
      {"(y1 == \t=", "-1|-1|||value"},
  });
}

TEST(Constraint, ReadsEveryPrefixOfAWholeNodeText) {
  const std::string Text = "(x0 = x3)";
  const std::vector<std::string> vsRecords = {
      EmptyFields,
      EmptyFields,
      EmptyFields,
      EmptyFields,
      EmptyFields,
      EmptyFields,
      EmptyFields,
      "1|0|all||-1|agreement",
      "1|0|all||-1|agreement",
      "1|0|all|X3|-1|agreement",
  };
  for (std::size_t Size = 0; Size <= Text.size(); ++Size) {
    SCOPED_TRACE(Size);
    const Reading Result = Read(Text.substr(0, Size));
    EXPECT_EQ(Result.Record, vsRecords.at(Size));
    const std::string Upper = StringUtils::StringToUpper(Text.substr(0, Size));
    EXPECT_EQ(Result.Streams, (Written{"", Size < 7 ? FormatError(Upper) : ""}));
  }
}

TEST(Constraint, ReadsEveryPrefixOfAFeatureText) {
  const std::string Text = "((y1 num) = sg)";
  for (std::size_t Size = 0; Size <= Text.size(); ++Size) {
    SCOPED_TRACE(Size);
    const Reading Result = Read(Text.substr(0, Size));
    const bool HasTwoSides = Size >= 13;
    EXPECT_EQ(Result.Record, Size == 15    ? "4|1|NUM|SG|-1|value"
                             : HasTwoSides ? "4|1|NUM||-1|value"
                                           : EmptyFields);
    const std::string Upper = StringUtils::StringToUpper(Text.substr(0, Size));
    EXPECT_EQ(Result.Streams, (Written{"", HasTwoSides ? "" : FormatError(Upper)}));
  }
}

TEST(Constraint, ReadsAlikeAtEveryDebugLevel) {
  for (const int Level : {0, 1, 2, 3, 4}) {
    SCOPED_TRACE(Level);
    const DebugLevel Debug(Level);
    const Written Streams = WrittenBy([] {
      Constraint Record("((y1 num) = sg)");
      Record = Constraint(Record);
      Record.SetCategory(3);
      EXPECT_FALSE(Record < Record);
      EXPECT_EQ(Record.ReturnAsString(), "((Y1 NUM) = SG)");
      EXPECT_EQ(Record.GetAgreedIndex("(Y2"), 2);
    });
    EXPECT_EQ(Streams, (Written{"", ""}));
    EXPECT_EQ(Read("oh").Streams, (Written{"", FormatError("OH")}));
  }
}

// ---- Reading, step by step --------------------------------------------------------------------
//
// ReferenceImplementationTest.cpp does the same with damaged texts.

namespace {

void ExpectReadsLikeTheSlowReader(const std::string& Text) {
  const Reference::Reading Expected = Reference::Read(Text);
  const Reading Result = Read(Text);
  ASSERT_EQ(Result.Record, Fields(Expected.Record)) << Text;
  ASSERT_EQ(Result.Streams, (Written{"", Expected.Err})) << Text;
}

}  // namespace

TEST(Constraint, ReadsEveryPrefixOfTheSampleTextsLikeTheReference) {
  for (const std::string& sText : ConstraintSamples) {
    for (std::size_t Size = 0; Size <= sText.size(); ++Size) {
      for (const char* Ending : {"", "\r\n", "\n", ")", " = x1)", "="}) {
        ExpectReadsLikeTheSlowReader(sText.substr(0, Size) + Ending);
      }
    }
  }
}

// ---- Reading in one pass ----------------------------------------------------------------------
//
// The step-by-step reader has the same results, only more slowly, so the tests above would not
// notice if no text were read in one pass.

// ---- Writing ----------------------------------------------------------------------------------

TEST(Constraint, WritesValuesWholeNodesAndFeatures) {
  struct Case {
    Constraint Record;
    std::string Text;
  };
  const std::vector<Case> vCases = {
      {Constraint(1, 0, "DET", "X1", -1, true), "((X0 DET) = X1)"},
      {Constraint(2, 0, "DET", "X1", -1, true), "((Y0 DET) = X1)"},
      {Constraint(4, 1, "all", "SG", -1, true), "((Y1 all) = SG)"},
      {Constraint(1, 1, "all", "SG", -1, true), "((X1 all) = SG)"},
      {Constraint(1, 0, "all", "X3", -1, false), "(X0 = X3)"},
      {Constraint(3, 0, "all", "X0", -1, false), "(Y0 = X0)"},
      {Constraint(4, 1, "all", "", -1, false), "(Y1 = )"},
      {Constraint(4, 3, "AGR", "(Y2", -1, false), "((Y3 AGR) = (Y2 AGR))"},
      {Constraint(1, 3, "AGR", "(X2", -1, false), "((X3 AGR) = (X2 AGR))"},
      {Constraint(4, 3, "ALL", "Y2", -1, false), "((Y3 ALL) = Y2 ALL))"},
      {Constraint(4, 3, "agr gen", "(Y2", -1, false), "((Y3 agr gen) = (Y2 agr gen))"},
      {Constraint(4, 3, "agr gen", "sg", -1, true), "((Y3 agr gen) = sg)"},
      {Constraint(4, 3, "", "", -1, false), "((Y3 ) =  ))"},
      {Constraint(0, -12, "F", "V", -1, true), "((Y-12 F) = V)"},
      {Constraint(5, INT_MAX, "F", "V", -1, true), "((Y2147483647 F) = V)"},
      {Constraint(-1, INT_MIN, "F", "V", -1, true), "((Y-2147483648 F) = V)"},
      {Constraint(1, 1, "\0\xE9"s, "\xFF\0"s, 9, true), "((X1 \0\xE9) = \xFF\0)"s},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Row.Record.ReturnAsString(), Row.Text);
  }
}

TEST(Constraint, WritesBackWhatTheReaderKept) {
  struct Case {
    const char* Text;
    const char* Back;
  };
  const std::vector<Case> vCases = {
      {"((x0 det) = x1)", "((X0 DET) = X1)"},
      {"(x0 = x3)", "(X0 = X3)"},
      {"(y0 = x0)", "(Y0 = X0)"},
      {"(y2 = y0)", "(Y2 = Y0)"},
      {"((y1 num) = sg)", "((Y1 NUM) = SG)"},
      {"((y1 num) = (*OR* sg pl))", "((Y1 NUM) = (*OR* SG PL))"},
      {"(y1 == (y0 det))", "(Y1 = (Y0 DET)"},
      {"((y3 agr gen) = (y2 agr gen))", "((Y3 AGRGEN) = (Y2 AGRGEN))"},
      {"((y3 num) = (y2 gen))", "((Y3 NUM) = (Y2 NUM))"},
      {"((x1 num) = (*NOT* sg))", "((X1 NUM) = (*NOT* SG)"},
      {"((y1 num) = (x1 num))", "((Y1 NUM) = (X1 NUM))"},
      {"((x1 num) == (x3 num))", "((X1 NUM) = (X3 NUM)"},
      {"((y1 num) = sg", "((Y1 NUM) = )"},
      {"(y1 = )", "(Y1 = )"},
      {"((x12)=sg)", "((X12 ) = SG)"},
      {"((z1 num) = sg)", "((Y0 NUM) = SG)"},
      {"x0 = =", "((Y-1 ) = )"},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Constraint(Row.Text).ReturnAsString(), Row.Back);
  }
}

TEST(Constraint, WritesAStableTextAfterTheFirstRewriting) {
  for (const std::string& sText : ConstraintSamples) {
    const Constraint Once(sText);
    ASSERT_NE(Once.ReturnAsString(), sText);
    const Constraint Twice(Once.ReturnAsString());
    EXPECT_EQ(Fields(Twice), Fields(Once)) << sText;
    EXPECT_EQ(Twice.ReturnAsString(), Once.ReturnAsString()) << sText;
  }
}

TEST(Constraint, WritesCategories2To4Alike) {
  for (const int Category : {2, 3, 4}) {
    const Constraint Record(Category, 1, "NUM", "X1", -1, true);
    EXPECT_EQ(Record.ReturnAsString(), "((Y1 NUM) = X1)");
    EXPECT_EQ(Fields(Constraint(Record.ReturnAsString())), "2|1|NUM|X1|-1|value");
  }
}

// ---- The agreed index -------------------------------------------------------------------------

TEST(Constraint, FindsTheAgreedIndexAfterTheLastNodeLetter) {
  struct Case {
    std::string Text;
    int Index;
  };
  const std::vector<Case> vCases = {
      {"", -1},
      {"X", -1},
      {"Y", -1},
      {"(Y", -1},
      {"SG", -1},
      {"MAX", -1},
      {"x1", -1},
      {"y1", -1},
      {"X1", 1},
      {"Y3", 3},
      {"(Y2", 2},
      {"(X3", 3},
      {"(Y12", 12},
      {"(Y0 DET", 0},
      {"X1Y2", 2},
      {"Y2X1", 1},
      {"X1 Y", -1},
      {"Y1 X", -1},
      {"XA", 0},
      {"NEXT 5", 0},
      {"X 7", 7},
      {"X\t\r\n7", 7},
      {"X-3", -3},
      {"X+4", 4},
      {"X12)", 12},
      {"(*OR* X1 X2)", 2},
      {"X1\0X2"s, 2},
      {"X1\0 2"s, 1},
      {"X\0 5"s, 0},
      {"X\xE9 5", 0},
      {"X" + std::string(999, '0') + "5", 5},
      {"X" + std::string(1000, '0') + "5", 0},
  };
  for (const Case& Row : vCases) {
    EXPECT_EQ(Base.GetAgreedIndex(Row.Text), Row.Index) << Row.Text;
  }
}

TEST(Constraint, FindsTheAgreedIndexInItsArgumentOnly) {
  for (const Constraint& Record : {Constraint(), Base, Constraint(1, 9, "X8", "(Y7", 6, false)}) {
    EXPECT_EQ(Record.GetAgreedIndex("(Y2"), 2);
    EXPECT_EQ(Record.GetAgreedIndex("SG"), -1);
  }
}

// ---- Order ------------------------------------------------------------------------------------

TEST(Constraint, SortsByTextByteByByte) {
  const std::vector<Constraint> vAscending = {
      Constraint(1, 0, "DET", "X1", 0, false),   // ((X0 DET) = X1 DET))
      Constraint(1, 0, "DET", "X1", 9, true),    // ((X0 DET) = X1)
      Constraint(4, 1, "NUM", "SG", 3, true),    // ((Y1 NUM) = SG)
      Constraint(4, 1, "NUM", "Z", 2, true),     // ((Y1 NUM) = Z)
      Constraint(4, 1, "NUM", "\xE9", 2, true),  // ((Y1 NUM) = \xE9)
      Constraint(4, 1, "num", "", 2, true),      // ((Y1 num) = )
      Constraint(1, 10, "all", "X3", 1, false),  // (X10 = X3)
      Constraint(1, 9, "all", "X3", 0, false),   // (X9 = X3)
      Constraint(3, 0, "all", "X0", -1, false),  // (Y0 = X0)
  };
  for (std::size_t Left = 0; Left < vAscending.size(); ++Left) {
    for (std::size_t Right = 0; Right < vAscending.size(); ++Right) {
      EXPECT_EQ(vAscending[Left] < vAscending[Right], Left < Right) << Left << ' ' << Right;
    }
  }
}

TEST(Constraint, IgnoresHiddenFieldsInTheOrder) {
  EXPECT_FALSE(Base < Base);
  for (const Perturbed& Variant : vPerturbed) {
    SCOPED_TRACE(Variant.Field);
    ASSERT_NE(Fields(Variant.Record), Fields(Base));
    EXPECT_EQ(Variant.Record.ReturnAsString() != Base.ReturnAsString(), Variant.ShowsInText);
    EXPECT_EQ((Variant.Record < Base) != (Base < Variant.Record), Variant.ShowsInText);
    EXPECT_FALSE(Variant.Record < Base && Base < Variant.Record);
  }
}

TEST(Constraint, KeepsOneOfSeveralWithTheSameTextInASet) {
  const std::set<Constraint> sConstraints = {Base, Constraint(4, 1, "NUM", "SG", 3, true),
                                             Constraint(2, 1, "NUM", "SG", 2, true),
                                             Constraint(4, 1, "NUM", "PL", 2, true)};
  ASSERT_EQ(sConstraints.size(), 2U);
  EXPECT_EQ(Fields(*sConstraints.begin()), "4|1|NUM|PL|2|value");
  EXPECT_EQ(Fields(*sConstraints.rbegin()), Fields(Base));
}
