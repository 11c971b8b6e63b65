// The differences of two files as JSON: what stands in a line for each kind, match and part.

#include "DiffSupport.h"
#include "JsonDiffWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Grammar;

namespace {

std::string LineOf(const DiffHunk& Hunk) {
  JsonDiffWriter Writer;
  std::string Text;
  Writer.Append(Hunk, Text);
  Writer.AppendEnd(Text);
  return Text;
}

TEST(JsonDiffWriter, NamesHowRulesWereMatched) {
  const struct {
    MatchReason Reason;
    std::string Expected;
  } Cases[] = {
      {MatchReason::None, ""},
      {MatchReason::Same, "\"match\":\"same\","},
      {MatchReason::Header, "\"match\":\"header\","},
      {MatchReason::Meaning, "\"match\":\"meaning\","},
      {MatchReason::Nearest, "\"match\":\"nearest\",\"likeness\":80,"},
  };
  for (const auto& Case : Cases) {
    DiffHunk Hunk;
    Hunk.Kind = HunkKind::Changed;
    Hunk.Reason = Case.Reason;
    Hunk.Score = 80;
    Hunk.IsMoved = Case.Reason == MatchReason::Same;
    EXPECT_EQ(LineOf(Hunk), "{\"kind\":\"changed\"," + Case.Expected +
                                "\"moved\":" + (Hunk.IsMoved ? "true" : "false") +
                                ",\"old\":null,\"new\":null,\"changes\":[]}\n");
  }
}

TEST(JsonDiffWriter, NamesThePartThatChanged) {
  const struct {
    PartChange Change;
    std::string Expected;
  } Cases[] = {
      {{PartKind::SourceComponent, 2, "", {"N"}, {"V"}},
       R"j({"part":"source component","component":2,"old":["N"],"new":["V"],)j"
       R"j("words":"component 2 of the source: N becomes V"})j"},
      {{PartKind::TargetComponent, 1, "", {"N"}, {"V"}},
       R"j({"part":"target component","component":1,"old":["N"],"new":["V"],)j"
       R"j("words":"component 1 of the target: N becomes V"})j"},
      {{PartKind::Alignment, 0, "(X1::Y2)", {}, {"(X1::Y2)"}},
       R"j({"part":"alignment","name":"(X1::Y2)","old":[],"new":["(X1::Y2)"],)j"
       R"j("words":"alignment (X1::Y2) added"})j"},
      {{PartKind::Constraint, 0, "((Y1 NUM)", {"((Y1 NUM) = SG)"}, {"((Y1 NUM) = PL)"}},
       R"j({"part":"constraint","name":"((Y1 NUM)","old":["((Y1 NUM) = SG)"],)j"
       R"j("new":["((Y1 NUM) = PL)"],)j"
       "\"words\":\"constraint ((Y1 NUM) = \xE2\x80\xA6): SG becomes PL\"}"},
      {{PartKind::SourceSequence, 0, "", {"N"}, {"DET", "N"}},
       R"j({"part":"source sequence","old":["N"],"new":["DET","N"],)j"
       R"j("words":"source sequence: [N] becomes [DET N]"})j"},
      {{PartKind::Comment, 0, "", {"; a"}, {}},
       R"j({"part":"comment","old":["; a"],"new":[],"words":"comment removed: ; a"})j"},
  };
  for (const auto& Case : Cases) {
    DiffHunk Hunk;
    Hunk.Kind = HunkKind::Changed;
    Hunk.OldLine = 3;
    Hunk.OldText = "old\n";
    Hunk.NewLine = 4;
    Hunk.NewText = "new\n";
    Hunk.vChanges = {Case.Change};
    EXPECT_EQ(LineOf(Hunk), R"j({"kind":"changed","moved":false,"old":{"line":3,"text":"old\n"},)j"
                            R"j("new":{"line":4,"text":"new\n"},"changes":[)j" +
                                Case.Expected + "]}\n");
  }
}

}  // namespace
