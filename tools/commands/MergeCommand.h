#pragma once

#include "MemorySize.h"

#include <cstddef>
#include <string>

namespace Grammar {

struct MergeOptions {
  std::string Base;
  std::string Ours;
  std::string Theirs;
  std::string Output;  ///< "" or "-" for standard output; may be one of the files
  std::string Name;    ///< of ours, in messages; "" for its own
  bool Quiet = false;
  unsigned Threads = 0;
  std::size_t Memory = DefaultMemory();
};

/// Merges two versions of a file that come from a third one, rule by rule and part by part; see
/// FileMerge.h. Conflicts are written as comments of their rules, and reported on standard error.
/// Throws `RunError`.
/// @return `StatusFindings` if there are conflicts
int RunMerge(const MergeOptions& Options);

}  // namespace Grammar
