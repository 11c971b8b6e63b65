#include "Evaluator.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <optional>

namespace {

using Translate::Evaluator;
using Translate::StructurePair;

TEST(Evaluator, NumbersListsOfKeys) {
  const TestEngine Engine("S::S : [\"a\"] -> [\"x\"]\n(X1::Y1)\n");
  Evaluator Equations(Engine.Set());
  const auto One = Equations.AddKey(Evaluator::NoKeys, {1, 2});
  const auto Both = Equations.AddKey(One, {1, 2});
  EXPECT_NE(One, Both);
  EXPECT_EQ(Equations.AddKey(Evaluator::NoKeys, {1, 2}), One);
  EXPECT_NE(Equations.AddKey(Evaluator::NoKeys, {2, 1}), One);
  EXPECT_EQ(Equations.LastKey(Both).Source, 1U);
  EXPECT_EQ(Equations.LastKey(Both).Target, 2U);
}

TEST(Evaluator, ReusesItsResults) {
  const TestEngine Engine(
      "S::S : [A] -> [A]\n(X1::Y1)\n((x0 f) = x1)\n((x1 g) = p)\n"
      "A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\n");
  Evaluator Equations(Engine.Set());
  const auto Keys = Equations.AddKey(Evaluator::NoKeys, {});
  const auto Evaluation = Engine.Set().At(0).Evaluation;
  const std::optional<StructurePair> First = Equations.Evaluate(Evaluation, Keys);
  ASSERT_TRUE(First.has_value());
  const std::size_t Size = Equations.Structures().Size();
  const std::optional<StructurePair> Again = Equations.Evaluate(Evaluation, Keys);
  ASSERT_TRUE(Again.has_value());
  EXPECT_EQ(Again->Source, First->Source);
  EXPECT_EQ(Equations.Structures().Size(), Size);
  const std::optional<StructurePair> Parts = Equations.EvaluateParts(Engine.Set().At(0), {{}});
  ASSERT_TRUE(Parts.has_value());
  EXPECT_EQ(Parts->Source, First->Source);
  // A rule without equations makes open structures of anything.
  const auto Without = Engine.Set().At(1).Evaluation;
  EXPECT_EQ(Equations.Evaluate(Without, Evaluator::NoKeys)->Source, 0U);
  // The structure of S does not fit its own part: F leads to what has G.
  EXPECT_EQ(Equations.Evaluate(Evaluation, Equations.AddKey(Evaluator::NoKeys, {1, 0})),
            std::nullopt);
}

}  // namespace
