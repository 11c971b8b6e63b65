#pragma once

#include <cstdint>
#include <vector>

namespace Grammar {

/// The places of one thing in two lists.
struct PlacePair {
  std::uint64_t Old;
  std::uint64_t New;
};

/// The old places of the fewest things that must have moved: all but a longest part that is in the
/// same order in both lists. Of several such parts, the one whose things come last is kept.
///
/// @code
/// FindMoved({{0, 2}, {1, 0}, {2, 1}});  // {0}
/// @endcode
///
/// n log n.
/// @return the places in ascending order
std::vector<std::uint64_t> FindMoved(std::vector<PlacePair> vPairsPassIn);

}  // namespace Grammar
