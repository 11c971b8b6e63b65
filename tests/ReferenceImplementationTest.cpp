// Compares the fast algorithms with the reference implementation
// (support/ReferenceImplementation.h) on random input, half of it well-formed and half of it
// damaged. The input depends on one number:
//
//   TRRULE_TEST_SEED=7 trrule-tests --gtest_filter='ReferenceImplementation.*'

#include "support/ReferenceImplementation.h"

#include "AlignmentText.h"
#include "StringUtils.h"
#include "TrRule.h"
#include "support/HaltGuard.h"
#include "support/LibraryResults.h"
#include "support/PrivateAccess.h"
#include "support/RandomInput.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

using std::string_literals::operator""s;

namespace {

/// The number of inputs for each of the ten algorithms.
constexpr int Cases = 21000;

class ReferenceImplementation : public testing::Test, protected RandomInput {
 protected:
  static void SetUpTestSuite() {
    std::cout << "Random input of TRRULE_TEST_SEED=" << Seed() << '\n';
  }

  /// An alignment string with pairs that may repeat, in any order.
  std::string Pairs();

  /// Mostly a reference to a larger index, sometimes to any, or a value; rarely without an index.
  Constraint AnyReference();
};

std::string ReferenceImplementation::Pairs() {
  std::string Text = "(";
  for (std::size_t Left = Below(6); Left > 0; --Left) {
    const std::string X = std::to_string(Below(12));
    const std::string Y = std::to_string(Below(12));
    Text += '(' + X + ',' + Y + "),";
  }
  Text.back() = Text.size() > 1 ? ')' : '(';
  return Text == "(" ? "()" : Text;
}

Constraint ReferenceImplementation::AnyReference() {
  const int Category = Pick(std::vector<int>{1, 1, 1, 2, 3, 4, 4, 4, 5, -1});
  const int Index = static_cast<int>(Below(8));
  const std::string Feature = Pick(Strings{"all", "NUM"});
  const std::size_t Kind = Below(100);
  const int Agreed = static_cast<int>(Below(8)) + (Kind < 20 ? 0 : Index + 1);
  const std::string Node = Pick(Strings{"X", "Y", "(X", "(Y"}) + std::to_string(Agreed);
  return Constraint(Category, Index, Feature, Kind == 20 ? "SG" : Node, -1, Kind > 90);
}

}  // namespace

// ---- Texts ------------------------------------------------------------------------------------

TEST_F(ReferenceImplementation, AgreesOnSplitTexts) {
  const Tokenizer Tokenize;
  const Strings vsWords = {"NP", "::", ":", " ", "  ", "[DET ADJ N]", "->", "\t", "(X1", "=", "\r"};
  for (int Case = 0; Case < Cases; ++Case) {
    const std::string Delimiter =
        Case % 3 == 0 ? ':' + TextOf(": =a", 2) : Pick(Strings{" ", "::", " -> ", "="});
    const std::string Text =
        Case % 2 == 0 ? WordsOf(vsWords, 20) : TextOf(":: =ab\t\r\n\0\xA0"s, 40);
    ASSERT_EQ(Tokenize(Text, Delimiter), Reference::Pieces(Text, Delimiter)) << Text;
    ASSERT_EQ(Tokenize(Text, Delimiter, false), Reference::Pieces(Text, Delimiter)) << Text;
    ASSERT_EQ(Tokenize(Text, Delimiter, true), Reference::TrimmedPieces(Text, Delimiter)) << Text;
  }
}

TEST_F(ReferenceImplementation, AgreesOnTrimmedTexts) {
  const std::string OfAllBytes = [] {
    std::string Bytes;
    for (int Value = 0; Value < 256; ++Value) {
      Bytes += static_cast<char>(Value);
    }
    return Bytes;
  }();
  for (int Case = 0; Case < Cases; ++Case) {
    const std::size_t Start = Below(256);
    const std::size_t Length = Below(64);
    const std::string Text =
        Case % 2 == 0 ? TextOf("  \t\r\n\v\fa\0\xA0"s, 16) : OfAllBytes.substr(Start, Length);
    ASSERT_EQ(StringUtils::RemoveLeadingWhiteSpace(Text), Reference::WithoutLeadingSpace(Text));
    ASSERT_EQ(StringUtils::RemoveTrailingWhiteSpace(Text), Reference::WithoutTrailingSpace(Text));
    ASSERT_EQ(StringUtils::RemoveAllWhiteSpace(Text), Reference::WithoutSpace(Text));
  }
}

