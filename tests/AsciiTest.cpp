// Byte classes, trimming of views and reading of numbers: only ASCII counts, for each of the 256
// bytes and in every locale, and every text has one defined value as a number.

#include "Ascii.h"

#include <gtest/gtest.h>

#include <climits>
#include <clocale>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

using std::string_view_literals::operator""sv;
using TrRuleInternal::ToInt;

namespace {

constexpr std::string_view WhiteSpace = " \t\n\v\f\r";
constexpr std::string_view Digits = "0123456789";
constexpr std::string_view Small = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view Capitals = "ABCDEFGHIJKLMNOPQRSTUVWXYZ";

bool IsOneOf(std::string_view Bytes, char Byte) {
  return Bytes.find(Byte) != std::string_view::npos;
}

char Mapped(std::string_view From, std::string_view To, char Byte) {
  const std::size_t Place = From.find(Byte);
  return Place == std::string_view::npos ? Byte : To[Place];
}

void ExpectAsciiClasses() {
  for (int Value = 0; Value < 256; ++Value) {
    SCOPED_TRACE(Value);
    const char Byte = static_cast<char>(Value);
    EXPECT_EQ(TrRuleInternal::IsSpace(Byte), IsOneOf(WhiteSpace, Byte));
    EXPECT_EQ(TrRuleInternal::IsDigit(Byte), IsOneOf(Digits, Byte));
    EXPECT_EQ(TrRuleInternal::ToUpper(Byte), Mapped(Small, Capitals, Byte));
    EXPECT_EQ(TrRuleInternal::ToLower(Byte), Mapped(Capitals, Small, Byte));
  }
}

}  // namespace

TEST(Ascii, ClassifiesAll256Bytes) {
  ExpectAsciiClasses();
}

TEST(Ascii, IgnoresTheLocale) {
  const std::string OldLocale = std::setlocale(LC_ALL, nullptr);
  for (const char* Name : {"C.UTF-8", "de_DE.ISO-8859-1", "en_US.ISO-8859-1", "tr_TR.UTF-8"}) {
    SCOPED_TRACE(Name);
    std::setlocale(LC_ALL, Name);  // a missing locale leaves the previous one
    ExpectAsciiClasses();
  }
  std::setlocale(LC_ALL, OldLocale.c_str());
}

TEST(Ascii, MapsEveryByteToUpperAndLowerCase) {
  EXPECT_EQ(TrRuleInternal::Upper(""), "");
  EXPECT_EQ(TrRuleInternal::Lower(""), "");
  EXPECT_EQ(TrRuleInternal::Upper(std::string("x1 = \xC3\xA4\0b"sv)), "X1 = \xC3\xA4\0B"sv);
  EXPECT_EQ(TrRuleInternal::Lower(std::string("X1 = \xC3\x84\0B"sv)), "x1 = \xC3\x84\0b"sv);
  EXPECT_EQ(TrRuleInternal::Upper("@[`{az"), "@[`{AZ");
  EXPECT_EQ(TrRuleInternal::Lower("@[`{AZ"), "@[`{az");
}

TEST(Ascii, MakesUpperCaseInPlace) {
  std::string Text = "x1 = \xC3\xA4@[`{az";
  TrRuleInternal::MakeUpper(Text);
  EXPECT_EQ(Text, "X1 = \xC3\xA4@[`{AZ");
}

TEST(Ascii, WritesDecimalNumbers) {
  const std::pair<int, const char*> Cases[] = {
      {0, "0"},
      {9, "9"},
      {10, "10"},
      {-1, "-1"},
      {123, "123"},
      {INT_MAX, "2147483647"},
      {INT_MIN, "-2147483648"},
  };
  for (const auto& [Number, Expected] : Cases) {
    SCOPED_TRACE(Expected);
    EXPECT_EQ(std::string_view(TrRuleInternal::Decimal(Number)), Expected);
  }
}

TEST(Ascii, AppendsTextsInOrder) {
  std::string Text = "x";
  TrRuleInternal::Append(Text, {});
  EXPECT_EQ(Text, "x");
  TrRuleInternal::Append(Text, {"", "ab", "\0"sv, "", "\xFF", TrRuleInternal::Decimal(-12)});
  EXPECT_EQ(Text, "xab\0\xFF-12"sv);
}

TEST(Ascii, FindsPartsAndPrefixes) {
  struct Case {
    std::string_view Text;
    std::string_view Part;
    std::size_t Place;
  };
  constexpr std::size_t None = std::string_view::npos;
  constexpr Case Cases[] = {
      {"", "a", None},        {"abc", "abc", 0},  {"abc", "abcd", None}, {"abc", "ab", 0},
      {"abc", "bc", 1},       {"abc", "c", 2},    {"abc", "cd", None},   {"abc", "ac", None},
      {"aab", "ab", 1},       {"abab", "ab", 0},  {"aaab", "aab", 1},    {"ABC", "ab", None},
      {"a\0b"sv, "\0b"sv, 1}, {"a\0b"sv, "b", 2}, {"\xFFz", "\xFF", 0},  {"z\xFF", "\xFF", 1},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(testing::Message() << Row.Text << " / " << Row.Part);
    EXPECT_EQ(TrRuleInternal::Find(Row.Text, Row.Part), Row.Place);
    EXPECT_EQ(TrRuleInternal::Contains(Row.Text, Row.Part), Row.Place != None);
    EXPECT_EQ(TrRuleInternal::StartsWith(Row.Text, Row.Part), Row.Place == 0);
  }
}

