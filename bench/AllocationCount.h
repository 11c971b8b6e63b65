#pragma once

#include <cstddef>

/// How often and how much the program has allocated since it started. Linking AllocationCount.cpp
/// replaces the global allocation functions by counting ones.
struct AllocationCount {
  std::size_t Calls = 0;
  std::size_t Bytes = 0;

  friend AllocationCount operator-(const AllocationCount& Left, const AllocationCount& Right) {
    return {Left.Calls - Right.Calls, Left.Bytes - Right.Bytes};
  }
};

/// The counts until now. Plain variables: for one thread alone.
AllocationCount CountedAllocations();
