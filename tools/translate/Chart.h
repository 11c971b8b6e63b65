#pragma once

#include "Evaluator.h"
#include "Hashing.h"
#include "RuleSet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Translate {

using Grammar::HashOf;
using Grammar::IndexTable;
using Grammar::Mixed;
using Grammar::NoEntry;
using Grammar::Pair;
using Grammar::PairTable;

struct ChartLimits {
  std::uint32_t MaxChain = 8;
  std::uint64_t MaxConstituents = 1000000;
  /// Of partly matched rules; sixteen for each constituent are always allowed.
  std::uint64_t MaxItems = std::uint64_t{1} << 24U;
};

/// Whether a chart has all constituents of its text.
enum class ChartOutcome : std::uint8_t {
  Whole,
  TooManyConstituents,
  TooManyItems,  ///< rules whose parts have many structures come through them in too many ways
  TooLargeStructures,
};

/// What to say of a chart that is not whole.
std::string LimitError(ChartOutcome Outcome, const ChartLimits& Limits);

/// All constituents of a text, each once, with all ways to make it.
///
/// Spans are worked on from the right to the left, and from the shorter to the longer, so that what
/// a span needs is there when its turn comes. What begins at a token is an *item*: a node of the
/// trie of source sequences, the position that was reached, and what rules may look at in the parts
/// so far. An item goes on with a literal, or with a *group*: the constituents of a span that all
/// rules after that item take for the same. So every part of a sequence is looked for once,
/// whatever comes before it.
///
/// The *steps* that lead to an item, of which a long ambiguous text has as many as the cube of its
/// length, are not kept. Each place at which the part before can end gives one at most, and
/// `ForEachStep` finds them again.
///
/// @code
/// Chart Parsed(Rules);
/// Parsed.Parse("the red car", ChartLimits(), Equations);  // true
/// Parsed.Constituents().size();                           // 3
/// @endcode
class Chart {
 public:
  static constexpr std::uint32_t None = NoEntry;

  /// A constituent. Its derivations begin with one of its ways.
  struct Constituent {
    std::uint32_t Cell;
    std::uint32_t Types;
    StructureId Source;
    StructureId Target;
    std::uint32_t Chain;  ///< the unary rules of the chain that it ends
    std::uint32_t FirstWay;
    std::int64_t Score;  ///< of its best derivation
  };

  /// A rule that makes a constituent, from an item, or, if it is unary, from a constituent.
  struct Way {
    static constexpr std::uint32_t UnaryMark = 0x80000000U;

    std::uint32_t Rule;
    std::uint32_t From;
    std::uint32_t Next;
    std::int32_t Weight;  ///< of the rule

    bool IsUnary() const { return (From & UnaryMark) != 0; }
    /// The item, or the constituent below.
    std::uint32_t Part() const { return From & ~UnaryMark; }
  };

  struct Item {
    std::uint32_t Node;
    std::uint32_t End;
    Evaluator::KeysId Keys;
    std::uint32_t Previous;  ///< with the same start, node and keys, and the next smaller end
    std::uint32_t Before;    ///< see `ForEachStep`
    std::int64_t Score;      ///< of the best derivations of its parts together
  };

  /// Constituents of one span that are taken for the same.
  struct Group {
    StructurePair Key;
    std::uint32_t First = 0;  ///< in the list of members
    std::uint32_t Count = 0;
    std::int64_t Score = 0;  ///< of the best derivation of any of them
  };

  /// A span with constituents.
  struct Cell {
    std::uint32_t Start;
    std::uint32_t End;
    std::uint32_t FirstConstituent;
    std::uint32_t ConstituentCount;
    std::uint32_t FirstSlot;
    std::uint32_t SlotCount;
  };

  /// What has been done for a text.
  struct Counts {
    std::uint64_t Constituents = 0;
    std::uint64_t Ways = 0;  ///< of all constituents
    std::uint64_t Items = 0;
    std::uint64_t Steps = 0;  ///< of all items
  };

  explicit Chart(const RuleSet& RulesPassIn) : Rules(RulesPassIn) {}

  /// Finds all constituents of a text; what was there before is gone.
  /// @param Text has to outlive the chart
  /// @return false if there are more than the limits allow: then the chart is of no use
  bool Parse(std::string_view Text, const ChartLimits& LimitsPassIn, Evaluator& EquationsPassIn);

  /// What kept the last text's chart from having all of its constituents, if anything did.
  ChartOutcome Outcome() const { return HowFar; }

  /// Takes a variant for its rule, from the next text on; without a rule, all rules as they are.
  void Replace(const RuleSet::Variant& VariantPassIn) { Replaced = VariantPassIn; }

