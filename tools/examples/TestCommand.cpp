// Sections: the report, coverage, the baseline, the run.

#include "TestCommand.h"

#include "Baseline.h"
#include "ChangeReport.h"
#include "JsonReport.h"
#include "JunitReport.h"
#include "OutputFile.h"
#include "PairFile.h"
#include "PlainReport.h"
#include "RunError.h"
#include "TapReport.h"
#include "TestRun.h"
#include "ThreadCount.h"
#include "TranslateCommand.h"

#include <algorithm>
#include <iostream>
#include <string_view>

namespace Examples {

// ---- The report -------------------------------------------------------------------------------

namespace {

/// Forms without room for it have it on standard error.
void ReportErrors(const TestedGrammar& Tested, const TestResults& Results) {
  for (std::size_t Index = 0; Index < Results.vResults.size(); ++Index) {
    if (Results.vResults[Index].What == Outcome::Error) {
      std::cerr << Tested.AllExamples()[Index].Place << ": error: " << Results.vResults[Index].Error
                << '\n';
    }
  }
}

std::string ReportOf(const TestOptions& Options, const TestedGrammar& Tested,
                     const TestResults& Results) {
  std::string Report;
  switch (Options.Format) {
    case ReportFormat::Plain:
      AppendPlainReport(Tested, Results, Report);
      break;
    case ReportFormat::Json:
      AppendJsonReport(Tested, Results, Report);
      ReportErrors(Tested, Results);
      break;
    case ReportFormat::Junit:
      AppendJunitReport(Tested, Results, Options.IsStrict, Report);
      break;
    case ReportFormat::Tap:
      AppendTapReport(Tested, Results, Options.IsStrict, Report);
      break;
  }
  return Report;
}

// ---- Coverage ---------------------------------------------------------------------------------

/// Whether at least that many percent are covered; reports it where they are not. Of nothing, all
/// is.
bool IsEnough(std::size_t Missing, std::size_t All, std::uint64_t Percent, std::string_view What) {
  if ((All - Missing) * 100 >= Percent * All) {
    return true;
  }
  std::cerr << "trrule: --fail-under: " << All - Missing << " of " << All << ' ' << What
            << " are less than " << Percent << " %\n";
  return false;
}

bool IsCovered(const TestOptions& Options, const TestedGrammar& Tested, const Coverage& Covered) {
  if (!Options.FailUnder) {
    return true;
  }
  const bool HasRules = IsEnough(Covered.vUncoveredRules.size(), Tested.AllRules().size(),
                                 *Options.FailUnder, "rules");
  return IsEnough(Covered.vUncoveredConstraints.size(), Tested.Constraints().size(),
                  *Options.FailUnder, "constraints") &&
         HasRules;
}

// ---- The baseline -----------------------------------------------------------------------------

void Accept(const std::string& File, const Baseline& Now) {
  Grammar::OutputFile Output(File);
  Output.Write(Now.Text());
  Output.Finish();
}

/// Compares with the accepted state, which becomes this one where that is wanted.
/// @param ReportReturn receives what has changed
/// @return whether no example fails that the accepted state does not know as failing
bool Compare(const TestOptions& Options, const TestedGrammar& Tested, const TestResults& Results,
             std::string& ReportReturn) {
  const Baseline Now(Tested, Results);
  if (Options.Accepts) {
    Accept(Options.Baseline, Now);
    ReportReturn = "accepted: " + TotalsOf(Results.vResults) + '\n';
    return true;
  }
  const Baseline Accepted(Options.Baseline);
  const std::vector<Change> vChanges = Now.ChangesSince(Accepted);
  AppendChanges(Tested, Results, vChanges, Now.GoneSince(Accepted), ReportReturn);
  for (std::size_t Index = 0; Index < vChanges.size(); ++Index) {
    const bool IsKnown = vChanges[Index] != Change::NewlyFailing && vChanges[Index] != Change::New;
    if (!IsKnown && !IsAccepted(Results.vResults[Index].What, Options.IsStrict)) {
      return false;
    }
  }
  return true;
}

bool AllPass(const TestOptions& Options, const TestResults& Results) {
  return std::all_of(
      Results.vResults.begin(), Results.vResults.end(),
      [&](const ExampleResult& Result) { return IsAccepted(Result.What, Options.IsStrict); });
}

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

int RunTest(const TestOptions& Options) {
  const bool HasBaseline = !Options.Baseline.empty();
  // Beside a baseline only what has changed is shown.
  const bool ShowsChanges = HasBaseline && Options.Format == ReportFormat::Plain;
  const bool WantsCoverage =
      Options.WantsCoverage && (!ShowsChanges || Options.FailUnder.has_value());
  TestedGrammar Tested(Options.Rules, WantsCoverage);
  if (!Options.vsPairs.empty()) {
    Tested.DescribeAllRules();
  }
  Tested.Load(Options.vsGrammars, Options.Quiet);
  for (const std::string& sFile : Options.vsPairs) {
    AddPairs(sFile, Tested);
  }
  ParseOptions Parse = Options.Parse;
  // The objects of JSON have no place for them.
  Parse.WantsCauses = Options.Format != ReportFormat::Json;
  Parse.HasStarts = Options.Starts.has_value();
  if (Parse.HasStarts) {
    Parse.vStarts = Translate::FindStarts(*Options.Starts, Tested.Rules());
  }
  Grammar::OutputFile Output(Options.Output);
  const TestResults Results =
      RunExamples(Tested, Parse, Grammar::ThreadCount(Options.Threads), WantsCoverage);
  std::string Changes;
  const bool IsGood =
      HasBaseline ? Compare(Options, Tested, Results, Changes) : AllPass(Options, Results);
  Output.Write(ShowsChanges ? Changes : ReportOf(Options, Tested, Results));
  Output.Finish();
  Grammar::ReportLeftOut(Tested.Tally());
  const bool HasEnough = !WantsCoverage || IsCovered(Options, Tested, Results.Covered);
  return IsGood && HasEnough && Tested.Tally().LeftOut == 0 ? Grammar::StatusClean
                                                            : Grammar::StatusFindings;
}

}  // namespace Examples
