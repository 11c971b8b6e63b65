#pragma once

#include "InputFile.h"
#include "Progress.h"
#include "RuleReader.h"

#include <functional>
#include <istream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Grammar {

/// The rules of several files, one after the other, with the progress shown on the way.
///
/// @code
/// RuleFiles Files({"np.trr"}, true);
/// RuleText Rule;
/// Files.Next(Rule);   // true
/// Rule.File;          // "np.trr"
/// Rule.FirstLine;     // 1
/// Files.Next(Rule);   // true
/// Rule.FirstLine;     // 9
/// Files.HasFailed();  // false
/// @endcode
///
/// A file that cannot be read is reported on standard error, and the others are read anyway.
class RuleFiles {
 public:
  /// @param vsNamesPassIn the files, "-" for standard input; none stands for standard input
  /// @param FoldedPassIn whether each rule stands on one line, as `print --one-line` writes it
  RuleFiles(std::vector<std::string> vsNamesPassIn, bool Quiet, bool FoldedPassIn = false);
  ~RuleFiles();

  /// Returns the next rule. @return false after the last rule of the last file
  bool Next(RuleText& TextReturn);

  /// Has files that cannot be read reported in another way, from now on.
  void ReportFailuresTo(std::function<void(const std::string&)> SinkPassIn) {
    Sink = std::move(SinkPassIn);
  }

  /// Whether some file could not be read, or not to its end.
  bool HasFailed() const { return Failed; }

  /// Goes on with the next file, wherever in this one it is. @return false after the last one
  bool OpenNext();

  /// The name of the file that is open, and what comes next in it.
  const std::string& Name() const { return vsNames[NextName - 1]; }
  std::string_view Ahead() { return Reader->Ahead(); }

  /// Returns the next rule of the file that is open. @return false after its last rule
  bool NextInFile(RuleText& TextReturn);

 private:
  void Open(const std::string& Name);
  bool ReadNext(RuleText& TextReturn);
  void Fail(const std::string& Message);

  struct Unfolded;

  std::vector<std::string> vsNames;
  bool IsFolded;
  std::size_t NextName = 0;
  std::unique_ptr<InputFile> File;
  std::unique_ptr<Unfolded> Lines;
  std::unique_ptr<RuleReader> Reader;
  Progress Shown;
  std::function<void(const std::string&)> Sink;
  bool Failed = false;
};

}  // namespace Grammar
