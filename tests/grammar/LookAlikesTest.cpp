// Characters that are taken for those of ASCII, and small letters beyond it.

#include "LookAlikes.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

/// "place: description", or "" where nothing is found.
std::string Found(const std::string& Text) {
  const auto First = Grammar::FindLookAlike(Text);
  return First ? std::to_string(First->Place.data() - Text.data()) + '+' +
                     std::to_string(First->Place.size()) + ": " + Described(*First->Which)
               : "";
}

TEST(LookAlikes, AreNamedInTheirPlace) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"(\u04251::Y1)", "1+2: U+0425 CYRILLIC CAPITAL LETTER HA, which looks like X"},
      {"\u0443\u2081", "0+2: U+0443 CYRILLIC SMALL LETTER U, which looks like y"},
      {"D\u0415T", "1+2: U+0415 CYRILLIC CAPITAL LETTER IE, which looks like E"},
      {"\"D\u0415T\"", "2+2: U+0415 CYRILLIC CAPITAL LETTER IE, which looks like E"},
      {"a\u00A0b", "1+2: U+00A0 NO-BREAK SPACE, which looks like a blank"},
      {"a\u200B", "1+3: U+200B ZERO WIDTH SPACE, which cannot be seen"},
      {"\uFEFF{", "0+3: U+FEFF ZERO WIDTH NO-BREAK SPACE, which cannot be seen"},
      {"\"a\u2013\" \u2013", "7+3: U+2013 EN DASH, which looks like -"},
      {"\" \u2192", "2+3: U+2192 RIGHTWARDS ARROW, which looks like ->"}};
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Found(sText), sExpected) << sText;
  }
}

TEST(LookAlikes, AreNotFoundInWordsOfTheirOwnScript) {
  for (const std::string sText :
       {"", "a", "\u0434\u043E\u043C", "\u0425", "\u0421\u0415\u0412", "l\u2019eau",
        "\u0425\u0415 1", "\u0430-b", "a\u00F1o", "\u0646\u200C\u0645", "\"l\u2019\u00A0eau\"",
        "m\u043E\u0441\u0442", "\xD0", "\xD0(", "\xFF\xFE", "\xE2\x86", "\xF0\x9F\x98\x80"}) {
    EXPECT_EQ(Found(sText), "") << sText;
    EXPECT_EQ(Grammar::WithoutLookAlikes(sText), sText);
  }
}

TEST(LookAlikes, AreReplacedByTheirAsciiCharacter) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"\uFF08\u04251\uFF1A\uFF1A\u03A5\u2082\uFF09", "(X1::Y2)"},
      {"[D\u0415T\u00A0N]\u200B\u2192 \u201Ca\u201D", "[DET N]-> \"a\""},
      {"\u0434\u043E\u043C \u2217OR\u2217", "\u0434\u043E\u043C *OR*"},
      {"\"\u2013\" \u2013", "\"\u2013\" -"}};
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Grammar::WithoutLookAlikes(sText), sExpected) << sText;
  }
}

TEST(LookAlikes, IncludeBytesBeyondAsciiAnywhere) {
  for (std::size_t Size = 0; Size < 40; ++Size) {
    std::string Text(Size, '\x7F');
    EXPECT_FALSE(Grammar::HasBytesBeyondAscii(Text)) << Size;
    for (char& Byte : Text) {
      Byte = '\x80';
      EXPECT_TRUE(Grammar::HasBytesBeyondAscii(Text)) << Size;
      Byte = 'a';
    }
  }
}

TEST(SmallLetters, BeyondAsciiHaveCapitals) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"a\u00FA\u00F1\u00FF", "a\u00DA\u00D1\u0178"},
      {"\u0101\u0137\u013A\u0148\u0151\u017E", "\u0100\u0136\u0139\u0147\u0150\u017D"},
      {"\u03AC\u03AD\u03AF\u03B1\u03C9\u03CC", "\u0386\u0388\u038A\u0391\u03A9\u038C"},
      {"\u0434\u044F\u0451\u045F", "\u0414\u042F\u0401\u040F"}};
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Grammar::WithCapitalsBeyondAscii(sText), sExpected) << sText;
    EXPECT_EQ(Grammar::FirstSmallLetterBeyondAscii(sExpected), "") << sText;
    EXPECT_NE(Grammar::FirstSmallLetterBeyondAscii(sText), "") << sText;
  }
  for (const std::string sText : {"a", "\u00DF", "\u0131", "\u0138", "\u00F7", "\u03C2", "\u4E2D",
                                  "\u0646", "\xC3", "\xFF"}) {
    EXPECT_EQ(Grammar::FirstSmallLetterBeyondAscii(sText), "") << sText;
    EXPECT_EQ(Grammar::WithCapitalsBeyondAscii(sText), sText);
  }
}

}  // namespace
