#pragma once

#include <string_view>

namespace Grammar {

/// Whether a component is a literal word in double quotes, such as "\"car\"". All others are places
/// for constituents.
///
/// @code
/// IsLiteral("\"car\"");  // true
/// IsLiteral("N");        // false
/// @endcode
constexpr bool IsLiteral(std::string_view Label) {
  return Label.size() >= 2 && Label.front() == '"' && Label.back() == '"';
}

/// The word of a literal, without its quotes; may be empty.
constexpr std::string_view WordOf(std::string_view Literal) {
  return Literal.substr(1, Literal.size() - 2);
}

}  // namespace Grammar
