// The cost of the library compared with the cost of its containers.
//
// Each benchmark runs over the same generated rules. For each rule it reports the time, the bytes
// of text, the allocations and the allocated bytes. In a name, the stage comes before the slash;
// after it, the library is distinguished from the floors that it is compared with.

#include "AllocationCount.h"
#include "FlatRule.h"
#include "RuleGenerator.h"
#include "TrRule.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cctype>
#include <cstring>
#include <deque>
#include <iostream>
#include <numeric>
#include <streambuf>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::size_t RuleCount = 2000;
constexpr std::size_t SortCount = 100000;
constexpr std::uint64_t Seed = 20;

/// Discards the messages of merged values.
class NoBuffer : public std::streambuf {
 protected:
  int overflow(int Byte) override { return Byte; }
  std::streamsize xsputn(const char* /*Text*/, std::streamsize Size) override { return Size; }
};

using Writer = std::string (*)(TrRule&);
const std::vector<std::pair<const char*, Writer>>& Writers() {
  static const std::vector<std::pair<const char*, Writer>> vWriters = {
      {"write for print", [](TrRule& Rule) { return Rule.ReturnAsStringForPrint(); }},
      {"write without constraints",
       [](TrRule& Rule) { return Rule.ReturnAsStringForPrintNoConstraints(); }},
      {"write with alternatives", [](TrRule& Rule) { return Rule.ReturnAsStringWithAllAlts(); }},
      {"write for comparison", [](TrRule& Rule) { return Rule.ReturnAsStringForComparison(); }},
  };
  return vWriters;
}

/// A text split where a writer appends: words and the text between them.
std::vector<std::string_view> CutWritten(std::string_view Text) {
  const auto IsWord = [](char Byte) { return std::isalnum(static_cast<unsigned char>(Byte)) != 0; };
  std::vector<std::string_view> vPieces;
  while (!Text.empty()) {
    std::size_t Size = 1;
    while (Size < Text.size() && IsWord(Text[Size]) == IsWord(Text[0])) {
      ++Size;
    }
    vPieces.push_back(Text.substr(0, Size));
    Text.remove_prefix(Size);
  }
  return vPieces;
}

/// The members of a copied rule: all but the comments and the header type.
RulePieces WithoutReadersOwn(RulePieces Pieces) {
  Pieces.vsComments.clear();
  Pieces.POS.clear();
  return Pieces;
}

/// The rules that all benchmarks share, in every representation that they need.
struct Fixture {
  Fixture() : vsTexts(GeneratedRules(Seed, RuleCount)) {
    for (const std::string& sText : vsTexts) {
      Rules.emplace_back();
      Rules.back().SetTrRuleFromString(sText);
      RulesWithAlts.emplace_back();
      RulesWithAlts.back().SetTrRuleFromString(sText);
      RulesWithAlts.back().ResetAlterTrInfo();
      vPieces.push_back(CutRule(sText));
      Flat.emplace_back(WithoutReadersOwn(vPieces.back()));
      TextBytes += sText.size();
    }
  }

  std::vector<std::string> vsTexts;
  std::deque<TrRule> Rules;
  std::deque<TrRule> RulesWithAlts;
  std::vector<RulePieces> vPieces;
  std::deque<FlatRule> Flat;
  std::size_t TextBytes = 0;
};

Fixture& Shared() {
  static Fixture TheFixture;
  return TheFixture;
}

/// Times the work over all rules and counts what it allocates.
template <typename WorkT>
void RunOverRules(benchmark::State& State, std::size_t Bytes, WorkT Work) {
  const AllocationCount Before = CountedAllocations();
  for (std::size_t Rule = 0; Rule < RuleCount; ++Rule) {
    Work(Rule);
  }
  const AllocationCount Counted = CountedAllocations() - Before;
  for (auto Round : State) {
    for (std::size_t Rule = 0; Rule < RuleCount; ++Rule) {
      Work(Rule);
    }
  }
  const auto PerRule = [](std::size_t Sum) { return static_cast<double>(Sum) / RuleCount; };
  State.counters["rules"] = RuleCount;
  State.counters["text"] = PerRule(Bytes);
  State.counters["allocations"] = PerRule(Counted.Calls);
  State.counters["allocated"] = PerRule(Counted.Bytes);
}

// ---- Reading and copying ----------------------------------------------------------------------

void Read(benchmark::State& State) {
  RunOverRules(State, Shared().TextBytes, [](std::size_t Number) {
    TrRule Rule;
    benchmark::DoNotOptimize(Rule.SetTrRuleFromString(Shared().vsTexts[Number]));
  });
}
BENCHMARK(Read)->Name("read/library");