TEST_F(ReferenceImplementation, AgreesOnReplacements) {
  for (int Case = 0; Case < Cases; ++Case) {
    const std::string Text = Case % 2 == 0 ? WordsOf({"(*OR*", " SG", " PL", ")", "*", "'"}, 8)
                                           : TextOf("ab\"\\\0\xFF"s, 24);
    const std::string From =
        Case % 2 == 0 ? Pick(Strings{"(*OR*", ")", "'"}) : 'a' + TextOf("ab\\"s, 2);
    const std::string To =
        Case % 4 < 2 ? Pick(Strings{"", "a", "aa", "\\'", "(*OR*"}) : TextOf("a\"\\\0\xFF"s, 3);
    ASSERT_EQ(StringUtils::ReplaceAll(Text, From, To), Reference::Replaced(Text, From, To))
        << Text << " / " << From << " / " << To;
  }
}

// ---- Alignment strings ------------------------------------------------------------------------

namespace {

const std::string AlignmentBytes = "((()),,,1290- x\0\xFF"s;

}  // namespace

TEST_F(ReferenceImplementation, AgreesOnTheOrderOfAlignments) {
  int Settled = 0;
  for (int Case = 0; Case < Cases; ++Case) {
    const std::string Text = Case % 2 == 0 ? Pairs() : '(' + Damaged(Pairs(), AlignmentBytes) + ')';
    const Reference::Ordered Expected = Reference::Canonical(Text);
    ASSERT_EQ(Library::Canonical(Text), Expected) << Text;
    ASSERT_TRUE(!TrRuleInternal::IsCanonical(Text) || Reference::IsOrdered(Text)) << Text;
    ASSERT_TRUE(Case % 2 != 0 || TrRuleInternal::IsCanonical(Text) == Reference::IsOrdered(Text));
    // If no index is missing, ordering again changes nothing.
    if (Expected.Missing.empty()) {
      ASSERT_EQ(Reference::Canonical(Expected.Text), Expected) << Text;
      ++Settled;
    }
  }
  EXPECT_GT(Settled, Cases / 2);
}

TEST_F(ReferenceImplementation, AgreesOnDisplayedAlignments) {
  for (int Case = 0; Case < Cases; ++Case) {
    const std::string Text = Case % 2 == 0 ? Pairs() : Damaged(Pairs(), AlignmentBytes);
    ASSERT_EQ(Library::Displayed(Text), Reference::Displayed(Text)) << Text;
  }
}

TEST_F(ReferenceImplementation, AgreesOnReversedAlignments) {
  int Reversed = 0;
  for (int Case = 0; Case < Cases; ++Case) {
    const std::string Text = Case % 2 == 0 ? Pairs() : Damaged(Pairs(), AlignmentBytes);
    const std::optional<std::string> Expected = Reference::Reversed(Text);
    ASSERT_EQ(TrRuleInternal::ReversedAlignments(Text), Expected) << Text;
    Reversed += Expected ? 1 : 0;
  }
  EXPECT_GT(Reversed, Cases / 2);
}

// ---- Constraints ------------------------------------------------------------------------------

namespace {

std::string Fields(const Constraint& Record) {
  return Reference::KeyPrefix(Record) + Record.GetFeatValue() + "__" +
         std::to_string(Record.GetRankInCategory()) +
         (Record.IsValueConstraint() ? "__value" : "__reference");
}

const std::string ConstraintBytes = "()=* xyXY0129-\t\r_orOR\0\xE9"s;

}  // namespace

TEST_F(ReferenceImplementation, AgreesOnConstraintTexts) {
  const Strings vsWords = {"(",   ")",   "=",   ")=",  " ",    "x1", "y0",
                           "(x2", "(y0", "(y3", "num", "*OR*", "*",  " = "};
  std::set<std::string> ssRecords;
  StreamCapture Streams;
  for (int Case = 0; Case < Cases; ++Case) {
    const std::string Text =
        Case % 2 == 0 ? Damaged(Pick(ConstraintSamples), ConstraintBytes) : WordsOf(vsWords, 16);
    const Reference::Reading Expected = Reference::Read(Text);
    const Constraint Record(Text);
    ASSERT_EQ(Fields(Record), Fields(Expected.Record)) << Text;
    ASSERT_EQ(Streams.TakeErr(), Expected.Err) << Text;
    ssRecords.insert(Fields(Record));
  }
  EXPECT_EQ(Streams.TakeOut(), "");
  EXPECT_GT(ssRecords.size(), 500U);  // not all texts were rejected
}

