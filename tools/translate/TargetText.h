#pragma once

#include "Derivations.h"
#include "Hashing.h"
#include "RuleSet.h"
#include "SymbolTable.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace Translate {

/// The words that a derivation gives, joined by blanks: "el auto rojo". Nothing recurses, however
/// deep it is.
std::string TargetTextOf(const RuleSet& Rules, const Derivations& Trees, Derivations::TreeId Tree);

/// What derivations say, as numbers: two have the same words if and only if their numbers are.
class TargetTexts {
 public:
  TargetTexts(const RuleSet& RulesPassIn, const Derivations& TreesPassIn)
      : Rules(RulesPassIn), Trees(TreesPassIn) {
    Clear();
  }

  std::uint32_t OfTree(Derivations::TreeId Which);
  /// The same for lists: those with the same words in the same places.
  std::uint32_t OfList(Derivations::ListId Which);

  /// To be called when the derivations are gone.
  void Clear();

 private:
  const RuleSet& Rules;
  const Derivations& Trees;
  std::unique_ptr<SymbolTable> Texts;
  PairTable Lists;
  std::vector<std::uint32_t> vOfTree;  // `NoEntry` where it is not known yet
};

}  // namespace Translate
