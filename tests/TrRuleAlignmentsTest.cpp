// The alignments of a rule: which lines are accepted, canonical order, display and reversal of the
// alignment string, and malformed strings.

#include "AlignmentText.h"
#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/DebugLevel.h"
#include "support/HaltGuard.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <locale>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

using std::string_literals::operator""s;

namespace {

constexpr int AllLevels[] = {0, 1, 2, 3, 4, 5, -1};

const Written Nothing;

const std::string XError = "ERROR in TrRule::AddAlignment: x information missing or incorrect.\n";
const std::string YError = "ERROR in TrRule::AddAlignment, y information missing or incorrect.\n";

/// NUL, white space and letters of other character sets, and the last byte.
const std::string OddBytes = "\0\x80\x85\xA0\xC4\xE4\xFF"s;

/// The messages about pairs without an x or without a y, for each letter of `Which` in turn.
std::string Incorrect(const std::string& Alignments, std::string_view Which) {
  std::string Messages;
  for (const char Index : Which) {
    Messages += (Index == 'x' ? "ALIGNMENT" : "Alignment") + " string is not in correct format:|"s +
                Alignments + "|\n";
  }
  return Messages;
}

/// The message about a string without outer parentheses.
std::string Unparenthesised(const std::string& Alignments) {
  return "Alignment string was not in correct format:|" + Alignments +
         "|\nNewAl[0] is:" + Alignments.front() +
         "\nNewAl[NewAl.length()-1] is:" + Alignments.back() + "\n";
}

std::string Unreversible(const std::string& Alignments) {
  return "ERROR in TrRule::GetReversedAlignments: incorrect alignment string:|" + Alignments +
         "|\n";
}

/// The message about an index for which there is no label.
std::string Invalid(char Letter, int Index, int Count) {
  return "TrRule::IsLexicalized called with invalid "s + Letter +
         " index:" + std::to_string(Index) + ", where there are " + std::to_string(Count) +
         " indices.\n";
}

/// A rule with an alignment string, made without output.
struct Aligned : TrRule {
  explicit Aligned(const std::string& Alignments) {
    const DebugLevel Guard(0);
    const StreamCapture Streams;
    SetAlignment(Alignments);
  }
};

/// The effect of adding a line.
struct Added {
  bool Result;
  std::string Alignments;
  Written Streams;

  friend bool operator==(const Added& Left, const Added& Right) {
    return Left.Result == Right.Result && Left.Alignments == Right.Alignments &&
           Left.Streams == Right.Streams;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Added& Row) {
    return Stream << Row.Result << ' ' << Row.Alignments << Row.Streams;
  }
};

Added Add(TrRule& Rule, const std::string& Line) {
  Added Result{};
  Result.Streams = WrittenBy([&] { Result.Result = Rule.AddAlignment(Line); });
  Result.Alignments = Rule.GetAlignmentStr();
  return Result;
}

/// The output of setting an alignment string.
Written Set(TrRule& Rule, const std::string& Alignments) {
  return WrittenBy([&] { Rule.SetAlignment(Alignments); });
}

/// The alignment lines of a rule, and the output of getting them.
struct Shown {
  Strings Lines;
  Written Streams;

  friend bool operator==(const Shown& Left, const Shown& Right) {
    return Left.Lines == Right.Lines && Left.Streams == Right.Streams;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Shown& Row) {
    for (const std::string& sLine : Row.Lines) {
      Stream << sLine << '\n';
    }
    return Stream << Row.Streams;
  }
};

Shown Show(const TrRule& Rule) {
  Shown Result;
  Result.Streams = WrittenBy([&] { Result.Lines = Rule.GetAlignments(); });
  return Result;
}

/// A rule with three labels on each side, the second one a literal word.
void SetLabels(TrRule& Rule) {
  Rule.SetSLPOS("det \"car\" n");
  Rule.SetTLPOS("det \"auto\" n");
}

}  // namespace

// ---- Adding lines -------------------------------------------------------------------------------

TEST(TrRuleAddAlignment, OrdersPairsAndRemovesDuplicates) {
  struct Case {
    Strings Lines;
    Strings After;
  };
  const Case Cases[] = {
      {{"(X1::Y1)", "(X2::Y3)", "(X3::Y2)"}, {"((1,1))", "((1,1),(2,3))", "((1,1),(2,3),(3,2))"}},
      {{"(X3::Y2)", "(X1::Y1)"}, {"((3,2))", "((1,1),(3,2))"}},
      {{"(X1::Y1)", "(X1::Y1)"}, {"((1,1))", "((1,1))"}},
      {{"(X1::Y2)", "(X1::Y1)", "(X2::Y1)"}, {"((1,2))", "((1,1),(1,2))", "((1,1),(1,2),(2,1))"}},
      {{"(X10::Y1)", "(X9::Y1)"}, {"((10,1))", "((9,1),(10,1))"}},
      {{"(X1::Y10)", "(X1::Y9)"}, {"((1,10))", "((1,9),(1,10))"}},
  };
  for (const auto& [vsLines, vsAfter] : Cases) {
    TrRule Rule;
    ASSERT_EQ(vsLines.size(), vsAfter.size());
    for (std::size_t Index = 0; Index < vsLines.size(); ++Index) {
      EXPECT_EQ(Add(Rule, vsLines[Index]), (Added{true, vsAfter[Index], Nothing}));
    }
  }
}

