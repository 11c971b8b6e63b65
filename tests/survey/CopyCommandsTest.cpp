// `head`, `sample` and `split` as programs: they copy rules as they are written, and lose none.

#include "HeadCommand.h"
#include "ProgramRun.h"
#include "RuleGenerator.h"
#include "SampleCommand.h"
#include "SplitCommand.h"
#include "TestFolder.h"
#include "support/RandomInput.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace {

using namespace std::string_literals;

using Strings = std::vector<std::string>;
using StringSet = std::set<std::string>;
using SplitBy = decltype(Grammar::SplitOptions::By);

const std::string First =
    "; one\n\n{NP,1}\r\nNP::NP : [ n  det] -> [N]\n(x1::y1)\n((x1 num)= sg) ;; why\n";
const std::string Second = "{VP,2}\nVP::NP [V] -> [N V]\n(X1::Y2)\n";
const std::string Bad = "{XP,1}\nXP::XP : [N -> [N]\n(X1::Y1)\n";
const std::string Stray = "{NP,3}\nNP::NP [N DET] -> [N]\n(X1::Y1) stray\n";
const std::string Last = "{S,1}\nS::S [NP] -> [NP]\n(X1::Y1)";  // without a line end
const std::string All = First + Second + Bad + Stray + Last;

std::string BadReport(const std::string& Place) {
  return Place +
         ":12: error TR001: the rule has no rule line: the \"] -> [\" of this line is "
         "misspelt\n";
}
const std::string StrayReport = "a.trr:15:10: error TR035: this text is not part of a rule\n";
const std::string Reports = BadReport("a.trr:11") + StrayReport;

/// A folder with "a.trr", which has the rules above.
class CopyFolder {
 public:
  CopyFolder() { Folder.Write("a.trr", All); }

  ChildEnd Run(const Strings& vsArguments) const { return RunTrrule(vsArguments, Folder.Path("")); }

  /// The names of the files in a folder, and what they hold.
  std::map<std::string, std::string> FilesIn(const std::string& Name) const {
    std::map<std::string, std::string> Files;
    for (const auto& Entry : std::filesystem::directory_iterator(Folder.Path(Name))) {
      const std::string File = Entry.path().filename().string();
      Files[File] = Folder.Read((std::filesystem::path(Name) / File).string());
    }
    return Files;
  }

  /// What one of the commands writes of a file, without another process.
  template <typename RunT>
  std::string Output(const std::string& Name, RunT Run) const {
    Grammar::RunOptions Options;
    Options.vsFiles = {Folder.Path(Name)};
    Options.Output = Folder.Path("output");
    Options.Threads = 1;
    WrittenBy([&] { Run(Options); });
    return Folder.Read("output");
  }

  std::string Head(const std::string& Name, std::uint64_t Count) const {
    return Output(Name, [&](const Grammar::RunOptions& Run) { Grammar::RunHead(Run, Count); });
  }

  std::string Sample(const std::string& Name, const Grammar::SampleOptions& Options) const {
    return Output(Name, [&](const Grammar::RunOptions& Run) { Grammar::RunSample(Run, Options); });
  }

  void Split(const std::string& Name, const SplitBy& By) const {
    Grammar::RunOptions Run;
    Run.vsFiles = {Folder.Path(Name)};
    Run.Output = Folder.Path("out");
    Run.Threads = 1;
    Grammar::SplitOptions Options;
    Options.By = By;
    WrittenBy([&] { Grammar::RunSplit(Run, Options); });
  }

  TestFolder Folder;
};

// ---- head -------------------------------------------------------------------------------------

