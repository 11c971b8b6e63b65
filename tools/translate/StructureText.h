#pragma once

#include "AtomSets.h"
#include "RuleSet.h"
#include "StructureStore.h"

#include <cstdint>
#include <string>
#include <vector>

namespace Translate {

/// Appends a text as a JSON string, with its quotes. Bytes that are no UTF-8 become what
/// `Grammar::ToUnicode` makes of them.
void AppendJsonString(std::string_view Text, std::string& JsonReturn);

/// Writes feature structures, features and atoms in the order of their bytes. What several features
/// lead to has a number.
///
///   {"AGR":{"#":1,"is":{"NUM":"SG"}},"SUBJ":{"AGR":{"#":1}}}     as JSON
///   [AGR=#1:[NUM=SG] SUBJ=[AGR=#1]]                              for people
class StructureText {
 public:
  StructureText(const RuleSet& RulesPassIn, const StructureStore& StorePassIn,
                const AtomSets& AtomsPassIn)
      : Rules(RulesPassIn), Store(StorePassIn), Atoms(AtomsPassIn) {}

  void AppendJson(StructureId Structure, std::string& TextReturn);
  void AppendShort(StructureId Structure, std::string& TextReturn);

 private:
  /// A knot that is being written: where its locals stand, how many features lead to each, and
  /// their numbers.
  struct Knot {
    const std::uint32_t* Words;
    std::vector<std::uint32_t> vLocals;
    std::vector<std::uint32_t> vArrivals;
    std::vector<std::uint32_t> vNumbers;
  };

  struct Arc {
    std::uint32_t Feature;
    std::uint32_t Target;
  };

  /// Features that are being written.
  struct Frame {
    std::size_t Knot;
    std::vector<Arc> vArcs;
    std::size_t Next;
    bool IsNumbered;
  };

  void Append(StructureId Structure);
  void AppendStructure(StructureId Structure, bool IsNumbered);
  void AppendLocal(std::size_t Which, std::uint32_t Local);
  void AppendNumbered(std::uint32_t Number, bool IsFirst);
  void AppendAtoms(const AtomSet& Set);
  void AppendName(const std::string& Name);
  void OpenFeatures(std::size_t Which, std::uint32_t Local, bool IsNumbered);
  std::size_t AddKnot(StructureId Structure);

  const RuleSet& Rules;
  const StructureStore& Store;
  const AtomSets& Atoms;
  std::string* Text = nullptr;
  bool IsJson = true;
  std::uint32_t LastNumber = 0;
  std::vector<Knot> vKnots;
  std::vector<Frame> vFrames;
};

}  // namespace Translate
