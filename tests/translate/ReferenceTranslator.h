#pragma once

#include "UsableRule.h"

#include <cstdint>
#include <string>
#include <vector>

/// The obvious way to apply rules: all derivations of all spans, one by one, each with whole copies
/// of its structures. For small grammars and texts.
///
///   ReferenceTranslator Slow(Read.vRules, Read.vNumbers);
///   Slow.Translate("the red car", {}).vDerivations.front();  // "-1386294 el auto rojo
///   1{}{}(2{}{}() …)"
class ReferenceTranslator {
 public:
  struct Result {
    /// Each with its score, words, and its tree of rule numbers and structures; in order.
    std::vector<std::string> vDerivations;
    std::size_t Constituents = 0;  ///< how many different ones there are
    bool IsTooMuch = false;        ///< whether it was given up: then the rest means nothing
  };

  ReferenceTranslator(const std::vector<Grammar::UsableRule>& vRulesPassIn,
                      const std::vector<std::uint32_t>& vNumbersPassIn)
      : vRules(vRulesPassIn), vNumbers(vNumbersPassIn) {}

  struct Settings {
    std::size_t MaxChain = 8;
    bool MatchCase = false;
  };

  Result Translate(const std::string& Text, const Settings& How) const;

 private:
  const std::vector<Grammar::UsableRule>& vRules;
  const std::vector<std::uint32_t>& vNumbers;
};
