#include "StatsCommand.h"

#include "ExternalSorter.h"
#include "Hashing.h"
#include "OutputFile.h"
#include "RunError.h"
#include "SurveyReport.h"

#include <tbb/enumerable_thread_specific.h>

#include <string>
#include <string_view>

namespace Grammar {

namespace {

/// Counts on each thread apart, and finds duplicates by hashes of what rules say.
class Surveyor : public RuleVisitor {
 public:
  explicit Surveyor(std::size_t Memory) : Hashes(MemoryForSorting(Memory)) {}

  bool PrepareRule(RuleRecord& Record, std::string& KeyReturn, std::string& /*TextReturn*/,
                   std::vector<Finding>& /*vFindingsReturn*/) const override {
    Part& Mine = Parts.local();
    Mine.Survey.Add(Record);
    Mine.Text.clear();
    Record.AppendSamenessText(Mine.Text);
    KeyReturn += SortableNumber(HashOf(Mine.Text));
    return true;
  }

  void TakeRule(std::string_view Key, std::string_view /*Text*/) override { Hashes.Add(Key, ""); }

  void TakeText(std::string_view /*Text*/) override {}

  /// The survey of all rules; to be called once, after the last one.
  void AddTo(RuleSurvey& SurveyReturn) const {
    for (const Part& Current : Parts) {
      SurveyReturn.Add(Current.Survey);
    }
  }

  /// How many rules say what another one says that came before; to be called once.
  std::uint64_t CountDuplicates() {
    std::uint64_t Duplicates = 0;
    std::string Last;
    Hashes.Sort();
    for (SortRecord Record; Hashes.Next(Record);) {
      Duplicates += Record.Key == Last ? 1 : 0;
      Last = Record.Key;
    }
    return Duplicates;
  }

 private:
  struct Part {
    RuleSurvey Survey;
    std::string Text;
  };

  mutable tbb::enumerable_thread_specific<Part> Parts;
  ExternalSorter Hashes;
};

void AppendReport(const SurveyReport& Report, const StatsOptions& Options,
                  std::string& TextReturn) {
  switch (Options.Format) {
    case StatsFormat::Text:
      AppendText(Report, Options.Top, TextReturn);
      break;
    case StatsFormat::Json:
      AppendJson(Report, TextReturn);
      break;
    case StatsFormat::Html:
      AppendPage(Report, Options.Top, TextReturn);
      break;
  }
}

}  // namespace

int RunStats(const RunOptions& Run, const StatsOptions& Options) {
  if (ReplacesInput(Run)) {
    throw RunError("did not replace " + Run.Output + ": it is an input, and no statistics");
  }
  OutputFile Output(Run.Output);
  Surveyor Rules(Options.Memory);
  RunTally Tally = VisitRules(Run, Rules);
  RuleSurvey Survey;
  Rules.AddTo(Survey);
  std::string Text;
  AppendReport(MakeReport(Survey, {Tally.LeftOut, Rules.CountDuplicates()}), Options, Text);
  Output.Write(Text);
  return FinishRun(Run, Tally, Output, false);
}

}  // namespace Grammar
