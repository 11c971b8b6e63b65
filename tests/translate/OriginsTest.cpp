// Where values come from, and that knowing it changes nothing. Sections: sets, derivations,
// clashes, random grammars.

#include "RandomGrammar.h"
#include "StructureText.h"
#include "TracedAtomSets.h"
#include "Tracer.h"
#include "TranslateSupport.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace {

using Translate::AtomSetId;
using Translate::AtomSets;
using Translate::Origin;
using Translate::TracedAtomSets;
using Translate::WriterOptions;

// ---- Sets -------------------------------------------------------------------------------------

TEST(Origins, AreThoseOfBothSetsIfTheyIntersect) {
  AtomSets Plain;
  const AtomSetId Some = Plain.Intern({false, {1, 2}});
  const AtomSetId Other = Plain.Intern({false, {2, 3}});
  const AtomSetId Third = Plain.Intern({false, {3}});
  TracedAtomSets Sets(Plain);
  const AtomSetId Left = Sets.Intern(Some, Sets.Only({1, 30}));
  const AtomSetId Right = Sets.Intern(Other, Sets.Only({0, 44}));
  const std::optional<AtomSetId> Both = Sets.Intersect(Left, Right);
  ASSERT_TRUE(Both.has_value());
  EXPECT_EQ(Sets.Set(*Both).vAtoms, (std::vector<std::uint32_t>{2}));
  EXPECT_EQ(Sets.Origins(*Both), (std::vector<Origin>{{0, 44}, {1, 30}}));
  EXPECT_EQ(Sets.Intersect(*Both, Sets.Intern(Third, Sets.Only({0, 1}))), std::nullopt);
}

// ---- Derivations ------------------------------------------------------------------------------

/// The first derivations of a text.
Translate::TextOptions SomeDerivations() {
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.Translations = 10;
  return Options;
}

/// The same as JSON.
std::string Json(TestEngine& Grammar, const std::string& Text, bool HasOrigins) {
  WriterOptions Form;
  Form.Format = Translate::TextFormat::Json;
  Form.HasOrigins = HasOrigins;
  return Grammar.Written(Text, SomeDerivations(), Form);
}

const std::string Words =
    "ADJ::ADJ : [\"red\"] -> [\"rojo\"]\n(X1::Y1)\n((x0 num) = sg)\n((y0 gen) = m)\n"
    "((x0 num) = pl)\n"
    "N::N : [\"car\"] -> [\"auto\"]\n(X1::Y1)\n((x0 num) = sg)\n((x0 case) = (*NOT* gen))\n";

TEST(Origins, AreStoredBesideTheStructures) {
  TestEngine Grammar(
      "NP::NP : [ADJ N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n((x1 num) = (x2 num))\n"
      "((x0 agr) = x2)\n((y0 num) = (x0 agr num))\n((y0 gen) = (y2 gen))\n" +
      Words);
  EXPECT_EQ(Json(Grammar, "red car", true),
            R"({"source":"red car","translations":[{"target":"auto rojo","score":0.000000,"tree":)"
            R"({"rule":"a.trr:1","header":null,"span":[0,2],"types":["NP","NP"],)"
            R"("source":{"AGR":{"CASE":{"*NOT*":["GEN"]},"NUM":"SG"}},)"
            R"("target":{"GEN":"M","NUM":"SG"},)"
            R"("origins":{"source":{"AGR CASE":["a.trr:16"],"AGR NUM":["a.trr:10","a.trr:15"]},)"
            R"("target":{"GEN":["a.trr:11"],"NUM":["a.trr:10","a.trr:15"]}},"children":[)"
            R"({"rule":"a.trr:8","header":null,"span":[0,1],"types":["ADJ","ADJ"],)"
            R"("source":{"NUM":{"*OR*":["PL","SG"]}},"target":{"GEN":"M"},)"
            R"("origins":{"source":{"NUM":["a.trr:10"]},"target":{"GEN":["a.trr:11"]}},)"
            R"("children":[]},)"
            R"({"rule":"a.trr:13","header":null,"span":[1,2],"types":["N","N"],)"
            R"("source":{"CASE":{"*NOT*":["GEN"]},"NUM":"SG"},"target":{},)"
            R"("origins":{"source":{"CASE":["a.trr:16"],"NUM":["a.trr:15"]},"target":{}},)"
            R"("children":[]}]}}],"error":null})"
            "\n");
}

