#pragma once

#include "AtomSets.h"
#include "Hashing.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <vector>

namespace Translate {

using Grammar::HashOf;
using Grammar::IndexTable;
using Grammar::Mixed;
using Grammar::NoEntry;

/// A structure is too large to be written, or to be unified with another one: what rules copy twice
/// can double at each level.
class StructureTooLarge : public std::length_error {
 public:
  using std::length_error::length_error;
};

/// The number of a feature structure.
using StructureId = std::uint32_t;

/// Feature structures that nothing changes any more, each once: two structures are the same if and
/// only if their numbers are, with all that is shared within them.
///
/// A structure is open, atomic, or complex. A complex one is kept as a *knot*: as many locals as
/// cannot be distinguished from its root because something is shared between them, the root first,
/// in the order in which a walk through the features meets them. What hangs on a knot by one
/// feature alone, and shares nothing with the rest, is a structure with a number of its own, so
/// that most knots have one local, and a copy of a structure costs nothing.
///
///   knot = count { local }
///   local = arc count { feature target } | alias
///   target = structure | local
///
/// For example, a structure with one feature, and a path of this feature:
///
/// @code
/// StructureStore Store;
/// const AtomSetId Sg = 5;
/// const std::uint32_t Num = 7;
/// const StructureId Singular = Store.Complex({1, 1, Num, Store.Atomic(Sg)});
/// Store.Complex({1, 1, Num, Store.Atomic(Sg)});  // Singular
/// Store.AtomsAt(Singular, &Num, 1).value();      // Sg
/// @endcode
class StructureStore {
 public:
  static constexpr StructureId Open = 0;

  /// A feature that no rule has: its value, all atoms, says which constraints gave the others. Only
  /// structures that know where their values come from have it.
  static constexpr std::uint32_t OriginFeature = 0x7FFFFFFFU;

  static constexpr std::uint32_t Mark = 0x80000000U;

  /// A target that is a local; other targets are structures.
  static constexpr std::uint32_t LocalTarget(std::uint32_t Local) { return Local | Mark; }
  static constexpr bool IsLocal(std::uint32_t Target) { return (Target & Mark) != 0; }
  static constexpr std::uint32_t Unmarked(std::uint32_t Word) { return Word & ~Mark; }

  /// A local that is a structure with a number of its own, but is met more than once.
  static constexpr std::uint32_t Alias(StructureId Structure) { return Structure | Mark; }
  static constexpr bool IsAlias(std::uint32_t Word) { return (Word & Mark) != 0; }

  StructureStore() { Clear(); }

  StructureId Atomic(AtomSetId Set);

  /// The number of a knot, whose arcs are in the order of their features.
  StructureId Complex(const std::vector<std::uint32_t>& vKnot);

  bool IsOpen(StructureId Structure) const { return Structure == Open; }
  bool IsAtomic(StructureId Structure) const { return vEntries[Structure].Size == 0; }
  bool IsComplex(StructureId Structure) const { return !IsOpen(Structure) && !IsAtomic(Structure); }

  AtomSetId Atoms(StructureId Structure) const { return vEntries[Structure].Start; }
  const std::uint32_t* Knot(StructureId Structure) const {
    return vWords.data() + vEntries[Structure].Start;
  }

  /// The atoms at the end of a path.
  /// @return nothing where there are none, or the path leads through what is shared
  std::optional<AtomSetId> AtomsAt(StructureId Structure, const std::uint32_t* Features,
                                   std::size_t Count) const;

  std::size_t Size() const { return vEntries.size(); }
  std::size_t Bytes() const;
  void Clear();

 private:
  /// An atomic structure has its set and no words.
  struct Entry {
    std::uint32_t Start;
    std::uint32_t Size;
  };

  std::uint64_t HashOfEntry(const Entry& Current) const;

  std::vector<Entry> vEntries;
  std::vector<std::uint32_t> vWords;
  IndexTable Index;
};

}  // namespace Translate
