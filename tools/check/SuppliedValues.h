#pragma once

#include "AtomRange.h"
#include "GrammarShapes.h"
#include "ShapeGraph.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace Grammar {

/// Finds equations that no constituent can meet: what they want of a place,
/// none of the rules that could fill it ever has.
///
/// For example, no N below has the value that the NP wants:
///
///   N::N : ["car"] -> ["auto"]      N::N : ["cars"] -> ["autos"]
///   ( (X1::Y1) ((x0 num) = sg) )    ( (X1::Y1) ((x0 num) = pl) )
///
///   NP::NP : ["two" N] -> ["dos" N]
///   ( (X2::Y2) ((x2 num) = du) )
///
/// What a place can have at a path is worked out from below: all values that
/// the rules which could fill it give their own node there, by a value or by
/// equations with their places. It is anything as soon as one of them leaves
/// the path open, gives it features, or cannot be used. So what is found never
/// holds; what is not found may or may not.
///
/// The work is bounded by that many paths for each kind of place, and that many
/// atoms for each path: beyond that, anything is possible.
///
/// @code
/// SuppliedValues(Shapes).FindClashes().size();  // 0
/// @endcode
class SuppliedValues {
 public:
  /// What a place has at a path.
  struct Supply {
    static constexpr std::size_t MaxAtoms = 4;

    ShapeGraph::Origin From;
    std::size_t Count = 0;              ///< how many values, at least one
    std::vector<std::uint32_t> vAtoms;  ///< where there are few
  };

  /// An equation that never holds.
  struct Clash {
    std::uint32_t Shape = 0;
    std::uint32_t Line = 0;         ///< of the equation
    std::vector<Supply> vSupplies;  ///< that have nothing in common with it, or with each other
  };

  /// @param ShapesPassIn receives paths that no rule has written; has to outlive
  /// this
  explicit SuppliedValues(GrammarShapes& ShapesPassIn)
      : Shapes(ShapesPassIn), Graph(ShapesPassIn) {}

  /// Looks at all shapes. @return in their order
  std::vector<Clash> FindClashes();

 private:
  /// A path of the constituents in a slot, and the values that it can have.
  struct Variable {
    std::uint32_t Slot = 0;
    std::uint32_t Path = 0;
    bool IsAny = false;
    bool IsWaiting = false;             ///< until its users have been looked at again
    std::vector<std::uint32_t> vAtoms;  ///< ascending
    std::vector<std::uint32_t> vNew;    ///< come since its users were looked at, in any order
    std::vector<std::uint32_t> vUsers;  ///< flows
  };

  /// A way by which a path gets values: those that other paths and a given
  /// range have in common.
  struct Flow {
    std::uint32_t To = 0;
    AtomRange Given;
    std::vector<std::uint32_t> vFrom;
  };

  /// A node of a shape at which the paths of places have to have a value in
  /// common.
  struct Meeting {
    std::uint32_t Shape = 0;
    std::uint32_t Line = 0;
    AtomRange Given;
    std::vector<ShapeGraph::Origin> vOrigins;
    std::vector<std::uint32_t> vVariables;
  };

  std::uint32_t Demand(std::uint32_t Slot, std::uint32_t Path);
  std::uint32_t Demand(const GrammarShapes::Shape& Which, const ShapeGraph::Origin& From,
                       const std::vector<std::uint32_t>& vFeatures);
  void AddMeetings(std::uint32_t Index);
  void Expand(std::uint32_t Number);
  bool AddFlow(std::uint32_t Number, const GrammarShapes::Shape& Which);
  bool AddFlowOfValues(std::uint32_t Number, const GrammarShapes::Shape& Which);
  bool AddGiven(std::uint32_t Number, const AtomRange& Given);
  void SetAny(std::uint32_t Number);
  void AddAtoms(std::uint32_t Number, const std::vector<std::uint32_t>& vAtoms);
  void TakeNewAtoms(std::uint32_t Number);
  void Wake(std::uint32_t Number);
  void Settle();
  void Apply(const Flow& Current);
  bool IsClash(const Meeting& Current) const;
  Clash ClashOf(const Meeting& Current) const;

  GrammarShapes& Shapes;
  ShapeGraph Graph;
  PairTable Numbers;  // of the variables, by slot and path
  std::deque<Variable> Variables;
  std::vector<std::uint32_t> vPathCounts;  // of the slots
  std::deque<Flow> Flows;
  std::deque<Meeting> Meetings;
  std::deque<std::uint32_t> Waiting;
  std::vector<std::uint32_t> vRest;
};

}  // namespace Grammar
