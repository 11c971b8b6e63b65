// The commands diff and patch as programs: outputs, statuses and messages.

#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;

/// A text with NUL bytes in it.
template <std::size_t Size>
std::string Bytes(const char (&Text)[Size]) {
  return std::string(Text, Size - 1);
}

const std::string Old =
    ";; SL: the caf\xE9\n;;Score:3\n{NP,8}\nNP::NP : [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n"
    "((y2 num) = sg)\n)\n\n{NP,9}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n"
    "{VP,1}\nVP::VP : [V NP] -> [V NP]\n(\n(X1::Y1)\n(X2::Y2)\n(y0 = y1)\n)\n"
    "{BAD,1}\nNP::NP : [N] -> [N\n(\n(X1::Y1)\n)\n"
    "{S,1}\nS::S : [NP VP] -> [NP VP]\n(\n(X1::Y1)\n(X2::Y2)\n)\n";

const std::string New =
    "{S,1}\r\nS::S : [NP VP] -> [NP VP]\r\n(\r\n(X2::Y2)\r\n(X1::Y1)\r\n)\r\n" +
    Bytes(
        ";; SL: the caf\xE9\n;;Score:14\n{NP,8}\nNP::NP : [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n"
        "((y2 num) = pl)\n)\n{NP,10}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n"
        "{VP,2}\nVP::VP : [V NP] -> [V NP]\n(\n(X1::Y1)\n(X2::Y2)\n(x0 = x1)\n)\n"
        "{PP,1}\n;; zero \0 byte\nPP::PP : [P NP] -> [P NP]\n(\n(X1::Y1)\n)\n");

const std::string ChangedHunk =
    "# component 2 of the target: N becomes \"el\"\n# alignment (X2::Y2) removed\n"
    "# constraint ((Y2 NUM) = …): SG becomes PL\n# count: 3 becomes 14\n"
    " ;; SL: the caf\xE9\n-;;Score:3\n+;;Score:14\n {NP,8}\n-NP::NP [DET N] -> [DET N]\n"
    "+NP::NP [DET N] -> [DET \"el\"]\n (\n (X1::Y1)\n-(X2::Y2)\n-((Y2 NUM) = SG)\n"
    "+((Y2 NUM) = PL)\n )\n";

const std::string Middle =
    "@@ -10,5 +15,5 @@ renumbered {NP,9} -> {NP,10}: says the same\n"
    "# header: {NP,9} becomes {NP,10}\n-{NP,9}\n+{NP,10}\n NP::NP [N] -> [N]\n (\n (X1::Y1)\n )\n"
    "@@ -16,7 +20,7 @@ changed {VP,1} -> {VP,2}: nearest, 87 % in common\n"
    "# header: {VP,1} becomes {VP,2}\n# constraint (X0 = X1) added\n# constraint (Y0 = Y1) removed\n"
    "-{VP,1}\n+{VP,2}\n VP::VP [V NP] -> [V NP]\n (\n (X1::Y1)\n (X2::Y2)\n-(Y0 = Y1)\n+(X0 = X1)\n"
    " )\n@@ -23,5 +0,0 @@ text removed {BAD,1}\n-{BAD,1}\n-NP::NP : [N] -> [N\n-(\n-(X1::Y1)\n-)\n";

const std::string AddedHunk = Bytes(
    "@@ -0,0 +27,6 @@ added {PP,1}\n+;; zero \0 byte\n+{PP,1}\n+PP::PP [P NP] -> [P NP]\n+(\n"
    "+(X1::Y1)\n+)\n");

const std::string Diff = "--- old.trr\n+++ new.trr\n@@ -1,9 +7,8 @@ changed {NP,8}: same header\n" +
                         ChangedHunk + Middle + AddedHunk +
                         "@@ 2 changed, 1 renumbered, 1 added, 1 text removed @@\n";

/// A folder with the two files.
class DiffProgram : public testing::Test {
 protected:
  DiffProgram() {
    Folder.Write("old.trr", Old);
    Folder.Write("new.trr", New);
  }

