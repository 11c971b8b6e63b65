#pragma once

#include "SeededNumbers.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Makes rule texts like those that a grammar learner writes.
///
/// Labels come from 40 with a natural distribution (the k-th is 1/k as frequent as the first), a
/// side has 1 to 8 components, the alignments are a partial permutation, and 0 to 10 constraints
/// of every form follow, some with values that merge. No constraints form a cycle, so every rule
/// can be written. The same seed gives the same texts on every machine:
/// @code
///   RuleGenerator Generator(7);
///   Generator.NextRule();  // ";; SL: ...\n;; TL: ...\n;; Users: ...\n{NP,3}\nNP::NP : [...\n"
/// @endcode
class RuleGenerator {
 public:
  explicit RuleGenerator(std::uint64_t Seed);

  /// The text of the next rule; it ends with a line end.
  std::string NextRule();

 private:
  std::size_t Below(std::size_t Limit) { return Numbers.Below(Limit); }
  bool OneIn(std::size_t Chances) { return Numbers.OneIn(Chances); }
  const std::string& Pick(const std::vector<std::string>& vsTexts);
  std::string Label();
  std::string Sequence(std::size_t Size);
  std::string Comments(std::size_t Words);
  std::string Alignments(std::size_t SLSize, std::size_t TLSize);
  std::string Constraint(std::size_t SLSize, std::size_t TLSize);
  std::string SourceConstraint(std::size_t SLSize);
  std::string TargetConstraint(std::size_t SLSize, std::size_t TLSize);
  std::string Value();

  SeededNumbers Numbers;
  std::vector<double> vLabelLimits;
};

/// The requested number of rules, from one generator.
std::vector<std::string> GeneratedRules(std::uint64_t Seed, std::size_t Count);
