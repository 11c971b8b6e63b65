// The interface as programs compile against it: the exact types of the arguments and the result of
// each public operation, whether it is const, and that typical calls compile. The types are checked
// when this file is compiled, as C++17 and as C++20.

#include "TrRule.h"

#include <gtest/gtest.h>

#include "support/HaltGuard.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <map>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

using Lists = std::vector<Strings>;
using Text = std::string;
using IntMap = std::map<int, int>;
using IntMaps = std::vector<IntMap>;
using IntSet = std::set<int>;
using TextPairs = std::map<Text, std::pair<Text, Text>>;

/// Compiles if a class has a member function of exactly this type, which selects one of several
/// overloads. Nothing is converted, not even a reference to a value.
///
///   static_assert(Is<Text() const>(&TrRule::GetSLType));
template <typename FunctionT, typename ClassT>
constexpr bool Is(FunctionT ClassT::* /*Operation*/) {
  return true;
}

/// The same for a static one.
template <typename FunctionT>
constexpr bool Is(FunctionT* /*Operation*/) {
  return true;
}

/// Returns the result of a call, which must be a value of exactly this type.
template <typename ResultT, typename ActualT>
ResultT Gives(ActualT&& Result) {
  static_assert(std::is_same_v<ActualT, ResultT>);
  return std::forward<ActualT>(Result);
}

template <typename ClassT>
constexpr bool IsPlainValue =
    std::conjunction_v<std::is_default_constructible<ClassT>, std::is_copy_constructible<ClassT>,
                       std::is_nothrow_destructible<ClassT>,
                       std::negation<std::is_polymorphic<ClassT>>>;

}  // namespace

// ---- Rule: lifecycle, order and equality --------------------------------------------------------

static_assert(IsPlainValue<TrRule>);
static_assert(Is<void(TrRule)>(&TrRule::operator=));
static_assert(Is<bool(TrRule) const>(&TrRule::operator<));
static_assert(Is<bool(TrRule) const>(&TrRule::operator==));

TEST(Signatures, TrRuleLifecycleOrderAndEquality) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  const TrRule Fixed(Rule);
  TrRule Other;
  static_assert(std::is_void_v<decltype(Other = Fixed)>);
  Other = Fixed;
  Other = Rule;
  Other = TrRule(Fixed);
  EXPECT_FALSE(Gives<bool>(Fixed < Fixed));
  EXPECT_FALSE(Gives<bool>(Fixed < Rule));
  EXPECT_FALSE(Gives<bool>(Rule < Fixed));
  EXPECT_FALSE(Gives<bool>(Rule < Other));
  // C++20 also considers the reversed equality, and must not find it twice.
  EXPECT_TRUE(Gives<bool>(Fixed == Fixed));
  EXPECT_TRUE(Gives<bool>(Fixed == Rule));
  EXPECT_TRUE(Gives<bool>(Rule == Fixed));
  EXPECT_TRUE(Gives<bool>(Rule == Other));
  EXPECT_TRUE(Gives<bool>(TrRule() == TrRule()));
}

// ---- Rule: words and labels ---------------------------------------------------------------------

static_assert(Is<void(Strings)>(&TrRule::SetSLWords));
static_assert(Is<void(Text)>(&TrRule::SetSLWords));
static_assert(Is<Strings() const>(&TrRule::GetSLWords));
static_assert(Is<Text() const>(&TrRule::GetSLString));
static_assert(Is<void(Strings)>(&TrRule::SetTLWords));
static_assert(Is<void(Text)>(&TrRule::SetTLWords));
static_assert(Is<Strings() const>(&TrRule::GetTLWords));
static_assert(Is<Text() const>(&TrRule::GetTLString));
static_assert(Is<void(Strings)>(&TrRule::SetSLPOS));
static_assert(Is<void(Text)>(&TrRule::SetSLPOS));
static_assert(Is<Strings() const>(&TrRule::GetSLPOS));
static_assert(Is<void(Strings)>(&TrRule::SetWordLevelSLPOS));
static_assert(Is<void(Text)>(&TrRule::SetWordLevelSLPOS));
static_assert(Is<Strings() const>(&TrRule::GetWordLevelSLPOS));
static_assert(Is<void(Strings)>(&TrRule::SetSLPOSFromParse));
static_assert(Is<void(Text)>(&TrRule::SetSLPOSFromParse));
static_assert(Is<Strings() const>(&TrRule::GetSLPOSFromParse));
static_assert(Is<Strings() const>(&TrRule::GetTLPOSFromParseAfterFlipping));
static_assert(Is<void(Strings)>(&TrRule::SetTLPOS));
static_assert(Is<void(Text)>(&TrRule::SetTLPOS));
static_assert(Is<Strings() const>(&TrRule::GetTLPOS));
static_assert(Is<void(Strings)>(&TrRule::SetWordLevelTLPOS));
static_assert(Is<void(Text)>(&TrRule::SetWordLevelTLPOS));
static_assert(Is<Strings() const>(&TrRule::GetWordLevelTLPOS));