TEST(TrRuleAddAlignment, AcceptsSmallLettersAndAnyTextAround) {
  struct Case {
    std::string Line;
    std::string Alignments;
  };
  const Case Cases[] = {
      {"  (x2::y3) ;", "((2,3))"},
      {"(X1::Y1)\r\n", "((1,1))"},
      {"; a comment (X1::Y2) ends", "((1,2))"},
      {"(X1 :: Y2)", "((1,2))"},
      {"(X1\t::\r\nY2)", "((1,2))"},
      {"(X1::::Y2)", "((1,2))"},
      {"(X0::Y1)", "((0,1))"},
      {"(X1::Y0)", "((1,0))"},
      {"(X-1::Y+2)", "((-1,+2))"},
      {"(XA::Yb)", "((A,B))"},
      {"(X1(::Y)2)", "((1(,)2))"},
      {OddBytes + "(X1" + OddBytes + "::Y2" + OddBytes + ")" + OddBytes,
       "((1" + OddBytes + ",2" + OddBytes + "))"},
  };
  for (const auto& [Line, Alignments] : Cases) {
    TrRule Rule;
    EXPECT_EQ(Add(Rule, Line), (Added{true, Alignments, Nothing})) << Line;
  }
}

TEST(TrRuleAddAlignment, KeepsBlanksInsideAnIndexText) {
  TrRule Rule;
  EXPECT_EQ(Add(Rule, "(X 2::Y 1 )"), (Added{true, "(( 2, 1 ))", Nothing}));
  EXPECT_EQ(Add(Rule, "(X 1 ::Y1)"), (Added{true, "(( 1,1),( 2, 1 ))", Nothing}));
  EXPECT_EQ(Add(Rule, "(X2::Y1)"), (Added{true, "(( 1,1),( 2, 1 ))", Nothing}));
}

TEST(TrRuleAddAlignment, LeavesTheAlignmentsUnchangedOnARejectedLine) {
  struct Case {
    std::string Line;
    std::string Out;
  };
  const Case Cases[] = {
      // no parentheses left
      {"", ""},
      {" ", ""},
      {"X1::Y1", ""},
      {"X1::Y1)", ""},
      {"(X1::Y1", ""},
      {")X1::Y1(", ""},
      // not two sides
      {"()", ""},
      {"(X1,Y1)", ""},
      {"(X1:Y1)", ""},
      {"(X1::Y1::Y2)", ""},
      {"(X1::Y1)(X2::Y2)", ""},
      {"(X1: :Y1)", ""},
      // no x
      {"(1::Y1)", XError},
      {"(X::Y1)", XError},
      {"(X ::Y1)", XError},
      {"(::)", XError},
      {"(::Y1)", XError},
      {"( X1::Y1)", XError},
      {"((X1::Y1))", XError},
      {"(Y1::X1)", XError},
      {"(1::1)", XError},
      // x, but no y
      {"(X1::Z1)", YError},
      {"(X1::Y)", YError},
      {"(X1:: )", YError},
      {"(X1::1)", YError},
      {"(X1:::Y1)", YError},
      {"(X1::X1)", YError},
      {"(X1:: )" + OddBytes, YError},
      {"(X1::)", YError},
  };
  for (const auto& [Line, Out] : Cases) {
    for (const char* Before : {"", "((2,2))"}) {
      Aligned Rule(Before);
      EXPECT_EQ(Add(Rule, Line), (Added{false, Before, {Out, ""}})) << Line;
    }
  }
}

TEST(TrRuleAddAlignment, ReadsEveryPrefixOfALine) {
  const std::string Line = "  (x2::y3) ;";
  for (std::size_t Size = 0; Size <= Line.size(); ++Size) {
    TrRule Rule;
    const bool IsWhole = Size >= Line.find(')') + 1;
    EXPECT_EQ(Add(Rule, Line.substr(0, Size)), (Added{IsWhole, IsWhole ? "((2,3))" : "", Nothing}))
        << Size << " bytes";
  }
}

TEST(TrRuleAddAlignment, ReadsAHundredThousandBytesOfTheSecondSide) {
  const std::string Fits = "Y1" + std::string(99997, ' ') + ")";
  TrRule Rule;
  EXPECT_EQ(Add(Rule, "(X1::Y" + Fits + ")"), (Added{false, "", {YError, ""}}));
  EXPECT_TRUE(Rule.AddAlignment("(X1::" + Fits));
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1" + std::string(99997, ' ') + "))");
}

