#include "EntryReader.h"
#include "FindingCodes.h"
#include "ProgramRun.h"
#include "TestFolder.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace Page;
using Strings = std::vector<std::string>;

std::vector<RuleEntry> Read(const Strings& vsFiles, unsigned Threads) {
  Grammar::RunOptions Run;
  Run.vsFiles = vsFiles;
  Run.Quiet = true;
  Run.Threads = Threads;
  std::vector<RuleEntry> vEntries;
  EXPECT_TRUE(ReadEntries(Run, vEntries));
  return vEntries;
}

std::string TextOf(const Grammar::Finding& Found) {
  return Found.File + ':' + std::to_string(Found.Line) + ' ' + Found.Code + ' ' + Found.Message +
         ' ' + Found.Suggestion;
}

/// What `trrule check` shows, but for what it says of files.
Strings ShownByCheck(const Strings& vsFiles) {
  Strings vsArguments{"check", "--format", "json", "--except", "TR016"};
  vsArguments.insert(vsArguments.end(), vsFiles.begin(), vsFiles.end());
  Strings vsShown;
  for (const auto& Current : nlohmann::json::parse(RunTrrule(vsArguments).Out)) {
    Grammar::Finding Found;
    Found.File = Current["file"];
    Found.Line = Current["line"];
    Found.Code = Current["code"];
    Found.Message = Current["message"];
    Found.Suggestion = Current.value("suggestion", "");
    vsShown.push_back(TextOf(Found));
  }
  std::sort(vsShown.begin(), vsShown.end());
  return vsShown;
}

TEST(EntryReader, FindsWhatTheCheckFinds) {
  const TestFolder Folder;
  std::string All;
  Strings vsFiles;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    // A file that is not a grammar has no rules.
    if (Info.Code != "TR016") {
      const std::string Wrong = WholeExample(Info, Info.Wrong) + "\n\n";
      All += Wrong;
      vsFiles.push_back(Folder.Write(std::string(Info.Code) + ".trr", Wrong));
    }
  }
  vsFiles.push_back(Folder.Write("all.trr", All));
  for (const unsigned Threads : {1U, 3U}) {
    Strings vsFound;
    for (const RuleEntry& Entry : Read(vsFiles, Threads)) {
      for (const Grammar::Finding& Found : Entry.vFindings) {
        EXPECT_EQ(Found.File, Entry.File);
        EXPECT_GE(Found.Line, Entry.FirstLine);
        EXPECT_LE(Found.Line, Entry.LastLine);
        vsFound.push_back(TextOf(Found));
      }
    }
    std::sort(vsFound.begin(), vsFound.end());
    EXPECT_EQ(vsFound, ShownByCheck(vsFiles));
  }
}

TEST(EntryReader, FindsWhatIsLackingIfThereIsALexicon) {
  const TestFolder Folder;
  const std::string Phrase = "{NP,1}\nNP::NP : [DET N] -> [DET N]\n(X1::Y1)\n(X2::Y2)\n";
  const std::string Word = "{N,1}\nN::N : [\"a\"] -> [\"b\"]\n(X1::Y1)\n";
  const std::vector<std::pair<std::string, Strings>> Cases{
      {Phrase, {}}, {Phrase + "\n" + Word, {"TR050"}}, {Word, {}}};
  for (const auto& [sGrammar, vsCodes] : Cases) {
    const std::string File = Folder.Write("lacks.trr", sGrammar);
    Strings vsFound;
    for (const RuleEntry& Entry : Read({File}, 1)) {
      for (const Grammar::Finding& Found : Entry.vFindings) {
        vsFound.push_back(Found.Code);
      }
    }
    EXPECT_EQ(vsFound, vsCodes) << sGrammar;
  }
}

TEST(EntryReader, KeepsTheOrderOfTheInput) {
  const TestFolder Folder;
  std::string Many;
  Strings vsNames;
  for (int Number = 1; Number <= 2000; ++Number) {
    vsNames.push_back("{NP," + std::to_string(Number) + "}");
    Many += vsNames.back() + "\nNP::NP : [N] -> [N]\n(X1::Y1)\n";
  }
  const std::string File = Folder.Write("many.trr", Many);
  for (const unsigned Threads : {1U, 3U}) {
    Strings vsRead;
    for (const RuleEntry& Entry : Read({File}, Threads)) {
      vsRead.push_back(Entry.Name);
    }
    EXPECT_EQ(vsRead, vsNames);
  }
}

TEST(EntryReader, TakesTheFirstPieceOfARuleThatIsTooLong) {
  const TestFolder Folder;
  const std::string File =
      Folder.Write("long.trr", "NP::NP : [N] -> [N]\n(X1::Y1)\n" + std::string(3U << 20U, 'x') +
                                   "\n{NP,2}\nNP::NP : [N] -> [N]\n(X1::Y1)\n");
  const std::vector<RuleEntry> vEntries = Read({File}, 1);
  ASSERT_EQ(vEntries.size(), 2U);
  EXPECT_EQ(vEntries[0].Picture, "");
  EXPECT_EQ(vEntries[1].Name, "{NP,2}");
}

}  // namespace