TEST(Signatures, TrRuleWords) {
  const Strings vsWords{"THE", "DOG"};
  const Text Sentence = "el perro";
  TrRule Rule;
  const TrRule& Fixed = Rule;
  Rule.SetSLWords(Sentence);
  Rule.SetSLWords("el perro");
  EXPECT_EQ(Gives<Text>(Fixed.GetSLString()), "EL PERRO");
  Rule.SetSLWords(vsWords);
  EXPECT_EQ(Gives<Strings>(Fixed.GetSLWords()), vsWords);
  Rule.SetTLWords(vsWords);
  EXPECT_EQ(Gives<Strings>(Fixed.GetTLWords()), vsWords);
  Rule.SetTLWords(Sentence);
  Rule.SetTLWords("el perro");
  EXPECT_EQ(Gives<Text>(Fixed.GetTLString()), "EL PERRO");
}

TEST(Signatures, TrRuleLabels) {
  const Strings vsLabels{"DET", "N"};
  const Text Labels = "det n";
  TrRule Rule;
  const TrRule& Fixed = Rule;
  Rule.SetSLPOS(vsLabels);
  Rule.SetSLPOS(Labels);
  Rule.SetSLPOS("det n");
  EXPECT_EQ(Gives<Strings>(Fixed.GetSLPOS()), vsLabels);
  Rule.SetWordLevelSLPOS(vsLabels);
  Rule.SetWordLevelSLPOS(Labels);
  Rule.SetWordLevelSLPOS("det n");
  EXPECT_EQ(Gives<Strings>(Fixed.GetWordLevelSLPOS()), vsLabels);
  Rule.SetSLPOSFromParse(vsLabels);
  Rule.SetSLPOSFromParse(Labels);
  Rule.SetSLPOSFromParse("det n");
  EXPECT_EQ(Gives<Strings>(Fixed.GetSLPOSFromParse()), vsLabels);
  EXPECT_EQ(Gives<Strings>(Fixed.GetTLPOSFromParseAfterFlipping()), Strings{});
  Rule.SetTLPOS(vsLabels);
  Rule.SetTLPOS(Labels);
  Rule.SetTLPOS("det n");
  EXPECT_EQ(Gives<Strings>(Fixed.GetTLPOS()), vsLabels);
  Rule.SetWordLevelTLPOS(vsLabels);
  Rule.SetWordLevelTLPOS(Labels);
  Rule.SetWordLevelTLPOS("det n");
  EXPECT_EQ(Gives<Strings>(Fixed.GetWordLevelTLPOS()), vsLabels);
}

// ---- Rule: maps and plain members ---------------------------------------------------------------

static_assert(Is<void()>(&TrRule::InitSLWord2Comp));
static_assert(Is<void()>(&TrRule::InitTLWord2Comp));
static_assert(Is<void(IntMap)>(&TrRule::SetSLWord2Comp));
static_assert(Is<IntMap() const>(&TrRule::GetSLWord2Comp));
static_assert(Is<void(IntMap)>(&TrRule::SetTLWord2Comp));
static_assert(Is<IntMap() const>(&TrRule::GetTLWord2Comp));
static_assert(Is<void(Text)>(&TrRule::SetCStructure));
static_assert(Is<Text() const>(&TrRule::GetCStructure));
static_assert(Is<void(Text)>(&TrRule::SetSLType));
static_assert(Is<Text() const>(&TrRule::GetSLType));
static_assert(Is<void(Text)>(&TrRule::SetTLType));
static_assert(Is<Text() const>(&TrRule::GetTLType));
static_assert(Is<void(int)>(&TrRule::SetRuleIndex));
static_assert(Is<int() const>(&TrRule::GetRuleIndex));
static_assert(Is<void(IntSet)>(&TrRule::SetCSet));
static_assert(Is<IntSet() const>(&TrRule::GetCSet));
static_assert(Is<void(int)>(&TrRule::AddToCSet));
static_assert(Is<void()>(&TrRule::ClearCSet));
static_assert(Is<void(int)>(&TrRule::SetNumTrExamples));
static_assert(Is<int() const>(&TrRule::GetNumTrExamples));
static_assert(Is<void()>(&TrRule::IncrementNumTrExamples));
static_assert(Is<int() const>(&TrRule::GetNumConstraints));
static_assert(Is<void(int)>(&TrRule::SetHeadIndex));
static_assert(Is<int() const>(&TrRule::GetHeadIndex));
static_assert(Is<void(int)>(&TrRule::SetXHeadIndex));
static_assert(Is<int() const>(&TrRule::GetXHeadIndex));
static_assert(Is<void(int)>(&TrRule::SetYHeadIndex));
static_assert(Is<int() const>(&TrRule::GetYHeadIndex));

