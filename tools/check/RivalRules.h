#pragma once

#include "Finding.h"
#include "Hashing.h"
#include "RuleOutline.h"
#include "RuleText.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Grammar {

/// Finds rules that are alike but for their target side: same source type, same source sequence,
/// same equations of the source. Where nothing of the target decides between them, a text has both
/// translations.
///
/// Of each rule it remembers some fifty bytes, however long the rule is.
///
/// @code
/// RivalRules Rivals;
/// Rivals.Check(Text, Outline, vFindings);
/// vFindings.size();  // 0
/// @endcode
class RivalRules {
 public:
  /// Compares a rule with those before it.
  /// @param Text where it stands
  void Check(const RuleText& Text, const RuleOutline& Outline,
             std::vector<Finding>& vFindingsReturn);

 private:
  struct Place {
    SumPair Source;
    std::uint64_t Rest = 0;
    std::uint32_t File = 0;
    std::uint32_t Line = 0;
  };

  std::vector<Place> vPlaces;
  IndexTable Index;  // of the places, by their sums
  std::vector<std::string> vsFiles;
};

}  // namespace Grammar
