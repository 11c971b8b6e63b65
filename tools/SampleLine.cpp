#include "CommandLine.h"
#include "EngineOptions.h"
#include "GroupOption.h"
#include "SampleCommand.h"

#include <cstdint>
#include <string>

namespace {

struct SampleLine {
  Grammar::RunOptions Run;
  Grammar::SampleOptions Options;
};

std::string Footer() {
  return "Every rule is drawn with the same probability. The same seed draws the same rules on every\n"
         "machine, and a larger sample contains the smaller one. Rules are copied in the order of the\n"
         "input, as they are written, with the comments before them; so are rules that cannot be read,\n"
         "which are also reported.\n"
         "\n"
         "--by draws from each group of rules apart; rules that cannot be read are one more group:\n" +
         std::string(GroupKeyNames) +
         "\n"
         "Exit status: 0 all read, 1 some rule could not be read, 2 the run failed.\n"
         "\n"
         "Example:\n"
         "  trrule sample -n 20 --seed 7 learned.trr\n"
         "  trrule sample -n 2 --by type learned.trr\n";
}

}  // namespace

void AddSampleCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("sample", "Copy rules drawn at random");
  const auto Line = std::make_shared<SampleLine>();
  AddRunOptions(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddNumber(*Command, "-n", 0, "copy this number of rules; 10 by default",
            [Line](std::uint64_t Number) { Line->Options.Rules = Number; });
  AddNumber(*Command, "--seed", 0, "draw other rules; 0 by default",
            [Line](std::uint64_t Number) { Line->Options.Seed = Number; });
  AddGroupOption(*Command, Line->Options.By,
                 "draw -n rules of each type, sequence, source, target, shape, size or count");
  Command->footer(Footer());
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunSample(Line->Run, Line->Options); };
  });
}
