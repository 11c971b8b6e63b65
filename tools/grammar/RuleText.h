#pragma once

#include "LineKind.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// The lines of one rule, byte for byte unchanged in their file, with the comment and blank
/// lines right before it.
struct RuleText {
  /// Where a line stands in `Text`, without its line end and without the carriage return before it,
  /// and what it is: taking a line apart is what reading a grammar spends its time on. A text is
  /// never longer than two times `RuleReader::MaxHeld`.
  struct Span {
    std::uint32_t Begin = 0;
    std::uint32_t End = 0;
    std::uint32_t CodeBegin = 0;
    std::uint32_t CodeEnd = 0;
    std::uint32_t CommentBegin = 0;
    std::uint32_t CommentEnd = 0;
    LineKind Kind = LineKind::Blank;
    bool HasQuotes = false;
  };

  std::string File;                ///< the name of the file, "-" for standard input
  std::size_t FirstLine = 1;       ///< the number of the first line in its file, from 1
  std::string Text;                ///< all bytes, line ends included
  std::vector<Span> vLines;        ///< the lines of `Text`, in order
  bool HasRule = false;            ///< whether there is more than comment and blank lines
  bool HasReturns = false;         ///< whether some line ends in CRLF
  bool LacksFinalNewline = false;  ///< whether the last line has no line end

  /// A rule that is longer than `RuleReader::MaxHeld` comes in pieces; none can be read as a rule.
  bool IsPiece = false;
  bool Continues = false;  ///< whether this is a piece, and not the first

  /// A line, without its end.
  std::string_view Line(std::size_t Index) const {
    return Between(vLines[Index].Begin, vLines[Index].End);
  }

  /// The same line, parsed as `PartsOf` does.
  LineParts Parts(std::size_t Index) const {
    const Span& Range = vLines[Index];
    return {Range.Kind, Between(Range.CodeBegin, Range.CodeEnd),
            Between(Range.CommentBegin, Range.CommentEnd), Range.HasQuotes};
  }

 private:
  std::string_view Between(std::size_t Begin, std::size_t End) const {
    return std::string_view(Text).substr(Begin, End - Begin);
  }
};

}  // namespace Grammar
