#pragma once

#include "ChartOutline.h"
#include "ExampleParse.h"
#include "GrammarChanges.h"
#include "TestRun.h"
#include "TestedGrammar.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace Examples {

/// The examples of a grammar that changes. Of each new state, only the examples are run that
/// changed rules can reach, and what has become of the others is known.
///
/// @code
/// WatchedExamples Watched(ParseOptions(), std::nullopt, 1);
/// Watched.Take(LoadWith("[\"auto\"]", "[\"auto\"]"));  // "2 examples: 2 pass\n"
/// Watched.Take(LoadWith("[\"auto\"]", "[\"coche\"]")) ==
///     "np.trr:12 changed\n"
///     "1 of 2 examples run\n"
///     "newly failing: np.trr:5: a car\n"
///     "  wanted: un auto\n"
///     "  given:  un coche\n"
///     "1 example changed\n"
///     "2 examples: 1 passes, 1 differs\n";  // true
/// @endcode
class WatchedExamples {
 public:
  /// @param OptionsPassIn but for the start types, which each grammar has its own numbers for
  /// @param StartsPassIn start types of pairs of files, between commas
  WatchedExamples(ParseOptions OptionsPassIn, std::optional<std::string> StartsPassIn,
                  unsigned ThreadsPassIn)
      : Options(std::move(OptionsPassIn)),
        Starts(std::move(StartsPassIn)),
        Threads(ThreadsPassIn) {}

  /// Runs what the differences from the state before can reach: of the first state, everything.
  /// @param New has to know the lines of its rules
  /// @return what there is to show: of the first state, what does not pass; then what has changed.
  ///         The last line counts
  std::string Take(std::unique_ptr<TestedGrammar> New);

  /// Which examples were run last, ascending.
  const std::vector<std::size_t>& LastRun() const { return vLastRun; }
  /// What has become of all examples.
  const std::vector<ExampleResult>& Results() const { return Known.vResults; }
  /// The rules of the last state.
  const TestedGrammar& Tested() const { return *Now; }

 private:
  /// What is known of an example besides its result.
  struct Knowledge {
    ChartOutline Outline;
    bool HasOneDerivation = false;  ///< so that scores decide nothing
  };

  /// What is known of all examples, in their order.
  struct State {
    std::vector<ExampleResult> vResults;
    std::vector<Knowledge> vKnowledge;
  };

  State KeepUnreached(const TestedGrammar& Before, const GrammarChanges& Changes);
  void Run();
  std::string TakeFirst();

  ParseOptions Options;
  std::optional<std::string> Starts;
  unsigned Threads;
  std::unique_ptr<TestedGrammar> Now;
  State Known;
  std::vector<std::size_t> vLastRun;
};

}  // namespace Examples
