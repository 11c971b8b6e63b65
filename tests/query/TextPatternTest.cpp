#include "TextPattern.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using Query::QueryFault;
using Query::TextPattern;

TextPattern Compiled(const std::string& Text, bool IgnoresCase = false) {
  TextPattern Pattern;
  Pattern.Text = Text;
  Pattern.IgnoresCase = IgnoresCase;
  QueryFault Fault;
  EXPECT_TRUE(Pattern.Compile(Fault)) << Fault.Message;
  return Pattern;
}

}  // namespace

TEST(TextPattern, IsFoundAnywhereAsItIsWritten) {
  TextPattern Plain;
  Plain.Text = "r.d";
  EXPECT_TRUE(Plain.Fits("a r.d car"));
  EXPECT_FALSE(Plain.Fits("a red car"));
  EXPECT_FALSE(Plain.Fits("a R.D car"));
  EXPECT_TRUE(TextPattern().Fits(""));
}

TEST(TextPattern, CanBeARegularExpression) {
  EXPECT_TRUE(Compiled("^a r.d\\b").Fits("a red car"));
  EXPECT_FALSE(Compiled("^red").Fits("a red car"));
  EXPECT_FALSE(Compiled("RED").Fits("a red car"));
  EXPECT_TRUE(Compiled("RED", true).Fits("a red car"));
  EXPECT_TRUE(Compiled("^.$").Fits("語"));
  EXPECT_TRUE(
      Compiled("a").Fits("\xFF"
                         "a"));
  EXPECT_TRUE(Compiled("").Fits(""));
}

TEST(TextPattern, SaysWhatIsWrongWithAnExpression) {
  const struct {
    std::string Text;
    std::size_t Place;
    std::string Message;
  } Cases[] = {
      {"a(b", 0, "missing ): a(b"},
      {"ab[c", 2, "missing ]: [c"},
      {"a**", 1, "bad repetition operator: **"},
      {"ab\\2", 2, "invalid escape sequence: \\2"},
      {"(?=a)", 0, "invalid perl operator: (?="},
  };
  for (const auto& Row : Cases) {
    TextPattern Pattern;
    Pattern.Text = Row.Text;
    QueryFault Fault;
    EXPECT_FALSE(Pattern.Compile(Fault)) << Row.Text;
    EXPECT_EQ(Fault.Place, Row.Place) << Row.Text;
    EXPECT_EQ(Fault.Message, Row.Message) << Row.Text;
  }
}
