// Sections, in the order of the header: canonical order, display, exchanging the sides.

#include "AlignmentText.h"

#include "Ascii.h"
#include "Splitter.h"

#include <algorithm>
#include <tuple>

namespace TrRuleInternal {

// ---- Canonical order --------------------------------------------------------------------------

bool HasOuterParentheses(std::string_view Alignments) {
  return Alignments.size() <= 2 || (Alignments.front() == '(' && Alignments.back() == ')');
}

// Canonical = "(" Pair { "," Pair } ")"; Pair = "(" x "," y ")", each after the one before
std::optional<IndexPair> LastOfCanonical(std::string_view Alignments) {
  if (!Take(Alignments, "(")) {
    return std::nullopt;
  }
  IndexPair Last{-1, -1};
  do {
    const bool HasX = Take(Alignments, "(");
    const int X = TakeNumber(Alignments);
    const bool HasY = Take(Alignments, ",");
    const int Y = TakeNumber(Alignments);
    const bool IsPair = HasX && HasY && Take(Alignments, ")");
    if (!IsPair || X < 0 || Y < 0 || IndexPair(X, Y) <= Last) {
      return std::nullopt;
    }
    Last = {X, Y};
  } while (Take(Alignments, ","));
  return Alignments == ")" ? std::optional<IndexPair>(Last) : std::nullopt;
}

void AppendPair(std::string& AlignmentsReturn, std::string_view X, std::string_view Y) {
  constexpr std::size_t TypicalSize = 32;
  if (AlignmentsReturn.empty()) {
    AlignmentsReturn.reserve(TypicalSize);
    AlignmentsReturn += '(';
  } else {
    AlignmentsReturn.back() = ',';
  }
  constexpr std::string_view Marks = "(,))";
  const std::size_t Begin = AlignmentsReturn.size();
  AlignmentsReturn.append(X.size() + Y.size() + Marks.size(), ')');
  auto At = AlignmentsReturn.begin() + static_cast<std::ptrdiff_t>(Begin);
  *At++ = '(';
  At = std::copy(X.begin(), X.end(), At);
  *At++ = ',';
  std::copy(Y.begin(), Y.end(), At);
}

namespace {

/// One pair of a string: its indices as numbers, and its text.
struct IndexedPair {
  int X;
  int Y;
  std::string_view Text;
};

bool SortsBefore(const IndexedPair& Left, const IndexedPair& Right) {
  return std::tie(Left.X, Left.Y) < std::tie(Right.X, Right.Y);
}

bool HasSameIndices(const IndexedPair& Left, const IndexedPair& Right) {
  return Left.X == Right.X && Left.Y == Right.Y;
}

/// Whether the comma, which is not the last byte, separates two pairs, as in "),(".
bool IsSeparator(std::string_view Text, std::size_t Comma) {
  return Comma > 0 && Text[Comma - 1] == ')' && Text[Comma + 1] == '(';
}

/// Cuts the text between the outer parentheses at its separators.
std::vector<std::string_view> CutAtSeparators(std::string_view Inner) {
  std::vector<std::string_view> vPieces;
  std::size_t Comma = Inner.find(',');
  while (Comma != std::string_view::npos && Comma + 1 < Inner.size()) {
    if (IsSeparator(Inner, Comma)) {
      vPieces.push_back(Inner.substr(0, Comma));
      Inner.remove_prefix(Comma + 1);
      Comma = Inner.find(',');
    } else {
      Comma = Inner.find(',', Comma + 1);
    }
  }
  if (Comma == std::string_view::npos) {
    vPieces.push_back(Inner);
  }
  return vPieces;
}

/// The number between the first `Open` and the first `Close` of a pair; 0 if they are in the wrong
/// order. Nothing if one is missing or `Open` is the last byte.
std::optional<int> NumberBetween(std::string_view Pair, char Open, char Close) {
  const std::size_t Start = Pair.find(Open);
  const std::size_t End = Pair.find(Close);
  if (Start == std::string_view::npos || End == std::string_view::npos ||
      Start + 1 == Pair.size()) {
    return std::nullopt;
  }
  return End < Start ? 0 : ToInt(Pair.substr(Start + 1, End - Start - 1));
}

/// Parses the pairs in order; a missing index is taken from the previous pair.
std::vector<IndexedPair> ParsePairs(const std::vector<std::string_view>& vTexts,
                                    std::vector<MissingIndex>& vMissingReturn) {
  std::vector<IndexedPair> vPairs;
  vPairs.reserve(vTexts.size());
  IndexedPair Pair{0, 0, {}};
  const auto Note = [&](std::optional<int> Number, int& IndexReturn, MissingIndex Which) {
    if (Number) {
      IndexReturn = *Number;
    } else {
      vMissingReturn.push_back(Which);
    }
  };
  for (const std::string_view Text : vTexts) {
    Note(NumberBetween(Text, '(', ','), Pair.X, MissingIndex::X);
    Note(NumberBetween(Text, ',', ')'), Pair.Y, MissingIndex::Y);
    Pair.Text = Text;
    vPairs.push_back(Pair);
  }
  return vPairs;
}

std::string JoinPairs(const std::vector<IndexedPair>& vPairs, std::size_t SizeHint) {
  std::string Joined;
  Joined.reserve(SizeHint);
  for (const IndexedPair& Pair : vPairs) {
    Joined += Joined.empty() ? '(' : ',';
    Joined += Pair.Text;
  }
  if (!Joined.empty()) {
    Joined += ')';
  }
  return Joined;
}

}  // namespace

std::string CanonicalAlignments(std::string_view Alignments,
                                std::vector<MissingIndex>& vMissingReturn) {
  vMissingReturn.clear();
  if (Alignments.empty()) {
    return {};
  }
  const std::string_view Inner =
      Alignments.size() > 2 ? Alignments.substr(1, Alignments.size() - 2) : std::string_view();
  std::vector<IndexedPair> vPairs = ParsePairs(CutAtSeparators(Inner), vMissingReturn);
  if (Alignments == "()") {
    // The empty alignment, not a pair that lacks its indices.
    vMissingReturn.clear();
  }
  std::stable_sort(vPairs.begin(), vPairs.end(), SortsBefore);
  vPairs.erase(std::unique(vPairs.begin(), vPairs.end(), HasSameIndices), vPairs.end());
  return JoinPairs(vPairs, Alignments.size());
}

// ---- Display ----------------------------------------------------------------------------------

bool DisplayWalk::Next(DisplayPair& PairReturn) {
  if (Begin >= Text.size() || !FindComma()) {
    return false;
  }
  const std::size_t Close = Text.find(')', Begin);
  PairReturn = {XText(Close), Between(Comma + 1, Close)};
  constexpr std::size_t CloseAndSeparator = 2;
  Begin = Close == std::string_view::npos ? Text.size() : Close + CloseAndSeparator;
  return true;
}

/// Finds the first comma of the rest and the last "(" before it; false if no pair can have that
/// comma. Both are searched again only once the walk has passed them, which keeps it linear.
bool DisplayWalk::FindComma() {
  if (Comma == std::string_view::npos || Comma < Begin) {
    Comma = Text.find(',', Begin);
    const std::size_t OpenInRest = Text.substr(Begin, Comma - Begin).rfind('(');
    Open = OpenInRest == std::string_view::npos ? OpenInRest : Begin + OpenInRest;
  }
  return Comma != std::string_view::npos && Comma + 1 < Text.size() && Text[Comma + 1] != '(';
}

/// Without a "(", x begins where the rest begins, unless its pair is already closed.
std::string_view DisplayWalk::XText(std::size_t Close) const {
  const bool HasOpen = Open != std::string_view::npos && Open >= Begin;
  if (HasOpen) {
    return Between(Open + 1, Comma);
  }
  return Close < Comma ? std::string_view() : Between(Begin, Comma);
}

std::string_view DisplayWalk::Between(std::size_t Start, std::size_t End) const {
  return End < Start ? std::string_view() : Text.substr(Start, End - Start);
}

// ---- Exchanging the sides ---------------------------------------------------------------------

namespace {

std::string_view WithoutParentheses(std::string_view Pair) {
  const auto IsOpen = [](char Byte) { return Byte == '('; };
  const auto IsClose = [](char Byte) { return Byte == ')'; };
  return DropBack(DropFront(Pair, IsOpen), IsClose);
}

}  // namespace

std::optional<std::string> ReversedAlignments(std::string_view Alignments) {
  if (Alignments.empty()) {
    return std::string();
  }
  std::string Reversed = "(";
  Splitter Pairs(Alignments, "),(");
  for (std::string_view Pair; Pairs.Next(Pair);) {
    const auto Sides = SplitInTwoTrimmed(WithoutParentheses(TrimmedField(Pair)), ",");
    if (!Sides) {
      return std::nullopt;
    }
    Append(Reversed, {"(", Sides->Second, ",", Sides->First, "),"});
  }
  if (Reversed.back() == ',') {
    Reversed.pop_back();
  }
  Reversed += ')';
  return Reversed;
}

}  // namespace TrRuleInternal
