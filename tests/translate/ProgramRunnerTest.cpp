#include "ProgramRunner.h"

#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace {

using Translate::Program;
using Translate::StructureId;
using Translate::StructureStore;

/// A rule with one place on each side, and structures for its part.
struct OneRule {
  explicit OneRule(const std::string& Constraints)
      : Read("S::S : [A] -> [A]\n(X1::Y1)\n" + Constraints),
        Equations(Compiler.Compile(Read.vRules.at(0), vLines)) {}

  StructureId Atom(const std::string& Name) {
    return Store.Atomic(Sets.Intern({false, {AtomNames.InternUpper(Name)}}));
  }
  /// A structure with one feature.
  StructureId With(const std::string& Feature, StructureId Value) {
    return Store.Complex({1, 1, Features.InternUpper(Feature), Value});
  }

  ReadGrammar Read;
  Translate::SymbolTable Features;
  Translate::SymbolTable AtomNames;
  Translate::AtomSets Sets;
  StructureStore Store;
  Translate::ProgramCompiler Compiler{Features, AtomNames, Sets};
  std::vector<std::uint32_t> vLines;
  Program Equations;
  Translate::ProgramRunner Runner{Store, Sets};
};

TEST(ProgramRunner, AnalysesThenTransfersThenGenerates) {
  OneRule Current("((x0 f) = (x1 f))\n((y0 g) = (x0 f))\n((y0 h) = (y1 h))\n");
  const StructureId S = Current.With("f", Current.Atom("p"));
  const StructureId T = Current.With("h", Current.Atom("q"));
  ASSERT_TRUE(Current.Runner.Analyse(Current.Equations, {S}));
  EXPECT_EQ(Current.Runner.Source(), S);
  Current.Runner.Transfer(Current.Equations);
  EXPECT_EQ(Current.Runner.Brought(), (std::vector<StructureId>{Current.Atom("p")}));
  ASSERT_TRUE(Current.Runner.Generate(Current.Equations, {T}));
  const std::optional<Translate::StructurePair> All =
      Current.Runner.Run(Current.Equations, {S}, {T});
  ASSERT_TRUE(All.has_value());
  EXPECT_EQ(All->Source, S);
  EXPECT_EQ(All->Target, Current.Runner.Target());
}

TEST(ProgramRunner, TransfersNothingOfAMissingPath) {
  for (const char* Constraints :
       {"((y0 g) = (x1 f))\n", "((y0 g) = (x1 f f))\n", "((y0 g) = (x0 h))\n((x0 h) = (x0 i))\n"}) {
    OneRule Current(Constraints);
    const StructureId Atom = Current.Atom("p");
    const StructureId S = std::string(Constraints).find("f f") == std::string::npos
                              ? StructureId{StructureStore::Open}
                              : Current.With("f", Atom);
    ASSERT_TRUE(Current.Runner.Analyse(Current.Equations, {S})) << Constraints;
    Current.Runner.Transfer(Current.Equations);
    EXPECT_EQ(Current.Runner.Brought(), (std::vector<StructureId>{StructureStore::Open}))
        << Constraints;
    ASSERT_TRUE(Current.Runner.Generate(Current.Equations, {StructureStore::Open})) << Constraints;
    EXPECT_EQ(Current.Runner.Target(), StructureId{StructureStore::Open}) << Constraints;
  }
}

TEST(ProgramRunner, ClashesInTheStepOfTheEquation) {
  struct Case {
    const char* Constraints;
    bool IsAnalysed;
  };
  const std::vector<Case> vCases = {
      {"((x1 f) = q)\n", false},
      {"((x1 f g) = q)\n", false},
      {"(x1 = (x1 f))\n", false},
      {"(y0 = x1)\n((y0 f) = q)\n", true},
      {"((y0 f) = x1)\n((y0 f) = q)\n", true},
      {"(y0 = (y0 f))\n", true},
  };
  for (const Case& Row : vCases) {
    OneRule Rule(Row.Constraints);
    const StructureId S = Rule.With("f", Rule.Atom("p"));
    EXPECT_EQ(Rule.Runner.Analyse(Rule.Equations, {S}), Row.IsAnalysed) << Row.Constraints;
    EXPECT_EQ(Rule.Runner.Run(Rule.Equations, {S}, {S}), std::nullopt) << Row.Constraints;
  }
}

}  // namespace
