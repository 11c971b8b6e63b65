#include "CommandLine.h"

void AddRunOptions(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn
      .add_option("FILE", RunReturn.vsFiles, "the files to read; - or none: standard input")
      ->type_name("");
  AddOutput(CommandReturn, RunReturn.Output);
  CommandReturn.add_flag("--force", RunReturn.Force,
                         "let -o replace an input although something of it is left out, and write "
                         "although a file could not be read");
  AddQuiet(CommandReturn, RunReturn.Quiet);
}

void AddFile(CLI::App& CommandReturn, const std::string& Name, std::string& FileReturn,
             const std::string& Description) {
  CommandReturn.add_option(Name, FileReturn, Description)->required()->type_name("");
}

void AddOutput(CLI::App& CommandReturn, std::string& FileReturn) {
  CommandReturn
      .add_option("-o,--output", FileReturn,
                  "write to this file, which appears whole or not at all")
      ->type_name("FILE");
}

void AddQuiet(CLI::App& CommandReturn, bool& QuietReturn) {
  CommandReturn.add_flag("-q,--quiet", QuietReturn, "show no progress at a terminal");
}

void AddThreads(CLI::App& CommandReturn, unsigned& ThreadsReturn) {
  CommandReturn
      .add_option("--threads", ThreadsReturn, "use this number of threads; all cores by default")
      ->check(CLI::Range(1U, 1024U))
      ->type_name("N");
}

void AddThreads(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  AddThreads(CommandReturn, RunReturn.Threads);
}

void AddKeepBad(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn.add_flag("--keep-bad", RunReturn.KeepBad,
                         "pass rules that cannot be read, or not whole, through unchanged");
}
