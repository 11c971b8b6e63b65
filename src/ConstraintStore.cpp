#include "ConstraintStore.h"

#include "Ascii.h"
#include "Splitter.h"
#include "StringUtils.h"

#include <algorithm>
#include <array>
#include <set>

namespace TrRuleInternal {

namespace {

/// The parts of a key and its size. The numbers are written for the time of one expression.
struct KeyWriter {
  static constexpr char Separator = '_';
  static constexpr std::size_t SeparatorSize = 2;

  KeyWriter(int CategoryPassIn, int IndexPassIn, std::string_view Feature,
            std::string_view FeatValue)
      : Category(CategoryPassIn),
        Index(IndexPassIn),
        Parts{Category, Index, Feature, FeatValue},
        Size((Parts.size() - 1) * SeparatorSize) {
    for (const std::string_view Part : Parts) {
      Size += Part.size();
    }
  }

  /// Writes the parts over the separators that a text ends with.
  KeyPlaces WriteTo(std::string& TextReturn) const {
    KeyPlaces Places;
    Places.Begin = TextReturn.size() - Size;
    Places.FeatureSize = Parts[2].size();
    Places.ValueBegin = TextReturn.size() - Parts[3].size();
    Places.FeatureBegin = Places.ValueBegin - SeparatorSize - Places.FeatureSize;
    char* At = TextReturn.data() + Places.Begin;
    for (const std::string_view Part : Parts) {
      At = std::copy(Part.begin(), Part.end(), At) + SeparatorSize;
    }
    return Places;
  }

  Decimal Category;
  Decimal Index;
  std::array<std::string_view, 4> Parts;
  std::size_t Size;
};

/// Puts the key that a text ends with, and whose fields are as they were written, as it is kept.
void KeepFields(const ConstraintParts& Parts, KeyPlaces& PlacesReturn, std::string& TextReturn) {
  if (Parts.IsWholeNode) {
    WriteName(TextReturn, PlacesReturn.ValueBegin, TextReturn.size() - PlacesReturn.ValueBegin);
    return;
  }
  const std::size_t Size =
      WriteName(TextReturn, PlacesReturn.FeatureBegin, PlacesReturn.FeatureSize);
  PlacesReturn.ValueBegin -= PlacesReturn.FeatureSize - Size;
  PlacesReturn.FeatureSize = Size;
  MakeUpper(TextReturn, PlacesReturn.ValueBegin);
}

}  // namespace

ConstraintKey MakeKey(int Category, int ConstrainedIndex, std::string_view Feature,
                      std::string_view FeatValue) {
  const KeyWriter Writer(Category, ConstrainedIndex, Feature, FeatValue);
  ConstraintKey Key{{}, std::string(Writer.Size, KeyWriter::Separator)};
  static_cast<KeyPlaces&>(Key) = Writer.WriteTo(Key.Text);
  return Key;
}

ConstraintKey MakeKey(const ConstraintParts& Parts, const ConstraintView& Fields) {
  ConstraintKey Key =
      MakeKey(Fields.Category, Fields.ConstrainedIndex, Fields.Feature, Fields.FeatValue);
  KeepFields(Parts, Key, Key.Text);
  return Key;
}

KeyPlaces AppendKey(const ConstraintView& Fields, std::string& TextReturn) {
  const KeyWriter Writer(Fields.Category, Fields.ConstrainedIndex, Fields.Feature,
                         Fields.FeatValue);
  TextReturn.append(Writer.Size, KeyWriter::Separator);
  return Writer.WriteTo(TextReturn);
}

KeyPlaces AppendKey(const ConstraintParts& Parts, const ConstraintView& Fields,
                    std::string& TextReturn) {
  KeyPlaces Places = AppendKey(Fields, TextReturn);
  KeepFields(Parts, Places, TextReturn);
  return Places;
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
