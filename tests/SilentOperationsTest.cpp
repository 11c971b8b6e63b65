// The operations that print nothing, at any debugging level, and do not change their rule.

#include "TrRule.h"

#include <gtest/gtest.h>

#include "support/DebugLevel.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <functional>
#include <map>
#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace {

/// An operation on the sample rule with words, or on objects of its own.
struct Operation {
  const char* Name;
  std::function<void(TrRule&)> Run;

  friend void PrintTo(const Operation& Tested, std::ostream* Stream) { *Stream << Tested.Name; }
};

void GetAllAlts(const TrRule& Rule) {
  Strings vsTexts;
  std::vector<std::map<int, int>> vmiiMaps;
  std::vector<Strings> vvsLists;
  Rule.GetAllAlts(vsTexts, vsTexts, vsTexts, vsTexts, vmiiMaps, vmiiMaps, vvsLists, vvsLists);
}

void AddAlternatives(TrRule& Rule) {
  TrRule New;
  New.AddAlterTrInfo("a", "b", "((2,1),(1,1))", "", {}, {}, {}, {});
  New.AddAlterTrInfo();
  New.ResetAlterTrInfo();
  GetAllAlts(Rule);
}

void SetPlainMembers(TrRule& /*Rule*/) {
  TrRule New;
  New.SetSLWords("a b");
  New.SetTLWords(Strings{"o'k"});
  New.SetSLWord2Comp({{0, 1}});
  New.SetTLWord2Comp({{0, 1}});
  New.SetSLType("NP");
  New.SetTLType("NP");
  New.SetRuleIndex(8);
  New.SetCSet({1});
  New.AddToCSet(2);
  New.ClearCSet();
  New.SetNumTrExamples(1);
  New.IncrementNumTrExamples();
  New.SetHeadIndex(1);
  New.SetXHeadIndex(1);
  New.SetYHeadIndex(1);
  New.SetsWordLevelAl("1,1");
}

void EraseConstraints(TrRule& /*Rule*/) {
  TrRule New;
  New.SetConstraint(4, 1, "NUM", "SG", 0, true);
  New.SetConstraint(1, "GEN", "M", "empty", 0, 4);
  New.EraseCategoryConstraints(4);
  New.ClearConstraints();
}

void QueryLineUp(TrRule& /*Rule*/) {
  LineUp Index;
  std::set<int> siPartners;
  Index.GetEq("((1,1))", 1, siPartners);
  Index.GetEqFromY("1,1", 1, siPartners);
}

