#include "CheckCommand.h"

#include "Bytes.h"
#include "FileKind.h"
#include "FindingTally.h"
#include "GrammarFindings.h"
#include "MissingHeaders.h"
#include "OutputFile.h"
#include "Pipeline.h"
#include "RepeatedRules.h"
#include "RivalRules.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RuleUse.h"
#include "RunError.h"
#include "StartTypes.h"
#include "ThreadCount.h"

#include <algorithm>
#include <cstdint>
#include <deque>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

namespace Grammar {

namespace {

/// Which findings are reported, and which of them are shown.
class FindingFilter {
 public:
  explicit FindingFilter(const CheckOptions& Options) {
    const std::string Help = "trrule check --help";
    for (const CodeInfo& Info : AllCodes()) {
      SetWanted(Info, Options.vsOnly.empty());
    }
    bool NamesNote = false;
    for (const std::string& sCode : Options.vsOnly) {
      const CodeInfo& Info = KnownCode(sCode, Help);
      SetWanted(Info, true);
      NamesNote = NamesNote || Info.Level == Severity::Note;
    }
    for (const std::string& sCode : Options.vsExcept) {
      SetWanted(KnownCode(sCode, Help), false);
    }
    Least = Options.Least.value_or(NamesNote ? Severity::Note : Severity::Warning);
  }

  bool IsWanted(const CodeInfo& Info) const { return vIsWanted.at(PlaceOf(Info)); }
  bool IsWanted(std::string_view Code) const { return IsWanted(*FindCode(Code)); }
  bool IsShown(Severity Level) const { return Level >= Least; }
  bool IsShown(const Finding& Found) const { return IsShown(Found.Level) && IsWanted(Found.Code); }
  bool WantsShown(std::string_view Code) const {
    return IsShown(FindCode(Code)->Level) && IsWanted(Code);
  }

 private:
  static std::size_t PlaceOf(const CodeInfo& Info) {
    return static_cast<std::size_t>(&Info - AllCodes().data());
  }

  void SetWanted(const CodeInfo& Info, bool Wanted) { vIsWanted.at(PlaceOf(Info)) = Wanted; }

  std::vector<bool> vIsWanted = std::vector<bool>(AllCodes().size());
  Severity Least = Severity::Warning;
};

/// What is said of a file that is not a grammar, at its first line.
Finding FileFinding(const std::string& Name, std::string_view Start, std::string Message) {
  constexpr std::size_t MaxLineText = 80;
  Finding New;
  New.File = Name;
  New.Code = "TR016";
  New.Level = FindCode(New.Code)->Level;
  New.Message = std::move(Message);
  New.LineText = Start.substr(0, std::min(Start.find_first_of("\r\n"), MaxLineText));
  return New;
}

/// Rules that are checked together, with all that is found in each for itself. Their storage is
/// used again by the next rules.
class CheckBatch {
 public:
  /// One rule, or in its place a file that is not a grammar.
  struct Item {
    std::vector<std::string> vsFailures;  ///< of files before it
    RuleText Text;
    bool IsFile = false;
    bool IsRead = false;
    RuleIdentity Identity;
    RuleOutline Outline;
    std::vector<Finding> vFindings;
    std::string Shown;  ///< those that are shown, as they are written
    HiddenNotes Hidden;

    void Clear() {
      vsFailures.clear();
      IsFile = false;
      IsRead = false;
      Outline.Clear();
      vFindings.clear();
      Shown.clear();
      Hidden.clear();
    }
  };
  using Iterator = std::deque<Item>::iterator;

  void Clear() { Count = 0; }
  bool IsEmpty() const { return Count == 0; }

  Item& Add() {
    if (Count == Items.size()) {
      Items.emplace_back();
    }
    Items[Count].Clear();
    return Items[Count++];
  }

  void RemoveLast() { --Count; }

