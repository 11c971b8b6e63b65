#pragma once

#include "MemorySize.h"
#include "RuleRun.h"

#include <cstddef>
#include <cstdint>

namespace Grammar {

enum class StatsFormat : std::uint8_t { Text, Json, Html };

struct StatsOptions {
  StatsFormat Format = StatsFormat::Text;
  std::size_t Top = 10;  ///< how many of the most frequent names a table or histogram shows
  std::size_t Memory = DefaultMemory();
};

/// Writes what there is in the rules of all files together, and how often. Holds the different
/// names, and eight bytes for each rule, which go into temporary files beyond the memory.
int RunStats(const RunOptions& Run, const StatsOptions& Options);

}  // namespace Grammar
