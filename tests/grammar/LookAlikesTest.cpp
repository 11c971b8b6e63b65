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

TEST(LookAlikes, HaveTheirUnicodeNames) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"\u00A0", "00A0 NO-BREAK SPACE, which looks like a blank"},
      {"\u00AD", "00AD SOFT HYPHEN, which cannot be seen"},
      {"\u00D7", "00D7 MULTIPLICATION SIGN, which looks like x"},
      {"\u0391", "0391 GREEK CAPITAL LETTER ALPHA, which looks like A"},
      {"\u0392", "0392 GREEK CAPITAL LETTER BETA, which looks like B"},
      {"\u0395", "0395 GREEK CAPITAL LETTER EPSILON, which looks like E"},
      {"\u0396", "0396 GREEK CAPITAL LETTER ZETA, which looks like Z"},
      {"\u0397", "0397 GREEK CAPITAL LETTER ETA, which looks like H"},
      {"\u0399", "0399 GREEK CAPITAL LETTER IOTA, which looks like I"},
      {"\u039A", "039A GREEK CAPITAL LETTER KAPPA, which looks like K"},
      {"\u039C", "039C GREEK CAPITAL LETTER MU, which looks like M"},
      {"\u039D", "039D GREEK CAPITAL LETTER NU, which looks like N"},
      {"\u039F", "039F GREEK CAPITAL LETTER OMICRON, which looks like O"},
      {"\u03A1", "03A1 GREEK CAPITAL LETTER RHO, which looks like P"},
      {"\u03A4", "03A4 GREEK CAPITAL LETTER TAU, which looks like T"},
      {"\u03A5", "03A5 GREEK CAPITAL LETTER UPSILON, which looks like Y"},
      {"\u03A7", "03A7 GREEK CAPITAL LETTER CHI, which looks like X"},
      {"\u03B1", "03B1 GREEK SMALL LETTER ALPHA, which looks like a"},
      {"\u03B3", "03B3 GREEK SMALL LETTER GAMMA, which looks like y"},
      {"\u03BD", "03BD GREEK SMALL LETTER NU, which looks like v"},
      {"\u03BF", "03BF GREEK SMALL LETTER OMICRON, which looks like o"},
      {"\u03C1", "03C1 GREEK SMALL LETTER RHO, which looks like p"},
      {"\u03C7", "03C7 GREEK SMALL LETTER CHI, which looks like x"},
      {"\u0405", "0405 CYRILLIC CAPITAL LETTER DZE, which looks like S"},
      {"\u0406", "0406 CYRILLIC CAPITAL LETTER BYELORUSSIAN-UKRAINIAN I, which looks like I"},
      {"\u0408", "0408 CYRILLIC CAPITAL LETTER JE, which looks like J"},
      {"\u0410", "0410 CYRILLIC CAPITAL LETTER A, which looks like A"},
      {"\u0412", "0412 CYRILLIC CAPITAL LETTER VE, which looks like B"},
      {"\u0415", "0415 CYRILLIC CAPITAL LETTER IE, which looks like E"},
      {"\u041A", "041A CYRILLIC CAPITAL LETTER KA, which looks like K"},
      {"\u041C", "041C CYRILLIC CAPITAL LETTER EM, which looks like M"},
      {"\u041D", "041D CYRILLIC CAPITAL LETTER EN, which looks like H"},
      {"\u041E", "041E CYRILLIC CAPITAL LETTER O, which looks like O"},
      {"\u0420", "0420 CYRILLIC CAPITAL LETTER ER, which looks like P"},
      {"\u0421", "0421 CYRILLIC CAPITAL LETTER ES, which looks like C"},
      {"\u0422", "0422 CYRILLIC CAPITAL LETTER TE, which looks like T"},
      {"\u0423", "0423 CYRILLIC CAPITAL LETTER U, which looks like Y"},
      {"\u0425", "0425 CYRILLIC CAPITAL LETTER HA, which looks like X"},
      {"\u0430", "0430 CYRILLIC SMALL LETTER A, which looks like a"},
      {"\u0435", "0435 CYRILLIC SMALL LETTER IE, which looks like e"},
      {"\u043E", "043E CYRILLIC SMALL LETTER O, which looks like o"},
      {"\u0440", "0440 CYRILLIC SMALL LETTER ER, which looks like p"},
      {"\u0441", "0441 CYRILLIC SMALL LETTER ES, which looks like c"},
      {"\u0443", "0443 CYRILLIC SMALL LETTER U, which looks like y"},
      {"\u0445", "0445 CYRILLIC SMALL LETTER HA, which looks like x"},
      {"\u0455", "0455 CYRILLIC SMALL LETTER DZE, which looks like s"},
      {"\u0456", "0456 CYRILLIC SMALL LETTER BYELORUSSIAN-UKRAINIAN I, which looks like i"},
      {"\u0458", "0458 CYRILLIC SMALL LETTER JE, which looks like j"},
      {"\u1680", "1680 OGHAM SPACE MARK, which looks like a blank"},
      {"\u2000", "2000 EN QUAD, which looks like a blank"},
      {"\u2001", "2001 EM QUAD, which looks like a blank"},
      {"\u2002", "2002 EN SPACE, which looks like a blank"},
      {"\u2003", "2003 EM SPACE, which looks like a blank"},
      {"\u2004", "2004 THREE-PER-EM SPACE, which looks like a blank"},
      {"\u2005", "2005 FOUR-PER-EM SPACE, which looks like a blank"},
      {"\u2006", "2006 SIX-PER-EM SPACE, which looks like a blank"},
      {"\u2007", "2007 FIGURE SPACE, which looks like a blank"},
      {"\u2008", "2008 PUNCTUATION SPACE, which looks like a blank"},
      {"\u2009", "2009 THIN SPACE, which looks like a blank"},
      {"\u200A", "200A HAIR SPACE, which looks like a blank"},
      {"\u200B", "200B ZERO WIDTH SPACE, which cannot be seen"},
      {"\u200C", "200C ZERO WIDTH NON-JOINER, which cannot be seen"},
      {"\u200D", "200D ZERO WIDTH JOINER, which cannot be seen"},
      {"\u200E", "200E LEFT-TO-RIGHT MARK, which cannot be seen"},
      {"\u200F", "200F RIGHT-TO-LEFT MARK, which cannot be seen"},
      {"\u2010", "2010 HYPHEN, which looks like -"},
      {"\u2011", "2011 NON-BREAKING HYPHEN, which looks like -"},
      {"\u2012", "2012 FIGURE DASH, which looks like -"},
      {"\u2013", "2013 EN DASH, which looks like -"},
      {"\u2014", "2014 EM DASH, which looks like -"},
      {"\u2018", "2018 LEFT SINGLE QUOTATION MARK, which looks like '"},
      {"\u2019", "2019 RIGHT SINGLE QUOTATION MARK, which looks like '"},
      {"\u201C", "201C LEFT DOUBLE QUOTATION MARK, which looks like \""},
      {"\u201D", "201D RIGHT DOUBLE QUOTATION MARK, which looks like \""},
      {"\u201E", "201E DOUBLE LOW-9 QUOTATION MARK, which looks like \""},
      {"\u202F", "202F NARROW NO-BREAK SPACE, which looks like a blank"},
      {"\u205F", "205F MEDIUM MATHEMATICAL SPACE, which looks like a blank"},
      {"\u2060", "2060 WORD JOINER, which cannot be seen"},
      {"\u2080", "2080 SUBSCRIPT ZERO, which looks like 0"},
      {"\u2081", "2081 SUBSCRIPT ONE, which looks like 1"},
      {"\u2082", "2082 SUBSCRIPT TWO, which looks like 2"},
      {"\u2083", "2083 SUBSCRIPT THREE, which looks like 3"},
      {"\u2084", "2084 SUBSCRIPT FOUR, which looks like 4"},
      {"\u2085", "2085 SUBSCRIPT FIVE, which looks like 5"},
      {"\u2086", "2086 SUBSCRIPT SIX, which looks like 6"},
      {"\u2087", "2087 SUBSCRIPT SEVEN, which looks like 7"},
      {"\u2088", "2088 SUBSCRIPT EIGHT, which looks like 8"},
      {"\u2089", "2089 SUBSCRIPT NINE, which looks like 9"},
      {"\u2192", "2192 RIGHTWARDS ARROW, which looks like ->"},
      {"\u21D2", "21D2 RIGHTWARDS DOUBLE ARROW, which looks like ->"},
      {"\u2212", "2212 MINUS SIGN, which looks like -"},
      {"\u2217", "2217 ASTERISK OPERATOR, which looks like *"},
      {"\u2236", "2236 RATIO, which looks like :"},
      {"\u2237", "2237 PROPORTION, which looks like ::"},
      {"\u27F6", "27F6 LONG RIGHTWARDS ARROW, which looks like ->"},
      {"\u3000", "3000 IDEOGRAPHIC SPACE, which looks like a blank"},
      {"\uA789", "A789 MODIFIER LETTER COLON, which looks like :"},
      {"\uFEFF", "FEFF ZERO WIDTH NO-BREAK SPACE, which cannot be seen"},
      {"\uFF02", "FF02 FULLWIDTH QUOTATION MARK, which looks like \""},
      {"\uFF08", "FF08 FULLWIDTH LEFT PARENTHESIS, which looks like ("},
      {"\uFF09", "FF09 FULLWIDTH RIGHT PARENTHESIS, which looks like )"},
      {"\uFF0A", "FF0A FULLWIDTH ASTERISK, which looks like *"},
      {"\uFF0B", "FF0B FULLWIDTH PLUS SIGN, which looks like +"},
      {"\uFF0C", "FF0C FULLWIDTH COMMA, which looks like ,"},
      {"\uFF0D", "FF0D FULLWIDTH HYPHEN-MINUS, which looks like -"},
      {"\uFF10", "FF10 FULLWIDTH DIGIT ZERO, which looks like 0"},
      {"\uFF11", "FF11 FULLWIDTH DIGIT ONE, which looks like 1"},
      {"\uFF12", "FF12 FULLWIDTH DIGIT TWO, which looks like 2"},
      {"\uFF13", "FF13 FULLWIDTH DIGIT THREE, which looks like 3"},
      {"\uFF14", "FF14 FULLWIDTH DIGIT FOUR, which looks like 4"},
      {"\uFF15", "FF15 FULLWIDTH DIGIT FIVE, which looks like 5"},
      {"\uFF16", "FF16 FULLWIDTH DIGIT SIX, which looks like 6"},
      {"\uFF17", "FF17 FULLWIDTH DIGIT SEVEN, which looks like 7"},
      {"\uFF18", "FF18 FULLWIDTH DIGIT EIGHT, which looks like 8"},
      {"\uFF19", "FF19 FULLWIDTH DIGIT NINE, which looks like 9"},
      {"\uFF1A", "FF1A FULLWIDTH COLON, which looks like :"},
      {"\uFF1B", "FF1B FULLWIDTH SEMICOLON, which looks like ;"},
      {"\uFF1D", "FF1D FULLWIDTH EQUALS SIGN, which looks like ="},
      {"\uFF1E", "FF1E FULLWIDTH GREATER-THAN SIGN, which looks like >"},
      {"\uFF38", "FF38 FULLWIDTH LATIN CAPITAL LETTER X, which looks like X"},
      {"\uFF39", "FF39 FULLWIDTH LATIN CAPITAL LETTER Y, which looks like Y"},
      {"\uFF3B", "FF3B FULLWIDTH LEFT SQUARE BRACKET, which looks like ["},
      {"\uFF3D", "FF3D FULLWIDTH RIGHT SQUARE BRACKET, which looks like ]"},
      {"\uFF58", "FF58 FULLWIDTH LATIN SMALL LETTER X, which looks like x"},
      {"\uFF59", "FF59 FULLWIDTH LATIN SMALL LETTER Y, which looks like y"},
      {"\uFF5B", "FF5B FULLWIDTH LEFT CURLY BRACKET, which looks like {"},
      {"\uFF5D", "FF5D FULLWIDTH RIGHT CURLY BRACKET, which looks like }"},
  };
  for (const auto& [sCharacter, sExpected] : Cases) {
    // Within a word, a letter of another script is a slip, and an apostrophe is none.
    const std::string sInWord = Found("D" + sCharacter + "T");
    EXPECT_EQ(sInWord.empty() ? Found("(" + sCharacter + ")") : sInWord,
              "1+" + std::to_string(sCharacter.size()) + ": U+" + sExpected);
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
