// The command as a program: forms, outputs, statuses and messages.

#include "Histogram.h"
#include "ProgramRun.h"
#include "SvgWriter.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const char* const FirstRule =
    ";;SL: the car\r\n{NP,1}\nnp::NP :  [DET N] -> [\"el\" N]  ;; as written\n\n(X2::Y2)\n";
const char* const SecondRule = "{NP,2}\nNP::NP : [N ADJ] -> [ADJ N]\n(X1::Y2)\n(X2::Y1)\n";

/// A folder with "a.trr", which has two rules that can be read and one that cannot.
class FindRun {
 public:
  FindRun() {
    Folder.Write("a.trr",
                 "\n\n" + std::string(FirstRule) + "\n\n{NP,3}\n(X1::Y1)\n\n" + SecondRule);
  }

  /// Runs the command in the folder and expects what it says and how it ends.
  void Expect(const Strings& vsArguments, int Status, const std::string& Out,
              const std::string& Err = Unread) const {
    Strings vsAll{"find"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    const ChildEnd End = RunTrrule(vsAll, Folder.Path(""));
    EXPECT_EQ(End.Status, Status);
    EXPECT_EQ(End.Out, Out);
    EXPECT_EQ(End.Err, Err);
  }

  static constexpr const char* Unread =
      "a.trr:10:1: error TR001: the rule has no rule line\n1 of 3 rules was left out\n";

  TestFolder Folder;
};

}  // namespace

TEST(FindProgram, WritesRulesAsTheyStand) {
  const FindRun Run;
  Run.Expect({"monotone", "a.trr"}, 0, FirstRule);
  Run.Expect({"crossing", "a.trr"}, 0, SecondRule);
  Run.Expect({"NP::NP", "a.trr", "--threads", "3"}, 0, FirstRule + std::string("\n") + SecondRule);
  Run.Expect({"[V]", "a.trr"}, 1, "");
}

TEST(FindProgram, EndsTheLastLine) {
  const FindRun Run;
  Run.Folder.Write("b.trr", "{NP,4}\nNP::NP : [V] -> [V]\n(X1::Y1)");
  Run.Expect({"[V]", "b.trr", "b.trr"}, 0,
             "{NP,4}\nNP::NP : [V] -> [V]\n(X1::Y1)\n\n{NP,4}\nNP::NP : [V] -> [V]\n(X1::Y1)\n",
             "");
}

TEST(FindProgram, WritesTheFormThatIsAskedFor) {
  const FindRun Run;
  Run.Expect({"[N]", "a.trr", "--format", "count"}, 0, "2\n");
  Run.Expect({"[V]", "a.trr", "--format", "count"}, 1, "0\n");
  Run.Expect({"[N]", "a.trr", "--format", "rules"}, 0, FirstRule + std::string("\n") + SecondRule);
  const ChildEnd Json = RunTrrule({"json", "a.trr"}, Run.Folder.Path(""));
  Run.Expect({"[N]", "a.trr", "--format", "json"}, 0, Json.Out);
}

TEST(FindProgram, CountsTheRulesOfEachGroup) {
  const FindRun Run;
  Run.Expect({"[N]", "a.trr", "--count-by", "type"}, 0, "2  NP::NP\n");
  Run.Expect({"[N]", "a.trr", "--count-by", "label", "--format", "count"}, 0,
             "2  N\n1  ADJ\n1  DET\n");
  Run.Expect({"[N]", "a.trr", "--count-by", "literal"}, 0, "1  \"el\"\n");
  // A rule in no group was found all the same.
  Run.Expect({"crossing", "a.trr", "--count-by", "literal"}, 0, "");
  Run.Expect({"[V]", "a.trr", "--count-by", "type"}, 1, "");
  Run.Expect({"[N]", "a.trr", "--count-by", "shape", "--format", "json"}, 0,
             "{\"shape\":\"crossing 1:1\",\"rules\":1}\n"
             "{\"shape\":\"monotone 1:1 unaligned\",\"rules\":1}\n");
  Run.Expect({"[N]", "a.trr", "--count-by", "type", "--format", "rules"}, 2, "",
             "trrule: --count-by writes no rules: choose --format count, json or svg\n");
}

