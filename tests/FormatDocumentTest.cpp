// Runs every example in docs/format.md. The table at its top describes the kinds of fences.

#include <gtest/gtest.h>

#include "BuildPaths.h"
#include "TrRule.h"
#include "support/DebugLevel.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <fstream>
#include <functional>
#include <map>
#include <optional>

namespace {

/// A fenced block of the page: the word after its fence, its lines, and where it begins.
struct Fence {
  std::string Kind;
  Strings vsLines;
  int LineNumber;
};

std::vector<Fence> ReadFences() {
  std::ifstream File(BuildPaths::SourceFolder + std::string("/docs/format.md"));
  std::vector<Fence> vFences;
  bool IsOpen = false;
  int LineNumber = 0;
  for (std::string Line; std::getline(File, Line);) {
    ++LineNumber;
    if (Line.rfind("```", 0) == 0) {
      IsOpen = !IsOpen;
      if (IsOpen) {
        vFences.push_back({Line.substr(3), {}, LineNumber});
      }
    } else if (IsOpen) {
      vFences.back().vsLines.push_back(Line);
    }
  }
  EXPECT_FALSE(IsOpen) << "the last fence is not closed";
  return vFences;
}

std::string Joined(const Strings& vsTexts, const std::string& Separator) {
  std::string Text;
  for (const std::string& sText : vsTexts) {
    Text += (Text.empty() ? "" : Separator) + sText;
  }
  return Text;
}

/// The text of a fence, with the bytes that visible signs stand for.
std::string TextOf(const Fence& Block) {
  std::string Text = StringUtils::ReplaceAll(Joined(Block.vsLines, "\n"), "⇥", "\t");
  return StringUtils::ReplaceAll(Text, "␣", " ");
}

// ---- Results of a rule text -------------------------------------------------------------------

/// Reads a rule text, which must be complete and print no messages.
void ReadWhole(TrRule& Rule, const std::string& Text) {
  bool IsWhole = false;
  const Written Messages = WrittenBy([&] { IsWhole = Rule.SetTrRuleFromString(Text); });
  EXPECT_TRUE(IsWhole);
  EXPECT_EQ(Messages, (Written{"", ""}));
}

std::string AfterRead(const std::string& Text, const std::function<std::string(TrRule&)>& Write) {
  TrRule Rule;
  ReadWhole(Rule, Text);
  return Write(Rule);
}

std::string Rejection(const std::string& Text) {
  TrRule Rule;
  bool IsWhole = true;
  const Written Messages = WrittenBy([&] { IsWhole = Rule.SetTrRuleFromString(Text); });
  EXPECT_FALSE(IsWhole);
  EXPECT_EQ(Messages.Out, "");
  return Messages.Err;
}

// The trace of erasing lists the keys; without a category, nothing is erased.
std::string Keys(const std::string& Constraints) {
  TrRule Rule;
  WrittenBy([&] {
    for (const std::string& sConstraint : Tokenizer()(Constraints, "\n")) {
      Rule.SetConstraint(sConstraint);
    }
  });
  const DebugLevel Level(1);
  const Written Trace = WrittenBy([&] { Rule.EraseConstraint(0, "", "", "", {}); });
  const std::size_t After = Trace.Out.find("Constraints map after erasing:\n");
  std::string Listed = Trace.Out.substr(Trace.Out.find('\n', After) + 1);
  return StringUtils::ReplaceAll(Listed, "Constraint:", "");
}

/// The result of a rule text or a list of constraints, by the kind of its fence.
using Outcome = std::function<std::string(const std::string&)>;

const std::map<std::string, Outcome>& Outcomes() {
  static const std::map<std::string, Outcome> Table{
      {"prints", [](const std::string& Text) { return AfterRead(Text, Printed); }},
      {"rejected", Rejection},
      {"for-print",
       [](const std::string& Text) {
         return AfterRead(Text, [](TrRule& Rule) { return Rule.ReturnAsStringForPrint() + '\n'; });
       }},
      {"no-constraints",
       [](const std::string& Text) {
         return AfterRead(
             Text, [](TrRule& Rule) { return Rule.ReturnAsStringForPrintNoConstraints() + '\n'; });
       }},
      {"all-alts",
       [](const std::string& Text) {
         return AfterRead(Text, [](TrRule& Rule) {
           Rule.ResetAlterTrInfo();
           return Rule.ReturnAsStringWithAllAlts() + '\n';
         });
       }},
      {"comparison",
       [](const std::string& Text) {
         return AfterRead(Text,
                          [](TrRule& Rule) { return Rule.ReturnAsStringForComparison() + '\n'; });
       }},
      {"keys", Keys},
  };
  return Table;
}

// ---- Results of a single line -----------------------------------------------------------------

std::string Fields(const std::string& Text) {
  const Constraint Read{std::string(Text)};
  return Joined(
      {std::to_string(Read.GetCategory()), std::to_string(Read.GetConstrainedIndex()),
       Read.GetFeature(), Read.GetFeatValue(), Read.IsValueConstraint() ? "value" : "reference"},
      ", ");
}

std::string AfterAddAlignment(const std::string& Line) {
  TrRule Rule;
  EXPECT_TRUE(Rule.AddAlignment(Line));
  return Rule.GetAlignmentStr();
}

std::string Canonical(const std::string& Alignments) {
  TrRule Rule;
  Rule.SetAlignment(Alignments);
  return Rule.GetAlignmentStr();
}

std::string Reversed(const std::string& Alignments) {
  TrRule Rule;
  Rule.SetAlignment(Alignments);
  Rule.FlipRuleNoConstraints();
  return Rule.GetAlignmentStr();
}

std::string Display(const std::string& Alignments) {
  TrRule Rule;
  Rule.SetSLPOS("A B C");
  Rule.SetTLPOS("A B C");
  Rule.SetAlignment(Alignments);
  return Joined(Rule.GetAlignments(), " ");
}

/// The result of the left side of a line "text -> text", by the kind of its fence.
const std::map<std::string, Outcome>& Conversions() {
  static const std::map<std::string, Outcome> Table{
      {"constraint",
       [](const std::string& Text) { return Constraint(std::string(Text)).ReturnAsString(); }},
      {"fields", Fields},
      {"agreed",
       [](const std::string& Value) { return std::to_string(Constraint().GetAgreedIndex(Value)); }},
      {"alignment-lines", AfterAddAlignment},
      {"alignments", Canonical},
      {"reversed", Reversed},
      {"display", Display},
  };
  return Table;
}

std::string Unquoted(const std::string& Side) {
  return Side == "\"\"" ? "" : Side;
}

/// Runs every line of a fence and returns the number of lines.
int RunLines(const Fence& Block, const Outcome& Convert) {
  for (const std::string& sLine : Block.vsLines) {
    SCOPED_TRACE(sLine);
    const std::size_t Arrow = sLine.find(" -> ");
    if (Arrow == std::string::npos) {
      ADD_FAILURE() << "a line without an arrow";
      continue;
    }
    const std::string Input = Unquoted(sLine.substr(0, Arrow));
    const std::string Expected = Unquoted(sLine.substr(Arrow + 4));
    std::string Actual;
    EXPECT_EQ(WrittenBy([&] { Actual = Convert(Input); }), (Written{"", ""}));
    EXPECT_EQ(Actual, Expected);
  }
  return static_cast<int>(Block.vsLines.size());
}

/// The kind of fence that an outcome belongs to.
std::string InputKindOf(const std::string& OutcomeKind) {
  return OutcomeKind == "keys" ? "constraints" : "rule";
}

bool IsInput(const std::string& Kind) {
  return Kind == "rule" || Kind == "constraints";
}

/// Runs all examples of a page and counts them by kind. Fails on a fence of unknown kind, an
/// outcome without its text, and a text without an outcome.
std::map<std::string, int> RunExamples(const std::vector<Fence>& vFences) {
  std::map<std::string, int> Counts;
  std::optional<Fence> Input;
  int Uses = 1;
  for (const Fence& Block : vFences) {
    SCOPED_TRACE("docs/format.md:" + std::to_string(Block.LineNumber) + ", " + Block.Kind);
    const auto Result = Outcomes().find(Block.Kind);
    const auto Conversion = Conversions().find(Block.Kind);
    if (IsInput(Block.Kind)) {
      EXPECT_GT(Uses, 0) << "the text before has no outcome";
      Input = Block;
      Uses = 0;
    } else if (Conversion != Conversions().end()) {
      Counts[Block.Kind] += RunLines(Block, Conversion->second);
    } else if (Result == Outcomes().end()) {
      EXPECT_EQ(Block.Kind, "grammar") << "a fence of unknown kind";
    } else if (!Input || Input->Kind != InputKindOf(Block.Kind)) {
      ADD_FAILURE() << "an outcome without its text";
    } else {
      EXPECT_EQ(Result->second(TextOf(*Input) + '\n'), TextOf(Block) + '\n');
      ++Counts[Block.Kind];
      ++Uses;
    }
  }
  EXPECT_GT(Uses, 0) << "the last text has no outcome";
  return Counts;
}

}  // namespace

TEST(FormatDocument, ShowsOnlyExamplesThatHold) {
  const std::vector<Fence> vFences = ReadFences();
  ASSERT_GT(vFences.size(), 0U);
  const std::map<std::string, int> Counts = RunExamples(vFences);
  for (const auto& [Kind, Run] : Outcomes()) {
    EXPECT_EQ(Counts.count(Kind), 1U) << "no example of the kind " << Kind;
  }
  for (const auto& [Kind, Run] : Conversions()) {
    EXPECT_EQ(Counts.count(Kind), 1U) << "no example of the kind " << Kind;
  }
}

TEST(FormatDocument, ShowsConstraintsThatAreStableOnceWritten) {
  int Count = 0;
  for (const Fence& Block : ReadFences()) {
    for (const std::string& sLine : Block.Kind == "constraint" ? Block.vsLines : Strings()) {
      const std::string Once = sLine.substr(sLine.find(" -> ") + 4);
      EXPECT_EQ(Constraint(std::string(Once)).ReturnAsString(), Once);
      ++Count;
    }
  }
  EXPECT_GT(Count, 0);
}
