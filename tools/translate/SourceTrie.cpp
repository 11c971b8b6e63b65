#include "SourceTrie.h"

#include <algorithm>

namespace Translate {

SourceTrie::SourceTrie() : vNeedsOfNode(1) {}

void SourceTrie::Add(const std::vector<SourceSymbol>& vSymbols,
                     const std::vector<std::uint8_t>& vNeeds, std::uint32_t Rule) {
  std::uint32_t Node = Root;
  for (std::size_t Index = 0; Index < vSymbols.size(); ++Index) {
    Node = Edges.Intern(Node, vSymbols[Index]) + 1;
    if (Node == vNeedsOfNode.size()) {
      vNeedsOfNode.push_back(0);
    }
    vNeedsOfNode[Node] = static_cast<std::uint8_t>(vNeedsOfNode[Node] | vNeeds[Index]);
  }
  vAdded.emplace_back(Node, Rule);
}

void SourceTrie::Finish() {
  const std::size_t Nodes = Size();
  vFirstRule.assign(Nodes + 1, 0);
  vFirstEdge.assign(Nodes + 1, 0);
  for (const auto& [Node, Rule] : vAdded) {
    ++vFirstRule[Node + 1];
  }
  for (std::uint32_t Node = 1; Node < Nodes; ++Node) {
    ++vFirstEdge[Parent(Node) + 1];
  }
  for (std::size_t Node = 0; Node < Nodes; ++Node) {
    vFirstRule[Node + 1] += vFirstRule[Node];
    vFirstEdge[Node + 1] += vFirstEdge[Node];
  }
  std::vector<std::uint32_t> vNext(vFirstRule);
  vRules.resize(vAdded.size());
  for (const auto& [Node, Rule] : vAdded) {
    vRules[vNext[Node]++] = Rule;
  }
  vNext = vFirstEdge;
  vEdges.resize(Nodes - 1);
  for (std::uint32_t Node = 1; Node < Nodes; ++Node) {
    vEdges[vNext[Parent(Node)]++] = {Symbol(Node), Node};
  }
  vFirstLiteral.resize(Nodes);
  for (std::size_t Node = 0; Node < Nodes; ++Node) {
    const auto First = vEdges.begin() + vFirstEdge[Node];
    const auto Last = vEdges.begin() + vFirstEdge[Node + 1];
    std::sort(First, Last,
              [](const EdgeTo& Left, const EdgeTo& Right) { return Left.Symbol < Right.Symbol; });
    const auto Literal =
        std::find_if(First, Last, [](const EdgeTo& To) { return (To.Symbol & LiteralMark) != 0; });
    vFirstLiteral[Node] = static_cast<std::uint32_t>(Literal - vEdges.begin());
  }
  std::vector<std::pair<std::uint32_t, std::uint32_t>>().swap(vAdded);
}

}  // namespace Translate
