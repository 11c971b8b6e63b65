#include "StructureStore.h"

#include <algorithm>

namespace Translate {

void StructureStore::Clear() {
  vEntries.assign(1, {0, NoEntry});
  vWords.clear();
  Index.Clear();
}

std::uint64_t StructureStore::HashOfEntry(const Entry& Current) const {
  return Current.Size == 0 ? Mixed(Current.Start)
                           : HashOf(vWords.data() + Current.Start, Current.Size);
}

StructureId StructureStore::Atomic(AtomSetId Set) {
  const auto New = static_cast<StructureId>(vEntries.size());
  std::uint32_t& Slot = Index.Find(Mixed(Set), [&](StructureId Structure) {
    return vEntries[Structure].Size == 0 && vEntries[Structure].Start == Set;
  });
  if (Slot != NoEntry) {
    return Slot;
  }
  Slot = New;
  vEntries.push_back({Set, 0});
  Index.NoteAdded([&](StructureId Structure) { return HashOfEntry(vEntries[Structure]); });
  return New;
}

StructureId StructureStore::Complex(const std::vector<std::uint32_t>& vKnot) {
  const auto New = static_cast<StructureId>(vEntries.size());
  std::uint32_t& Slot = Index.Find(HashOf(vKnot.data(), vKnot.size()), [&](StructureId Structure) {
    return vEntries[Structure].Size == vKnot.size() &&
           std::equal(vKnot.begin(), vKnot.end(), vWords.data() + vEntries[Structure].Start);
  });
  if (Slot != NoEntry) {
    return Slot;
  }
  Slot = New;
  vEntries.push_back(
      {static_cast<std::uint32_t>(vWords.size()), static_cast<std::uint32_t>(vKnot.size())});
  vWords.insert(vWords.end(), vKnot.begin(), vKnot.end());
  Index.NoteAdded([&](StructureId Structure) { return HashOfEntry(vEntries[Structure]); });
  return New;
}

std::optional<AtomSetId> StructureStore::AtomsAt(StructureId Structure,
                                                 const std::uint32_t* Features,
                                                 std::size_t Count) const {
  for (std::size_t At = 0; At < Count; ++At) {
    if (!IsComplex(Structure)) {
      return std::nullopt;
    }
    // The arcs of the root stand after the number of locals and their own.
    const std::uint32_t* Arc = Knot(Structure) + 2;
    const std::uint32_t* const Last = Arc + std::size_t{2} * Arc[-1];
    while (Arc != Last && *Arc != Features[At]) {
      Arc += 2;
    }
    if (Arc == Last || IsLocal(Arc[1])) {
      return std::nullopt;
    }
    Structure = Arc[1];
  }
  return IsOpen(Structure) || !IsAtomic(Structure) ? std::nullopt : std::optional(Atoms(Structure));
}

std::size_t StructureStore::Bytes() const {
  return vEntries.capacity() * sizeof(Entry) + vWords.capacity() * sizeof(std::uint32_t);
}

}  // namespace Translate
