#pragma once

#include "Finding.h"
#include "RuleOutline.h"
#include "RuleText.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Grammar {

/// Finds rules that are alike but for their target side: same source type, same source sequence,
/// same equations of the source. Where nothing of the target decides between them, a text has both
/// translations.
///
/// Of each rule it remembers some sixty bytes, however long the rule is. That two different texts
/// have both sums in common is not to be expected in any grammar.
class RivalRules {
 public:
  /// Compares a rule with those before it.
  /// @param Text where it stands
  void Check(const RuleText& Text, const RuleOutline& Outline,
             std::vector<Finding>& vFindingsReturn);

 private:
  struct Place {
    std::uint64_t OtherSum;
    std::uint64_t RestSum;
    std::uint32_t File;
    std::uint32_t Line;
  };

  std::unordered_map<std::uint64_t, Place> Places;
  std::vector<std::string> vsFiles;
};

}  // namespace Grammar
