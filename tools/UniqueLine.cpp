#include "CommandLine.h"
#include "MemoryOption.h"
#include "UniqueCommand.h"

#include <charconv>
#include <string>

namespace {

struct UniqueLine {
  Grammar::RunOptions Run;
  Grammar::UniqueOptions Options;
};

constexpr const char* Footer =
    "Two rules are duplicates if target labels, types, sequences, alignments and constraints\n"
    "are the same, with the constraints in any order. The first of them is kept, with its\n"
    "header. Its count (;;Score:) becomes the sum of all counts, and the examples (;;SL: with\n"
    ";;TL: and ;;C-Structure:) and all other comments of the others are added, each once.\n"
    "\n"
    "--count writes each rule on one line, after the number of rules that it stands for and a\n"
    "tab; cut -f2- leaves what trrule print --from-one-line reads.\n"
    "\n"
    "Exit status: 0 all read, 1 some rule could not be read, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule unique --examples 3 --memory 64M -o grammar.trr learned-*.trr\n"
    "  trrule unique --repeated --count learned.trr | sort -rn | head\n";

/// A number from 0 on, and nothing else.
std::size_t ParseExamples(const std::string& Text) {
  std::size_t Number = 0;
  const char* End = Text.data() + Text.size();
  const auto Result = std::from_chars(Text.data(), End, Number);
  if (Text.empty() || Result.ec != std::errc() || Result.ptr != End) {
    throw CLI::ValidationError(
        "--examples", "invalid number " + Text + "; use a number of examples such as 0 or 3");
  }
  return Number;
}

}  // namespace

void AddUniqueCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("unique", "Write each rule once, counts and comments added up");
  const auto Line = std::make_shared<UniqueLine>();
  AddRunOptions(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddKeepBad(*Command, Line->Run);
  AddMemoryOption(*Command, Line->Options.Memory);
  Command->add_flag("--sorted", Line->Options.Sorted, "in order, not as they come first");
  Command->add_flag("--repeated", Line->Options.Repeated,
                    "only rules that are there twice or more");
  Command->add_flag("--count", Line->Options.Count, "one rule a line, after how often it occurs");
  Command
      ->add_option_function<std::string>(
          "--examples",
          [Line](const std::string& Text) { Line->Options.Examples = ParseExamples(Text); },
          "keep this number of examples of each rule")
      ->type_name("N");
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunUnique(Line->Run, Line->Options); };
  });
}
