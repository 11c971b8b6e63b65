#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Grammar {

/// How many bytes of a file are looked at to find out whether it is a grammar.
constexpr std::size_t FileStartSize = std::size_t{1} << 16;

/// Whether a file is not a grammar at all: one finding then says so, rather than one for each of
/// its lines.
///
/// A file is not one where it is in UTF-16, where more than one byte in a hundred is a control
/// character other than white space, or where it has at least four lines that are neither blank nor
/// comment, and fewer than one in four of them could be a header, a rule line, an alignment or a
/// constraint, also one with a mistake.
///
/// @code
/// OtherFileKind("{NP,8}\nNP::NP : [N] -> [N]\n(X1::Y1)\n").has_value();  // false
/// OtherFileKind("Dear\nall,\nthank\nyou\n").has_value();                // true
/// @endcode
/// @param Start the beginning of the file, whole where it is no longer than `FileStartSize`
/// @return what it is instead, as a message; nothing if it may be a grammar
std::optional<std::string> OtherFileKind(std::string_view Start);

}  // namespace Grammar
