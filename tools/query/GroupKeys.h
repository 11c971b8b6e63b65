#pragma once

#include "SourceRule.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Query {

/// What rules are counted by.
enum class GroupBy : std::uint8_t {
  Type,      ///< "NP::NP"
  Sequence,  ///< "[DET N] -> [N DET]"
  Source,    ///< "[DET N]"
  Target,    ///< "[N DET]"
  Label,     ///< each label of either side
  Literal,   ///< each literal of either side, with its quotes
  Feature,   ///< each feature, "AGR GEN"
  Shape,     ///< "crossing 1:1"
  Size,      ///< "2 -> 2", the numbers of components
  Count,     ///< how many examples it stands for
  File,
};

/// The groups that a rule belongs to, none twice: exactly one, but for labels, literals and
/// features. Labels, types and features are in capitals.
///
/// @code
/// GroupKeys(Lines, GroupBy::Sequence);   // {"[\"the\" ADJ N] -> [\"el\" N ADJ]"}
/// GroupKeys(Lines, GroupBy::Literal);  // {"\"el\"", "\"the\""}
/// @endcode
/// @param RulePassIn has to be whole
std::vector<std::string> GroupKeys(const Grammar::SourceRule& RulePassIn, GroupBy By);

}  // namespace Query
