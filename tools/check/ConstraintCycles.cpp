// Sections: the references of a side, the search, the names.

#include "ConstraintCycles.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace Grammar {

// ---- The references of a side -----------------------------------------------------------------

namespace {

/// A node that waits for another one, because of a constraint.
struct Edge {
  int From;
  int To;
  std::size_t Line;
};

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

// ---- The search -------------------------------------------------------------------------------

/// Walks from node to node, each reference once, and takes out each cycle that it comes upon.
///
/// What has been walked through without coming back stays done. Where the walk comes back, it goes
/// back to the node that it has met again and on from there, without the references of the cycle.
class Walk {
 public:
  explicit Walk(std::vector<Edge> vEdgesPassIn) : vEdges(std::move(vEdgesPassIn)) {
    for (std::size_t Place = 0; Place < vEdges.size(); ++Place) {
      if (Place == 0 || vEdges[Place].From != vEdges[Place - 1].From) {
        vNodes.push_back({vEdges[Place].From, Place, Place});
      }
      ++vNodes.back().End;
    }
  }

  /// The cycles, each as its references in order.
  std::vector<std::vector<Edge>> FindCycles() {
    for (std::size_t Place = 0; Place < vNodes.size(); ++Place) {
      if (vNodes[Place].IsNew) {
        VisitFrom(Place);
      }
    }
    return std::move(vCycles);
  }

 private:
  static constexpr std::size_t NotOpen = static_cast<std::size_t>(-1);

  /// A node that waits, and which of its references come next.
  struct Node {
    int Index;
    std::size_t Next;  ///< in `vEdges`
    std::size_t End;
    std::size_t Step = NotOpen;  ///< its place on the path
    bool IsNew = true;           ///< until all its references have been followed
  };

  /// Goes on from a node as deep as it gets, without recursion: rules may be long.
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
    const auto Found =
        std::lower_bound(vNodes.begin(), vNodes.end(), To,
                         [](const Node& Each, int Index) { return Each.Index < Index; });
    if (Found == vNodes.end() || Found->Index != To || !Found->IsNew) {
      return;
    }
    if (Found->Step == NotOpen) {
      Enter(static_cast<std::size_t>(Found - vNodes.begin()));
    } else {
      TakeOutCycle(Found->Step);
    }
  }

  /// Each node of the path has just followed the reference to the next one.
  void TakeOutCycle(std::size_t FirstStep) {
    std::vector<Edge>& vCycle = vCycles.emplace_back();
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

  std::vector<Edge> vEdges;
  std::vector<Node> vNodes;
  std::vector<std::size_t> vPath;
  std::vector<std::vector<Edge>> vCycles;
};

// ---- The names --------------------------------------------------------------------------------

ConstraintCycle Named(std::vector<Edge> vEdges, char Side) {
  const auto First = std::min_element(vEdges.begin(), vEdges.end(), ComesBefore);
  std::rotate(vEdges.begin(), First, vEdges.end());
  ConstraintCycle Cycle;
  Cycle.Line = vEdges.front().Line;
  Cycle.Nodes = Side + std::to_string(vEdges.front().From);
  for (const Edge& Each : vEdges) {
    Cycle.Nodes.append(" → ").append(1, Side).append(std::to_string(Each.To));
  }
  return Cycle;
}

}  // namespace

std::vector<ConstraintCycle> FindCycles(const std::vector<Reference>& vReferences) {
  std::vector<ConstraintCycle> vCycles;
  for (const bool SourceSide : {true, false}) {
    for (std::vector<Edge>& vCycle : Walk(EdgesOf(vReferences, SourceSide)).FindCycles()) {
      vCycles.push_back(Named(std::move(vCycle), SourceSide ? 'x' : 'y'));
    }
  }
  return vCycles;
}

}  // namespace Grammar
