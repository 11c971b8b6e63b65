#pragma once

#include "GroupKeys.h"
#include "RuleRun.h"

#include <cstdint>
#include <optional>
#include <string>

namespace Grammar {

enum class FindFormat : std::uint8_t {
  Rules,  ///< as they are written, with a blank line between them
  Json,   ///< as `trrule json` writes them, or an object for each group
  Count,  ///< their number, or a table of groups
  Svg,    ///< a picture of each, or of the table of groups
};

/// The options of a run that finds rules.
struct FindOptions {
  std::string Query;
  std::optional<FindFormat> Format;       ///< otherwise `Rules`, or `Count` where there are groups
  std::optional<Query::GroupBy> CountBy;  ///< count the rules of each group
};

/// Finds the rules that a query asks for and writes them in the order of the input. Rules that
/// cannot be read are reported on standard error and not found. A query that cannot be read is
/// shown there with the place of its fault. Throws `RunError`.
/// @return 0 where a rule was found, 1 where none was, `StatusFailed` where the query or some input
///         could not be read
int RunFind(const RunOptions& Run, const FindOptions& Options);

}  // namespace Grammar
