// The order in which constraints are written, as positions among the stored ones, and the groups
// that have no order.

#include "OrderHalt.h"
#include "PrintOrder.h"

#include "support/HaltGuard.h"
#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

using TrRuleInternal::FindPrintOrder;
using TrRuleInternal::HaltForOrder;
using TrRuleInternal::OrderedConstraint;
using TrRuleInternal::PrintGroup;

namespace {

using Places = std::vector<std::size_t>;

std::string NameOf(std::optional<PrintGroup> Group) {
  if (!Group) {
    return "";
  }
  switch (*Group) {
    case PrintGroup::Category1:
      return "Category1";
    case PrintGroup::Category2:
      return "Category2";
    case PrintGroup::Category3and4:
      return "Category3and4";
  }
  return "unknown";
}

/// A constraint of a category and index: a value, or an agreement with another index.
Constraint Record(const OrderedConstraint& Ordered) {
  const std::string Value = Ordered.AgreedIndex ? "X" + std::to_string(*Ordered.AgreedIndex) : "SG";
  return Constraint(Ordered.Category, Ordered.ConstrainedIndex, "F", Value, -1,
                    !Ordered.AgreedIndex.has_value());
}

}  // namespace

TEST(PrintOrder, OrdersConstraints) {
  struct Case {
    const char* What;
    std::vector<OrderedConstraint> vConstraints;
    Places vExpected;
  };
  const std::optional<int> Value;
  const std::vector<Case> vCases = {
      {"nothing", {}, {}},
      {"values stay where they are", {{4, 2, Value}, {1, 1, Value}, {9, 0, Value}}, {0, 1, 2}},
      {"values come first", {{1, 1, 2}, {4, 1, Value}}, {1, 0}},
      {"one agreement", {{1, 1, 1}}, {0}},
      {"two of one node", {{1, 1, 2}, {1, 1, 3}}, {0, 1}},
      {"the node that is referred to comes first", {{1, 1, 2}, {1, 2, 3}}, {1, 0}},
      {"a chain", {{1, 1, 2}, {1, 2, 3}, {1, 3, 4}, {1, 4, 9}}, {3, 2, 1, 0}},
      {"a node waits for all of its references",
       {{1, 1, 2}, {1, 1, 5}, {1, 2, 3}, {1, 3, 9}},
       {3, 2, 0, 1}},
      {"its own node is not a reference", {{1, 1, 1}, {1, 2, 1}}, {0, 1}},
      {"another category's node is none", {{1, 1, 2}, {4, 2, 1}}, {0, 1}},
      {"3 and 4 are one group", {{3, 0, 1}, {4, 1, 2}, {4, 2, 9}}, {2, 1, 0}},
      {"2 goes by index alone", {{2, 1, 2}, {2, 2, 1}}, {0, 1}},
      {"2 goes by index, not by place", {{2, 10, 1}, {2, 2, 1}}, {1, 0}},
      {"the groups in their order", {{4, 1, 9}, {3, 0, 9}, {2, 1, 9}, {1, 1, 9}}, {3, 2, 1, 0}},
      {"other categories are left out", {{-1, 1, 2}, {0, 1, 2}, {5, 1, 2}, {1, 1, 2}}, {3}},
      {"negative indices", {{4, -2, -1}, {4, -1, 0}}, {1, 0}},
  };
  for (const Case& Row : vCases) {
    Places vOrder = {7, 8, 9};
    EXPECT_EQ(NameOf(FindPrintOrder(Row.vConstraints, vOrder)), "") << Row.What;
    EXPECT_EQ(vOrder, Row.vExpected) << Row.What;
  }
}

