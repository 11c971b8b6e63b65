#pragma once

#include "AlignmentText.h"
#include "support/ReferenceImplementation.h"

#include <string>
#include <vector>

/// What the library makes of alignment strings, in the types of the reference implementation.
namespace Library {

/// The string in canonical order, and an "x" or "y" for each index that it lacks.
inline Reference::Ordered Canonical(const std::string& Alignments) {
  std::vector<TrRuleInternal::MissingIndex> vMissing;
  Reference::Ordered Result{TrRuleInternal::CanonicalAlignments(Alignments, vMissing), ""};
  for (const TrRuleInternal::MissingIndex Index : vMissing) {
    Result.Missing += Index == TrRuleInternal::MissingIndex::X ? 'x' : 'y';
  }
  return Result;
}

/// The index texts of the displayed pairs.
inline Reference::TextPairs Displayed(const std::string& Alignments) {
  Reference::TextPairs vPairs;
  TrRuleInternal::DisplayWalk Walk(Alignments);
  for (TrRuleInternal::DisplayPair Pair; Walk.Next(Pair);) {
    vPairs.emplace_back(Pair.X, Pair.Y);
  }
  return vPairs;
}

}  // namespace Library
