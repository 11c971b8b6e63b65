#pragma once

#include <string>
#include <string_view>

/// @file
/// Pictures for a page that makes them when they come into view. What they all have in common is
/// written once: in a picture, "~" and a letter stand for a phrase, and "~~" for "~". A script
/// puts the phrases back; what it makes is the picture byte by byte.

namespace Page {

/// Appends the phrases, with "|" between them; the first is that of "~A", the next of "~B".
void AppendPhrases(std::string& TextReturn);

/// Appends SVG in packed form. Linear.
///
/// @code
/// std::string Packed;
/// AppendPacked("</g>\n</svg>\n", Packed);
/// Packed;  // "~E</svg>\n"
/// @endcode
void AppendPacked(std::string_view Svg, std::string& TextReturn);

/// The same, escaped for an attribute.
void AppendPackedAttribute(std::string_view Svg, std::string& TextReturn);

}  // namespace Page
