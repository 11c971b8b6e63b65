#pragma once

#include "Ascii.h"

#include <optional>
#include <string_view>

/// @file
/// Cutting a text at a whole delimiter string without copying it.
///
/// Empty pieces are never handed out, and an empty delimiter does not cut. For example
/// `"::a::::b::"` cut at `"::"` gives `"a"` and `"b"`, and `"abc"` cut at `"x"` gives `"abc"`.

namespace TrRuleInternal {

/// Hands out the pieces of one text, one at a time; they point into the text, which must outlive
/// the cutter.
class PieceCutter {
 public:
  /// How many bytes after a delimiter are still looked at; what lies beyond is dropped by the cut.
  static constexpr std::size_t MaxRest = 100000;

  constexpr PieceCutter(std::string_view TextPassIn, std::string_view DelimiterPassIn)
      : Rest(TextPassIn), Delimiter(DelimiterPassIn) {}

  /// Gives the next piece in `PieceReturn`; false when there is none. Linear in the piece.
  constexpr bool Next(std::string_view& PieceReturn) {
    while (!Rest.empty()) {
      PieceReturn = CutOne();
      if (!PieceReturn.empty()) {
        return true;
      }
    }
    return false;
  }

 private:
  constexpr std::string_view CutOne() {
    const std::size_t End = Find(Rest, Delimiter);
    const std::string_view Piece = Rest.substr(0, End);
    Rest = End == std::string_view::npos ? std::string_view()
                                         : Rest.substr(End + Delimiter.size(), MaxRest);
    return Piece;
  }

  std::string_view Rest;
  std::string_view Delimiter;
};

/// A piece without the white space at its ends; it may become empty. A piece that begins with
/// white space is cut to a million bytes.
constexpr std::string_view TrimmedPiece(std::string_view Piece) {
  constexpr std::size_t MaxTrimmed = 1000000;
  return WithoutTrailingSpace(WithoutLeadingSpace(Piece, MaxTrimmed));
}

/// The two pieces of a text that has exactly two.
struct PiecePair {
  std::string_view First;
  std::string_view Second;
};

/// Cuts `Text` at `Delimiter`; nothing unless that gives exactly two pieces.
constexpr std::optional<PiecePair> CutInTwo(std::string_view Text, std::string_view Delimiter) {
  PieceCutter Cutter(Text, Delimiter);
  PiecePair Pair;
  std::string_view Third;
  if (!Cutter.Next(Pair.First) || !Cutter.Next(Pair.Second) || Cutter.Next(Third)) {
    return std::nullopt;
  }
  return Pair;
}

/// As `CutInTwo`, with both pieces trimmed; a piece of white space alone counts and comes out
/// empty.
constexpr std::optional<PiecePair> CutInTwoTrimmed(std::string_view Text,
                                                   std::string_view Delimiter) {
  std::optional<PiecePair> Pair = CutInTwo(Text, Delimiter);
  if (Pair) {
    Pair->First = TrimmedPiece(Pair->First);
    Pair->Second = TrimmedPiece(Pair->Second);
  }
  return Pair;
}

}  // namespace TrRuleInternal