TEST(FindProgram, DrawsWhatItFinds) {
  const FindRun Run;
  const ChildEnd Drawn =
      RunTrrule({"draw", "--rule", "NP,2", "--format", "svg", "a.trr"}, Run.Folder.Path(""));
  Run.Expect({"crossing", "a.trr", "--format", "svg"}, 0, Drawn.Out);
  Run.Expect({"[N]", "a.trr", "--format", "svg", "-o", "found/"}, 0, "");
  EXPECT_EQ(Run.Folder.Read("found/NP-1.svg").substr(0, 4), "<svg");
  EXPECT_EQ(Run.Folder.Read("found/NP-2.svg"), Drawn.Out);
  Run.Expect({"[V]", "a.trr", "--format", "svg"}, 1, "");
  const ChildEnd Many = RunTrrule({"find", "[N]", "a.trr", "--format", "svg"}, Run.Folder.Path(""));
  EXPECT_EQ(Many.Status, 2);
  EXPECT_EQ(Many.Err,
            "a.trr:10:1: error TR001: the rule has no rule line\n"
            "trrule: a file holds one picture in SVG: give -o a folder\n");
}

TEST(FindProgram, DrawsTheGroups) {
  const FindRun Run;
  Picture::Histogram Bars("Rules by label");
  Bars.Add("N", 2);
  Bars.Add("ADJ", 1);
  Bars.Add("DET", 1);
  Picture::Drawing Shapes;
  Bars.Draw(Shapes);
  std::string Svg;
  Picture::AppendSvg(Shapes, {}, Svg);
  Run.Expect({"[N]", "a.trr", "--count-by", "label", "--format", "svg"}, 0, Svg);
}

TEST(FindProgram, ShowsWhereAQueryIsWrong) {
  const FindRun Run;
  Run.Expect({"[DET N", "a.trr"}, 2, "",
             "trrule: invalid query: expected a label, a literal in quotes, \"?\", \"*\", \"$\" or "
             "\"]\"\n  [DET N\n        ^\n");
  Run.Expect({"", "a.trr"}, 2, "",
             "trrule: invalid query: expected a condition such as [DET N], NP::NP, crossing or "
             "y:num = sg\n  \n  ^\n");
  Run.Expect({}, 2, "", "trrule: QUERY is required\n");
}

TEST(FindProgram, FailsWhereAFileCannotBeRead) {
  const FindRun Run;
  Run.Expect(
      {"crossing", "none.trr", "a.trr"}, 2, SecondRule,
      "trrule: cannot read none.trr: No such file or directory\n" + std::string(FindRun::Unread));
}

TEST(FindProgram, ReplacesNoInputByAPartOfIt) {
  const FindRun Run;
  const std::string Before = Run.Folder.Read("a.trr");
  Run.Expect(
      {"[DET]", "a.trr", "-o", "a.trr"}, 2, "",
      std::string(FindRun::Unread) +
          "trrule: did not replace a.trr: it is an input, and what was left out would be lost "
          "(--force drops it)\n");
  EXPECT_EQ(Run.Folder.Read("a.trr"), Before);
  Run.Expect({"[DET]", "a.trr", "-o", "a.trr", "--force"}, 0, "");
  EXPECT_EQ(Run.Folder.Read("a.trr"), FirstRule);
}

TEST(FindProgram, ReadsStandardInput) {
  const FindRun Run;
  const ChildEnd End = RunTrrule({"find", "[DET]", "--format", "count"}, Run.Folder.Path(""),
                                 Run.Folder.Path("a.trr"));
  EXPECT_EQ(End.Status, 0);
  EXPECT_EQ(End.Out, "1\n");
}

TEST(FindProgram, WritesTheSameWithAnyNumberOfThreads) {
  const FindRun Run;
  std::string Rules;
  for (int Number = 0; Number < 4000; ++Number) {
    const std::string Text = std::to_string(Number);
    Rules += "{NP," + Text + "}\nNP::NP : [A" + std::to_string(Number % 7) +
             " N] -> [N]\n(X2::Y1)\n" + (Number % 50 == 0 ? "(X3:Y1)\n" : "") + "((x1 f) = v" +
             Text + ")\n";
  }
  Run.Folder.Write("many.trr", Rules);
  for (const Strings& vsForm : {Strings{"--format", "rules"}, Strings{"--format", "json"},
                                Strings{"--format", "count"}, Strings{"--count-by", "sequence"}}) {
    ChildEnd First;
    for (const char* Threads : {"1", "2", "3", "8"}) {
      Strings vsAll{"find", "[A1|A3|A6]", "many.trr", "--threads", Threads};
      vsAll.insert(vsAll.end(), vsForm.begin(), vsForm.end());
      const ChildEnd End = RunTrrule(vsAll, Run.Folder.Path(""));
      First = Threads[0] == '1' ? End : First;
      EXPECT_EQ(End.Status, 0);
      EXPECT_EQ(End.Out, First.Out) << Threads;
      EXPECT_EQ(End.Err, First.Err) << Threads;
    }
    EXPECT_FALSE(First.Out.empty());
  }
}
