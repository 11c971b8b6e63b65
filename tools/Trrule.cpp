// The command over files of rules: reads the command line and hands it to one of the commands.

#include "CommandLine.h"
#include "Version.h"
#include "grammar/Cleanup.h"
#include "grammar/RunError.h"

#include <algorithm>
#include <iostream>
#include <new>
#include <string>
#include <vector>

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
    "  trrule json np.trr                     one JSON object a line\n"
    "  trrule from-json rules.jsonl           and back\n"
    "  trrule translate np.trr --text TEXT    what the rules make of a text\n";

/// One line for standard error.
int Fail(std::string Message) {
  std::replace(Message.begin(), Message.end(), '\n', ' ');
  std::cerr << "trrule: " << Message << '\n';
  return Grammar::StatusFailed;
}

/// The parser would only say that a command is required.
bool IsKnownFirst(const CLI::App& Program, const std::string& Argument) {
  const auto IsIt = [&](const CLI::App* Command) { return Command->check_name(Argument); };
  const std::vector<const CLI::App*> vCommands = Program.get_subcommands(nullptr);
  return std::any_of(vCommands.begin(), vCommands.end(), IsIt) ||
         Program.get_option_no_throw(Argument) != nullptr;
}

int RunProgram(int ArgumentCount, char** Arguments) {
  CLI::App Program("Checks, prints, sorts and converts files of transfer rules.", "trrule");
  Action Chosen;
  Program.set_version_flag("--version", std::string("trrule ") + ProgramVersion);
  Program.require_subcommand(1);
  Program.footer(Footer);
  AddCheckCommand(Program, Chosen);
  AddPrintCommand(Program, Chosen);
  AddSortCommand(Program, Chosen);
  AddUniqueCommand(Program, Chosen);
  AddJsonCommand(Program, Chosen);
  AddFromJsonCommand(Program, Chosen);
  AddTranslateCommand(Program, Chosen);
  if (ArgumentCount > 1 && !IsKnownFirst(Program, Arguments[1])) {
    return Fail(std::string("there is no command ") + Arguments[1]);
  }
  try {
    Program.parse(ArgumentCount, Arguments);
  } catch (const CLI::ParseError& Error) {
    // Help and version are no errors.
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
