#include "CommandLine.h"
#include "EngineOptions.h"
#include "HeadCommand.h"

#include <cstdint>

namespace {

struct HeadLine {
  Grammar::RunOptions Run;
  std::uint64_t Count = 10;
};

constexpr const char* Footer =
    "The files are read one after the other, as one grammar. Rules are copied as they are written,\n"
    "with the comments before them; so are rules that cannot be read, which are also reported.\n"
    "\n"
    "Exit status: 0 all can be read, 1 some rule cannot be read, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule head -n 3 np.trr\n";

}  // namespace

void AddHeadCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("head", "Copy the first rules");
  const auto Line = std::make_shared<HeadLine>();
  AddRunOptions(*Command, Line->Run);
  AddNumber(*Command, "-n", 0, "copy this number of rules; 10 by default",
            [Line](std::uint64_t Number) { Line->Count = Number; });
  Command->footer(Footer);
  Command->callback(
      [Line, &ActionReturn] { ActionReturn = [Line] { return RunHead(Line->Run, Line->Count); }; });
}
