#include "GroupCounts.h"

#include <gtest/gtest.h>

#include <string>

namespace {

Query::GroupCounts CountsOf(int Often) {
  Query::GroupCounts Counts;
  for (int Count = 0; Count < Often; ++Count) {
    Counts.Add("b");
  }
  Counts.Add("c\xFF\"");
  Counts.Add("a");
  return Counts;
}

}  // namespace

TEST(GroupCounts, AreOrderedBySizeAndName) {
  std::string Text;
  CountsOf(10).AppendTable(Text);
  EXPECT_EQ(Text, "10  b\n 1  a\n 1  c\xFF\"\n");
  Text.clear();
  CountsOf(0).AppendTable(Text);
  EXPECT_EQ(Text, "1  a\n1  c\xFF\"\n");
  Text.clear();
  Query::GroupCounts().AppendTable(Text);
  EXPECT_EQ(Text, "");
}

TEST(GroupCounts, AreWrittenAsJson) {
  std::string Text;
  CountsOf(2).AppendJson(Query::GroupBy::Feature, Text);
  EXPECT_EQ(Text,
            "{\"feature\":\"b\",\"rules\":2}\n{\"feature\":\"a\",\"rules\":1}\n"
            "{\"feature\":\"c\xEF\x9F\xBF\\\"\",\"rules\":1}\n");
}

TEST(GroupCounts, AreNamedByTheirKeys) {
  const char* const Names[] = {"type",    "sequence", "source", "target", "label", "literal",
                               "feature", "shape",    "size",   "count",  "file"};
  for (std::size_t At = 0; At < 11; ++At) {
    EXPECT_EQ(Query::NameOf(static_cast<Query::GroupBy>(At)), Names[At]);
  }
}
