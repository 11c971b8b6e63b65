#pragma once

#include "DerivationTrees.h"
#include "Drawing.h"
#include "RuleSet.h"
#include "StructureText.h"
#include "Translator.h"
#include "TreeLayout.h"

#include <cstddef>
#include <string>
#include <string_view>

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

  Translator& Engine;
  bool IsPage;
  StructureText Structures;
  DerivationTrees Trees;
  Picture::TreeLayout Layout;
  Picture::Drawing Shapes;
};

/// What to say of a text with a derivation that is not drawn.
std::string PictureSizeError();

}  // namespace Translate
