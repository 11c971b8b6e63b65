#include "CapitalTable.h"

#include "Bytes.h"
#include "SumPair.h"

namespace Grammar {

std::uint32_t CapitalTable::Intern(std::string_view Text, std::uint64_t Sum) {
  std::uint32_t& Slot =
      Index.Find(Sum, [&](std::uint32_t Number) { return IsSameInCapitals(Names[Number], Text); });
  if (Slot != NoEntry) {
    return Slot;
  }
  const auto New = static_cast<std::uint32_t>(Names.size());
  Slot = New;
  Names.push_back(Upper(Text));
  vSums.push_back(Sum);
  Index.NoteAdded([&](std::uint32_t Number) { return vSums[Number]; });
  return New;
}

std::uint32_t CapitalTable::Find(std::string_view Text) const {
  return Index.Look(SumInCapitals(Text),
                    [&](std::uint32_t Number) { return IsSameInCapitals(Names[Number], Text); });
}

}  // namespace Grammar
