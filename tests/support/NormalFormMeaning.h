#pragma once

#include "RuleChecker.h"
#include "RuleRecord.h"
#include "StrayText.h"
#include "support/HaltGuard.h"
#include "support/StreamCapture.h"

#include <AlignmentLine.h>
#include <LineScan.h>
#include <RuleLine.h>
#include <TrRule.h>
#include <algorithm>
#include <string>
#include <vector>

/// @file
/// Whether the library reads the same from a rule and from its normal form, for the tests of that
/// form and for its fuzz target.

/// Whether the library's record keeps white space of an alignment, "(X1::Y1 )".
inline bool HasWideAlignment(const Grammar::SourceRule& Rule) {
  const auto IsWide = [&](const Grammar::SourceRule::AlignmentLine& Aligned) {
    const std::string Capitals = TrRuleInternal::Upper(std::string(Rule.CodeOf(Aligned.Line)));
    TrRuleInternal::AlignmentTexts Texts;
    TrRuleInternal::ReadAlignment(Capitals, Texts);
    return Texts.X != Aligned.Parts.XText || Texts.Y != Aligned.Parts.YText;
  };
  return std::any_of(Rule.Alignments().begin(), Rule.Alignments().end(), IsWide);
}

/// Whether the library's record keeps white space before the types, "\tNP::NP".
inline bool HasWideTypes(const Grammar::SourceRule& Rule) {
  const Grammar::SourceRule::RuleLine& Line = Rule.RuleLines().front();
  const auto Types = TrRuleInternal::ReadTypes(Rule.Text().Line(Line.Line));
  return !Types || Types->First != Line.Parts.SLType;
}

/// Whether a reference is after a feature and a doubled sign, where the library reads a value.
inline bool HasDoubledReference(const Grammar::SourceRule& Rule) {
  const auto IsDoubled = [](const Grammar::SourceRule::ConstraintLine& Line) {
    return Line.Parts.Kind == TrRuleInternal::RightKind::Reference && !Line.Parts.IsWholeNode &&
           Line.Parts.Equals.size() > 1;
  };
  return std::any_of(Rule.Constraints().begin(), Rule.Constraints().end(), IsDoubled);
}

/// Whether the library reads text on a header line that is not part of the rule, "{NP,8} a = b".
inline bool HasReadStray(const Grammar::SourceRule& Rule) {
  const auto IsRead = [](std::string_view Text) {
    const TrRuleInternal::LineMarks Marks = TrRuleInternal::ScanLine(Text).Whole;
    return Marks.HasArrow || Marks.HasColons || Marks.HasEquals;
  };
  return std::any_of(Rule.Headers().begin(), Rule.Headers().end(), [&](const auto& Header) {
    const auto vStray = Grammar::StrayTexts(Rule.Text().Parts(Header.Line));
    return std::any_of(vStray.begin(), vStray.end(), IsRead);
  });
}

/// Whether the library takes a comment for part of a rule.
inline bool HasReadComment(const Grammar::SourceRule& Rule) {
  Grammar::RuleRecord Checked;
  std::vector<Grammar::Finding> vFindings;
  Grammar::CheckRule(Rule.Text(), Checked, vFindings);
  return std::any_of(vFindings.begin(), vFindings.end(),
                     [](const Grammar::Finding& Found) { return Found.Code == "TR029"; });
}

/// Whether the library takes a rule for another one than is meant, and so for another one than its
/// normal form. There are no other exceptions.
inline bool IsReadOtherwise(const Grammar::SourceRule& Rule) {
  return HasWideAlignment(Rule) || HasWideTypes(Rule) || HasDoubledReference(Rule) ||
         HasReadStray(Rule) || HasReadComment(Rule);
}

/// Whether the library reads equal rules, with one comparison text, from two texts. A rule that it
/// cannot put in order has no such text.
inline bool ReadsTheSame(const std::string& Left, const std::string& Right) {
  const StreamCapture Streams;
  TrRule LeftRule;
  TrRule RightRule;
  const auto TextOf = [](TrRule& Rule) {
    std::string Text;
    HaltOf([&] { Text = Rule.ReturnAsStringForComparison(); });
    return Text;
  };
  return LeftRule.SetTrRuleFromString(Left) && RightRule.SetTrRuleFromString(Right) &&
         LeftRule == RightRule && TextOf(LeftRule) == TextOf(RightRule);
}