TEST_F(ReferenceImplementation, AgreesOnRankedConstraintTexts) {
  constexpr int Rank = 2;
  constexpr int Category = 4;
  const Strings vsShapes = {"((X1 NUM) = (*OR* SG PL))", "((Y2 GEN) = (*NOT* M))",
                            "((X1 NUM) = SG)", "(X1 = X3)", "X1 = (X3)"};
  const Strings vsWords = {"(",    ")",     " ",   " = ", "=",   "X1",   "(X",
                           "(Y2 ", "*OR* ", "num", "\t",  "\0"s, "\xE9", "*NOT*"};
  int Set = 0;
  int Ended = 0;
  for (int Case = 0; Case < Cases; ++Case) {
    std::string Text = Case % 4 == 0 ? WordsOf(vsWords, 12) : Pick(vsShapes);
    for (std::size_t Left = Below(4); Left > 0; --Left) {
      const std::size_t Place = Below(Text.size() + 1);
      const std::size_t Lost = Below(3);
      Text.replace(Place, Lost, Pick(vsWords));
    }
    const Reference::RankedReading Expected = Reference::ReadRanked(Text, Rank, Category);
    TrRule Rule;
    std::optional<Halted> Halt;
    ASSERT_EQ(WrittenBy([&] { Halt = HaltOf([&] { Rule.SetConstraint(Text, Rank, Category); }); }),
              (Written{Expected.Out, Expected.Err}))
        << Text;
    ASSERT_EQ(Halt.has_value(), Expected.Ended) << Text;
    const std::set<Constraint> Records = Rule.GetConstraintsAsSetC();
    ASSERT_EQ(Records.empty() ? "" : Fields(*Records.begin()),
              Expected.Record ? Fields(*Expected.Record) : "")
        << Text;
    ASSERT_TRUE(!Expected.Record || Expected.Record->IsValueConstraint());  // none refers to a node
    Set += Expected.Record ? 1 : 0;
    Ended += Expected.Ended ? 1 : 0;
  }
  EXPECT_GT(Set, Cases / 10);
  EXPECT_GT(Ended, Cases / 100);
}

// ---- The store --------------------------------------------------------------------------------

namespace {

Strings FieldsByKey(const std::map<std::string, Constraint>& Entries) {
  Strings vsEntries;
  for (const auto& [Key, Stored] : Entries) {
    vsEntries.push_back(Key + " -> " + Fields(Stored));
  }
  return vsEntries;
}

/// A rule and a reference store, which receive the same calls.
struct TwoStores {
  TrRule Rule;
  Reference::Store Store;
  unsigned Merged = 0;
  unsigned Erased = 0;
  unsigned Waited = 0;

  void Insert(const Constraint& New) {
    std::string Expected;
    const bool IsNew = Store.Insert(New, Expected);
    const auto Insertion = [&] { EXPECT_EQ(Rule.InsertConstraintIntoMap(New), IsNew); };
    EXPECT_EQ(WrittenBy(Insertion), (Written{Expected, ""}));
    Merged += Expected.empty() ? 0 : 1;
  }

  void Erase(int Index, const std::string& Feature, const std::string& Value,
             const std::string& Agreed, const std::set<int>& siCategories) {
    const std::optional<bool> Expected = Store.Erase(Index, Feature, Value, Agreed, siCategories);
    std::optional<bool> Found;
    const std::optional<Halted> Halt =
        HaltOf([&] { Found = Rule.EraseConstraint(Index, Feature, Value, Agreed, siCategories); });
    EXPECT_EQ(Found, Expected);
    EXPECT_EQ(Halt.has_value(), !Expected.has_value());
    Erased += Expected.value_or(false) ? 1 : 0;
    Waited += Expected ? 0 : 1;
  }

  void EraseCategory(int Category) {
    EXPECT_TRUE(Rule.EraseCategoryConstraints(Category));
    Store.EraseCategory(Category);
  }

  void ExpectTheSame() const {
    ASSERT_EQ(FieldsByKey(Rule.*GetMember(ConstraintsTag())), FieldsByKey(Store.Entries()));
  }
};

}  // namespace

