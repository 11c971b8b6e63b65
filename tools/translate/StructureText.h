#pragma once

#include "AtomSets.h"
#include "RuleSet.h"
#include "StructureStore.h"
#include "StructureWalk.h"
#include "TracedAtomSets.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Translate {

/// Appends a text as a JSON string, with its quotes. Bytes that are not UTF-8 become what
/// `Grammar::ToUnicode` makes of them.
void AppendJsonString(std::string_view Text, std::string& JsonReturn);

/// What is thrown where a structure is too long to be written.
StructureTooLarge TooLongToWrite();

/// Writes feature structures, features and atoms in the order of their bytes. What several features
/// lead to has a number.
///
///   {"AGR":{"#":1,"is":{"NUM":"SG"}},"SUBJ":{"AGR":{"#":1}}}     as JSON
///   [AGR=#1:[NUM=SG] SUBJ=[AGR=#1]]                              for people
///
/// @code
/// const TextResult Result = Engine.Translate("the red car", TextOptions());
/// const auto Nodes = Engine.NodesOf(Result.vTranslations.front().Tree, 0);
/// std::string Text;
/// StructureText(Rules, Engine.Structures(), Engine.Atoms())
///     .AppendShort(Nodes.front().Structures.Source, Text);
/// Text;  // "[NUM=SG]"
/// @endcode
class StructureText {
 public:
  /// The length of the longest text that is written of a structure.
  static constexpr std::size_t MaxBytes = std::size_t{1} << 22U;

  StructureText(const RuleSet& RulesPassIn, const StructureStore& StorePassIn,
                const AtomSets& AtomsPassIn)
      : Rules(RulesPassIn), Walk(RulesPassIn, StorePassIn), Plain(&AtomsPassIn) {}

  /// The same of structures that know where their values come from, which is not written.
  StructureText(const RuleSet& RulesPassIn, const StructureStore& StorePassIn,
                const TracedAtomSets& AtomsPassIn)
      : Rules(RulesPassIn), Walk(RulesPassIn, StorePassIn), Traced(&AtomsPassIn) {}

  /// Both throw `StructureTooLarge` where the text would be longer than `MaxBytes`.
  void AppendJson(StructureId Structure, std::string& TextReturn);
  void AppendShort(StructureId Structure, std::string& TextReturn);

 private:
  const AtomSet& SetAt(StructureId Structure) const;
  void AppendAtoms(const AtomSet& Set);
  void AppendName(const std::string& Name);
  void AppendNumber(std::uint32_t Number, bool IsFirst);
  void Begin(const StructureWalk::Event& Current);
  void End(const StructureWalk::Event& Current);
  void Append(StructureId Structure);

  const RuleSet& Rules;
  StructureWalk Walk;
  const AtomSets* Plain = nullptr;
  const TracedAtomSets* Traced = nullptr;
  std::string* Text = nullptr;
  bool IsJson = true;
};

}  // namespace Translate