TEST(PrintOrder, ReturnsTheFirstGroupWithoutAnOrder) {
  const std::pair<std::vector<OrderedConstraint>, std::string> Cases[] = {
      {{{1, 1, 2}, {1, 2, 1}}, "Category1"},
      {{{3, 0, 1}, {4, 1, 0}}, "Category3and4"},
      {{{4, 1, 2}, {4, 2, 3}, {4, 3, 1}, {4, 4, 9}}, "Category3and4"},
      {{{4, 1, 2}, {4, 2, 1}, {1, 1, 2}, {1, 2, 1}}, "Category1"},
      {{{2, 1, 2}, {2, 2, 1}, {4, 1, 2}, {4, 2, 1}}, "Category3and4"},
  };
  for (const auto& [vConstraints, Expected] : Cases) {
    Places vOrder;
    EXPECT_EQ(NameOf(FindPrintOrder(vConstraints, vOrder)), Expected);
  }
}

TEST(PrintOrder, HaltsWithTheMessageOfTheGroup) {
  const std::string Start = "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve ";
  const std::pair<PrintGroup, HaltReason> Cases[] = {
      {PrintGroup::Category1, HaltReason::Category1Order},
      {PrintGroup::Category2, HaltReason::Category2Order},
      {PrintGroup::Category3and4, HaltReason::Category3and4Order},
  };
  for (const auto& [Group, What] : Cases) {
    std::optional<Halted> Halt;
    const std::string Message = Start + NameOf(Group) + " order.";
    const auto Fail = [Failed = Group] { HaltForOrder(Failed); };
    EXPECT_EQ(WrittenBy([&] { Halt = HaltOf(Fail); }), (Written{"", Message + '\n'}));
    EXPECT_EQ(Halt, (Halted{What, Message}));
  }
}

TEST(PrintOrder, IsDecidedByTheFieldsOfAConstraint) {
  struct Case {
    bool IsValue;
    std::string FeatValue;
    std::optional<int> AgreedIndex;
  };
  const Case Cases[] = {{true, "X3", std::nullopt}, {false, "(X3 NUM)", 3}, {false, "SG", -1}};
  for (const Case& Row : Cases) {
    const OrderedConstraint Made = TrRuleInternal::MakeOrdered(2, 5, Row.IsValue, Row.FeatValue);
    EXPECT_EQ(Made.Category, 2);
    EXPECT_EQ(Made.ConstrainedIndex, 5);
    EXPECT_EQ(Made.AgreedIndex, Row.AgreedIndex) << Row.FeatValue;
  }
}

TEST(PrintOrder, OrdersRandomConstraintsLikeTheReference) {
  RandomInput Random;
  const std::vector<int> vCategories = {1, 1, 1, 2, 3, 4, 4, 4, 5, -1};
  int Failed = 0;
  for (int Case = 0; Case < 10000; ++Case) {
    std::vector<OrderedConstraint> vConstraints(Random.Below(14));
    std::vector<Constraint> vRecords;
    for (OrderedConstraint& New : vConstraints) {
      New.Category = Random.Pick(vCategories);
      New.ConstrainedIndex = static_cast<int>(Random.Below(8));
      const std::size_t Kind = Random.Below(10);
      if (Kind > 0) {
        New.AgreedIndex = static_cast<int>(Random.Below(8)) + (Kind > 2 ? New.ConstrainedIndex : 0);
      }
      vRecords.push_back(Record(New));
    }
    const Reference::PrintOrder Expected = Reference::OrderForPrint(vRecords);
    Places vOrder;
    const std::optional<PrintGroup> Group = FindPrintOrder(vConstraints, vOrder);
    ASSERT_EQ(Group.has_value(), !Expected.Message.empty());
    Strings vsTexts;
    for (const std::size_t Place : vOrder) {
      vsTexts.push_back(vRecords[Place].ReturnAsString());
    }
    if (Group) {
      EXPECT_TRUE(Reference::Holds(Expected.Message, NameOf(Group) + " order."))
          << Expected.Message;
      ++Failed;
    } else {
      ASSERT_EQ(vsTexts, Expected.vsTexts);
    }
  }
  EXPECT_GT(Failed, 100);
}
