#pragma once

#include "MemorySize.h"
#include "RuleRun.h"

#include <cstddef>

namespace Grammar {

enum class SortBy {
  Form,    ///< the comparison text
  Index,   ///< the number of the header, as a number; rules without one come first
  Type,    ///< the source type, then the target type
  Count,   ///< how many examples a rule stands for
  Length,  ///< how many components the source side has, then the target side
};

struct SortOptions {
  SortBy By = SortBy::Form;
  bool Reverse = false;
  std::size_t Memory = DefaultMemory();
};

/// Writes the rules in order, each in the normal form. Those that are equal in what they are sorted
/// by stay in the order of the input, also in reverse. What is not a rule comes after all rules.
int RunSort(const RunOptions& Run, const SortOptions& Options);

}  // namespace Grammar
