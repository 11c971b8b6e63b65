#include "CommandLine.h"
#include "NearestName.h"
#include "RunError.h"
#include "Version.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

const CLI::App* FindCommand(const CLI::App& Program, const std::string& Name) {
  const std::vector<const CLI::App*> vCommands = Program.get_subcommands(nullptr);
  const auto Found = std::find_if(vCommands.begin(), vCommands.end(), [&](const CLI::App* Command) {
    return Command->check_name(Name);
  });
  return Found == vCommands.end() ? nullptr : *Found;
}

std::string UnknownCommand(const CLI::App& Program, const std::string& Name) {
  std::vector<std::string> vsNames;
  for (const CLI::App* Command : Program.get_subcommands(nullptr)) {
    vsNames.push_back(Command->get_name());
  }
  return "unknown command \"" + Name + '"' +
         Grammar::AdviceOn(Name, vsNames, "trrule help lists the commands");
}

namespace {

int PrintHelp(const CLI::App& Program, const std::string& Name) {
  if (Name.empty()) {
    // The program would give the help of the command that it was called with, which is this one.
    std::cout << Program.get_formatter()->make_help(&Program, Program.get_name(),
                                                    CLI::AppFormatMode::Normal);
    return Grammar::StatusClean;
  }
  const CLI::App* Command = FindCommand(Program, Name);
  if (Command == nullptr) {
    throw Grammar::RunError(UnknownCommand(Program, Name));
  }
  std::cout << Command->help(Program.get_name());
  return Grammar::StatusClean;
}

int PrintVersion() {
  std::cout << "trrule " << ProgramVersion << '\n';
  return Grammar::StatusClean;
}

}  // namespace

void AddHelpCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("help", "Explain the program, or one of its commands");
  const auto Name = std::make_shared<std::string>();
  Command->add_option("COMMAND", *Name, "the command to explain")->type_name("");
  Command->footer("Example:\n  trrule help sort\n");
  Command->callback([Name, &ProgramReturn, &ActionReturn] {
    ActionReturn = [Name, &ProgramReturn] { return PrintHelp(ProgramReturn, *Name); };
  });
}

void AddVersionCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("version", "Print the version");
  Command->footer("Example:\n  trrule version\n");
  Command->callback([&ActionReturn] { ActionReturn = PrintVersion; });
}
