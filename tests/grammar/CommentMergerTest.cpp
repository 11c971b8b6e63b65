#include "CommentMerger.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

using Grammar::CommentMerger;
using Strings = std::vector<std::string>;

/// The comments of some rules, put together.
Strings Merged(const std::vector<Strings>& vvsComments,
               std::size_t MaxExamples = std::numeric_limits<std::size_t>::max()) {
  CommentMerger Merger(MaxExamples);
  for (const Strings& vsComments : vvsComments) {
    Merger.Add(vsComments);
  }
  return Merger.Comments();
}

TEST(CommentMerger, KeepsTheCommentsOfTheFirstRuleUnchanged) {
  const Strings vsComments{"; twice", "; twice", ";; SL: a", ";; SL: a", ";;Score:2"};
  EXPECT_EQ(Merged({}), Strings());
  EXPECT_EQ(Merged({{}, {}}), Strings());
  EXPECT_EQ(Merged({vsComments}), vsComments);
}

TEST(CommentMerger, AddsNewComments) {
  EXPECT_EQ(Merged({{"; one", ";; Users: 2"}, {"; two", "; one"}, {"; three", ";; Users: 2"}}),
            (Strings{"; one", ";; Users: 2", "; two", "; three"}));
}

TEST(CommentMerger, KeepsTheLinesOfAnExampleTogether) {
  EXPECT_EQ(Merged({{";; SL: the car", ";; TL: el auto"},
                    {";; SL: the car", ";; TL: el coche"},
                    {";; SL: the car", ";; TL: el auto"},
                    {";;SL:THE HOUSE", "; seen once", ";;TL:LA CASA", ";;C-Structure:(NP)"}}),
            (Strings{";; SL: the car", ";; TL: el auto", ";; SL: the car", ";; TL: el coche",
                     ";;SL:THE HOUSE", "; seen once", ";;TL:LA CASA", ";;C-Structure:(NP)"}));
}

TEST(CommentMerger, BeginsAnExampleAtARepeatedLabel) {
  EXPECT_EQ(Merged({{";;TL:a", ";;SL:b", ";;SL:c", ";;TL:d"}, {";;SL:c", ";;TL:d"}, {";;SL:b"}}),
            (Strings{";;TL:a", ";;SL:b", ";;SL:c", ";;TL:d", ";;SL:b"}));
}

TEST(CommentMerger, KeepsOnlyTheCountOfTheFirstRule) {
  EXPECT_EQ(Merged({{";;Score:2", "; a"}, {";; Score: 5", "; b"}}),
            (Strings{";;Score:2", "; a", "; b"}));
  EXPECT_EQ(Merged({{"; a"}, {";;Score:5"}}), Strings{"; a"});
}

TEST(CommentMerger, LimitsTheNumberOfExamples) {
  const std::vector<Strings> Rules{
      {";;SL:1", ";;TL:1", "; a", ";;SL:2"}, {";;SL:1", ";;TL:1"}, {";;SL:3", "; b"}};
  EXPECT_EQ(Merged(Rules, 0), (Strings{"; a", "; b"}));
  EXPECT_EQ(Merged(Rules, 1), (Strings{";;SL:1", ";;TL:1", "; a", "; b"}));
  EXPECT_EQ(Merged(Rules, 2), (Strings{";;SL:1", ";;TL:1", "; a", ";;SL:2", "; b"}));
  EXPECT_EQ(Merged(Rules, 3), (Strings{";;SL:1", ";;TL:1", "; a", ";;SL:2", ";;SL:3", "; b"}));
  EXPECT_EQ(Merged(Rules, 4), Merged(Rules));
}

}  // namespace
