// Sections: uses, downwards, upwards.

#include "ChartUses.h"

#include <cstddef>

namespace Translate {

// ---- Uses -------------------------------------------------------------------------------------

/// Visits each pair of a node and one that is made of it.
template <typename VisitT>
void ChartUses::ForEachUse(VisitT Visit) const {
  for (std::uint32_t Index = 0; Index < Parsed.Constituents().size(); ++Index) {
    for (std::uint32_t Way = Parsed.Constituents()[Index].FirstWay; Way != NoEntry;
         Way = Parsed.Ways()[Way].Next) {
      const Chart::Way& By = Parsed.Ways()[Way];
      Visit(By.IsUnary() ? By.Part() : FirstItem + By.Part(), Index);
    }
  }
  for (std::uint32_t Index = 0; Index < Parsed.Items().size(); ++Index) {
    Parsed.ForEachStep(Index, [&](std::uint32_t Before, std::uint32_t Group) {
      if (Before != NoEntry) {
        Visit(FirstItem + Before, FirstItem + Index);
      }
      if (Group != NoEntry) {
        Visit(FirstGroup + Group, FirstItem + Index);
      }
    });
  }
  for (std::uint32_t Current = 0; Current < Parsed.Groups().size(); ++Current) {
    const Chart::Group& Group = Parsed.Groups()[Current];
    for (std::uint32_t Index = 0; Index < Group.Count; ++Index) {
      Visit(Parsed.Members()[Group.First + Index], FirstGroup + Current);
    }
  }
}

ChartUses::ChartUses(const Chart& ParsedPassIn)
    : Parsed(ParsedPassIn),
      FirstItem(static_cast<NodeId>(ParsedPassIn.Constituents().size())),
      FirstGroup(FirstItem + static_cast<NodeId>(ParsedPassIn.Items().size())) {
  const std::size_t Nodes = FirstGroup + Parsed.Groups().size();
  vIsMarked.assign(Nodes, false);
  vFirstUser.assign(Nodes + 1, 0);
  ForEachUse([&](NodeId Part, NodeId) { ++vFirstUser[Part + 1]; });
  for (std::size_t Node = 0; Node < Nodes; ++Node) {
    vFirstUser[Node + 1] += vFirstUser[Node];
  }
  vUsers.resize(vFirstUser.back());
  std::vector<std::uint32_t> vNext(vFirstUser);
  ForEachUse([&](NodeId Part, NodeId User) { vUsers[vNext[Part]++] = User; });
}

// ---- Downwards --------------------------------------------------------------------------------

void ChartUses::PushParts(NodeId Node, std::vector<NodeId>& vStackReturn) const {
  const auto Push = [&](NodeId Part) {
    if (!vIsMarked[Part]) {
      vStackReturn.push_back(Part);
    }
  };
  if (Node >= FirstGroup) {
    const Chart::Group& Group = Parsed.Groups()[Node - FirstGroup];
    for (std::uint32_t Index = 0; Index < Group.Count; ++Index) {
      Push(Parsed.Members()[Group.First + Index]);
    }
  } else if (Node >= FirstItem) {
    Parsed.ForEachStep(Node - FirstItem, [&](std::uint32_t Before, std::uint32_t Group) {
      if (Before != NoEntry) {
        Push(FirstItem + Before);
      }
      if (Group != NoEntry) {
        Push(FirstGroup + Group);
      }
    });
  } else {
    for (std::uint32_t Way = Parsed.Constituents()[Node].FirstWay; Way != NoEntry;
         Way = Parsed.Ways()[Way].Next) {
      const Chart::Way& By = Parsed.Ways()[Way];
      Push(By.IsUnary() ? By.Part() : FirstItem + By.Part());
    }
  }
}

void ChartUses::MarkBelow(const std::vector<std::uint32_t>& vConstituents) {
  vIsMarked.assign(vIsMarked.size(), false);
  std::vector<NodeId> vStack(vConstituents);
  while (!vStack.empty()) {
    const NodeId Node = vStack.back();
    vStack.pop_back();
    if (!vIsMarked[Node]) {
      vIsMarked[Node] = true;
      PushParts(Node, vStack);
    }
  }
}

// ---- Upwards ----------------------------------------------------------------------------------

bool ChartUses::IsLonger(std::uint32_t Left, std::uint32_t Right) const {
  const Chart::Cell& One = Parsed.Cells()[Parsed.Constituents()[Left].Cell];
  const Chart::Cell& Other = Parsed.Cells()[Parsed.Constituents()[Right].Cell];
  const std::uint32_t Size = One.End - One.Start;
  const std::uint32_t OtherSize = Other.End - Other.Start;
  return Size != OtherSize ? Size > OtherSize : Left > Right;
}

std::uint32_t ChartUses::TopAbove(std::uint32_t Constituent) const {
  std::vector<bool> vIsSeen(vIsMarked.size());
  std::vector<NodeId> vStack{Constituent};
  std::uint32_t Top = Constituent;
  while (!vStack.empty()) {
    const NodeId Node = vStack.back();
    vStack.pop_back();
    if (vIsSeen[Node]) {
      continue;
    }
    vIsSeen[Node] = true;
    if (Node < FirstItem && IsLonger(Node, Top)) {
      Top = Node;
    }
    for (const NodeId User : UsersOf(Node)) {
      vStack.push_back(User);
    }
  }
  return Top;
}

}  // namespace Translate
