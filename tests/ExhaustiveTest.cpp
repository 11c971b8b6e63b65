// Every short text over the bytes that mean something: the constraint reader, the order of
// alignments and the tokenizer give what their slow twins give (support/SlowTwins.h). Each first
// byte is a test of its own, so that they can run side by side.

#include "AlignmentText.h"
#include "Constraint.h"
#include "Tokenizer.h"
#include "TrRule.h"
#include "support/FastTwins.h"

#include <gtest/gtest.h>

#include <iostream>
#include <streambuf>
#include <string>

using std::string_literals::operator""s;

namespace {

constexpr std::size_t MaxLength = 6;

/// Gives each text of up to `MaxLength` bytes that begins with a given one to the code, up to the
/// first that the code is not content with.
template <typename CodeT>
void ForEachText(const std::string& Start, const std::string& Alphabet, CodeT Code) {
  Code(Start);
  if (testing::Test::HasFatalFailure()) {
    return;
  }
  for (std::size_t Letter = 0; Start.size() < MaxLength && Letter < Alphabet.size(); ++Letter) {
    ForEachText(Start + Alphabet[Letter], Alphabet, Code);
  }
}

/// Takes what goes to std::cerr, in one string that is used again for each text.
class ErrorCollector : public std::streambuf {
 public:
  ErrorCollector() : OldErr(std::cerr.rdbuf(this)) {}
  ~ErrorCollector() override { std::cerr.rdbuf(OldErr); }

  ErrorCollector(const ErrorCollector&) = delete;
  ErrorCollector& operator=(const ErrorCollector&) = delete;

  std::string Text;

 protected:
  int_type overflow(int_type Byte) override {
    Text += traits_type::to_char_type(Byte);
    return Byte;
  }

  std::streamsize xsputn(const char* Bytes, std::streamsize Size) override {
    Text.append(Bytes, static_cast<std::size_t>(Size));
    return Size;
  }

 private:
  std::streambuf* OldErr;
};

/// A name for the test of a byte, which may be no part of a name itself.
std::string NameOfByte(const testing::TestParamInfo<char>& Info) {
  return "FromByte" + std::to_string(static_cast<unsigned char>(Info.param));
}

}  // namespace

// ---- Constraint texts -------------------------------------------------------------------------

namespace {

const std::string ConstraintAlphabet = "()xy0 =a";

bool HaveSameFields(const Constraint& Left, const Constraint& Right) {
  return Left.GetCategory() == Right.GetCategory() &&
         Left.GetConstrainedIndex() == Right.GetConstrainedIndex() &&
         Left.GetFeature() == Right.GetFeature() && Left.GetFeatValue() == Right.GetFeatValue() &&
         Left.GetRankInCategory() == Right.GetRankInCategory() &&
         Left.IsValueConstraint() == Right.IsValueConstraint();
}

class EveryShortConstraintText : public testing::TestWithParam<char> {};

}  // namespace

TEST_P(EveryShortConstraintText, IsReadAsItsTwinReadsIt) {
  ErrorCollector Errors;
  int Refused = 0;
  int Read = 0;
  ForEachText(std::string(1, GetParam()), ConstraintAlphabet, [&](const std::string& Text) {
    const Slow::Reading Expected = Slow::Read(Text);
    Errors.Text.clear();
    const Constraint Record(Text);
    ASSERT_EQ(Errors.Text, Expected.Err);
    ASSERT_TRUE(HaveSameFields(Record, Expected.Record)) << Text;
    ++(Errors.Text.empty() ? Read : Refused);
  });
  EXPECT_EQ(Read + Refused, 37449);  // all eight bytes together give 299,592 texts
  EXPECT_GT(Read, 1000);
  EXPECT_GT(Refused, 1000);
}

INSTANTIATE_TEST_SUITE_P(, EveryShortConstraintText,
                         testing::ValuesIn(ConstraintAlphabet.begin(), ConstraintAlphabet.end()),
                         NameOfByte);

// ---- Alignment strings ------------------------------------------------------------------------

