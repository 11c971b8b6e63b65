#pragma once

#include <functional>
#include <ostream>
#include <string>

/// How a child process ended and what it wrote to its two standard streams.
struct ChildEnd {
  int Status;
  std::string Out;
  std::string Err;

  friend bool operator==(const ChildEnd& Left, const ChildEnd& Right) {
    return Left.Status == Right.Status && Left.Out == Right.Out && Left.Err == Right.Err;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const ChildEnd& End) {
    return Stream << "\nstatus " << End.Status << "\n--- out ---\n"
                  << End.Out << "\n--- err ---\n"
                  << End.Err;
  }
};

/// The status of a child whose code returned. The library never exits with it.
constexpr int RanToItsEnd = 77;

/// Runs code that should end the process in a child process. The result for a fatal input is
/// `{1, what went to standard output, what went to standard error}`.
ChildEnd RunInChild(const std::function<void()>& Code);

/// Observations of a child process that should never end.
struct ChildWait {
  bool Alive;          ///< it still ran after a short while
  bool KeptMemory;     ///< its memory had not grown by more than a few pages
  bool KeptProcessor;  ///< it had used next to no processor time
  std::string Out;     ///< what it had written to standard output
  std::string Err;     ///< what it had written to standard error
};

/// Runs code that should never return in a child process, watches it for a short while, and ends
/// it.
ChildWait WatchInChild(const std::function<void()>& Code);
