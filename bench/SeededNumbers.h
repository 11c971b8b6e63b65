#pragma once

#include <cstddef>
#include <cstdint>

/// Numbers that look random, the same on every machine: a 64-bit linear congruential step and an
/// output mix; good enough to spread rules.
class SeededNumbers {
 public:
  explicit SeededNumbers(std::uint64_t Seed) : State(Seed) {}

  /// A number from 0, less than the limit.
  std::size_t Below(std::size_t Limit) {
    State = State * 6364136223846793005U + 1442695040888963407U;
    const std::uint64_t Mixed = (State ^ (State >> 29)) * 0x9E3779B97F4A7C15U;
    return static_cast<std::size_t>((Mixed >> 33) % Limit);
  }

  bool OneIn(std::size_t Chances) { return Below(Chances) == 0; }

 private:
  std::uint64_t State;
};
