// What is written as the library writes it, beside what the library itself writes.

#include "LibraryText.h"

#include "GrammarPaths.h"
#include "RuleGenerator.h"
#include "support/HaltGuard.h"
#include "support/RandomInput.h"
#include "support/Samples.h"
#include "support/StreamCapture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

using Grammar::LibraryFailure;

/// The library's own text of a rule, and why there is none.
struct LibraryOutcome {
  LibraryFailure Failure = LibraryFailure::None;
  std::string Text;

  friend bool operator==(const LibraryOutcome& Left, const LibraryOutcome& Right) {
    return Left.Failure == Right.Failure && Left.Text == Right.Text;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const LibraryOutcome& Outcome) {
    return Stream << "failure " << static_cast<int>(Outcome.Failure) << '\n' << Outcome.Text;
  }
};

LibraryOutcome ByLibrary(const std::string& Text) {
  StreamCapture Streams;
  TrRule Rule;
  if (!Rule.SetTrRuleFromString(Text)) {
    return {LibraryFailure::Unread, ""};
  }
  Streams.TakeOut();
  if (const auto Halt = HaltOf([&] { Rule.Print(); })) {
    return {Halt->What == HaltReason::AgreedIndex ? LibraryFailure::NoAgreedIndex
                                                  : LibraryFailure::Cycle,
            ""};
  }
  return {LibraryFailure::None, Streams.TakeOut()};
}

LibraryOutcome ByText(const std::string& Text) {
  LibraryOutcome Outcome;
  const Written Streams =
      WrittenBy([&] { Outcome.Failure = Grammar::AppendLibraryText(Text, Outcome.Text); });
  EXPECT_EQ(Streams, (Written{"", ""}));
  return Outcome;
}

void ExpectLibraryText(const std::string& Text) {
  EXPECT_EQ(ByText(Text), ByLibrary(Text)) << Text;
}

TEST(LibraryText, DropsWhatTheRecordDrops) {
  EXPECT_EQ(ByText("{ADJP,12}\n"
                   "NP::NP : [\"el\" n] -> [\"the\" N] ;; both\r\n"
                   "(X2::Y2)\n(X1::Y1)\n"
                   "((y1 agr gen) = (x1 num))\n"
                   "((x1 num) = sg)\n((x1 num) = pl)\n"
                   "(y2 = (y0 det)) ; one\n"),
            (LibraryOutcome{LibraryFailure::None,
                            "NP::NP : [\"el\" n] -> [\"the\" N] ;; both\n"
                            "{AD,2}\n"
                            "NP::NP [\"EL\" N] -> [\"THE\" N]\n"
                            "(\n"
                            ";--;(X1::Y1)\n"
                            "(X2::Y2)\n"
                            "((X1 NUM) = (*OR* SG PL))\n"
                            "((Y1 AGRGEN) = (X1 AGRGEN))\n"
                            "(Y2 = (Y0 DET)\n"
                            ")\n"}));
}

TEST(LibraryText, NamesWhatTheLibraryStopsAt) {
  const std::string Rule = "NP::NP : [A B] -> [A B]\n(X1::Y1)\n";
  const std::vector<std::pair<std::string, LibraryFailure>> Cases{
      {Rule, LibraryFailure::None},
      {"", LibraryFailure::Unread},
      {"NP::NP : [A B] -> [A B]\n", LibraryFailure::Unread},
      {"(X1::Y1)\n", LibraryFailure::Unread},
      {Rule + ";; [a] -> [b]\n", LibraryFailure::Unread},
      {Rule + ";; a::b\n", LibraryFailure::Unread},
      {"NP : [A] -> [B]\n(X1::Y1)\n", LibraryFailure::None},
      {"NP:: : [A] -> [B]\n(X1::Y1)\n", LibraryFailure::Unread},
      {"NP::NP : A] -> [B]\n(X1::Y1)\n", LibraryFailure::Unread},
      {Rule + "(x1 = n)\n", LibraryFailure::NoAgreedIndex},
      {Rule + "(x1 = x2)\n(x2 = x1)\n", LibraryFailure::Cycle}};
  for (const auto& [sText, Expected] : Cases) {
    EXPECT_EQ(ByText(sText).Failure, Expected) << sText;
    ExpectLibraryText(sText);
  }
}

TEST(LibraryText, IsWhatTheLibraryWritesOfGeneratedRules) {
  for (const std::string& sRule : GeneratedRules(31, 500)) {
    ExpectLibraryText(sRule);
  }
}

TEST(LibraryText, IsWhatTheLibraryWritesOfEveryCorpusAtHand) {
  std::size_t Files = 0;
  for (const char* Folder : {"fuzz/corpus", "tests/regressions", "examples/grammar"}) {
    const std::filesystem::path Root = std::filesystem::path(GrammarPaths::SourceFolder) / Folder;
    for (const auto& Entry : std::filesystem::recursive_directory_iterator(Root)) {
      if (Entry.is_regular_file()) {
        std::ifstream File(Entry.path(), std::ios::binary);
        ExpectLibraryText(std::string((std::istreambuf_iterator<char>(File)), {}));
        ++Files;
      }
    }
  }
  EXPECT_GT(Files, 10U);
}

TEST(LibraryText, IsWhatTheLibraryWritesOfDamagedRules) {
  RandomInput Random;
  std::vector<std::string> vsRules = GeneratedRules(32, 50);
  vsRules.push_back(SampleText);
  for (int Round = 0; Round < 3000; ++Round) {
    const std::string sRule = Random.Pick(vsRules);
    ExpectLibraryText(Random.Damaged(sRule, "()[]{}=:;,\"\n\rxy01 *->"));
  }
}

TEST(LibraryText, PutsAlignmentsInOrderAsTheLibraryDoes) {
  RandomInput Random;
  const Strings vsLines{"(X1::Y1)\n",   "(X2::Y1)\n",    "(x1::y2)\n",  "(X03::Y1)\n",
                        "(X1 :: Y3)\n", "(Xa::Y1)\n",    "(X::Y)\n",    "(X1,::Y1)\n",
                        "(X-1::Y2)\n",  "1. (X2::Y3)\n", "(X9::Y99)\n", "(X4::Y(,)\n"};
  for (int Round = 0; Round < 500; ++Round) {
    ExpectLibraryText("NP::NP : [\"A\" B] -> [A \"B\"]\n" + Random.WordsOf(vsLines, 8));
  }
}

}  // namespace
