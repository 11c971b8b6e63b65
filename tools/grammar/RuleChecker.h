#pragma once

#include "Finding.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <vector>

namespace Grammar {

/// Finds everything that is wrong with one rule, or will surprise, in the order of its lines.
/// Depends on nothing but the rule.
/// @param RecordReturn gets the rule read into it
/// @return whether the record holds the rule
bool CheckRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
               std::vector<Finding>& vFindingsReturn);

/// Reads a rule and adds what every command over rules reports; see `ReportReading`.
/// @param TextPassIn has to outlive the record, or its next reading
/// @return whether the record holds the rule
bool ReadRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
              std::vector<Finding>& vFindingsReturn);

/// Adds what every command over rules reports: the errors that have kept a rule from being read, at
/// least one; or what is no part of a rule that was read. None has a suggestion.
void ReportReading(const RuleRecord& RecordPassIn, std::vector<Finding>& vFindingsReturn);

}  // namespace Grammar
