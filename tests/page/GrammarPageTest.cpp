#include "EntryReader.h"
#include "GrammarPage.h"
#include "GrammarPaths.h"
#include "PageSources.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace Page;

/// A page as it has to be, beside this file.
std::string Expected(const std::string& Name) {
  std::ifstream File(std::string(GrammarPaths::SourceFolder) + "/tests/page/" + Name,
                     std::ios::binary);
  return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
}

/// The rules of a text, as those of "a.trr".
std::vector<RuleEntry> EntriesOf(const std::string& Rules) {
  const TestFolder Folder;
  Folder.Write("a.trr", Rules);
  const std::filesystem::path Before = std::filesystem::current_path();
  std::filesystem::current_path(Folder.Path(""));
  Grammar::RunOptions Run;
  Run.vsFiles = {"a.trr"};
  Run.Threads = 1;
  std::vector<RuleEntry> vEntries;
  EXPECT_TRUE(ReadEntries(Run, vEntries));
  std::filesystem::current_path(Before);
  return vEntries;
}

/// The page of a grammar, its style and script as "…".
std::string PageOf(const std::string& Rules, const PageTests* Tests = nullptr) {
  const std::vector<RuleEntry> vEntries = EntriesOf(Rules);
  const GrammarPage Whole("A < B", vEntries, Tests);
  std::string Html;
  Whole.AppendBefore(Html);
  for (std::size_t Index = 0; Index < vEntries.size(); ++Index) {
    Whole.AppendRule(Index, Html);
  }
  Whole.AppendAfter(Html);
  for (const std::string_view Known : {StyleSource, ScriptSource, ScriptSum}) {
    Html.replace(Html.find(Known), Known.size(), "…");
  }
  return Html;
}

TEST(GrammarPage, IsWholeOfASmallGrammar) {
  EXPECT_EQ(PageOf("{NP,1}\nNP::XP : [\"<the>\" N] -> [N]\n(X2::Y1)\n((x2 num) = sg)\n"
                   "((x2 num) = sg)\n"),
            Expected("small.html"));
}

TEST(GrammarPage, IsWholeWithTests) {
  PageTests Tests;
  Tests.vRules = {{"<h4>Examples</h4>\n", true, true}, {"", false, false}};
  Tests.Others = "<li>another</li>\n";
  Tests.Totals = "2 examples: 1 passes, 1 fails";
  Tests.Covered = "covered: 1 of 2 rules, 0 of 0 constraints";
  EXPECT_EQ(PageOf("N::N : [\"a\"] -> [\"b\"]\n(X1::Y1)\n\n(X1::Y1)\n", &Tests),
            Expected("tests.html"));
}

TEST(GrammarPage, IsWholeWithoutRules) {
  EXPECT_EQ(PageOf(""), Expected("empty.html"));
}

}  // namespace
