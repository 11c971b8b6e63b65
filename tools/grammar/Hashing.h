#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

/// @file
/// Hash tables of numbers, which is all that a chart is made of.

namespace Grammar {

/// Spreads the bits of a number over all of its places.
constexpr std::uint64_t Mixed(std::uint64_t Number) {
  Number ^= Number >> 32U;
  Number *= 0xD6E8FEB86659FD93U;
  Number ^= Number >> 32U;
  Number *= 0xD6E8FEB86659FD93U;
  Number ^= Number >> 32U;
  return Number;
}

constexpr std::uint64_t Pair(std::uint32_t High, std::uint32_t Low) {
  return (static_cast<std::uint64_t>(High) << 32U) | Low;
}

constexpr std::uint32_t NoEntry = 0xFFFFFFFFU;

/// Finds the numbers of entries that are kept elsewhere, by a hash of them and a comparison.
///
/// @code
/// const std::vector<std::uint32_t> vNumbers{30, 40};
/// const auto HashOfEntry = [&](std::uint32_t Index) { return std::uint64_t{vNumbers[Index]}; };
/// const auto IsForty = [&](std::uint32_t Index) { return vNumbers[Index] == 40; };
/// IndexTable Table;
/// std::uint32_t& Slot = Table.Find(40, IsForty);
/// Slot == NoEntry;  // true
/// Slot = 1;
/// Table.NoteAdded(HashOfEntry);
/// Table.Look(40, IsForty);  // 1
/// @endcode
class IndexTable {
 public:
  /// Where the number of an equal entry is, or, with `NoEntry` in it, where that of a new one goes.
  template <typename IsEqualT>
  std::uint32_t& Find(std::uint64_t Hash, IsEqualT IsEqual) {
    if (vSlots.empty()) {
      vSlots.assign(FirstSize, NoEntry);
    }
    std::size_t At = Hash & (vSlots.size() - 1);
    while (vSlots[At] != NoEntry && !IsEqual(vSlots[At])) {
      At = (At + 1) & (vSlots.size() - 1);
    }
    return vSlots[At];
  }

  /// As `Find` for one who only looks; `NoEntry` where there is none.
  template <typename IsEqualT>
  std::uint32_t Look(std::uint64_t Hash, IsEqualT IsEqual) const {
    if (vSlots.empty()) {
      return NoEntry;
    }
    std::size_t At = Hash & (vSlots.size() - 1);
    while (vSlots[At] != NoEntry && !IsEqual(vSlots[At])) {
      At = (At + 1) & (vSlots.size() - 1);
    }
    return vSlots[At];
  }

  /// To be called after a new entry has been put into its slot: makes room for more.
  /// @param HashOf gives the hash of an entry by its number
  template <typename HashOfT>
  void NoteAdded(HashOfT HashOf) {
    ++Count;
    if (Count * 2 > vSlots.size()) {
      Grow(HashOf);
    }
  }

  /// Forgets all entries. What was used well is kept, since the next use will be like the last.
  void Clear() {
    if (Count > 0) {
      const bool WasUsed = Count * 16 > vSlots.size();
      vSlots.assign(WasUsed ? vSlots.size() : std::max(vSlots.size() / 2, FirstSize), NoEntry);
      Count = 0;
    }
  }

 private:
  static constexpr std::size_t FirstSize = 64;

  template <typename HashOfT>
  void Grow(HashOfT HashOf) {
    std::vector<std::uint32_t> vOld(vSlots.size() * 2, NoEntry);
    vOld.swap(vSlots);
    for (const std::uint32_t Number : vOld) {
      if (Number != NoEntry) {
        std::size_t At = HashOf(Number) & (vSlots.size() - 1);
        while (vSlots[At] != NoEntry) {
          At = (At + 1) & (vSlots.size() - 1);
        }
        vSlots[At] = Number;
      }
    }
  }

  std::vector<std::uint32_t> vSlots;
  std::size_t Count = 0;
};

/// A hash of several numbers.
inline std::uint64_t HashOf(const std::uint32_t* Numbers, std::size_t Size) {
  std::uint64_t Hash = Size;
  for (std::size_t At = 0; At < Size; ++At) {
    Hash = Mixed(Hash ^ Numbers[At]);
  }
  return Hash;
}

/// A hash of bytes; the same on every machine with the same order of bytes.
inline std::uint64_t HashOf(std::string_view Bytes) {
  std::uint64_t Hash = 0x9E3779B97F4A7C15U ^ Bytes.size();
  while (!Bytes.empty()) {
    std::uint64_t Piece = 0;
    std::memcpy(&Piece, Bytes.data(), std::min(Bytes.size(), sizeof Piece));
    Hash = (Hash ^ Piece) * 0xD6E8FEB86659FD93U;
    Hash ^= Hash >> 32U;
    Bytes.remove_prefix(std::min(Bytes.size(), sizeof Piece));
  }
  return Hash;
}

/// Pairs of numbers as numbers from 0, in the order in which they came first.
class PairTable {
 public:
  std::uint32_t Intern(std::uint32_t First, std::uint32_t Second) {
    const std::uint64_t Key = Pair(First, Second);
    std::uint32_t& Slot =
        Index.Find(Mixed(Key), [&](std::uint32_t Number) { return vKeys[Number] == Key; });
    const auto New = static_cast<std::uint32_t>(vKeys.size());
    if (Slot != NoEntry) {
      return Slot;
    }
    Slot = New;
    vKeys.push_back(Key);
    Index.NoteAdded([&](std::uint32_t Number) { return Mixed(vKeys[Number]); });
    return New;
  }

  /// `NoEntry` where the pair has no number.
  std::uint32_t Find(std::uint32_t First, std::uint32_t Second) const {
    const std::uint64_t Key = Pair(First, Second);
    return Index.Look(Mixed(Key), [&](std::uint32_t Number) { return vKeys[Number] == Key; });
  }

  std::uint32_t First(std::uint32_t Number) const {
    return static_cast<std::uint32_t>(vKeys[Number] >> 32U);
  }
  std::uint32_t Second(std::uint32_t Number) const {
    return static_cast<std::uint32_t>(vKeys[Number]);
  }
  std::size_t Size() const { return vKeys.size(); }

  void Clear() {
    vKeys.clear();
    Index.Clear();
  }

 private:
  std::vector<std::uint64_t> vKeys;
  IndexTable Index;
};

}  // namespace Grammar
