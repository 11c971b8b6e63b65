// Files that change, and the command that watches them. Nothing is waited for but what comes.

#include "ConsolePage.h"
#include "FileWatch.h"
#include "GrammarPaths.h"
#include "ProgramRun.h"
#include "RunError.h"
#include "TestFolder.h"

#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

// ---- Files ------------------------------------------------------------------------------------

TEST(FileWatch, NoticesFilesThatAreWrittenReplacedOrTakenAway) {
  const TestFolder Folder;
  const std::string A = Folder.Write("a.trr", "1");
  const std::string B = Folder.Write("b.trr", "1");
  Grammar::FileWatch Watch({A, B, Folder.Path("c.trr")});
  Grammar::EndSignals Signals;
  Folder.Write("a.trr", "2");
  EXPECT_EQ(Watch.Wait(Signals), (Strings{A}));
  // As editors do it: a new file takes the place of the old one.
  std::filesystem::rename(Folder.Write("b.trr~", "2"), B);
  EXPECT_EQ(Watch.Wait(Signals), (Strings{B}));
  // And the new one is still watched, also when it comes again.
  std::filesystem::remove(B);
  EXPECT_EQ(Watch.Wait(Signals), (Strings{B}));
  Folder.Write("b.trr", "3");
  Folder.Write("c.trr", "1");
  Folder.Write("a.trr", "3");
  EXPECT_EQ(Watch.Wait(Signals), (Strings{A, B, Folder.Path("c.trr")}));
}

TEST(FileWatch, LooksBehindSymbolicLinks) {
  const TestFolder Folder;
  const TestFolder Other;
  const std::string Link = Folder.Path("link.trr");
  std::filesystem::create_symlink(Other.Write("a.trr", "1"), Link);
  Grammar::FileWatch Watch({Link});
  Grammar::EndSignals Signals;
  Other.Write("a.trr", "2");
  EXPECT_EQ(Watch.Wait(Signals), (Strings{Link}));
}

/// Handles a signal in another way for a while.
class SignalHandling {
 public:
  SignalHandling(int SignalPassIn, void (*New)(int))
      : Signal(SignalPassIn), Old(std::signal(Signal, New)) {}
  ~SignalHandling() { std::signal(Signal, Old); }
  SignalHandling(const SignalHandling&) = delete;
  SignalHandling& operator=(const SignalHandling&) = delete;

 private:
  int Signal;
  void (*Old)(int);
};

TEST(FileWatch, EndsItsWaitWithASignal) {
  const TestFolder Folder;
  Grammar::FileWatch Watch({Folder.Write("a.trr", "1")});
  for (const int Signal : {SIGINT, SIGTERM, SIGQUIT, SIGHUP}) {
    // A shell starts programs in the background with some of them ignored.
    const SignalHandling Usual(Signal, SIG_DFL);
    Grammar::EndSignals Signals;
    raise(Signal);
    EXPECT_EQ(Watch.Wait(Signals), Strings()) << Signal;
  }
}

TEST(FileWatch, GoesOnWaitingAfterASignalThatIsIgnored) {
  const TestFolder Folder;
  const std::string File = Folder.Write("a.trr", "1");
  Grammar::FileWatch Watch({File});
  const SignalHandling Ignored(SIGHUP, SIG_IGN);
  Grammar::EndSignals Signals;
  raise(SIGHUP);
  Folder.Write("a.trr", "2");
  EXPECT_EQ(Watch.Wait(Signals), (Strings{File}));
}

TEST(FileWatch, LeavesASignalThatNoWaitTakesToTheProcess) {
  const ChildEnd End = RunInChild([] {
    const Grammar::EndSignals Signals;
    raise(SIGTERM);
  });
  EXPECT_EQ(End, (ChildEnd{-SIGTERM, "", ""}));
}

