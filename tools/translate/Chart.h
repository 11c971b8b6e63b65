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

struct ChartLimits {
  std::uint32_t MaxChain = 8;
  std::uint64_t MaxConstituents = 1000000;
};

/// All constituents of a text, each once, with all ways to make it.
///
/// Spans are worked on from the right to the left, and from the shorter to the longer, so that what
/// a span needs is there when its turn comes. What begins at a token is an *item*: a node of the
/// trie of source sequences, the position that was reached, and what rules may look at in the parts
/// so far. An item goes on with a literal, or with a *group*: the constituents of a span that all
/// rules behind that item take for the same. So every part of a sequence is looked for once,
/// whatever comes before it.
///
///   Chart Parsed(Rules);
///   Parsed.Parse("the red car", Limits, Equations);   // false where there are too many
///   for (const auto Each : Parsed.Constituents(0, 3)) { Parsed.At(Each).Source; }
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
    std::uint32_t FirstStep;
    std::int64_t Score;  ///< of the best derivations of its parts together
  };

  /// An item is another one, `None` at its beginning, and a group behind it, `None` for a literal.
  struct Step {
    std::uint32_t Before;
    std::uint32_t Group;
    std::uint32_t Next;
  };

  /// Constituents of one span that are taken for the same.
  struct Group {
    StructurePair Key;
    std::uint32_t First;  ///< in the list of members
    std::uint32_t Count;
    std::uint32_t Next;
    std::int64_t Score;  ///< of the best derivation of any of them
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
  /// @return false where there are more than the limit allows: then the chart is of no use
  bool Parse(std::string_view Text, const ChartLimits& LimitsPassIn, Evaluator& EquationsPassIn);

  const RuleSet& Grammar() const { return Rules; }
  const std::vector<std::string_view>& Tokens() const { return vTokens; }

  const std::vector<Constituent>& Constituents() const { return vConstituents; }
  const std::vector<Way>& Ways() const { return vWays; }
  const std::vector<Item>& Items() const { return vItems; }
  const std::vector<Step>& Steps() const { return vSteps; }
  const std::vector<Group>& Groups() const { return vGroups; }
  const std::vector<Cell>& Cells() const { return vCells; }
  const std::vector<std::uint32_t>& Members() const { return vMembers; }

  /// The cells that begin at a token, by their ends.
  SourceTrie::Range<Cell> CellsAt(std::size_t Start) const;
  /// The cell of a span; null where it has no constituent.
  const Cell* FindCell(std::size_t Start, std::size_t End) const;
  /// The rules of a chain, ascending.
  SourceTrie::Range<std::uint32_t> ChainRules(std::uint32_t Chain) const;

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
    std::uint32_t FirstGroup[4];
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
  void Tokenize(std::string_view Text);
  bool ParseFrom(std::uint32_t Start);
  void Touch(std::uint32_t End);
  void ReachEnd(std::uint32_t Start, std::uint32_t End);
  void GoOn(std::uint32_t End);
  bool FillCell(std::uint32_t Start, std::uint32_t End);
  bool Complete(std::uint32_t Through);
  bool AddUnary(std::uint32_t Below);
  bool ApplyUnary(std::uint32_t Below, SourceSymbol Slot);
  bool AddConstituent(Constituent New, const RuleSet::Ending& By, std::uint32_t From);
  std::uint32_t ChainWith(std::uint32_t Before, std::uint32_t Rule);
  bool Contains(std::uint32_t Which, std::uint32_t Rule) const;
  void FillSlots(Cell& CellReturn);
  void StartItems(const Cell& From);
  void ExtendOver(std::uint32_t Before, std::uint32_t Over);
  void Follow(std::uint32_t Before, std::uint32_t Node, std::uint32_t Over, std::uint32_t Entry);
  void FollowLiteral(std::uint32_t Before, std::uint32_t Node, std::uint32_t At);
  void AddItem(std::uint32_t Node, std::uint32_t End, Evaluator::KeysId Keys, Step Last);
  std::uint32_t GroupsOf(std::uint32_t Entry, std::uint8_t Needs);
  StructurePair KeyOf(std::uint32_t Which, std::uint8_t Needs) const;
  void MakeGroups(SlotEntry& EntryReturn, std::uint8_t Needs);
  std::int64_t BestScore(std::uint32_t First, std::uint32_t Count) const;
  std::uint32_t FindEntry(const Cell& In, SourceSymbol Slot) const;

  const RuleSet& Rules;
  ChartLimits Limits;
  Evaluator* Equations = nullptr;
  std::vector<std::string_view> vTokens;
  std::vector<SourceSymbol> vLiterals;  // of the tokens
  std::string Scratch;

  std::vector<Constituent> vConstituents;
  std::vector<Way> vWays;
  std::vector<Item> vItems;
  std::vector<Step> vSteps;
  std::vector<Group> vGroups;
  std::vector<Cell> vCells;
  std::vector<SlotEntry> vSlots;
  std::vector<std::uint32_t> vMembers;
  std::vector<std::uint32_t> vFirstCell;  // by start; those of the greatest start come first
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
  IndexTable ItemIndex;
  std::uint32_t CellStart = 0;  // the first constituent of the cell
  IndexTable ConstituentIndex;
  std::vector<std::uint64_t> vBySlot;
  std::vector<std::uint32_t> vSorted;
};

}  // namespace Translate
