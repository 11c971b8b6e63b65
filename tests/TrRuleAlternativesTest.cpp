// The alternative examples: the effect of each of the four operations on the eight parallel members
// and on no others, and how other operations make their lengths differ.

#include "TrRule.h"
#include "support/DebugLevel.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

using std::string_literals::operator""s;

namespace {

using IntMap = std::map<int, int>;
using Lists = std::vector<Strings>;
using IntMaps = std::vector<IntMap>;

const Written Nothing;

/// One alternative: the arguments of `AddAlterTrInfo`, in order.
using Alternative = std::tuple<std::string, std::string, std::string, std::string, IntMap, IntMap,
                               Strings, Strings>;

/// The eight lists, in the same order.
using Alternatives = std::tuple<Strings, Strings, Strings, Strings, IntMaps, IntMaps, Lists, Lists>;

using AddExample = void (TrRule::*)(std::string, std::string, std::string, std::string, IntMap,
                                    IntMap, Strings, Strings);

void Add(TrRule& Rule, const Alternative& Added) {
  constexpr AddExample Operation = &TrRule::AddAlterTrInfo;
  std::apply([&](const auto&... Argument) { (Rule.*Operation)(Argument...); }, Added);
}

void GetInto(Alternatives& EightReturn, const TrRule& Rule) {
  std::apply([&](auto&... List) { Rule.GetAllAlts(List...); }, EightReturn);
}

Alternatives Get(const TrRule& Rule) {
  Alternatives Eight;
  GetInto(Eight, Rule);
  return Eight;
}

/// Calls the code with each of the eight positions, as constants for `std::get`.
template <typename CodeT, std::size_t... PositionV>
void ForEachPosition(CodeT Code, std::index_sequence<PositionV...> /*Positions*/) {
  (Code(std::integral_constant<std::size_t, PositionV>()), ...);
}

template <typename CodeT>
void ForEachPosition(CodeT Code) {
  ForEachPosition(Code, std::make_index_sequence<std::tuple_size_v<Alternatives>>());
}

/// The lists of exactly the given alternatives.
Alternatives ListsOf(const std::vector<Alternative>& vAlternatives) {
  Alternatives Eight;
  for (const Alternative& Added : vAlternatives) {
    ForEachPosition(
        [&](auto Position) { std::get<Position()>(Eight).push_back(std::get<Position()>(Added)); });
  }
  return Eight;
}

std::vector<std::size_t> SizesOf(const Alternatives& Eight) {
  return std::apply([](const auto&... List) { return std::vector{List.size()...}; }, Eight);
}

/// The positions, from 1, at which two sets of lists differ.
std::string Differences(const Alternatives& Left, const Alternatives& Right) {
  std::string Positions;
  ForEachPosition([&](auto Position) {
    if (std::get<Position()>(Left) != std::get<Position()>(Right)) {
      Positions += std::to_string(Position() + 1);
    }
  });
  return Positions;
}

const std::string OddBytes = "\0\x80\xFF\r\n\t"s;

const Alternative Empty;
const Alternative First = {"I see",          "veo",    "((2,1),(1,1))", "(S (V see))",
                           {{0, 0}, {1, 0}}, {{0, 1}}, {"pron", "v"},   {"v"}};
const Alternative Second = {
    "o'k \"q\"" + OddBytes, " x" + OddBytes, "1,1", OddBytes, {{-1, 5}}, {{7, -7}},
    {"", OddBytes},         {"\"l'\""}};

/// A rule with an example.
void Fill(TrRule& Rule) {
  Rule.SetSLWords("the car");
  Rule.SetTLWords("el auto");
  Rule.SetSLPOS("det n");
  Rule.SetTLPOS("det n");
  Rule.SetAlignment("((2,2),(1,1))");
  Rule.SetCStructure("(NP (DET the) (N car))");
  Rule.SetWordLevelSLPOS("art noun");
  Rule.SetWordLevelTLPOS("art sust");
}

const Alternative OfFilled = {
    "THE CAR",        "EL AUTO",        "((1,1),(2,2))", "(NP (DET the) (N car))",
    {{0, 0}, {1, 1}}, {{0, 0}, {1, 1}}, {"ART", "NOUN"}, {"ART", "SUST"}};

}  // namespace

TEST(TrRuleAlternatives, AreEmptyInANewRule) {
  EXPECT_EQ(Get(TrRule()), Alternatives());
}

