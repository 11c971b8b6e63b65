// Sections: what is held of an entry; adding; passes; pairing in a group; results.

#include "RuleMatcher.h"

#include "NearestRules.h"
#include "RecordHead.h"
#include "SumPair.h"

#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Grammar {

// ---- What is held of an entry -----------------------------------------------------------------

namespace {

/// What is stored of an entry before its text.
struct EntryHead {
  std::uint64_t Number;
  std::uint64_t Line;
  std::uint64_t HeaderBegin;
  std::uint64_t BlockBegin;
  std::uint64_t TextSize;
  bool IsRule;
  bool IsNew;
};

EntryHead HeadOf(bool IsNew, const ComparedEntry& Entry) {
  EntryHead Head{};
  Head.Number = Entry.Number;
  Head.Line = Entry.Line;
  Head.HeaderBegin = Entry.HeaderBegin;
  Head.BlockBegin = Entry.BlockBegin;
  Head.TextSize = Entry.Text.size();
  Head.IsRule = Entry.IsRule;
  Head.IsNew = IsNew;
  return Head;
}

ComparedEntry EntryFrom(const EntryHead& Head, std::string_view Text) {
  ComparedEntry Entry;
  Entry.Number = Head.Number;
  Entry.Line = Head.Line;
  Entry.IsRule = Head.IsRule;
  Entry.Text = Text;
  Entry.HeaderBegin = Head.HeaderBegin;
  Entry.BlockBegin = Head.BlockBegin;
  return Entry;
}

void AppendHash(std::string_view Text, std::string& KeyReturn) {
  SumPair Sums;
  Sums.AddText(Text);
  AppendHead(Sums.Hash(), KeyReturn);
}

/// Appends the part of a key that a group has in common, so that it can be found in the key.
void AppendGroup(std::string_view Text, std::string& KeyReturn) {
  AppendHead(std::uint64_t{Text.size()}, KeyReturn);
  KeyReturn += Text;
}

std::string_view GroupOf(std::string_view Key) {
  std::string_view Rest = Key;
  const auto Size = static_cast<std::size_t>(TakeHead<std::uint64_t>(Rest));
  return Key.substr(0, sizeof(std::uint64_t) + Size);
}

// ---- The keys of the passes -------------------------------------------------------------------

void AppendSameKey(const ComparedEntry& Entry, std::string& KeyReturn) {
  AppendHash(Entry.Text, KeyReturn);
}

void AppendHeaderKey(const ComparedEntry& Entry, std::string& KeyReturn) {
  AppendGroup(Entry.Header(), KeyReturn);
  AppendHash(Entry.Block(), KeyReturn);
}

void AppendMeaningKey(const ComparedEntry& Entry, std::string& KeyReturn) {
  std::string Hash;
  AppendHash(Entry.Block(), Hash);
  AppendGroup(Hash, KeyReturn);
}

/// The rule line of an entry, cut between its types and its sequences.
std::pair<std::string_view, std::string_view> TypesAndSequences(const ComparedEntry& Entry) {
  const std::string_view Line = Entry.Block().substr(0, Entry.Block().find('\n'));
  const std::size_t Cut = std::min(Line.find(" ["), Line.size());
  return {Line.substr(0, Cut), Line.substr(Cut)};
}

void AppendTypesKey(const ComparedEntry& Entry, std::string& KeyReturn) {
  const auto [Types, Sequences] = TypesAndSequences(Entry);
  AppendGroup(Types, KeyReturn);
  KeyReturn += Sequences;
}

void AppendSequencesKey(const ComparedEntry& Entry, std::string& KeyReturn) {
  const auto [Types, Sequences] = TypesAndSequences(Entry);
  AppendGroup(Sequences, KeyReturn);
  KeyReturn += Types;
}

}  // namespace

struct RuleMatcher::Held {
  EntryHead Head{};
  std::string Text;

  ComparedEntry Entry() const { return EntryFrom(Head, Text); }
};

/// Entries that may belong together; those that have been matched leave it.
struct RuleMatcher::Group {
  std::string Key;
  std::vector<Held> vOld;
  std::vector<Held> vNew;
  std::size_t Bytes = 0;

  bool IsEmpty() const { return vOld.empty() && vNew.empty(); }

  void Add(const EntryHead& Head, std::string_view Text) {
    (Head.IsNew ? vNew : vOld).push_back({Head, std::string(Text)});
    Bytes += sizeof(Held) + Text.size();
  }

  void Clear() {
    vOld.clear();
    vNew.clear();
    Bytes = 0;
  }

