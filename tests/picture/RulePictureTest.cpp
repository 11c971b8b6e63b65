#include "HtmlPage.h"
#include "PictureSupport.h"
#include "SvgReading.h"
#include "SvgWriter.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using namespace Picture;

const char* const Crossing =
    ";;SL: the red car\n{NP,8}\nNP::NP : [\"the\" ADJ N] -> [N ADJ DET]\n(X2::Y2)\n(X3::Y1)\n"
    "(x0 = x3)\n((x2 num) = (x3 num))\n((y1 num) = (x3 num))\n((y3 gen) = (*OR* m f))\n"
    "(y9 = y1)\n";

TEST(RulePicture, IsDrawnAtATerminal) {
  EXPECT_EQ('\n' + TextPictureOf(Crossing), R"(
                            ╭─── NUM ─────╮
 ╭─────╮   ┌─────────┐  ┌───┴───┐     ╔═══╧═══╗
 │ NP  │   │  "the"  │  │  ADJ  │     ║   N   ║
 │ x0  │   │   x1    │  │  x2   │     ║  x3   ║
 ╰─────╯   └─────────┘  └───┬───┘     ╚═╤═╤═══╝
               ╭────────────┼───────────╯ ┊
               │ ╭╌╌╌╌╌╌╌╌╌╌┼╌╌╌╌╌╌╌╌╌╌╌╌╌╯
               │ ┊ NUM      │
 ╭─────╮    ┌──┴─┴──┐   ┌───┴───┐ ┌╌╌╌╌╌╌╌╌╌╌╌╌╌╌╌┐
 │ NP  │    │   N   │   │  ADJ  │ ┊      DET      ┊
 │ y0  │    │  y1   │   │  y2   │ ┊      y3       ┊
 │     │    │       │   │       │ ┊  GEN: M or F  ┊
 ╰─────╯    └───────┘   └───────┘ └╌╌╌╌╌╌╌╌╌╌╌╌╌╌╌┘

{NP,8}, NP::NP
the red car
(y9 = y1): there is no y9
)");
}

TEST(RulePicture, IsDrawnInAscii) {
  EXPECT_EQ('\n' + TextPictureOf(Crossing, 80, true), R"(
                            +--- NUM -----+
 +-----+   +---------+  +---+---+     #===#===#
 | NP  |   |  "the"  |  |  ADJ  |     #   N   #
 | x0  |   |   x1    |  |  x2   |     #  x3   #
 +-----+   +---------+  +---+---+     #=#=#===#
               +------------+-----------+ :
               | +..........+.............+
               | : NUM      |
 +-----+    +--+-+--+   +---+---+ +...............+
 | NP  |    |   N   |   |  ADJ  | :      DET      :
 | y0  |    |  y1   |   |  y2   | :      y3       :
 |     |    |       |   |       | :  GEN: M or F  :
 +-----+    +-------+   +-------+ +...............+

{NP,8}, NP::NP
the red car
(y9 = y1): there is no y9
)");
}

TEST(RulePicture, IsDescribedIfItIsTooWide) {
  EXPECT_EQ('\n' + TextPictureOf(Crossing, 24), R"(
Rule {NP,8}, NP::NP
  Source NP: x1 "the",
    x2 ADJ, x3 N.
  Target NP: y1 N, y2
    ADJ, y3 DET.
  x2 is aligned with
    y2.
  x3 is aligned with
    y1.
  x3 is the head of
    x0.
  NUM of x2 agrees
    with NUM of x3.
  NUM of y1 comes from
    NUM of x3.
  GEN of y3 is M or F.
  Not drawn: (y9 =
    y1): there is no y9.
)");
  // No narrower than that.
  EXPECT_EQ(TextPictureOf(Crossing, 1), TextPictureOf(Crossing, RulePicture::LeastWidth));
}

TEST(RulePicture, KeepsWordsFromTurningTheirNeighbours) {
  EXPECT_EQ('\n' + TextPictureOf("{A,1}\nNP::NP : [اسم \"كتاب\"] -> [N]\n"), R"(
 ╭─────╮  ┌╌╌╌╌╌╌╌┐  ┌─────────┐
 │ NP  │  ┊  ‎اسم‎  ┊  │ ‎"كتاب"‎  │
 │ x0  │  ┊  x1   ┊  │   x2    │
 ╰─────╯  └╌╌╌╌╌╌╌┘  └─────────┘

 ╭─────╮   ┌╌╌╌╌╌┐
 │ NP  │   ┊  N  ┊
 │ y0  │   ┊ y1  ┊
 ╰─────╯   └╌╌╌╌╌┘

{A,1}, NP::NP
)");
}

