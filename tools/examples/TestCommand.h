#pragma once

#include "ExampleParse.h"
#include "RuleSet.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Examples {

enum class ReportFormat : std::uint8_t { Plain, Json, Junit, Tap };

/// The options of a run over the examples of a grammar.
struct TestOptions {
  std::vector<std::string> vsGrammars;
  std::vector<std::string> vsPairs;   ///< files with more examples
  std::optional<std::string> Starts;  ///< start types of those, between commas
  std::string Output;                 ///< "" or "-" for standard output
  bool Quiet = false;                 ///< show no progress
  unsigned Threads = 0;               ///< how many examples are run at once; 0 for one on each core
  Translate::RuleSetOptions Rules;
  ParseOptions Parse;  ///< but for the start types
  ReportFormat Format = ReportFormat::Plain;
  bool IsStrict = false;  ///< passing by another rule is not enough
  bool WantsCoverage = true;
  std::optional<std::uint64_t> FailUnder;  ///< percent of rules, and of constraints
  std::string Baseline;                    ///< the file of the accepted state; empty for none
  bool Accepts = false;                    ///< write that file
  bool Watches = false;                    ///< run again when a file changes
};

/// Runs the examples in the comments of grammars. Throws `Grammar::RunError`.
/// @return `Grammar::StatusFindings` where some example does not pass that the baseline does not
///         know, a rule was left out, or too little is covered
int RunTest(const TestOptions& Options);

}  // namespace Examples
