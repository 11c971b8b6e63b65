#pragma once

#include "OutputFile.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// What every command over the rules of some files is told.
struct RunOptions {
  std::vector<std::string> vsFiles;  ///< "-" for standard input; none stands for standard input
  std::string Output;                ///< "" or "-" for standard output
  bool Quiet = false;                ///< show no progress
  bool Folded = false;               ///< each rule stands on one line
  bool KeepBad = false;              ///< carry along what cannot be read as a rule, as it stands
};

/// What is done with the rules of a run, one after the other.
class RuleVisitor {
 public:
  virtual ~RuleVisitor();

  virtual void TakeRule(RuleRecord& Record) = 0;

  /// Takes a text that goes on as it stands: the comments of a file without rules, and, where
  /// that is wanted, what cannot be read as a rule.
  virtual void TakeText(std::string_view Text) = 0;

  /// Is told when the last line of such a text has no end, and something else follows or the run
  /// is over.
  virtual void EndLine() { TakeText("\n"); }
};

/// A visitor that has to see all rules before it can write the first.
class RuleCollector : public RuleVisitor {
 public:
  virtual void WriteTo(OutputFile& OutputReturn) = 0;
};

/// Hands all rules to the visitor. What cannot be read is told on standard error.
/// @return `StatusFindings` where something could not be read, `StatusClean` otherwise
int VisitRules(const RunOptions& Options, RuleVisitor& Visitor);

/// Hands all rules to the collector and then has it write to the output of the run.
/// @return as `VisitRules`
int CollectRules(const RunOptions& Options, RuleCollector& Collector);

/// What of the memory that a run may use is left for sorting: the rest is the program itself, and
/// the rule at hand.
std::size_t MemoryForSorting(std::size_t Memory);

/// A number as eight bytes that sort like it.
std::string SortableNumber(std::uint64_t Number);

}  // namespace Grammar
