#include "RuleDifference.h"

#include "RandomVersions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace Grammar;
using Strings = std::vector<std::string>;

constexpr const char* Sample =
    ";; first\n;;Score:3\n{NP,8}\nNP::NP : [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n(X2::Y2)\n"
    "((x2 num) = sg)\n(y1 = x1)\n(y1 = x2)\n)\n";

ComparedRule RuleOf(const std::string& Text) {
  return ComparedRule::Of(Text).value();
}

/// The sample with a text replaced.
std::string With(const std::string& Old, const std::string& New) {
  std::string Text = Sample;
  return Text.replace(Text.find(Old), Old.size(), New);
}

Strings Described(const std::string& OldText, const std::string& NewText) {
  Strings vsDescribed;
  for (const PartChange& Change : DifferencesOf(RuleOf(OldText), RuleOf(NewText))) {
    vsDescribed.push_back(Describe(Change));
  }
  return vsDescribed;
}

TEST(ComparedRule, HoldsThePartsOfTheNormalForm) {
  const ComparedRule Rule = RuleOf(Sample);
  EXPECT_EQ(Rule.vsComments, (Strings{";; first", ";;Score:3"}));
  EXPECT_EQ(Rule.Header, "{NP,8}");
  EXPECT_EQ(Rule.Types, (std::array<std::string, 2>{"NP", "NP"}));
  EXPECT_EQ(Rule.Labels[ComparedRule::Source], (Strings{"DET", "N"}));
  EXPECT_EQ(Rule.Labels[ComparedRule::Target], (Strings{"DET", "\"el\""}));
  EXPECT_EQ(Rule.vsAlignments, (Strings{"(X1::Y1)", "(X2::Y2)"}));
  EXPECT_EQ(Rule.vsConstraints, (Strings{"((X2 NUM) = SG)", "(Y1 = X1)", "(Y1 = X2)"}));
  EXPECT_EQ(Rule.Text(),
            ";; first\n;;Score:3\n{NP,8}\nNP::NP [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n"
            ";--;(X2::Y2)\n((X2 NUM) = SG)\n(Y1 = X1)\n(Y1 = X2)\n)\n");
}

TEST(ComparedRule, IsNothingWithoutAReadableRule) {
  for (const char* Text :
       {"", "; only this\n", "{NP,1}\n", "NP::NP : [N] -> [N\n(X1::Y1)\n",
        "NP::NP : [N] -> [N]\n(X1::Y1)\n{NP,2}\nNP::NP : [N] -> [N]\n(X1::Y1)\n"}) {
    EXPECT_FALSE(ComparedRule::Of(Text).has_value()) << Text;
  }
}

TEST(ComparedRule, HasNoTextThatIsNotARule) {
  ComparedRule Rule = RuleOf(Sample);
  Rule.vsAlignments.clear();
  EXPECT_FALSE(Rule.Text().has_value());
  Rule = RuleOf(Sample);
  Rule.vsConstraints = {"((X1 NUM) = (X2 NUM))", "((X2 NUM) = (X1 NUM))"};
  EXPECT_FALSE(Rule.Text().has_value());
}

TEST(RuleDifference, NamesEachPart) {
  const struct {
    std::string New;
    Strings vsExpected;
  } Cases[] = {
      {Sample, {}},
      {With("NP,8", "VP,8"), {"header: {NP,8} becomes {VP,8}"}},
      {With("{NP,8}\n", ""), {"header {NP,8} removed"}},
      {With("NP::NP", "N::NP"), {"source type: NP becomes N"}},
      {With("NP::NP", "NP::N"), {"target type: NP becomes N"}},
      {With("[DET N]", "[DET ADJ]"), {"component 2 of the source: N becomes ADJ"}},
      {With("\"el\"", "\"El\""), {"component 2 of the target: \"el\" becomes \"El\""}},
      {With("[DET N]", "[DET ADJ N]"), {"source sequence: [DET N] becomes [DET ADJ N]"}},
      {With("[DET \"el\"]", "[DET]"), {"target sequence: [DET \"el\"] becomes [DET]"}},
      {With("(X2::Y2)", "(X2::Y1)"), {"alignment (X2::Y1) added", "alignment (X2::Y2) removed"}},
      {With("= sg", "= pl"), {"constraint ((X2 NUM) = …): SG becomes PL"}},
      {With("((x2 num) = sg)\n", ""), {"constraint ((X2 NUM) = SG) removed"}},
      {With("((x2 num)", "((x1 num)"),
       {"constraint ((X1 NUM) = SG) added", "constraint ((X2 NUM) = SG) removed"}},
      {With("(y1 = x2)\n", ""), {"constraint (Y1 = …): X1, X2 becomes X1"}},
      {With("Score:3", "Score:14"), {"count: 3 becomes 14"}},
      {With(";;Score:3\n", ""), {"count 3 removed"}},
      {With(";; first\n;;Score:3", ";;Score:3\n;; first"),
       {"comment removed: ;; first", "comment added: ;; first"}},
      {With(";; first", ";; second"), {"comment removed: ;; first", "comment added: ;; second"}},
      {With(";; first", ";; first\n;; first"), {"comment added: ;; first"}},
  };
  for (const auto& Current : Cases) {
    EXPECT_EQ(Described(Sample, Current.New), Current.vsExpected) << Current.New;
  }
}

TEST(RuleDifference, IsTheSameForOrderAndLayoutAlone) {
  const std::string Laid =
      "\n  ;; first\r\n;;Score:3\r\n{ NP , 08 }\r\nNP::NP [det n] -> [DET \"el\"]\r\n(\r\n"
      "(y1 == x2)\r\n(x2::y2)\r\n(X1 :: Y1)\r\n(y1 = x1)\r\n((x2  num)=sg) )\r\n";
  EXPECT_EQ(Described(Sample, Laid), Strings());
}

