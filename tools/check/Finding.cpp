#include "Finding.h"

#include <algorithm>
#include <cstddef>
#include <tuple>
#include <utility>

namespace Grammar {

namespace {

bool ComesBefore(const Finding& Left, const Finding& Right) {
  return std::tie(Left.Line, Left.Column, Left.Code) <
         std::tie(Right.Line, Right.Column, Right.Code);
}

}  // namespace

/// Most are in order already, and most others but for a few: where there are not many, the ones out
/// of order are put into their places, and the rest stays where it is.
void SortFindings(std::vector<Finding>& vFindingsReturn) {
  constexpr std::size_t Few = 32;
  const auto First = vFindingsReturn.begin();
  auto Sorted = std::is_sorted_until(First, vFindingsReturn.end(), ComesBefore);
  if (vFindingsReturn.size() > Few && Sorted != vFindingsReturn.end()) {
    std::stable_sort(First, vFindingsReturn.end(), ComesBefore);
    return;
  }
  for (; Sorted != vFindingsReturn.end(); ++Sorted) {
    const auto Place = std::upper_bound(First, Sorted, *Sorted, ComesBefore);
    if (Place != Sorted) {
      Finding Moved = std::move(*Sorted);
      std::move_backward(Place, Sorted, Sorted + 1);
      *Place = std::move(Moved);
    }
  }
}

}  // namespace Grammar