  /// Runs the command in the folder and expects what it says and how it ends.
  void Expect(const Strings& vsArguments, int Status, const std::string& Out,
              const std::string& Err, const std::string& Input = "/dev/null") {
    const ChildEnd Expected{Status, Out, Err};
    EXPECT_EQ(RunTrrule(vsArguments, Folder.Path(""), Input), Expected);
  }

  TestFolder Folder;
};

using PatchProgram = DiffProgram;

TEST_F(DiffProgram, ShowsEachDifferenceWithItsReason) {
  Expect({"diff", "old.trr", "new.trr"}, 1, Diff, "");
  for (const char* Threads : {"1", "3"}) {
    Expect({"diff", "--threads", Threads, "--memory", "1M", "old.trr", "new.trr"}, 1, Diff, "");
  }
}

TEST_F(DiffProgram, IsEmptyForOrderAndLayoutAlone) {
  Folder.Write(
      "laid.trr",
      "; \r\n{ S , 01 }\r\nS::S [np VP] -> [NP vp]\r\n(\r\n(x2::y2)\r\n(X1 :: Y1)\r\n)\r\n");
  Folder.Write("plain.trr", "; \n{S,1}\nS::S : [NP VP] -> [NP VP]\n(X1::Y1)\n(X2::Y2)");
  Expect({"diff", "laid.trr", "plain.trr"}, 0, "", "");
  const ChildEnd Printed = RunTrrule({"print", "--keep-bad", "new.trr"}, Folder.Path(""));
  Folder.Write("printed.trr", Printed.Out);
  Expect({"diff", "new.trr", "printed.trr"}, 0, "", "");
  Expect({"diff", "--stat", "new.trr", "printed.trr"}, 0, "", "");
  Expect({"diff", "--format", "json", "new.trr", "printed.trr"}, 0, "", "");
  Expect({"diff", "old.trr", "old.trr"}, 0, "", "");
}

TEST_F(DiffProgram, ShowsMovesWhereTheyAreWanted) {
  const std::string Moved = "@@ -28,0 +1,0 @@ moved {S,1}\n# moved from line 28 to line 1\n";
  Expect({"diff", "--moves", "old.trr", "new.trr"}, 1,
         "--- old.trr\n+++ new.trr\n@@ -1,9 +7,8 @@ changed {NP,8}: same header\n" + ChangedHunk +
             Middle + Moved + AddedHunk +
             "@@ 2 changed, 1 renumbered, 1 added, 1 moved, 1 text removed @@\n",
         "");
  const std::string Noun = "NP::NP : [N] -> [N]\n(X1::Y1)\n";
  Folder.Write("a.trr", "{NP,1}\n" + Noun + "{NP,2}\n" + Noun + "{NP,3}\n" + Noun);
  Folder.Write("b.trr", "{NP,3}\n" + Noun + "; new\n{NP,1}\n" + Noun + "{NP,2}\n" + Noun);
  Folder.Write("c.trr", "{NP,3}\n" + Noun + "{NP,1}\n" + Noun + "; new\n{NP,2}\n" + Noun);
  Expect({"diff", "--moves", "a.trr", "b.trr"}, 1,
         "--- a.trr\n+++ b.trr\n@@ -1,5 +4,6 @@ changed {NP,1}: same header\n"
         "# comment added: ; new\n+; new\n {NP,1}\n NP::NP [N] -> [N]\n (\n (X1::Y1)\n )\n"
         "@@ -7,0 +1,0 @@ moved {NP,3}\n# moved from line 7 to line 1\n"
         "@@ 1 changed, 1 moved @@\n",
         "");
  Expect({"diff", "--moves", "c.trr", "a.trr"}, 1,
         "--- c.trr\n+++ a.trr\n@@ -1,0 +7,0 @@ moved {NP,3}\n# moved from line 1 to line 7\n"
         "@@ -7,6 +4,5 @@ changed {NP,2}: same header\n"
         "# comment removed: ; new\n-; new\n {NP,2}\n NP::NP [N] -> [N]\n (\n (X1::Y1)\n )\n"
         "@@ 1 changed, 1 moved @@\n",
         "");
}

TEST_F(DiffProgram, CountsKindsAndParts) {
  Expect({"diff", "--stat", "old.trr", "new.trr"}, 1,
         "2  changed\n1  renumbered\n1  added\n1  text removed\n2  part: header\n"
         "1  part: target component\n1  part: alignment\n3  part: constraint\n1  part: count\n",
         "");
}

