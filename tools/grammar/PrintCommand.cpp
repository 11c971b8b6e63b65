#include "PrintCommand.h"

#include "LineKind.h"
#include "OutputFile.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace Grammar {

namespace {

/// Appends the comments of a text, a line each. @return whether there is nothing but comments
bool AppendComments(std::string_view Others, std::string& TextReturn) {
  while (!Others.empty()) {
    const std::size_t End = std::min(Others.find('\n'), Others.size() - 1);
    const LineParts Parts = PartsOf(Others.substr(0, End + (Others[End] == '\n' ? 0 : 1)));
    if (!Parts.Code.empty()) {
      return false;
    }
    if (!Parts.Comment.empty()) {
      TextReturn.append(Parts.Comment).append(1, '\n');
    }
    Others.remove_prefix(End + 1);
  }
  return true;
}

class Printer : public RuleVisitor {
 public:
  Printer(const PrintOptions& OptionsPassIn, OutputFile& OutputPassIn)
      : Options(OptionsPassIn), Output(OutputPassIn) {}

  void TakeRule(RuleRecord& Record) override {
    if (Options.Flip) {
      Record.Flip();
    }
    HasStrayText = HasStrayText || Record.HasStrayText();
    Text.clear();
    AppendNormalForm(Record, Options.Form, Text);
    Output.Write(Text);
  }

  /// Comments without a rule get the normal form, too; what is no rule stays as it is, but for the
  /// line that it has to fit on.
  void TakeText(std::string_view Others) override {
    Text.clear();
    const bool IsComment = AppendComments(Others, Text);
    IsRaw = !IsComment && !Options.Form.OneLine;
    if (IsRaw) {
      Output.Write(Others);
    } else if (!IsComment) {
      Output.Write(Folded(Others) + '\n');
    } else if (!Options.Form.NoComments && !Text.empty()) {
      Output.Write(Options.Form.OneLine ? Folded(Text) + '\n' : Text);
    }
  }

  void EndLine() override {
    if (IsRaw) {
      Output.Write("\n");
    }
  }

  /// Whether a rule was written that had text on its lines that is no part of it.
  bool HasWrittenStrayText() const { return HasStrayText; }

 private:
  PrintOptions Options;
  OutputFile& Output;
  std::string Text;
  bool IsRaw = false;  ///< whether the last text went out as it was
  bool HasStrayText = false;
};

}  // namespace

int RunPrint(const RunOptions& Run, const PrintOptions& Options) {
  OutputFile Output(Run.Output);
  Printer Visitor(Options, Output);
  RunTally Tally = VisitRules(Run, Visitor);
  Tally.HasLostText = Options.Form.NoComments && Visitor.HasWrittenStrayText();
  return FinishRun(Run, Tally, Output);
}

}  // namespace Grammar
