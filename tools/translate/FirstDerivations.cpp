// Sections: nodes, working out.

#include "FirstDerivations.h"

#include <algorithm>

namespace Translate {

// ---- Nodes ------------------------------------------------------------------------------------

FirstDerivations::FirstDerivations(const Chart& ParsedPassIn, std::size_t LimitPassIn)
    : Parsed(ParsedPassIn),
      Limit(LimitPassIn),
      FirstItem(static_cast<NodeId>(ParsedPassIn.Constituents().size())),
      FirstGroup(FirstItem + static_cast<NodeId>(ParsedPassIn.Items().size())),
      vNodes(FirstGroup + ParsedPassIn.Groups().size()) {}

/// Visits the ways of a constituent, the steps of an item, or the members of a group, each with the
/// one or two nodes that it is made of; `NoEntry` for none.
template <typename VisitT>
void FirstDerivations::ForEachAlternative(NodeId Which, VisitT Visit) const {
  if (Which < FirstItem) {
    for (std::uint32_t Way = Parsed.Constituents()[Which].FirstWay; Way != NoEntry;
         Way = Parsed.Ways()[Way].Next) {
      const Chart::Way& By = Parsed.Ways()[Way];
      Visit(Way, By.IsUnary() ? By.Part() : FirstItem + By.Part(), NodeId{NoEntry});
    }
  } else if (Which < FirstGroup) {
    Parsed.ForEachStep(Which - FirstItem, [&](std::uint32_t Before, std::uint32_t Group) {
      Visit(Before, Before == NoEntry ? NodeId{NoEntry} : FirstItem + Before,
            Group == NoEntry ? NodeId{NoEntry} : FirstGroup + Group);
    });
  } else {
    const Chart::Group& Group = Parsed.Groups()[Which - FirstGroup];
    for (std::uint32_t Index = 0; Index < Group.Count; ++Index) {
      const std::uint32_t Member = Parsed.Members()[Group.First + Index];
      Visit(Member, Member, NodeId{NoEntry});
    }
  }
}

// ---- Working out ------------------------------------------------------------------------------

/// Works a node out, and first what it is made of. Nothing recurses.
const FirstDerivations::Node& FirstDerivations::WorkedOut(NodeId Root) {
  vStack.assign(1, Root);
  while (!vStack.empty()) {
    const NodeId Which = vStack.back();
    if (vNodes[Which].IsKnown || !PushUnknown(Which)) {
      vStack.pop_back();
      if (!vNodes[Which].IsKnown) {
        Compute(Which);
      }
    }
  }
  return vNodes[Root];
}

/// @return whether something has to be worked out before
bool FirstDerivations::PushUnknown(NodeId Which) {
  const std::size_t Size = vStack.size();
  ForEachAlternative(Which, [&](std::uint32_t, NodeId First, NodeId Last) {
    for (const NodeId Part : {First, Last}) {
      if (Part != NoEntry && !vNodes[Part].IsKnown) {
        vStack.push_back(Part);
      }
    }
  });
  return vStack.size() > Size;
}

void FirstDerivations::Compute(NodeId Which) {
  ForEachAlternative(Which, [&](std::uint32_t Alternative, NodeId First, NodeId Last) {
    AddAlternative(Which, Alternative, First, Last);
    AddCount(vNodes[Which], First, Last);
  });
  Node& Known = vNodes[Which];
  const bool IsItem = Which >= FirstItem && Which < FirstGroup;
  std::sort(Known.vFirst.begin(), Known.vFirst.end(), [&](std::uint32_t Left, std::uint32_t Right) {
    return (IsItem ? Store.CompareLists(Left, Right) : Store.CompareTrees(Left, Right)) < 0;
  });
  Known.vFirst.resize(std::min(Known.vFirst.size(), Limit));
  Known.vFirst.shrink_to_fit();
  Known.IsKnown = true;
}

/// Adds the first derivations of an alternative. Those of its parts are in order, and so are their
/// pairs, the first parts before the last ones: no more of them than the limit can be wanted.
void FirstDerivations::AddAlternative(NodeId Which, std::uint32_t Alternative, NodeId First,
                                      NodeId Last) {
  static const std::vector<std::uint32_t> vNothing{Derivations::NoList};
  const std::vector<std::uint32_t>& vBefore = First == NoEntry ? vNothing : vNodes[First].vFirst;
  std::vector<std::uint32_t>& vReturn = vNodes[Which].vFirst;
  if (Which < FirstItem) {
    const Chart::Way& Way = Parsed.Ways()[Alternative];
    for (const std::uint32_t Number : vBefore) {
      const Derivations::ListId Parts =
          Way.IsUnary() ? Store.List(Derivations::NoList, Number) : Number;
      vReturn.push_back(Store.Tree(Way.Rule, Parts, 0));
    }
  } else if (Which >= FirstGroup || Last == NoEntry) {
    vReturn.insert(vReturn.end(), vBefore.begin(), vBefore.end());
  } else {
    AddPairs(vBefore, vNodes[Last].vFirst, vReturn);
  }
}

void FirstDerivations::AddPairs(const std::vector<Derivations::ListId>& vBefore,
                                const std::vector<Derivations::TreeId>& vLast,
                                std::vector<std::uint32_t>& vReturn) {
  std::size_t Left = Limit;
  for (const Derivations::ListId Before : vBefore) {
    for (const Derivations::TreeId Tree : vLast) {
      if (Left == 0) {
        return;
      }
      --Left;
      vReturn.push_back(Store.List(Before, Tree));
    }
  }
}

std::optional<std::uint64_t> SumOf(std::optional<std::uint64_t> Left,
                                   std::optional<std::uint64_t> Right) {
  std::uint64_t Sum = 0;
  const bool Fits = Left && Right && !__builtin_add_overflow(*Left, *Right, &Sum);
  return Fits ? std::optional(Sum) : std::nullopt;
}

void FirstDerivations::AddCount(Node& NodeReturn, NodeId First, NodeId Last) const {
  std::optional<std::uint64_t> Product = 1;
  for (const NodeId Part : {First, Last}) {
    if (Part == NoEntry) {
      continue;
    }
    std::uint64_t Both = 0;
    const bool Fits = Product && vNodes[Part].Count &&
                      !__builtin_mul_overflow(*Product, *vNodes[Part].Count, &Both);
    Product = Fits ? std::optional(Both) : std::nullopt;
  }
  NodeReturn.Count = SumOf(NodeReturn.Count, Product);
}

}  // namespace Translate
