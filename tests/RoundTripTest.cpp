// Which rules are restored from their text, written and read and written again, and which are not:
// every exception in fuzz/RoundTrip.h has a rule here. The fuzz targets check the library against
// that list.

#include "RoundTrip.h"

#include "FuzzSupport.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

namespace {

/// Reads a text that must be a rule, without its messages.
void ReadQuietly(TrRule& Rule, const std::string& Text) {
  const SilentStreams Silence;
  ASSERT_TRUE(Rule.SetTrRuleFromString(Text)) << Text;
}

/// The forms whose text is the same when written, read and written again: their first letters, or
/// dashes for those that change.
std::string FormsThatComeBack(TrRule& Rule) {
  const SilentStreams Silence;
  std::string Forms = "PFNAC";
  for (const Form Which : AllForms) {
    const Outcome<std::string> Text = OutcomeOf([&] { return Write(Rule, Which); });
    TrRule Again;
    const bool IsRead = Again.SetTrRuleFromString(Text.Result);
    if (!IsRead || !(OutcomeOf([&] { return Write(Again, Which); }) == Text)) {
      Forms[static_cast<std::size_t>(Which)] = '-';
    }
  }
  return Forms;
}

/// The same, according to the list of exceptions.
std::string FormsThatShould(TrRule& Rule) {
  const SilentStreams Silence;
  std::string Forms = "PFNAC";
  for (const Form Which : AllForms) {
    if (!IsRestored(Rule, Which, Write(Rule, Which))) {
      Forms[static_cast<std::size_t>(Which)] = '-';
    }
  }
  return Forms;
}

struct Case {
  const char* What;
  std::string Text;
  std::string Forms;
};

std::string Typed(const std::string& SequenceLine) {
  return "{NP,8}\n" + SequenceLine + "\n(X1::Y1)\n";
}

std::string With(const std::string& Line) {
  return "{NP,8}\nA::B [C] -> [D]\n(X1::Y1)\n" + Line + '\n';
}

void ExpectForms(const std::vector<Case>& vCases) {
  for (const Case& Row : vCases) {
    SCOPED_TRACE(Row.What);
    TrRule Rule;
    ASSERT_NO_FATAL_FAILURE(ReadQuietly(Rule, Row.Text));
    EXPECT_EQ(FormsThatComeBack(Rule), Row.Forms);
    const std::string Should = FormsThatShould(Rule);
    for (std::size_t Which = 0; Which < Row.Forms.size(); ++Which) {
      EXPECT_TRUE(Should[Which] == '-' || Should[Which] == Row.Forms[Which]) << Should;
    }
  }
}

}  // namespace

TEST(RoundTrip, RestoresWellFormedRulesFromEveryForm) {
  const Strings vsTexts = {
      SampleText.substr(0, SampleText.find("(y1 ==")),
      SampleText,
      With("((y1 num) = (*OR* sg pl))\n((x1 num) = (*NOT* sg))\n((y2 a) = (x1 a))"),
      With("((y1 num) = sg)\n((y1 num) = pl)\n((y1 gen) = (y2 gen))"),
      With(";; a comment {VP,3}\n{B,2}"),
      "{P,0}\nP::P [\"OF\" NP] -> [\"DE\" NP]\n(X1::Y1)\n(X0::Y9)\n(X2::Y2)",
  };
  for (const std::string& sText : vsTexts) {
    SCOPED_TRACE(sText);
    TrRule Rule;
    ASSERT_NO_FATAL_FAILURE(ReadQuietly(Rule, sText));
    EXPECT_EQ(FormsThatShould(Rule), "PFNAC");
    EXPECT_EQ(FormsThatComeBack(Rule), "PFNAC");
  }
}

TEST(RoundTrip, LosesNumbersAndTypesOfHeaders) {
  ExpectForms({
      {"no header: -1 is read as 1", "A::B [C] -> [D]\n(X1::Y1)\n", "---AC"},
      {"a type of more than two bytes", "  {ADJP,8}\nA::B [C] -> [D]\n(X1::Y1)\n", "-FNAC"},
      {"a type that makes a comment", "{;;,8}\nA::B [C] -> [D]\n(X1::Y1)\n", "-FNAC"},
  });
}

TEST(RoundTrip, MisreadsTypesAndLabelsWithMarks) {
  ExpectForms({
      {"no types", Typed("[A B] -> [B A]"), "-----"},
      {"no labels on one side", Typed("A::B [ ] -> [D]"), "-----"},
      {"a type with a bracket", Typed("A[::B [C] -> [D]"), "-----"},
      {"a type with a comma", Typed("A,B::B [C] -> [D]"), "P--AC"},
      {"a type with a sign", Typed("A=::B [C] -> [D]"), "P-NAC"},
      {"a type with two semicolons", Typed("A;;::B [C] -> [D]"), "-FNAC"},
      {"a label with two semicolons", Typed("A::B [C ;;] -> [D]"), "-FNAC"},
      {"a label with a sign", Typed("A::B [C] -> [D=E]"), "PFN--"},
      {"an empty sequence, which is one label", Typed("A::B [] -> []"), "PFNAC"},
  });
}

