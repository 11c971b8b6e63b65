#pragma once

#include "Chart.h"
#include "Derivations.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

/// The first derivations of a chart's items and constituents in the order of rule numbers, whatever
/// their scores: root first and parts in order. No more of them are kept than are wanted.
///
/// @code
/// FirstDerivations First(Parsed, 10);
/// First.OfConstituent(Whole).size();            // 1
/// First.CountOfConstituent(Whole).value_or(0);  // 1
/// @endcode
class FirstDerivations {
 public:
  FirstDerivations(const Chart& ParsedPassIn, std::size_t LimitPassIn);

  const std::vector<Derivations::TreeId>& OfConstituent(std::uint32_t Constituent) {
    return WorkedOut(Constituent).vFirst;
  }
  const std::vector<Derivations::ListId>& OfItem(std::uint32_t Item) {
    return WorkedOut(FirstItem + Item).vFirst;
  }

  /// How many derivations there are; nothing if that does not fit 64 bits.
  std::optional<std::uint64_t> CountOfConstituent(std::uint32_t Constituent) {
    return WorkedOut(Constituent).Count;
  }
  std::optional<std::uint64_t> CountOfItem(std::uint32_t Item) {
    return WorkedOut(FirstItem + Item).Count;
  }

  const Derivations& Trees() const { return Store; }

 private:
  /// Constituents, items and groups are numbered through.
  using NodeId = std::uint32_t;

  struct Node {
    bool IsKnown = false;
    std::vector<std::uint32_t> vFirst;  ///< trees, or of an item lists, in order
    std::optional<std::uint64_t> Count = 0;
  };

  template <typename VisitT>
  void ForEachAlternative(NodeId Which, VisitT Visit) const;
  const Node& WorkedOut(NodeId Root);
  bool PushUnknown(NodeId Which);
  void Compute(NodeId Which);
  void AddAlternative(NodeId Which, std::uint32_t Alternative, NodeId First, NodeId Last);
  void AddPairs(const std::vector<Derivations::ListId>& vBefore,
                const std::vector<Derivations::TreeId>& vLast, std::vector<std::uint32_t>& vReturn);
  void AddCount(Node& NodeReturn, NodeId First, NodeId Last) const;

  const Chart& Parsed;
  std::size_t Limit;
  NodeId FirstItem;
  NodeId FirstGroup;
  Derivations Store;
  std::vector<Node> vNodes;
  std::vector<NodeId> vStack;
};

/// The sum of two counts; nothing if one of them or it does not fit.
std::optional<std::uint64_t> SumOf(std::optional<std::uint64_t> Left,
                                   std::optional<std::uint64_t> Right);

}  // namespace Translate