  /// Removes what has been matched.
  /// @param vOldIsMatched, vNewIsMatched for each entry, whether it has been
  void Keep(const std::vector<bool>& vOldIsMatched, const std::vector<bool>& vNewIsMatched) {
    const auto RemoveMatched = [](const std::vector<bool>& vIsMatched, std::vector<Held>& vReturn) {
      std::size_t Kept = 0;
      for (std::size_t At = 0; At < vReturn.size(); ++At) {
        if (!vIsMatched[At]) {
          std::swap(vReturn[Kept++], vReturn[At]);
        }
      }
      vReturn.resize(Kept);
    };
    RemoveMatched(vOldIsMatched, vOld);
    RemoveMatched(vNewIsMatched, vNew);
  }
};

// ---- Adding -----------------------------------------------------------------------------------

RuleMatcher::RuleMatcher(std::size_t MemoryPassIn, Scope ScopePassIn)
    : Memory(MemoryPassIn),
      Wanted(ScopePassIn),
      Added(MakeSorter(2)),
      Results(std::max<std::size_t>(MemoryPassIn / 8, 1)) {}

RuleMatcher::~RuleMatcher() = default;

/// A sorter with a share of the memory.
std::unique_ptr<ExternalSorter> RuleMatcher::MakeSorter(std::size_t Share) const {
  return std::make_unique<ExternalSorter>(std::max<std::size_t>(Memory / Share, 1));
}

void RuleMatcher::AddOld(const ComparedEntry& EntryPassIn) {
  Add(false, EntryPassIn);
}

void RuleMatcher::AddNew(const ComparedEntry& EntryPassIn) {
  Add(true, EntryPassIn);
}

void RuleMatcher::Add(bool IsNew, const ComparedEntry& EntryPassIn) {
  if (EntryPassIn.Text.empty()) {
    return;
  }
  Key.clear();
  AppendSameKey(EntryPassIn, Key);
  Payload.clear();
  AppendHead(HeadOf(IsNew, EntryPassIn), Payload);
  Payload += EntryPassIn.Text;
  Added->Add(Key, Payload);
}

// ---- Passes -----------------------------------------------------------------------------------

void RuleMatcher::Match() {
  const struct {
    KeyWriter Key;
    GroupPairing Pair;
  } Passes[] = {
      {AppendHeaderKey, &RuleMatcher::PairByHeader},
      {AppendMeaningKey, &RuleMatcher::PairByMeaning},
      {AppendTypesKey, &RuleMatcher::PairNearest},
      {AppendSequencesKey, &RuleMatcher::PairNearest},
  };
  StartPass(Passes[0].Key);
  Added->Sort();
  MatchSame(*Added);
  Added.reset();
  for (std::size_t At = 0; At < std::size(Passes); ++At) {
    const std::unique_ptr<ExternalSorter> From = std::move(Unmatched);
    StartPass(At + 1 < std::size(Passes) ? Passes[At + 1].Key : nullptr);
    From->Sort();
    MatchGroups(*From, Passes[At].Pair);
  }
  Results.Sort();
  vMoved = FindMoved(std::move(vPlaces));
}

/// Makes room for what the next pass gets, by the keys of that one; null if there is none.
void RuleMatcher::StartPass(KeyWriter KeyPassIn) {
  UnmatchedKey = KeyPassIn;
  Unmatched = KeyPassIn == nullptr ? nullptr : MakeSorter(8);
}

/// Pairs entries that are the same, in their order. Of those with one key the text of the first is
/// held, and of the others where they are; the old ones come first.
void RuleMatcher::MatchSame(ExternalSorter& From) {
  std::string GroupKey;
  std::string Text;
  std::vector<EntryHead> vOld;
  std::size_t NextOld = 0;
  const auto Finish = [&] {
    for (; NextOld < vOld.size(); ++NextOld) {
      Forward(false, EntryFrom(vOld[NextOld], Text));
    }
    vOld.clear();
    NextOld = 0;
  };
  for (SortRecord Record; From.Next(Record);) {
    if (Record.Key != GroupKey) {
      Finish();
      GroupKey = Record.Key;
    }
    std::string_view Rest = Record.Payload;
    const auto Head = TakeHead<EntryHead>(Rest);
    if (vOld.empty() && !Head.IsNew) {
      Text = Rest;
    }
    const bool IsSame = Rest == Text;
    if (IsSame && !Head.IsNew) {
      vOld.push_back(Head);
    } else if (IsSame && NextOld < vOld.size() && vOld[NextOld].IsRule == Head.IsRule) {
      ReturnPair(MatchReason::Same, 100, EntryFrom(vOld[NextOld++], Text), EntryFrom(Head, Rest));
    } else {
      Forward(Head.IsNew, EntryFrom(Head, Rest));
    }
  }
  Finish();
}

