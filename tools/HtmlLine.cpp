#include "CommandLine.h"
#include "HtmlCommand.h"

namespace {

struct HtmlLine {
  Grammar::RunOptions Run;
  Page::HtmlOptions Options;
};

constexpr const char* Footer =
    "The page is one file, which needs no other and no network: rules with their pictures and\n"
    "findings, search by label, literal, feature and text, links between labels and the rules that\n"
    "provide them, counts and histograms. Pictures are made when they come into view.\n"
    "\n"
    "With --with-tests, it shows what has become of the examples in the comments, their derivations,\n"
    "and what no example covers. The files are read twice then.\n"
    "\n"
    "Exit status: 0 nothing found, 1 the page shows findings or failing examples, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule html -o grammar.html np.trr words.trr\n"
    "  trrule html --with-tests -o grammar.html np.trr words.trr\n";

}  // namespace

void AddHtmlCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("html", "Write a grammar as a page");
  const auto Line = std::make_shared<HtmlLine>();
  AddRunOptions(*Command, Line->Run);
  CLI::Option* Tests = Command->add_flag("--with-tests", Line->Options.WithTests,
                                         "run the examples, and show outcomes and coverage");
  Command
      ->add_option("--examples", Line->Options.vsPairs,
                   "more examples: source, tab, target; * before a source to be rejected")
      ->type_name("FILE")
      ->allow_extra_args(false)
      ->needs(Tests);
  AddThreads(*Command, Line->Run);
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return Page::RunHtml(Line->Run, Line->Options); };
  });
}
