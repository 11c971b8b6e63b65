#include "PictureSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace Picture;
using Strings = std::vector<std::string>;

std::string LineOf(const Origin& From) {
  return std::to_string(From.Line) + " ";
}

/// A component as "x1 N", with "?" if unaligned, "*" for the head and the tags after it.
std::string Described(const Component& Shown) {
  std::string Words = Shown.Name + ' ' + Shown.Label + (Shown.IsUnaligned ? "?" : "") +
                      (Shown.IsHead ? " * " + std::to_string(Shown.HeadFrom.Line) : "");
  for (const Tag& Current : Shown.vTags) {
    Words += " | " + LineOf(Current.From) + Current.Words;
  }
  return Words;
}

void Add(const std::string& Kind, const std::vector<Tie>& vTies, Strings& vsReturn) {
  for (const Tie& Current : vTies) {
    vsReturn.push_back(Kind + LineOf(Current.From) + std::to_string(Current.First) + '-' +
                       std::to_string(Current.Second) +
                       (Current.Words.empty() ? "" : ' ' + Current.Words));
  }
}

/// All that is shown of a rule.
Strings Described(const RuleParts& Parts) {
  Strings vsDescribed;
  for (const std::vector<Component>& vComponents : Parts.Components) {
    for (const Component& Current : vComponents) {
      vsDescribed.push_back(Described(Current));
    }
  }
  Add("alignment ", Parts.vAlignments, vsDescribed);
  Add("x ", Parts.Agreements[0], vsDescribed);
  Add("y ", Parts.Agreements[1], vsDescribed);
  Add("pass ", Parts.vTransfers, vsDescribed);
  for (const Note& Current : Parts.vNotes) {
    vsDescribed.push_back((Current.IsConstraint ? "constraint " : "alignment ") +
                          LineOf(Current.From) + Current.Words);
  }
  return vsDescribed;
}

/// What is shown of a rule with these lines, but for its components.
Strings DescribedLines(const std::string& Body) {
  const ReadRuleText Rule("NP::NP : [DET N] -> [DET N]\n(X1::Y1)\n" + Body);
  return Described(Rule.Parts());
}

const Strings Plain{"x0 NP", "x1 DET", "x2 N?", "y0 NP", "y1 DET", "y2 N?", "alignment 2 1-1"};

/// The plain rule with one entry replaced, or added after the others.
Strings With(std::size_t At, const std::string& Entry) {
  Strings vsAll = Plain;
  vsAll.resize(std::max(At + 1, vsAll.size()));
  vsAll[At] = Entry;
  return vsAll;
}

TEST(RuleParts, HaveEachConstraintWhereItBelongs) {
  const struct {
    const char* Constraint;
    std::size_t At;
    const char* Entry;
  } Cases[] = {
      {"(x0 = x2)", 2, "x2 N? * 3"},
      {"(x2 = x0)", 2, "x2 N? * 3"},
      {"(y0 = y1)", 4, "y1 DET * 3"},
      {"(x1 = x2)", 7, "x 3 1-2 ="},
      {"(x0 = x0)", 0, "x0 NP | 3 x0 = x0"},
      {"((x1 a) = (x1 b c))", 1, "x1 DET | 3 x1 A = x1 B C"},
      {"((x2 num) = (x1 num))", 7, "x 3 1-2 NUM"},
      {"((x0 num) = (x2 num))", 7, "x 3 0-2 NUM"},
      {"((y1 agr  gen) = (y2 agr\tgen))", 7, "y 3 1-2 AGR GEN"},
      {"((y1 gen) = (y2 agr gen))", 7, "y 3 1-2 y1 GEN = y2 AGR GEN"},
      {"(y1 == (y0 det))", 7, "y 3 0-1 y1 = y0 DET"},
      {"(Y1 = (Y0 DET)", 7, "y 3 0-1 y1 = y0 DET"},
      {"((x0 det) = x1)", 7, "x 3 0-1 x0 DET = x1"},
      {"(y0 = x0)", 7, "pass 3 0-0 ="},
      {"((y2 num) = (x1 num))", 7, "pass 3 1-2 NUM"},
      {"((x1 num) = (y2 num))", 7, "pass 3 1-2 NUM"},
      {"((y2 agr) = (x1 num))", 7, "pass 3 1-2 y2 AGR = x1 NUM"},
      {"((x1 num) = sg)", 1, "x1 DET | 3 NUM: SG"},
      {"((y0 num) = +)", 3, "y0 NP | 3 NUM: +"},
      {"((x1 num) = (*OR* sg pl))", 1, "x1 DET | 3 NUM: SG or PL"},
      {"((x1 num) = (*NOT* sg pl))", 1, "x1 DET | 3 NUM: not SG, not PL"},
      {"((x3 num) = sg)", 7, "constraint 3 ((x3 num) = sg): there is no x3"},
      {"((x1 num) = (y7 num))", 7, "constraint 3 ((x1 num) = (y7 num)): there is no y7"},
      {"(x0 = n)", 7, "constraint 3 (x0 = n): this means nothing"},
      {"((x1 num = sg)", 7, "constraint 3 ((x1 num = sg): this cannot be read"},
      {"(X3::Y1)", 7, "alignment 3 (X3::Y1): there is no x3"},
      {"(X1::Y0)", 7, "alignment 3 (X1::Y0): there is no y0"},
      {"(X1::1)", 7, "alignment 3 (X1::1): this cannot be read"},
  };
  for (const auto& Current : Cases) {
    EXPECT_EQ(DescribedLines(Current.Constraint), With(Current.At, Current.Entry))
        << Current.Constraint;
  }
}

