// What README.md shows of `trrule`: each of its commands is run in the folder of the sources, and
// its output is compared up to the line "…" where something is left out.

#include "GrammarPaths.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace {

struct ShownCommand {
  std::string Command;
  std::string Output;
  bool IsCut = false;
};

/// The consoles that begin with `trrule`; each has one command.
std::vector<ShownCommand> ReadShownCommands() {
  std::ifstream Page(GrammarPaths::SourceFolder + std::string("/README.md"));
  std::vector<ShownCommand> vShown;
  bool IsOpen = false;
  for (std::string Line; std::getline(Page, Line);) {
    if (Line.rfind("$ trrule ", 0) == 0) {
      IsOpen = true;
      vShown.push_back({Line.substr(2), "", false});
    } else if (Line == "```") {
      IsOpen = false;
    } else if (IsOpen && Line == "…") {
      vShown.back().IsCut = true;
    } else if (IsOpen) {
      vShown.back().Output += Line + '\n';
    }
  }
  return vShown;
}

/// What a command writes to both streams in the folder of the sources.
std::string OutputOf(const std::string& Command) {
  const TestFolder Folder;
  std::filesystem::create_symlink(GrammarPaths::Program, Folder.Path("trrule"));
  const std::string Line = "exec 2>&1; cd '" + std::string(GrammarPaths::SourceFolder) +
                           "' && PATH='" + Folder.Path("") + "':\"$PATH\" LC_ALL=C " + Command;
  std::string Output;
  FILE* Pipe = popen(Line.c_str(), "r");
  for (int Byte = std::fgetc(Pipe); Byte != EOF; Byte = std::fgetc(Pipe)) {
    Output += static_cast<char>(Byte);
  }
  pclose(Pipe);
  return Output;
}

TEST(ReadmeCommand, PrintsTheOutputsOfThePage) {
  const std::vector<ShownCommand> vShown = ReadShownCommands();
  EXPECT_EQ(vShown.size(), 3U);
  for (const ShownCommand& Shown : vShown) {
    const std::string Output = OutputOf(Shown.Command);
    EXPECT_EQ(Shown.IsCut ? Output.substr(0, Shown.Output.size()) : Output, Shown.Output);
    EXPECT_EQ(Shown.IsCut, Output.size() > Shown.Output.size());
  }
}

}  // namespace
