#include "Characters.h"
#include "PageSupport.h"
#include "PictureSupport.h"
#include "RandomRules.h"
#include "RuleEntry.h"
#include "SvgReading.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace Page;
using Strings = std::vector<std::string>;

RuleEntry EntryOf(const std::string& Written) {
  const ReadRuleText Rule(Written);
  RuleEntryMaker Maker;
  RuleEntry Entry;
  Maker.Make(Rule.Rule(), Entry);
  return Entry;
}

TEST(RuleEntry, HoldsWhatThePageShows) {
  const RuleEntry Entry = EntryOf(
      "\n;;SL: the cars\n;;TL: los autos\n;;*SL: the car\n{NP,8}\n"
      "np::NP : [\"the\" N] -> [\"los\" n]\n(X2::Y2)\n((x2 num) = pl)\n"
      "((y0 agr gen) = (y2 Gen))\n\n");
  EXPECT_EQ(Entry.File, "a.trr");
  EXPECT_EQ(Entry.FirstLine, 1U);
  EXPECT_EQ(Entry.LastLine, 10U);
  EXPECT_EQ(Entry.Name, "{NP,8}");
  EXPECT_EQ(Entry.SourceType, "NP");
  EXPECT_EQ(Entry.TargetType, "NP");
  EXPECT_EQ(Entry.vsLabels, (Strings{"N", "NP"}));
  EXPECT_EQ(Entry.vsLiterals, (Strings{"los", "the"}));
  EXPECT_EQ(Entry.vsFeatures, (Strings{"AGR", "GEN", "NUM"}));
  EXPECT_EQ(Entry.Components, 2U);
  EXPECT_EQ(Entry.Alignments, 1U);
  EXPECT_EQ(Entry.Constraints, 2U);
  EXPECT_EQ(Entry.Examples, 2U);
  EXPECT_EQ(Entry.Heading,
            " <a href=\"#label-NP\">NP</a>::<a href=\"#label-NP\">NP</a> "
            "<span class=\"place\">a.trr:6</span>");
  EXPECT_EQ(Entry.Lines,
            "<pre><code>;;SL: the cars\n;;TL: los autos\n;;*SL: the car\n{NP,8}\n"
            "<a href=\"#label-NP\">np</a>::<a href=\"#label-NP\">NP</a> : [&quot;the&quot; "
            "<a href=\"#label-N\">N</a>] -&gt; [&quot;los&quot; <a href=\"#label-N\">n</a>]\n"
            "(X2::Y2)\n((x2 num) = pl)\n((y0 agr gen) = (y2 Gen))\n</code></pre>\n");
}

TEST(RuleEntry, HasThePictureThatIsDrawn) {
  const std::string Written = "NP::NP : [N \"~\"] -> [N]\n(X1::Y1)\n";
  const RuleEntry Entry = EntryOf(Written);
  const Strings vsPacked = AllBetween(Entry.Picture, "data-svg=\"", "\"></figure>\n");
  ASSERT_EQ(vsPacked.size(), 1U);
  const std::string Svg = SvgOf(Written, true);
  EXPECT_EQ(Unpacked(Unescaped(vsPacked.front())), Svg);
  EXPECT_EQ(Entry.Picture.substr(0, Entry.Picture.find(" data-svg")),
            "<figure class=\"picture\" style=\"min-height:" +
                AllBetween(Svg, " height=\"", "\"").front() + "px\"");
  EXPECT_EQ(Entry.Name, "a.trr:1");
  EXPECT_EQ(Entry.Heading, " <a href=\"#label-NP\">NP</a>::<a href=\"#label-NP\">NP</a>");
}

TEST(RuleEntry, StaysATextWhereNothingCanBeDrawn) {
  const RuleEntry Entry = EntryOf("{NP,8}\n(X1::Y1)\n");
  EXPECT_EQ(Entry.Name, "a.trr:1");
  EXPECT_EQ(Entry.SourceType, "");
  EXPECT_EQ(Entry.Heading, "");
  EXPECT_EQ(Entry.Picture, "");
  EXPECT_EQ(Entry.Lines, "<pre><code>{NP,8}\n(X1::Y1)\n</code></pre>\n");
}