TEST(RulePicture, DrawsAHeadThatIsUnaligned) {
  EXPECT_EQ('\n' + TextPictureOf("{A,1}\nNP::NP : [N] -> [\"\"]\n(x0 = x1)\n((y1 a) = (x1 a))\n"),
            R"(
 ╭─────╮   ╔╌╌╌╌╌╗
 │ NP  │   ┊  N  ┊
 │ x0  │   ┊ x1  ┊
 ╰─────╯   ╚╌╌╤╌╌╝
              ┊
              ┊ A
 ╭─────╮   ┌──┴──┐
 │ NP  │   │ ""  │
 │ y0  │   │ y1  │
 ╰─────╯   └─────┘

{A,1}, NP::NP
)");
}

TEST(RulePicture, IsWrittenAsSvg) {
  EXPECT_EQ('\n' + SvgOf("{A,1}\nS::S : [\"<&>\"] -> [N]\n(X1::Y1)\n(y0 = y1)\n"), R"svg(
<svg xmlns="http://www.w3.org/2000/svg" id="p7339790cb34bcbe4" width="185" height="210" viewBox="0 0 185 210" role="img" aria-labelledby="p7339790cb34bcbe4-title p7339790cb34bcbe4-desc" font-family="sans-serif" fill="none" stroke="currentColor" stroke-width="1.3">
<title id="p7339790cb34bcbe4-title">Rule {A,1}, S::S</title>
<desc id="p7339790cb34bcbe4-desc">Source S: x1 &quot;&lt;&amp;&gt;&quot;. Target S: y1 N. x1 is aligned with y1. y1 is the head of y0.</desc>
<style>#p7339790cb34bcbe4{color:#222}@media (prefers-color-scheme:dark){#p7339790cb34bcbe4{color:#ddd}}</style>
<g data-component="x0"><rect x="12" y="12" width="40" height="51" rx="14"/><text x="32" y="35" font-size="16" text-anchor="middle" fill="currentColor" stroke="none">S</text><text x="32" y="52" font-size="11" text-anchor="middle" fill="currentColor" stroke="none">x0</text></g>
<g data-component="x1"><rect x="87" y="12" width="86" height="51" rx="3"/><text x="130" y="35" font-size="16" text-anchor="middle" font-style="italic" fill="currentColor" stroke="none">&quot;&lt;&amp;&gt;&quot;</text><text x="130" y="52" font-size="11" text-anchor="middle" fill="currentColor" stroke="none">x1</text></g>
<g data-alignment="(X1::Y1)" data-line="3"><path d="M130 63L130 111"/></g>
<g data-component="y0"><rect x="12" y="111" width="40" height="51" rx="14"/><text x="32" y="134" font-size="16" text-anchor="middle" fill="currentColor" stroke="none">S</text><text x="32" y="151" font-size="11" text-anchor="middle" fill="currentColor" stroke="none">y0</text></g>
<g data-component="y1"><rect x="110" y="111" width="40" height="51" rx="3"/><text x="130" y="134" font-size="16" text-anchor="middle" fill="currentColor" stroke="none">N</text><text x="130" y="151" font-size="11" text-anchor="middle" fill="currentColor" stroke="none">y1</text></g>
<g data-constraint="(y0 = y1)" data-line="4"><rect x="113" y="114" width="34" height="45" rx="2"/></g>
<g><text x="12" y="192" font-size="13" fill="currentColor" stroke="none">{A,1}, S::S</text></g>
</svg>
)svg");
}

/// The attribute of all texts of a picture, by their words.
std::string AttributeOf(const XmlElement& Svg, const std::string& Words, const std::string& Name) {
  for (const XmlElement* Current : ElementsOf(Svg, "text")) {
    if (Current->Text == Words) {
      const auto Found = Current->ssAttributes.find(Name);
      return Found == Current->ssAttributes.end() ? "" : Found->second;
    }
  }
  return "there is no such text";
}