TEST(Signatures, TrRuleMaps) {
  const IntMap miiMap{{0, 1}};
  TrRule Rule;
  const TrRule& Fixed = Rule;
  Rule.SetSLWord2Comp(miiMap);
  Rule.SetSLWord2Comp({{0, 1}});
  Rule.InitSLWord2Comp();
  EXPECT_EQ(Gives<IntMap>(Fixed.GetSLWord2Comp()), miiMap);
  Rule.SetTLWord2Comp(miiMap);
  Rule.SetTLWord2Comp({{0, 1}});
  Rule.InitTLWord2Comp();
  EXPECT_EQ(Gives<IntMap>(Fixed.GetTLWord2Comp()), miiMap);
}

TEST(Signatures, TrRuleTextsAndSet) {
  const Text Type = "NP";
  const IntSet siNumbers{3, 5};
  TrRule Rule;
  const TrRule& Fixed = Rule;
  Rule.SetCStructure(Type);
  Rule.SetCStructure("(<NP> DET N)");
  EXPECT_EQ(Gives<Text>(Fixed.GetCStructure()), "(<NP> DET N)");
  Rule.SetSLType(Type);
  EXPECT_EQ(Gives<Text>(Fixed.GetSLType()), "NP");
  Rule.SetTLType(Type);
  EXPECT_EQ(Gives<Text>(Fixed.GetTLType()), "NP");
  Rule.AddToCSet(7);
  Rule.ClearCSet();
  Rule.SetCSet({1, 2});
  Rule.SetCSet(siNumbers);
  EXPECT_EQ(Gives<IntSet>(Fixed.GetCSet()), siNumbers);
}

TEST(Signatures, TrRuleNumbers) {
  TrRule Rule;
  const TrRule& Fixed = Rule;
  Rule.SetRuleIndex(8);
  EXPECT_EQ(Gives<int>(Fixed.GetRuleIndex()), 8);
  Rule.SetNumTrExamples(4);
  Rule.IncrementNumTrExamples();
  EXPECT_EQ(Gives<int>(Fixed.GetNumTrExamples()), 5);
  EXPECT_EQ(Gives<int>(Fixed.GetNumConstraints()), 0);
  Rule.SetHeadIndex(1);
  EXPECT_EQ(Gives<int>(Fixed.GetHeadIndex()), 1);
  Rule.SetXHeadIndex(2);
  EXPECT_EQ(Gives<int>(Fixed.GetXHeadIndex()), 2);
  Rule.SetYHeadIndex(3);
  EXPECT_EQ(Gives<int>(Fixed.GetYHeadIndex()), 3);
}

// ---- Rule: alignments, reading, writing, flipping -----------------------------------------------

static_assert(Is<void(Text)>(&TrRule::SetAlignment));
static_assert(Is<bool(Text)>(&TrRule::AddAlignment));
static_assert(Is<Text() const>(&TrRule::GetAlignmentStr));
static_assert(Is<Strings() const>(&TrRule::GetAlignments));
static_assert(Is<void(Text)>(&TrRule::SetsWordLevelAl));
static_assert(Is<Text() const>(&TrRule::GetsWordLevelAl));
static_assert(Is<bool(Text)>(&TrRule::SetTrRuleFromString));
// All writers except one are not const.
static_assert(Is<void()>(&TrRule::Print));
static_assert(Is<Text() const>(&TrRule::ReturnAsStringForPrintNoConstraints));
static_assert(Is<Text()>(&TrRule::ReturnAsStringForPrint));
static_assert(Is<Text()>(&TrRule::ReturnAsStringWithAllAlts));
static_assert(Is<Text()>(&TrRule::ReturnAsStringForComparison));
static_assert(Is<void()>(&TrRule::FlipRuleNoConstraints));

