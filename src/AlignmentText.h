#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// The algorithms on alignment strings that do not need a rule: canonical order, display and
/// exchanging the sides.
///
/// An alignment string is "(" pairs separated by "," ")"; a pair is "(x,y)", where x and y count
/// the components of their side from 1. Other texts are parsed as far as possible. Nothing is
/// printed.
/// @code
///   std::vector<MissingIndex> vMissing;
///   CanonicalAlignments("((2,1),(1,2))", vMissing);  // "((1,2),(2,1))"
///   ReversedAlignments("((1,1),(2,3))");             // "((1,1),(3,2))"
///   DisplayWalk Walk("((1,1),(2,3))");
///   DisplayPair Pair;
///   Walk.Next(Pair);  // true
///   Walk.Next(Pair);  // true
///   Pair.Y;           // "3"
/// @endcode

namespace TrRuleInternal {

/// An index that a pair lacks.
enum class MissingIndex { X, Y };

/// Whether the text has outer parentheses. Texts of up to two characters count as if they did.
bool HasOuterParentheses(std::string_view Alignments);

/// The indices of one pair: x, then y.
using IndexPair = std::pair<int, int>;

/// The last pair of a string that is in canonical order and has plain numbers of up to nine digits
/// in every pair; nothing for any other string. Linear.
std::optional<IndexPair> LastOfCanonical(std::string_view Alignments);

/// Whether `LastOfCanonical` returns a pair. Linear.
inline bool IsCanonical(std::string_view Alignments) {
  return LastOfCanonical(Alignments).has_value();
}

/// Appends a pair to an alignment string, in place of its last parenthesis. Linear in the pair.
void AppendPair(std::string& AlignmentsReturn, std::string_view X, std::string_view Y);

/// The string with its pairs in ascending order of x, then y. Of several pairs with the same
/// indices, the first is kept. Pairs keep their text. A trailing comma drops the pair before it.
/// @param Alignments a string with outer parentheses
/// @param vMissingReturn receives each missing index, in the order of the pairs; a missing index
///        is taken from the previous pair, and is 0 in the first one
/// @return the string in canonical order; n log n in the pairs, linear if they are in order
std::string CanonicalAlignments(std::string_view Alignments,
                                std::vector<MissingIndex>& vMissingReturn);

/// The index texts of one pair, as views of the string.
struct DisplayPair {
  std::string_view X;
  std::string_view Y;
};

/// Iterates over the pairs of a string in their order. It ends at a comma before "(". Linear in any
/// text.
class DisplayWalk {
 public:
  explicit DisplayWalk(std::string_view TextPassIn) : Text(TextPassIn) {}

  /// Stores the next pair in `PairReturn`; false when there is none.
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

/// The string with x and y exchanged in every pair, in the same order and without the white space
/// around the numbers; "" for "". Only 100,000 bytes after the first pair are read. Nothing if a
/// pair does not have exactly two parts, as in "()". Linear.
std::optional<std::string> ReversedAlignments(std::string_view Alignments);

}  // namespace TrRuleInternal
