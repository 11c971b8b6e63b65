#pragma once

#include <thread>

namespace Grammar {

/// How many threads a run uses: as many as are wanted, or for 0 as many as the machine has cores.
///
/// @code
/// ThreadCount(3);      // 3
/// ThreadCount(0) > 0;  // true
/// @endcode
inline unsigned ThreadCount(unsigned Wanted) {
  const unsigned Cores = std::thread::hardware_concurrency();
  return Wanted != 0 ? Wanted : Cores != 0 ? Cores : 1;
}

}  // namespace Grammar
