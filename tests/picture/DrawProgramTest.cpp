// The command as a program: forms, outputs, statuses and messages.

#include "ProgramRun.h"
#include "SvgReading.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;

const char* const TwoRules =
    "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n\n{np,1}\nNP::NP : [DET N] -> [N]\n(X2::Y1)\n";

const char* const FirstPicture =
    " ╭─────╮   ┌─────┐\n │ NP  │   │  N  │\n │ x0  │   │ x1  │\n ╰─────╯   └──┬──┘\n"
    "              │\n"
    " ╭─────╮   ┌──┴──┐\n │ NP  │   │  N  │\n │ y0  │   │ y1  │\n ╰─────╯   └─────┘\n\n"
    "{NP,1}, NP::NP\n";

/// A folder with "a.trr", which has two rules.
class DrawProgram : public testing::Test {
 protected:
  DrawProgram() { Folder.Write("a.trr", TwoRules); }

  /// Runs the command in the folder and expects what it says and how it ends.
  void Expect(const Strings& vsArguments, int Status, const std::string& Out,
              const std::string& Err) {
    Strings vsAll{"draw"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    const ChildEnd End = RunTrrule(vsAll, Folder.Path(""));
    EXPECT_EQ(End.Status, Status);
    EXPECT_EQ(End.Out, Out);
    EXPECT_EQ(End.Err, Err);
  }

  TestFolder Folder;
};

TEST_F(DrawProgram, DrawsTheRulesThatAreNamed) {
  Expect({"--rule", "a.trr:3", "a.trr"}, 0, FirstPicture, "");
  Expect({"--rule", "a.trr:1", "--rule", "XP,1", "a.trr"}, 1, FirstPicture,
         "trrule: no rule fits XP,1\n");
  Expect({"--rule", "VERB,77", "a.trr"}, 1, "", "trrule: no rule fits VERB,77\n");
}

TEST_F(DrawProgram, KnowsTheNearestName) {
  Folder.Write("c.trr", "{PHRASE,12}\nNP::NP : [N] -> [N]\n(X1::Y1)\n");
  Expect({"--rule", "PHRASES,12", "c.trr"}, 1, "",
         "trrule: no rule fits PHRASES,12; did you mean PHRASE,12?\n");
}

TEST_F(DrawProgram, SeparatesPicturesByABlankLine) {
  const ChildEnd End = RunTrrule({"draw", "a.trr"}, Folder.Path(""));
  EXPECT_EQ(End.Out.substr(0, std::string(FirstPicture).size() + 5),
            FirstPicture + std::string("\n ╭"));
}

TEST_F(DrawProgram, WritesTheFormThatTheOutputNames) {
  Expect({"--rule", "a.trr:2", "-o", "one.svg", "a.trr"}, 0, "", "");
  EXPECT_EQ(ReadXml(Folder.Read("one.svg")).Name, "svg");
  for (const char* Name : {"all.html", "all.htm"}) {
    Expect({"-o", Name, "a.trr"}, 0, "", "");
    const XmlElement Page = ReadXml(Folder.Read(Name));
    EXPECT_EQ(ElementsOf(Page, "svg").size(), 2U);
    EXPECT_EQ(ElementsOf(Page, "h2").at(1)->Text, "a.trr:6");
  }
  Expect({"--rule", "a.trr:2", "-o", "one.txt", "a.trr"}, 0, "", "");
  EXPECT_EQ(Folder.Read("one.txt"), FirstPicture);
  Expect({"--rule", "a.trr:2", "--format", "text", "-o", "text.svg", "a.trr"}, 0, "", "");
  EXPECT_EQ(Folder.Read("text.svg"), FirstPicture);
  const ChildEnd Svg =
      RunTrrule({"draw", "--format", "svg", "--rule", "a.trr:1", "a.trr"}, Folder.Path(""));
  EXPECT_EQ(Svg.Out, Folder.Read("one.svg"));
}

TEST_F(DrawProgram, WritesOnePictureIntoAFileOfSvg) {
  Expect({"-o", "two.svg", "a.trr"}, 2, "",
         "trrule: a file holds one picture in SVG: name one rule by --rule, give -o a folder, or "
         "choose --format html\n");
  EXPECT_EQ(Folder.Names(), StringSet{"a.trr"});
}

TEST_F(DrawProgram, WritesAFileForEachRuleIntoAFolder) {
  Folder.Write("b.trr", "NP::NP : [N] -> [N]\n(X1::Y1)\n{}\nNP::NP : [N] -> [N]\n(X1::Y1)\n");
  Expect({"-o", "deep/er/", "a.trr", "b.trr"}, 0, "", "");
  const auto NamesIn = [&](const std::string& Name) {
    StringSet ssNames;
    for (const auto& Entry : std::filesystem::directory_iterator(Folder.Path(Name))) {
      ssNames.insert(Entry.path().filename().string());
    }
    return ssNames;
  };
  EXPECT_EQ(NamesIn("deep/er"), (StringSet{"NP-1.svg", "np-1-2.svg", "b-trr-1.svg", "rule-2.svg"}));
  std::filesystem::create_directory(Folder.Path("pages"));
  Expect({"--format", "html", "-o", "pages", "a.trr"}, 0, "", "");
  EXPECT_EQ(NamesIn("pages"), (StringSet{"NP-1.html", "np-1-2.html"}));
  EXPECT_EQ(ElementsOf(ReadXml(Folder.Read("pages/NP-1.html")), "svg").size(), 1U);
  Expect({"--format", "text", "-o", "pages", "a.trr"}, 0, "", "");
  EXPECT_EQ(Folder.Read("pages/NP-1.txt"), FirstPicture);
  Expect({"-o", "a.trr/", "a.trr"}, 2, "", "trrule: cannot make the folder a.trr/: File exists\n");
}

TEST_F(DrawProgram, ReportsWhatOtherCommandsReport) {
  Folder.Write("bad.trr",
               "{NP,1}\nNP::NP : [N] -> [N]\n(X1::Y1)\n((x1 num = sg)\n{NP,2}\n(X1::Y1)\n");
  const ChildEnd End = RunTrrule({"draw", "bad.trr"}, Folder.Path(""));
  EXPECT_EQ(End.Status, 1);
  EXPECT_EQ(End.Out, FirstPicture + std::string("((x1 num = sg): this cannot be read\n"));
  EXPECT_EQ(
      End.Err,
      RunTrrule({"print", "bad.trr"}, Folder.Path("")).Err.substr(0, End.Err.rfind("1 of 2")) +
          "1 of 2 rules was left out\n");
  Expect({"--rule", "NP,7", "bad.trr"}, 1, "", "trrule: no rule fits NP,7\n");
  Expect({"-o", "folder/", "bad.trr"}, 1, "", End.Err);
}

TEST_F(DrawProgram, GoesOnBehindAFileThatCannotBeRead) {
  const std::string Missing = "trrule: cannot read none.trr: No such file or directory\n";
  Expect({"--rule", "a.trr:1", "none.trr", "a.trr"}, 2, FirstPicture, Missing);
  Expect({"--rule", "a.trr:1", "-o", "folder/", "none.trr", "a.trr"}, 2, "", Missing);
  Expect({"--rule", "a.trr:1", "-o", "a.txt", "none.trr", "a.trr"}, 2, "",
         Missing +
             "trrule: did not write a.txt: not all inputs could be read (--force writes it all the "
             "same)\n");
  Expect({"--rule", "a.trr:1", "-o", "a.txt", "--force", "none.trr", "a.trr"}, 2, "", Missing);
  EXPECT_EQ(Folder.Read("a.txt"), FirstPicture);
}

TEST_F(DrawProgram, NeverReplacesAnInput) {
  Expect({"-o", "a.trr", "a.trr"}, 2, "",
         "trrule: did not replace a.trr: it is an input, and no picture\n");
  EXPECT_EQ(Folder.Read("a.trr"), TwoRules);
}

TEST_F(DrawProgram, DoesNotDrawPiecesOfARuleThatIsTooLong) {
  Folder.Write("long.trr", "NP::NP : [N] -> [N]\n(X1::Y1)\n" + std::string(3U << 20U, 'x') + "\n");
  const ChildEnd End = RunTrrule({"draw", "long.trr"}, Folder.Path(""));
  EXPECT_EQ(End.Status, 1);
  EXPECT_EQ(End.Out, "");
  EXPECT_NE(End.Err.find("1 of 1 rule was left out\n"), std::string::npos);
}

TEST_F(DrawProgram, TakesTheWidthThatIsGiven) {
  Expect({"--rule", "a.trr:1", "--width", "20", "a.trr"}, 0, FirstPicture, "");
  Expect({"--width", "19", "a.trr"}, 2, "", "trrule: --width: Value 19 not in range 20 to 10000\n");
}

}  // namespace
