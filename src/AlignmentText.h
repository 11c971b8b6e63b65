#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// The algorithms on alignment strings that need no rule: canonical order, cutting into display
/// pairs, exchanging the sides.
///
/// An alignment string is "(" pairs separated by "," ")"; a pair is "(x,y)", x and y counting the
/// components of their side from 1. For example `CanonicalAlignments("((2,1),(1,2))", ...)` gives
/// `"((1,2),(2,1))"`, and `ReversedAlignments("((1,1),(2,3))")` gives `"((1,1),(3,2))"`.
/// Texts that are not of this form are taken apart as far as they go; nothing is printed here.

namespace TrRuleInternal {

/// A part of a pair that could not be found.
enum class MissingIndex { X, Y };

/// Whether the text has outer parentheses. Texts of up to two characters count as if they had.
bool HasOuterParentheses(std::string_view Alignments);

/// The indices of one pair: x, then y.
using IndexPair = std::pair<int, int>;

/// The last pair of a string that is in canonical order already, with plain numbers of up to nine
/// digits in every pair; nothing where that cannot be told from one look. Linear.
std::optional<IndexPair> LastOfCanonical(std::string_view Alignments);

/// Whether `LastOfCanonical` gives a pair. Linear.
inline bool IsCanonical(std::string_view Alignments) {
  return LastOfCanonical(Alignments).has_value();
}

/// Puts a pair behind the others of an alignment string, in place of its last parenthesis.
/// Linear in the pair.
void AppendPair(std::string& AlignmentsReturn, std::string_view X, std::string_view Y);

/// The string with its pairs in ascending x, then y, each (x, y) once: the first of several stays.
/// A pair keeps its own text. What stands behind the last separator is lost when it is empty: a
/// trailing comma takes the pair before it along.
/// @param Alignments a string with outer parentheses
/// @param vMissingReturn gets, in the order of the pairs, each index that could not be found; such
///        an index is taken from the pair before, and is 0 in the first one
/// @return the string in canonical order; n log n in its pairs, linear when they are in order
std::string CanonicalAlignments(std::string_view Alignments,
                                std::vector<MissingIndex>& vMissingReturn);

/// The index texts of one pair, as written, pointing into the string.
struct DisplayPair {
  std::string_view X;
  std::string_view Y;
};

/// Walks the pairs of a string in the order in which they stand. The walk ends where a comma is
/// followed by "(", which it cannot step over. Linear in any text.
class DisplayWalk {
 public:
  explicit DisplayWalk(std::string_view TextPassIn) : Text(TextPassIn) {}

  /// Gives the next pair in `PairReturn`; false when there is none.
  bool Next(DisplayPair& PairReturn);

 private:
  bool FindComma();
  std::string_view XText(std::size_t Close) const;
  std::string_view Between(std::size_t Start, std::size_t End) const;

  std::string_view Text;
  std::size_t Begin = 0;
  std::size_t Comma = std::string_view::npos;
  std::size_t Open = std::string_view::npos;
};

/// The string with x and y exchanged in every pair, in the order in which they stand and without
/// the white space around the numbers; "" for "". Only 100,000 bytes behind the first pair are
/// looked at. Nothing when a pair has not exactly two parts, as in "()". Linear.
std::optional<std::string> ReversedAlignments(std::string_view Alignments);

}  // namespace TrRuleInternal
