// docs/trrule.md keeps what it says: the commands of each console fence are run by a shell in a
// copy of examples/grammar, and their output is compared.

#include "Finding.h"
#include "GrammarPaths.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <set>
#include <string>
#include <vector>

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

struct ConsoleFence {
  std::vector<std::string> vsCommands;  ///< with "$ " and "> " in front of their lines
  std::string Shown;                    ///< the whole fence
  int LineNumber = 0;
};

std::vector<ConsoleFence> ReadFences() {
  std::ifstream Page(GrammarPaths::SourceFolder + std::string("/docs/trrule.md"));
  std::vector<ConsoleFence> vFences;
  bool IsOpen = false;
  int LineNumber = 0;
  for (std::string Line; std::getline(Page, Line);) {
    ++LineNumber;
    if (Line == "```console") {
      IsOpen = true;
      vFences.push_back({{}, "", LineNumber});
    } else if (Line == "```") {
      IsOpen = false;
    } else if (IsOpen) {
      ConsoleFence& Last = vFences.back();
      Last.Shown += Line + '\n';
      if (Line.rfind("$ ", 0) == 0) {
        Last.vsCommands.push_back(Line + '\n');
      } else if (Line.rfind("> ", 0) == 0) {
        Last.vsCommands.back() += Line + '\n';
      }
    }
  }
  return vFences;
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

/// A folder with the grammars of the page, and a `trrule` to call.
void Fill(const TestFolder& Folder) {
  const std::filesystem::path Grammars =
      std::filesystem::path(GrammarPaths::SourceFolder) / "examples" / "grammar";
  for (const auto& Entry : std::filesystem::directory_iterator(Grammars)) {
    std::filesystem::copy(Entry.path(), Folder.Path(Entry.path().filename().string()));
  }
  std::filesystem::create_directory(Folder.Path("bin"));
  std::filesystem::create_symlink(GrammarPaths::Program, Folder.Path("bin/trrule"));
}

TEST(TrruleDocument, ShowsWhatTheCommandsPrint) {
  const std::vector<ConsoleFence> vFences = ReadFences();
  EXPECT_GT(vFences.size(), 8U);
  for (const ConsoleFence& Each : vFences) {
    const TestFolder Folder;
    Fill(Folder);
    Folder.Write("script", Instrumented(Each.vsCommands));
    EXPECT_EQ(
        OutputOf("cd '" + Folder.Path("") + "' && PATH=\"$PWD/bin:$PATH\" LC_ALL=C sh script"),
        Each.Shown)
        << "docs/trrule.md:" << Each.LineNumber;
  }
}

/// The codes that a text names.
std::set<std::string> CodesIn(const std::string& Text) {
  std::set<std::string> ssCodes;
  for (std::size_t At = Text.find("TR0"); At != std::string::npos; At = Text.find("TR0", At + 1)) {
    ssCodes.insert(Text.substr(At, 5));
  }
  return ssCodes;
}

TEST(TrruleDocument, ShowsEveryCodeInSomeOutput) {
  std::string Shown;
  for (const ConsoleFence& Each : ReadFences()) {
    Shown += Each.Shown;
  }
  std::set<std::string> ssAll;
  for (const Grammar::CodeInfo& Each : Grammar::AllCodes()) {
    ssAll.insert(std::string(Each.Code));
  }
  EXPECT_EQ(CodesIn(Shown), ssAll);
}

TEST(TrruleDocument, ListsEveryCodeWithItsTitle) {
  std::ifstream Page(GrammarPaths::SourceFolder + std::string("/docs/trrule.md"));
  std::string Listed;
  for (std::string Line; std::getline(Page, Line);) {
    if (Line.rfind("| TR", 0) == 0) {
      Listed += Line + '\n';
    }
  }
  std::string Expected;
  for (const Grammar::CodeInfo& Each : Grammar::AllCodes()) {
    Expected.append("| ").append(Each.Code).append(" | ").append(NameOf(Each.Level));
    Expected.append(" | ").append(Each.Title).append(" |\n");
  }
  EXPECT_EQ(Listed, Expected);
}

}  // namespace
