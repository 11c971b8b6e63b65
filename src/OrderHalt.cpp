#include "OrderHalt.h"

#include "Halt.h"

#include <array>
#include <cstddef>

namespace TrRuleInternal {

namespace {

/// The reason and the message for a group that cannot be ordered, by the number of the group.
struct GroupFailure {
  HaltReason Reason;
  const char* Message;
};

constexpr std::array<GroupFailure, 3> GroupFailures{{
    {HaltReason::Category1Order,
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 order."},
    {HaltReason::Category2Order,
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category2 order."},
    {HaltReason::Category3and4Order,
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category3and4 order."},
}};

}  // namespace

void HaltForOrder(PrintGroup Group) {
  const auto& [Reason, Message] = GroupFailures[static_cast<std::size_t>(Group)];
  Halt(Reason, Message);
}

}  // namespace TrRuleInternal
