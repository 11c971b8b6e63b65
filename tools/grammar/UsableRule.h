#pragma once

#include "PlaceSources.h"
#include "SourceRule.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// What the lines of a rule mean when it is applied: plain data, not yet in capitals.

namespace Grammar {

enum class Side : std::uint8_t { X, Y };

/// A node with features, such as "(y2 agr gen)".
struct NodePath {
  Side OnSide = Side::X;
  std::uint32_t Index = 0;                  ///< 0 for the rule's own node, components from 1
  std::vector<std::string_view> vFeatures;  ///< as written
};

/// The text on the right of an equation.
enum class EquationKind : std::uint8_t {
  Path,  ///< both sides are the same structure
  Any,   ///< the value is one of the atoms
  None,  ///< the value is an atom other than these
};

/// One constraint.
struct Equation {
  std::size_t Line = 0;  ///< in its file, from 1
  NodePath Left;
  EquationKind Kind = EquationKind::Path;
  NodePath Right;                        ///< of a path
  std::vector<std::string_view> vAtoms;  ///< of a value, as written
};

/// One side of the rule line.
struct RuleSide {
  std::string_view Type;
  std::vector<std::string_view> vLabels;
};

/// A rule that can be applied to a text. Where source and target have changed places, they have in
/// all of it.
///
/// @code
/// UsableRule Rule;
/// ReadUsableRule(Lines, false, Rule);  // true
/// Rule.X.vLabels;                      // {"\"the\"", "ADJ", "N"}
/// ReadUsableRule(Lines, true, Rule);   // true
/// Rule.X.vLabels;                      // {"\"el\"", "N", "ADJ"}
/// @endcode
struct UsableRule {
  std::string_view File;
  std::size_t Line{};  ///< of the rule line
  std::string Header;  ///< "NP,8"; empty if none can be read
  bool HasHeader{};
  RuleSide X;
  RuleSide Y;
  PlaceSources Places;               ///< of the target side
  std::vector<Equation> vEquations;  ///< in the order of the text
  std::uint32_t Count{};             ///< of its comments, at least 1
};

/// Reads what a rule means.
/// @param Lines a rule; its text has to outlive what is returned
/// @param IsReversed whether source and target change places
/// @param RuleReturn is written over
/// @return whether the rule can be used; if not, what was returned means nothing, and
///         `ReportUnusable` of RuleUse.h says why
bool ReadUsableRule(const SourceRule& Lines, bool IsReversed, UsableRule& RuleReturn);

/// Whether the lines of a rule can be used: they are all there and in the format, whatever they
/// name is there, and no constraint is one that the format takes and that means nothing. Only a
/// place without source is left then to keep the rule from being used.
bool HasUsableLines(const SourceRule& Lines);

/// Whether there is a rule line, and the first one is whole.
bool HasReadableTypes(const SourceRule& Lines);

/// Whether a rule has the component that a node names, or the node is the rule's own.
bool HasComponent(const SourceRule& Lines, const TrRuleInternal::NodeText& Node);

/// Whether a whole node is to be the same as something that is not a node.
bool LacksNode(const TrRuleInternal::ConstraintParts& Parts);

/// The first parenthesis within a list of values, and what follows it: the library writes such
/// lists, but they mean nothing. Empty where there is none.
std::string_view ParenthesisInList(const TrRuleInternal::ConstraintParts& Parts);

/// Cuts a text at white space and adds its words: those of a feature, or of a list of values.
void AddWords(std::string_view Text, std::vector<std::string_view>& vWordsReturn);

/// The count in the first comment that bears its label; 1 if there is none.
std::uint32_t CountIn(const RuleText& Text);

/// The line that a rule is named by: that of the rule line, else of the header, else the first one
/// that is not a comment. From 1.
std::size_t LineOfRule(const RuleText& Text);

}  // namespace Grammar
