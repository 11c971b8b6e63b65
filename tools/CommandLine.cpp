#include "CommandLine.h"

void AddRunOptions(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn
      .add_option("FILE", RunReturn.vsFiles, "the files to read; - or none: standard input")
      ->type_name("");
  CommandReturn
      .add_option("-o,--output", RunReturn.Output,
                  "write to this file, which appears whole or not at all")
      ->type_name("FILE");
  CommandReturn.add_flag("--force", RunReturn.Force,
                         "let -o replace an input although something of it is left out, and write "
                         "although a file could not be read");
  CommandReturn.add_flag("-q,--quiet", RunReturn.Quiet, "show no progress at a terminal");
}

void AddThreads(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn
      .add_option("--threads", RunReturn.Threads,
                  "use this number of threads; all cores by default")
      ->check(CLI::Range(1U, 1024U))
      ->type_name("N");
}

void AddKeepBad(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn.add_flag("--keep-bad", RunReturn.KeepBad,
                         "pass rules that cannot be read, or not whole, through unchanged");
}
