#pragma once

#include <cstddef>
#include <string_view>

/// @file
/// Finds the marks in a line of a rule, and where its comment begins.
///
/// @code
///   const ScannedLine Scan = ScanLine("(X1::Y1) ;; was x2 = y2");
///   Scan.Code.HasColons;   // true
///   Scan.Code.HasEquals;   // false
///   Scan.Whole.HasEquals;  // true
///   Scan.CommentBegin;     // 9
/// @endcode

namespace TrRuleInternal {

/// The marks that decide what kind of line a line is.
struct LineMarks {
  bool HasComment = false;  ///< ";;", also between quotes
  bool HasBrace = false;    ///< "{"
  bool HasArrow = false;    ///< "] -> ["
  bool HasColons = false;   ///< "::"
  bool HasEquals = false;   ///< "="
};

/// The result of one pass over a line.
struct ScannedLine {
  LineMarks Whole;               ///< anywhere in the line
  LineMarks Code;                ///< before the comment
  std::size_t CommentBegin = 0;  ///< from 0; the size of the line if there is no comment
  bool HasQuotes = false;        ///< a double quote before the comment
};

/// Scans a line in one pass. A comment begins at the first ";;" that is not between double quotes;
/// a quote that is never closed hides nothing. Linear.
ScannedLine ScanLine(std::string_view Line);

}  // namespace TrRuleInternal
