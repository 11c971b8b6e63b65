#pragma once

#include "ComparedEntry.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace Grammar {

/// An entry with the bytes that it stands for. The entries of a file, one after the other, stand
/// for all of its bytes.
struct ReadEntry {
  ComparedEntry Entry;
  std::string_view Bytes;
  bool HasReturns = false;  ///< whether some line of it ends in CRLF
};

using EntrySink = std::function<void(const ReadEntry&)>;

/// Makes an entry of the text of a rule, or of another text.
/// @param RecordReturn is written over
/// @param TextReturn is written over; the entry points into it
ComparedEntry MakeEntry(const RuleText& SourcePassIn, RuleRecord& RecordReturn,
                        std::string& TextReturn);

/// Numbers the entries of a file, puts together what has come in pieces, and passes on each.
class EntrySequence {
 public:
  explicit EntrySequence(EntrySink TakePassIn);

  /// Adds the next text and its entry.
  void Add(const RuleText& SourcePassIn, const ComparedEntry& EntryPassIn);

  /// To be called after the last text.
  void Finish();

 private:
  void Pass(ReadEntry Read);

  EntrySink Take;
  std::uint64_t Number = 0;
  std::string Pieces;  // so far
  std::size_t PieceLine = 0;
  bool PiecesHaveReturns = false;
};

/// Passes on the entries of a text that is in memory.
///
/// @code
/// std::vector<std::string> vsTexts;
/// PassEntries("NP::NP : [N] -> [N]\n(X1::Y1)\n; last\n", [&](const ReadEntry& Read) {
///   vsTexts.emplace_back(Read.Entry.Text);
/// });
/// vsTexts;  // {"; last\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n"}
/// @endcode
void PassEntries(std::string TextPassIn, const EntrySink& TakePassIn);

}  // namespace Grammar
