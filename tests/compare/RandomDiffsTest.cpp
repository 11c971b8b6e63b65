// What holds of every diff: it makes the new file of the old one, and the old one of the new one.
// TRRULE_TEST_DIFFS says how many pairs of files are compared.

#include "DiffSupport.h"
#include "RandomVersions.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>

namespace {

using Contents = std::optional<std::vector<std::string>>;

std::size_t PairCount() {
  const char* Text = std::getenv("TRRULE_TEST_DIFFS");
  constexpr std::size_t Usual = 600;
  return Text == nullptr ? Usual : std::strtoul(Text, nullptr, 10);
}

Contents PatchedContents(const std::string& Text, const std::string& Diff, bool IsReversed) {
  const auto New = Patched(Text, Diff, IsReversed);
  return New ? Contents(ContentsOf(*New)) : std::nullopt;
}

TEST(RandomDiffs, MakeTheNewFileOfTheOldAndBack) {
  RandomInput Random;
  for (std::size_t Round = PairCount(); Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const std::string Diff = DiffOf(Versions.Old, Versions.New);
    ASSERT_EQ(PatchedContents(Versions.Old, Diff, false), Contents(ContentsOf(Versions.New)))
        << Versions.Old << "=======\n"
        << Versions.New << "=======\n"
        << Diff;
    ASSERT_EQ(PatchedContents(Versions.New, Diff, true), Contents(ContentsOf(Versions.Old)))
        << Versions.Old << "=======\n"
        << Versions.New << "=======\n"
        << Diff;
    ASSERT_EQ(Diff.empty(), ContentsOf(Versions.Old) == ContentsOf(Versions.New));
  }
}

TEST(RandomDiffs, AreEmptyForTheNormalForm) {
  RandomInput Random;
  for (std::size_t Round = PairCount(); Round > 0; --Round) {
    const RandomVersions Versions(Random);
    ASSERT_EQ(DiffOf(Versions.Old, Printed(Versions.Old)), "") << Versions.Old;
  }
}

TEST(RandomDiffs, AreTheSameWithMovesButForTheMoves) {
  RandomInput Random;
  for (std::size_t Round = PairCount() / 4; Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const std::string Diff = DiffOf(Versions.Old, Versions.New, true);
    ASSERT_EQ(PatchedContents(Versions.Old, Diff, false), Contents(ContentsOf(Versions.New)))
        << Versions.Old << "=======\n"
        << Versions.New << "=======\n"
        << Diff;
  }
}

TEST(RandomDiffs, AreRefusedWhenTheyAreCut) {
  RandomInput Random;
  for (std::size_t Round = PairCount() / 60; Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const std::string Diff = DiffOf(Versions.Old, Versions.New);
    for (std::size_t Size = 1; Size < Diff.size(); ++Size) {
      ASSERT_EQ(Patched(Versions.Old, Diff.substr(0, Size)), std::nullopt) << Diff << Size;
    }
  }
}

TEST(RandomDiffs, AreRefusedInAnotherFile) {
  RandomInput Random;
  for (std::size_t Round = PairCount(); Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const RandomVersions Others(Random);
    const std::string Diff = DiffOf(Versions.Old, Versions.New);
    const auto vsOther = ContentsOf(Others.Old);
    std::vector<Grammar::DiffHunk> vHunks;
    ASSERT_EQ(ReadDiff(Diff, vHunks), std::nullopt);
    const bool LacksRule = std::any_of(vHunks.begin(), vHunks.end(), [&](const auto& Hunk) {
      const std::string Expected = (Hunk.IsText() ? "text\n" : "rule\n") + Hunk.OldText;
      return !Hunk.OldText.empty() && !std::binary_search(vsOther.begin(), vsOther.end(), Expected);
    });
    if (LacksRule) {
      ASSERT_EQ(Patched(Others.Old, Diff), std::nullopt) << Diff << Others.Old;
    }
  }
}

TEST(RandomDiffs, AreReadOrRefusedWhateverTheirBytes) {
  RandomInput Random;
  std::size_t Refused = 0;
  std::size_t Made = 0;
  for (std::size_t Round = PairCount(); Round > 0; --Round) {
    const RandomVersions Versions(Random);
    const std::string Diff = Random.Damaged(DiffOf(Versions.Old, Versions.New), "\n -+@#,019{}\r");
    ++(Patched(Versions.Old, Diff) ? Made : Refused);
  }
  EXPECT_GT(Made, 0U);
  EXPECT_GT(Refused, Made);
}

}  // namespace
