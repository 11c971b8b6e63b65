#include "EngineOptions.h"

#include <algorithm>
#include <charconv>

namespace {

// More than these is taken for as much: so numbers fit their types.
constexpr std::uint64_t MaxChain = 1000000;
constexpr std::uint64_t MaxConstituents = 1000000000;
constexpr std::uint64_t MaxThreads = 1024;

/// A number from `Least` on, and nothing else.
std::uint64_t ParseNumber(const std::string& Option, const std::string& Text, std::uint64_t Least) {
  std::uint64_t Number = 0;
  const char* End = Text.data() + Text.size();
  const auto Result = std::from_chars(Text.data(), End, Number);
  if (Text.empty() || Result.ec != std::errc() || Result.ptr != End || Number < Least) {
    throw CLI::ValidationError(
        Option, "invalid number " + Text + "; use a number from " + std::to_string(Least) + " on");
  }
  return Number;
}

}  // namespace

void AddNumber(CLI::App& CommandReturn, const std::string& Name, std::uint64_t Least,
               const std::string& Help, const std::function<void(std::uint64_t)>& Set) {
  CommandReturn
      .add_option_function<std::string>(
          Name,
          [Name, Least, Set](const std::string& Text) { Set(ParseNumber(Name, Text, Least)); },
          Help)
      ->type_name("N");
}

void AddRuleSetOptions(CLI::App& CommandReturn, Translate::RuleSetOptions& OptionsReturn) {
  CommandReturn.add_flag("--reverse", OptionsReturn.IsReversed,
                         "translate from the target to the source");
  CommandReturn.add_flag("--match-case", OptionsReturn.MatchCase,
                         "a literal matches the same bytes only");
}

void AddChartLimits(CLI::App& CommandReturn, Translate::ChartLimits& LimitsReturn) {
  AddNumber(CommandReturn, "--max-chain", 0,
            "at most this number of unary rules in a row; 8 by default",
            [&LimitsReturn](std::uint64_t Number) {
              LimitsReturn.MaxChain = static_cast<std::uint32_t>(std::min(Number, MaxChain));
            });
  AddNumber(CommandReturn, "--max-constituents", 0,
            "give up a text with more constituents; 1000000 by default",
            [&LimitsReturn](std::uint64_t Number) {
              LimitsReturn.MaxConstituents = std::min(Number, MaxConstituents);
            });
}

void AddTextThreads(CLI::App& CommandReturn, const std::string& Help, unsigned& ThreadsReturn) {
  AddNumber(CommandReturn, "--threads", 1, Help, [&ThreadsReturn](std::uint64_t Number) {
    ThreadsReturn = static_cast<unsigned>(std::min(Number, MaxThreads));
  });
}