TEST(TrRuleAlternatives, AppendEachArgumentUnchangedToItsList) {
  TrRule Rule;
  Add(Rule, First);
  EXPECT_EQ(Get(Rule), ListsOf({First}));
  Add(Rule, Second);
  EXPECT_EQ(Get(Rule), ListsOf({First, Second}));
  Add(Rule, Empty);
  EXPECT_EQ(Get(Rule), ListsOf({First, Second, Empty}));
}

TEST(TrRuleAlternatives, DifferOnlyInTheListOfTheChangedArgument) {
  TrRule Original;
  Add(Original, First);
  const auto DifferenceWith = [&](Alternative Other) {
    TrRule Rule;
    Add(Rule, Other);
    return Differences(Get(Original), Get(Rule));
  };
  Alternative Others[8] = {First, First, First, First, First, First, First, First};
  std::get<0>(Others[0]) += " ";
  std::get<1>(Others[1]) += " ";
  std::get<2>(Others[2]) += " ";
  std::get<3>(Others[3]) += " ";
  std::get<4>(Others[4])[0] = 9;
  std::get<5>(Others[5])[9] = 0;
  std::get<6>(Others[6]).emplace_back();
  std::get<7>(Others[7]).front() += " ";
  EXPECT_EQ(DifferenceWith(First), "");
  for (int Index = 0; Index < 8; ++Index) {
    EXPECT_EQ(DifferenceWith(Others[Index]), std::to_string(Index + 1));
  }
}

TEST(TrRuleAlternatives, MayRepeat) {
  TrRule Rule;
  Fill(Rule);
  Add(Rule, First);
  Add(Rule, First);
  Rule.AddAlterTrInfo();
  Rule.AddAlterTrInfo();
  EXPECT_EQ(Get(Rule), ListsOf({First, First, OfFilled, OfFilled}));
}

TEST(TrRuleAlternatives, CopyTheExampleOfTheRule) {
  TrRule Rule;
  Fill(Rule);
  EXPECT_TRUE(Rule.AddAlterTrInfo());
  EXPECT_EQ(Get(Rule), ListsOf({OfFilled}));
  Rule.SetSLWords("other words here");
  EXPECT_EQ(Get(Rule), ListsOf({OfFilled}));
  Alternative Changed = OfFilled;
  std::get<0>(Changed) = "OTHER WORDS HERE";
  EXPECT_TRUE(Rule.AddAlterTrInfo());
  EXPECT_EQ(Get(Rule), ListsOf({OfFilled, Changed}));
}

TEST(TrRuleAlternatives, CopyEachPieceFromItsMember) {
  TrRule Rule;
  Rule.SetSLWords("a b");
  Rule.SetTLWords(Strings{"o'k", ""});
  Rule.SetAlignment("((2,2))");
  Rule.SetsWordLevelAl("((3,3))");
  Rule.SetCStructure("c");
  Rule.SetSLPOS("no sl component");
  Rule.SetTLPOS("no tl component");
  Rule.SetSLPOSFromParse("no parse");
  Rule.SetWordLevelSLPOS("d");
  Rule.SetWordLevelTLPOS("e");
  Rule.SetTLWord2Comp({{6, 7}});
  Rule.SetSLWord2Comp({{4, 5}});
  EXPECT_TRUE(Rule.ResetAlterTrInfo());
  EXPECT_EQ(
      Get(Rule),
      ListsOf({Alternative("A B", "O\\'K ", "((2,2))", "c", {{4, 5}}, {{6, 7}}, {"D"}, {"E"})}));
}

TEST(TrRuleAlternatives, AreWrittenEmptyForANewRule) {
  TrRule Rule;
  EXPECT_TRUE(Rule.AddAlterTrInfo());
  EXPECT_EQ(Get(Rule), ListsOf({Empty}));
  EXPECT_EQ(Rule.ReturnAsStringWithAllAlts(),
            ";;SL_alt:\n;;TL_alt:\n;;Alignment_alt:\n;;CStructure_alt:\n;;SLWord2Comp_alt:\n"
            ";;TLWord2Comp_alt:\n;;WordLevelSLPOS_alt:\n;;WordLevelTLPOS_alt:\n"
            ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\n;;WordLevelTLPOS:\n"
            ";;Score:1\n:: [] -> []\n(\n)");
}

