#pragma once

#include "DiffWriter.h"

#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Writes differences for people and for `DiffReader`.
///
/// Each line of a rule begins with "-" if only the old rule has it, "+" if only the new one has it,
/// and a blank if both have it. All of each rule is there in the normal form, so that `DiffReader`
/// can restore what is written without colours:
///
///   --- old.trr
///   +++ new.trr
///   @@ -12,5 +14,5 @@ changed {NP,8}: same header
///   # component 1 of the target: N becomes ADJ
///    {NP,8}
///   -NP::NP [N] -> [N]
///   +NP::NP [N] -> [ADJ]
///    (
///    (X1::Y1)
///    )
///   @@ 1 changed @@
///
/// The numbers after "-" and "+" are the line where the rule begins in its file, and how many lines
/// its normal form has. The last line counts the differences of each kind. With colours, the words
/// that differ are marked where as many lines are removed as are added.
class PlainDiffWriter : public DiffWriter {
 public:
  explicit PlainDiffWriter(DiffStyle StylePassIn);

  void Append(const DiffHunk& HunkPassIn, std::string& TextReturn) override;
  void AppendEnd(std::string& TextReturn) override;

 private:
  using Views = std::vector<std::string_view>;

  void AddLine(std::string_view Colour, std::string_view Line, std::string& TextReturn) const;
  void AddHead(const DiffHunk& Hunk, std::size_t OldSize, std::size_t NewSize,
               std::string& TextReturn) const;
  void AddLines(const Views& vOld, const Views& vNew, std::string& TextReturn) const;
  void AddChanged(Views& vRemovedReturn, Views& vAddedReturn, std::string& TextReturn) const;

  DiffStyle Style;
  DiffTally Tally;
};

}  // namespace Grammar
