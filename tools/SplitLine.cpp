#include "CommandLine.h"
#include "EngineOptions.h"
#include "GroupOption.h"
#include "MemoryOption.h"
#include "SplitCommand.h"

#include <cstdint>
#include <string>

namespace {

struct SplitLine {
  Grammar::RunOptions Run;
  Grammar::SplitOptions Options;
};

std::string Footer() {
  return "Every rule is in one file, as it is written, with the comments before it, and in the order of\n"
         "the input. Rules that cannot be read are copied and reported.\n"
         "\n"
         "--by names files after groups of rules, such as NP-NP.trr; other.trr has rules that cannot be\n"
         "read and files without a rule:\n" +
         std::string(GroupKeyNames) +
         "-n and --parts number the files: part-0001.trr.\n"
         "\n"
         "Files that are there already are not replaced, and nothing is written then, unless --force is\n"
         "given. What does not fit in the memory lies in temporary files until all is read.\n"
         "\n"
         "Exit status: 0 all read, 1 some rule could not be read, 2 the run failed.\n"
         "\n"
         "Example:\n"
         "  trrule split -o types/ learned.trr\n"
         "  trrule split -n 1000 -o parts/ learned.trr\n";
}

void AddInputs(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn
      .add_option("FILE", RunReturn.vsFiles, "the files to read; - or none: standard input")
      ->type_name("");
  CommandReturn
      .add_option("-o,--output", RunReturn.Output,
                  "write into this folder, which is made where there is none")
      ->type_name("FOLDER")
      ->required();
  CommandReturn.add_flag("--force", RunReturn.Force,
                         "replace files that are there, and write although a file could not be "
                         "read");
  CommandReturn.add_flag("-q,--quiet", RunReturn.Quiet, "show no progress at a terminal");
}

}  // namespace

void AddSplitCommand(CLI::App& ProgramReturn, Action& ActionReturn) {
  CLI::App* Command = ProgramReturn.add_subcommand("split", "Copy rules into several files");
  const auto Line = std::make_shared<SplitLine>();
  AddInputs(*Command, Line->Run);
  AddThreads(*Command, Line->Run);
  AddMemoryOption(*Command, Line->Options.Memory);
  AddGroupOption(
      *Command, Line->Options.By,
      "a file for each type, sequence, source, target, shape, size or count; type by default");
  AddNumber(*Command, "-n", 1, "files of this number of rules",
            [Line](std::uint64_t Number) { Line->Options.By = Grammar::RulesPerFile{Number}; });
  AddNumber(*Command, "--parts", 1, "this number of files, to which the rules go in turn",
            [Line](std::uint64_t Number) { Line->Options.By = Grammar::FilesInTurn{Number}; });
  Command->get_option("--parts")->excludes("-n")->excludes("--by");
  Command->get_option("-n")->excludes("--by");
  Command->footer(Footer());
  Command->callback([Line, &ActionReturn] {
    ActionReturn = [Line] { return RunSplit(Line->Run, Line->Options); };
  });
}
