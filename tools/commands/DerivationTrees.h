#pragma once

#include "DerivationTree.h"
#include "RuleSet.h"
#include "StructureText.h"
#include "TreePair.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

/// Turns the constituents of a derivation into two trees that can be drawn.
///
/// @code
/// const TextResult Result = Engine.Translate("car", TextOptions());
/// StructureText Structures(Rules, Engine.Structures(), Engine.Atoms());
/// DerivationTrees Trees(Rules, Structures);
/// Trees.Read(Engine.NodesOf(Result.vTranslations.front().Tree, 0), Engine.ParsedChart().Tokens());
/// Trees.Description();  // "1: N becomes N by a.trr:3."
/// Trees.Details();      // {"a.trr:3 [NUM=SG] -> []"}
/// @endcode
class DerivationTrees {
 public:
  /// @param StructuresPassIn knows the structures of the nodes
  DerivationTrees(const RuleSet& RulesPassIn, StructureText& StructuresPassIn);

  /// Reads a derivation; what was read before is gone.
  /// @param vNodes root first and parts in order
  /// @param vTokens those of the text; they have to outlive the call only
  /// @return false where one tree has more than `TreePair::MaxItems` words and constituents
  bool Read(const std::vector<TreeNode>& vNodes, const std::vector<std::string_view>& vTokens);

  /// Reads a rule without anything that stands for its components: these are constituents, from
  /// 1, and their words are those of the rule.
  void ReadRule(std::uint32_t Rule);

  /// The trees that were read last. Notes and marks may be added to them.
  Picture::TreePair& Trees() { return Pair; }

  /// The constituent that is a node of the root's rule.
  /// @param Side 0 for the source, 1 for the target
  /// @param Node a component from 1; 0 for the root itself
  /// @return the root where the component is a word
  Picture::TreeConstituent& ConstituentAt(std::size_t Side, std::size_t Node);

  /// What is shown of each constituent on demand: its rule, and its structures.
  std::vector<std::string> Details() const;

  /// Reads the constituents aloud, by number.
  std::string Description() const;

 private:
  /// What a rule has at one place.
  struct Component {
    bool IsWord;
    std::string Word;  ///< of a word, as the rule has it
    std::size_t Part;  ///< otherwise the place of the source, from 0
  };

  Component ComponentAt(std::size_t Side, const RuleSet::Rule& Rule, std::size_t Index,
                        std::size_t NextPart) const;
  static std::size_t SizeOf(std::size_t Side, const RuleSet::Rule& Rule);
  void FindParts(const std::vector<TreeNode>& vNodes);
  void AddConstituent(const TreeNode& Node);
  void AddWanted(SourceSymbol Wanted, const std::string& Name);
  bool AddItems(std::size_t Side, const std::vector<TreeNode>& vNodes,
                const std::vector<std::string_view>& vTokens);

  const RuleSet& Rules;
  StructureText& Structures;
  Picture::TreePair Pair;
  std::vector<std::vector<std::size_t>> vParts;  // of each constituent, by number
};

}  // namespace Translate
