#include "ConsolePage.h"

#include "GrammarPaths.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

// ---- Reading ----------------------------------------------------------------------------------

namespace {

void AddLine(const std::string& Line, Console& ConsoleReturn) {
  ConsoleReturn.Shown += Line + '\n';
  if (Line.rfind("$ ", 0) == 0) {
    ConsoleReturn.vsCommands.push_back(Line + '\n');
  } else if (Line.rfind("> ", 0) == 0) {
    ConsoleReturn.vsCommands.back() += Line + '\n';
  }
}

}  // namespace

std::vector<Console> ReadConsoles(const std::string& Page) {
  std::ifstream File(GrammarPaths::SourceFolder + ('/' + Page));
  std::vector<Console> vConsoles;
  std::map<std::string, std::string> ssFiles;
  std::string Fence;  // the text after its backquotes; empty outside of fences
  int LineNumber = 0;
  for (std::string Line; std::getline(File, Line);) {
    ++LineNumber;
    if (Line.rfind("```", 0) == 0) {
      Fence = Line.substr(3);
      if (Fence == "console") {
        vConsoles.push_back({{}, "", ssFiles, LineNumber});
      }
    } else if (Fence == "console") {
      AddLine(Line, vConsoles.back());
    } else if (Fence.rfind("trr ", 0) == 0) {
      ssFiles[Fence.substr(4)] += Line + '\n';
    }
  }
  return vConsoles;
}

// ---- Running ----------------------------------------------------------------------------------

namespace {

/// The script with the lines that it shows, each command in front of its output. `$?` stays that of
/// the command before.
std::string Instrumented(const std::vector<std::string>& vsCommands) {
  std::string Script = "exec 2>&1\n";
  for (const std::string& sCommand : vsCommands) {
    Script += "TrruleStatus=$?\ncat <<'EndOfCommand'\n" + sCommand + "EndOfCommand\n";
    std::string Typed;
    std::size_t Start = 0;
    while (Start < sCommand.size()) {
      const std::size_t End = sCommand.find('\n', Start) + 1;
      Typed += sCommand.substr(Start + 2, End - Start - 2);
      Start = End;
    }
    Script += "(exit $TrruleStatus)\n" + Typed;
  }
  return Script;
}

std::string OutputOf(const std::string& Command) {
  std::string Output;
  FILE* Pipe = popen(Command.c_str(), "r");
  for (int Byte = std::fgetc(Pipe); Byte != EOF; Byte = std::fgetc(Pipe)) {
    Output += static_cast<char>(Byte);
  }
  pclose(Pipe);
  return Output;
}

/// A folder with all grammars that a console can name, and a `trrule` to call.
void Fill(const TestFolder& Folder, const Console& Shown) {
  const std::filesystem::path Grammars =
      std::filesystem::path(GrammarPaths::SourceFolder) / "examples" / "grammar";
  std::filesystem::copy(Grammars, Folder.Path(""), std::filesystem::copy_options::recursive);
  for (const auto& [Name, Text] : Shown.ssFiles) {
    Folder.Write(Name, Text);
  }
  std::filesystem::create_directory(Folder.Path("bin"));
  std::filesystem::create_symlink(GrammarPaths::Program, Folder.Path("bin/trrule"));
  Folder.Write("script", Instrumented(Shown.vsCommands));
}

/// What a console shows when its commands are run.
std::string ShownBy(const Console& Current) {
  const TestFolder Folder;
  Fill(Folder, Current);
  return OutputOf("cd '" + Folder.Path("") + "' && PATH=\"$PWD/bin:$PATH\" LC_ALL=C sh script");
}

/// Writes a page anew with other texts in its consoles.
void WritePage(const std::string& Page, const std::vector<std::string>& vsShown) {
  const std::string Path = GrammarPaths::SourceFolder + ('/' + Page);
  std::ifstream Before(Path);
  std::string Text;
  std::size_t Next = 0;
  bool IsConsole = false;
  for (std::string Line; std::getline(Before, Line);) {
    const bool IsFence = Line.rfind("```", 0) == 0;
    Text += IsConsole && !IsFence ? "" : Line + '\n';
    if (IsFence) {
      IsConsole = Line == "```console";
      Text += IsConsole ? vsShown[Next++] : "";
    }
  }
  std::ofstream(Path) << Text;
}

}  // namespace

void ExpectConsolesHold(const std::string& Page, std::size_t Least) {
  const std::vector<Console> vConsoles = ReadConsoles(Page);
  EXPECT_GE(vConsoles.size(), Least) << Page;
  std::vector<std::string> vsShown;
  for (const Console& Current : vConsoles) {
    vsShown.push_back(ShownBy(Current));
    EXPECT_EQ(vsShown.back(), Current.Shown) << Page << ':' << Current.LineNumber;
  }
  if (std::getenv("TRRULE_WRITE_PAGES") != nullptr) {
    WritePage(Page, vsShown);
  }
}
