#pragma once

#include "RuleRecord.h"

#include <cstdint>
#include <string>

namespace Grammar {

/// What rules are grouped by.
enum class GroupBy : std::uint8_t {
  Type,    ///< both types, "NP::NP"
  Source,  ///< the source type, "NP"
  Target,  ///< the target type
  Length,  ///< how many components both sides have, "3::2"
  Shape,   ///< what can be said of the alignments, "crossing 1:1"; see AlignmentShape.h
};

/// Appends the name of the group that a rule belongs to.
///
/// @code
/// std::string Group;
/// AppendGroup(Record, GroupBy::Length, Group);
/// Group;  // "3::3"
/// @endcode
/// @param RecordPassIn has to hold a rule
void AppendGroup(const RuleRecord& RecordPassIn, GroupBy By, std::string& TextReturn);

}  // namespace Grammar
