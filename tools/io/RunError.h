#pragma once

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

namespace Grammar {

/// How a run ends, for every command alike.
constexpr int StatusClean = 0;     ///< nothing was found
constexpr int StatusFindings = 1;  ///< something was found in the rules
constexpr int StatusFailed = 2;    ///< the run itself failed

/// What makes it impossible to go on with the run: a full disk, or an output that must not be
/// replaced. The command prints it in one line and ends with `StatusFailed`.
class RunError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// An input that cannot be opened, or not be read to its end: the run goes on with the next one.
class InputError : public RunError {
 public:
  using RunError::RunError;
};

/// Nobody reads the output any more, which is not an error of the run.
class ClosedOutput : public RunError {
 public:
  ClosedOutput() : RunError("nobody reads the output any more") {}
};

/// A failure of the system's, such as `cannot read a.trr: No such file or directory`.
inline RunError SystemError(const std::string& What, int Error = errno) {
  return RunError(What + ": " + std::generic_category().message(Error));
}

/// Writes a failure of the run to standard error, in one line.
inline void ReportFailure(std::string Message) {
  std::replace(Message.begin(), Message.end(), '\n', ' ');
  std::cerr << "trrule: " << Message << '\n';
}

/// Writes several failures, in their order.
inline void ReportFailures(const std::vector<std::string>& vsMessages) {
  for (const std::string& sMessage : vsMessages) {
    ReportFailure(sMessage);
  }
}

}  // namespace Grammar