TEST(TrRuleAlternatives, HoldOnlyTheExampleAfterAReset) {
  for (const int Additions : {0, 1, 2, 10}) {
    TrRule Rule;
    Fill(Rule);
    for (int Count = 0; Count < Additions; ++Count) {
      Add(Rule, Count % 2 == 0 ? First : Second);
      Rule.AddAlterTrInfo();
    }
    EXPECT_EQ(SizesOf(Get(Rule)),
              std::vector<std::size_t>(8, static_cast<std::size_t>(2 * Additions)));
    EXPECT_TRUE(Rule.ResetAlterTrInfo());
    EXPECT_EQ(Get(Rule), ListsOf({OfFilled})) << Additions << " additions";
    EXPECT_TRUE(Rule.ResetAlterTrInfo());
    EXPECT_EQ(Get(Rule), ListsOf({OfFilled}));
  }
}

TEST(TrRuleAlternatives, PairANewSentenceWithTheAlignmentsOfAReadRuleUntilAReset) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  const std::string Read = "((1,1),(2,3),(3,2))";
  EXPECT_EQ(Get(Rule), Alternatives({}, {}, {Read}, {}, {}, {}, {}, {}));
  Rule.SetSLWords("the red car");
  Rule.SetAlignment("((1,1))");
  EXPECT_TRUE(Rule.AddAlterTrInfo());
  const Alternatives Eight = Get(Rule);
  EXPECT_EQ(SizesOf(Eight), (std::vector<std::size_t>{1, 1, 2, 1, 1, 1, 1, 1}));
  EXPECT_EQ(std::get<0>(Eight), Strings{"THE RED CAR"});
  EXPECT_EQ(std::get<2>(Eight), (Strings{Read, "((1,1))"}));
  EXPECT_TRUE(Rule.ResetAlterTrInfo());
  const Strings vsSL = {"DET", "ADJ", "N"};
  const Strings vsTL = {"DET", "N", "ADJ"};
  EXPECT_EQ(Get(Rule),
            ListsOf({Alternative("THE RED CAR", "", "((1,1))", "", {}, {}, vsSL, vsTL)}));
}

TEST(TrRuleAlternatives, HaveAnExtraMapOnceAMapWasSetUntilAReset) {
  TrRule Rule;
  Rule.SetSLWord2Comp({{1, 2}});
  Rule.SetTLWord2Comp({{3, 4}});
  EXPECT_EQ(Get(Rule), Alternatives({}, {}, {}, {}, {{{1, 2}}}, {{{3, 4}}}, {}, {}));
  EXPECT_TRUE(Rule.AddAlterTrInfo());
  EXPECT_EQ(SizesOf(Get(Rule)), (std::vector<std::size_t>{1, 1, 1, 1, 2, 2, 1, 1}));
  EXPECT_TRUE(Rule.ResetAlterTrInfo());
  EXPECT_EQ(Get(Rule), ListsOf({Alternative("", "", "", "", {{1, 2}}, {{3, 4}}, {}, {})}));
}

TEST(TrRuleAlternatives, ReplaceTheArgumentsWithCopies) {
  TrRule Rule;
  Add(Rule, First);
  Alternatives Eight = ListsOf({Second, Empty, Second});
  ASSERT_EQ(Differences(Eight, Get(Rule)), "12345678");
  GetInto(Eight, Rule);
  EXPECT_EQ(Eight, ListsOf({First}));
  Eight = Alternatives();
  EXPECT_EQ(Get(Rule), ListsOf({First}));
  const TrRule New;
  Eight = ListsOf({Second});
  GetInto(Eight, New);
  EXPECT_EQ(Eight, Alternatives());
}

TEST(TrRuleAlternatives, LeaveTheRestOfTheRuleUnchanged) {
  TrRule Rule;
  Fill(Rule);
  const std::string Before = Rule.ReturnAsStringForPrint() + Rule.GetsWordLevelAl();
  const IntMap MapBefore = Rule.GetSLWord2Comp();
  Add(Rule, Second);
  Rule.AddAlterTrInfo();
  Rule.ResetAlterTrInfo();
  Get(Rule);
  EXPECT_EQ(Rule.ReturnAsStringForPrint() + Rule.GetsWordLevelAl(), Before);
  EXPECT_EQ(Rule.GetSLWord2Comp(), MapBefore);
  EXPECT_EQ(Rule.GetWordLevelSLPOS(), (Strings{"ART", "NOUN"}));
}

TEST(TrRuleAlternatives, AreCopiedAndAssigned) {
  TrRule Original;
  Add(Original, First);
  Add(Original, Second);
  TrRule Copy(Original);
  EXPECT_EQ(Get(Copy), ListsOf({First, Second}));
  Add(Copy, Empty);
  EXPECT_EQ(Get(Original), ListsOf({First, Second}));
  Original = Copy;
  EXPECT_EQ(Get(Original), ListsOf({First, Second, Empty}));
}
