// Sections, in the order of the header: lifecycle and order, writing, plain accessors.

#include "Constraint.h"

#include "Ascii.h"
#include "ConstraintText.h"
#include "Halt.h"
#include "LineWriting.h"

#include <iostream>
#include <utility>

namespace {

constexpr int UnknownCategory = -1;
constexpr int UnknownIndex = -1;
constexpr int UnknownRank = -1;

}  // namespace

// ---- Lifecycle and order ----------------------------------------------------------------------

Constraint::Constraint()
    : Category(UnknownCategory),
      ConstrainedIndex(UnknownIndex),
      RankInCategory(UnknownRank),
      ValueConstraint(true) {}

Constraint::Constraint(int CategoryPassIn, int ConstrainedIndexPassIn, std::string FeaturePassIn,
                       std::string FeatValuePassIn, int RankInCategoryPassIn,
                       bool ValueConstraintPassIn)
    : Category(CategoryPassIn),
      ConstrainedIndex(ConstrainedIndexPassIn),
      Feature(std::move(FeaturePassIn)),
      FeatValue(std::move(FeatValuePassIn)),
      RankInCategory(RankInCategoryPassIn),
      ValueConstraint(ValueConstraintPassIn) {}

Constraint::Constraint(std::string ConstraintPassIn) : Constraint() {
  TrRuleInternal::ConstraintFields Fields;
  if (!TrRuleInternal::ReadConstraint(ConstraintPassIn, Fields)) {
    std::cerr << "ERROR in Constraint::Constraint(string): Constraint was not in correct format:|"
              << TrRuleInternal::Upper(std::move(ConstraintPassIn)) << "|\n";
  }
  Category = Fields.Category;
  ConstrainedIndex = Fields.ConstrainedIndex;
  Feature = std::move(Fields.Feature);
  FeatValue = std::move(Fields.FeatValue);
  ValueConstraint = Fields.ValueConstraint;
}

Constraint::Constraint(const Constraint& OtherPassIn) = default;

Constraint::~Constraint() = default;

void Constraint::operator=(Constraint OtherPassIn) {
  TakeOver(OtherPassIn);
}

void Constraint::TakeOver(Constraint& OtherReturn) {
  Category = OtherReturn.Category;
  ConstrainedIndex = OtherReturn.ConstrainedIndex;
  Feature = std::move(OtherReturn.Feature);
  FeatValue = std::move(OtherReturn.FeatValue);
  RankInCategory = OtherReturn.RankInCategory;
  ValueConstraint = OtherReturn.ValueConstraint;
}

bool Constraint::operator<(Constraint OtherPassIn) const {
  return ReturnAsString() < OtherPassIn.ReturnAsString();
}

// ---- Writing ----------------------------------------------------------------------------------

std::string Constraint::ReturnAsString() const {
  std::string Text;
  AppendTo(Text);
  return Text;
}

void Constraint::AppendTo(std::string& TextReturn) const {
  TrRuleInternal::AppendConstraint(
      TextReturn, {Category, ConstrainedIndex, Feature, FeatValue, ValueConstraint});
}

// ---- Plain accessors --------------------------------------------------------------------------

void Constraint::SetCategory(int CategoryPassIn) {
  if (CategoryPassIn < 1 || CategoryPassIn > 4) {
    TrRuleInternal::Halt(HaltReason::CategoryRange,
                         "Constraint::SetCategory must be called with 1,2,3, or 4.");
  }
  Category = CategoryPassIn;
}

int Constraint::GetCategory() const {
  return Category;
}

void Constraint::SetConstrainedIndex(int ConstrainedIndexPassIn) {
  ConstrainedIndex = ConstrainedIndexPassIn;
}

int Constraint::GetConstrainedIndex() const {
  return ConstrainedIndex;
}

void Constraint::SetFeature(std::string FeaturePassIn) {
  Feature = std::move(FeaturePassIn);
}

std::string Constraint::GetFeature() const {
  return Feature;
}

void Constraint::SetFeatValue(std::string FeatValuePassIn) {
  FeatValue = std::move(FeatValuePassIn);
}

std::string Constraint::GetFeatValue() const {
  return FeatValue;
}

void Constraint::SetRankInCategory(int RankInCategoryPassIn) {
  RankInCategory = RankInCategoryPassIn;
}

int Constraint::GetRankInCategory() const {
  return RankInCategory;
}

void Constraint::SetValueConstraint(bool ValueConstraintPassIn) {
  ValueConstraint = ValueConstraintPassIn;
}

bool Constraint::IsValueConstraint() const {
  return ValueConstraint;
}

int Constraint::GetAgreedIndex(std::string FeatValuePassIn) const {
  return TrRuleInternal::AgreedIndexIn(FeatValuePassIn);
}
