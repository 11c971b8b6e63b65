#pragma once

#include "CapitalTable.h"
#include "Hashing.h"
#include "RuleOutline.h"
#include "RuleText.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// The rules of a grammar, but for their words and target sides, as numbers: what is found only by
/// looking at all of them is found in these.
///
/// Rules that are alike in that are one shape, so that a lexicon of a million words takes a few of
/// them. Texts of lines are kept only where a finding may stand.
///
/// @code
/// GrammarShapes Rules;
/// Rules.Add(Text, Outline);
/// Rules.Finish();
/// Rules.Size();            // 1
/// Rules.TypesName(Rules.At(0).Types);  // "NP::NP"
/// @endcode
class GrammarShapes {
 public:
  static constexpr std::uint32_t None = NoEntry;

  /// A path: the number of a component, or 0, and its features.
  struct Term {
    std::uint32_t Node = 0;
    std::uint32_t Path = 0;
  };

  using Kind = RuleOutline::Kind;

  struct Equation {
    Kind What = Kind::Link;
    Term Left;
    Term Right;                   ///< of a link
    std::uint32_t FirstAtom = 0;  ///< of a value, in `AtomAt`
    std::uint32_t AtomCount = 0;
    std::uint32_t Line = 0;  ///< in the file of the first rule, from 1
  };

  /// A component that is not a literal.
  struct Place {
    std::uint32_t Node = 0;    ///< its number, from 1
    std::uint32_t Slot = 0;    ///< what it wants
    std::uint32_t Column = 0;  ///< of its label in the rule line of the first rule, from 1
  };

  /// One or more rules; where they stand is where the first one does.
  struct Shape {
    std::uint32_t File = 0;
    std::uint32_t Line = 0;   ///< of the rule line, from 1
    std::uint32_t Types = 0;  ///< the pair of source and target type
    std::uint32_t FirstPlace = 0;
    std::uint32_t PlaceCount = 0;
    std::uint32_t ComponentCount = 0;
    std::uint32_t FirstEquation = 0;
    std::uint32_t EquationCount = 0;
    std::uint32_t RuleCount = 0;
    bool IsUsable = true;  ///< of a rule that cannot be used, only types and labels are known

    bool IsUnary() const { return ComponentCount == 1 && PlaceCount == 1 && IsUsable; }
  };

  /// A line that findings may stand at.
  struct KeptLine {
    std::string_view Text;
    std::uint32_t Column = 1;  ///< of what is not a comment in it
    std::uint32_t Length = 1;
  };

  template <typename ElementT>
  struct Range {
    const ElementT* First;
    const ElementT* Last;
    const ElementT* begin() const { return First; }
    const ElementT* end() const { return Last; }
    bool IsEmpty() const { return First == Last; }
  };

  /// Adds a rule. Rules have to come in the order of the input.
  void Add(const RuleText& Text, const RuleOutline& Outline);

  /// To be called after the last rule.
  void Finish();

  std::uint32_t Size() const { return static_cast<std::uint32_t>(vShapes.size()); }
  const Shape& At(std::uint32_t Index) const { return vShapes[Index]; }
  Range<Place> PlacesOf(const Shape& Current) const {
    const Place* First = vPlaces.data() + Current.FirstPlace;
    return {First, First + Current.PlaceCount};
  }
  Range<Equation> EquationsOf(const Shape& Current) const {
    const Equation* First = vEquations.data() + Current.FirstEquation;
    return {First, First + Current.EquationCount};
  }
  std::uint32_t AtomAt(std::uint32_t Index) const { return vAtoms[Index]; }

  const std::string& FileOf(const Shape& Current) const { return vsFiles[Current.File]; }
  /// The text on a line of a shape's first rule. Kept are the rule line where the shape is
  /// unary, or the first with its types or with what one of its places wants; and the lines of its
  /// equations where it has a place.
  KeptLine LineOf(std::uint32_t Index, std::uint32_t Line) const;
  const std::string& LabelName(std::uint32_t Label) const { return Labels.Name(Label); }
  const std::string& AtomName(std::uint32_t Atom) const { return Atoms.Name(Atom); }
  std::uint32_t FindLabel(std::string_view Label) const { return Labels.Find(Label); }

