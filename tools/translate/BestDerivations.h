#pragma once

#include "Chart.h"
#include "Derivations.h"
#include "TargetTexts.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <unordered_set>
#include <vector>

namespace Translate {

/// The derivations of some constituents of a chart in order: the higher score first; among equal
/// scores, the one whose rule numbers come first, listed root first and parts in order.
///
/// Only as many are worked out as are requested: of a constituent, an item or a group the second
/// best only when its best has been used. Nothing recurses, however deep a derivation is.
///
/// @code
/// BestDerivations Best(Parsed);
/// Best.Begin();
/// Best.SetGoals({Whole});
/// Best.Next().has_value();  // true
/// Best.Next().has_value();  // false
/// @endcode
class BestDerivations {
 public:
  explicit BestDerivations(const Chart& ParsedPassIn)
      : Parsed(ParsedPassIn), Texts(ParsedPassIn.Grammar(), Store) {}

  /// To be called for each text, after it has been parsed.
  void Begin();

  /// Sets the constituents whose derivations `Next` gives, from the first on.
  void SetGoals(const std::vector<std::uint32_t>& vConstituents);

  /// The same for derivations that begin with one of these ways of constituents.
  void SetGoalWays(std::vector<std::uint32_t> vWays);

  /// Has `Next` pass over derivations whose words others gave before, from the next goals on. Those
  /// are not worked out, so that it takes no longer for their number.
  void WantDistinct(bool IsDistinctPassIn);

  /// The next derivation of the goals; nothing after the last.
  std::optional<Derivations::TreeId> Next();

  /// How many derivations the goals have; nothing if that does not fit 64 bits.
  std::optional<std::uint64_t> CountGoals();

  const Derivations& Trees() const { return Store; }

 private:
  /// Constituents, items, groups and the goals are numbered through.
  using NodeId = std::uint32_t;

  /// An alternative of a node, and the one or two nodes that it is made of; `NoEntry` for none.
  struct Parts {
    std::uint32_t Alternative;  ///< a way of a constituent; a member; of an item, what comes before
    NodeId First;
    NodeId Last;
  };

  /// Something that a node may begin with: the how manieth best of an alternative's parts.
  struct Candidate {
    std::int64_t Score;
    Parts Made;
    std::uint32_t Rank;
    std::uint32_t LastRank;
    std::uint32_t First;  ///< a tree of a group's, a list of an item's or a constituent's
    std::uint32_t Last;   ///< a tree after a list of an item's
  };

  /// What is known of a node beyond its best.
  struct Frontier {
    std::vector<std::uint32_t> vBest;          ///< trees or lists, in order
    std::vector<Candidate> vHeap;              ///< the best on top
    std::vector<Candidate> vPending;           ///< whose parts have to be worked out first
    std::unordered_set<std::uint32_t> sTexts;  ///< of those, where each is wanted once
    bool IsExhausted = false;
  };

  /// The goals are a constituent that may be made in all of their ways.
  enum class Kind : std::uint8_t { Constituent, Item, Group };

  Kind KindOf(NodeId Node) const;
  NodeId NodeOfItem(std::uint32_t Item) const;
  NodeId NodeOfGroup(std::uint32_t Group) const;
  NodeId GoalsNode() const;

  template <typename VisitT>
  void ForEachAlternative(NodeId Node, VisitT Visit) const;
  NodeId PartOfWay(std::uint32_t Way) const;
  bool IsBetter(Kind What, const Candidate& Left, const Candidate& Right) const;
  int Compare(Kind What, const Candidate& Left, const Candidate& Right) const;
  Candidate MakeCandidate(Kind What, const Parts& Made, std::uint32_t Rank, std::uint32_t LastRank);
  std::uint32_t Keep(NodeId Node, const Candidate& Which);

  template <typename VisitT>
  void ForEachBestAlternative(NodeId Node, VisitT Visit) const;
  std::int64_t ScoreOf(NodeId Node) const;
  std::int64_t ScoreOfGoals() const;
  void PushUnknownParts(NodeId Node, bool OnlyBest);
  void Compute(NodeId Root, bool OnlyBest);
  void ChooseBest(NodeId Node);

  std::uint32_t Ranked(NodeId Node, std::uint32_t Rank) const;
  bool Has(NodeId Node, std::uint32_t Rank) const;
  Frontier& Open(NodeId Node);
  void PushCandidate(NodeId Node, const Candidate& New, Frontier& FrontierReturn) const;
  void TakeBest(NodeId Node, Frontier& FrontierReturn);
  bool IsWanted(NodeId Node, std::uint32_t Which, Frontier& FrontierReturn);
  void FindRanked(NodeId Root, std::uint32_t Rank);
  void Advance(NodeId Node);
  enum class PartState : std::uint8_t { Known, Awaited, Missing };
  PartState Require(NodeId Node, std::uint32_t Rank);
  bool Settle(NodeId Node, Frontier& FrontierReturn);

  void CountNode(NodeId Node);
  bool IsKnown(NodeId Node, bool OnlyBest) const {
    return OnlyBest ? vBest[Node] != NoEntry : vCounts[Node] != 0;
  }

  struct Wanted {
    NodeId Node;
    std::uint32_t Rank;
  };

  const Chart& Parsed;
  Derivations Store;
  TargetTexts Texts;
  bool IsDistinct = false;
  std::vector<std::uint32_t> vBest;       // of each node; `NoEntry` where it is not known yet
  std::vector<std::uint32_t> vFrontiers;  // of each node that has one
  std::deque<Frontier> Opened;
  std::vector<std::uint32_t> vGoals;  // ways
  std::vector<NodeId> vStack;
  std::vector<Wanted> vWanted;
  std::vector<std::uint64_t> vCounts;  // of derivations; 0 if it is not known yet
  std::vector<bool> vIsTooMany;        // where the count does not fit
  std::uint32_t NextRank = 0;
};

}  // namespace Translate
