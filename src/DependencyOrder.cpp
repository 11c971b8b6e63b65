#include "DependencyOrder.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace TrRuleInternal {

namespace {

/// A reference from one key to another, as positions in the ascending list of keys.
struct Edge {
  std::size_t Target;
  std::size_t Waiting;
};

/// Sorts the references by key, and returns each key once.
std::vector<int> AscendingKeys(std::vector<Reference>& vReferencesReturn) {
  const auto HasLowerKey = [](const Reference& Left, const Reference& Right) {
    return Left.Key < Right.Key;
  };
  std::sort(vReferencesReturn.begin(), vReferencesReturn.end(), HasLowerKey);
  std::vector<int> vKeys;
  vKeys.reserve(vReferencesReturn.size());
  for (const Reference& Current : vReferencesReturn) {
    if (vKeys.empty() || vKeys.back() != Current.Key) {
      vKeys.push_back(Current.Key);
    }
  }
  return vKeys;
}

/// The number that a key waits for, and the position of that key.
using Waiter = std::pair<int, std::size_t>;

/// The waiting keys in ascending order of their targets, from references in ascending order of
/// keys.
std::vector<Waiter> AscendingWaiters(const std::vector<Reference>& vReferences,
                                     const std::vector<int>& vKeys) {
  std::vector<Waiter> vWaiters;
  vWaiters.reserve(vReferences.size());
  std::size_t Key = 0;
  for (const Reference& Current : vReferences) {
    while (vKeys[Key] != Current.Key) {
      ++Key;
    }
    if (Current.Target != Current.Key) {
      vWaiters.emplace_back(Current.Target, Key);
    }
  }
  std::sort(vWaiters.begin(), vWaiters.end());
  return vWaiters;
}

/// The references from one key to another, ascending. No key waits for a target that is not a key.
std::vector<Edge> AscendingEdges(const std::vector<Waiter>& vWaiters,
                                 const std::vector<int>& vKeys) {
  std::vector<Edge> vEdges;
  std::size_t Target = 0;
  for (const auto& [Number, Key] : vWaiters) {
    while (Target < vKeys.size() && vKeys[Target] < Number) {
      ++Target;
    }
    if (Target < vKeys.size() && vKeys[Target] == Number) {
      vEdges.push_back({Target, Key});
    }
  }
  return vEdges;
}

/// Where the edges of each position begin; the last element is where all end.
std::vector<std::size_t> EdgeStarts(const std::vector<Edge>& vEdges, std::size_t KeyCount) {
  std::vector<std::size_t> vStarts(KeyCount + 1, 0);
  for (const Edge& Link : vEdges) {
    ++vStarts[Link.Target + 1];
  }
  std::partial_sum(vStarts.begin(), vStarts.end(), vStarts.begin());
  return vStarts;
}

/// The number of references that each position waits for.
std::vector<std::size_t> WaitingCounts(const std::vector<Edge>& vEdges, std::size_t KeyCount) {
  std::vector<std::size_t> vWaiting(KeyCount, 0);
  for (const Edge& Link : vEdges) {
    ++vWaiting[Link.Waiting];
  }
  return vWaiting;
}

/// Places the keys level by level: first the keys that wait for nothing, then those that wait for
/// the keys placed before.
std::vector<std::size_t> PlaceByLevels(const std::vector<Edge>& vEdges, std::size_t KeyCount) {
  const std::vector<std::size_t> vStarts = EdgeStarts(vEdges, KeyCount);
  std::vector<std::size_t> vWaiting = WaitingCounts(vEdges, KeyCount);
  std::vector<std::size_t> vPlaced;
  vPlaced.reserve(KeyCount);
  for (std::size_t Key = 0; Key < KeyCount; ++Key) {
    if (vWaiting[Key] == 0) {
      vPlaced.push_back(Key);
    }
  }
  std::size_t LevelEnd = vPlaced.size();
  for (std::size_t Next = 0; Next < vPlaced.size(); ++Next) {
    if (Next == LevelEnd) {
      std::sort(vPlaced.begin() + static_cast<std::ptrdiff_t>(LevelEnd), vPlaced.end());
      LevelEnd = vPlaced.size();
    }
    const std::size_t Placed = vPlaced[Next];
    for (std::size_t Index = vStarts[Placed]; Index < vStarts[Placed + 1]; ++Index) {
      if (--vWaiting[vEdges[Index].Waiting] == 0) {
        vPlaced.push_back(vEdges[Index].Waiting);
      }
    }
  }
  return vPlaced;
}

}  // namespace

bool OrderByDependency(std::vector<Reference> vReferences, std::vector<int>& vOrderReturn) {
  std::vector<int> vKeys = AscendingKeys(vReferences);
  const std::vector<Edge> vEdges = AscendingEdges(AscendingWaiters(vReferences, vKeys), vKeys);
  if (vEdges.empty()) {
    vOrderReturn = std::move(vKeys);
    return true;
  }
  vOrderReturn.clear();
  for (const std::size_t Position : PlaceByLevels(vEdges, vKeys.size())) {
    vOrderReturn.push_back(vKeys[Position]);
  }
  return vOrderReturn.size() == vKeys.size();
}

}  // namespace TrRuleInternal