TEST(Signatures, TrRuleAlignments) {
  const Text Alignments = "((1,1))";
  const Text Line = "(X2::Y2)";
  TrRule Rule;
  Rule.SetSLPOS("DET ADJ N");
  Rule.SetTLPOS("DET N ADJ");
  const TrRule& Fixed = Rule;
  Rule.SetAlignment(Alignments);
  Rule.SetAlignment("((1,1))");
  EXPECT_TRUE(Gives<bool>(Rule.AddAlignment(Line)));
  EXPECT_TRUE(Gives<bool>(Rule.AddAlignment("(X3::Y3)")));
  EXPECT_EQ(Gives<Text>(Fixed.GetAlignmentStr()), "((1,1),(2,2),(3,3))");
  EXPECT_EQ(Gives<Strings>(Fixed.GetAlignments()), (Strings{"(X1::Y1)", Line, "(X3::Y3)"}));
  Rule.SetsWordLevelAl(Alignments);
  EXPECT_EQ(Gives<Text>(Fixed.GetsWordLevelAl()), Alignments);
}

TEST(Signatures, TrRuleReaderWritersAndFlip) {
  const Text RuleText = "{NP,1}\nNP::NP [N] -> [N]\n(\n(X1::Y1)\n)\n";
  const Text Body = "NP::NP [N] -> [N]\n(\n(X1::Y1)\n)";
  TrRule Rule;
  const TrRule& Fixed = Rule;
  EXPECT_TRUE(Gives<bool>(Rule.SetTrRuleFromString(RuleText)));
  const auto PrintAndFlip = [&] {
    Rule.Print();
    Rule.FlipRuleNoConstraints();
  };
  EXPECT_EQ(WrittenBy(PrintAndFlip), (Written{"{NP,1}\n" + Body + "\n", ""}));
  const Text Printed = "{NP,1}\n;;SL:\n;;TL:\n;;Score:1\n" + Body;
  EXPECT_EQ(Gives<Text>(Fixed.ReturnAsStringForPrintNoConstraints()), Printed);
  EXPECT_EQ(Gives<Text>(Rule.ReturnAsStringForPrint()), Printed);
  EXPECT_EQ(Gives<Text>(Rule.ReturnAsStringWithAllAlts()),
            ";;SLWord2Comp:\n;;TLWord2Comp_alt:\n;;WordLevelSLPOS:\tN\n;;WordLevelTLPOS:\tN\n"
            ";;Score:1\n" +
                Body);
  EXPECT_EQ(Gives<Text>(Rule.ReturnAsStringForComparison()), ";N \n" + Body);
}

// ---- Rule: alternatives -------------------------------------------------------------------------

static_assert(
    Is<void(Text, Text, Text, Text, IntMap, IntMap, Strings, Strings)>(&TrRule::AddAlterTrInfo));
static_assert(Is<bool()>(&TrRule::AddAlterTrInfo));
static_assert(Is<bool()>(&TrRule::ResetAlterTrInfo));
static_assert(Is<void(Strings&, Strings&, Strings&, Strings&, IntMaps&, IntMaps&, Lists&, Lists&)
                     const>(&TrRule::GetAllAlts));