  /// A rule that was tried on parts of the text, and what it looked at in them.
  struct Trial {
    std::uint32_t Rule;
    std::uint32_t Evaluation;
    Evaluator::KeysId Keys;
  };

  /// Visits all trials of the last text, also where it had too many constituents; some more than
  /// once.
  /// @param Visit receives a `Trial`
  template <typename VisitT>
  void ForEachTrial(VisitT Visit) const;

  const RuleSet& Grammar() const { return Rules; }
  const std::vector<std::string_view>& Tokens() const { return vTokens; }

  const std::vector<Constituent>& Constituents() const { return vConstituents; }
  const std::vector<Way>& Ways() const { return vWays; }
  const std::vector<Item>& Items() const { return vItems; }
  const std::vector<Group>& Groups() const { return vGroups; }
  const std::vector<Cell>& Cells() const { return vCells; }
  const std::vector<std::uint32_t>& Members() const { return vMembers; }

  /// The cells that begin at a token, by their ends.
  SourceTrie::Range<Cell> CellsAt(std::size_t Start) const;
  /// The cell of a span; null if it has no constituent.
  const Cell* FindCell(std::size_t Start, std::size_t End) const;
  /// Visits the steps that lead to an item: what comes before, the last one first, and the group
  /// after it. Nothing comes before the first step of a sequence, and a literal has no group: both
  /// are `None` then.
  template <typename VisitT>
  void ForEachStep(std::uint32_t Which, VisitT Visit) const {
    const Item& Current = vItems[Which];
    const std::uint32_t Parent = Rules.Trie().Parent(Current.Node);
    const SourceSymbol Symbol = Rules.Trie().Symbol(Current.Node);
    if ((Symbol & SourceTrie::LiteralMark) != 0) {
      Visit(Current.Before, std::uint32_t{None});
    } else if (Parent == SourceTrie::Root) {
      Visit(std::uint32_t{None}, Current.Before);
    } else {
      const StructurePair Key = LastKeyOf(Current);
      for (std::uint32_t Before = Current.Before; Before != None;
           Before = vItems[Before].Previous) {
        const std::uint32_t After = FindGroup(vItems[Before].End, Current.End, Current.Node, Key);
        if (After != None) {
          Visit(Before, After);
        }
      }
    }
  }

  /// The items that begin at a token.
  struct ItemRange {
    std::uint32_t First;
    std::uint32_t Last;  ///< after the last one
  };
  ItemRange ItemsAt(std::size_t Start) const;

  /// The rules of a chain, ascending.
  SourceTrie::Range<std::uint32_t> ChainRules(std::uint32_t Which) const;

  Counts Count() const;
  /// How much memory the chart of the text takes.
  std::size_t Bytes() const;

 private:
  /// The constituents of a cell that fill a slot, and what groups they fall into, by what is looked
  /// at of them.
  struct SlotEntry {
    SourceSymbol Slot;
    std::uint32_t First;  ///< in the list of members
    std::uint32_t Count;
    std::uint32_t FirstGroup[4];  ///< `None` where nobody has requested them
    std::uint32_t GroupCount[4];  ///< they stand side by side, in the order of their keys
  };

  struct Chain {
    std::uint32_t First;  ///< in the list of the chains' rules
    std::uint32_t Size;
  };

  /// What is known of the items from one token to an end.
  struct Frontier {
    bool IsTouched;       ///< whether some item ends there, or will
    bool WantsLiteral;    ///< whether some item just before may go on with a literal
    std::uint32_t First;  ///< of those that can go on, in a list of their own
    std::uint32_t Count;
    std::uint32_t Cells;  ///< the cells over which items reach the end, a list
  };

  /// A list of cells.
  struct CellLink {
    std::uint32_t Cell;
    std::uint32_t Next;
  };

