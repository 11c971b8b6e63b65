#pragma once

#include "RuleRun.h"

#include <cstdint>

namespace Grammar {

/// Writes the first rules of all files together as they are written, with their comments, also
/// those that cannot be read. No more of the input is read than these and the beginning of the next
/// one. Texts without a rule are passed over. Throws `RunError`.
/// @param Count how many rules
/// @return `StatusFindings` where something was reported of one of them
int RunHead(const RunOptions& Run, std::uint64_t Count);

}  // namespace Grammar
