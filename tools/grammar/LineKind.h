#pragma once

#include <cstdint>
#include <string_view>

namespace Grammar {

enum class LineKind : std::uint8_t {
  Blank,       ///< nothing but white space
  Comment,     ///< begins with ";", unless it is an alignment after ";--;"
  Header,      ///< "{NP,8}"
  Sequence,    ///< "NP::NP : [DET N] -> [N DET]"
  Alignment,   ///< "(X1::Y2)"
  Constraint,  ///< "((x0 num) = sg)"
  Open,        ///< "(" alone
  Close,       ///< ")" alone
  Other,       ///< anything else: the reader passes over it
};

/// A line, parsed. The views point into it.
struct LineParts {
  LineKind Kind = LineKind::Blank;
  std::string_view Code;     ///< what is not comment, without white space at its ends
  std::string_view Comment;  ///< from ";;" on, without carriage returns at its end; may be empty
  bool HasQuotes = false;    ///< whether there are double quotes in the code
};

/// Reports what a line is. A comment is a comment, whatever it contains; ";;" inside of double
/// quotes begins none. Linear.
///
/// @code
/// PartsOf("(X1::Y1) ;; see above").Kind;     // LineKind::Alignment
/// PartsOf("(X1::Y1) ;; see above").Code;     // "(X1::Y1)"
/// PartsOf("(X1::Y1) ;; see above").Comment;  // ";; see above"
/// @endcode
LineParts PartsOf(std::string_view Line);

/// Whether a line of the body closes it, too: it ends in a ")" after another one or a blank, and
/// has more ")" than "(".
bool ClosesBody(std::string_view Code);

}  // namespace Grammar