void ScanLines(benchmark::State& State) {
  RunOverRules(State, Shared().TextBytes, [](std::size_t Number) {
    const std::string& sText = Shared().vsTexts[Number];
    const char* const End = sText.data() + sText.size();
    for (const char* Line = sText.data(); Line != End;) {
      const void* const Found = std::memchr(Line, '\n', static_cast<std::size_t>(End - Line));
      benchmark::DoNotOptimize(Found);
      Line = Found == nullptr ? End : static_cast<const char*>(Found) + 1;
    }
  });
}
BENCHMARK(ScanLines)->Name("read/scan");

void FillContainers(benchmark::State& State) {
  RunOverRules(State, Shared().TextBytes, [](std::size_t Number) {
    const FlatRule Flat(Shared().vPieces[Number]);
    benchmark::DoNotOptimize(&Flat);
  });
}
BENCHMARK(FillContainers)->Name("read/floor");

void Copy(benchmark::State& State) {
  RunOverRules(State, 0, [](std::size_t Number) {
    const TrRule Rule(Shared().Rules[Number]);
    benchmark::DoNotOptimize(&Rule);
  });
}
BENCHMARK(Copy)->Name("copy/library");

void CopyContainers(benchmark::State& State) {
  RunOverRules(State, 0, [](std::size_t Number) {
    const FlatRule Flat(Shared().Flat[Number]);
    benchmark::DoNotOptimize(&Flat);
  });
}
BENCHMARK(CopyContainers)->Name("copy/floor");

// ---- Writing ----------------------------------------------------------------------------------

void Write(benchmark::State& State, Writer Form) {
  std::size_t Bytes = 0;
  for (TrRule& Rule : Shared().RulesWithAlts) {
    Bytes += Form(Rule).size();
  }
  RunOverRules(State, Bytes, [Form](std::size_t Number) {
    benchmark::DoNotOptimize(Form(Shared().RulesWithAlts[Number]));
  });
}

void AppendPieces(benchmark::State& State, Writer Form) {
  std::vector<std::string> vsTexts;
  std::vector<std::vector<std::string_view>> vvPieces;
  std::size_t Bytes = 0;
  vsTexts.reserve(RuleCount);
  for (TrRule& Rule : Shared().RulesWithAlts) {
    vsTexts.push_back(Form(Rule));
    vvPieces.push_back(CutWritten(vsTexts.back()));
    Bytes += vsTexts.back().size();
  }
  RunOverRules(State, Bytes, [&](std::size_t Number) {
    std::string Text;
    Text.reserve(vsTexts[Number].size());
    for (const std::string_view Piece : vvPieces[Number]) {
      Text += Piece;
    }
    benchmark::DoNotOptimize(Text);
  });
}

// ---- Comparing and sorting --------------------------------------------------------------------

TrRule& Neighbour(std::size_t Number) {
  return Shared().Rules[(Number + 1) % RuleCount];
}

void EqualToCopy(benchmark::State& State) {
  RunOverRules(State, 0, [](std::size_t Number) {
    benchmark::DoNotOptimize(Shared().Rules[Number] == Shared().Rules[Number]);
  });
}
BENCHMARK(EqualToCopy)->Name("equality/library");

void Less(benchmark::State& State) {
  RunOverRules(State, 0, [](std::size_t Number) {
    benchmark::DoNotOptimize(Shared().Rules[Number] < Neighbour(Number));
  });
}
BENCHMARK(Less)->Name("order/library");

std::deque<TrRule>& RulesToSort() {
  static std::deque<TrRule> Rules;
  if (Rules.empty()) {
    for (const std::string& sText : GeneratedRules(Seed, SortCount)) {
      Rules.emplace_back();
      Rules.back().SetTrRuleFromString(sText);
    }
  }
  return Rules;
}

std::vector<std::size_t> OrderToSort() {
  std::vector<std::size_t> vOrder(RulesToSort().size());
  std::iota(vOrder.begin(), vOrder.end(), std::size_t{0});
  return vOrder;
}

void SortByOperator(benchmark::State& State) {
  for (auto Round : State) {
    std::vector<std::size_t> vOrder = OrderToSort();
    std::sort(vOrder.begin(), vOrder.end(), [](std::size_t Left, std::size_t Right) {
      return RulesToSort()[Left] < RulesToSort()[Right];
    });
    benchmark::DoNotOptimize(vOrder.data());
  }
  State.counters["rules"] = SortCount;
}
BENCHMARK(SortByOperator)->Name("sort/by operator")->Iterations(1);

