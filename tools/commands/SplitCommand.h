#pragma once

#include "GroupKeys.h"
#include "MemorySize.h"
#include "RuleRun.h"

#include <cstddef>
#include <cstdint>
#include <variant>

namespace Grammar {

/// So many rules a file.
struct RulesPerFile {
  std::uint64_t Count = 1;
};

/// So many files, to which the rules go in turn.
struct FilesInTurn {
  std::uint64_t Count = 1;
};

struct SplitOptions {
  std::variant<Query::GroupBy, RulesPerFile, FilesInTurn> By = Query::GroupBy::Type;
  std::size_t Memory = DefaultMemory();
};

/// Writes rules into several files of the folder that is the output, as they are written and in
/// their order; rules that cannot be read as well. Files are called after their groups, with those
/// in "other.trr" that have none: rules that cannot be read, and texts without a rule; else
/// "part-0001.trr" and so on, and a text without a rule stays with the rule before it.
///
/// All is read before the first file is written. Throws `RunError` and writes nothing where some
/// input cannot be read or a file is there already, unless that is forced.
/// @return the status of the run
int RunSplit(const RunOptions& Run, const SplitOptions& Options);

}  // namespace Grammar
