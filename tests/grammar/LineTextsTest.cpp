// The texts of single lines: what a line is, headers, rule lines, alignments, constraints.

#include "HeaderText.h"
#include "LineKind.h"

#include <AlignmentLine.h>
#include <ConstraintFormat.h>
#include <HeaderLine.h>
#include <RuleLine.h>

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

namespace {

using Grammar::LineKind;
using TrRuleInternal::RuleLineFault;

TEST(LineKind, ClassifiesLinesByWhatTheyContain) {
  const std::vector<std::tuple<std::string, LineKind, std::string, std::string>> Cases{
      {"", LineKind::Blank, "", ""},
      {" \t\r", LineKind::Blank, "", ""},
      {";; a = b", LineKind::Comment, "", ";; a = b"},
      {"  ; {a}\r\r", LineKind::Comment, "", "; {a}"},
      {";--;(X1::Y1)", LineKind::Alignment, ";--;(X1::Y1)", ""},
      {"{NP,8}", LineKind::Header, "{NP,8}", ""},
      {"1. {NP,8} ;; eight", LineKind::Header, "1. {NP,8}", ";; eight"},
      {"{NP=8}", LineKind::Header, "{NP=8}", ""},
      {"N::N [N] -> [N]", LineKind::Sequence, "N::N [N] -> [N]", ""},
      {"{N::N [N] -> [N]", LineKind::Sequence, "{N::N [N] -> [N]", ""},
      {" (X1::Y1) ;; one = two", LineKind::Alignment, "(X1::Y1)", ";; one = two"},
      {"(x0 = x1)", LineKind::Constraint, "(x0 = x1)", ""},
      {"((x0 sem) = {a})", LineKind::Constraint, "((x0 sem) = {a})", ""},
      {" ( ", LineKind::Open, "(", ""},
      {")", LineKind::Close, ")", ""},
      {"a", LineKind::Other, "a", ""},
      {"((x0 lex) = \";;\")", LineKind::Constraint, "((x0 lex) = \";;\")", ""},
      {"((x0 lex) = \";;)", LineKind::Constraint, "((x0 lex) = \"", ";;)"},
      {"\"a\" ;; \"b\"", LineKind::Other, "\"a\"", ";; \"b\""}};
  for (const auto& [sLine, Kind, sCode, sComment] : Cases) {
    const Grammar::LineParts Parts = Grammar::PartsOf(sLine);
    EXPECT_EQ(Parts.Kind, Kind) << sLine;
    EXPECT_EQ(Parts.Code, sCode) << sLine;
    EXPECT_EQ(Parts.Comment, sComment) << sLine;
  }
}

Grammar::RuleHeader HeaderOf(const std::string& Code) {
  return Grammar::HeaderOf(TrRuleInternal::ParseHeader(Code), Code);
}

TEST(HeaderText, KeepsTheWholeTypeAndNumber) {
  const std::vector<std::tuple<std::string, std::string, std::string, int>> Cases{
      {"{NP,8}", "NP", "8", 8},
      {"{ADJP,12}", "ADJP", "12", 12},
      {"12. { NP , 007 } x", "NP", "7", 7},
      {"{,-1}", "", "-1", -1},
      {"{a{b,2147483647}", "a{b", "2147483647", 2147483647}};
  for (const auto& [sCode, sType, sNumber, Number] : Cases) {
    const Grammar::RuleHeader Header = HeaderOf(sCode);
    EXPECT_TRUE(Header.IsPresent && Header.IsReadable) << sCode;
    EXPECT_EQ(Header.Type, sType) << sCode;
    EXPECT_EQ(Header.Number, sNumber) << sCode;
    EXPECT_EQ(NumberOf(Header), Number) << sCode;
  }
}

TEST(HeaderText, KeepsAnUnreadableHeaderUnchanged) {
  for (const std::string sCode : {"{", "{}", "{NP}", "{NP,}", "{NP,a}", "{NP,8", "{NP 8}",
                                  "{NP,+8}", "{NP,8a}", "{NP,8,9}", "{NP,2147483648}", "}NP,8{"}) {
    const Grammar::RuleHeader Header = HeaderOf(sCode);
    EXPECT_TRUE(Header.IsPresent) << sCode;
    EXPECT_FALSE(Header.IsReadable) << sCode;
    EXPECT_EQ(Header.Type, sCode);
    EXPECT_EQ(NumberOf(Header), -1) << sCode;
  }
}

TEST(SequenceLine, ReturnsTypesAndLabels) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> Cases{
      {"NP::VP : [DET N] -> [N DET]", {"NP", "VP", "DET N", "N DET"}},
      {"NP::VP [ a ] -> [ b ] c", {"NP", "VP", "a", "b"}},
      {"N::N [[a]] -> [[b]]", {"N", "N", "[a]", "[b]"}}};
  for (const auto& [sCode, vsExpected] : Cases) {
    TrRuleInternal::RuleLineParts Text;
    EXPECT_EQ(ParseRuleLine(sCode, Text), RuleLineFault::None) << sCode;
    const std::vector<std::string> vsFound{std::string(Text.SLType), std::string(Text.TLType),
                                           std::string(Text.SLLabels), std::string(Text.TLLabels)};
    EXPECT_EQ(vsFound, vsExpected) << sCode;
  }
}

