#include "MergeCommand.h"

#include "FileMerge.h"
#include "FindingCodes.h"
#include "OutputFile.h"
#include "RuleRun.h"
#include "RunError.h"

#include <algorithm>
#include <iostream>
#include <string_view>

namespace Grammar {

namespace {

constexpr std::string_view ConflictCode = "TR017";

/// Writes a conflict to standard error: the rule, and each sentence on a line of its own.
void ReportConflict(const MergeOptions& Options, const MergeConflict& Found) {
  const std::string& OurName = Options.Name.empty() ? Options.Ours : Options.Name;
  std::cerr << (Found.IsInOurs ? OurName : Options.Theirs) << ':' << Found.Line << ":1: error "
            << ConflictCode << ": " << FindCode(ConflictCode)->Title << '\n';
  for (const std::string& sSentence : Found.vsSentences) {
    std::cerr << "  " << sSentence << '\n';
  }
}

/// Reads all files, also if one of them cannot be read. @return whether all could be
bool ReadVersions(const MergeOptions& Options, FileMerge& MergeReturn) {
  const auto Read = [&](const std::string& Name, void (FileMerge::*Add)(const ReadEntry&)) {
    return ReadEntries({Name, Options.Quiet, Options.Threads},
                       [&](const ReadEntry& Entry) { (MergeReturn.*Add)(Entry); });
  };
  const bool HasBase = Read(Options.Base, &FileMerge::AddBase);
  const bool HasOurs = Read(Options.Ours, &FileMerge::AddOurs);
  const bool HasTheirs = Read(Options.Theirs, &FileMerge::AddTheirs);
  return HasBase && HasOurs && HasTheirs;
}

void RequireOneStandardInput(const MergeOptions& Options) {
  const std::string Names[] = {Options.Base, Options.Ours, Options.Theirs};
  if (std::count(std::begin(Names), std::end(Names), "-") > 1) {
    throw RunError("cannot read several versions from standard input");
  }
}

}  // namespace

int RunMerge(const MergeOptions& Options) {
  RequireOneStandardInput(Options);
  OutputFile Output(Options.Output);
  FileMerge Merge(MemoryForSorting(Options.Memory));
  if (!ReadVersions(Options, Merge)) {
    return StatusFailed;
  }
  bool HasConflicts = false;
  Merge.Merge([&](const MergeConflict& Found) {
    HasConflicts = true;
    ReportConflict(Options, Found);
  });
  Merge.PassTo([&](std::string_view Bytes) { Output.Write(Bytes); });
  Output.Finish();
  return HasConflicts ? StatusFindings : StatusClean;
}

}  // namespace Grammar
