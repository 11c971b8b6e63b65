#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// Makes random input for tests, the same in every run unless TRRULE_TEST_SEED says otherwise.
///
/// Take each number in a separate statement: the compiler chooses the order of operands and
/// arguments, and the input must not depend on it.
///
///   RandomInput Random;
///   Random.Pick(ConstraintSamples);             // one of them
///   Random.Damaged("((x0 det) = x1)", "()=");   // such as "(x0 det)== x1)"
class RandomInput {
 public:
  /// TRRULE_TEST_SEED of the environment, or the default seed.
  static unsigned Seed();

  /// A number below the limit.
  std::size_t Below(std::size_t Limit) { return Engine() % Limit; }

  /// One element of a vector, or one byte of a string.
  template <typename CollectionT>
  auto Pick(const CollectionT& Collection) {
    return Collection[Below(Collection.size())];
  }

  /// Up to that many bytes of an alphabet.
  std::string TextOf(const std::string& Alphabet, std::size_t MaxLength);

  /// The text with some bytes removed, replaced or inserted.
  std::string Damaged(std::string Text, const std::string& Bytes);

  /// Up to that many words, in any order.
  std::string WordsOf(const std::vector<std::string>& vsWords, std::size_t MaxCount);

 private:
  std::mt19937 Engine{Seed()};
};
