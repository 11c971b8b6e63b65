// Sections: texts of versions, adding, rules of the base, added rules, places, writing.

#include "FileMerge.h"

#include "RecordHead.h"
#include "RuleMerge.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Grammar {

// ---- Texts of versions ------------------------------------------------------------------------

namespace {

std::string ReadAll(const SpillFile& From, std::uint64_t Begin, std::uint64_t Size) {
  std::string Bytes;
  Bytes.resize(static_cast<std::size_t>(Size));
  From.Read(Begin, Bytes.data(), Bytes.size());
  return Bytes;
}

}  // namespace

void VersionTexts::Add(const ReadEntry& Entry) {
  const std::string_view Normal = Entry.Entry.IsRule ? Entry.Entry.Text : std::string_view();
  const Place New{Texts.Size(), Entry.Bytes.size(), Normal.size(), Entry.HasReturns ? 1U : 0U};
  Texts.Append(Entry.Bytes);
  Texts.Append(Normal);
  std::string Bytes;
  AppendHead(New, Bytes);
  Places.Append(Bytes);
}

void VersionTexts::Finish() {
  Texts.Flush();
  Places.Flush();
}

JoinedText VersionTexts::Read(std::uint64_t Number) const {
  const std::string Bytes = ReadAll(Places, Number * sizeof(Place), sizeof(Place));
  std::string_view Rest = Bytes;
  const auto Found = TakeHead<Place>(Rest);
  JoinedText Text;
  Text.Bytes = ReadAll(Texts, Found.Begin, Found.BytesSize);
  Text.NormalForm = ReadAll(Texts, Found.Begin + Found.BytesSize, Found.NormalSize);
  Text.HasReturns = Found.HasReturns != 0;
  return Text;
}

// ---- Adding -----------------------------------------------------------------------------------

namespace {

/// Of what there is for two matchers at once and what comes of them.
constexpr std::size_t MatcherShare = 3;
constexpr std::size_t SorterShare = 12;

}  // namespace

FileMerge::FileMerge(std::size_t MemoryPassIn)
    : Memory(MemoryPassIn),
      OurMatches(std::make_unique<RuleMatcher>(Memory / MatcherShare, RuleMatcher::Scope::All)),
      TheirMatches(std::make_unique<RuleMatcher>(Memory / MatcherShare, RuleMatcher::Scope::All)),
      AddedByTheirs(Memory / SorterShare),
      WithTheirs(Memory / SorterShare),
      Results(Memory / SorterShare) {}

FileMerge::~FileMerge() = default;

void FileMerge::AddBase(const ReadEntry& Entry) {
  OurMatches->AddOld(Entry.Entry);
  TheirMatches->AddOld(Entry.Entry);
}

void FileMerge::AddOurs(const ReadEntry& Entry) {
  OurTexts.Add(Entry);
  OurMatches->AddNew(Entry.Entry);
  if (Entry.Entry.Text.empty()) {
    Place({Entry.Entry.Number, None, Outcome::Ours, {}});  // blank lines
  }
}

void FileMerge::AddTheirs(const ReadEntry& Entry) {
  TheirTexts.Add(Entry);
  TheirMatches->AddNew(Entry.Entry);
}

// ---- Rules of the base ------------------------------------------------------------------------

struct FileMerge::AddedEntry {
  std::uint64_t Number;
  std::uint64_t Line;
  std::uint64_t HeaderBegin;
  std::uint64_t BlockBegin;
  bool IsRule;
};

void FileMerge::Merge(const std::function<void(const MergeConflict&)>& ReportPassIn) {
  Report = ReportPassIn;
  OurTexts.Finish();
  TheirTexts.Finish();
  OurMatches->Match();
  TheirMatches->Match();
  AddedMatches = std::make_unique<RuleMatcher>(Memory / MatcherShare, RuleMatcher::Scope::All);
  MergeBase();
  OurMatches.reset();
  TheirMatches.reset();
  MatchAdded();
  PlaceTheirs();
  Write();
}

/// Both versions give the entries of the base in the same order.
void FileMerge::MergeBase() {
  RuleMatch Ours;
  RuleMatch Theirs;
  while (NextOfBase(*OurMatches, true, Ours) && NextOfBase(*TheirMatches, false, Theirs)) {
    MergeMatch(Ours, Theirs);
  }
  NextOfBase(*TheirMatches, false, Theirs);
}

