#pragma once

#include "RuleSet.h"
#include "StructureStore.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Translate {

/// Goes through a structure, depth first, features in the order of their bytes. What several
/// features lead to has a number, from 1 in the order of first coming, and is gone into once.
///
/// The events of [F=#1:SG G=#1] are Complex, Atoms (F, 1), Again (G, 1) and End; those of [NUM=SG]:
///
/// @code
/// StructureStore Store;
/// const std::uint32_t Num = 0;
/// const StructureId Singular = Store.Complex({1, 1, Num, Store.Atomic(0)});
/// StructureWalk Walk(Rules, Store);
/// Walk.Start(Singular);
/// std::vector<StructureWalk::Kind> vKinds;
/// for (StructureWalk::Event Each; Walk.Next(Each);) { vKinds.push_back(Each.What); }
/// using Kind = StructureWalk::Kind;
/// vKinds;  // {Kind::Complex, Kind::Atoms, Kind::End}
/// @endcode
class StructureWalk {
 public:
  enum class Kind : std::uint8_t {
    Open,
    Atoms,
    Complex,
    End,    ///< of the features of a complex one
    Again,  ///< it has been gone into before
  };

  struct Event {
    Kind What = Kind::Open;
    StructureId Structure = StructureStore::Open;  ///< of an open or an atomic one
    std::uint32_t Feature = NoEntry;  ///< that leads to it; none to the root, nor at an end
    bool IsFirst = true;              ///< of the features of its structure
    std::uint32_t Number = 0;         ///< 0 if only one feature leads to it
  };

  StructureWalk(const RuleSet& RulesPassIn, const StructureStore& StorePassIn)
      : Rules(RulesPassIn), Store(StorePassIn) {}

  void Start(StructureId Structure);
  /// @return false after the last event
  bool Next(Event& EventReturn);

  /// The features that lead to what the last event was about, unless that was an end.
  std::vector<std::uint32_t> Path() const;

  const StructureStore& Structures() const { return Store; }

 private:
  /// A knot: where its locals stand, how many features lead to each, and their numbers.
  struct Knot {
    const std::uint32_t* Words = nullptr;
    std::vector<std::uint32_t> vLocals;
    std::vector<std::uint32_t> vArrivals;
    std::vector<std::uint32_t> vNumbers;
  };

  struct Arc {
    std::uint32_t Feature;
    std::uint32_t Target;
  };

  /// Features that are being gone through. A knot is forgotten after those of its root.
  struct Frame {
    std::size_t Knot;
    std::vector<Arc> vArcs;
    std::size_t Next;
    std::uint32_t Number;
    bool IsRoot;
  };

  std::size_t AddKnot(StructureId Structure);
  void OpenFeatures(std::size_t Which, std::uint32_t Local, std::uint32_t Number);
  void Visit(StructureId Structure, Event& EventReturn);
  void VisitLocal(std::size_t Which, std::uint32_t Local, Event& EventReturn);

  const RuleSet& Rules;
  const StructureStore& Store;
  StructureId Root = StructureStore::Open;
  bool IsAtRoot = false;
  std::uint32_t LastNumber = 0;
  std::vector<Knot> vKnots;
  std::vector<Frame> vFrames;
};

}  // namespace Translate
