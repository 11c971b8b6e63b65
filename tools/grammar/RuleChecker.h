#pragma once

#include "Finding.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <string>
#include <vector>

namespace Grammar {

/// Finds everything that is wrong with one rule, or will surprise, in the order of its lines.
/// @param RecordReturn gets the rule read into it
/// @return whether the record holds the rule
bool CheckRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
               std::vector<Finding>& vFindingsReturn);

/// Adds the errors that keep a rule from being read, at least one.
/// @param WhyPassIn what the library said, for what has no code of its own
void ExplainUnreadable(const RuleText& TextPassIn, const std::string& WhyPassIn,
                       std::vector<Finding>& vFindingsReturn);

/// Adds what is no part of a rule that was read.
void ReportStrayText(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn);

}  // namespace Grammar