/// The next match of an entry of the base; those before it have been added.
/// @return false after the last one
bool FileMerge::NextOfBase(RuleMatcher& Matcher, bool IsOurs, RuleMatch& MatchReturn) {
  while (Matcher.Next(MatchReturn)) {
    if (MatchReturn.HasOld) {
      return true;
    }
    if (IsOurs) {
      AddedMatches->AddOld(MatchReturn.New);
    } else {
      KeepAddedByTheirs(MatchReturn.New);
    }
  }
  return false;
}

void FileMerge::MergeMatch(const RuleMatch& Ours, const RuleMatch& Theirs) {
  const bool IsOurs = Ours.HasNew && Ours.New.Text != Ours.Old.Text;
  const bool IsTheirs = Theirs.HasNew && Theirs.New.Text != Theirs.Old.Text;
  if (Ours.HasNew && Theirs.HasNew) {
    if (IsOurs && IsTheirs) {
      MergeChanged(Ours, Theirs);  // also where both are the same: the count may have grown twice
    } else {
      Place({Ours.New.Number, Theirs.New.Number, IsTheirs ? Outcome::Theirs : Outcome::Ours, {}});
    }
  } else if (IsOurs || IsTheirs) {
    KeepUnlessSame(IsOurs ? Ours : Theirs, IsOurs);
  }
}

void FileMerge::MergeChanged(const RuleMatch& Ours, const RuleMatch& Theirs) {
  const std::optional<ComparedRule> Base = ComparedRule::Of(Ours.Old.Text);
  const std::optional<ComparedRule> OurRule = ComparedRule::Of(Ours.New.Text);
  const std::optional<ComparedRule> TheirRule = ComparedRule::Of(Theirs.New.Text);
  const MergedRule Merged = MergeRules(*Base, *OurRule, *TheirRule);
  Result New{Ours.New.Number, Theirs.New.Number, Outcome::Written, Merged.Text};
  if (Merged.Text == Ours.New.Text) {
    New.What = Outcome::Ours;
  } else if (Merged.Text == Theirs.New.Text) {
    New.What = Outcome::Theirs;
  }
  Place(New);
  if (!Merged.vsConflicts.empty()) {
    AddConflict(true, Ours.New, Merged.vsConflicts);
  }
}

/// What one version has removed and the other one changed.
void FileMerge::KeepUnlessSame(const RuleMatch& Changed, bool IsOurs) {
  const std::optional<ComparedRule> Base = ComparedRule::Of(Changed.Old.Text);
  const std::optional<ComparedRule> Rule = ComparedRule::Of(Changed.New.Text);
  const MergedRule Kept = KeepChanged(*Base, *Rule, IsOurs);
  Result New;
  (IsOurs ? New.Ours : New.Theirs) = Changed.New.Number;
  New.What = Outcome::Written;
  New.Text = Kept.Text;
  Place(New);
  AddConflict(IsOurs, Changed.New, Kept.vsConflicts);
}

void FileMerge::AddConflict(bool IsInOurs, const ComparedEntry& Entry,
                            std::vector<std::string> vsSentences) {
  Report({IsInOurs, Entry.Line, std::move(vsSentences)});
}

// ---- Added rules ------------------------------------------------------------------------------

/// A matcher gets all old entries, which are those of ours, before the new ones.
void FileMerge::KeepAddedByTheirs(const ComparedEntry& Entry) {
  Payload.clear();
  AppendHead(
      AddedEntry{Entry.Number, Entry.Line, Entry.HeaderBegin, Entry.BlockBegin, Entry.IsRule},
      Payload);
  Payload += Entry.Text;
  AddedByTheirs.Add("", Payload);
}

void FileMerge::MatchAdded() {
  AddedByTheirs.Sort();
  for (SortRecord Record; AddedByTheirs.Next(Record);) {
    std::string_view Rest = Record.Payload;
    const auto Head = TakeHead<AddedEntry>(Rest);
    ComparedEntry Entry;
    Entry.Number = Head.Number;
    Entry.Line = Head.Line;
    Entry.HeaderBegin = static_cast<std::size_t>(Head.HeaderBegin);
    Entry.BlockBegin = static_cast<std::size_t>(Head.BlockBegin);
    Entry.IsRule = Head.IsRule;
    Entry.Text = Rest;
    AddedMatches->AddNew(Entry);
  }
  AddedMatches->Match();
  for (RuleMatch Match; AddedMatches->Next(Match);) {
    MergeAdded(Match);
  }
  AddedMatches.reset();
}

