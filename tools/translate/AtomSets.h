#pragma once

#include "Hashing.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

using Grammar::HashOf;
using Grammar::IndexTable;
using Grammar::NoEntry;

/// The number of a set of atoms.
using AtomSetId = std::uint32_t;

/// Which atoms a value can still be.
struct AtomSet {
  bool IsNegated = false;             ///< all but those in the list
  std::vector<std::uint32_t> vAtoms;  ///< ascending, each once

  friend bool operator==(const AtomSet& Left, const AtomSet& Right) {
    return Left.IsNegated == Right.IsNegated && Left.vAtoms == Right.vAtoms;
  }
};

/// Sets of atoms, each once, as numbers.
///
/// @code
/// AtomSets Sets;
/// const AtomSetId SgOrPl = Sets.Intern({false, {0, 1}});
/// const AtomSetId NotSg = Sets.Intern({true, {0}});
/// Sets.Set(Sets.Intersect(SgOrPl, NotSg).value()).vAtoms;  // {1}
/// @endcode
class AtomSets {
 public:
  /// The number of a set. Its atoms may stand in any order, and more than once.
  AtomSetId Intern(AtomSet Set);

  /// What is in both sets; nothing if that is not an atom.
  std::optional<AtomSetId> Intersect(AtomSetId Left, AtomSetId Right);

  const AtomSet& Set(AtomSetId Number) const { return vSets[Number]; }
  std::size_t Size() const { return vSets.size(); }

 private:
  std::uint64_t HashOfSet(const AtomSet& Set) const {
    return HashOf(Set.vAtoms.data(), Set.vAtoms.size()) ^ (Set.IsNegated ? 1 : 0);
  }

  std::vector<AtomSet> vSets;
  IndexTable Index;
};

}  // namespace Translate
