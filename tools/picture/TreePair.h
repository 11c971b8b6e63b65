#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Picture {

/// A constituent of a derivation, which stands in both trees.
struct TreeConstituent {
  std::array<std::string, 2> Types;               ///< by side
  std::string Rule;                               ///< "{NP,8}", or "np.trr:5" without a header
  std::string Details;                            ///< its rule and its structures; shown on demand
  bool HasParts = false;                          ///< whether other constituents are below it
  bool IsMarked = false;                          ///< drawn with a double frame
  bool IsDashed = false;                          ///< nothing stands for it
  std::array<std::vector<std::string>, 2> Notes;  ///< by side; lines below its name
};

/// A box or a word of one tree.
struct TreeItem {
  static constexpr std::size_t NoParent = static_cast<std::size_t>(-1);

  std::size_t Parent = NoParent;  ///< in the list of items
  std::size_t Constituent = 0;    ///< of a word, the one that it belongs to
  std::string Word;               ///< of a word
  bool IsWord = false;
};

/// A derivation: the tree of the source and the tree of the target.
struct TreePair {
  /// Most items of one tree. A rule may write a place twice, and so may the rule below it.
  static constexpr std::size_t MaxItems = 10000;

  std::string Title;
  std::vector<TreeConstituent> vConstituents;  ///< root first
  std::array<std::vector<TreeItem>, 2> Items;  ///< by side; each after its parent, in order
};

}  // namespace Picture
