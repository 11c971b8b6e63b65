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
/// The library's algorithms once more, in the form in which one would explain them: one step after
/// the other, on copies of the text. They are slow, and plain enough to be checked by eye. The
/// library has to give the same results; tests and fuzz targets compare the two:
///
///   EXPECT_EQ(Tokenizer()(Text, "::"), Slow::Pieces(Text, "::"));
///
/// None of them uses the library's text utilities; of `Constraint` they use the setters and
/// getters alone.
namespace Slow {

using Strings = std::vector<std::string>;

// ---- Texts ------------------------------------------------------------------------------------

bool Holds(const std::string& Text, const std::string& Part);

std::string Upper(std::string Text);

/// The non-empty pieces, one remainder after the other. The delimiter must not be empty.
Strings Pieces(const std::string& Text, const std::string& Delimiter);

/// The same, with the white space at the ends of each piece taken off byte by byte.
Strings TrimmedPieces(const std::string& Text, const std::string& Delimiter);

std::string WithoutLeadingSpace(std::string Text);
std::string WithoutTrailingSpace(std::string Text);
std::string WithoutSpace(const std::string& Text);

/// The text with each `From`, which must not be empty, replaced where it stands.
std::string Replaced(std::string Text, const std::string& From, const std::string& To);

// ---- Lines ------------------------------------------------------------------------------------

/// The marks that a text holds, of `;;`, `{`, `] -> [`, `::` and `=`, in this order.
Strings MarksIn(const std::string& Text);

/// Where the comment of a line begins; its size where there is none.
std::size_t CommentBegin(const std::string& Line);

// What the lines in their common form are taken apart into, in the order of the fields; nothing for
// any other text. They go by regular expressions, which suit short texts alone.

/// Type and number of a header.
std::optional<Strings> HeaderParts(const std::string& Line);

/// Types and label sequences of a rule line.
std::optional<Strings> RuleLineParts(const std::string& Line);

/// The index texts of an alignment line.
std::optional<Strings> AlignmentParts(const std::string& Line);

/// Left node, feature, equals signs, kind of the right side, right side, its node, its feature, its
/// value. The kind is "node", "reference", "value", "or" or "not"; what a text lacks is empty.
std::optional<Strings> ConstraintParts(const std::string& Text);

// ---- Alignment strings ------------------------------------------------------------------------

/// A canonical string with the indices that were missing on the way: "x" and "y", in order.
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

/// The order through a map of maps, as a reader would sort the pairs by hand.
Ordered Canonical(const std::string& Alignments);

/// Whether ordering a string that has pairs changes and reports nothing.
bool IsOrdered(const std::string& Alignments);

using TextPairs = std::vector<std::pair<std::string, std::string>>;

/// The index texts of the pairs that are displayed, one remainder after the other.
TextPairs Displayed(std::string Rest);

/// The string with its sides exchanged, pair by pair; nothing where a pair has not two parts.
std::optional<std::string> Reversed(const std::string& Alignments);

using IntPairs = std::vector<std::pair<int, int>>;

/// The pairs that can be looked up, byte by byte; each "(" but one in the first place opens one.
IntPairs IndexedPairs(const std::string& Text);

// ---- Reading constraint texts -----------------------------------------------------------------

/// A constraint that was read, and what was written on the way.
struct Reading {
  Constraint Record;
  std::string Err;
};

/// Reads a text as `Constraint(std::string)` does.
Reading Read(const std::string& Text);

/// What becomes of a text with its rank and category given.
struct RankedReading {
  std::optional<Constraint> Record;
  std::string Out;
  std::string Err;
  bool Ended = false;  ///< whether the process would have ended
};

/// Reads a text as `TrRule::SetConstraint` with rank and category does. All steps for agreements
/// are here, too, although no text gets through them.
RankedReading ReadRanked(const std::string& Text, int Rank, int Category);

// ---- Keeping constraints ----------------------------------------------------------------------

/// The beginning of a constraint's key, up to its value.
std::string KeyPrefix(const Constraint& Record);

/// The words of two values, those of the old one first, each once.
std::string MergedValue(const std::string& Old, const std::string& New);

/// A store that walks over all of its entries to merge a value.
class Store {
 public:
  Store() = default;
  explicit Store(std::map<std::string, Constraint> Entries) : Stored(std::move(Entries)) {}

  /// Whether the key was new; `OutReturn` gets the lines of the merging added.
  bool Insert(Constraint New, std::string& OutReturn);

  /// Nothing where the call would not return.
  std::optional<bool> Erase(int Index, const std::string& Feature, const std::string& Value,
                            const std::string& Agreed, const std::set<int>& siCategories);

  void EraseCategory(int Category);

  const std::map<std::string, Constraint>& Entries() const { return Stored; }

 private:
  void Merge(Constraint& NewReturn, const std::string& Prefix, std::string& OutReturn);

  std::map<std::string, Constraint> Stored;
};

// ---- Print order ------------------------------------------------------------------------------

/// The texts in print order; where there is no order, those that came before, and the message.
struct PrintOrder {
  Strings vsTexts;
  std::string Message;
};

/// The order of constraints, found by passes over tables that are pruned again and again.
/// @param vConstraints the constraints in the order of their keys
PrintOrder OrderForPrint(const std::vector<Constraint>& vConstraints);

}  // namespace Slow
