#pragma once

#include "Finding.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Grammar {

/// Finds rules that say the same as an earlier one, and numbers that are used twice.
///
/// Of each rule it remembers two sums of its comparison text and of its header, and the place: some
/// hundred bytes, however long the rule is. That two different texts have both sums in common is
/// not to be expected in any grammar.
class RepeatedRules {
 public:
  /// @param FormsPassIn whether to look for equal rules (TR033)
  /// @param NumbersPassIn whether to look for equal numbers (TR034)
  RepeatedRules(bool FormsPassIn, bool NumbersPassIn)
      : WantsForms(FormsPassIn), WantsNumbers(NumbersPassIn) {}

  /// Compares a rule with those before it.
  /// @param TextPassIn where it stands
  /// @param RecordPassIn the rule, read
  void Check(const RuleText& TextPassIn, const RuleRecord& RecordPassIn,
             std::vector<Finding>& vFindingsReturn);

 private:
  struct Place {
    std::uint64_t SecondSum;
    std::uint32_t File;
    std::uint32_t Line;
  };
  using Places = std::unordered_map<std::uint64_t, Place>;

  const Place* FindOrAdd(Places& PlacesReturn, const std::string& Text, std::size_t Line);
  void Report(std::string_view Code, const std::string& Message, const RuleText& Text,
              std::size_t LineIndex, const Place& First, std::vector<Finding>& vFindingsReturn);

  bool WantsForms;
  bool WantsNumbers;
  Places Forms;
  Places Numbers;
  std::vector<std::string> vsFiles;
};

}  // namespace Grammar
