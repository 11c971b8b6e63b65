#pragma once

#include "AtomRange.h"
#include "GrammarShapes.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace Grammar {

/// The analysis of a rule before anything is known of its parts: the nodes of its source side with
/// their features, unified by its equations. For the equations
///
///   (x0 = x2)  ((x0 num) = sg)
///
/// x0 and x2 are one node, whose feature NUM is given as SG and has one origin: NUM of x2.
///
/// @code
/// ShapeGraph Graph(Shapes);
/// Graph.Build(Shapes.At(0));
/// Graph.Nodes().front().vFeatures.size();  // 1
/// @endcode
class ShapeGraph {
 public:
  /// A path of a place.
  struct Origin {
    std::uint32_t Place = 0;  ///< of the shape's places, from 0
    std::uint32_t Path = 0;
  };

  struct Node {
    std::uint32_t Same = 0;  ///< the node that this one has become one with, or itself
    AtomRange Given;         ///< by values
    std::vector<std::pair<std::uint32_t, std::uint32_t>> vFeatures;  ///< and the nodes they lead to
    std::vector<Origin> vOrigins;  ///< one path at most for each place
    std::uint32_t ValueLine = 0;   ///< of the first value; 0 if there is none
    std::uint32_t LinkLine = 0;    ///< of the last link
  };

  /// @param ShapesPassIn receives paths that no rule has written; has to outlive this
  explicit ShapeGraph(GrammarShapes& ShapesPassIn) : Shapes(ShapesPassIn) {}

  /// Unifies the equations of a shape; what was there before is gone.
  void Build(const GrammarShapes::Shape& Which);

  /// All nodes, those that have become one with others included.
  const std::vector<Node>& Nodes() const { return vNodes; }
  bool IsOwn(std::size_t Index) const { return vNodes[Index].Same == Index; }

  /// Goes from the rule's own node along a path as far as features lead.
  /// @param vRestReturn receives the features that are left
  const Node& Follow(std::uint32_t Path, std::vector<std::uint32_t>& vRestReturn);

 private:
  using Equation = GrammarShapes::Equation;
  using Term = GrammarShapes::Term;

  std::uint32_t AddNode();
  std::uint32_t Find(std::uint32_t Index);
  std::uint32_t FeatureOf(std::uint32_t Index, std::uint32_t Feature) const;
  std::uint32_t NodeAt(const Term& Path);
  void AddValues(const GrammarShapes::Shape& Which);
  AtomRange RangeOf(const Equation& Current) const;
  void AddLinks(const GrammarShapes::Shape& Which);
  void Unify(std::uint32_t Left, std::uint32_t Right, std::uint32_t Line);
  void Merge(std::uint32_t Into, std::uint32_t From, std::uint32_t Line);
  void AddOrigins(std::uint32_t Place, std::uint32_t Root);

  GrammarShapes& Shapes;
  std::vector<Node> vNodes;  // the first are those of the components
  std::vector<std::pair<std::uint32_t, std::uint32_t>> vPending;
  std::vector<std::uint32_t> vFeatures;
};

}  // namespace Grammar
