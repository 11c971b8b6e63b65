#pragma once

#include "DiffHunk.h"
#include "EntrySequence.h"
#include "JoinedTexts.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Grammar {

/// Why a difference cannot be made.
struct PatchFault {
  std::size_t DiffLine;    ///< of the difference, from 1
  std::uint64_t FileLine;  ///< of the rule that is not as expected, from 1; 0 if there is none
  std::string Message;
  std::vector<std::string> vsDetails;  ///< "constraint ((Y2 NUM) = …): expected SG, found PL"
};

/// Makes the differences of a diff in a file, each where a rule is exactly what the diff expects.
/// Such a rule becomes the new one, in the normal form, at its place; added ones come after all
/// others; and what the diff does not name stays byte for byte. Rules are found by what they are,
/// so that it makes no difference where they stand; of several that are the same, the first is
/// taken.
///
/// @code
/// DiffHunk Hunk;
/// Hunk.Kind = HunkKind::Changed;
/// Hunk.OldText = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
/// Hunk.NewText = "NP::NP [N] -> [ADJ]\n(\n(X1::Y1)\n)\n";
/// RulePatch Patch({Hunk});
/// PassEntries("N::N : [D] -> [D]\n((X1::Y1))\nNP::NP : [N] -> [N]\n(X1::Y1)\n",
///             [&](const ReadEntry& Entry) { Patch.Take(Entry); });
/// Patch.Finish().size();  // 0
/// std::string Patched;
/// Patch.PassTo([&](std::string_view Bytes) { Patched += Bytes; });
/// Patched;  // "N::N : [D] -> [D]\n((X1::Y1))\nNP::NP [N] -> [ADJ]\n(\n(X1::Y1)\n)\n"
/// @endcode
class RulePatch {
 public:
  explicit RulePatch(std::vector<DiffHunk> vHunksPassIn);

  /// Takes the next entry of the file.
  void Take(const ReadEntry& EntryPassIn);

  /// To be called after the last entry. @return why the diff does not fit; nothing if it does
  std::vector<PatchFault> Finish();

  /// Passes the new file to a sink.
  void PassTo(const std::function<void(std::string_view)>& TakePassIn) const {
    Joined.PassTo(TakePassIn);
  }

 private:
  using Places = std::unordered_map<std::string_view, std::vector<std::size_t>>;

  /// What the file has in the place of a rule that is expected.
  struct Found {
    std::uint64_t Line = 0;
    std::string Text;
    bool IsMadeAlready = false;
  };

  void Note(const ComparedEntry& Entry);
  PatchFault FaultOf(std::size_t Place) const;

  std::vector<DiffHunk> vHunks;
  std::vector<bool> vIsMade;
  std::vector<Found> vFound;
  Places Expected;  ///< the differences that are still to be made, by their old texts
  Places Headers;   ///< those with an old rule, by its header
  Places Results;   ///< those with a new rule, by its text
  std::vector<std::string> vsHeaders;
  JoinedTexts Joined;
  bool IsAsBefore = false;  ///< whether the last entry was passed on as it is
  bool HasReturns = false;
};

}  // namespace Grammar
