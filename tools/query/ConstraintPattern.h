#pragma once

#include "SequencePattern.h"

#include <ConstraintText.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace Query {

/// A node or a feature of one, such as "y2:agr:gen", "x:*" or "*:num".
struct PathPattern {
  std::optional<char> Side;  ///< 'X' or 'Y'; nothing for both
  std::optional<int> Index;  ///< nothing for all
  FeaturePattern Features;

  bool Fits(const TrRuleInternal::NodeText& Node, std::string_view Feature) const;
};

/// A pattern of constraints, such as "y:num = sg|pl" or "x0 = x3".
///
/// @code
/// ConstraintPattern Pattern;
/// Pattern.Left.Side = 'X';
/// Pattern.Left.Index = 0;
/// Pattern.Left.Features.vItems = {{PatternItem::Kind::Names, {{"num", false}}}};
/// Pattern.Fits(Lines.Constraints().front().Parts);  // true
/// @endcode
struct ConstraintPattern {
  enum class Right : std::uint8_t {
    Anything,  ///< "*"
    Path,      ///< "x3:num"
    Value,     ///< "sg|pl": one value, or a list with it
    Or,        ///< "*or* sg pl": a list with all of these
    Not,       ///< "*not* sg": a negation with all of these
  };

  PathPattern Left;
  Right Kind = Right::Anything;
  PathPattern RightPath;             ///< of a path
  std::vector<PatternItem> vValues;  ///< one for `Value`

  /// Whether a constraint fits. Paths fit from either side of the equals sign.
  bool Fits(const TrRuleInternal::ConstraintParts& Parts) const;
};

/// Whether a constraint makes something the same on both sides of the rule: its paths are of x and
/// of y, and one of them has the feature.
bool PassesFeature(const TrRuleInternal::ConstraintParts& Parts, const FeaturePattern& Features);

}  // namespace Query
