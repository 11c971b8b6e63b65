// README.md shows what is there: the program and its output, what the driver prints, and links that
// lead somewhere.

#include <gtest/gtest.h>

#include "BuildPaths.h"
#include "Tokenizer.h"
#include "support/Samples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

const std::filesystem::path Source = BuildPaths::SourceFolder;

std::string ReadFile(const std::filesystem::path& Path) {
  std::ifstream File(Path, std::ios::binary);
  EXPECT_TRUE(File.is_open()) << Path;
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

/// What stands in the fences of one kind, one text for each fence.
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

/// The lines of what a console shows that the scripts have not written about themselves.
std::string WithoutNotes(const std::string& Console) {
  std::string Text;
  for (const std::string& sLine : Tokenizer()(Console, "\n")) {
    if (sLine.rfind("$ ", 0) != 0 && sLine.rfind("== ", 0) != 0) {
      Text += sLine + '\n';
    }
  }
  return Text;
}

const Strings& Pages() {
  static const Strings vsPages{"README.md",         "CHANGELOG.md",   "CONTRIBUTING.md",
                               "docs/behaviour.md", "docs/design.md", "docs/embedding.md",
                               "docs/format.md"};
  return vsPages;
}

}  // namespace

TEST(Readme, ShowsTheExampleProgramAndItsOutput) {
  const std::string Page = ReadFile(Source / "README.md");
  EXPECT_EQ(FencesOf(Page, "cpp"), Strings{ReadFile(Source / "examples/ReadAndPrint.cpp")});
  EXPECT_EQ(FencesOf(Page, "text"),
            Strings{ReadFile(Source / "examples/expected/ReadAndPrint.txt")});
}

TEST(Readme, ShowsHowTheOutputOfTheDriverBegins) {
  const Strings vsConsoles = FencesOf(ReadFile(Source / "README.md"), "console");
  ASSERT_EQ(vsConsoles.size(), 2U);
  const std::string Shown = WithoutNotes(vsConsoles.front());
  EXPECT_FALSE(Shown.empty());
  EXPECT_EQ(ReadFile(Source / "tests/data/driver_output.txt").substr(0, Shown.size()), Shown);
}

TEST(Documents, LinkOnlyToFilesThatExist) {
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
