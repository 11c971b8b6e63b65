#pragma once

#include <cstddef>
#include <string_view>

/// @file
/// One look at a line of a rule: which marks it holds, and where its comment begins.
///
/// For example `ScanLine("(X1::Y1) ;; was x2 = y2")` finds a pair of colons before the comment,
/// a comment at position 9, and in the whole line an equals sign, too.

namespace TrRuleInternal {

/// The marks that decide what a line is read as.
struct LineMarks {
  bool HasComment = false;  ///< ";;", also between quotes
  bool HasBrace = false;    ///< "{"
  bool HasArrow = false;    ///< "] -> ["
  bool HasColons = false;   ///< "::"
  bool HasEquals = false;   ///< "="
};

/// What one pass over a line finds.
struct ScannedLine {
  LineMarks Whole;               ///< anywhere in the line
  LineMarks Code;                ///< before the comment
  std::size_t CommentBegin = 0;  ///< from 0; the size of the line where there is no comment
  bool HasQuotes = false;        ///< whether there is a double quote before the comment
};

/// Looks at each byte of a line once. A comment begins at the first ";;" that does not stand
/// between double quotes; a quote that is never closed hides nothing. Linear.
ScannedLine ScanLine(std::string_view Line);

}  // namespace TrRuleInternal
