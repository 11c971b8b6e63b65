#include "JsonCommand.h"

#include "OutputFile.h"
#include "RuleJson.h"

#include <string>

namespace Grammar {

namespace {

class JsonWriter : public RuleVisitor {
 public:
  explicit JsonWriter(OutputFile& OutputPassIn) : Output(OutputPassIn) {}

  bool PrepareRule(RuleRecord& Record, std::string& /*KeyReturn*/, std::string& TextReturn,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    AppendJson(Record, TextReturn);
    return true;
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

}  // namespace

int RunJson(const RunOptions& Run) {
  OutputFile Output(Run.Output);
  JsonWriter Writer(Output);
  const RunTally Tally = VisitRules(Run, Writer);
  Writer.WritePending();
  return FinishRun(Run, Tally, Output);
}

}  // namespace Grammar
