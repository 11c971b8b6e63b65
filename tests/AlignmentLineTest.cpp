// Parsing alignment lines: which ones are in their common form, and their parts.

#include "AlignmentLine.h"

#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

using std::string_literals::operator""s;
using TrRuleInternal::AlignmentParts;
using TrRuleInternal::ParseAlignment;
using TrRuleInternal::ParseCommonAlignment;

namespace {

/// The index texts and their numbers; nothing if the line is not in the common form.
std::optional<Strings> PartsOf(const std::string& Line) {
  AlignmentParts Parts;
  if (!ParseCommonAlignment(Line, Parts)) {
    return std::nullopt;
  }
  return Strings{std::string(Parts.XText), std::string(Parts.YText), std::to_string(Parts.X),
                 std::to_string(Parts.Y)};
}

std::optional<Strings> ReferenceParts(const std::string& Line) {
  std::optional<Strings> vsParts = Reference::AlignmentParts(Line);
  if (vsParts) {
    const int X = std::atoi(vsParts->at(0).c_str());
    const int Y = std::atoi(vsParts->at(1).c_str());
    vsParts->push_back(std::to_string(X));
    vsParts->push_back(std::to_string(Y));
  }
  return vsParts;
}

}  // namespace

TEST(AlignmentLine, ParsesTheCommonForm) {
  const std::pair<std::string, Strings> Cases[] = {
      {"(X2::Y3)", {"2", "3", "2", "3"}},
      {"(x2::y3)", {"2", "3", "2", "3"}},
      {"(X2::y3)", {"2", "3", "2", "3"}},
      {"(X0::Y0)", {"0", "0", "0", "0"}},
      {"(X007::Y010)", {"007", "010", "7", "10"}},
      {"(X999999999::Y000000001)", {"999999999", "000000001", "999999999", "1"}},
  };
  for (const auto& [Line, vsExpected] : Cases) {
    EXPECT_EQ(PartsOf(Line), std::optional(vsExpected)) << Line;
  }
}

TEST(AlignmentLine, RejectsOtherLines) {
  for (const std::string& sLine : {""s,
                                   "("s,
                                   "()"s,
                                   "::"s,
                                   "X1::Y1"s,
                                   "(X1::Y1"s,
                                   "X1::Y1)"s,
                                   " (X1::Y1)"s,
                                   "(X1::Y1) "s,
                                   "(X1::Y1))"s,
                                   "((X1::Y1)"s,
                                   "( X1::Y1)"s,
                                   "(X1 ::Y1)"s,
                                   "(X1:: Y1)"s,
                                   "(X1::Y1 )"s,
                                   "(X1:Y1)"s,
                                   "(X1:::Y1)"s,
                                   "(X1::Y1::Y2)"s,
                                   "(Y1::X1)"s,
                                   "(X1::X1)"s,
                                   "(Z1::Y1)"s,
                                   "(1::1)"s,
                                   "(X::Y1)"s,
                                   "(X1::Y)"s,
                                   "(X-1::Y1)"s,
                                   "(X1a::Y1)"s,
                                   "(X1::Y1a)"s,
                                   "(XX1::Y1)"s,
                                   "(X1::Y1)\r"s,
                                   ";--;(X1::Y1)"s,
                                   "(X1\0::Y1)"s,
                                   "(X\xB2::Y1)"s,
                                   "(X1234567890::Y1)"s,
                                   "(X1::Y0000000001)"s}) {
    EXPECT_EQ(PartsOf(sLine), std::nullopt) << sLine;
  }
}

TEST(AlignmentLine, ReturnsViewsOfTheLine) {
  const std::string Line = "(X12::Y3)";
  AlignmentParts Parts;
  ASSERT_TRUE(ParseCommonAlignment(Line, Parts));
  EXPECT_EQ(Parts.XText.data(), Line.data() + 2);
  EXPECT_EQ(Parts.YText.data(), Line.data() + 7);
}

TEST(AlignmentLine, RejectsEveryShorterPrefix) {
  const std::string Line = "(X12::Y345)";
  for (std::size_t Size = 0; Size < Line.size(); ++Size) {
    EXPECT_EQ(PartsOf(Line.substr(0, Size)), std::nullopt) << Line.substr(0, Size);
  }
}

TEST(AlignmentLine, ReadsRandomLinesLikeTheReference) {
  RandomInput Random;
  const Strings vsWords = {"(X", "(x1", "1", "0000", "12345", "::", "Y", "y2", ")"};
  int Taken = 0;
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Line = Case % 2 == 0 ? Random.Damaged("(X12::y3)", "()xXyY::0129 -\0\xB2"s)
                                           : Random.WordsOf(vsWords, 8);
    const std::optional<Strings> vsExpected = ReferenceParts(Line);
    ASSERT_EQ(PartsOf(Line), vsExpected) << Line;
    Taken += vsExpected ? 1 : 0;
  }
  EXPECT_GT(Taken, 500);
}

TEST(AlignmentLine, RequiresANumberOnBothSides) {
  for (const std::string sCode :
       {"(X12::Y3)", "(x12::y3)", "1. (X12 ::  Y3 ) a", ";--;(X12::Y3)"}) {
    const auto Line = ParseAlignment(sCode);
    ASSERT_TRUE(Line.has_value()) << sCode;
    EXPECT_EQ(Line->X, 12) << sCode;
    EXPECT_EQ(Line->Y, 3) << sCode;
  }
  for (const std::string sCode :
       {"X1::Y1", "(X1:Y1)", "(X::Y1)", "(X1::Y)", "(Xa::Y1)", "(Y1::X1)", "(X1::Y1::Y2)",
        "(X1::Y1) (X2::Y2)", "(X1::Y1))", "( X1::Y1)", "(X1234567890::Y1)", ")X1::Y1("}) {
    EXPECT_FALSE(ParseAlignment(sCode).has_value()) << sCode;
  }
}
