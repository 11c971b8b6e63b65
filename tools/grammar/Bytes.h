#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// @file
/// Bytes of ASCII, told apart as the library does, whatever the locale.

namespace Grammar {

constexpr bool IsSpace(char Byte) {
  return Byte == ' ' || (Byte >= '\t' && Byte <= '\r');
}

constexpr bool IsDigit(char Byte) {
  return Byte >= '0' && Byte <= '9';
}

constexpr char ToUpper(char Byte) {
  return Byte >= 'a' && Byte <= 'z' ? static_cast<char>(Byte - 'a' + 'A') : Byte;
}

inline std::string Upper(std::string_view Text) {
  std::string Result(Text);
  for (char& Byte : Result) {
    Byte = ToUpper(Byte);
  }
  return Result;
}

constexpr std::string_view WithoutLeadingSpace(std::string_view Text) {
  while (!Text.empty() && IsSpace(Text.front())) {
    Text.remove_prefix(1);
  }
  return Text;
}

constexpr std::string_view WithoutTrailingSpace(std::string_view Text) {
  while (!Text.empty() && IsSpace(Text.back())) {
    Text.remove_suffix(1);
  }
  return Text;
}

constexpr std::string_view Trimmed(std::string_view Text) {
  return WithoutTrailingSpace(WithoutLeadingSpace(Text));
}

constexpr bool StartsWith(std::string_view Text, std::string_view Start) {
  return Text.substr(0, Start.size()) == Start;
}

inline bool Contains(std::string_view Text, std::string_view Part) {
  return Text.find(Part) != std::string_view::npos;
}

/// Where a part of a text begins in it.
inline std::size_t OffsetIn(std::string_view Text, std::string_view Part) {
  return static_cast<std::size_t>(Part.data() - Text.data());
}

}  // namespace Grammar
