#pragma once

#include "Finding.h"
#include "OutputFile.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// What every command over the rules of some files is reported.
struct RunOptions {
  std::vector<std::string> vsFiles;  ///< "-" for standard input; none stands for standard input
  std::string Output;                ///< "" or "-" for standard output
  bool Quiet = false;                ///< show no progress
  bool Folded = false;               ///< each rule stands on one line
  bool KeepBad = false;              ///< carry along what cannot be read as a rule, unchanged
  bool Force = false;                ///< replace the output even where something is missing in it
  unsigned Threads = 0;              ///< how many threads work on rules; 0 for one on each core
};

/// How a run over rules went.
struct RunTally {
  std::uint64_t Rules = 0;
  std::uint64_t LeftOut = 0;    ///< rules that are not written
  bool HasFindings = false;     ///< something was reported of a rule
  bool HasLostText = false;     ///< text was left out that was not part of a rule
  bool HasStrayText = false;    ///< a rule was taken that had such text
  bool HasUnreadFiles = false;  ///< some input could not be read
};

/// Writes findings to standard error, each on a line.
void Report(const std::vector<Finding>& vFindings);

/// Says on standard error how many rules were left out, if any: "21 of 33 rules were left out".
void ReportLeftOut(const RunTally& Tally);

/// What is done with the rules of a run, one after the other.
class RuleVisitor {
 public:
  virtual ~RuleVisitor();

  /// Makes of a rule what `TakeRule` gets. Called on several threads at once, in any order, so it
  /// changes nothing but its arguments.
  /// @param KeyReturn receives what the rule is sorted by, after what it holds
  /// @param TextReturn receives what is kept or written of the rule, after what it holds
  /// @param vFindingsReturn receives why the rule is left out, where it is
  /// @return whether the rule goes on to `TakeRule`; if not, both texts are as they were
  virtual bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& TextReturn,
                           std::vector<Finding>& vFindingsReturn) const = 0;

  /// Takes what has been made of a rule, in the order of the input.
  virtual void TakeRule(std::string_view Key, std::string_view Text) = 0;

  /// Takes a text that goes on unchanged: the comments of a file without rules, and, where
  /// that is wanted, what cannot be read as a rule.
  virtual void TakeText(std::string_view Text) = 0;

  /// Takes what cannot be read as a rule, where that is wanted.
  /// @param Continues whether it belongs to the text before: a very long rule comes in pieces
  virtual void TakeBadRule(std::string_view Text, bool Continues);

  /// Whether rules go on as they are written. Then a rule with text that is not part of it is taken
  /// like any other, also where bad rules are kept.
  virtual bool KeepsLines() const { return false; }

  /// Is called when the last line of such a text has no end, and something else follows or the run
  /// is over.
  virtual void EndLine() { TakeText("\n"); }
};

/// A visitor that has to see all rules before it can write the first.
class RuleCollector : public RuleVisitor {
 public:
  virtual void WriteTo(OutputFile& OutputReturn) = 0;
};

/// Passes all rules to the visitor. What cannot be read is reported on standard error.
///
/// A rule with text that is not part of it goes to the visitor with that text as comments; where
/// bad rules are kept, it is kept unchanged instead.
RunTally VisitRules(const RunOptions& Options, RuleVisitor& Visitor);

/// Whether the output names one of the inputs, under whatever name.
bool ReplacesInput(const RunOptions& Options);

/// Ends a run: says on standard error how many rules were left out, if any, and puts the output in
/// its place.
///
/// Unless that is forced, a file is not put in its place where some input could not be read, and an
/// input is not replaced where something of it would be lost: then `RunError` is thrown.
/// @param CanKeepBad whether the message may advise --keep-bad
/// @return the status of the run
int FinishRun(const RunOptions& Options, const RunTally& Tally, OutputFile& OutputReturn,
              bool CanKeepBad = true);

/// Passes all rules to the collector, has it write to the output of the run, and ends that.
/// @return as `FinishRun`
int CollectRules(const RunOptions& Options, RuleCollector& Collector);

/// What of the memory that a run may use is left for sorting: the rest is the program itself, and
/// the rule at hand.
std::size_t MemoryForSorting(std::size_t Memory);

}  // namespace Grammar