TEST_F(DiffProgram, WritesAnObjectForEachDifference) {
  Folder.Write("a.trr", "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n;; caf\xE9\n");
  Folder.Write("b.trr", Bytes("{NP,1}\nNP::NP : [N] -> [V]\n(X1::Y1)\n;; \0\n{X\n"));
  Expect({"diff", "--format", "json", "a.trr", "b.trr"}, 1,
         "{\"kind\":\"changed\",\"match\":\"header\",\"moved\":false,\"old\":{\"line\":1,\"text\":"
         "\";; caf\xEF\x9F\xA9\\n{NP,1}\\nNP::NP [N] -> [N]\\n(\\n(X1::Y1)\\n)\\n\"},\"new\":{"
         "\"line\":1,\"text\":\"{NP,1}\\nNP::NP [N] -> [V]\\n(\\n(X1::Y1)\\n)\\n\"},\"changes\":["
         "{\"part\":\"target component\",\"component\":1,\"old\":[\"N\"],\"new\":[\"V\"],"
         "\"words\":\"component 1 of the target: N becomes V\"},{\"part\":\"comment\",\"old\":["
         "\";; caf\xEF\x9F\xA9\"],\"new\":[],\"words\":\"comment removed: ;; caf\xEF\x9F\xA9\"}]}\n"
         "{\"kind\":\"text added\",\"moved\":false,\"old\":null,\"new\":{\"line\":4,\"text\":"
         "\";; \\u0000\\n{X\\n\"},\"changes\":[]}\n",
         "");
}

TEST_F(DiffProgram, ColoursLinesAndMarksWords) {
  Folder.Write("a.trr", "{NP,1}\nNP::NP : [DET N] -> [DET ADV]\n(X1::Y1)\n");
  Folder.Write("b.trr", "{NP,1}\nNP::NP : [DET N] -> [DET ADJ]\n(X1::Y1)\n");
  const std::string Coloured =
      "\x1b[1m--- a.trr\x1b[m\n\x1b[1m+++ b.trr\x1b[m\n"
      "\x1b[36m@@ -1,5 +1,5 @@ changed {NP,1}: same header\x1b[m\n"
      "\x1b[33m# component 2 of the target: ADV becomes ADJ\x1b[m\n {NP,1}\n"
      "\x1b[31m-NP::NP [DET N] -> [DET \x1b[7mADV\x1b[27m]\x1b[m\n"
      "\x1b[32m+NP::NP [DET N] -> [DET \x1b[7mADJ\x1b[27m]\x1b[m\n (\n (X1::Y1)\n )\n"
      "\x1b[36m@@ 1 changed @@\x1b[m\n";
  const std::string Plain =
      "--- a.trr\n+++ b.trr\n@@ -1,5 +1,5 @@ changed {NP,1}: same header\n"
      "# component 2 of the target: ADV becomes ADJ\n {NP,1}\n-NP::NP [DET N] -> [DET ADV]\n"
      "+NP::NP [DET N] -> [DET ADJ]\n (\n (X1::Y1)\n )\n@@ 1 changed @@\n";
  Expect({"diff", "--color", "always", "a.trr", "b.trr"}, 1, Coloured, "");
  for (const char* When : {"auto", "never"}) {
    Expect({"diff", "--color", When, "a.trr", "b.trr"}, 1, Plain, "");
  }
  Expect({"diff", "-o", "a.diff", "--color=always", "a.trr", "b.trr"}, 1, "", "");
  EXPECT_EQ(Folder.Read("a.diff"), Coloured);
}

TEST_F(DiffProgram, ReadsStandardInputAndNoRules) {
  Expect({"diff", "-", "new.trr"}, 1, "---" + Diff.substr(3, 1) + "-" + Diff.substr(11), "",
         Folder.Path("old.trr"));
  Folder.Write("a.trr", "NP::NP : [N] -> [N]\n(X1::Y1)\n");
  Expect({"diff", "/dev/null", "a.trr"}, 1,
         "--- /dev/null\n+++ a.trr\n@@ -0,0 +1,4 @@ added NP::NP\n+NP::NP [N] -> [N]\n+(\n"
         "+(X1::Y1)\n+)\n@@ 1 added @@\n",
         "");
  Expect({"diff", "/dev/null", "/dev/null"}, 0, "", "");
}

