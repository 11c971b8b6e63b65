#pragma once

#include "PlaceSources.h"
#include "SourceRule.h"
#include "SumPair.h"

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Grammar {

/// What of a rule counts beside the other rules of its grammar: its types, the components of its
/// source side and its equations between those. Literals are all alike here: what their words
/// are decides about texts, and not about which rules can work together.
///
/// For the rule
///
///   NP::NP : ["the" N] -> [N]
///   ( (X2::Y1) ((x2 num) = sg) ((x0 num) = (x2 num)) ((y0 gen) = (y1 gen)) )
///
/// these are NP, NP, two components of which the second is a place with the label N, for which N is
/// wanted, and the first two equations.
///
/// All texts are as written, and mean the same in any case. They are views into the text of the
/// rule.
struct RuleOutline {
  struct Word {
    std::string_view Text;
    std::uint64_t Sum = 0;  ///< in capitals; see SumPair.h
  };

  /// A component of the source side that is not a literal.
  struct Place {
    std::uint32_t Component = 0;  ///< from 1
    std::uint32_t Column = 0;     ///< of its label in the rule line, from 1
    Word Label;
    Word Wanted;  ///< the target type of what fills it; empty where it has none
  };

  /// Some of `vWords`.
  struct Words {
    std::uint32_t First = 0;
    std::uint32_t Count = 0;
  };

  struct Path {
    std::uint32_t Component = 0;  ///< from 1; 0 for the rule's own node
    Words Features;
  };

  enum class Kind : std::uint8_t { Link, Any, Not };

  struct Equation {
    Kind What = Kind::Link;
    Path Left;
    Path Right;  ///< of a link
    Words Atoms;
    std::uint32_t Line = 0;  ///< from 0 within the rule
  };

  bool HasTypes = false;      ///< nothing else means anything where the types cannot be read
  bool IsUsable = false;      ///< otherwise, only types and labels count
  bool LacksSources = false;  ///< whether only a place without source keeps it from being used
  std::size_t RuleLine = 0;   ///< from 0 within the rule
  Word SLType;
  Word TLType;
  std::uint32_t ComponentCount = 0;
  std::vector<Place> vPlaces;
  std::vector<Equation> vEquations;
  std::vector<Word> vWords;

  SumPair Key;             ///< of all that
  SumPair Source;          ///< of the source side with its words, and of its equations in any order
  std::uint64_t Rest = 0;  ///< of all else, but for header and comments

  /// Makes it that of no rule; its storage is used again.
  void Clear();
};

/// Makes outlines, on one thread each.
///
/// @code
/// OutlineMaker Maker;
/// RuleOutline Made;
/// Maker.Make(Lines, Made);
/// Made.SLType.Text;     // "NP"
/// Made.vPlaces.size();  // 2
/// @endcode
class OutlineMaker {
 public:
  /// @param Rule its text has to outlive the outline
  /// @param OutlineReturn is written over
  void Make(const SourceRule& Rule, RuleOutline& OutlineReturn);

  /// The sources of the places of the rule that was looked at last, where it is usable or nothing
  /// but a source is missing.
  const PlaceSources& Places() const { return Sources; }

 private:
  void AddComponents(const SourceRule& Rule, RuleOutline& OutlineReturn);

  PlaceSources Sources;
  std::vector<std::string_view> vWanted;
};

}  // namespace Grammar
