#pragma once

#include "GrammarShapes.h"
#include "GrammarSupport.h"
#include "RuleOutline.h"

#include <string>

/// Adds the rules of a text to shapes, and finishes them.
inline void AddRules(const std::string& Text, Grammar::GrammarShapes& ShapesReturn) {
  Grammar::OutlineMaker Maker;
  Grammar::SourceRule Lines;
  for (const Grammar::RuleText& Rule : RulesOf(Text)) {
    Grammar::RuleOutline Outline;
    Lines.Read(Rule);
    Maker.Make(Lines, Outline);
    ShapesReturn.Add(Rule, Outline);
  }
  ShapesReturn.Finish();
}
