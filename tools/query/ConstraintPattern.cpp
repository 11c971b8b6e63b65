#include "ConstraintPattern.h"

#include "Bytes.h"
#include "UsableRule.h"

#include <algorithm>

namespace Query {

using TrRuleInternal::ConstraintParts;
using TrRuleInternal::RightKind;

bool PathPattern::Fits(const TrRuleInternal::NodeText& Node, std::string_view Feature) const {
  return (!Side || *Side == Node.Side) && (!Index || *Index == Node.Index) &&
         Features.Fits(Feature);
}

namespace {

bool FitsLeft(const PathPattern& Path, const ConstraintParts& Parts) {
  return Path.Fits(Parts.Left, Parts.Feature);
}

bool FitsRight(const PathPattern& Path, const ConstraintParts& Parts) {
  return Path.Fits(*Parts.RightNode, Parts.RightFeature);
}

/// Whether each item fits some word of a list.
bool HasAll(std::string_view List, const std::vector<PatternItem>& vItems) {
  std::vector<std::string_view> vWords;
  Grammar::AddWords(List, vWords);
  return std::all_of(vItems.begin(), vItems.end(), [&](const PatternItem& Item) {
    return std::any_of(vWords.begin(), vWords.end(),
                       [&](std::string_view Word) { return FitsWord(Item, Word); });
  });
}

bool FitsValue(const ConstraintPattern& Pattern, const ConstraintParts& Parts) {
  switch (Pattern.Kind) {
    case ConstraintPattern::Right::Or:
      return Parts.Kind == RightKind::Or && HasAll(Parts.Value, Pattern.vValues);
    case ConstraintPattern::Right::Not:
      return Parts.Kind == RightKind::Not && HasAll(Parts.Value, Pattern.vValues);
    default:
      break;
  }
  return Parts.Kind == RightKind::Value
             ? FitsWord(Pattern.vValues.front(), Grammar::Trimmed(Parts.Value))
             : Parts.Kind == RightKind::Or && HasAll(Parts.Value, Pattern.vValues);
}

}  // namespace

bool ConstraintPattern::Fits(const ConstraintParts& Parts) const {
  const bool IsLeft = FitsLeft(Left, Parts);
  const bool HasPath = Parts.RightNode.has_value();
  switch (Kind) {
    case Right::Anything:
      return IsLeft || (HasPath && FitsRight(Left, Parts));
    case Right::Path:
      return HasPath && ((IsLeft && FitsRight(RightPath, Parts)) ||
                         (FitsRight(Left, Parts) && FitsLeft(RightPath, Parts)));
    default:
      break;
  }
  return IsLeft && !HasPath && FitsValue(*this, Parts);
}

bool PassesFeature(const ConstraintParts& Parts, const FeaturePattern& Features) {
  return Parts.RightNode && Parts.RightNode->Side != Parts.Left.Side &&
         (Features.Fits(Parts.Feature) || Features.Fits(Parts.RightFeature));
}

}  // namespace Query