TEST(RuleParts, TakeRepeatedConstraintsOneByOne) {
  EXPECT_EQ(DescribedLines("(x0 = x2)\n(x0 = x2)\n"),
            (Strings{"x0 NP", "x1 DET", "x2 N? * 3", "y0 NP", "y1 DET", "y2 N?", "alignment 2 1-1",
                     "x 4 0-2 ="}));
  EXPECT_EQ(DescribedLines("((x1 num) = sg)\n((x1 num) = pl)\n((x1 num) = (*NOT* du))\n"),
            With(1, "x1 DET | 3 NUM: SG | 4 or NUM: PL | 5 NUM: not DU"));
}

TEST(RuleParts, ListWhatCannotBeDrawnInTheOrderOfTheLines) {
  EXPECT_EQ(DescribedLines("((x1 num = sg)\n(X9::Y1)\n(y0 = n)\n"),
            (Strings{"x0 NP", "x1 DET", "x2 N?", "y0 NP", "y1 DET", "y2 N?", "alignment 2 1-1",
                     "constraint 3 ((x1 num = sg): this cannot be read",
                     "alignment 4 (X9::Y1): there is no x9",
                     "constraint 5 (y0 = n): this means nothing"}));
}

TEST(RuleParts, KeepLiteralsAsTheyAreWritten) {
  const ReadRuleText Rule("NP::NP : [\"the\" n] -> [n]\n(X2::Y1)\n");
  EXPECT_EQ(Described(Rule.Parts()),
            (Strings{"x0 NP", "x1 \"the\"", "x2 N", "y0 NP", "y1 N", "alignment 2 2-1"}));
  EXPECT_TRUE(Rule.Parts().Components[0][1].IsLiteral);
}

TEST(RuleParts, HaveWhatTheCaptionSays) {
  const ReadRuleText Rule(
      ";;SL: one\n;;TL: uno\n;;SL: two\n;;TL: dos\n;; Score: 12\n;;Score: 3\n{ NP , 007 }\n"
      "NP::S : [N] -> [N]\n(X1::Y1)\n");
  const RuleParts Parts = Rule.Parts();
  EXPECT_EQ(Parts.Name, "{NP,7}");
  EXPECT_EQ(Parts.Types, "NP::S");
  EXPECT_EQ(Parts.Count, 12U);
  EXPECT_EQ(Parts.SourceExample, "one");
  EXPECT_EQ(Parts.TargetExample, "uno");
  EXPECT_EQ(ReadRuleText("{PP}\nNP::NP : [N] -> [N]\n").Parts().Name, "{PP}");
  EXPECT_EQ(ReadRuleText("\nNP::NP : [N] -> [N]\n").Parts().Name, "a.trr:2");
}

TEST(RuleParts, ReadTheRuleAloud) {
  const ReadRuleText Rule(
      "NP::NP : [\"the\" N] -> [N]\n(X2::Y1)\n(x0 = x2)\n((x2 num) = sg)\n((x2 num) = pl)\n"
      "((x2 gen) = (*NOT* f n))\n((y1 agr num) = (x2 num))\n((y0 num) = (y1 num))\n"
      "((x2 a) = (x2 b))\n(y0 = x0)\n((x9 a) = b)\n");
  EXPECT_EQ(Rule.Parts().vsSentences,
            (Strings{"Source NP: x1 \"the\", x2 N.", "Target NP: y1 N.", "x2 is aligned with y1.",
                     "x2 is the head of x0.", "NUM of x2 is SG.", "or NUM of x2 is PL.",
                     "GEN of x2 is not F, not N.", "AGR NUM of y1 comes from NUM of x2.",
                     "NUM of y0 agrees with NUM of y1.", "A of x2 is the same as B of x2.",
                     "y0 comes from x0.", "Not drawn: ((x9 a) = b): there is no x9."}));
}

TEST(RuleParts, NeedARuleLine) {
  RuleParts Parts;
  EXPECT_FALSE(ReadParts(ReadRuleText("{NP,8}\n(X1::Y1)\n").Rule(), Parts));
  EXPECT_FALSE(ReadParts(ReadRuleText("NP::NP : [N] -> [N\n(X1::Y1)\n").Rule(), Parts));
  EXPECT_TRUE(ReadParts(ReadRuleText("NP::NP : [N] -> [N]\n").Rule(), Parts));
}

}  // namespace
