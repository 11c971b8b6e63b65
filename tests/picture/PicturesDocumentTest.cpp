// The pictures in the documents are those that the command draws. After a change, draw them again:
// trrule draw -o docs/pictures/ with the grammars on the page, and -o docs/pictures/red-cars.svg
// with examples/expected/ReadAndPrint.txt.

#include "ConsolePage.h"
#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

namespace {

std::string ReadSource(const std::string& Path) {
  std::ifstream File(std::string(GrammarPaths::SourceFolder) + '/' + Path, std::ios::binary);
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

TEST(PicturesDocument, ShowsWhatTheCommandPrints) {
  ExpectConsolesHold("docs/pictures.md", 2);
}

TEST(PicturesDocument, ShowsThePicturesOfItsRules) {
  const TestFolder Folder;
  const auto ssFiles = ReadConsoles("docs/pictures.md").back().ssFiles;
  for (const auto& [sName, sText] : ssFiles) {
    Folder.Write(sName, sText);
  }
  for (const std::vector<std::string>& vsArguments :
       {std::vector<std::string>{"draw", "-o", "drawn/", "red-cars.trr", "of.trr"},
        {"translate", "--text", "the red car", "--format", "svg", "-o", "drawn/the-red-car.svg",
         "words.trr"}}) {
    const ChildEnd End = RunTrrule(vsArguments, Folder.Path(""));
    EXPECT_EQ(End.Status, 0) << End.Err;
  }
  const std::string Page = ReadSource("docs/pictures.md");
  for (const std::string sName : {"NP-4.svg", "NP-9.svg", "the-red-car.svg"}) {
    EXPECT_EQ(ReadSource("docs/pictures/" + sName), Folder.Read("drawn/" + sName));
    EXPECT_NE(Page.find("](pictures/" + sName + ")"), std::string::npos);
  }
}

TEST(PicturesDocument, HasTheRuleThatTheExampleOfTheReadmePrints) {
  const ChildEnd End = RunTrrule({"draw", "--format", "svg", "examples/expected/ReadAndPrint.txt"},
                                 GrammarPaths::SourceFolder);
  EXPECT_EQ(ReadSource("docs/pictures/red-cars.svg"), End.Out);
  EXPECT_NE(ReadSource("README.md").find("](docs/pictures/red-cars.svg)"), std::string::npos);
}

}  // namespace
