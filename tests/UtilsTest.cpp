// Upper-casing under its older name.

#include "Utils.h"

#include <gtest/gtest.h>

#include "StringUtils.h"
#include "support/DebugLevel.h"
#include "support/StreamCapture.h"

#include <string>
#include <type_traits>

using std::string_literals::operator""s;

static_assert(std::is_empty_v<Utils>);
static_assert(std::is_same_v<decltype(&Utils::AllCaps), std::string (*)(std::string)>);

TEST(Utils, AllCapsMapsEveryByteLikeStringToUpper) {
  std::string AllBytes;
  std::string Expected;
  for (int Value = 0; Value < 256; ++Value) {
    AllBytes += static_cast<char>(Value);
    Expected += static_cast<char>(Value >= 'a' && Value <= 'z' ? Value - 32 : Value);
  }
  EXPECT_NE(AllBytes, Expected);
  EXPECT_EQ(Utils::AllCaps(AllBytes), Expected);
  EXPECT_EQ(StringUtils::StringToUpper(AllBytes), Expected);
}