const Operation Operations[] = {
    {"Lifecycle", [](TrRule&) { const TrRule New; }},
    {"GetSLWords", [](TrRule& Rule) { Rule.GetSLWords(); }},
    {"GetSLString", [](TrRule& Rule) { Rule.GetSLString(); }},
    {"GetTLWords", [](TrRule& Rule) { Rule.GetTLWords(); }},
    {"GetTLString", [](TrRule& Rule) { Rule.GetTLString(); }},
    {"GetSLPOS", [](TrRule& Rule) { Rule.GetSLPOS(); }},
    {"GetWordLevelSLPOS", [](TrRule& Rule) { Rule.GetWordLevelSLPOS(); }},
    {"GetSLPOSFromParse", [](TrRule& Rule) { Rule.GetSLPOSFromParse(); }},
    {"GetTLPOSFromParse", [](TrRule& Rule) { Rule.GetTLPOSFromParseAfterFlipping(); }},
    {"GetTLPOS", [](TrRule& Rule) { Rule.GetTLPOS(); }},
    {"GetWordLevelTLPOS", [](TrRule& Rule) { Rule.GetWordLevelTLPOS(); }},
    {"GetSLWord2Comp", [](TrRule& Rule) { Rule.GetSLWord2Comp(); }},
    {"GetTLWord2Comp", [](TrRule& Rule) { Rule.GetTLWord2Comp(); }},
    {"GetCStructure", [](TrRule& Rule) { Rule.GetCStructure(); }},
    {"GetSLType", [](TrRule& Rule) { Rule.GetSLType(); }},
    {"GetTLType", [](TrRule& Rule) { Rule.GetTLType(); }},
    {"GetRuleIndex", [](TrRule& Rule) { Rule.GetRuleIndex(); }},
    {"GetCSet", [](TrRule& Rule) { Rule.GetCSet(); }},
    {"GetNumTrExamples", [](TrRule& Rule) { Rule.GetNumTrExamples(); }},
    {"GetHeadIndex", [](TrRule& Rule) { Rule.GetHeadIndex(); }},
    {"GetXHeadIndex", [](TrRule& Rule) { Rule.GetXHeadIndex(); }},
    {"GetYHeadIndex", [](TrRule& Rule) { Rule.GetYHeadIndex(); }},
    {"GetAlignmentStr", [](TrRule& Rule) { Rule.GetAlignmentStr(); }},
    {"GetAlignments", [](TrRule& Rule) { Rule.GetAlignments(); }},
    {"GetsWordLevelAl", [](TrRule& Rule) { Rule.GetsWordLevelAl(); }},
    {"ReturnAsStringForPrintNoConstraints",
     [](TrRule& Rule) { Rule.ReturnAsStringForPrintNoConstraints(); }},
    {"ReturnAsStringForPrint", [](TrRule& Rule) { Rule.ReturnAsStringForPrint(); }},
    {"ReturnAsStringWithAllAlts", [](TrRule& Rule) { Rule.ReturnAsStringWithAllAlts(); }},
    {"ReturnAsStringForComparison", [](TrRule& Rule) { Rule.ReturnAsStringForComparison(); }},
    {"GetConstraintsInPrintOrder", [](TrRule& Rule) { CallGetConstraintsInPrintOrder(Rule); }},
    {"GetNumConstraints", [](TrRule& Rule) { Rule.GetNumConstraints(); }},
    {"GetConstraints", [](TrRule& Rule) { Rule.GetConstraints(); }},
    {"GetConstraintsOfCategory", [](TrRule& Rule) { Rule.GetConstraints(4); }},
    {"GetConstraintsAsSet", [](TrRule& Rule) { Rule.GetConstraintsAsSet(); }},
    {"GetConstraintsAsSetOfCategory", [](TrRule& Rule) { Rule.GetConstraintsAsSet(4); }},
    {"GetConstraintsAsSetC", [](TrRule& Rule) { Rule.GetConstraintsAsSetC(); }},
    {"GetConstraintsAsSetCOfCategory", [](TrRule& Rule) { Rule.GetConstraintsAsSetC(4); }},
    {"GetConstraintsForInd", [](TrRule& Rule) { Rule.GetConstraintsForInd(1, {4}); }},
    {"GetAllAlts", [](TrRule& Rule) { GetAllAlts(Rule); }},
    {"AddAlternatives", AddAlternatives},
    {"SetPlainMembers", SetPlainMembers},
    {"EraseConstraints", EraseConstraints},
    {"LineUp", QueryLineUp},
    {"Tokenizer", [](TrRule&) { Tokenizer()("a b", " "); }},
    {"TokenizerTrimming", [](TrRule&) { Tokenizer()(" a : b ", ":", true); }},
    {"RemoveLeadingWhiteSpace", [](TrRule&) { StringUtils::RemoveLeadingWhiteSpace(" x"); }},
    {"RemoveTrailingWhiteSpace", [](TrRule&) { StringUtils::RemoveTrailingWhiteSpace("x "); }},
    {"RemoveAllWhiteSpace", [](TrRule&) { StringUtils::RemoveAllWhiteSpace(" x "); }},
    {"IsNumericOfANumber", [](TrRule&) { StringUtils::IsNumeric("12"); }},
    {"ReplaceAll", [](TrRule&) { StringUtils::ReplaceAll("aaa", "a", "aa"); }},
    {"Int2String", [](TrRule&) { StringUtils::Int2String(-1); }},
    {"String2Int", [](TrRule&) { StringUtils::String2Int("not a number"); }},
    {"StringToUpper", [](TrRule&) { StringUtils::StringToUpper("x"); }},
    {"StringToLower", [](TrRule&) { StringUtils::StringToLower("X"); }},
    {"RemoveBackslashR", [](TrRule&) { StringUtils::RemoveBackslashR("x\r"); }},
    {"Split", [](TrRule&) { StringUtils::Split("a,b", ","); }},
    {"AllCaps", [](TrRule&) { Utils::AllCaps("x"); }},
};

class SilentOperations : public testing::TestWithParam<Operation> {
 protected:
  void SetUp() override {
    ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
    Rule.SetSLPOSFromParse("det n");
    Rule.SetSLWords("the red car");
    Rule.SetTLWords("el auto rojo");
    Rule.SetCSet({1, 2});
    Rule.AddAlterTrInfo();
  }

  TrRule Rule;
};

}  // namespace

TEST_P(SilentOperations, PrintNothingAndChangeNothing) {
  const std::string Before = Dump(Rule);
  for (const int Level : {0, 1, 2, 3, 4, 5, -1}) {
    SCOPED_TRACE(Level);
    const DebugLevel Scope(Level);
    EXPECT_EQ(WrittenBy([&] { GetParam().Run(Rule); }), (Written{"", ""}));
  }
  EXPECT_EQ(Dump(Rule), Before);
}

INSTANTIATE_TEST_SUITE_P(All, SilentOperations, testing::ValuesIn(Operations),
                         [](const auto& Info) { return std::string(Info.param.Name); });
