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

/// Fills a rule from lines that have been taken apart. Prints nothing: what has gone wrong and
/// which values were merged is handed back.
///
/// Worked example, with the parts of "((x1 num) = sg)" and then of "((x1 num) = pl)":
/// @code
///   RuleLoader Loader(Rule);
///   std::vector<Merging> vMergings;
///   Loader.AddConstraint(Parts, vMergings);
///   Loader.AddConstraint(OtherParts, vMergings);
///   vMergings.front().NewKey;  // "1__1__NUM__(*OR* SG PL)"
/// @endcode
///
/// What the rule holds already stays: a loader adds. It must not outlive the rule, and nobody else
/// may change the rule's alignments meanwhile without a call of `NoteAlignment`.
class RuleLoader {
 public:
  explicit RuleLoader(TrRule& RulePassIn) : Rule(RulePassIn) {}

  /// Appends a comment line.
  void AddComment(std::string_view Line);

  /// Sets the type and the number of the header; the type is kept as it is handed in.
  void SetHeader(std::string_view Type, int Number);

  /// Sets types and labels, both sequences also as word-level ones, all labels in capitals.
  /// @return false where the loader has set some already: then nothing changes
  bool SetRuleLine(const RuleLineParts& Parts);

  /// Notes that a rule line has come. @return false where one had come before
  bool NoteRuleLine();

  /// Adds an alignment. Constant where it belongs behind all others, linear in them elsewhere.
  /// @return false where the rule's alignments are not in order, and this is no place to put them
  ///         in order, since that may have to be reported: then nothing changes
  bool AddAlignment(const AlignmentParts& Parts);

  /// Notes that an alignment has been added to the rule in another way.
  void NoteAlignment();

  /// Adds a constraint in its common form; its value merges with the values of the same feature.
  /// @param vMergingsReturn gets each merging, in order
  void AddConstraint(const ConstraintParts& Parts, std::vector<Merging>& vMergingsReturn);

  /// The same from the fields of a constraint, which are kept as they are.
  /// @return false when its key is there already, and then nothing changes
  bool AddConstraint(const ConstraintView& Fields, int Rank, std::vector<Merging>& vMergingsReturn);

  /// Ends the reading: where a rule line and an alignment have come, the rule's alignments become
  /// those of its first alternative.
  /// @return whether they have come
  bool Finish();

 private:
  /// What is known of the rule's alignments.
  enum class AlignmentState { NotLookedAt, InOrder, NotInOrder };

  void LookAtAlignments();
  bool Insert(ConstraintKey Key, const ConstraintView& Fields, int Rank,
              std::vector<Merging>& vMergingsReturn);

  TrRule& Rule;
  bool HasRuleLine = false;
  bool HasAlignment = false;
  AlignmentState Alignments = AlignmentState::NotLookedAt;
  std::pair<int, int> LastPair{-1, -1};  // of alignments that are in order
};

}  // namespace TrRuleInternal