TEST_F(DiffProgram, ShowsANameWithLineEndsOnOneLine) {
  Folder.Write("a\n@@ b\n.trr", "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n");
  Expect({"diff", "a\n@@ b\n.trr", "/dev/null"}, 1,
         "--- a @@ b .trr\n+++ /dev/null\n@@ -1,5 +0,0 @@ removed {NP,1}\n-{NP,1}\n"
         "-NP::NP [N] -> [N]\n-(\n-(X1::Y1)\n-)\n@@ 1 removed @@\n",
         "");
}

TEST_F(DiffProgram, EndsWithStatus2WhenTheRunFails) {
  Folder.Write("kept.diff", "as it was");
  const std::string Missing = "trrule: cannot read none.trr: No such file or directory\n";
  Expect({"diff", "old.trr", "none.trr"}, 2, "", Missing);
  Expect({"diff", "none.trr", "none.trr"}, 2, "", Missing + Missing);
  Expect({"diff", "-o", "kept.diff", "none.trr", "new.trr"}, 2, "", Missing);
  EXPECT_EQ(Folder.Read("kept.diff"), "as it was");
  Expect({"diff", "-", "-"}, 2, "", "trrule: cannot compare standard input with itself\n");
  Expect({"diff", "old.trr"}, 2, "", "trrule: NEW is required\n");
}

// ---- patch ------------------------------------------------------------------------------------

TEST_F(PatchProgram, MakesTheNewFileOfTheOld) {
  Folder.Write("a.diff", Diff);
  const std::string Changed = Bytes(
      ";; SL: the caf\xE9\n;;Score:14\n{NP,8}\nNP::NP [DET N] -> [DET \"el\"]\n(\n(X1::Y1)\n"
      "((Y2 NUM) = PL)\n)\n{NP,10}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n"
      "{VP,2}\nVP::VP [V NP] -> [V NP]\n(\n(X1::Y1)\n(X2::Y2)\n(X0 = X1)\n)\n"
      "{S,1}\nS::S : [NP VP] -> [NP VP]\n(\n(X1::Y1)\n(X2::Y2)\n)\n"
      ";; zero \0 byte\n{PP,1}\nPP::PP [P NP] -> [P NP]\n(\n(X1::Y1)\n)\n");
  Expect({"patch", "old.trr", "a.diff"}, 0, Changed, "");
  Expect({"patch", "-", "a.diff"}, 0, Changed, "", Folder.Path("old.trr"));
  Expect({"patch", "old.trr", "-"}, 0, Changed, "", Folder.Path("a.diff"));
  Expect({"patch", "-o", "old.trr", "old.trr", "a.diff"}, 0, "", "");
  EXPECT_EQ(Folder.Read("old.trr"), Changed);
  Expect({"diff", "old.trr", "new.trr"}, 0, "", "");
}

TEST_F(PatchProgram, MakesTheOldFileOfTheNewInReverse) {
  Folder.Write("a.diff", Diff);
  Expect({"patch", "--reverse", "-o", "back.trr", "new.trr", "a.diff"}, 0, "", "");
  EXPECT_EQ(Folder.Read("back.trr"),
            "{S,1}\r\nS::S : [NP VP] -> [NP VP]\r\n(\r\n(X2::Y2)\r\n(X1::Y1)\r\n)\r\n"
            ";; SL: the caf\xE9\n;;Score:3\n{NP,8}\nNP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n"
            "(X2::Y2)\n((Y2 NUM) = SG)\n)\n{NP,9}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n"
            "{VP,1}\nVP::VP [V NP] -> [V NP]\n(\n(X1::Y1)\n(X2::Y2)\n(Y0 = Y1)\n)\n"
            "{BAD,1}\nNP::NP : [N] -> [N\n(\n(X1::Y1)\n)\n");
  Expect({"diff", "back.trr", "old.trr"}, 0, "", "");
}

