// The text operations: white space, replacing and escaping, numbers, case, line ends and splitting,
// including the two that print at every level and the one that may never return.

#include "StringUtils.h"

#include <gtest/gtest.h>

#include "Halt.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <climits>
#include <clocale>
#include <string>
#include <type_traits>
#include <utility>

using std::string_literals::operator""s;

// Static operations on copies: none needs an object or can change the argument of its caller.
using OneText = std::string (*)(std::string);
static_assert(std::is_empty_v<StringUtils>);
static_assert(std::is_same_v<decltype(&StringUtils::RemoveLeadingWhiteSpace), OneText>);
static_assert(std::is_same_v<decltype(&StringUtils::RemoveTrailingWhiteSpace), OneText>);
static_assert(std::is_same_v<decltype(&StringUtils::RemoveAllWhiteSpace), OneText>);
static_assert(std::is_same_v<decltype(&StringUtils::StringToUpper), OneText>);
static_assert(std::is_same_v<decltype(&StringUtils::StringToLower), OneText>);
static_assert(std::is_same_v<decltype(&StringUtils::RemoveBackslashR), OneText>);
static_assert(std::is_same_v<decltype(&StringUtils::IsNumeric), bool (*)(std::string)>);
static_assert(std::is_same_v<decltype(&StringUtils::ReplaceAll),
                             std::string (*)(std::string, std::string, std::string)>);
static_assert(
    std::is_same_v<decltype(&StringUtils::EscapeChar), std::string (*)(std::string, char)>);
static_assert(std::is_same_v<decltype(&StringUtils::Int2String), std::string (*)(int)>);
static_assert(std::is_same_v<decltype(&StringUtils::String2Int), int (*)(std::string)>);
static_assert(std::is_same_v<decltype(&StringUtils::Split), Strings (*)(std::string, std::string)>);

namespace {

void ExpectTrimmedAsByTheReference(const std::string& Text) {
  EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace(Text), Reference::WithoutLeadingSpace(Text));
  EXPECT_EQ(StringUtils::RemoveTrailingWhiteSpace(Text), Reference::WithoutTrailingSpace(Text));
  EXPECT_EQ(StringUtils::RemoveAllWhiteSpace(Text), Reference::WithoutSpace(Text));
}

std::string AllBytes() {
  std::string Bytes;
  for (int Value = 0; Value < 256; ++Value) {
    Bytes += static_cast<char>(Value);
  }
  return Bytes;
}

/// While it exists, a call that never returns throws its reason instead.
class ThrowOnHalt {
 public:
  ThrowOnHalt()
      : OldHandler(SetHaltHandler([](HaltReason What, const std::string&) { throw What; })) {}
  ~ThrowOnHalt() { SetHaltHandler(OldHandler); }
  ThrowOnHalt(const ThrowOnHalt&) = delete;
  ThrowOnHalt& operator=(const ThrowOnHalt&) = delete;

 private:
  HaltHandler OldHandler;
};

bool NeverReturns(const std::string& Text, const std::string& Delimiter) {
  const ThrowOnHalt Scope;
  try {
    StringUtils::Split(Text, Delimiter);
  } catch (const HaltReason What) {
    return What == HaltReason::SplitNeverReturns;
  }
  return false;
}

}  // namespace

TEST(StringUtils, RemovesLeadingTrailingOrAllWhiteSpace) {
  struct Case {
    std::string Text;
    std::string WithoutLeading;
    std::string WithoutTrailing;
    std::string WithoutAny;
  };
  const Case Cases[] = {
      {"", "", "", ""},
      {" ", "", "", ""},
      {" \t", "", "", ""},
      {"x", "x", "x", "x"},
      {" x ", "x ", " x", "x"},
      {"x y", "x y", "x y", "xy"},
      {"a\r\n", "a\r\n", "a", "a"},
      {"\r\n\r\n", "", "", ""},
      {" \t\n\v\f\rx y\r\f\v\n\t ", "x y\r\f\v\n\t ", " \t\n\v\f\rx y", "xy"},
      {"\0 x \0"s, "\0 x \0"s, "\0 x \0"s, "\0x\0"s},
      {" \x85 \xA0 ", "\x85 \xA0 ", " \x85 \xA0", "\x85\xA0"},
      {"\x1C\b x", "\x1C\b x", "\x1C\b x", "\x1C\bx"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Text);
    EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace(Row.Text), Row.WithoutLeading);
    EXPECT_EQ(StringUtils::RemoveTrailingWhiteSpace(Row.Text), Row.WithoutTrailing);
    EXPECT_EQ(StringUtils::RemoveAllWhiteSpace(Row.Text), Row.WithoutAny);
  }
}

