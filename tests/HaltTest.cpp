// The nine inputs that end the process and the two calls that never return: without a handler, with
// a handler that throws, and with one that returns. A rule remains usable after each of them.

#include "Halt.h"

#include "Constraint.h"
#include "OrderHalt.h"
#include "StringUtils.h"
#include "TrRule.h"
#include "support/ChildProcess.h"
#include "support/HaltGuard.h"
#include "support/PrivateAccess.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>
#include <pthread.h>

#include <atomic>
#include <cstdio>
#include <fstream>
#include <iostream>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

/// An operation on a rule.
using Action = void (*)(TrRule&);

/// An input that ends the process. The rule holds `SLType` "NP" before `Prepare`.
struct FatalInput {
  const char* Name;
  HaltReason What;
  Action Prepare;
  Action Run;
  const char* Message;
  bool OnOut;          ///< the message goes to standard output
  const char* Before;  ///< the output before the message
  const char* Held;    ///< the rule afterwards, as `Holding` shows it
  Action Repair;       ///< removes the cause
};

/// The parts of a rule that the inputs change.
std::string Holding(const TrRule& Rule) {
  std::string Text = Rule.GetSLType() + '|' + Rule.GetTLType() + '|' + Rule.GetAlignmentStr() +
                     '|' + Rule.GetsWordLevelAl();
  for (const std::string& sConstraint : Rule.GetConstraints()) {
    Text += '|' + sConstraint;
  }
  return Text;
}

void Nothing(TrRule& /*Rule*/) {}

void Print(TrRule& Rule) {
  Rule.Print();
}

void ClearConstraints(TrRule& Rule) {
  Rule.ClearConstraints();
}

void ClearAlignments(TrRule& Rule) {
  Rule.SetAlignment("");
}

void SetTwo(TrRule& Rule, const char* First, const char* Second) {
  Rule.SetConstraint(First);
  Rule.SetConstraint(Second);
}

constexpr const char* PrintedHead = "{,-1}\nNP:: [] -> []\n(\n";
constexpr const char* AlignmentFormatMessage =
    "Alignment string was not in correct format:|1,1|\n"
    "NewAl[0] is:1\nNewAl[NewAl.length()-1] is:1";
constexpr const char* CategoryRangeMessage =
    "Constraint::SetCategory must be called with 1,2,3, or 4.";

const FatalInput FatalInputs[] = {
    {"an alignment string without its parentheses", HaltReason::AlignmentFormat, Nothing,
     [](TrRule& Rule) { Rule.SetAlignment("1,1"); }, AlignmentFormatMessage, false, "", "NP||1,1|",
     ClearAlignments},
    {"an alignment pair without two parts", HaltReason::ReversedAlignmentFormat,
     [](TrRule& Rule) { Rule.SetsWordLevelAl("()"); },
     [](TrRule& Rule) { Rule.FlipRuleNoConstraints(); },
     "ERROR in TrRule::GetReversedAlignments: incorrect alignment string:|()|", false, "",
     "NP|||()", [](TrRule& Rule) { Rule.SetsWordLevelAl(""); }},
    {"a side without labels", HaltReason::LexicalizedType, [](TrRule& Rule) { Rule.SetSLPOS("n"); },
     [](TrRule& Rule) { CallIsLexicalized(Rule, 1, 3); },
     "TrRule::IsLexicalized(int IndPassIn, int Type) must be called with a type of either 1 (for "
     "X,SL) or 2 (Y,TL).",
     false, "", "NP|||", [](TrRule& Rule) { Rule.SetSLPOS(""); }},
    {"a complex agreement", HaltReason::ComplexAgreement,
     [](TrRule& Rule) { Rule.SetConstraint("(x0 = x3)"); },
     [](TrRule& Rule) { Rule.SetConstraint("((X1 NUM) = (X2 NUM))", 1, 1); },
     "Expected simple agreement consraint of the form (Xi = Xj), but got complex agreement "
     "constraint.",
     true, "", "NP||||(X0 = X3)", ClearConstraints},
    {"a constraint's category out of range", HaltReason::CategoryRange,
     [](TrRule& Rule) { Rule.SetConstraint("(x0 = x3)"); },
     [](TrRule& Rule) { Rule.SetConstraint(1, "NUM", "SG", "empty", 1, 5); }, CategoryRangeMessage,
     false, "", "NP||||(X0 = X3)", ClearConstraints},
    {"an agreement with no index", HaltReason::AgreedIndex,
     [](TrRule& Rule) { Rule.SetConstraint(4, 1, "all", "SG", 1, false); }, Print,
     "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint "
     "(Y1 = SG)",
     false, PrintedHead, "NP||||(Y1 = SG)", ClearConstraints},
    {"a cycle in category 1", HaltReason::Category1Order,
     [](TrRule& Rule) { SetTwo(Rule, "(x1 = x2)", "(x2 = x1)"); }, Print,
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 order.", false,
     PrintedHead, "NP||||(X1 = X2)|(X2 = X1)", ClearConstraints},
    // No rule has this outcome: category 2 is ordered by index.
    {"a cycle in category 2", HaltReason::Category2Order, Nothing,
     [](TrRule& /*Rule*/) { TrRuleInternal::HaltForOrder(TrRuleInternal::PrintGroup::Category2); },
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category2 order.", false, "",
     "NP|||", Nothing},
    {"a cycle in categories 3 and 4", HaltReason::Category3and4Order,
     [](TrRule& Rule) { SetTwo(Rule, "(y0 = y1)", "(y1 = y0)"); }, Print,
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category3and4 order.", false,
     PrintedHead, "NP||||(Y0 = Y1)|(Y1 = Y0)", ClearConstraints},
};

