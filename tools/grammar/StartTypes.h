#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// Cuts start types as --start has them: at commas, without blanks. The text between two commas
/// counts even if it is empty.
///
/// @code
/// ParseStartTypes("S, NP");  // {"S", "NP"}
/// @endcode
std::vector<std::string> ParseStartTypes(std::string_view Written);

/// What is said of a start type that no usable rule has.
std::string MissingStartText(std::string_view Type);

}  // namespace Grammar
