#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// Bytes in JSON, whose texts are Unicode.
///
/// A rule is bytes, in whatever encoding. What is UTF-8 goes into JSON as it is. Each other byte,
/// 80 to FF, becomes one character of the private range U+F780 to U+F7FF: U+F700 and the byte.
/// Bytes that spell one of these characters are parsed in the same way, so that every text
/// has one form in JSON, and comes back as it was.

namespace Grammar {

/// Whether a text is ASCII alone, and so the same in JSON.
bool IsAscii(std::string_view Bytes);

/// How many bytes of a text are UTF-8, up to the first that is not.
std::size_t Utf8Size(std::string_view Bytes);

/// The bytes as UTF-8.
///
/// @code
/// ToUnicode("\xE9");            // "\xEF\x9F\xA9"
/// ToBytes("\xEF\x9F\xA9");      // "\xE9"
/// @endcode
std::string ToUnicode(std::string_view Bytes);

/// Whether some characters of a text may stand for single bytes.
bool HasStandIns(std::string_view Unicode);

/// The bytes that such a text stands for.
std::string ToBytes(std::string_view Unicode);

}  // namespace Grammar
