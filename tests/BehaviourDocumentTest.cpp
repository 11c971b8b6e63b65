// docs/behaviour.md names the tests that cover each of its rows. These tests must exist: in this
// program, or, for the behaviour of the command, in the sources of another one.

#include <gtest/gtest.h>

#include "BuildPaths.h"
#include "Tokenizer.h"
#include "support/Samples.h"

#include <filesystem>
#include <fstream>
#include <set>

namespace {

/// A row of a table whose last column is headed "Test".
struct Row {
  Strings vsCells;
  int LineNumber;
};

Strings CellsOf(const std::string& Line) {
  return Tokenizer()(Line, "|", true);
}

/// All such rows of the page, without the headers of the tables.
std::vector<Row> ReadRows() {
  std::ifstream File(BuildPaths::SourceFolder + std::string("/docs/behaviour.md"));
  std::vector<Row> vRows;
  bool IsInTable = false;
  int LineNumber = 0;
  for (std::string Line; std::getline(File, Line);) {
    ++LineNumber;
    const Strings vsCells = CellsOf(Line);
    if (Line.rfind('|', 0) != 0) {
      IsInTable = false;
    } else if (vsCells.back() == "Test") {
      IsInTable = true;
    } else if (IsInTable && vsCells.back() != "---") {
      vRows.push_back({vsCells, LineNumber});
    }
  }
  return vRows;
}

/// The names in a cell: "`Suite.Name`, `Suite.Other`".
Strings NamesIn(const std::string& Cell) {
  Strings vsNames;
  for (const std::string& sName : Tokenizer()(Cell, ",", true)) {
    const bool IsQuoted = sName.size() > 2 && sName.front() == '`' && sName.back() == '`';
    EXPECT_TRUE(IsQuoted) << sName << " is not between backquotes";
    vsNames.push_back(IsQuoted ? sName.substr(1, sName.size() - 2) : sName);
  }
  return vsNames;
}

/// The names of all tests of this program, including those not selected for this run.
std::set<std::string> TestsOfThisProgram() {
  std::set<std::string> ssNames;
  const testing::UnitTest& Program = *testing::UnitTest::GetInstance();
  for (int Suite = 0; Suite < Program.total_test_suite_count(); ++Suite) {
    const testing::TestSuite& Tests = *Program.GetTestSuite(Suite);
    for (int Test = 0; Test < Tests.total_test_count(); ++Test) {
      ssNames.insert(Tests.name() + std::string(".") + Tests.GetTestInfo(Test)->name());
    }
  }
  return ssNames;
}

/// Adds the name of a test that begins on a line, such as "TEST(Suite, Name) {".
void AddTestOf(const std::string& Line, std::set<std::string>& ssNamesReturn) {
  const std::size_t Open = Line.find('(');
  const std::size_t Comma = Line.find(", ");
  const std::size_t End = Line.find(')');
  const std::string Word = Line.substr(0, Open);
  if ((Word == "TEST" || Word == "TEST_F") && Comma < End && End != std::string::npos) {
    ssNamesReturn.insert(Line.substr(Open + 1, Comma - Open - 1) + '.' +
                         Line.substr(Comma + 2, End - Comma - 2));
  }
}

/// The names of all tests in the folders below that of this program's own tests.
std::set<std::string> TestsOfOtherPrograms() {
  const std::filesystem::path Tests = std::filesystem::path(BuildPaths::SourceFolder) / "tests";
  std::set<std::string> ssNames;
  for (const auto& Entry : std::filesystem::recursive_directory_iterator(Tests)) {
    if (Entry.path().extension() == ".cpp" && Entry.path().parent_path() != Tests) {
      std::ifstream File(Entry.path());
      for (std::string Line; std::getline(File, Line);) {
        AddTestOf(Line, ssNames);
      }
    }
  }
  return ssNames;
}

}  // namespace

TEST(BehaviourDocument, NamesExistingTestsInEveryRow) {
  const std::vector<Row> vRows = ReadRows();
  ASSERT_GT(vRows.size(), 0U);
  std::set<std::string> ssTests = TestsOfThisProgram();
  ssTests.merge(TestsOfOtherPrograms());
  for (const Row& Entry : vRows) {
    SCOPED_TRACE("docs/behaviour.md:" + std::to_string(Entry.LineNumber));
    EXPECT_EQ(Entry.vsCells.size(), 3U) << "what happens, why it matters, the test";
    const Strings vsNames = NamesIn(Entry.vsCells.back());
    EXPECT_FALSE(vsNames.empty());
    for (const std::string& sName : vsNames) {
      EXPECT_EQ(ssTests.count(sName), 1U) << sName << " is not a test";
    }
  }
}
