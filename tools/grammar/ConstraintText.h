#pragma once

#include <ConstraintFormat.h>

namespace Grammar {

using TrRuleInternal::ConstraintStop;
using TrRuleInternal::ForLibrary;
using TrRuleInternal::IsMistakenForValue;
using TrRuleInternal::NodeText;
using TrRuleInternal::ParseConstraint;
using TrRuleInternal::RightKind;
using ConstraintText = TrRuleInternal::ConstraintParts;

/// The same, where only the place is wanted.
inline std::optional<ConstraintText> ParseConstraint(std::string_view Text,
                                                     std::size_t& StoppedReturn) {
  ConstraintStop Stop;
  std::optional<ConstraintText> Parts = ParseConstraint(Text, Stop);
  StoppedReturn = Stop.Place;
  return Parts;
}

}  // namespace Grammar
