// The order that the sorter gives is that of a stable sort in memory, however little memory it has
// and whatever bytes the keys are made of.

#include "ExternalSorter.h"
#include "RunError.h"
#include "SpillFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::ExternalSorter;
using Grammar::SortDirection;
using Grammar::SortRecord;

using Records = std::vector<std::pair<std::string, std::string>>;

constexpr std::size_t Little = 1;  // less than the least: every few thousand bytes are spilled
constexpr std::size_t Plenty = std::size_t{1} << 30;

/// The records in the sorter's order, and how many pieces it had to spill.
struct Sorted {
  Records vRecords;
  std::size_t Spilled;
};

Sorted SortedBy(const Records& vRecords, std::size_t Memory, SortDirection Direction) {
  ExternalSorter Sorter(Memory, Direction);
  for (const auto& [Key, Payload] : vRecords) {
    Sorter.Add(Key, Payload);
  }
  Sorter.Sort();
  Sorted Result{{}, Sorter.SpilledRuns()};
  for (SortRecord Record; Sorter.Next(Record);) {
    Result.vRecords.emplace_back(Record.Key, Record.Payload);
  }
  return Result;
}

Records StableSorted(Records vRecords, SortDirection Direction) {
  std::stable_sort(vRecords.begin(), vRecords.end(), [&](const auto& Left, const auto& Right) {
    return Direction == SortDirection::Ascending ? Left.first < Right.first
                                                 : Right.first < Left.first;
  });
  return vRecords;
}

/// Keys of few different bytes, so that many begin alike and many are the same; the payload tells
/// where a record came from.
Records RandomRecords(std::size_t Count, std::size_t MaxKeySize, unsigned Seed) {
  constexpr char Bytes[] = {'a', 'b', '\0', '\x7F', '\x80', '\xFF'};
  std::mt19937 Random(Seed);
  Records vRecords;
  for (std::size_t Number = 0; Number < Count; ++Number) {
    std::string Key(Random() % (MaxKeySize + 1), ' ');
    for (char& Byte : Key) {
      Byte = Bytes[Random() % (Random() % 8 == 0 ? sizeof Bytes : 2)];
    }
    vRecords.emplace_back(Key, std::to_string(Number) + std::string(Random() % 50, '.'));
  }
  return vRecords;
}

TEST(ExternalSorter, SortsNothingAndOne) {
  EXPECT_EQ(SortedBy({}, Plenty, SortDirection::Ascending).vRecords, Records());
  EXPECT_EQ(SortedBy({{"", ""}}, Plenty, SortDirection::Ascending).vRecords, (Records{{"", ""}}));
}

TEST(ExternalSorter, ComparesBytesAndSortsAPrefixFirst) {
  const std::string Nul(1, '\0');
  const Records Expected{
      {"", "1"},        {Nul, "2"},       {Nul + Nul, "3"},       {"a", "4"},
      {"a" + Nul, "5"}, {"abcdefg", "6"}, {"abcdefg" + Nul, "7"}, {"abcdefga", "8"},
      {"b", "9"},       {"\x7F", "10"},   {"\x80", "11"},         {"\xFF\xFF", "12"}};
  Records Input = Expected;
  std::reverse(Input.begin(), Input.end());
  ASSERT_NE(Input, Expected);
  EXPECT_EQ(SortedBy(Input, Plenty, SortDirection::Ascending).vRecords, Expected);
  EXPECT_EQ(SortedBy(Expected, Plenty, SortDirection::Descending).vRecords, Input);
}

TEST(ExternalSorter, IsStableInBothDirections) {
  const Records Input{{"b", "1"}, {"a", "2"}, {"b", "3"}, {"a", "4"}, {"b", "5"}};
  EXPECT_EQ(SortedBy(Input, Plenty, SortDirection::Ascending).vRecords,
            (Records{{"a", "2"}, {"a", "4"}, {"b", "1"}, {"b", "3"}, {"b", "5"}}));
  EXPECT_EQ(SortedBy(Input, Plenty, SortDirection::Descending).vRecords,
            (Records{{"b", "1"}, {"b", "3"}, {"b", "5"}, {"a", "2"}, {"a", "4"}}));
}

TEST(ExternalSorter, HasTheSameResultWithLittleMemory) {
  for (const SortDirection Direction : {SortDirection::Ascending, SortDirection::Descending}) {
    for (const std::size_t MaxKeySize : {3U, 40U, 300U}) {
      const Records Input = RandomRecords(3000, MaxKeySize, 7);
      const Records Expected = StableSorted(Input, Direction);
      ASSERT_NE(Input, Expected);
      const Sorted InMemory = SortedBy(Input, Plenty, Direction);
      const Sorted InFiles = SortedBy(Input, Little, Direction);
      EXPECT_EQ(InMemory.Spilled, 0U);
      EXPECT_GT(InFiles.Spilled, 2U);
      EXPECT_EQ(InMemory.vRecords, Expected);
      EXPECT_EQ(InFiles.vRecords, Expected);
    }
  }
}

TEST(ExternalSorter, SortsRecordsLargerThanItsMemory) {
  Records Input = RandomRecords(50, 10, 3);
  for (std::size_t Number = 0; Number < Input.size(); Number += 10) {
    Input[Number].first += std::string(200000, 'z');
    Input[Number + 1].second += std::string(300000, 'p');
  }
  EXPECT_EQ(SortedBy(Input, Little, SortDirection::Ascending).vRecords,
            StableSorted(Input, SortDirection::Ascending));
}

TEST(SpillFile, ReportsWhatCannotBeRead) {
  const Grammar::SpillFile File;
  char Byte = 0;
  EXPECT_EQ(File.Read(0, &Byte, 1), 0U);
  EXPECT_THROW(File.Read(std::uint64_t{1} << 63U, &Byte, 1), Grammar::RunError);
}

TEST(SpillFile, NeedsAFolderThatIsThere) {
  const char* const Before = std::getenv("TMPDIR");
  const std::string Folder = Before == nullptr ? "" : Before;
  setenv("TMPDIR", "/no/such/folder", 1);
  std::string Message;
  try {
    Grammar::SpillFile();
  } catch (const Grammar::RunError& Error) {
    Message = Error.what();
  }
  if (Before == nullptr) {
    unsetenv("TMPDIR");
  } else {
    setenv("TMPDIR", Folder.c_str(), 1);
  }
  EXPECT_EQ(Message, "cannot make a temporary file in /no/such/folder: No such file or directory");
}

}  // namespace
