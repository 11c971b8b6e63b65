#pragma once

#include <string_view>

/// @file
/// The files page.css and page.js, as they are built into the program.

namespace Page {

extern const std::string_view StyleSource;
extern const std::string_view ScriptSource;

/// The SHA-256 of the script in base 64, by which a page allows this script and no other.
extern const std::string_view ScriptSum;

}  // namespace Page