TEST(Origins, NameASharedPartOnceAndTheRootWithoutAFeature) {
  TestEngine Grammar(
      "N::N : [\"a\"] -> [\"b\"]\n(X1::Y1)\n((x0 g) = (x0 f))\n((x0 f) = p)\n"
      "((y1 v) = q)\n(y0 = (y1 v))\n");
  EXPECT_EQ(Json(Grammar, "a", true),
            R"({"source":"a","translations":[{"target":"b","score":0.000000,"tree":)"
            R"({"rule":"a.trr:1","header":null,"span":[0,1],"types":["N","N"],)"
            R"("source":{"F":{"#":1,"is":"P"},"G":{"#":1}},"target":"Q",)"
            R"("origins":{"source":{"F":["a.trr:4"]},"target":{"":["a.trr:5"]}},)"
            R"("children":[]}}],"error":null})"
            "\n");
}

// ---- Clashes ----------------------------------------------------------------------------------

/// The equations of the first rule of a grammar that are left aside, a line each. The rule takes
/// what the other rules make, in order, as its parts.
std::string ClashesOf(const std::string& Grammar) {
  const TestEngine Engine(Grammar);
  const Translate::RuleSet& Rules = Engine.Set();
  Translate::Tracer Trace(Rules);
  std::vector<Translate::StructurePair> vParts;
  for (std::uint32_t Index = 1; Index < Rules.Size(); ++Index) {
    vParts.push_back(Trace.Apply(Rules.At(Index), {}));
  }
  Trace.Apply(Rules.At(0), vParts);
  Translate::StructureText Structures(Rules, Trace.Structures(), Trace.Atoms());
  std::string Text;
  const auto AppendPath = [&](const Translate::RulePath& Path) {
    Text.append(Path.OnSide == Translate::Side::X ? " x" : " y").append(std::to_string(Path.Node));
    for (const std::uint32_t Feature : Path.vFeatures) {
      Text.append(1, ' ').append(Rules.FeatureName(Feature));
    }
    Text += ':';
  };
  const auto AppendValue = [&](Translate::StructureId Value) {
    Structures.AppendShort(Value, Text);
    for (const Origin& Current : Trace.Origins(Value)) {
      Text.append("@").append(std::to_string(Current.Line));
    }
  };
  for (const Translate::EquationClash& Clash : Trace.Clashes()) {
    Text.append(std::to_string(Clash.Line)).append(Clash.IsCycle ? " cycle" : "");
    for (const Translate::Conflict& Conflict : Clash.vConflicts) {
      AppendPath(Conflict.ThereAt);
      AppendValue(Conflict.There);
      Text += " /";
      if (Conflict.CameAt) {
        AppendPath(*Conflict.CameAt);
      } else {
        Text += ' ';
      }
      AppendValue(Conflict.Came);
    }
    Text += '\n';
  }
  return Text;
}

std::string Np(const std::string& Equations) {
  return "NP::NP : [ADJ N] -> [N ADJ]\n(X1::Y2)\n(X2::Y1)\n" + Equations + ")\n" + Words;
}

struct ClashCase {
  const char* Equations;
  const char* Expected;
};