TEST(StringUtils, CutsTheTextOnlyAfterLeadingWhiteSpace) {
  for (const std::size_t Length : {99999U, 100000U, 100001U, 999999U, 1000000U, 1000001U}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace(Long), Long);
    EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace(" " + Long), Long.substr(0, 100000));
    EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace("\t " + Long), Long.substr(0, 99999));
    EXPECT_EQ(StringUtils::RemoveTrailingWhiteSpace(Long + " "), Long);
    EXPECT_EQ(StringUtils::RemoveAllWhiteSpace(" " + Long + " "), Long);
  }
  EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace(std::string(100000, ' ') + "x"), "x");
  EXPECT_EQ(StringUtils::RemoveLeadingWhiteSpace(std::string(100001, ' ') + "x"), "");
}

TEST(StringUtils, TrimsLikeTheReferenceAtEveryPrefixOfTheSample) {
  const std::string WithCarriageReturns = Reference::Replaced(SampleText, "\n", "\r\n");
  for (const std::string& Text : {SampleText, WithCarriageReturns, " \t" + SampleText}) {
    for (std::size_t Length = 0; Length <= Text.size(); ++Length) {
      SCOPED_TRACE(Length);
      ExpectTrimmedAsByTheReference(Text.substr(0, Length));
    }
  }
}

TEST(StringUtils, IsNumericReportsTheFirstOtherByteAtEveryLevel) {
  const std::pair<std::string, bool> Cases[] = {
      {"", true},      {"0", true},     {"0123456789", true}, {"12a", false},
      {"a", false},    {"-1", false},   {"+1", false},        {"1.5", false},
      {" 1", false},   {"1 ", false},   {"abc", false},       {"1\r\n", false},
      {"1\0"s, false}, {"\xB2", false}, {"0x1", false},       {"99999999999999999999", true},
  };
  for (const auto& [Text, Expected] : Cases) {
    for (int Level = 0; Level <= 4; ++Level) {
      SCOPED_TRACE(testing::Message() << Text << " at level " << Level);
      const DebugLevel Scope(Level);
      bool Numeric = !Expected;
      const Written Lines =
          WrittenBy([&, &Input = Text] { Numeric = StringUtils::IsNumeric(Input); });
      EXPECT_EQ(Numeric, Expected);
      EXPECT_EQ(Lines, (Written{Expected ? "" : "Not a digit.\n", ""}));
    }
  }
}

TEST(StringUtils, ReplaceAllGoesFromLeftToRightAndSkipsInsertedText) {
  struct Case {
    std::string Text;
    std::string From;
    std::string To;
    std::string Expected;
  };
  const Case Cases[] = {
      {"", "a", "b", ""},
      {"abc", "x", "y", "abc"},
      {"abc", "abcd", "y", "abc"},
      {"aaa", "a", "aa", "aaaaaa"},
      {"aaa", "aa", "b", "ba"},
      {"aaaa", "aa", "a", "aa"},
      {"abab", "ab", "", ""},
      {"aaabbb", "ab", "", "aabb"},
      {"a-b-c", "-", "+", "a+b+c"},
      {"-a-", "-", "--", "--a--"},
      {"abc", "abc", "abc", "abc"},
      {"(*OR* SG PL)", "(*OR*", "", " SG PL)"},
      {"a\r\nb\r\n", "\r\n", "\n", "a\nb\n"},
      {"a\0b\0"s, "\0"s, "\0\0"s, "a\0\0b\0\0"s},
      {"\xC3\xA4\xC3", "\xC3", "\xFF", "\xFF\xA4\xFF"},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(testing::Message() << Row.Text << " / " << Row.From << " / " << Row.To);
    EXPECT_EQ(StringUtils::ReplaceAll(Row.Text, Row.From, Row.To), Row.Expected);
  }
}

TEST(StringUtils, ReplaceAllIgnoresAnEmptyText) {
  EXPECT_EQ(StringUtils::ReplaceAll("abc", "", "x"), "abc");
  EXPECT_EQ(StringUtils::ReplaceAll("", "", "x"), "");
}

