// Sections: the lexicon, findings, labels, start types, values, unary rules.

#include "GrammarFindings.h"

#include "Bytes.h"
#include "EdgeCycles.h"
#include "RuleFindings.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <tuple>

namespace Grammar {

// ---- The lexicon ------------------------------------------------------------------------------

namespace {

/// Whether some label that a place wants is provided, and by rules of words alone.
bool LexiconIsThere(const GrammarShapes& Shapes) {
  std::vector<bool> vIsPhrase;  // by source type
  for (std::uint32_t Index = 0; Index < Shapes.Size(); ++Index) {
    const std::uint32_t Type = Shapes.SourceTypeOf(Shapes.At(Index).Types);
    vIsPhrase.resize(std::max<std::size_t>(vIsPhrase.size(), Type + 1));
    vIsPhrase[Type] = vIsPhrase[Type] || Shapes.At(Index).PlaceCount > 0;
  }
  for (std::uint32_t Slot = 0; Slot < Shapes.SlotCount(); ++Slot) {
    const std::uint32_t Label = Shapes.SlotLabel(Slot);
    if (!Shapes.ShapesOfType(Label).IsEmpty() && !vIsPhrase[Label]) {
      return true;
    }
  }
  return false;
}

/// "; 2 more rules do so, too", or nothing.
std::string AlsoText(std::uint64_t More, const char* One, const char* Several) {
  return More == 0 ? "" : "; " + std::to_string(More) + (More == 1 ? One : Several);
}

}  // namespace

GrammarFindings::GrammarFindings(GrammarShapes& ShapesPassIn)
    : Shapes(ShapesPassIn), HasLexicon(LexiconIsThere(ShapesPassIn)) {}

// ---- Findings ---------------------------------------------------------------------------------

Finding& GrammarFindings::Add(std::string_view Code, std::uint32_t Index, std::uint32_t Line,
                              std::string Message) {
  constexpr std::size_t MaxLineText = 1000;
  const Shape& Which = Shapes.At(Index);
  const GrammarShapes::KeptLine Kept = Shapes.LineOf(Index, Line);
  Finding& New = vFindings.emplace_back(Which.File, Finding()).second;
  New.File = Shapes.FileOf(Which);
  New.Line = Line;
  New.Column = Kept.Column;
  New.Length = Kept.Length;
  New.Code = Code;
  New.Level = FindCode(Code)->Level;
  New.Message = std::move(Message);
  New.LineText = Kept.Text.substr(0, MaxLineText);
  return New;
}

/// Names the first rule of a shape as the other place.
void GrammarFindings::SetOther(std::uint32_t Index, Finding& FindingReturn) const {
  FindingReturn.OtherFile = Shapes.FileOf(Shapes.At(Index));
  FindingReturn.OtherLine = Shapes.At(Index).Line;
}

std::vector<Finding> GrammarFindings::Take() {
  const auto ComesBefore = [](const auto& Left, const auto& Right) {
    const Finding& One = Left.second;
    const Finding& Other = Right.second;
    return std::tie(Left.first, One.Line, One.Column, One.Code) <
           std::tie(Right.first, Other.Line, Other.Column, Other.Code);
  };
  std::stable_sort(vFindings.begin(), vFindings.end(), ComesBefore);
  std::vector<Finding> vSorted;
  std::transform(vFindings.begin(), vFindings.end(), std::back_inserter(vSorted),
                 [](auto& Current) { return std::move(Current.second); });
  vFindings.clear();
  return vSorted;
}

// ---- Labels -----------------------------------------------------------------------------------

std::string GrammarFindings::LackText(std::uint32_t Slot) const {
  const std::string Label = Shapes.LabelName(Shapes.SlotLabel(Slot));
  if (Shapes.ShapesOfType(Shapes.SlotLabel(Slot)).IsEmpty()) {
    return "no rule has the source type " + Quoted(Label);
  }
  return "no rule has the types " +
         Quoted(Label + "::" + Shapes.LabelName(Shapes.SlotWanted(Slot))) +
         ", which this component needs";
}

/// Each label that is missing is reported once, where it comes first; a label whose rules have
/// other target types, once for each target type.
void GrammarFindings::AddUnprovidedLabels() {
  struct Lack {
    std::uint32_t Shape;
    GrammarShapes::Place Place;
    std::uint64_t Count = 0;
  };
  std::vector<Lack> vLacks;
  std::vector<std::uint32_t> vLackOf(Shapes.SlotCount(), GrammarShapes::None);
  PairTable Groups;
  for (std::uint32_t Index = 0; Index < Shapes.Size(); ++Index) {
    for (const GrammarShapes::Place& Current : Shapes.PlacesOf(Shapes.At(Index))) {
      if (!Shapes.ProvidersOf(Current.Slot).IsEmpty()) {
        continue;
      }
      const std::uint32_t Label = Shapes.SlotLabel(Current.Slot);
      const bool IsUnknown = Shapes.ShapesOfType(Label).IsEmpty();
      const std::uint32_t Group =
          Groups.Intern(Label, IsUnknown ? GrammarShapes::None : Shapes.SlotWanted(Current.Slot));
      if (Group == vLacks.size()) {
        vLacks.push_back({Index, Current});
      }
      vLacks[Group].Count += Shapes.At(Index).RuleCount;
    }
  }
  for (const Lack& Current : vLacks) {
    Finding& New =
        Add("TR050", Current.Shape, Shapes.At(Current.Shape).Line,
            LackText(Current.Place.Slot) + AlsoText(Current.Count - 1, " more component wants it",
                                                    " more components want it"));
    New.Column = Current.Place.Column;
    New.Length = Shapes.LabelName(Shapes.SlotLabel(Current.Place.Slot)).size();
    New.Level = LevelOfLack();
  }
}

// ---- Start types ------------------------------------------------------------------------------

namespace {

/// Walks from pairs of types to those of the parts that their rules need.
class TypeWalk {
 public:
  explicit TypeWalk(const GrammarShapes& ShapesPassIn)
      : Shapes(ShapesPassIn), vIsReached(Shapes.TypesCount()), vIsSeen(Shapes.SlotCount()) {}

