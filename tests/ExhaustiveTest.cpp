// Every short text over the bytes that have a meaning: the constraint reader, the order of
// alignments and the tokenizer agree with the reference implementation
// (support/ReferenceImplementation.h). Each first byte is a separate test, so that they can run in
// parallel.

#include "AlignmentText.h"
#include "Constraint.h"
#include "Tokenizer.h"
#include "TrRule.h"
#include "support/LibraryResults.h"

#include <gtest/gtest.h>

#include <iostream>
#include <streambuf>
#include <string>

using std::string_literals::operator""s;

namespace {

constexpr std::size_t MaxLength = 6;

/// Calls the code with each text of up to `MaxLength` bytes that begins with a given byte, until it
/// returns false.
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

/// Captures std::cerr in one string that is reused for each text.
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

/// The name of the test of a byte, which a name may not contain itself.
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

TEST_P(EveryShortConstraintText, IsReadLikeTheReference) {
  ErrorCollector Errors;
  int Refused = 0;
  int Read = 0;
  ForEachText(std::string(1, GetParam()), ConstraintAlphabet, [&](const std::string& Text) {
    const Reference::Reading Expected = Reference::Read(Text);
    Errors.Text.clear();
    const Constraint Record(Text);
    ASSERT_EQ(Errors.Text, Expected.Err);
    ASSERT_TRUE(HaveSameFields(Record, Expected.Record)) << Text;
    ++(Errors.Text.empty() ? Read : Refused);
  });
  EXPECT_EQ(Read + Refused, 37449);  // 299,592 texts for all eight bytes
  EXPECT_GT(Read, 1000);
  EXPECT_GT(Refused, 1000);
}

INSTANTIATE_TEST_SUITE_P(, EveryShortConstraintText,
                         testing::ValuesIn(ConstraintAlphabet.begin(), ConstraintAlphabet.end()),
                         NameOfByte);

// ---- Alignment strings ------------------------------------------------------------------------

namespace {

const std::string AlignmentAlphabet = "(),12 ";

/// The messages of a rule about the indices that are missing in a string.
std::string MissingLines(const Reference::Ordered& Result, const std::string& Alignments) {
  std::string Lines;
  for (const char Side : Result.Missing) {
    Lines += (Side == 'x' ? "ALIGNMENT" : "Alignment") + " string is not in correct format:|"s +
             Alignments + "|\n";
  }
  return Lines;
}

void ExpectOrderedLikeTheReference(const std::string& Alignments, ErrorCollector& Errors) {
  const Reference::Ordered Expected = Reference::Canonical(Alignments);
  ASSERT_EQ(Library::Canonical(Alignments), Expected) << Alignments;
  // A string in order is recognised at once, unless an index is not a plain number.
  ASSERT_TRUE(!TrRuleInternal::IsCanonical(Alignments) || Reference::IsOrdered(Alignments))
      << Alignments;
  // If no index is missing, ordering again changes nothing.
  ASSERT_TRUE(!Expected.Missing.empty() || Library::Canonical(Expected.Text) == Expected)
      << Alignments;
  Errors.Text.clear();
  TrRule Rule;
  Rule.SetAlignment(Alignments);
  ASSERT_EQ(Rule.GetAlignmentStr(), Expected.Text) << Alignments;
  ASSERT_EQ(Errors.Text, MissingLines(Expected, Alignments));
}

void ExpectSplitLikeTheReference(const std::string& Alignments) {
  ASSERT_EQ(Library::Displayed(Alignments), Reference::Displayed(Alignments)) << Alignments;
  ASSERT_EQ(TrRuleInternal::ReversedAlignments(Alignments), Reference::Reversed(Alignments))
      << Alignments;
}

class EveryShortAlignmentString : public testing::TestWithParam<char> {};

}  // namespace

TEST_P(EveryShortAlignmentString, IsOrderedAndSplitLikeTheReference) {
  ErrorCollector Errors;
  int Texts = 0;
  ForEachText(std::string(1, GetParam()), AlignmentAlphabet, [&](const std::string& Text) {
    if (TrRuleInternal::HasOuterParentheses(Text)) {
      ASSERT_NO_FATAL_FAILURE(ExpectOrderedLikeTheReference(Text, Errors));
    }
    ASSERT_NO_FATAL_FAILURE(ExpectOrderedLikeTheReference('(' + Text + ')', Errors));
    ASSERT_NO_FATAL_FAILURE(ExpectSplitLikeTheReference(Text));
    ++Texts;
  });
  EXPECT_EQ(Texts, 9331);  // 55,986 texts for all six bytes
}

INSTANTIATE_TEST_SUITE_P(, EveryShortAlignmentString,
                         testing::ValuesIn(AlignmentAlphabet.begin(), AlignmentAlphabet.end()),
                         NameOfByte);

// ---- Pieces -----------------------------------------------------------------------------------

namespace {

const std::string PieceAlphabet = ":a \t\0"s;

class EveryShortText : public testing::TestWithParam<char> {};

}  // namespace

TEST_P(EveryShortText, IsSplitLikeTheReference) {
  const Tokenizer Tokenize;
  int Texts = 0;
  ForEachText(std::string(1, GetParam()), PieceAlphabet, [&](const std::string& Text) {
    for (const char* Delimiter : {":", " ", "::", ": ", "a:"}) {
      ASSERT_EQ(Tokenize(Text, Delimiter), Reference::Pieces(Text, Delimiter))
          << Text << " / " << Delimiter;
      ASSERT_EQ(Tokenize(Text, Delimiter, true), Reference::TrimmedPieces(Text, Delimiter))
          << Text << " / " << Delimiter;
    }
    ++Texts;
  });
  EXPECT_EQ(Texts, 3906);  // 19,530 texts for all five bytes
}

INSTANTIATE_TEST_SUITE_P(, EveryShortText,
                         testing::ValuesIn(PieceAlphabet.begin(), PieceAlphabet.end()), NameOfByte);

// ---- The empty text ---------------------------------------------------------------------------

TEST(EmptyText, IsReadOrderedAndSplitLikeTheReference) {
  ErrorCollector Errors;
  EXPECT_TRUE(HaveSameFields(Constraint(""), Reference::Read("").Record));
  EXPECT_EQ(Errors.Text, Reference::Read("").Err);
  EXPECT_NE(Errors.Text, "");
  ExpectOrderedLikeTheReference("", Errors);
  ExpectSplitLikeTheReference("");
  EXPECT_EQ(Tokenizer()("", ":"), Reference::Pieces("", ":"));
}
