// Sections: groups, keys, adding rules, questions.

#include "GrammarShapes.h"

#include <algorithm>
#include <charconv>

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

// ---- Keys -------------------------------------------------------------------------------------

/// Takes the lines of a key one by one.
class GrammarShapes::KeyReader {
 public:
  explicit KeyReader(std::string_view KeyPassIn) : Rest(KeyPassIn) {}

  /// The first byte of what comes next; NUL at the end.
  char Next() const { return Rest.empty() ? '\0' : Rest.front(); }

  std::string_view Take() {
    const std::size_t End = Rest.find('\n');
    const std::string_view Line = Rest.substr(0, End);
    Rest.remove_prefix(End + 1);
    return Line;
  }

  /// A line without its first byte.
  std::string_view TakeMarked() { return Take().substr(1); }

 private:
  std::string_view Rest;
};

// ---- Adding rules -----------------------------------------------------------------------------

void GrammarShapes::KeepLine(const RuleText& Text, std::size_t LineIndex) {
  const std::string_view Code = Text.Parts(LineIndex).Code;
  KeptLine New;
  New.Text = Text.Line(LineIndex);
  New.Column = static_cast<std::uint32_t>(Code.data() - Text.Line(LineIndex).data() + 1);
  New.Length = static_cast<std::uint32_t>(std::max<std::size_t>(Code.size(), 1));
  Lines.emplace(Pair(Size() - 1, static_cast<std::uint32_t>(Text.FirstLine + LineIndex)),
                std::move(New));
}

void GrammarShapes::AddPlace(KeyReader& KeyReturn, const RuleOutline& Outline, Shape& ShapeReturn) {
  const std::uint32_t Label = Labels.Intern(KeyReturn.TakeMarked());
  const std::string_view Wanted = KeyReturn.TakeMarked();
  Place& New = vPlaces.emplace_back();
  New.Node = ShapeReturn.ComponentCount;
  New.Slot = Slots.Intern(Label, Wanted.empty() ? None : Labels.Intern(Wanted));
  New.Column = Outline.vColumns[ShapeReturn.PlaceCount++];
}

/// A path of a key: "2 AGR NUM".
GrammarShapes::Term GrammarShapes::ReadTerm(std::string_view Written) {
  Term New;
  const auto* const End = Written.data() + Written.size();
  const auto* At = std::from_chars(Written.data(), End, New.Node).ptr;
  Written.remove_prefix(static_cast<std::size_t>(At - Written.data()));
  while (!Written.empty()) {
    Written.remove_prefix(1);
    const std::size_t Size = std::min(Written.find(' '), Written.size());
    New.Path = Extended(New.Path, Features.Intern(Written.substr(0, Size)));
    Written.remove_prefix(Size);
  }
  return New;
}

void GrammarShapes::AddEquation(KeyReader& KeyReturn, Shape& ShapeReturn) {
  Equation& New = vEquations.emplace_back();
  const char Mark = KeyReturn.Next();
  New.What = Mark == '=' ? Kind::Link : Mark == '+' ? Kind::Any : Kind::Not;
  New.Left = ReadTerm(KeyReturn.TakeMarked());
  New.FirstAtom = static_cast<std::uint32_t>(vAtoms.size());
  if (New.What == Kind::Link) {
    New.Right = ReadTerm(KeyReturn.Take());
  }
  while (New.What != Kind::Link && KeyReturn.Next() == 'a') {
    vAtoms.push_back(Atoms.Intern(KeyReturn.TakeMarked()));
    ++New.AtomCount;
  }
  ++ShapeReturn.EquationCount;
}

void GrammarShapes::AddShape(const RuleText& Text, const RuleOutline& Outline) {
  const std::size_t Before = TypePairs.Size() + Slots.Size();
  KeyReader Key(Outline.Key);
  Shape& New = vShapes.emplace_back();
  New.File = Files.Intern(Text.File);
  New.Line = static_cast<std::uint32_t>(Text.FirstLine + Outline.RuleLine);
  New.IsUsable = Outline.IsUsable;
  const std::uint32_t Source = Labels.Intern(Outline.IsUsable ? Key.Take() : Key.TakeMarked());
  New.Types = TypePairs.Intern(Source, Labels.Intern(Key.Take()));
  New.FirstPlace = static_cast<std::uint32_t>(vPlaces.size());
  New.FirstEquation = static_cast<std::uint32_t>(vEquations.size());
  while (Key.Next() == '"' || Key.Next() == 'p') {
    ++New.ComponentCount;
    if (Key.Next() == '"') {
      Key.Take();
    } else {
      AddPlace(Key, Outline, New);
    }
  }
  if (New.IsUnary() || TypePairs.Size() + Slots.Size() > Before) {
    KeepLine(Text, Outline.RuleLine);
  }
  while (Key.Next() != '\0') {
    const std::uint32_t Line = Outline.vLines[New.EquationCount];
    AddEquation(Key, New);
    Equation& Last = vEquations.back();
    Last.Line = static_cast<std::uint32_t>(Text.FirstLine + Line);
    if (New.PlaceCount > 0) {
      KeepLine(Text, Line);
    }
  }
}

void GrammarShapes::Add(const RuleText& Text, const RuleOutline& Outline) {
  if (Outline.Key.empty()) {
    return;
  }
  std::uint32_t& Slot = Known.Find(Outline.KeySum, [&](std::uint32_t Number) {
    return vSums[Number].Key == Outline.KeySum && vSums[Number].Other == Outline.OtherKeySum;
  });
  if (Slot != None) {
    ++vShapes[Slot].RuleCount;
    return;
  }
  Slot = Size();
  vSums.push_back({Outline.KeySum, Outline.OtherKeySum});
  Known.NoteAdded([&](std::uint32_t Number) { return vSums[Number].Key; });
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
