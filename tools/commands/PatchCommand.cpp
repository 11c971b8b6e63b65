#include "PatchCommand.h"

#include "ComparedEntryReader.h"
#include "DiffReader.h"
#include "InputFile.h"
#include "OutputFile.h"
#include "RulePatch.h"
#include "RunError.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <utility>

namespace Grammar {

namespace {

std::string ContentsOf(const std::string& Name) {
  InputFile File(Name);
  return {std::istreambuf_iterator<char>(File.Stream()), std::istreambuf_iterator<char>()};
}

/// Writes that a place of the diff is at fault.
void ReportAt(const std::string& Diff, std::size_t Line, const std::string& Message) {
  std::cerr << Diff << ':' << Line << ":1: error: " << Message << '\n';
}

void ReportFaults(const PatchOptions& Options, const std::vector<PatchFault>& vFaults) {
  for (const PatchFault& Fault : vFaults) {
    ReportAt(Options.Diff, Fault.DiffLine, Fault.Message);
    for (const std::string& sDetail : Fault.vsDetails) {
      std::cerr << "  " << sDetail << '\n';
    }
    if (Fault.FileLine > 0) {
      std::cerr << "  see " << Options.File << ':' << Fault.FileLine << '\n';
    }
  }
}

/// Reads the diff. @return whether it is one
bool ReadHunks(const PatchOptions& Options, std::vector<DiffHunk>& vReturn) {
  const std::optional<DiffFault> Fault = ReadDiff(ContentsOf(Options.Diff), vReturn);
  if (Fault) {
    ReportAt(Options.Diff, Fault->Line, Fault->Message);
    return false;
  }
  if (Options.IsReversed) {
    std::for_each(vReturn.begin(), vReturn.end(), Reverse);
  }
  return true;
}

}  // namespace

int RunPatch(const PatchOptions& OptionsPassIn) {
  if (OptionsPassIn.File == "-" && OptionsPassIn.Diff == "-") {
    throw RunError("cannot read both the file and the diff from standard input");
  }
  OutputFile Output(OptionsPassIn.Output);
  std::vector<DiffHunk> vHunks;
  if (!ReadHunks(OptionsPassIn, vHunks)) {
    return StatusFindings;
  }
  RulePatch Patch(std::move(vHunks));
  if (!ReadEntries({OptionsPassIn.File, OptionsPassIn.Quiet, OptionsPassIn.Threads},
                   [&](const ReadEntry& Entry) { Patch.Take(Entry); })) {
    return StatusFailed;
  }
  const std::vector<PatchFault> vFaults = Patch.Finish();
  ReportFaults(OptionsPassIn, vFaults);
  if (!vFaults.empty()) {
    return StatusFindings;
  }
  Patch.PassTo([&](std::string_view Bytes) { Output.Write(Bytes); });
  Output.Finish();
  return StatusClean;
}

}  // namespace Grammar
