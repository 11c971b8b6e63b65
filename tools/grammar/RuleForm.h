#pragma once

#include "SourceRule.h"
#include "SumPair.h"

#include <ConstraintStore.h>
#include <ConstraintText.h>
#include <PrintOrder.h>

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class TrRule;

namespace Grammar {

/// What a rule says, put in the library's order, and the texts that say it.
///
/// The library's own text drops what its record does not hold: it puts literal words in capitals,
/// joins the words of a feature, writes the left feature on the right, and leaves parentheses out.
/// The normal form keeps all that. For the rule
///
///   NP::NP : ["el" N] -> ["the" N]
///   ( (X2::Y2) ((y2 agr gen) = (x2 gen)) )
///
/// the block of the normal form is
///
///   NP::NP ["el" N] -> ["the" N]
///   (
///   (X2::Y2)
///   ((Y2 AGR GEN) = (X2 GEN))
///   )
///
/// What the library reads from either is the same.
///
/// @code
/// RuleForm Form;
/// Form.Read(Lines);      // RuleForm::Failure::None
/// Form.AlignmentText();  // "((2,3),(3,2))"
/// std::string Constraint;
/// Form.AppendConstraintAt(0, Constraint);
/// Constraint;  // "((X0 NUM) = (X3 NUM))\n"
/// @endcode
class RuleForm {
 public:
  /// Why a rule cannot be written.
  enum class Failure {
    None,
    NoAgreedIndex,  ///< no number follows the last X or Y of a reference
    Cycle,          ///< agreements wait for each other
  };

  /// Orders what a rule says; what was read before is gone. n log n.
  /// @param RulePassIn has to be whole; it and its text have to outlive the form
  Failure Read(const SourceRule& RulePassIn);

  /// Fills a new record of the library with the rule line, the alignments and the constraints, in
  /// the order in which they stand. Prints nothing.
  void Load(TrRule& RecordReturn) const;

  /// Exchanges types, labels and the sides of the alignments; the constraints stay as they are.
  void Flip();

  /// Appends the rule line and the block of alignments and constraints in the normal form, without
  /// a line end after the last line.
  void AppendBlock(std::string& TextReturn) const;

  /// Sums that are the same for rules with the same block.
  /// @param ScratchReturn is written over; with the same one for many rules, none has to make its
  /// own
  SumPair BlockSums(std::string& ScratchReturn) const;

  /// Appends the text that the library compares rules by.
  /// @return whether it is plain to see that this text ends in the block of the normal form, as
  ///         for most rules
  bool AppendComparisonText(std::string& TextReturn) const;

  /// Whether a merging depends on what a feature or a value looks like, because it holds the
  /// separator of the library's keys.
  bool HasSeparatorInKey() const { return HasSeparator; }

  /// Whether some constraint may be merged with another one, or is dropped because its key is
  /// there already. Known as soon as the constraints have been read, also where their order failed.
  bool HasRepetitions() const { return HasRepetition; }

  std::string_view SLType() const { return Types[Source]; }
  std::string_view TLType() const { return Types[Target]; }
  std::size_t SLSize() const { return Labels[Source].size(); }
  std::size_t TLSize() const { return Labels[Target].size(); }

  /// The labels, as they were written.
  const std::vector<std::string_view>& SLLabels() const { return Labels[Source]; }
  const std::vector<std::string_view>& TLLabels() const { return Labels[Target]; }

  /// Appends a label in the normal form: in capitals, unless it is a literal word.
  static void AppendLabel(std::string_view Label, std::string& TextReturn);

  /// How many alignments the block has, each once.
  std::size_t AlignmentCount() const { return vPairs.size(); }

  /// The alignments as the library's record holds them, "((1,1),(2,3))".
  std::string AlignmentText() const;

  // The constraints that the library's record holds, by their places in print order, from 0.
  std::size_t ConstraintCount() const { return vOrder.size(); }

