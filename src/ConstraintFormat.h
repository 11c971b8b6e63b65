#pragma once

#include "ConstraintText.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// @file
/// The format of constraint texts, as people and as the library write it.
///
/// The library's reader accepts almost any text as a constraint. This parser accepts only the
/// format, and reports where another text departs from it. Nothing is printed.
/// @code
///   ConstraintStop Stop;
///   ParseConstraint("((y1 num) = (y2 num))", Stop)->RightNode->Index;  // 2
///   ParseConstraint("((x1 num = sg)", Stop).has_value();               // false
///   Stop.Place;                                                        // 9
///   Stop.Expected;                                                     // "\")\""
/// @endcode

namespace TrRuleInternal {

/// Where a text departs from the format, and what is expected there.
struct ConstraintStop {
  std::size_t Place = 0;      ///< from 0
  std::string_view Expected;  ///< such as "a node such as x1 or y2"
};

/// Parses a text in the format: in small letters or capitals, with white space where it has no
/// meaning, features of several words, any number of equals signs. Also parses what the library
/// writes, with some parentheses missing, and extra parentheses that close the body of the rule.
/// Linear.
///
/// @return nothing if the text is not in the format; then `StopReturn` receives where and why
std::optional<ConstraintParts> ParseConstraint(std::string_view Text, ConstraintStop& StopReturn);

/// Whether the library's reader would read the reference as a value, because a doubled equals sign
/// follows a feature.
bool IsMistakenForValue(const ConstraintParts& Parts);

/// The constraint as the library reads it correctly: with one equals sign where it would mistake
/// two.
/// @param Text the text that was parsed
std::string ForLibrary(std::string_view Text, const ConstraintParts& Parts);

}  // namespace TrRuleInternal
