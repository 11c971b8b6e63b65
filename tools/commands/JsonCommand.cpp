#include "JsonCommand.h"

#include "InputFile.h"
#include "JsonReader.h"
#include "OutputFile.h"
#include "Progress.h"
#include "RuleJson.h"
#include "RunError.h"

#include <iostream>
#include <string>

namespace Grammar {

namespace {

class JsonWriter : public RuleVisitor {
 public:
  explicit JsonWriter(OutputFile& OutputPassIn) : Output(OutputPassIn) {}

  void PrepareRule(RuleRecord& Record, std::string& /*KeyReturn*/,
                   std::string& TextReturn) const override {
    AppendJson(Record, TextReturn);
  }

  void TakeRule(std::string_view /*Key*/, std::string_view Text) override {
    WritePending();
    Output.Write(Text);
  }

  /// A text waits until it is known whether its last line has to be ended.
  void TakeText(std::string_view Text) override {
    WritePending();
    Pending = Text;
  }

  void EndLine() override { Pending += '\n'; }

  void WritePending() {
    if (!Pending.empty()) {
      AppendJsonOfText(Pending, Line);
      WriteLine();
      Pending.clear();
    }
  }

 private:
  void WriteLine() {
    Output.Write(Line);
    Line.clear();
  }

  OutputFile& Output;
  std::string Line;
  std::string Pending;
};

/// Turns the lines of one run into rules.
class LineReader {
 public:
  LineReader(OutputFile& OutputPassIn, Progress& ShownPassIn)
      : Output(OutputPassIn), Shown(ShownPassIn) {}

  /// Reads a file, as far as it can be read.
  void ReadFile(const std::string& Name) {
    try {
      InputFile File(Name);
      ReadLines(File.Stream(), Name);
    } catch (const InputError& Error) {
      ReportFailure(Error.what());
      Tally.HasUnreadFiles = true;
    }
  }

  const RunTally& Result() const { return Tally; }

 private:
  void ReadLines(std::istream& Input, const std::string& Name) {
    std::string Line;
    for (std::size_t Number = 1; std::getline(Input, Line); ++Number) {
      Shown.Advance(Line.size() + 1);
      if (Line.find_first_not_of(" \t\r") != std::string::npos) {
        ReadLine(Line, Name + ':' + std::to_string(Number));
      }
    }
  }

  void ReadLine(const std::string& Line, const std::string& Place) {
    const RuleFromJson Read = Reader.Read(Line);
    for (const std::string& sProblem : Read.vsProblems) {
      std::cerr << Place << ": " << (Read.IsRead ? "warning: " : "error: ") << sProblem << '\n';
      Tally.HasFindings = true;
    }
    // What is no object at all may have been meant as a rule.
    Tally.Rules += !Read.IsRead || Read.IsRule ? 1 : 0;
    Tally.LeftOut += Read.IsRead ? 0 : 1;
    if (!Read.Text.empty()) {
      // A rule begins a line, also after a text whose last line has no end.
      if (LacksLineEnd && Read.IsRule) {
        Output.Write("\n");
      }
      Output.Write(Read.Text);
      LacksLineEnd = Read.Text.back() != '\n';
    }
  }

  OutputFile& Output;
  Progress& Shown;
  JsonReader Reader;
  bool LacksLineEnd = false;
  RunTally Tally;
};

}  // namespace

int RunJson(const RunOptions& Run) {
  OutputFile Output(Run.Output);
  JsonWriter Writer(Output);
  const RunTally Tally = VisitRules(Run, Writer);
  Writer.WritePending();
  return FinishRun(Run, Tally, Output);
}

int RunFromJson(const RunOptions& Run) {
  const std::vector<std::string> vsNames = OrStandardInput(Run.vsFiles);
  OutputFile Output(Run.Output);
  Progress Shown(Run.Quiet, TotalSize(vsNames));
  LineReader Lines(Output, Shown);
  for (const std::string& sName : vsNames) {
    Lines.ReadFile(sName);
  }
  return FinishRun(Run, Lines.Result(), Output, false);
}

}  // namespace Grammar