TEST_F(PatchProgram, LeavesWhatTheDiffDoesNotNameAsItIs) {
  Folder.Write("empty.diff", "");
  Expect({"patch", "new.trr", "empty.diff"}, 0, New, "");
  Folder.Write("a.trr",
               "; one\r\n{NP,1}\r\nNP::NP :  [n] -> [n]\r\n(x1::y1)\r\n\r\n{NP,2}\r\n"
               "NP::NP : [V] -> [V]\r\n(x1::y1)\r\n; the end");
  Folder.Write("b.trr",
               "{NP,3}\nNP::NP : [N] -> [N]\n(X1::Y1)\n; one\n{NP,1}\nNP::NP : [n] -> [n]\n"
               "(x1::y1)\n{NP,2}\nNP::NP : [V V] -> [V]\n(x1::y1)\n; the end\n");
  Expect({"diff", "-o", "ab.diff", "a.trr", "b.trr"}, 1, "", "");
  Expect({"patch", "a.trr", "ab.diff"}, 0,
         "; one\r\n{NP,1}\r\nNP::NP :  [n] -> [n]\r\n(x1::y1)\r\n; the end\r\n{NP,2}\r\n"
         "NP::NP [V V] -> [V]\r\n(\r\n(X1::Y1)\r\n)\r\n{NP,3}\r\nNP::NP [N] -> [N]\r\n(\r\n"
         "(X1::Y1)\r\n)\r\n",
         "");
}

TEST_F(PatchProgram, ReadsADiffWithOtherLineEnds) {
  Folder.Write("a.trr", "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n");
  Folder.Write("crlf.diff",
               "--- a\r\n+++ b\r\n@@ -1,5 +0,0 @@ removed {NP,1}\r\n-{NP,1}\r\n"
               "-NP::NP [N] -> [N]\r\n-(\r\n-(X1::Y1)\r\n-)\r\n@@ 1 removed @@\r\n");
  Expect({"patch", "a.trr", "crlf.diff"}, 0, "", "");
}

TEST_F(PatchProgram, TakesOneOfSeveralEqualRules) {
  const std::string Rule = "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n";
  Folder.Write("a.trr", Rule + Rule + Rule);
  Folder.Write("b.trr", Rule);
  Expect({"diff", "-o", "a.diff", "a.trr", "b.trr"}, 1, "", "");
  Expect({"patch", "a.trr", "a.diff"}, 0, Rule, "");
  Expect({"patch", "b.trr", "a.diff"}, 1, "",
         "a.diff:9:1: error: the file does not have this rule\n");
}

TEST_F(PatchProgram, RefusesAFileThatIsNotAsTheDiffExpects) {
  Folder.Write("a.diff", Diff);
  Folder.Write("other.trr",
               "{VP,1}\nVP::VP : [V NP] -> [V]\n(\n(X1::Y1)\n(X2::Y2)\n)\n"
               "; x\n;;Score:4\n{NP,8}\nN::NP : [DET ADJ] -> [DET N]\n(\n(X1::Y1)\n(X2::Y1)\n"
               "((y2 num) = du)\n)\n{NP,10}\nNP::NP : [N] -> [N]\n(\n(X1::Y1)\n)\n");
  Expect({"patch", "-o", "out.trr", "other.trr", "a.diff"}, 1, "",
         "a.diff:3:1: error: {NP,8} is not as the diff expects\n"
         "  source type: expected NP, found N\n"
         "  component 2 of the source: expected N, found ADJ\n"
         "  alignment (X2::Y1): expected none, found (X2::Y1)\n"
         "  alignment (X2::Y2): expected (X2::Y2), found none\n"
         "  constraint ((Y2 NUM) = …): expected SG, found DU\n"
         "  comment: expected ;; SL: the caf\xE9, found none\n"
         "  comment: expected none, found ; x\n"
         "  count: expected 3, found 4\n"
         "  see other.trr:7\n"
         "a.diff:20:1: error: the file already has what the diff makes of this\n"
         "a.diff:28:1: error: {VP,1} is not as the diff expects\n"
         "  target sequence: expected [V NP], found [V]\n"
         "  constraint (Y0 = …): expected Y1, found none\n"
         "  see other.trr:1\n"
         "a.diff:41:1: error: the file does not have this text\n");
  EXPECT_EQ(Folder.Names(), (StringSet{"a.diff", "new.trr", "old.trr", "other.trr"}));
  Folder.Write("none.trr", "");
  Folder.Write("rule.diff",
               "--- a\n+++ b\n@@ -1,4 +0,0 @@ removed NP::NP\n-NP::NP [N] -> [N]\n"
               "-(\n-(X1::Y1)\n-)\n@@ 1 removed @@\n");
  Expect({"patch", "none.trr", "rule.diff"}, 1, "",
         "rule.diff:3:1: error: the file does not have this rule\n");
}

