#pragma once

#include "Chart.h"
#include "ChartUses.h"
#include "DerivationTree.h"
#include "FirstDerivations.h"
#include "RuleSet.h"
#include "TargetWords.h"
#include "Tracer.h"
#include "Translator.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// What a rule does with a text, and why it does no more: plain values, which writers put into
/// words.

namespace Translate {

/// A constituent that begins somewhere.
struct Beginning {
  std::uint32_t Types = 0;  ///< a pair of types of the rule set
  std::size_t End = 0;

  friend bool operator==(const Beginning& Left, const Beginning& Right) {
    return Left.Types == Right.Types && Left.End == Right.End;
  }
};

/// A position at which something was wanted, and what begins there. At the end of the text nothing
/// does.
struct StopPlace {
  std::size_t Position = 0;
  std::vector<Beginning> vThere;  ///< the shorter first, then by the names of the types; each once
};

/// No way leads through the components of a rule.
struct Stop {
  std::size_t Component = 0;       ///< the furthest that was reached and not met, from 1
  SourceSymbol Wanted = 0;         ///< a literal, or a slot
  std::vector<StopPlace> vPlaces;  ///< ascending
};

/// What stands for one source place of a rule.
struct PartFacts {
  std::size_t Component = 0;  ///< from 1
  std::size_t Start = 0;
  std::size_t End = 0;
  std::vector<TreeNode> vNodes;  ///< its derivation, with structures of the diagnosis's tracer
};

/// A way through the components of a rule, and a constituent for each place.
struct Combination {
  std::size_t End = 0;
  std::vector<PartFacts> vParts;
};

/// Equations clash. Their values are structures of the diagnosis's tracer.
struct ClashFacts {
  Combination Way;
  std::vector<EquationClash> vEquations;
};

/// What keeps a constituent from being part of a derivation.
enum class TakerState : std::uint8_t {
  WantsBefore,  ///< what comes before it in the rule does not end where it begins
  WantsAfter,   ///< what comes after it, directly or later, does not begin there
  Clashes,      ///< the rule gets through, and its equations clash
  InChain       ///< the rule is used in the chain already, or the chain is at its longest
};

/// A rule that has a place for a constituent, and makes nothing of it.
struct Taker {
  std::uint32_t Rule = 0;
  std::size_t Component = 0;  ///< the place that it would take, from 1
  TakerState State = TakerState::WantsAfter;
  std::size_t WantedComponent = 0;  ///< that is missing, from 1
  SourceSymbol Wanted = 0;
  std::vector<std::size_t> vPositions;  ///< where it would have to end, or to begin; ascending
};

/// Things in order: the first of them, and how many more there are.
template <typename ElementT>
struct Listed {
  std::vector<ElementT> vFirst;
  std::optional<std::uint64_t> More = 0;  ///< nothing if that does not fit

  bool IsEmpty() const { return vFirst.empty(); }
};

/// What is missing above a constituent that is in no derivation of the text.
struct MissingAbove {
  std::size_t Start = 0;  ///< of the longest constituent that is made from it, or of itself
  std::size_t End = 0;
  std::uint32_t Types = 0;
  bool IsWhole = false;  ///< it spans the text: its type is not a start type
  Listed<Taker> Takers;  ///< otherwise: who has a place for it; maybe nobody
};

enum class Use : std::uint8_t { Best, Other, None };

/// A constituent was made.
struct MadeFacts {
  Combination Way;
  StructurePair Structures;          ///< of the diagnosis's tracer
  std::optional<std::string> Words;  ///< nothing where they are too long to be written
  Use In = Use::None;
  std::optional<MissingAbove> Missing;  ///< of one that is in no derivation
};

/// What a rule does from one token on. A cause is named wherever it makes nothing.
struct BeginFacts {
  std::size_t Begin = 0;
  std::optional<Stop> Stopped;
  Listed<ClashFacts> Clashes;
  Listed<MadeFacts> Made;
  Listed<Combination> Used;     ///< not made: the rule is used in the chain already
  Listed<Combination> Longest;  ///< not made: the chain is at its longest
};

/// Says what rules do with the text that an engine has translated last, and why they do no more.
///
/// @code
/// const TextResult Result = Engine.Translate("the red bus", TextOptions());
/// RuleDiagnosis Why(Rules, Engine, Result, TextOptions());
/// Why.Size();  // 3
/// @endcode
class RuleDiagnosis {
 public:
  /// How many combinations are given of each kind.
  static constexpr std::size_t MaxListed = 10;

