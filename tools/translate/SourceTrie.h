#pragma once

#include "Hashing.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Translate {

using Grammar::NoEntry;
using Grammar::PairTable;

/// What a rule may want next: a literal, or a constituent for a slot.
using SourceSymbol = std::uint32_t;

/// The source sequences of rules, each beginning once.
///
/// An edge is a literal or a slot. Each node knows the rules that end at it, and what of the
/// constituent at its own edge some rule at or below it reads.
///
/// @code
/// const SourceSymbol Det = 0;
/// const SourceSymbol N = 1;
/// SourceTrie Trie;
/// Trie.Add({Det, N}, {0, SourceTrie::NeedsSource}, 7);
/// Trie.Finish();
/// *Trie.Rules(Trie.Child(Trie.Child(SourceTrie::Root, Det), N)).begin();  // 7
/// @endcode
class SourceTrie {
 public:
  static constexpr std::uint32_t Root = 0;
  static constexpr SourceSymbol LiteralMark = 0x80000000U;

  static constexpr std::uint8_t NeedsSource = 1;  ///< the part's S is named in an equation
  static constexpr std::uint8_t NeedsTarget = 2;  ///< its T

  struct EdgeTo {
    SourceSymbol Symbol;
    std::uint32_t Target;
  };

  template <typename ElementT>
  struct Range {
    const ElementT* First;
    const ElementT* Last;
    const ElementT* begin() const { return First; }
    const ElementT* end() const { return Last; }
    std::size_t size() const { return static_cast<std::size_t>(Last - First); }
  };

  SourceTrie();

  /// Adds a rule. @param vNeeds for each symbol, what the rule reads
  void Add(const std::vector<SourceSymbol>& vSymbols, const std::vector<std::uint8_t>& vNeeds,
           std::uint32_t Rule);

  /// To be called after the last rule, and before any of the questions below.
  void Finish();

  /// `NoEntry` where there is no such edge.
  std::uint32_t Child(std::uint32_t Node, SourceSymbol Symbol) const {
    const std::uint32_t Edge = Edges.Find(Node, Symbol);
    return Edge == NoEntry ? NoEntry : Edge + 1;
  }

  std::uint8_t Needs(std::uint32_t Node) const { return vNeedsOfNode[Node]; }
  std::uint32_t Parent(std::uint32_t Node) const { return Edges.First(Node - 1); }
  SourceSymbol Symbol(std::uint32_t Node) const { return Edges.Second(Node - 1); }

  /// The rules that end at a node, ascending.
  Range<std::uint32_t> Rules(std::uint32_t Node) const {
    return {vRules.data() + vFirstRule[Node], vRules.data() + vFirstRule[Node + 1]};
  }

  /// How many rules end at the nodes before.
  std::size_t RulesBefore(std::uint32_t Node) const { return vFirstRule[Node]; }
  /// The rules of all nodes.
  const std::vector<std::uint32_t>& AllRules() const { return vRules; }

  /// The edges of a node to slots, ascending.
  Range<EdgeTo> Slots(std::uint32_t Node) const {
    return {vEdges.data() + vFirstEdge[Node], vEdges.data() + vFirstLiteral[Node]};
  }

  bool HasLiterals(std::uint32_t Node) const { return vFirstLiteral[Node] != vFirstEdge[Node + 1]; }

  bool HasEdges(std::uint32_t Node) const { return vFirstEdge[Node] != vFirstEdge[Node + 1]; }

  std::size_t Size() const { return vNeedsOfNode.size(); }

 private:
  // The node after an edge has the edge's number, plus one for the root.
  PairTable Edges;
  std::vector<std::uint8_t> vNeedsOfNode;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> vAdded;  // node and rule
  std::vector<std::uint32_t> vFirstRule;
  std::vector<std::uint32_t> vRules;
  std::vector<std::uint32_t> vFirstEdge;
  std::vector<std::uint32_t> vFirstLiteral;
  std::vector<EdgeTo> vEdges;
};

}  // namespace Translate
