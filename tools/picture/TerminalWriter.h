#pragma once

#include "Drawing.h"

#include <string>

namespace Picture {

/// Appends a drawing in the units of a terminal, in lines of text without blanks at their ends.
///
///   ╭──────╮   ┌───────┐  ╔═════╗
///   │  NP  │   │ "the" │  ║  N  ║
///   │  x0  │   │  x1   │  ║ x2  ║
///   ╰──────╯   └───────┘  ╚══╤══╝
///
/// @param IsAscii whether frames and lines are made of "+", "-" and "|"; labels stay as they are
void AppendToTerminal(const Drawing& Picture, bool IsAscii, std::string& TextReturn);

}  // namespace Picture
