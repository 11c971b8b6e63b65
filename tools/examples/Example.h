#pragma once

#include "RuleText.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace Examples {

/// The number of no rule.
constexpr std::uint32_t NoRule = 0xFFFFFFFFU;

/// A text, and what has to become of it.
struct Example {
  std::uint32_t Rule = NoRule;  ///< of all rules of the grammar, from 0; a pair of a file has none
  std::string Place;            ///< "np.trr:5", of the rule; "pairs.txt:3" of a pair of a file
  std::string Source;
  std::optional<std::string> Wanted;  ///< nothing for a text that has to be rejected
};

/// The text in the comments of a rule.
struct CommentExamples {
  struct Pair {
    std::string Source;
    std::string Target;
  };

  std::vector<Pair> vPairs;
  std::vector<std::string> vsRefused;
  std::vector<std::string> vsMessages;  ///< one for each comment that has no partner
};

/// Finds the examples in the comments of a rule: the n-th ";;SL:" goes with the n-th ";;TL:", and
/// each ";;*SL:" is a text that the rule must not analyse. What has no source text is not an
/// example.
///
///   ;;SL: the car
///   ;;TL: el auto
///   ;;*SL: the cars
CommentExamples ReadExamples(const Grammar::RuleText& Text);

}  // namespace Examples