  Iterator begin() { return Items.begin(); }
  Iterator end() { return Items.begin() + static_cast<std::ptrdiff_t>(Count); }

 private:
  std::deque<Item> Items;
  std::size_t Count = 0;  // how many of them are in use
};

/// Reads the files of a run batch by batch.
class CheckReader {
 public:
  CheckReader(const RunOptions& Run, bool WantsKindPassIn)
      : Files(Run.vsFiles, Run.Quiet), WantsKind(WantsKindPassIn) {
    Files.ReportFailuresTo([this](const std::string& Message) { vsFailures.push_back(Message); });
    IsOpen = OpenNext();
  }

  /// Reads about that many bytes of rules, at least one rule. @return false after the last one
  bool Read(CheckBatch& BatchReturn) {
    constexpr std::size_t WantedSize = std::size_t{1} << 16;
    BatchReturn.Clear();
    for (std::size_t Size = 0; Size < WantedSize;) {
      CheckBatch::Item& New = BatchReturn.Add();
      if (!ReadItem(New)) {
        BatchReturn.RemoveLast();
        break;
      }
      New.vsFailures.swap(vsFailures);
      Size += New.Text.Text.size();
    }
    return !BatchReturn.IsEmpty();
  }

  /// To be called after the last batch has been finished. @return whether some file has failed
  bool End() const {
    ReportFailures(vsFailures);
    return Files.HasFailed();
  }

  static void ReportFailures(const std::vector<std::string>& vsMessages) {
    for (const std::string& sMessage : vsMessages) {
      ReportFailure(sMessage);
    }
  }

 private:
  bool ReadItem(CheckBatch::Item& ItemReturn) {
    while (IsOpen) {
      if (OtherKind) {
        ItemReturn.IsFile = true;
        ItemReturn.vFindings.push_back(FileFinding(Files.Name(), Files.Ahead(), *OtherKind));
        IsOpen = OpenNext();
        return true;
      }
      if (Files.NextInFile(ItemReturn.Text)) {
        return true;
      }
      IsOpen = OpenNext();
    }
    return false;
  }

  bool OpenNext() {
    OtherKind.reset();
    const bool IsThere = Files.OpenNext();
    if (IsThere && WantsKind) {
      OtherKind = OtherFileKind(Files.Ahead());
    }
    return IsThere;
  }

  RuleFiles Files;
  bool WantsKind;
  bool IsOpen = false;
  std::optional<std::string> OtherKind;  // why the open file is not a grammar
  std::vector<std::string> vsFailures;   // since the last rule
};

/// Looks at the grammar as a whole, once all its rules have been seen.
///
/// What is only a note there is not looked for where notes are neither shown nor counted in a
/// table: it is costly to know.
class WholeChecker {
 public:
  WholeChecker(const FindingFilter& FilterPassIn, const CheckOptions& Options)
      : Filter(FilterPassIn),
        CountsNotes(Options.Statistics),
        HasStarts(Options.Starts.has_value()) {
    if (HasStarts) {
      vsStarts = ParseStartTypes(*Options.Starts);
    }
  }

  bool WantsShapes() const {
    return Wants("TR050") || WantsStarts() || Wants("TR052") || Wants("TR053");
  }
  bool WantsRivals() const { return Wants("TR054"); }

  /// Compares a rule with those before it.
  void Add(const RuleText& Text, const RuleOutline& Outline, std::vector<Finding>& vReturn) {
    if (WantsRivals()) {
      Rivals.Check(Text, Outline, vReturn);
    }
    if (WantsShapes()) {
      Shapes.Add(Text, Outline);
    }
  }