TEST(TrRuleAddAlignment, TracesLineAndStringAtLevelOneAndTheOrderingAtLevelFour) {
  struct Case {
    const char* Line;
    bool Result;
    std::string OutAtOne;
    std::string OutAtFour;
    std::string OutAtOthers;
  };
  const std::string Line = "In TrRule::AddAlignment, string is:|";
  const Case Cases[] = {
      {"; (x1::y2) ;", true,
       Line + "; (X1::Y2) ;|\n" + Line + "(X1::Y2)|\n" +
           "At the end of AddAlignment, AlignmentString is:((2,2),(1,2))\n",
       "In ReorderAlignments, AlignmentString is:((2,2),(1,2))"
       "At the end of ReorderAlignments, AlignmentString is:((1,2),(2,2))\n",
       ""},
      {"x1::y2", false, Line + "X1::Y2|\n", "", ""},
      {"", false, Line + "|\n", "", ""},
      {"(x1::y2", false, Line + "(X1::Y2|\n", "", ""},
      {" (x1)", false, Line + " (X1)|\n" + Line + "(X1)|\n", "", ""},
      {"(1::y2)", false, Line + "(1::Y2)|\n" + Line + "(1::Y2)|\n" + XError, XError, XError},
      {"(x1::2)", false, Line + "(X1::2)|\n" + Line + "(X1::2)|\n" + YError, YError, YError},
  };
  for (const Case& Row : Cases) {
    for (const int Level : AllLevels) {
      Aligned Rule("((2,2))");
      const DebugLevel Guard(Level);
      const std::string& Out = Level == 1   ? Row.OutAtOne
                               : Level == 4 ? Row.OutAtFour
                                            : Row.OutAtOthers;
      EXPECT_EQ(Add(Rule, Row.Line),
                (Added{Row.Result, Row.Result ? "((1,2),(2,2))" : "((2,2))", {Out, ""}}))
          << Row.Line << " at level " << Level;
    }
  }
}

TEST(TrRuleAddAlignment, TracesTheFirstPair) {
  const DebugLevel Guard(1);
  TrRule Rule;
  EXPECT_EQ(Add(Rule, "(X1::Y1)"),
            (Added{true,
                   "((1,1))",
                   {"In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
                    "In TrRule::AddAlignment, string is:|(X1::Y1)|\n"
                    "At the end of AddAlignment, AlignmentString is:((1,1))\n",
                    ""}}));
}

TEST(TrRuleAddAlignment, StartsWithACommaAfterEmptyParentheses) {
  TrRule Rule;
  Rule.SetAlignment("()");
  EXPECT_EQ(Add(Rule, "(X1::Y1)"), (Added{true, "(,(1,1))", Nothing}));
  EXPECT_EQ(Add(Rule, "(X2::Y2)"), (Added{true, "(,(1,1),(2,2))", Nothing}));
  EXPECT_EQ(Show(Rule), (Shown{{}, Nothing}));
}

// ---- Canonical order ----------------------------------------------------------------------------

TEST(TrRuleSetAlignment, OrdersPairs) {
  struct Case {
    std::string Before;
    std::string After;
  };
  const Case Cases[] = {
      {"", ""},
      {"()", "()"},
      {"((1,1))", "((1,1))"},
      {"((2,1),(1,2),(1,1))", "((1,1),(1,2),(2,1))"},
      {"((1,1),(2,3),(3,2))", "((1,1),(2,3),(3,2))"},
      {"((10,1),(9,1))", "((9,1),(10,1))"},
      {"((1,10),(1,9))", "((1,9),(1,10))"},
      {"((1000000000,1),(999999999,1))", "((999999999,1),(1000000000,1))"},
      {"((1,1),(0,1),(-1,1))", "((-1,1),(0,1),(1,1))"},
      // each pair once: the first of several texts is kept
      {"((1,1),(1,1))", "((1,1))"},
      {"((01,1),(1,1))", "((01,1))"},
      {"((1,1),(01,1))", "((1,1))"},
      {"((1,1),(1,+1),(1, 1))", "((1,1))"},
      {"((1 ,2x),(1,2))", "((1 ,2x))"},
      // texts without digits count as 0 and are kept
      {"((2,1),(b,a))", "((b,a),(2,1))"},
      {"((2,1),(,))", "((,),(2,1))"},
      {"(( 2,1),(\t1, 1 ))", "((\t1, 1 ),( 2,1))"},
      {"((2" + OddBytes + ",1),(1,1" + OddBytes + "))",
       "((1,1" + OddBytes + "),(2" + OddBytes + ",1))"},
      // anything but a separator is part of a pair
      {"((1,1), (2,3))", "((1,1), (2,3))"},
      {"((2,1), (2,3),(1,1))", "((1,1),(2,1), (2,3))"},
      {"((2,1) ,(1,1))", "((2,1) ,(1,1))"},
      {"((2,1)x,(1,1))", "((2,1)x,(1,1))"},
      {"((2,1,5),(1,1))", "((1,1),(2,1,5))"},
      {"((2,1)),((1,1))", "(((1,1),(2,1)))"},
      {"(((2,1)),((1,1)))", "(((2,1)))"},
      {"(,(1,1))", "(,(1,1))"},
      {"((1,1),,(0,1))", "((1,1),,(0,1))"},
      {"((1,1)\r\n)", "((1,1)\r\n)"},
      // a trailing comma drops the last pair
      {"((1,1),(2,2),)", "((1,1))"},
      {"((2,2),(1,1),(3,3),)", "((1,1),(2,2))"},
      {"((1,1),)", ""},
      {"(,)", ""},
      {"(1,)", ""},
      {"((1,1),,)", ""},
      // parentheses and comma in an impossible order enclose nothing
      {"((1,1),(2),5))", "((1,1),(2),5))"},
      {"((2,1),(2),5))", "((2),5),(2,1))"},
      {"((0,0),,(3,1))", "((0,0),,(3,1))"},
      {"(,(3,1),(0,0))", "(,(3,1))"},
  };
  for (const auto& [Before, After] : Cases) {
    TrRule Rule;
    Rule.SetAlignment("((7,7),(8,8))");
    EXPECT_EQ(Set(Rule, Before), Nothing) << Before;
    EXPECT_EQ(Rule.GetAlignmentStr(), After) << Before;
    EXPECT_EQ(Set(Rule, After), Nothing) << After;
    EXPECT_EQ(Rule.GetAlignmentStr(), After);
  }
}

