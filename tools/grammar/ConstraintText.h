#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace Grammar {

/// A node in a constraint text, such as "x0" or "Y12".
struct NodeText {
  char Side = 'X';  ///< 'X' or 'Y'
  int Index = 0;
  std::string_view Text;
};

/// What stands on the right of a constraint.
enum class RightKind {
  Node,       ///< x3
  Reference,  ///< (y2 num)
  Value,      ///< sg
  Or,         ///< (*OR* sg pl)
  Not,        ///< (*NOT* sg)
};

/// A constraint text, taken apart. All views point into the text.
struct ConstraintText {
  bool IsWholeNode = false;  ///< "(x0 = x3)" rather than "((x0 num) = sg)"
  NodeText Left;
  std::string_view Feature;  ///< empty for a whole node
  std::string_view Equals;   ///< "=", "==" …
  RightKind Kind = RightKind::Value;
  std::string_view Right;             ///< all of the right side, with its own parentheses
  std::optional<NodeText> RightNode;  ///< of a node and a reference; also of a value like "x1"
  std::string_view RightFeature;      ///< of a reference
  std::string_view Value;             ///< of a value: the word, or the words of a disjunction
  std::string_view SpaceBehindNode;   ///< between a node on the right and the parenthesis
};

/// Whether the library's reader would take the reference for a value: it does so where a doubled
/// equals sign stands behind a feature.
bool IsMistakenForValue(const ConstraintText& Parts);

/// The constraint as the library has to get it: with one equals sign, where it would mistake it.
/// @param Text what was taken apart
std::string ForLibrary(std::string_view Text, const ConstraintText& Parts);

/// Where a text stops being in the format, and what would have had to stand there.
struct ConstraintStop {
  std::size_t Place = 0;
  std::string_view Expected;  ///< such as "a node such as x1 or y2"
};

/// Takes a text of the format apart, in small letters or capitals, and also as the library writes
/// it, with some parentheses missing. Nothing where the text is not in the format: then
/// `StopReturn` says where and why.
///
///   ParseConstraint("((y1 num) = (y2 num))", Stop)->RightNode->Index;  // 2
std::optional<ConstraintText> ParseConstraint(std::string_view Text, ConstraintStop& StopReturn);

/// The same, where only the place is wanted.
std::optional<ConstraintText> ParseConstraint(std::string_view Text, std::size_t& StoppedReturn);

}  // namespace Grammar
