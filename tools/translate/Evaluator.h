#pragma once

#include "AtomSets.h"
#include "Hashing.h"
#include "ProgramRunner.h"
#include "QuickCheck.h"
#include "RuleSet.h"
#include "StructureStore.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace Translate {

using Grammar::IndexTable;
using Grammar::Mixed;
using Grammar::NoEntry;
using Grammar::Pair;

/// What the equations of rules make of the structures of their parts, each combination worked out
/// once. One for each thread; what it has learned serves all texts.
class Evaluator {
 public:
  /// A list of keys: the structures of the parts that some rule reads, in order.
  using KeysId = std::uint32_t;
  static constexpr KeysId NoKeys = 0;

  explicit Evaluator(const RuleSet& RulesPassIn);

  Evaluator(const Evaluator&) = delete;
  Evaluator& operator=(const Evaluator&) = delete;

  /// The list with one more pair; what is not looked at is to be open.
  KeysId AddKey(KeysId Before, StructurePair Key);

  /// The pair that was added last to a list that is not empty.
  StructurePair LastKey(KeysId Keys) const { return vKeys[Keys].Key; }

  /// The structures that a rule's evaluation makes of its parts; nothing if its equations clash.
  std::optional<StructurePair> Evaluate(std::uint32_t Evaluation, KeysId Keys) {
    return Evaluation == RuleSet::None ? StructurePair() : LookUp(Evaluation, Keys);
  }

  /// The same with the structures of all of the rule's parts, not worked out before.
  std::optional<StructurePair> EvaluateParts(const RuleSet::Rule& Rule,
                                             const std::vector<StructurePair>& vParts);

  const StructureStore& Structures() const { return Store; }
  const AtomSets& Atoms() const { return Sets; }
  ProgramRunner& Runner() { return Steps; }

  /// To be called between texts: forgets what it has learned once that takes much memory. The
  /// numbers of structures mean nothing after that.
  void Trim();

 private:
  /// A list is its last pair, and the list before it.
  struct KeyEntry {
    KeysId Before = NoKeys;
    StructurePair Key;
  };

  /// What has been worked out for an evaluation and a list of keys.
  struct Known {
    std::uint32_t Evaluation = 0;
    KeysId Keys = NoKeys;
    StructurePair Result;
    bool Clashes = false;
  };

  void Clear();
  std::optional<StructurePair> LookUp(std::uint32_t Evaluation, KeysId Keys);
  void RunProgram(Known& KnownReturn);

  const RuleSet& Rules;
  StructureStore Store;
  AtomSets Sets;
  ProgramRunner Steps;
  QuickCheck Check;
  std::vector<KeyEntry> vKeys;
  IndexTable KeyIndex;
  std::vector<Known> vKnown;
  IndexTable KnownIndex;
  std::vector<StructurePair> vPairs;
  std::vector<StructureId> vSources;
  std::vector<StructureId> vTargets;
};

}  // namespace Translate
