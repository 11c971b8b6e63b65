#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace Grammar {

/// An agreement of a constrained node with another one, on a line.
struct Reference {
  int Category;
  int ConstrainedIndex;
  int AgreedIndex;
  std::size_t Line;
};

/// Constraints that wait for each other when a rule is written.
struct ConstraintCycle {
  std::string Nodes;  ///< "x1 → x2 → x1", beginning with the node that `Line` constrains
  std::size_t Line;   ///< the first line that has part in it
};

/// The cycles of a rule's agreements: each reference is part of one at most. As the library sees
/// it, source-side nodes wait for source-side nodes and target-side nodes for target-side nodes,
/// and of a reference only the number counts. n log n.
///
/// @code
/// FindCycles({{1, 1, 2, 7}, {1, 2, 1, 8}}).front().Nodes;  // "x1 → x2 → x1"
/// @endcode
/// @param vReferences in the order of their lines
std::vector<ConstraintCycle> FindCycles(const std::vector<Reference>& vReferences);

}  // namespace Grammar
