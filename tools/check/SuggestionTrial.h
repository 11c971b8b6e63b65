#pragma once

#include "Finding.h"
#include "RuleText.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Grammar {

/// Tries suggestions: a rule is checked again for each, up to a number of bytes.
class SuggestionTrial {
 public:
  /// Adds what is found in a rule, in order, with suggestions that nobody has tried.
  using Checker = std::function<void(const RuleText&, std::vector<Finding>&)>;

  /// @param vFindingsPassIn all that was found in the rule, in order
  SuggestionTrial(const RuleText& TextPassIn, Checker CheckPassIn,
                  std::vector<Finding>& vFindingsPassIn);

  /// Leaves those suggestions whose line then has no finding. All findings of a line get the same.
  void Settle();

 private:
  std::string Tried(std::size_t Number, const Finding& First);
  std::optional<Finding> FirstFindingIn(std::size_t Line, const std::string& Corrected);

  const RuleText& Text;
  Checker Check;
  std::vector<Finding>& vFindings;
  std::size_t BytesTried = 0;
  bool IsOutOfBytes = false;
};

}  // namespace Grammar
