#include "PageSupport.h"
#include "PicturePacking.h"
#include "PictureSupport.h"
#include "RandomRules.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace {

std::string Packed(std::string_view Svg) {
  std::string Text;
  Page::AppendPacked(Svg, Text);
  return Text;
}

TEST(PicturePacking, WritesPhrasesAsTwoBytes) {
  EXPECT_EQ(Packed("</g>\n</svg>\n"), "~E</svg>\n");
  EXPECT_EQ(Packed("<text x=\"12\" y=\"3\"/>"), "~F12~L3~J");
  EXPECT_EQ(Packed("a ~ b|c"), "a ~~ b|c");
  EXPECT_EQ(Packed(""), "");
}

TEST(PicturePacking, HasPhrasesThatTheScriptCanTell) {
  std::string Phrases;
  Page::AppendPhrases(Phrases);
  std::set<std::string> ssPhrases;
  for (const std::string& sPhrase : AllBetween('|' + Phrases, "|", "|")) {
    EXPECT_TRUE(ssPhrases.insert(sPhrase).second) << sPhrase;
    EXPECT_NE(std::string("\"<").find(sPhrase.front()), std::string::npos) << sPhrase;
    EXPECT_EQ(sPhrase.find('~'), std::string::npos) << sPhrase;
    EXPECT_EQ(Packed(sPhrase).size(), 2U) << sPhrase;
  }
}

TEST(PicturePacking, KeepsEveryByteOfAnyPicture) {
  RandomInput Random;
  std::size_t Before = 0;
  std::size_t After = 0;
  for (int Count = 0; Count < 1000; ++Count) {
    const std::string Svg = SvgOf(RandomRuleText(Random), true);
    const std::string Short = Packed(Svg);
    ASSERT_EQ(Unpacked(Short), Svg);
    const std::string Damaged = Random.Damaged(Svg, "~|<\"&A");
    ASSERT_EQ(Unpacked(Packed(Damaged)), Damaged);
    Before += Svg.size();
    After += Short.size();
  }
  EXPECT_LT(After * 5, Before * 3);
}

}  // namespace
