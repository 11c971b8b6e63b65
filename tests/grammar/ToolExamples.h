#pragma once

#include "GrammarShapes.h"
#include "RuleOutline.h"
#include "RuleRecord.h"
#include "SourceRule.h"
#include "TestFolder.h"
#include "TestedGrammar.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

/// What the worked examples in the headers of tools/ start from:
///
///   {NP,8}
///   NP::NP : ["the" ADJ N] -> ["el" N ADJ]
///   (X2::Y3)
///   (X3::Y2)
///   ((x0 num) = (x3 num))
///
/// as text, lines, record, outline and shape; and, with words for ADJ and N, as a grammar that has
/// parsed "the red car". Besides, the examples run in a folder of their own with a grammar that has
/// examples in its comments, np.trr:
///
///   ;;SL: a car
///   ;;TL: un auto
///   ;;*SL: a cars
///   {NP,1}
///   NP::NP : [DET N] -> [DET N]
///   (X1::Y1)
///   (X2::Y2)
///   ((x1 num) = (x2 num))
///
/// and below it the words for DET and N, of which "a" and "car" are singular, "cars" plural.
class ToolExamples : public testing::Test {
 protected:
  ToolExamples();
  ~ToolExamples() override;

  /// What np.trr is with another text in the place of one.
  std::unique_ptr<Examples::TestedGrammar> LoadWith(const std::string& Old,
                                                    const std::string& New) const;

  Grammar::RuleText Text;
  Grammar::SourceRule Lines;
  Grammar::RuleRecord Record;
  Grammar::RuleOutline Outline;
  Grammar::GrammarShapes Shapes;
  std::vector<Grammar::Finding> vFindings;

  TestEngine Cars;
  const Translate::RuleSet& Rules = Cars.Set();
  Translate::Translator& Engine = Cars.Engine;
  Translate::Evaluator Equations{Rules};
  Translate::Chart Parsed{Rules};
  std::uint32_t Whole = 0;  // the constituent of all three words

  std::filesystem::path OldFolder = std::filesystem::current_path();
  TestFolder Folder;
  Examples::TestedGrammar Tested{Translate::RuleSetOptions{}, true};
};

namespace HeaderExamples {

/// The number of headers with examples.
int Headers();

/// The number of values in all examples.
int Comparisons();

}  // namespace HeaderExamples