  /// What is found in all rules together.
  std::vector<Finding> End() {
    Shapes.Finish();
    ReportMissingStarts();
    GrammarFindings Whole(Shapes);
    const bool WantsLacks = CountsNotes || Filter.IsShown(Whole.LevelOfLack());
    if (WantsLacks && Wants("TR050")) {
      Whole.AddUnprovidedLabels();
    }
    if (WantsStarts()) {
      Whole.AddUnreachableRules(vsStarts);
    }
    if (WantsLacks && Wants("TR052")) {
      Whole.AddUnsuppliedValues();
    }
    if (Wants("TR053")) {
      Whole.AddUnaryCycles();
    }
    return Whole.Take();
  }

 private:
  bool Wants(std::string_view Code) const {
    return Filter.WantsShown(Code) || (CountsNotes && Filter.IsWanted(Code));
  }
  bool WantsStarts() const { return HasStarts && Wants("TR051"); }

  void ReportMissingStarts() const {
    for (const std::string& sStart : vsStarts) {
      const std::uint32_t Label = Shapes.FindLabel(Upper(sStart));
      if (Label == GrammarShapes::None || Shapes.ShapesOfType(Label).IsEmpty()) {
        std::cerr << MissingStartText(sStart) + '\n';
      }
    }
  }

  const FindingFilter& Filter;
  bool CountsNotes;
  bool HasStarts;
  std::vector<std::string> vsStarts;
  GrammarShapes Shapes;
  RivalRules Rivals;
};

/// Checks rules, each for itself on any thread, and then compares them in their order.
class RulesChecker {
 public:
  RulesChecker(const FindingFilter& FilterPassIn, const CheckOptions& Options,
               FindingWriter& WriterPassIn)
      : Filter(FilterPassIn),
        Statistics(Options.Statistics),
        Writer(WriterPassIn),
        Repeated(Filter.WantsShown("TR033"), Filter.WantsShown("TR034")),
        Whole(Filter, Options) {}

  /// Called on several threads at once.
  void Prepare(CheckBatch& BatchReturn) const {
    RuleRecord Record;
    OutlineMaker Outlines;
    std::string Scratch;
    for (CheckBatch::Item& Current : BatchReturn) {
      if (!Current.IsFile && !Current.Text.Continues) {
        HiddenNotes* const Hidden = Filter.IsShown(Severity::Note) ? nullptr : &Current.Hidden;
        Current.IsRead = CheckRule(Current.Text, Record, Current.vFindings, Hidden);
        Outlines.Make(Record.Lines(), Current.Outline);
        if (Current.Outline.LacksSources) {
          ReportMissingSources(Record.Lines(), Outlines.Places(), Current.vFindings);
        }
      }
      if (Current.IsRead) {
        Repeated.Identify(Record, Scratch, Current.Identity);
      }
      AppendShown(Current);
    }
  }

  void Finish(CheckBatch& BatchReturn) {
    for (CheckBatch::Item& Current : BatchReturn) {
      CheckReader::ReportFailures(Current.vsFailures);
      if (!Current.IsFile) {
        Compare(Current);
      }
      if (!Current.Shown.empty()) {
        Writer.Write(Current.Shown);
      }
      Count(Current);
    }
  }

  /// To be called after the last batch.
  void End() {
    CheckBatch::Item Last;
    Last.vFindings = Whole.End();
    AppendShown(Last);
    if (!Last.Shown.empty()) {
      Writer.Write(Last.Shown);
    }
    Count(Last);
  }

  const FindingTally& Tally() const { return All; }

 private:
  void AppendShown(CheckBatch::Item& ItemReturn) const {
    if (Statistics) {
      return;
    }
    for (const Finding& Found : ItemReturn.vFindings) {
      if (Filter.IsShown(Found)) {
        Writer.Append(Found, ItemReturn.Shown);
      }
    }
  }

  /// Adds what is found only beside other rules.
  void Compare(CheckBatch::Item& ItemReturn) {
    const std::size_t Before = ItemReturn.vFindings.size();
    if (ItemReturn.IsRead) {
      Repeated.Check(ItemReturn.Text, ItemReturn.Identity, ItemReturn.vFindings);
    }
    Headers.Check(ItemReturn.Text, ItemReturn.vFindings);
    Whole.Add(ItemReturn.Text, ItemReturn.Outline, ItemReturn.vFindings);
    if (ItemReturn.vFindings.size() > Before) {
      SortFindings(ItemReturn.vFindings);
      ItemReturn.Shown.clear();
      AppendShown(ItemReturn);
    }
  }

