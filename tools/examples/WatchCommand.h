#pragma once

#include "TestCommand.h"

#include <cstddef>
#include <string>

namespace Examples {

/// Runs the examples of grammars, and those that a change can reach again whenever a file changes,
/// until a signal ends it. Each time, one screen is written to standard output. While a file is
/// away, or cannot be read, what was known of it stays. Throws `Grammar::RunError`.
/// @return `Grammar::StatusFindings` where some example did not pass at the end, or a rule was left
///         out
int RunWatch(const TestOptions& Options);

/// Cuts a report to so many lines: the first ones, how many there are more, and the last one.
std::string CutToLines(const std::string& Report, std::size_t Lines);

}  // namespace Examples
