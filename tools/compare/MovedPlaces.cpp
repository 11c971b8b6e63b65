#include "MovedPlaces.h"

#include <algorithm>
#include <cstddef>

namespace Grammar {

std::vector<std::uint64_t> FindMoved(std::vector<PlacePair> vPairsPassIn) {
  std::sort(vPairsPassIn.begin(), vPairsPassIn.end(),
            [](const PlacePair& Left, const PlacePair& Right) { return Left.Old < Right.Old; });
  // For each length, the least last new place of an ordered part with that length.
  std::vector<std::uint64_t> vLeastLast;
  std::vector<std::uint32_t> vLengths;  // of the longest ordered part that ends with a pair
  vLengths.reserve(vPairsPassIn.size());
  for (const PlacePair& Pair : vPairsPassIn) {
    const auto At = std::lower_bound(vLeastLast.begin(), vLeastLast.end(), Pair.New);
    vLengths.push_back(static_cast<std::uint32_t>(At - vLeastLast.begin()) + 1);
    if (At == vLeastLast.end()) {
      vLeastLast.push_back(Pair.New);
    } else {
      *At = Pair.New;
    }
  }
  std::vector<std::uint64_t> vMoved;
  std::uint32_t Wanted = static_cast<std::uint32_t>(vLeastLast.size());
  std::uint64_t Limit = ~std::uint64_t{0};
  for (std::size_t At = vPairsPassIn.size(); At-- > 0;) {
    if (vLengths[At] == Wanted && vPairsPassIn[At].New < Limit) {
      Limit = vPairsPassIn[At].New;
      --Wanted;
    } else {
      vMoved.push_back(vPairsPassIn[At].Old);
    }
  }
  std::reverse(vMoved.begin(), vMoved.end());
  return vMoved;
}

}  // namespace Grammar
