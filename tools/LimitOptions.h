#pragma once

#include <CLI/CLI.hpp>

#include <cstdint>
#include <functional>
#include <string>

#include "Chart.h"

/// Adds an option with a number from `Least` on behind it.
void AddNumber(CLI::App& CommandReturn, const std::string& Name, std::uint64_t Least,
               const std::string& Help, const std::function<void(std::uint64_t)>& Set);

/// Adds --max-chain and --max-constituents.
void AddChartLimits(CLI::App& CommandReturn, Translate::ChartLimits& LimitsReturn);

/// Adds --threads for the commands that work on texts.
void AddTextThreads(CLI::App& CommandReturn, const std::string& Help, unsigned& ThreadsReturn);
