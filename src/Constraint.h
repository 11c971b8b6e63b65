#pragma once

#include "Tokenizer.h"

// A static initialiser of a host may read a text, which may print a message: the streams must be
// constructed by then.
#include <iostream>
#include <string>

namespace TrRuleInternal {
class RuleLoader;
}

/// One feature constraint of a transfer rule: which node it constrains, which feature, and the
/// value or the node that it refers to.
///
/// Worked example:
/// @code
///   Constraint Number("((y1 num) = sg)");
///   Number.GetCategory();          // 4
///   Number.GetConstrainedIndex();  // 1
///   Number.GetFeature();           // "NUM"
///   Number.GetFeatValue();         // "SG"
///   Number.IsValueConstraint();    // true
///   Number.ReturnAsString();       // "((Y1 NUM) = SG)"
/// @endcode
///
/// Indices count the components of the rule from 1; index 0 is the rule's own node (x0, y0).
/// Categories: 1, a source-side (x) node; 2, the feature of a target-side (y) node whose value
/// mentions an x node; 3, the node y0; 4, another y node; -1, unknown.
///
/// A text may change when it is read and written back: docs/behaviour.md lists the differences.
class __attribute__((visibility("default"))) Constraint {
 public:
  /// An empty value constraint: category, index and rank -1, feature and value empty.
  Constraint();

  /// Stores the six values unchanged; nothing is checked.
  /// @param CategoryPassIn the category
  /// @param ConstrainedIndexPassIn the constrained node, 0 for the rule's own
  /// @param FeaturePassIn the feature path, or "all" for the whole node
  /// @param FeatValuePassIn the value, or the node that is referred to
  /// @param RankInCategoryPassIn the position among the constraints of the category
  /// @param ValueConstraintPassIn whether the right side is a value
  Constraint(int CategoryPassIn, int ConstrainedIndexPassIn, std::string FeaturePassIn,
             std::string FeatValuePassIn, int RankInCategoryPassIn, bool ValueConstraintPassIn);

  /// Reads one constraint text, for example "((x0 det) = x1)"; letters are upper-cased first.
  ///
  /// A text that is not in the format prints "ERROR in Constraint::Constraint(string): Constraint
  /// was not in correct format:|", the upper-cased text, "|" and a line end on standard error and
  /// leaves the constraint as constructed by `Constraint()`. A whole-node text whose "=" signs
  /// leave fewer than two sides does the same without a message. Never ends the process. Linear.
  /// @param ConstraintPassIn the text
  Constraint(std::string ConstraintPassIn);

  /// Copies the six values. There is no move: `std::move` copies a constraint.
  Constraint(const Constraint& OtherPassIn);

  ~Constraint();

  /// Copies the six values of the other constraint.
  void operator=(Constraint OtherPassIn);

  /// Compares the written texts, byte by byte. The rank is not compared, and the category only as
  /// far as the text shows it. Writes both texts for each comparison.
  bool operator<(Constraint OtherPassIn) const;

  /// The constraint as text: "((X0 DET) = X1)" for a value, "(X0 = X3)" for a whole node,
  /// "((Y3 AGR) = (Y2 AGR))" for a node's feature. The side is X for category 1 and Y for every
  /// other. Linear in the text.
  std::string ReturnAsString() const;

  /// Sets the category.
  ///
  /// Any other number than 1, 2, 3 or 4 prints "Constraint::SetCategory must be called with
  /// 1,2,3, or 4." on standard error and ends the process with status 1.
  /// @param CategoryPassIn the category
  void SetCategory(int CategoryPassIn);
  /// The category, -1 if unknown.
  int GetCategory() const;

  /// Stores the number of the constrained node; not checked.
  void SetConstrainedIndex(int ConstrainedIndexPassIn);
  /// The number of the constrained node: from 1, 0 for the rule's own, -1 if unknown.
  int GetConstrainedIndex() const;

  /// Stores the feature unchanged.
  void SetFeature(std::string FeaturePassIn);
  /// The feature, or "all" where the whole node is constrained.
  std::string GetFeature() const;

  /// Stores the value unchanged.
  void SetFeatValue(std::string FeatValuePassIn);
  /// The right side: a value ("SG"), a disjunction ("(*OR* SG PL)") or the opening of a node
  /// reference ("X3", "(Y2", "(Y0 DET").
  std::string GetFeatValue() const;

  /// Stores the position among the constraints of the category; not checked.
  void SetRankInCategory(int RankInCategoryPassIn);
  /// The position among the constraints of the category, -1 if unknown.
  int GetRankInCategory() const;

  /// Stores whether the right side is a value.
  void SetValueConstraint(bool ValueConstraintPassIn);
  /// Whether the right side is a value rather than a reference to another node.
  bool IsValueConstraint() const;

  /// The number of the node that a value text refers to: the number after its last capital X or Y,
  /// read from at most 1000 bytes. For example, it is 2 for "(Y2" and 0 for "(Y0 DET".
  /// @param FeatValuePassIn the text; the members of the constraint are not used
  /// @return the number, -1 if there is no such letter or nothing after it
  int GetAgreedIndex(std::string FeatValuePassIn) const;

 private:
  // A rule reads, merges and writes its constraints in place.
  friend class TrRule;
  friend class TrRuleInternal::RuleLoader;

  /// Moves the six values out of a constraint that is no longer needed.
  void TakeOver(Constraint& OtherReturn);
  void AppendTo(std::string& TextReturn) const;

  int Category;
  int ConstrainedIndex;
  std::string Feature;
  std::string FeatValue;
  int RankInCategory;
  bool ValueConstraint;
  [[maybe_unused]] Tokenizer Tokenize;
};