TEST(TrRuleSetAlignment, StoresOneStringForAnyOrderOfThePairs) {
  Strings vsPairs = {"(1,1)", "(1,2)", "(10,1)", "(10,10)", "(2,1)"};
  do {
    std::string Alignments;
    TrRule Rule;
    for (const std::string& sPair : vsPairs) {
      Alignments += (Alignments.empty() ? "(" : ",") + sPair;
    }
    Rule.SetAlignment(Alignments + ")");
    EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(1,2),(2,1),(10,1),(10,10))");
  } while (std::next_permutation(vsPairs.begin(), vsPairs.end()));
}

TEST(TrRuleSetAlignment, KeepsTheFirstTextOfARepeatedPair) {
  std::string Alignments;
  std::string Expected;
  for (int Index = 99; Index >= 10; --Index) {
    const std::string Number = std::to_string(Index);
    Alignments += (Alignments.empty() ? "((" : ",(") + Number + ",1)";
    Expected.insert(0, (Index == 10 ? "((" : ",(") + Number + ",1)");
  }
  for (const char* Zeros : {"0", "00", "000"}) {
    for (int Index = 10; Index <= 99; ++Index) {
      Alignments += ",("s + Zeros + std::to_string(Index) + ",1)";
    }
  }
  TrRule Rule;
  EXPECT_EQ(Set(Rule, Alignments + ")"), Nothing);
  EXPECT_EQ(Rule.GetAlignmentStr(), Expected + ")");
}

TEST(TrRuleSetAlignment, ReportsPairsWithoutAnIndexAndSortsThemByThePreviousPair) {
  struct Case {
    std::string Before;
    std::string After;
    std::string Missing;
  };
  const Case Cases[] = {
      // up to two characters are never checked
      {"ab", "()", "xy"},
      {"a", "()", "xy"},
      {"(", "()", "xy"},
      {")(", "()", "xy"},
      {",,", "()", "xy"},
      {"\0\xFF"s, "()", "xy"},
      // the first pair counts as 0
      {"(a)", "(a)", "xy"},
      {"((5),(0,0))", "((5))", "xy"},
      {"(7,1),(0,1))", "(7,1))", "x"},
      {"((4,7)", "((4,7)", "y"},
      {"(1,2)", "(1,2)", "xy"},
      {"(1,1()", "(1,1()", "xy"},
      {"(1,1)()", "(1,1)()", "x"},
      // a later one counts as the previous pair
      {"((3,2),(5),(1,1))", "((1,1),(3,2))", "xy"},
      {"((3,2),(5),(6),(4,1))", "((3,2),(4,1))", "xyxy"},
      {"((4,2),(4,5)", "((4,2))", "y"},
      {"((4,2),(3,5)", "((3,5,(4,2))", "y"},
      {"((5),(1,1))", "((5),(1,1))", "xy"},
      // missing ones before and after valid ones
      {"(1,1),(3,3),(2,2)", "(1,1),(2,2,(3,3))", "xy"},
      {"(9" + OddBytes + ")", "(9" + OddBytes + ")", "xy"},
  };
  for (const auto& [Before, After, Missing] : Cases) {
    TrRule Rule;
    EXPECT_EQ(Set(Rule, Before), (Written{"", Incorrect(Before, Missing)})) << Before;
    EXPECT_EQ(Rule.GetAlignmentStr(), After) << Before;
  }
}

TEST(TrRuleSetAlignment, EndsTheProcessWithoutOuterParentheses) {
  const std::string Cases[] = {"1,1",         "(1,1",     "1,1)",          "abc",        "((1,1))x",
                               "((1,1)) ",    " ((1,1))", "((1,1))\r",     ")1,1(",      "((1,1)),",
                               "((1,1),(2,2", "\0\0\0"s,  "\xFF\xFE\xFD"s, "((1,1))\r\n"};
  for (const std::string& Alignments : Cases) {
    EXPECT_EQ(RunInChild([&] { TrRule().SetAlignment(Alignments); }),
              (ChildEnd{1, "", Unparenthesised(Alignments)}))
        << Alignments;
  }
}

