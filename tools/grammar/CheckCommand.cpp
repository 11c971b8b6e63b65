#include "CheckCommand.h"

#include "Bytes.h"
#include "NearestName.h"
#include "OutputFile.h"
#include "RepeatedRules.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RunError.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace Grammar {

namespace {

bool Has(const std::vector<std::string>& vsCodes, std::string_view Code) {
  return std::find(vsCodes.begin(), vsCodes.end(), Code) != vsCodes.end();
}

/// The codes as they are listed, whatever their case and the blanks around them.
std::vector<std::string> KnownCodes(const std::vector<std::string>& vsWritten) {
  std::vector<std::string> vsAll;
  for (const CodeInfo& Each : AllCodes()) {
    vsAll.emplace_back(Each.Code);
  }
  std::vector<std::string> vsCodes;
  for (const std::string& sWritten : vsWritten) {
    vsCodes.push_back(Upper(Trimmed(sWritten)));
    if (FindCode(vsCodes.back()) == nullptr) {
      throw RunError("unknown code \"" + sWritten + '"' +
                     AdviceOn(vsCodes.back(), vsAll, "trrule check --help lists the codes"));
    }
  }
  return vsCodes;
}

bool IsWanted(const CheckOptions& Options, std::string_view Code, Severity Level) {
  return Level >= Options.Least && (Options.vsOnly.empty() || Has(Options.vsOnly, Code)) &&
         !Has(Options.vsExcept, Code);
}

bool IsWantedCode(const CheckOptions& Options, std::string_view Code) {
  return IsWanted(Options, Code, FindCode(Code)->Level);
}

/// Colours are for people: at a terminal, unless they have said that they want none.
bool WantsColours(const RunOptions& Run) {
  const bool ToStandardOutput = Run.Output.empty() || Run.Output == "-";
  const char* NoColour = std::getenv("NO_COLOR");
  return ToStandardOutput && isatty(STDOUT_FILENO) != 0 &&
         (NoColour == nullptr || *NoColour == '\0');
}

RunTally CheckFiles(const RunOptions& Run, const CheckOptions& Options, FindingWriter& Writer) {
  RuleFiles Files(Run.vsFiles, Run.Quiet);
  RepeatedRules Repeated(IsWantedCode(Options, "TR033"), IsWantedCode(Options, "TR034"));
  RuleRecord Record;
  std::vector<Finding> vFindings;
  RunTally Tally;
  for (RuleText Text; Files.Next(Text);) {
    vFindings.clear();
    if (!Text.Continues && CheckRule(Text, Record, vFindings)) {
      Repeated.Check(Text, Record, vFindings);
    }
    std::stable_sort(vFindings.begin(), vFindings.end(), ComesBefore);
    for (const Finding& Each : vFindings) {
      if (IsWanted(Options, Each.Code, Each.Level)) {
        Writer.Write(Each);
        Tally.HasFindings = true;
      }
    }
  }
  Tally.HasUnreadFiles = Files.HasFailed();
  return Tally;
}

}  // namespace

int RunCheck(const RunOptions& Run, const CheckOptions& OptionsPassIn) {
  CheckOptions Options = OptionsPassIn;
  Options.vsOnly = KnownCodes(Options.vsOnly);
  Options.vsExcept = KnownCodes(Options.vsExcept);
  if (!Run.Force && ReplacesInput(Run)) {
    throw RunError("did not replace " + Run.Output +
                   ": it is an input (--force replaces it by the findings)");
  }
  OutputFile Output(Run.Output);
  const std::unique_ptr<FindingWriter> Writer =
      MakeFindingWriter(Options.Format, WantsColours(Run), Options.Version, Output);
  Writer->Begin();
  const RunTally Tally = CheckFiles(Run, Options, *Writer);
  Writer->End();
  return FinishRun(Run, Tally, Output);
}

}  // namespace Grammar
