#pragma once

#include "Example.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Examples {

/// What has become of an example.
enum class Outcome : std::uint8_t {
  Passes,               ///< a derivation with its rule at the root gives the wanted words
  PassesByAnotherRule,  ///< only derivations with other roots do
  Differs,              ///< derivations have its root, and none gives the words
  Fails,                ///< no derivation has its root; or a text was not rejected
  Error,                ///< a limit was reached
};

/// "passes by another rule".
std::string_view NameOf(Outcome What);

/// Whether an outcome is one that is wanted.
constexpr bool IsPassing(Outcome What) {
  return What == Outcome::Passes || What == Outcome::PassesByAnotherRule;
}

/// The same where passing by another rule may not be enough.
///
/// @code
/// NameOf(Outcome::PassesByAnotherRule);             // "passes by another rule"
/// IsAccepted(Outcome::PassesByAnotherRule, false);  // true
/// IsAccepted(Outcome::PassesByAnotherRule, true);   // false
/// @endcode
constexpr bool IsAccepted(Outcome What, bool IsStrict) {
  return IsStrict ? What == Outcome::Passes : IsPassing(What);
}

struct ExampleResult {
  Outcome What = Outcome::Passes;
  /// The words of the best derivation that fits, or else of the best one with the root; nothing
  /// where there is none, and of an error.
  std::optional<std::string> Best;
  std::uint32_t BestRule = NoRule;    ///< at its root, among the rules that can be used
  std::vector<std::uint32_t> vRules;  ///< that the derivation that fits uses, ascending
  std::string Error;                  ///< the limit that was reached
  std::string Cause;                  ///< why nothing has the root, where that was asked for
};

}  // namespace Examples