/// Other calls with the same outcomes.
const FatalInput MoreFatalInputs[] = {
    {"a constraint's own category", HaltReason::CategoryRange, Nothing,
     [](TrRule& /*Rule*/) { Constraint("(x0 = x3)").SetCategory(0); }, CategoryRangeMessage, false,
     "", "NP|||", Nothing},
    {"a string for printing", HaltReason::Category1Order,
     [](TrRule& Rule) { SetTwo(Rule, "(x1 = x2)", "(x2 = x1)"); },
     [](TrRule& Rule) { Rule.ReturnAsStringForPrint(); },
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category1 order.", false, "",
     "NP||||(X1 = X2)|(X2 = X1)", ClearConstraints},
    {"a string with all alternatives", HaltReason::Category3and4Order,
     [](TrRule& Rule) { SetTwo(Rule, "(y1 = y2)", "(y2 = y1)"); },
     [](TrRule& Rule) { Rule.ReturnAsStringWithAllAlts(); },
     "ERROR in TrRule::GetConstraintsInPrintOrder, couldn't resolve Category3and4 order.", false,
     "", "NP||||(Y1 = Y2)|(Y2 = Y1)", ClearConstraints},
    {"an ordering", HaltReason::AgreedIndex,
     [](TrRule& Rule) { Rule.SetConstraint(4, 1, "all", "SG", 1, false); },
     [](TrRule& Rule) { static_cast<void>(TrRule() < Rule); },
     "ERROR in TrRule::GetConstraintsInPrintOrder. Can't find agreed index for constraint "
     "(Y1 = SG)",
     false, "", "NP||||(Y1 = SG)", ClearConstraints},
    {"alternatives' alignments", HaltReason::ReversedAlignmentFormat,
     [](TrRule& Rule) { Rule.AddAlterTrInfo("", "", "(1)", "", {}, {}, {}, {}); },
     [](TrRule& Rule) { Rule.FlipRuleNoConstraints(); },
     "ERROR in TrRule::GetReversedAlignments: incorrect alignment string:|(1)|", false, "", "NP|||",
     [](TrRule& Rule) { Rule.ResetAlterTrInfo(); }},
};

std::vector<FatalInput> AllFatalInputs() {
  std::vector<FatalInput> vInputs(std::begin(FatalInputs), std::end(FatalInputs));
  vInputs.insert(vInputs.end(), std::begin(MoreFatalInputs), std::end(MoreFatalInputs));
  return vInputs;
}

/// A call that never returns.
struct WaitingCall {
  const char* Name;
  HaltReason What;
  Action Run;
  const char* Message;
  const char* Held;
};

const WaitingCall WaitingCalls[] = {
    {"erasing a constraint with another value", HaltReason::EraseNeverReturns,
     [](TrRule& Rule) { Rule.EraseConstraint(1, "NUM", "PL", "empty", {1}); },
     "TrRule::EraseConstraint never returns where the first constraint on the feature has another "
     "value:|1__1__NUM__SG|",
     "NP||||((X1 NUM) = SG)"},
    {"splitting a text that ends with its delimiter", HaltReason::SplitNeverReturns,
     [](TrRule& /*Rule*/) { StringUtils::Split("a,b,", ","); },
     "StringUtils::Split never returns on a text that ends with its delimiter:|,|",
     "NP||||((X1 NUM) = SG)"},
};

