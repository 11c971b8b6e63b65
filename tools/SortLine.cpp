#include "ChoiceOption.h"
#include "CommandLine.h"
#include "MemoryOption.h"
#include "SortCommand.h"

#include <string>

namespace {

struct SortLine {
  Grammar::RunOptions Run;
  Grammar::SortOptions Options;
};

constexpr const char* Footer =
    "Rules are compared by the text that duplicates have in common: target labels,\n"
    "types, sequences, alignments and constraints. --by chooses something else:\n"
    "  index   the number of the header; rules without one come first\n"
    "  type    the source type, then the target type\n"
    "  count   how many examples a rule stands for (;;Score:)\n"
    "  length  how many components the source side has, then the target side\n"
    "Rules that are equal in that stay in their order, also with --reverse. Each rule is written\n"
    "in the normal form. Text without a rule, such as a file of comments, comes last.\n"
    "\n"
    "Temporary files lie in the folder that TMPDIR names, or in /tmp; they have no names, and so\n"
    "cannot be left behind.\n"
    "\n"
    "Exit status: 0 all sorted, 1 some rule could not be read, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule sort --by count --reverse --memory 64M -o by-count.trr np.trr vp.trr\n";

}  // namespace

void AddSortCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("sort", "Write rules in order");
  const auto Line = std::make_shared<SortLine>();
  AddRunOptions(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddKeepBad(*Command, Line->Run);
  AddMemoryOption(*Command, Line->Options.Memory);
  AddChoice<Grammar::SortBy>(*Command, "--by",
                             {{"index", Grammar::SortBy::Index},
                              {"type", Grammar::SortBy::Type},
                              {"count", Grammar::SortBy::Count},
                              {"length", Grammar::SortBy::Length}},
                             Line->Options.By,
                             "index, type, count or length, in place of the rules' own text")
      ->type_name("KEY");
  Command->add_flag("--reverse", Line->Options.Reverse, "the last first");
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunSort(Line->Run, Line->Options); };
  });
}
