// Reading diffs: which heads and numbers of lines are accepted, and what is reported of others.

#include "DiffReader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace Grammar;

namespace {

const std::string Names = "--- old\n+++ new\n";

/// The line and the message of the fault; "" if the diff can be read.
std::string FaultOf(const std::string& Diff) {
  std::vector<DiffHunk> vHunks;
  const std::optional<DiffFault> Fault = ReadDiff(Diff, vHunks);
  return Fault ? std::to_string(Fault->Line) + ": " + Fault->Message : "";
}

TEST(DiffReader, WantsTheNumbersOfLinesThatAKindHas) {
  const struct {
    std::string Kind;
    bool HasOld;
    bool HasNew;
  } Kinds[] = {
      {"changed", true, true},     {"renumbered", true, true}, {"removed", true, false},
      {"added", false, true},      {"moved", false, false},    {"text removed", true, false},
      {"text added", false, true},
  };
  for (const auto& Kind : Kinds) {
    for (const bool HasOld : {false, true}) {
      for (const bool HasNew : {false, true}) {
        SCOPED_TRACE(Kind.Kind + (HasOld ? " old" : "") + (HasNew ? " new" : ""));
        const std::string Head = std::string("@@ -1,") + (HasOld ? "1" : "0") + " +1," +
                                 (HasNew ? "1" : "0") + " @@ " + Kind.Kind + " \n";
        const bool Fits = HasOld == Kind.HasOld && HasNew == Kind.HasNew;
        EXPECT_EQ(FaultOf(Names + Head),
                  Fits ? "4: the diff ends too early"
                       : "3: the numbers of lines do not fit \"" + Kind.Kind + '"');
      }
    }
  }
}

TEST(DiffReader, WantsAWholeHead) {
  const std::string Head = "@@ -1,1 +0,0 @@ text removed";
  for (std::size_t Size = 0; Size <= Head.size(); ++Size) {
    EXPECT_EQ(FaultOf(Names + Head.substr(0, Size) + '\n'),
              "3: expected \"@@ -LINE,COUNT +LINE,COUNT @@ KIND\", or the count of all kinds")
        << Size;
  }
  EXPECT_EQ(FaultOf(Names + Head + " \n-; a\n@@ 1 text removed @@\n"), "");
}

TEST(DiffReader, WantsOneRuleOnEachSide) {
  const std::string Rule = "NP::NP [N] -> [N]\n-(\n-(X1::Y1)\n-)\n";
  EXPECT_EQ(FaultOf(Names + "@@ -1,4 +0,0 @@ removed \n-" + Rule + "@@ 1 removed @@\n"), "");
  const struct {
    std::string Hunk;
    std::string Fault;
  } Cases[] = {
      {"@@ -1,1 +0,0 @@ removed \n-; no rule\n", "3: the lines that follow are not one rule"},
      {"@@ -0,0 +1,1 @@ added \n+; no rule\n", "3: the lines that follow are not one rule"},
      {"@@ -1,5 +0,0 @@ removed \n-" + Rule + "-NP::NP [N] -> [N]\n",
       "3: the lines that follow are not one rule"},
      {"@@ -1,4 +0,0 @@ removed \n+" + Rule,
       "4: expected a line of the rule, after \" \", \"-\" or \"+\""},
      {"@@ -1,1 +0,0 @@ text removed \n\n",
       "4: expected a line of the rule, after \" \", \"-\" or \"+\""},
      {"@@ -1,1 +0,0 @@ text removed \n# why\n; a\n",
       "5: expected a line of the rule, after \" \", \"-\" or \"+\""},
      {"@@ -1,1 +0,0 @@ text removed \n# why", "4: the diff ends too early"},
  };
  for (const auto& Case : Cases) {
    EXPECT_EQ(FaultOf(Names + Case.Hunk), Case.Fault) << Case.Hunk;
  }
}

TEST(DiffReader, WantsOneKindOfLineEnds) {
  const std::string Diff =
      "--- a\r\n+++ b\r\n@@ -1,1 +0,0 @@ text removed \r\n-; a\r\n"
      "@@ 1 text removed @@\r\n";
  EXPECT_EQ(FaultOf(Diff), "");
  std::size_t LineNumber = 0;
  for (std::size_t At = Diff.find('\r'); At != std::string::npos; At = Diff.find('\r', At + 1)) {
    if (++LineNumber == 1) {
      continue;
    }
    std::string Mixed = Diff;
    Mixed.erase(At, 1);
    EXPECT_EQ(FaultOf(Mixed),
              std::to_string(LineNumber) + ": the line does not end in CRLF, as those before do");
  }
  EXPECT_EQ(FaultOf("--- a\r\n\n"), "2: the line does not end in CRLF, as those before do");
}

}  // namespace
