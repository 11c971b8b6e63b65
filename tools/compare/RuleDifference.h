#pragma once

#include "ComparedRule.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// What differs between two rules, part by part.
///
/// A part has a name: the header, a type, a component by its number, an alignment by its places, a
/// constraint by its left side, the count, and each comment by its text. Where one side has got
/// another number of components, its whole sequence is one part.
///
/// @code
/// const auto Old = ComparedRule::Of("NP::NP : [N] -> [N]\n(\n(X1::Y1)\n((y1 num) = sg)\n)");
/// const auto New = ComparedRule::Of("NP::NP : [N] -> [ADJ]\n(\n(X1::Y1)\n((y1 num) = pl)\n)");
/// const std::vector<PartChange> vChanges = DifferencesOf(*Old, *New);
/// vChanges.size();        // 2
/// Describe(vChanges[0]);  // "component 1 of the target: N becomes ADJ"
/// Describe(vChanges[1]);  // "constraint ((Y1 NUM) = …): SG becomes PL"
/// @endcode

namespace Grammar {

enum class PartKind {
  Header,
  SourceType,
  TargetType,
  SourceSequence,
  TargetSequence,
  SourceComponent,
  TargetComponent,
  Alignment,
  Constraint,
  Count,
  Comment,
};

/// The name of a kind of part: "source type".
std::string_view NameOf(PartKind KindPassIn);

/// One part that is not the same in two rules.
struct PartChange {
  PartKind Kind{};
  /// Of a component, its number, from 1. Of a comment and of a count that is removed or added, its
  /// place among the comments of the old or the new rule, from 0.
  std::size_t Place = 0;
  /// Of an alignment, all of it; of a constraint, the left side: "((Y2 NUM)"
  std::string Name;
  /// What the part was: nothing if there was none, one text of most parts, the labels of a
  /// sequence, and all constraints with one left side
  std::vector<std::string> vsOld;
  std::vector<std::string> vsNew;  ///< what it has become

  friend bool operator==(const PartChange& Left, const PartChange& Right) {
    return Left.Kind == Right.Kind && Left.Place == Right.Place && Left.Name == Right.Name &&
           Left.vsOld == Right.vsOld && Left.vsNew == Right.vsNew;
  }
  friend bool operator!=(const PartChange& Left, const PartChange& Right) {
    return !(Left == Right);
  }
};

/// All that differs, in the order of the kinds. Comments that are removed come before those that
/// are added. A count that has got another place among the comments is removed and added.
std::vector<PartChange> DifferencesOf(const ComparedRule& OldPassIn, const ComparedRule& NewPassIn);

/// Changes a part of a rule. A comment that is not at its place is removed elsewhere, or added at
/// the end.
/// @return whether the part was what the change expects; if not, the rule is as it was
bool Apply(const PartChange& ChangePassIn, ComparedRule& RuleReturn);

/// The change from the new rule to the old one. Changes that have been inverted are applied in the
/// opposite order.
PartChange Inverse(PartChange ChangePassIn);

/// Whether two changes of a rule concern the same part, so that only one of them can be made unless
/// they are equal. A sequence of another length gives other numbers to the components of its side,
/// so that alignments and constraints depend on it.
bool Overlap(const PartChange& LeftPassIn, const PartChange& RightPassIn);

/// A change in words: "alignment (X2::Y3) added".
std::string Describe(const PartChange& ChangePassIn);

/// The same change as a failed expectation: "component 2 of the target: expected N, found ADJ".
std::string DescribeMismatch(const PartChange& ChangePassIn);

/// The left side of a constraint line in the normal form: "((Y2 NUM)".
std::string_view LeftSideOf(std::string_view ConstraintPassIn);

}  // namespace Grammar
