#pragma once

#include "TestRun.h"

#include <cstddef>
#include <string>
#include <vector>

namespace Examples {

/// What became of an example, as a line of a baseline has it.
struct BaselineLine {
  std::string Key;  ///< file, source and what was wanted: "np.trr<TAB>the car<TAB>= el auto"
  std::string What;
  std::string Best;

  friend bool operator<(const BaselineLine& Left, const BaselineLine& Right);
};

/// How an example differs from the baseline.
enum class Change { None, NewlyFailing, NewlyPassing, OtherTranslation, New };

/// An accepted state of a grammar's examples: a text with a line for each, sorted, so that two of
/// them can be compared line by line. Lines do not say where in its file an example stands, so
/// that it is the same one when rules before it come or go.
///
///   np.trr<TAB>the car<TAB>= el auto<TAB>passes<TAB>el auto
///   np.trr<TAB>the cars<TAB>*<TAB>passes<TAB>
class Baseline {
 public:
  /// The state of a run.
  Baseline(const TestedGrammar& Tested, const TestResults& Results);
  /// Reads an accepted one. Throws `Grammar::RunError`.
  explicit Baseline(const std::string& File);

  std::string Text() const;

  /// What has changed since another state: of each example of the run, in its order.
  std::vector<Change> ChangesSince(const Baseline& Accepted) const;
  /// The lines of the other state that this one has no example for.
  std::vector<BaselineLine> GoneSince(const Baseline& Accepted) const;

 private:
  struct Entry {
    BaselineLine Line;
    std::size_t Example = 0;  ///< of a run
  };

  void Sort();

  std::vector<Entry> vEntries;  // sorted
};

}  // namespace Examples
