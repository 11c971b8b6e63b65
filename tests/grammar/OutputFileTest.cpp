// A file that a command writes appears whole or not at all, whatever happens on the way.

#include "OutputFile.h"

#include "Cleanup.h"
#include "RunError.h"
#include "TestFolder.h"
#include "support/ChildProcess.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace {

using Grammar::OutputFile;
using Names = std::set<std::string>;

/// The message with which something fails; empty if it does not.
template <typename CodeT>
std::string FailureOf(CodeT Code) {
  try {
    Code();
  } catch (const Grammar::RunError& Error) {
    return Error.what();
  }
  return "";
}

unsigned ModeOf(const std::string& Path) {
  struct stat Status {};
  EXPECT_EQ(stat(Path.c_str(), &Status), 0);
  return Status.st_mode & 07777U;
}

TEST(OutputFile, AppearsWhenItIsFinished) {
  const TestFolder Folder;
  const std::string Large(300000, 'x');
  OutputFile Output(Folder.Path("a"));
  Output.Write("one\n");
  Output.Write(Large);
  EXPECT_EQ(Folder.Names().count("a"), 0U);
  Output.Finish();
  EXPECT_EQ(Folder.Names(), Names{"a"});
  EXPECT_EQ(Folder.Read("a"), "one\n" + Large);
}

TEST(OutputFile, LeavesNothingWhenItIsNotFinished) {
  const TestFolder Folder;
  Folder.Write("a", "before");
  {
    OutputFile Replacing(Folder.Path("a"));
    OutputFile New(Folder.Path("b"));
    Replacing.Write("after");
    New.Write(std::string(300000, 'x'));
  }
  EXPECT_EQ(Folder.Names(), Names{"a"});
  EXPECT_EQ(Folder.Read("a"), "before");
}

TEST(OutputFile, KeepsThePermissionsOfTheReplacedFile) {
  const TestFolder Folder;
  const std::string Path = Folder.Write("a", "before");
  ASSERT_EQ(chmod(Path.c_str(), 0640), 0);
  OutputFile Output(Path);
  Output.Finish();
  EXPECT_EQ(ModeOf(Path), 0640U);
  const mode_t OldMask = umask(027);
  OutputFile New(Folder.Path("b"));
  New.Finish();
  umask(OldMask);
  EXPECT_EQ(ModeOf(Folder.Path("b")), 0640U);
}

TEST(OutputFile, FollowsLinks) {
  const TestFolder Folder;
  Folder.Write("a", "before");
  ASSERT_EQ(symlink("a", Folder.Path("link").c_str()), 0);
  OutputFile Output(Folder.Path("link"));
  Output.Write("after");
  Output.Finish();
  EXPECT_EQ(Folder.Names(), (Names{"a", "link"}));
  EXPECT_EQ(Folder.Read("a"), "after");
}

TEST(OutputFile, ReportsWhyItCannotBeWritten) {
  const TestFolder Folder;
  const std::string NoFolder = Folder.Path("none/a");
  EXPECT_EQ(FailureOf([&] { OutputFile Output(NoFolder); }),
            "cannot write " + NoFolder + ": No such file or directory");
  EXPECT_EQ(FailureOf([&] { OutputFile Output(Folder.Path("")); }),
            "cannot write " + Folder.Path("") + ": Is a directory");
  EXPECT_EQ(FailureOf([] {
              OutputFile Output("/dev/full");
              Output.Write("x");
              Output.Finish();
            }),
            "cannot write /dev/full: No space left on device");
}

TEST(OutputFile, IsStandardOutputWithoutAName) {
  for (const char* Name : {"", "-"}) {
    EXPECT_EQ(RunInChild([&] {
                OutputFile Output(Name);
                Output.Write("to standard output\n");
                Output.Finish();
              }),
              (ChildEnd{RanToItsEnd, "to standard output\n", ""}));
  }
}

TEST(OutputFile, IsRemovedBySignalsThatEndTheRun) {
  for (const int Signal : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE}) {
    const TestFolder Folder;
    EXPECT_EQ(RunInChild([&] {
                signal(Signal, SIG_DFL);
                Grammar::RemoveUnfinishedFilesOnSignals();
                OutputFile First(Folder.Path("a"));
                OutputFile Second(Folder.Path("b"));
                OutputFile Third(Folder.Path("c"));
                Second.Finish();
                raise(Signal);
              }),
              (ChildEnd{-Signal, "", ""}));
    EXPECT_EQ(Folder.Names(), Names{"b"});
  }
}

TEST(OutputFile, LeavesNothingIfThereAreTooMany) {
  const TestFolder Folder;
  std::vector<std::unique_ptr<OutputFile>> vFiles;
  for (const char* Name : {"a", "b", "c", "d", "e", "f", "g", "h"}) {
    vFiles.push_back(std::make_unique<OutputFile>(Folder.Path(Name)));
  }
  EXPECT_EQ(FailureOf([&] { const OutputFile Ninth(Folder.Path("i")); }),
            "too many output files at once");
  EXPECT_EQ(Folder.Names().size(), vFiles.size());
  vFiles.pop_back();
  OutputFile(Folder.Path("i")).Finish();
  vFiles.clear();
  EXPECT_EQ(Folder.Names(), Names{"i"});
}

TEST(OutputFile, SurvivesSignalsThatAreIgnored) {
  const TestFolder Folder;
  EXPECT_EQ(RunInChild([&] {
              signal(SIGHUP, SIG_IGN);
              Grammar::RemoveUnfinishedFilesOnSignals();
              OutputFile Output(Folder.Path("a"));
              raise(SIGHUP);
              Output.Finish();
            }),
            (ChildEnd{RanToItsEnd, "", ""}));
  EXPECT_EQ(Folder.Names(), Names{"a"});
}

TEST(OutputFile, DetectsAClosedPipe) {
  const ChildEnd End = RunInChild([] {
    int Ends[2] = {};
    signal(SIGPIPE, SIG_IGN);
    if (pipe(Ends) != 0 || close(Ends[0]) != 0 || dup2(Ends[1], STDOUT_FILENO) < 0) {
      _exit(1);
    }
    try {
      OutputFile Output("-");
      Output.Write("x");
      Output.Finish();
    } catch (const Grammar::ClosedOutput&) {
      _exit(5);
    }
  });
  EXPECT_EQ(End, (ChildEnd{5, "", ""}));
}

}  // namespace
