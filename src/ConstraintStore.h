#pragma once

#include <cstddef>
#include <iterator>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// @file
/// How a rule keeps its constraints apart: the keys that they are stored under, and how the values
/// of one feature become one.
///
/// For example "((y1 num) = sg)" has the key "4__1__NUM__SG", whose prefix is "4__1__NUM__"; where
/// a map holds it already, "((y1 num) = pl)" takes it out and comes under the key "4__1__NUM__(*OR*
/// SG PL)".

namespace TrRuleInternal {

/// The key of a constraint, with the places of feature and value in it; all that stands before the
/// value is its prefix.
struct ConstraintKey {
  std::string Text;
  std::size_t FeatureBegin = 0;  ///< from 0
  std::size_t FeatureSize = 0;
  std::size_t ValueBegin = 0;
};

/// Makes the key "4__1__NUM__SG" of category, index, feature and value. Linear.
ConstraintKey MakeKey(int Category, int ConstrainedIndex, std::string_view Feature,
                      std::string_view FeatValue);

/// The disjunction of the words of two values, those of the old one first, each word once.
/// n log n in the words.
std::string MergedValue(const std::string& OldValue, const std::string& NewValue);

/// One merging, as it is reported: the two values, and the key of what they became.
struct Merging {
  std::string OldValue;
  std::string NewValue;
  std::string NewKey;
};

/// Whether the key of an entry beside another one begins with a prefix of that one's key; all
/// entries whose keys do stand together.
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

/// Takes the value constraints whose keys share a prefix out of a map, and merges their values into
/// that of a new constraint, one after the other in key order.
///
/// @param ValueOf gives the value of an entry, null for an agreement
/// @param PrefixSize the size of the prefix of the new key
/// @param KeyReturn the new key, which ends in the new value; gets the merged one
/// @param vMergingsReturn gets each merging
template <typename MapT, typename ValueOfT>
void TakeOutAndMerge(MapT& EntriesReturn, ValueOfT ValueOf, std::size_t PrefixSize,
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
