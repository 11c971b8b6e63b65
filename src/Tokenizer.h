#pragma once

#include "PieceCutter.h"

#include <string>
#include <utility>
#include <vector>

/// Cuts a text at a delimiter that is matched as one whole string.
///
/// A function object without state. Worked example:
/// @code
///   Tokenizer Tokenize;
///   Tokenize("::a::::b::", "::");           // {"a", "b"}
///   Tokenize("DET  ADJ\t N", " ", true);    // {"DET", "ADJ", "N"}
/// @endcode
///
/// Empty pieces are never returned. Once a text has been cut, only the 100,000 bytes after the
/// cut are looked at; what lies beyond is dropped. An empty delimiter does not cut. Nothing is
/// printed.
class __attribute__((visibility("default"))) Tokenizer {
 public:
  /// The non-empty pieces of a text between the occurrences of the delimiter, in order.
  /// @param sPassIn the text; empty gives no pieces
  /// @param sDelimiterPassIn the delimiter, one whole string
  /// @return the pieces; linear in the text
  std::vector<std::string> operator()(std::string sPassIn, std::string sDelimiterPassIn) const {
    return (*this)(std::move(sPassIn), std::move(sDelimiterPassIn), false);
  }

  /// As the two-argument form; with `TrimPassIn` each piece also loses the white space at its
  /// ends. A piece that held only white space stays in the result as an empty string, and one
  /// that begins with white space is cut to 1,000,000 bytes.
  /// @param sPassIn the text
  /// @param sDelimiterPassIn the delimiter, one whole string
  /// @param TrimPassIn whether to trim the pieces
  /// @return the pieces; linear in the text
  std::vector<std::string> operator()(std::string sPassIn, std::string sDelimiterPassIn,
                                      bool TrimPassIn) const {
    std::vector<std::string> vsPieces;
    TrRuleInternal::PieceCutter Cutter(sPassIn, sDelimiterPassIn);
    for (std::string_view Piece; Cutter.Next(Piece);) {
      vsPieces.emplace_back(TrimPassIn ? TrRuleInternal::TrimmedPiece(Piece) : Piece);
    }
    return vsPieces;
  }
};
