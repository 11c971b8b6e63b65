#pragma once

#include "Splitter.h"

#include <string>
#include <utility>
#include <vector>

/// Splits a text at a delimiter, which is matched as one whole string.
///
/// A function object without state. Worked example:
/// @code
///   Tokenizer Tokenize;
///   Tokenize("::a::::b::", "::");           // {"a", "b"}
///   Tokenize("DET  ADJ\t N", " ", true);    // {"DET", "ADJ", "N"}
/// @endcode
///
/// Empty pieces are never returned. After each split, only the next 100,000 bytes are kept. An
/// empty delimiter does not split. Nothing is printed.
class __attribute__((visibility("default"))) Tokenizer {
 public:
  /// The non-empty pieces of a text between the occurrences of the delimiter, in order.
  /// @param sPassIn the text; an empty one has no pieces
  /// @param sDelimiterPassIn the delimiter, one whole string
  /// @return the pieces; linear in the text
  std::vector<std::string> operator()(std::string sPassIn, std::string sDelimiterPassIn) const {
    return (*this)(std::move(sPassIn), std::move(sDelimiterPassIn), false);
  }

  /// As the two-argument form. With `TrimPassIn`, each piece is also trimmed. A piece of white
  /// space alone stays in the result as an empty string, and a piece that begins with white space
  /// is cut to 1,000,000 bytes.
  /// @param sPassIn the text
  /// @param sDelimiterPassIn the delimiter, one whole string
  /// @param TrimPassIn whether to trim the pieces
  /// @return the pieces; linear in the text
  std::vector<std::string> operator()(std::string sPassIn, std::string sDelimiterPassIn,
                                      bool TrimPassIn) const {
    std::vector<std::string> vsPieces;
    TrRuleInternal::Splitter Fields(sPassIn, sDelimiterPassIn);
    for (std::string_view Field; Fields.Next(Field);) {
      vsPieces.emplace_back(TrimPassIn ? TrRuleInternal::TrimmedField(Field) : Field);
    }
    return vsPieces;
  }
};
