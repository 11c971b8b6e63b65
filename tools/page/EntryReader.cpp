// Sections: batches, the grammar, the run.

#include "EntryReader.h"

#include "GrammarFindings.h"
#include "GrammarShapes.h"
#include "MissingHeaders.h"
#include "Pipeline.h"
#include "RepeatedRules.h"
#include "RivalRules.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RuleOutline.h"
#include "RuleUse.h"
#include "ThreadCount.h"

#include <algorithm>
#include <deque>
#include <map>
#include <string>
#include <utility>

namespace Page {

using Grammar::Finding;

// ---- Batches ----------------------------------------------------------------------------------

namespace {

/// A rule on its way to becoming an entry.
struct RuleInWork {
  Grammar::RuleText Text;
  bool IsRead = false;
  Grammar::RuleIdentity Identity;
  Grammar::RuleOutline Outline;
  RuleEntry Entry;
};

/// Rules that one thread works on.
struct EntryBatch {
  std::deque<RuleInWork> Rules;
  std::size_t Count = 0;
};

/// Reads about that many bytes of rules, at least one rule. @return false after the last one
bool ReadBatch(Grammar::RuleFiles& Files, EntryBatch& BatchReturn) {
  constexpr std::size_t WantedSize = std::size_t{1} << 14;
  BatchReturn.Count = 0;
  // The further pieces of a rule that is too long do not count.
  for (std::size_t Size = 0; Size < WantedSize || BatchReturn.Count == 0;) {
    if (BatchReturn.Count == BatchReturn.Rules.size()) {
      BatchReturn.Rules.emplace_back();
    }
    RuleInWork& New = BatchReturn.Rules[BatchReturn.Count];
    if (!Files.Next(New.Text)) {
      break;
    }
    Size += New.Text.Text.size();
    BatchReturn.Count += New.Text.HasRule && !New.Text.Continues ? 1 : 0;
  }
  return BatchReturn.Count > 0;
}

/// Makes what depends on the rule alone.
void Prepare(const Grammar::RepeatedRules& Repeated, EntryBatch& BatchReturn) {
  Grammar::RuleRecord Record;
  Grammar::OutlineMaker Outlines;
  Grammar::HiddenNotes Hidden;
  RuleEntryMaker Maker;
  std::string Scratch;
  for (std::size_t At = 0; At < BatchReturn.Count; ++At) {
    RuleInWork& Current = BatchReturn.Rules[At];
    std::vector<Finding> vFindings;
    Current.IsRead = CheckRule(Current.Text, Record, vFindings, &Hidden);
    Outlines.Make(Record.Lines(), Current.Outline);
    if (Current.Outline.LacksSources) {
      ReportMissingSources(Record.Lines(), Outlines.Places(), vFindings);
    }
    if (Current.IsRead) {
      Repeated.Identify(Record, Scratch, Current.Identity);
    }
    Maker.Make(Record.Lines(), Current.Entry);
    Current.Entry.vFindings = std::move(vFindings);
  }
}

}  // namespace

// ---- The grammar ------------------------------------------------------------------------------

namespace {

/// Collects entries, and finds what is wrong with their rules beside each other.
class EntryCollector {
 public:
  explicit EntryCollector(std::vector<RuleEntry>& vEntriesPassIn) : vEntries(vEntriesPassIn) {}

  const Grammar::RepeatedRules& Repetitions() const { return Repeated; }

  void Take(EntryBatch& BatchReturn) {
    for (std::size_t At = 0; At < BatchReturn.Count; ++At) {
      RuleInWork& Current = BatchReturn.Rules[At];
      std::vector<Finding>& vFindings = Current.Entry.vFindings;
      if (Current.IsRead) {
        Repeated.Check(Current.Text, Current.Identity, vFindings);
      }
      Headers.Check(Current.Text, vFindings);
      Rivals.Check(Current.Text, Current.Outline, vFindings);
      Shapes.Add(Current.Text, Current.Outline);
      vEntries.push_back(std::move(Current.Entry));
    }
  }

  /// Adds what is found in all rules together. To be called after the last batch.
  void End() {
    Shapes.Finish();
    Grammar::GrammarFindings Whole(Shapes);
    // As notes they are not shown.
    if (Whole.LevelOfLack() != Grammar::Severity::Note) {
      Whole.AddUnprovidedLabels();
      Whole.AddUnsuppliedValues();
    }
    Whole.AddUnaryCycles();
    const RulePlaces Places = FindPlaces();
    for (Finding& Found : Whole.Take()) {
      RuleEntry* Owner = EntryAt(Places, Found);
      if (Owner != nullptr) {
        Owner->vFindings.push_back(std::move(Found));
      }
    }
    for (RuleEntry& Current : vEntries) {
      DropNotes(Current.vFindings);
      SortFindings(Current.vFindings);
    }
  }

 private:
  /// The entries of each file by their first lines.
  using RulePlaces = std::map<std::string, std::map<std::size_t, std::size_t>>;

  /// As in what `trrule check` shows.
  static void DropNotes(std::vector<Finding>& vFindingsReturn) {
    const auto IsNote = [](const Finding& Found) { return Found.Level == Grammar::Severity::Note; };
    vFindingsReturn.erase(std::remove_if(vFindingsReturn.begin(), vFindingsReturn.end(), IsNote),
                          vFindingsReturn.end());
  }

  RulePlaces FindPlaces() const {
    RulePlaces Places;
    for (std::size_t Index = 0; Index < vEntries.size(); ++Index) {
      Places[vEntries[Index].File].emplace(vEntries[Index].FirstLine, Index);
    }
    return Places;
  }

  RuleEntry* EntryAt(const RulePlaces& Places, const Finding& Found) {
    const auto File = Places.find(Found.File);
    if (File == Places.end()) {
      return nullptr;
    }
    const auto After = File->second.upper_bound(Found.Line);
    return After == File->second.begin() ? nullptr : &vEntries[std::prev(After)->second];
  }

  std::vector<RuleEntry>& vEntries;
  Grammar::RepeatedRules Repeated{true, true};
  Grammar::MissingHeaders Headers;
  Grammar::RivalRules Rivals;
  Grammar::GrammarShapes Shapes;
};

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

bool ReadEntries(const Grammar::RunOptions& Run, std::vector<RuleEntry>& vEntriesReturn) {
  Grammar::RuleFiles Files(Run.vsFiles, Run.Quiet);
  EntryCollector Collector(vEntriesReturn);
  Grammar::RunPipeline<EntryBatch>(
      Grammar::ThreadCount(Run.Threads), [&](EntryBatch& Batch) { return ReadBatch(Files, Batch); },
      [&](EntryBatch& Batch) { Prepare(Collector.Repetitions(), Batch); },
      [&](EntryBatch& Batch) { Collector.Take(Batch); });
  Collector.End();
  return !Files.HasFailed();
}

}  // namespace Page
