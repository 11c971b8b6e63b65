#pragma once

#include "Chart.h"

#include <cstdint>
#include <vector>

namespace Translate {

/// What has been made of the parts of a chart: the way from a constituent upwards, which the chart
/// itself only knows downwards.
///
/// @code
/// ChartUses Uses(Parsed);
/// Uses.MarkBelow({Whole});
/// Uses.IsMarked(0);  // true
/// @endcode
class ChartUses {
 public:
  explicit ChartUses(const Chart& ParsedPassIn);

  /// Marks constituents and all that any of their derivations is made of, and nothing else.
  void MarkBelow(const std::vector<std::uint32_t>& vConstituents);
  bool IsMarked(std::uint32_t Constituent) const { return vIsMarked[Constituent]; }

  /// Visits the items whose last part can be a constituent.
  template <typename VisitT>
  void ForEachItemOver(std::uint32_t Constituent, VisitT Visit) const {
    for (const std::uint32_t Group : UsersOf(Constituent)) {
      for (const std::uint32_t Item : UsersOf(Group)) {
        Visit(Item - FirstItem);
      }
    }
  }

  /// Visits the items that go on where one ends.
  template <typename VisitT>
  void ForEachItemAfter(std::uint32_t Item, VisitT Visit) const {
    for (const std::uint32_t User : UsersOf(FirstItem + Item)) {
      if (User >= FirstItem) {
        Visit(User - FirstItem);
      }
    }
  }

  /// Of a constituent and all that is made from it, of that, and so on, the one with the longest
  /// span; of several, the last one that came into being. Nothing is made from it.
  std::uint32_t TopAbove(std::uint32_t Constituent) const;

 private:
  /// Constituents, items and groups are numbered through.
  using NodeId = std::uint32_t;

  template <typename VisitT>
  void ForEachUse(VisitT Visit) const;
  SourceTrie::Range<NodeId> UsersOf(NodeId Node) const {
    return {vUsers.data() + vFirstUser[Node], vUsers.data() + vFirstUser[Node + 1]};
  }
  void PushParts(NodeId Node, std::vector<NodeId>& vStackReturn) const;
  bool IsLonger(std::uint32_t Left, std::uint32_t Right) const;

  const Chart& Parsed;
  NodeId FirstItem;
  NodeId FirstGroup;
  std::vector<std::uint32_t> vFirstUser;
  std::vector<NodeId> vUsers;
  std::vector<bool> vIsMarked;  // of all nodes
};

}  // namespace Translate
