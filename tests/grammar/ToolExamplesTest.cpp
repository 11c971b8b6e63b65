// The worked examples in the headers of tools/ are compiled, run and compared with the results that
// they show: tests/header_examples.py generates one test for each example.

#include "ToolExamples.h"

#include "GrammarPaths.h"
#include "GrammarSupport.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

const std::string Phrase =
    "{NP,8}\nNP::NP : [\"the\" ADJ N] -> [\"el\" N ADJ]\n(X2::Y3)\n(X3::Y2)\n"
    "((x0 num) = (x3 num))\n";
const std::string Words =
    "ADJ::ADJ : [\"red\"] -> [\"rojo\"]\n(X1::Y1)\n"
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n";
const std::string Agreement =
    ";;SL: a car\n;;TL: un auto\n;;*SL: a cars\n"
    "{NP,1}\nNP::NP : [DET N] -> [DET N]\n(X1::Y1)\n(X2::Y2)\n((x1 num) = (x2 num))\n"
    "DET::DET : [\"a\"] -> [\"un\"]\n(X1::Y1)\n((x0 num) = sg)\n"
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n"
    "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n((x0 num) = pl)\n";

std::string ContentsOf(const std::filesystem::path& Path) {
  std::ifstream File(Path);
  return {std::istreambuf_iterator<char>(File), {}};
}

}  // namespace

ToolExamples::ToolExamples() : Text(RulesOf(Phrase).at(0)), Cars(Words + Phrase) {
  Lines.Read(Text);
  Record.Read(Text);
  Grammar::OutlineMaker().Make(Lines, Outline);
  Shapes.Add(Text, Outline);
  Shapes.Finish();
  Parsed.Parse("the red car", Translate::ChartLimits(), Equations);
  Whole = Parsed.FindCell(0, 3)->FirstConstituent;
  std::filesystem::current_path(Folder.Path(""));
  Folder.Write("np.trr", Agreement);
  Tested.Load({"np.trr"}, true);
}

ToolExamples::~ToolExamples() {
  std::filesystem::current_path(OldFolder);
}

std::unique_ptr<Examples::TestedGrammar> ToolExamples::LoadWith(const std::string& Old,
                                                                const std::string& New) const {
  std::string Changed = Agreement;
  Changed.replace(Changed.find(Old), Old.size(), New);
  Folder.Write("np.trr", Changed);
  auto Loaded = std::make_unique<Examples::TestedGrammar>(Translate::RuleSetOptions{}, true);
  Loaded->KeepLines();
  Loaded->Load({"np.trr"}, true);
  return Loaded;
}

TEST(HeaderExamples, CoverEveryHeaderThatHasOne) {
  int Headers = 0;
  const std::filesystem::path Folder = std::string(GrammarPaths::SourceFolder) + "/tools";
  for (const auto& Entry : std::filesystem::recursive_directory_iterator(Folder)) {
    if (Entry.path().extension() == ".h") {
      Headers += ContentsOf(Entry.path()).find("/// @code\n") != std::string::npos ? 1 : 0;
    }
  }
  EXPECT_EQ(HeaderExamples::Headers(), Headers);
}

TEST(HeaderExamples, CompareTheirResults) {
  // Fewer would mean that values are no longer found after the statements.
  EXPECT_GE(HeaderExamples::Comparisons(), 100);
}