TEST_F(ReferenceImplementation, AgreesOnMergedAndErasedConstraints) {
  constexpr int CasesOfOneRule = 30;
  const Strings vsFeatures = {"A", "A__B", "A__", "", "B"};
  const Strings vsValues = {"SG",    "PL",   "DU SG",    "(*OR* SG PL)", "(*OR* PL SG)",
                            ")",     "",     "B__SG",    "\tA",          "(*NOT* SG",
                            "empty", "\xE9", "(*OR* SG)"};
  const std::vector<int> vIndices = {1, 1, 10};
  const std::vector<int> vCategories = {3, 4, 4, 4};
  const std::vector<std::set<int>> vCategorySets = {{3}, {4}, {3, 4}, {}};
  unsigned Merged = 0;
  unsigned Erased = 0;
  unsigned Waited = 0;
  for (int Case = 0; Case < Cases; Case += CasesOfOneRule) {
    TwoStores Both;
    for (int Step = 0; Step < CasesOfOneRule; ++Step) {
      const std::size_t Kind = Below(16);
      const int Category = Pick(vCategories);
      const int Index = Pick(vIndices);
      const std::string Feature = Pick(vsFeatures);
      const std::string Value = Pick(vsValues);
      if (Kind < 10) {
        Both.Insert(Constraint(Category, Index, Feature, Value, Step, Below(4) > 0));
      } else if (Kind < 15) {
        Both.Erase(Index, Feature, Value, Pick(vsValues), vCategorySets[Kind % 4]);
      } else {
        Both.EraseCategory(Category);
      }
      ASSERT_NO_FATAL_FAILURE(Both.ExpectTheSame());
    }
    Merged += Both.Merged;
    Erased += Both.Erased;
    Waited += Both.Waited;
  }
  EXPECT_GT(Merged, 500U);
  EXPECT_GT(Erased, 50U);
  EXPECT_GT(Waited, 100U);
}

// ---- Print order ------------------------------------------------------------------------------

namespace {

/// A rule with some constraints, and the same constraints in the order of their keys.
struct RuleInKeyOrder {
  TrRule Rule;
  std::map<std::string, Constraint> Entries;

  /// Skips values that would merge: merging is not under test.
  void Insert(const Constraint& New) {
    const std::string Prefix = Reference::KeyPrefix(New);
    const auto Neighbour = Entries.lower_bound(Prefix);
    const bool WouldMerge =
        New.IsValueConstraint() && Neighbour != Entries.end() && Neighbour->first.find(Prefix) == 0;
    if (!WouldMerge && Entries.insert({Prefix + New.GetFeatValue(), New}).second) {
      Rule.InsertConstraintIntoMap(New);
    }
  }

  Reference::PrintOrder ReferenceOrder() const {
    std::vector<Constraint> vConstraints;
    for (const auto& [Key, Stored] : Entries) {
      vConstraints.push_back(Stored);
    }
    return Reference::OrderForPrint(vConstraints);
  }
};

}  // namespace

TEST_F(ReferenceImplementation, AgreesOnThePrintOrder) {
  std::map<std::optional<HaltReason>, int> Outcomes;
  for (int Case = 0; Case < Cases; ++Case) {
    RuleInKeyOrder Made;
    for (std::size_t Left = Below(16); Left > 0; --Left) {
      Made.Insert(AnyReference());
    }
    const Reference::PrintOrder Expected = Made.ReferenceOrder();
    Strings vsOrder;
    std::optional<Halted> Halt;
    const Written Streams = WrittenBy(
        [&] { Halt = HaltOf([&] { vsOrder = CallGetConstraintsInPrintOrder(Made.Rule); }); });
    ASSERT_EQ(Streams, (Written{"", Expected.Message + (Expected.Message.empty() ? "" : "\n")}));
    ASSERT_EQ(Halt ? Halt->Message : "", Expected.Message);
    ASSERT_EQ(vsOrder, Halt ? Strings{} : Expected.vsTexts);
    ++Outcomes[Halt ? std::optional(Halt->What) : std::nullopt];
  }
  EXPECT_GT(Outcomes[std::nullopt], Cases / 10);
  EXPECT_GT(Outcomes[HaltReason::AgreedIndex], Cases / 200);
  EXPECT_GT(Outcomes[HaltReason::Category1Order], Cases / 200);
  EXPECT_GT(Outcomes[HaltReason::Category3and4Order], Cases / 200);
  EXPECT_EQ(Outcomes.size(), 4U);  // category 2 always has an order
}
