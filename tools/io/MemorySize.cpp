#include "MemorySize.h"

#include <unistd.h>

#include <charconv>
#include <limits>

namespace Grammar {

namespace {

constexpr std::size_t MaxSize = std::numeric_limits<std::size_t>::max();

/// How often 1024 is taken for a letter; nothing for what is not one.
std::optional<unsigned> PowerOf(char Letter) {
  constexpr std::string_view Letters = "KMGT";
  const std::size_t Position = Letters.find(static_cast<char>(Letter & ~0x20));
  if (Position == std::string_view::npos) {
    return std::nullopt;
  }
  return static_cast<unsigned>(Position) + 1;
}

std::optional<std::size_t> Scaled(std::size_t Number, std::string_view Unit) {
  if (Unit.empty() || Unit == "B" || Unit == "b") {
    return Number;
  }
  if (Unit == "%") {
    return Number > 100 ? std::nullopt : std::optional(MachineMemory() / 100 * Number);
  }
  const std::optional<unsigned> Power = PowerOf(Unit.front());
  Unit.remove_prefix(1);
  const bool IsUnit = Power.has_value() && (Unit.empty() || Unit == "B" || Unit == "b");
  if (!IsUnit || Number > (MaxSize >> (10 * *Power))) {
    return std::nullopt;
  }
  return Number << (10 * *Power);
}

}  // namespace

std::optional<std::size_t> ParseMemorySize(std::string_view Text) {
  std::size_t Number = 0;
  const char* End = Text.data() + Text.size();
  const auto [Rest, Error] = std::from_chars(Text.data(), End, Number);
  if (Error != std::errc() || Number == 0) {
    return std::nullopt;
  }
  return Scaled(Number, std::string_view(Rest, static_cast<std::size_t>(End - Rest)));
}

std::size_t MemoryOf(long Pages, long PageSize) {
  constexpr std::size_t Guess = std::size_t{1} << 30;
  return Pages > 0 && PageSize > 0
             ? static_cast<std::size_t>(Pages) * static_cast<std::size_t>(PageSize)
             : Guess;
}

std::size_t MachineMemory() {
  return MemoryOf(sysconf(_SC_PHYS_PAGES), sysconf(_SC_PAGESIZE));
}

std::size_t DefaultMemory() {
  return MachineMemory() / 2;
}

}  // namespace Grammar