TEST(TrRuleSetAlignment, HandlesEveryPrefixOfAString) {
  const std::string Whole = "((1,1),(2,3),(3,2))";
  for (std::size_t Size = 0; Size < Whole.size(); ++Size) {
    const std::string Prefix = Whole.substr(0, Size);
    SCOPED_TRACE(Prefix);
    const auto Set = [&] {
      TrRule Rule;
      Rule.SetAlignment(Prefix);
      std::cout << Rule.GetAlignmentStr();
    };
    if (Size > 2 && Prefix.back() != ')') {
      EXPECT_EQ(RunInChild(Set), (ChildEnd{1, "", Unparenthesised(Prefix)}));
    } else if (Size == 0) {
      EXPECT_EQ(WrittenBy(Set), Nothing);
    } else if (Size <= 2) {
      EXPECT_EQ(WrittenBy(Set), (Written{"()", Incorrect(Prefix, "xy")}));
    } else {
      EXPECT_EQ(WrittenBy(Set), (Written{Prefix, Incorrect(Prefix, "y")}));
    }
  }
}

TEST(TrRuleSetAlignment, TracesTheOrderingAtLevelFour) {
  struct Case {
    const char* Before;
    std::string OutAtFour;
    std::string Err;
  };
  const std::string Begin = "In ReorderAlignments, AlignmentString is:";
  const std::string End = "At the end of ReorderAlignments, AlignmentString is:";
  const Case Cases[] = {
      {"", Begin, ""},
      {"()", Begin + "()" + End + "()\n", ""},
      {"((1,1),)", Begin + "((1,1),)" + End + "\n", ""},
      {"((1,1),(2,3))", Begin + "((1,1),(2,3))" + End + "((1,1),(2,3))\n", ""},
      {"((2,1),(1,1))", Begin + "((2,1),(1,1))" + End + "((1,1),(2,1))\n", ""},
      {"ab", Begin + "ab" + End + "()\n", Incorrect("ab", "xy")},
  };
  for (const Case& Row : Cases) {
    for (const int Level : AllLevels) {
      TrRule Rule;
      const DebugLevel Guard(Level);
      EXPECT_EQ(Set(Rule, Row.Before), (Written{Level == 4 ? Row.OutAtFour : "", Row.Err}))
          << Row.Before << " at level " << Level;
    }
  }
}

TEST(TrRuleSetAlignment, TracesBeforeItEndsTheProcess) {
  for (const int Level : AllLevels) {
    const DebugLevel Guard(Level);
    EXPECT_EQ(RunInChild([] { TrRule().SetAlignment("1,2"); }),
              (ChildEnd{1, Level == 4 ? "In ReorderAlignments, AlignmentString is:1,2" : "",
                        Unparenthesised("1,2")}));
  }
}

TEST(TrRuleSetAlignment, StoresTheStringBeforeTheHandlerIsCalled) {
  Aligned Rule("((1,1))");
  const StreamCapture Streams;
  const std::string Message = Unparenthesised("1,2");
  EXPECT_EQ(HaltOf([&] { Rule.SetAlignment("1,2"); }),
            (Halted{HaltReason::AlignmentFormat, Message.substr(0, Message.size() - 1)}));
  EXPECT_EQ(Rule.GetAlignmentStr(), "1,2");
  Rule.SetAlignment("((2,2),(1,1))");
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(2,2))");
}

TEST(TrRuleSetAlignment, LeavesTheWordLevelStringUnchanged) {
  for (const std::string& Text :
       {"((2,1),(1,1))"s, ""s, "()"s, "1,1"s, "ab"s, "((1,1),)"s, OddBytes}) {
    for (const int Level : AllLevels) {
      TrRule Rule;
      EXPECT_EQ(WrittenBy([&] {
                  const DebugLevel Guard(Level);
                  Rule.SetsWordLevelAl(Text);
                  EXPECT_EQ(Rule.GetsWordLevelAl(), Text);
                }),
                Nothing);
      EXPECT_EQ(Rule.GetAlignmentStr(), "");
      const TrRule Copy(Rule);
      EXPECT_EQ(Copy.GetsWordLevelAl(), Text);
    }
  }
}

// ---- Display ------------------------------------------------------------------------------------

