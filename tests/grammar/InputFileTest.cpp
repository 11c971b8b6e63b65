// The sizes that progress is shown against, and what cannot be read.

#include "InputFile.h"
#include "RunError.h"
#include "TestFolder.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace {

using Grammar::InputFile;
using Grammar::OrStandardInput;
using Grammar::TotalSize;
using Strings = std::vector<std::string>;

TEST(InputFile, HasASizeIfItIsRegular) {
  const TestFolder Folder;
  const std::string Ten = Folder.Write("ten.trr", "0123456789");
  const std::string Three = Folder.Write("three.trr", "012");
  const std::vector<std::pair<Strings, std::uint64_t>> Cases{
      {{}, 0},
      {{Ten}, 10},
      {{Ten, Three, Ten}, 23},
      {{Ten, Folder.Path("missing.trr"), Three}, 0},
      {{Ten, "/dev/null"}, 0}};
  for (const auto& [vsNames, Size] : Cases) {
    EXPECT_EQ(TotalSize(vsNames), Size) << ::testing::PrintToString(vsNames);
  }
}

TEST(InputFile, ReportsWhatCannotBeRead) {
  const TestFolder Folder;
  const std::string Missing = Folder.Path("missing.trr");
  try {
    InputFile File(Missing);
    FAIL() << "a file that is missing was opened";
  } catch (const Grammar::InputError& Error) {
    EXPECT_EQ(Error.what(), "cannot read " + Missing + ": No such file or directory");
  }
}

TEST(InputFile, IsStandardInputIfNoneIsNamed) {
  EXPECT_EQ(OrStandardInput({}), Strings{"-"});
  EXPECT_EQ(OrStandardInput({"a", "-"}), (Strings{"a", "-"}));
}

}  // namespace
