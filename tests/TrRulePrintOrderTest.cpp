// The order in which the constraints of a rule are printed: values first, then the agreements of
// each category after those that they refer to. Also the inputs that have no order.

#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

/// An agreement of a whole node, such as `{1, 2, "X3"}` for "(X2 = X3)".
struct Agreement {
  int Category;
  int Index;
  const char* Value;
};

TrRule RuleOf(const std::vector<Agreement>& vAgreements) {
  TrRule Rule;
  for (const Agreement& Other : vAgreements) {
    Rule.SetConstraint(Other.Category, Other.Index, "all", Other.Value, -1, false);
  }
  return Rule;
}

TrRule RuleOfTexts(const Strings& vsTexts) {
  TrRule Rule;
  for (const std::string& sText : vsTexts) {
    Rule.SetConstraint(sText);
  }
  return Rule;
}

Strings OrderOf(const std::vector<Agreement>& vAgreements) {
  TrRule Rule = RuleOf(vAgreements);
  return CallGetConstraintsInPrintOrder(Rule);
}

/// How a process ends that computes the order of a rule.
ChildEnd EndOf(TrRule& Rule) {
  return RunInChild([&] { CallGetConstraintsInPrintOrder(Rule); });
}

ChildEnd EndWith(const std::string& Message) {
  return {1, "", Message + '\n'};
}

std::string NoAgreedIndex(const std::string& Text) {
  return "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint " +
         Text;
}

std::string NoOrder(const std::string& Table) {
  return "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve " + Table + " order.";
}

const Strings vsSampleOrder = {"((X0 DET) = X1)", "((X0 MOD) = X2)", "(X0 = X3)",     "(Y0 = X0)",
                               "(Y1 = (Y0 DET)",  "(Y2 = Y0)",       "(Y3 = (Y0 MOD)"};

/// Whether the order of a rule is accessible.
template <typename RuleT, typename = void>
struct CanBeAskedFor : std::false_type {};
template <typename RuleT>
struct CanBeAskedFor<RuleT,
                     std::void_t<decltype(std::declval<RuleT&>().GetConstraintsInPrintOrder())>>
    : std::true_type {};

}  // namespace

// ---- The order --------------------------------------------------------------------------------

TEST(TrRulePrintOrder, IsEmptyWithoutConstraints) {
  EXPECT_EQ(OrderOf({}), Strings{});
}

TEST(TrRulePrintOrder, PutsValuesFirstAndY0BeforeItsDependentsInTheSample) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule), vsSampleOrder);
}

TEST(TrRulePrintOrder, PutsValuesOfAnyCategoryInKeyOrder) {
  TrRule Rule;
  for (const int Category : {7, 4, 3, 2, 1, -1}) {
    Rule.SetConstraint(Category, 1, "NUM", "SG", -1, true);
  }
  Rule.SetConstraint(4, 10, "GEN", "M", -1, true);
  Rule.SetConstraint(4, 1, "GEN", "MAX", -1, true);
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule),
            (Strings{"((Y1 NUM) = SG)", "((X1 NUM) = SG)", "((Y1 NUM) = SG)", "((Y1 NUM) = SG)",
                     "((Y10 GEN) = M)", "((Y1 GEN) = MAX)", "((Y1 NUM) = SG)", "((Y1 NUM) = SG)"}));
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule), Rule.GetConstraints());
}

TEST(TrRulePrintOrder, PutsValuesOfTheLastCategoryBeforeAgreementsOfTheFirst) {
  TrRule Rule = RuleOf({{1, 0, "X3"}, {2, 1, "X1"}, {3, 0, "Y1"}, {4, 1, "Y9"}});
  Rule.SetConstraint(4, 9, "NUM", "SG", -1, true);
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule),
            (Strings{"((Y9 NUM) = SG)", "(X0 = X3)", "(Y1 = X1)", "(Y1 = Y9)", "(Y0 = Y1)"}));
}

