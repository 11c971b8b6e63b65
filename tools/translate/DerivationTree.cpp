#include "DerivationTree.h"

namespace Translate {

// ---- Constituents -----------------------------------------------------------------------------

namespace {

TreeNode NodeOf(const RuleSet& Rules, std::uint32_t Rule) {
  TreeNode New{Rule, 0, 0, {}, 0};
  for (const SourceSymbol Symbol : Rules.SymbolsOf(Rules.At(Rule))) {
    New.Parts += (Symbol & SourceTrie::LiteralMark) == 0 ? 1 : 0;
  }
  return New;
}

/// Goes through the symbols of all rules from the left to the right.
void SetSpans(const RuleSet& Rules, std::size_t Start, std::vector<TreeNode>& vNodesReturn) {
  struct Frame {
    std::size_t Node;
    std::size_t NextSymbol;
  };
  std::vector<Frame> vFrames{{0, 0}};
  std::size_t At = Start;
  std::size_t NextNode = 1;
  vNodesReturn[0].Start = Start;
  while (!vFrames.empty()) {
    Frame& Top = vFrames.back();
    const auto Symbols = Rules.SymbolsOf(Rules.At(vNodesReturn[Top.Node].Rule));
    if (Top.NextSymbol == Symbols.size()) {
      vNodesReturn[Top.Node].End = At;
      vFrames.pop_back();
      continue;
    }
    if ((Symbols.First[Top.NextSymbol++] & SourceTrie::LiteralMark) != 0) {
      ++At;
      continue;
    }
    vNodesReturn[NextNode].Start = At;
    vFrames.push_back({NextNode++, 0});
  }
}

}  // namespace

std::vector<TreeNode> NodesOf(const RuleSet& Rules, const Derivations& Trees,
                              Derivations::TreeId Tree, std::size_t Start) {
  std::vector<TreeNode> vNodes;
  std::vector<Derivations::TreeId> vParts;
  std::vector<Derivations::TreeId> vStack{Tree};
  while (!vStack.empty()) {
    const Derivations::TreeId Next = vStack.back();
    vStack.pop_back();
    vNodes.push_back(NodeOf(Rules, Trees.Rule(Next)));
    Trees.PartsOf(Next, vParts);
    vStack.insert(vStack.end(), vParts.rbegin(), vParts.rend());
  }
  SetSpans(Rules, Start, vNodes);
  return vNodes;
}

}  // namespace Translate
