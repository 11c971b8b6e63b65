#include "HtmlCommand.h"

#include "EntryReader.h"
#include "GrammarPage.h"
#include "OutputFile.h"
#include "PageTests.h"
#include "Pipeline.h"
#include "RunError.h"
#include "ThreadCount.h"

#include <algorithm>
#include <filesystem>
#include <optional>

namespace Page {

namespace {

std::string TitleOf(const std::vector<std::string>& vsFiles) {
  if (vsFiles.empty() || vsFiles.front() == "-") {
    return "Grammar";
  }
  const std::string First = std::filesystem::path(vsFiles.front()).filename().string();
  const std::size_t Others = vsFiles.size() - 1;
  return "Grammar " + First +
         (Others == 0 ? ""
                      : " and " + std::to_string(Others) + (Others == 1 ? " other" : " others"));
}

bool ReadsStandardInput(const std::vector<std::string>& vsFiles) {
  return vsFiles.empty() || std::find(vsFiles.begin(), vsFiles.end(), "-") != vsFiles.end();
}

void RequireUsableFiles(const Grammar::RunOptions& Run, const HtmlOptions& Options) {
  if (Options.WithTests && ReadsStandardInput(Run.vsFiles)) {
    throw Grammar::RunError("--with-tests reads the grammar twice: name its files");
  }
  if (Grammar::ReplacesInput(Run)) {
    throw Grammar::RunError("did not replace " + Run.Output + ": it is an input, and no page");
  }
}

Grammar::RunTally TallyOf(const std::vector<RuleEntry>& vEntries, const PageTests* Tests) {
  Grammar::RunTally Tally;
  Tally.Rules = vEntries.size();
  Tally.HasFindings = (Tests != nullptr && Tests->HasFailure) ||
                      std::any_of(vEntries.begin(), vEntries.end(),
                                  [](const RuleEntry& Entry) { return !Entry.vFindings.empty(); });
  return Tally;
}

void Write(const GrammarPage& Whole, std::size_t Count, Grammar::OutputFile& OutputReturn) {
  std::string Html;
  Whole.AppendBefore(Html);
  for (std::size_t Index = 0; Index < Count; ++Index) {
    Whole.AppendRule(Index, Html);
    OutputReturn.Write(Html);
    Html.clear();
  }
  Whole.AppendAfter(Html);
  OutputReturn.Write(Html);
}

}  // namespace

int RunHtml(const Grammar::RunOptions& Run, const HtmlOptions& Options) {
  RequireUsableFiles(Run, Options);
  Grammar::OutputFile Output(Run.Output);
  std::vector<RuleEntry> vEntries;
  const bool IsComplete = ReadEntries(Run, vEntries);
  std::optional<PageTests> Tests;
  if (Options.WithTests) {
    Tests = RunPageTests(Run.vsFiles, Options.vsPairs, Grammar::ThreadCount(Run.Threads), true);
  }
  const PageTests* const Shown = Tests ? &*Tests : nullptr;
  Write(GrammarPage(TitleOf(Run.vsFiles), vEntries, Shown), vEntries.size(), Output);
  Grammar::RunTally Tally = TallyOf(vEntries, Shown);
  Tally.HasUnreadFiles = !IsComplete;
  return Grammar::FinishRun(Run, Tally, Output, false);
}

}  // namespace Page
