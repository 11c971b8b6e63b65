#include "AtomRange.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace {

using Grammar::AtomRange;

/// "{1 2}", and "-{1 2}" for all but these.
std::string TextOf(const AtomRange& Range) {
  std::string Text = Range.IsNegated ? "-{" : "{";
  for (const std::uint32_t Atom : Range.vAtoms) {
    Text.append(Text.back() == '{' ? "" : " ").append(std::to_string(Atom));
  }
  return Text + '}';
}

bool Contains(const AtomRange& Range, std::uint32_t Atom) {
  return (std::find(Range.vAtoms.begin(), Range.vAtoms.end(), Atom) != Range.vAtoms.end()) !=
         Range.IsNegated;
}

constexpr std::uint32_t Atoms = 8;

class RandomRanges {
 public:
  explicit RandomRanges(unsigned Seed) : Engine(Seed) {}

  AtomRange Next() { return {Engine() % 2 == 0, NextAtoms()}; }

  std::vector<std::uint32_t> NextAtoms() {
    std::vector<std::uint32_t> vAtoms;
    for (std::uint32_t Atom = 0; Atom < Atoms; ++Atom) {
      if (Engine() % 3 == 0) {
        vAtoms.push_back(Atom);
      }
    }
    return vAtoms;
  }

 private:
  std::mt19937 Engine;
};

}  // namespace

TEST(AtomRange, IsAnythingOrNothing) {
  struct Case {
    AtomRange Range;
    bool IsAnything;
    bool IsNothing;
  };
  const std::vector<Case> Cases = {{{}, true, false},
                                   {{true, {1}}, false, false},
                                   {{false, {1}}, false, false},
                                   {{false, {}}, false, true}};
  for (const Case& Row : Cases) {
    EXPECT_EQ(Row.Range.IsAnything(), Row.IsAnything) << TextOf(Row.Range);
    EXPECT_EQ(Row.Range.IsNothing(), Row.IsNothing) << TextOf(Row.Range);
  }
}

TEST(AtomRange, HasTheAtomsOfBothRangesInCommon) {
  struct Case {
    AtomRange Left;
    AtomRange Right;
    std::string Common;
  };
  const std::vector<Case> Cases = {{{false, {1, 2}}, {false, {2, 3}}, "{2}"},
                                   {{false, {1, 2}}, {true, {2, 3}}, "{1}"},
                                   {{true, {1, 2}}, {false, {2, 3}}, "{3}"},
                                   {{true, {1, 2}}, {true, {2, 3}}, "-{1 2 3}"},
                                   {{}, {false, {4}}, "{4}"},
                                   {{}, {}, "-{}"}};
  for (const Case& Row : Cases) {
    EXPECT_EQ(TextOf(Common(Row.Left, Row.Right)), Row.Common)
        << TextOf(Row.Left) << TextOf(Row.Right);
  }
}

TEST(AtomRange, MatchesItsDefinitionForRandomRanges) {
  RandomRanges Random(1);
  for (int Round = 0; Round < 500; ++Round) {
    const AtomRange Left = Random.Next();
    const AtomRange Right = Random.Next();
    const AtomRange Both = Common(Left, Right);
    const std::vector<std::uint32_t> vAllowed = Random.NextAtoms();
    AtomRange Narrowed = Left;
    Narrow(Narrowed, vAllowed);
    for (std::uint32_t Atom = 0; Atom < Atoms; ++Atom) {
      const std::string Input = TextOf(Left) + ' ' + TextOf(Right) + ' ' + std::to_string(Atom);
      EXPECT_EQ(Contains(Both, Atom), Contains(Left, Atom) && Contains(Right, Atom)) << Input;
      EXPECT_EQ(Contains(Narrowed, Atom), Contains(Left, Atom) && Contains({false, vAllowed}, Atom))
          << Input;
    }
  }
}

TEST(AtomRange, SortsAtomsAndDropsRepetitions) {
  std::vector<std::uint32_t> vAtoms{3, 1, 3, 2, 1};
  Grammar::Tidy(vAtoms);
  EXPECT_EQ(vAtoms, (std::vector<std::uint32_t>{1, 2, 3}));
}
