// Sections: examples that stay, what is reached, the run, the report.

#include "WatchedExamples.h"

#include "Baseline.h"
#include "ChangeReport.h"
#include "Details.h"
#include "PlainReport.h"
#include "TranslateCommand.h"

#include <algorithm>
#include <deque>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace Examples {

// ---- Examples that stay -----------------------------------------------------------------------

namespace {

/// What an example is known by: its rule before, or its file, and its texts.
std::string KeyOf(const Example& Which, std::uint32_t RuleBefore) {
  std::string Key = Which.Rule == NoRule ? Which.Place.substr(0, Which.Place.rfind(':'))
                                         : std::to_string(RuleBefore);
  Key.append(Which.Rule == NoRule ? 1 : 0, '\t')
      .append(1, '\n')
      .append(Which.Source)
      .append(1, '\n');
  return Key.append(Which.Wanted ? "=" : "*").append(Which.Wanted.value_or(""));
}

/// For each example, the one that it was before: of the same rule, with the same texts; or nothing.
std::vector<std::optional<std::size_t>> FindExamplesBefore(const TestedGrammar& Before,
                                                           const TestedGrammar& Now,
                                                           const GrammarChanges& Changes) {
  std::unordered_map<std::string, std::deque<std::size_t>> Places;
  for (std::size_t Index = 0; Index < Before.AllExamples().size(); ++Index) {
    const Example& Old = Before.AllExamples()[Index];
    Places[KeyOf(Old, Old.Rule)].push_back(Index);
  }
  std::vector<std::optional<std::size_t>> vBefore;
  for (const Example& Given : Now.AllExamples()) {
    std::optional<std::size_t>& New = vBefore.emplace_back();
    const std::uint32_t Rule = Given.Rule == NoRule ? NoRule : Changes.vBefore[Given.Rule];
    if (Given.Rule != NoRule && Rule == NoRule) {
      continue;
    }
    const auto Found = Places.find(KeyOf(Given, Rule));
    if (Found != Places.end() && !Found->second.empty()) {
      New = Found->second.front();
      Found->second.pop_front();
    }
  }
  return vBefore;
}

// ---- What is reached --------------------------------------------------------------------------

/// The components of the rules that are new or gone, each sequence once.
std::vector<std::vector<SourceComponent>> FindSequences(const TestedGrammar& Before,
                                                        const TestedGrammar& Now,
                                                        const GrammarChanges& Changes) {
  std::vector<std::vector<SourceComponent>> vSequences;
  const auto Add = [&](const TestedGrammar& In, const std::vector<std::uint32_t>& vRules) {
    for (const std::uint32_t Rule : vRules) {
      const std::uint32_t Usable = In.AllRules()[Rule].Usable;
      if (Usable != NoRule) {
        vSequences.push_back(SourceComponentsOf(In.Rules(), In.Rules().At(Usable)));
      }
    }
  };
  Add(Now, Changes.vChanged);
  Add(Now, Changes.vNew);
  Add(Before, Changes.vGone);
  std::sort(vSequences.begin(), vSequences.end());
  vSequences.erase(std::unique(vSequences.begin(), vSequences.end()), vSequences.end());
  return vSequences;
}

/// Numbers of usable rules, from the state before to this one.
std::vector<std::uint32_t> FindUsableNow(const TestedGrammar& Before, const TestedGrammar& Now,
                                         const GrammarChanges& Changes) {
  std::vector<std::uint32_t> vNow(Before.Rules().Size(), NoRule);
  for (std::size_t Rule = 0; Rule < Changes.vBefore.size(); ++Rule) {
    const std::uint32_t Old = Changes.vBefore[Rule];
    if (Old != NoRule && Before.AllRules()[Old].Usable != NoRule) {
      vNow[Before.AllRules()[Old].Usable] = Now.AllRules()[Rule].Usable;
    }
  }
  return vNow;
}

}  // namespace

