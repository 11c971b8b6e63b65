#include "RulePatch.h"

#include <algorithm>
#include <utility>

namespace Grammar {

RulePatch::RulePatch(std::vector<DiffHunk> vHunksPassIn)
    : vHunks(std::move(vHunksPassIn)),
      vIsMade(vHunks.size()),
      vFound(vHunks.size()),
      vsHeaders(vHunks.size()) {
  for (std::size_t Place = vHunks.size(); Place-- > 0;) {
    const DiffHunk& Hunk = vHunks[Place];
    vIsMade[Place] = Hunk.OldText.empty();
    if (!Hunk.NewText.empty()) {
      Results[Hunk.NewText].push_back(Place);
    }
    if (!Hunk.OldText.empty()) {
      Expected[Hunk.OldText].push_back(Place);
    }
    const auto Rule =
        Hunk.IsText() || Hunk.OldText.empty() ? std::nullopt : ComparedRule::Of(Hunk.OldText);
    if (Rule && !Rule->Header.empty()) {
      vsHeaders[Place] = Rule->Header;
      Headers[vsHeaders[Place]].push_back(Place);
    }
  }
}

void RulePatch::Take(const ReadEntry& EntryPassIn) {
  const ComparedEntry& Entry = EntryPassIn.Entry;
  HasReturns = Entry.Text.empty() ? HasReturns : EntryPassIn.HasReturns;
  const auto Fitting = Expected.find(Entry.Text);
  const bool IsChanged = Fitting != Expected.end() && !Fitting->second.empty() &&
                         vHunks[Fitting->second.back()].IsText() != Entry.IsRule;
  if (!IsChanged) {
    Note(Entry);
    Joined.Add({std::string(EntryPassIn.Bytes), std::string(Entry.IsRule ? Entry.Text : ""),
                EntryPassIn.HasReturns, IsAsBefore});
    IsAsBefore = true;
    return;
  }
  const std::size_t Place = Fitting->second.back();
  Fitting->second.pop_back();
  vIsMade[Place] = true;
  IsAsBefore = false;
  if (!vHunks[Place].NewText.empty()) {
    Joined.Add({"", vHunks[Place].NewText, EntryPassIn.HasReturns, false});
  }
}

/// Remembers what the file has instead of a rule that is expected.
void RulePatch::Note(const ComparedEntry& Entry) {
  const auto Result = Results.find(Entry.Text);
  if (Result != Results.end()) {
    for (const std::size_t Place : Result->second) {
      vFound[Place].IsMadeAlready = true;
    }
  }
  const auto SameHeader = Entry.IsRule ? Headers.find(Entry.Header()) : Headers.end();
  if (SameHeader != Headers.end()) {
    for (const std::size_t Place : SameHeader->second) {
      if (vFound[Place].Line == 0) {
        vFound[Place].Line = Entry.Line;
        vFound[Place].Text = Entry.Text;
      }
    }
  }
}

PatchFault RulePatch::FaultOf(std::size_t Place) const {
  const Found& There = vFound[Place];
  PatchFault Fault{vHunks[Place].DiffLine, There.Line, "", {}};
  const auto Old = ComparedRule::Of(vHunks[Place].OldText);
  const auto Other = ComparedRule::Of(There.Text);
  if (There.IsMadeAlready) {
    Fault.Message = "the file already has what the diff makes of this";
  } else if (Old && Other) {
    Fault.Message = Old->Header + " is not as the diff expects";
    for (const PartChange& Change : DifferencesOf(*Old, *Other)) {
      Fault.vsDetails.push_back(DescribeMismatch(Change));
    }
  } else {
    Fault.Message = vHunks[Place].IsText() ? "the file does not have this text"
                                           : "the file does not have this rule";
  }
  return Fault;
}

std::vector<PatchFault> RulePatch::Finish() {
  std::vector<PatchFault> vFaults;
  for (std::size_t Place = 0; Place < vHunks.size(); ++Place) {
    const DiffHunk& Hunk = vHunks[Place];
    if (!vIsMade[Place]) {
      vFaults.push_back(FaultOf(Place));
    } else if (Hunk.OldText.empty() && !Hunk.NewText.empty()) {
      Joined.AddLast({Hunk.IsText() ? Hunk.NewText : "", Hunk.IsText() ? "" : Hunk.NewText,
                      HasReturns, false});
    }
  }
  if (!Joined.Finish() && vFaults.empty()) {
    vFaults.push_back({1, 0, "a text that cannot be read as a rule would join the next rule", {}});
  }
  return vFaults;
}

}  // namespace Grammar