TEST(RulePicture, KeepsTheDirectionOfWords) {
  const XmlElement Svg =
      ReadXml(SvgOf(";;SL: هذا كتاب\n;;TL: a book\nNP::NP : [اسم N] -> [N]\n((x2 num) = اسم)\n"));
  EXPECT_EQ(AttributeOf(Svg, "اسم", "direction"), "rtl");
  EXPECT_EQ(AttributeOf(Svg, "اسم", "text-anchor"), "middle");
  EXPECT_EQ(AttributeOf(Svg, "هذا كتاب", "direction"), "rtl");
  EXPECT_EQ(AttributeOf(Svg, "هذا كتاب", "text-anchor"), "end");
  EXPECT_EQ(AttributeOf(Svg, "a book", "direction"), "");
  EXPECT_EQ(AttributeOf(Svg, "NUM: اسم", "direction"), "");
}

TEST(RulePicture, ShowsBytesThatAreNoText) {
  const XmlElement Svg =
      ReadXml(SvgOf("NP::NP : [a\xFF] -> [N]\n((x1 a) = \x02)\n((x1 \xFE = b)\n"));
  EXPECT_EQ(AttributeOf(Svg, "A\xEF\xBF\xBD", "font-size"), "16");
  EXPECT_EQ(AttributeOf(Svg, "A: \xEF\xBF\xBD", "font-size"), "12");
}

TEST(RulePicture, HasIdentifiersOfItsOwn) {
  const auto IdOf = [](const std::string& Svg) {
    const XmlElement Root = ReadXml(Svg);
    const std::string Id = Root.ssAttributes.at("id");
    EXPECT_EQ(Root.ssAttributes.at("aria-labelledby"), Id + "-title " + Id + "-desc");
    EXPECT_EQ(ElementsOf(Root, "title").front()->ssAttributes.at("id"), Id + "-title");
    EXPECT_EQ(ElementsOf(Root, "desc").front()->ssAttributes.at("id"), Id + "-desc");
    return Id;
  };
  const std::string Rule = "{A,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n";
  std::set<std::string> ssIds{IdOf(SvgOf(Rule)), IdOf(SvgOf(Rule)), IdOf(SvgOf("\n" + Rule))};
  EXPECT_EQ(ssIds.size(), 1U);
  ssIds.insert(IdOf(SvgOf("{A,2}\nNP::NP : [N] -> [N]\n(X1::Y1)\n")));
  ssIds.insert(IdOf(SvgOf("{A,1}\nNP::NP : [N] -> [V]\n(X1::Y1)\n")));
  // Within a page, the same rule may stand at two places.
  ssIds.insert(IdOf(SvgOf(Rule, true)));
  ssIds.insert(IdOf(SvgOf("\n" + Rule, true)));
  EXPECT_EQ(ssIds.size(), 5U);
}

TEST(RulePicture, HasColoursOnlyWhereItStandsAlone) {
  const std::string Rule = "NP::NP : [N] -> [N]\n(X1::Y1)\n";
  EXPECT_EQ(ElementsOf(ReadXml(SvgOf(Rule)), "style").size(), 1U);
  EXPECT_EQ(ElementsOf(ReadXml(SvgOf(Rule, true)), "style").size(), 0U);
}

TEST(RulePicture, NeedsARuleLine) {
  EXPECT_EQ(TextPictureOf("{NP,8}\n(X1::Y1)\n"), "");
}

TEST(RulePicture, OfAVeryLongRuleIsLinear) {
  std::string Rule = "NP::NP : [";
  std::string Body;
  for (int Index = 1; Index <= 300; ++Index) {
    Rule += "N ";
    Body += "(X" + std::to_string(Index) + "::Y1)\n((x1 num) = (x300 num))\n((x2 a) = b)\n";
  }
  const XmlElement Svg = ReadXml(SvgOf(Rule + "] -> [N]\n" + Body));
  EXPECT_EQ(ElementsOf(Svg, "g").size(), 1 + 301 + 2 + 900U);
}

TEST(HtmlPage, IsOneWholeFile) {
  std::string Page;
  BeginPage("a <b>", Page);
  AppendFigure("a&b.trr:1", SvgOf("NP::NP : [N] -> [N]\n", true), Page);
  EndPage(Page);
  const XmlElement Html = ReadXml(Page);
  EXPECT_EQ(ElementsOf(Html, "title").front()->Text, "a <b>");
  EXPECT_EQ(ElementsOf(Html, "h1").front()->Text, "a <b>");
  EXPECT_EQ(ElementsOf(Html, "h2").front()->Text, "a&b.trr:1");
  EXPECT_EQ(ElementsOf(Html, "svg").size(), 1U);
  EXPECT_EQ(ElementsOf(Html, "script").size(), 0U);
  EXPECT_EQ(ElementsOf(Html, "link").size(), 0U);
}

}  // namespace
