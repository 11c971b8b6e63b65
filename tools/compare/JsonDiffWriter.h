#pragma once

#include "DiffWriter.h"

#include <string>

namespace Grammar {

/// Writes each difference as a JSON object on a line:
///
///   {"kind":"changed","match":"header","moved":false,
///    "old":{"line":1,"text":"…"},"new":{"line":1,"text":"…"},
///    "changes":[{"part":"target component","component":1,"old":["N"],"new":["ADJ"],
///                "words":"component 1 of the target: N becomes ADJ"}]}
///
/// A side where there is nothing is null. Bytes that are not UTF-8 are written as JsonText.h says.
class JsonDiffWriter : public DiffWriter {
 public:
  void Append(const DiffHunk& HunkPassIn, std::string& TextReturn) override;
  void AppendEnd(std::string& TextReturn) override;
};

}  // namespace Grammar
