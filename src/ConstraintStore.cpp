#include "ConstraintStore.h"

#include "Ascii.h"
#include "Splitter.h"
#include "StringUtils.h"

#include <algorithm>
#include <array>
#include <set>

namespace TrRuleInternal {

ConstraintKey MakeKey(int Category, int ConstrainedIndex, std::string_view Feature,
                      std::string_view FeatValue) {
  constexpr char Separator = '_';
  constexpr std::size_t SeparatorSize = 2;
  const Decimal CategoryText(Category);
  const Decimal IndexText(ConstrainedIndex);
  const std::array<std::string_view, 4> Parts{CategoryText, IndexText, Feature, FeatValue};
  std::size_t Size = (Parts.size() - 1) * SeparatorSize;
  for (const std::string_view Part : Parts) {
    Size += Part.size();
  }
  ConstraintKey Key{std::string(Size, Separator)};
  auto At = Key.Text.begin();
  for (const std::string_view Part : Parts) {
    At = std::copy(Part.begin(), Part.end(), At) + SeparatorSize;
  }
  Key.FeatureSize = Feature.size();
  Key.ValueBegin = Size - FeatValue.size();
  Key.FeatureBegin = Key.ValueBegin - SeparatorSize - Feature.size();
  return Key;
}

namespace {

constexpr const char* DisjunctionOpen = "(*OR*";

/// Appends the alternatives of a value, "(*OR* SG PL)" or "SG", that are not in the set, each after
/// a blank, and adds them to the set.
void AppendAlternatives(const std::string& Value, std::set<std::string>& ssTakenReturn,
                        std::string& TextReturn) {
  Splitter Fields(Value, " ");
  for (std::string_view Field; Fields.Next(Field);) {
    std::string Alternative(TrimmedField(Field));
    Alternative = StringUtils::ReplaceAll(std::move(Alternative), DisjunctionOpen, "");
    Alternative = StringUtils::ReplaceAll(std::move(Alternative), ")", "");
    if (!Alternative.empty() && ssTakenReturn.insert(Alternative).second) {
      TextReturn.append(" ").append(Alternative);
    }
  }
}

}  // namespace

std::string MergedValue(const std::string& OldValue, const std::string& NewValue) {
  std::set<std::string> ssTaken;
  std::string Merged = DisjunctionOpen;
  AppendAlternatives(OldValue, ssTaken, Merged);
  AppendAlternatives(NewValue, ssTaken, Merged);
  return Merged += ')';
}

}  // namespace TrRuleInternal
