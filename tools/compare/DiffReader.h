#pragma once

#include "DiffHunk.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Why a text is not a diff, and where.
struct DiffFault {
  std::size_t Line = 0;  ///< from 1
  std::string Message;   ///< what was expected
};

/// Reads the plain format of `DiffWriter`: all of it, to its last line, which counts the
/// differences. A diff whose lines all end in CRLF is read as well, and an empty text is the diff
/// of files that are the same.
///
/// @code
/// std::vector<DiffHunk> vHunks;
/// ReadDiff("", vHunks).has_value();      // false
/// ReadDiff("--- a\n", vHunks)->Message;  // "the diff ends too early"
/// @endcode
///
/// Lines that begin with "#", names of files, and what follows a kind are not looked at.
/// @return nothing if the text is a diff
std::optional<DiffFault> ReadDiff(std::string_view TextPassIn, std::vector<DiffHunk>& vHunksReturn);

}  // namespace Grammar
