// Sections: what can be used, equations, the rule.

#include "UsableRule.h"

#include "Bytes.h"
#include "CountText.h"
#include "HeaderText.h"
#include "RuleRecord.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Grammar {

using TrRuleInternal::ConstraintParts;
using TrRuleInternal::NodeText;
using TrRuleInternal::RightKind;

// ---- What can be used -------------------------------------------------------------------------

bool HasComponent(const SourceRule& Lines, const NodeText& Node) {
  return Node.Index >= 0 &&
         static_cast<std::size_t>(Node.Index) <= Lines.LabelsOf(Node.Side).size();
}

bool HasReadableTypes(const SourceRule& Lines) {
  return !Lines.RuleLines().empty() &&
         Lines.RuleLines().front().Fault == TrRuleInternal::RuleLineFault::None;
}

bool LacksNode(const ConstraintParts& Parts) {
  return Parts.IsWholeNode && !Parts.RightNode;
}

std::string_view ParenthesisInList(const ConstraintParts& Parts) {
  const bool IsList = Parts.Kind == RightKind::Or || Parts.Kind == RightKind::Not;
  const std::size_t Open = IsList ? Parts.Value.find('(') : std::string_view::npos;
  return Open == std::string_view::npos ? std::string_view() : Parts.Value.substr(Open);
}

namespace {

bool IsUsable(const SourceRule& Lines, const SourceRule::AlignmentLine& Line) {
  const auto IsIn = [](int Index, const std::vector<std::string_view>& vLabels) {
    return Index >= 1 && static_cast<std::size_t>(Index) <= vLabels.size();
  };
  return IsIn(Line.Parts.X, Lines.SLLabels()) && IsIn(Line.Parts.Y, Lines.TLLabels());
}

bool IsUsable(const SourceRule& Lines, const ConstraintParts& Parts) {
  return !LacksNode(Parts) && ParenthesisInList(Parts).empty() && HasComponent(Lines, Parts.Left) &&
         (!Parts.RightNode || HasComponent(Lines, *Parts.RightNode));
}

}  // namespace

bool HasUsableLines(const SourceRule& Lines) {
  return !IsTooLong(Lines.Text()) && Lines.IsWhole() &&
         std::all_of(
             Lines.Alignments().begin(), Lines.Alignments().end(),
             [&](const SourceRule::AlignmentLine& Line) { return IsUsable(Lines, Line); }) &&
         std::all_of(
             Lines.Constraints().begin(), Lines.Constraints().end(),
             [&](const SourceRule::ConstraintLine& Line) { return IsUsable(Lines, Line.Parts); });
}

// ---- Equations --------------------------------------------------------------------------------

void AddWords(std::string_view Text, std::vector<std::string_view>& vWordsReturn) {
  while (!(Text = WithoutLeadingSpace(Text)).empty()) {
    const auto* const End = std::find_if(Text.begin(), Text.end(), IsSpace);
    const auto Size = static_cast<std::size_t>(End - Text.begin());
    vWordsReturn.push_back(Text.substr(0, Size));
    Text.remove_prefix(Size);
  }
}

namespace {

void SetPath(const NodeText& Node, std::string_view Features, bool IsReversed,
             NodePath& PathReturn) {
  PathReturn.OnSide = (Node.Side == 'X') != IsReversed ? Side::X : Side::Y;
  PathReturn.Index = static_cast<std::uint32_t>(Node.Index);
  AddWords(Features, PathReturn.vFeatures);
}

void SetEquation(const ConstraintParts& Parts, bool IsReversed, Equation& EquationReturn) {
  SetPath(Parts.Left, Parts.Feature, IsReversed, EquationReturn.Left);
  if (Parts.RightNode) {
    EquationReturn.Kind = EquationKind::Path;
    SetPath(*Parts.RightNode, Parts.RightFeature, IsReversed, EquationReturn.Right);
    return;
  }
  EquationReturn.Kind = Parts.Kind == RightKind::Not ? EquationKind::None : EquationKind::Any;
  if (Parts.Kind == RightKind::Value) {
    EquationReturn.vAtoms.push_back(Trimmed(Parts.Value));
  } else {
    AddWords(Parts.Value, EquationReturn.vAtoms);
  }
}

}  // namespace

// ---- The rule ---------------------------------------------------------------------------------

std::size_t LineOfRule(const RuleText& Text) {
  std::optional<std::size_t> Header;
  std::optional<std::size_t> First;
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const LineKind Kind = Text.vLines[Line].Kind;
    if (Kind == LineKind::Sequence) {
      return Text.FirstLine + Line;
    }
    if (Kind == LineKind::Header && !Header) {
      Header = Line;
    }
    if (Kind != LineKind::Blank && Kind != LineKind::Comment && !First) {
      First = Line;
    }
  }
  return Text.FirstLine + Header.value_or(First.value_or(0));
}

std::uint32_t CountIn(const RuleText& Text) {
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const RuleText::Span& Range = Text.vLines[Line];
    std::string_view Rest;
    if (Range.CommentBegin != Range.CommentEnd &&
        TakeLabel(Text.Parts(Line).Comment, ScoreLabel, Rest)) {
      return static_cast<std::uint32_t>(ParseCount(Rest).Value);
    }
  }
  return 1;
}

namespace {

/// The last of several headers counts.
void ReadHeader(const SourceRule& Lines, UsableRule& RuleReturn) {
  RuleReturn.Header.clear();
  RuleReturn.HasHeader = false;
  if (Lines.Headers().empty()) {
    return;
  }
  const SourceRule::HeaderLine& Last = Lines.Headers().back();
  const RuleHeader Header = HeaderOf(Last.Parts, Lines.CodeOf(Last.Line));
  RuleReturn.HasHeader = Header.IsReadable;
  if (Header.IsReadable) {
    RuleReturn.Header.append(Header.Type).append(1, ',').append(Header.Number);
  }
}

void ReadSides(const SourceRule& Lines, bool IsReversed, UsableRule& RuleReturn) {
  const TrRuleInternal::RuleLineParts& Parts = Lines.RuleLines().front().Parts;
  RuleSide& Source = IsReversed ? RuleReturn.Y : RuleReturn.X;
  RuleSide& Target = IsReversed ? RuleReturn.X : RuleReturn.Y;
  Source.Type = Parts.SLType;
  Source.vLabels = Lines.SLLabels();
  Target.Type = Parts.TLType;
  Target.vLabels = Lines.TLLabels();
}

}  // namespace

bool ReadUsableRule(const SourceRule& Lines, bool IsReversed, UsableRule& RuleReturn) {
  if (!HasUsableLines(Lines) || !RuleReturn.Places.Find(Lines, IsReversed)) {
    return false;
  }
  const RuleText& Text = Lines.Text();
  RuleReturn.File = Text.File;
  RuleReturn.Line = Text.FirstLine + Lines.RuleLines().front().Line;
  ReadHeader(Lines, RuleReturn);
  ReadSides(Lines, IsReversed, RuleReturn);
  RuleReturn.vEquations.clear();
  for (const SourceRule::ConstraintLine& Line : Lines.Constraints()) {
    Equation& New = RuleReturn.vEquations.emplace_back();
    New.Line = Text.FirstLine + Line.Line;
    SetEquation(Line.Parts, IsReversed, New);
  }
  RuleReturn.Count = CountIn(Text);
  return true;
}

}  // namespace Grammar
