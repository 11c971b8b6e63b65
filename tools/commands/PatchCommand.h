#pragma once

#include <string>

namespace Grammar {

struct PatchOptions {
  std::string File;  ///< one of the two may be "-", standard input
  std::string Diff;
  std::string Output;       ///< "" or "-" for standard output
  bool IsReversed = false;  ///< whether the new file is turned into the old one
  bool Quiet = false;
  unsigned Threads = 0;
};

/// Makes the differences of a diff in a file. Where a rule is not as the diff expects, that is
/// reported on standard error, and nothing is written.
/// @return the status: 0 if the diff fits, 1 if it does not, 2 if the run failed
int RunPatch(const PatchOptions& OptionsPassIn);

}  // namespace Grammar
