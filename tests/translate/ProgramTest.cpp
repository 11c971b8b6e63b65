#include "Program.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace {

using Translate::Program;
using Numbers = std::vector<std::uint32_t>;

/// Compiles the equations of rules; two places on each side.
struct Compiled {
  Program Compile(const std::string& Constraints) {
    const ReadGrammar Read("S::S : [A B] -> [A B]\n(X1::Y1)\n(X2::Y2)\n" + Constraints);
    return Compiler.Compile(Read.vRules.at(0), vLines);
  }

  Translate::SymbolTable Features;
  Translate::SymbolTable AtomNames;
  Translate::AtomSets Sets;
  Translate::ProgramCompiler Compiler{Features, AtomNames, Sets};
  Numbers vLines;
};

/// How many steps of the analysis, the transfer and the generation there are, values before links.
Numbers StepsOf(const Program& Which) {
  const auto Size = [](const auto& vSteps) { return static_cast<std::uint32_t>(vSteps.size()); };
  return {Size(Which.vAnalysisValues), Size(Which.vAnalysisLinks), Size(Which.vTransfers),
          Size(Which.vGenerationValues), Size(Which.vGenerationLinks)};
}

TEST(Program, SortsEquationsIntoSteps) {
  struct Case {
    const char* Constraints;
    Numbers vSteps;
    Numbers vLines;
  };
  const std::vector<Case> vCases = {
      {"", {0, 0, 0, 0, 0}, {}},
      {"((x0 f) = p)\n", {1, 0, 0, 0, 0}, {4}},
      {"((y2 f) = p)\n((x1 f) = x2)\n", {0, 1, 0, 1, 0}, {5, 4}},
      {"(y1 = x1)\n(x2 = y0)\n(y0 = y1)\n", {0, 0, 2, 0, 1}, {4, 5, 6}},
      // Alternatives are one step, at their first line; a negation is a step of its own.
      {"((x0 f) = p)\n((x0 F) = (*OR* q r))\n((x0 f) = (*NOT* q))\n", {2, 0, 0, 0, 0}, {6, 4}},
      {"((x0 f) = p)\n((x0 f g) = p)\n((y0 f) = p)\n", {2, 0, 0, 1, 0}, {4, 5, 6}},
  };
  for (const Case& Row : vCases) {
    Compiled Rules;
    EXPECT_EQ(StepsOf(Rules.Compile(Row.Constraints)), Row.vSteps) << Row.Constraints;
    EXPECT_EQ(Rules.vLines, Row.vLines) << Row.Constraints;
  }
}

TEST(Program, MergesTheAtomsOfAlternatives) {
  Compiled Rules;
  const Program Which = Rules.Compile("((x0 f) = q)\n((X0 f) = (*OR* p Q))\n");
  ASSERT_EQ(Which.vAnalysisValues.size(), 1U);
  const Translate::AtomSet& Set = Rules.Sets.Set(Which.vAnalysisValues[0].Atoms);
  EXPECT_FALSE(Set.IsNegated);
  EXPECT_EQ(Set.vAtoms, (Numbers{Rules.AtomNames.Find("Q"), Rules.AtomNames.Find("P")}));
}

TEST(Program, PutsTheSourceOfATransferOnTheLeft) {
  Compiled Rules;
  const Program Which = Rules.Compile("((y2 f) = x1)\n(x2 = (y1 g))\n");
  ASSERT_EQ(Which.vTransfers.size(), 2U);
  EXPECT_EQ(Which.vTransfers[0].Left.Node, 1U);
  EXPECT_EQ(Which.vTransfers[0].Right.Node, 2U);
  EXPECT_EQ(Which.vTransfers[1].Left.Node, 2U);
  EXPECT_EQ(Which.vTransfers[1].Right.Node, 1U);
}

TEST(Program, CopiesOnlyPartsThatAnEquationNames) {
  Compiled Rules;
  const Program Which = Rules.Compile("((x0 f) = (x2 f))\n((y1 f) = p)\n");
  ASSERT_EQ(Which.vSourceParts.size(), 1U);
  EXPECT_EQ(Which.vSourceParts[0].Node, 2U);
  EXPECT_EQ(Which.vSourceParts[0].Place, 1U);
  ASSERT_EQ(Which.vTargetParts.size(), 1U);
  EXPECT_EQ(Which.vTargetParts[0].Node, 1U);
  EXPECT_EQ(Which.vTargetParts[0].Place, 0U);
}

TEST(Program, HasAKeyThatDistinguishesPrograms) {
  Compiled Rules;
  const auto KeyOfRule = [&](const char* Constraints) { return KeyOf(Rules.Compile(Constraints)); };
  EXPECT_EQ(KeyOfRule("((x1 num) = (x2 num))\n"), KeyOfRule("((X1 NUM) == (x2 num))\n"));
  EXPECT_NE(KeyOfRule("((x1 num) = (x2 num))\n"), KeyOfRule("((x1 num) = (x2 gen))\n"));
  EXPECT_NE(KeyOfRule("((x1 num) = p)\n"), KeyOfRule("((x1 num) = (*NOT* p))\n"));
  EXPECT_NE(KeyOfRule("((x1 num) = p)\n"), KeyOfRule("((y1 num) = p)\n"));
}

}  // namespace
