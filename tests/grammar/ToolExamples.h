#pragma once

#include "GrammarShapes.h"
#include "RuleOutline.h"
#include "RuleRecord.h"
#include "SourceRule.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
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
/// parsed "the red car".
class ToolExamples : public testing::Test {
 protected:
  ToolExamples();

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
};

namespace HeaderExamples {

/// The number of headers with examples.
int Headers();

/// The number of values in all examples.
int Comparisons();

}  // namespace HeaderExamples
