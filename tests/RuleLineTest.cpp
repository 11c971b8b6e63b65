// Parsing rule lines: which ones are in their common form, their parts, and splitting a sequence
// into labels.

#include "RuleLine.h"

#include "support/RandomInput.h"
#include "support/ReferenceImplementation.h"
#include "support/Samples.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>
#include <utility>
#include <vector>

using std::string_literals::operator""s;
using TrRuleInternal::ParseCommonRuleLine;
using TrRuleInternal::ParseLabels;
using TrRuleInternal::ParseRuleLine;
using TrRuleInternal::RuleLineFault;
using TrRuleInternal::RuleLineParts;

namespace {

std::optional<Strings> PartsOf(const std::string& Line) {
  RuleLineParts Parts;
  if (!ParseCommonRuleLine(Line, Parts)) {
    return std::nullopt;
  }
  return Strings{std::string(Parts.SLType), std::string(Parts.TLType), std::string(Parts.SLLabels),
                 std::string(Parts.TLLabels)};
}

/// A field that trimming leaves empty is not a label.
Strings ReferenceLabels(const std::string& Sequence) {
  Strings vsLabels = Reference::TrimmedPieces(Sequence, " ");
  vsLabels.erase(std::remove(vsLabels.begin(), vsLabels.end(), ""), vsLabels.end());
  return vsLabels;
}

}  // namespace

TEST(RuleLine, ParsesTheCommonForm) {
  const std::pair<std::string, Strings> Cases[] = {
      {"NP::NP : [DET ADJ N] -> [DET N ADJ]", {"NP", "NP", "DET ADJ N", "DET N ADJ"}},
      {"NP::NP [DET N] -> [N DET]", {"NP", "NP", "DET N", "N DET"}},
      {"a::b [c] -> [d]", {"a", "b", "c", "d"}},
      {"A::B [ C  D ] -> [D]", {"A", "B", " C  D ", "D"}},
      {"A-1::B,2 [(C)] -> [\"de\" <D]", {"A-1", "B,2", "(C)", "\"de\" <D"}},
      {"A\0::\xE9 [C\0] -> [\xFF]"s, {"A\0"s, "\xE9", "C\0"s, "\xFF"}},
  };
  for (const auto& [Line, vsExpected] : Cases) {
    EXPECT_EQ(PartsOf(Line), std::optional(vsExpected)) << Line;
  }
}

TEST(RuleLine, RejectsOtherLines) {
  for (const char* Line : {"",
                           "::",
                           "A::B",
                           "A::B [C]",
                           "A::B [C] -> [D",
                           "A::B [C] -> [D] ",
                           "A::B [C] -> [D]]",
                           " A::B [C] -> [D]",
                           "::B [C] -> [D]",
                           "A:: [C] -> [D]",
                           "A:B [C] -> [D]",
                           "A:::B [C] -> [D]",
                           "A::B::C [C] -> [D]",
                           "A::B[C] -> [D]",
                           "A::B  [C] -> [D]",
                           "A::B :[C] -> [D]",
                           "A::B: [C] -> [D]",
                           "A::B :: [C] -> [D]",
                           "A::B x [C] -> [D]",
                           "A::B [] -> [D]",
                           "A::B [C] -> []",
                           "A::B [ ] -> [D]",
                           "A::B [C] -> [  ]",
                           "A::B [C] ->[D]",
                           "A::B [C]-> [D]",
                           "A::B [C] - > [D]",
                           "A::B [C] -> [D] -> [E]",
                           "A::B [C] -> [D];;",
                           "A::B [C;D] -> [E]",
                           "A::B [C=D] -> [E]",
                           "A::B [{C] -> [E]",
                           "A::B [C} D] -> [E]",
                           "A::B [C] -> [D > E]",
                           "A::B [C\tD] -> [E]",
                           "A::B [C\r] -> [E]",
                           "A::B\t[C] -> [D]",
                           "A::B [C] -> [D]\r",
                           "[C] -> [D]",
                           ";; A::B [C] -> [D]"}) {
    EXPECT_EQ(PartsOf(Line), std::nullopt) << Line;
  }
}

TEST(RuleLine, ReturnsViewsOfTheLine) {
  const std::string Line = "NP::VP : [DET ADJ N] -> [DET N ADJ]";
  RuleLineParts Parts;
  ASSERT_TRUE(ParseCommonRuleLine(Line, Parts));
  EXPECT_EQ(Parts.SLType.data(), Line.data());
  EXPECT_EQ(Parts.TLType.data(), Line.data() + 4);
  EXPECT_EQ(Parts.SLLabels.data(), Line.data() + 10);
  EXPECT_EQ(Parts.TLLabels.data(), Line.data() + 25);
}