/// Pairs entries within groups. A group that does not fit into its part of the memory is cut.
void RuleMatcher::MatchGroups(ExternalSorter& From, GroupPairing Pair) {
  Group Same;
  const auto Finish = [&] {
    if (!Same.IsEmpty()) {
      (this->*Pair)(Same);
      ForwardRest(Same);
      Same.Clear();
    }
  };
  for (SortRecord Record; From.Next(Record);) {
    const std::string_view GroupKey = GroupOf(Record.Key);
    if (GroupKey != Same.Key || Same.Bytes > Memory / 8) {
      Finish();
      Same.Key = GroupKey;
    }
    std::string_view Rest = Record.Payload;
    const auto Head = TakeHead<EntryHead>(Rest);
    Same.Add(Head, Rest);
  }
  Finish();
}

// ---- Pairing in a group -----------------------------------------------------------------------

void RuleMatcher::PairByHeader(Group& GroupReturn) {
  const ComparedEntry First =
      (GroupReturn.vOld.empty() ? GroupReturn.vNew : GroupReturn.vOld).front().Entry();
  if (!First.Header().empty()) {
    PairSameBlocks(MatchReason::Header, GroupReturn);
    PairAlike(MatchReason::Header, 0, GroupReturn);
    PairInOrder(MatchReason::Header, GroupReturn);
  }
}

void RuleMatcher::PairByMeaning(Group& GroupReturn) {
  PairSameBlocks(MatchReason::Meaning, GroupReturn);
}

void RuleMatcher::PairNearest(Group& GroupReturn) {
  PairAlike(MatchReason::Nearest, LeastScore, GroupReturn);
}

void RuleMatcher::PairSameBlocks(MatchReason Reason, Group& GroupReturn) {
  std::vector<bool> vOldIsMatched(GroupReturn.vOld.size());
  std::vector<bool> vNewIsMatched(GroupReturn.vNew.size());
  std::unordered_map<std::string_view, std::vector<std::size_t>> Places;
  for (std::size_t Old = GroupReturn.vOld.size(); Old-- > 0;) {
    Places[GroupReturn.vOld[Old].Entry().Block()].push_back(Old);
  }
  for (std::size_t New = 0; New < GroupReturn.vNew.size(); ++New) {
    const auto Found = Places.find(GroupReturn.vNew[New].Entry().Block());
    if (Found != Places.end() && !Found->second.empty()) {
      const std::size_t Old = Found->second.back();
      Found->second.pop_back();
      vOldIsMatched[Old] = vNewIsMatched[New] = true;
      ReturnPair(Reason, 100, GroupReturn.vOld[Old].Entry(), GroupReturn.vNew[New].Entry());
    }
  }
  GroupReturn.Keep(vOldIsMatched, vNewIsMatched);
}

void RuleMatcher::PairAlike(MatchReason Reason, unsigned Least, Group& GroupReturn) {
  const auto TokensOfAll = [](const std::vector<Held>& vHeld) {
    std::vector<RuleTokens> vTokens;
    vTokens.reserve(vHeld.size());
    for (const Held& Current : vHeld) {
      vTokens.push_back(TokensOf(Current.Entry().Block()));
    }
    return vTokens;
  };
  if (GroupReturn.vOld.empty() || GroupReturn.vNew.empty()) {
    return;
  }
  std::vector<bool> vOldIsMatched(GroupReturn.vOld.size());
  std::vector<bool> vNewIsMatched(GroupReturn.vNew.size());
  for (const NearPair& Pair :
       FindNearest(TokensOfAll(GroupReturn.vOld), TokensOfAll(GroupReturn.vNew), Least)) {
    vOldIsMatched[Pair.Old] = vNewIsMatched[Pair.New] = true;
    ReturnPair(Reason, Pair.Score, GroupReturn.vOld[Pair.Old].Entry(),
               GroupReturn.vNew[Pair.New].Entry());
  }
  GroupReturn.Keep(vOldIsMatched, vNewIsMatched);
}

