#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace Grammar {

/// What a rule consists of, as numbers: its types, each label of each side, each alignment and each
/// constraint. In ascending order.
using RuleTokens = std::vector<std::uint64_t>;

/// The tokens of the block of a rule in the normal form.
RuleTokens TokensOf(std::string_view BlockPassIn);

/// How much two rules have in common, from 0 to 100: twice the number of tokens that both have, by
/// the number of all.
///
/// @code
/// const RuleTokens Old = TokensOf("NP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n(X2::Y2)\n)");
/// const RuleTokens New = TokensOf("NP::NP [DET N] -> [DET N]\n(\n(X1::Y1)\n)");
/// Likeness(Old, New);  // 92
/// @endcode
///
unsigned Likeness(const RuleTokens& OldPassIn, const RuleTokens& NewPassIn);

/// An old and a new rule that are taken for two versions of one, by their places in the lists.
struct NearPair {
  std::size_t Old;
  std::size_t New;
  unsigned Score;  ///< their likeness
};

/// Pairs old and new rules, the most alike first; of equal ones those that come first.
///
/// Up to `MostPairs` pairs are all compared. Of more, each new rule is compared with the
/// `MostCandidates` old rules that share its rarest tokens, and of those the `MostKept` most alike
/// are kept for pairing, so that the work grows little faster than the number of rules. If many
/// share a token, those are taken that have about the same place in their list as the new rule.
/// @param LeastScore how much two rules of a pair have in common at least
std::vector<NearPair> FindNearest(const std::vector<RuleTokens>& vOldPassIn,
                                  const std::vector<RuleTokens>& vNewPassIn, unsigned LeastScore);

constexpr std::size_t MostPairs = 4096;
constexpr std::size_t MostCandidates = 64;
constexpr std::size_t MostKept = 8;

}  // namespace Grammar
