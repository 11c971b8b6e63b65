#pragma once

#include "Hashing.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Texts in any case as numbers from 0, in the order in which they came first. Whoever knows the
/// sum of a text passes it with it, so that a text that is looked at on several occasions is summed
/// up once.
///
/// @code
/// CapitalTable Labels;
/// Labels.Intern("Np", SumInCapitals("Np"));  // 0
/// Labels.Find("NP");                         // 0
/// Labels.Name(0);                            // "NP"
/// @endcode
class CapitalTable {
 public:
  /// The number of a text, a new one if it has none.
  /// @param Sum as `SumInCapitals` of SumPair.h gives it
  std::uint32_t Intern(std::string_view Text, std::uint64_t Sum);

  /// The number of a text; `NoEntry` if it has none.
  std::uint32_t Find(std::string_view Text) const;

  /// The text in capitals.
  const std::string& Name(std::uint32_t Number) const { return Names[Number]; }
  std::size_t Size() const { return Names.size(); }

 private:
  std::deque<std::string> Names;
  std::vector<std::uint64_t> vSums;
  IndexTable Index;
};

}  // namespace Grammar