  /// What the library keeps of a constraint; the views end with the form's next reading.
  TrRuleInternal::ConstraintView FieldsAt(std::size_t Place) const {
    return ViewOf(vEntries[vOrder[Place]]);
  }

  /// Appends the lines of the normal form that a constraint stands for, each with a line end.
  void AppendConstraintAt(std::size_t Place, std::string& TextReturn) const {
    AppendEntry(vEntries[vOrder[Place]], TextReturn);
  }

 private:
  static constexpr std::size_t Source = 0;
  static constexpr std::size_t Target = 1;

  /// A pair of components, by side.
  struct Pair {
    int Index[2];
    std::string_view Text[2];
  };

  /// A constraint line with what the library reads from it; feature and value are in its key.
  struct Line {
    const SourceRule::ConstraintLine* Written = nullptr;
    int Category = 0;
    int ConstrainedIndex = 0;
    bool ValueConstraint = false;
    TrRuleInternal::KeyPlaces Key;  ///< in `Keys`
    std::size_t KeyEnd = 0;
  };

  /// What the library keeps under one key: one constraint, or what several have become.
  struct Entry {
    std::size_t Kept;       ///< place of the line whose node and feature are kept
    std::size_t Begin;      ///< in `vPlaces`, where its lines are, ascending
    std::size_t End;        ///< after the last of them
    std::string FeatValue;  ///< of values that were merged; empty otherwise
    bool IsOneList;         ///< whether all lines are lists of words on one path
  };

  /// An entry while constraints are still being merged.
  struct Group {
    explicit Group(std::size_t Place) : vLines{Place}, Kept(Place) {}

    std::vector<std::size_t> vLines;
    std::size_t Kept;
    std::string FeatValue;
    bool IsMerged = false;
    bool IsOneList = true;
  };

  using Groups = std::map<std::string, Group>;

  void ReadAlignments();
  void ReadConstraints();
  void ReadKey(Line& LineReturn);
  bool HasCommonPrefix(const Line& Left, const Line& Right) const;
  void MergeByKeys();
  std::size_t MergeStretch(std::size_t Begin, std::size_t End, std::size_t Kept);
  void AddConstraint(std::size_t Place, Groups& StoredReturn) const;
  void MergeInto(Groups::node_type Taken, const Line& New, Groups& StoredReturn) const;
  void AddRepetition(std::size_t Place, Group& GroupReturn) const;
  Failure Order();
  std::string_view KeyOf(const Line& Current) const;
  TrRuleInternal::ConstraintView ViewOf(const Line& Current) const;
  TrRuleInternal::ConstraintView ViewOf(const Entry& Current) const;
  bool IsSamePath(const Line& Left, const Line& Right) const;
  bool IsLibraryEntry(const Entry& Current) const;
  bool IsLibraryBlock() const;
  std::string_view CodeOf(const Line& Current) const;
  void AppendWritten(const Line& Current, std::string& TextReturn) const;
  void AppendEntry(const Entry& Current, std::string& TextReturn) const;
  void AddSums(const Entry& Current, std::string& ScratchReturn, SumPair& SumsReturn) const;
  void AppendLibraryEntry(const Entry& Current, std::string& TextReturn) const;
  void AppendRuleLine(bool KeepsLiterals, std::string& TextReturn) const;
  void AppendAlignments(std::string& TextReturn) const;

  const SourceRule* Rule = nullptr;
  std::string_view Types[2];
  std::vector<std::string_view> Labels[2];
  std::vector<Pair> vPairs;
  std::vector<Line> vLines;
  std::string Keys;                  // of all lines
  std::vector<std::size_t> vPlaces;  // in `vLines`, entry by entry
  std::vector<Entry> vEntries;       // in the order of their keys
  std::vector<TrRuleInternal::OrderedConstraint> vOrdered;
  std::vector<std::size_t> vOrder;  // places in `vEntries`, in print order
  bool HasSeparator = false;
  bool HasRepetition = false;
};

}  // namespace Grammar
