// The cost of translating: loads grammars, translates each line of standard input on one thread,
// and reports the processor time, and how many constituents, and ways to build them, are made in a
// second. Each figure stands on a line after its name.
//
//   trrule-translate-rates FILE... <texts

#include "BestDerivations.h"
#include "Chart.h"
#include "Evaluator.h"
#include "RuleSet.h"
#include "TranslateCommand.h"
#include "Translator.h"

#include <algorithm>
#include <cstdint>
#include <ctime>
#include <iostream>
#include <string>
#include <vector>

namespace {

/// Of the processor: other programs may use the machine, too.
double SecondsSince(std::clock_t Start) {
  return static_cast<double>(std::clock() - Start) / CLOCKS_PER_SEC;
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
  std::uint64_t Translated = 0;
  std::uint64_t Combinations = 0;
  Translate::Chart::Counts Counts;
  std::uint64_t Bytes = 0;
  std::size_t MaxBytes = 0;
  double Seconds = 0;
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
  TotalsReturn.Bytes += Parsed.Bytes();
  TotalsReturn.MaxBytes = std::max(TotalsReturn.MaxBytes, Parsed.Bytes());
}

void Print(const char* Name, std::uint64_t Figure) {
  std::cout << Name << '\t' << Figure << '\n';
}

void Print(const Totals& All) {
  const auto PerSecond = [&](std::uint64_t Count) {
    return static_cast<std::uint64_t>(static_cast<double>(Count) / All.Seconds);
  };
  std::cout << "seconds\t" << All.Seconds << '\n';
  Print("texts", All.Texts);
  Print("translated", All.Translated);
  Print("tokens", All.Tokens);
  Print("constituents", All.Counts.Constituents);
  Print("edges", All.Combinations);
  Print("ways", All.Counts.Ways);
  Print("items", All.Counts.Items);
  Print("steps", All.Counts.Steps);
  Print("texts a second", PerSecond(All.Texts));
  Print("constituents a second", PerSecond(All.Counts.Constituents));
  Print("edges a second", PerSecond(All.Combinations));
  Print("steps and ways a second", PerSecond(All.Counts.Ways + All.Counts.Steps));
  Print("bytes a constituent", All.Bytes / std::max<std::uint64_t>(All.Counts.Constituents, 1));
  Print("bytes of the largest chart", All.MaxBytes);
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  const auto Start = std::clock();
  Translate::RuleSet Rules({});
  Translate::LoadRules({Arguments + 1, Arguments + ArgumentCount}, true, Rules);
  Print("rules", Rules.Size());
  std::cout << "seconds to load\t" << SecondsSince(Start) << '\n';
  Translate::Translator Engine(Rules);
  Totals All;
  for (std::string Text; std::getline(std::cin, Text);) {
    const auto Before = std::clock();
    const Translate::TextResult Result = Engine.Translate(Text, {});
    All.Seconds += SecondsSince(Before);
    All.Translated += Result.vTranslations.size();
    Add(Engine.ParsedChart(), All);
  }
  Print(All);
  return 0;
}