TEST(TrRuleGetAlignments, ReturnsALineForEachPairInStoredOrder) {
  struct Case {
    std::string Alignments;
    Strings Lines;
  };
  const Case Cases[] = {
      {"", {}},
      {"()", {}},
      {"(a)", {}},
      {"((1,1))", {"(X1::Y1)"}},
      {"((1,1),(2,3),(3,2))", {"(X1::Y1)", "(X2::Y3)", "(X3::Y2)"}},
      {"((3,2),(2,3),(1,1))", {"(X1::Y1)", "(X2::Y3)", "(X3::Y2)"}},
      {"((1,2),(1,3))", {"(X1::Y2)", "(X1::Y3)"}},
      {"(( 1 ,02x))", {"(X 1 ::Y02x)"}},
      {"((1" + OddBytes + ",2" + OddBytes + "))", {"(X1" + OddBytes + "::Y2" + OddBytes + ")"}},
      // the walk reads the texts between the nearest parentheses and the comma
      {"(1,2)", {"(X1::Y2)"}},
      {"((1,2)", {"(X1::Y2)"}},
      {"((1,2,3))", {"(X1::Y2,3)"}},
      {"(((1,2)))", {"(X1::Y2)"}},
      {"((1(2,3))", {"(X2::Y3)"}},
      {"((1,1), (2,3))", {"(X1::Y1)", "(X2::Y3)"}},
      {"((1,1)x(2,3))", {"(X1::Y1)", "(X2::Y3)"}},
      {"((1,1)xx)", {"(X1::Y1)"}},
      // a comma without a number after it ends the walk
      {"(,(1,1))", {}},
      {"((1,1),(3,(2,2)))", {"(X1::Y1)"}},
  };
  for (const auto& [Alignments, vsLines] : Cases) {
    Aligned Rule(Alignments);
    Rule.SetSLPOS("a b c");
    Rule.SetTLPOS("a b c");
    EXPECT_EQ(Show(Rule), (Shown{vsLines, Nothing})) << Alignments;
  }
}

TEST(TrRuleGetAlignments, TreatsPartsInTheWrongOrderAsEmpty) {
  Aligned Rule("((1),1))");
  ASSERT_EQ(Rule.GetAlignmentStr(), "((1),1))");
  EXPECT_EQ(Show(Rule), (Shown{{"(X1)::Y)"}, {"", Invalid('x', 1, 0) + Invalid('y', 0, 0)}}));
  SetLabels(Rule);
  EXPECT_EQ(Show(Rule), (Shown{{"(X1)::Y)"}, {"", Invalid('y', 0, 3)}}));
}

TEST(TrRuleGetAlignments, MarksThePairsOfLiteralWords) {
  Aligned Rule("((1,1),(1,2),(2,1),(2,2),(3,3))");
  SetLabels(Rule);
  EXPECT_EQ(
      Show(Rule),
      (Shown{{"(X1::Y1)", ";--;(X1::Y2)", ";--;(X2::Y1)", ";--;(X2::Y2)", "(X3::Y3)"}, Nothing}));
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(1,2),(2,1),(2,2),(3,3))");
}

TEST(TrRuleGetAlignments, LooksUpYOnlyWhenXIsNotALiteralWord) {
  struct Case {
    const char* Alignments;
    Strings Lines;
    std::string Err;
  };
  const Case Cases[] = {
      {"((1,4))", {"(X1::Y4)"}, Invalid('y', 4, 3)},
      {"((4,1))", {"(X4::Y1)"}, Invalid('x', 4, 3)},
      {"((4,2))", {";--;(X4::Y2)"}, Invalid('x', 4, 3)},
      {"((4,5))", {"(X4::Y5)"}, Invalid('x', 4, 3) + Invalid('y', 5, 3)},
      {"((2,5))", {";--;(X2::Y5)"}, ""},
      {"((0,1))", {"(X0::Y1)"}, Invalid('x', 0, 3)},
      {"((1,0))", {"(X1::Y0)"}, Invalid('y', 0, 3)},
      {"((0,2))", {";--;(X0::Y2)"}, Invalid('x', 0, 3)},
      {"((2,0))", {";--;(X2::Y0)"}, ""},
      {"((-1,a))", {"(X-1::Ya)"}, Invalid('x', -1, 3) + Invalid('y', 0, 3)},
      {"((0,0),(4,4))",
       {"(X0::Y0)", "(X4::Y4)"},
       Invalid('x', 0, 3) + Invalid('y', 0, 3) + Invalid('x', 4, 3) + Invalid('y', 4, 3)},
  };
  for (const Case& Row : Cases) {
    for (const int Level : AllLevels) {
      Aligned Rule(Row.Alignments);
      SetLabels(Rule);
      const DebugLevel Guard(Level);
      EXPECT_EQ(Show(Rule), (Shown{Row.Lines, {"", Row.Err}})) << Row.Alignments;
    }
  }
}

TEST(TrRuleGetAlignments, EndsAtATrailingComma) {
  struct Case {
    const char* Text;
    Strings Pairs;
  };
  const Case Cases[] = {
      {"", {}},
      {",", {}},
      {"1", {}},
      {"1,", {}},
      {"(1,2),", {"1/2"}},
      {"((1,2),,", {"1/2"}},
      {"(1,2),(3,4)x", {"1/2", "3/4"}},
  };
  for (const auto& [Text, vsPairs] : Cases) {
    Strings vsFound;
    TrRuleInternal::DisplayWalk Walk(Text);
    for (TrRuleInternal::DisplayPair Pair; Walk.Next(Pair);) {
      vsFound.push_back(std::string(Pair.X) + "/" + std::string(Pair.Y));
    }
    EXPECT_EQ(vsFound, vsPairs) << Text;
  }
}

// ---- Reversal -----------------------------------------------------------------------------------

