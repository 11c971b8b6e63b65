#pragma once

#include <cstddef>

/// The number and size of allocations since the program started. Linking AllocationCount.cpp
/// replaces the global allocation functions by counting ones.
struct AllocationCount {
  std::size_t Calls = 0;
  std::size_t Bytes = 0;

  friend AllocationCount operator-(const AllocationCount& Left, const AllocationCount& Right) {
    return {Left.Calls - Right.Calls, Left.Bytes - Right.Bytes};
  }
};

/// The current counts. Plain variables: for one thread only.
AllocationCount CountedAllocations();
