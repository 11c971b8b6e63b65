#include "RuleRun.h"

#include "InputFile.h"
#include "Pipeline.h"
#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RunError.h"
#include "ThreadCount.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace Grammar {

void Report(const std::vector<Finding>& vFindings) {
  for (const Finding& Found : vFindings) {
    std::cerr << Found.File << ':' << Found.Line << ':' << Found.Column << ": "
              << NameOf(Found.Level) << ' ' << Found.Code << ": " << Found.Message << '\n';
  }
}

namespace {

/// Carries texts along unchanged, and sees to it that each ends its last line.
class TextCarrier {
 public:
  explicit TextCarrier(RuleVisitor& VisitorPassIn) : Visitor(VisitorPassIn) {}

  void Carry(const RuleText& Text) {
    if (Text.HasRule) {
      Visitor.TakeBadRule(Text.Text, Text.Continues);
    } else {
      Visitor.TakeText(Text.Text);
    }
    OwesLineEnd = Text.LacksFinalNewline;
  }

  /// To be called before the next text, and at the end.
  void EndLine() {
    if (OwesLineEnd) {
      Visitor.EndLine();
      OwesLineEnd = false;
    }
  }

 private:
  RuleVisitor& Visitor;
  bool OwesLineEnd = false;
};

}  // namespace

RuleVisitor::~RuleVisitor() = default;

void RuleVisitor::TakeBadRule(std::string_view Text, bool /*Continues*/) {
  TakeText(Text);
}

namespace {

/// Rules that are read together, and what has been made of them. A batch is used again with its
/// storage, which is worth a tenth of the work.
struct RuleBatch {
  struct Rule {
    std::vector<std::string> vsFailures;  // of files that should have come before
    RuleText Text;
    bool IsTaken = false;
    bool HasStrayText = false;
    std::size_t KeyEnd = 0;   // in `Keys`
    std::size_t TextEnd = 0;  // in `Texts`
    std::vector<Finding> vFindings;
  };

  /// Room for one more rule, after the others.
  Rule& NextRule() {
    if (Count == vRules.size()) {
      return vRules.emplace_back();
    }
    Rule& Next = vRules[Count];
    if (IsLarge(Next)) {
      Next = Rule();
    }
    Next.vsFailures.clear();
    Next.vFindings.clear();
    Next.IsTaken = Next.HasStrayText = false;
    return Next;
  }

  /// Whether a rule has more storage than shall be kept.
  static bool IsLarge(const Rule& Current) {
    return Current.Text.Text.capacity() > 4096 || Current.Text.vLines.capacity() > 256 ||
           Current.vFindings.capacity() > 16;
  }

  std::vector<Rule> vRules;  // the first ones are those of the batch
  std::size_t Count = 0;     // how many these are
  std::string Keys;
  std::string Texts;
};

/// Reads the files of a run batch by batch. A file that cannot be read is reported in its turn.
class BatchReader {
 public:
  explicit BatchReader(const RunOptions& Options)
      : Files(Options.vsFiles, Options.Quiet, Options.Folded) {
    Files.ReportFailuresTo([this](const std::string& Message) { vsFailures.push_back(Message); });
  }

  /// Reads about that many bytes of rules, at least one rule. @return false after the last one
  bool Read(RuleBatch& BatchReturn) {
    constexpr std::size_t WantedSize = std::size_t{1} << 16;
    BatchReturn.Count = 0;
    BatchReturn.Keys.clear();
    BatchReturn.Texts.clear();
    for (std::size_t Size = 0; Size < WantedSize; ++BatchReturn.Count) {
      RuleBatch::Rule& New = BatchReturn.NextRule();
      if (!Files.Next(New.Text)) {
        break;
      }
      New.vsFailures.swap(vsFailures);
      Size += New.Text.Text.size();
    }
    return BatchReturn.Count > 0;
  }

  /// To be called after the last batch has been finished. @return whether some file has failed
  bool End() const {
    ReportFailures(vsFailures);
    return Files.HasFailed();
  }

 private:
  RuleFiles Files;
  std::vector<std::string> vsFailures;  // since the last rule
};

/// Reads the lines of each rule and makes of them what the visitor takes.
void PrepareBatch(const RuleVisitor& Visitor, bool KeepBad, RuleBatch& BatchReturn) {
  RuleRecord Record;
  for (std::size_t Number = 0; Number < BatchReturn.Count; ++Number) {
    RuleBatch::Rule& Used = BatchReturn.vRules[Number];
    Used.IsTaken = Used.Text.HasRule && ReadRule(Used.Text, Record, Used.vFindings) &&
                   !(KeepBad && Record.HasStrayText() && !Visitor.KeepsLines());
    if (Used.IsTaken) {
      Used.HasStrayText = Record.HasStrayText();
      Used.IsTaken =
          Visitor.PrepareRule(Record, BatchReturn.Keys, BatchReturn.Texts, Used.vFindings);
    }
    Used.KeyEnd = BatchReturn.Keys.size();
    Used.TextEnd = BatchReturn.Texts.size();
  }
}

/// Passes batches to a visitor, in the order of the input, and counts.
class BatchFinisher {
 public:
  BatchFinisher(RuleVisitor& VisitorPassIn, bool KeepBadPassIn)
      : Visitor(VisitorPassIn), Others(VisitorPassIn), KeepBad(KeepBadPassIn) {}

