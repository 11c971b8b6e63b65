#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

/// @file
/// The order in which the constraints of a rule are written.
///
/// Values come first, in the order in which they are stored; then the agreements of category 1,
/// those of category 2, and those of categories 3 and 4 together. In category 2, nodes ascend; in
/// the other groups a node comes after the nodes that its agreements refer to. Here
/// "(Y1 = Y2)" comes after "(Y2 = Y0)":
/// @code
///   std::vector<std::size_t> vOrder;
///   FindPrintOrder({{4, 1, 2}, {4, 2, 0}}, vOrder).has_value();  // false
///   vOrder;                                                      // {1, 0}
/// @endcode

namespace TrRuleInternal {

/// The fields of a stored constraint that decide its place.
struct OrderedConstraint {
  int Category = 0;
  int ConstrainedIndex = 0;
  std::optional<int> AgreedIndex;  ///< for an agreement; nothing for a value
};

/// What of a stored constraint decides its place. An agreement whose value names no node has the
/// index -1.
OrderedConstraint MakeOrdered(int Category, int ConstrainedIndex, bool ValueConstraint,
                              std::string_view FeatValue);

/// The categories whose agreements are ordered together.
enum class PrintGroup { Category1, Category2, Category3and4 };

/// Finds the order in which constraints are written, as places from 0. Agreements of categories
/// other than 1 to 4 are not written, and are left out. n log n.
/// @param vConstraints the constraints in the order of their keys
/// @param vOrderReturn receives the order
/// @return the first group that cannot be ordered because its agreements form a cycle; nothing if
///         there is none
std::optional<PrintGroup> FindPrintOrder(const std::vector<OrderedConstraint>& vConstraints,
                                         std::vector<std::size_t>& vOrderReturn);

}  // namespace TrRuleInternal
