#include "CheckCommand.h"
#include "CommandLine.h"
#include "Version.h"

#include <optional>
#include <string>

namespace {

/// The command's options as they are written.
struct CheckLine {
  Grammar::RunOptions Run;
  Grammar::CheckOptions Options;
  std::string Format = "text";
  std::string Severity;
  std::string Starts;
};

Grammar::FindingFormat FormatOf(const std::string& Name) {
  if (Name == "json") {
    return Grammar::FindingFormat::Json;
  }
  return Name == "sarif" ? Grammar::FindingFormat::Sarif : Grammar::FindingFormat::Text;
}

std::optional<Grammar::Severity> LeastOf(const std::string& Name) {
  for (const auto Level :
       {Grammar::Severity::Note, Grammar::Severity::Warning, Grammar::Severity::Error}) {
    if (NameOf(Level) == Name) {
      return Level;
    }
  }
  return std::nullopt;
}

/// The codes as a list for the end of the help.
std::string Footer() {
  constexpr std::size_t LevelWidth = 9;
  std::string Text = "Codes:\n";
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    Text.append("  ").append(Info.Code).append("  ").append(NameOf(Info.Level));
    Text.append(LevelWidth - NameOf(Info.Level).size(), ' ').append(Info.Title).append("\n");
  }
  return Text +
         "\ntrrule explain CODE explains a code.\n"
         "\nExit status: 0 nothing found, 1 something found, 2 the run failed.\n"
         "\nExample:\n"
         "  trrule check --severity error --except TR009,TR010 np.trr\n";
}

int Run(const CheckLine& Line) {
  Grammar::CheckOptions Options = Line.Options;
  Options.Format = FormatOf(Line.Format);
  Options.Version = ProgramVersion;
  Options.Least = LeastOf(Line.Severity);
  if (!Line.Starts.empty()) {
    Options.Starts = Line.Starts;
  }
  return RunCheck(Line.Run, Options);
}

}  // namespace

void AddCheckCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand(
      "check", "Report everything that is wrong with rules, or may surprise");
  const auto Line = std::make_shared<CheckLine>();
  AddRunOptions(*Command, Line->Run);
  Command->add_option("--format", Line->Format, "text, json or sarif")
      ->check(CLI::IsMember({"text", "json", "sarif"}));
  Command
      ->add_option("--severity", Line->Severity,
                   "the lowest that is shown, warning by default; notes are what only "
                   "concerns programs that use the library's own reader, or may well be meant")
      ->check(CLI::IsMember({"error", "warning", "note"}));
  Command->add_option("--only", Line->Options.vsOnly, "report only these codes")->delimiter(',');
  Command->add_option("--except", Line->Options.vsExcept, "do not report these codes")
      ->delimiter(',');
  Command
      ->add_option("--start", Line->Starts,
                   "the types of whole texts: report rules that none of them leads to")
      ->type_name("TYPES");
  Command->add_flag("--statistics", Line->Options.Statistics,
                    "show a table of codes and counts in place of the findings");
  AddThreads(*Command, Line->Run);
  for (const char* Name : {"--only", "--except"}) {
    Command->get_option(Name)->type_name("CODE,...")->allow_extra_args(false);
  }
  Command->footer(Footer());
  Command->callback([Line, &ActionReturn] { ActionReturn = [Line] { return Run(*Line); }; });
}
