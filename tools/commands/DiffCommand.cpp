#include "DiffCommand.h"

#include "ComparedEntryReader.h"
#include "DiffWriters.h"
#include "OutputFile.h"
#include "RuleMatcher.h"
#include "RuleRun.h"
#include "RunError.h"

#include <optional>
#include <string>

namespace Grammar {

namespace {

/// Reads both files, the second also if the first cannot be read. @return whether both could be
bool ReadBoth(const DiffOptions& Options, RuleMatcher& MatcherReturn) {
  const bool HasOld = ReadEntries({Options.Old, Options.Quiet, Options.Threads},
                                  [&](const ReadEntry& Read) { MatcherReturn.AddOld(Read.Entry); });
  const bool HasNew = ReadEntries({Options.New, Options.Quiet, Options.Threads},
                                  [&](const ReadEntry& Read) { MatcherReturn.AddNew(Read.Entry); });
  return HasOld && HasNew;
}

bool HasColours(const DiffOptions& Options) {
  return Options.Colours == ColourChoice::Always ||
         (Options.Colours == ColourChoice::Auto && WantsColours(Options.Output));
}

}  // namespace

int RunDiff(const DiffOptions& OptionsPassIn) {
  if (OptionsPassIn.Old == "-" && OptionsPassIn.New == "-") {
    throw RunError("cannot compare standard input with itself");
  }
  OutputFile Output(OptionsPassIn.Output);
  RuleMatcher Matcher(MemoryForSorting(OptionsPassIn.Memory),
                      OptionsPassIn.ShowsMoves ? RuleMatcher::Scope::AllWithMoves
                                               : RuleMatcher::Scope::Differences);
  if (!ReadBoth(OptionsPassIn, Matcher)) {
    return StatusFailed;
  }
  Matcher.Match();
  const auto Writer = MakeDiffWriter(
      {OptionsPassIn.Format, HasColours(OptionsPassIn), OptionsPassIn.Old, OptionsPassIn.New});
  bool IsDifferent = false;
  std::string Text;
  for (RuleMatch Match; Matcher.Next(Match);) {
    if (const std::optional<DiffHunk> Hunk = HunkOf(Match, Matcher.HasMoved(Match))) {
      Text.clear();
      Writer->Append(*Hunk, Text);
      Output.Write(Text);
      IsDifferent = true;
    }
  }
  Text.clear();
  Writer->AppendEnd(Text);
  Output.Write(Text);
  Output.Finish();
  return IsDifferent ? StatusFindings : StatusClean;
}

}  // namespace Grammar
