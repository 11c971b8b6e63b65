#pragma once

#include "RuleRecord.h"

#include <string_view>

namespace Grammar {

/// Reads a header line, such as "{ADJP,12}", whole.
RuleHeader ParseHeader(std::string_view Code);

/// The number of a header, as the record holds it: -1 where it has none that can be read.
int NumberOf(const RuleHeader& Header);

}  // namespace Grammar