  void Count(const CheckBatch::Item& Item) {
    for (const Finding& Found : Item.vFindings) {
      if (Filter.IsWanted(Found.Code)) {
        All.Add(Found.Code, Found.Level);
      }
    }
    for (const CodeInfo* Info : Item.Hidden) {
      if (Filter.IsWanted(*Info)) {
        All.Add(Info->Code, Severity::Note);
      }
    }
  }

  const FindingFilter& Filter;
  bool Statistics;
  FindingWriter& Writer;
  RepeatedRules Repeated;
  MissingHeaders Headers;
  WholeChecker Whole;
  FindingTally All;
};

/// How many findings have one of the severities that are shown, or one of the others.
std::uint64_t CountShown(const FindingTally& Tally, const FindingFilter& Filter, bool Shown) {
  std::uint64_t Number = 0;
  for (const Severity Level : {Severity::Note, Severity::Warning, Severity::Error}) {
    Number += Filter.IsShown(Level) == Shown ? Tally.Count(Level) : 0;
  }
  return Number;
}

/// Says on standard error how much was found, if anything was.
void ReportSummary(const FindingTally& Tally, const FindingFilter& Filter, bool Statistics) {
  const std::uint64_t Hidden = CountShown(Tally, Filter, false);
  if (Hidden + CountShown(Tally, Filter, true) == 0) {
    return;
  }
  std::string Line = Tally.Summary();
  if (Hidden > 0 && !Statistics) {
    Line += "; " + std::to_string(Hidden) + " not shown (--severity note shows all)";
  }
  std::cerr << Line + '\n';
}

bool IsTable(const CheckOptions& Options) {
  if (Options.Statistics && Options.Format == FindingFormat::Sarif) {
    throw RunError("--statistics has no form in SARIF; json is one of the others");
  }
  return Options.Statistics;
}

}  // namespace

int RunCheck(const RunOptions& Run, const CheckOptions& OptionsPassIn) {
  const FindingFilter Filter(OptionsPassIn);
  const bool Statistics = IsTable(OptionsPassIn);
  if (!Run.Force && ReplacesInput(Run)) {
    throw RunError("did not replace " + Run.Output +
                   ": it is an input (--force replaces it by the findings)");
  }
  OutputFile Output(Run.Output);
  const FindingFormat Format = OptionsPassIn.Format;
  const std::unique_ptr<FindingWriter> Writer =
      MakeFindingWriter(Format, WantsColours(Run.Output), OptionsPassIn.Version, Output);
  RulesChecker Checker(Filter, OptionsPassIn, *Writer);
  CheckReader Reader(Run, Filter.WantsShown("TR016"));
  if (!Statistics) {
    Writer->Begin();
  }
  RunPipeline<CheckBatch>(
      ThreadCount(Run.Threads), [&](CheckBatch& Batch) { return Reader.Read(Batch); },
      [&](CheckBatch& Batch) { Checker.Prepare(Batch); },
      [&](CheckBatch& Batch) { Checker.Finish(Batch); });
  Checker.End();
  const FindingTally& Found = Checker.Tally();
  if (Statistics) {
    Output.Write(Format == FindingFormat::Json ? Found.JsonTable() : Found.Table());
  } else {
    Writer->End();
  }
  RunTally Tally;
  Tally.HasFindings = CountShown(Found, Filter, true) > 0;
  Tally.HasUnreadFiles = Reader.End();
  const int Status = FinishRun(Run, Tally, Output);
  ReportSummary(Found, Filter, Statistics);
  return Status;
}

}  // namespace Grammar