TEST(StringUtils, EscapeCharSetsBackslashesAndPrintsTwoLinesAtEveryLevel) {
  struct Case {
    std::string Text;
    char Esc;
    std::string Escaped;
    std::string Plain;
    std::string Expected;
  };
  const Case Cases[] = {
      {"", '"', "\\\"", "", ""},
      {"abc", '"', "\\\"", "abc", "abc"},
      {"a\"b\\\"c", '"', "\\\"", "a\"b\"c", "a\\\"b\\\"c"},
      {"\"\"", '"', "\\\"", "\"\"", "\\\"\\\""},
      {"o'k", '\'', "\\'", "o'k", "o\\'k"},
      {"a\\b", '"', "\\\"", "a\\b", "a\\b"},
      {"\\\\\"", '"', "\\\"", "\\\"", "\\\\\""},
      {"a\\b", '\\', "\\\\", "a\\b", "a\\\\b"},
      {"a\\\\b", '\\', "\\\\", "a\\b", "a\\\\b"},
      {"\\\\\\", '\\', "\\\\", "\\\\", "\\\\\\\\"},
      {"a\0b"s, '\0', "\\\0"s, "a\0b"s, "a\\\0b"s},
      {"\xFF\r\n", '\xFF', "\\\xFF", "\xFF\r\n", "\\\xFF\r\n"},
  };
  for (const Case& Row : Cases) {
    for (int Level = 0; Level <= 4; ++Level) {
      SCOPED_TRACE(testing::Message() << Row.Text << " at level " << Level);
      const DebugLevel Scope(Level);
      std::string Result;
      const Written Lines = WrittenBy([&] { Result = StringUtils::EscapeChar(Row.Text, Row.Esc); });
      EXPECT_EQ(Result, Row.Expected);
      EXPECT_EQ(
          Lines,
          (Written{"sEscapedEsc is:" + Row.Escaped + "\nsPassIn is now:" + Row.Plain + "\n", ""}));
    }
  }
}

TEST(StringUtils, Int2StringWritesPlainDecimal) {
  const std::pair<int, const char*> Cases[] = {
      {0, "0"},
      {7, "7"},
      {-1, "-1"},
      {10, "10"},
      {-0, "0"},
      {1000000, "1000000"},
      {INT_MAX, "2147483647"},
      {INT_MIN, "-2147483648"},
  };
  for (const auto& [Number, Expected] : Cases) {
    SCOPED_TRACE(Expected);
    EXPECT_EQ(StringUtils::Int2String(Number), Expected);
    EXPECT_EQ(StringUtils::String2Int(Expected), Number);
  }
}

TEST(StringUtils, String2IntReadsDigitsUpToTheFirstOtherByte) {
  const std::pair<std::string, int> Cases[] = {
      {"", 0},
      {"12", 12},
      {" 12)", 12},
      {"12a", 12},
      {"a12", 0},
      {"+7", 7},
      {"-7", -7},
      {"--7", 0},
      {"- 7", 0},
      {"007", 7},
      {"1.9", 1},
      {"1,2", 1},
      {"0x10", 0},
      {" \t\n\v\f\r5", 5},
      {"3\r\n", 3},
      {"1\0002"s, 1},
      {"\0001"s, 0},
      {"\xA0"
       "1",
       0},
      {"1\xB2", 1},
      {"+", 0},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(StringUtils::String2Int(Text), Expected);
  }
}

TEST(StringUtils, String2IntTakesTheLow32BitsOfWhatFitsInto64) {
  const std::pair<const char*, int> Cases[] = {
      {"2147483648", INT_MIN},     {"-2147483649", INT_MAX},     {"4294967296", 0},
      {"4294967298", 2},           {"9223372036854775807", -1},  {"9223372036854775808", -1},
      {"-9223372036854775808", 0}, {"99999999999999999999", -1}, {"-99999999999999999999", 0},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(StringUtils::String2Int(Text), Expected);
  }
}

TEST(StringUtils, ChangesTheCaseOfAsciiLettersOnly) {
  std::string Upper = AllBytes();
  std::string Lower = AllBytes();
  for (std::size_t Letter = 0; Letter < 26; ++Letter) {
    Upper['a' + Letter] = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"[Letter];
    Lower['A' + Letter] = "abcdefghijklmnopqrstuvwxyz"[Letter];
  }
  EXPECT_NE(Upper, Lower);
  EXPECT_EQ(StringUtils::StringToUpper(AllBytes()), Upper);
  EXPECT_EQ(StringUtils::StringToLower(AllBytes()), Lower);
  EXPECT_EQ(StringUtils::StringToUpper(""), "");
  EXPECT_EQ(StringUtils::StringToLower(""), "");
  EXPECT_EQ(StringUtils::StringToUpper("Det n1 \xC3\xA4"), "DET N1 \xC3\xA4");
  EXPECT_EQ(StringUtils::StringToLower("Det N1 \xC3\x84"), "det n1 \xC3\x84");
}