TEST(RuleLine, RejectsEveryShorterPrefix) {
  const std::string Line = "NP::VP : [DET ADJ N] -> [DET N ADJ]";
  for (std::size_t Size = 0; Size < Line.size(); ++Size) {
    EXPECT_EQ(PartsOf(Line.substr(0, Size)), std::nullopt) << Line.substr(0, Size);
  }
}

TEST(RuleLine, ReadsRandomLinesLikeTheReference) {
  RandomInput Random;
  const Strings vsWords = {"A", "::", "B", " : [", " [", "C", " ", "] -> [", "D", "]", "->", ":"};
  int Taken = 0;
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Line =
        Case % 4 == 0 ? Random.WordsOf({"A", "::B [", "C ", "] -> [", "D", "]"}, 9)
        : Case % 4 == 1
            ? Random.WordsOf(vsWords, 12)
            : Random.Damaged("NP::VP : [DET \"N\"] -> [N D]", "[]{}:;=> \t\r\nAz09\"(\0\xE9"s);
    const std::optional<Strings> vsExpected = Reference::RuleLineParts(Line);
    ASSERT_EQ(PartsOf(Line), vsExpected) << Line;
    Taken += vsExpected ? 1 : 0;
  }
  EXPECT_GT(Taken, 500);
}

TEST(RuleLine, ParsesWhatPeopleWrite) {
  const std::vector<std::pair<std::string, std::vector<std::string>>> Cases{
      {"NP::VP : [DET N] -> [N DET]", {"NP", "VP", "DET N", "N DET"}},
      {"NP::VP [ a ] -> [ b ] c", {"NP", "VP", "a", "b"}},
      {"N::N [[a]] -> [[b]]", {"N", "N", "[a]", "[b]"}}};
  for (const auto& [sCode, vsExpected] : Cases) {
    RuleLineParts Text;
    EXPECT_EQ(ParseRuleLine(sCode, Text), RuleLineFault::None) << sCode;
    const std::vector<std::string> vsFound{std::string(Text.SLType), std::string(Text.TLType),
                                           std::string(Text.SLLabels), std::string(Text.TLLabels)};
    EXPECT_EQ(vsFound, vsExpected) << sCode;
  }
}

TEST(RuleLine, ReportsTheInvalidPart) {
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
    RuleLineParts Text;
    EXPECT_EQ(ParseRuleLine(sCode, Text), Fault) << sCode;
  }
}

TEST(RuleLine, SplitsASequenceIntoLabels) {
  const std::pair<std::string, Strings> Cases[] = {
      {"", {}},
      {" ", {}},
      {"   ", {}},
      {"DET", {"DET"}},
      {"DET ADJ N", {"DET", "ADJ", "N"}},
      {"  DET   N ", {"DET", "N"}},
      {"det n", {"det", "n"}},
      {"DET\tN", {"DET\tN"}},
      {"\tDET N\r\n", {"DET", "N"}},
      {"DET \t N", {"DET", "N"}},
      {"\t \v", {}},
      {"]", {"]"}},
      {"\0 \xFF"s, {"\0"s, "\xFF"}},
      {"\xA0 \xE9", {"\xA0", "\xE9"}},
  };
  for (const auto& [Sequence, vsExpected] : Cases) {
    EXPECT_EQ(ParseLabels(Sequence), vsExpected) << Sequence;
  }
}

TEST(RuleLine, CapitalisesTheLabelsOfACommonSequence) {
  const std::pair<std::string, Strings> Cases[] = {
      {"", {}},
      {"  ", {}},
      {"det", {"DET"}},
      {"  det  \"de\" n1 ", {"DET", "\"DE\"", "N1"}},
      {"\0 \xE9"s, {"\0"s, "\xE9"}},
  };
  for (const auto& [Sequence, vsExpected] : Cases) {
    EXPECT_EQ(TrRuleInternal::UpperLabels(Sequence), vsExpected) << Sequence;
  }
}

TEST(RuleLine, SplitsRandomSequencesLikeTheReference) {
  RandomInput Random;
  for (int Case = 0; Case < 20000; ++Case) {
    const std::string Sequence = Case % 2 == 0
                                     ? Random.WordsOf({" ", "DET", "\t", "N", "\"de\"", "\r"}, 8)
                                     : Random.TextOf("   \t\n\v\f\rab]\0\xA0"s, 20);
    ASSERT_EQ(ParseLabels(Sequence), ReferenceLabels(Sequence)) << Sequence;
  }
}

// The text beyond the limit is dropped, and so is the end of a label after much white space.
TEST(RuleLine, SplitsLongSequencesLikeTheReference) {
  for (const std::size_t Size : {99999U, 100000U, 100001U, 1000002U}) {
    for (const std::string& sSequence :
         {"A " + std::string(Size, 'B'), "A  " + std::string(Size, 'B') + " C",
          '\t' + std::string(Size, 'B'), std::string(Size, 'A') + " B"}) {
      EXPECT_EQ(ParseLabels(sSequence), ReferenceLabels(sSequence)) << sSequence.size();
    }
  }
}
