#pragma once

#include "Finding.h"
#include "Hashing.h"
#include "RuleRecord.h"
#include "RuleText.h"
#include "SumPair.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Grammar {

/// What a rule is known by: sums of what it says, and its header.
struct RuleIdentity {
  SumPair Form;
  std::string Header;  ///< "{NP,8}"; empty if none can be read
};

/// Finds rules that say the same as an earlier one, and numbers that are used twice.
///
/// Of each rule it remembers sums of its normal form and of its header, and the place: some
/// hundred bytes, however long the rule is.
///
/// @code
/// RepeatedRules Repeated(true, true);
/// std::string Buffer;
/// RuleIdentity Identity;
/// Repeated.Identify(Record, Buffer, Identity);
/// Repeated.Check(Text, Identity, vFindings);
/// vFindings.size();  // 0
/// Repeated.Check(Text, Identity, vFindings);
/// vFindings.size();  // 2
/// @endcode
class RepeatedRules {
 public:
  /// @param FormsPassIn whether to look for equal rules (TR033)
  /// @param NumbersPassIn whether to look for equal numbers (TR034)
  RepeatedRules(bool FormsPassIn, bool NumbersPassIn)
      : WantsForms(FormsPassIn), WantsNumbers(NumbersPassIn) {}

  /// What is to be known of a rule that was read. May be called on several threads at once.
  /// @param BufferReturn is written over; with the same one for many rules, none has to make its
  /// own
  /// @param IdentityReturn is written over
  void Identify(const RuleRecord& RecordPassIn, std::string& BufferReturn,
                RuleIdentity& IdentityReturn) const;

  /// Compares a rule with those before it.
  /// @param TextPassIn where it stands
  void Check(const RuleText& TextPassIn, const RuleIdentity& IdentityPassIn,
             std::vector<Finding>& vFindingsReturn);

 private:
  struct Place {
    std::uint32_t File;
    std::uint32_t Line;
  };

  /// What has been seen, by its sums.
  struct Seen {
    std::vector<SumPair> vSums;
    std::vector<Place> vPlaces;
    IndexTable Index;
  };

  const Place* FindOrAdd(Seen& SeenReturn, const SumPair& Sums, std::size_t Line);
  void Report(std::string_view Code, const std::string& Message, const RuleText& Text,
              std::size_t LineIndex, const Place& First, std::vector<Finding>& vFindingsReturn);

  bool WantsForms;
  bool WantsNumbers;
  Seen Forms;
  Seen Numbers;
  std::vector<std::string> vsFiles;
};

}  // namespace Grammar
