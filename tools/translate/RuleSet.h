#pragma once

#include "AtomSets.h"
#include "Hashing.h"
#include "Program.h"
#include "SourceTrie.h"
#include "SymbolTable.h"
#include "UsableRule.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace Translate {

using Grammar::NoEntry;
using Grammar::PairTable;

struct RuleSetOptions {
  bool IsReversed = false;  ///< source and target change places
  bool MatchCase = false;   ///< literals match tokens with the same bytes only
};

/// A component of the target side: a literal word, or the how manieth source place is written.
struct TargetItem {
  bool IsLiteral = false;
  std::uint32_t Value = 0;  ///< of the words, or of the source places, from 0
};

/// How the equations of a rule get at its parts: a program, and where in a list of keys each of the
/// structures stands that the program begins with. A list of keys has a structure pair for each
/// place of which some rule with the same beginning reads something.
struct Evaluation {
  std::uint32_t Program = 0;
  std::uint32_t Keys = 0;                ///< how long the list is
  std::vector<std::uint32_t> vSourceAt;  ///< for each source part of the program
  std::vector<std::uint32_t> vTargetAt;  ///< and each target part
};

/// A grammar that is ready for use: all numbers, and never changed again, so that any number of
/// threads can read it.
///
/// @code
/// Grammar::UsableRule Rule;
/// ReadUsableRule(Text, false, Lines, Rule, vFindings);  // true
/// RuleSet Set(RuleSetOptions{});
/// Set.Add(Rule, 1);
/// Set.Finish();
/// const RuleSet::Rule& First = Set.At(0);
/// Set.HeaderOf(First);                                // "NP,8"
/// Set.WordName(Set.TargetsOf(First).begin()->Value);  // "el"
/// @endcode
class RuleSet {
 public:
  static constexpr std::uint32_t None = NoEntry;

  /// One rule. What it has several of stands in stretches of common lists.
  struct Rule {
    std::uint32_t Number;  ///< from 1, of all rules of the input
    std::uint32_t Count;
    std::uint32_t File;
    std::uint32_t Line;
    std::uint32_t Header;  ///< of the headers; `None` if it has none that can be read
    std::uint32_t SourceType;
    std::uint32_t TargetType;
    std::uint32_t Types;  ///< the pair of both
    std::uint32_t FirstSymbol;
    std::uint32_t FirstTarget;
    std::uint32_t FirstLine;   ///< of the lines of its program's steps
    std::uint32_t Evaluation;  ///< `None` where it has no equations
    std::uint32_t SymbolCount;
    std::uint32_t TargetCount;
    std::int32_t Weight;  ///< a million times the logarithm of its share
  };

  /// What is needed of a rule to apply it. Those of one node of the trie stand side by side.
  struct Ending {
    std::uint32_t Rule;
    std::uint32_t Types;
    std::uint32_t Evaluation;
    std::int32_t Weight;
  };

  /// A rule with other equations than its own.
  struct Variant {
    std::uint32_t Rule = None;
    std::uint32_t Evaluation = None;  ///< `None` where no equations are left
  };

  explicit RuleSet(const RuleSetOptions& OptionsPassIn) : Options(OptionsPassIn) {}

  RuleSet(const RuleSet&) = delete;
  RuleSet& operator=(const RuleSet&) = delete;

  /// Adds a rule that can be used. Rules have to come in the order of their numbers.
  void Add(const UsableRule& Source, std::uint32_t Number);

  /// Adds the rule that was added last once more, with some of its equations left out. It is a rule
  /// of its own only where a chart is told to take it for the whole one.
  /// @return its number among the variants, which count from 0
  std::uint32_t AddVariant(const UsableRule& Source);

  /// To be called after the last rule.
  void Finish();

  const RuleSetOptions& Settings() const { return Options; }

  std::size_t Size() const { return vRules.size(); }
  const Rule& At(std::uint32_t Index) const { return vRules[Index]; }
  const std::string& FileOf(const Rule& Current) const { return Files.Name(Current.File); }
  const std::string& FileName(std::uint32_t File) const { return Files.Name(File); }
  const std::string& HeaderOf(const Rule& Current) const { return Headers.Name(Current.Header); }
  SourceTrie::Range<SourceSymbol> SymbolsOf(const Rule& Current) const {
    const SourceSymbol* First = vSymbols.data() + Current.FirstSymbol;
    return {First, First + Current.SymbolCount};
  }
  SourceTrie::Range<TargetItem> TargetsOf(const Rule& Current) const {
    const TargetItem* First = vTargets.data() + Current.FirstTarget;
    return {First, First + Current.TargetCount};
  }
  /// The line of a step of the rule's program.
  std::uint32_t LineOfStep(const Rule& Current, std::size_t Step) const {
    return vStepLines[Current.FirstLine + Step];
  }

