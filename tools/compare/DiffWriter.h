#pragma once

#include "DiffHunk.h"

#include <string>

namespace Grammar {

enum class DiffFormat { Plain, Json, Stat };

/// How differences are shown.
struct DiffStyle {
  DiffFormat Format = DiffFormat::Plain;
  bool HasColours = false;  ///< of the plain format, with the words marked that differ
  std::string OldName;      ///< the names of the files
  std::string NewName;
};

/// Writes differences, one after the other. Of files that are the same, nothing is written.
class DiffWriter {
 public:
  virtual ~DiffWriter() = default;

  /// Appends a difference.
  virtual void Append(const DiffHunk& HunkPassIn, std::string& TextReturn) = 0;

  /// Appends what comes after the last difference.
  virtual void AppendEnd(std::string& TextReturn) = 0;
};

}  // namespace Grammar
