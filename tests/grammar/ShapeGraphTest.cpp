#include "ShapeGraph.h"

#include "ShapeSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Grammar::GrammarShapes;
using Grammar::ShapeGraph;

/// What is known at a path of the rule's own node: given atoms, origins, and what is left of the
/// path where features lead no further.
std::string FollowedText(GrammarShapes& Shapes, ShapeGraph& Graph, std::uint32_t Path) {
  std::vector<std::uint32_t> vRest;
  const ShapeGraph::Node& Found = Graph.Follow(Path, vRest);
  std::string Text = Found.Given.IsNegated ? "not" : "is";
  for (const std::uint32_t Atom : Found.Given.vAtoms) {
    Text.append(" ").append(Shapes.AtomName(Atom));
  }
  for (const ShapeGraph::Origin& From : Found.vOrigins) {
    Text.append(", place ").append(std::to_string(From.Place)).append(" ");
    Text.append(Shapes.PathName(From.Path));
  }
  return Text + ", rest " + std::to_string(vRest.size());
}

/// The same for the path of the first equation's left side.
std::string TextOfFirstPath(const std::string& Equations) {
  GrammarShapes Shapes;
  AddRules("NP::NP : [ADJ N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n" + Equations, Shapes);
  ShapeGraph Graph(Shapes);
  const GrammarShapes::Shape& Which = Shapes.At(0);
  Graph.Build(Which);
  return FollowedText(Shapes, Graph, Shapes.EquationsOf(Which).begin()->Left.Path);
}

}  // namespace

TEST(ShapeGraph, UnifiesTheEquationsOfAShape) {
  struct Case {
    std::string Equations;
    std::string Text;
  };
  const std::vector<Case> Cases = {
      {"((x0 num) = sg)\n", "is SG, rest 0"},
      {"((x0 num) = (*NOT* sg))\n", "not SG, rest 0"},
      {"((x0 num) = (*OR* sg pl))\n((x0 num) = (*OR* pl du))\n", "is SG PL DU, rest 0"},
      {"((x0 num) = (x2 num))\n", "not, place 1 NUM, rest 0"},
      {"((x0 num) = (x2 num))\n((x2 num) = sg)\n", "is SG, place 1 NUM, rest 0"},
      {"((x0 num) = sg)\n(x0 = x2)\n", "is SG, place 1 NUM, rest 0"},
      {"((x0 num) = (x2 num))\n((x0 num) = (x1 num))\n", "not, place 0 NUM, place 1 NUM, rest 0"}};
  for (const Case& Row : Cases) {
    EXPECT_EQ(TextOfFirstPath(Row.Equations), Row.Text) << Row.Equations;
  }
}

TEST(ShapeGraph, FollowsAPathAsFarAsFeaturesLead) {
  GrammarShapes Shapes;
  AddRules(
      "NP::NP : [N] -> [N]\n(X1::Y1)\n(x0 = x1)\n((x0 agr num) = sg)\n"
      "NP::NP : [N D] -> [N]\n(X1::Y1)\n((x0 agr) = (x1 agr))\n",
      Shapes);
  ShapeGraph Graph(Shapes);
  const std::uint32_t AgrNum = (Shapes.EquationsOf(Shapes.At(0)).begin() + 1)->Left.Path;
  Graph.Build(Shapes.At(0));
  EXPECT_EQ(FollowedText(Shapes, Graph, AgrNum), "is SG, place 0 AGR NUM, rest 0");
  Graph.Build(Shapes.At(1));
  EXPECT_EQ(FollowedText(Shapes, Graph, AgrNum), "not, place 0 AGR, rest 1");
}

TEST(ShapeGraph, KeepsTheLinesOfValuesAndLinks) {
  GrammarShapes Shapes;
  AddRules("NP::NP : [N] -> [N]\n(X1::Y1)\n(x0 = x1)\n((x0 num) = sg)\n((x1 num) = pl)\n", Shapes);
  ShapeGraph Graph(Shapes);
  Graph.Build(Shapes.At(0));
  EXPECT_TRUE(Graph.IsOwn(Graph.Nodes()[0].Same));
  EXPECT_EQ(Graph.Nodes()[0].Same, Graph.Nodes()[1].Same);
  EXPECT_EQ(Graph.Nodes()[Graph.Nodes()[0].Same].LinkLine, 3U);
  std::vector<std::uint32_t> vRest;
  const ShapeGraph::Node& Number =
      Graph.Follow((Shapes.EquationsOf(Shapes.At(0)).begin() + 1)->Left.Path, vRest);
  EXPECT_EQ(Number.ValueLine, 4U);
}
