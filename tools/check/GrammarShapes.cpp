// Sections: groups, kept lines, adding rules, questions.

#include "GrammarShapes.h"

#include <algorithm>

namespace Grammar {

// ---- Groups -----------------------------------------------------------------------------------

template <typename KeyOfT>
void GrammarShapes::Groups::Fill(std::uint32_t Elements, std::uint32_t Keys, KeyOfT KeyOf) {
  vFirst.assign(Keys + 1, 0);
  for (std::uint32_t Element = 0; Element < Elements; ++Element) {
    ++vFirst[KeyOf(Element) + 1];
  }
  for (std::uint32_t Key = 0; Key < Keys; ++Key) {
    vFirst[Key + 1] += vFirst[Key];
  }
  std::vector<std::uint32_t> vNext(vFirst);
  vNumbers.resize(Elements);
  for (std::uint32_t Element = 0; Element < Elements; ++Element) {
    vNumbers[vNext[KeyOf(Element)]++] = Element;
  }
}

// ---- Kept lines -------------------------------------------------------------------------------

/// A copy of a text.
std::string_view GrammarShapes::Kept(std::string_view Text) {
  constexpr std::size_t BlockSize = std::size_t{1} << 16;
  if (Blocks.empty() || Blocks.back().capacity() - Blocks.back().size() < Text.size()) {
    Blocks.emplace_back().reserve(std::max(BlockSize, Text.size()));
  }
  std::string& Block = Blocks.back();
  Block.append(Text);
  return std::string_view(Block).substr(Block.size() - Text.size());
}

void GrammarShapes::KeepLine(const RuleText& Text, std::size_t LineIndex) {
  const std::string_view Line = Text.Line(LineIndex);
  const std::string_view Code = Text.Parts(LineIndex).Code;
  const auto Column = static_cast<std::uint32_t>(Code.data() - Line.data() + 1);
  const auto Length = static_cast<std::uint32_t>(std::max<std::size_t>(Code.size(), 1));
  vLines.push_back({Size() - 1, static_cast<std::uint32_t>(Text.FirstLine + LineIndex),
                    KeptLine{Kept(Line), Column, Length}});
}

GrammarShapes::KeptLine GrammarShapes::LineOf(std::uint32_t Index, std::uint32_t Line) const {
  const auto First = std::lower_bound(
      vLines.begin(), vLines.end(), Index,
      [](const LinePlace& Stored, std::uint32_t Wanted) { return Stored.Shape < Wanted; });
  return std::find_if(First, vLines.end(),
                      [Line](const LinePlace& Stored) { return Stored.Line == Line; })
      ->Kept;
}

// ---- Adding rules -----------------------------------------------------------------------------

void GrammarShapes::AddPlace(const RuleOutline::Place& Given, Shape& ShapeReturn) {
  const std::uint32_t Label = Labels.Intern(Given.Label.Text, Given.Label.Sum);
  const std::uint32_t Wanted =
      Given.Wanted.Text.empty() ? None : Labels.Intern(Given.Wanted.Text, Given.Wanted.Sum);
  vPlaces.push_back({Given.Component, Slots.Intern(Label, Wanted), Given.Column});
  ++ShapeReturn.PlaceCount;
}

GrammarShapes::Term GrammarShapes::TermOf(const RuleOutline& Outline,
                                          const RuleOutline::Path& Given) {
  Term New{Given.Component, 0};
  for (std::uint32_t At = 0; At < Given.Features.Count; ++At) {
    const RuleOutline::Word& Feature = Outline.vWords[Given.Features.First + At];
    New.Path = Extended(New.Path, Features.Intern(Feature.Text, Feature.Sum));
  }
  return New;
}

void GrammarShapes::AddEquation(const RuleText& Text, const RuleOutline& Outline,
                                const RuleOutline::Equation& Given, Shape& ShapeReturn) {
  Equation New;
  New.What = Given.What;
  New.Left = TermOf(Outline, Given.Left);
  if (New.What == Kind::Link) {
    New.Right = TermOf(Outline, Given.Right);
  }
  New.FirstAtom = static_cast<std::uint32_t>(vAtoms.size());
  New.AtomCount = Given.Atoms.Count;
  for (std::uint32_t At = 0; At < Given.Atoms.Count; ++At) {
    const RuleOutline::Word& Atom = Outline.vWords[Given.Atoms.First + At];
    vAtoms.push_back(Atoms.Intern(Atom.Text, Atom.Sum));
  }
  New.Line = static_cast<std::uint32_t>(Text.FirstLine + Given.Line);
  vEquations.push_back(New);
  ++ShapeReturn.EquationCount;
  if (ShapeReturn.PlaceCount > 0) {
    KeepLine(Text, Given.Line);
  }
}

void GrammarShapes::AddShape(const RuleText& Text, const RuleOutline& Outline) {
  const std::size_t Before = TypePairs.Size() + Slots.Size();
  if (vsFiles.empty() || vsFiles.back() != Text.File) {
    vsFiles.push_back(Text.File);
  }
  Shape& New = vShapes.emplace_back();
  New.File = static_cast<std::uint32_t>(vsFiles.size() - 1);
  New.Line = static_cast<std::uint32_t>(Text.FirstLine + Outline.RuleLine);
  New.IsUsable = Outline.IsUsable;
  const std::uint32_t Source = Labels.Intern(Outline.SLType.Text, Outline.SLType.Sum);
  New.Types = TypePairs.Intern(Source, Labels.Intern(Outline.TLType.Text, Outline.TLType.Sum));
  New.ComponentCount = Outline.ComponentCount;
  New.FirstPlace = static_cast<std::uint32_t>(vPlaces.size());
  New.FirstEquation = static_cast<std::uint32_t>(vEquations.size());
  for (const RuleOutline::Place& Given : Outline.vPlaces) {
    AddPlace(Given, New);
  }
  if (New.IsUnary() || TypePairs.Size() + Slots.Size() > Before) {
    KeepLine(Text, Outline.RuleLine);
  }
  for (const RuleOutline::Equation& Given : Outline.vEquations) {
    AddEquation(Text, Outline, Given, New);
  }
}

void GrammarShapes::Add(const RuleText& Text, const RuleOutline& Outline) {
  if (!Outline.HasTypes) {
    return;
  }
  std::uint32_t& Slot = Known.Find(
      Outline.Key.Hash(), [&](std::uint32_t Number) { return vKeys[Number] == Outline.Key; });
  if (Slot != None) {
    ++vShapes[Slot].RuleCount;
    return;
  }
  Slot = Size();
  vKeys.push_back(Outline.Key);
  Known.NoteAdded([&](std::uint32_t Number) { return vKeys[Number].Hash(); });
  AddShape(Text, Outline);
  vShapes.back().RuleCount = 1;
}

void GrammarShapes::Finish() {
  OfLabel.Fill(Size(), static_cast<std::uint32_t>(Labels.Size()),
               [&](std::uint32_t Number) { return SourceTypeOf(vShapes[Number].Types); });
  OfTypes.Fill(Size(), TypesCount(), [&](std::uint32_t Number) { return vShapes[Number].Types; });
}

// ---- Questions --------------------------------------------------------------------------------

std::string GrammarShapes::TypesName(std::uint32_t Types) const {
  return LabelName(TypePairs.First(Types)) + "::" + LabelName(TypePairs.Second(Types));
}

std::uint32_t GrammarShapes::TypesOfSlot(std::uint32_t Slot) const {
  return SlotWanted(Slot) == None ? None : TypePairs.Find(SlotLabel(Slot), SlotWanted(Slot));
}

GrammarShapes::Range<std::uint32_t> GrammarShapes::ProvidersOf(std::uint32_t Slot) const {
  if (SlotWanted(Slot) == None) {
    return ShapesOfType(SlotLabel(Slot));
  }
  const std::uint32_t Types = TypesOfSlot(Slot);
  return Types == None ? Range<std::uint32_t>{nullptr, nullptr} : ShapesOfTypes(Types);
}

void GrammarShapes::AppendFeatures(std::uint32_t Path,
                                   std::vector<std::uint32_t>& vFeaturesReturn) const {
  const auto Before = static_cast<std::ptrdiff_t>(vFeaturesReturn.size());
  for (; Path != 0; Path = Paths.First(Path - 1)) {
    vFeaturesReturn.push_back(Paths.Second(Path - 1));
  }
  std::reverse(vFeaturesReturn.begin() + Before, vFeaturesReturn.end());
}

std::string GrammarShapes::PathName(std::uint32_t Path) const {
  std::vector<std::uint32_t> vFeatures;
  AppendFeatures(Path, vFeatures);
  std::string Name;
  for (const std::uint32_t Number : vFeatures) {
    Name.append(Name.empty() ? "" : " ").append(Features.Name(Number));
  }
  return Name;
}

}  // namespace Grammar
