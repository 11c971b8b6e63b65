#pragma once

#include <CLI/CLI.hpp>

#include "MemorySize.h"

/// Adds --memory.
/// @param MemoryReturn receives a number of bytes; what it holds before, `DefaultMemory`, is the
///        default that the help names
inline void AddMemoryOption(CLI::App& CommandReturn, std::size_t& MemoryReturn) {
  CommandReturn
      .add_option_function<std::string>(
          "--memory",
          [&MemoryReturn](const std::string& Text) {
            const std::optional<std::size_t> Size = Grammar::ParseMemorySize(Text);
            if (!Size.has_value()) {
              throw CLI::ValidationError(
                  "--memory", "invalid size " + Text + "; use a size such as 64M, 2G or 50%");
            }
            MemoryReturn = *Size;
          },
          "hold so much in memory and the rest in temporary files (64M, 2G, 50%); half of the "
          "machine's by default")
      ->type_name("SIZE");
}
