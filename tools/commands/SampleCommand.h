#pragma once

#include "GroupKeys.h"
#include "RuleRun.h"

#include <cstdint>
#include <optional>

namespace Grammar {

struct SampleOptions {
  std::uint64_t Rules = 10;          ///< how many, or how many of each group
  std::uint64_t Seed = 0;            ///< the same seed draws the same rules
  std::optional<Query::GroupBy> By;  ///< draw from each group apart
};

/// Writes rules that are drawn at random, each set of that many with the same probability, as they
/// are written and in the order of the input. Rules that cannot be read are drawn like others, and
/// make a group of their own. Texts without a rule are passed over. Reads the input once and holds
/// no more than the rules that are drawn so far. Throws `RunError`.
///
/// A larger sample with the same seed contains the smaller one.
int RunSample(const RunOptions& Run, const SampleOptions& Options);

}  // namespace Grammar
