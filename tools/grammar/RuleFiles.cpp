#include "RuleFiles.h"

#include "RunError.h"
#include "UnfoldingBuffer.h"

#include <utility>

namespace Grammar {

/// A file of rules on one line each, as a stream of their lines.
struct RuleFiles::Unfolded {
  explicit Unfolded(std::istream& Input) : Bytes(Input), Stream(&Bytes) {
    Stream.exceptions(std::ios::badbit);
  }

  UnfoldingBuffer Bytes;
  std::istream Stream;
};

RuleFiles::RuleFiles(std::vector<std::string> vsNamesPassIn, bool Quiet, bool FoldedPassIn)
    : vsNames(OrStandardInput(std::move(vsNamesPassIn))),
      IsFolded(FoldedPassIn),
      Shown(Quiet, TotalSize(vsNames)),
      Sink(ReportFailure) {}

RuleFiles::~RuleFiles() = default;

void RuleFiles::Fail(const std::string& Message) {
  Failed = true;
  Sink(Message);
}

void RuleFiles::Open(const std::string& Name) {
  File = std::make_unique<InputFile>(Name);
  if (IsFolded) {
    Lines = std::make_unique<Unfolded>(File->Stream());
  }
  Reader = std::make_unique<RuleReader>(IsFolded ? Lines->Stream : File->Stream(), Name);
}

/// Opens the next file that can be opened. @return false if there is none
bool RuleFiles::OpenNext() {
  Reader = nullptr;
  Lines = nullptr;
  File = nullptr;
  while (Reader == nullptr && NextName < vsNames.size()) {
    try {
      Open(vsNames[NextName++]);
    } catch (const InputError& Error) {
      Fail(Error.what());
    }
  }
  return Reader != nullptr;
}

/// The next rule of the open file. What a file gives before it fails has been returned by then.
bool RuleFiles::ReadNext(RuleText& TextReturn) {
  try {
    return Reader->Next(TextReturn);
  } catch (const InputError& Error) {
    Fail(Error.what());
    return false;
  }
}

bool RuleFiles::NextInFile(RuleText& TextReturn) {
  const bool IsRead = ReadNext(TextReturn);
  if (IsRead) {
    Shown.Advance(TextReturn.Text.size());
  }
  return IsRead;
}

bool RuleFiles::Next(RuleText& TextReturn) {
  while (Reader != nullptr || OpenNext()) {
    if (NextInFile(TextReturn)) {
      return true;
    }
    if (!OpenNext()) {
      break;
    }
  }
  return false;
}

}  // namespace Grammar
