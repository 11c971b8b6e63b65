#pragma once

#include "ComparedEntryReader.h"
#include "JoinedTexts.h"
#include "RuleMatcher.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Two versions of a rule that do not go together.
struct MergeConflict {
  bool IsInOurs = true;    ///< whether the place is one of ours, not of theirs
  std::uint64_t Line = 0;  ///< where the rule begins, from 1
  std::vector<std::string> vsSentences;
};

/// The entries of a version as they are written and in the normal form, kept in temporary files.
class VersionTexts {
 public:
  /// Adds the next entry. To be called for all of them, in their order.
  void Add(const ReadEntry& Entry);

  /// To be called after the last one.
  void Finish();

  /// An entry by its number.
  JoinedText Read(std::uint64_t Number) const;

 private:
  struct Place {
    std::uint64_t Begin;
    std::uint64_t BytesSize;
    std::uint64_t NormalSize;
    std::uint64_t HasReturns;
  };

  SpillFile Texts;
  SpillFile Places;
};

/// Merges two versions of a grammar, ours and theirs, that come from one base. Rules are matched
/// between the base and either version, and what both have added between these; each rule is merged
/// part by part.
///
/// What stays as one of the versions has it keeps its bytes; a rule that is merged gets the normal
/// form. The order is that of ours, and what only theirs has comes after the rule that it follows
/// there. What cannot be read as a rule is text: kept where either version keeps it unchanged and
/// the other one does not remove it.
///
/// @code
/// FileMerge Versions(std::size_t{64} << 20);
/// PassEntries("NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n",
///             [&](const ReadEntry& Entry) { Versions.AddBase(Entry); });
/// PassEntries("NP::NP [N] -> [ADJ]\n(\n(X1::Y1)\n)\n",
///             [&](const ReadEntry& Entry) { Versions.AddOurs(Entry); });
/// PassEntries("NP::NP [N] -> [N]\n(\n(X1::Y1)\n(X0 = X1)\n)\n",
///             [&](const ReadEntry& Entry) { Versions.AddTheirs(Entry); });
/// int Conflicts = 0;
/// Versions.Merge([&](const MergeConflict&) { ++Conflicts; });
/// std::string Merged;
/// Versions.PassTo([&](std::string_view Bytes) { Merged += Bytes; });
/// Conflicts;  // 0
/// Merged;     // "NP::NP [N] -> [ADJ]\n(\n(X1::Y1)\n(X0 = X1)\n)\n"
/// @endcode
///
/// What goes beyond the memory is put into temporary files.
class FileMerge {
 public:
  explicit FileMerge(std::size_t MemoryPassIn);
  ~FileMerge();

  void AddBase(const ReadEntry& Entry);
  void AddOurs(const ReadEntry& Entry);
  void AddTheirs(const ReadEntry& Entry);

  /// Merges what has been added. To be called once.
  /// @param ReportPassIn gets the conflicts, in the order of the base, and those of added rules
  /// last
  void Merge(const std::function<void(const MergeConflict&)>& ReportPassIn);

  /// Passes the merged file to a sink.
  void PassTo(const std::function<void(std::string_view)>& TakePassIn) const {
    Joined.PassTo(TakePassIn);
  }

 private:
  static constexpr std::uint64_t None = ~std::uint64_t{0};

  /// What comes of an entry of the base, or of an added one.
  enum class Outcome : char { Ours, Theirs, Written };

  struct Result {
    std::uint64_t Ours = None;  ///< the number of the entry, where there is one
    std::uint64_t Theirs = None;
    Outcome What = Outcome::Ours;
    std::string_view Text;  ///< in the normal form, where it is written
  };

  struct AddedEntry;

  void MergeBase();
  void MergeMatch(const RuleMatch& Ours, const RuleMatch& Theirs);
  void MergeChanged(const RuleMatch& Ours, const RuleMatch& Theirs);
  void KeepUnlessSame(const RuleMatch& Changed, bool IsOurs);
  bool NextOfBase(RuleMatcher& Matcher, bool IsOurs, RuleMatch& MatchReturn);
  void KeepAddedByTheirs(const ComparedEntry& Entry);
  void MatchAdded();
  void MergeAdded(const RuleMatch& Match);
  void AddConflict(bool IsInOurs, const ComparedEntry& Entry, std::vector<std::string> vsSentences);
  void Place(const Result& New);
  void PlaceTheirs();
  void PlaceAt(std::uint64_t Ours, std::uint64_t Theirs, const Result& New);
  void Write();

  std::size_t Memory;
  std::unique_ptr<RuleMatcher> OurMatches;
  std::unique_ptr<RuleMatcher> TheirMatches;
  std::unique_ptr<RuleMatcher> AddedMatches;
  ExternalSorter AddedByTheirs;
  ExternalSorter WithTheirs;  ///< results that theirs has, by their places there
  ExternalSorter Results;     ///< by their places in the merged file
  VersionTexts OurTexts;
  VersionTexts TheirTexts;
  JoinedTexts Joined;
  std::function<void(const MergeConflict&)> Report;
  std::string Payload;
};

}  // namespace Grammar
