// What is known of the codes, and that their examples are what they claim to be.

#include "FindingCodes.h"

#include "CheckCommand.h"
#include "RunError.h"
#include "TestFolder.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using Grammar::CodeInfo;
using StringSet = std::set<std::string>;

TEST(FindingCodes, AscendAndAreFound) {
  std::string Last;
  for (const CodeInfo& Info : Grammar::AllCodes()) {
    EXPECT_LT(Last, Info.Code);
    EXPECT_EQ(Grammar::FindCode(Info.Code), &Info);
    Last = Info.Code;
  }
}

TEST(FindingCodes, RejectOtherTexts) {
  for (const std::string_view Text : {"", "TR", "TR000", "TR018", "TR099", "tr001", "TR0011",
                                      "TR101", "TR0x1", "TR01x", "TS001", "TR01"}) {
    EXPECT_EQ(Grammar::FindCode(Text), nullptr) << Text;
  }
}

/// The code that a person means, or the complaint.
std::string Known(const std::string& Written) {
  try {
    return std::string(Grammar::KnownCode(Written, "trrule explain").Code);
  } catch (const Grammar::RunError& Error) {
    return Error.what();
  }
}

TEST(FindingCodes, AreAcceptedInAnyCaseAndSuggested) {
  const std::vector<std::pair<std::string, std::string>> Cases{
      {"TR011", "TR011"},
      {" tr011\t", "TR011"},
      {"tR049", "TR049"},
      {"TR11", "unknown code \"TR11\"; did you mean TR011?"},
      {"tr036x", "unknown code \"tr036x\"; did you mean TR036?"},
      {"cycle", "unknown code \"cycle\"; trrule explain lists the codes"},
      {"", "unknown code \"\"; trrule explain lists the codes"}};
  for (const auto& [sWritten, sExpected] : Cases) {
    EXPECT_EQ(Known(sWritten), sExpected);
  }
}

// ---- Examples ---------------------------------------------------------------------------------

/// The codes that check finds in an example for a code, notes included. Examples that are not about
/// labels have no lexicon.
StringSet CodesIn(std::string_view Code, const std::string& Text) {
  const TestFolder Folder;
  Grammar::RunOptions Run;
  Run.vsFiles = {Folder.Write("a.trr", Text)};
  Run.Output = Folder.Path("out");
  Grammar::CheckOptions Options;
  Options.Format = Grammar::FindingFormat::Json;
  Options.Least = Grammar::Severity::Note;
  Options.vsExcept = {Code == "TR050" ? "TR051" : "TR050"};
  Options.Starts = Code == "TR051" ? std::optional<std::string>("NP") : std::nullopt;
  WrittenBy([&] { RunCheck(Run, Options); });
  StringSet ssCodes;
  for (const auto& Current : nlohmann::json::parse(Folder.Read("out"))) {
    ssCodes.insert(Current["code"].get<std::string>());
  }
  return ssCodes;
}

TEST(FindingCodes, KeepRulesFromUseWhereTheyAreErrorsOfARule) {
  StringSet ssKeeping;
  for (const Grammar::CodeInfo& Info : Grammar::AllCodes()) {
    if (Grammar::KeepsFromUse(Info.Code)) {
      ssKeeping.insert(std::string(Info.Code));
    }
  }
  EXPECT_EQ(ssKeeping, (StringSet{"TR001", "TR002", "TR003", "TR004", "TR005", "TR006", "TR007",
                                  "TR008", "TR009", "TR010", "TR013", "TR015"}));
}

TEST(FindingCodes, HaveAWrongExampleWithTheCodeAndARightOneWithoutFindings) {
  for (const CodeInfo& Info : Grammar::AllCodes()) {
    StringSet ssExpected{std::string(Info.Code)};
    if (Info.Code == "TR014") {
      // Nothing but another mistake makes such a rule.
      ssExpected.merge(StringSet{"TR035", "TR039"});
    }
    EXPECT_EQ(CodesIn(Info.Code, WholeExample(Info, Info.Wrong)), ssExpected) << Info.Code;
    EXPECT_EQ(CodesIn(Info.Code, WholeExample(Info, Info.Right)), StringSet()) << Info.Code;
  }
}

TEST(FindingCodes, CompleteLinesOfABodyToARule) {
  EXPECT_EQ(WholeExample(*Grammar::FindCode("TR012"), "(x0 = n)"),
            "{NP,1}\nNP::NP : [DET ADJ N] -> [DET N ADJ]\n(\n(X1::Y1)\n(X2::Y3)\n(X3::Y2)\n"
            "(x0 = n)\n)\n");
  EXPECT_EQ(WholeExample(*Grammar::FindCode("TR001"), "{NP,1}"), "{NP,1}\n");
}

TEST(FindingCodes, RepeatALineBeforeDotsUntilTheRuleIsTooLong) {
  const std::string Text = WholeExample(*Grammar::FindCode("TR013"), "{NP,1}\n(a = b)\n...\n)");
  std::string Expected = "{NP,1}\n(a = b)\n";
  for (std::size_t Size = 0; Size <= 100000; Size += 8) {
    Expected += "(a = b)\n";
  }
  EXPECT_EQ(Text, Expected + ")\n");
}

// ---- Explanations -----------------------------------------------------------------------------

TEST(FindingCodes, AreExplainedWithBothExamples) {
  EXPECT_EQ(Explanation(*Grammar::FindCode("TR044")),
            "TR044, warning: both sides of a constraint are the same\n"
            "\n"
            "  Such a constraint always holds. Probably one of the numbers is wrong.\n"
            "\n"
            "Wrong, in the rule NP::NP : [DET ADJ N] -> [DET N ADJ]:\n"
            "  ((x2 num) = (x2 num))\n"
            "\n"
            "Right, in the rule NP::NP : [DET ADJ N] -> [DET N ADJ]:\n"
            "  ((x2 num) = (x3 num))\n");
  EXPECT_EQ(Explanation(*Grammar::FindCode("TR045")),
            "TR045, warning: a rule without a header follows rules with one\n"
            "\n"
            "  In a file whose rules have headers, a rule without one has probably lost it.\n"
            "\n"
            "Wrong:\n"
            "  {NP,1}\n  NP::NP : [N] -> [N]\n  (\n  (X1::Y1)\n  )\n"
            "\n"
            "  NP::NP : [DET N] -> [N]\n  (\n  (X2::Y1)\n  )\n"
            "\n"
            "Right:\n"
            "  {NP,1}\n  NP::NP : [N] -> [N]\n  (\n  (X1::Y1)\n  )\n"
            "\n"
            "  {NP,2}\n  NP::NP : [DET N] -> [N]\n  (\n  (X2::Y1)\n  )\n");
}

TEST(FindingCodes, AreExplainedInLinesThatFitATerminal) {
  for (const CodeInfo& Info : Grammar::AllCodes()) {
    const std::string Text = Explanation(Info);
    EXPECT_EQ(Text.find(" \n"), std::string::npos) << Text;
    for (std::size_t Begin = 0; Begin < Text.size(); Begin = Text.find('\n', Begin) + 1) {
      EXPECT_LE(Text.find('\n', Begin) - Begin, 80U) << Text;
    }
  }
}

}  // namespace
