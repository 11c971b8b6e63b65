#pragma once

#include "Finding.h"
#include "RuleRecord.h"
#include "RuleText.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

namespace Grammar {

/// What a rule is known by: two sums of what it says, and its header.
struct RuleIdentity {
  std::uint64_t FormSum = 0;
  std::uint64_t OtherFormSum = 0;
  std::string Header;  ///< "{NP,8}"; empty if none can be read
};

/// Finds rules that say the same as an earlier one, and numbers that are used twice.
///
/// Of each rule it remembers two sums of its normal form and of its header, and the place: some
/// hundred bytes, however long the rule is. That two different texts have both sums in common is
/// not to be expected in any grammar.
class RepeatedRules {
 public:
  /// @param FormsPassIn whether to look for equal rules (TR033)
  /// @param NumbersPassIn whether to look for equal numbers (TR034)
  RepeatedRules(bool FormsPassIn, bool NumbersPassIn)
      : WantsForms(FormsPassIn), WantsNumbers(NumbersPassIn) {}

  /// What is to be known of a rule that was read. May be called on several threads at once.
  /// @param BufferReturn is written over; with the same one for many rules, none has to make its
  /// own
  RuleIdentity IdentityOf(const RuleRecord& RecordPassIn, std::string& BufferReturn) const;

  /// Compares a rule with those before it.
  /// @param TextPassIn where it stands
  void Check(const RuleText& TextPassIn, const RuleIdentity& IdentityPassIn,
             std::vector<Finding>& vFindingsReturn);

 private:
  struct Place {
    std::uint64_t OtherSum;
    std::uint32_t File;
    std::uint32_t Line;
  };
  using Places = std::unordered_map<std::uint64_t, Place>;

  const Place* FindOrAdd(Places& PlacesReturn, std::uint64_t Sum, std::uint64_t OtherSum,
                         std::size_t Line);
  void Report(std::string_view Code, const std::string& Message, const RuleText& Text,
              std::size_t LineIndex, const Place& First, std::vector<Finding>& vFindingsReturn);

  bool WantsForms;
  bool WantsNumbers;
  Places Forms;
  Places Numbers;
  std::vector<std::string> vsFiles;
};

}  // namespace Grammar