TEST(RuleDifference, HasAName) {
  Strings vsNames;
  for (int Kind = 0; Kind <= static_cast<int>(PartKind::Comment); ++Kind) {
    vsNames.emplace_back(NameOf(static_cast<PartKind>(Kind)));
  }
  EXPECT_EQ(vsNames, (Strings{"header", "source type", "target type", "source sequence",
                              "target sequence", "source component", "target component",
                              "alignment", "constraint", "count", "comment"}));
}

// ---- Applying ---------------------------------------------------------------------------------

/// The text of a rule with changes, or "refused".
std::string Applied(const std::vector<PartChange>& vChanges, ComparedRule Rule) {
  const bool AllFit = std::all_of(vChanges.begin(), vChanges.end(),
                                  [&](const PartChange& Change) { return Apply(Change, Rule); });
  return AllFit ? Rule.Text().value_or("no rule") : "refused";
}

TEST(RuleDifference, MakesTheNewRuleOfTheOldAndBack) {
  RandomInput Random;
  for (int Round = 0; Round < 3000; ++Round) {
    const ComparedRule Old = RandomRule(Random);
    ComparedRule New = Old;
    ChangeSomeParts(Random, New);
    if (Random.Below(8) == 0) {
      New = RandomRule(Random);
    }
    std::vector<PartChange> vChanges = DifferencesOf(Old, New);
    EXPECT_EQ(Applied(vChanges, Old), New.Text());
    EXPECT_EQ(vChanges.empty(), Old.Text() == New.Text());
    std::reverse(vChanges.begin(), vChanges.end());
    std::transform(vChanges.begin(), vChanges.end(), vChanges.begin(), Inverse);
    EXPECT_EQ(Applied(vChanges, New), Old.Text());
  }
}

TEST(RuleDifference, IsRefusedWhereAPartIsNotAsExpected) {
  const Strings vsNew{With("NP,8", "NP,9"),         With("NP::NP", "N::NP"),
                      With("[DET N]", "[DET ADJ]"), With("[DET N]", "[N]"),
                      With("(X2::Y2)\n", ""),       With("= sg", "= pl"),
                      With("Score:3", "Score:4"),   With(";; first\n", "")};
  const ComparedRule Other = RuleOf(
      ";; other\n;;Score:7\n{NP,7}\nVP::VP : [V V2] -> [V]\n(\n(X1::Y1)\n"
      "((x2 num) = du)\n)\n");
  for (const std::string& sNew : vsNew) {
    const std::vector<PartChange> vChanges = DifferencesOf(RuleOf(Sample), RuleOf(sNew));
    ASSERT_EQ(vChanges.size(), 1U) << sNew;
    ComparedRule Changed = Other;
    EXPECT_FALSE(Apply(vChanges[0], Changed)) << Describe(vChanges[0]);
    EXPECT_EQ(Changed.Text(), Other.Text());
  }
}

TEST(RuleDifference, FindsCommentsAtOtherPlaces) {
  ComparedRule Rule = RuleOf(Sample);
  EXPECT_TRUE(Apply({PartKind::Comment, 5, "", {";; first"}, {}}, Rule));
  EXPECT_TRUE(Apply({PartKind::Comment, 9, "", {}, {";; last"}}, Rule));
  EXPECT_EQ(Rule.vsComments, (Strings{";;Score:3", ";; last"}));
  EXPECT_FALSE(Apply({PartKind::Count, 0, "", {}, {";;Score:2"}}, Rule));
}

TEST(RuleDifference, OverlapsWhereOneOfTwoCanBeMade) {
  const auto ChangeTo = [](const std::string& New) {
    return DifferencesOf(RuleOf(Sample), RuleOf(New)).at(0);
  };
  const PartChange Second = ChangeTo(With("[DET N]", "[DET ADJ]"));
  const PartChange First = ChangeTo(With("[DET N]", "[ADJ N]"));
  const PartChange Longer = ChangeTo(With("[DET N]", "[DET ADJ N]"));
  const PartChange Target = ChangeTo(With("[DET \"el\"]", "[N \"el\"]"));
  const PartChange Plural = ChangeTo(With("= sg", "= pl"));
  const PartChange Dual = ChangeTo(With("= sg", "= du"));
  const PartChange Agreement = ChangeTo(With("(y1 = x2)\n", ""));
  const PartChange Alignment = ChangeTo(With("(X2::Y2)", "(X2::Y1)"));
  const PartChange Comment = ChangeTo(With(";; first\n", ""));
  const PartChange Count = ChangeTo(With("Score:3", "Score:4"));
  EXPECT_TRUE(Overlap(Second, Second));
  EXPECT_FALSE(Overlap(Second, First));
  EXPECT_TRUE(Overlap(Second, Longer));
  EXPECT_TRUE(Overlap(Longer, First));
  EXPECT_FALSE(Overlap(Longer, Target));
  EXPECT_TRUE(Overlap(Longer, Plural));
  EXPECT_TRUE(Overlap(Alignment, Longer));
  EXPECT_FALSE(Overlap(Longer, Comment));
  EXPECT_TRUE(Overlap(Plural, Dual));
  EXPECT_FALSE(Overlap(Plural, Agreement));
  EXPECT_FALSE(Overlap(Comment, Count));
  EXPECT_TRUE(Overlap(Comment, Comment));
}

}  // namespace
