#include "Measures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Picture;
using Strings = std::vector<std::string>;

TEST(Measures, WrapTexts) {
  const struct {
    std::string Words;
    int Width;
    Strings vsLines;
  } Cases[] = {
      {"", 5, {}},
      {"a b", 5, {"a b"}},
      {"one two three", 7, {"one two", "three"}},
      {"one two  three", 8, {"one two", "three"}},
      {"longword", 4, {"long", "word"}},
      {"a longword", 4, {"a", "long", "word"}},
      {"名詞動詞", 4, {"名詞", "動詞"}},
      {"名", 1, {"名"}},  // at least one character a line
      {std::string(2000, 'a') + " b", 3000, {std::string(2000, 'a') + " b"}},
  };
  for (const auto& Current : Cases) {
    EXPECT_EQ(TerminalMeasures().Wrapped(Current.Words, TextRole::Note, Current.Width),
              Current.vsLines)
        << Current.Words;
  }
}

TEST(Measures, GiveTextsRoom) {
  EXPECT_EQ(TerminalMeasures().WidthOf("NP", TextRole::Label), 2);
  // 136 hundredths of 16, and one part in eight.
  EXPECT_EQ(SvgMeasures().WidthOf("NP", TextRole::Label), 25);
  EXPECT_EQ(SvgMeasures().WidthOf("NP", TextRole::Index), 17);
  EXPECT_EQ(SvgMeasures().WidthOf("NP", TextRole::Value), 19);
  EXPECT_EQ(SvgMeasures().WidthOf("NP", TextRole::Note), 20);
  EXPECT_EQ(SvgMeasures().WidthOf("", TextRole::Note), 0);
}

}  // namespace
