#pragma once

#include "PrintOrder.h"

/// @file
/// What happens to a rule whose constraints cannot be put in order.

namespace TrRuleInternal {

/// Ends the process with the message for a group that cannot be put in order.
[[noreturn]] void HaltForOrder(PrintGroup Group);

}  // namespace TrRuleInternal
