// Sections: adding a rule, weights, slots and trie, evaluations, questions.

#include "RuleSet.h"

#include "Bytes.h"
#include "Literal.h"

#include <algorithm>
#include <cmath>

namespace Translate {

using Grammar::IsLiteral;
using Grammar::WordOf;

// ---- Adding a rule ----------------------------------------------------------------------------

/// What each source place is wanted as, and which symbols that makes.
void RuleSet::AddSymbols(const UsableRule& Source, Rule& RuleReturn) {
  std::vector<std::uint32_t> vWanted(Source.X.vLabels.size(), None);
  const std::vector<std::uint32_t>& vSources = Source.Places.Sources();
  for (std::size_t Index = 0; Index < vSources.size(); ++Index) {
    if (vSources[Index] != Grammar::PlaceSources::None) {
      vWanted[vSources[Index]] = Labels.InternUpper(Source.Y.vLabels[Index]);
    }
  }
  RuleReturn.FirstSymbol = static_cast<std::uint32_t>(vSymbols.size());
  RuleReturn.SymbolCount = static_cast<std::uint32_t>(vWanted.size());
  for (std::size_t Index = 0; Index < vWanted.size(); ++Index) {
    const std::string_view Label = Source.X.vLabels[Index];
    if (IsLiteral(Label)) {
      const std::uint32_t Word =
          Options.MatchCase ? Literals.Intern(WordOf(Label)) : Literals.InternUpper(WordOf(Label));
      vSymbols.push_back(Word | SourceTrie::LiteralMark);
    } else {
      vSymbols.push_back(Slots.Intern(Labels.InternUpper(Label), vWanted[Index]));
    }
  }
}

void RuleSet::AddTargets(const UsableRule& Source, Rule& RuleReturn) {
  std::vector<std::uint32_t> vPlaces;
  std::uint32_t Places = 0;
  for (const std::string_view Label : Source.X.vLabels) {
    vPlaces.push_back(Places);
    Places += IsLiteral(Label) ? 0 : 1;
  }
  RuleReturn.FirstTarget = static_cast<std::uint32_t>(vTargets.size());
  const std::vector<std::uint32_t>& vSources = Source.Places.Sources();
  for (std::size_t Index = 0; Index < vSources.size(); ++Index) {
    const std::string_view Label = Source.Y.vLabels[Index];
    if (!IsLiteral(Label)) {
      vTargets.push_back({false, vPlaces[vSources[Index]]});
    } else if (!WordOf(Label).empty()) {
      vTargets.push_back({true, Words.Intern(WordOf(Label))});
    }
  }
  RuleReturn.TargetCount = static_cast<std::uint32_t>(vTargets.size()) - RuleReturn.FirstTarget;
}

/// The number of the program that a rule's equations make, `None` if it has none. The lines of
/// its steps are left in `vLines`.
std::uint32_t RuleSet::InternProgram(const UsableRule& Source) {
  vLines.clear();
  if (Source.vEquations.empty()) {
    return None;
  }
  Program New = Compiler.Compile(Source, vLines);
  const auto [Found, IsNew] =
      ProgramNumbers.emplace(KeyOf(New), static_cast<std::uint32_t>(vPrograms.size()));
  if (IsNew) {
    vPrograms.push_back(std::move(New));
  }
  return Found->second;
}

/// Until `Finish`, the program's number stands in the place of the evaluation's.
void RuleSet::AddProgram(const UsableRule& Source, Rule& RuleReturn) {
  RuleReturn.FirstLine = static_cast<std::uint32_t>(vStepLines.size());
  RuleReturn.Evaluation = InternProgram(Source);
  vStepLines.insert(vStepLines.end(), vLines.begin(), vLines.end());
}

void RuleSet::Add(const UsableRule& Source, std::uint32_t Number) {
  Rule New{};
  New.Number = Number;
  New.Count = Source.Count;
  New.File = Files.Intern(Source.File);
  New.Line = static_cast<std::uint32_t>(Source.Line);
  New.Header = Source.HasHeader ? Headers.Intern(Source.Header) : None;
  New.SourceType = Labels.InternUpper(Source.X.Type);
  New.TargetType = Labels.InternUpper(Source.Y.Type);
  New.Types = TypePairs.Intern(New.SourceType, New.TargetType);
  AddSymbols(Source, New);
  AddTargets(Source, New);
  AddProgram(Source, New);
  vRules.push_back(New);
}

std::uint32_t RuleSet::AddVariant(const UsableRule& Source) {
  vVariants.push_back({static_cast<std::uint32_t>(vRules.size() - 1), InternProgram(Source)});
  return static_cast<std::uint32_t>(vVariants.size() - 1);
}

// ---- Weights ----------------------------------------------------------------------------------

/// The logarithm of each rule's share among the rules of its source type.
void RuleSet::SetWeights() {
  constexpr long double Million = 1000000;
  std::vector<std::uint64_t> vTotals(Labels.Size());
  for (const Rule& Current : vRules) {
    vTotals[Current.SourceType] += Current.Count;
  }
  for (Rule& Current : vRules) {
    const auto Total = static_cast<long double>(vTotals[Current.SourceType]);
    Current.Weight = static_cast<std::int32_t>(
        std::llround(Million * std::log(static_cast<long double>(Current.Count) / Total)));
  }
  vIsSourceType.resize(Labels.Size());
  for (const Rule& Current : vRules) {
    vIsSourceType[Current.SourceType] = true;
  }
}

// ---- Slots and trie ---------------------------------------------------------------------------

/// Counts unary rules by the slot of their only place, and finds the slots that types fill.
void RuleSet::FillSlots() {
  vFirstUnary.assign(Slots.Size() + 1, 0);
  for (const Rule& Current : vRules) {
    if (IsUnary(Current)) {
      ++vFirstUnary[vSymbols[Current.FirstSymbol] + 1];
    }
  }
  for (std::size_t Slot = 0; Slot < Slots.Size(); ++Slot) {
    vFirstUnary[Slot + 1] += vFirstUnary[Slot];
  }
  for (std::uint32_t Types = 0; Types < TypePairs.Size(); ++Types) {
    vAnySlots.push_back(Slots.Find(TypePairs.First(Types), None));
    vBothSlots.push_back(Slots.Find(TypePairs.First(Types), TypePairs.Second(Types)));
  }
}

/// What a rule reads, for each of its symbols.
void RuleSet::AddNeeds(const Rule& Current, std::vector<std::uint8_t>& vNeedsReturn) const {
  vNeedsReturn.assign(Current.SymbolCount, 0);
  if (Current.Evaluation == None) {
    return;
  }
  std::vector<std::uint32_t> vIndexOfPlace;
  for (std::uint32_t Index = 0; Index < Current.SymbolCount; ++Index) {
    if ((vSymbols[Current.FirstSymbol + Index] & SourceTrie::LiteralMark) == 0) {
      vIndexOfPlace.push_back(Index);
    }
  }
  const auto Note = [&](const ProgramNode& Node, std::uint8_t Need) {
    std::uint8_t& Needs = vNeedsReturn[vIndexOfPlace[Node.Place]];
    Needs = static_cast<std::uint8_t>(Needs | Need);
  };
  for (const ProgramNode& Node : vPrograms[Current.Evaluation].vSourceParts) {
    Note(Node, SourceTrie::NeedsSource);
  }
  for (const ProgramNode& Node : vPrograms[Current.Evaluation].vTargetParts) {
    Note(Node, SourceTrie::NeedsTarget);
  }
}

void RuleSet::FillTrie() {
  std::vector<SourceSymbol> vSequence;
  std::vector<std::uint8_t> vNeeds;
  for (std::uint32_t Index = 0; Index < vRules.size(); ++Index) {
    const Rule& Used = vRules[Index];
    if (!IsUnary(Used)) {
      vSequence.assign(SymbolsOf(Used).begin(), SymbolsOf(Used).end());
      AddNeeds(Used, vNeeds);
      Sequences.Add(vSequence, vNeeds, Index);
    }
  }
  Sequences.Finish();
}

// ---- Evaluations ------------------------------------------------------------------------------

/// @param vNeeds what is looked at of each place
std::uint32_t RuleSet::AddEvaluation(std::uint32_t Number,
                                     const std::vector<std::uint8_t>& vNeeds) {
  std::string Key = std::to_string(Number) + ' ';
  Key.append(vNeeds.begin(), vNeeds.end());
  const auto [Found, IsNew] =
      EvaluationNumbers.emplace(std::move(Key), static_cast<std::uint32_t>(vEvaluations.size()));
  if (!IsNew) {
    return Found->second;
  }
  std::vector<std::uint32_t> vKeyOfPlace;
  std::uint32_t Keys = 0;
  for (const std::uint8_t Needs : vNeeds) {
    vKeyOfPlace.push_back(Keys);
    Keys += Needs == 0 ? 0 : 1;
  }
  Evaluation New;
  New.Program = Number;
  New.Keys = Keys;
  for (const ProgramNode& Node : vPrograms[Number].vSourceParts) {
    New.vSourceAt.push_back(vKeyOfPlace[Node.Place]);
  }
  for (const ProgramNode& Node : vPrograms[Number].vTargetParts) {
    New.vTargetAt.push_back(vKeyOfPlace[Node.Place]);
  }
  vEvaluations.push_back(std::move(New));
  return Found->second;
}

/// What some rule with the same beginning reads, for each of a rule's places.
void RuleSet::AddSeenNeeds(const Rule& Current, std::vector<std::uint8_t>& vNeedsReturn) const {
  if (IsUnary(Current)) {
    AddNeeds(Current, vNeedsReturn);
    return;
  }
  vNeedsReturn.clear();
  std::uint32_t Node = SourceTrie::Root;
  for (const SourceSymbol Symbol : SymbolsOf(Current)) {
    Node = Sequences.Child(Node, Symbol);
    if ((Symbol & SourceTrie::LiteralMark) == 0) {
      vNeedsReturn.push_back(Sequences.Needs(Node));
    }
  }
}

/// Puts evaluations in the place of programs, now that it is known what the trie reads. A
/// variant reads nothing that its rule does not read, so it gets the keys of its rule.
void RuleSet::SetEvaluations() {
  std::vector<std::uint8_t> vNeeds;
  for (Variant& Current : vVariants) {
    if (Current.Evaluation != None) {
      AddSeenNeeds(vRules[Current.Rule], vNeeds);
      Current.Evaluation = AddEvaluation(Current.Evaluation, vNeeds);
    }
  }
  for (Rule& Current : vRules) {
    if (Current.Evaluation != None) {
      AddSeenNeeds(Current, vNeeds);
      Current.Evaluation = AddEvaluation(Current.Evaluation, vNeeds);
    }
  }
}

/// Copies what is needed of the rules to where it is needed.
void RuleSet::FillEndings() {
  const auto EndingOf = [&](std::uint32_t Index) {
    const Rule& Used = vRules[Index];
    return Ending{Index, Used.Types, Used.Evaluation, Used.Weight};
  };
  for (const std::uint32_t Index : Sequences.AllRules()) {
    vEndings.push_back(EndingOf(Index));
  }
  vUnary.resize(vFirstUnary.back());
  std::vector<std::uint32_t> vNext(vFirstUnary);
  for (std::uint32_t Index = 0; Index < vRules.size(); ++Index) {
    if (IsUnary(vRules[Index])) {
      vUnary[vNext[vSymbols[vRules[Index].FirstSymbol]]++] = EndingOf(Index);
    }
  }
}

void RuleSet::Finish() {
  SetWeights();
  FillSlots();
  FillTrie();
  SetEvaluations();
  FillEndings();
}

// ---- Questions --------------------------------------------------------------------------------

std::uint32_t RuleSet::FindSourceType(std::string_view Type) const {
  const std::uint32_t Label = Labels.Find(Grammar::Upper(Type));
  return Label != SymbolTable::None && vIsSourceType[Label] ? Label : None;
}

SourceSymbol RuleSet::FindLiteral(std::string_view Token, std::string& ScratchReturn) const {
  ScratchReturn.assign(Token);
  if (!Options.MatchCase) {
    std::transform(ScratchReturn.begin(), ScratchReturn.end(), ScratchReturn.begin(),
                   Grammar::ToUpper);
  }
  const std::uint32_t Word = Literals.Find(ScratchReturn);
  return Word == SymbolTable::None ? None : (Word | SourceTrie::LiteralMark);
}

}  // namespace Translate
