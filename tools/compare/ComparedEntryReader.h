#pragma once

#include "EntrySequence.h"

#include <string>

namespace Grammar {

/// How a file is read that is to be compared.
struct EntryReading {
  std::string File;  ///< "-" for standard input
  bool Quiet;        ///< show no progress
  unsigned Threads;  ///< how many threads work on rules; 0 for one on each core
};

/// Reads a file of rules, and passes on its entries in their order. A rule that cannot be read, and
/// comments without a rule, are texts; so is a stretch of blank lines, whose text is empty. Memory
/// does not grow with the file.
/// @return false if the file cannot be read, or not to its end; that is reported on standard error
bool ReadEntries(const EntryReading& ReadingPassIn, const EntrySink& TakePassIn);

}  // namespace Grammar
