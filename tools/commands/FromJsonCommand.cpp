#include "FromJsonCommand.h"

#include "JsonReader.h"
#include "OutputFile.h"
#include "Pipeline.h"
#include "Progress.h"
#include "RuleFiles.h"
#include "RunError.h"
#include "ThreadCount.h"

#include <cstddef>
#include <iostream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Grammar {

namespace {

/// Lines that are read together, and what they stand for. A batch is used again with its storage.
struct LineBatch {
  struct Line {
    std::vector<std::string> vsFailures;  // of files that should have come before
    const std::string* Name = nullptr;    // of its file
    std::size_t Number = 0;               // in its file, from 1
    std::string Text;
    RuleFromJson Result;
  };

  /// Room for one more line, after the others.
  Line& NextLine() {
    constexpr std::size_t MostKept = std::size_t{1} << 14;
    if (Count == vLines.size()) {
      return vLines.emplace_back();
    }
    if (vLines[Count].Text.capacity() > MostKept) {
      vLines[Count].Text = std::string();
    }
    return vLines[Count];
  }

  std::vector<Line> vLines;  // the first ones are those of the batch
  std::size_t Count = 0;     // how many these are
};

/// Reads the files of a run batch by batch. A file that cannot be read is reported in its turn.
class LineFiles {
 public:
  explicit LineFiles(const RunOptions& Options)
      : vsNames(OrStandardInput(Options.vsFiles)), Shown(Options.Quiet, TotalSize(vsNames)) {}

  /// Reads about that many bytes of lines, at least one line. @return false after the last one
  bool Read(LineBatch& BatchReturn) {
    constexpr std::size_t WantedSize = std::size_t{1} << 18;
    BatchReturn.Count = 0;
    for (std::size_t Size = 0; Size < WantedSize; ++BatchReturn.Count) {
      LineBatch::Line& New = BatchReturn.NextLine();
      if (!Next(New.Text)) {
        break;
      }
      New.vsFailures = std::exchange(vsFailures, {});
      New.Name = &vsNames[NextName - 1];
      New.Number = Number;
      Size += New.Text.size();
    }
    return BatchReturn.Count > 0;
  }

  /// What could not be read since the last line.
  const std::vector<std::string>& Failures() const { return vsFailures; }

  bool HasFailed() const { return Failed; }

 private:
  /// Returns the next line that is not blank. @return false after the last line of the last file
  bool Next(std::string& TextReturn) {
    while (File != nullptr || NextName < vsNames.size()) {
      try {
        if (NextInFile(TextReturn)) {
          return true;
        }
      } catch (const InputError& Error) {
        vsFailures.emplace_back(Error.what());
        Failed = true;
      }
      File = nullptr;
    }
    return false;
  }

  bool NextInFile(std::string& TextReturn) {
    if (File == nullptr) {
      Number = 0;
      File = std::make_unique<InputFile>(vsNames[NextName++]);
    }
    while (std::getline(File->Stream(), TextReturn)) {
      ++Number;
      Shown.Advance(TextReturn.size() + 1);
      if (TextReturn.find_first_not_of(" \t\r") != std::string::npos) {
        return true;
      }
    }
    return false;
  }

  std::vector<std::string> vsNames;
  std::size_t NextName = 0;
  std::unique_ptr<InputFile> File;
  std::size_t Number = 0;  // of the last line in its file, from 1
  Progress Shown;
  std::vector<std::string> vsFailures;
  bool Failed = false;
};

void ReadBatch(LineBatch& BatchReturn) {
  JsonReader Reader;
  for (std::size_t Place = 0; Place < BatchReturn.Count; ++Place) {
    BatchReturn.vLines[Place].Result = Reader.Read(BatchReturn.vLines[Place].Text);
  }
}

/// Writes what batches stand for, in the order of the input, and counts.
class LineWriter {
 public:
  explicit LineWriter(OutputFile& OutputPassIn) : Output(OutputPassIn) {}

  void Write(const LineBatch& Batch) {
    for (std::size_t Place = 0; Place < Batch.Count; ++Place) {
      const LineBatch::Line& Current = Batch.vLines[Place];
      ReportFailures(Current.vsFailures);
      Report(Current);
      Count(Current.Result);
      Write(Current.Result);
    }
  }

  RunTally& Result() { return Tally; }

 private:
  static void Report(const LineBatch::Line& Line) {
    for (const std::string& sProblem : Line.Result.vsProblems) {
      std::cerr << *Line.Name << ':' << Line.Number << ": "
                << (Line.Result.IsRead ? "warning: " : "error: ") << sProblem << '\n';
    }
  }

  void Count(const RuleFromJson& Read) {
    Tally.HasFindings = Tally.HasFindings || !Read.vsProblems.empty();
    // What is not an object at all may have been meant as a rule.
    Tally.Rules += !Read.IsRead || Read.IsRule ? 1 : 0;
    Tally.LeftOut += Read.IsRead ? 0 : 1;
  }

  /// A rule begins a line, also after a text whose last line has no end.
  void Write(const RuleFromJson& Read) {
    if (Read.Text.empty()) {
      return;
    }
    if (LacksFinalNewline && Read.IsRule) {
      Output.Write("\n");
    }
    Output.Write(Read.Text);
    LacksFinalNewline = Read.Text.back() != '\n';
  }

  OutputFile& Output;
  bool LacksFinalNewline = false;
  RunTally Tally;
};

}  // namespace

int RunFromJson(const RunOptions& Run) {
  OutputFile Output(Run.Output);
  LineFiles Files(Run);
  LineWriter Writer(Output);
  RunPipeline<LineBatch>(
      ThreadCount(Run.Threads), [&](LineBatch& Batch) { return Files.Read(Batch); }, ReadBatch,
      [&](const LineBatch& Batch) { Writer.Write(Batch); });
  ReportFailures(Files.Failures());
  Writer.Result().HasUnreadFiles = Files.HasFailed();
  return FinishRun(Run, Writer.Result(), Output, false);
}

}  // namespace Grammar
