#include "DiffHunk.h"

#include <algorithm>
#include <utility>

namespace Grammar {

std::string_view NameOf(HunkKind KindPassIn) {
  constexpr std::array<std::string_view, HunkKinds> Names{
      "changed", "renumbered", "removed", "added", "moved", "text removed", "text added"};
  return Names[static_cast<std::size_t>(KindPassIn)];
}

namespace {

HunkKind KindOf(const RuleMatch& Match) {
  switch (Match.Reason) {
    case MatchReason::Same:
      return HunkKind::Moved;
    case MatchReason::Meaning:
      return HunkKind::Renumbered;
    case MatchReason::None: {
      const ComparedEntry& Only = Match.HasOld ? Match.Old : Match.New;
      if (Only.IsRule) {
        return Match.HasOld ? HunkKind::Removed : HunkKind::Added;
      }
      return Match.HasOld ? HunkKind::RemovedText : HunkKind::AddedText;
    }
    default:
      return HunkKind::Changed;
  }
}

std::string_view FirstLine(std::string_view Text) {
  return Text.substr(0, Text.find('\n'));
}

/// What an entry is called: its header, or else its types, or the first line of a text.
std::string NameOf(const ComparedEntry& Entry) {
  if (!Entry.IsRule) {
    return std::string(FirstLine(Entry.Text));
  }
  const std::string_view RuleLine = FirstLine(Entry.Block());
  return std::string(Entry.Header().empty() ? RuleLine.substr(0, RuleLine.find(" ["))
                                            : Entry.Header());
}

std::string ReasonOf(const RuleMatch& Match) {
  switch (Match.Reason) {
    case MatchReason::Header:
      return ": same header";
    case MatchReason::Meaning:
      return ": says the same";
    case MatchReason::Nearest:
      return ": nearest, " + std::to_string(Match.Score) + " % in common";
    default:
      return "";
  }
}

std::string TitleOf(const RuleMatch& Match) {
  const std::string Old = Match.HasOld ? NameOf(Match.Old) : "";
  const std::string New = Match.HasNew ? NameOf(Match.New) : "";
  const bool HasTwoNames = Match.HasOld && Match.HasNew && Old != New;
  return (Match.HasOld ? Old : New) + (HasTwoNames ? " -> " + New : "") + ReasonOf(Match);
}

}  // namespace

std::optional<DiffHunk> HunkOf(const RuleMatch& MatchPassIn, bool IsMovedPassIn) {
  const ComparedEntry& Only = MatchPassIn.HasOld ? MatchPassIn.Old : MatchPassIn.New;
  const bool IsSame = MatchPassIn.Reason == MatchReason::Same;
  if (Only.Text.empty() || (IsSame && !IsMovedPassIn)) {
    return std::nullopt;
  }
  DiffHunk Hunk;
  Hunk.Kind = KindOf(MatchPassIn);
  Hunk.OldLine = MatchPassIn.Old.Line;
  Hunk.NewLine = MatchPassIn.New.Line;
  Hunk.Title = TitleOf(MatchPassIn);
  Hunk.Reason = MatchPassIn.Reason;
  Hunk.Score = MatchPassIn.Score;
  Hunk.IsMoved = IsMovedPassIn;
  if (!IsSame) {
    Hunk.OldText = MatchPassIn.Old.Text;
    Hunk.NewText = MatchPassIn.New.Text;
  }
  if (!IsSame && MatchPassIn.HasOld && MatchPassIn.HasNew) {
    const auto Old = ComparedRule::Of(Hunk.OldText);
    const auto New = ComparedRule::Of(Hunk.NewText);
    if (Old && New) {
      Hunk.vChanges = DifferencesOf(*Old, *New);
    }
  }
  return Hunk;
}

void Reverse(DiffHunk& HunkReturn) {
  std::swap(HunkReturn.OldLine, HunkReturn.NewLine);
  std::swap(HunkReturn.OldText, HunkReturn.NewText);
  switch (HunkReturn.Kind) {
    case HunkKind::Removed:
      HunkReturn.Kind = HunkKind::Added;
      break;
    case HunkKind::Added:
      HunkReturn.Kind = HunkKind::Removed;
      break;
    case HunkKind::RemovedText:
      HunkReturn.Kind = HunkKind::AddedText;
      break;
    case HunkKind::AddedText:
      HunkReturn.Kind = HunkKind::RemovedText;
      break;
    default:
      break;
  }
}

// ---- Counting ---------------------------------------------------------------------------------

void DiffTally::Add(const DiffHunk& HunkPassIn) {
  ++Hunks[static_cast<std::size_t>(HunkPassIn.Kind)];
  for (const PartChange& Change : HunkPassIn.vChanges) {
    ++Parts[static_cast<std::size_t>(Change.Kind)];
  }
}

bool DiffTally::IsEmpty() const {
  return std::all_of(Hunks.begin(), Hunks.end(), [](std::uint64_t Count) { return Count == 0; });
}

std::string DiffTally::Words() const {
  std::string Words;
  for (std::size_t Kind = 0; Kind < HunkKinds; ++Kind) {
    if (Hunks[Kind] > 0) {
      Words.append(Words.empty() ? "" : ", ").append(std::to_string(Hunks[Kind])).append(" ");
      Words.append(NameOf(static_cast<HunkKind>(Kind)));
    }
  }
  return Words;
}

}  // namespace Grammar
