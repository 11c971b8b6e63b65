#pragma once

#include <Constraint.h>

#include <cstddef>
#include <string>
#include <vector>

namespace Grammar {

/// A constraint with the line that it stands on.
struct PlacedConstraint {
  Constraint Record;
  std::size_t Line;
};

/// Constraints that wait for each other when a rule is written.
struct ConstraintCycle {
  std::string Nodes;  ///< "x1 → x2 → x1", beginning with the node that `Line` constrains
  std::size_t Line;   ///< the first line that has part in it
};

/// The cycles of a rule's constraints: each reference is part of one at most. As the library sees
/// it, source-side nodes wait for source-side nodes and target-side nodes for target-side nodes,
/// and of a reference only the number counts.
std::vector<ConstraintCycle> FindCycles(const std::vector<PlacedConstraint>& vConstraints);

}  // namespace Grammar
