#pragma once

#include <cstddef>
#include <random>
#include <string>

/// Small grammars and texts with much in common: few labels, words, features and atoms, so that
/// rules fit, and equations clash, often. The same seed gives the same everywhere.
///
///   RandomGrammar Random(7);
///   const std::string Grammar = Random.Grammar();
///   const std::string Text = Random.Text("ab");  // "b a a"
class RandomGrammar {
 public:
  explicit RandomGrammar(unsigned Seed) : Numbers(Seed) {}

  std::string Grammar();
  /// A text of one to four of these words.
  std::string Text(const std::string& Letters);

 private:
  std::size_t Below(std::size_t Limit);
  std::string Of(const std::string& Letters);
  std::string Rule(bool IsLexical);
  std::string Sequence(std::size_t Size, const std::string& Places, std::string& KindsReturn);
  std::string Alignments(const std::string& Source, const std::string& Target);
  std::string Path(char Side, std::size_t Size);
  std::string Constraint(std::size_t SourceSize, std::size_t TargetSize);

  std::mt19937 Numbers;
};
