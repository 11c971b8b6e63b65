#pragma once

#include "AlignmentText.h"
#include "support/SlowTwins.h"

#include <string>
#include <vector>

/// What the library makes of alignment strings, in the shape in which the slow twins give it.
namespace Fast {

/// The string in canonical order, and an "x" or "y" for each index that it lacks.
inline Slow::Ordered Canonical(const std::string& Alignments) {
  std::vector<TrRuleInternal::MissingIndex> vMissing;
  Slow::Ordered Result{TrRuleInternal::CanonicalAlignments(Alignments, vMissing), ""};
  for (const TrRuleInternal::MissingIndex Each : vMissing) {
    Result.Missing += Each == TrRuleInternal::MissingIndex::X ? 'x' : 'y';
  }
  return Result;
}

/// The index texts of the pairs that are displayed.
inline Slow::TextPairs Displayed(const std::string& Alignments) {
  Slow::TextPairs vPairs;
  TrRuleInternal::DisplayWalk Walk(Alignments);
  for (TrRuleInternal::DisplayPair Pair; Walk.Next(Pair);) {
    vPairs.emplace_back(Pair.X, Pair.Y);
  }
  return vPairs;
}

}  // namespace Fast