/// Rules with one header are one rule where they say the same, and otherwise a conflict; all other
/// rules have been added beside each other.
void FileMerge::MergeAdded(const RuleMatch& Match) {
  if (Match.Reason == MatchReason::Same && !Match.Old.IsRule) {
    Place({Match.Old.Number, Match.New.Number, Outcome::Ours, {}});
    return;
  }
  if (Match.Reason != MatchReason::Header && Match.Reason != MatchReason::Same) {
    if (Match.HasOld) {
      Place({Match.Old.Number, None, Outcome::Ours, {}});
    }
    if (Match.HasNew) {
      Place({None, Match.New.Number, Outcome::Theirs, {}});
    }
    return;
  }
  const std::optional<ComparedRule> Ours = ComparedRule::Of(Match.Old.Text);
  const std::optional<ComparedRule> Theirs = ComparedRule::Of(Match.New.Text);
  if (Match.Old.Block() == Match.New.Block()) {
    const std::string Text = JoinAdded(*Ours, *Theirs);
    const Outcome What = Text == Match.Old.Text ? Outcome::Ours : Outcome::Written;
    Place({Match.Old.Number, Match.New.Number, What, Text});
    return;
  }
  const MergedRule First = KeepAdded(*Ours, true);
  const MergedRule Second = KeepAdded(*Theirs, false);
  Place({Match.Old.Number, None, Outcome::Written, First.Text});
  Place({None, Match.New.Number, Outcome::Written, Second.Text});
  AddConflict(true, Match.Old, First.vsConflicts);
}

// ---- Places -----------------------------------------------------------------------------------

namespace {

/// What is stored of a result before its text.
struct ResultHead {
  std::uint64_t Ours;
  std::uint64_t Theirs;
  char What;
};

}  // namespace

/// What theirs has waits until it is known where it stands there.
void FileMerge::Place(const Result& New) {
  if (New.Theirs == None) {
    PlaceAt(New.Ours + 1, 0, New);
    return;
  }
  Payload.clear();
  AppendHead(ResultHead{New.Ours, New.Theirs, static_cast<char>(New.What)}, Payload);
  Payload += New.Text;
  WithTheirs.Add(SortableNumber(New.Theirs), Payload);
}

/// What ours does not have comes after what both have that is before it in theirs.
void FileMerge::PlaceTheirs() {
  WithTheirs.Sort();
  std::uint64_t Before = 0;
  for (SortRecord Record; WithTheirs.Next(Record);) {
    std::string_view Rest = Record.Payload;
    const auto Head = TakeHead<ResultHead>(Rest);
    const Result Found{Head.Ours, Head.Theirs, static_cast<Outcome>(Head.What), Rest};
    if (Found.Ours == None) {
      PlaceAt(Before, Found.Theirs + 1, Found);
    } else {
      Before = Found.Ours + 1;
      PlaceAt(Before, 0, Found);
    }
  }
}

void FileMerge::PlaceAt(std::uint64_t Ours, std::uint64_t Theirs, const Result& New) {
  Payload.clear();
  AppendHead(ResultHead{New.Ours, New.Theirs, static_cast<char>(New.What)}, Payload);
  Payload += New.Text;
  Results.Add(SortableNumber(Ours) + SortableNumber(Theirs), Payload);
}

// ---- Writing ----------------------------------------------------------------------------------

namespace {

/// Whether a text stands right after the one before in its file.
class Succession {
 public:
  bool Follows(char Version, std::uint64_t Number) {
    const bool IsNext = Version == LastVersion && Number == LastNumber + 1;
    LastVersion = Version;
    LastNumber = Number;
    return IsNext;
  }

 private:
  char LastVersion = '\0';
  std::uint64_t LastNumber = 0;
};

}  // namespace

void FileMerge::Write() {
  Results.Sort();
  Succession Order;
  for (SortRecord Record; Results.Next(Record);) {
    std::string_view Rest = Record.Payload;
    const auto Head = TakeHead<ResultHead>(Rest);
    const auto What = static_cast<Outcome>(Head.What);
    JoinedText Text = What == Outcome::Theirs || Head.Ours == None ? TheirTexts.Read(Head.Theirs)
                                                                   : OurTexts.Read(Head.Ours);
    if (What == Outcome::Written) {
      Text.Bytes.clear();
      Text.NormalForm = Rest;
      Order.Follows('\0', 0);
    } else {
      const bool IsOurs = What == Outcome::Ours;
      Text.FollowsAsBefore = Order.Follows(IsOurs ? 'o' : 't', IsOurs ? Head.Ours : Head.Theirs);
    }
    Joined.Add(std::move(Text));
  }
  Joined.Finish();
}

}  // namespace Grammar
