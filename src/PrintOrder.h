#pragma once

#include <cstddef>
#include <optional>
#include <vector>

/// @file
/// The order in which the constraints of a rule are written.
///
/// Values come first, in the order in which they are stored; then the agreements of category 1,
/// those of category 2, and those of categories 3 and 4 together. Within 1 and within 3 and 4 a
/// node comes after the nodes that its agreements refer to, within 2 nodes come in ascending
/// order. For example "(Y1 = Y2)" comes after "(Y2 = Y0)".

namespace TrRuleInternal {

/// What of a stored constraint its place depends on.
struct OrderedConstraint {
  int Category = 0;
  int ConstrainedIndex = 0;
  std::optional<int> AgreedIndex;  ///< of an agreement; nothing for a value
};

/// The agreements that are put in order together, by their categories.
enum class PrintGroup { Category1, Category2, Category3and4 };

/// Finds the order in which constraints are written, as places from 0. Agreements of other
/// categories than 1 to 4 are not written, and left out. n log n.
/// @param vConstraints in the order of their keys
/// @param vOrderReturn gets the order
/// @return the first group that cannot be put in order, because agreements wait for each other;
///         nothing where all could
std::optional<PrintGroup> FindPrintOrder(const std::vector<OrderedConstraint>& vConstraints,
                                         std::vector<std::size_t>& vOrderReturn);

}  // namespace TrRuleInternal
