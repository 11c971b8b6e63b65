#pragma once

#include "AtomSets.h"
#include "Hashing.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

using Grammar::PairTable;

/// The line of a file: a constraint that gave a value.
struct Origin {
  std::uint32_t File = 0;  ///< of a rule set's files
  std::uint32_t Line = 0;  ///< from 1

  friend bool operator==(const Origin& Left, const Origin& Right) {
    return Left.File == Right.File && Left.Line == Right.Line;
  }
};

/// Sets of atoms, each with the constraints that gave it, as numbers. What two sets have in common
/// comes from the constraints of both.
///
/// @code
/// AtomSets Plain;
/// const AtomSetId Sg = Plain.Intern({false, {0}});
/// const AtomSetId SgOrPl = Plain.Intern({false, {0, 1}});
/// TracedAtomSets Sets(Plain);
/// const AtomSetId Left = Sets.Intern(SgOrPl, Sets.Only({0, 30}));
/// const AtomSetId Right = Sets.Intern(Sg, Sets.Only({0, 44}));
/// const AtomSetId Both = Sets.Intersect(Left, Right).value();
/// Sets.Set(Both).vAtoms;  // {0}
/// Sets.Origins(Both);     // {{0, 30}, {0, 44}}
/// @endcode
class TracedAtomSets {
 public:
  using OriginsId = AtomSetId;

  explicit TracedAtomSets(const AtomSets& SetsPassIn);

  /// The number of one origin alone.
  OriginsId Only(Origin Which);

  /// The number of a set of atoms from some origins.
  AtomSetId Intern(AtomSetId Atoms, OriginsId Origins) { return Traced.Intern(Atoms, Origins); }

  /// The number of all atoms from an origin: it says where a value comes from, and nothing of it.
  AtomSetId Mark(Origin Which) { return Intern(AllAtoms, Only(Which)); }

  /// What is in both sets; nothing if that is not an atom.
  std::optional<AtomSetId> Intersect(AtomSetId Left, AtomSetId Right);

  const AtomSet& Set(AtomSetId Number) const { return Sets.Set(Traced.First(Number)); }

  std::size_t Size() const { return Traced.Size(); }

  /// What gave a set, by files and lines.
  std::vector<Origin> Origins(AtomSetId Number) const;

 private:
  AtomSets Sets;
  AtomSets OriginSets;  // of the numbers of places
  PairTable Places;     // files and lines
  PairTable Traced;     // sets and their origins
  AtomSetId AllAtoms;
};

}  // namespace Translate
