// The texts of single lines: what a line is, and headers.

#include "HeaderText.h"
#include "LineKind.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <tuple>
#include <vector>

namespace {

using Grammar::LineKind;

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

}  // namespace
