#include "DependencyOrder.h"

#include <algorithm>
#include <cstddef>
#include <utility>

namespace TrRuleInternal {

namespace {

/// Positions in the ascending list of keys: first the one that is referred to, then the one that
/// waits for it.
using Edge = std::pair<std::size_t, std::size_t>;

std::vector<int> AscendingKeys(const std::vector<Reference>& vReferences) {
  std::vector<int> vKeys;
  vKeys.reserve(vReferences.size());
  for (const Reference& Each : vReferences) {
    vKeys.push_back(Each.Key);
  }
  std::sort(vKeys.begin(), vKeys.end());
  vKeys.erase(std::unique(vKeys.begin(), vKeys.end()), vKeys.end());
  return vKeys;
}

/// The references from one key to another, ascending.
std::vector<Edge> AscendingEdges(const std::vector<Reference>& vReferences,
                                 const std::vector<int>& vKeys) {
  const auto PositionOf = [&](int Number) {
    const auto Found = std::lower_bound(vKeys.begin(), vKeys.end(), Number);
    const bool IsKey = Found != vKeys.end() && *Found == Number;
    return IsKey ? static_cast<std::size_t>(Found - vKeys.begin()) : vKeys.size();
  };
  std::vector<Edge> vEdges;
  for (const Reference& Each : vReferences) {
    const std::size_t Target = Each.Target == Each.Key ? vKeys.size() : PositionOf(Each.Target);
    if (Target != vKeys.size()) {
      vEdges.emplace_back(Target, PositionOf(Each.Key));
    }
  }
  std::sort(vEdges.begin(), vEdges.end());
  return vEdges;
}

/// Places the keys that wait for nothing once the given one is placed.
void PlaceWaiters(std::size_t Placed, const std::vector<Edge>& vEdges,
                  std::vector<std::size_t>& vWaitingReturn,
                  std::vector<std::size_t>& vPlacedReturn) {
  auto Waiter = std::lower_bound(vEdges.begin(), vEdges.end(), Edge(Placed, 0));
  for (; Waiter != vEdges.end() && Waiter->first == Placed; ++Waiter) {
    if (--vWaitingReturn[Waiter->second] == 0) {
      vPlacedReturn.push_back(Waiter->second);
    }
  }
}

/// Places the keys level by level: those that wait for nothing, then those that waited for them.
std::vector<std::size_t> PlaceByLevels(const std::vector<Edge>& vEdges, std::size_t KeyCount) {
  std::vector<std::size_t> vWaiting(KeyCount, 0);
  for (const Edge& Each : vEdges) {
    ++vWaiting[Each.second];
  }
  std::vector<std::size_t> vPlaced;
  vPlaced.reserve(KeyCount);
  for (std::size_t Key = 0; Key < KeyCount; ++Key) {
    if (vWaiting[Key] == 0) {
      vPlaced.push_back(Key);
    }
  }
  std::size_t LevelStart = 0;
  while (LevelStart < vPlaced.size()) {
    const std::size_t LevelEnd = vPlaced.size();
    for (; LevelStart < LevelEnd; ++LevelStart) {
      PlaceWaiters(vPlaced[LevelStart], vEdges, vWaiting, vPlaced);
    }
    std::sort(vPlaced.begin() + static_cast<std::ptrdiff_t>(LevelEnd), vPlaced.end());
  }
  return vPlaced;
}

}  // namespace

bool OrderByDependency(const std::vector<Reference>& vReferences, std::vector<int>& vOrderReturn) {
  std::vector<int> vKeys = AscendingKeys(vReferences);
  const std::vector<Edge> vEdges = AscendingEdges(vReferences, vKeys);
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

std::vector<int> OrderOrHalt(const std::vector<Reference>& vReferences, HaltReason What,
                             const char* Message) {
  std::vector<int> vOrder;
  if (!OrderByDependency(vReferences, vOrder)) {
    Halt(What, Message);
  }
  return vOrder;
}

}  // namespace TrRuleInternal
