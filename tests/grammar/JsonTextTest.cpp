// Rules are bytes, JSON is Unicode: what goes over must be restored.

#include "JsonText.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Grammar::ToBytes;
using Grammar::ToUnicode;

struct Case {
  std::string Bytes;
  std::string Unicode;
};

TEST(JsonText, KeepsUtf8AndReplacesAllOtherBytes) {
  const std::vector<Case> Cases{
      {"", ""},
      {"veo el auto", "veo el auto"},
      {std::string("a\0b", 3), std::string("a\0b", 3)},
      {"caf\xC3\xA9", "caf\xC3\xA9"},
      {"\xE2\x82\xAC \xF0\x9F\x98\x80", "\xE2\x82\xAC \xF0\x9F\x98\x80"},
      {"caf\xE9", "caf\xEF\x9F\xA9"},  // Latin-1
      {"\x80\xBF\xC0\xFF", "\xEF\x9E\x80\xEF\x9E\xBF\xEF\x9F\x80\xEF\x9F\xBF"},
      {"\xC3", "\xEF\x9F\x83"},  // cut off
      {"\xE2\x82 ", "\xEF\x9F\xA2\xEF\x9E\x82 "},
      {"\xC0\xAF", "\xEF\x9F\x80\xEF\x9E\xAF"},  // longer than it has to be
      {"\xE0\x80\xAF", "\xEF\x9F\xA0\xEF\x9E\x80\xEF\x9E\xAF"},
      {"\xED\xA0\x80", "\xEF\x9F\xAD\xEF\x9E\xA0\xEF\x9E\x80"},  // half of a surrogate pair
      {"\xF4\x90\x80\x80", "\xEF\x9F\xB4\xEF\x9E\x90\xEF\x9E\x80\xEF\x9E\x80"},  // beyond the last
      {"\xEF\x9D\xBF", "\xEF\x9D\xBF"},  // the neighbours of the stand-ins
      {"\xEF\xA0\x80", "\xEF\xA0\x80"},
      {"\xEF\x9E\x80", "\xEF\x9F\xAF\xEF\x9E\x9E\xEF\x9E\x80"},  // a stand-in itself
  };
  for (const Case& Row : Cases) {
    EXPECT_EQ(ToUnicode(Row.Bytes), Row.Unicode) << testing::PrintToString(Row.Bytes);
    EXPECT_EQ(ToBytes(Row.Unicode), Row.Bytes) << testing::PrintToString(Row.Bytes);
  }
}

TEST(JsonText, RestoresEveryText) {
  std::mt19937 Random(5);
  const std::string Bytes("a\xEF\x9E\x9F\x80\xBF\xC3\xE2\xF0\xED\0", 11);
  for (int Round = 0; Round < 20000; ++Round) {
    std::string Text(Random() % 9, ' ');
    for (char& Byte : Text) {
      Byte = Bytes[Random() % Bytes.size()];
    }
    ASSERT_EQ(ToBytes(ToUnicode(Text)), Text) << testing::PrintToString(Text);
    ASSERT_EQ(ToUnicode(ToBytes(ToUnicode(Text))), ToUnicode(Text));
  }
}

}  // namespace
