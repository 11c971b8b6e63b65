#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Grammar {

/// For its scope, makes SIGINT, SIGTERM, SIGHUP and SIGQUIT end a wait rather than the process. One
/// that no wait has taken comes again at the end of the scope. Signals that the process ignores
/// stay ignored. Only one object can be there at a time.
class EndSignals {
 public:
  EndSignals();
  ~EndSignals();

  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  /// Can be read from while there is a signal.
  int Descriptor() const;
  /// Takes a signal. @return 0 where there is not one
  int Take();

 private:
  struct Saved;
  std::unique_ptr<Saved> Before;
};

/// Notices when files change: when they are written, replaced, taken away, or come again. Their
/// folders are watched, so it does not matter that an editor puts a new file in the place of the
/// old one.
///
/// @code
/// FileWatch Watch({"np.trr", "words.trr"});
/// OutputFile Saved("np.trr");
/// Saved.Write("{NP,8}\n");
/// Saved.Finish();
/// EndSignals Signals;
/// Watch.Wait(Signals);  // {"np.trr"}
/// @endcode
class FileWatch {
 public:
  /// How long nothing has to happen before a change is over.
  static constexpr int QuietMilliseconds = 50;

  /// Watches from now on. Throws `RunError`.
  /// @param vsFilesPassIn the files, which need not be there; their folders have to
  explicit FileWatch(std::vector<std::string> vsFilesPassIn);
  ~FileWatch();

  FileWatch(const FileWatch&) = delete;
  FileWatch& operator=(const FileWatch&) = delete;

  /// Waits until a file has changed since the last time, and nothing happens any more.
  /// @return the files that have changed, in the order of the constructor's; none where a signal
  ///         came
  std::vector<std::string> Wait(EndSignals& SignalsReturn);

 private:
  void WatchFolder(const std::string& File, std::size_t Index);
  void NoteEvent(int Folder, bool IsLost, const std::string& Name,
                 std::vector<bool>& vHasChangedReturn) const;
  void ReadEvents(std::vector<bool>& vHasChangedReturn) const;

  /// A name in a folder that is watched.
  struct Entry {
    int Folder;
    std::string Name;
    std::size_t File;
  };

  std::vector<std::string> vsFiles;
  std::vector<Entry> vEntries;
  int Events = -1;
};

}  // namespace Grammar
