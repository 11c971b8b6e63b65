// What rules do with a text as pictures: trrule why --format html.

#include "ProgramRun.h"
#include "SvgReading.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const char* const Grammar =
    "{NP,4}\nNP::NP : [ADJ N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n((x1 num) = (x2 num))\n"
    "((y1 gen) = (y2 gen))\n"
    "{NP,5}\nNP::NP : [\"the\" ADJ N \"now\"] -> [\"el\" N ADJ]\n(X2::Y3)\n(X3::Y2)\n"
    "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n((y0 gen) = m)\n"
    "{ADJ,1}\nADJ::ADJ : [\"red\"] -> [\"rojas\"]\n(X1::Y1)\n((x0 num) = pl)\n((y0 gen) = f)\n";

class DiagnosisPictures : public testing::Test {
 protected:
  DiagnosisPictures() { Folder.Write("g.trr", Grammar); }

  ChildEnd Run(const Strings& vsArguments) {
    Strings vsAll{"why"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    return RunTrrule(vsAll, Folder.Path(""), "/dev/null");
  }

  TestFolder Folder;
};

Strings TextsOf(const XmlElement& Page, const std::string& Name) {
  Strings vsTexts;
  for (const XmlElement* Found : ElementsOf(Page, Name)) {
    vsTexts.push_back(Found->Text);
  }
  return vsTexts;
}

/// How many boxes each constituent has that are within others.
std::map<std::string, int> FramesOf(const XmlElement& Svg) {
  std::map<std::string, int> Frames;
  for (const XmlElement* Group : ElementsOf(Svg, "g")) {
    for (const XmlElement* Box : ElementsOf(*Group, "rect")) {
      Frames[Group->ssAttributes.at("data-constituent")] +=
          static_cast<int>(Box->ssAttributes.at("rx") == "2");
    }
  }
  return Frames;
}

TEST_F(DiagnosisPictures, MarkTheNodeThatFailsWithBothValuesAndTheirPlaces) {
  const ChildEnd End = Run({"NP,4", "g.trr", "--text", "red car", "--format", "html"});
  EXPECT_EQ(End.Status, 0);
  EXPECT_EQ(End.Err, "");
  const XmlElement Page = ReadXml(End.Out);
  EXPECT_EQ(UnknownIn(*ElementsOf(Page, "svg").front()), Strings{});
  EXPECT_EQ(TextsOf(Page, "h1"), Strings{"What rules do with \"red car\""});
  EXPECT_EQ(TextsOf(Page, "h2"), Strings{"g.trr:2: {NP,4} NP::NP : [ADJ N] -> [N ADJ]"});
  EXPECT_EQ(TextsOf(Page, "p"),
            (Strings{"NP,4 fits x1–x2 at \"red car\"; it fails at ((x1 num) = (x2 num)), line 5: "
                     "x1 has PL from g.trr:19, x2 has SG from g.trr:14; and at ((y1 gen) = (y2 "
                     "gen)), line 6: y1 has M from g.trr:15, y2 has F from g.trr:20",
                     "NP,4 does not begin at \"car\"; x1 wants ADJ::ADJ, and at \"car\" begins "
                     "N::N \"car\""}));
  EXPECT_EQ(TextsOf(Page, "text"), (Strings{"NP",
                                            "1 {NP,4}",
                                            "fails: ((x1 num) = (x2 num)), line 5",
                                            "ADJ",
                                            "2 {ADJ,1}",
                                            "NUM: PL from g.trr:19",
                                            "red",
                                            "N",
                                            "3 {N,1}",
                                            "NUM: SG from g.trr:14",
                                            "car",
                                            "NP",
                                            "1 {NP,4}",
                                            "fails: ((y1 gen) = (y2 gen)), line 6",
                                            "N",
                                            "3 {N,1}",
                                            "GEN: M from g.trr:15",
                                            "auto",
                                            "ADJ",
                                            "2 {ADJ,1}",
                                            "GEN: F from g.trr:20",
                                            "rojas"}));
  EXPECT_EQ(FramesOf(Page), (std::map<std::string, int>{{"1", 2}, {"2", 0}, {"3", 0}}));
  EXPECT_EQ(TextsOf(Page, "li"),
            (Strings{"g.trr:2", "g.trr:17 [NUM=PL] -> [GEN=F]", "g.trr:12 [NUM=SG] -> [GEN=M]"}));
  EXPECT_EQ(ElementsOf(Page, "desc").front()->Text,
            "1: NP becomes NP by {NP,4}, of 2 3; fails: ((x1 num) = (x2 num)), line 5; fails: ((y1 "
            "gen) = (y2 gen)), line 6. 2: ADJ becomes ADJ by {ADJ,1}; NUM: PL from g.trr:19; GEN: "
            "F from g.trr:20. 3: N becomes N by {N,1}; NUM: SG from g.trr:14; GEN: M from "
            "g.trr:15.");
}

TEST_F(DiagnosisPictures, MarkTheComponentAtWhichARuleStops) {
  const ChildEnd End = Run({"NP,5", "g.trr", "--text", "the red car", "--format", "html"});
  EXPECT_EQ(End.Status, 0);
  const XmlElement Page = ReadXml(End.Out);
  EXPECT_EQ(TextsOf(Page, "text"),
            (Strings{"NP", "1 {NP,5}", "\"THE\"", "2 x1", "ADJ", "3 x2", "N", "4 x3", "\"NOW\"",
                     "5 x4", "x4 wants the word \"NOW\", and the text", "ends there", "NP",
                     "1 {NP,5}", "el", "N", "4 x3", "ADJ", "3 x2"}));
  EXPECT_EQ(FramesOf(Page),
            (std::map<std::string, int>{{"1", 0}, {"2", 0}, {"3", 0}, {"4", 0}, {"5", 1}}));
  EXPECT_EQ(ElementsOf(Page, "svg").size(), 1U);
  EXPECT_EQ(ElementsOf(Page, "details").size(), 0U);
}

TEST_F(DiagnosisPictures, CountComponentsFromTheSideThatIsRead) {
  const ChildEnd End = Run({"NP,5", "g.trr", "--reverse", "--text", "el auto", "--format", "html"});
  EXPECT_EQ(TextsOf(ReadXml(End.Out), "text"),
            (Strings{"NP", "1 {NP,5}", "\"EL\"", "2 y1", "N", "3 y2", "ADJ", "4 y3",
                     "y3 wants ADJ::ADJ, and the text ends there", "NP", "1 {NP,5}", "the", "ADJ",
                     "4 y3", "N", "3 y2", "now"}));
}

TEST_F(DiagnosisPictures, ShowWhatIsMadeAndWhatIsWanted) {
  Folder.Write("unary.trr",
               "{V,1}\nV::V : [V] -> [V]\n(X1::Y1)\n((x1 num) = pl)\n"
               "{V,2}\nV::V : [\"go\"] -> [\"va\"]\n(X1::Y1)\n((x0 num) = sg)\n"
               "{W,1}\nW::W : [W] -> [W]\n(X1::Y1)\n"
               "{W,2}\nW::W : [\"so\"] -> [\"asi\"]\n(X1::Y1)\n");
  const ChildEnd Go = Run({"V,1", "V,2", "unary.trr", "--text", "go", "--format", "html"});
  EXPECT_EQ(TextsOf(ReadXml(Go.Out), "text"),
            (Strings{"V", "1 {V,1}", "fails: ((x1 num) = pl), line 4", "V", "2 {V,2}",
                     "NUM: SG from unary.trr:8", "wanted: PL", "go", "V", "1 {V,1}", "V", "2 {V,2}",
                     "va",  // of V,1
                     "V", "1 {V,2}", "go", "V", "1 {V,2}", "va"}));
  const ChildEnd So = Run({"W,1", "unary.trr", "--text", "so", "--format", "html"});
  const Strings vsTexts = TextsOf(ReadXml(So.Out), "text");
  EXPECT_EQ(vsTexts, (Strings{"W",       "1 {W,1}", "W",
                              "2 {W,2}", "so",      "W",
                              "1 {W,1}", "W",       "2 {W,2}",
                              "asi",  // what it makes, and what it makes nothing of
                              "W",       "1 {W,1}", "makes nothing",
                              "W",       "2 {W,1}", "W",
                              "3 {W,2}", "so",      "W",
                              "1 {W,1}", "W",       "2 {W,1}",
                              "W",       "3 {W,2}", "asi"}));
}

TEST_F(DiagnosisPictures, AreNotThereForWhatIsLeftOutOrHasNoWords) {
  Folder.Write("bad.trr",
               "{NP,1}\nNP::NP : [\"a\" N] -> [N N]\n(X2::Y1)\n{N,1}\nN::N : [\"<\"] -> "
               "[\"&\"]\n(X1::Y1)\n");
  const ChildEnd End = Run({"NP,1", "N,1", "bad.trr", "--text", "", "--format", "html"});
  EXPECT_EQ(End.Status, 1);
  const XmlElement Page = ReadXml(End.Out);
  EXPECT_EQ(TextsOf(Page, "h2"), (Strings{"bad.trr:2: {NP,1} NP::NP : [\"a\" N] -> [N N]",
                                          "bad.trr:5: {N,1} N::N : [\"<\"] -> [\"&\"]"}));
  EXPECT_EQ(TextsOf(Page, "p"),
            (Strings{"NP,1 is left out: bad.trr:2:24: error TR015: the target component has no "
                     "source to come from",
                     "N,1 has nothing to do: the text has no words"}));
  EXPECT_EQ(ElementsOf(Page, "svg").size(), 0U);
}

}  // namespace