void SetOneConstraint(TrRule& Rule) {
  Rule.SetSLType("NP");
  Rule.SetConstraint("((x1 num) = sg)");
}

/// A handler that prints on both streams and returns.
void Return(HaltReason WhatPassIn, const std::string& MessagePassIn) {
  const std::string Trace =
      "[handler " + std::to_string(static_cast<int>(WhatPassIn)) + ' ' + MessagePassIn + "]\n";
  std::cout << Trace;
  std::cerr << Trace;
}

std::string ReturnTrace(HaltReason What, const char* Message) {
  return "[handler " + std::to_string(static_cast<int>(What)) + ' ' + Message + "]\n";
}

/// The output of a fatal input on the two streams.
Written MessageOf(const FatalInput& Input) {
  const std::string Line = Input.Message + std::string("\n");
  return Input.OnOut ? Written{Input.Before + Line, ""} : Written{Input.Before, Line};
}

/// Expects that a rule, once cleared, reads and prints a text like a new one.
void ExpectOfUse(TrRule& Rule) {
  EXPECT_EQ(Rule.SetTrRuleFromString(SampleText), true);
  EXPECT_EQ(Printed(Rule), SamplePrinted);
}

}  // namespace

// ---- The handler

TEST(HaltHandler, IsNotInstalledAtTheStart) {
  EXPECT_EQ(GetHaltHandler(), nullptr);
  EXPECT_EQ(RunInChild([] { std::cout << (SetHaltHandler(nullptr) == nullptr); }),
            (ChildEnd{RanToItsEnd, "1", ""}));
}

TEST(HaltHandler, IsReturnedWhenReplaced) {
  const HaltGuard Guard(nullptr);
  static_assert(noexcept(SetHaltHandler(nullptr)));
  static_assert(noexcept(GetHaltHandler()));
  EXPECT_EQ(SetHaltHandler(ThrowHalted), nullptr);
  EXPECT_EQ(GetHaltHandler(), &ThrowHalted);
  EXPECT_EQ(SetHaltHandler(Return), &ThrowHalted);
  EXPECT_EQ(SetHaltHandler(Return), &Return);
  EXPECT_EQ(SetHaltHandler(nullptr), &Return);
  EXPECT_EQ(GetHaltHandler(), nullptr);
}

TEST(HaltHandler, IsNotCalledOnceRemoved) {
  const auto SetAndTakeAway = [] {
    SetHaltHandler(ThrowHalted);
    SetHaltHandler(nullptr);
    TrRule().SetAlignment("1,1");
  };
  EXPECT_EQ(RunInChild(SetAndTakeAway),
            (ChildEnd{1, "", AlignmentFormatMessage + std::string("\n")}));
}

TEST(HaltHandler, IsSharedByAllThreads) {
  const HaltGuard Guard;
  bool IsCaught = false;
  const Written Texts = WrittenBy([&] {
    std::thread([&] {
      try {
        Constraint().SetCategory(5);
      } catch (const Halted& Halt) {
        IsCaught = Halt == Halted{HaltReason::CategoryRange, CategoryRangeMessage};
      }
    }).join();
  });
  EXPECT_TRUE(IsCaught);
  EXPECT_EQ(Texts, (Written{"", CategoryRangeMessage + std::string("\n")}));
}

TEST(HaltHandler, IsReturnedOnceEachWhenManyThreadsInstall) {
  constexpr int ThreadCount = 4;
  constexpr int Rounds = 2000;
  const HaltGuard Guard(nullptr);
  // Every installed handler is returned once, except the last, which is still installed.
  std::atomic<int> Balance{0};
  std::atomic<int> Strangers{0};
  const auto Weigh = [&](HaltHandler Handler) {
    if (Handler == ThrowHalted) {
      return 1;
    }
    Strangers += Handler == nullptr || Handler == Return ? 0 : 1;
    return 0;
  };
  std::vector<std::thread> vThreads;
  for (int Number = 0; Number < ThreadCount; ++Number) {
    vThreads.emplace_back([&, Number] {
      const HaltHandler Mine = Number % 2 == 0 ? ThrowHalted : Return;
      for (int Round = 0; Round < Rounds; ++Round) {
        Balance += Weigh(Mine) - Weigh(SetHaltHandler(Mine));
        Weigh(GetHaltHandler());
      }
    });
  }
  for (std::thread& Thread : vThreads) {
    Thread.join();
  }
  EXPECT_EQ(Balance, Weigh(GetHaltHandler()));
  EXPECT_EQ(Strangers, 0);
  EXPECT_NE(GetHaltHandler(), nullptr);
}