TEST(TrRuleReversedAlignments, ExchangesXAndYInPlace) {
  struct Case {
    std::string Text;
    std::string Reversed;
  };
  const Case Cases[] = {
      {"", ""},
      {"((1,2))", "((2,1))"},
      {"((1,1),(2,3),(3,2))", "((1,1),(3,2),(2,3))"},
      {"((1,1),(3,2),(2,3))", "((1,1),(2,3),(3,2))"},
      {"(( 1 ,\t2 ),(3, 4\r\n))", "((2,1),(4,3))"},
      {" ((1,2))\n", "((2,1))"},
      {"1,2", "((2,1))"},
      {"(((1,2", "((2,1))"},
      {"1,2)))", "((2,1))"},
      {"((a,,b))", "((b,a))"},
      {"((1, ))", "((,1))"},
      {"(( ,1))", "((1,))"},
      {"((1),2))", "((2,1)))"},
      {"((1,2),)", "((2),1))"},
      {"),(", "()"},
      {"),(1,2),(", "((2,1))"},
      {"((x" + OddBytes + ",y))", "((y,x" + OddBytes + "))"},
  };
  for (const Case& Row : Cases) {
    Aligned Rule("((5,6))");
    std::string Reversed;
    EXPECT_EQ(WrittenBy([&] { Reversed = CallGetReversedAlignments(Rule, Row.Text); }), Nothing);
    EXPECT_EQ(Reversed, Row.Reversed) << Row.Text;
    EXPECT_EQ(Rule.GetAlignmentStr(), "((5,6))");
  }
}

TEST(TrRuleReversedAlignments, EndsTheProcessOnAPairWithoutTwoParts) {
  const std::string Cases[] = {
      "()",        "(",     "1",          " ",           "((1))",          "((1,))", "((,1))",
      "((1,2,3))", "((,))", "((1,1),())", "((1,1),(2))", "((1,1), (2,3))", OddBytes, "((1,2)),x"};
  for (const std::string& Text : Cases) {
    EXPECT_EQ(RunInChild([&] {
                TrRule Rule;
                CallGetReversedAlignments(Rule, Text);
              }),
              (ChildEnd{1, "", Unreversible(Text)}))
        << Text;
  }
}

TEST(TrRuleReversedAlignments, TracesTheStringOfTheRuleAndTheResultAtLevelOne) {
  struct Case {
    const char* Text;
    std::string OutAtOne;
  };
  const std::string Begin = "In TrRule::GetReversedAlignments() AlignmentString is:|((5,6))|\n";
  const Case Cases[] = {
      {"", Begin},
      {"((1,2),(3,4))",
       Begin + "In TrRule::GetReversedAlignments() ReturnAlStr is:|((2,1),(4,3))|\n"},
  };
  for (const Case& Row : Cases) {
    for (const int Level : AllLevels) {
      Aligned Rule("((5,6))");
      const DebugLevel Guard(Level);
      EXPECT_EQ(WrittenBy([&] { CallGetReversedAlignments(Rule, Row.Text); }),
                (Written{Level == 1 ? Row.OutAtOne : "", ""}))
          << "level " << Level;
    }
  }
}

TEST(TrRuleReversedAlignments, TracesBeforeItEndsTheProcess) {
  for (const int Level : AllLevels) {
    Aligned Rule("((5,6))");
    const DebugLevel Guard(Level);
    EXPECT_EQ(
        RunInChild([&] { CallGetReversedAlignments(Rule, "((1,1),(2))"); }),
        (ChildEnd{
            1,
            Level == 1 ? "In TrRule::GetReversedAlignments() AlignmentString is:|((5,6))|\n" : "",
            Unreversible("((1,1),(2))")}));
  }
}

TEST(TrRuleReversedAlignments, AppliesToAllStringsOfAFlippedRule) {
  TrRule Rule;
  ASSERT_TRUE(Rule.SetTrRuleFromString(SampleText));
  Rule.SetsWordLevelAl("((1,2),(2,2),(1,3))");
  Rule.AddAlterTrInfo("", "", "((4,5),(3,9))", "", {}, {}, {}, {});
  Rule.FlipRuleNoConstraints();
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(3,2),(2,3))");
  EXPECT_EQ(Rule.GetsWordLevelAl(), "((2,1),(2,2),(3,1))");
  Strings vsAlignments;
  Strings vsOther;
  std::vector<Strings> vvsOther;
  std::vector<std::map<int, int>> vmiiOther;
  Rule.GetAllAlts(vsOther, vsOther, vsAlignments, vsOther, vmiiOther, vmiiOther, vvsOther,
                  vvsOther);
  EXPECT_EQ(vsAlignments, (Strings{"((1,1),(3,2),(2,3))", "((5,4),(9,3))"}));
  EXPECT_EQ(Show(Rule), (Shown{{"(X1::Y1)", "(X3::Y2)", "(X2::Y3)"}, Nothing}));
  TrRule Assigned;
  Assigned = Rule;
  EXPECT_EQ(Assigned.GetAlignmentStr(), "((1,1),(2,3),(3,2))");
  EXPECT_TRUE(Rule.AddAlignment("(X3::Y3)"));
  EXPECT_EQ(Rule.GetAlignmentStr(), "((1,1),(2,3),(3,2),(3,3))");
}

