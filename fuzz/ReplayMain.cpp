#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* Data, std::size_t Size);

namespace {

using Paths = std::vector<std::filesystem::path>;

/// The file, or the files of the folder, in the order of their names.
Paths FilesAt(const std::filesystem::path& Place) {
  if (!std::filesystem::is_directory(Place)) {
    return {Place};
  }
  Paths vFiles;
  for (const auto& Entry : std::filesystem::directory_iterator(Place)) {
    vFiles.push_back(Entry.path());
  }
  std::sort(vFiles.begin(), vFiles.end());
  return vFiles;
}

bool Replay(const std::filesystem::path& File) {
  std::ifstream Stream(File, std::ios::binary);
  if (!Stream) {
    std::cerr << "cannot read " << File << '\n';
    return false;
  }
  const std::string Bytes((std::istreambuf_iterator<char>(Stream)), {});
  std::cout << "replaying " << File.filename() << std::endl;
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(Bytes.data()), Bytes.size());
  return true;
}

}  // namespace

// Replaces the entry point of the fuzzer: passes each file on the command line, or in a folder on
// the command line, to the target once.
int main(int ArgumentCount, char** Arguments) {
  bool AllRead = ArgumentCount > 1;
  for (int Argument = 1; Argument < ArgumentCount; ++Argument) {
    for (const std::filesystem::path& File : FilesAt(Arguments[Argument])) {
      AllRead = Replay(File) && AllRead;
    }
  }
  return AllRead ? 0 : 1;
}
