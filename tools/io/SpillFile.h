#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Grammar {

/// A temporary file for what does not fit in memory. It has no name from the moment it is open, so
/// it is gone with the process, however that ends. It lies in the folder that the environment
/// variable TMPDIR names, or in /tmp. Throws `RunError`.
///
/// @code
/// SpillFile Texts;
/// Texts.Append("DET N");
/// Texts.Flush();
/// char Bytes[8] = {};
/// Texts.Read(2, Bytes, 8);  // 3
/// std::string(Bytes, 3);    // "T N"
/// @endcode
class SpillFile {
 public:
  SpillFile();
  ~SpillFile();

  SpillFile(const SpillFile&) = delete;
  SpillFile& operator=(const SpillFile&) = delete;

  void Append(std::string_view Bytes);

  /// How many bytes have been appended.
  std::uint64_t Size() const { return Written + Buffer.size(); }

  /// Passes on what has been appended, so that it can be read.
  void Flush();

  /// Reads up to `Count` bytes into `Into`; fewer at the end of the file alone.
  std::size_t Read(std::uint64_t Offset, char* Into, std::size_t Count) const;

 private:
  static constexpr std::size_t BufferSize = std::size_t{1} << 18;

  void WriteAll(std::string_view Bytes);

  int Descriptor = -1;
  std::string Folder;
  std::string Buffer;
  std::uint64_t Written = 0;
};

}  // namespace Grammar
