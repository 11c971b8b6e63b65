#include "GrammarShapes.h"

#include "ShapeSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Grammar::GrammarShapes;
using Strings = std::vector<std::string>;

const std::string Text =
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n"
    "N::N : [\"bus\"] -> [\"bus\"]\n(X1::Y1)\n((x0 num) = sg)\n"
    "N::N : [\"cars\"] -> [\"autos\"]\n(X1::Y1)\n((x0 num) = (*NOT* sg du))\n"
    "NP::NP : [adj N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n((x0 agr num) = (x2 num))\n"
    "NP::SN : [N D] -> [N]\n(X1::Y1)\n"
    "S::S : [NP] -> [NP]\n(X1::Y1)\n"
    "S::S : [NP] -> []\n(X1::Y1)\n";

/// "line: types, components, rules", and what is known of it.
std::string TextOf(const GrammarShapes& Shapes, const GrammarShapes::Shape& Which) {
  std::string Out = std::to_string(Which.Line) + ": " + Shapes.TypesName(Which.Types) + ' ' +
                    std::to_string(Which.ComponentCount) + ' ' + std::to_string(Which.RuleCount);
  for (const GrammarShapes::Place& Slot : Shapes.PlacesOf(Which)) {
    const std::uint32_t Wanted = Shapes.SlotWanted(Slot.Slot);
    Out.append(" x").append(std::to_string(Slot.Node)).append("=");
    Out.append(Shapes.LabelName(Shapes.SlotLabel(Slot.Slot))).append("::");
    Out.append(Wanted == GrammarShapes::None ? "*" : Shapes.LabelName(Wanted));
    Out.append("@").append(std::to_string(Slot.Column));
  }
  return Out + (Which.IsUnary() ? " unary" : "") + (Which.IsUsable ? "" : " unusable");
}

Strings TextsOf(const GrammarShapes& Shapes) {
  Strings vsTexts;
  for (std::uint32_t Index = 0; Index < Shapes.Size(); ++Index) {
    vsTexts.push_back(TextOf(Shapes, Shapes.At(Index)));
  }
  return vsTexts;
}

/// "x0 AGR NUM = x2 NUM" or "x0 NUM not SG DU", with the line.
Strings EquationsOf(const GrammarShapes& Shapes, const GrammarShapes::Shape& Which) {
  Strings vsTexts;
  const auto TermText = [&](const GrammarShapes::Term& Path) {
    return 'x' + std::to_string(Path.Node) + ' ' + Shapes.PathName(Path.Path);
  };
  for (const GrammarShapes::Equation& Used : Shapes.EquationsOf(Which)) {
    std::string& sText = vsTexts.emplace_back(std::to_string(Used.Line) + ": ");
    sText.append(TermText(Used.Left));
    if (Used.What == GrammarShapes::Kind::Link) {
      sText.append(" = ").append(TermText(Used.Right));
    } else {
      sText.append(Used.What == GrammarShapes::Kind::Not ? " not" : " is");
    }
    for (std::uint32_t Atom = 0; Atom < Used.AtomCount; ++Atom) {
      sText.append(" ").append(Shapes.AtomName(Shapes.AtomAt(Used.FirstAtom + Atom)));
    }
  }
  return vsTexts;
}

Strings NumbersOf(const GrammarShapes::Range<std::uint32_t>& Numbers) {
  Strings vsNumbers;
  for (const std::uint32_t Number : Numbers) {
    vsNumbers.push_back(std::to_string(Number));
  }
  return vsNumbers;
}

}  // namespace

TEST(GrammarShapes, StoreRulesThatDifferInWordsOnlyOnce) {
  GrammarShapes Shapes;
  AddRules(Text, Shapes);
  EXPECT_EQ(TextsOf(Shapes),
            (Strings{"1: N::N 1 2", "7: N::N 1 1", "10: NP::NP 2 1 x1=ADJ::ADJ@11 x2=N::N@15",
                     "14: NP::SN 2 1 x1=N::N@11 x2=D::*@13", "16: S::S 1 1 x1=NP::NP@9 unary"}));
}

TEST(GrammarShapes, KeepTheEquationsOfTheSourceSide) {
  GrammarShapes Shapes;
  AddRules(Text, Shapes);
  EXPECT_EQ(EquationsOf(Shapes, Shapes.At(0)), (Strings{"3: x0 NUM is SG"}));
  EXPECT_EQ(EquationsOf(Shapes, Shapes.At(1)), (Strings{"9: x0 NUM not SG DU"}));
  EXPECT_EQ(EquationsOf(Shapes, Shapes.At(2)), (Strings{"13: x0 AGR NUM = x2 NUM"}));
}

TEST(GrammarShapes, FindTheProvidersOfASlot) {
  GrammarShapes Shapes;
  AddRules(Text, Shapes);
  struct Case {
    std::string Slot;
    Strings vsProviders;
  };
  const std::vector<Case> Cases = {
      {"ADJ::ADJ", {}}, {"N::N", {"0", "1"}}, {"D::*", {}}, {"NP::NP", {"2"}}};
  ASSERT_EQ(Shapes.SlotCount(), Cases.size());
  for (std::uint32_t Slot = 0; Slot < Shapes.SlotCount(); ++Slot) {
    EXPECT_EQ(NumbersOf(Shapes.ProvidersOf(Slot)), Cases[Slot].vsProviders) << Cases[Slot].Slot;
  }
  EXPECT_EQ(NumbersOf(Shapes.ShapesOfType(Shapes.FindLabel("NP"))), (Strings{"2", "3"}));
  EXPECT_EQ(NumbersOf(Shapes.ShapesOfTypes(Shapes.At(0).Types)), (Strings{"0", "1"}));
}

TEST(GrammarShapes, KeepTheLinesOfFindings) {
  GrammarShapes Shapes;
  AddRules(Text, Shapes);
  const GrammarShapes::KeptLine& Kept = Shapes.LineOf(2, 13);
  EXPECT_EQ(Kept.Text, "((x0 agr num) = (x2 num))");
  EXPECT_EQ(Kept.Column, 1U);
  EXPECT_EQ(Kept.Length, Kept.Text.size());
  EXPECT_EQ(Shapes.FileOf(Shapes.At(2)), "a.trr");
}
