#pragma once

#include "Derivations.h"
#include "Hashing.h"
#include "RuleSet.h"
#include "SymbolTable.h"
#include "TargetWords.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace Translate {

/// What derivations say, as numbers: two with the same number have the same words.
///
/// Two with the same words have the same number, too, but for texts that would take too much memory
/// to be kept. Those that are too long to be written are all one.
///
/// @code
/// Derivations Trees;
/// const auto Red = Trees.Tree(0, Derivations::NoList, 0);
/// const auto RareRed = Trees.Tree(0, Derivations::NoList, -10);
/// const auto Car = Trees.Tree(1, Derivations::NoList, 0);
/// TargetTexts Texts(Rules, Trees);
/// Texts.OfTree(Red) == Texts.OfTree(RareRed);  // true
/// Texts.OfTree(Red) == Texts.OfTree(Car);      // false
/// @endcode
class TargetTexts {
 public:
  /// How much text is kept, in bytes.
  static constexpr std::size_t MaxBytes = std::size_t{4} * TargetWords::MaxBytes;

  TargetTexts(const RuleSet& RulesPassIn, const Derivations& TreesPassIn)
      : Trees(TreesPassIn), Words(RulesPassIn, TreesPassIn) {
    Clear();
  }

  std::uint32_t OfTree(Derivations::TreeId Which);
  /// The same for lists: those with the same words in the same places.
  std::uint32_t OfList(Derivations::ListId Which);

  /// To be called when the derivations are gone.
  void Clear();

 private:
  std::uint32_t NumberOf(Derivations::TreeId Which);

  const Derivations& Trees;
  TargetWords Words;
  std::unique_ptr<SymbolTable> Texts;
  std::size_t Bytes = 0;  // of the texts
  PairTable Lists;
  std::vector<std::uint32_t> vOfTree;  // `NoEntry` where it is not known yet
};

}  // namespace Translate
