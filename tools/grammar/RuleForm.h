#pragma once

#include "SourceRule.h"

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

  /// Appends the text that the library compares rules by.
  void AppendComparisonText(std::string& TextReturn) const;

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

  /// The alignments as the library's record holds them, "((1,1),(2,3))".
  std::string AlignmentText() const;

  // The constraints that the library's record holds, by their places in print order, from 0.
  std::size_t ConstraintCount() const { return vOrder.size(); }

  /// What the library keeps of a constraint, but for its value, which may have been merged.
  const TrRuleInternal::ConstraintFields& FieldsAt(std::size_t Place) const {
    return vLines[vOrder[Place]->Kept].Fields;
  }

  const std::string& FeatValueAt(std::size_t Place) const { return ValueOf(*vOrder[Place]); }

  /// Appends the lines of the normal form that a constraint stands for, each with a line end.
  void AppendConstraintAt(std::size_t Place, std::string& TextReturn) const {
    AppendEntry(*vOrder[Place], TextReturn);
  }

 private:
  static constexpr std::size_t Source = 0;
  static constexpr std::size_t Target = 1;

  /// A pair of components, by side.
  struct Pair {
    int Index[2];
    std::string_view Text[2];
  };

  /// A constraint line with what the library reads from it.
  struct Line {
    const SourceRule::ConstraintLine* Written;
    TrRuleInternal::ConstraintFields Fields;
  };

  /// What the library keeps under one key: one constraint, or what several have become.
  struct Entry {
    std::vector<std::size_t> vLines;  ///< places in `vLines`, ascending
    std::size_t Kept = 0;             ///< place of the line whose node and feature are kept
    std::string FeatValue;            ///< of values that were merged; empty otherwise
    bool IsOneList = true;            ///< whether all lines are lists of words on one path
  };

  using Entries = std::map<std::string, Entry>;

  void ReadAlignments();
  void ReadConstraints();
  void AddConstraint(std::size_t Place);
  void MergeInto(Entries::node_type Taken, std::size_t PrefixSize, const Line& New);
  void AddRepetition(std::size_t Place, Entry& EntryReturn) const;
  Failure Order();
  const std::string& ValueOf(const Entry& Each) const;
  bool IsSamePath(const Line& Left, const Line& Right) const;
  std::string_view CodeOf(const Line& Each) const;
  void AppendWritten(const Line& Each, std::string& TextReturn) const;
  void AppendEntry(const Entry& Each, std::string& TextReturn) const;
  void AppendLibraryEntry(const Entry& Each, std::string& TextReturn) const;
  void AppendRuleLine(bool KeepsLiterals, std::string& TextReturn) const;
  void AppendAlignments(std::string& TextReturn) const;

  const SourceRule* Rule = nullptr;
  std::string_view Types[2];
  std::vector<std::string_view> Labels[2];
  std::vector<Pair> vPairs;
  std::vector<Line> vLines;
  Entries Stored;
  std::vector<const Entry*> vOrder;
  bool HasSeparator = false;
  bool HasRepetition = false;
};

}  // namespace Grammar
