#include "HeadCommand.h"

#include "OutputFile.h"
#include "RuleChecker.h"
#include "RuleFiles.h"

namespace Grammar {

namespace {

/// Writes texts of rules as they are, each on lines of its own.
class RuleCopier {
 public:
  explicit RuleCopier(OutputFile& OutputPassIn) : Output(OutputPassIn) {}

  void Copy(const RuleText& Text) {
    if (!Text.Continues) {
      EndLine();
    }
    Output.Write(Text.Text);
    OwesLineEnd = Text.LacksFinalNewline;
  }

  /// To be called at the end.
  void EndLine() {
    Output.Write(OwesLineEnd ? "\n" : "");
    OwesLineEnd = false;
  }

 private:
  OutputFile& Output;
  bool OwesLineEnd = false;
};

/// Reports what is wrong with a rule. @return whether something is
bool ReportRule(const RuleText& Text, RuleRecord& Scratch) {
  std::vector<Finding> vFindings;
  ReadRule(Text, Scratch, vFindings);
  Report(vFindings);
  return !vFindings.empty();
}

/// Copies that many rules. @return how that went, but for the files
RunTally CopyRules(RuleFiles& Files, std::uint64_t Count, RuleCopier& Copier) {
  RunTally Tally;
  RuleRecord Record;
  for (RuleText Text; Files.Next(Text);) {
    const bool IsNext = Text.HasRule && !Text.Continues;
    if (IsNext && Tally.Rules == Count) {
      Tally.HasLostText = true;
      break;
    }
    Tally.Rules += IsNext ? 1 : 0;
    if (Text.HasRule) {
      Copier.Copy(Text);
      Tally.HasFindings = ReportRule(Text, Record) || Tally.HasFindings;
    }
  }
  Copier.EndLine();
  return Tally;
}

}  // namespace

int RunHead(const RunOptions& Run, std::uint64_t Count) {
  OutputFile Output(Run.Output);
  RuleFiles Files(Run.vsFiles, Run.Quiet);
  RuleCopier Copier(Output);
  RunTally Tally = CopyRules(Files, Count, Copier);
  Tally.HasUnreadFiles = Files.HasFailed();
  return FinishRun(Run, Tally, Output, false);
}

}  // namespace Grammar
