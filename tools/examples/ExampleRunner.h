#pragma once

#include "CauseFinder.h"
#include "ExampleParse.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Examples {

/// Which constraint lines some example notices. All threads share it.
class NoticedConstraints {
 public:
  explicit NoticedConstraints(std::size_t Count) : vIsNoticed(Count) {}

  bool Has(std::size_t Constraint) const {
    return vIsNoticed[Constraint].load(std::memory_order_relaxed);
  }
  void Add(std::size_t Constraint) {
    vIsNoticed[Constraint].store(true, std::memory_order_relaxed);
  }

 private:
  std::vector<std::atomic<bool>> vIsNoticed;
};

/// Runs examples, one after the other. One for each thread; all can use the same grammar.
///
/// For example, a text that has to be rejected notices the first constraint of a grammar:
///
/// @code
/// const ParseOptions Options;
/// ExampleRunner Runner(Tested, Options);
/// const Example& Rejected = Tested.AllExamples().back();
/// const ExampleResult Result = Runner.Run(Rejected);
/// Result.What;  // Outcome::Passes
/// NoticedConstraints Noticed(Tested.Constraints().size());
/// Runner.FindNoticed(Rejected, Result, Noticed);
/// Tested.Constraints()[0].Text;  // "((x1 num) = (x2 num))"
/// Noticed.Has(0);                // true
/// @endcode
class ExampleRunner {
 public:
  ExampleRunner(const TestedGrammar& TestedPassIn, const ParseOptions& OptionsPassIn)
      : Tested(TestedPassIn),
        Options(OptionsPassIn),
        Equations(TestedPassIn.Rules()),
        Whole(TestedPassIn, OptionsPassIn, Equations),
        Varied(TestedPassIn, OptionsPassIn, Equations),
        vIsCandidate(TestedPassIn.Constraints().size()) {}

  ExampleRunner(const ExampleRunner&) = delete;
  ExampleRunner& operator=(const ExampleRunner&) = delete;

  /// What becomes of an example; where causes are wanted, with that of a failure.
  ExampleResult Run(const Example& Given);

  /// The chart of the example that was run last.
  const Translate::Chart& LastChart() const { return Whole.ParsedChart(); }
  /// Whether its text has one derivation of the wanted types, or none.
  bool HasOneDerivation() { return Whole.HasOneDerivation(); }

  /// Notes the constraints without which the example that was run last would have another outcome,
  /// or its text other translations. What is noted already is not looked at.
  ///
  /// A rule without a constraint matters only where it makes something else of what it was tried
  /// on. So the text is parsed again for such constraints alone.
  void FindNoticed(const Example& Given, const ExampleResult& Result,
                   NoticedConstraints& NoticedReturn);

 private:
  std::string CauseOf(const Example& Given);
  void FindCandidates(const NoticedConstraints& Noticed);
  bool ChangesResult(std::size_t Constraint, const Translate::Chart::Trial& Tried);
  bool Notices(const Example& Given, const ExampleResult& Result, std::size_t Constraint);

  const TestedGrammar& Tested;
  const ParseOptions& Options;
  Translate::Evaluator Equations;
  std::unique_ptr<CauseFinder> Causes;  // from the first failure on
  ExampleParse Whole;
  ExampleParse Varied;
  std::vector<bool> vIsCandidate;
  std::vector<std::size_t> vCandidates;
  std::optional<std::vector<std::string>> Texts;  // of the last example, once they are wanted
};

}  // namespace Examples
