// Sections: nodes, values, links, origins, the graph.

#include "ShapeGraph.h"

#include <algorithm>

namespace Grammar {

// ---- Nodes ------------------------------------------------------------------------------------

std::uint32_t ShapeGraph::AddNode() {
  const auto New = static_cast<std::uint32_t>(vNodes.size());
  vNodes.emplace_back().Same = New;
  return New;
}

std::uint32_t ShapeGraph::Find(std::uint32_t Index) {
  while (vNodes[Index].Same != Index) {
    vNodes[Index].Same = vNodes[vNodes[Index].Same].Same;
    Index = vNodes[Index].Same;
  }
  return Index;
}

/// The node that a feature leads to; `None` where there is no such feature.
std::uint32_t ShapeGraph::FeatureOf(std::uint32_t Index, std::uint32_t Feature) const {
  for (const auto& [Name, To] : vNodes[Index].vFeatures) {
    if (Name == Feature) {
      return To;
    }
  }
  return GrammarShapes::None;
}

/// The node at a path, which is made where it is not there.
std::uint32_t ShapeGraph::NodeAt(const Term& Path) {
  vFeatures.clear();
  Shapes.AppendFeatures(Path.Path, vFeatures);
  std::uint32_t At = Find(Path.Node);
  for (const std::uint32_t Feature : vFeatures) {
    std::uint32_t To = FeatureOf(At, Feature);
    if (To == GrammarShapes::None) {
      To = AddNode();
      vNodes[At].vFeatures.emplace_back(Feature, To);
    }
    At = Find(To);
  }
  return At;
}

// ---- Values -----------------------------------------------------------------------------------

AtomRange ShapeGraph::RangeOf(const Equation& Current) const {
  AtomRange Range;
  Range.IsNegated = Current.What == GrammarShapes::Kind::Not;
  for (std::uint32_t Index = 0; Index < Current.AtomCount; ++Index) {
    Range.vAtoms.push_back(Shapes.AtomAt(Current.FirstAtom + Index));
  }
  Tidy(Range.vAtoms);
  return Range;
}

/// Values of one written path are alternatives; a negation holds for itself. Before any link, each
/// written path has a node of its own.
void ShapeGraph::AddValues(const GrammarShapes::Shape& Which) {
  for (const Equation& Current : Shapes.EquationsOf(Which)) {
    if (Current.What != GrammarShapes::Kind::Any) {
      continue;
    }
    Node& At = vNodes[NodeAt(Current.Left)];
    AtomRange Range = RangeOf(Current);
    if (At.ValueLine == 0) {
      At.ValueLine = Current.Line;
      At.Given = std::move(Range);
    } else {
      At.Given.vAtoms.insert(At.Given.vAtoms.end(), Range.vAtoms.begin(), Range.vAtoms.end());
      Tidy(At.Given.vAtoms);
    }
  }
  for (const Equation& Current : Shapes.EquationsOf(Which)) {
    if (Current.What == GrammarShapes::Kind::Not) {
      Node& At = vNodes[NodeAt(Current.Left)];
      At.Given = Common(At.Given, RangeOf(Current));
      At.ValueLine = At.ValueLine == 0 ? Current.Line : At.ValueLine;
    }
  }
}

// ---- Links ------------------------------------------------------------------------------------

void ShapeGraph::Merge(std::uint32_t Into, std::uint32_t From, std::uint32_t Line) {
  Node Old = std::move(vNodes[From]);
  vNodes[From] = Node();
  vNodes[From].Same = Into;
  Node& New = vNodes[Into];
  New.Given = Common(New.Given, Old.Given);
  New.ValueLine = New.ValueLine == 0 ? Old.ValueLine : New.ValueLine;
  New.LinkLine = Line;
  for (const auto& [Feature, To] : Old.vFeatures) {
    const std::uint32_t Other = FeatureOf(Into, Feature);
    if (Other == GrammarShapes::None) {
      New.vFeatures.emplace_back(Feature, To);
    } else {
      vPending.emplace_back(Other, To);
    }
  }
}

void ShapeGraph::Unify(std::uint32_t Left, std::uint32_t Right, std::uint32_t Line) {
  vPending.emplace_back(Left, Right);
  while (!vPending.empty()) {
    const std::uint32_t Into = Find(vPending.back().first);
    const std::uint32_t From = Find(vPending.back().second);
    vPending.pop_back();
    if (Into != From) {
      Merge(Into, From, Line);
    }
  }
}

void ShapeGraph::AddLinks(const GrammarShapes::Shape& Which) {
  for (const Equation& Current : Shapes.EquationsOf(Which)) {
    if (Current.What == GrammarShapes::Kind::Link) {
      const std::uint32_t Left = NodeAt(Current.Left);
      Unify(Left, NodeAt(Current.Right), Current.Line);
    }
  }
}

// ---- Origins ----------------------------------------------------------------------------------

/// Goes through all nodes below a place, nearest first. A node below one in which places meet owes
/// to the same link that they meet in it.
void ShapeGraph::AddOrigins(std::uint32_t Place, std::uint32_t Root) {
  vPending.assign(1, {Find(Root), 0});
  for (std::size_t Next = 0; Next < vPending.size(); ++Next) {
    const auto [At, Path] = vPending[Next];
    Node& Current = vNodes[At];
    if (!Current.vOrigins.empty() && Current.vOrigins.back().Place == Place) {
      continue;
    }
    Current.vOrigins.push_back({Place, Path});
    for (const auto& [Feature, To] : Current.vFeatures) {
      Node& Below = vNodes[Find(To)];
      Below.LinkLine = Current.vOrigins.size() > 1 ? Current.LinkLine : Below.LinkLine;
      vPending.emplace_back(Find(To), Shapes.Extended(Path, Feature));
    }
  }
  vPending.clear();
}

// ---- The graph --------------------------------------------------------------------------------

void ShapeGraph::Build(const GrammarShapes::Shape& Which) {
  vNodes.clear();
  for (std::uint32_t Component = 0; Component <= Which.ComponentCount; ++Component) {
    AddNode();
  }
  AddValues(Which);
  AddLinks(Which);
  std::uint32_t Number = 0;
  for (const GrammarShapes::Place& Current : Shapes.PlacesOf(Which)) {
    AddOrigins(Number++, Current.Node);
  }
}

const ShapeGraph::Node& ShapeGraph::Follow(std::uint32_t Path,
                                           std::vector<std::uint32_t>& vRestReturn) {
  vRestReturn.clear();
  Shapes.AppendFeatures(Path, vRestReturn);
  std::uint32_t At = Find(0);
  std::size_t Done = 0;
  for (; Done < vRestReturn.size(); ++Done) {
    const std::uint32_t To = FeatureOf(At, vRestReturn[Done]);
    if (To == GrammarShapes::None) {
      break;
    }
    At = Find(To);
  }
  vRestReturn.erase(vRestReturn.begin(), vRestReturn.begin() + static_cast<std::ptrdiff_t>(Done));
  return vNodes[At];
}

}  // namespace Grammar
