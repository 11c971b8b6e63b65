#pragma once

#include "Drawing.h"

#include <string>
#include <string_view>

namespace Picture {

/// How a picture is to be written.
struct SvgOptions {
  /// Whether it stands within a page, which then says what colour text has.
  bool IsInline = false;
  /// Makes identifiers differ where the same picture is twice on a page; may be empty.
  std::string_view Place;
};

/// Appends a drawing as SVG, with a line end.
///
/// Everything is drawn in the colour of text, on no ground of its own: where the picture stands
/// alone it is dark on light or light on dark, as the reader's system has it. No script, no font
/// and no other file is needed. Each alignment and each constraint is a group with its text, and
/// with its line in the file:
///
///   <g data-constraint="((y1 num) = (y2 num))" data-line="8">…</g>
void AppendSvg(const Drawing& Picture, const SvgOptions& Options, std::string& TextReturn);

/// Appends a text with the characters escaped that mean something in XML.
///
/// @code
/// std::string Text;
/// AppendEscaped("a < b", Text);
/// Text;  // "a &lt; b"
/// @endcode
void AppendEscaped(std::string_view Words, std::string& TextReturn);

}  // namespace Picture