  void Reach(const GrammarShapes::Range<std::uint32_t>& Providers) {
    for (const std::uint32_t Number : Providers) {
      const std::uint32_t Types = Shapes.At(Number).Types;
      if (!vIsReached[Types]) {
        vIsReached[Types] = true;
        vNext.push_back(Types);
      }
    }
  }

  void Finish() {
    while (!vNext.empty()) {
      const std::uint32_t Types = vNext.back();
      vNext.pop_back();
      for (const std::uint32_t Number : Shapes.ShapesOfTypes(Types)) {
        ReachParts(Shapes.At(Number));
      }
    }
  }

  std::vector<bool> TakeReached() { return std::move(vIsReached); }

 private:
  void ReachParts(const GrammarShapes::Shape& Shape) {
    for (const GrammarShapes::Place& Place : Shapes.PlacesOf(Shape)) {
      if (!vIsSeen[Place.Slot]) {
        vIsSeen[Place.Slot] = true;
        Reach(Shapes.ProvidersOf(Place.Slot));
      }
    }
  }

  const GrammarShapes& Shapes;
  std::vector<bool> vIsReached;
  std::vector<bool> vIsSeen;  // slots
  std::vector<std::uint32_t> vNext;
};

}  // namespace

/// The pairs of types that constituents of texts can have, from above.
std::vector<bool> GrammarFindings::ReachedTypes(const std::vector<std::string>& vsStarts) const {
  TypeWalk Walk(Shapes);
  for (const std::string& sStart : vsStarts) {
    const std::uint32_t Label = Shapes.FindLabel(Upper(sStart));
    if (Label != GrammarShapes::None) {
      Walk.Reach(Shapes.ShapesOfType(Label));
    }
  }
  Walk.Finish();
  return Walk.TakeReached();
}

/// Each pair of types is reported once, at its first rule.
void GrammarFindings::AddUnreachableRules(const std::vector<std::string>& vsStarts) {
  const std::vector<bool> vIsReached = ReachedTypes(vsStarts);
  for (std::uint32_t Types = 0; Types < Shapes.TypesCount(); ++Types) {
    if (vIsReached[Types]) {
      continue;
    }
    const auto Rules = Shapes.ShapesOfTypes(Types);
    std::uint64_t Count = 0;
    for (const std::uint32_t Number : Rules) {
      Count += Shapes.At(Number).RuleCount;
    }
    const std::uint32_t First = *Rules.begin();
    Add("TR051", First, Shapes.At(First).Line,
        "no start type leads to a rule with the types " + Quoted(Shapes.TypesName(Types)) +
            AlsoText(Count - 1, " more rule has them", " more rules have them"));
  }
}

// ---- Values -----------------------------------------------------------------------------------

/// "NUM of x2 (N) is always PL or SG"
std::string GrammarFindings::SupplyText(const Shape& Which,
                                        const SuppliedValues::Supply& Current) const {
  const GrammarShapes::Place& Place = Shapes.PlacesOf(Which).First[Current.From.Place];
  std::string Text = Shapes.PathName(Current.From.Path);
  Text += (Text.empty() ? "x" : " of x") + std::to_string(Place.Node) + " (" +
          Shapes.LabelName(Shapes.SlotLabel(Place.Slot)) + ") is always ";
  if (Current.vAtoms.empty()) {
    return Text + "one of " + std::to_string(Current.Count) + " values";
  }
  std::vector<std::string> vsNames;
  for (const std::uint32_t Atom : Current.vAtoms) {
    vsNames.push_back(Shapes.AtomName(Atom));
  }
  std::sort(vsNames.begin(), vsNames.end());
  for (const std::string& sName : vsNames) {
    Text.append(&sName == &vsNames.front() ? "" : " or ").append(sName);
  }
  return Text;
}

void GrammarFindings::AddUnsuppliedValues() {
  for (const SuppliedValues::Clash& Current : SuppliedValues(Shapes).FindClashes()) {
    const Shape& Which = Shapes.At(Current.Shape);
    std::string Message = "this never holds: ";
    for (const SuppliedValues::Supply& Supply : Current.vSupplies) {
      Message +=
          (&Supply == &Current.vSupplies.front() ? "" : ", and ") + SupplyText(Which, Supply);
    }
    Finding& New =
        Add("TR052", Current.Shape, Current.Line,
            Message + AlsoText(Which.RuleCount - 1, " more rule has it", " more rules have it"));
    const std::uint32_t Place = Current.vSupplies.front().From.Place;
    SetOther(*Shapes.ProvidersOf(Shapes.PlacesOf(Which).First[Place].Slot).begin(), New);
    New.Level = LevelOfLack();
  }
}

// ---- Unary rules ------------------------------------------------------------------------------

namespace {

/// From the types that unary rules have to what they want, and from there to the types that fill
/// it.
std::vector<GraphEdge> UnaryEdges(const GrammarShapes& Shapes) {
  const auto NodeOfTypes = [](std::uint32_t Types) { return static_cast<int>(2 * Types); };
  const auto NodeOfSlot = [](std::uint32_t Slot) { return static_cast<int>(2 * Slot + 1); };
  std::vector<GraphEdge> vEdges;
  std::vector<bool> vIsSeen(Shapes.SlotCount());
  for (std::uint32_t Index = 0; Index < Shapes.Size(); ++Index) {
    const GrammarShapes::Shape& Current = Shapes.At(Index);
    if (!Current.IsUnary()) {
      continue;
    }
    const std::uint32_t Slot = Shapes.PlacesOf(Current).First->Slot;
    vEdges.push_back({NodeOfTypes(Current.Types), NodeOfSlot(Slot), Index});
    if (vIsSeen[Slot]) {
      continue;
    }
    vIsSeen[Slot] = true;
    std::vector<std::uint32_t> vTypes;
    for (const std::uint32_t Provider : Shapes.ProvidersOf(Slot)) {
      vTypes.push_back(Shapes.At(Provider).Types);
    }
    Tidy(vTypes);
    for (const std::uint32_t Types : vTypes) {
      vEdges.push_back({NodeOfSlot(Slot), NodeOfTypes(Types), GrammarShapes::None});
    }
  }
  std::stable_sort(vEdges.begin(), vEdges.end(), [](const GraphEdge& Left, const GraphEdge& Right) {
    return Left.From < Right.From;
  });
  return vEdges;
}

/// The rules of a cycle, each above the next one, the first of the input first.
std::vector<std::uint32_t> ShapesOf(const std::vector<GraphEdge>& vCycle) {
  std::vector<std::uint32_t> vShapes;
  for (const GraphEdge& Edge : vCycle) {
    if (Edge.Line != GrammarShapes::None) {
      vShapes.push_back(static_cast<std::uint32_t>(Edge.Line));
    }
  }
  std::rotate(vShapes.begin(), std::min_element(vShapes.begin(), vShapes.end()), vShapes.end());
  return vShapes;
}

}  // namespace

void GrammarFindings::AddUnaryCycles() {
  constexpr std::size_t MaxNames = 8;
  for (const std::vector<GraphEdge>& vCycle : FindEdgeCycles(UnaryEdges(Shapes))) {
    const std::vector<std::uint32_t> vShapes = ShapesOf(vCycle);
    std::string Names;
    for (std::size_t Index = 0; Index < std::min(vShapes.size(), MaxNames); ++Index) {
      Names += Shapes.TypesName(Shapes.At(vShapes[Index]).Types) + " → ";
    }
    Names += vShapes.size() > MaxNames ? "… → " : "";
    const std::uint32_t First = vShapes.front();
    Finding& New =
        Add("TR053", First, Shapes.At(First).Line,
            "unary rules lead in a cycle: " + Names + Shapes.TypesName(Shapes.At(First).Types));
    if (vShapes.size() > 1) {
      SetOther(vShapes[1], New);
    }
  }
}

}  // namespace Grammar
