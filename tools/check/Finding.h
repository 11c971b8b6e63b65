#pragma once

#include "FindingCodes.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Something that is wrong with a rule, or will surprise, and where.
///
/// @code
/// Finding Found;
/// Found.File = "np.trr";
/// Found.Line = 12;
/// Found.Code = "TR009";
/// NameOf(Found.Level);  // "error"
/// @endcode
struct Finding {
  std::string File;        ///< as it was named, "-" for standard input
  std::size_t Line = 1;    ///< from 1
  std::size_t Column = 1;  ///< in bytes, from 1
  std::size_t Length = 1;  ///< how many bytes of the line are meant, at least 1
  Severity Level = Severity::Error;
  std::string Code;        ///< "TR001" …
  std::string Message;     ///< one line
  std::string LineText;    ///< the line itself, without its end
  std::string Suggestion;  ///< the whole line as it was probably meant, which has no finding of its
                           ///< rule; empty if that cannot be said
  std::string OtherFile;   ///< where the first of two rules stands; empty without another place
  std::size_t OtherLine = 0;
  std::string Example;  ///< what such a line looks like in some other rule; may be empty
};

/// Puts findings in the order in which they are reported: by line, column and code. Those at the
/// same place stay as they are.
void SortFindings(std::vector<Finding>& vFindingsReturn);

}  // namespace Grammar
