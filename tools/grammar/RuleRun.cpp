#include "RuleRun.h"

#include "RuleFiles.h"
#include "RunError.h"

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

int VisitRules(const RunOptions& Options, RuleVisitor& Visitor) {
  RuleFiles Files(Options.vsFiles, Options.Quiet, Options.Folded);
  TextCarrier Others(Visitor);
  RuleRecord Record;
  std::vector<Finding> vFindings;
  int Status = StatusClean;
  for (RuleText Text; Files.Next(Text);) {
    if (!Text.Continues) {
      Others.EndLine();
    }
    vFindings.clear();
    const bool IsRule = Text.HasRule && Record.Read(Text, vFindings);
    if (IsRule) {
      Visitor.TakeRule(Record);
    } else if (!Text.HasRule || Options.KeepBad) {
      Others.Carry(Text);
    }
    if (!IsRule && Text.HasRule) {
      Report(vFindings);
      Status = StatusFindings;
    }
  }
  Others.EndLine();
  return Status;
}

int CollectRules(const RunOptions& Options, RuleCollector& Collector) {
  OutputFile Output(Options.Output);
  const int Status = VisitRules(Options, Collector);
  Collector.WriteTo(Output);
  Output.Finish();
  return Status;
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
