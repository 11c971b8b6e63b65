// Splitting a text without copying it: the fields and their order, how many bytes are kept after
// a split, and the two functions that require exactly two fields.

#include "Splitter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using std::string_view_literals::operator""sv;
using TrRuleInternal::FieldPair;
using TrRuleInternal::SplitInTwo;
using TrRuleInternal::SplitInTwoTrimmed;
using TrRuleInternal::Splitter;
using TrRuleInternal::TrimmedField;

namespace {

using Views = std::vector<std::string_view>;

Views FieldsOf(std::string_view Text, std::string_view Delimiter) {
  Views vFields;
  Splitter Fields(Text, Delimiter);
  for (std::string_view Field; Fields.Next(Field);) {
    vFields.push_back(Field);
  }
  return vFields;
}

/// The two fields as "first|second", or "none".
std::string Shown(const std::optional<FieldPair>& Pair) {
  return Pair ? std::string(Pair->First) + '|' + std::string(Pair->Second) : "none";
}

}  // namespace

TEST(Splitter, ReturnsNonEmptyFieldsInOrder) {
  struct Case {
    std::string_view Text;
    std::string_view Delimiter;
    Views vExpected;
  };
  const Case Cases[] = {
      {"", "::", {}},
      {"::", "::", {}},
      {"::::", "::", {}},
      {"abc", "x", {"abc"}},
      {"abc", "abcd", {"abc"}},
      {"NP::NP", "::", {"NP", "NP"}},
      {"::a::::b::", "::", {"a", "b"}},
      {":::a", "::", {":a"}},
      {"aaa", "aa", {"a"}},
      {" a\tb ", " ", {"a\tb"}},
      {"a\r\nb\r\n", "\n", {"a\r", "b\r"}},
      {"a\0b\0\0c"sv, "\0"sv, {"a", "b", "c"}},
      {"\xC3\xA4\xFF", "\xA4", {"\xC3", "\xFF"}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(testing::Message() << Row.Text << " / " << Row.Delimiter);
    EXPECT_EQ(FieldsOf(Row.Text, Row.Delimiter), Row.vExpected);
  }
}

TEST(Splitter, DoesNotSplitAtAnEmptyDelimiter) {
  EXPECT_EQ(FieldsOf("abc", ""), Views{"abc"});
  EXPECT_EQ(FieldsOf("", ""), Views{});
}

TEST(Splitter, ReturnsViewsOfTheText) {
  const std::string Text = "ab::cd";
  const Views vFields = FieldsOf(Text, "::");
  ASSERT_EQ(vFields.size(), 2U);
  EXPECT_EQ(vFields[0].data(), Text.data());
  EXPECT_EQ(vFields[1].data(), Text.data() + 4);
}

TEST(Splitter, StaysAtTheEnd) {
  Splitter Fields("a", ":");
  std::string_view Field;
  EXPECT_TRUE(Fields.Next(Field));
  EXPECT_FALSE(Fields.Next(Field));
  EXPECT_FALSE(Fields.Next(Field));
}

TEST(Splitter, Keeps100000BytesAfterASplit) {
  static_assert(Splitter::MaxRest == 100000);
  for (const std::size_t Length : {99999U, 100000U, 100001U, 999999U, 1000000U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    const std::string Rest(std::min<std::size_t>(Length, 100000), 'x');
    EXPECT_EQ(FieldsOf(Long, ":"), Views{Long});
    EXPECT_EQ(FieldsOf(Long + ":b", ":"), (Views{Long, "b"}));
    EXPECT_EQ(FieldsOf("a:" + Long, ":"), (Views{"a", Rest}));
    EXPECT_EQ(FieldsOf(":" + Long, ":"), Views{Rest});
  }
}

TEST(Splitter, TrimsAFieldAndCutsOneThatBeginsWithABlank) {
  struct Case {
    std::string_view Field;
    std::string_view Expected;
  };
  constexpr Case Cases[] = {
      {"", ""},          {" ", ""},   {"\t\r\n\v\f ", ""},  {"a", "a"},
      {" a", "a"},       {"a ", "a"}, {"\ta b\r\n", "a b"}, {"\0 a \0"sv, "\0 a \0"sv},
      {"\xA0 ", "\xA0"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Field);
    EXPECT_EQ(TrimmedField(Row.Field), Row.Expected);
  }
  for (const std::size_t Length : {100001U, 999999U, 1000000U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    EXPECT_EQ(TrimmedField(Long + ' '), Long);
    EXPECT_EQ(TrimmedField(' ' + Long), Long.substr(0, 1000000));
    EXPECT_EQ(TrimmedField("  " + Long), Long.substr(0, 999999));
  }
}

TEST(Splitter, SplitInTwoRequiresExactlyTwoFields) {
  struct Case {
    std::string_view Text;
    const char* Plain;
    const char* Trimmed;
  };
  constexpr Case Cases[] = {
      {"", "none", "none"},
      {"=", "none", "none"},
      {"a", "none", "none"},
      {"a=", "none", "none"},
      {"=a", "none", "none"},
      {"a=b", "a|b", "a|b"},
      {"a=b=c", "none", "none"},
      {"=a==b=", "a|b", "a|b"},
      {" a = b\r\n", " a | b\r\n", "a|b"},
      {" = ", " | ", "|"},
      {"a= ", "a| ", "a|"},
      {"a=b=", "a|b", "a|b"},
      {"a=b= ", "none", "none"},
      {"\xFF=\xFE", "\xFF|\xFE", "\xFF|\xFE"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(Shown(SplitInTwo(Row.Text, "=")), Row.Plain);
    EXPECT_EQ(Shown(SplitInTwoTrimmed(Row.Text, "=")), Row.Trimmed);
  }
  EXPECT_EQ(Shown(SplitInTwo("a=b", "")), "none");
  EXPECT_EQ(Shown(SplitInTwoTrimmed("a=b", "")), "none");
}

TEST(Splitter, SplitInTwoMissesAThirdFieldAfterTheLimit) {
  const std::string Filler(99999, 'x');
  EXPECT_EQ(Shown(SplitInTwo("a=" + Filler + "=c", "=")), "a|" + Filler);
  EXPECT_EQ(Shown(SplitInTwo("a=" + Filler.substr(1) + "=c", "=")), "none");
}

// Splitting works at compile time, too.
static_assert(SplitInTwo("a=b", "=")->Second == "b");
static_assert(!SplitInTwoTrimmed("a=b=c", "="));
static_assert(TrimmedField(" a ") == "a");
