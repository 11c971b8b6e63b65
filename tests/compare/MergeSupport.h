#pragma once

#include "DiffSupport.h"
#include "FileMerge.h"

#include <string>
#include <vector>

/// Merging texts in memory, for tests.

struct MergedText {
  std::string Text;
  std::vector<Grammar::MergeConflict> vConflicts;
};

inline MergedText MergeOf(const std::string& Base, const std::string& Ours,
                          const std::string& Theirs, std::size_t Memory = std::size_t{1} << 16) {
  using Grammar::ReadEntry;
  Grammar::FileMerge Merge(Memory);
  Grammar::PassEntries(Base, [&](const ReadEntry& Read) { Merge.AddBase(Read); });
  Grammar::PassEntries(Ours, [&](const ReadEntry& Read) { Merge.AddOurs(Read); });
  Grammar::PassEntries(Theirs, [&](const ReadEntry& Read) { Merge.AddTheirs(Read); });
  MergedText Merged;
  Merge.Merge([&](const Grammar::MergeConflict& Found) { Merged.vConflicts.push_back(Found); });
  Merge.PassTo([&](std::string_view Bytes) { Merged.Text += Bytes; });
  return Merged;
}
