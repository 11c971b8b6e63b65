#include "CheckCommand.h"

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

void RequireKnown(const std::vector<std::string>& vsCodes) {
  for (const std::string& sCode : vsCodes) {
    if (FindCode(sCode) == nullptr) {
      throw RunError("there is no code " + sCode);
    }
  }
}

bool IsWanted(const CheckOptions& Options, const CodeInfo& Info) {
  return Info.Level >= Options.Least &&
         (Options.vsOnly.empty() || Has(Options.vsOnly, Info.Code)) &&
         !Has(Options.vsExcept, Info.Code);
}

bool IsWantedCode(const CheckOptions& Options, std::string_view Code) {
  return IsWanted(Options, *FindCode(Code));
}

/// Colours are for people: at a terminal, unless they have said that they want none.
bool WantsColours(const RunOptions& Run) {
  const bool ToStandardOutput = Run.Output.empty() || Run.Output == "-";
  const char* NoColour = std::getenv("NO_COLOR");
  return ToStandardOutput && isatty(STDOUT_FILENO) != 0 &&
         (NoColour == nullptr || *NoColour == '\0');
}

/// @return whether anything was told
bool CheckFiles(const RunOptions& Run, const CheckOptions& Options, FindingWriter& Writer) {
  RuleFiles Files(Run.vsFiles, Run.Quiet);
  RepeatedRules Repeated(IsWantedCode(Options, "TR033"), IsWantedCode(Options, "TR034"));
  RuleRecord Record;
  std::vector<Finding> vFindings;
  bool HasTold = false;
  for (RuleText Text; Files.Next(Text);) {
    vFindings.clear();
    if (!Text.Continues && CheckRule(Text, Record, vFindings)) {
      Repeated.Check(Text, Record, vFindings);
    }
    std::stable_sort(vFindings.begin(), vFindings.end(), ComesBefore);
    for (const Finding& Each : vFindings) {
      if (IsWantedCode(Options, Each.Code)) {
        Writer.Write(Each);
        HasTold = true;
      }
    }
  }
  return HasTold;
}

}  // namespace

int RunCheck(const RunOptions& Run, const CheckOptions& Options) {
  RequireKnown(Options.vsOnly);
  RequireKnown(Options.vsExcept);
  OutputFile Output(Run.Output);
  const std::unique_ptr<FindingWriter> Writer =
      MakeFindingWriter(Options.Format, WantsColours(Run), Options.Version, Output);
  Writer->Begin();
  const bool HasTold = CheckFiles(Run, Options, *Writer);
  Writer->End();
  Output.Finish();
  return HasTold ? StatusFindings : StatusClean;
}

}  // namespace Grammar
