#include "Measures.h"
#include "TreeLayout.h"
#include "support/RandomInput.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

using namespace Picture;

/// A tree of constituents and words below them, in any order and as often as it happens.
std::vector<TreeItem> RandomTree(RandomInput& Random, std::size_t Constituents) {
  static const std::vector<std::string> vsWords{"a", "longer word", "名詞", "كتاب", ""};
  std::vector<TreeItem> vItems(1);
  std::vector<std::size_t> vOpen{0};
  for (std::size_t Count = 1 + Random.Below(20); Count > 0; --Count) {
    TreeItem New;
    New.Parent = vOpen[Random.Below(vOpen.size())];
    New.IsWord = Random.Below(2) == 0;
    New.Constituent = New.IsWord ? vItems[New.Parent].Constituent : Random.Below(Constituents);
    New.Word = New.IsWord ? Random.Pick(vsWords) : "";
    if (!New.IsWord) {
      vOpen.push_back(vItems.size());
    }
    vItems.push_back(New);
  }
  return vItems;
}

TreePair RandomPair(RandomInput& Random) {
  TreePair Pair;
  for (std::size_t Count = 1 + Random.Below(5); Count > 0; --Count) {
    TreeConstituent& New = Pair.vConstituents.emplace_back();
    New.Types = {"NP", std::string(1 + Random.Below(20), 'N')};
    New.Rule = "{NP,1}";
    New.HasParts = Random.Below(2) == 0;
    New.IsMarked = Random.Below(4) == 0;
    for (std::vector<std::string>& vsNotes : New.Notes) {
      vsNotes.assign(Random.Below(3), "NUM: PL from words.trr:30");
    }
  }
  for (std::vector<TreeItem>& vItems : Pair.Items) {
    vItems = RandomTree(Random, Pair.vConstituents.size());
  }
  return Pair;
}

bool IsApart(Point One, int Width, int Height, Point Other, int OtherWidth, int OtherHeight) {
  return One.X + Width <= Other.X || Other.X + OtherWidth <= One.X || One.Y + Height <= Other.Y ||
         Other.Y + OtherHeight <= One.Y;
}

bool IsWithin(const Box& Inner, const Box& Outer) {
  return Inner.Corner.X > Outer.Corner.X && Inner.Corner.Y > Outer.Corner.Y &&
         Inner.Corner.X + Inner.Width < Outer.Corner.X + Outer.Width &&
         Inner.Corner.Y + Inner.Height < Outer.Corner.Y + Outer.Height;
}

void ExpectNothingOverlaps(const Drawing& Shapes) {
  for (std::size_t One = 0; One < Shapes.vBoxes.size(); ++One) {
    const Box& First = Shapes.vBoxes[One];
    EXPECT_GE(First.Corner.X, 0);
    EXPECT_LE(First.Corner.X + First.Width, Shapes.Width);
    EXPECT_LE(First.Corner.Y + First.Height, Shapes.Height);
    for (std::size_t Other = 0; Other < One; ++Other) {
      const Box& Second = Shapes.vBoxes[Other];
      if (First.Shape == BoxShape::Frame && Other + 1 == One) {
        EXPECT_TRUE(IsWithin(First, Second));
        continue;
      }
      EXPECT_TRUE(IsApart(First.Corner, First.Width, First.Height, Second.Corner, Second.Width,
                          Second.Height));
    }
  }
  for (std::size_t One = 0; One < Shapes.vTexts.size(); ++One) {
    const Text& First = Shapes.vTexts[One];
    EXPECT_GE(First.Width, SvgMeasures().WidthOf(First.Words, First.Role)) << First.Words;
    for (std::size_t Other = 0; Other < One; ++Other) {
      const Text& Second = Shapes.vTexts[Other];
      EXPECT_TRUE(IsApart(First.Corner, First.Width, First.Height, Second.Corner, Second.Width,
                          Second.Height))
          << First.Words << ' ' << Second.Words;
    }
  }
}

TEST(TreeLayout, LetsNothingOverlap) {
  RandomInput Random;
  TreeLayout Layout(SvgMeasures());
  Drawing Shapes;
  for (int Count = 0; Count < 300 && !HasFailure(); ++Count) {
    const TreePair Pair = RandomPair(Random);
    Layout.Draw(Pair, Shapes);
    ExpectNothingOverlaps(Shapes);
  }
}

}  // namespace
