#pragma once

#include "Chart.h"
#include "RuleSet.h"

#include <CLI/CLI.hpp>

#include <cstdint>
#include <functional>
#include <string>

/// @file
/// The options that `translate`, `why` and `test` share. What they fill has to outlive the command.

/// Adds an option that takes a number, `Least` or greater; any other text is a usage error.
/// @param Set receives the number when the command line is parsed
void AddNumber(CLI::App& CommandReturn, const std::string& Name, std::uint64_t Least,
               const std::string& Help, const std::function<void(std::uint64_t)>& Set);

/// Adds --reverse and --match-case.
void AddRuleSetOptions(CLI::App& CommandReturn, Translate::RuleSetOptions& OptionsReturn);

/// Adds --max-chain and --max-constituents.
void AddChartLimits(CLI::App& CommandReturn, Translate::ChartLimits& LimitsReturn);

/// Adds --threads for the commands that work on texts.
void AddTextThreads(CLI::App& CommandReturn, const std::string& Help, unsigned& ThreadsReturn);
