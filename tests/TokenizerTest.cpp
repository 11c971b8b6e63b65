// Splitting a text at a delimiter: no empty pieces, a limit after every cut, trimming that keeps
// emptied pieces, and the same pieces as the reference implementation, which cuts one remainder
// after another (ReferenceImplementationTest.cpp does so with random texts).

#include "Tokenizer.h"

#include <gtest/gtest.h>

#include "support/DebugLevel.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <string>
#include <type_traits>

using std::string_literals::operator""s;

static_assert(std::is_empty_v<Tokenizer>);
static_assert(std::is_default_constructible_v<Tokenizer> &&
              std::is_copy_constructible_v<Tokenizer> && std::is_copy_assignable_v<Tokenizer>);
static_assert(std::is_invocable_r_v<Strings, const Tokenizer&, std::string, std::string>);
static_assert(std::is_invocable_r_v<Strings, const Tokenizer&, std::string, std::string, bool>);

namespace {

void ExpectLikeTheReference(const std::string& Text, const std::string& Delimiter) {
  const Tokenizer Tokenize;
  EXPECT_EQ(Tokenize(Text, Delimiter), Reference::Pieces(Text, Delimiter));
  EXPECT_EQ(Tokenize(Text, Delimiter, false), Reference::Pieces(Text, Delimiter));
  EXPECT_EQ(Tokenize(Text, Delimiter, true), Reference::TrimmedPieces(Text, Delimiter));
}

const std::size_t LengthsAroundTheCaps[] = {99999, 100000, 100001, 999999, 1000000, 1000001};

}  // namespace

TEST(Tokenizer, CutsAtTheWholeDelimiterAndDropsEmptyPieces) {
  struct Case {
    std::string Text;
    std::string Delimiter;
    Strings vsPlain;
    Strings vsTrimmed;
  };
  const Case Cases[] = {
      {"NP::NP", "::", {"NP", "NP"}, {"NP", "NP"}},
      {"::a::::b::", "::", {"a", "b"}, {"a", "b"}},
      {"", "::", {}, {}},
      {"abc", "x", {"abc"}, {"abc"}},
      {"::", "::", {}, {}},
      {"::::", "::", {}, {}},
      {":::", "::", {":"}, {":"}},
      {"a:b", "::", {"a:b"}, {"a:b"}},
      {"abc", "abc", {}, {}},
      {"ab", "abc", {"ab"}, {"ab"}},
      {"aaa", "aa", {"a"}, {"a"}},
      {"cab", "abc", {"cab"}, {"cab"}},
      {"[DET ADJ N]", " ", {"[DET", "ADJ", "N]"}, {"[DET", "ADJ", "N]"}},
      {"DET  ADJ\t N ", " ", {"DET", "ADJ\t", "N"}, {"DET", "ADJ", "N"}},
      {"A\tB", " ", {"A\tB"}, {"A\tB"}},
      {"(x0 = x3)", " = ", {"(x0", "x3)"}, {"(x0", "x3)"}},
      {"a = b = c", " = ", {"a", "b", "c"}, {"a", "b", "c"}},
      {"a\r\nb\r\n", "\n", {"a\r", "b\r"}, {"a", "b"}},
      {"a\0b\0\0c"s, "\0"s, {"a", "b", "c"}, {"a", "b", "c"}},
      {"\xC3\xA4 \xFF", " ", {"\xC3\xA4", "\xFF"}, {"\xC3\xA4", "\xFF"}},
      {"\xC3\xA4 \xFF", "\xA4", {"\xC3", " \xFF"}, {"\xC3", "\xFF"}},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(testing::Message() << Row.Text << " / " << Row.Delimiter);
    const Tokenizer Tokenize;
    EXPECT_EQ(Tokenize(Row.Text, Row.Delimiter), Row.vsPlain);
    EXPECT_EQ(Tokenize(Row.Text, Row.Delimiter, false), Row.vsPlain);
    EXPECT_EQ(Tokenize(Row.Text, Row.Delimiter, true), Row.vsTrimmed);
  }
}

