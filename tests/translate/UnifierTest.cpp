// Sections: knots, random equations, depth.

#include "Unifier.h"

#include "RandomGrammar.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <vector>

namespace {

using Translate::AtomSets;
using Translate::StructureId;
using Translate::StructureStore;
using Translate::Unifier;

// ---- Knots ------------------------------------------------------------------------------------

/// A store, and nodes in it.
struct Workbench {
  StructureStore Store;
  AtomSets Sets;
  Unifier Nodes{Store, Sets};

  Unifier::NodeId Make(Unifier::NodeId From, const std::vector<std::uint32_t>& vPath) {
    return Nodes.Make(From, vPath.data(), vPath.size());
  }
};

TEST(Unifier, NumbersEqualStructuresAlike) {
  Workbench Bench;
  const auto One = Bench.Nodes.Add(StructureStore::Open);
  const auto Other = Bench.Nodes.Add(StructureStore::Open);
  // Two shared nodes, one below the other, made in different orders.
  Bench.Nodes.Unify(Bench.Make(One, {1}), Bench.Make(One, {2}));
  Bench.Nodes.Unify(Bench.Make(One, {1, 5}), Bench.Make(One, {3}));
  Bench.Nodes.Unify(Bench.Make(Other, {3}), Bench.Make(Other, {2, 5}));
  Bench.Nodes.Unify(Bench.Make(Other, {2}), Bench.Make(Other, {1}));
  const StructureId First = Bench.Nodes.Freeze(One);
  EXPECT_EQ(First, Bench.Nodes.Freeze(Other));
  // A copy that is looked into is the same again.
  const auto Copy = Bench.Nodes.Add(First);
  Bench.Make(Copy, {2, 5});
  EXPECT_EQ(Bench.Nodes.Freeze(Copy), First);
  Bench.Make(Copy, {2, 6});
  EXPECT_NE(Bench.Nodes.Freeze(Copy), First);
}

TEST(Unifier, DistinguishesStructuresOnAKnot) {
  Workbench Bench;
  const auto Root = Bench.Nodes.Add(StructureStore::Open);
  Bench.Nodes.Unify(Bench.Make(Root, {1, 7}), Bench.Make(Root, {1, 8}));
  const auto Alone = Bench.Nodes.Add(StructureStore::Open);
  Bench.Nodes.Unify(Bench.Make(Alone, {7}), Bench.Make(Alone, {8}));
  const StructureId Inner = Bench.Nodes.Freeze(Alone);
  const StructureId Outer = Bench.Nodes.Freeze(Root);
  // One local, with one feature that leads to the other structure.
  const std::uint32_t* Knot = Bench.Store.Knot(Outer);
  EXPECT_EQ(std::vector<std::uint32_t>(Knot, Knot + 4),
            (std::vector<std::uint32_t>{1, 1, 1, Inner}));
}

TEST(Unifier, FollowsAPath) {
  Workbench Bench;
  const auto Root = Bench.Nodes.Add(StructureStore::Open);
  const auto Value = Bench.Nodes.Add(Bench.Store.Atomic(Bench.Sets.Intern({false, {3}})));
  EXPECT_TRUE(Bench.Nodes.Unify(Bench.Make(Root, {1, 2}), Value));
  const std::vector<std::uint32_t> vPath{1, 2, 5};
  EXPECT_TRUE(Bench.Nodes.IsAtomic(Bench.Nodes.Look(Root, vPath.data(), 2)));
  EXPECT_EQ(Bench.Nodes.Look(Root, vPath.data(), 3), Unifier::None);
  EXPECT_EQ(Bench.Nodes.Look(Root, vPath.data() + 1, 1), Unifier::None);
  // Looking makes nothing; making a path does, but not through an atom.
  EXPECT_EQ(Bench.Make(Root, vPath), Unifier::None);
  EXPECT_TRUE(Bench.Nodes.IsOpen(Bench.Make(Root, {7})));
}

TEST(Unifier, FindsAStructureThatContainsItself) {
  Workbench Bench;
  const auto Root = Bench.Nodes.Add(StructureStore::Open);
  EXPECT_TRUE(Bench.Nodes.Unify(Bench.Make(Root, {1}), Bench.Make(Root, {2, 3})));
  EXPECT_FALSE(Bench.Nodes.HasCycle());
  EXPECT_TRUE(Bench.Nodes.Unify(Bench.Make(Root, {2}), Bench.Make(Root, {1, 4})));
  EXPECT_TRUE(Bench.Nodes.HasCycle());
}

TEST(Unifier, KnowsWhetherASharedStructureWasRead) {
  Workbench Bench;
  const auto Root = Bench.Nodes.Add(StructureStore::Open);
  Bench.Nodes.Unify(Bench.Make(Root, {1}), Bench.Make(Root, {2}));
  const StructureId Shared = Bench.Nodes.Freeze(Root);
  Bench.Nodes.Clear();
  const auto Copy = Bench.Nodes.Add(Shared);
  EXPECT_FALSE(Bench.Nodes.HasShared());
  Bench.Make(Copy, {1});
  EXPECT_TRUE(Bench.Nodes.HasShared());
  Bench.Nodes.Clear();
  EXPECT_FALSE(Bench.Nodes.HasShared());
}

// ---- Random equations -------------------------------------------------------------------------

/// Two paths of one structure that lead to the same, or a path that leads to one of some atoms.
struct PathEquation {
  std::vector<std::uint32_t> vLeft;
  std::vector<std::uint32_t> vRight;
  Translate::AtomSet Atoms;
};

std::vector<std::uint32_t> RandomPath(RandomGrammar& Random) {
  std::vector<std::uint32_t> vPath;
  for (std::size_t Size = 1 + Random.Below(3); Size > 0; --Size) {
    vPath.push_back(static_cast<std::uint32_t>(Random.Below(3)));
  }
  return vPath;
}

std::vector<PathEquation> RandomEquations(RandomGrammar& Random) {
  std::vector<PathEquation> vEquations(2 + Random.Below(6));
  for (PathEquation& Equation : vEquations) {
    Equation.vLeft = RandomPath(Random);
    if (Random.OneIn(3)) {
      Equation.Atoms.IsNegated = Random.OneIn(3);
      Equation.Atoms.vAtoms = {static_cast<std::uint32_t>(Random.Below(3)),
                               static_cast<std::uint32_t>(Random.Below(3))};
    } else {
      Equation.vRight = RandomPath(Random);
    }
  }
  return vEquations;
}

bool Apply(Workbench& Bench, const PathEquation& Equation, Unifier::NodeId Root) {
  const auto Left = Bench.Make(Root, Equation.vLeft);
  if (Left == Unifier::None) {
    return false;
  }
  const auto Right = Equation.vRight.empty()
                         ? Bench.Nodes.Add(Bench.Store.Atomic(Bench.Sets.Intern(Equation.Atoms)))
                         : Bench.Make(Root, Equation.vRight);
  return Right != Unifier::None && Bench.Nodes.Unify(Left, Right);
}

/// The structure that all equations make; nothing if they clash. It is put down and taken up
/// again before the equations with these indices.
std::optional<StructureId> Solve(Workbench& Bench, const std::vector<PathEquation>& vEquations,
                                 std::size_t FirstStop, std::size_t NextStop) {
  Bench.Nodes.Clear();
  auto Root = Bench.Nodes.Add(StructureStore::Open);
  for (std::size_t Index = 0; Index < vEquations.size(); ++Index) {
    if (Index == FirstStop || Index == NextStop) {
      if (Bench.Nodes.HasCycle()) {
        return std::nullopt;
      }
      const StructureId Before = Bench.Nodes.Freeze(Root);
      Bench.Nodes.Clear();
      Root = Bench.Nodes.Add(Before);
      EXPECT_EQ(Bench.Nodes.Freeze(Root), Before);
    }
    if (!Apply(Bench, vEquations[Index], Root)) {
      return std::nullopt;
    }
  }
  return Bench.Nodes.HasCycle() ? std::nullopt
                                : std::optional<StructureId>(Bench.Nodes.Freeze(Root));
}

TEST(Unifier, HasTheSameResultInAnyOrderAndOverCopies) {
  std::size_t Solved = 0;
  for (unsigned Seed = 0; Seed < 3000 && !HasFailure(); ++Seed) {
    RandomGrammar Random(Seed);
    Workbench Bench;
    std::vector<PathEquation> vEquations = RandomEquations(Random);
    const std::optional<StructureId> Expected = Solve(Bench, vEquations, 99, 99);
    for (int Round = 0; Round < 4; ++Round) {
      Random.Shuffle(vEquations);
      EXPECT_EQ(Solve(Bench, vEquations, Random.Below(4), Random.Below(8)), Expected)
          << "seed " << Seed;
    }
    Solved += Expected ? 1 : 0;
  }
  EXPECT_GT(Solved, 500U);
  EXPECT_LT(Solved, 2500U);
}

// ---- Depth ------------------------------------------------------------------------------------

TEST(Unifier, DoesNotRecurse) {
  Workbench Bench;
  const auto Root = Bench.Nodes.Add(StructureStore::Open);
  const auto Other = Bench.Nodes.Add(StructureStore::Open);
  const std::vector<std::uint32_t> vDeep(200000, 4);
  Bench.Nodes.Unify(Bench.Make(Root, vDeep), Bench.Make(Root, {9}));
  Bench.Make(Other, vDeep);
  EXPECT_TRUE(Bench.Nodes.Unify(Root, Other));
  EXPECT_FALSE(Bench.Nodes.HasCycle());
  EXPECT_NE(Bench.Nodes.Freeze(Root), StructureStore::Open);
  EXPECT_TRUE(Bench.Nodes.Unify(Root, Bench.Make(Root, vDeep)));
  EXPECT_TRUE(Bench.Nodes.HasCycle());
}

}  // namespace