TEST(Signatures, TrRuleAlternatives) {
  const Text Sentence = "el perro";
  const Text Alignments = "((1,1))";
  const IntMap miiMap{{0, 1}};
  const Strings vsLabels{"DET", "N"};
  TrRule Rule;
  const TrRule& Fixed = Rule;
  EXPECT_TRUE(Gives<bool>(Rule.AddAlterTrInfo()));
  EXPECT_TRUE(Gives<bool>(Rule.ResetAlterTrInfo()));
  Rule.AddAlterTrInfo(Sentence, Sentence, Alignments, Sentence, miiMap, miiMap, vsLabels, vsLabels);
  Rule.AddAlterTrInfo("the dog", "el perro", "", "", {}, {}, {}, {});
  Strings vsSL;
  Strings vsTL;
  Strings vsAlignments;
  Strings vsStructures;
  IntMaps vmiiSL;
  IntMaps vmiiTL;
  Lists vvsSL;
  Lists vvsTL;
  Fixed.GetAllAlts(vsSL, vsTL, vsAlignments, vsStructures, vmiiSL, vmiiTL, vvsSL, vvsTL);
  EXPECT_EQ(vsSL, (Strings{"", Sentence, "the dog"}));
  EXPECT_EQ(vsTL, (Strings{"", Sentence, Sentence}));
  EXPECT_EQ(vsAlignments, (Strings{"", Alignments, ""}));
  EXPECT_EQ(vsStructures, (Strings{"", Sentence, ""}));
  EXPECT_EQ(vmiiSL, (IntMaps{{}, miiMap, {}}));
  EXPECT_EQ(vmiiTL, vmiiSL);
  EXPECT_EQ(vvsSL, (Lists{{}, vsLabels, {}}));
  EXPECT_EQ(vvsTL, vvsSL);
}

// ---- Rule: constraints --------------------------------------------------------------------------

// One overload is a template, so the class must be given here.
static_assert(Is<void(int, int, Text, Text, int, bool), TrRule>(&TrRule::SetConstraint));
static_assert(Is<void(Text), TrRule>(&TrRule::SetConstraint));
static_assert(Is<void(Text, int, int), TrRule>(&TrRule::SetConstraint));
static_assert(Is<void(int, Text, Text, Text, int, int), TrRule>(&TrRule::SetConstraint));
static_assert(Is<bool(Constraint)>(&TrRule::InsertConstraintIntoMap));
static_assert(Is<bool(int, Text, Text, Text, IntSet)>(&TrRule::EraseConstraint));
static_assert(Is<bool(int)>(&TrRule::EraseCategoryConstraints));
static_assert(Is<void()>(&TrRule::ClearConstraints));
static_assert(Is<Strings() const>(&TrRule::GetConstraints));
static_assert(Is<Strings(int) const>(&TrRule::GetConstraints));
static_assert(Is<std::set<Text>() const>(&TrRule::GetConstraintsAsSet));
static_assert(Is<std::set<Text>(int) const>(&TrRule::GetConstraintsAsSet));
static_assert(Is<std::set<Constraint>() const>(&TrRule::GetConstraintsAsSetC));
static_assert(Is<std::set<Constraint>(int) const>(&TrRule::GetConstraintsAsSetC));
static_assert(Is<TextPairs(int, IntSet) const>(&TrRule::GetConstraintsForInd));

TEST(Signatures, TrRuleSetConstraint) {
  const int Category = 4;
  const int Index = 0;
  const int Rank = -1;
  const bool IsValue = true;
  const Text Feature = "NUM";
  const Text Value = "SG";
  const Text ConstraintText = "((y5 num) = sg)";
  const Constraint Record(ConstraintText);
  TrRule Rule;
  static_assert(std::is_void_v<decltype(Rule.SetConstraint(4, 0, Feature, Value, Rank, IsValue))>);
  static_assert(std::is_void_v<decltype(Rule.SetConstraint(4, 0, Feature, Value, Rank, 1U))>);
  static_assert(std::is_void_v<decltype(Rule.SetConstraint(0, "NUM", "SG", "empty", -1, 4))>);
  Rule.SetConstraint(Category, Index, Feature, Value, Rank, IsValue);
  Rule.SetConstraint(4, 0, "GEN", "M", -1, true);
  Rule.SetConstraint(ConstraintText);
  Rule.SetConstraint("((y6 num) = sg)");
  Rule.SetConstraint(ConstraintText, Rank, Category);
  Rule.SetConstraint("((Y6 GEN) = M)", 0, 4);
  Rule.SetConstraint(Index, Feature, Value, Value, Rank, Category);
  Rule.SetConstraint(0, "PERS", "3", "empty", 0, 4);
  EXPECT_FALSE(Gives<bool>(Rule.InsertConstraintIntoMap(Record)));
  EXPECT_TRUE(Gives<bool>(Rule.InsertConstraintIntoMap(Text("((y7 num) = sg)"))));
  EXPECT_EQ(Rule.GetConstraints(),
            (Strings{"((Y0 GEN) = M)", "((Y0 NUM) = SG)", "((Y0 PERS) = 3)", "((Y0 num) = sg)",
                     "((Y5 NUM) = SG)", "((Y6 GEN) = M)", "((Y6 NUM) = SG)", "((Y7 NUM) = SG)"}));
}

