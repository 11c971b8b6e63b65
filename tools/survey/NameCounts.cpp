#include "NameCounts.h"

#include <algorithm>
#include <numeric>

namespace Grammar {

void NameCounts::Add(const NameCounts& Other) {
  for (std::uint32_t Number = 0; Number < Other.Size(); ++Number) {
    const NameCount More = Other.At(Number);
    Add(More.Name, More.Count);
  }
}

std::vector<NameCount> NameCounts::Sorted() const {
  std::vector<NameCount> vSorted;
  vSorted.reserve(Size());
  for (std::uint32_t Number = 0; Number < Size(); ++Number) {
    vSorted.push_back(At(Number));
  }
  std::sort(vSorted.begin(), vSorted.end(), [](const NameCount& Left, const NameCount& Right) {
    return Left.Count != Right.Count ? Left.Count > Right.Count : Left.Name < Right.Name;
  });
  return vSorted;
}

std::uint64_t NameCounts::Sum() const {
  return std::accumulate(vCounts.begin(), vCounts.end(), std::uint64_t{0});
}

}  // namespace Grammar
