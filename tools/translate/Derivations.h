#pragma once

#include "Hashing.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Translate {

using Grammar::PairTable;

/// Derivations, each once: two are the same tree of rules if and only if their numbers are.
///
/// A derivation is a rule and the list of the derivations of its places. A list is its last
/// derivation and the list before it. Equal trees have one number wherever they stand in the text,
/// so that two can be compared by going down one branch of each; how two deep ones compared is
/// remembered, so that a long text does not pay its length for each comparison.
///
/// @code
/// Derivations Trees;
/// const auto Word = Trees.Tree(0, Derivations::NoList, -10);
/// const auto Phrase = Trees.Tree(2, Trees.List(Derivations::NoList, Word), -5);
/// Trees.ScoreOfTree(Phrase);  // -15
/// Trees.RulesOf(Phrase);      // {0, 2}
/// @endcode
class Derivations {
 public:
  using TreeId = std::uint32_t;
  using ListId = std::uint32_t;
  static constexpr ListId NoList = 0;

  Derivations() { Clear(); }

  /// @param Weight of the rule alone
  TreeId Tree(std::uint32_t Rule, ListId Parts, std::int64_t Weight);
  ListId List(ListId Before, TreeId Last);

  std::int64_t ScoreOfTree(TreeId Which) const { return vTreeScores[Which]; }
  std::int64_t ScoreOfList(ListId Which) const { return vListScores[Which]; }
  std::uint32_t Rule(TreeId Which) const { return Trees.First(Which); }
  ListId Parts(TreeId Which) const { return Trees.Second(Which); }
  ListId Before(ListId Which) const { return Lists.First(Which - 1); }
  TreeId Last(ListId Which) const { return Lists.Second(Which - 1); }

  /// The derivations of a tree's places, in order.
  void PartsOf(TreeId Which, std::vector<TreeId>& vPartsReturn) const;

  /// The rules of a tree, ascending, each once.
  std::vector<std::uint32_t> RulesOf(TreeId Which) const;

  /// Compares the numbers of the rules, listed root first and parts in order.
  /// @return less than 0 if the left list comes first, 0 if they are the same
  int CompareTrees(TreeId Left, TreeId Right) const;
  /// The same for two lists of equally many.
  int CompareLists(ListId Left, ListId Right) const;

  std::size_t TreeCount() const { return vTreeScores.size(); }
  void Clear();

 private:
  /// Two trees that are not the same.
  struct TreePair {
    TreeId Left;
    TreeId Right;
  };

  void Descend(ListId Left, ListId Right, TreePair& PairReturn) const;
  int Remembered(const TreePair& Pair) const;
  void Remember(const TreePair& Pair, int Result) const;

  PairTable Trees;
  PairTable Lists;
  std::vector<std::int64_t> vTreeScores;
  std::vector<std::int64_t> vListScores;
  // What comparing remembers changes no answer.
  mutable PairTable Compared;                 // pairs of deep trees, the smaller number first …
  mutable std::vector<std::int8_t> vResults;  // … and how they compared
  mutable std::vector<TreePair> vPassed;
};

}  // namespace Translate
