#include "CommandLine.h"

void AddRunOptions(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn.add_option("FILE", RunReturn.vsFiles, "the grammars; - or none: standard input");
  CommandReturn.add_option("-o,--output", RunReturn.Output,
                           "write to this file, which appears whole or not at all");
  CommandReturn.add_flag("-q,--quiet", RunReturn.Quiet, "show no progress at a terminal");
}

void AddKeepBad(CLI::App& CommandReturn, Grammar::RunOptions& RunReturn) {
  CommandReturn.add_flag("--keep-bad", RunReturn.KeepBad,
                         "pass rules that cannot be read through as they stand");
}
