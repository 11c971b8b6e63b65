// Three versions of a rule as one: tables of what is merged, and what is a conflict.

#include "CommentMerge.h"
#include "MergeSupport.h"
#include "RuleMerge.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

TEST(CommentMerge, JoinsCommentsAndExamples) {
  const Strings Car{";;SL: the car", ";;TL: el auto"};
  const Strings Bus{";;SL: the bus", ";;TL: el auto"};
  const Strings Both{";;SL: the car", ";;TL: el auto", ";;SL: the bus", ";;TL: el auto"};
  const struct {
    Strings Base;
    Strings Ours;
    Strings Theirs;
    Strings Merged;
  } Cases[] = {
      {{}, {}, {}, {}},
      {{"; a"}, {"; a"}, {"; a"}, {"; a"}},
      {{"; a"}, {}, {"; a"}, {}},
      {{"; a"}, {"; a"}, {}, {}},
      {{"; a"}, {"; a", "; b"}, {"; c", "; a"}, {"; a", "; b", "; c"}},
      {{}, {"; b"}, {"; b"}, {"; b"}},
      {{"; a", "; a"}, {"; a"}, {"; a", "; a"}, {"; a"}},
      {{"; a", "; a"}, {"; a"}, {"; a"}, {"; a"}},
      {{}, Car, Bus, Both},
      {Car, Car, Both, Both},
      {Both, Bus, Both, Bus},
      {Car, Car, Car, Car},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(Grammar::MergedComments(Case.Base, Case.Ours, Case.Theirs, 1), Case.Merged);
  }
}

TEST(CommentMerge, AddsCounts) {
  const struct {
    Strings Base;
    Strings Ours;
    Strings Theirs;
    int BaseCount;
    Strings Merged;
  } Cases[] = {
      {{";;Score:3"}, {";;Score:5"}, {";;Score:4"}, 3, {";;Score:6"}},
      {{";;Score:3"}, {";;Score:5"}, {";;Score:5"}, 3, {";;Score:7"}},
      {{";;Score:3"}, {";;Score:1"}, {";;Score:1"}, 3, {";;Score:1"}},
      {{}, {}, {"; a", ";;Score:4"}, 1, {"; a", ";;Score:4"}},
      {{}, {";; Score: 2 or so", "; a"}, {}, 1, {";; Score: 2 or so", "; a"}},
      {{}, {"; a", ";;Score:2"}, {";;Score:2", "; b"}, 1, {"; a", ";;Score:3", "; b"}},
      {{}, {}, {}, 0, {}},
      {{}, {";;Score:2"}, {}, 0, {";;Score:3"}},
      {{}, {";;Score:2"}, {";;Score:2"}, 0, {";;Score:4"}},
      {{";;Score:1"}, {";;Score:2147483647"}, {";;Score:9"}, 1, {";;Score:2147483647"}},
      {{";;Score:2"}, {";;Score:2", ";;Score:7"}, {";;Score:3"}, 2, {";;Score:3", ";;Score:7"}},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(Grammar::MergedComments(Case.Base, Case.Ours, Case.Theirs, Case.BaseCount),
              Case.Merged);
  }
}

const std::string Head = "{NP,1}\n";
const std::string Sides = "NP::NP [DET N] -> [DET N]\n";

std::string Rule(const std::string& Line, const std::string& Body,
                 const std::string& Comments = "") {
  return Comments + Head + Line + "(\n" + Body + ")\n";
}

const std::string Base = Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n");

struct MergeCase {
  std::string Ours;
  std::string Theirs;
  std::string Text;
  Strings vsConflicts;
};

void ExpectMerges(const std::vector<MergeCase>& vCases) {
  using Grammar::ComparedRule;
  for (const MergeCase& Case : vCases) {
    const Grammar::MergedRule Merged = Grammar::MergeRules(
        *ComparedRule::Of(Base), *ComparedRule::Of(Case.Ours), *ComparedRule::Of(Case.Theirs));
    EXPECT_EQ(Merged.Text, Case.Text);
    EXPECT_EQ(Merged.vsConflicts, Case.vsConflicts);
  }
}

TEST(RuleMerge, TakesWhatEitherVersionHasChanged) {
  ExpectMerges({
      {Base, Base, Base, {}},
      {Rule("AP::NP [DET N] -> [DET N]\n", "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n"),
       Rule("NP::NP [DET N] -> [DET \"el\"]\n", "(X1::Y1)\n((X2 NUM) = SG)\n((X1 NUM) = PL)\n",
            ";;Score:3\n"),
       Rule("AP::NP [DET N] -> [DET \"el\"]\n", "(X1::Y1)\n((X1 NUM) = PL)\n((X2 NUM) = SG)\n",
            ";;Score:3\n"),
       {}},
      {Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = PL)\n"),
       Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = PL)\n((X1 DEF) = +)\n"),
       Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X1 DEF) = +)\n((X2 NUM) = PL)\n"),
       {}},
  });
}

const std::string See = ";;Conflict: see both versions, correct the rule, and remove these lines\n";

