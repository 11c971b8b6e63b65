#include "AtomSets.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace Translate {

AtomSetId AtomSets::Intern(AtomSet Set) {
  std::sort(Set.vAtoms.begin(), Set.vAtoms.end());
  Set.vAtoms.erase(std::unique(Set.vAtoms.begin(), Set.vAtoms.end()), Set.vAtoms.end());
  std::uint32_t& Slot =
      Index.Find(HashOfSet(Set), [&](AtomSetId Atom) { return vSets[Atom] == Set; });
  if (Slot != NoEntry) {
    return Slot;
  }
  const auto New = static_cast<AtomSetId>(vSets.size());
  Slot = New;
  vSets.push_back(std::move(Set));
  Index.NoteAdded([&](AtomSetId Atom) { return HashOfSet(vSets[Atom]); });
  return New;
}

namespace {

/// What is in both sets, which may be nothing. Of infinitely many atoms, some are always left.
AtomSet Intersection(const AtomSet& Left, const AtomSet& Right) {
  const auto& vLeft = Left.vAtoms;
  const auto& vRight = Right.vAtoms;
  AtomSet Both;
  const auto To = std::back_inserter(Both.vAtoms);
  if (Left.IsNegated && Right.IsNegated) {
    Both.IsNegated = true;
    std::set_union(vLeft.begin(), vLeft.end(), vRight.begin(), vRight.end(), To);
  } else if (Left.IsNegated) {
    std::set_difference(vRight.begin(), vRight.end(), vLeft.begin(), vLeft.end(), To);
  } else if (Right.IsNegated) {
    std::set_difference(vLeft.begin(), vLeft.end(), vRight.begin(), vRight.end(), To);
  } else {
    std::set_intersection(vLeft.begin(), vLeft.end(), vRight.begin(), vRight.end(), To);
  }
  return Both;
}

}  // namespace

std::optional<AtomSetId> AtomSets::Intersect(AtomSetId Left, AtomSetId Right) {
  if (Left == Right) {
    return Left;
  }
  AtomSet Both = Intersection(vSets[Left], vSets[Right]);
  if (!Both.IsNegated && Both.vAtoms.empty()) {
    return std::nullopt;
  }
  return Intern(std::move(Both));
}

}  // namespace Translate