TEST(Signatures, TrRuleGetAndEraseConstraints) {
  const IntSet siCategories{4};
  const Text Feature = "NUM";
  const Text Value = "SG";
  const Text Empty = "empty";
  TrRule Rule;
  const TrRule& Fixed = Rule;
  Rule.SetConstraint("((y1 num) = sg)");
  Rule.SetConstraint("((y2 num) = sg)");
  const Strings vsTexts{"((Y1 NUM) = SG)", "((Y2 NUM) = SG)"};
  EXPECT_EQ(Gives<Strings>(Fixed.GetConstraints()), vsTexts);
  EXPECT_EQ(Gives<Strings>(Fixed.GetConstraints(5)), vsTexts);
  const std::set<Text> ssTexts(vsTexts.begin(), vsTexts.end());
  EXPECT_EQ(Gives<std::set<Text>>(Fixed.GetConstraintsAsSet()), ssTexts);
  EXPECT_EQ(Gives<std::set<Text>>(Fixed.GetConstraintsAsSet(5)), ssTexts);
  EXPECT_EQ(Gives<std::set<Constraint>>(Fixed.GetConstraintsAsSetC()).size(), 2U);
  EXPECT_EQ(Gives<std::set<Constraint>>(Fixed.GetConstraintsAsSetC(5)).size(), 2U);
  EXPECT_EQ(Gives<TextPairs>(Fixed.GetConstraintsForInd(1, siCategories)),
            (TextPairs{{Feature, {Value, Empty}}}));
  EXPECT_TRUE(Gives<bool>(Rule.EraseConstraint(1, Feature, Value, Empty, siCategories)));
  EXPECT_EQ(Fixed.GetNumConstraints(), 1);
  EXPECT_TRUE(Gives<bool>(Rule.EraseConstraint(2, "NUM", "SG", "empty", {3, 4})));
  EXPECT_TRUE(Gives<bool>(Rule.EraseCategoryConstraints(4)));
  Rule.ClearConstraints();
  EXPECT_EQ(Fixed.GetNumConstraints(), 0);
}

// ---- Constraint ---------------------------------------------------------------------------------

static_assert(IsPlainValue<Constraint>);
static_assert(std::is_constructible_v<Constraint, int, int, Text, Text, int, bool>);
static_assert(std::is_convertible_v<Text, Constraint>);
static_assert(std::is_convertible_v<const Constraint&, Constraint>);
static_assert(Is<void(Constraint)>(&Constraint::operator=));
static_assert(Is<bool(Constraint) const>(&Constraint::operator<));
static_assert(Is<Text() const>(&Constraint::ReturnAsString));
static_assert(Is<void(int)>(&Constraint::SetCategory));
static_assert(Is<int() const>(&Constraint::GetCategory));
static_assert(Is<void(int)>(&Constraint::SetConstrainedIndex));
static_assert(Is<int() const>(&Constraint::GetConstrainedIndex));
static_assert(Is<void(Text)>(&Constraint::SetFeature));
static_assert(Is<Text() const>(&Constraint::GetFeature));
static_assert(Is<void(Text)>(&Constraint::SetFeatValue));
static_assert(Is<Text() const>(&Constraint::GetFeatValue));
static_assert(Is<void(int)>(&Constraint::SetRankInCategory));
static_assert(Is<int() const>(&Constraint::GetRankInCategory));
static_assert(Is<void(bool)>(&Constraint::SetValueConstraint));
static_assert(Is<bool() const>(&Constraint::IsValueConstraint));
static_assert(Is<int(Text) const>(&Constraint::GetAgreedIndex));

TEST(Signatures, ConstraintLifecycle) {
  const Text ConstraintText = "((y1 num) = sg)";
  const Text Feature = "NUM";
  const Text Value = "SG";
  const Constraint Six(4, 1, Feature, Value, -1, true);
  const Constraint Literal(4, 0, "NUM", "SG", -1, true);
  const Constraint Converted = ConstraintText;
  const Constraint Copied = Six;
  const Constraint Read("((y1 num) = sg)");
  Constraint Assigned;
  static_assert(std::is_void_v<decltype(Assigned = Six)>);
  Assigned = Literal;
  EXPECT_EQ(Gives<Text>(Assigned.ReturnAsString()), "((Y0 NUM) = SG)");
  for (const Constraint& Record : {Six, Converted, Copied, Read}) {
    EXPECT_EQ(Gives<Text>(Record.ReturnAsString()), "((Y1 NUM) = SG)");
    EXPECT_TRUE(Gives<bool>(Literal < Record));
    EXPECT_FALSE(Gives<bool>(Record < Assigned));
  }
}

