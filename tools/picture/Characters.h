#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// The room that texts take, in a font and at a terminal. No font is asked: a table knows how wide
/// characters are in a wide font, so that what fits there fits in others.
///
/// @code
/// ShownText("a\x01");       // "a\xEF\xBF\xBD"
/// WidthInFont("NP");        // 136
/// WidthAtTerminal("名詞");  // 4
/// IsRightToLeft("كتاب");    // true
/// @endcode

namespace Picture {

/// Takes the first character off a text that is not empty. Bytes that are not UTF-8 and characters
/// that no page can show, such as controls, give U+FFFD.
char32_t TakeCharacter(std::string_view& TextReturn);

/// The text as UTF-8 that can be shown: `TakeCharacter` until it is empty. Linear.
std::string ShownText(std::string_view Text);

/// Whether `ShownText` changes nothing.
bool IsShown(std::string_view Text);

/// The width in hundredths of the font's size, at least what any usual font needs. Linear.
int WidthInFont(std::string_view Text);

/// How many columns a text takes at a terminal: two for each Chinese, Japanese or Korean character,
/// none for a mark above or below another one. Linear.
int WidthAtTerminal(std::string_view Text);

/// Whether some character of a text is written from the right to the left.
bool IsRightToLeft(std::string_view Text);

}  // namespace Picture
