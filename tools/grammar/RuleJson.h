#pragma once

#include "RuleRecord.h"

#include <string>
#include <string_view>
#include <vector>

/// @file
/// A rule as one JSON object, as docs/trrule-schema.json describes it.

namespace Grammar {

/// Appends a rule as an object with every member of the record, on one line with its end.
void AppendJson(RuleRecord& Record, std::string& TextReturn);

/// Appends a text that is no rule as an object, `{"text":"…"}`, on one line with its end.
void AppendJsonOfText(std::string_view Text, std::string& TextReturn);

/// Turns an object back into the text that it stands for.
///
/// A rule comes out in the normal form. Members that are missing are those of a new rule. Words,
/// structure and count that the comments do not say are written into them.
class JsonReader {
 public:
  /// Appends the text of one line.
  /// @return false where the line is no such object: `Problems` then has one line that tells why.
  ///         Otherwise each of them names a member that a grammar cannot hold as it is given.
  bool Read(std::string_view Line, std::string& TextReturn);

  const std::vector<std::string>& Problems() const { return vsProblems; }

  /// Whether the last line was a rule, and not another text.
  bool HasReadRule() const { return IsRule; }

 private:
  std::vector<std::string> vsProblems;
  bool IsRule = false;
};

}  // namespace Grammar