// ---- The inputs that end the process

TEST(FatalInputs, EndTheProcessWithStatus1AfterTheirMessage) {
  for (const FatalInput& Input : AllFatalInputs()) {
    SCOPED_TRACE(Input.Name);
    TrRule Rule;
    Rule.SetSLType("NP");
    Input.Prepare(Rule);
    const Written Texts = MessageOf(Input);
    EXPECT_EQ(RunInChild([&] { Input.Run(Rule); }), (ChildEnd{1, Texts.Out, Texts.Err}));
  }
}

TEST(FatalInputs, EndTheProcessWhenTheHandlerReturns) {
  for (const FatalInput& Input : AllFatalInputs()) {
    SCOPED_TRACE(Input.Name);
    TrRule Rule;
    Rule.SetSLType("NP");
    Input.Prepare(Rule);
    const HaltGuard Guard(Return);
    const Written Texts = MessageOf(Input);
    const std::string Trace = ReturnTrace(Input.What, Input.Message);
    EXPECT_EQ(RunInChild([&] { Input.Run(Rule); }),
              (ChildEnd{1, Texts.Out + Trace, Texts.Err + Trace}));
  }
}

TEST(FatalInputs, ThrowFromTheHandlerAndLeaveTheRuleUsable) {
  for (const FatalInput& Input : AllFatalInputs()) {
    SCOPED_TRACE(Input.Name);
    TrRule Rule;
    Rule.SetSLType("NP");
    Input.Prepare(Rule);
    for (const char* Time : {"once", "and again"}) {
      SCOPED_TRACE(Time);
      std::optional<Halted> Halt;
      EXPECT_EQ(WrittenBy([&] { Halt = HaltOf([&] { Input.Run(Rule); }); }), MessageOf(Input));
      EXPECT_EQ(Halt, (Halted{Input.What, Input.Message}));
      EXPECT_EQ(Holding(Rule), Input.Held);
    }
    Input.Repair(Rule);
    EXPECT_EQ(WrittenBy([&] { Rule.Print(); }), (Written{"{,-1}\nNP:: [] -> []\n(\n)\n", ""}));
    ExpectOfUse(Rule);
  }
  EXPECT_EQ(GetHaltHandler(), nullptr);
}

TEST(FatalInputs, HaveDistinctReasons) {
  std::set<HaltReason> sReasons;
  for (const FatalInput& Input : FatalInputs) {
    sReasons.insert(Input.What);
  }
  for (const WaitingCall& Call : WaitingCalls) {
    sReasons.insert(Call.What);
  }
  EXPECT_EQ(sReasons.size(), 11U);
  EXPECT_EQ(static_cast<int>(*sReasons.begin()), 0);
  EXPECT_EQ(static_cast<int>(*sReasons.rbegin()), 10);
}

