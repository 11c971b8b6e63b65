#pragma once

#include "Cleanup.h"

#include <memory>
#include <string>
#include <string_view>

namespace Grammar {

/// Where a command writes its result: standard output, or a file that appears whole or not at all.
///
/// @code
/// OutputFile Output("sorted.trr");
/// Output.Write("{NP,8}\n");
/// std::filesystem::exists("sorted.trr");  // false
/// Output.Finish();
/// std::filesystem::file_size("sorted.trr");  // 7
/// @endcode
///
/// Without `Finish`, the file is as it was before.
///
/// A device or a named pipe is written to directly. A file that is replaced keeps its permissions,
/// and a symbolic link goes on pointing to it. Throws `RunError`, and `ClosedOutput` where nobody
/// reads any more.
class OutputFile {
 public:
  /// @param Path the name of the file; "" and "-" stand for standard output
  explicit OutputFile(const std::string& Path);
  ~OutputFile();

  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  void Write(std::string_view Text) {
    if (Buffer.size() + Text.size() > BufferSize) {
      Flush();
    }
    Buffer.append(Text);
  }

  /// Passes on what has been written so far.
  void Flush();

  /// Whether a file is put in its place at the end, rather than written directly.
  bool AppearsAtTheEnd() const { return Unfinished != nullptr; }

  /// Puts the file in its place. To be called once, after the last `Write`.
  void Finish();

 private:
  static constexpr std::size_t BufferSize = std::size_t{1} << 16;

  void OpenFile(const std::string& Path);

  std::string Name;    ///< as messages show it
  std::string Target;  ///< what is to be replaced; empty if the file is written directly
  std::string Buffer;
  int Descriptor = -1;
  bool OwnsDescriptor = false;
  std::unique_ptr<UnfinishedFile> Unfinished;
};

/// Whether what is written to that output has colours. They are for people: at a terminal, unless
/// the environment variable NO_COLOR says that they want none.
/// @param Path as for `OutputFile`
bool WantsColours(const std::string& Path);

}  // namespace Grammar