TEST(Ascii, TreatsAnEmptyPartAsAPrefixButDoesNotFindIt) {
  for (const char* Text : {"", "a"}) {
    SCOPED_TRACE(Text);
    EXPECT_TRUE(TrRuleInternal::StartsWith(Text, ""));
    EXPECT_EQ(TrRuleInternal::Find(Text, ""), std::string_view::npos);
  }
}

TEST(Ascii, StopsDroppingAtTheFirstKeptByte) {
  struct Case {
    std::string_view Text;
    std::string_view WithoutFront;
    std::string_view WithoutBack;
  };
  constexpr Case Cases[] = {
      {"", "", ""},
      {"x", "", ""},
      {"xxx", "", ""},
      {"abc", "abc", "abc"},
      {"xaxbx", "axbx", "xaxb"},
      {"\0x"sv, "\0x"sv, "\0"sv},
  };
  constexpr auto IsX = [](char Byte) { return Byte == 'x'; };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(TrRuleInternal::DropFront(Row.Text, IsX), Row.WithoutFront);
    EXPECT_EQ(TrRuleInternal::DropBack(Row.Text, IsX), Row.WithoutBack);
  }
}

TEST(Ascii, CutsTheRestAfterALeadingBlank) {
  struct Case {
    std::string_view Text;
    std::string_view Expected;
  };
  constexpr std::size_t MaxRest = 4;
  constexpr Case Cases[] = {
      {"", ""},
      {" ", ""},
      {"abcdefg", "abcdefg"},
      {" abc", "abc"},
      {" abcd", "abcd"},
      {" abcde", "abcd"},
      {"  abcde", "abc"},
      {"\t\r\n abcde", "a"},
      {"     a", ""},
      {"\0 abcde"sv, "\0 abcde"sv},
      {" \xA0"
       "bcde",
       "\xA0"
       "bcd"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(TrRuleInternal::WithoutLeadingSpace(Row.Text, MaxRest), Row.Expected);
  }
}

TEST(Ascii, DropsAnyNumberOfTrailingBlanks) {
  EXPECT_EQ(TrRuleInternal::WithoutTrailingSpace(""), "");
  EXPECT_EQ(TrRuleInternal::WithoutTrailingSpace(" \t\n\v\f\r"), "");
  EXPECT_EQ(TrRuleInternal::WithoutTrailingSpace(" a b\r\n"), " a b");
  EXPECT_EQ(TrRuleInternal::WithoutTrailingSpace("a \0"sv), "a \0"sv);
  EXPECT_EQ(TrRuleInternal::WithoutTrailingSpace("a\xA0"), "a\xA0");
}

TEST(Ascii, ClampsDigitsTo64Bits) {
  struct Case {
    std::string_view Text;
    std::uint64_t Positive;
    std::uint64_t Negative;
  };
  constexpr std::uint64_t Most = 9223372036854775807U;
  constexpr Case Cases[] = {
      {"", 0, 0},
      {"0", 0, 0},
      {"0000000000000000000000012", 12, 12},
      {"922337203685477580", 922337203685477580U, 922337203685477580U},
      {"9223372036854775806", Most - 1, Most - 1},
      {"9223372036854775807", Most, Most},
      {"9223372036854775808", Most, Most + 1},
      {"9223372036854775809", Most, Most + 1},
      {"9223372036854775810", Most, Most + 1},
      {"18446744073709551616", Most, Most + 1},
      {"99999999999999999999999999999999", Most, Most + 1},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(TrRuleInternal::DigitsValue(Row.Text, false), Row.Positive);
    EXPECT_EQ(TrRuleInternal::DigitsValue(Row.Text, true), Row.Negative);
  }
}

TEST(Ascii, ReadsALeadingNumber) {
  struct Case {
    std::string_view Text;
    int Expected;
  };
  constexpr Case Cases[] = {
      {"", 0},
      {"0", 0},
      {"7", 7},
      {"007", 7},
      {"12a", 12},
      {"a12", 0},
      {" 12)", 12},
      {"1,2", 1},
      {"1 2", 1},
      {"1.9", 1},
      {"0x10", 0},
      {"+12", 12},
      {"-12", -12},
      {"+", 0},
      {"-", 0},
      {"--1", 0},
      {"+-1", 0},
      {"- 1", 0},
      {"-0", 0},
      {" \t\n\v\f\r-7\r\n", -7},
      {"1\0"
       "2"sv,
       1},
      {"\0"
       "1"sv,
       0},
      {"\xA0"
       "1",
       0},
      {"1\xB2", 1},
      {"\r\n3", 3},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(ToInt(Row.Text), Row.Expected);
  }
}

TEST(Ascii, TakesTheLow32BitsOfA64BitValue) {
  struct Case {
    std::string_view Text;
    int Expected;
  };
  constexpr Case Cases[] = {
      {"2147483647", INT_MAX},     {"2147483648", INT_MIN},      {"-2147483648", INT_MIN},
      {"-2147483649", INT_MAX},    {"4294967295", -1},           {"4294967296", 0},
      {"4294967298", 2},           {"-4294967295", 1},           {"9223372036854775807", -1},
      {"9223372036854775808", -1}, {"99999999999999999999", -1}, {"-9223372036854775807", 1},
      {"-9223372036854775808", 0}, {"-99999999999999999999", 0},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(ToInt(Row.Text), Row.Expected);
  }
}

// All of this works at compile time, too.
static_assert(ToInt(" 12)") == 12 && ToInt("2147483648") == INT_MIN);
static_assert(TrRuleInternal::WithoutTrailingSpace("a \r\n") == "a");
static_assert(TrRuleInternal::WithoutLeadingSpace(" abc", 2) == "ab");