TEST(Signatures, ConstraintFields) {
  const Text Word = "NUM";
  const bool IsValue = false;
  Constraint Record;
  const Constraint& Fixed = Record;
  Record.SetCategory(4);
  EXPECT_EQ(Gives<int>(Fixed.GetCategory()), 4);
  Record.SetConstrainedIndex(0);
  EXPECT_EQ(Gives<int>(Fixed.GetConstrainedIndex()), 0);
  Record.SetFeature(Word);
  EXPECT_EQ(Gives<Text>(Fixed.GetFeature()), Word);
  Record.SetFeatValue(Word);
  Record.SetFeatValue("(Y2");
  EXPECT_EQ(Gives<Text>(Fixed.GetFeatValue()), "(Y2");
  Record.SetRankInCategory(7);
  EXPECT_EQ(Gives<int>(Fixed.GetRankInCategory()), 7);
  Record.SetValueConstraint(IsValue);
  EXPECT_FALSE(Gives<bool>(Fixed.IsValueConstraint()));
  EXPECT_EQ(Gives<int>(Fixed.GetAgreedIndex(Fixed.GetFeatValue())), 2);
  EXPECT_EQ(Gives<int>(Fixed.GetAgreedIndex("X1")), 1);
}

// ---- Text utilities -----------------------------------------------------------------------------

static_assert(Is<Text(Text)>(&StringUtils::RemoveLeadingWhiteSpace));
static_assert(Is<Text(Text)>(&StringUtils::RemoveTrailingWhiteSpace));
static_assert(Is<Text(Text)>(&StringUtils::RemoveAllWhiteSpace));
static_assert(Is<bool(Text)>(&StringUtils::IsNumeric));
static_assert(Is<Text(Text, Text, Text)>(&StringUtils::ReplaceAll));
static_assert(Is<Text(Text, char)>(&StringUtils::EscapeChar));
static_assert(Is<Text(int)>(&StringUtils::Int2String));
static_assert(Is<int(Text)>(&StringUtils::String2Int));
static_assert(Is<Text(Text)>(&StringUtils::StringToUpper));
static_assert(Is<Text(Text)>(&StringUtils::StringToLower));
static_assert(Is<Text(Text)>(&StringUtils::RemoveBackslashR));
static_assert(Is<Strings(Text, Text)>(&StringUtils::Split));
static_assert(Is<Text(Text)>(&Utils::AllCaps));

static_assert(IsPlainValue<Tokenizer>);
static_assert(std::is_empty_v<Tokenizer>);
static_assert(Is<Strings(Text, Text) const>(&Tokenizer::operator()));
static_assert(Is<Strings(Text, Text, bool) const>(&Tokenizer::operator()));

TEST(Signatures, TextUtilities) {
  const Text Padded = " a b ";
  const Text Blank = " ";
  const char Quote = '\'';
  const StreamCapture Silence;
  EXPECT_EQ(Gives<Text>(StringUtils::RemoveLeadingWhiteSpace(Padded)), "a b ");
  EXPECT_EQ(Gives<Text>(StringUtils::RemoveTrailingWhiteSpace(Padded)), " a b");
  EXPECT_EQ(Gives<Text>(StringUtils::RemoveAllWhiteSpace(Padded)), "ab");
  EXPECT_FALSE(Gives<bool>(StringUtils::IsNumeric(Padded)));
  EXPECT_EQ(Gives<Text>(StringUtils::ReplaceAll(Padded, Blank, Text("-"))), "-a-b-");
  EXPECT_EQ(Gives<Text>(StringUtils::EscapeChar("it's", Quote)), "it\\'s");
  EXPECT_EQ(Gives<Text>(StringUtils::Int2String(-12)), "-12");
  EXPECT_EQ(Gives<int>(StringUtils::String2Int(Text("-12"))), -12);
  EXPECT_EQ(Gives<Text>(StringUtils::StringToUpper(Padded)), " A B ");
  EXPECT_EQ(Gives<Text>(StringUtils::StringToLower(Text("AB"))), "ab");
  EXPECT_EQ(Gives<Text>(StringUtils::RemoveBackslashR(Text("a\r"))), "a");
  EXPECT_EQ(Gives<Strings>(StringUtils::Split(Text("a b"), Blank)), (Strings{"a", "b"}));
  EXPECT_EQ(Gives<Text>(Utils::AllCaps(Padded)), " A B ");
}