TEST(SequenceLine, ReportsTheInvalidPart) {
  const std::vector<std::pair<std::string, RuleLineFault>> Cases{
      {"[A] -> [A]", RuleLineFault::Types},
      {"N:: N [A] -> [A]", RuleLineFault::Types},
      {"::N [A] -> [A]", RuleLineFault::Types},
      {"N::N::N [A] -> [A]", RuleLineFault::Types},
      {"N::N[A] -> [A]", RuleLineFault::Types},
      {"N::N A] -> [A]", RuleLineFault::SourceSide},
      {"N::N [] -> [A]", RuleLineFault::SourceSide},
      {"N::N [ ] -> [A]", RuleLineFault::SourceSide},
      {"N::N [A] -> [A", RuleLineFault::TargetSide},
      {"N::N [A] -> [ ]", RuleLineFault::TargetSide},
      {"N::N [A] -> [A] -> [A]", RuleLineFault::TargetSide},
      {"N::N [A] -> [A] (X1::Y1)", RuleLineFault::TargetSide}};
  for (const auto& [sCode, Fault] : Cases) {
    TrRuleInternal::RuleLineParts Text;
    EXPECT_EQ(ParseRuleLine(sCode, Text), Fault) << sCode;
  }
}

TEST(AlignmentLine, RequiresANumberOnBothSides) {
  for (const std::string sCode :
       {"(X12::Y3)", "(x12::y3)", "1. (X12 ::  Y3 ) a", ";--;(X12::Y3)"}) {
    const auto Line = TrRuleInternal::ParseAlignment(sCode);
    ASSERT_TRUE(Line.has_value()) << sCode;
    EXPECT_EQ(Line->X, 12) << sCode;
    EXPECT_EQ(Line->Y, 3) << sCode;
  }
  for (const std::string sCode :
       {"X1::Y1", "(X1:Y1)", "(X::Y1)", "(X1::Y)", "(Xa::Y1)", "(Y1::X1)", "(X1::Y1::Y2)",
        "(X1::Y1) (X2::Y2)", "(X1::Y1))", "( X1::Y1)", "(X1234567890::Y1)", ")X1::Y1("}) {
    EXPECT_FALSE(TrRuleInternal::ParseAlignment(sCode).has_value()) << sCode;
  }
}

/// A constraint as "whole? left feature equals kind right node feature value".
std::string Described(const std::string& Text) {
  TrRuleInternal::ConstraintStop Stop;
  const auto Parts = TrRuleInternal::ParseConstraint(Text, Stop);
  if (!Parts) {
    return "stopped at " + std::to_string(Stop.Place);
  }
  std::string Line = Parts->IsWholeNode ? "whole " : "";
  Line.append(1, Parts->Left.Side).append(std::to_string(Parts->Left.Index));
  Line.append(" [").append(Parts->Feature).append("] ").append(Parts->Equals);
  Line += " kind " + std::to_string(static_cast<int>(Parts->Kind));
  Line.append(" [").append(Parts->Right).append("]");
  if (Parts->RightNode) {
    Line.append(" -> ").append(1, Parts->RightNode->Side);
    Line.append(std::to_string(Parts->RightNode->Index));
  }
  Line.append(" [").append(Parts->RightFeature).append("] [").append(Parts->Value).append("]");
  return Line;
}

