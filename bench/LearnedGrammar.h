#pragma once

#include "SeededNumbers.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Makes a grammar like those that are learned from aligned texts, and sentences for it.
///
/// Two rules in five are lexical, of one to three words. The others have two to five components, of
/// which one or two are places, of 200 labels. Labels and words have a natural distribution: the
/// k-th is 1/k as frequent as the first. Every word has a rule of its own, and glue rules join
/// whatever there is from left to right, so that every sentence of these words has a translation:
///
///   ;;Score: 3
///   L7::L7 : ["w12" L3 L1] -> [L1 "v12" L3]
///   (X2::Y3)
///   (X3::Y1)
///
/// The same seed gives the same on every machine.
class LearnedGrammar {
 public:
  /// @param Suffix ends all labels and words, so that grammars can be made that have none in common
  LearnedGrammar(std::uint64_t Seed, bool HasConstraintsPassIn, std::string SuffixPassIn = "");

  /// The rules that make every text translatable: about 2,400.
  std::string BaseRules();
  /// One of the others.
  std::string NextRule();
  /// Ten to twenty-five words between blanks.
  std::string NextSentence();
  std::string Sentence(std::size_t Size);

 private:
  static constexpr std::size_t Labels = 200;
  static constexpr std::size_t Words = 2000;

  std::size_t Ranked(const std::vector<double>& vLimits);
  std::string Label(std::size_t Number) const;
  std::string LexicalRule(std::size_t Label, const std::vector<std::size_t>& vWords);
  std::string PhraseRule();
  std::string GlueRules() const;
  std::string Score();

  SeededNumbers Numbers;
  bool HasConstraints;
  std::string Suffix;
  std::vector<double> vLabelLimits;
  std::vector<double> vWordLimits;
};
