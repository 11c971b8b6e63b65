#include "AtomRange.h"

#include <algorithm>
#include <iterator>

namespace Grammar {

AtomRange Common(const AtomRange& Left, const AtomRange& Right) {
  if (Left.IsNegated && !Right.IsNegated) {
    return Common(Right, Left);
  }
  AtomRange Both;
  Both.IsNegated = Left.IsNegated;
  const auto Out = std::back_inserter(Both.vAtoms);
  const std::vector<std::uint32_t>& vOne = Left.vAtoms;
  const std::vector<std::uint32_t>& vOther = Right.vAtoms;
  if (Left.IsNegated) {
    std::set_union(vOne.begin(), vOne.end(), vOther.begin(), vOther.end(), Out);
  } else if (Right.IsNegated) {
    std::set_difference(vOne.begin(), vOne.end(), vOther.begin(), vOther.end(), Out);
  } else {
    std::set_intersection(vOne.begin(), vOne.end(), vOther.begin(), vOther.end(), Out);
  }
  return Both;
}

void Narrow(AtomRange& RangeReturn, const std::vector<std::uint32_t>& vAtoms) {
  if (RangeReturn.IsNegated) {
    RangeReturn = Common(RangeReturn, {false, vAtoms});
    return;
  }
  const auto IsOther = [&](std::uint32_t Number) {
    return !std::binary_search(vAtoms.begin(), vAtoms.end(), Number);
  };
  std::vector<std::uint32_t>& vKept = RangeReturn.vAtoms;
  vKept.erase(std::remove_if(vKept.begin(), vKept.end(), IsOther), vKept.end());
}

void Tidy(std::vector<std::uint32_t>& vAtomsReturn) {
  std::sort(vAtomsReturn.begin(), vAtomsReturn.end());
  vAtomsReturn.erase(std::unique(vAtomsReturn.begin(), vAtomsReturn.end()), vAtomsReturn.end());
}

}  // namespace Grammar
