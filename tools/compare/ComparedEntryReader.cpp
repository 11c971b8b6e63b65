#include "ComparedEntryReader.h"

#include "Pipeline.h"
#include "RuleFiles.h"
#include "ThreadCount.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Grammar {

namespace {

/// Texts that are read together, and their entries. A batch is used again with its storage.
struct EntryBatch {
  struct Read {
    RuleText Source;
    ComparedEntry Entry;
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
    Current.Entry = MakeEntry(Current.Source, Record, Current.Text);
  }
}

void AddEntries(const EntryBatch& Batch, EntrySequence& SequenceReturn) {
  for (std::size_t At = 0; At < Batch.Count; ++At) {
    SequenceReturn.Add(Batch.vRead[At].Source, Batch.vRead[At].Entry);
  }
}

}  // namespace

bool ReadEntries(const EntryReading& ReadingPassIn, const EntrySink& TakePassIn) {
  RuleFiles Files({ReadingPassIn.File}, ReadingPassIn.Quiet);
  EntrySequence Sequence(TakePassIn);
  RunPipeline<EntryBatch>(
      ThreadCount(ReadingPassIn.Threads),
      [&](EntryBatch& Batch) { return ReadBatch(Files, Batch); }, MakeEntries,
      [&](const EntryBatch& Batch) { AddEntries(Batch, Sequence); });
  Sequence.Finish();
  return !Files.HasFailed();
}

}  // namespace Grammar
