#include "Finding.h"

#include <algorithm>
#include <tuple>

namespace Grammar {

namespace {

bool ComesBefore(const Finding& Left, const Finding& Right) {
  return std::tie(Left.Line, Left.Column, Left.Code) <
         std::tie(Right.Line, Right.Column, Right.Code);
}

}  // namespace

/// Most are in order already, and sorting moves each of them at least twice.
void SortFindings(std::vector<Finding>& vFindingsReturn) {
  if (!std::is_sorted(vFindingsReturn.begin(), vFindingsReturn.end(), ComesBefore)) {
    std::stable_sort(vFindingsReturn.begin(), vFindingsReturn.end(), ComesBefore);
  }
}

}  // namespace Grammar