  /// @param Result without an error
  /// @param MaxListedPassIn how many combinations of each kind are given
  RuleDiagnosis(const RuleSet& RulesPassIn, Translator& EnginePassIn, const TextResult& Result,
                const TextOptions& OptionsPassIn, std::size_t MaxListedPassIn = MaxListed);

  const std::vector<std::string_view>& Tokens() const { return Parsed.Tokens(); }
  /// How many tokens the text has.
  std::size_t Size() const { return Parsed.Tokens().size(); }
  std::string_view Token(std::size_t Position) const { return Parsed.Tokens()[Position]; }

  /// What the rule of an index does from a token on.
  BeginFacts FactsAt(std::uint32_t Rule, std::size_t Begin);

  /// What knows the values of clashes and constituents, and where they come from.
  const Tracer& Trace() const { return Equations; }
  const RuleSet& Grammar() const { return Rules; }

 private:
  /// What has come through all components, or the only one: items, or for a unary rule the
  /// constituents below.
  struct Through {
    std::vector<std::uint32_t> vMade;
    std::vector<std::uint32_t> vClashing;
    std::vector<std::uint32_t> vUsed;
    std::vector<std::uint32_t> vLongest;
  };

  /// The derivations of the places, and the item or the constituent that they are one way to make.
  struct Ranked {
    std::uint32_t Trees;  ///< a list, or for a unary rule a tree
    std::uint32_t Part;
  };

  enum class ChainState : std::uint8_t { Free, Used, Longest };

  void SetRule(std::uint32_t Rule);
  std::uint32_t MadeFrom(std::uint32_t Part) const;
  bool HasPlaceFor(SourceSymbol Symbol, std::uint32_t Types) const;
  ChainState ChainStateOf(std::uint32_t Below, std::uint32_t Rule) const;
  Through FindThroughUnary(std::size_t Begin) const;
  Through FindThroughItems(std::size_t Begin) const;
  StopPlace PlaceAt(std::size_t Position) const;
  Stop FindStop(std::size_t Begin) const;
  Listed<Ranked> FirstOf(const std::vector<std::uint32_t>& vParts);
  std::vector<Derivations::TreeId> TreesOf(const Ranked& Which) const;
  Combination MakeCombination(const std::vector<Derivations::TreeId>& vTrees, std::size_t Begin);
  std::optional<std::string> WordsOfRule(const std::vector<Derivations::TreeId>& vTrees);
  template <typename FactsT, typename MakeT>
  Listed<FactsT> List(const std::vector<std::uint32_t>& vParts, std::size_t Begin, MakeT Make);
  bool IsInBest(const Combination& Way, std::size_t Begin) const;
  Use FindUse(const Combination& Way, std::size_t Begin, std::uint32_t Constituent);
  std::vector<std::uint32_t> ItemsOver(std::uint32_t Constituent, std::uint32_t Node) const;
  std::vector<std::uint32_t> ItemsAfter(const std::vector<std::uint32_t>& vItems,
                                        std::uint32_t Node) const;
  Taker FindTaker(std::uint32_t Rule, std::size_t Component, std::uint32_t Constituent) const;
  MissingAbove FindMissing(std::uint32_t Constituent);

  const RuleSet& Rules;
  Translator& Engine;
  const Chart& Parsed;
  TextOptions Options;
  std::size_t Limit;
  Tracer Equations;
  FirstDerivations InOrder;
  TargetWords TargetText;
  std::optional<ChartUses> Uses;
  std::vector<TreeNode> vBestNodes;

  // Of the rule that is asked about.
  bool HasAsked = false;
  std::uint32_t Asked = 0;
  std::vector<std::uint32_t> vPrefixNodes;  // of the trie, after each component; none if unary
  std::vector<std::pair<std::uint32_t, std::uint32_t>> vMade;  // from what, and what; ascending
  std::vector<StructurePair> vPartStructures;                  // of the last combination
};

}  // namespace Translate
