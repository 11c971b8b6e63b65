#pragma once

#include "Derivations.h"
#include "ProgramRunner.h"
#include "RuleSet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// @file
/// A derivation as a list of its constituents, and what they come to. Nothing recurses, however
/// deep a derivation is.

namespace Translate {

/// A constituent in a derivation.
struct TreeNode {
  std::uint32_t Rule = 0;
  std::size_t Start = 0;
  std::size_t End = 0;
  StructurePair Structures;
  std::uint32_t Parts = 0;  ///< how many; they follow, each with all that is below it
};

/// Works out the structures of all constituents of a derivation, parts before what is made of them.
/// @param vNodes root first and parts in order
/// @param Apply makes a pair of structures of a rule and the pairs of its parts
template <typename ApplyT>
std::vector<StructurePair> StructuresOf(const std::vector<TreeNode>& vNodes, ApplyT Apply) {
  std::vector<StructurePair> vResults(vNodes.size());
  std::vector<StructurePair> vDone;  // of what follows, the next one last
  std::vector<StructurePair> vParts;
  for (std::size_t Index = vNodes.size(); Index-- > 0;) {
    vParts.assign(vDone.rbegin(), vDone.rbegin() + vNodes[Index].Parts);
    vDone.resize(vDone.size() - vNodes[Index].Parts);
    vResults[Index] = Apply(vNodes[Index].Rule, vParts);
    vDone.push_back(vResults[Index]);
  }
  return vResults;
}

/// The constituents of a derivation that begins at a token, root first and parts in order. Their
/// structures are left open.
///
/// @code
/// Derivations Trees;
/// const auto Red = Trees.Tree(0, Derivations::NoList, 0);
/// const auto Car = Trees.Tree(1, Derivations::NoList, 0);
/// const auto Phrase = Trees.Tree(2, Trees.List(Trees.List(Derivations::NoList, Red), Car), 0);
/// const std::vector<TreeNode> vNodes = NodesOf(Rules, Trees, Phrase, 0);
/// vNodes.size();   // 3
/// vNodes[0].End;   // 3
/// vNodes[2].Rule;  // 1
/// @endcode
std::vector<TreeNode> NodesOf(const RuleSet& Rules, const Derivations& Trees,
                              Derivations::TreeId Tree, std::size_t Start);

}  // namespace Translate
