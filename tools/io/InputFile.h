#pragma once

#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <vector>

namespace Grammar {

/// The names, or "-" for standard input if there are none.
std::vector<std::string> OrStandardInput(std::vector<std::string> vsNames);

/// The size of all files together; 0 if one of them is not a regular file.
std::uint64_t TotalSize(const std::vector<std::string>& vsNames);

/// A file that is read from its beginning to its end, or standard input for "-". Throws
/// `InputError` where it cannot be opened or read.
///
/// @code
/// InputFile File("np.trr");
/// std::string Line;
/// std::getline(File.Stream(), Line);
/// Line;  // ";;SL: a car"
/// @endcode
class InputFile {
 public:
  explicit InputFile(const std::string& Name);
  ~InputFile();

  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  std::istream& Stream() { return Input; }

 private:
  class Buffer;

  std::unique_ptr<Buffer> Bytes;
  std::istream Input;
};

}  // namespace Grammar