TEST(FileWatch, NeedsTheFolders) {
  const TestFolder Folder;
  const std::string Gone = Folder.Path("gone");
  try {
    Grammar::FileWatch Watch({Gone + "/a.trr"});
    FAIL();
  } catch (const Grammar::RunError& Error) {
    EXPECT_EQ(std::string(Error.what()), "cannot watch " + Gone + ": No such file or directory");
  }
}

// ---- The command ------------------------------------------------------------------------------

/// The command at work, with its output in a pipe.
class WatchingProgram {
 public:
  WatchingProgram(const TestFolder& Folder, Strings vsArguments) {
    EXPECT_EQ(pipe(Pipe.data()), 0);
    vsArguments.insert(vsArguments.begin(), {"test", "--watch"});
    Pid = fork();
    if (Pid == 0) {
      dup2(Pipe[1], STDOUT_FILENO);
      dup2(Pipe[1], STDERR_FILENO);
      close(Pipe[0]);
      close(Pipe[1]);
      if (chdir(Folder.Path("").c_str()) == 0) {
        ExecuteTrrule(vsArguments);
      }
      _exit(RanToItsEnd);
    }
    close(Pipe[1]);
  }

  ~WatchingProgram() {
    close(Pipe[0]);
    if (Pid > 0) {
      kill(Pid, SIGKILL);
      waitpid(Pid, nullptr, 0);
    }
  }

  WatchingProgram(const WatchingProgram&) = delete;
  WatchingProgram& operator=(const WatchingProgram&) = delete;

  /// Reads until what has come ends so, or nothing comes any more.
  std::string ReadUntil(const std::string& End) {
    std::string Text;
    char Byte = 0;
    while (!EndsWith(Text, End) && read(Pipe[0], &Byte, 1) == 1) {
      Text += Byte;
    }
    return Text;
  }

  /// Sends a signal, and waits for the end. @return the status; less than 0 where the signal killed
  int End(int Signal) {
    int Status = 0;
    kill(Pid, Signal);
    waitpid(Pid, &Status, 0);
    Pid = 0;
    return WIFEXITED(Status) ? WEXITSTATUS(Status) : -WTERMSIG(Status);
  }

 private:
  static bool EndsWith(const std::string& Text, const std::string& End) {
    return Text.size() >= End.size() && Text.substr(Text.size() - End.size()) == End;
  }

  std::array<int, 2> Pipe{};
  pid_t Pid = 0;
};

const std::string Noun = ";;SL: car\n;;TL: auto\nN::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n";
const std::string Other = ";;SL: car\n;;TL: auto\nN::N : [\"car\"] -> [\"coche\"]\n(X1::Y1)\n";

TEST(WatchProgram, RunsAgainWhenAFileChangesUntilASignalComes) {
  const TestFolder Folder;
  Folder.Write("a.trr", Noun);
  WatchingProgram Program(Folder, {"a.trr"});
  const std::string Green = "1 example: 1 passes\n";
  EXPECT_EQ(Program.ReadUntil(Green), Green);
  std::filesystem::rename(Folder.Write("new", Other), Folder.Path("a.trr"));
  const std::string Red = "1 example: 1 differs\n";
  EXPECT_EQ(Program.ReadUntil(Red),
            "\na.trr:3 changed\n1 of 1 examples run\n"
            "newly failing: a.trr:3: car\n  wanted: auto\n  given:  coche\n1 example changed\n" +
                Red);
  // What was known stays while the file is away.
  std::filesystem::remove(Folder.Path("a.trr"));
  const std::string Away = "trrule: cannot read a.trr: No such file or directory\n";
  EXPECT_EQ(Program.ReadUntil(Away), Away);
  Folder.Write("a.trr", Noun);
  EXPECT_EQ(Program.ReadUntil(Green),
            "\na.trr:3 changed\n1 of 1 examples run\n"
            "newly passing: a.trr:3: car\n  given:  auto\n1 example changed\n" +
                Green);
  EXPECT_EQ(Program.End(SIGINT), 0);
  EXPECT_EQ(Program.ReadUntil(Green), "");
}

