#pragma once

#include "RuleReader.h"
#include "RuleSet.h"
#include "RuleUse.h"

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

/// Fills a set with the rules of a grammar's text, numbered from 1 as they come; those that cannot
/// be used are left out. For benchmarks and fuzz targets.
///
///   Translate::RuleSet Rules({});
///   AddRules("N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n", Rules, [](bool, const auto&) {});
///
/// @param Look is called for each rule with whether it is used, and what is wrong with it
template <typename LookT>
void AddRules(const std::string& Text, Translate::RuleSet& RulesReturn, LookT Look) {
  std::istringstream Stream(Text);
  Grammar::RuleReader Reader(Stream, "-");
  Grammar::SourceRule Lines;
  Grammar::UsableRule Rule;
  std::vector<Grammar::Finding> vFindings;
  std::uint32_t Number = 0;
  for (Grammar::RuleText Source; Reader.Next(Source);) {
    if (!Source.HasRule || Source.Continues) {
      continue;
    }
    vFindings.clear();
    const bool IsUsable =
        ReadUsableRule(Source, RulesReturn.Settings().IsReversed, Lines, Rule, vFindings);
    Look(IsUsable, vFindings);
    ++Number;
    if (IsUsable) {
      RulesReturn.Add(Rule, Number);
    }
  }
  RulesReturn.Finish();
}
