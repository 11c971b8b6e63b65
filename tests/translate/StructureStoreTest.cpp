#include "StructureStore.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace {

using Translate::StructureId;
using Translate::StructureStore;

TEST(StructureStore, StoresEachStructureOnce) {
  StructureStore Store;
  const StructureId One = Store.Atomic(4);
  const StructureId Other = Store.Atomic(5);
  EXPECT_NE(One, Other);
  EXPECT_EQ(Store.Atomic(4), One);
  // One local with one feature, 7, that leads to an atom.
  const StructureId Complex = Store.Complex({1, 1, 7, One});
  EXPECT_EQ(Store.Complex({1, 1, 7, One}), Complex);
  EXPECT_NE(Store.Complex({1, 1, 7, Other}), Complex);
  EXPECT_EQ(Store.Size(), 5U);
}

TEST(StructureStore, DistinguishesKinds) {
  StructureStore Store;
  const StructureId Atomic = Store.Atomic(4);
  const StructureId Complex = Store.Complex({1, 1, 7, Atomic});
  EXPECT_TRUE(Store.IsOpen(StructureStore::Open));
  EXPECT_FALSE(Store.IsComplex(StructureStore::Open));
  EXPECT_TRUE(Store.IsAtomic(Atomic));
  EXPECT_EQ(Store.Atoms(Atomic), 4U);
  EXPECT_TRUE(Store.IsComplex(Complex));
  EXPECT_FALSE(Store.IsAtomic(Complex));
  EXPECT_EQ(std::vector<std::uint32_t>(Store.Knot(Complex), Store.Knot(Complex) + 4),
            (std::vector<std::uint32_t>{1, 1, 7, Atomic}));
}

TEST(StructureStore, FindsStructuresAmongMany) {
  StructureStore Store;
  std::vector<StructureId> vStructures;
  for (std::uint32_t Number = 0; Number < 5000; ++Number) {
    vStructures.push_back(Number % 2 == 0 ? Store.Atomic(Number)
                                          : Store.Complex({1, 1, Number, 0}));
  }
  for (std::uint32_t Number = 0; Number < 5000; ++Number) {
    EXPECT_EQ(Number % 2 == 0 ? Store.Atomic(Number) : Store.Complex({1, 1, Number, 0}),
              vStructures[Number]);
  }
  Store.Clear();
  EXPECT_EQ(Store.Size(), 1U);
  EXPECT_EQ(Store.Atomic(9), 1U);
}

}  // namespace
