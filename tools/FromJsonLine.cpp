#include "CommandLine.h"
#include "FromJsonCommand.h"

namespace {

constexpr const char* Footer =
    "Reads what trrule json writes, one object a line, and writes the rules in the normal form.\n"
    "Members that are missing are those of a new rule. A member that a grammar cannot hold, such\n"
    "as a list of numbers, is reported on standard error, and the rule written without it. A line\n"
    "that is not such an object is reported and left out.\n"
    "\n"
    "Exit status: 0 all written, 1 something was reported, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule json np.trr | jq -c '.ruleIndex += 100' | trrule from-json -o new.trr\n";

}  // namespace

void AddFromJsonCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("from-json", "Read rules from JSON, one a line");
  const auto Run = std::make_shared<Grammar::RunOptions>();
  AddRunOptions(*Command, *Run);
  AddThreads(*Command, *Run);
  Command->footer(Footer);
  Command->callback([Run, &ActionReturn] { ActionReturn = [Run] { return RunFromJson(*Run); }; });
}
