#pragma once

#include "ConstraintText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// @file
/// The format of constraint texts, as people write it and as the library writes it.
///
/// The library's reader takes almost any text for a constraint. The format is what it was meant to
/// take: here a text is taken apart exactly, or it is said where it goes wrong. For example
/// "((x1 num = sg)" stops before "=", where ")" should stand. Nothing is printed here.

namespace TrRuleInternal {

/// Where a text stops being in the format, and what should stand there.
struct ConstraintStop {
  std::size_t Place = 0;      ///< from 0
  std::string_view Expected;  ///< such as "a node such as x1 or y2"
};

/// Takes a text of the format apart: in small letters or capitals, with white space wherever it
/// means nothing, features of several words, any number of equals signs; also as the library writes
/// it, with some parentheses missing, and with more of them, which close the rule's body. Linear.
///
///   ParseConstraint("((y1 num) = (y2 num))", Stop)->RightNode->Index;  // 2
///
/// @return nothing where the text is not in the format: then `StopReturn` says where and why
std::optional<ConstraintParts> ParseConstraint(std::string_view Text, ConstraintStop& StopReturn);

/// Whether the library's reader would take the reference for a value: it does so where a doubled
/// equals sign follows a feature.
bool IsMistakenForValue(const ConstraintParts& Parts);

/// The constraint as the library has to get it: with one equals sign, where it would mistake it.
/// @param Text what was taken apart
std::string ForLibrary(std::string_view Text, const ConstraintParts& Parts);

}  // namespace TrRuleInternal
