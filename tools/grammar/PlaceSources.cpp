#include "PlaceSources.h"

#include "Bytes.h"
#include "Literal.h"

#include <algorithm>

namespace Grammar {

void PlaceSources::ReadPairs(const SourceRule& RulePassIn, bool IsReversed, const Labels& vFrom,
                             const Labels& vTo) {
  vPairs.clear();
  for (const SourceRule::AlignmentLine& Line : RulePassIn.Alignments()) {
    const auto X = static_cast<std::uint32_t>(Line.Parts.X - 1);
    const auto Y = static_cast<std::uint32_t>(Line.Parts.Y - 1);
    const Pair New = IsReversed ? Pair(X, Y) : Pair(Y, X);
    if (!IsLiteral(vTo[New.first]) && !IsLiteral(vFrom[New.second])) {
      vPairs.push_back(New);
    }
  }
  std::sort(vPairs.begin(), vPairs.end());
  vPairs.erase(std::unique(vPairs.begin(), vPairs.end()), vPairs.end());
}

/// @param First, Last the pairs of the target component, which is a place
void PlaceSources::FindSource(std::vector<Pair>::const_iterator First,
                              std::vector<Pair>::const_iterator Last, std::uint32_t Target,
                              const Labels& vFrom, const Labels& vTo) {
  if (First == Last) {
    vMismatches.push_back({Fault::NoSource, vTo[Target]});
    return;
  }
  const auto HasItsLabel = [&](const Pair& Current) {
    return IsSameInCapitals(vFrom[Current.second], vTo[Target]);
  };
  if (Last - First == 1) {
    vSources[Target] = First->second;
  } else if (std::count_if(First, Last, HasItsLabel) == 1) {
    vSources[Target] = std::find_if(First, Last, HasItsLabel)->second;
  } else {
    vMismatches.push_back({Fault::ManySources, vTo[Target]});
  }
}

/// A constituent that is written several times is translated once, and so has one target type.
void PlaceSources::CheckLabels(const Labels& vFrom, const Labels& vTo) {
  std::vector<std::uint32_t> vFirst(vFrom.size(), None);  // the target place that came first
  std::vector<bool> vIsTold(vFrom.size());
  for (std::uint32_t Target = 0; Target < vTo.size(); ++Target) {
    const std::uint32_t Source = vSources[Target];
    if (Source == None) {
      continue;
    }
    if (vFirst[Source] == None) {
      vFirst[Source] = Target;
    } else if (!vIsTold[Source] && !IsSameInCapitals(vTo[vFirst[Source]], vTo[Target])) {
      vIsTold[Source] = true;
      vMismatches.push_back({Fault::SeveralLabels, vFrom[Source]});
    }
  }
}

bool PlaceSources::Find(const SourceRule& RulePassIn, bool IsReversed) {
  const Labels& vFrom = IsReversed ? RulePassIn.TLLabels() : RulePassIn.SLLabels();
  const Labels& vTo = IsReversed ? RulePassIn.SLLabels() : RulePassIn.TLLabels();
  ReadPairs(RulePassIn, IsReversed, vFrom, vTo);
  vSources.assign(vTo.size(), None);
  vMismatches.clear();
  auto First = vPairs.cbegin();
  for (std::uint32_t Target = 0; Target < vTo.size(); ++Target) {
    const auto Last = std::find_if(First, vPairs.cend(),
                                   [&](const Pair& Current) { return Current.first != Target; });
    if (!IsLiteral(vTo[Target])) {
      FindSource(First, Last, Target, vFrom, vTo);
    }
    First = Last;
  }
  if (vPairs.size() >= 2) {
    CheckLabels(vFrom, vTo);
  }
  const auto ComesBefore = [](const Mismatch& Left, const Mismatch& Right) {
    return Left.Label.data() < Right.Label.data();
  };
  std::sort(vMismatches.begin(), vMismatches.end(), ComesBefore);
  return vMismatches.empty();
}

}  // namespace Grammar
