#include "CommandLine.h"
#include "PatchCommand.h"

namespace {

constexpr const char* Footer =
    "A rule that the diff changes or removes has to be exactly what the diff expects, wherever it\n"
    "stands. If all are, changed rules are written in the normal form at their places, added ones\n"
    "come last, and everything else stays as it is. If one is not, that is reported, and nothing is\n"
    "written. Rules that the diff shows as moved stay where they are.\n"
    "\n"
    "Exit status: 0 the diff fits, 1 it does not fit or is not a diff, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule diff old.trr new.trr >changes.diff\n"
    "  trrule patch -o grammar.trr grammar.trr changes.diff\n";

void AddOptions(CLI::App& CommandReturn, Grammar::PatchOptions& OptionsReturn) {
  AddFile(CommandReturn, "FILE", OptionsReturn.File, "the rules to change; - is standard input");
  AddFile(CommandReturn, "DIFF", OptionsReturn.Diff,
          "what trrule diff has written; - is standard input");
  AddOutput(CommandReturn, OptionsReturn.Output);
  CommandReturn.add_flag("--reverse", OptionsReturn.IsReversed,
                         "turn the new file into the old one");
  AddQuiet(CommandReturn, OptionsReturn.Quiet);
  AddThreads(CommandReturn, OptionsReturn.Threads);
}

}  // namespace

void AddPatchCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("patch", "Change a file as trrule diff has shown");
  const auto Options = std::make_shared<Grammar::PatchOptions>();
  AddOptions(*Command, *Options);
  Command->footer(Footer);
  Command->callback(
      [Options, &ActionReturn] { ActionReturn = [Options] { return RunPatch(*Options); }; });
}
