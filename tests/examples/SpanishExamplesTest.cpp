// The grammar to learn from is tested as any grammar should be: by the examples in its comments.

#include "ProgramRun.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(SpanishExamples, AllPassAndCoverEveryRuleAndConstraint) {
  const ChildEnd End =
      RunTrrule({"test", "--strict", "--format", "json", "grammar.trr", "lexicon.trr"},
                GrammarPaths::SourceFolder + std::string("/examples/grammar/spanish"));
  EXPECT_EQ(End.Status, 0);
  EXPECT_EQ(End.Err, "");
  const std::size_t LastLine = End.Out.rfind('\n', End.Out.size() - 2) + 1;
  EXPECT_EQ(End.Out.substr(LastLine), "{\"uncovered\":{\"rules\":[],\"constraints\":[]}}\n");
}

}  // namespace
