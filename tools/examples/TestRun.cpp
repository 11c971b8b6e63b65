#include "TestRun.h"

#include <tbb/blocked_range.h>
#include <tbb/enumerable_thread_specific.h>
#include <tbb/global_control.h>
#include <tbb/parallel_for.h>
#include <tbb/task_arena.h>

#include <chrono>
#include <memory>
#include <numeric>

namespace Examples {

void ForEachExample(const TestedGrammar& Tested, const ParseOptions& Options, unsigned Threads,
                    const std::vector<std::size_t>& vIndices,
                    const std::function<void(std::size_t Index, ExampleRunner& Runner)>& Work) {
  // A runner is made where it is needed first, and stays in its place.
  tbb::enumerable_thread_specific<std::unique_ptr<ExampleRunner>> Runners;
  // Without this, more threads than cores are rejected.
  const tbb::global_control Limit(tbb::global_control::max_allowed_parallelism, Threads);
  tbb::task_arena Arena(static_cast<int>(Threads));
  using Range = tbb::blocked_range<std::size_t>;
  Arena.execute([&] {
    tbb::parallel_for(Range(0, vIndices.size()), [&](const Range& Some) {
      std::unique_ptr<ExampleRunner>& Own = Runners.local();
      if (!Own) {
        Own = std::make_unique<ExampleRunner>(Tested, Options);
      }
      for (std::size_t At = Some.begin(); At != Some.end(); ++At) {
        Work(vIndices[At], *Own);
      }
    });
  });
}

namespace {

Coverage FindCoverage(const TestedGrammar& Tested, const std::vector<ExampleResult>& vResults,
                      const NoticedConstraints& Noticed) {
  Coverage Found;
  Found.IsKnown = true;
  std::vector<bool> vIsUsed(Tested.Rules().Size());
  for (const ExampleResult& Result : vResults) {
    for (const std::uint32_t Rule : Result.vRules) {
      vIsUsed[Rule] = true;
    }
  }
  for (std::uint32_t Rule = 0; Rule < Tested.AllRules().size(); ++Rule) {
    const std::uint32_t Usable = Tested.AllRules()[Rule].Usable;
    if (Usable == NoRule || !vIsUsed[Usable]) {
      Found.vUncoveredRules.push_back(Rule);
    }
  }
  for (std::size_t Constraint = 0; Constraint < Tested.Constraints().size(); ++Constraint) {
    if (!Noticed.Has(Constraint)) {
      Found.vUncoveredConstraints.push_back(Constraint);
    }
  }
  return Found;
}

}  // namespace

TestResults RunExamples(const TestedGrammar& Tested, const ParseOptions& Options, unsigned Threads,
                        bool WantsCoverage) {
  using Clock = std::chrono::steady_clock;
  TestResults Results;
  Results.vResults.resize(Tested.AllExamples().size());
  Results.vSeconds.resize(Tested.AllExamples().size());
  NoticedConstraints Noticed(Tested.Constraints().size());
  std::vector<std::size_t> vAll(Tested.AllExamples().size());
  std::iota(vAll.begin(), vAll.end(), std::size_t{0});
  ForEachExample(Tested, Options, Threads, vAll, [&](std::size_t Index, ExampleRunner& Runner) {
    const Example& Current = Tested.AllExamples()[Index];
    const Clock::time_point Start = Clock::now();
    Results.vResults[Index] = Runner.Run(Current);
    Results.vSeconds[Index] = std::chrono::duration<double>(Clock::now() - Start).count();
    if (WantsCoverage) {
      Runner.FindNoticed(Current, Results.vResults[Index], Noticed);
    }
  });
  if (WantsCoverage) {
    Results.Covered = FindCoverage(Tested, Results.vResults, Noticed);
  }
  return Results;
}

}  // namespace Examples
