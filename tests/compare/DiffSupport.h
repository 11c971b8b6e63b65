#pragma once

#include "DiffReader.h"
#include "EntrySequence.h"
#include "PlainDiffWriter.h"
#include "RuleMatcher.h"
#include "RulePatch.h"

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Comparing and patching texts in memory, for tests and for a fuzz target.

/// The plain diff of two texts.
inline std::string DiffOf(const std::string& Old, const std::string& New, bool ShowsMoves = false) {
  using namespace Grammar;
  constexpr std::size_t Memory = std::size_t{1} << 16;
  RuleMatcher Matcher(
      Memory, ShowsMoves ? RuleMatcher::Scope::AllWithMoves : RuleMatcher::Scope::Differences);
  PassEntries(Old, [&](const ReadEntry& Read) { Matcher.AddOld(Read.Entry); });
  PassEntries(New, [&](const ReadEntry& Read) { Matcher.AddNew(Read.Entry); });
  Matcher.Match();
  PlainDiffWriter Writer({DiffFormat::Plain, false, "old", "new"});
  std::string Text;
  for (RuleMatch Match; Matcher.Next(Match);) {
    if (const auto Hunk = HunkOf(Match, Matcher.HasMoved(Match))) {
      Writer.Append(*Hunk, Text);
    }
  }
  Writer.AppendEnd(Text);
  return Text;
}

/// A text after a diff; nothing if that is refused.
inline std::optional<std::string> Patched(const std::string& Old, const std::string& Diff,
                                          bool IsReversed = false) {
  using namespace Grammar;
  std::vector<DiffHunk> vHunks;
  if (ReadDiff(Diff, vHunks)) {
    return std::nullopt;
  }
  if (IsReversed) {
    std::for_each(vHunks.begin(), vHunks.end(), Reverse);
  }
  RulePatch Patch(std::move(vHunks));
  PassEntries(Old, [&](const ReadEntry& Read) { Patch.Take(Read); });
  if (!Patch.Finish().empty()) {
    return std::nullopt;
  }
  std::string New;
  Patch.PassTo([&](std::string_view Bytes) { New += Bytes; });
  return New;
}

/// What a text says, whatever its order and its layout: each rule in the normal form, and each
/// other text.
inline std::vector<std::string> ContentsOf(const std::string& Text) {
  std::vector<std::string> vsContents;
  Grammar::PassEntries(Text, [&](const Grammar::ReadEntry& Read) {
    if (!Read.Entry.Text.empty()) {
      vsContents.push_back((Read.Entry.IsRule ? "rule\n" : "text\n") +
                           std::string(Read.Entry.Text));
    }
  });
  std::sort(vsContents.begin(), vsContents.end());
  return vsContents;
}

/// A text with each of its rules in the normal form.
inline std::string Printed(const std::string& Text) {
  std::string Written;
  Grammar::PassEntries(Text, [&](const Grammar::ReadEntry& Read) {
    Written += Read.Entry.IsRule ? Read.Entry.Text : Read.Bytes;
  });
  return Written;
}
