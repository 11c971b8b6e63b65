// Parsing header lines: which ones are in their common form, and their parts.

#include "HeaderLine.h"

#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using std::string_literals::operator""s;
using TrRuleInternal::HeaderParts;
using TrRuleInternal::ParseCommonHeader;
using TrRuleInternal::ParseHeader;
using TrRuleInternal::ParseWholeNumber;

namespace {

std::optional<Strings> PartsOf(const std::string& Line) {
  HeaderParts Parts;
  if (!ParseCommonHeader(Line, Parts)) {
    return std::nullopt;
  }
  return Strings{std::string(Parts.Type), std::string(Parts.Number)};
}

}  // namespace

TEST(HeaderLine, ParsesTheCommonForm) {
  const std::pair<std::string, Strings> Cases[] = {
      {"{NP,8}", {"NP", "8"}},       {"{np,8}", {"np", "8"}},
      {"{ADJP,12}", {"ADJP", "12"}}, {"{N-P_2,007}", {"N-P_2", "007"}},
      {"{1,1}", {"1", "1"}},         {"{-,99999999999999999999}", {"-", "99999999999999999999"}},
  };
  for (const auto& [Line, vsExpected] : Cases) {
    EXPECT_EQ(PartsOf(Line), std::optional(vsExpected)) << Line;
  }
}

TEST(HeaderLine, RejectsOtherLines) {
  for (const std::string& sLine :
       {""s,        "{"s,         "{}"s,        "{NP"s,      "{NP,"s,    "{NP,8"s,
        "{NP,}"s,   "{,8}"s,      "{,}"s,       "NP,8}"s,    " {NP,8}"s, "{NP,8} "s,
        "{NP,8}}"s, "{{NP,8}"s,   "{NP ,8}"s,   "{NP, 8}"s,  "{NP,8 }"s, "{NP,-8}"s,
        "{NP,8x}"s, "{NP,8,9}"s,  "{NP::V,8}"s, "{N=P,8}"s,  "{N;P,8}"s, "{NP;8}"s,
        "{N\0,8}"s, "{N\xE9,8}"s, "{NP,\xB2}"s, "{NP,8}\r"s, "{N[P],8}"s}) {
    EXPECT_EQ(PartsOf(sLine), std::nullopt) << sLine;
  }
}

TEST(HeaderLine, ReturnsViewsOfTheLine) {
  const std::string Line = "{ADJP,12}";
  HeaderParts Parts;
  ASSERT_TRUE(ParseCommonHeader(Line, Parts));
  EXPECT_EQ(Parts.Type.data(), Line.data() + 1);
  EXPECT_EQ(Parts.Number.data(), Line.data() + 6);
}

TEST(HeaderLine, RejectsEveryShorterPrefix) {
  const std::string Line = "{ADJP,12}";
  for (std::size_t Size = 0; Size < Line.size(); ++Size) {
    EXPECT_EQ(PartsOf(Line.substr(0, Size)), std::nullopt) << Line.substr(0, Size);
  }
}

TEST(HeaderLine, ReadsRandomLinesLikeTheReference) {
  RandomInput Random;
  int Taken = 0;
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Line = Case % 2 == 0 ? Random.Damaged("{ADJ-P_1,120}", "{},;:= aZ09-_\0\xE9"s)
                                           : Random.WordsOf({"{", "}", ",", "8", "NP", "_"}, 6);
    const std::optional<Strings> vsExpected = Reference::HeaderParts(Line);
    ASSERT_EQ(PartsOf(Line), vsExpected) << Line;
    Taken += vsExpected ? 1 : 0;
  }
  EXPECT_GT(Taken, 500);
}

TEST(HeaderLine, ParsesWhatPeopleWrite) {
  const std::pair<std::string, Strings> Cases[] = {
      {"{NP,8}", {"NP", "8"}},
      {"12. { NP , 007 } x", {"NP", "007"}},
      {"{,-1}", {"", "-1"}},
      {"{a{b,2147483647}", {"a{b", "2147483647"}},
  };
  for (const auto& [Line, vsExpected] : Cases) {
    const std::optional<HeaderParts> Parts = ParseHeader(Line);
    ASSERT_TRUE(Parts) << Line;
    EXPECT_EQ((Strings{std::string(Parts->Type), std::string(Parts->Number)}), vsExpected) << Line;
  }
  for (const std::string& sLine :
       {""s, "{"s, "{}"s, "{NP}"s, "{NP,}"s, "{NP,a}"s, "{NP,8"s, "{NP 8}"s, "{NP,+8}"s, "{NP,8a}"s,
        "{NP,8,9}"s, "{NP,2147483648}"s, "{NP,99999999999}"s, "}NP,8{"s}) {
    EXPECT_FALSE(ParseHeader(sLine)) << sLine;
  }
}

TEST(HeaderLine, ParsesWholeNumbers) {
  const std::pair<std::string, std::optional<int>> Cases[] = {
      {"0", 0},
      {"007", 7},
      {"-1", -1},
      {"2147483647", 2147483647},
      {"2147483648", std::nullopt},
      {"", std::nullopt},
      {"8a", std::nullopt},
      {" 8", std::nullopt},
  };
  for (const auto& [Text, Expected] : Cases) {
    EXPECT_EQ(ParseWholeNumber(Text), Expected) << Text;
  }
}