namespace {

const std::string AlignmentAlphabet = "(),12 ";

/// What a rule says of the indices that are missing in a string.
std::string MissingLines(const Slow::Ordered& Result, const std::string& Alignments) {
  std::string Lines;
  for (const char Side : Result.Missing) {
    Lines += (Side == 'x' ? "ALIGNMENT" : "Alignment") + " string is not in correct format:|"s +
             Alignments + "|\n";
  }
  return Lines;
}

void ExpectOrderedAsByTheTwin(const std::string& Alignments, ErrorCollector& Errors) {
  const Slow::Ordered Expected = Slow::Canonical(Alignments);
  ASSERT_EQ(Fast::Canonical(Alignments), Expected) << Alignments;
  // What is in order is seen to be so at once, but for indices that are no plain numbers.
  ASSERT_TRUE(!TrRuleInternal::IsCanonical(Alignments) || Slow::IsOrdered(Alignments))
      << Alignments;
  // With all indices there, ordering again changes nothing.
  ASSERT_TRUE(!Expected.Missing.empty() || Fast::Canonical(Expected.Text) == Expected)
      << Alignments;
  Errors.Text.clear();
  TrRule Rule;
  Rule.SetAlignment(Alignments);
  ASSERT_EQ(Rule.GetAlignmentStr(), Expected.Text) << Alignments;
  ASSERT_EQ(Errors.Text, MissingLines(Expected, Alignments));
}

void ExpectCutAsByTheTwin(const std::string& Alignments) {
  ASSERT_EQ(Fast::Displayed(Alignments), Slow::Displayed(Alignments)) << Alignments;
  ASSERT_EQ(TrRuleInternal::ReversedAlignments(Alignments), Slow::Reversed(Alignments))
      << Alignments;
}

class EveryShortAlignmentString : public testing::TestWithParam<char> {};

}  // namespace

TEST_P(EveryShortAlignmentString, IsOrderedAndCutAsByItsTwin) {
  ErrorCollector Errors;
  int Texts = 0;
  ForEachText(std::string(1, GetParam()), AlignmentAlphabet, [&](const std::string& Text) {
    if (TrRuleInternal::HasOuterParentheses(Text)) {
      ASSERT_NO_FATAL_FAILURE(ExpectOrderedAsByTheTwin(Text, Errors));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectOrderedAsByTheTwin('(' + Text + ')', Errors));
    ASSERT_NO_FATAL_FAILURE(ExpectCutAsByTheTwin(Text));
    ++Texts;
  });
  EXPECT_EQ(Texts, 9331);  // all six bytes together give 55,986 texts
}

INSTANTIATE_TEST_SUITE_P(, EveryShortAlignmentString,
                         testing::ValuesIn(AlignmentAlphabet.begin(), AlignmentAlphabet.end()),
                         NameOfByte);

// ---- Pieces -----------------------------------------------------------------------------------

namespace {

const std::string PieceAlphabet = ":a \t\0"s;

class EveryShortText : public testing::TestWithParam<char> {};

}  // namespace

TEST_P(EveryShortText, IsCutAsByItsTwin) {
  const Tokenizer Tokenize;
  int Texts = 0;
  ForEachText(std::string(1, GetParam()), PieceAlphabet, [&](const std::string& Text) {
    for (const char* Delimiter : {":", " ", "::", ": ", "a:"}) {
      ASSERT_EQ(Tokenize(Text, Delimiter), Slow::Pieces(Text, Delimiter))
          << Text << " / " << Delimiter;
      ASSERT_EQ(Tokenize(Text, Delimiter, true), Slow::TrimmedPieces(Text, Delimiter))
          << Text << " / " << Delimiter;
    }
    ++Texts;
  });
  EXPECT_EQ(Texts, 3906);  // all five bytes together give 19,530 texts
}

INSTANTIATE_TEST_SUITE_P(, EveryShortText,
                         testing::ValuesIn(PieceAlphabet.begin(), PieceAlphabet.end()), NameOfByte);

// ---- The shortest of all ----------------------------------------------------------------------

TEST(EmptyText, IsReadOrderedAndCutAsByItsTwins) {
  ErrorCollector Errors;
  EXPECT_TRUE(HaveSameFields(Constraint(""), Slow::Read("").Record));
  EXPECT_EQ(Errors.Text, Slow::Read("").Err);
  EXPECT_NE(Errors.Text, "");
  ExpectOrderedAsByTheTwin("", Errors);
  ExpectCutAsByTheTwin("");
  EXPECT_EQ(Tokenizer()("", ":"), Slow::Pieces("", ":"));
}
