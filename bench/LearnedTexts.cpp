// What script/bench-translate reads: grammars like those that are learned, and sentences for them.
//
//   trrule-learned rules COUNT [constraints] [SUFFIX]     that many rules, the base rules included
//   trrule-learned texts COUNT [TOKENS]                   of ten to twenty-five tokens, or of so
//   many

#include "LearnedGrammar.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace {

constexpr std::uint64_t RuleSeed = 7;
constexpr std::uint64_t TextSeed = 8;

void Write(const std::string& Text) {
  std::fwrite(Text.data(), 1, Text.size(), stdout);
}

int WriteRules(std::size_t Count, bool HasConstraints, const std::string& Suffix) {
  constexpr std::size_t BaseRules = 2400;
  LearnedGrammar Grammar(RuleSeed, HasConstraints, Suffix);
  Write(Grammar.BaseRules());
  for (std::size_t Rule = BaseRules; Rule < Count; ++Rule) {
    Write(Grammar.NextRule());
  }
  return std::fflush(stdout) == 0 ? 0 : 2;
}

int WriteTexts(std::size_t Count, std::size_t Tokens) {
  LearnedGrammar Grammar(TextSeed, false);
  for (std::size_t Text = 0; Text < Count; ++Text) {
    Write((Tokens == 0 ? Grammar.NextSentence() : Grammar.Sentence(Tokens)) + '\n');
  }
  return std::fflush(stdout) == 0 ? 0 : 2;
}

}  // namespace

int main(int ArgumentCount, char** Arguments) {
  const std::vector<std::string> vsArguments(Arguments + 1, Arguments + ArgumentCount);
  const auto At = [&](std::size_t Index) {
    return Index < vsArguments.size() ? vsArguments[Index] : std::string();
  };
  const auto Count = static_cast<std::size_t>(std::atol(At(1).c_str()));
  if (At(0) == "rules" && Count > 0) {
    const bool HasConstraints = At(2) == "constraints";
    return WriteRules(Count, HasConstraints, At(HasConstraints ? 3 : 2));
  }
  if (At(0) == "texts" && Count > 0) {
    return WriteTexts(Count, static_cast<std::size_t>(std::atol(At(2).c_str())));
  }
  std::fputs("usage: trrule-learned rules COUNT [constraints] [SUFFIX] | texts COUNT [TOKENS]\n",
             stderr);
  return 2;
}