void SortByTexts(benchmark::State& State) {
  for (auto Round : State) {
    std::vector<std::string> vsTexts;
    for (TrRule& Rule : RulesToSort()) {
      vsTexts.push_back(Rule.ReturnAsStringForComparison());
    }
    std::vector<std::size_t> vOrder = OrderToSort();
    std::sort(vOrder.begin(), vOrder.end(),
              [&](std::size_t Left, std::size_t Right) { return vsTexts[Left] < vsTexts[Right]; });
    benchmark::DoNotOptimize(vOrder.data());
  }
  State.counters["rules"] = SortCount;
}
BENCHMARK(SortByTexts)->Name("sort/by texts")->Iterations(1);

// ---- Editing and asking -----------------------------------------------------------------------

void Flip(benchmark::State& State) {
  RunOverRules(State, 0,
               [](std::size_t Number) { Shared().Rules[Number].FlipRuleNoConstraints(); });
}
BENCHMARK(Flip)->Name("flip/library")->Iterations(20);

void Query(benchmark::State& State) {
  const std::set<int> siCategories = {1, 2, 3, 4};
  RunOverRules(State, 0, [&](std::size_t Number) {
    const TrRule& Rule = Shared().Rules[Number];
    benchmark::DoNotOptimize(Rule.GetConstraints(5));
    benchmark::DoNotOptimize(Rule.GetConstraintsForInd(1, siCategories));
    benchmark::DoNotOptimize(Rule.GetNumConstraints());
  });
}
BENCHMARK(Query)->Name("query/library");

void AddAndErase(benchmark::State& State) {
  RunOverRules(State, 0, [](std::size_t Number) {
    TrRule& Rule = Shared().Rules[Number];
    Rule.SetConstraint(4, 9, "new", "value", -1, true);
    benchmark::DoNotOptimize(Rule.EraseConstraint(9, "new", "value", "empty", {4}));
  });
}
BENCHMARK(AddAndErase)->Name("add and erase/library");

// ---- Parts of the reader ----------------------------------------------------------------------

void Tokenize(benchmark::State& State) {
  RunOverRules(State, Shared().TextBytes, [](std::size_t Number) {
    benchmark::DoNotOptimize(Tokenizer()(Shared().vsTexts[Number], "\n", true));
  });
}
BENCHMARK(Tokenize)->Name("tokenize/library");

std::vector<std::vector<std::string>> LinesWith(std::string_view Mark, std::string_view Without) {
  std::vector<std::vector<std::string>> vvsLines;
  for (const std::string& sText : Shared().vsTexts) {
    vvsLines.emplace_back();
    for (std::string& sLine : Tokenizer()(sText, "\n")) {
      if (sLine.find(Mark) != std::string::npos && sLine.find(Without) == std::string::npos) {
        vvsLines.back().push_back(std::move(sLine));
      }
    }
  }
  return vvsLines;
}

void ParseConstraints(benchmark::State& State) {
  const std::vector<std::vector<std::string>> vvsLines = LinesWith("=", ";;");
  RunOverRules(State, 0, [&](std::size_t Number) {
    for (const std::string& sLine : vvsLines[Number]) {
      const Constraint Parsed(sLine);
      benchmark::DoNotOptimize(&Parsed);
    }
  });
}
BENCHMARK(ParseConstraints)->Name("parse constraints/library");

void AddAlignments(benchmark::State& State) {
  const std::vector<std::vector<std::string>> vvsLines = LinesWith("::Y", "[");
  RunOverRules(State, 0, [&](std::size_t Number) {
    TrRule Rule;
    for (const std::string& sLine : vvsLines[Number]) {
      Rule.AddAlignment(sLine);
    }
  });
}
BENCHMARK(AddAlignments)->Name("add alignments/library");

void RegisterWriters() {
  for (const auto& [Name, Form] : Writers()) {
    benchmark::RegisterBenchmark((std::string(Name) + "/library").c_str(), Write, Form);
    benchmark::RegisterBenchmark((std::string(Name) + "/floor").c_str(), AppendPieces, Form);
  }
}

}  // namespace

int main(int argc, char** argv) {
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
    return 1;
  }
  RegisterWriters();
  NoBuffer Nowhere;
  std::streambuf* const OldBuffer = std::cout.rdbuf(&Nowhere);
  std::ostream RealOut(OldBuffer);
  benchmark::ConsoleReporter Reporter(benchmark::ConsoleReporter::OO_Tabular);
  Reporter.SetOutputStream(&RealOut);
  Reporter.SetErrorStream(&std::cerr);
  benchmark::RunSpecifiedBenchmarks(&Reporter);
  std::cout.rdbuf(OldBuffer);
  return 0;
}
