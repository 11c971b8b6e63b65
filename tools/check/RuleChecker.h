#pragma once

#include "Finding.h"
#include "RuleFindings.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <vector>

namespace Grammar {

/// Finds everything that is wrong with one rule, or will surprise, in the order of its lines.
/// Depends on nothing but the rule, so that several rules can be checked at once.
///
/// A suggestion is a line in which nothing is found any more. Where notes are hidden, it may be a
/// line with notes.
///
/// @code
/// CheckRule(Text, Record, vFindings);  // true
/// vFindings.size();                    // 0
/// @endcode
/// @param RecordReturn receives the rule read into it
/// @param HiddenReturn receives the codes of the notes, which are not added then; null if notes are
///        wanted
/// @return whether the record holds the rule
bool CheckRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
               std::vector<Finding>& vFindingsReturn, HiddenNotes* HiddenReturn = nullptr);

/// Reads a rule and adds what every command over rules reports; see `ReportReading`.
/// @param TextPassIn has to outlive the record, or its next reading
/// @return whether the record holds the rule
bool ReadRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
              std::vector<Finding>& vFindingsReturn);

/// Adds what every command over rules reports: the errors that have kept a rule from being read, at
/// least one; or what is not part of a rule that was read. None has a suggestion.
void ReportReading(const RuleRecord& RecordPassIn, std::vector<Finding>& vFindingsReturn);

}  // namespace Grammar
