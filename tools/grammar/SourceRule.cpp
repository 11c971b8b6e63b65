#include "SourceRule.h"

#include <Splitter.h>

#include <algorithm>
#include <string>

namespace Grammar {

namespace {

/// Cuts a sequence as the library does: at blanks, without the white space at the ends of a label.
void CutLabels(std::string_view Sequence, std::vector<std::string_view>& vLabelsReturn) {
  TrRuleInternal::Splitter Pieces(Sequence, " ");
  for (std::string_view Piece; Pieces.Next(Piece);) {
    const std::string_view Label = TrRuleInternal::TrimmedField(Piece);
    if (!Label.empty()) {
      vLabelsReturn.push_back(Label);
    }
  }
}

}  // namespace

void SourceRule::ReadRuleLine(std::size_t Line, std::string_view Code) {
  RuleLine& New = vRuleLines.emplace_back();
  New.Line = Line;
  New.Fault = TrRuleInternal::ParseRuleLine(Code, New.Parts);
  if (vRuleLines.size() == 1 && New.Fault == TrRuleInternal::RuleLineFault::None) {
    CutLabels(New.Parts.SLLabels, vSLLabels);
    CutLabels(New.Parts.TLLabels, vTLLabels);
  }
}

void SourceRule::ReadAlignment(std::size_t Line, std::string_view Code) {
  if (const auto Parts = TrRuleInternal::ParseAlignment(Code)) {
    vAlignments.push_back({Line, *Parts});
  } else {
    vBroken.push_back({Line, LineKind::Alignment, {}});
  }
}

void SourceRule::ReadConstraint(std::size_t Line, std::string_view Code) {
  ConstraintLine& New = vConstraints.emplace_back();
  New.Line = Line;
  New.IsCommon = TrRuleInternal::ParseCommonForm(Code, New.Parts);
  if (New.IsCommon) {
    return;
  }
  TrRuleInternal::ConstraintStop Stop;
  if (const auto Parts = TrRuleInternal::ParseConstraint(Code, Stop)) {
    New.Parts = *Parts;
  } else {
    vConstraints.pop_back();
    vBroken.push_back({Line, LineKind::Constraint, Stop});
  }
}

void SourceRule::Read(const RuleText& TextPassIn) {
  Source = &TextPassIn;
  vHeaders.clear();
  vRuleLines.clear();
  vSLLabels.clear();
  vTLLabels.clear();
  vAlignments.clear();
  vConstraints.clear();
  vBroken.clear();
  for (std::size_t Line = 0; Line < TextPassIn.vLines.size(); ++Line) {
    const LineParts Parts = TextPassIn.Parts(Line);
    switch (Parts.Kind) {
      case LineKind::Header:
        vHeaders.push_back({Line, TrRuleInternal::ParseHeader(Parts.Code)});
        break;
      case LineKind::Sequence:
        ReadRuleLine(Line, Parts.Code);
        break;
      case LineKind::Alignment:
        ReadAlignment(Line, Parts.Code);
        break;
      case LineKind::Constraint:
        ReadConstraint(Line, Parts.Code);
        break;
      default:
        break;
    }
  }
}

TrRuleInternal::ConstraintFields SourceRule::FieldsOf(const ConstraintLine& Constraint) const {
  if (Constraint.IsCommon) {
    return TrRuleInternal::FieldsOfCommonForm(Constraint.Parts);
  }
  TrRuleInternal::ConstraintFields Fields;
  TrRuleInternal::ReadConstraint(
      TrRuleInternal::ForLibrary(CodeOf(Constraint.Line), Constraint.Parts), Fields);
  return Fields;
}

bool SourceRule::HasAlignmentLine() const {
  return !vAlignments.empty() ||
         std::any_of(vBroken.begin(), vBroken.end(),
                     [](const BrokenLine& Line) { return Line.Kind == LineKind::Alignment; });
}

bool SourceRule::IsWhole() const {
  return vRuleLines.size() == 1 &&
         vRuleLines.front().Fault == TrRuleInternal::RuleLineFault::None && !vAlignments.empty() &&
         vBroken.empty();
}

}  // namespace Grammar