/// The screen in the tutorial, after its sentence about `--watch`.
std::string ScreenOfTheTutorial() {
  std::ifstream File(std::string(GrammarPaths::SourceFolder) + "/docs/testing.md");
  const std::string Page{std::istreambuf_iterator<char>(File), {}};
  const std::string Fence = "```\n";
  const std::size_t Begin = Page.find(Fence, Page.find("`--watch` keeps the examples running"));
  return Page.substr(Begin + Fence.size(), Page.find(Fence, Begin + 1) - Begin - Fence.size());
}

TEST(WatchProgram, ShowsTheScreenOfTheTutorial) {
  const std::string Grammar = ReadConsoles("docs/testing.md").back().ssFiles.at("np.trr");
  const TestFolder Folder;
  Folder.Write("np.trr", Grammar);
  Folder.Write("sentences.txt", "a house\tuna casa\nthe house\tla casa\n");
  WatchingProgram Program(Folder, {"np.trr", "--examples", "sentences.txt"});
  Program.ReadUntil("8 examples: 7 pass, 1 fails\n");
  std::string Changed = Grammar;
  Changed.replace(Changed.find("\"la\""), 4, "\"las\"");
  std::filesystem::rename(Folder.Write("new", Changed), Folder.Path("np.trr"));
  EXPECT_EQ(Program.ReadUntil("8 examples: 5 pass, 2 differ, 1 fails\n"),
            "\n" + ScreenOfTheTutorial());
}

TEST(WatchProgram, EndsWithTheStatusOfTheLastRun) {
  const TestFolder Folder;
  Folder.Write("a.trr", Other);
  for (const int Signal : {SIGTERM, SIGQUIT}) {
    WatchingProgram Program(Folder, {"a.trr"});
    const std::string Red = "1 example: 1 differs\n";
    EXPECT_EQ(Program.ReadUntil(Red),
              "a.trr:3: differs: car\n  wanted: auto\n  given:  coche\n" + Red);
    EXPECT_EQ(Program.End(Signal), 1);
  }
}

TEST(WatchProgram, WatchesThePairsOfFilesToo) {
  const TestFolder Folder;
  Folder.Write("a.trr", Noun);
  Folder.Write("pairs", "car\tauto\n");
  WatchingProgram Program(Folder, {"a.trr", "--examples", "pairs"});
  const std::string First = "2 examples: 2 pass\n";
  EXPECT_EQ(Program.ReadUntil(First), First);
  Folder.Write("pairs", "car\tauto\n*bus\n");
  const std::string Second = "3 examples: 3 pass\n";
  EXPECT_EQ(
      Program.ReadUntil(Second),
      "\nno rule changed\n1 of 3 examples run\nnew: pairs:2: bus\n1 example changed\n" + Second);
  EXPECT_EQ(Program.End(SIGTERM), 0);
}

TEST(WatchProgram, FailsWhereThereIsNothingToWatch) {
  const TestFolder Folder;
  Folder.Write("a.trr", Noun);
  const std::vector<std::pair<Strings, std::string>> vCases{
      {{"-"}, "--watch needs files: standard input does not change"},
      {{"b.trr"}, "cannot read b.trr: No such file or directory"},
      {{"b/a.trr"}, "cannot watch b: No such file or directory"},
      {{"a.trr", "--format", "json"}, "--format excludes --watch"},
      {{"a.trr", "-o", "b"}, "--output excludes --watch"},
      {{"a.trr", "--baseline", "b"}, "--baseline excludes --watch"},
      {{"a.trr", "--fail-under", "9"}, "--fail-under excludes --watch"},
  };
  for (const auto& [vsArguments, Message] : vCases) {
    Strings vsAll{"test", "--watch"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    EXPECT_EQ(RunTrrule(vsAll, Folder.Path("")), (ChildEnd{2, "", "trrule: " + Message + '\n'}));
  }
}

}  // namespace
