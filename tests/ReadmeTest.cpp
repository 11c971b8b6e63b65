// The documents show existing programs and their outputs, the output of the driver, the version,
// and valid links. The tests of the command compare what README.md shows of `trrule`.

#include <gtest/gtest.h>

#include "BuildPaths.h"
#include "Tokenizer.h"
#include "support/Samples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

const std::filesystem::path Source = BuildPaths::SourceFolder;

std::string ReadFile(const std::filesystem::path& Path) {
  std::ifstream File(Path, std::ios::binary);
  EXPECT_TRUE(File.is_open()) << Path;
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

/// The contents of the fences of one kind, one text for each fence.
Strings FencesOf(const std::string& Page, const std::string& Kind) {
  const std::string Opening = "```" + Kind + '\n';
  Strings vsTexts;
  for (std::size_t Begin = Page.find(Opening); Begin != std::string::npos;
       Begin = Page.find(Opening, Begin)) {
    Begin += Opening.size();
    vsTexts.push_back(Page.substr(Begin, Page.find("```", Begin) - Begin));
  }
  return vsTexts;
}

/// A page without its fenced blocks.
std::string ProseOf(const std::string& Page) {
  std::string Prose;
  for (std::size_t Begin = 0; Begin < Page.size();) {
    const std::size_t Opening = std::min(Page.find("\n```", Begin), Page.size());
    const std::size_t Closing = std::min(Page.find("\n```", Opening + 1), Page.size());
    Prose += Page.substr(Begin, Opening - Begin);
    Begin = std::min(Page.find('\n', Closing + 1), Page.size());
  }
  return Prose;
}

/// The targets of the links of a page that lead to files: "[text](file#place)".
Strings FileLinksOf(const std::string& Page) {
  Strings vsTargets;
  for (std::size_t Begin = Page.find("]("); Begin != std::string::npos;
       Begin = Page.find("](", Begin)) {
    Begin += 2;
    const std::string Target = Page.substr(Begin, Page.find(')', Begin) - Begin);
    const std::string File = Target.substr(0, Target.find('#'));
    if (!File.empty() && Target.find("://") == std::string::npos) {
      vsTargets.push_back(File);
    }
  }
  return vsTargets;
}

/// The output in a console, without commands and progress lines of scripts, split at lines "…" that
/// mark omissions.
Strings PiecesOf(const std::string& Console) {
  Strings vsPieces{""};
  std::istringstream Lines(Console);
  for (std::string Line; std::getline(Lines, Line);) {
    if (Line == "…") {
      vsPieces.emplace_back();
    } else if (Line.rfind("$ ", 0) != 0 && Line.rfind("== ", 0) != 0) {
      vsPieces.back() += Line + '\n';
    }
  }
  vsPieces.erase(std::remove(vsPieces.begin(), vsPieces.end(), ""), vsPieces.end());
  return vsPieces;
}

/// The console that begins with a command.
std::string ConsoleOf(const std::string& Page, const std::string& Command) {
  for (const std::string& sConsole : FencesOf(Page, "console")) {
    if (sConsole.rfind("$ " + Command + '\n', 0) == 0) {
      return sConsole;
    }
  }
  ADD_FAILURE() << "no console begins with " << Command;
  return "";
}

const Strings& Pages() {
  static const Strings vsPages{"README.md",           "CHANGELOG.md",       "CONTRIBUTING.md",
                               "SECURITY.md",         "docs/assurance.md",  "docs/behaviour.md",
                               "docs/design.md",      "docs/embedding.md",  "docs/format.md",
                               "docs/performance.md", "docs/pictures.md",   "docs/testing.md",
                               "docs/trrule.md",      "docs/translating.md"};
  return vsPages;
}

}  // namespace

TEST(Readme, ShowsTheExampleProgramAndItsOutput) {
  const std::string Page = ReadFile(Source / "README.md");
  EXPECT_EQ(FencesOf(Page, "cpp"), Strings{ReadFile(Source / "examples/ReadAndPrint.cpp")});
  EXPECT_EQ(FencesOf(Page, "text"),
            Strings{ReadFile(Source / "examples/expected/ReadAndPrint.txt")});
}

