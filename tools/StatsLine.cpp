#include "ChoiceOption.h"
#include "CommandLine.h"
#include "EngineOptions.h"
#include "MemoryOption.h"
#include "StatsCommand.h"

#include <cstdint>

namespace {

struct StatsLine {
  Grammar::RunOptions Run;
  Grammar::StatsOptions Options;
};

constexpr const char* Footer =
    "Counts rules, duplicates, constraints and examples, and how often there is each type, label,\n"
    "literal, number of components, shape of alignments, feature, value and category of\n"
    "constraints. Duplicates are rules that trrule unique would merge with one before them.\n"
    "Quantiles are of the numbers of examples that rules stand for (;;Score:).\n"
    "\n"
    "JSON has all names, the other formats the most frequent ones.\n"
    "\n"
    "Exit status: 0 all read, 1 some rule could not be read, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule stats np.trr vp.trr\n"
    "  trrule stats --format html -o learned.html learned.trr\n";

}  // namespace

void AddStatsCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  using Grammar::StatsFormat;
  CLI::App* Command = ProgramReturn.add_subcommand("stats", "Count what there is in rules");
  const auto Line = std::make_shared<StatsLine>();
  AddRunOptions(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddMemoryOption(*Command, Line->Options.Memory);
  AddChoice<StatsFormat>(
      *Command, "--format",
      {{"text", StatsFormat::Text}, {"json", StatsFormat::Json}, {"html", StatsFormat::Html}},
      Line->Options.Format, "text, json or html")
      ->type_name("FORM");
  AddNumber(*Command, "--top", 0, "show this number of the most frequent names; 10 by default",
            [Line](std::uint64_t Number) { Line->Options.Top = Number; });
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunStats(Line->Run, Line->Options); };
  });
}
