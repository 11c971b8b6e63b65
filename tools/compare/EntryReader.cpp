#include "EntryReader.h"

#include "Pipeline.h"
#include "RuleFiles.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Grammar {

namespace {

/// Texts that are read together, and their entries. A batch is used again with its storage.
struct EntryBatch {
  struct Read {
    RuleText Source;
    RuleEntry Entry;
    std::string Text;
  };

  std::vector<Read> vRead;  // the first ones are those of the batch
  std::size_t Count = 0;    // how many these are
};

/// Reads about that many bytes, at least one text. @return false after the last one
bool ReadBatch(RuleFiles& FilesReturn, EntryBatch& BatchReturn) {
  constexpr std::size_t WantedSize = std::size_t{1} << 16;
  BatchReturn.Count = 0;
  for (std::size_t Size = 0; Size < WantedSize; ++BatchReturn.Count) {
    if (BatchReturn.Count == BatchReturn.vRead.size()) {
      BatchReturn.vRead.emplace_back();
    }
    EntryBatch::Read& New = BatchReturn.vRead[BatchReturn.Count];
    if (!FilesReturn.Next(New.Source)) {
      break;
    }
    Size += New.Source.Text.size();
  }
  return BatchReturn.Count > 0;
}

void MakeEntries(EntryBatch& BatchReturn) {
  RuleRecord Record;
  for (std::size_t At = 0; At < BatchReturn.Count; ++At) {
    EntryBatch::Read& Current = BatchReturn.vRead[At];
    const bool IsRule = Current.Source.HasRule && Record.Read(Current.Source);
    Current.Entry = IsRule ? EntryOf(Record, Current.Text)
                           : EntryOf(std::string_view(Current.Source.Text), Current.Text);
    Current.Entry.Line = Current.Source.FirstLine;
  }
}

/// Numbers entries, and puts together what has come in pieces.
class EntryFinisher {
 public:
  explicit EntryFinisher(const std::function<void(const ReadEntry&)>& TakePassIn)
      : Take(TakePassIn) {}

  void Finish(const EntryBatch& Batch) {
    for (std::size_t At = 0; At < Batch.Count; ++At) {
      const EntryBatch::Read& Current = Batch.vRead[At];
      if (!Current.Source.Continues) {
        FinishPieces();
      }
      if (Current.Source.IsPiece) {
        PieceLine = Pieces.empty() ? Current.Source.FirstLine : PieceLine;
        PiecesHaveReturns = PiecesHaveReturns || Current.Source.HasReturns;
        Pieces += Current.Source.Text;
      } else {
        Pass({Current.Entry, Current.Source.Text, Current.Source.HasReturns});
      }
    }
  }

  void FinishPieces() {
    if (!Pieces.empty()) {
      std::string Text;
      RuleEntry Entry = EntryOf(std::string_view(Pieces), Text);
      Entry.Line = PieceLine;
      Pass({Entry, Pieces, PiecesHaveReturns});
      Pieces.clear();
      PiecesHaveReturns = false;
    }
  }

 private:
  void Pass(ReadEntry Entry) {
    Entry.Entry.Number = Number++;
    Take(Entry);
  }

  const std::function<void(const ReadEntry&)>& Take;
  std::uint64_t Number = 0;
  std::string Pieces;
  std::size_t PieceLine = 0;
  bool PiecesHaveReturns = false;
};

}  // namespace

bool ReadEntries(const EntryReading& ReadingPassIn,
                 const std::function<void(const ReadEntry&)>& TakePassIn) {
  RuleFiles Files({ReadingPassIn.File}, ReadingPassIn.Quiet);
  EntryFinisher Finisher(TakePassIn);
  RunPipeline<EntryBatch>(
      ThreadCount(ReadingPassIn.Threads),
      [&](EntryBatch& Batch) { return ReadBatch(Files, Batch); }, MakeEntries,
      [&](const EntryBatch& Batch) { Finisher.Finish(Batch); });
  Finisher.FinishPieces();
  return !Files.HasFailed();
}

}  // namespace Grammar
