// What `sort` and `unique` make of small grammars, whole, and that memory makes no difference.

#include "RuleGenerator.h"
#include "RunError.h"
#include "SortCommand.h"
#include "TestFolder.h"
#include "UniqueCommand.h"
#include "support/ChildProcess.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

namespace {

using namespace std::string_literals;

using Grammar::RunOptions;
using Grammar::SortBy;
using Grammar::SortOptions;
using Grammar::UniqueOptions;

/// Runs a command on texts, each in a file of its own.
template <typename RunT>
ChildEnd ResultOf(const std::vector<std::string>& vsTexts, bool KeepBad, RunT Run) {
  const TestFolder Folder;
  RunOptions Options;
  Options.Output = Folder.Path("out");
  Options.KeepBad = KeepBad;
  for (const std::string& sText : vsTexts) {
    Options.vsFiles.push_back(Folder.Write(std::to_string(Options.vsFiles.size()) + ".trr", sText));
  }
  StreamCapture Streams;
  const int Status = Run(Options);
  EXPECT_EQ(Streams.TakeOut(), "");
  std::string Err = Streams.TakeErr();
  for (std::size_t At = Err.find(Folder.Path("")); At != std::string::npos;
       At = Err.find(Folder.Path(""))) {
    Err.erase(At, Folder.Path("").size());
  }
  return {Status, Folder.Read("out"), Err};
}

ChildEnd Sorted(const std::vector<std::string>& vsTexts, const SortOptions& Options = {},
                bool KeepBad = false) {
  return ResultOf(vsTexts, KeepBad,
                  [&](const RunOptions& Run) { return Grammar::RunSort(Run, Options); });
}

ChildEnd Unique(const std::vector<std::string>& vsTexts, const UniqueOptions& Options = {},
                bool KeepBad = false) {
  return ResultOf(vsTexts, KeepBad,
                  [&](const RunOptions& Run) { return Grammar::RunUnique(Run, Options); });
}

SortOptions By(SortBy Key, bool Reverse = false) {
  SortOptions Options;
  Options.By = Key;
  Options.Reverse = Reverse;
  return Options;
}

/// A rule as it is printed; `Labels` are those of the source side.
std::string Rule(const std::string& Header, const std::string& Types, const std::string& Labels,
                 const std::string& Comments = "") {
  return Comments + Header + Types + " [" + Labels + "] -> [N]\n(\n(X1::Y1)\n)\n";
}

const std::string Ten = Rule("{NP,10}\n", "NP::NP", "DET N", ";;Score:2\n");
const std::string Nine = Rule("{VP,9}\n", "VP::NP", "N", "; nine\n;;Score:1\n");
const std::string Minus = Rule("{NP,-5}\n", "NP::NP", "ADJ N DET", ";;Score:3\n");
const std::string None = Rule("", "AP::NP", "ADJ N", ";;Score:11\n");
const std::string Bad = "{XP,1}\nXP::XP : [N -> [N]\n(X1::Y1)\n";

TEST(SortCommand, OrdersByTheComparisonText) {
  EXPECT_EQ(Sorted({Ten + Nine, Minus + None}), (ChildEnd{0, None + Minus + Ten + Nine, ""}));
  EXPECT_EQ(Sorted({Ten + Nine, Minus + None}, By(SortBy::Form, true)),
            (ChildEnd{0, Nine + Ten + Minus + None, ""}));
}

TEST(SortCommand, OrdersByNumberTypeCountAndLength) {
  const std::string All = Ten + Nine + Minus + None;
  const struct {
    SortBy Key;
    std::string Up;
    std::string Down;
  } Cases[] = {
      {SortBy::Index, None + Minus + Nine + Ten, Ten + Nine + Minus + None},
      {SortBy::Type, None + Ten + Minus + Nine, Nine + Ten + Minus + None},
      {SortBy::Count, Nine + Ten + Minus + None, None + Minus + Ten + Nine},
      {SortBy::Length, Nine + Ten + None + Minus, Minus + Ten + None + Nine},
  };
  for (const auto& Row : Cases) {
    EXPECT_EQ(Sorted({All}, By(Row.Key)), (ChildEnd{0, Row.Up, ""}));
    EXPECT_EQ(Sorted({All}, By(Row.Key, true)), (ChildEnd{0, Row.Down, ""}));
  }
}

TEST(SortCommand, WritesTheNormalForm) {
  EXPECT_EQ(Sorted({"\n; why\r\n{NP,007}\r\nNP::NP : [n] -> [n]\r\n(\r\n(x1::y1)\r\n((x1 num) == "
                    "sg)\r\n(x0 = x1))"}),
            (ChildEnd{0,
                      "; why\n{NP,7}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n((X1 NUM) = SG)\n(X0 = "
                      "X1)\n)\n",
                      ""}));
  EXPECT_EQ(Sorted({""}), (ChildEnd{0, "", ""}));
}

TEST(SortCommand, PutsOtherTextAfterAllRules) {
  const std::string Report =
      "0.trr:8:12: error TR001: the rule has no rule line: the \"] -> [\" of this line is "
      "misspelt\n";
  EXPECT_EQ(Sorted({Ten + Bad, "; no rule", Nine}),
            (ChildEnd{1, Ten + Nine + "; no rule\n", Report + "1 of 3 rules was left out\n"}));
  EXPECT_EQ(Sorted({Ten + Bad, "; no rule", Nine}, {}, true),
            (ChildEnd{1, Ten + Nine + Bad + "; no rule\n", Report}));
}

TEST(SortCommand, FailsWithoutOutputWhenAFileCannotBeRead) {
  const TestFolder Folder;
  RunOptions Run;
  Run.Output = Folder.Path("out");
  Run.vsFiles = {Folder.Write("a", Ten), Folder.Path("none")};
  const std::string Report =
      "trrule: cannot read " + Folder.Path("none") + ": No such file or directory\n";
  EXPECT_EQ(WrittenBy([&] { EXPECT_THROW(Grammar::RunSort(Run, {}), Grammar::RunError); }),
            (Written{"", Report}));
  EXPECT_EQ(WrittenBy([&] { EXPECT_THROW(Grammar::RunUnique(Run, {}), Grammar::RunError); }),
            (Written{"", Report}));
  EXPECT_EQ(Folder.Names(), std::set<std::string>{"a"});
}

const std::string First =
    "; first\n;; SL: the car\n;; TL: el auto\n{NP,1}\nNP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n"
    "((X1 NUM) = SG)\n((X2 NUM) = PL)\n)\n";
/// The same in another order, with another header and example, and counted three times.
const std::string Second =
    "; second\n;; SL: the house\n;; TL: la casa\n;;Score:3\n{XP,2}\nNP::NP [DET N] -> [DET N]\n(\n"
    "((x2 num) = pl)\n(X1::Y1)\n((x1 num) = sg)\n)\n";
const std::string Body =
    "{NP,1}\nNP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n((X1 NUM) = SG)\n((X2 NUM) = PL)\n)\n";
const std::string Both =
    "; first\n;; SL: the car\n;; TL: el auto\n; second\n;; SL: the house\n;; TL: la casa\n"
    ";;Score:4\n" +
    Body;

TEST(UniqueCommand, AddsCountsCommentsAndExamples) {
  EXPECT_EQ(Unique({First, Second}), (ChildEnd{0, Both, ""}));
  EXPECT_EQ(Unique({Both, Both}).Out,
            "; first\n;; SL: the car\n;; TL: el auto\n; second\n;; SL: the house\n;; TL: la casa\n"
            ";;Score:8\n" +
                Body);
  EXPECT_EQ(Unique({First}), (ChildEnd{0, First, ""}));
  EXPECT_EQ(Unique({""}), (ChildEnd{0, "", ""}));
}

TEST(UniqueCommand, KeepsTheOrderOfFirstAppearanceUnlessSorted) {
  UniqueOptions Options;
  EXPECT_EQ(Unique({Nine + First + Ten, Second + Nine}).Out,
            "; nine\n;;Score:2\n" + Rule("{VP,9}\n", "VP::NP", "N") + Both + Ten);
  Options.Sorted = true;
  EXPECT_EQ(Unique({Nine + First + Ten, Second}, Options).Out, Both + Ten + Nine);
}

TEST(UniqueCommand, KeepsOnlyRepeatedRulesOrSomeExamplesOnRequest) {
  UniqueOptions Options;
  Options.Repeated = true;
  EXPECT_EQ(Unique({Nine + First, Second + Ten}, Options).Out, Both);
  Options.Examples = 1;
  EXPECT_EQ(Unique({First, Second}, Options).Out,
            "; first\n;; SL: the car\n;; TL: el auto\n; second\n;;Score:4\n" + Body);
}

TEST(UniqueCommand, LimitsTheExamplesOfARuleThatIsAlone) {
  const std::string Lone = "{NP,1}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
  const std::string Example = ";;SL: a\n;;TL: b\n";
  const std::vector<std::string> vsKept{"", Example, Example + ";;SL: c\n;;TL: d\n"};
  for (std::size_t Count = 0; Count < vsKept.size(); ++Count) {
    UniqueOptions Options;
    Options.Examples = Count;
    EXPECT_EQ(Unique({vsKept.back() + Lone}, Options), (ChildEnd{0, vsKept[Count] + Lone, ""}));
  }
}

TEST(UniqueCommand, CountsRulesOnOneLineEach) {
  UniqueOptions Options;
  Options.Count = true;
  EXPECT_EQ(Unique({First + Nine + Second}, Options).Out,
            "2\t; first\t;; SL: the car\t;; TL: el auto\t; second\t;; SL: the house\t;; TL: la "
            "casa\t;;Score:4\t{NP,1}\tNP::NP [DET N] -> [DET N]\t(\t(X1::Y1)\t((X1 NUM) = "
            "SG)\t((X2 NUM) = PL)\t)\n"
            "1\t; nine\t;;Score:1\t{VP,9}\tVP::NP [N] -> [N]\t(\t(X1::Y1)\t)\n");
}

TEST(UniqueCommand, LimitsTheCount) {
  const std::string Most = Rule("{NP,1}\n", "NP::NP", "N", ";;Score:2147483647\n");
  EXPECT_EQ(Unique({Most + Most}), (ChildEnd{0, Most, ""}));
}

TEST(UniqueCommand, KeepsOtherTextInItsPlace) {
  const ChildEnd Kept = Unique({Ten + Bad, "; no rule", Nine, Ten}, {}, true);
  EXPECT_EQ(Kept.Status, 1);
  EXPECT_EQ(Kept.Out,
            ";;Score:4\n" + Rule("{NP,10}\n", "NP::NP", "DET N") + Bad + "; no rule\n" + Nine);
  UniqueOptions Options;
  Options.Sorted = true;
  EXPECT_EQ(Unique({Bad, "; no rule", Nine, Ten}, Options, true).Out,
            Ten + Nine + Bad + "; no rule\n");
}

/// Generated rules, each of them once, and some of them again.
std::string ManyRules() {
  std::string Text;
  const std::vector<std::string> vsRules = GeneratedRules(11, 1000);
  for (std::size_t Number = 0; Number < vsRules.size(); ++Number) {
    Text += vsRules[Number];
    Text += Number % 3 == 0 ? vsRules[Number / 2] : "";
  }
  return Text;
}

TEST(OrderCommands, HaveTheSameResultWithLittleMemory) {
  const std::string Text = ManyRules();
  for (const SortBy Key :
       {SortBy::Form, SortBy::Index, SortBy::Type, SortBy::Count, SortBy::Length}) {
    SortOptions Little = By(Key, Key == SortBy::Type);
    Little.Memory = 1;
    const ChildEnd Expected = Sorted({Text}, By(Key, Key == SortBy::Type));
    EXPECT_GT(Expected.Out.size(), Text.size() / 2);
    EXPECT_TRUE(Sorted({Text}, Little) == Expected);
  }
  for (const bool IsSorted : {false, true}) {
    UniqueOptions Plenty;
    Plenty.Sorted = IsSorted;
    UniqueOptions Little = Plenty;
    Little.Memory = 1;
    const ChildEnd Expected = Unique({Text}, Plenty);
    EXPECT_LT(Expected.Out.size(), Text.size() * 9 / 10);
    EXPECT_TRUE(Unique({Text}, Little) == Expected);
  }
}

TEST(OrderCommands, ChangeNothingWhenRepeated) {
  const std::string Text = ManyRules();
  const std::string InOrder = Sorted({Text}).Out;
  const std::string Once = Unique({Text}).Out;
  EXPECT_NE(InOrder, Text);
  EXPECT_NE(Once, Text);
  EXPECT_TRUE(Sorted({InOrder}).Out == InOrder);
  EXPECT_TRUE(Unique({Once}).Out == Once);
}

}  // namespace
