#include "ChoiceOption.h"
#include "CommandLine.h"
#include "DiffCommand.h"
#include "MemoryOption.h"

#include <string>

namespace {

constexpr const char* Footer =
    "Rules are compared in the normal form, so that order and layout make no difference. Rules with\n"
    "the same header belong together; of the rest, rules that say the same; and of the rest, the\n"
    "nearest, if they have more than half of their types, labels, alignments and constraints in\n"
    "common. What cannot be read as a rule is compared as text.\n"
    "\n"
    "Each difference begins with @@, the lines where the rule begins in both files and how many lines\n"
    "its normal form has, and why the two rules belong together. Lines with # name the parts that\n"
    "differ. trrule patch reads the plain form without colours.\n"
    "\n"
    "Temporary files lie in the folder that TMPDIR names, or in /tmp; they have no names, and so\n"
    "cannot be left behind.\n"
    "\n"
    "Exit status: 0 the files say the same, 1 they differ, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule diff old.trr new.trr\n"
    "  trrule diff --stat old.trr new.trr\n"
    "  trrule diff -o changes.diff old.trr new.trr\n";

void AddFiles(CLI::App& CommandReturn, Grammar::DiffOptions& OptionsReturn) {
  AddFile(CommandReturn, "OLD", OptionsReturn.Old, "the old file; - is standard input");
  AddFile(CommandReturn, "NEW", OptionsReturn.New, "the new file; - is standard input");
  AddOutput(CommandReturn, OptionsReturn.Output);
  AddQuiet(CommandReturn, OptionsReturn.Quiet);
  AddThreads(CommandReturn, OptionsReturn.Threads);
  AddMemoryOption(CommandReturn, OptionsReturn.Memory);
}

void AddForm(CLI::App& CommandReturn, Grammar::DiffOptions& OptionsReturn) {
  using Grammar::ColourChoice;
  using Grammar::DiffFormat;
  AddChoice<DiffFormat>(CommandReturn, "--format",
                        {{"plain", DiffFormat::Plain}, {"json", DiffFormat::Json}},
                        OptionsReturn.Format, "plain or json, an object a line")
      ->type_name("FORM");
  CommandReturn.add_flag_callback(
      "--stat", [&] { OptionsReturn.Format = DiffFormat::Stat; },
      "only count the differences, by kind and by part");
  CommandReturn.add_flag("--moves", OptionsReturn.ShowsMoves, "also show rules that have moved");
  AddChoice<ColourChoice>(CommandReturn, "--color",
                          {{"auto", ColourChoice::Auto},
                           {"always", ColourChoice::Always},
                           {"never", ColourChoice::Never}},
                          OptionsReturn.Colours,
                          "auto, always or never; by default at a terminal, unless NO_COLOR is set")
      ->type_name("WHEN");
}

}  // namespace

void AddDiffCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("diff", "Show what differs in two files");
  const auto Options = std::make_shared<Grammar::DiffOptions>();
  AddFiles(*Command, *Options);
  AddForm(*Command, *Options);
  Command->footer(Footer);
  Command->callback(
      [Options, &ActionReturn] { ActionReturn = [Options] { return RunDiff(*Options); }; });
}