TEST(StringUtils, IgnoresTheLocale) {
  const std::string OldLocale = std::setlocale(LC_ALL, nullptr);
  std::setlocale(LC_ALL, "C.UTF-8");
  EXPECT_EQ(StringUtils::RemoveAllWhiteSpace("a\xA0\x85 b"),
            "a\xA0\x85"
            "b");
  EXPECT_EQ(StringUtils::StringToUpper("\xE4z"), "\xE4Z");
  EXPECT_EQ(StringUtils::StringToLower("\xC4Z"), "\xC4z");
  EXPECT_EQ(StringUtils::Int2String(1234567), "1234567");
  std::setlocale(LC_ALL, OldLocale.c_str());
}

TEST(StringUtils, RemoveBackslashRDropsOnlyTrailingCarriageReturns) {
  const std::pair<std::string, std::string> Cases[] = {
      {"", ""},       {"\r", ""},         {"\r\r", ""},       {"x", "x"},         {"x\r", "x"},
      {"x\r\r", "x"}, {"a\rb", "a\rb"},   {"a\rb\r", "a\rb"}, {"x\r\n", "x\r\n"}, {"x \r", "x "},
      {"\rx", "\rx"}, {"x\0\r"s, "x\0"s}, {"\xFF\r", "\xFF"}, {"x\\r", "x\\r"},
  };
  for (const auto& [Text, Expected] : Cases) {
    SCOPED_TRACE(Text);
    EXPECT_EQ(StringUtils::RemoveBackslashR(Text), Expected);
  }
}

TEST(StringUtils, SplitCutsAtTheWholeDelimiterAndDropsEmptyPieces) {
  struct Case {
    std::string Text;
    std::string Delimiter;
    Strings vsExpected;
  };
  const Case Cases[] = {
      {"", "::", {}},
      {"abc", "x", {"abc"}},
      {"ab", "abc", {"ab"}},
      {"NP::NP", "::", {"NP", "NP"}},
      {"::a::::b", "::", {"a", "b"}},
      {"a:::", "::", {"a", ":"}},
      {"a:b::c", "::", {"a:b", "c"}},
      {" a \t b", " ", {"a", "\t", "b"}},
      {"a\r\nb\r", "\n", {"a\r", "b\r"}},
      {"a\0\0b"s, "\0"s, {"a", "b"}},
      {"\xC3\xA4\xFF", "\xA4", {"\xC3", "\xFF"}},
      {"abc", "", {"abc"}},
      {"", "", {}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(testing::Message() << Row.Text << " / " << Row.Delimiter);
    EXPECT_EQ(StringUtils::Split(Row.Text, Row.Delimiter), Row.vsExpected);
  }
}

TEST(StringUtils, SplitKeepsTenMillionBytesAfterACut) {
  constexpr std::size_t MaxRest = 10000000;
  for (const std::size_t Length :
       {std::size_t{100001}, std::size_t{1000001}, MaxRest - 1, MaxRest, MaxRest + 1}) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    EXPECT_TRUE(StringUtils::Split(Long, ":") == Strings{Long});
    EXPECT_TRUE(StringUtils::Split("a:" + Long, ":") == (Strings{"a", Long.substr(0, MaxRest)}));
  }
}

TEST(StringUtils, SplitNeverReturnsOnATextThatEndsWithItsDelimiter) {
  for (const char* Text : {"::", "a::", "::a::", "a::b::", "a::::", "::::"}) {
    SCOPED_TRACE(Text);
    EXPECT_TRUE(NeverReturns(Text, "::"));
  }
  for (const char* Text : {"", ":", "a:", "::a", "a::b", ":::"}) {
    SCOPED_TRACE(Text);
    EXPECT_FALSE(NeverReturns(Text, "::"));
  }
}

TEST(StringUtils, SplitNeverReturnsWhenItsLimitLeavesTheDelimiterLast) {
  const std::string Long(9999999, 'x');
  EXPECT_TRUE(NeverReturns("a:" + Long + ":b", ":"));
  EXPECT_FALSE(NeverReturns("a:" + Long + "x:b", ":"));
}

TEST(StringUtils, SplitWaitsWithoutUsingMemoryOrProcessor) {
  const ChildWait Wait = WatchInChild([] { StringUtils::Split("a,b,", ","); });
  EXPECT_TRUE(Wait.Alive);
  EXPECT_TRUE(Wait.KeptMemory);
  EXPECT_TRUE(Wait.KeptProcessor);
  EXPECT_EQ(Wait.Out, "");
  EXPECT_EQ(Wait.Err, "");
}
