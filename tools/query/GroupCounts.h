#pragma once

#include "GroupKeys.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace Query {

/// The name of what rules are counted by, such as "type".
std::string_view NameOf(GroupBy By);

/// Counts rules by groups.
///
/// @code
/// GroupCounts Counts;
/// for (const char* Key : {"NP::NP", "VP::VP", "NP::NP"}) {
///   Counts.Add(Key);
/// }
/// std::string Table;
/// Counts.AppendTable(Table);
/// Table;  // "2  NP::NP\n1  VP::VP\n"
/// @endcode
class GroupCounts {
 public:
  using Group = std::pair<std::string, std::uint64_t>;

  void Add(std::string_view Key) { ++Counts[std::string(Key)]; }

  /// The groups, the largest first, those of one size in the order of their names. n log n.
  std::vector<Group> Groups() const;

  /// Appends a line for each group: how many rules it has, in a column, and its name.
  void AppendTable(std::string& TextReturn) const;

  /// Appends an object for each group, on a line: {"type":"NP::NP","rules":2}. Bytes that are not
  /// UTF-8 are written as `ToUnicode` of JsonText.h does.
  void AppendJson(GroupBy By, std::string& TextReturn) const;

 private:
  std::unordered_map<std::string, std::uint64_t> Counts;
};

}  // namespace Query
