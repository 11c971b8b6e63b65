#pragma once

#include <CLI/CLI.hpp>

#include <functional>
#include <memory>

#include "grammar/RuleRun.h"

/// What the command line has chosen to do; gives the exit status.
using Action = std::function<int()>;

/// Adds the options that every command over rules has: files, -o, --quiet.
void AddRunOptions(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn);

/// Adds --keep-bad.
void AddKeepBad(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn);

// Each adds one command, which puts into `ActionReturn` what is to be done when it is chosen.

void AddCheckCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddPrintCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddSortCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddUniqueCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddJsonCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddFromJsonCommand(CLI::App& ProgramReturn, Action& ActionReturn);
void AddTranslateCommand(CLI::App& ProgramReturn, Action& ActionReturn);
