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
///   ConstraintChecker(Rule, Findings).Check(Rule.Constraints().front());
class ConstraintChecker {
 public:
  /// @param RulePassIn, FindingsPassIn have to outlive the checker
  ConstraintChecker(const SourceRule& RulePassIn, RuleFindings& FindingsPassIn)
      : Rule(RulePassIn), Findings(FindingsPassIn) {}

  /// @return whether the library can use the constraint: an agreement names a node
  bool Check(const SourceRule::ConstraintLine& Each);

 private:
  using Constraint = SourceRule::ConstraintLine;

  std::string_view CodeOf(const Constraint& Each) const { return Rule.CodeOf(Each.Line); }
  std::string LibraryTextOf(const Constraint& Each) const;
  bool CheckAgreement(const Constraint& Each);
  void CheckEquals(const Constraint& Each);
  void CheckFeatures(const Constraint& Each);
  void CheckRightFeature(const Constraint& Each);
  void CheckNegation(const Constraint& Each);
  void CheckCategory(const Constraint& Each);
  void CheckBlank(const Constraint& Each);
  void CheckWords(const Constraint& Each);
  void CheckWordGap(const Constraint& Each);
  void CheckLetters(const Constraint& Each);

  const SourceRule& Rule;
  RuleFindings& Findings;
};

}  // namespace Grammar
