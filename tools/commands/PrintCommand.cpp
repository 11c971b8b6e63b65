#include "PrintCommand.h"

#include "Bytes.h"
#include "LibraryText.h"
#include "LineKind.h"
#include "OutputFile.h"
#include "RuleFindings.h"

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

/// Reports that the library cannot write a rule that can be read here.
void ReportUnwritten(const SourceRule& Rule, LibraryFailure Failure,
                     std::vector<Finding>& vFindingsReturn) {
  const std::size_t Line = Rule.RuleLines().front().Line;
  RuleFindings(Rule.Text(), vFindingsReturn)
      .Add("TR014", Line, Trimmed(Rule.Text().Line(Line)),
           Failure == LibraryFailure::Unread
               ? "the library's reader looks into comments, too, and cannot read this rule"
               : "the library's reader looks into comments, too, and cannot put what it finds in "
                 "order");
}

class Printer : public RuleVisitor {
 public:
  Printer(const PrintOptions& OptionsPassIn, OutputFile& OutputPassIn)
      : Options(OptionsPassIn), Output(OutputPassIn) {}

  bool PrepareRule(RuleRecord& Record, std::string& /*KeyReturn*/, std::string& TextReturn,
                   std::vector<Finding>& vFindingsReturn) const override {
    if (Options.AsLibrary) {
      return AppendAsLibrary(Record.Lines(), TextReturn, vFindingsReturn);
    }
    if (Options.Flip) {
      Record.Flip();
    }
    AppendNormalForm(Record, Options.Form, TextReturn);
    return true;
  }

  void TakeRule(std::string_view /*Key*/, std::string_view Rule) override { Output.Write(Rule); }

  /// Comments without a rule get the normal form, too; what is not a rule stays as it is, but for
  /// the line that it has to fit on.
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

 private:
  bool AppendAsLibrary(const SourceRule& Rule, std::string& TextReturn,
                       std::vector<Finding>& vFindingsReturn) const {
    std::string Lines;
    const LibraryFailure Failure = AppendLibraryText(Rule.Text().Text, Lines);
    if (Failure != LibraryFailure::None) {
      ReportUnwritten(Rule, Failure, vFindingsReturn);
      return false;
    }
    TextReturn += Options.Form.OneLine ? Folded(Lines) + '\n' : Lines;
    return true;
  }

  PrintOptions Options;
  OutputFile& Output;
  std::string Text;
  bool IsRaw = false;  ///< whether the last text went out as it was
};

}  // namespace

int RunPrint(const RunOptions& Run, const PrintOptions& Options) {
  OutputFile Output(Run.Output);
  Printer Visitor(Options, Output);
  RunTally Tally = VisitRules(Run, Visitor);
  Tally.HasLostText = (Options.Form.NoComments || Options.AsLibrary) && Tally.HasStrayText;
  return FinishRun(Run, Tally, Output);
}

}  // namespace Grammar
