#include "CountText.h"

#include "Bytes.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace Grammar {

// Count = Digit { Digit } any
CountText ParseCount(std::string_view Text) {
  constexpr std::int64_t Most = std::numeric_limits<int>::max();
  std::int64_t Number = 0;
  bool IsInRange = true;
  std::size_t Size = 0;
  for (; Size < Text.size() && IsDigit(Text[Size]); ++Size) {
    Number = Number * 10 + (Text[Size] - '0');
    IsInRange = IsInRange && Number <= Most;
    Number = std::min(Number, Most);
  }
  return {Number == 0 ? 1 : static_cast<int>(Number),
          Number > 0 && IsInRange && Size == Text.size()};
}

}  // namespace Grammar
