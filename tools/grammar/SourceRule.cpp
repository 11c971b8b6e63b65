#include "SourceRule.h"

#include <algorithm>

namespace Grammar {

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
  vAlignments.clear();
  vConstraints.clear();
  vBroken.clear();
  for (std::size_t Line = 0; Line < TextPassIn.vLines.size(); ++Line) {
    const LineParts Parts = TextPassIn.Parts(Line);
    switch (Parts.Kind) {
      case LineKind::Header:
        vHeaders.push_back({Line, TrRuleInternal::ParseHeader(Parts.Code)});
        break;
      case LineKind::Sequence: {
        RuleLine& New = vRuleLines.emplace_back();
        New.Line = Line;
        New.Fault = TrRuleInternal::ParseRuleLine(Parts.Code, New.Parts);
        break;
      }
      case LineKind::Alignment:
        if (const auto Alignment = TrRuleInternal::ParseAlignment(Parts.Code)) {
          vAlignments.push_back({Line, *Alignment});
        } else {
          vBroken.push_back({Line, LineKind::Alignment, {}});
        }
        break;
      case LineKind::Constraint:
        ReadConstraint(Line, Parts.Code);
        break;
      default:
        break;
    }
  }
}

bool SourceRule::HasAlignmentLine() const {
  return !vAlignments.empty() ||
         std::any_of(vBroken.begin(), vBroken.end(),
                     [](const BrokenLine& Each) { return Each.Kind == LineKind::Alignment; });
}

bool SourceRule::IsWhole() const {
  return vRuleLines.size() == 1 &&
         vRuleLines.front().Fault == TrRuleInternal::RuleLineFault::None && !vAlignments.empty() &&
         vBroken.empty();
}

}  // namespace Grammar