TEST(Origins, NameWhatClashes) {
  const std::vector<ClashCase> Cases{
      // The words' equations stand on lines 4 to 10 after as many as there are here, and one more.
      {"((x1 num) = (x2 num))\n", ""},
      {"((x1 num) = du)\n", "4 x1 NUM:PL|SG@8 / DU@4\n"},
      {"((x1 num) = du)\n((x1 num) = tr)\n", "4 x1 NUM:PL|SG@9 / DU|TR@4\n"},
      // Values before links do not count: what stands first was there.
      {"((x1 num) = (x2 num))\n((x2 num) = pl)\n", "5 x2 NUM:SG@9@14 / PL@5\n"},
      {"((x2 num) = pl)\n((x1 num) = (x2 num))\n", "4 x2 NUM:SG@14 / PL@4\n"},
      // What clashed is left aside.
      {"((x0 a) = p)\n((x0 a) = (*NOT* p))\n((x0 b) = (x0 a))\n((x0 b) = q)\n",
       "5 x0 A:P@4 / !P@5\n7 x0 B:P@4 / Q@7\n"},
      // All features that clash, in the order of their names; the rest is one.
      {"((x0 b) = p)\n((x0 a) = p)\n((x0 c) = p)\n((x1 a) = q)\n((x1 b) = q)\n((x1 d) = q)\n"
       "(x0 = x1)\n",
       "10 x0 A:P@5 / x1 A:Q@7 x0 B:P@4 / x1 B:Q@8\n"},
      // An atom has no features, and features are not an atom.
      {"((x2 num f) = p)\n", "4 x2 NUM:SG@13 / [F=[]]@4\n"},
      {"((x0 a b) = p)\n((x0 a) = q)\n", "5 x0 A:[B=P]@4 / Q@5\n"},
      {"((x0 a b) = (x1 v))\n((x0 a) = q)\n", "5 x0 A:[B=[]]@4 / Q@5\n"},
      // A transfer brings, with what it comes from.
      {"((y2 gen) = (x2 num))\n", "4 y2 GEN:M@9 / x2 NUM:SG@13\n"},
      {"((x0 a) = p)\n((y0 b) = q)\n((y0 b) = (x0 a))\n", "5 y0 B:P@4 / Q@5\n"},
      // A structure that would contain itself.
      {"((x0 a b) = p)\n((x0 a) = x0)\n", "5 cycle x0 A:[B=P]@4 / x0:[A=[B=P]]@4\n"},
      {"((y0 a b) = p)\n((y0 a) = (y1 c))\n((y1 c) = (y0 a b))\n", "6 y1 C:[B=P]@4 / y0 A B:P@4\n"},
  };
  for (const ClashCase& Case : Cases) {
    EXPECT_EQ(ClashesOf(Np(Case.Equations)), Case.Expected) << Case.Equations;
  }
}

// ---- Random grammars --------------------------------------------------------------------------

/// Takes the origins of all constituents out.
std::string WithoutOrigins(std::string Json) {
  const std::string Start = ",\"origins\":{";
  const std::string End = "}},\"children\"";
  for (std::size_t At = Json.find(Start); At != std::string::npos; At = Json.find(Start, At)) {
    Json.erase(At, Json.find(End, At) + 2 - At);
  }
  return Json;
}

/// S and T of all constituents of a text's derivations, as the tracer makes them.
std::size_t CompareStructures(TestEngine& Grammar, const std::string& Text) {
  Translate::Tracer Trace(Grammar.Set());
  const Translate::TextResult Result = Grammar.Engine.Translate(Text, SomeDerivations());
  Translate::StructureText Plain(Grammar.Set(), Grammar.Engine.Structures(),
                                 Grammar.Engine.Atoms());
  Translate::StructureText Traced(Grammar.Set(), Trace.Structures(), Trace.Atoms());
  std::size_t Compared = 0;
  for (std::size_t Current = 0; Current < Result.vTranslations.size(); ++Current) {
    const auto vNodes = Grammar.Engine.NodesOf(Result.vTranslations[Current].Tree, 0);
    const auto vPairs = StructuresOf(vNodes, [&](std::uint32_t Rule, const auto& vParts) {
      const Translate::StructurePair Made = Trace.Apply(Grammar.Set().At(Rule), vParts);
      EXPECT_TRUE(Trace.Clashes().empty());
      return Made;
    });
    std::string Expected;
    std::string Found;
    for (std::size_t Index = 0; Index < vNodes.size(); ++Index) {
      Plain.AppendJson(vNodes[Index].Structures.Source, Expected);
      Plain.AppendJson(vNodes[Index].Structures.Target, Expected);
      Traced.AppendJson(vPairs[Index].Source, Found);
      Traced.AppendJson(vPairs[Index].Target, Found);
    }
    EXPECT_EQ(Found, Expected) << Text;
    Compared += vNodes.size();
  }
  return Compared;
}

TEST(Origins, DoNotChangeStructures) {
  std::size_t Compared = 0;
  for (unsigned Seed = 0; Seed < 100 && !testing::Test::HasFailure(); ++Seed) {
    RandomGrammar Random(Seed);
    TestEngine Grammar(TextOf(Random.Rules()));
    for (int Round = 0; Round < 4; ++Round) {
      const std::string Text = Random.Text("abc");
      Compared += CompareStructures(Grammar, Text);
      EXPECT_EQ(WithoutOrigins(Json(Grammar, Text, true)), Json(Grammar, Text, false));
    }
  }
  EXPECT_GT(Compared, 2000U);
}

}  // namespace
