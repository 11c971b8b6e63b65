// What the library reads from the normal form is what it reads from the rule.

#include "GrammarPaths.h"
#include "GrammarSupport.h"
#include "RuleGenerator.h"
#include "support/NormalFormMeaning.h"
#include "support/RandomInput.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

/// How many rules of a text were compared.
std::size_t ExpectSameMeaning(const std::string& Text) {
  std::size_t Compared = 0;
  Grammar::RuleRecord Record;
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    if (Record.Read(Rule) && !IsReadOtherwise(Record.Lines())) {
      std::string Form;
      AppendNormalForm(Record, {}, Form);
      EXPECT_TRUE(ReadsTheSame(Rule.Text, Form)) << "--- rule\n"
                                                 << Rule.Text << "--- form\n"
                                                 << Form;
      ++Compared;
    }
  }
  return Compared;
}

TEST(NormalFormMeaning, IsThatOfEveryRuleOfTheCorpora) {
  std::size_t Compared = 0;
  for (const char* Folder : {"fuzz/corpus", "tests/regressions", "examples/grammar"}) {
    const std::filesystem::path Root = std::filesystem::path(GrammarPaths::SourceFolder) / Folder;
    for (const auto& Entry : std::filesystem::recursive_directory_iterator(Root)) {
      if (Entry.is_regular_file()) {
        std::ifstream File(Entry.path(), std::ios::binary);
        Compared += ExpectSameMeaning(std::string((std::istreambuf_iterator<char>(File)), {}));
      }
    }
  }
  EXPECT_GT(Compared, 50U);
}

TEST(NormalFormMeaning, IsThatOfGeneratedRules) {
  std::size_t Compared = 0;
  for (const std::string& sRule : GeneratedRules(41, 1000)) {
    Compared += ExpectSameMeaning(sRule);
  }
  EXPECT_EQ(Compared, 1000U);
}

TEST(NormalFormMeaning, IsThatOfDamagedRules) {
  RandomInput Random;
  std::vector<std::string> vsRules = GeneratedRules(42, 50);
  vsRules.push_back(SampleText);
  std::size_t Compared = 0;
  for (int Round = 0; Round < 20000; ++Round) {
    const std::string sRule = Random.Pick(vsRules);
    Compared += ExpectSameMeaning(Random.Damaged(sRule, "()[]{}=:;,\"\n\r\txyXY0123_ *-%ab"));
  }
  EXPECT_GT(Compared, 1000U);
}

TEST(NormalFormMeaning, IsThatOfConstraintsInAnyWriting) {
  RandomInput Random;
  const Strings vsPieces{"(",  "(",     ")",      ")",     "x1",     "X01",  "y0", "y2", " ",
                         " ",  "=",     " = ",    "==",    "num",    "NUM ", "a",  "A_", "__",
                         "_",  "*or* ", "*NOT* ", "(*or*", "(*not*", "sg",   "pl", "X",  "\t",
                         "\"", "1",     "next",   "a b",   "))",     "(("};
  std::size_t Compared = 0;
  for (int Round = 0; Round < 20000; ++Round) {
    std::string Text = "NP::NP : [A \"b\"] -> [\"a\" B]\n(X1::Y1)\n";
    for (int Line = 0; Line < 3; ++Line) {
      Text += Random.Damaged(Random.Pick(ConstraintSamples), "()= xy012_*abor\t");
      Text += '\n';
      Text += Random.WordsOf(vsPieces, 10) + '\n';
    }
    Compared += ExpectSameMeaning(Text);
  }
  EXPECT_GT(Compared, 100U);
}

}  // namespace