TEST(HeadCommand, CopiesTheFirstRulesAsTheyAreWritten) {
  const CopyFolder Files;
  const std::vector<std::pair<Strings, ChildEnd>> Cases{
      {{"-n", "0", "a.trr"}, {0, "", ""}},
      {{"-n", "1", "a.trr"}, {0, First, ""}},
      {{"-n", "2", "a.trr"}, {0, First + Second, ""}},
      {{"-n", "3", "a.trr"}, {1, First + Second + Bad, BadReport("a.trr:11")}},
      {{"-n", "4", "a.trr"}, {1, First + Second + Bad + Stray, Reports}},
      {{"-n", "5", "a.trr"}, {1, All + "\n", Reports}},
      {{"a.trr"}, {1, All + "\n", Reports}},
      {{"-n", "18446744073709551615", "a.trr"}, {1, All + "\n", Reports}},
      {{}, {0, "", ""}},
  };
  for (const auto& [vsArguments, Expected] : Cases) {
    Strings vsAll{"head"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    EXPECT_EQ(Files.Run(vsAll), Expected);
  }
}

TEST(HeadCommand, ReadsFilesAsOneGrammarAndPassesOverTextsWithoutARule) {
  const CopyFolder Files;
  Files.Folder.Write("comments", "; nothing else");
  Files.Folder.Write("last", Last);
  EXPECT_EQ(Files.Run({"head", "comments", "last", "comments", "a.trr", "-n", "2"}),
            (ChildEnd{0, Last + "\n" + First, ""}));
}

TEST(HeadCommand, ReadsNoFileAfterTheLastRule) {
  const CopyFolder Files;
  EXPECT_EQ(Files.Run({"head", "-n", "1", "a.trr", "none"}), (ChildEnd{0, First, ""}));
  EXPECT_EQ(
      Files.Run({"head", "-n", "5", "a.trr", "none"}),
      (ChildEnd{2, All + "\n", Reports + "trrule: cannot read none: No such file or directory\n"}));
}

TEST(HeadCommand, ReplacesAnInputOnlyWhenForcedTo) {
  const CopyFolder Files;
  EXPECT_EQ(Files.Run({"head", "-n", "1", "-o", "a.trr", "a.trr"}),
            (ChildEnd{2, "",
                      "trrule: did not replace a.trr: it is an input, and what was left out would "
                      "be lost (--force drops it)\n"}));
  EXPECT_EQ(Files.Folder.Read("a.trr"), All);
  EXPECT_EQ(Files.Run({"head", "-n", "1", "-o", "a.trr", "--force", "a.trr"}),
            (ChildEnd{0, "", ""}));
  EXPECT_EQ(Files.Folder.Read("a.trr"), First);
  EXPECT_EQ(Files.Run({"head", "-n", "1", "-o", "a.trr", "a.trr"}), (ChildEnd{0, "", ""}));
}

// ---- sample -----------------------------------------------------------------------------------

/// Numbered rules, each with some comment.
Strings NumberedRules(std::size_t Count) {
  Strings vsRules;
  for (std::size_t Number = 0; Number < Count; ++Number) {
    const std::string Type = Number % 4 == 0 ? "VP" : "NP";
    vsRules.push_back("; " + std::to_string(Number) + "\n{NP,7}\n" + Type + "::" + Type +
                      " [N] -> [N]\n(X1::Y1)\n");
  }
  return vsRules;
}

std::string Joined(const Strings& vsTexts) {
  std::string Text;
  for (const std::string& sText : vsTexts) {
    Text += sText;
  }
  return Text;
}

/// The numbers of the rules in a text, in its order.
std::vector<std::size_t> NumbersIn(const std::string& Text, const Strings& vsRules) {
  std::vector<std::size_t> vNumbers;
  for (std::size_t At = 0; At < Text.size(); At += vsRules[vNumbers.back()].size()) {
    const std::size_t Number = std::stoul(Text.substr(At + 2));
    EXPECT_EQ(Text.substr(At, vsRules[Number].size()), vsRules[Number]);
    vNumbers.push_back(Number);
  }
  EXPECT_TRUE(std::is_sorted(vNumbers.begin(), vNumbers.end()));
  return vNumbers;
}

TEST(SampleCommand, DrawsTheSameRulesForASeedOnEveryMachine) {
  const CopyFolder Files;
  const Strings vsRules = NumberedRules(1000);
  Files.Folder.Write("many", Joined(vsRules));
  using Numbers = std::vector<std::size_t>;
  const std::vector<std::pair<Strings, Numbers>> Cases{
      {{"-n", "5"}, {65, 342, 758, 860, 890}},
      {{"-n", "5", "--seed", "0"}, {65, 342, 758, 860, 890}},
      {{"-n", "5", "--seed", "1"}, {61, 624, 632, 778, 790}},
      {{"-n", "5", "--seed", "18446744073709551615"}, {602, 658, 682, 959, 963}},
  };
  for (const auto& [vsOptions, vExpected] : Cases) {
    for (const char* Threads : {"1", "2", "5"}) {
      Strings vsArguments{"sample", "many", "--threads", Threads};
      vsArguments.insert(vsArguments.end(), vsOptions.begin(), vsOptions.end());
      const ChildEnd End = Files.Run(vsArguments);
      EXPECT_EQ(NumbersIn(End.Out, vsRules), vExpected);
      EXPECT_EQ(End, (ChildEnd{0, End.Out, ""}));
    }
  }
}

TEST(SampleCommand, DrawsEachRuleEquallyOften) {
  const CopyFolder Files;
  const Strings vsRules = NumberedRules(20);
  Files.Folder.Write("many", Joined(vsRules));
  std::vector<int> vCounts(vsRules.size());
  for (std::uint64_t Seed = 0; Seed < 200; ++Seed) {
    for (const std::size_t Number :
         NumbersIn(Files.Sample("many", {5, Seed, std::nullopt}), vsRules)) {
      ++vCounts[Number];
    }
  }
  // 50 are expected; with a deviation of 6, none is that far away.
  EXPECT_GT(*std::min_element(vCounts.begin(), vCounts.end()), 25);
  EXPECT_LT(*std::max_element(vCounts.begin(), vCounts.end()), 75);
}

TEST(SampleCommand, ContainsSmallerSamplesWithTheSameSeed) {
  const CopyFolder Files;
  const Strings vsRules = NumberedRules(100);
  Files.Folder.Write("many", Joined(vsRules));
  std::set<std::size_t> ssBefore;
  for (const std::size_t Count : {0U, 1U, 2U, 10U, 99U, 100U, 101U}) {
    const std::vector<std::size_t> vDrawn =
        NumbersIn(Files.Sample("many", {Count, 4, std::nullopt}), vsRules);
    const std::set<std::size_t> ssDrawn(vDrawn.begin(), vDrawn.end());
    EXPECT_EQ(ssDrawn.size(), std::min<std::size_t>(Count, 100));
    EXPECT_TRUE(std::includes(ssDrawn.begin(), ssDrawn.end(), ssBefore.begin(), ssBefore.end()));
    ssBefore = ssDrawn;
  }
}

TEST(SampleCommand, CopiesAllRulesWhereThereAreFewAndReportsBadOnes) {
  const CopyFolder Files;
  Files.Folder.Write("comments", "; nothing else");
  EXPECT_EQ(Files.Run({"sample", "a.trr", "comments"}), (ChildEnd{1, All + "\n", Reports}));
  EXPECT_EQ(Files.Run({"sample"}), (ChildEnd{0, "", ""}));
}

TEST(SampleCommand, DrawsFromEachGroupApart) {
  const CopyFolder Files;
  EXPECT_EQ(Files.Run({"sample", "--by", "type", "-n", "1", "a.trr"}),
            (ChildEnd{1, First + Second + Bad + Last + "\n", Reports}));
  const Strings vsRules = NumberedRules(100);
  Files.Folder.Write("many", Joined(vsRules));
  const std::vector<std::size_t> vDrawn =
      NumbersIn(Files.Run({"sample", "--by", "type", "-n", "7", "many"}).Out, vsRules);
  EXPECT_EQ(vDrawn.size(), 14U);
  EXPECT_EQ(std::count_if(vDrawn.begin(), vDrawn.end(),
                          [](std::size_t Number) { return Number % 4 == 0; }),
            7);
}

TEST(SampleCommand, ReplacesAnInputOnlyWithAllOfItsRules) {
  const CopyFolder Files;
  EXPECT_EQ(
      Files.Run({"sample", "-n", "4", "-o", "a.trr", "a.trr"}),
      (ChildEnd{2, "",
                Reports + "trrule: did not replace a.trr: it is an input, and what was left out "
                          "would be lost (--force drops it)\n"}));
  EXPECT_EQ(Files.Run({"sample", "-n", "5", "-o", "a.trr", "a.trr"}), (ChildEnd{1, "", Reports}));
  EXPECT_EQ(Files.Folder.Read("a.trr"), All + "\n");
}

// ---- split ------------------------------------------------------------------------------------

TEST(SplitCommand, WritesAFileForEachGroup) {
  const CopyFolder Files;
  Files.Folder.Write("comments", "; nothing else");
  const std::vector<std::pair<Strings, std::map<std::string, std::string>>> Cases{
      {{},
       {{"NP-NP.trr", First + Stray},
        {"VP-NP.trr", Second},
        {"other.trr", Bad + "; nothing else\n"},
        {"S-S.trr", Last + "\n"}}},
      {{"--by", "source"},
       {{"N-DET.trr", First + Stray},
        {"V.trr", Second},
        {"other.trr", Bad + "; nothing else\n"},
        {"NP.trr", Last + "\n"}}},
      {{"--by", "target"},
       {{"N.trr", First + Stray},
        {"N-V.trr", Second},
        {"other.trr", Bad + "; nothing else\n"},
        {"NP.trr", Last + "\n"}}},
      {{"--by", "sequence"},
       {{"N-DET-N.trr", First + Stray},
        {"V-N-V.trr", Second},
        {"other.trr", Bad + "; nothing else\n"},
        {"NP-NP.trr", Last + "\n"}}},
      {{"--by", "size"},
       {{"2-1.trr", First + Stray},
        {"1-2.trr", Second},
        {"other.trr", Bad + "; nothing else\n"},
        {"1-1.trr", Last + "\n"}}},
      {{"--by", "count"},
       {{"1.trr", First + Second + Stray + Last + "\n"}, {"other.trr", Bad + "; nothing else\n"}}},
      {{"--by", "shape"},
       {{"monotone-1-1-unaligned.trr", First + Second + Stray},
        {"other.trr", Bad + "; nothing else\n"},
        {"monotone-1-1.trr", Last + "\n"}}},
      {{"-n", "2"},
       {{"part-0001.trr", First + Second},
        {"part-0002.trr", Bad + Stray},
        {"part-0003.trr", Last + "\n; nothing else\n"}}},
      {{"-n", "9"}, {{"part-0001.trr", All + "\n; nothing else\n"}}},
      {{"--parts", "2"},
       {{"part-0001.trr", First + Bad + Last + "\n; nothing else\n"},
        {"part-0002.trr", Second + Stray}}},
  };
  for (const auto& [vsOptions, Expected] : Cases) {
    for (const char* Memory : {"1", "1G"}) {
      Strings vsArguments{"split", "-o", "out/deep", "a.trr", "comments", "--memory", Memory};
      vsArguments.insert(vsArguments.end(), vsOptions.begin(), vsOptions.end());
      EXPECT_EQ(Files.Run(vsArguments), (ChildEnd{1, "", Reports}));
      EXPECT_EQ(Files.FilesIn("out/deep"), Expected);
      std::filesystem::remove_all(Files.Folder.Path("out"));
    }
  }
}

TEST(SplitCommand, GivesFilesSafeNames) {
  const CopyFolder Files;
  const auto Rule = [](const std::string& Types) { return Types + " [N] -> [N]\n(X1::Y1)\n"; };
  const std::string Long(300, 'A');
  const Strings vsRules{Rule("../x::/etc/y"),     Rule("n.p::NP"),  Rule("N-P::np"),
                        Rule("other::O"),         Rule("Ñ::é"),     Rule("-::-"),
                        Rule(Long + "::" + Long), Rule("OTHER::-"), Bad};
  Files.Folder.Write("names", Joined(vsRules));
  Files.Run({"split", "-o", "out", "names"});
  EXPECT_EQ(Files.FilesIn("out"), (std::map<std::string, std::string>{
                                      {"X-ETC-Y.trr", vsRules[0]},
                                      {"N-P-NP.trr", vsRules[1]},
                                      {"N-P-NP-2.trr", vsRules[2]},
                                      {"OTHER-O.trr", vsRules[3]},
                                      {"group-2.trr", vsRules[4]},
                                      {"group-3.trr", vsRules[5]},
                                      {std::string(99, 'A') + ".trr", vsRules[6]},
                                      {"OTHER.trr", vsRules[7]},
                                      {"other-2.trr", vsRules[8]},
                                  }));
}

TEST(SplitCommand, ReplacesFilesOnlyWhenForcedTo) {
  const CopyFolder Files;
  std::filesystem::create_directory(Files.Folder.Path("out"));
  Files.Folder.Write("out/S-S.trr", "mine");
  EXPECT_EQ(Files.Run({"split", "-o", "out/", "a.trr"}),
            (ChildEnd{2, "",
                      Reports + "trrule: did not replace out/S-S.trr: it is there already (--force "
                                "replaces it)\n"}));
  EXPECT_EQ(Files.FilesIn("out"), (std::map<std::string, std::string>{{"S-S.trr", "mine"}}));
  EXPECT_EQ(Files.Run({"split", "-o", "out/", "--force", "a.trr"}), (ChildEnd{1, "", Reports}));
  EXPECT_EQ(Files.FilesIn("out")["S-S.trr"], Last + "\n");
}

TEST(SplitCommand, WritesNothingWhereAFileCannotBeReadUnlessForcedTo) {
  const CopyFolder Files;
  Files.Folder.Write("b.trr", Second);
  const std::string Unread = "trrule: cannot read none: No such file or directory\n";
  EXPECT_EQ(Files.Run({"split", "-o", "out", "b.trr", "none"}),
            (ChildEnd{2, "",
                      Unread + "trrule: did not write into out: not all inputs could be read "
                               "(--force writes it all the same)\n"}));
  EXPECT_EQ(Files.Folder.Names(), (StringSet{"a.trr", "b.trr"}));
  EXPECT_EQ(Files.Run({"split", "-o", "out", "--force", "b.trr", "none"}),
            (ChildEnd{2, "", Unread}));
  EXPECT_EQ(Files.FilesIn("out"), (std::map<std::string, std::string>{{"VP-NP.trr", Second}}));
}

TEST(SplitCommand, ReportsWhatItCannotDo) {
  const CopyFolder Files;
  const std::vector<std::pair<Strings, std::string>> Cases{
      {{"a.trr"}, "--output is required"},
      {{"-o", "x", "-n", "0"}, "-n: invalid number 0; use a number from 1 on"},
      {{"-o", "x", "--parts", "0"}, "--parts: invalid number 0; use a number from 1 on"},
      {{"-o", "x", "--by", "type", "-n", "1"}, "--by excludes -n"},
      {{"-o", "x", "--by", "colour"},
       "--by: colour not in {type,sequence,source,target,shape,size,count}"},
      {{"-o", "a.trr/x", "-n", "9", "/dev/null"},
       "cannot make the folder a.trr/x: Not a directory"},
  };
  for (const auto& [vsArguments, sMessage] : Cases) {
    Strings vsAll{"split"};
    vsAll.insert(vsAll.end(), vsArguments.begin(), vsArguments.end());
    EXPECT_EQ(Files.Run(vsAll), (ChildEnd{2, "", "trrule: " + sMessage + "\n"}));
  }
  EXPECT_EQ(Files.Folder.Names(), StringSet{"a.trr"});
}

TEST(SplitCommand, MayReplaceItsInputs) {
  const CopyFolder Files;
  Files.Folder.Write("NP-NP.trr", First + Stray + First);
  EXPECT_EQ(Files.Run({"split", "-o", ".", "--force", "NP-NP.trr"}).Status, 1);
  EXPECT_EQ(Files.Folder.Read("NP-NP.trr"), First + Stray + First);
}

// ---- all of them ------------------------------------------------------------------------------

/// Rules as a program writes them, and others with damaged bytes.
std::string RandomText(RandomInput& Random, std::size_t Seed) {
  std::string Text;
  for (const std::string& sRule : GeneratedRules(Seed, 12)) {
    Text += Random.Below(3) == 0 ? Random.Damaged(sRule, "\n\r\0 ();:{}[]>-\xFFé"s) : sRule;
  }
  return Text;
}

/// The bytes of a text in order, which say whether another has the same lines.
std::string SortedLines(const std::string& Text) {
  Strings vsLines;
  for (std::size_t At = 0; At < Text.size();) {
    const std::size_t End = std::min(Text.find('\n', At), Text.size());
    vsLines.push_back(Text.substr(At, End - At) + "\n");
    At = End + 1;
  }
  std::sort(vsLines.begin(), vsLines.end());
  return Joined(vsLines);
}

TEST(CopyCommands, LoseNoLineOfAnyText) {
  const CopyFolder Files;
  RandomInput Random;
  for (std::size_t Case = 0; Case < 15; ++Case) {
    const std::string Text = RandomText(Random, Case);
    const std::string Whole = Text + (Text.back() == '\n' ? "" : "\n");
    Files.Folder.Write("random", Text);
    EXPECT_EQ(Files.Head("random", 99), Whole);
    EXPECT_EQ(Files.Sample("random", {99, 0, Query::GroupBy::Size}), Whole);
    for (const SplitBy& By :
         {SplitBy(Query::GroupBy::Type), SplitBy(Query::GroupBy::Shape),
          SplitBy(Grammar::RulesPerFile{3}), SplitBy(Grammar::FilesInTurn{3})}) {
      Files.Split("random", By);
      std::string Parts;
      for (const auto& [Name, Part] : Files.FilesIn("out")) {
        Parts += Part;
      }
      EXPECT_EQ(SortedLines(Parts), SortedLines(Text));
      std::filesystem::remove_all(Files.Folder.Path("out"));
    }
  }
}

TEST(CopyCommands, CopyEveryPrefixOfAText) {
  const CopyFolder Files;
  for (std::size_t Size = 1; Size < All.size(); ++Size) {
    const std::string Text = All.substr(0, Size);
    const std::string Whole = Text + (Text.back() == '\n' ? "" : "\n");
    Files.Folder.Write("prefix", Text);
    const bool HasRule = Size > First.find("{");
    EXPECT_EQ(Files.Head("prefix", 9), HasRule ? Whole : "");
    EXPECT_EQ(Files.Sample("prefix", {}), HasRule ? Whole : "");
  }
}

TEST(CopyCommands, CopyRulesThatComeInPieces) {
  const CopyFolder Files;
  std::string Long = "{NP,9}\nNP::NP [N] -> [N]\n(X1::Y1)\n";
  for (int Line = 0; Line < 100000; ++Line) {
    Long += "((x1 f" + std::to_string(Line) + ") = some value that takes some bytes)\n";
  }
  Long += "((x1 end) = " + std::string(1U << 21U, 'x') + ")";
  Files.Folder.Write("long", Second + Long);
  Files.Folder.Write("next", First);
  const std::string Everything = Second + Long + "\n" + First;
  EXPECT_TRUE(Files.Run({"head", "long", "next"}).Out == Everything);
  EXPECT_TRUE(Files.Run({"head", "-n", "2", "long", "next"}).Out == Second + Long + "\n");
  EXPECT_TRUE(Files.Run({"head", "-n", "1", "long", "next"}).Out == Second);
  EXPECT_TRUE(Files.Run({"sample", "long", "next"}).Out == Everything);
  Files.Run({"split", "-o", "out", "-n", "2", "long", "next"});
  EXPECT_TRUE(Files.Folder.Read("out/part-0001.trr") == Second + Long + "\n");
  EXPECT_TRUE(Files.Folder.Read("out/part-0002.trr") == First);
}

}  // namespace