  /// "NP::NP"
  std::string TypesName(std::uint32_t Types) const;
  std::uint32_t SourceTypeOf(std::uint32_t Types) const { return TypePairs.First(Types); }
  std::uint32_t TypesCount() const { return static_cast<std::uint32_t>(TypePairs.Size()); }

  /// What a slot wants: a source type and a target type, `None` for any.
  std::uint32_t SlotLabel(std::uint32_t Slot) const { return Slots.First(Slot); }
  std::uint32_t SlotWanted(std::uint32_t Slot) const { return Slots.Second(Slot); }
  std::uint32_t SlotCount() const { return static_cast<std::uint32_t>(Slots.Size()); }

  /// The shapes with a source type, ascending.
  Range<std::uint32_t> ShapesOfType(std::uint32_t Label) const { return OfLabel.At(Label); }
  /// The shapes with a pair of types, ascending.
  Range<std::uint32_t> ShapesOfTypes(std::uint32_t Types) const { return OfTypes.At(Types); }
  /// The shapes whose constituents a slot takes, ascending.
  Range<std::uint32_t> ProvidersOf(std::uint32_t Slot) const;
  /// The pair of types that a slot takes; `None` where it takes several, or no rule has them.
  std::uint32_t TypesOfSlot(std::uint32_t Slot) const;

  /// The path that has one more feature than another one; path 0 has none.
  std::uint32_t Extended(std::uint32_t Path, std::uint32_t Feature) {
    return Paths.Intern(Path, Feature) + 1;
  }
  /// Appends the features of a path.
  void AppendFeatures(std::uint32_t Path, std::vector<std::uint32_t>& vFeaturesReturn) const;
  /// "AGR NUM"
  std::string PathName(std::uint32_t Path) const;

 private:
  /// Numbers by a key, in one list.
  class Groups {
   public:
    /// @param KeyOf gives the key of an element by its number
    template <typename KeyOfT>
    void Fill(std::uint32_t Elements, std::uint32_t Keys, KeyOfT KeyOf);
    Range<std::uint32_t> At(std::uint32_t Key) const {
      return {vNumbers.data() + vFirst[Key], vNumbers.data() + vFirst[Key + 1]};
    }

   private:
    std::vector<std::uint32_t> vFirst;
    std::vector<std::uint32_t> vNumbers;
  };

  /// Where a kept line stands; its text is in `Blocks`.
  struct LinePlace {
    std::uint32_t Shape = 0;
    std::uint32_t Line = 0;
    KeptLine Kept;
  };

  void AddShape(const RuleText& Text, const RuleOutline& Outline);
  void AddPlace(const RuleOutline::Place& Given, Shape& ShapeReturn);
  void AddEquation(const RuleText& Text, const RuleOutline& Outline,
                   const RuleOutline::Equation& Given, Shape& ShapeReturn);
  Term TermOf(const RuleOutline& Outline, const RuleOutline::Path& Given);
  void KeepLine(const RuleText& Text, std::size_t LineIndex);
  std::string_view Kept(std::string_view Text);

  std::vector<std::string> vsFiles;
  CapitalTable Labels, Features, Atoms;
  PairTable TypePairs;
  PairTable Slots;
  PairTable Paths;  // of a path and a feature; the number of a path is one more
  std::vector<Shape> vShapes;
  std::vector<Place> vPlaces;
  std::vector<Equation> vEquations;
  std::vector<std::uint32_t> vAtoms;
  std::vector<SumPair> vKeys;      // of the shapes
  IndexTable Known;                // shapes by their keys
  std::vector<LinePlace> vLines;   // by their shapes
  std::deque<std::string> Blocks;  // of texts, which do not move
  Groups OfLabel;
  Groups OfTypes;
};

}  // namespace Grammar
