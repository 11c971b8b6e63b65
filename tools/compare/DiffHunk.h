#pragma once

#include "RuleDifference.h"
#include "RuleMatcher.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

enum class HunkKind {
  Changed,      ///< parts of a rule are not the same
  Renumbered,   ///< a rule says the same under another header
  Removed,      ///< a rule is in the old file alone
  Added,        ///< a rule is in the new file alone
  Moved,        ///< a rule is the same at another place
  RemovedText,  ///< a text that is not a rule is in the old file alone
  AddedText,    ///< a text that is not a rule is in the new file alone
};

constexpr std::size_t HunkKinds = 7;

/// What a kind is called: "changed", "text removed".
std::string_view NameOf(HunkKind KindPassIn);

/// One difference between two files: what is in the old one, and what is in the new one.
struct DiffHunk {
  HunkKind Kind{};
  std::uint64_t OldLine = 0;  ///< where the rule begins in its file, from 1; 0 if it is not there
  std::uint64_t NewLine = 0;
  std::string OldText;  ///< the normal form, or the lines of a text; "" if it is not there
  std::string NewText;
  std::size_t DiffLine = 0;  ///< where it begins in the diff that it was read from, from 1

  // What makes a difference easier to understand.
  std::string Title;                 ///< "{NP,8}: same header"
  std::vector<PartChange> vChanges;  ///< of a rule that is in both files
  MatchReason Reason = MatchReason::None;
  unsigned Score = 0;
  bool IsMoved = false;

  /// Whether this is about texts that are not rules.
  bool IsText() const { return Kind == HunkKind::RemovedText || Kind == HunkKind::AddedText; }
};

/// The difference that a match shows; entries that are the same make none unless one has moved.
std::optional<DiffHunk> HunkOf(const RuleMatch& MatchPassIn, bool IsMovedPassIn);

/// The difference from the new file to the old one.
void Reverse(DiffHunk& HunkReturn);

/// How many differences there are of each kind, and of which parts.
///
/// @code
/// DiffHunk Added;
/// Added.Kind = HunkKind::Added;
/// DiffTally Tally;
/// Tally.Add(Added);
/// Tally.Add(Added);
/// Tally.Words();  // "2 added"
/// @endcode
struct DiffTally {
  std::array<std::uint64_t, HunkKinds> Hunks{};
  std::array<std::uint64_t, static_cast<std::size_t>(PartKind::Comment) + 1> Parts{};

  void Add(const DiffHunk& HunkPassIn);
  bool IsEmpty() const;

  /// All kinds that occur: "2 changed, 1 added".
  std::string Words() const;
};

}  // namespace Grammar
