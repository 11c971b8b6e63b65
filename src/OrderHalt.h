#pragma once

#include "PrintOrder.h"

/// @file
/// Halting on constraints that cannot be ordered.

namespace TrRuleInternal {

/// Ends the process with the message for a group that cannot be ordered.
[[noreturn]] void HaltForOrder(PrintGroup Group);

}  // namespace TrRuleInternal
