#pragma once

#include <cstdlib>
#include <string_view>

namespace Grammar {

/// The value of an environment variable; empty if it is not set.
///
/// @code
/// EnvironmentVariable("NOT_A_VARIABLE");  // ""
/// @endcode
inline std::string_view EnvironmentVariable(const char* Name) {
  // Nothing here sets one, so that threads can read them. NOLINTNEXTLINE(concurrency-mt-unsafe)
  const char* Value = std::getenv(Name);
  return Value == nullptr ? "" : Value;
}

}  // namespace Grammar