TEST_F(PatchProgram, RefusesWhatIsNoDiff) {
  const std::string Names = "--- a\n+++ b\n";
  const std::string Head = Names + "@@ -1,4 +0,0 @@ removed NP::NP\n";
  const std::string Body = "-NP::NP [N] -> [N]\n-(\n-(X1::Y1)\n-)\n";
  const std::string End = "@@ 1 removed @@\n";
  const std::string NoHead =
      "expected \"@@ -LINE,COUNT +LINE,COUNT @@ KIND\", or the count of all kinds\n";
  const std::string NoLine = "expected a line of the rule, after \" \", \"-\" or \"+\"\n";
  const struct {
    std::string Text;
    std::string Message;
  } Cases[] = {
      {"\n", "1:1: error: expected a line that begins with \"--- \"\n"},
      {"--- a", "1:1: error: the diff ends too early\n"},
      {"--- a\n", "2:1: error: the diff ends too early\n"},
      {"--- a\nb\n", "2:1: error: expected a line that begins with \"+++ \"\n"},
      {Names, "3:1: error: the diff ends too early\n"},
      {Names + "@@ -1,4 +0 @@ removed NP::NP\n", "3:1: error: " + NoHead},
      {Names + "@@ -1,4 +0,0 @@ lost NP::NP\n", "3:1: error: " + NoHead},
      {Names + "@@ -1,99999999999999999999 +0,0 @@ removed NP::NP\n", "3:1: error: " + NoHead},
      {Names + "@@ -1,4 +0,0 @@ added NP::NP\n",
       "3:1: error: the numbers of lines do not fit \"added\"\n"},
      {Names + "@@ 0 removed @@\n", "3:1: error: " + NoHead},
      {Head + Body, "8:1: error: the diff ends too early\n"},
      {Head + Body + "@@ 1 removed @@", "8:1: error: the diff ends too early\n"},
      {Head + Body + "@@ 2 removed @@\n", "8:1: error: " + NoHead},
      {Head + Body + End + "\n",
       "8:1: error: expected nothing after the last line, which counts\n"},
      {Head + "-NP::NP [N] -> [N]\n-(\n-(X1::Y1)\n" + End, "7:1: error: " + NoLine},
      {Head + "-NP::NP [N] -> [N]\n-(\n-(X1::Y1)\n+)\n" + End, "7:1: error: " + NoLine},
      {Head + "-NP::NP [N] -> [N]\n-(\n\n-)\n" + End, "6:1: error: " + NoLine},
      {Head + "# a\n-NP::NP [N] -> [N]\n# b\n", "6:1: error: " + NoLine},
      {Head + "-NP::NP [N] -> [N\n-(\n-(X1::Y1)\n-)\n" + End,
       "3:1: error: the lines that follow are not one rule\n"},
      {"--- a\r\n+++ b\n", "2:1: error: the line does not end in CRLF, as those before do\n"},
  };
  for (const auto& Current : Cases) {
    Folder.Write("a.diff", Current.Text);
    Expect({"patch", "old.trr", "a.diff"}, 1, "", "a.diff:" + Current.Message);
  }
}

TEST_F(PatchProgram, EndsWithStatus2WhenTheRunFails) {
  Folder.Write("a.diff", Diff);
  const std::string Missing = "trrule: cannot read none: No such file or directory\n";
  Expect({"patch", "old.trr", "none"}, 2, "", Missing);
  Expect({"patch", "none", "a.diff"}, 2, "", Missing);
  Expect({"patch", "-", "-"}, 2, "",
         "trrule: cannot read both the file and the diff from standard input\n");
  Expect({"patch", "old.trr"}, 2, "", "trrule: DIFF is required\n");
}

}  // namespace
