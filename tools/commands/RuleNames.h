#pragma once

#include "SourceRule.h"

#include <set>
#include <string>
#include <vector>

namespace Translate {

/// The rules that a command line asks for: "NP,8", or "np.trr:5". Reports those that there are not.
class RuleNames {
 public:
  explicit RuleNames(std::vector<std::string> vsNamesPassIn);

  /// Whether some name fits the rule. To be called for each rule of the input.
  bool Take(const Grammar::SourceRule& Lines);

  /// Says on standard error which names fit no rule, with the nearest header.
  /// @return whether all names fit some rule
  bool Report() const;

 private:
  std::vector<std::string> vsNames;
  std::vector<bool> vIsFound;
  std::set<std::string> ssHeaders;  // of all rules
};

}  // namespace Translate
