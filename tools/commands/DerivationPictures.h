#pragma once

#include "Drawing.h"
#include "RuleSet.h"
#include "StructureText.h"
#include "Translator.h"
#include "TreeLayout.h"
#include "TreePair.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

/// Draws the derivations of texts: the source tree above, the target tree below. One for each
/// translator.
class DerivationPictures {
 public:
  /// @param IsPagePassIn whether the pictures are parts of a page
  DerivationPictures(const RuleSet& RulesPassIn, Translator& EnginePassIn, bool IsPagePassIn);

  /// Appends the pictures of the text that was translated last: on a page of all its translations
  /// or pieces, otherwise of the best one.
  /// @return false where a derivation has more than `TreePair::MaxItems` words and constituents on
  ///         one side, and is not drawn
  bool Append(std::string_view Text, const TextResult& Result, std::string& OutReturn);

 private:
  bool AppendTree(std::string_view Title, Derivations::TreeId Tree, std::size_t Start,
                  std::string& OutReturn);
  bool ReadTrees(Derivations::TreeId Tree, std::size_t Start);
  void FindParts(const std::vector<TreeNode>& vNodes);
  void AddConstituent(const TreeNode& Node);
  bool AddItems(std::size_t Side, const std::vector<TreeNode>& vNodes);
  void Describe(std::string_view Title);

  const RuleSet& Rules;
  Translator& Engine;
  bool IsPage;
  StructureText Structures;
  Picture::TreePair Trees;
  Picture::TreeLayout Layout;
  Picture::Drawing Shapes;
  std::vector<std::vector<std::size_t>> vParts;  // of each constituent, by number
};

/// What to say of a text with a derivation that is not drawn.
std::string PictureSizeError();

}  // namespace Translate
