#include "EdgeCycles.h"

#include <algorithm>
#include <utility>

namespace Grammar {

namespace {

/// Walks from node to node, each edge once, and takes out each cycle that it comes upon.
///
/// What has been walked through without coming back stays done. Where the walk comes back, it goes
/// back to the node that it has met again and on from there, without the edges of the cycle.
class Walk {
 public:
  explicit Walk(std::vector<GraphEdge> vEdgesPassIn) : vEdges(std::move(vEdgesPassIn)) {
    for (std::size_t Place = 0; Place < vEdges.size(); ++Place) {
      if (Place == 0 || vEdges[Place].From != vEdges[Place - 1].From) {
        vNodes.push_back({vEdges[Place].From, Place, Place});
      }
      ++vNodes.back().End;
    }
  }

  /// The cycles, each as its edges in order.
  std::vector<std::vector<GraphEdge>> FindCycles() {
    for (std::size_t Place = 0; Place < vNodes.size(); ++Place) {
      if (vNodes[Place].IsNew) {
        VisitFrom(Place);
      }
    }
    return std::move(vCycles);
  }

 private:
  static constexpr std::size_t NotOpen = static_cast<std::size_t>(-1);

  /// A node, and which of its edges come next.
  struct Node {
    int Index;
    std::size_t Next;  ///< in `vEdges`
    std::size_t End;
    std::size_t Step = NotOpen;  ///< its place on the path
    bool IsNew = true;           ///< until all its edges have been followed
  };

  /// Goes on from a node as deep as it gets, without recursion: paths may be long.
  void VisitFrom(std::size_t Start) {
    Enter(Start);
    while (!vPath.empty()) {
      Node& Last = vNodes[vPath.back()];
      if (Last.Next == Last.End) {
        Last.IsNew = false;
        Leave();
      } else {
        Follow(vEdges[Last.Next++].To);
      }
    }
  }

  void Follow(int To) {
    // Unlike std::lower_bound, this stays a binary search where containers are checked.
    const auto Found = std::partition_point(
        vNodes.begin(), vNodes.end(), [To](const Node& Current) { return Current.Index < To; });
    if (Found == vNodes.end() || Found->Index != To || !Found->IsNew) {
      return;
    }
    if (Found->Step == NotOpen) {
      Enter(static_cast<std::size_t>(Found - vNodes.begin()));
    } else {
      ExtractCycle(Found->Step);
    }
  }

  /// Each node of the path has just followed the edge to the next one.
  void ExtractCycle(std::size_t FirstStep) {
    std::vector<GraphEdge>& vCycle = vCycles.emplace_back();
    for (std::size_t Step = FirstStep; Step < vPath.size(); ++Step) {
      vCycle.push_back(vEdges[vNodes[vPath[Step]].Next - 1]);
    }
    while (vPath.size() > FirstStep + 1) {
      Leave();
    }
  }

  void Enter(std::size_t Place) {
    vNodes[Place].Step = vPath.size();
    vPath.push_back(Place);
  }

  void Leave() {
    vNodes[vPath.back()].Step = NotOpen;
    vPath.pop_back();
  }

  std::vector<GraphEdge> vEdges;
  std::vector<Node> vNodes;
  std::vector<std::size_t> vPath;
  std::vector<std::vector<GraphEdge>> vCycles;
};

}  // namespace

std::vector<std::vector<GraphEdge>> FindEdgeCycles(std::vector<GraphEdge> vEdges) {
  return Walk(std::move(vEdges)).FindCycles();
}

}  // namespace Grammar