TEST(TrRulePrintOrder, PutsAgreementsAfterTheIndicesThatTheyReferTo) {
  struct Case {
    const char* What;
    std::vector<Agreement> vAgreements;
    Strings vsOrder;
  };
  const std::vector<Case> vCases = {
      {"chain", {{1, 1, "X2"}, {1, 2, "X3"}}, {"(X2 = X3)", "(X1 = X2)"}},
      {"chain that is in order", {{1, 2, "X1"}, {1, 1, "X9"}}, {"(X1 = X9)", "(X2 = X1)"}},
      {"long chain",
       {{1, 1, "X2"}, {1, 2, "X3"}, {1, 3, "X4"}, {1, 4, "X5"}},
       {"(X4 = X5)", "(X3 = X4)", "(X2 = X3)", "(X1 = X2)"}},
      {"y0 before y1 and y2",
       {{4, 1, "Y0"}, {4, 2, "Y0"}, {3, 0, "X0"}},
       {"(Y0 = X0)", "(Y1 = Y0)", "(Y2 = Y0)"}},
      {"y0 after y1", {{3, 0, "Y1"}, {4, 1, "Y2"}}, {"(Y1 = Y2)", "(Y0 = Y1)"}},
      {"itself", {{1, 1, "X1"}, {1, 2, "X1"}}, {"(X1 = X1)", "(X2 = X1)"}},
      {"itself and another",
       {{1, 1, "X1"}, {1, 1, "X2"}, {1, 2, "X2"}},
       {"(X2 = X2)", "(X1 = X1)", "(X1 = X2)"}},
      {"no key of the table", {{1, 1, "X9"}, {1, 0, "X8"}}, {"(X0 = X8)", "(X1 = X9)"}},
      {"levels, then indices",
       {{1, 1, "X4"}, {1, 2, "X3"}, {1, 3, "X9"}, {1, 4, "X3"}, {1, 5, "X9"}},
       {"(X3 = X9)", "(X5 = X9)", "(X2 = X3)", "(X4 = X3)", "(X1 = X4)"}},
      {"one of two is late",
       {{1, 1, "X2"}, {1, 1, "X3"}, {1, 2, "X3"}, {1, 3, "X9"}},
       {"(X3 = X9)", "(X2 = X3)", "(X1 = X2)", "(X1 = X3)"}},
      {"indices are numbers",
       {{1, 10, "X99"}, {1, 9, "X99"}, {1, -1, "X99"}},
       {"(X-1 = X99)", "(X9 = X99)", "(X10 = X99)"}},
      {"within an index, key order",
       {{4, 1, "Y9"}, {4, 1, "Y10"}, {4, 1, "(Y9"}},
       {"(Y1 = (Y9)", "(Y1 = Y10)", "(Y1 = Y9)"}},
      {"3 and 4 share an index: 3 stands first in key order",
       {{4, 0, "Y2"}, {3, 0, "Y3"}},
       {"(Y0 = Y3)", "(Y0 = Y2)"}},
      {"the letter of the other side does not matter",
       {{1, 1, "Y2"}, {1, 2, "Y3"}},
       {"(X2 = Y3)", "(X1 = Y2)"}},
  };
  for (const Case& Row : vCases) {
    SCOPED_TRACE(Row.What);
    EXPECT_EQ(OrderOf(Row.vAgreements), Row.vsOrder);
  }
}

TEST(TrRulePrintOrder, KeepsKeyOrderWithinAnIndex) {
  TrRule Rule;
  Strings vsExpected;
  for (const int Index : {1, 2}) {
    for (int Agreed = 10; Agreed < 60; ++Agreed) {
      const std::string Node = "X" + std::to_string(Agreed);
      Rule.SetConstraint(1, 3 - Index, "all", Node, -1, false);
      vsExpected.push_back("(X" + std::to_string(Index) + " = " + Node + ")");
    }
  }
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule), vsExpected);
}