TEST(Signatures, Tokenizer) {
  const Text Padded = " a \t b ";
  const Text Blank = " ";
  const bool Trim = true;
  Tokenizer Tokenize;
  const Tokenizer Fixed(Tokenize);
  EXPECT_EQ(Gives<Strings>(Tokenize(Padded, Blank)), (Strings{"a", "\t", "b"}));
  EXPECT_EQ(Gives<Strings>(Fixed(Padded, Blank, Trim)), (Strings{"a", "", "b"}));
  EXPECT_EQ(Gives<Strings>(Tokenize("a::b", "::")), (Strings{"a", "b"}));
  EXPECT_EQ(Gives<Strings>(Tokenize("a::b", "::", false)), (Strings{"a", "b"}));
}

// ---- Alignment index ----------------------------------------------------------------------------

static_assert(IsPlainValue<LineUp>);
static_assert(Is<bool(Text, int, IntSet&)>(&LineUp::GetEq));
static_assert(Is<bool(Text, int, IntSet&)>(&LineUp::GetEqFromY));

TEST(Signatures, LineUp) {
  const Text Alignments = "((1,2))";
  IntSet siPartners;
  LineUp Index;
  EXPECT_TRUE(Gives<bool>(Index.GetEq(Alignments, 1, siPartners)));
  EXPECT_TRUE(Gives<bool>(Index.GetEqFromY("((1,2))", 2, siPartners)));
  EXPECT_EQ(siPartners, (IntSet{1, 2}));
}

// ---- Settings and handler -----------------------------------------------------------------------

static_assert(Is<Text>(&GlobalParams::L2));
static_assert(Is<int>(&GlobalParams::DebuggingLevel));
static_assert(Is<bool>(&GlobalParams::SeedGenOnly));
static_assert(Is<bool>(&GlobalParams::ComposOnly));
static_assert(Is<bool>(&GlobalParams::MoveToPOS));
static_assert(Is<bool>(&GlobalParams::BasicConstraints));
static_assert(Is<Text>(&GlobalParams::OrigGrammarFile));
static_assert(Is<Text>(&GlobalParams::HeadTableFile));
static_assert(Is<bool>(&GlobalParams::Compounds));
static_assert(Is<bool>(&GlobalParams::ProDrop));
static_assert(Is<bool>(&GlobalParams::FindL2Root));
static_assert(Is<bool>(&GlobalParams::AdvConstraints));
static_assert(Is<bool>(&GlobalParams::ComplexCases));
static_assert(Is<bool>(&GlobalParams::MaxCompos));
static_assert(Is<bool>(&GlobalParams::LeaveLexForDiffPOS));
static_assert(Is<bool>(&GlobalParams::LenientPOS));
static_assert(Is<bool>(&GlobalParams::FilterRules));
static_assert(Is<std::set<Text>>(&GlobalParams::ssRelevantTypes));
static_assert(Is<bool>(&GlobalParams::NounPerson3));
static_assert(Is<bool>(&GlobalParams::StrictValConstr));

static_assert(std::is_same_v<HaltHandler, void (*)(HaltReason, const Text&)>);
static_assert(std::is_same_v<decltype(SetHaltHandler), HaltHandler(HaltHandler) noexcept>);
static_assert(std::is_same_v<decltype(GetHaltHandler), HaltHandler() noexcept>);

TEST(Signatures, GlobalParamsAndHaltHandler) {
  EXPECT_EQ(GlobalParams::DebuggingLevel, 0);
  GlobalParams Settings;
  const GlobalParams Fixed(Settings);
  Settings = Fixed;  // it is empty
  EXPECT_EQ(GlobalParams::DebuggingLevel, 0);
  const HaltGuard Guard;
  EXPECT_NE(Gives<HaltHandler>(GetHaltHandler()), nullptr);
  EXPECT_NE(Gives<HaltHandler>(SetHaltHandler(nullptr)), nullptr);
}