TEST(Tokenizer, KeepsAPieceEmptiedByTrimming) {
  const Tokenizer Tokenize;
  EXPECT_EQ(Tokenize("a \t b", " "), (Strings{"a", "\t", "b"}));
  EXPECT_EQ(Tokenize("a \t b", " ", true), (Strings{"a", "", "b"}));
  EXPECT_EQ(Tokenize("\r\n", " ", true), Strings{""});
  EXPECT_EQ(Tokenize("  ", " ", true), Strings{});
}

TEST(Tokenizer, TrimsTheSixKindsOfWhiteSpaceAndNothingElse) {
  const Tokenizer Tokenize;
  EXPECT_EQ(Tokenize(" \t\n\v\f\rx y\r\f\v\n\t :z", ":", true), (Strings{"x y", "z"}));
  EXPECT_EQ(Tokenize("\0 x \0:\x85\xA0\x1C"s, ":", true), (Strings{"\0 x \0"s, "\x85\xA0\x1C"}));
}

TEST(Tokenizer, DoesNotCutAtAnEmptyDelimiter) {
  const Tokenizer Tokenize;
  EXPECT_EQ(Tokenize("", ""), Strings{});
  EXPECT_EQ(Tokenize(" a b ", ""), Strings{" a b "});
  EXPECT_EQ(Tokenize(" a b ", "", true), Strings{"a b"});
}

TEST(Tokenizer, Keeps100000BytesAfterACut) {
  const Tokenizer Tokenize;
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    const std::string Capped = Long.substr(0, 100000);
    for (const bool Trim : {false, true}) {
      EXPECT_EQ(Tokenize(Long, ":", Trim), Strings{Long});
      EXPECT_EQ(Tokenize(Long + ":b", ":", Trim), (Strings{Long, "b"}));
      EXPECT_EQ(Tokenize("a:" + Long, ":", Trim), (Strings{"a", Capped}));
      EXPECT_EQ(Tokenize(":" + Long, ":", Trim), Strings{Capped});
      EXPECT_EQ(Tokenize("a:b:" + Long, ":", Trim), (Strings{"a", "b", Long.substr(0, 99998)}));
    }
  }
}

TEST(Tokenizer, CutsADelimiterAtTheLimit) {
  const Tokenizer Tokenize;
  const std::string Long(99999, 'x');
  EXPECT_EQ(Tokenize("a::" + Long + "::c", "::"), (Strings{"a", Long + ':'}));
  EXPECT_EQ(Tokenize("a::" + Long.substr(1) + "::c", "::"), (Strings{"a", Long.substr(1)}));
  EXPECT_EQ(Tokenize("a::" + Long.substr(2) + "::c", "::"), (Strings{"a", Long.substr(2), "c"}));
}

TEST(Tokenizer, CutsAPieceThatBeginsWithABlankToAMillionBytes) {
  const Tokenizer Tokenize;
  for (const std::size_t Length : LengthsAroundTheCaps) {
    SCOPED_TRACE(Length);
    const std::string Long(Length, 'x');
    EXPECT_EQ(Tokenize(Long + " ", ":", true), Strings{Long});
    EXPECT_EQ(Tokenize(" " + Long, ":", false), Strings{" " + Long});
    EXPECT_EQ(Tokenize(" " + Long, ":", true), Strings{Long.substr(0, 1000000)});
    EXPECT_EQ(Tokenize("\t " + Long + ":b", ":", true), (Strings{Long.substr(0, 999999), "b"}));
  }
  EXPECT_EQ(Tokenize(std::string(1000001, ' ') + "x", ":", true), Strings{""});
  EXPECT_EQ(Tokenize(std::string(1000000, ' ') + "x", ":", true), Strings{"x"});
}

TEST(Tokenizer, SplitsLikeTheReferenceAtEveryPrefixOfTheSample) {
  std::string WithCarriageReturns;
  for (const char Byte : SampleText) {
    WithCarriageReturns += Byte == '\n' ? "\r\n"s : std::string(1, Byte);
  }
  for (const std::string& Text : {SampleText, WithCarriageReturns, SampleText + "\0 \xFF,"s}) {
    for (std::size_t Length = 0; Length <= Text.size(); ++Length) {
      for (const char* Delimiter : {"\n", " ", "::", "),(", "="}) {
        SCOPED_TRACE(testing::Message() << Length << " / " << Delimiter);
        ExpectLikeTheReference(Text.substr(0, Length), Delimiter);
      }
    }
  }
}
