#pragma once

#include "HeaderText.h"
#include "LineKind.h"
#include "RuleForm.h"
#include "RuleText.h"
#include "SourceRule.h"

#include <TrRule.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Grammar {

/// The count in the first comment that bears its label; 1 if there is none.
int CountIn(const std::vector<std::string>& vsComments);

/// One rule as it is written again: comments, header, and what its lines say.
///
/// @code
/// RuleRecord Read;
/// Read.Read(Text);     // true
/// Read.Header().Type;  // "NP"
/// Read.Count();        // 1
/// @endcode
class RuleRecord {
 public:
  RuleRecord();

  /// Reads a rule; what the record held before is gone.
  ///
  /// A rule whose lines are not all in the format, that is longer than the library takes, or that
  /// the library cannot write, is not read; `ReadRule` of RuleChecker.h reports why. Text on its
  /// lines that is not part of the rule keeps no rule from being read: it becomes a comment.
  /// Nothing reaches the standard streams, and nothing ends the process.
  /// @param TextPassIn has to outlive the record, or its next reading
  /// @return whether the record holds the rule
  bool Read(const RuleText& TextPassIn);

  /// Whether the record holds the rule that it was given last.
  bool IsRead() const { return Succeeded; }

  /// Whether constraints of the rule may be dropped or merged with others; true if nobody knows.
  bool MayHaveRepetitions() const { return !HasForm || OrderedForm.HasRepetitions(); }

  /// The lines of the rule, parsed; also of a rule that could not be read.
  const SourceRule& Lines() const { return Source; }

  /// The rule in the library's order.
  const RuleForm& Form() const { return OrderedForm; }

  /// Exchanges source and target: types, labels, alignments, and the labels of the comments ";;SL:"
  /// and ";;TL:". The constraints stay as they are.
  void Flip();

  /// Fills the library's record, which has to be new, with the rule as it was read: also with the
  /// number of the header, and with the words, the structure and the count that the comments
  /// ";;SL:", ";;TL:", ";;C-Structure:" and ";;Score:" hold.
  void Load(TrRule& RecordReturn) const;

  /// Whether some of the comments are text that was not part of the rule; see StrayText.h.
  bool HasStrayText() const { return HasStray; }

  const RuleHeader& Header() const { return RuleHead; }
  void SetHeader(RuleHeader HeaderPassIn) { RuleHead = std::move(HeaderPassIn); }

  /// The comments in order, each a whole line that begins with ";" but for blanks.
  const std::vector<std::string>& Comments() const { return vsComments; }
  void SetComments(std::vector<std::string> vsCommentsPassIn);

  /// How many examples the rule stands for, from 1; see CountText.h.
  int Count() const { return CountIn(vsComments); }
  /// Sets the count in the comment ";;Score:", which is added where there is none.
  void SetCount(int CountPassIn);

  /// The text that the library compares rules by. Made anew by each call.
  std::string ComparisonText() const;

  /// The text that rules are the same by: the comparison text, and after a NUL byte the block of
  /// the normal form where that says more, such as another feature on the right. Made anew by each
  /// call.
  void AppendSamenessText(std::string& TextReturn) const;

  /// The block of the normal form: see `RuleForm::AppendBlock`. Made anew by each call.
  std::string Block() const;

  /// Appends the comments, a line each.
  void AppendComments(std::string& TextReturn) const;

  /// Appends the lines of the normal form: comments, unless they are unwanted, header and block.
  /// The last one has no line end.
  void AppendLines(bool NoComments, std::string& TextReturn) const;

 private:
  void Clear();
  void ReadComments(const RuleText& TextPassIn);
  bool NeedsRoundTrip(const RuleText& TextPassIn) const;
  bool IsStable() const;

  SourceRule Source;
  RuleForm OrderedForm;
  RuleHeader RuleHead;
  std::vector<std::string> vsComments;
  bool HasStray = false;
  bool HasForm = false;  // whether the constraints have been read
  bool Succeeded = false;
};

/// Whether a text is cut off when the library reads it: after the first line end, and within each
/// line, it takes that many bytes.
bool IsTooLong(const RuleText& TextPassIn);

/// Takes apart a text that is one rule. @return false if it is not one, or several
bool ReadOnlyRule(std::string Written, RuleText& TextReturn);

/// Whether a comment begins with a label such as "SL:", with or without blanks after ";;", and
/// the text after the label and the blanks after it.
bool TakeLabel(std::string_view Comment, std::string_view Label, std::string_view& RestReturn);

/// The first comment with a label, and the text after it; the end where there is none.
std::vector<std::string>::const_iterator FindLabel(const std::vector<std::string>& vsComments,
                                                   std::string_view Label,
                                                   std::string_view& RestReturn);

}  // namespace Grammar