  const std::string& LabelName(std::uint32_t Label) const { return Labels.Name(Label); }
  const std::string& WordName(std::uint32_t Word) const { return Words.Name(Word); }
  const std::string& FeatureName(std::uint32_t Feature) const { return Features.Name(Feature); }
  const std::string& AtomName(std::uint32_t Atom) const { return AtomNames.Name(Atom); }
  /// The label of a type; `None` where no usable rule has it as its source type.
  std::uint32_t FindSourceType(std::string_view Type) const;

  /// The symbol of the literals that match a token; `None` if there are none.
  SourceSymbol FindLiteral(std::string_view Token, std::string& ScratchReturn) const;
  const std::string& LiteralName(SourceSymbol Symbol) const {
    return Literals.Name(Symbol & ~SourceTrie::LiteralMark);
  }

  /// What a slot wants.
  std::uint32_t SlotLabel(SourceSymbol Slot) const { return Slots.First(Slot); }
  std::uint32_t SlotWanted(SourceSymbol Slot) const { return Slots.Second(Slot); }
  /// The slots that a constituent with a pair of types fills; `None` where there is no such one.
  SourceSymbol SlotOfAnyTarget(std::uint32_t Types) const { return vAnySlots[Types]; }
  SourceSymbol SlotOfBoth(std::uint32_t Types) const { return vBothSlots[Types]; }
  std::uint32_t SourceTypeOf(std::uint32_t Types) const { return TypePairs.First(Types); }
  std::uint32_t TargetTypeOf(std::uint32_t Types) const { return TypePairs.Second(Types); }
  std::size_t SlotCount() const { return Slots.Size(); }
  std::size_t TypesCount() const { return TypePairs.Size(); }

  /// The rules that are not unary.
  const SourceTrie& Trie() const { return Sequences; }
  /// The rules that end at a node of the trie.
  SourceTrie::Range<Ending> EndingsAt(std::uint32_t Node) const {
    return {vEndings.data() + Sequences.RulesBefore(Node),
            vEndings.data() + Sequences.RulesBefore(Node + 1)};
  }
  /// The unary rules that take a constituent for a slot.
  SourceTrie::Range<Ending> UnaryRules(SourceSymbol Slot) const {
    return {vUnary.data() + vFirstUnary[Slot], vUnary.data() + vFirstUnary[Slot + 1]};
  }
  bool IsUnary(const Rule& Current) const {
    return Current.SymbolCount == 1 &&
           (vSymbols[Current.FirstSymbol] & SourceTrie::LiteralMark) == 0;
  }

  const Variant& VariantAt(std::uint32_t Number) const { return vVariants[Number]; }

  const Evaluation& EvaluationAt(std::uint32_t Index) const { return vEvaluations[Index]; }
  const Program& ProgramAt(std::uint32_t Index) const { return vPrograms[Index]; }
  const AtomSets& Atoms() const { return Sets; }

 private:
  void AddSymbols(const UsableRule& Source, Rule& RuleReturn);
  void AddTargets(const UsableRule& Source, Rule& RuleReturn);
  void AddProgram(const UsableRule& Source, Rule& RuleReturn);
  std::uint32_t InternProgram(const UsableRule& Source);
  void SetWeights();
  void FillTrie();
  void FillSlots();
  void SetEvaluations();
  void FillEndings();
  void AddNeeds(const Rule& Current, std::vector<std::uint8_t>& vNeedsReturn) const;
  void AddSeenNeeds(const Rule& Current, std::vector<std::uint8_t>& vNeedsReturn) const;
  std::uint32_t AddEvaluation(std::uint32_t Number, const std::vector<std::uint8_t>& vNeeds);

  RuleSetOptions Options;
  SymbolTable Files, Headers, Labels, Words, Literals, Features, AtomNames;
  AtomSets Sets;
  std::vector<Rule> vRules;
  std::vector<SourceSymbol> vSymbols;
  std::vector<TargetItem> vTargets;
  std::vector<std::uint32_t> vStepLines;
  PairTable Slots;
  PairTable TypePairs;
  std::vector<SourceSymbol> vAnySlots;
  std::vector<SourceSymbol> vBothSlots;
  std::vector<std::uint32_t> vFirstUnary;
  std::vector<Ending> vUnary;
  std::vector<Ending> vEndings;
  SourceTrie Sequences;
  std::vector<Program> vPrograms;
  std::unordered_map<std::string, std::uint32_t> ProgramNumbers;
  std::vector<Evaluation> vEvaluations;
  std::vector<Variant> vVariants;
  std::unordered_map<std::string, std::uint32_t> EvaluationNumbers;
  std::vector<bool> vIsSourceType;
  ProgramCompiler Compiler{Features, AtomNames, Sets};
  std::vector<std::uint32_t> vLines;
};

}  // namespace Translate
