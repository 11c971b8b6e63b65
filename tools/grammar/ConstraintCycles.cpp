#include "ConstraintCycles.h"

#include <algorithm>
#include <map>
#include <set>

namespace Grammar {

namespace {

/// A node that waits for another one, because of a constraint.
struct Edge {
  int From;
  int To;
  std::size_t Line;
};

/// The references of one side, without those of category 2, which do not wait.
std::vector<Edge> EdgesOf(const std::vector<PlacedConstraint>& vConstraints, bool SourceSide) {
  std::vector<Edge> vEdges;
  for (const auto& [Record, Line] : vConstraints) {
    const int Category = Record.GetCategory();
    const bool IsWanted = SourceSide ? Category == 1 : Category == 3 || Category == 4;
    const int To = Record.GetAgreedIndex(Record.GetFeatValue());
    if (IsWanted && !Record.IsValueConstraint() && To != Record.GetConstrainedIndex()) {
      vEdges.push_back({Record.GetConstrainedIndex(), To, Line});
    }
  }
  return vEdges;
}

/// Walks from node to node until it comes back to one that it has passed.
class Walk {
 public:
  explicit Walk(const std::vector<Edge>& vEdges) {
    for (const Edge& Each : vEdges) {
      mvNext[Each.From].push_back(Each);
    }
  }

  /// The edges of a cycle, in order; none where there is no cycle.
  std::vector<Edge> FindCycle() {
    for (const auto& [Node, vOut] : mvNext) {
      if (Visit(Node)) {
        const auto First = std::find_if(vPath.begin(), vPath.end(), [&](const Edge& Each) {
          return Each.From == vPath.back().To;
        });
        return {First, vPath.end()};
      }
    }
    return {};
  }

 private:
  /// A node with the number of its edges that have been followed.
  struct Step {
    int Node;
    std::size_t Followed;
  };

  /// Goes on from a node as deep as it gets, without recursion: rules may be long.
  bool Visit(int Start) {
    std::vector<Step> vSteps;
    const auto Enter = [&](int Node) {
      siOpen.insert(Node);
      vSteps.push_back({Node, 0});
    };
    if (siDone.count(Start) == 0) {
      Enter(Start);
    }
    while (!vSteps.empty()) {
      Step& Last = vSteps.back();
      const std::vector<Edge>& vOut = mvNext[Last.Node];
      if (Last.Followed == vOut.size()) {
        siOpen.erase(Last.Node);
        siDone.insert(Last.Node);
        vSteps.pop_back();
        vPath.resize(vSteps.empty() ? 0 : vSteps.size() - 1);
        continue;
      }
      const Edge Next = vOut[Last.Followed++];
      vPath.resize(vSteps.size() - 1);
      vPath.push_back(Next);
      if (siOpen.count(Next.To) > 0) {
        return true;
      }
      if (mvNext.count(Next.To) > 0 && siDone.count(Next.To) == 0) {
        Enter(Next.To);
      }
    }
    return false;
  }

  std::map<int, std::vector<Edge>> mvNext;
  std::set<int> siOpen;
  std::set<int> siDone;
  std::vector<Edge> vPath;
};

bool ComesBefore(const Edge& Left, const Edge& Right) {
  return Left.Line < Right.Line;
}

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

void AppendCycles(std::vector<Edge> vEdges, char Side, std::vector<ConstraintCycle>& vReturn) {
  for (;;) {
    const std::vector<Edge> vCycle = Walk(vEdges).FindCycle();
    if (vCycle.empty()) {
      return;
    }
    vReturn.push_back(Named(vCycle, Side));
    const auto IsInCycle = [&](const Edge& Each) {
      return std::any_of(vCycle.begin(), vCycle.end(), [&](const Edge& Used) {
        return Used.From == Each.From && Used.To == Each.To;
      });
    };
    vEdges.erase(std::remove_if(vEdges.begin(), vEdges.end(), IsInCycle), vEdges.end());
  }
}

}  // namespace

std::vector<ConstraintCycle> FindCycles(const std::vector<PlacedConstraint>& vConstraints) {
  std::vector<ConstraintCycle> vCycles;
  AppendCycles(EdgesOf(vConstraints, true), 'x', vCycles);
  AppendCycles(EdgesOf(vConstraints, false), 'y', vCycles);
  return vCycles;
}

}  // namespace Grammar
