#pragma once

#include "AlignmentLine.h"
#include "ConstraintStore.h"
#include "ConstraintText.h"
#include "RuleLine.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

class TrRule;

namespace TrRuleInternal {

/// Fills a rule from parsed lines. Prints nothing: it returns what failed and which values were
/// merged.
///
/// Worked example:
/// @code
///   TrRule Rule;
///   RuleLoader Loader(Rule);
///   ConstraintParts Parts;
///   std::vector<Merging> vMergings;
///   ParseCommonForm("((x1 num) = sg)", Parts);  // true
///   Loader.AddConstraint(Parts, vMergings);
///   ParseCommonForm("((x1 num) = pl)", Parts);  // true
///   Loader.AddConstraint(Parts, vMergings);
///   vMergings.front().NewKey;  // "1__1__NUM__(*OR* SG PL)"
/// @endcode
///
/// A loader adds to the contents of the rule. It must not outlive the rule. After a change of the
/// rule's alignments by other means, call `NoteAlignment`.
class RuleLoader {
 public:
  explicit RuleLoader(TrRule& RulePassIn) : Rule(RulePassIn) {}

  /// Appends a comment line.
  void AddComment(std::string_view Line);

  /// Sets the type and the number of the header; the type is stored unchanged.
  void SetHeader(std::string_view Type, int Number);

  /// Sets types and labels, the latter also as word-level labels, all in capitals.
  /// @return false if a rule line was set before; then nothing changes
  bool SetRuleLine(const RuleLineParts& Parts);

  /// Records a rule line. @return false if one was recorded before
  bool NoteRuleLine();

  /// Adds an alignment. Constant if it comes after all others, otherwise linear in their number.
  /// @return false if the alignments of the rule are not in order, since ordering them may have to
  ///         be reported; then nothing changes
  bool AddAlignment(const AlignmentParts& Parts);

  /// Records that an alignment has been added to the rule by other means.
  void NoteAlignment();

  /// Adds a constraint in its common form. Its value merges with the values of the same feature.
  /// @param vMergingsReturn receives each merging, in order
  void AddConstraint(const ConstraintParts& Parts, std::vector<Merging>& vMergingsReturn);

  /// Adds a constraint from its fields, which are stored unchanged.
  /// @return false if its key exists; then nothing changes
  bool AddConstraint(const ConstraintView& Fields, int Rank, std::vector<Merging>& vMergingsReturn);

  /// Ends the reading. If there were a rule line and an alignment, the alignments of the rule
  /// become those of its first alternative.
  /// @return whether there were both
  bool Finish();

 private:
  /// What is known of the alignments of the rule.
  enum class AlignmentState { Unknown, InOrder, NotInOrder };

  void CheckAlignments();
  bool Insert(ConstraintKey Key, const ConstraintView& Fields, int Rank,
              std::vector<Merging>& vMergingsReturn);

  TrRule& Rule;
  bool HasRuleLine = false;
  bool HasAlignment = false;
  AlignmentState Alignments = AlignmentState::Unknown;
  std::pair<int, int> LastPair{-1, -1};  // if the alignments are in order
};

}  // namespace TrRuleInternal
