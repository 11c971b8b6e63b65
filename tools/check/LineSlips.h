#pragma once

#include <ConstraintText.h>
#include <RuleLine.h>

#include <string_view>
#include <vector>

/// @file
/// What is legal in a line, but probably not what was meant, and where it stands.

namespace Grammar {

/// A sign that becomes part of a type or label, and the whole name.
struct NameSlip {
  std::string_view Sign;
  std::string_view Name;
  bool IsType = false;
};

/// The signs in the types and labels of a rule line that do not belong there, one for each name:
/// the colon of "NP:", the comma of "DET,", a lone double quote, a bracket, a tab.
std::vector<NameSlip> FindNameSlips(const TrRuleInternal::RuleLineParts& Parts);

/// What follows the equals sign at once and is meant as part of it: the "c" of "=c sg", the ":" of
/// "=: sg". Empty where nothing does.
std::string_view FindSignSlip(const TrRuleInternal::ConstraintParts& Parts);

/// Whether a value is a list without parentheses of its own, such as "*OR* sg pl".
bool IsBareList(const TrRuleInternal::ConstraintParts& Parts);

/// The sign or blank that makes a value of several words: "sg pl", "sg|pl", "sg,pl". Empty where
/// the value is one word, or in double quotes. In a list, only signs count.
std::string_view FindWordGap(const TrRuleInternal::ConstraintParts& Parts);

/// Whether both sides of a constraint are the same.
bool IsAboutItself(const TrRuleInternal::ConstraintParts& Parts);

/// A comment that looks like ";; SL: …", and is kept as a mere comment.
struct LabelSlip {
  std::string_view Label;  ///< as it should be written, such as "SL:"
  std::string_view Place;  ///< what stands there instead
};

/// Label is empty if the comment has none of the labels, or has it as it should be.
///
/// @code
/// FindLabelSlip("; SL: the car").Label;  // "SL:"
/// FindLabelSlip(";;SL: the car").Label;  // ""
/// @endcode
LabelSlip FindLabelSlip(std::string_view Comment);

}  // namespace Grammar
