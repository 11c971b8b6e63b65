// The parts of the engine, each by itself. Sections: sets of atoms, structures, derivations, trie,
// texts in order, size.

#include "AtomSets.h"
#include "Derivations.h"
#include "OrderedTexts.h"
#include "SourceTrie.h"
#include "TranslateSupport.h"
#include "Unifier.h"

#include <gtest/gtest.h>

#include <atomic>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using Translate::AtomSets;
using Translate::Derivations;
using Translate::StructureId;
using Translate::StructureStore;
using Translate::Unifier;

// ---- Sets of atoms ----------------------------------------------------------------------------

TEST(AtomSets, KeepsEachSetOnceWhateverItsOrder) {
  AtomSets Sets;
  EXPECT_EQ(Sets.Intern({false, {3, 1, 3}}), Sets.Intern({false, {1, 3}}));
  EXPECT_NE(Sets.Intern({false, {1, 3}}), Sets.Intern({true, {1, 3}}));
  EXPECT_EQ(Sets.Size(), 2U);
}

// ---- Structures -------------------------------------------------------------------------------

/// A store, and nodes in it.
struct Workbench {
  StructureStore Store;
  AtomSets Sets;
  Unifier Nodes{Store, Sets};

  Unifier::NodeId Make(Unifier::NodeId From, const std::vector<std::uint32_t>& vPath) {
    return Nodes.Make(From, vPath.data(), vPath.size());
  }
};