TEST(RoundTrip, ReadsSomeCommentsAsOtherLinesToo) {
  ExpectForms({
      {"a value that merges the other way", With("((y1 a) = sg)\n;; ((y1 a) = pl)"), "-FNAC"},
      {"an alignment in another text", With(";; (X01::Y1)"), "-FNAC"},
      {"a carriage return at the end", With(";; a comment\r\r"), "-FNAC"},
      {"a header, which the true one overwrites", With(";; {VP,3}\n{B,2}"), "PFNAC"},
  });
}

TEST(RoundTrip, ReadsAlignmentsWithCommentMarksAsComments) {
  ExpectForms({
      {"an index with two semicolons", With("(X2;;::Y2)"), "-FNAC"},
      {"an index with a blank in front", With("(X 2::Y2)"), "PFNAC"},
      {"an index with a comma", With("(X2,3::Y2)"), "PFNAC"},
  });
}

TEST(RoundTrip, ChangesConstraintsThatTheirTextDoesNotRestore) {
  ExpectForms({
      {"a value with a doubled sign", With("((y1 a) == (y2 a))"), "--N--"},
      {"two colons, where a blank was", With("((y1 a: :b) = x)"), "--N--"},
      {"two semicolons", With("((y1 a;;) = x)"), "-FNAC"},
      {"a header", With("((y1 a{b,3}) = x)"), "-FNAC"},
      {"values that merge in the other order", With("((y1 a) = sg)\n((y1 a__b) = pl)"), "--N--"},
  });
}

TEST(RoundTrip, CutsTextsOfMoreThanAHundredThousandBytes) {
  TrRule Rule;
  ASSERT_NO_FATAL_FAILURE(ReadQuietly(Rule, With("((x1 a) = sg)")));
  Rule.SetSLType(std::string(60000, 'T'));
  Rule.SetTLType(std::string(60000, 'T'));
  EXPECT_EQ(FormsThatShould(Rule), "-----");
  EXPECT_EQ(FormsThatComeBack(Rule), "-----");
}

TEST(RoundTrip, RestoresNothingOfTheExample) {
  struct Change {
    const char* Member;
    void (*Make)(TrRule& Rule);
    const char* Forms;
  };
  const Change Changes[] = {
      {"SLWords", [](TrRule& Rule) { Rule.SetSLWords("the car"); }, "P--AC"},
      {"TLWords", [](TrRule& Rule) { Rule.SetTLWords("el auto"); }, "P--AC"},
      {"CStructure", [](TrRule& Rule) { Rule.SetCStructure("(NP)"); }, "P--AC"},
      {"NumTrExamples", [](TrRule& Rule) { Rule.SetNumTrExamples(2); }, "P---C"},
      {"SLWord2Comp",
       [](TrRule& Rule) {
         Rule.SetSLWord2Comp({{0, 0}});
       },
       "PFN-C"},
      {"TLWord2Comp",
       [](TrRule& Rule) {
         Rule.SetTLWord2Comp({{0, 0}});
       },
       "PFN-C"},
      {"WordLevelSLPOS", [](TrRule& Rule) { Rule.SetWordLevelSLPOS("other"); }, "PFN-C"},
      {"WordLevelTLPOS", [](TrRule& Rule) { Rule.SetWordLevelTLPOS("other"); }, "PFN--"},
      {"the alternatives", [](TrRule& Rule) { Rule.ResetAlterTrInfo(); }, "PFN-C"},
      {"RuleIndex", [](TrRule& Rule) { Rule.SetRuleIndex(12); }, "---AC"},
      {"AlignmentString, emptied", [](TrRule& Rule) { Rule.SetAlignment(""); }, "-----"},
      {"AlignmentString", [](TrRule& Rule) { Rule.SetAlignment("((a,b))"); }, "-----"},
  };
  for (const Change& Variant : Changes) {
    SCOPED_TRACE(Variant.Member);
    TrRule Rule;
    ASSERT_NO_FATAL_FAILURE(ReadQuietly(Rule, SampleText));
    EXPECT_EQ(FormsThatComeBack(Rule), "PFNAC");
    Variant.Make(Rule);
    EXPECT_EQ(FormsThatComeBack(Rule), Variant.Forms);
    EXPECT_EQ(FormsThatShould(Rule), Variant.Forms);
  }
}
