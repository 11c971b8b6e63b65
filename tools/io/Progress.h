#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace Grammar {

/// Reports people at a terminal how far a long run has come: rules, rules in a second, bytes of all
/// bytes. Writes to standard error, and only where that is a terminal.
class Progress {
 public:
  /// @param Quiet whether to show nothing at all
  /// @param TotalBytes the size of the input, 0 if it is not known
  Progress(bool Quiet, std::uint64_t TotalBytes);

  /// Takes the line away again.
  ~Progress();

  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// To be called after each rule.
  void Advance(std::uint64_t Bytes) {
    ++Rules;
    DoneBytes += Bytes;
    if (Shown && Rules % RulesBetweenLooks == 0) {
      ShowWhenDue();
    }
  }

  /// The line that is shown after that many seconds, without what moves the cursor.
  std::string Line(double Seconds) const;

 private:
  static constexpr std::uint64_t RulesBetweenLooks = 256;

  void ShowWhenDue();

  bool Shown;
  std::uint64_t TotalBytes;
  std::uint64_t Rules = 0;
  std::uint64_t DoneBytes = 0;
  std::chrono::steady_clock::time_point Started;
  std::chrono::steady_clock::time_point LastShown;
};

}  // namespace Grammar
