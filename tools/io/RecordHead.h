#pragma once

#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

/// @file
/// Plain values at the beginning of what is sorted or put into a temporary file.
///
/// @code
/// std::string Bytes;
/// AppendHead(7, Bytes);
/// Bytes += "text";
/// std::string_view Rest = Bytes;
/// TakeHead<int>(Rest);  // 7
/// std::string(Rest);    // "text"
/// @endcode

namespace Grammar {

/// Appends the bytes of a value. They are read in the same process.
template <typename HeadT>
void AppendHead(const HeadT& Head, std::string& BytesReturn) {
  static_assert(std::is_trivially_copyable_v<HeadT>);
  BytesReturn.append(reinterpret_cast<const char*>(&Head), sizeof Head);
}

/// Takes a value off the beginning.
template <typename HeadT>
HeadT TakeHead(std::string_view& BytesReturn) {
  static_assert(std::is_trivially_copyable_v<HeadT>);
  HeadT Head{};
  std::memcpy(&Head, BytesReturn.data(), sizeof Head);
  BytesReturn.remove_prefix(sizeof Head);
  return Head;
}

}  // namespace Grammar
