#include "EntrySequence.h"

#include "RuleReader.h"

#include <utility>

namespace Grammar {

ComparedEntry MakeEntry(const RuleText& SourcePassIn, RuleRecord& RecordReturn,
                        std::string& TextReturn) {
  const bool IsRule = SourcePassIn.HasRule && RecordReturn.Read(SourcePassIn);
  ComparedEntry Entry = IsRule ? EntryOf(RecordReturn, TextReturn)
                               : EntryOf(std::string_view(SourcePassIn.Text), TextReturn);
  Entry.Line = SourcePassIn.FirstLine;
  return Entry;
}

EntrySequence::EntrySequence(EntrySink TakePassIn) : Take(std::move(TakePassIn)) {}

void EntrySequence::Add(const RuleText& SourcePassIn, const ComparedEntry& EntryPassIn) {
  if (!SourcePassIn.Continues) {
    Finish();
  }
  if (SourcePassIn.IsPiece) {
    PieceLine = Pieces.empty() ? SourcePassIn.FirstLine : PieceLine;
    PiecesHaveReturns = PiecesHaveReturns || SourcePassIn.HasReturns;
    Pieces += SourcePassIn.Text;
  } else {
    Pass({EntryPassIn, SourcePassIn.Text, SourcePassIn.HasReturns});
  }
}

void EntrySequence::Finish() {
  if (Pieces.empty()) {
    return;
  }
  std::string Text;
  ComparedEntry Entry = EntryOf(std::string_view(Pieces), Text);
  Entry.Line = PieceLine;
  Pass({Entry, Pieces, PiecesHaveReturns});
  Pieces.clear();
  PiecesHaveReturns = false;
}

void EntrySequence::Pass(ReadEntry Read) {
  Read.Entry.Number = Number++;
  Take(Read);
}

void PassEntries(std::string TextPassIn, const EntrySink& TakePassIn) {
  RuleReader Reader(std::move(TextPassIn));
  EntrySequence Sequence(TakePassIn);
  RuleRecord Record;
  RuleText Source;
  for (std::string Text; Reader.Next(Source);) {
    Sequence.Add(Source, MakeEntry(Source, Record, Text));
  }
  Sequence.Finish();
}

}  // namespace Grammar