TEST(RuleEntry, LetsNoLabelBecomeMarkup) {
  const RuleEntry Entry = EntryOf(
      "</script>::<b> : [A&B\x01\xFF \"</script>\"] -> [\"--><x\" A&B]\n(X1::Y2)\n"
      "((x1 <i>) = \"'\")\n;;</pre>\n");
  EXPECT_EQ(Entry.Picture.find("<script"), std::string::npos);
  EXPECT_EQ(Entry.Heading,
            " <a href=\"#label-.3C.2FSCRIPT.3E\">&lt;/SCRIPT&gt;</a>::"
            "<a href=\"#label-.3CB.3E\">&lt;B&gt;</a>");
  EXPECT_EQ(Entry.Lines,
            "<pre><code><a href=\"#label-.3C.2FSCRIPT.3E\">&lt;/script&gt;</a>::"
            "<a href=\"#label-.3CB.3E\">&lt;b&gt;</a> : "
            "[<a href=\"#label-A.26B.01.FF\">A&amp;B\xEF\xBF\xBD\xEF\xBF\xBD</a> "
            "&quot;&lt;/script&gt;&quot;] -&gt; [&quot;--&gt;&lt;x&quot; "
            "<a href=\"#label-A.26B\">A&amp;B</a>]\n(X1::Y2)\n((x1 &lt;i&gt;) = &quot;'&quot;)\n"
            ";;&lt;/pre&gt;\n</code></pre>\n");
}

TEST(RuleEntry, KeepsTabs) {
  const RuleEntry Entry =
      EntryOf("NP::NP : [N] -> [N]\n\t(X1::Y1)\n((x1 agr\tnum)\t= sg)\n;;\t\x02\t<\n");
  EXPECT_EQ(AllBetween(Entry.Lines, "]\n", "</code>"),
            Strings{"\t(X1::Y1)\n((x1 agr\tnum)\t= sg)\n;;\t\xEF\xBF\xBD\t&lt;\n"});
  EXPECT_EQ(Entry.vsFeatures, (Strings{"AGR", "NUM"}));
}

/// A text without its tags.
std::string WithoutTags(const std::string& Html) {
  std::string Text;
  bool IsTag = false;
  for (const char Byte : Html) {
    IsTag = IsTag || Byte == '<';
    Text += IsTag ? "" : std::string(1, Byte);
    IsTag = IsTag && Byte != '>';
  }
  return Text;
}

/// The lines of a rule as characters, without the blank ones at either end.
std::string ShownLines(const Grammar::RuleText& Text) {
  std::string Lines;
  for (std::size_t Index = 0; Index < Text.vLines.size(); ++Index) {
    std::string Piece;
    for (const char Byte : std::string(Text.Line(Index)) + '\n') {
      if (Byte != '\t' && Byte != '\n') {
        Piece += Byte;
        continue;
      }
      Lines += Picture::ShownText(Piece) + Byte;
      Piece.clear();
    }
  }
  const auto IsBlankBefore = [&](std::size_t End) {
    return Lines.find_first_not_of(" \t\n") >= End;
  };
  std::size_t Begin = 0;
  for (std::size_t End; (End = Lines.find('\n', Begin)) < Lines.size() && IsBlankBefore(End);) {
    Begin = End + 1;
  }
  const std::size_t Last = Lines.find_last_not_of(" \t\n");
  const std::size_t End = Last == std::string::npos ? Begin : Lines.find('\n', Last) + 1;
  return Lines.substr(Begin, End - Begin);
}

TEST(RuleEntry, IsWellFormedAndWholeWhateverTheRuleSays) {
  RandomInput Random;
  for (int Count = 0; Count < 1000; ++Count) {
    const std::string Rule = RandomRuleText(Random);
    const std::string Written = ";;x\n" + Random.Damaged(Rule, "<>&\"'[]:;=~\t\x01\xFF -");
    const RuleEntry Entry = EntryOf(Written);
    const std::string Html =
        "<li><h3>" + Entry.Heading + "</h3>" + Entry.Picture + Entry.Lines + "</li>";
    ASSERT_NO_THROW(ReadXml(Html)) << Written;
    ASSERT_EQ(Unescaped(WithoutTags(Entry.Lines)),
              ShownLines(ReadRuleText(Written).Rule().Text()) + '\n');
  }
}

TEST(RuleEntry, GivesEachLabelItsOwnPlace) {
  EXPECT_EQ(LabelPlace("NP"), "label-NP");
  EXPECT_EQ(LabelPlace("N-1_a"), "label-N-1_a");
  EXPECT_EQ(LabelPlace("N.2E"), "label-N.2E2E");
  EXPECT_EQ(LabelPlace("名"), "label-.E5.90.8D");
  EXPECT_EQ(LabelPlace(""), "label-");
}

}  // namespace