TEST(Readme, ShowsExtractsOfTheDriversOutputInOrder) {
  const std::string Output = '\n' + ReadFile(Source / "tests/data/driver_output.txt");
  const Strings vsPieces = PiecesOf(ConsoleOf(ReadFile(Source / "README.md"), "script/demo"));
  EXPECT_EQ(vsPieces.size(), 2U);
  std::size_t End = 0;
  for (const std::string& sPiece : vsPieces) {
    const std::size_t Begin = Output.find('\n' + sPiece, End);
    ASSERT_NE(Begin, std::string::npos) << sPiece;
    EXPECT_TRUE(End != 0 || Begin == 0) << "the first extract is not at the start";
    End = Begin + sPiece.size();
  }
}

TEST(Readme, ShowsTheInstallationOfTheEmbeddingPage) {
  const std::string Command = "cmake --preset library";
  const std::string Commands = ConsoleOf(ReadFile(Source / "README.md"), Command);
  EXPECT_EQ(ConsoleOf(ReadFile(Source / "docs/embedding.md"), Command), Commands);
}

TEST(Readme, CountsTheOtherExamples) {
  int Count = 0;
  for (const auto& Entry : std::filesystem::directory_iterator(Source / "examples")) {
    Count += Entry.path().extension() == ".cpp" ? 1 : 0;
  }
  EXPECT_EQ(Count, 6);
  const std::string Page = ReadFile(Source / "README.md");
  EXPECT_NE(Page.find("The folder contains five more programs."), std::string::npos);
  EXPECT_NE(Page.find("| six small programs, "), std::string::npos);
}

TEST(Embedding, ShowsTheFunctionThatSplitsATextIntoRules) {
  const std::string Program = ReadFile(Source / "examples/ReadManyRules.cpp");
  for (const std::string& sFence : FencesOf(ReadFile(Source / "docs/embedding.md"), "cpp")) {
    if (sFence.find("CutIntoRules") != std::string::npos) {
      EXPECT_NE(Program.find('\n' + sFence + '\n'), std::string::npos) << sFence;
      return;
    }
  }
  ADD_FAILURE() << "the page does not show it";
}

TEST(Changelog, ListsUnreleasedChangesFirst) {
  const std::string Project = ReadFile(Source / "CMakeLists.txt");
  const std::size_t Begin = Project.find("VERSION ", Project.find("project(")) + 8;
  const std::string Version = Project.substr(Begin, Project.find('\n', Begin) - Begin);
  Strings vsHeadings;
  for (const std::string& sLine : Tokenizer()(ReadFile(Source / "CHANGELOG.md"), "\n")) {
    if (sLine.rfind("## ", 0) == 0) {
      vsHeadings.push_back(sLine.substr(3));
    }
  }
  ASSERT_GE(vsHeadings.size(), 2U);
  EXPECT_EQ(vsHeadings[0], "Unreleased");
  EXPECT_EQ(vsHeadings[1], Version);
}

TEST(License, HasTheSameNameEverywhere) {
  const std::string License = ReadFile(Source / "LICENSE");
  EXPECT_NE(License.find("\nSPDX-License-Identifier: Apache-2.0\n"), std::string::npos);
  const std::string Copyright = ReadFile(Source / "cmake/debian/copyright");
  EXPECT_NE(Copyright.find("\nLicense: Apache-2.0\n"), std::string::npos);
  for (const std::string& sText : {License, Copyright}) {
    EXPECT_NE(sText.find("the TrRule authors"), std::string::npos);
    EXPECT_NE(sText.find("/usr/share/common-licenses/Apache-2.0"), std::string::npos);
  }
}

TEST(Documents, LinkOnlyToExistingFiles) {
  int Count = 0;
  for (const std::string& sPage : Pages()) {
    SCOPED_TRACE(sPage);
    const std::filesystem::path Path = Source / sPage;
    for (const std::string& sTarget : FileLinksOf(ProseOf(ReadFile(Path)))) {
      EXPECT_TRUE(std::filesystem::exists(Path.parent_path() / sTarget)) << sTarget;
      ++Count;
    }
  }
  EXPECT_GT(Count, 0);
}