TEST(TrRulePrintOrder, OrdersAgreementsOfFeaturesLikeThoseOfNodes) {
  TrRule Rule = RuleOfTexts({"((y1 num) = (y2 num))", "((y2 gen) = (y3 gen))",
                             "((x1 num) = (x2 num))", "((x2 num) = (x3 num))"});
  EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule),
            (Strings{"((X2 NUM) = (X3 NUM))", "((X1 NUM) = (X2 NUM))", "((Y2 GEN) = (Y3 GEN))",
                     "((Y1 NUM) = (Y2 NUM))"}));
}

TEST(TrRulePrintOrder, PutsCategoriesOneAfterAnother) {
  EXPECT_EQ(OrderOf({{4, 1, "Y2"}, {3, 0, "X0"}, {2, 1, "X1"}, {1, 5, "X6"}, {1, 6, "X1"}}),
            (Strings{"(X6 = X1)", "(X5 = X6)", "(Y1 = X1)", "(Y0 = X0)", "(Y1 = Y2)"}));
}

TEST(TrRulePrintOrder, OrdersCategoriesSeparately) {
  // 1 waits for 2 in each table, and 2 is only in another table.
  EXPECT_EQ(OrderOf({{1, 1, "X2"}, {2, 2, "X1"}, {4, 1, "Y2"}, {4, 3, "Y1"}}),
            (Strings{"(X1 = X2)", "(Y2 = X1)", "(Y1 = Y2)", "(Y3 = Y1)"}));
}

TEST(TrRulePrintOrder, OrdersCategory2ByIndexOnly) {
  EXPECT_EQ(OrderOf({{2, 1, "X2"}, {2, 2, "X1"}}), (Strings{"(Y1 = X2)", "(Y2 = X1)"}));
  EXPECT_EQ(OrderOf({{2, 3, "X1"}, {2, 10, "X3"}, {2, 2, "X3"}, {2, 1, "X10"}}),
            (Strings{"(Y1 = X10)", "(Y2 = X3)", "(Y3 = X1)", "(Y10 = X3)"}));
}

TEST(TrRulePrintOrder, OmitsAgreementsOfOtherCategories) {
  for (const int Category : {0, 5, -1, 7}) {
    TrRule Rule = RuleOf({{Category, 1, "X2"}, {1, 1, "X2"}, {Category, 2, "X1"}});
    Strings vsOrder;
    EXPECT_EQ(WrittenBy([&] { vsOrder = CallGetConstraintsInPrintOrder(Rule); }), Written{});
    EXPECT_EQ(vsOrder, Strings{"(X1 = X2)"});
    EXPECT_EQ(Rule.GetNumConstraints(), 3);
  }
}

TEST(TrRulePrintOrder, IgnoresTheOrderOfSetting) {
  Strings vsTexts = {"((x0 det) = x1)",  "((x0 mod) = x2)",  "(x0 = x3)", "(y0 = x0)",
                     "(y1 == (y0 det))", "(y3 == (y0 mod))", "(y2 = y0)"};
  std::mt19937 Random(20240503);
  for (int Round = 0; Round < 50; ++Round) {
    std::swap(vsTexts[Random() % vsTexts.size()], vsTexts[Random() % vsTexts.size()]);
    TrRule Rule = RuleOfTexts(vsTexts);
    EXPECT_EQ(CallGetConstraintsInPrintOrder(Rule), vsSampleOrder);
  }
}

TEST(TrRulePrintOrder, IsPrivate) {
  EXPECT_FALSE(CanBeAskedFor<TrRule>::value);
}

// ---- Rules without an order -------------------------------------------------------------------

TEST(TrRulePrintOrder, EndsTheProcessOnAnAgreementWithoutAnIndex) {
  struct Case {
    Agreement Only;
    const char* Text;
  };
  const std::vector<Case> vCases = {
      {{1, 1, "SG"}, "(X1 = SG)"},     {{2, 1, ""}, "(Y1 = )"},
      {{3, 0, "x1"}, "(Y0 = x1)"},     {{4, 1, "MAX"}, "(Y1 = MAX)"},
      {{4, 1, "X1 Y"}, "(Y1 = X1 Y)"}, {{4, 1, "X-1"}, "(Y1 = X-1)"},
      {{5, 1, "SG"}, "(Y1 = SG)"},     {{-1, -1, "\xE9"}, "(Y-1 = \xE9)"},
  };
  for (std::size_t Number = 0; Number < vCases.size(); ++Number) {
    const DebugLevel Debug(static_cast<int>(Number % 5));
    TrRule Rule = RuleOf({vCases[Number].Only});
    EXPECT_EQ(EndOf(Rule), EndWith(NoAgreedIndex(vCases[Number].Text)));
  }
}

