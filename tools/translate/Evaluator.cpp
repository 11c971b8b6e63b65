#include "Evaluator.h"

#include <cstddef>

namespace Translate {

Evaluator::Evaluator(const RuleSet& RulesPassIn)
    : Rules(RulesPassIn),
      Sets(RulesPassIn.Atoms()),
      Steps(Store, Sets),
      Check(RulesPassIn, Store, Sets) {
  Clear();
}

void Evaluator::Clear() {
  Store.Clear();
  vKeys.assign(1, {NoKeys, {}});
  KeyIndex.Clear();
  vKnown.clear();
  KnownIndex.Clear();
}

void Evaluator::Trim() {
  constexpr std::size_t MaxEntries = std::size_t{1} << 20;
  if (vKnown.size() > MaxEntries || vKeys.size() > MaxEntries || Store.Size() > MaxEntries ||
      Store.Bytes() > MaxEntries * 64) {
    Clear();
    Sets = Rules.Atoms();
  }
}

Evaluator::KeysId Evaluator::AddKey(KeysId Before, StructurePair Key) {
  const auto HashOfKey = [](const KeyEntry& Entry) {
    return Mixed(Pair(Entry.Key.Source, Entry.Key.Target) ^ Mixed(Entry.Before));
  };
  const KeyEntry New{Before, Key};
  std::uint32_t& Slot = KeyIndex.Find(HashOfKey(New), [&](KeysId Keys) {
    return vKeys[Keys].Before == Before && vKeys[Keys].Key.Source == Key.Source &&
           vKeys[Keys].Key.Target == Key.Target;
  });
  if (Slot != NoEntry) {
    return Slot;
  }
  const auto Number = static_cast<KeysId>(vKeys.size());
  Slot = Number;
  vKeys.push_back(New);
  KeyIndex.NoteAdded([&](KeysId Keys) { return HashOfKey(vKeys[Keys]); });
  return Number;
}

std::optional<StructurePair> Evaluator::LookUp(std::uint32_t Evaluation, KeysId Keys) {
  const auto HashOfKnown = [](const Known& Current) {
    return Mixed(Pair(Current.Evaluation, Current.Keys));
  };
  Known New{Evaluation, Keys, {}, false};
  std::uint32_t& Slot = KnownIndex.Find(HashOfKnown(New), [&](std::uint32_t Number) {
    return vKnown[Number].Evaluation == New.Evaluation && vKnown[Number].Keys == Keys;
  });
  if (Slot == NoEntry) {
    RunProgram(New);
    Slot = static_cast<std::uint32_t>(vKnown.size());
    vKnown.push_back(New);
    KnownIndex.NoteAdded([&](std::uint32_t Number) { return HashOfKnown(vKnown[Number]); });
  } else {
    New = vKnown[Slot];
  }
  return New.Clashes ? std::nullopt : std::optional<StructurePair>(New.Result);
}

void Evaluator::RunProgram(Known& KnownReturn) {
  const Evaluation& How = Rules.EvaluationAt(KnownReturn.Evaluation);
  vPairs.resize(How.Keys);
  KeysId Keys = KnownReturn.Keys;
  for (std::size_t Index = How.Keys; Index > 0; --Index) {
    vPairs[Index - 1] = vKeys[Keys].Key;
    Keys = vKeys[Keys].Before;
  }
  vSources.clear();
  for (const std::uint32_t At : How.vSourceAt) {
    vSources.push_back(vPairs[At].Source);
  }
  vTargets.clear();
  for (const std::uint32_t At : How.vTargetAt) {
    vTargets.push_back(vPairs[At].Target);
  }
  if (Check.Fails(How.Program, vSources, vTargets)) {
    KnownReturn.Clashes = true;
    return;
  }
  const std::optional<StructurePair> Result =
      Steps.Run(Rules.ProgramAt(How.Program), vSources, vTargets);
  KnownReturn.Clashes = !Result.has_value();
  KnownReturn.Result = Result.value_or(StructurePair());
  if (KnownReturn.Clashes) {
    Check.Learn(How.Program, vSources, vTargets);
  }
}

std::optional<StructurePair> Evaluator::EvaluateParts(const RuleSet::Rule& Rule,
                                                      const std::vector<StructurePair>& vParts) {
  if (Rule.Evaluation == RuleSet::None) {
    return StructurePair();
  }
  const Program& Which = Rules.ProgramAt(Rules.EvaluationAt(Rule.Evaluation).Program);
  vSources.clear();
  for (const ProgramNode& Node : Which.vSourceParts) {
    vSources.push_back(vParts[Node.Place].Source);
  }
  vTargets.clear();
  for (const ProgramNode& Node : Which.vTargetParts) {
    vTargets.push_back(vParts[Node.Place].Target);
  }
  return Steps.Run(Which, vSources, vTargets);
}

}  // namespace Translate
