#pragma once

#include "DiffWriter.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Grammar {

/// Counts differences by their kinds, and changes by their parts:
///
///   2  changed
///   1  added
///   3  part: constraint
class StatDiffWriter : public DiffWriter {
 public:
  void Append(const DiffHunk& HunkPassIn, std::string& TextReturn) override;
  void AppendEnd(std::string& TextReturn) override;

 private:
  void AddRow(std::uint64_t Count, std::string_view Words);

  DiffTally Tally;
  std::vector<std::pair<std::string, std::string>> vRows;
};

}  // namespace Grammar