TEST(Unifier, GivesEqualStructuresOneNumberHoweverTheyWereMade) {
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

TEST(Unifier, KeepsWhatHangsOnAKnotByOneFeatureApart) {
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

// ---- Derivations ------------------------------------------------------------------------------

TEST(Derivations, GivesEqualTreesOneNumber) {
  Derivations Trees;
  const auto Leaf = Trees.Tree(4, Derivations::NoList, -5);
  const auto Both = Trees.List(Trees.List(Derivations::NoList, Leaf), Leaf);
  const auto Root = Trees.Tree(1, Both, -2);
  EXPECT_EQ(Trees.ScoreOfTree(Root), -12);
  EXPECT_EQ(Trees.Tree(1, Trees.List(Trees.List(Derivations::NoList, Leaf), Leaf), -2), Root);
  std::vector<Derivations::TreeId> vParts;
  Trees.PartsOf(Root, vParts);
  EXPECT_EQ(vParts, (std::vector<Derivations::TreeId>{Leaf, Leaf}));
}

TEST(Derivations, ComparesTheFirstRuleThatDiffers) {
  Derivations Trees;
  const auto Three = Trees.Tree(3, Derivations::NoList, 0);
  const auto Four = Trees.Tree(4, Derivations::NoList, 0);
  const auto With = [&](Derivations::TreeId First, Derivations::TreeId Second) {
    return Trees.Tree(1, Trees.List(Trees.List(Derivations::NoList, First), Second), 0);
  };
  EXPECT_LT(Trees.CompareTrees(With(Three, Four), With(Four, Three)), 0);
  EXPECT_GT(Trees.CompareTrees(With(Four, Four), With(Four, Three)), 0);
  EXPECT_EQ(Trees.CompareTrees(With(Four, Four), With(Four, Four)), 0);
  EXPECT_LT(Trees.CompareTrees(With(Four, Four), Three), 0);
}

// ---- Trie -------------------------------------------------------------------------------------

TEST(SourceTrie, SharesBeginningsAndUnitesNeeds) {
  Translate::SourceTrie Trie;
  Trie.Add({7, 9}, {0, 1}, 0);
  Trie.Add({7}, {2}, 1);
  Trie.Add({7, 9}, {0, 2}, 2);
  Trie.Add({5 | Translate::SourceTrie::LiteralMark}, {0}, 3);
  Trie.Finish();
  const auto First = Trie.Child(Translate::SourceTrie::Root, 7);
  const auto Second = Trie.Child(First, 9);
  EXPECT_EQ(Trie.Child(First, 8), Translate::NoEntry);
  EXPECT_EQ(Trie.Needs(First), 2);
  EXPECT_EQ(Trie.Needs(Second), 3);
  EXPECT_EQ(std::vector<std::uint32_t>(Trie.Rules(Second).begin(), Trie.Rules(Second).end()),
            (std::vector<std::uint32_t>{0, 2}));
  EXPECT_TRUE(Trie.HasLiterals(Translate::SourceTrie::Root));
  EXPECT_FALSE(Trie.HasLiterals(First));
  EXPECT_TRUE(Trie.HasEdges(First));
  EXPECT_EQ(Trie.Slots(Translate::SourceTrie::Root).size(), 1U);
}

// ---- Texts in order ---------------------------------------------------------------------------

TEST(OrderedTexts, HandsResultsOnInOrder) {
  std::size_t Given = 0;
  std::string Out;
  std::string Expected;
  Translate::OrderedTexts Texts(
      4,
      [&](std::string& Text) {
        Text = std::to_string(Given);
        return Given++ < 1000;
      },
      [&](const Translate::TextOutput& Result, bool) { Out += Result.Out; });
  Texts.Run([] {
    return [](const std::string& Text, std::size_t Line) {
      return Translate::TextOutput{Text + '/' + std::to_string(Line) + ' ', ""};
    };
  });
  for (int Number = 0; Number < 1000; ++Number) {
    Expected += std::to_string(Number) + '/' + std::to_string(Number + 1) + ' ';
  }
  EXPECT_EQ(Out, Expected);
}

TEST(OrderedTexts, ThrowsOnWhatAWorkerThrows) {
  Translate::OrderedTexts Texts(
      3, [](std::string&) { return true; }, [](const Translate::TextOutput&, bool) {});
  EXPECT_THROW(Texts.Run([] {
    return [](const std::string&, std::size_t Line) -> Translate::TextOutput {
      if (Line == 100) {
        throw std::runtime_error("enough");
      }
      return {};
    };
  }),
               std::runtime_error);
}

// ---- Size -------------------------------------------------------------------------------------

std::string Repeated(const std::string& Word, int Count) {
  std::string Text;
  for (int Index = 0; Index < Count; ++Index) {
    Text += Word + ' ';
  }
  return Text;
}

TEST(Engine, FindsTheBestOfVeryManyDerivationsThatScoreTheSame) {
  TestEngine Engine(
      "S::S : [S S] -> [S S]\n(X1::Y1)\n(X2::Y2)\nS::S : [\"a\"] -> [\"x\"]\n(X1::Y1)\n");
  Translate::TextOptions Options;
  Options.Translations = 3;
  Options.AllDerivations = true;
  const auto Result = Engine.Engine.Translate(Repeated("a", 100), Options);
  ASSERT_EQ(Result.vTranslations.size(), 3U);
  // All branches go to the left: the first rule comes first wherever it can.
  const auto vNodes = Engine.Engine.NodesOf(Result.vTranslations[0].Tree, 0);
  for (std::size_t Index = 0; Index < 99; ++Index) {
    EXPECT_EQ(vNodes[Index].End, 100 - Index);
  }
  // A constituent, with its share of all there is, takes some hundred bytes for each way.
  EXPECT_LT(Engine.Engine.ParsedChart().Bytes(), std::size_t{20} << 20);
}

TEST(Engine, TakesLongTextsAndDeepTrees) {
  const std::string Lexicon = "A::A : [\"a\"] -> [\"x\"]\n(X1::Y1)\n";
  TestEngine Words(Lexicon);
  EXPECT_EQ(Words.Plain(Repeated("a", 100000)), "\n");
  TestEngine Right(Lexicon +
                   "S::S : [A \"b\" S] -> [S A]\n(X1::Y2)\n(X3::Y1)\n((x0 f) = x3)\n"
                   "S::S : [\"b\"] -> [\"y\"]\n(X1::Y1)\n((x0 f) = p)\n");
  const std::string Text = Repeated("a b", 1000) + 'b';
  EXPECT_EQ(Right.Plain(Text), "y " + Repeated("x", 999) + "x\n");
  EXPECT_GT(Right.Json(Text).size(), 1000U * 1000U);
}

TEST(Engine, TakesLongChains) {
  std::string Grammar = "T0::T : [\"a\"] -> [\"x\"]\n(X1::Y1)\n";
  for (int Level = 0; Level < 800; ++Level) {
    Grammar += 'T' + std::to_string(Level + 1) + "::T : [T" + std::to_string(Level) +
               "] -> [T]\n(X1::Y1)\n";
  }
  TestEngine Engine(Grammar);
  Translate::TextOptions Options = TestEngine::AllDerivations();
  Options.Limits.MaxChain = 5000;
  EXPECT_EQ(Engine.Engine.Translate("a", Options).vTranslations.size(), 801U);
}

TEST(Engine, CopiesStructuresWithoutWritingThemOut) {
  // Each level holds what is below it twice: written out, the structure would not fit anywhere.
  TestEngine Engine(
      "S::S : [S \"b\"] -> [S S]\n(X1::Y1)\n(X1::Y2)\n((y0 l) = y1)\n((y0 r) = y2)\n"
      "S::S : [\"a\"] -> [\"\"]\n(X1::Y1)\n((y0 f) = p)\n");
  EXPECT_EQ(Engine.Engine.Translate("a " + Repeated("b", 20), {}).vTranslations.size(), 1U);
  EXPECT_LT(Engine.Engine.Structures().Size(), 50U);
}

}  // namespace
