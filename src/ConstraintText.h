#pragma once

#include <optional>
#include <string>
#include <string_view>

/// @file
/// Reading a constraint text.
///
/// Most constraints are written in one common form, "((y1 num) = (y2 num))", which
/// `ParseCommonForm` parses in one pass. `ReadConstraint` reads any other text by lenient rules,
/// which have the same result for the common form. Nothing is printed.

namespace TrRuleInternal {

/// A node in a constraint text, such as "x0" or "Y12".
struct NodeText {
  char Side = 'X';  ///< 'X' or 'Y'
  int Index = 0;    ///< 0 for the rule's own node, components from 1
  std::string_view Text;
};

/// The right side of a constraint.
enum class RightKind {
  Node,       ///< x3, of a whole node
  Reference,  ///< (y2 num)
  Value,      ///< sg; also x1 alone, as the value of a feature
  Or,         ///< (*OR* sg pl)
  Not,        ///< (*NOT* sg)
};

/// The parts of a constraint text, as views of the text.
struct ConstraintParts {
  bool IsWholeNode = false;  ///< "(x0 = x3)" rather than "((x0 num) = sg)"
  NodeText Left;
  std::string_view Feature;  ///< as written, "agr gen"; empty for a whole node
  std::string_view Equals;   ///< "=", "==" …
  RightKind Kind = RightKind::Value;
  std::string_view Right;             ///< all of the right side, with its own parentheses
  std::optional<NodeText> RightNode;  ///< for a node and a reference, and for a value such as "x1"
  std::string_view RightFeature;      ///< for a reference
  std::string_view Value;             ///< for a value: the word, or the words of a disjunction
  std::string_view SpaceAfterNode;    ///< between a node on the right and the parenthesis
};

/// Parses a text in the common form: no white space but the single blanks of the form, and words of
/// letters, digits, "+", "-" and "_". A feature can have several words. Linear.
///
/// @code
///   ConstraintParts Parts;
///   ParseCommonForm("((y1 num) = (y2 num))", Parts);  // true
///   Parts.RightNode->Index;                           // 2
/// @endcode
///
/// @return whether the text is in the common form; if not, the parts are unspecified
bool ParseCommonForm(std::string_view Text, ConstraintParts& PartsReturn);

/// The feature of a constraint on a whole node.
constexpr std::string_view WholeNode = "all";

/// The fields of a constraint that are read from its text, which does not include the rank. The
/// texts are strings, or views of another text.
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

/// The fields of a text in the common form, as written. To store them, apply `WriteName` to the
/// feature, or to the value of a whole node, and put any other value in capitals.
ConstraintView ViewOfCommonForm(const ConstraintParts& Parts);

/// The same fields, as they are stored.
ConstraintFields FieldsOfCommonForm(const ConstraintParts& Parts);

/// Puts a name within a text in capitals and drops its blanks, except those after a digit: "agr
/// gen" becomes "AGRGEN", and "(y0 det" becomes "(Y0 DET". The name must not begin with a blank.
/// Linear.
/// @code
///   std::string Name = "agr gen";
///   WriteName(Name, 0, Name.size());  // 6
///   Name;                             // "AGRGEN"
/// @endcode
/// @return the new size of the name
std::size_t WriteName(std::string& TextReturn, std::size_t Begin, std::size_t Size);

/// Reads any text. An unreadable text leaves the fields unchanged. So does the text of a whole node
/// whose "=" signs leave fewer than two sides, but that is not an error. Linear.
/// @code
///   ConstraintFields Fields;
///   ReadConstraint("( x0=x3)", Fields);  // true
///   Fields.FeatValue;                    // "X3"
/// @endcode
/// @return false if the text is unreadable
bool ReadConstraint(std::string_view Written, ConstraintFields& FieldsReturn);

/// The number of the node that a value text refers to: the number after its last capital X or Y,
/// read from at most 1000 bytes; -1 if there is no such letter or nothing after it.
int AgreedIndexIn(std::string_view FeatValue);

}  // namespace TrRuleInternal
