#include "Progress.h"

#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using Grammar::Progress;

struct Case {
  std::uint64_t TotalBytes;
  std::vector<std::uint64_t> vAdvances;
  double Seconds;
  std::string Line;
};

TEST(Progress, ReportsRulesRateAndBytes) {
  const std::vector<Case> Cases{
      {0, {}, 0, "0 rules, 0 B"},
      {0, {100, 899}, 0.5, "2 rules, 4/s, 999 B"},
      {1000, {250}, 2, "1 rules, 0/s, 250 B of 1.0 kB (25 %)"},
      {240000000, {1234567, 765433}, 1, "2 rules, 2/s, 2.0 MB of 240.0 MB (0 %)"},
      {5000000000, {5000000000}, 1, "1 rules, 1/s, 5.0 GB of 5.0 GB (100 %)"},
      {0, {999949, 1}, 0, "2 rules, 1.0 MB"},
      {0, {7000000000000}, 0, "1 rules, 7.0 TB"}};
  for (const Case& Row : Cases) {
    Progress Shown(true, Row.TotalBytes);
    for (const std::uint64_t Bytes : Row.vAdvances) {
      Shown.Advance(Bytes);
    }
    EXPECT_EQ(Shown.Line(Row.Seconds), Row.Line);
  }
}

}  // namespace
