#include "RuleRun.h"

#include "RuleChecker.h"
#include "RuleFiles.h"
#include "RunError.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <iostream>

namespace Grammar {

namespace {

void Report(const std::vector<Finding>& vFindings) {
  for (const Finding& Each : vFindings) {
    std::cerr << Each.File << ':' << Each.Line << ':' << Each.Column << ": " << NameOf(Each.Level)
              << ' ' << Each.Code << ": " << Each.Message << '\n';
  }
}

/// Carries texts along as they stand, and sees to it that each ends its last line.
class TextCarrier {
 public:
  explicit TextCarrier(RuleVisitor& VisitorPassIn) : Visitor(VisitorPassIn) {}

  void Carry(const RuleText& Text) {
    Visitor.TakeText(Text.Text);
    OwesLineEnd = Text.LacksLastEnd;
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

namespace {

/// Hands a rule to the visitor, if it can be read and written.
/// @param vFindingsReturn gets what is to be reported of it
/// @return whether the visitor has taken it
bool TakeRule(const RuleText& Text, bool KeepBad, RuleRecord& Record, RuleVisitor& Visitor,
              std::vector<Finding>& vFindingsReturn) {
  if (!Record.Read(Text, vFindingsReturn) || (KeepBad && Record.HasStrayText())) {
    return false;
  }
  Visitor.TakeRule(Record);
  return true;
}

}  // namespace

RunTally VisitRules(const RunOptions& Options, RuleVisitor& Visitor) {
  RuleFiles Files(Options.vsFiles, Options.Quiet, Options.Folded);
  TextCarrier Others(Visitor);
  RuleRecord Record;
  std::vector<Finding> vFindings;
  RunTally Tally;
  for (RuleText Text; Files.Next(Text);) {
    const bool BeginsRule = Text.HasRule && !Text.Continues;
    if (!Text.Continues) {
      Others.EndLine();
    }
    vFindings.clear();
    const bool IsTaken =
        Text.HasRule && TakeRule(Text, Options.KeepBad, Record, Visitor, vFindings);
    if (!IsTaken && (!Text.HasRule || Options.KeepBad)) {
      Others.Carry(Text);
    }
    Report(vFindings);
    Tally.HasFindings = Tally.HasFindings || !vFindings.empty();
    Tally.Rules += BeginsRule ? 1 : 0;
    Tally.LeftOut += BeginsRule && !IsTaken && !Options.KeepBad ? 1 : 0;
  }
  Others.EndLine();
  Tally.HasUnreadFiles = Files.HasFailed();
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

namespace {

/// "21 of 33 rules were left out"
std::string LeftOutText(const RunTally& Tally) {
  return std::to_string(Tally.LeftOut) + " of " + std::to_string(Tally.Rules) +
         (Tally.Rules == 1 ? " rule " : " rules ") + (Tally.LeftOut == 1 ? "was" : "were") +
         " left out";
}

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
  if (Tally.LeftOut > 0) {
    std::cerr << LeftOutText(Tally) << '\n';
  }
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

std::string SortableNumber(std::uint64_t Number) {
  std::string Bytes;
  for (int Shift = 56; Shift >= 0; Shift -= 8) {
    Bytes += static_cast<char>(static_cast<unsigned char>(Number >> Shift));
  }
  return Bytes;
}

}  // namespace Grammar
