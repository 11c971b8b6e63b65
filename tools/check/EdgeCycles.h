#pragma once

#include <cstddef>
#include <vector>

namespace Grammar {

/// An edge of a graph, with what it stands for.
struct GraphEdge {
  int From = 0;
  int To = 0;
  std::size_t Line = 0;
};

/// Finds cycles in a graph, each as its edges in order, no edge in two of them. Where there is a
/// cycle, at least one is found. n log n, without recursion, however long a path is.
///
/// @code
/// const auto vCycles = FindEdgeCycles({{1, 2, 7}, {2, 1, 8}, {2, 3, 9}});
/// vCycles.size();                 // 1
/// vCycles.front().front().Line;  // 7
/// vCycles.front().back().Line;   // 8
/// @endcode
///
/// @param vEdges those of a node together, the nodes ascending; followed in this order
std::vector<std::vector<GraphEdge>> FindEdgeCycles(std::vector<GraphEdge> vEdges);

}  // namespace Grammar
