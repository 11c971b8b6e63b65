#pragma once

#include "RuleFindings.h"
#include "SourceRule.h"

#include <string>
#include <string_view>

namespace Grammar {

/// What the library writes of a constraint that it has read.
std::string TextOf(const TrRuleInternal::ConstraintFields& Fields);

/// Finds what is wrong with one constraint line that is in the format, or will surprise.
///
/// @code
/// RuleFindings Findings(Text, vFindings);
/// ConstraintChecker(Lines, Findings).Check(Lines.Constraints().front());  // true
/// vFindings.size();                                                       // 0
/// @endcode
class ConstraintChecker {
 public:
  /// @param RulePassIn, FindingsPassIn have to outlive the checker
  ConstraintChecker(const SourceRule& RulePassIn, RuleFindings& FindingsPassIn)
      : Rule(RulePassIn), Findings(FindingsPassIn) {}

  /// @return whether the library can use the constraint: an agreement names a node
  bool Check(const SourceRule::ConstraintLine& Stored);

 private:
  using Constraint = SourceRule::ConstraintLine;

  std::string_view CodeOf(const Constraint& Stored) const { return Rule.CodeOf(Stored.Line); }
  std::string LibraryTextOf(const Constraint& Stored) const;
  bool CheckAgreement(const Constraint& Stored);
  void CheckEquals(const Constraint& Stored);
  void CheckFeatures(const Constraint& Stored);
  void CheckRightFeature(const Constraint& Stored);
  void CheckNegation(const Constraint& Stored);
  void CheckCategory(const Constraint& Stored);
  void CheckBlank(const Constraint& Stored);
  void CheckWords(const Constraint& Stored);
  void CheckWordGap(const Constraint& Stored);
  void CheckLetters(const Constraint& Stored);

  const SourceRule& Rule;
  RuleFindings& Findings;
};

}  // namespace Grammar
