#pragma once

#include "Hashing.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace Grammar {

/// A sum of a text in ASCII capitals: the same for texts that differ in nothing but the case of
/// their letters.
std::uint64_t SumInCapitals(std::string_view Text);

/// Two sums of a sequence, made in different ways: that two different sequences have both in common
/// is not to be expected in any grammar.
///
/// @code
/// SumPair Sums;
/// Sums.AddText("NP::NP [DET N] -> [N]");
/// SumPair Others;
/// Others.AddText("NP::NP [DET N] -> [N]");
/// Sums == Others;  // true
/// Others.Add(2);
/// Sums == Others;  // false
/// @endcode
class SumPair {
 public:
  void Add(std::uint64_t Number) { Add({Number, Number}); }

  /// Adds another sequence as one element.
  void Add(const SumPair& Sums) {
    First = Mixed(First ^ Sums.First);
    Second = (Second ^ Sums.Second) * 0x9E3779B97F4A7C15U;
    Second ^= Second >> 29U;
  }

  /// Adds another sequence; those that are added so count in any order.
  void AddUnordered(const SumPair& Sums) {
    First += Sums.First;
    Second += Sums.Second;
  }

  /// Adds a text byte for byte, as one element.
  void AddText(std::string_view Text) {
    Add(Text.size());
    while (!Text.empty()) {
      std::uint64_t Eight = 0;
      const std::size_t Size = std::min(Text.size(), sizeof Eight);
      std::memcpy(&Eight, Text.data(), Size);
      Add(Eight);
      Text.remove_prefix(Size);
    }
  }

  /// One of the two, for a hash table.
  std::uint64_t Hash() const { return First; }

  friend bool operator==(const SumPair& Left, const SumPair& Right) {
    return Left.First == Right.First && Left.Second == Right.Second;
  }
  friend bool operator!=(const SumPair& Left, const SumPair& Right) { return !(Left == Right); }

  SumPair() = default;

 private:
  SumPair(std::uint64_t FirstPassIn, std::uint64_t SecondPassIn)
      : First(FirstPassIn), Second(SecondPassIn) {}

  std::uint64_t First = 0;
  std::uint64_t Second = 0xCBF29CE484222325U;
};

}  // namespace Grammar
