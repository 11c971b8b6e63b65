#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace Grammar {

/// The number of bytes that a text names: `65536`, `64K`, `64M`, `2G` or `1T`, each letter 1024
/// times the one before, small letters and a B after it allowed; `50%` is half of the machine's
/// memory. Nothing if the text is not such a size, is 0, or names more than can be counted.
///
/// @code
/// ParseMemorySize("64K").value_or(0);         // 65536
/// ParseMemorySize("a lot").has_value();      // false
/// @endcode
std::optional<std::size_t> ParseMemorySize(std::string_view Text);

/// The size of a number of pages, in bytes; 1 GiB if either number is not positive, as where the
/// system does not know it.
std::size_t MemoryOf(long Pages, long PageSize);

/// The memory of the machine, in bytes.
std::size_t MachineMemory();

/// How many bytes a command may hold in memory if nobody says it: half of the machine's.
std::size_t DefaultMemory();

}  // namespace Grammar
