#include "Characters.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace Picture;

constexpr char32_t Bad = 0xFFFD;

struct CharacterCase {
  std::string Text;
  char32_t Character;
  std::size_t Size;
};

TEST(Characters, AreTakenOneByOne) {
  const CharacterCase Cases[] = {
      {"ab", U'a', 1},
      {"\xC3\xA9z", U'é', 2},
      {"\xE5\x90\x8D", U'名', 3},
      {"\xF0\x9F\x98\x80", U'\U0001F600', 4},
      {"\xEF\xBF\xBD", Bad, 3},
      {"\x01", Bad, 1},              // a control
      {"\x7F", Bad, 1},              // another one
      {"\x80", Bad, 1},              // a byte of the middle
      {"\xC1\x81", Bad, 1},          // too many bytes for its character
      {"\xE0\x81\x81", Bad, 1},      // the same
      {"\xC3", Bad, 1},              // an end is missing
      {"\xE5\x90z", Bad, 1},         // the same
      {"\xF5\x80\x80\x80", Bad, 1},  // beyond the last character
      {"\xF4\x90\x80\x80", Bad, 4},  // the same
      {"\xED\xA0\x80", Bad, 3},      // half of a pair
      {"\xEF\xBF\xBE", Bad, 3},      // no character
      {"\xC2\x85", Bad, 2},          // a control beyond ASCII
      {"\xE2\x80\xAE", Bad, 3},      // turns what follows
      {"\xE2\x81\xA7", Bad, 3},      // the same
      {"\xE2\x80\xA8", Bad, 3},      // ends a line
      {"\xE2\x80\xA9", Bad, 3},      // the same
  };
  for (const CharacterCase& Current : Cases) {
    std::string_view Rest = Current.Text;
    EXPECT_EQ(TakeCharacter(Rest), Current.Character) << Current.Text;
    EXPECT_EQ(Current.Text.size() - Rest.size(), Current.Size) << Current.Text;
  }
}

TEST(Characters, AreShownAsUtf8) {
  EXPECT_EQ(ShownText("NP 名\xEF\xBF\xBD"), "NP 名\xEF\xBF\xBD");
  EXPECT_EQ(ShownText("a\x01\xFF"
                      "é"),
            "a\xEF\xBF\xBD\xEF\xBF\xBDé");
  EXPECT_TRUE(IsShown(""));
  EXPECT_TRUE(IsShown("é"));
  EXPECT_FALSE(IsShown("é\t"));
}

TEST(Characters, HaveWidths) {
  const struct {
    const char* Text;
    int InFont;
    int AtTerminal;
  } Cases[] = {
      {"", 0, 0},
      {"NP", 136, 2},
      {"ABCDEFGHIJKLMNOPQRSTUVWXYZ", 1762, 26},
      {"abcdefghijklmnopqrstuvwxyz", 1479, 26},
      {"0123456789", 640, 10},
      {" !\"#$%&'()*+,-./:;<=>?@[\\]^_`{|}~", 1836, 33},
      {"i", 28, 1},
      {"é", 100, 1},
      {"Œ", 125, 1},
      {"名詞", 250, 4},
      {"ｎ", 125, 2},
      {"q\xCC\x88", 64, 1},  // a mark above
      {"اسم", 375, 3},
      {"سَ", 165, 1},             // a mark that may stand beside
      {"\xEF\xB7\xBA", 400, 1},  // four words in one character
      {"\xF0\x9F\x98\x80", 125, 2},
      {"\xF0\x90\x80\x80", 125, 1},
      {"\xFF", 125, 1},
  };
  for (const auto& Current : Cases) {
    EXPECT_EQ(WidthInFont(Current.Text), Current.InFont) << Current.Text;
    EXPECT_EQ(WidthAtTerminal(Current.Text), Current.AtTerminal) << Current.Text;
  }
}

TEST(Characters, HaveADirection) {
  for (const char* Text :
       {"כתב", "a اسم", "\xEF\xAC\x9D", "\xEF\xB9\xB0", "\xF0\x90\xA0\x80", "\xF0\x9E\xA0\x80"}) {
    EXPECT_TRUE(IsRightToLeft(Text)) << Text;
  }
  for (const char* Text : {"", "abc", "名詞", "संज्ञा", "\xF0\x9F\x98\x80", "\xEF\xBB\xBF"}) {
    EXPECT_FALSE(IsRightToLeft(Text)) << Text;
  }
}

}  // namespace
