#pragma once

#include "MemorySize.h"
#include "RuleRun.h"

#include <cstddef>
#include <optional>

namespace Grammar {

struct UniqueOptions {
  bool Sorted = false;    ///< in the order of the comparison texts, not of first appearance
  bool Repeated = false;  ///< only rules that are there more than once
  bool Count = false;     ///< one rule a line, after the number of rules that it stands for
  std::optional<std::size_t> Examples;  ///< how many examples to keep; all where it is not said
  std::size_t Memory = DefaultMemory();
};

/// Writes one rule for each comparison text: the first, with the counts of all added and with the
/// comments and examples of all. Comments and examples that are the same are kept once. What is no
/// rule keeps its place; where the rules are sorted, it comes after all of them, and where
/// only repeated rules are written, or rules are counted, it is left out.
int RunUnique(const RunOptions& Run, const UniqueOptions& Options);

}  // namespace Grammar
