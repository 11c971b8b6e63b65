// Sections: the screen, the grammar, the run.

#include "WatchCommand.h"

#include "FileWatch.h"
#include "OutputFile.h"
#include "PairFile.h"
#include "RunError.h"
#include "ThreadCount.h"
#include "WatchedExamples.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace Examples {

// ---- The screen -------------------------------------------------------------------------------

std::string CutToLines(const std::string& Report, std::size_t Lines) {
  constexpr std::size_t Fewest = 3;
  const auto Count = static_cast<std::size_t>(std::count(Report.begin(), Report.end(), '\n'));
  const std::size_t Wanted = std::max(Lines, Fewest);
  if (Count <= Wanted) {
    return Report;
  }
  std::size_t Cut = 0;
  for (std::size_t Line = 0; Line < Wanted - 2; ++Line) {
    Cut = Report.find('\n', Cut) + 1;
  }
  const std::size_t Last = Report.rfind('\n', Report.size() - 2) + 1;
  return Report.substr(0, Cut) + "… " + std::to_string(Count - Wanted + 1) + " more lines\n" +
         Report.substr(Last);
}

namespace {

/// What is written to. A terminal shows one report at a time; elsewhere they follow each other.
class Screen {
 public:
  Screen() : IsTerminal(isatty(STDOUT_FILENO) != 0), Output("") {}

  /// To be called before anything is said of a state.
  void Begin() {
    if (IsTerminal) {
      Output.Write("\x1B[H\x1B[2J\x1B[3J");
      Output.Flush();
    }
  }

  void Show(const std::string& Report) {
    winsize Size{};
    const bool IsKnown = IsTerminal && ioctl(STDOUT_FILENO, TIOCGWINSZ, &Size) == 0;
    Output.Write(IsTerminal || IsFirst || Report.empty() ? "" : "\n");
    IsFirst = false;
    // The cursor needs a line, too.
    Output.Write(IsKnown && Size.ws_row > 0 ? CutToLines(Report, Size.ws_row - 1U) : Report);
    Output.Flush();
  }

 private:
  bool IsTerminal;
  bool IsFirst = true;
  Grammar::OutputFile Output;
};

// ---- The grammar ------------------------------------------------------------------------------

std::unique_ptr<TestedGrammar> LoadState(const TestOptions& Options) {
  auto New = std::make_unique<TestedGrammar>(Options.Rules, false);
  New->KeepLines();
  if (!Options.vsPairs.empty()) {
    New->DescribeAllRules();
  }
  New->Load(Options.vsGrammars, true);
  for (const std::string& sFile : Options.vsPairs) {
    AddPairs(sFile, *New);
  }
  return New;
}

std::vector<std::string> WatchedFiles(const TestOptions& Options) {
  std::vector<std::string> vsFiles(Options.vsGrammars);
  vsFiles.insert(vsFiles.end(), Options.vsPairs.begin(), Options.vsPairs.end());
  if (std::find(vsFiles.begin(), vsFiles.end(), "-") != vsFiles.end()) {
    throw Grammar::RunError("--watch needs files: standard input does not change");
  }
  return vsFiles;
}

int StatusOf(const TestOptions& Options, const WatchedExamples& Watched) {
  const bool AllPass = std::all_of(
      Watched.Results().begin(), Watched.Results().end(),
      [&](const ExampleResult& Result) { return IsAccepted(Result.What, Options.IsStrict); });
  return AllPass && Watched.Tested().Tally().LeftOut == 0 ? Grammar::StatusClean
                                                          : Grammar::StatusFindings;
}

/// Shows a report until a file changes. @return false where a signal came instead
bool WaitForChange(const std::string& Report, Screen& ShownReturn, Grammar::FileWatch& Files) {
  // Whoever sees the report may end the run; what is not shown yet, a signal stops at once.
  Grammar::EndSignals Signals;
  ShownReturn.Show(Report);
  return !Files.Wait(Signals).empty();
}

}  // namespace

// ---- The run ----------------------------------------------------------------------------------

int RunWatch(const TestOptions& Options) {
  // From now on: what changes during the first run is noticed after it.
  Grammar::FileWatch Files(WatchedFiles(Options));
  ParseOptions Parse = Options.Parse;
  Parse.WantsCauses = true;
  WatchedExamples Watched(Parse, Options.Starts, Grammar::ThreadCount(Options.Threads));
  Screen Shown;
  Shown.Begin();
  std::unique_ptr<TestedGrammar> New = LoadState(Options);
  while (WaitForChange(New ? Watched.Take(std::move(New)) : "", Shown, Files)) {
    Shown.Begin();
    try {
      New = LoadState(Options);
    } catch (const Grammar::RunError& Error) {
      Grammar::ReportFailure(Error.what());
    }
  }
  return StatusOf(Options, Watched);
}

}  // namespace Examples