TEST(RuleMerge, ShowsBothVersionsOfAPart) {
  ExpectMerges({
      {Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = PL)\n", "; kept\n"),
       Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = DU)\n((X1 DEF) = +)\n"),
       Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X1 DEF) = +)\n((X2 NUM) = PL)\n",
            See + ";; ours: constraint ((X2 NUM) %3D …): SG becomes PL\n"
                  ";; theirs: constraint ((X2 NUM) %3D …): SG becomes DU\n; kept\n"),
       {"ours: constraint ((X2 NUM) = …): SG becomes PL",
        "theirs: constraint ((X2 NUM) = …): SG becomes DU"}},
      {Rule("NP::NP [DET N] -> [DET ADJ]\n", "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n"),
       Rule("NP::NP [DET N] -> [DET \"el\"]\n", "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n"),
       Rule("NP::NP [DET N] -> [DET ADJ]\n", "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n",
            See + ";; ours: component 2 of the target: N becomes ADJ\n"
                  ";; theirs: component 2 of the target: N becomes \"el\"\n"),
       {"ours: component 2 of the target: N becomes ADJ",
        "theirs: component 2 of the target: N becomes \"el\""}},
  });
}

TEST(RuleMerge, HasNoConflictWhereOneVersionDoesAllThatTheOtherDoes) {
  const std::string Shorter = Rule("NP::NP [DET N] -> [N]\n", "(X2::Y1)\n((X2 NUM) = SG)\n");
  ExpectMerges({
      {Shorter, Rule(Sides, "(X1::Y1)\n(X2::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n"), Shorter, {}},
  });
}

TEST(RuleMerge, IsAConflictWhereBothVersionsTogetherAreNoRule) {
  ExpectMerges({
      {Rule(Sides, "(X2::Y2)\n((X2 NUM) = SG)\n"),
       Rule(Sides, "(X1::Y1)\n((X2 NUM) = SG)\n"),
       Rule(Sides, "(X2::Y2)\n((X2 NUM) = SG)\n",
            See + ";; ours: alignment (X1:%3AY1) removed\n"
                  ";; theirs: alignment (X2:%3AY2) removed\n"),
       {"ours: alignment (X1::Y1) removed", "theirs: alignment (X2::Y2) removed"}},
      {Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n((X1 NUM) = (X2 NUM))\n"),
       Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n((X2 NUM) = (X1 NUM))\n"),
       Rule(Sides, "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = SG)\n((X1 NUM) = (X2 NUM))\n",
            See + ";; ours: constraint ((X1 NUM) %3D (X2 NUM)) added\n"
                  ";; theirs: constraint ((X2 NUM) %3D …): SG becomes SG, (X1 NUM)\n"),
       {"ours: constraint ((X1 NUM) = (X2 NUM)) added",
        "theirs: constraint ((X2 NUM) = …): SG becomes SG, (X1 NUM)"}},
  });
}

TEST(RuleMerge, KeepsARuleThatOneVersionHasRemoved) {
  using Grammar::ComparedRule;
  const std::string Body = "(X1::Y1)\n(X2::Y2)\n((X2 NUM) = PL)\n";
  const ComparedRule Changed = *ComparedRule::Of(Rule(Sides, Body, "; kept\n"));
  for (const bool IsOurs : {true, false}) {
    const std::string This = IsOurs ? "ours" : "theirs";
    const std::string Other = IsOurs ? "theirs" : "ours";
    const std::string Changes = ";; " + This + ": constraint ((X2 NUM) %3D …): SG becomes PL\n;; " +
                                This + ": comment added: ; kept\n";
    const std::string Removed = ";; " + Other + ": the rule is removed\n";
    const std::string Shown = IsOurs ? Changes + Removed : Removed + Changes;
    const Grammar::MergedRule Kept = Grammar::KeepChanged(*ComparedRule::Of(Base), Changed, IsOurs);
    EXPECT_EQ(Kept.Text, Rule(Sides, Body, See + Shown + "; kept\n"));
    EXPECT_EQ(Kept.vsConflicts,
              Strings{This + " has changed the rule, and " + Other + " has removed it"});
  }
}

TEST(RuleMerge, KeepsDifferentRulesWithOneHeader) {
  const std::string This = "this rule\n";
  const std::string Other = "another rule with this header\n";
  for (const bool IsOurs : {true, false}) {
    const Grammar::MergedRule Kept = Grammar::KeepAdded(*Grammar::ComparedRule::Of(Base), IsOurs);
    EXPECT_EQ(Kept.Text, See + ";; ours: " + (IsOurs ? This : Other) +
                             ";; theirs: " + (IsOurs ? Other : This) + Base);
    EXPECT_EQ(Kept.vsConflicts,
              Strings{"ours and theirs have added different rules with one header"});
  }
}

TEST(RuleMerge, IsAConflictWhereTheCommentsOfBothVersionsAreTooLong) {
  // After the first line, the library reads 100,000 bytes of a rule: either version, but not both.
  const auto Commented = [](const std::string& Comment) {
    return Rule(Sides, "(X1::Y1)\n", "; first\n" + Comment);
  };
  const std::string Long = Commented("; " + std::string(60000, 'a') + '\n');
  using Grammar::ComparedRule;
  const Grammar::MergedRule Merged =
      Grammar::MergeRules(*ComparedRule::Of(Commented("")), *ComparedRule::Of(Long),
                          *ComparedRule::Of(Commented("; " + std::string(60000, 'b') + '\n')));
  EXPECT_EQ(Merged.vsConflicts, Strings{"the rule with the comments of both versions is too long"});
  EXPECT_TRUE(Merged.Text == Long) << Merged.Text.size();
}

}  // namespace
