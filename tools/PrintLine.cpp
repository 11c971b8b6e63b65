#include "CommandLine.h"
#include "PrintCommand.h"

namespace {

struct PrintLine {
  Grammar::RunOptions Run;
  Grammar::PrintOptions Options;
};

constexpr const char* Footer =
    "The normal form of a rule: its comments, header, rule line, alignments in order,\n"
    "constraints in the order in which they can be applied. Printing it again changes\n"
    "nothing. Rules that cannot be read are reported on standard error and left out; text that is\n"
    "not part of a rule is reported and kept as a comment, \";; not read: ...\".\n"
    "\n"
    "--one-line separates the lines of a rule by tabs, and writes a tab inside of a line\n"
    "as \\t and a backslash as \\\\; --from-one-line reads that.\n"
    "\n"
    "--flip exchanges types, sequences, alignments and the comments ;;SL: and ;;TL:.\n"
    "Header, constraints, structures and all other comments stay as they are: constraints\n"
    "still name the side that they named, so a turned rule needs new ones.\n"
    "\n"
    "--as-library writes what the library's own reader and writer make of a rule: literal words\n"
    "in capitals, features of several words as one, the left feature on the right, a type of two\n"
    "letters and a number of one digit. Its reader looks into comments, too; a rule that it cannot\n"
    "read or write is reported and left out.\n"
    "\n"
    "Exit status: 0 all printed, 1 some rule could not be read, 2 the run failed.\n"
    "\n"
    "Example:\n"
    "  trrule print --no-comments -o clean.trr np.trr vp.trr\n"
    "  trrule print --one-line np.trr | grep ADJ | trrule print --from-one-line\n";

}  // namespace

void AddPrintCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("print", "Write rules in the normal form");
  const auto Line = std::make_shared<PrintLine>();
  AddRunOptions(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddKeepBad(*Command, Line->Run);
  Command->add_flag("--no-comments", Line->Options.Form.NoComments, "leave comments out");
  Command->add_flag("--one-line", Line->Options.Form.OneLine, "write each rule on one line");
  Command->add_flag("--from-one-line", Line->Run.Folded, "read rules of one line each");
  Command->add_flag("--flip", Line->Options.Flip,
                    "exchange source and target; constraints stay as they are");
  Command
      ->add_flag("--as-library", Line->Options.AsLibrary,
                 "write exactly what the library writes, not the normal form")
      ->excludes("--no-comments", "--flip");
  Command->footer(Footer);
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunPrint(Line->Run, Line->Options); };
  });
}