TEST(FatalInputs, LeaveAFlipHalfDone) {
  TrRule Rule;
  Rule.SetTrRuleFromString("{NP,8}\nNP::VP [DET] -> [N]\n(X1::Y1)\n(x0 = x1)\n");
  Rule.AddAlterTrInfo("s", "t", "((1,2))", "(A)", {{1, 2}}, {{3, 4}}, {"SA"}, {"TA"});
  Rule.AddAlterTrInfo("s2", "t2", "(3)", "(B)", {}, {}, {}, {});
  Rule.AddAlterTrInfo("s3", "t3", "((4,5))", "(C)", {}, {}, {}, {});
  Rule.SetsWordLevelAl("((6,7))");
  Rule.SetSLWords("w");
  Rule.SetTLWords("v u");
  Rule.SetSLPOSFromParse("p");
  WrittenBy([&] {
    EXPECT_EQ(HaltOf([&] { Rule.FlipRuleNoConstraints(); }),
              (Halted{HaltReason::ReversedAlignmentFormat,
                      "ERROR in TrRule::GetReversedAlignments: incorrect alignment "
                      "string:|(3)|"}));
  });
  EXPECT_EQ(Dump(Rule),
            "Print:\n{NP,8}\nNP::VP [N] -> [DET]\n(\n(X1::Y1)\n(X0 = X1)\n)\n"
            "SLWords: { <V> <U> }\n"
            "vsAllSLSents: { <t> <t2> <t3> }\n"
            "SLPOS: { <N> }\n"
            "WordLevelSLPOS: { <N> }\n"
            "SLPOSFromParse: { }\n"
            "TLPOSFromParse: { <P> }\n"
            "vvsAllWordLevelSLPOSs: { { <TA> } { } { } }\n"
            "TLWords: { <W> }\n"
            "vsAllTLSents: { <s> <s2> <s3> }\n"
            "TLPOS: { <DET> }\n"
            "WordLevelTLPOS: { <DET> }\n"
            "vvsAllWordLevelTLPOSs: { { <SA> } { } { } }\n"
            "AlignmentString: <((1,1))>\n"
            "sWordLevelAl: <((6,7))>\n"
            "vsAllAlignments: { <((1,1))> <((2,1))> <(3)> <((4,5))> }\n"
            "CStructure: <>\n"
            "vsAllCStructures: { <(A)> <(B)> <(C)> }\n"
            "SLType: <NP>\n"
            "TLType: <VP>\n"
            "Constraint: <(X0 = X1) category 1 rank -1>\n"
            "RuleIndex: 8\n"
            "CSet: { }\n"
            "SLWord2Comp: { 0->0 }\n"
            "vmiiAllSLWord2Comps: { { 1->2 } { } { } }\n"
            "TLWord2Comp: { }\n"
            "vmiiAllTLWord2Comps: { { 3->4 } { } { } }\n"
            "NumTrExamples: 1\n"
            "HeadIndex: -1\n"
            "XHeadIndex: -1\n"
            "YHeadIndex: -1\n");
}

TEST(FatalInputs, RecurInEveryCopyOfAStoredAlignmentString) {
  TrRule Broken;
  const Halted Expected{HaltReason::AlignmentFormat, AlignmentFormatMessage};
  const std::string Message = AlignmentFormatMessage + std::string("\n");
  WrittenBy([&] { ASSERT_EQ(HaltOf([&] { Broken.SetAlignment("1,1"); }), Expected); });
  ASSERT_EQ(Broken.GetAlignmentStr(), "1,1");
  TrRule Other;
  Other.SetSLType("NP");
  struct Case {
    const char* Name;
    void (*Run)(TrRule& Broken, TrRule& Other);
  };
  const Case Cases[] = {
      {"copy", [](TrRule& From, TrRule& /*To*/) { const TrRule Copy(From); }},
      {"assignment", [](TrRule& From, TrRule& To) { To = From; }},
      {"ordering, right", [](TrRule& Right, TrRule& Left) { static_cast<void>(Left < Right); }},
      {"ordering, left", [](TrRule& Left, TrRule& Right) { static_cast<void>(Left < Right); }},
      {"equality, right", [](TrRule& Right, TrRule& Left) { static_cast<void>(Left == Right); }},
  };
  for (const Case& Row : Cases) {
    SCOPED_TRACE(Row.Name);
    std::optional<Halted> Halt;
    EXPECT_EQ(WrittenBy([&] { Halt = HaltOf([&] { Row.Run(Broken, Other); }); }),
              (Written{"", Message}));
    EXPECT_EQ(Halt, Expected);
    EXPECT_EQ(Holding(Other), "NP|||");
  }
  // Equality does not copy or order its left side, nor does displaying a rule.
  EXPECT_FALSE(Broken == Other);
  EXPECT_EQ(WrittenBy([&] { Broken.GetAlignmentStr(); }), (Written{"", ""}));
  ClearAlignments(Broken);
  ExpectOfUse(Broken);
}

TEST(FatalInputs, KeepTheCategoryOfAConstraint) {
  Constraint Number("((y1 num) = sg)");
  WrittenBy([&] {
    for (const int Category : {5, 0, -1}) {
      EXPECT_EQ(HaltOf([&] { Number.SetCategory(Category); }),
                (Halted{HaltReason::CategoryRange, CategoryRangeMessage}));
    }
  });
  EXPECT_EQ(Number.GetCategory(), 4);
  Number.SetCategory(1);
  EXPECT_EQ(Number.ReturnAsString(), "((X1 NUM) = SG)");
}

