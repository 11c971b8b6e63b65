#pragma once

#include "AlignmentShape.h"
#include "ConstraintPattern.h"
#include "SequencePattern.h"
#include "TextPattern.h"

#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

/// @file
/// What a query says, as its parser reads it: plain data.

namespace Query {

enum class Side : std::uint8_t { Source, Target };

/// "[DET * N]" on either side, or "source [DET * N]".
struct SequenceCondition {
  std::optional<Side> OnSide;
  SequencePattern Pattern;
};

/// "NP::NP".
struct TypeCondition {
  PatternItem SLType;
  PatternItem TLType;
};

/// "passes num".
struct PassCondition {
  FeaturePattern Features;
};

/// A number of a rule.
enum class Measure : std::uint8_t {
  Count,       ///< how many examples it stands for
  Components,  ///< on both sides
  SourceComponents,
  TargetComponents,
  Alignments,   ///< alignment lines
  Constraints,  ///< constraint lines
  Comments,
};

enum class Comparison : std::uint8_t { Equal, Unequal, Less, AtMost, More, AtLeast };

/// "count > 10".
struct NumberCondition {
  Measure What = Measure::Count;
  Comparison How = Comparison::Equal;
  std::uint32_t Number = 0;
};

/// "comment /^SL:/", or the same of any line.
struct TextCondition {
  bool IsOfComments;
  TextPattern Pattern;
};

using Condition = std::variant<SequenceCondition, TypeCondition, Grammar::ShapeTrait,
                               ConstraintPattern, PassCondition, NumberCondition, TextCondition>;

/// A condition, or conditions that are connected.
struct QueryNode {
  enum class Kind : std::uint8_t { Own, And, Or, Not };

  Kind What = Kind::Own;
  Condition Own;                  ///< the condition, of a node without parts
  std::vector<QueryNode> vParts;  ///< of `Not` one, of `And` and `Or` several
};

}  // namespace Query
