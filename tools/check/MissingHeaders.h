#pragma once

#include "Finding.h"
#include "RuleText.h"

#include <string>
#include <vector>

namespace Grammar {

/// Finds rules without a header in files whose rules have one: there, it was probably forgotten, or
/// is misspelt.
///
/// @code
/// MissingHeaders Headers;
/// Headers.Check(Text, vFindings);
/// vFindings.size();  // 0
/// @endcode
class MissingHeaders {
 public:
  /// Looks at the next rule of a file (TR045).
  void Check(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn);

 private:
  std::string File;
  bool HasSeenHeader = false;
};

}  // namespace Grammar
