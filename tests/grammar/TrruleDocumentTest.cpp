// docs/trrule.md keeps what it says: its examples are run, and it has all codes.

#include "ConsolePage.h"
#include "Finding.h"
#include "GrammarPaths.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <string>
#include <vector>

namespace {

TEST(TrruleDocument, ShowsTheOutputOfTheCommands) {
  ExpectConsolesHold("docs/trrule.md");
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
  for (const Console& Current : ReadConsoles("docs/trrule.md")) {
    Shown += Current.Shown;
  }
  std::set<std::string> ssAll;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    ssAll.insert(std::string(Info.Code));
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
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    Expected.append("| ").append(Info.Code).append(" | ").append(NameOf(Info.Level));
    Expected.append(" | ").append(Info.Title).append(" |\n");
  }
  EXPECT_EQ(Listed, Expected);
}

}  // namespace
