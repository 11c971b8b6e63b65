#pragma once

#include <Ascii.h>

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// Bytes of ASCII, by the classes of the library.

namespace Grammar {

using TrRuleInternal::Contains;
using TrRuleInternal::IsDigit;
using TrRuleInternal::IsSpace;
using TrRuleInternal::StartsWith;
using TrRuleInternal::ToUpper;
using TrRuleInternal::WithoutTrailingSpace;

inline std::string Upper(std::string_view Text) {
  return TrRuleInternal::Upper(std::string(Text));
}

/// Whether two texts differ in nothing but the case of their letters.
constexpr bool IsSameInCapitals(std::string_view Left, std::string_view Right) {
  if (Left.size() != Right.size()) {
    return false;
  }
  for (std::size_t At = 0; At < Left.size(); ++At) {
    if (ToUpper(Left[At]) != ToUpper(Right[At])) {
      return false;
    }
  }
  return true;
}

/// The whole text without its leading white space, however long it is.
constexpr std::string_view WithoutLeadingSpace(std::string_view Text) {
  return TrRuleInternal::DropFront(Text, IsSpace);
}

constexpr std::string_view Trimmed(std::string_view Text) {
  return WithoutTrailingSpace(WithoutLeadingSpace(Text));
}

/// Where a part of a text begins in it.
inline std::size_t OffsetIn(std::string_view Text, std::string_view Part) {
  return static_cast<std::size_t>(Part.data() - Text.data());
}

}  // namespace Grammar
