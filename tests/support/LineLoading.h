#pragma once

#include "AlignmentLine.h"
#include "ConstraintText.h"
#include "HeaderLine.h"
#include "RuleLine.h"
#include "RuleLoader.h"

#include <iostream>
#include <string_view>
#include <vector>

/// Loads a line in its common form, trying one production after another, and prints the mergings as
/// the library does.
///
///   LoadCommonLine("((y1 num) = sg)", Loader);  // true
///
/// @return false if the line is not in a common form or the loader rejects it
inline bool LoadCommonLine(std::string_view Line, TrRuleInternal::RuleLoader& LoaderReturn) {
  if (TrRuleInternal::HeaderParts Parts; TrRuleInternal::ParseCommonHeader(Line, Parts)) {
    constexpr std::size_t KeptLetters = 2;
    LoaderReturn.SetHeader(Parts.Type.substr(0, KeptLetters), Parts.Number.back() - '0');
    return true;
  }
  if (TrRuleInternal::RuleLineParts Parts; TrRuleInternal::ParseCommonRuleLine(Line, Parts)) {
    return LoaderReturn.SetRuleLine(Parts);
  }
  if (TrRuleInternal::AlignmentParts Parts; TrRuleInternal::ParseCommonAlignment(Line, Parts)) {
    return LoaderReturn.AddAlignment(Parts);
  }
  TrRuleInternal::ConstraintParts Parts;
  if (!TrRuleInternal::ParseCommonForm(Line, Parts)) {
    return false;
  }
  std::vector<TrRuleInternal::Merging> vMergings;
  LoaderReturn.AddConstraint(Parts, vMergings);
  for (const auto& [OldValue, NewValue, NewKey] : vMergings) {
    std::cout << "OldFeat:|" << OldValue << "|\nInsertFeat:|" << NewValue
              << "|\nNewKey is now:" << NewKey << '\n';
  }
  return true;
}
