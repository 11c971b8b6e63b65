#pragma once

#include "Finding.h"
#include "LineKind.h"
#include "RuleText.h"

#include <TrRule.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Grammar {

/// The header of a rule, whole: the record keeps two letters of the type and one digit.
struct RuleHeader {
  bool IsPresent = false;
  /// A header that is not "{type,number}" is kept as it was written, in `Type`, with its braces.
  bool IsReadable = true;
  std::string Type;    ///< "ADJP"
  std::string Number;  ///< "12", as written, without white space and leading zeros
};

/// One rule: the library's record, and what that cannot hold.
///
///   RuleRecord Record;
///   if (Record.Read(Text, vFindings)) {
///     Out << NormalForm().TextOf(Record);
///   }
class RuleRecord {
 public:
  RuleRecord();

  /// Reads a rule; what the record held before is gone.
  ///
  /// A rule that the library does not take, that loses something on the way into it, or that it
  /// cannot write, is not read: the findings, all of them errors, tell why. Warnings are the
  /// business of `RuleChecker`. Text on its lines that is no part of the rule keeps no rule from
  /// being read: it becomes a comment, and is reported. Nothing reaches the standard streams, and
  /// nothing ends the process.
  /// @return whether the record holds the rule
  bool Read(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn);

  /// The library's record, with the number of the header, and with the words, the structure and
  /// the count that the comments ";;SL:", ";;TL:", ";;C-Structure:" and ";;Score:" hold. After
  /// changing anything that shows in the comparison text, call `Renew`.
  TrRule& Rule();

  /// Whether some of the comments are text that was no part of the rule; see StrayText.h.
  bool HasStrayText() const { return HasStray; }

  const RuleHeader& Header() const { return RuleHead; }
  /// Sets the header, and the record's number where it is one.
  void SetHeader(RuleHeader HeaderPassIn);

  /// The comments in order, each a whole line that begins with ";" but for blanks.
  const std::vector<std::string>& Comments() const { return vsComments; }
  /// Sets the comments; words, structure and count are not taken from them again.
  void SetComments(std::vector<std::string> vsCommentsPassIn);

  /// How many examples the rule stands for, from 1; see CountText.h.
  int Count() const;
  /// Sets the count in the record and in the comment ";;Score:", which is added where there is
  /// none.
  void SetCount(int CountPassIn);

  /// The text that tells whether two rules are the same, as the library writes it.
  const std::string& ComparisonText() const { return Comparison; }
  /// The rule line and the block of alignments and constraints, with a line end behind each line
  /// but the last.
  std::string_view Block() const;

  /// Writes the comparison text anew after the record was changed.
  /// @return false where the library cannot write the rule; `WhyReturn` then tells why
  bool Renew(std::string& WhyReturn);

 private:
  /// What the lines say before the library has seen them.
  struct Reading {
    bool IsSound = true;      ///< every line is in the format
    bool NeedsProof = false;  ///< the rule has to be read again to know that it can be
  };

  void Clear();
  void ReadLine(const LineParts& Parts, Reading& StateReturn);
  bool ReadBody(Reading& StateReturn, std::string& WhyReturn);
  bool IsStable() const;
  void RestoreExample();

  std::unique_ptr<TrRule> Record;
  RuleHeader RuleHead;
  std::vector<std::string> vsComments;
  std::string Comparison;
  std::string Body;  // the lines that the library reads
  bool IsRestored = false;
  bool HasStray = false;
};

/// Whether a text is cut off when the library reads it: behind the first line end, and within each
/// line, it takes so many bytes.
bool IsTooLong(const RuleText& TextPassIn);

/// Whether a comment begins with a label such as "SL:", with or without blanks behind ";;", and
/// what stands behind the label and the blanks after it.
bool TakeLabel(std::string_view Comment, std::string_view Label, std::string_view& RestReturn);

/// The count in the first comment that bears its label; 1 where there is none.
int CountIn(const std::vector<std::string>& vsComments);

}  // namespace Grammar
