#include "DependencyOrder.h"

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

namespace TrRuleInternal {

namespace {

/// Positions in the ascending list of keys: first the one that is referred to, then the one that
/// waits for it.
using Edge = std::pair<std::size_t, std::size_t>;

/// The references by their keys in `vReferencesReturn`, and each key once.
std::vector<int> AscendingKeys(std::vector<Reference>& vReferencesReturn) {
  const auto HasLowerKey = [](const Reference& Left, const Reference& Right) {
    return Left.Key < Right.Key;
  };
  std::sort(vReferencesReturn.begin(), vReferencesReturn.end(), HasLowerKey);
  std::vector<int> vKeys;
  vKeys.reserve(vReferencesReturn.size());
  for (const Reference& Each : vReferencesReturn) {
    if (vKeys.empty() || vKeys.back() != Each.Key) {
      vKeys.push_back(Each.Key);
    }
  }
  return vKeys;
}

/// Number and position, where the number is a key's target and the position that key's.
using Waiter = std::pair<int, std::size_t>;

/// Who waits for whom, by the target's number, out of references that ascend by key.
std::vector<Waiter> AscendingWaiters(const std::vector<Reference>& vReferences,
                                     const std::vector<int>& vKeys) {
  std::vector<Waiter> vWaiters;
  vWaiters.reserve(vReferences.size());
  std::size_t Key = 0;
  for (const Reference& Each : vReferences) {
    while (vKeys[Key] != Each.Key) {
      ++Key;
    }
    if (Each.Target != Each.Key) {
      vWaiters.emplace_back(Each.Target, Key);
    }
  }
  std::sort(vWaiters.begin(), vWaiters.end());
  return vWaiters;
}

/// The references from one key to another, ascending; a target that is no key is waited for by
/// nobody.
std::vector<Edge> AscendingEdges(const std::vector<Waiter>& vWaiters,
                                 const std::vector<int>& vKeys) {
  std::vector<Edge> vEdges;
  std::size_t Target = 0;
  for (const auto& [Number, Key] : vWaiters) {
    while (Target < vKeys.size() && vKeys[Target] < Number) {
      ++Target;
    }
    if (Target < vKeys.size() && vKeys[Target] == Number) {
      vEdges.emplace_back(Target, Key);
    }
  }
  return vEdges;
}

/// Where the edges of each position begin, and behind the last position, where all end.
std::vector<std::size_t> EdgeStarts(const std::vector<Edge>& vEdges, std::size_t KeyCount) {
  std::vector<std::size_t> vStarts(KeyCount + 1, 0);
  for (const Edge& Each : vEdges) {
    ++vStarts[Each.first + 1];
  }
  std::partial_sum(vStarts.begin(), vStarts.end(), vStarts.begin());
  return vStarts;
}

/// How many references each position waits for.
std::vector<std::size_t> WaitingCounts(const std::vector<Edge>& vEdges, std::size_t KeyCount) {
  std::vector<std::size_t> vWaiting(KeyCount, 0);
  for (const Edge& Each : vEdges) {
    ++vWaiting[Each.second];
  }
  return vWaiting;
}

/// Places the keys level by level: those that wait for nothing, then those that waited for them.
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
    for (std::size_t Each = vStarts[Placed]; Each < vStarts[Placed + 1]; ++Each) {
      if (--vWaiting[vEdges[Each].second] == 0) {
        vPlaced.push_back(vEdges[Each].second);
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
