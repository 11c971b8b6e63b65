#include "CommandLine.h"
#include "JsonCommand.h"

namespace {

constexpr const char* Footer =
    "Each rule becomes one object on a line of its own, with every member of the record; the\n"
    "members are described in trrule-schema.json. A file of comments only, and with --keep-bad a\n"
    "rule that cannot be read, become {\"text\": ...}, so that trrule from-json restores all of\n"
    "what trrule print writes. Bytes that are not UTF-8 become the characters\n"
    "U+F780 to U+F7FF.\n"
    "\n"
    "Exit status: 0 all written, 1 some rule could not be read, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule json np.trr | jq -c 'select(.count > 1)' | trrule from-json\n";

}  // namespace

void AddJsonCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("json", "Write rules as JSON, one a line");
  const auto Run = std::make_shared<Grammar::RunOptions>();
  AddRunOptions(*Command, *Run);
  AddThreads(*Command, *Run);
  AddKeepBad(*Command, *Run);
  Command->footer(Footer);
  Command->callback([Run, &ActionReturn] { ActionReturn = [Run] { return RunJson(*Run); }; });
}
