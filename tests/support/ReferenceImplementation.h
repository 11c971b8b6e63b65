#pragma once

#include "Constraint.h"

#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// @file
/// A reference implementation of the library's algorithms: one step at a time, on copies of the
/// text, slow, and plain enough to check by eye. Tests and fuzz targets compare the library with
/// it:
///
///   EXPECT_EQ(Tokenizer()(Text, "::"), Reference::Pieces(Text, "::"));
///
/// It uses none of the library's text utilities, and only the setters and getters of
/// `Constraint`.
namespace Reference {

using Strings = std::vector<std::string>;

// ---- Texts ------------------------------------------------------------------------------------

bool Holds(const std::string& Text, const std::string& Part);

std::string Upper(std::string Text);

/// The non-empty pieces, one remainder after another. The delimiter must not be empty.
Strings Pieces(const std::string& Text, const std::string& Delimiter);

/// The same, with each piece trimmed byte by byte.
Strings TrimmedPieces(const std::string& Text, const std::string& Delimiter);

std::string WithoutLeadingSpace(std::string Text);
std::string WithoutTrailingSpace(std::string Text);
std::string WithoutSpace(const std::string& Text);

/// The text with each `From`, which must not be empty, replaced.
std::string Replaced(std::string Text, const std::string& From, const std::string& To);

// ---- Lines ------------------------------------------------------------------------------------

/// The marks that a text holds, of `;;`, `{`, `] -> [`, `::` and `=`, in this order.
Strings MarksIn(const std::string& Text);

/// The start of the comment in a line; the size of the line if there is none.
std::size_t CommentBegin(const std::string& Line);

// The parts of lines in their common form, in the order of the fields; nothing for any other text.
// These functions use regular expressions, which suit only short texts.

/// Type and number of a header.
std::optional<Strings> HeaderParts(const std::string& Line);

/// Types and label sequences of a rule line.
std::optional<Strings> RuleLineParts(const std::string& Line);

/// The index texts of an alignment line.
std::optional<Strings> AlignmentParts(const std::string& Line);

/// Left node, feature, equals signs, kind of the right side, right side, its node, its feature, its
/// value. The kind is "node", "reference", "value", "or" or "not"; missing parts are empty.
std::optional<Strings> ConstraintParts(const std::string& Text);

// ---- Alignment strings ------------------------------------------------------------------------

/// A canonical string, and the missing indices as "x" and "y", in order.
struct Ordered {
  std::string Text;
  std::string Missing;

  friend bool operator==(const Ordered& Left, const Ordered& Right) {
    return Left.Text == Right.Text && Left.Missing == Right.Missing;
  }

  friend std::ostream& operator<<(std::ostream& Stream, const Ordered& Result) {
    return Stream << Result.Text << " missing: " << Result.Missing;
  }
};

/// Orders the pairs through a map of maps, as one would by hand.
Ordered Canonical(const std::string& Alignments);

/// Whether ordering a string with pairs changes and reports nothing.
bool IsOrdered(const std::string& Alignments);

using TextPairs = std::vector<std::pair<std::string, std::string>>;

/// The index texts of the displayed pairs, one remainder after another.
TextPairs Displayed(std::string Rest);

/// The string with its sides exchanged, pair by pair; nothing if a pair does not have two parts.
std::optional<std::string> Reversed(const std::string& Alignments);

using IntPairs = std::vector<std::pair<int, int>>;

/// The pairs that can be looked up, byte by byte. Each "(" except a leading one begins a pair.
IntPairs IndexedPairs(const std::string& Text);

// ---- Reading constraint texts -----------------------------------------------------------------

/// A constraint that was read, and the messages.
struct Reading {
  Constraint Record;
  std::string Err;
};

/// Reads a text as `Constraint(std::string)` does.
Reading Read(const std::string& Text);

/// The result of reading a text with rank and category.
struct RankedReading {
  std::optional<Constraint> Record;
  std::string Out;
  std::string Err;
  bool Ended = false;  ///< whether the process would have ended
};

/// Reads a text as `TrRule::SetConstraint` with rank and category does. Includes all steps for
/// agreements, although no text passes them.
RankedReading ReadRanked(const std::string& Text, int Rank, int Category);

// ---- Keeping constraints ----------------------------------------------------------------------

/// The beginning of a constraint's key, up to its value.
std::string KeyPrefix(const Constraint& Record);

/// The words of two values, those of the old one first, each once.
std::string MergedValue(const std::string& Old, const std::string& New);

/// A store that visits all of its entries to merge a value.
class Store {
 public:
  Store() = default;
  explicit Store(std::map<std::string, Constraint> Entries) : Stored(std::move(Entries)) {}

  /// Whether the key was new. The lines of the mergings are appended to `OutReturn`.
  bool Insert(Constraint New, std::string& OutReturn);

  /// Nothing if the call would not return.
  std::optional<bool> Erase(int Index, const std::string& Feature, const std::string& Value,
                            const std::string& Agreed, const std::set<int>& siCategories);

  void EraseCategory(int Category);

  const std::map<std::string, Constraint>& Entries() const { return Stored; }

 private:
  void Merge(Constraint& NewReturn, const std::string& Prefix, std::string& OutReturn);

  std::map<std::string, Constraint> Stored;
};

// ---- Print order ------------------------------------------------------------------------------

/// The texts in print order. If there is no order, the texts before the error, and the message.
struct PrintOrder {
  Strings vsTexts;
  std::string Message;
};

/// The order of constraints, found by repeated passes that prune tables.
/// @param vConstraints the constraints in the order of their keys
PrintOrder OrderForPrint(const std::vector<Constraint>& vConstraints);

}  // namespace Reference
