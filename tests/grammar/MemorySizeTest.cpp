#include "MemorySize.h"

#include <gtest/gtest.h>
#include <sys/sysinfo.h>
#include <unistd.h>

#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::DefaultMemory;
using Grammar::MachineMemory;
using Grammar::MemoryOf;
using Grammar::ParseMemorySize;

TEST(MemorySize, ReadsNumbersWithTheirUnits) {
  const std::vector<std::pair<std::string, std::size_t>> Sizes{
      {"1", 1},
      {"65536", 65536},
      {"10B", 10},
      {"1k", 1024},
      {"64K", 65536},
      {"64M", 67108864},
      {"64MB", 67108864},
      {"64mb", 67108864},
      {"2G", 2147483648},
      {"1T", 1099511627776},
      {"18446744073709551615", std::numeric_limits<std::size_t>::max()},
      {"100%", MachineMemory() / 100 * 100},
      {"50%", MachineMemory() / 100 * 50}};
  for (const auto& [sText, Size] : Sizes) {
    EXPECT_EQ(ParseMemorySize(sText), std::optional(Size)) << sText;
  }
}

TEST(MemorySize, RejectsEverythingElse) {
  for (const std::string sText :
       {"", "0", "0M", "-1", "+1", " 1", "1 ", "1 M", "M", "1X", "1MM", "1KiB", "1B2", "1%%",
        "101%", "1.5G", "18446744073709551616", "16777216T", "99999999999999999999999"}) {
    EXPECT_EQ(ParseMemorySize(sText), std::nullopt) << sText;
  }
}

TEST(MemorySize, OfPagesIsGuessedWhereTheSystemDoesNotKnow) {
  EXPECT_EQ(MemoryOf(3, 4096), 12288U);
  EXPECT_EQ(MemoryOf(1, 1), 1U);
  for (const auto& [Pages, PageSize] :
       {std::pair(-1L, 4096L), {3, -1}, {-1, -1}, {0, 4096}, {3, 0}}) {
    EXPECT_EQ(MemoryOf(Pages, PageSize), 1073741824U) << Pages << ' ' << PageSize;
  }
}

TEST(MemorySize, OfTheMachineIsThatOfItsPages) {
  EXPECT_GT(MachineMemory(), std::size_t{1} << 24);
  EXPECT_EQ(MachineMemory(),
            static_cast<std::size_t>(get_phys_pages()) * static_cast<std::size_t>(getpagesize()));
  EXPECT_EQ(DefaultMemory(), MachineMemory() / 2);
}

}  // namespace
