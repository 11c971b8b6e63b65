// Derivations as pictures: trrule translate --format svg and html.

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
    "{NP,1}\nNP::NP : [\"the\" A N] -> [\"el\" N A]\n(X2::Y3)\n(X3::Y2)\n((x3 num) = sg)\n"
    "{N,1}\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n"
    "A::A : [\"red\"] -> [\"<rojo>\"]\n(X1::Y1)\n";

class DerivationPictures : public testing::Test {
 protected:
  DerivationPictures() { Folder.Write("g.trr", Grammar); }

  ChildEnd Run(const Strings& vsArguments, const std::string& Input = "") {
    Strings vsAll{"translate"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    return RunTrrule(vsAll, Folder.Path(""), Folder.Write("input", Input));
  }

  TestFolder Folder;
};

/// The texts of the constituents, by number, in the order of the picture.
std::map<std::string, Strings> TextsOf(const XmlElement& Svg) {
  std::map<std::string, Strings> ssTexts;
  for (const XmlElement* Group : ElementsOf(Svg, "g")) {
    for (const XmlElement* Shown : ElementsOf(*Group, "text")) {
      ssTexts[Group->ssAttributes.at("data-constituent")].push_back(Shown->Text);
    }
  }
  return ssTexts;
}

TEST_F(DerivationPictures, HaveEachConstituentInBothTrees) {
  const ChildEnd End = Run({"--text", "the red car", "--format", "svg", "g.trr"});
  EXPECT_EQ(End.Status, 0);
  EXPECT_EQ(End.Err, "");
  const XmlElement Svg = ReadXml(End.Out);
  EXPECT_EQ(UnknownIn(Svg), Strings{});
  EXPECT_EQ(TextsOf(Svg), (std::map<std::string, Strings>{
                              {"1", {"NP", "1 {NP,1}", "the", "NP", "1 {NP,1}", "el"}},
                              {"2", {"A", "2 g.trr:10", "red", "A", "2 g.trr:10", "<rojo>"}},
                              {"3", {"N", "3 {N,1}", "car", "N", "3 {N,1}", "auto"}}}));
  EXPECT_EQ(ElementsOf(Svg, "title").front()->Text, "the red car -> el auto <rojo>");
  EXPECT_EQ(
      ElementsOf(Svg, "desc").front()->Text,
      "1: NP becomes NP by {NP,1}, of 2 3. 2: A becomes A by g.trr:10. 3: N becomes N by {N,1}.");
  EXPECT_EQ(ElementsOf(Svg, "title").back()->Text, "g.trr:10");
  // Two words in each tree are joined; the others belong to the root.
  int Joints = 0;
  for (const XmlElement* Path : ElementsOf(Svg, "path")) {
    Joints += static_cast<int>(Path->ssAttributes.count("stroke-dasharray"));
  }
  EXPECT_EQ(Joints, 2);
}

TEST_F(DerivationPictures, ArePartsOfAPage) {
  Folder.Write("more.trr", "A::A : [\"red\"] -> [\"encarnado\"]\n(X1::Y1)\n");
  const ChildEnd End =
      Run({"-k", "5", "--format", "html", "g.trr", "more.trr"}, "the red car\nthe car\n");
  EXPECT_EQ(End.Status, 1);
  EXPECT_EQ(End.Err, "-:2: error: there is no translation\n");
  const XmlElement Page = ReadXml(End.Out);
  EXPECT_EQ(ElementsOf(Page, "svg").size(), 2U);
  EXPECT_EQ(ElementsOf(Page, "h2").at(0)->Text, "the red car -> el auto <rojo>");
  EXPECT_EQ(ElementsOf(Page, "h2").at(1)->Text, "the red car -> el auto encarnado");
  EXPECT_EQ(ElementsOf(Page, "details").size(), 2U);
  EXPECT_EQ(ElementsOf(Page, "li").at(2)->Text, "g.trr:7 [NUM=SG] -> []");
}

TEST_F(DerivationPictures, ShowThePiecesOfAText) {
  const ChildEnd End = Run({"--partial", "--text", "red bike", "--format", "html", "g.trr"});
  EXPECT_EQ(ElementsOf(ReadXml(End.Out), "h2").at(0)->Text, "red bike -> <rojo>");
  EXPECT_EQ(ElementsOf(ReadXml(End.Out), "svg").size(), 1U);
}

TEST_F(DerivationPictures, AreOneInAFileOfSvg) {
  const ChildEnd End = Run({"--format", "svg", "g.trr", "-o", "two.svg"}, "red\ncar\n");
  EXPECT_EQ(End.Status, 2);
  EXPECT_EQ(End.Err,
            "trrule: a file holds one picture in SVG: give one text, or choose --format html\n");
  EXPECT_EQ(Folder.Names().count("two.svg"), 0U);
}

TEST_F(DerivationPictures, AreNotDrawnWhereTheyAreTooLarge) {
  std::string Doubling = "T0::T0 : [\"a\"] -> [\"b\"]\n(X1::Y1)\n";
  for (int Level = 1; Level <= 14; ++Level) {
    const std::string Type = "T" + std::to_string(Level);
    const std::string Part = "T" + std::to_string(Level - 1);
    Doubling += '{' + Type + ",1}\n" + Type + "::" + Type + " : [" + Part + "] -> [" + Part + ' ' +
                Part + "]\n(X1::Y1)\n(X1::Y2)\n";
  }
  Folder.Write("double.trr", Doubling);
  const ChildEnd End =
      Run({"--start", "T14", "--text", "a", "--max-chain", "20", "--format", "svg", "double.trr"});
  EXPECT_EQ(End.Status, 1);
  EXPECT_EQ(End.Out, "");
  EXPECT_EQ(End.Err,
            "--text:1: error: a derivation has more than 10000 words and constituents, and is not "
            "drawn\n");
}

}  // namespace
