#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>
#include <string>

#include "RuleRun.h"

/// What the command line has chosen to do; gives the exit status.
using Action = std::function<int()>;

/// Adds the options that every command over rules has: files, -o, --force, --quiet.
void AddRunOptions(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn);

/// Adds an argument that has to be there: one file, such as OLD.
void AddFile(CLI::App& CommandReturn, const std::string& Name, std::string& FileReturn,
             const std::string& Description);

/// Adds -o.
void AddOutput(CLI::App& CommandReturn, std::string& FileReturn);

/// Adds --quiet.
void AddQuiet(CLI::App& CommandReturn, bool& QuietReturn);

/// Adds --threads, which changes nothing of what is written.
void AddThreads(CLI::App& CommandReturn, unsigned& ThreadsReturn);
void AddThreads(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn);

/// Adds --keep-bad.
void AddKeepBad(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn);

/// The command of a name; null if there is none.
const CLI::App* FindCommand(const CLI::App& Program, const std::string& Name);

/// What to say of a command that there is not.
std::string UnknownCommand(const CLI::App& Program, const std::string& Name);

// Each adds one command, which puts into `ActionReturn` what is to be done when it is chosen.

void AddCheckCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddPrintCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddSortCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddUniqueCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddHeadCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddSampleCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddSplitCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddStatsCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddJsonCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddFromJsonCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddTranslateCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddWhyCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddTestCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddDrawCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddHtmlCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddFindCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddDiffCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddPatchCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddMergeCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddExplainCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddHelpCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddVersionCommand(CLI::App& ProgramReturn, Action& ActionReturn);