/// Keeps what is known of the examples that nothing reaches, and notes the others for the run.
WatchedExamples::State WatchedExamples::KeepUnreached(const TestedGrammar& Before,
                                                      const GrammarChanges& Changes) {
  const auto vSequences = FindSequences(Before, *Now, Changes);
  const std::vector<std::uint32_t> vUsable = FindUsableNow(Before, *Now, Changes);
  const auto vBefore = FindExamplesBefore(Before, *Now, Changes);
  const auto IsReached = [&](const ExampleResult& Result, const Knowledge& About) {
    // The chart of what reached a limit is not known.
    return Result.What == Outcome::Error ||
           std::any_of(vSequences.begin(), vSequences.end(),
                       [&](const auto& vSequence) { return About.Outline.Fits(vSequence); }) ||
           (!About.HasOneDerivation &&
            std::any_of(Changes.ssReweighted.begin(), Changes.ssReweighted.end(),
                        [&](const std::string& sType) { return About.Outline.HasType(sType); }));
  };
  State New;
  New.vResults.resize(vBefore.size());
  New.vKnowledge.resize(vBefore.size());
  for (std::size_t Index = 0; Index < vBefore.size(); ++Index) {
    if (!vBefore[Index] ||
        IsReached(Known.vResults[*vBefore[Index]], Known.vKnowledge[*vBefore[Index]])) {
      vLastRun.push_back(Index);
      continue;
    }
    ExampleResult& Result = New.vResults[Index] = std::move(Known.vResults[*vBefore[Index]]);
    New.vKnowledge[Index] = std::move(Known.vKnowledge[*vBefore[Index]]);
    Result.BestRule = Result.BestRule == NoRule ? NoRule : vUsable[Result.BestRule];
    Result.vRules.clear();
  }
  return New;
}

// ---- The run ----------------------------------------------------------------------------------

void WatchedExamples::Run() {
  Options.HasStarts = Starts.has_value();
  if (Starts) {
    Options.vStarts = Translate::FindStarts(*Starts, Now->Rules());
  }
  ForEachExample(*Now, Options, Threads, vLastRun, [&](std::size_t Index, ExampleRunner& Runner) {
    Known.vResults[Index] = Runner.Run(Now->AllExamples()[Index]);
    Known.vKnowledge[Index] = {ChartOutline(Runner.LastChart()), Runner.HasOneDerivation()};
  });
}

// ---- The report -------------------------------------------------------------------------------

/// Runs all examples of the first state.
std::string WatchedExamples::TakeFirst() {
  const std::size_t Count = Now->AllExamples().size();
  Known.vResults.resize(Count);
  Known.vKnowledge.resize(Count);
  vLastRun.resize(Count);
  std::iota(vLastRun.begin(), vLastRun.end(), std::size_t{0});
  Run();
  TestResults All;
  All.vResults = Known.vResults;
  std::string Report;
  AppendPlainReport(*Now, All, Report);
  return Report;
}

std::string WatchedExamples::Take(std::unique_ptr<TestedGrammar> New) {
  const std::unique_ptr<TestedGrammar> Before = std::exchange(Now, std::move(New));
  vLastRun.clear();
  if (!Before) {
    return TakeFirst();
  }
  TestResults All;
  All.vResults = Known.vResults;
  const Baseline Accepted(*Before, All);
  const GrammarChanges Changes = FindChanges(*Before, *Now);
  Known = KeepUnreached(*Before, Changes);
  Run();
  All.vResults = Known.vResults;
  const Baseline Present(*Now, All);
  std::string Report = ShownChanges(Changes, *Now) + '\n';
  Report.append(std::to_string(vLastRun.size())).append(" of ");
  Report.append(std::to_string(Known.vResults.size())).append(" examples run\n");
  AppendChanges(*Now, All, Present.ChangesSince(Accepted), Present.GoneSince(Accepted), Report);
  return Report + TotalsOf(Known.vResults) + '\n';
}

}  // namespace Examples
