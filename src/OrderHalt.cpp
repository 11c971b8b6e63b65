#include "OrderHalt.h"

#include "Halt.h"

#include <array>
#include <cstddef>

namespace TrRuleInternal {

namespace {

/// How the order of a group fails; the position in the array is the group's number.
struct GroupFailure {
  HaltReason What;
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
  const auto& [What, Message] = GroupFailures[static_cast<std::size_t>(Group)];
  Halt(What, Message);
}

}  // namespace TrRuleInternal