  void Finish(const RuleBatch& Batch) {
    std::size_t Key = 0;
    std::size_t Text = 0;
    for (std::size_t Number = 0; Number < Batch.Count; ++Number) {
      const RuleBatch::Rule& Used = Batch.vRules[Number];
      const std::string_view Keys = Batch.Keys;
      const std::string_view Texts = Batch.Texts;
      Finish(Used, Keys.substr(Key, Used.KeyEnd - Key), Texts.substr(Text, Used.TextEnd - Text));
      Key = Used.KeyEnd;
      Text = Used.TextEnd;
    }
  }

  RunTally End() {
    Others.EndLine();
    return Tally;
  }

 private:
  void Finish(const RuleBatch::Rule& Current, std::string_view Key, std::string_view Text) {
    const bool BeginsRule = Current.Text.HasRule && !Current.Text.Continues;
    ReportFailures(Current.vsFailures);
    if (!Current.Text.Continues) {
      Others.EndLine();
    }
    if (Current.IsTaken) {
      Visitor.TakeRule(Key, Text);
    } else if (!Current.Text.HasRule || KeepBad) {
      Others.Carry(Current.Text);
    }
    Report(Current.vFindings);
    Tally.HasFindings = Tally.HasFindings || !Current.vFindings.empty();
    Tally.HasStrayText = Tally.HasStrayText || Current.HasStrayText;
    Tally.Rules += BeginsRule ? 1 : 0;
    Tally.LeftOut += BeginsRule && !Current.IsTaken && !KeepBad ? 1 : 0;
  }

  RuleVisitor& Visitor;
  TextCarrier Others;
  bool KeepBad;
  RunTally Tally;
};

}  // namespace

RunTally VisitRules(const RunOptions& Options, RuleVisitor& Visitor) {
  BatchReader Reader(Options);
  BatchFinisher Finisher(Visitor, Options.KeepBad);
  RunPipeline<RuleBatch>(
      ThreadCount(Options.Threads), [&](RuleBatch& Batch) { return Reader.Read(Batch); },
      [&](RuleBatch& Batch) { PrepareBatch(Visitor, Options.KeepBad, Batch); },
      [&](const RuleBatch& Batch) { Finisher.Finish(Batch); });
  RunTally Tally = Finisher.End();
  Tally.HasUnreadFiles = Reader.End();
  return Tally;
}

bool ReplacesInput(const RunOptions& Options) {
  struct stat Output {};
  if (Options.Output.empty() || Options.Output == "-" ||
      stat(Options.Output.c_str(), &Output) != 0 || !S_ISREG(Output.st_mode)) {
    return false;
  }
  const std::vector<std::string> vsNames = OrStandardInput(Options.vsFiles);
  return std::any_of(vsNames.begin(), vsNames.end(), [&](const std::string& sName) {
    struct stat Input {};
    const int Result = sName == "-" ? fstat(STDIN_FILENO, &Input) : stat(sName.c_str(), &Input);
    return Result == 0 && Input.st_dev == Output.st_dev && Input.st_ino == Output.st_ino;
  });
}

void ReportLeftOut(const RunTally& Tally) {
  if (Tally.LeftOut > 0) {
    std::cerr << Tally.LeftOut << " of " << Tally.Rules << (Tally.Rules == 1 ? " rule " : " rules ")
              << (Tally.LeftOut == 1 ? "was" : "were") << " left out\n";
  }
}

namespace {

void RequireWholeOutput(const RunOptions& Options, const RunTally& Tally, bool CanKeepBad) {
  if (Tally.HasUnreadFiles) {
    throw RunError("did not write " + Options.Output +
                   ": not all inputs could be read (--force writes it all the same)");
  }
  if ((Tally.LeftOut > 0 || Tally.HasLostText) && ReplacesInput(Options)) {
    throw RunError("did not replace " + Options.Output +
                   ": it is an input, and what was left out would be lost (" +
                   (CanKeepBad ? "--keep-bad keeps that, " : "") + "--force drops it)");
  }
}

}  // namespace

int FinishRun(const RunOptions& Options, const RunTally& Tally, OutputFile& OutputReturn,
              bool CanKeepBad) {
  ReportLeftOut(Tally);
  if (OutputReturn.AppearsAtTheEnd() && !Options.Force) {
    RequireWholeOutput(Options, Tally, CanKeepBad);
  }
  OutputReturn.Finish();
  if (Tally.HasUnreadFiles) {
    return StatusFailed;
  }
  return Tally.HasFindings ? StatusFindings : StatusClean;
}

int CollectRules(const RunOptions& Options, RuleCollector& Collector) {
  OutputFile Output(Options.Output);
  const RunTally Tally = VisitRules(Options, Collector);
  Collector.WriteTo(Output);
  return FinishRun(Options, Tally, Output);
}

std::size_t MemoryForSorting(std::size_t Memory) {
  constexpr std::size_t Program = std::size_t{12} << 20;
  return Memory > 2 * Program ? Memory - Program : Memory / 2;
}

}  // namespace Grammar
