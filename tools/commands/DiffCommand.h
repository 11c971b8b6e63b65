#pragma once

#include "DiffWriter.h"
#include "MemorySize.h"

#include <cstddef>
#include <string>

namespace Grammar {

enum class ColourChoice { Auto, Always, Never };

struct DiffOptions {
  std::string Old;  ///< the files; one of them may be "-", standard input
  std::string New;
  std::string Output;  ///< "" or "-" for standard output
  DiffFormat Format = DiffFormat::Plain;
  ColourChoice Colours = ColourChoice::Auto;
  bool ShowsMoves = false;  ///< whether rules that have moved are differences
  bool Quiet = false;
  unsigned Threads = 0;
  std::size_t Memory = DefaultMemory();
};

/// Writes what differs in two files of rules. Nothing is written if one cannot be read.
/// @return the status: 0 if they are the same, 1 if not, 2 if the run failed
int RunDiff(const DiffOptions& OptionsPassIn);

}  // namespace Grammar
