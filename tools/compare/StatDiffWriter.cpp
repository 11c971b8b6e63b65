#include "StatDiffWriter.h"

#include <algorithm>

namespace Grammar {

void StatDiffWriter::Append(const DiffHunk& HunkPassIn, std::string& /*TextReturn*/) {
  Tally.Add(HunkPassIn);
}

void StatDiffWriter::AppendEnd(std::string& TextReturn) {
  for (std::size_t Kind = 0; Kind < HunkKinds; ++Kind) {
    AddRow(Tally.Hunks[Kind], NameOf(static_cast<HunkKind>(Kind)));
  }
  for (std::size_t Part = 0; Part < Tally.Parts.size(); ++Part) {
    AddRow(Tally.Parts[Part], "part: " + std::string(NameOf(static_cast<PartKind>(Part))));
  }
  std::size_t Width = 0;
  for (const auto& [Count, Words] : vRows) {
    Width = std::max(Width, Count.size());
  }
  for (const auto& [Count, Words] : vRows) {
    TextReturn.append(Width - Count.size(), ' ').append(Count).append("  ").append(Words) += '\n';
  }
}

void StatDiffWriter::AddRow(std::uint64_t Count, std::string_view Words) {
  if (Count > 0) {
    vRows.emplace_back(std::to_string(Count), Words);
  }
}

}  // namespace Grammar
