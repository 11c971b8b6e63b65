#include "Histogram.h"
#include "Measures.h"
#include "SvgReading.h"
#include "SvgWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Picture;

std::string SvgOf(const Histogram& Bars) {
  Drawing Shapes;
  Bars.Draw(Shapes);
  std::string Svg;
  AppendSvg(Shapes, {true, ""}, Svg);
  return Svg;
}

TEST(Histogram, DrawsABarForEachCount) {
  Histogram Bars("Components of a rule");
  Bars.Add("1", 12);
  Bars.Add("2", 30);
  Bars.Add("more", 0);
  EXPECT_EQ(
      SvgOf(Bars),
      R"(<svg xmlns="http://www.w3.org/2000/svg" id="p226dde8142292569" width="340" height="92" viewBox="0 0 340 92" role="img" aria-labelledby="p226dde8142292569-title p226dde8142292569-desc" font-family="sans-serif" fill="none" stroke="currentColor" stroke-width="1.3">
<title id="p226dde8142292569-title">Components of a rule</title>
<desc id="p226dde8142292569-desc">1: 12. 2: 30. more: 0.</desc>
<g>)"
      R"(<rect x="63" y="15" width="96" height="14" rx="2" fill="currentColor"/>)"
      R"(<rect x="63" y="39" width="240" height="14" rx="2" fill="currentColor"/>)"
      R"(<text x="12" y="26" font-size="13" fill="currentColor" stroke="none">1</text>)"
      R"(<text x="165" y="26" font-size="13" fill="currentColor" stroke="none">12</text>)"
      R"(<text x="12" y="50" font-size="13" fill="currentColor" stroke="none">2</text>)"
      R"(<text x="309" y="50" font-size="13" fill="currentColor" stroke="none">30</text>)"
      R"(<text x="12" y="74" font-size="13" fill="currentColor" stroke="none">more</text>)"
      R"(<text x="63" y="74" font-size="13" fill="currentColor" stroke="none">0</text>)"
      R"(</g>
</svg>
)");
}

TEST(Histogram, StaysWithoutBars) {
  EXPECT_EQ(
      SvgOf(Histogram("<none>")),
      R"(<svg xmlns="http://www.w3.org/2000/svg" id="p77621236764fd319" width="24" height="24" viewBox="0 0 24 24" role="img" aria-labelledby="p77621236764fd319-title p77621236764fd319-desc" font-family="sans-serif" fill="none" stroke="currentColor" stroke-width="1.3">
<title id="p77621236764fd319-title">&lt;none&gt;</title>
<desc id="p77621236764fd319-desc"></desc>
<g></g>
</svg>
)");
}

TEST(Histogram, GivesEveryTextItsRoom) {
  Histogram Bars("Labels");
  Bars.Add("名詞 " + std::string(100, 'W'), 1);
  Bars.Add("كتاب", 1000000);
  Bars.Add("", 3);
  Bars.Add("\x01<\xFF>", 18446744073709551615U);
  Drawing Shapes;
  Shapes.vTexts.resize(7);  // gone with the next drawing
  Bars.Draw(Shapes);
  EXPECT_EQ(Shapes.vTexts.back().Words, "18446744073709551615");
  EXPECT_EQ(Shapes.Description.substr(Shapes.Description.find("كتاب")),
            "كتاب: 1000000. : 3. \xEF\xBF\xBD<\xEF\xBF\xBD>: 18446744073709551615.");
  ASSERT_EQ(Shapes.vBoxes.size(), 4U);
  EXPECT_EQ(Shapes.vBoxes[0].Width, 1);
  EXPECT_EQ(Shapes.vBoxes[3].Width, 240);
  for (std::size_t At = 0; At < Shapes.vTexts.size(); ++At) {
    const Text& One = Shapes.vTexts[At];
    EXPECT_GE(One.Width, SvgMeasures().WidthOf(One.Words, One.Role)) << One.Words;
    EXPECT_LE(One.Corner.X + One.Width, Shapes.Width) << One.Words;
    EXPECT_LE(One.Corner.Y + One.Height, Shapes.Height) << One.Words;
    for (std::size_t Before = 0; Before < At; ++Before) {
      const Text& Other = Shapes.vTexts[Before];
      const bool IsBelow = Other.Corner.Y + Other.Height <= One.Corner.Y;
      EXPECT_TRUE(IsBelow || Other.Corner.X + Other.Width <= One.Corner.X) << One.Words;
    }
    for (const Box& Bar : Shapes.vBoxes) {
      const bool IsBeside =
          One.Corner.X + One.Width <= Bar.Corner.X || Bar.Corner.X + Bar.Width <= One.Corner.X;
      const bool IsApart =
          Bar.Corner.Y + Bar.Height <= One.Corner.Y || One.Corner.Y + One.Height <= Bar.Corner.Y;
      EXPECT_TRUE(IsBeside || IsApart) << One.Words;
    }
  }
  EXPECT_EQ(UnknownIn(ReadXml(SvgOf(Bars))), std::vector<std::string>());
}

}  // namespace