  void Clear();
  std::uint64_t MaxItems() const;
  void Tokenize(std::string_view Text);
  void ParseFrom(std::uint32_t Start);
  void Touch(std::uint32_t End);
  void ReachEnd(std::uint32_t Start, std::uint32_t End);
  void GoOn(std::uint32_t End);
  void FillCell(std::uint32_t Start, std::uint32_t End);
  void Complete(std::uint32_t Through);
  void AddUnary(std::uint32_t Below);
  void ApplyUnary(std::uint32_t Below, SourceSymbol Slot);
  void AddConstituent(Constituent New, const RuleSet::Ending& By, std::uint32_t From);
  std::uint32_t ChainWith(std::uint32_t Before, std::uint32_t Rule);
  bool Contains(std::uint32_t Which, std::uint32_t Rule) const;
  void FillSlots(Cell& CellReturn);
  void StartItems(const Cell& From);
  void ExtendOver(std::uint32_t Before, std::uint32_t Over);
  void Follow(std::uint32_t Before, std::uint32_t Node, std::uint32_t Over, std::uint32_t Entry);
  void FollowLiteral(std::uint32_t Before, std::uint32_t Node, std::uint32_t At);
  void AddItem(const Item& New);
  void NeedGroups(std::uint32_t Entry, std::uint8_t Needs);
  StructurePair KeyOf(std::uint32_t Which, std::uint8_t Needs) const;
  void MakeGroups(SlotEntry& EntryReturn, std::uint8_t Needs);
  std::int64_t BestScore(std::uint32_t First, std::uint32_t Count) const;
  std::uint32_t FindEntry(const Cell& In, SourceSymbol Slot) const;
  StructurePair LastKeyOf(const Item& Partial) const;
  std::uint32_t FindGroup(std::uint32_t Start, std::uint32_t End, std::uint32_t Node,
                          const StructurePair& Key) const;

  std::uint32_t EvaluationOf(const RuleSet::Ending& By) const {
    return By.Rule == Replaced.Rule ? Replaced.Evaluation : By.Evaluation;
  }
  template <typename VisitT>
  void ForEachUnaryTrial(const Constituent& Part, VisitT& Visit) const;
  Evaluator::KeysId UnaryKeys(const RuleSet::Ending& By, const Constituent& Part) const;

  const RuleSet& Rules;
  RuleSet::Variant Replaced;
  ChartLimits Limits;
  ChartOutcome HowFar = ChartOutcome::Whole;
  Evaluator* Equations = nullptr;
  std::vector<std::string_view> vTokens;
  std::vector<SourceSymbol> vLiterals;  // of the tokens
  std::string Scratch;

  std::vector<Constituent> vConstituents;
  std::vector<Way> vWays;
  std::vector<Item> vItems;
  std::uint64_t Steps = 0;
  std::vector<Group> vGroups;
  std::vector<Cell> vCells;
  std::vector<SlotEntry> vSlots;
  std::vector<std::uint32_t> vMembers;
  std::vector<std::uint32_t> vFirstCell;  // by start; those of the greatest start come first
  std::vector<std::uint32_t> vFirstItem;  // the same of items
  std::vector<Chain> vChains;
  std::vector<std::uint32_t> vChainRules;
  PairTable ChainSteps;                     // a chain and a rule …
  std::vector<std::uint32_t> vChainOfStep;  // … and the chain that they make
  IndexTable ChainIndex;

  // Of the token that is worked on, of the end, and of the cell.
  std::vector<Frontier> vFrontiers;  // by end
  std::vector<CellLink> vLinks;
  std::vector<std::uint32_t> vGoingOn;  // the items that can go on
  std::vector<std::uint32_t> vEnds;     // a heap of the ends that are touched, the least on top
  std::vector<std::uint32_t> vTouched;
  std::uint32_t FirstItem = 0;  // of the end
  IndexTable ItemIndex;         // of each node with keys, the item with the greatest end so far
  std::uint32_t CellStart = 0;  // the first constituent of the cell
  IndexTable ConstituentIndex;
  std::vector<std::uint64_t> vBySlot;
  std::vector<std::uint32_t> vSorted;
};

template <typename VisitT>
void Chart::ForEachUnaryTrial(const Constituent& Part, VisitT& Visit) const {
  if (vChains[Part.Chain].Size >= Limits.MaxChain) {
    return;
  }
  for (const SourceSymbol Slot :
       {Rules.SlotOfAnyTarget(Part.Types), Rules.SlotOfBoth(Part.Types)}) {
    if (Slot == RuleSet::None) {
      continue;
    }
    for (const RuleSet::Ending& By : Rules.UnaryRules(Slot)) {
      if (!Contains(Part.Chain, By.Rule)) {
        Visit(Trial{By.Rule, By.Evaluation, UnaryKeys(By, Part)});
      }
    }
  }
}

template <typename VisitT>
void Chart::ForEachTrial(VisitT Visit) const {
  for (const Item& Current : vItems) {
    for (const RuleSet::Ending& By : Rules.EndingsAt(Current.Node)) {
      Visit(Trial{By.Rule, By.Evaluation, Current.Keys});
    }
  }
  for (const Constituent& Part : vConstituents) {
    ForEachUnaryTrial(Part, Visit);
  }
}

}  // namespace Translate