TEST(FatalInputs, KeepEveryByteInTheMessage) {
  const std::string Text("a\0b\xE9\r", 5);
  const std::string Message = "Alignment string was not in correct format:|" + Text +
                              "|\nNewAl[0] is:a\nNewAl[NewAl.length()-1] is:\r";
  TrRule Rule;
  std::optional<Halted> Halt;
  EXPECT_EQ(WrittenBy([&] { Halt = HaltOf([&] { Rule.SetAlignment(Text); }); }),
            (Written{"", Message + '\n'}));
  EXPECT_EQ(Halt, (Halted{HaltReason::AlignmentFormat, Message}));
  EXPECT_EQ(Rule.GetAlignmentStr(), Text);
}

// ---- The calls that never return

TEST(WaitingCalls, NeverReturnAndUseNoResources) {
  for (const WaitingCall& Call : WaitingCalls) {
    SCOPED_TRACE(Call.Name);
    TrRule Rule;
    SetOneConstraint(Rule);
    const ChildWait Wait = WatchInChild([&] { Call.Run(Rule); });
    EXPECT_TRUE(Wait.Alive);
    EXPECT_TRUE(Wait.KeptMemory);
    EXPECT_TRUE(Wait.KeptProcessor);
    EXPECT_EQ(Wait.Out, "");
    EXPECT_EQ(Wait.Err, "");
  }
}

TEST(WaitingCalls, WaitWhenTheHandlerReturns) {
  for (const WaitingCall& Call : WaitingCalls) {
    SCOPED_TRACE(Call.Name);
    TrRule Rule;
    SetOneConstraint(Rule);
    const HaltGuard Guard(Return);
    const auto RunUnbuffered = [&] {
      std::cout << std::unitbuf;
      Call.Run(Rule);
    };
    const ChildWait Wait = WatchInChild(RunUnbuffered);
    EXPECT_TRUE(Wait.Alive);
    EXPECT_TRUE(Wait.KeptMemory);
    EXPECT_TRUE(Wait.KeptProcessor);
    EXPECT_EQ(Wait.Out, ReturnTrace(Call.What, Call.Message));
    EXPECT_EQ(Wait.Err, ReturnTrace(Call.What, Call.Message));
  }
}

TEST(WaitingCalls, FlushEarlierOutput) {
  // Buffered streams that do not flush each other, as a host may set them up.
  const ChildWait Wait = WatchInChild([] {
    std::ofstream Messages("/dev/stderr");
    std::cerr.rdbuf(Messages.rdbuf());
    std::cerr.tie(nullptr);
    std::cout << std::nounitbuf << "out";
    std::cerr << std::nounitbuf << "err";
    StringUtils::Split("a,", ",");
  });
  EXPECT_TRUE(Wait.Alive);
  EXPECT_EQ(Wait.Out, "out");
  EXPECT_EQ(Wait.Err, "err");
}

TEST(WaitingCalls, SleepAtACancellationPoint) {
  std::cout.flush();  // so that the sleep is the first cancellation point
  std::fflush(stdout);
  const auto SplitForever = [](void* Argument) {
    StringUtils::Split("a,", ",");
    return Argument;
  };
  pthread_t Thread{};
  ASSERT_EQ(pthread_create(&Thread, nullptr, SplitForever, nullptr), 0);
  ASSERT_EQ(pthread_cancel(Thread), 0);
  void* End = nullptr;
  ASSERT_EQ(pthread_join(Thread, &End), 0);
  EXPECT_EQ(End, PTHREAD_CANCELED);
  EXPECT_TRUE(std::cout.good());
}

TEST(WaitingCalls, ThrowFromTheHandlerAndLeaveTheRuleUsable) {
  for (const WaitingCall& Call : WaitingCalls) {
    SCOPED_TRACE(Call.Name);
    TrRule Rule;
    SetOneConstraint(Rule);
    std::optional<Halted> Halt;
    EXPECT_EQ(WrittenBy([&] { Halt = HaltOf([&] { Call.Run(Rule); }); }), (Written{"", ""}));
    EXPECT_EQ(Halt, (Halted{Call.What, Call.Message}));
    EXPECT_EQ(Holding(Rule), Call.Held);
    EXPECT_TRUE(Rule.EraseConstraint(1, "NUM", "SG", "empty", {1}));
    EXPECT_EQ(Rule.GetNumConstraints(), 0);
    EXPECT_EQ(StringUtils::Split("a,b", ","), (Strings{"a", "b"}));
    ExpectOfUse(Rule);
  }
}