void RuleMatcher::PairInOrder(MatchReason Reason, Group& GroupReturn) {
  const std::size_t Count = std::min(GroupReturn.vOld.size(), GroupReturn.vNew.size());
  std::vector<bool> vOldIsMatched(GroupReturn.vOld.size());
  std::vector<bool> vNewIsMatched(GroupReturn.vNew.size());
  for (std::size_t At = 0; At < Count; ++At) {
    vOldIsMatched[At] = vNewIsMatched[At] = true;
    ReturnPair(Reason, 0, GroupReturn.vOld[At].Entry(), GroupReturn.vNew[At].Entry());
  }
  GroupReturn.Keep(vOldIsMatched, vNewIsMatched);
}

void RuleMatcher::ForwardRest(const Group& Rest) {
  for (const Held& Current : Rest.vOld) {
    Forward(false, Current.Entry());
  }
  for (const Held& Current : Rest.vNew) {
    Forward(true, Current.Entry());
  }
}

// ---- Results ----------------------------------------------------------------------------------

namespace {

/// What is stored of a match before its two texts; entries that are the same have one.
struct MatchHead {
  MatchReason Reason;
  unsigned Score;
  bool HasOld;
  bool HasNew;
  EntryHead Old;
  EntryHead New;
};

}  // namespace

/// Keeps for the next pass what has no partner yet. A text that is not a rule will not find one.
void RuleMatcher::Forward(bool IsNew, const ComparedEntry& EntryPassIn) {
  if (UnmatchedKey == nullptr || !EntryPassIn.IsRule) {
    ReturnSingle(IsNew, EntryPassIn);
    return;
  }
  Key.clear();
  UnmatchedKey(EntryPassIn, Key);
  Payload.clear();
  AppendHead(HeadOf(IsNew, EntryPassIn), Payload);
  Payload += EntryPassIn.Text;
  Unmatched->Add(Key, Payload);
}

void RuleMatcher::ReturnPair(MatchReason Reason, unsigned Score, const ComparedEntry& Old,
                             const ComparedEntry& New) {
  if (Wanted == Scope::AllWithMoves) {
    vPlaces.push_back({Old.Number, New.Number});
  }
  if (Reason != MatchReason::Same || Wanted != Scope::Differences) {
    Return({Reason, Score, true, true, Old, New});
  }
}

void RuleMatcher::ReturnSingle(bool IsNew, const ComparedEntry& EntryPassIn) {
  const ComparedEntry None{};
  Return({MatchReason::None, 0, !IsNew, IsNew, IsNew ? None : EntryPassIn,
          IsNew ? EntryPassIn : None});
}

void RuleMatcher::Return(const RuleMatch& MatchPassIn) {
  MatchHead Head{};
  Head.Reason = MatchPassIn.Reason;
  Head.Score = MatchPassIn.Score;
  Head.HasOld = MatchPassIn.HasOld;
  Head.HasNew = MatchPassIn.HasNew;
  Head.Old = HeadOf(false, MatchPassIn.Old);
  Head.New = HeadOf(true, MatchPassIn.New);
  Payload.clear();
  AppendHead(Head, Payload);
  Payload += MatchPassIn.Old.Text;
  Payload += MatchPassIn.Reason == MatchReason::Same ? std::string_view() : MatchPassIn.New.Text;

  const ComparedEntry& Placed = MatchPassIn.HasOld ? MatchPassIn.Old : MatchPassIn.New;
  Key.clear();
  for (int Shift = 56; Shift >= 0; Shift -= 8) {
    Key += static_cast<char>(static_cast<unsigned char>(Placed.Number >> Shift));
  }
  Key += MatchPassIn.HasOld ? '0' : '1';
  Results.Add(Key, Payload);
}

bool RuleMatcher::Next(RuleMatch& MatchReturn) {
  SortRecord Record;
  if (!Results.Next(Record)) {
    return false;
  }
  std::string_view Rest = Record.Payload;
  const auto Head = TakeHead<MatchHead>(Rest);
  const std::string_view OldText = Rest.substr(0, Head.Old.TextSize);
  const bool IsSame = Head.Reason == MatchReason::Same;
  MatchReturn = {Head.Reason,
                 Head.Score,
                 Head.HasOld,
                 Head.HasNew,
                 EntryFrom(Head.Old, OldText),
                 EntryFrom(Head.New, IsSame ? OldText : Rest.substr(OldText.size()))};
  return true;
}

bool RuleMatcher::HasMoved(const RuleMatch& MatchPassIn) const {
  return MatchPassIn.HasOld && MatchPassIn.HasNew &&
         std::binary_search(vMoved.begin(), vMoved.end(), MatchPassIn.Old.Number);
}

}  // namespace Grammar
