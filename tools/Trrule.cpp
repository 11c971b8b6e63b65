// The command over files of rules: reads the command line and hands it to one of the commands.

#include "Cleanup.h"
#include "CommandLine.h"
#include "RunError.h"
#include "Version.h"

#include <iostream>
#include <new>
#include <string>

namespace {

constexpr const char* Footer =
    "Grammars are read from the files that are named, or from standard input.\n"
    "Exit status: 0 nothing found, 1 something found, 2 the run failed.\n"
    "\n"
    "Examples:\n"
    "  trrule check np.trr                    what is wrong with the rules\n"
    "  trrule print --no-comments np.trr      the rules in the normal form\n"
    "  trrule sort --by type np.trr           in order\n"
    "  trrule unique --memory 64M *.trr       each rule once, counts added\n"
    "  trrule sample -n 5 np.trr              some rules, drawn at random\n"
    "  trrule split -o types/ np.trr          a file for each type\n"
    "  trrule stats np.trr                    what there is in them, and how often\n"
    "  trrule json np.trr                     one JSON object a line\n"
    "  trrule from-json rules.jsonl           and back\n"
    "  trrule translate np.trr --text TEXT    what the rules make of a text\n"
    "  trrule test np.trr                     the examples in its comments\n"
    "  trrule draw --rule NP,8 np.trr         what a rule looks like\n"
    "  trrule html -o np.html np.trr          a grammar as a page\n"
    "  trrule find '[DET * N]' np.trr         rules by what they say\n"
    "  trrule diff old.trr new.trr            what differs in two files\n"
    "  trrule patch np.trr changes.diff       and the same changes in another\n"
    "  trrule merge base.trr a.trr b.trr      two versions of one file as one\n"
    "  trrule explain TR011                   what a code of check means\n"
    "  trrule help sort                       all of one command\n";

int Fail(const std::string& Message) {
  Grammar::ReportFailure(Message);
  return Grammar::StatusFailed;
}

/// The parser would only say that a command is required.
bool IsKnownFirst(const CLI::App& Program, const std::string& Argument) {
  return FindCommand(Program, Argument) != nullptr ||
         Program.get_option_no_throw(Argument) != nullptr;
}

std::string UnknownFirst(const CLI::App& Program, const std::string& Argument) {
  return Argument.rfind('-', 0) == 0
             ? "unknown option \"" + Argument + "\"; trrule help lists the options"
             : UnknownCommand(Program, Argument);
}

/// Adds all commands, in the order in which the help lists them.
void AddCommands(CLI::App& ProgramReturn, Action& ChosenReturn) {
  AddCheckCommand(ProgramReturn, ChosenReturn);
  AddPrintCommand(ProgramReturn, ChosenReturn);
  AddSortCommand(ProgramReturn, ChosenReturn);
  AddUniqueCommand(ProgramReturn, ChosenReturn);
  AddHeadCommand(ProgramReturn, ChosenReturn);
  AddSampleCommand(ProgramReturn, ChosenReturn);
  AddSplitCommand(ProgramReturn, ChosenReturn);
  AddStatsCommand(ProgramReturn, ChosenReturn);
  AddJsonCommand(ProgramReturn, ChosenReturn);
  AddFromJsonCommand(ProgramReturn, ChosenReturn);
  AddTranslateCommand(ProgramReturn, ChosenReturn);
  AddWhyCommand(ProgramReturn, ChosenReturn);
  AddTestCommand(ProgramReturn, ChosenReturn);
  AddDrawCommand(ProgramReturn, ChosenReturn);
  AddHtmlCommand(ProgramReturn, ChosenReturn);
  AddFindCommand(ProgramReturn, ChosenReturn);
  AddDiffCommand(ProgramReturn, ChosenReturn);
  AddPatchCommand(ProgramReturn, ChosenReturn);
  AddMergeCommand(ProgramReturn, ChosenReturn);
  AddExplainCommand(ProgramReturn, ChosenReturn);
  AddHelpCommand(ProgramReturn, ChosenReturn);
  AddVersionCommand(ProgramReturn, ChosenReturn);
}

int RunProgram(int ArgumentCount, char** Arguments) {
  CLI::App Program("Checks, prints, sorts and converts files of transfer rules.", "trrule");
  Action Chosen;
  Program.set_version_flag("--version", std::string("trrule ") + ProgramVersion);
  Program.require_subcommand(1);
  Program.footer(Footer);
  AddCommands(Program, Chosen);
  if (ArgumentCount < 2) {
    std::cerr << Program.help();
    return Grammar::StatusFailed;
  }
  if (!IsKnownFirst(Program, Arguments[1])) {
    return Fail(UnknownFirst(Program, Arguments[1]));
  }
  try {
    Program.parse(ArgumentCount, Arguments);
  } catch (const CLI::ParseError& Error) {
    // Help and version are not errors.
    return Error.get_exit_code() == 0 ? Program.exit(Error) : Fail(Error.what());
  }
  return Chosen();
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  Grammar::RemoveUnfinishedFilesOnSignals();
  try {
    return RunProgram(ArgumentCount, Arguments);
  } catch (const Grammar::ClosedOutput&) {
    return Grammar::StatusFailed;
  } catch (const Grammar::RunError& Error) {
    return Fail(Error.what());
  } catch (const std::bad_alloc&) {
    return Fail("there is not enough memory");
  }
}
