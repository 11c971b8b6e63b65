#include "CheckCommand.h"

#include "Bytes.h"
#include "FileKind.h"
#include "MissingHeaders.h"
#include "NearestName.h"
#include "OutputFile.h"
#include "RepeatedRules.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RunError.h"

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

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

/// What is said of a file that is no grammar, at its first line.
Finding FileFinding(const std::string& Name, std::string_view Start, std::string Message) {
  constexpr std::size_t MaxLineText = 80;
  Finding New;
  New.File = Name;
  New.Code = "TR016";
  New.Level = FindCode(New.Code)->Level;
  New.Message = std::move(Message);
  New.LineText = Start.substr(0, std::min(Start.find_first_of("\r\n"), MaxLineText));
  return New;
}

/// Goes through the files, and through what is found in their rules.
class FileChecker {
 public:
  FileChecker(const CheckOptions& OptionsPassIn, FindingWriter& WriterPassIn)
      : Options(OptionsPassIn),
        Writer(WriterPassIn),
        Repeated(IsWantedCode(Options, "TR033"), IsWantedCode(Options, "TR034")) {}

  void Check(RuleFiles& Files) {
    while (Files.OpenNext()) {
      if (!IsOther(Files)) {
        for (RuleText Text; Files.NextInFile(Text);) {
          CheckText(Text);
        }
      }
    }
  }

  bool HasTold() const { return Told; }

 private:
  /// Whether the file is no grammar, and that has been told.
  bool IsOther(RuleFiles& Files) {
    if (!IsWantedCode(Options, "TR016")) {
      return false;
    }
    const std::string_view Start = Files.Ahead();
    std::optional<std::string> Why = WhyNoGrammar(Start);
    if (Why) {
      Tell(FileFinding(Files.Name(), Start, std::move(*Why)));
    }
    return Why.has_value();
  }

  void CheckText(const RuleText& Text) {
    vFindings.clear();
    if (!Text.Continues && CheckRule(Text, Record, vFindings)) {
      Repeated.Check(Text, Record, vFindings);
    }
    Headers.Check(Text, vFindings);
    SortFindings(vFindings);
    for (const Finding& Each : vFindings) {
      if (IsWanted(Options, Each.Code, Each.Level)) {
        Tell(Each);
      }
    }
  }

  void Tell(const Finding& Each) {
    Writer.Write(Each);
    Told = true;
  }

  const CheckOptions& Options;
  FindingWriter& Writer;
  RepeatedRules Repeated;
  MissingHeaders Headers;
  RuleRecord Record;
  std::vector<Finding> vFindings;
  bool Told = false;
};

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
  RuleFiles Files(Run.vsFiles, Run.Quiet);
  FileChecker Checker(Options, *Writer);
  Checker.Check(Files);
  Writer->End();
  RunTally Tally;
  Tally.HasFindings = Checker.HasTold();
  Tally.HasUnreadFiles = Files.HasFailed();
  return FinishRun(Run, Tally, Output);
}

}  // namespace Grammar
