#pragma once

#include "ConstraintText.h"
#include "LineKind.h"
#include "LineTexts.h"

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
std::vector<NameSlip> FindNameSlips(const SequenceText& Sequence);

/// Text of a line that the library passes over: before the types' brackets, behind a header, an
/// alignment or a sequence, and in front of the first two. One view for each place.
std::vector<std::string_view> FindPassedOver(LineKind Kind, std::string_view Code);

/// What follows the equals sign at once and is meant as part of it: the "c" of "=c sg", the ":" of
/// "=: sg". Empty where nothing does.
std::string_view FindSignSlip(const ConstraintText& Parts);

/// Whether a value is a list without parentheses of its own, such as "*OR* sg pl".
bool IsBareList(const ConstraintText& Parts);

/// The sign or blank that makes a value of several words: "sg pl", "sg|pl", "sg,pl". Empty where
/// the value is one word, or in double quotes. In a list, only signs count.
std::string_view FindWordGap(const ConstraintText& Parts);

/// Whether both sides of a constraint are the same.
bool IsAboutItself(const ConstraintText& Parts);

/// A comment that looks like ";; SL: …", and is kept as a mere comment.
struct LabelSlip {
  std::string_view Label;  ///< as it should be written, such as "SL:"
  std::string_view Place;  ///< what stands there instead
};

/// Label is empty where the comment has none of the labels, or has it as it should be.
LabelSlip FindLabelSlip(std::string_view Comment);

}  // namespace Grammar