TEST(TrRulePrintOrder, ReportsAMissingIndexWithTheFeature) {
  TrRule Rule;
  Rule.SetConstraint(4, 1, "NUM", "SG", -1, false);
  EXPECT_EQ(EndOf(Rule), EndWith(NoAgreedIndex("((Y1 NUM) = SG NUM))")));
}

TEST(TrRulePrintOrder, EndsTheProcessOnCycles) {
  struct Case {
    std::vector<Agreement> vAgreements;
    const char* Table;
  };
  const std::vector<Case> vCases = {
      {{{1, 1, "X2"}, {1, 2, "X1"}}, "Category1"},
      {{{1, 1, "X2"}, {1, 2, "X3"}, {1, 3, "X1"}}, "Category1"},
      {{{1, 1, "X2"}, {1, 1, "X9"}, {1, 2, "X1"}}, "Category1"},
      {{{4, 1, "Y2"}, {4, 2, "Y1"}}, "Category3and4"},
      {{{3, 0, "Y1"}, {4, 1, "Y0"}}, "Category3and4"},
      {{{3, 0, "X1"}, {4, 1, "X0"}}, "Category3and4"},
      // other keys of the table, and keys that wait for the cycle
      {{{1, 0, "X9"}, {1, 1, "X2"}, {1, 2, "X1"}, {1, 3, "X0"}}, "Category1"},
      {{{4, 1, "Y2"}, {4, 2, "Y1"}, {4, 3, "Y2"}, {4, 4, "Y9"}}, "Category3and4"},
  };
  for (std::size_t Number = 0; Number < vCases.size(); ++Number) {
    const DebugLevel Debug(static_cast<int>(Number % 5));
    TrRule Rule = RuleOf(vCases[Number].vAgreements);
    EXPECT_EQ(EndOf(Rule), EndWith(NoOrder(vCases[Number].Table)));
  }
}

TEST(TrRulePrintOrder, ReportsTheFirstError) {
  // A missing index comes before any cycle, the first in key order; then category 1 before others.
  const std::vector<std::pair<std::vector<Agreement>, std::string>> vCases = {
      {{{1, 1, "X2"}, {1, 2, "X1"}, {4, 2, "PL"}, {4, 1, "SG"}}, NoAgreedIndex("(Y1 = SG)")},
      {{{1, 1, "X2"}, {1, 2, "X1"}, {4, 1, "Y2"}, {4, 2, "Y1"}}, NoOrder("Category1")},
      {{{1, 1, "X2"}, {2, 1, "X2"}, {2, 2, "X1"}, {4, 1, "Y2"}, {4, 2, "Y1"}},
       NoOrder("Category3and4")},
  };
  for (const auto& [vAgreements, Message] : vCases) {
    TrRule Rule = RuleOf(vAgreements);
    EXPECT_EQ(EndOf(Rule), EndWith(Message));
  }
}

TEST(TrRulePrintOrder, ExitsWithoutUnwinding) {
  struct Announced {
    ~Announced() { std::cout << "unwound\n"; }
  };
  TrRule Rule = RuleOf({{1, 1, "SG"}});
  const ChildEnd End = RunInChild([&] {
    std::atexit([] { std::cout << "at exit\n"; });
    const Announced Local;
    CallGetConstraintsInPrintOrder(Rule);
  });
  EXPECT_EQ(End, (ChildEnd{1, "at exit\n", NoAgreedIndex("(X1 = SG)") + '\n'}));
}
