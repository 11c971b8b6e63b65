#pragma once

#include <cstddef>
#include <string>

/// @file
/// What is left behind when somebody stops a run: nothing.

namespace Grammar {

/// Makes SIGINT, SIGTERM, SIGHUP, SIGQUIT and SIGPIPE remove the unfinished files before they end
/// the process. The process still dies of the signal, so that a shell sees why. Signals that the
/// process has been told to ignore, as under nohup, stay ignored.
void RemoveUnfinishedFilesOnSignals();

/// A new file that nobody should find unless it is finished. It is removed at the end of its
/// scope, and by the signals above, until it is kept.
class UnfinishedFile {
 public:
  /// Makes a file in the folder of `Target`, whose name says whose it is. Throws `RunError` if it
  /// cannot be made, or eight are there already.
  explicit UnfinishedFile(const std::string& Target);
  ~UnfinishedFile();

  UnfinishedFile(const UnfinishedFile&) = delete;
  UnfinishedFile& operator=(const UnfinishedFile&) = delete;

  int Descriptor() const { return File; }

  /// Gives the file its final name, in place of what has that name. Throws `RunError`.
  void RenameTo(const std::string& Target);

 private:
  void Forget();

  std::string Name;
  int File = -1;
  std::size_t Slot = 0;
};

}  // namespace Grammar
