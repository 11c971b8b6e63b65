// Sections: the references of a side, the names.

#include "ConstraintCycles.h"

#include "EdgeCycles.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Grammar {

// ---- The references of a side -----------------------------------------------------------------

namespace {

/// A node that waits for another one, because of a constraint on a line.
using Edge = GraphEdge;

bool IsSameEdge(const Edge& Left, const Edge& Right) {
  return Left.From == Right.From && Left.To == Right.To;
}

bool ComesBefore(const Edge& Left, const Edge& Right) {
  return Left.Line < Right.Line;
}

bool WaitsOnSide(int Category, bool SourceSide) {
  return SourceSide ? Category == 1 : Category == 3 || Category == 4;
}

/// The references of one side, without those of category 2, which do not wait: each once, those of
/// a node in the order of their lines, the nodes ascending.
std::vector<Edge> EdgesOf(const std::vector<Reference>& vReferences, bool SourceSide) {
  std::vector<Edge> vEdges;
  for (const auto& [Category, From, To, Line] : vReferences) {
    if (WaitsOnSide(Category, SourceSide) && From != To) {
      vEdges.push_back({From, To, Line});
    }
  }
  const auto ByNodes = [](const Edge& Left, const Edge& Right) {
    return std::tie(Left.From, Left.To) < std::tie(Right.From, Right.To);
  };
  std::stable_sort(vEdges.begin(), vEdges.end(), ByNodes);
  vEdges.erase(std::unique(vEdges.begin(), vEdges.end(), IsSameEdge), vEdges.end());
  const auto ByNodeAndLine = [](const Edge& Left, const Edge& Right) {
    return std::tie(Left.From, Left.Line) < std::tie(Right.From, Right.Line);
  };
  std::sort(vEdges.begin(), vEdges.end(), ByNodeAndLine);
  return vEdges;
}

// ---- The names --------------------------------------------------------------------------------

ConstraintCycle Named(std::vector<Edge> vEdges, char Side) {
  const auto First = std::min_element(vEdges.begin(), vEdges.end(), ComesBefore);
  std::rotate(vEdges.begin(), First, vEdges.end());
  ConstraintCycle Cycle{Side + std::to_string(vEdges.front().From), vEdges.front().Line};
  for (const Edge& Current : vEdges) {
    Cycle.Nodes.append(" → ").append(1, Side).append(std::to_string(Current.To));
  }
  return Cycle;
}

}  // namespace

std::vector<ConstraintCycle> FindCycles(const std::vector<Reference>& vReferences) {
  std::vector<ConstraintCycle> vCycles;
  for (const bool SourceSide : {true, false}) {
    for (std::vector<Edge>& vCycle : FindEdgeCycles(EdgesOf(vReferences, SourceSide))) {
      vCycles.push_back(Named(std::move(vCycle), SourceSide ? 'x' : 'y'));
    }
  }
  return vCycles;
}

}  // namespace Grammar
