#pragma once

#include <optional>
#include <string>
#include <string_view>

/// @file
/// Reading a constraint text.
///
/// Most constraints are written in one common form, "((y1 num) = (y2 num))". `ParseCommonForm`
/// takes such a text apart in one go. `ReadConstraint` reads what is written otherwise by lenient
/// rules, which would give the same for the common form, too. Nothing is printed here.

namespace TrRuleInternal {

/// A node in a constraint text, such as "x0" or "Y12".
struct NodeText {
  char Side = 'X';  ///< 'X' or 'Y'
  int Index = 0;    ///< 0 for the rule's own node, components from 1
  std::string_view Text;
};

/// What stands on the right of a constraint.
enum class RightKind {
  Node,       ///< x3, of a whole node
  Reference,  ///< (y2 num)
  Value,      ///< sg, also a lone x1 as the value of a feature
  Or,         ///< (*OR* sg pl)
  Not,        ///< (*NOT* sg)
};

/// A constraint text, taken apart. All views point into the text.
struct ConstraintParts {
  bool IsWholeNode = false;  ///< "(x0 = x3)" rather than "((x0 num) = sg)"
  NodeText Left;
  std::string_view Feature;  ///< as written, "agr gen"; empty for a whole node
  std::string_view Equals;   ///< "=", "==" …
  RightKind Kind = RightKind::Value;
  std::string_view Right;             ///< all of the right side, with its own parentheses
  std::optional<NodeText> RightNode;  ///< of a node and a reference; also of a value like "x1"
  std::string_view RightFeature;      ///< of a reference
  std::string_view Value;             ///< of a value: the word, or the words of a disjunction
  std::string_view SpaceAfterNode;    ///< between a node on the right and the parenthesis
};

/// Takes a text in the common form apart: no white space but single blanks where the form has
/// them, and words of letters, digits, "+", "-" and "_". A feature can have several. Linear.
///
///   ParseCommonForm("((y1 num) = (y2 num))", Parts);  // Parts.RightNode->Index is 2
///
/// @return whether the text is in the common form; if not, the parts mean nothing
bool ParseCommonForm(std::string_view Text, ConstraintParts& PartsReturn);

/// Stands for the feature where the whole node is constrained.
constexpr std::string_view WholeNode = "all";

/// The fields of a constraint that its text gives; the rank is not among them. The texts are
/// strings, or views where they belong to someone else.
template <typename TextT>
struct BasicConstraintFields {
  int Category = -1;
  int ConstrainedIndex = -1;
  TextT Feature{};
  TextT FeatValue{};
  bool ValueConstraint = true;
};

using ConstraintFields = BasicConstraintFields<std::string>;
using ConstraintView = BasicConstraintFields<std::string_view>;

/// What a record keeps of a text in the common form, but as it is written there. To be kept, the
/// feature, or the value of a whole node, has to go through `WriteName`, and any other value has to
/// be put in capitals.
ConstraintView ViewOfCommonForm(const ConstraintParts& Parts);

/// The same as it is kept.
ConstraintFields FieldsOfCommonForm(const ConstraintParts& Parts);

/// Puts a name in a text, which begins with no blank, in capitals, and drops its blanks but those
/// behind a digit: "agr gen" becomes "AGRGEN", and "(y0 det" becomes "(Y0 DET". Linear.
/// @return the size of what is left of it
std::size_t WriteName(std::string& TextReturn, std::size_t Begin, std::size_t Size);

/// Reads any text. One that cannot be read leaves the fields as they were, and so does, but without
/// being an error, a whole node's text whose "=" signs leave fewer than two sides. Linear.
/// @return false where the text is not in the format
bool ReadConstraint(std::string_view Written, ConstraintFields& FieldsReturn);

/// The number of the node that a value text refers to: the number behind its last capital X or Y,
/// read from at most 1000 bytes; -1 where there is no such letter or nothing behind it.
int AgreedIndexIn(std::string_view FeatValue);

}  // namespace TrRuleInternal
