#pragma once

#include "SourceRule.h"
#include "UsableRule.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace Picture {

/// A line of a rule, and where it stands.
struct Origin {
  std::size_t Line = 0;   ///< in its file, from 1
  std::string_view Code;  ///< without its comment; points into the text of the rule
};

/// A value of a component: "NUM: SG".
struct Tag {
  Origin From;
  std::string Words;
};

/// A component, or the constituent itself.
struct Component {
  std::string Label;  ///< in capitals, unless it is a literal
  std::string Name;   ///< "x1"
  bool IsLiteral = false;
  bool IsUnaligned = false;  ///< a place without alignment
  bool IsHead = false;
  Origin HeadFrom;  ///< the constraint that makes it the head
  std::vector<Tag> vTags;
};

/// Two nodes, by index: on one side, from the left to the right, or from x to y.
struct Tie {
  Origin From;
  std::uint32_t First;
  std::uint32_t Second;
  std::string Words;  ///< what agrees or passes: "NUM", or "Y1 = Y0 DET"; of an alignment none
};

/// A line that cannot be drawn.
struct Note {
  Origin From;
  bool IsConstraint = true;  ///< otherwise an alignment
  std::string Words;
};

/// What a picture of a rule shows, and what is read aloud of it.
///
/// @code
/// RuleParts Parts;
/// ReadParts(Lines, Parts);         // true
/// Parts.Name;                      // "{NP,8}"
/// Parts.Components[0][1].Label;    // "\"the\""
/// Parts.vAlignments[1].From.Code;  // "(X3::Y2)"
/// @endcode
///
/// Each alignment and each constraint is in exactly one of the lists: an alignment in `vAlignments`
/// or `vNotes`; a constraint as head or tag of a component, in `Agreements`, in `vTransfers` or in
/// `vNotes`.
struct RuleParts {
  std::string Name;   ///< "{NP,8}", or "np.trr:5" without a header
  std::string Types;  ///< "NP::NP"
  unsigned Count = 1;
  std::string SourceExample;  ///< the first one; may be empty
  std::string TargetExample;
  std::array<std::vector<Component>, 2> Components;  ///< by side; the first is x0 or y0
  std::vector<Tie> vAlignments;
  std::array<std::vector<Tie>, 2> Agreements;  ///< by side
  std::vector<Tie> vTransfers;                 ///< from x to y, whichever is written first
  std::vector<Note> vNotes;
  std::vector<std::string> vsSentences;  ///< reading the rule aloud
};

/// Reads what a picture of a rule shows. Linear.
/// @param Lines its text has to outlive the parts
/// @param PartsReturn is written over
/// @return false where there is no rule line that can be read
bool ReadParts(const Grammar::SourceRule& Lines, RuleParts& PartsReturn);

}  // namespace Picture
