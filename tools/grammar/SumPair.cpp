#include "SumPair.h"

namespace Grammar {

namespace {

constexpr std::uint64_t InEachByte(std::uint64_t Value) {
  return Value * 0x0101010101010101U;
}

/// Eight bytes at once, their small letters of ASCII as capitals: adding to the lower seven bits of
/// a byte sets its highest one where they reach a letter, or pass the last one.
constexpr std::uint64_t Capitals(std::uint64_t Bytes) {
  const std::uint64_t Lower = Bytes & InEachByte(0x7F);
  const std::uint64_t FromA = Lower + InEachByte(0x80 - 'a');
  const std::uint64_t AfterZ = Lower + InEachByte(0x80 - 'z' - 1);
  const std::uint64_t IsSmall = FromA & ~AfterZ & ~Bytes & InEachByte(0x80);
  return Bytes - (IsSmall >> 2U);
}

/// Up to seven bytes; with their number known, no two texts give the same.
std::uint64_t FewBytes(std::string_view Text) {
  const auto ByteAt = [Text](std::size_t At) {
    return static_cast<std::uint64_t>(static_cast<unsigned char>(Text[At]));
  };
  const std::size_t Size = Text.size();
  std::uint32_t First = 0;
  std::uint32_t Last = 0;
  if (Size < sizeof First) {
    return Size == 0 ? 0 : ByteAt(0) | ByteAt(Size / 2) << 8U | ByteAt(Size - 1) << 16U;
  }
  std::memcpy(&First, Text.data(), sizeof First);
  std::memcpy(&Last, Text.data() + Size - sizeof Last, sizeof Last);
  return First | static_cast<std::uint64_t>(Last) << 32U;
}

}  // namespace

std::uint64_t SumInCapitals(std::string_view Text) {
  std::uint64_t Sum = Text.size();
  std::uint64_t Eight = 0;
  for (; Text.size() >= sizeof Eight; Text.remove_prefix(sizeof Eight)) {
    std::memcpy(&Eight, Text.data(), sizeof Eight);
    Sum = Mixed(Sum ^ Capitals(Eight));
  }
  return Mixed(Sum ^ Capitals(FewBytes(Text)));
}

}  // namespace Grammar
