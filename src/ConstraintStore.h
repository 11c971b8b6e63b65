#pragma once

#include "ConstraintText.h"

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// The keys under which a rule stores its constraints, and the merging of the values of a feature.
///
/// The constraint "((y1 num) = sg)" has the key "4__1__NUM__SG", whose prefix is "4__1__NUM__". If
/// a map contains it, adding "((y1 num) = pl)" replaces it by the key "4__1__NUM__(*OR* SG PL)".
/// @code
///   MakeKey(4, 1, "NUM", "SG").Text;  // "4__1__NUM__SG"
///   MergedValue("SG", "PL");          // "(*OR* SG PL)"
/// @endcode

namespace TrRuleInternal {

/// Where the parts of a key stand in a text, from 0. All that stands before the value is its
/// prefix.
struct KeyPlaces {
  std::size_t Begin = 0;
  std::size_t FeatureBegin = 0;
  std::size_t FeatureSize = 0;
  std::size_t ValueBegin = 0;  ///< the value goes up to the end of the key
};

/// The key of a constraint, with the places of its parts.
struct ConstraintKey : KeyPlaces {
  std::string Text;
};

/// Makes a key, such as "4__1__NUM__SG", from category, index, feature and value. Linear.
ConstraintKey MakeKey(int Category, int ConstrainedIndex, std::string_view Feature,
                      std::string_view FeatValue);

/// Makes the key of a constraint in the common form; the feature and the value in it are as they
/// are kept. Linear.
/// @param Fields what `ViewOfCommonForm` gives for the parts
ConstraintKey MakeKey(const ConstraintParts& Parts, const ConstraintView& Fields);

/// Appends a key to a text. Linear.
KeyPlaces AppendKey(const ConstraintView& Fields, std::string& TextReturn);

/// Appends the key of a constraint in the common form to a text. Linear.
KeyPlaces AppendKey(const ConstraintParts& Parts, const ConstraintView& Fields,
                    std::string& TextReturn);

/// The disjunction of the words of two values, those of the old one first, each word once.
/// n log n in the words.
std::string MergedValue(const std::string& OldValue, const std::string& NewValue);

/// One merging, as it is reported: the two values, and the key of the merged one.
struct Merging {
  std::string OldValue;
  std::string NewValue;
  std::string NewKey;
};

/// Whether the key of the previous or the next entry begins with a prefix of this entry's key. All
/// such entries are adjacent.
template <typename MapT>
bool HasNeighbour(const MapT& Entries, typename MapT::const_iterator Entry,
                  std::string_view Prefix) {
  const auto Begins = [Prefix](const std::string& Key) {
    return Key.compare(0, Prefix.size(), Prefix) == 0;
  };
  const auto Next = std::next(Entry);
  return (Next != Entries.end() && Begins(Next->first)) ||
         (Entry != Entries.begin() && Begins(std::prev(Entry)->first));
}

/// Removes the value constraints whose keys share a prefix from a map, and merges their values into
/// that of a new constraint, in key order.
///
/// @param ValueOf returns the value of an entry, null for an agreement
/// @param PrefixSize the size of the prefix of the new key
/// @param KeyReturn the new key, which ends in the new value; receives the merged key
/// @param vMergingsReturn receives each merging
template <typename MapT, typename ValueOfT>
void ExtractAndMerge(MapT& EntriesReturn, ValueOfT ValueOf, std::size_t PrefixSize,
                     std::string& KeyReturn, std::vector<Merging>& vMergingsReturn) {
  const std::string Prefix = KeyReturn.substr(0, PrefixSize);
  std::string Value = KeyReturn.substr(PrefixSize);
  auto Entry = EntriesReturn.lower_bound(Prefix);
  while (Entry != EntriesReturn.end() && Entry->first.compare(0, PrefixSize, Prefix) == 0) {
    const std::string* const OldValue = ValueOf(Entry->second);
    if (OldValue == nullptr) {
      ++Entry;
      continue;
    }
    std::string Merged = MergedValue(*OldValue, Value);
    vMergingsReturn.push_back({*OldValue, std::move(Value), Prefix + Merged});
    Value = std::move(Merged);
    Entry = EntriesReturn.erase(Entry);
  }
  KeyReturn.replace(PrefixSize, std::string::npos, Value);
}

}  // namespace TrRuleInternal
