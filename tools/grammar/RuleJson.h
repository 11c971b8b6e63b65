#pragma once

#include "RuleRecord.h"

#include <string>
#include <string_view>

/// @file
/// A rule as one JSON object, as docs/trrule-schema.json describes it.
///
/// @code
/// std::string Output;
/// AppendJson(Record, Output);
/// Output.substr(0, 24);  // R"({"header":{"type":"NP"},)"
/// @endcode
///
/// The members are those that the library's record would have, from the parts of the rule; what
/// the record drops is in the labels, which keep their literal words, and in the lines of each
/// constraint.

namespace Grammar {

/// Appends a rule as an object with every member of the record, on one line with its end. Depends
/// on the record alone; linear.
void AppendJson(const RuleRecord& Record, std::string& TextReturn);

/// Appends a text that is not a rule as an object, `{"text":"…"}`, on one line with its end.
void AppendJsonOfText(std::string_view Text, std::string& TextReturn);

}  // namespace Grammar