TEST(ConstraintText, IsParsed) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"(x0 = x3)", "whole X0 [] = kind 0 [x3] -> X3 [] [x3]"},
      {"(Y1==(y0 det))", "whole Y1 [] == kind 1 [(y0 det)] -> Y0 [det] []"},
      {"(Y1 = (Y0 DET)", "whole Y1 [] = kind 1 [(Y0 DET)] -> Y0 [DET] []"},
      {"((y3 agr gen) = (y2 agr))", "Y3 [agr gen] = kind 1 [(y2 agr)] -> Y2 [agr] []"},
      {" ( ( y3  num ) = sg ) ", "Y3 [num] = kind 2 [sg] [] [sg]"},
      {"((x0 det) = x1)", "X0 [det] = kind 2 [x1] -> X1 [] [x1]"},
      {"((x1 n) = (*or* a b))", "X1 [n] = kind 3 [(*or* a b)] [] [a b]"},
      {"((x1 n) = (*NOT* a))", "X1 [n] = kind 4 [(*NOT* a)] [] [a]"},
      {"((x1 n) = (*NOT* a)", "X1 [n] = kind 4 [(*NOT* a)] [] [a]"},
      {"((x1 n) = (*OR* a (*NOT* b))", "X1 [n] = kind 3 [(*OR* a (*NOT* b)] [] [a (*NOT* b]"},
      {"(y2 = y0)))", "whole Y2 [] = kind 0 [y0] -> Y0 [] [y0]"},
      {"(x0 = n)", "whole X0 [] = kind 2 [n] [] [n]"},
      {"(x0 = x1b)", "whole X0 [] = kind 2 [x1b] [] [x1b]"}};
  for (const auto& [sText, sExpected] : Cases) {
    EXPECT_EQ(Described(sText), sExpected) << sText;
  }
}

TEST(ConstraintText, ReportsWhereItDepartsFromTheFormat) {
  const std::vector<std::pair<std::string, std::size_t>> Cases{{"", 0},
                                                               {"x0 = x1", 0},
                                                               {"(z0 = x1)", 1},
                                                               {"(x = x1)", 1},
                                                               {"((x0) = a)", 4},
                                                               {"((x0 num = a)", 9},
                                                               {"(x0 x1)", 4},
                                                               {"(x0 = )", 6},
                                                               {"((x0 num) = sg", 14},
                                                               {"((x0 *num) = sg)", 9},
                                                               {"((x0 num) = (a b))", 13},
                                                               {"((x0 num) = (*OR*))", 17},
                                                               {"((x0 num) = a = b)", 14},
                                                               {"(x0 = x1) a", 10},
                                                               {"1. (x0 = x1)", 0}};
  for (const auto& [sText, Stopped] : Cases) {
    EXPECT_EQ(Described(sText), "stopped at " + std::to_string(Stopped)) << sText;
  }
}

TEST(ConstraintText, ReportsWhatIsExpectedThere) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"x0 = x1", "\"(\""},
      {"(z0 = x1)", "a node such as x1 or y2"},
      {"((x0) = a)", "a blank and a feature"},
      {"((x0 num = a)", "\")\""},
      {"(x0 x1)", "\"=\""},
      {"(x0 = )", "a value or a node"},
      {"((x0 num) = sg", "\")\""},
      {"((x0 num) = (a b))", "a node and a feature, or *OR* or *NOT* and words"},
      {"((x0 num) = (*OR*))", "a blank and words"},
      {"((x0 num) = (*OR* a = b))", "\")\""},
      {"(x0 = x1) a", "the end"}};
  for (const auto& [sText, sExpected] : Cases) {
    TrRuleInternal::ConstraintStop Stop;
    EXPECT_FALSE(TrRuleInternal::ParseConstraint(sText, Stop)) << sText;
    EXPECT_EQ(Stop.Expected, sExpected) << sText;
  }
}

}  // namespace
