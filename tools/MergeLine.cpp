#include "CommandLine.h"
#include "MemoryOption.h"
#include "MergeCommand.h"

namespace {

constexpr const char* Footer =
    "OURS and THEIRS are two versions of BASE. Each rule is merged part by part: a part that one\n"
    "version has changed is changed, counts are those of BASE and what both have added, comments\n"
    "and examples are joined. Rules are found again as trrule diff finds them, and what both have\n"
    "added is added once. The order is that of OURS.\n"
    "\n"
    "Where both have changed one part to different things, or one has changed a rule that the other\n"
    "has removed, comments before the rule show both; trrule check reports them (TR017).\n"
    "\n"
    "As a merge driver of git:\n"
    "  git config merge.trrule.driver 'trrule merge --path %P -o %A %O %A %B'\n"
    "\n"
    "Exit status: 0 merged, 1 merged with conflicts, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule merge -o merged.trr base.trr ours.trr theirs.trr\n";

void AddFiles(CLI::App& CommandReturn, Grammar::MergeOptions& OptionsReturn) {
  AddFile(CommandReturn, "BASE", OptionsReturn.Base, "what both versions come from");
  AddFile(CommandReturn, "OURS", OptionsReturn.Ours, "the version whose order is kept");
  AddFile(CommandReturn, "THEIRS", OptionsReturn.Theirs, "the other version");
}

}  // namespace

void AddMergeCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command =
      ProgramReturn.add_subcommand("merge", "Merge two versions of a file of rules");
  const auto Options = std::make_shared<Grammar::MergeOptions>();
  AddFiles(*Command, *Options);
  AddOutput(*Command, Options->Output);
  Command->add_option("--path", Options->Name, "call OURS by this name in messages")
      ->type_name("NAME");
  AddQuiet(*Command, Options->Quiet);
  AddThreads(*Command, Options->Threads);
  AddMemoryOption(*Command, Options->Memory);
  Command->footer(Footer);
  Command->callback(
      [Options, &ActionReturn] { ActionReturn = [Options] { return RunMerge(*Options); }; });
}
