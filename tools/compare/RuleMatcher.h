#pragma once

#include "ComparedEntry.h"
#include "ExternalSorter.h"
#include "MovedPlaces.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Why an old and a new entry belong together.
enum class MatchReason {
  None,     ///< they do not: one of the two is missing
  Same,     ///< they are the same, comments and header included
  Header,   ///< they have the same header
  Meaning,  ///< they say the same, under different headers
  Nearest,  ///< of the rest, they have the most in common
};

/// Two entries that belong together, or one that has been removed or added.
struct RuleMatch {
  MatchReason Reason = MatchReason::None;
  unsigned Score = 100;  ///< the likeness of the nearest, in percent
  bool HasOld = false;
  bool HasNew = false;
  ComparedEntry Old;
  ComparedEntry New;
};

/// Matches the rules of an old file with those of a new one: those that are the same; then those
/// with the same header; then those that say the same; then the nearest, first among rules with the
/// same types, then among rules with the same sequences. Of several rules with one header, those
/// that say the same go together, then the nearest, then the others in their order. Texts that are
/// not rules match only if they are the same. Each entry is in exactly one match.
///
/// @code
/// RuleMatcher Matcher(std::size_t{64} << 20, RuleMatcher::Scope::Differences);
/// PassEntries("{NP,1}\nNP::NP [N] -> [N]\n(X1::Y1)\n",
///             [&](const ReadEntry& Read) { Matcher.AddOld(Read.Entry); });
/// PassEntries("{NP,2}\nNP::NP [N] -> [N]\n(X1::Y1)\n",
///             [&](const ReadEntry& Read) { Matcher.AddNew(Read.Entry); });
/// Matcher.Match();
/// RuleMatch Match;
/// Matcher.Next(Match);  // true
/// Match.Reason;         // MatchReason::Meaning
/// Match.New.Header();   // "{NP,2}"
/// Matcher.Next(Match);  // false
/// @endcode
///
/// What goes beyond the memory is put into temporary files, but for 48 bytes of each old entry that
/// is the same as many others. Of rules that have one header, or that might be nearest to each
/// other, so many are compared as fit into an eighth of the memory.
class RuleMatcher {
 public:
  /// What is returned.
  enum class Scope {
    Differences,  ///< all but entries that are the same
    All,
    AllWithMoves,  ///< all; and what has moved is known, for sixteen bytes of each entry
  };

  /// How much the nearest rules have in common at least.
  static constexpr unsigned LeastScore = 51;

  RuleMatcher(std::size_t MemoryPassIn, Scope ScopePassIn);
  ~RuleMatcher();

  RuleMatcher(const RuleMatcher&) = delete;
  RuleMatcher& operator=(const RuleMatcher&) = delete;

  /// Adds the next entry of the old file. All of them come before those of the new file. An entry
  /// without a text is left out.
  void AddOld(const ComparedEntry& EntryPassIn);

  /// Adds the next entry of the new file.
  void AddNew(const ComparedEntry& EntryPassIn);

  /// Matches what has been added. To be called once.
  void Match();

  /// The next match, in the order of the numbers of the old entries; an added one comes after the
  /// old entry with its number. Its texts are there until the next call; of entries that are the
  /// same, both have one text.
  /// @return whether there was one more
  bool Next(RuleMatch& MatchReturn);

  /// Whether an old entry has another place among those that are in both files.
  /// To be called after `Match`.
  bool HasMoved(const RuleMatch& MatchPassIn) const;

 private:
  struct Held;
  struct Group;
  using KeyWriter = void (*)(const ComparedEntry& Entry, std::string& KeyReturn);
  using GroupPairing = void (RuleMatcher::*)(Group& GroupReturn);

  void Add(bool IsNew, const ComparedEntry& EntryPassIn);
  std::unique_ptr<ExternalSorter> MakeSorter(std::size_t Share) const;

  void StartPass(KeyWriter KeyPassIn);
  void MatchSame(ExternalSorter& From);
  void MatchGroups(ExternalSorter& From, GroupPairing Pair);
  void PairByHeader(Group& GroupReturn);
  void PairByMeaning(Group& GroupReturn);
  void PairNearest(Group& GroupReturn);

  void PairSameBlocks(MatchReason Reason, Group& GroupReturn);
  void PairAlike(MatchReason Reason, unsigned Least, Group& GroupReturn);
  void PairInOrder(MatchReason Reason, Group& GroupReturn);
  void ForwardRest(const Group& Rest);

  void Forward(bool IsNew, const ComparedEntry& EntryPassIn);
  void ReturnPair(MatchReason Reason, unsigned Score, const ComparedEntry& Old,
                  const ComparedEntry& New);
  void ReturnSingle(bool IsNew, const ComparedEntry& EntryPassIn);
  void Return(const RuleMatch& MatchPassIn);

  std::size_t Memory;
  Scope Wanted;
  std::unique_ptr<ExternalSorter> Added;
  std::unique_ptr<ExternalSorter> Unmatched;  ///< what the next pass gets; null after the last
  KeyWriter UnmatchedKey = nullptr;
  ExternalSorter Results;
  std::string Key;
  std::string Payload;
  std::vector<PlacePair> vPlaces;     ///< of all pairs
  std::vector<std::uint64_t> vMoved;  ///< old numbers, in ascending order
};

}  // namespace Grammar
