#include "CommonLines.h"

#include <algorithm>
#include <cstdint>

namespace Grammar {

CommonLines::CommonLines(std::size_t OldSizePassIn, std::size_t NewSizePassIn,
                         const SamenessTest& IsSamePassIn)
    : vHasOld(OldSizePassIn), vHasNew(NewSizePassIn) {
  std::size_t Begin = 0;
  for (; Begin < std::min(OldSizePassIn, NewSizePassIn) && IsSamePassIn(Begin, Begin); ++Begin) {
    Keep(Begin, Begin);
  }
  std::size_t OldEnd = OldSizePassIn;
  std::size_t NewEnd = NewSizePassIn;
  while (OldEnd > Begin && NewEnd > Begin && IsSamePassIn(OldEnd - 1, NewEnd - 1)) {
    Keep(--OldEnd, --NewEnd);
  }
  constexpr std::size_t MostComparisons = std::size_t{1} << 20;
  if (OldEnd > Begin && NewEnd > Begin && OldEnd - Begin <= MostComparisons / (NewEnd - Begin)) {
    KeepCommon(Begin, OldEnd, NewEnd, IsSamePassIn);
  }
}

void CommonLines::Keep(std::size_t Old, std::size_t New) {
  vHasOld[Old] = true;
  vHasNew[New] = true;
}

/// Keeps a longest common part of what is between.
void CommonLines::KeepCommon(std::size_t Begin, std::size_t OldEnd, std::size_t NewEnd,
                             const SamenessTest& IsSame) {
  const std::size_t Width = NewEnd - Begin + 1;
  std::vector<std::uint32_t> vLengths((OldEnd - Begin + 1) * Width);
  // How much is common from two places on.
  const auto Length = [&](std::size_t Old, std::size_t New) -> std::uint32_t& {
    return vLengths[(Old - Begin) * Width + New - Begin];
  };
  for (std::size_t Old = OldEnd; Old-- > Begin;) {
    for (std::size_t New = NewEnd; New-- > Begin;) {
      Length(Old, New) = IsSame(Old, New) ? Length(Old + 1, New + 1) + 1
                                          : std::max(Length(Old + 1, New), Length(Old, New + 1));
    }
  }
  for (std::size_t Old = Begin, New = Begin; Old < OldEnd && New < NewEnd;) {
    if (IsSame(Old, New)) {
      Keep(Old++, New++);
    } else {
      ++(Length(Old + 1, New) >= Length(Old, New + 1) ? Old : New);
    }
  }
}

}  // namespace Grammar
