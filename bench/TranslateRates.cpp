// The cost of translating: loads grammars, translates each line of standard input on one thread,
// and reports how many constituents, and ways to build them, are made in a second.
//
//   trrule-translate-rates FILE... <texts

#include "BestDerivations.h"
#include "Chart.h"
#include "Evaluator.h"
#include "RuleSet.h"
#include "TranslateCommand.h"
#include "Translator.h"

#include <chrono>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

double SecondsSince(Clock::time_point Start) {
  return std::chrono::duration<double>(Clock::now() - Start).count();
}

/// How many combinations of a rule with one group for each of its places there are. What rules with
/// the same beginning share counts for each of them.
std::uint64_t CountCombinations(const Translate::Chart& Parsed) {
  std::vector<std::uint64_t> vOfItem(Parsed.Items().size());
  // The parts of an item come before it.
  for (std::size_t Item = 0; Item < vOfItem.size(); ++Item) {
    Parsed.ForEachStep(static_cast<std::uint32_t>(Item), [&](std::uint32_t Before, std::uint32_t) {
      vOfItem[Item] += Before == Translate::Chart::None ? 1 : vOfItem[Before];
    });
  }
  std::uint64_t Count = 0;
  for (const Translate::Chart::Way& Way : Parsed.Ways()) {
    Count += Way.IsUnary() ? 1 : vOfItem[Way.Part()];
  }
  return Count;
}

struct Totals {
  std::uint64_t Texts = 0;
  std::uint64_t Tokens = 0;
  std::uint64_t Combinations = 0;
  Translate::Chart::Counts Counts;
  std::size_t MaxBytes = 0;
  double Parsing = 0;
  double All = 0;
};

void Add(const Translate::Chart& Parsed, Totals& TotalsReturn) {
  const Translate::Chart::Counts Counts = Parsed.Count();
  ++TotalsReturn.Texts;
  TotalsReturn.Tokens += Parsed.Tokens().size();
  TotalsReturn.Combinations += CountCombinations(Parsed);
  TotalsReturn.Counts.Constituents += Counts.Constituents;
  TotalsReturn.Counts.Ways += Counts.Ways;
  TotalsReturn.Counts.Items += Counts.Items;
  TotalsReturn.Counts.Steps += Counts.Steps;
  TotalsReturn.MaxBytes = std::max(TotalsReturn.MaxBytes, Parsed.Bytes());
}

void Print(const Totals& All) {
  const auto PerSecond = [&](std::uint64_t Count) {
    return static_cast<std::uint64_t>(static_cast<double>(Count) / All.All);
  };
  std::cout << All.Texts << " texts, " << All.Tokens << " tokens in " << All.All << " s\n"
            << All.Counts.Constituents << " constituents, " << PerSecond(All.Counts.Constituents)
            << "/s\n"
            << All.Combinations << " edges (a rule and a group for each place), "
            << PerSecond(All.Combinations) << "/s\n"
            << All.Counts.Ways << " ways, " << All.Counts.Items << " items, " << All.Counts.Steps
            << " steps, " << PerSecond(All.Counts.Ways + All.Counts.Steps) << "/s\n"
            << All.MaxBytes / 1024 << " KiB for the largest chart\n";
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  const auto Start = Clock::now();
  Translate::RuleSet Rules({});
  Translate::LoadRules({Arguments + 1, Arguments + ArgumentCount}, true, Rules);
  std::cout << Rules.Size() << " rules loaded in " << SecondsSince(Start) << " s\n";
  Translate::Translator Engine(Rules);
  Totals All;
  for (std::string Text; std::getline(std::cin, Text);) {
    const auto Before = Clock::now();
    Engine.Translate(Text, {});
    All.All += SecondsSince(Before);
    Add(Engine.ParsedChart(), All);
  }
  Print(All);
  return 0;
}