// ---- Literal words ------------------------------------------------------------------------------

TEST(TrRuleIsLexicalized, HoldsForLabelsInDoubleQuotes) {
  struct Case {
    std::string Label;
    bool Lexicalized;
  };
  const Case Cases[] = {
      {"det", false},
      {"\"car\"", true},
      {"\"", true},
      {"\"\"", true},
      {"", false},
      {"\"car", false},
      {"car\"", false},
      {"'car'", false},
      {" \"car\"", false},
      {"\"car\" ", false},
      {"\"a b\"", true},
      {"\"" + OddBytes + "\"", true},
      {"\xE2\x80\x9C"
       "car\xE2\x80\x9D",
       false},
  };
  Strings vsLabels;
  for (const Case& Row : Cases) {
    vsLabels.push_back(Row.Label);
  }
  TrRule Sides[2];
  Sides[0].SetSLPOS(vsLabels);
  Sides[1].SetTLPOS(vsLabels);
  for (const int Type : {1, 2}) {
    int Index = 0;
    for (const Case& Row : Cases) {
      ++Index;
      for (const int Level : AllLevels) {
        const DebugLevel Guard(Level);
        EXPECT_EQ(WrittenBy([&] {
                    EXPECT_EQ(CallIsLexicalized(Sides[Type - 1], Index, Type), Row.Lexicalized)
                        << Row.Label;
                  }),
                  Nothing);
      }
    }
  }
}

TEST(TrRuleIsLexicalized, ReportsAnIndexWithoutALabelAndReturnsFalse) {
  TrRule Rule;
  Rule.SetSLPOS("\"a\" \"b\" \"c\"");
  Rule.SetTLPOS("\"a\" \"b\"");
  for (const int Level : AllLevels) {
    const DebugLevel Guard(Level);
    for (const int Index : {4, 5, 0, -1, 1000, INT_MAX, INT_MIN}) {
      EXPECT_EQ(WrittenBy([&] { EXPECT_FALSE(CallIsLexicalized(Rule, Index, 1)); }),
                (Written{"", Invalid('x', Index, 3)}));
      EXPECT_EQ(WrittenBy([&] { EXPECT_FALSE(CallIsLexicalized(Rule, Index, 2)); }),
                (Written{"", Invalid('y', Index, 2)}));
    }
    EXPECT_EQ(WrittenBy([&] { EXPECT_TRUE(CallIsLexicalized(Rule, 3, 1)); }), Nothing);
    EXPECT_EQ(WrittenBy([&] { EXPECT_FALSE(CallIsLexicalized(Rule, 3, 2)); }),
              (Written{"", Invalid('y', 3, 2)}));
  }
}

TEST(TrRuleIsLexicalized, PrintsTheWholeMessage) {
  TrRule Rule;
  Rule.SetSLPOS("a b c");
  EXPECT_EQ(WrittenBy([&] {
              CallIsLexicalized(Rule, 4, 1);
              CallIsLexicalized(Rule, -1, 2);
            }),
            (Written{"",
                     "TrRule::IsLexicalized called with invalid x index:4, where there are 3 "
                     "indices.\n"
                     "TrRule::IsLexicalized called with invalid y index:-1, where there are 0 "
                     "indices.\n"}));
}

TEST(TrRuleIsLexicalized, EndsTheProcessOnAnInvalidType) {
  TrRule Rule;
  SetLabels(Rule);
  for (const int Level : AllLevels) {
    const DebugLevel Guard(Level);
    for (const int Type : {3, 0, -1, INT_MIN}) {
      EXPECT_EQ(RunInChild([&] { CallIsLexicalized(Rule, 1, Type); }),
                (ChildEnd{1, "",
                          "TrRule::IsLexicalized(int IndPassIn, int Type) must be called "
                          "with a type of either 1 (for X,SL) or 2 (Y,TL).\n"}));
    }
  }
}

// ---- Locales ------------------------------------------------------------------------------------

namespace {

/// Numbers with a point as the thousands separator.
class GroupedNumbers : public std::numpunct<char> {
 protected:
  char do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

}  // namespace

TEST(TrRuleAlignmentsLocale, DoesNotChangeTheNumbersInMessages) {
  const std::locale Grouped(std::locale::classic(), new GroupedNumbers);
  const std::locale Old = std::locale::global(Grouped);
  const std::locale OldErr = std::cerr.imbue(Grouped);
  Aligned Rule("((123456,1234567))");
  EXPECT_EQ(Show(Rule), (Shown{{"(X123456::Y1234567)"},
                               {"",
                                "TrRule::IsLexicalized called with invalid x index:123456, "
                                "where there are 0 indices.\n"
                                "TrRule::IsLexicalized called with invalid y index:1234567, "
                                "where there are 0 indices.\n"}}));
  std::cerr.imbue(OldErr);
  std::locale::global(Old);
}
