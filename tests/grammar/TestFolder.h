#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

#include <stdlib.h>

/// A folder of a test's own, with files in it; gone at the end of its scope.
///
///   TestFolder Folder;
///   const std::string Path = Folder.Write("a.trr", "{NP,8}\n");
///   EXPECT_EQ(Folder.Names(), (std::set<std::string>{"a.trr"}));
class TestFolder {
 public:
  TestFolder() {
    std::string Name = (std::filesystem::temp_directory_path() / "trrule-test-XXXXXX").string();
    if (mkdtemp(Name.data()) == nullptr) {
      throw std::runtime_error("cannot make a folder for a test");
    }
    Root = Name;
  }

  ~TestFolder() {
    std::error_code Ignored;
    std::filesystem::remove_all(Root, Ignored);
  }

  TestFolder(const TestFolder&) = delete;
  TestFolder& operator=(const TestFolder&) = delete;

  std::string Path(const std::string& Name) const { return (Root / Name).string(); }

  std::string Write(const std::string& Name, const std::string& Text) const {
    std::ofstream(Path(Name), std::ios::binary) << Text;
    return Path(Name);
  }

  std::string Read(const std::string& Name) const {
    std::ifstream File(Path(Name), std::ios::binary);
    return {std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>()};
  }

  std::set<std::string> Names() const {
    std::set<std::string> ssNames;
    for (const auto& Entry : std::filesystem::directory_iterator(Root)) {
      ssNames.insert(Entry.path().filename().string());
    }
    return ssNames;
  }

 private:
  std::filesystem::path Root;
};
