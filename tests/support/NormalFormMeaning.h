#pragma once

#include "RuleChecker.h"
#include "RuleRecord.h"
#include "support/StreamCapture.h"

#include <TrRule.h>
#include <algorithm>
#include <string>
#include <vector>

/// @file
/// Whether the library reads the same from two texts, for the tests of the normal form and for its
/// fuzz target. Both need a halt handler that throws.

/// Whether the library takes a rule for another one than is meant, and so for another one than its
/// normal form: a comment that its reader takes for part of the rule, or a reference behind a
/// feature and a doubled equals sign.
inline bool HasOtherMeaningForLibrary(const Grammar::RuleRecord& Record) {
  const std::vector<Grammar::SourceRule::ConstraintLine>& vConstraints =
      Record.Lines().Constraints();
  const bool HasDoubledSign =
      std::any_of(vConstraints.begin(), vConstraints.end(), [](const auto& Each) {
        return Each.Parts.Kind == TrRuleInternal::RightKind::Reference && !Each.Parts.IsWholeNode &&
               Each.Parts.Equals.size() > 1;
      });
  Grammar::RuleRecord Checked;
  std::vector<Grammar::Finding> vFindings;
  Grammar::CheckRule(Record.Lines().Text(), Checked, vFindings);
  return HasDoubledSign ||
         std::any_of(vFindings.begin(), vFindings.end(),
                     [](const Grammar::Finding& Each) { return Each.Code == "TR029"; });
}

/// Whether the library reads equal rules, with one comparison text, from two texts.
inline bool ReadsTheSame(const std::string& Left, const std::string& Right) {
  const StreamCapture Streams;
  TrRule LeftRule;
  TrRule RightRule;
  return LeftRule.SetTrRuleFromString(Left) && RightRule.SetTrRuleFromString(Right) &&
         LeftRule == RightRule &&
         LeftRule.ReturnAsStringForComparison() == RightRule.ReturnAsStringForComparison();
}
