#pragma once

#include "RuleRecord.h"

#include <optional>
#include <string_view>

namespace Grammar {

/// The header of a rule as it is kept.
/// @param Parts the parts of the line; nothing where it cannot be read
/// @param Code the line itself
RuleHeader HeaderOf(const std::optional<TrRuleInternal::HeaderParts>& Parts, std::string_view Code);

/// The number of a header, as the record holds it: -1 where it has none that can be read.
int NumberOf(const RuleHeader& Header);

}  // namespace Grammar
