#pragma once

#include "SymbolTable.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace Grammar {

/// A name, and how often it came.
struct NameCount {
  std::string_view Name;
  std::uint64_t Count = 0;

  friend bool operator==(const NameCount& Left, const NameCount& Right) {
    return Left.Name == Right.Name && Left.Count == Right.Count;
  }
};

/// How often names come. Takes as much memory as there are different ones.
///
/// @code
/// NameCounts Labels;
/// Labels.Add("N");
/// Labels.Add("DET");
/// Labels.Add("N");
/// Labels.Sorted().front().Name;  // "N"
/// Labels.Sum();                  // 3
/// @endcode
class NameCounts {
 public:
  /// @return the number of the name, from 0 in the order in which names came first
  std::uint32_t Add(std::string_view Name, std::uint64_t Count = 1) {
    return CountName(Names.Intern(Name), Count);
  }

  /// The same for a name in any case, which is kept in ASCII capitals.
  std::uint32_t AddUpper(std::string_view Name) { return CountName(Names.InternUpper(Name), 1); }

  /// Adds the counts of another one.
  void Add(const NameCounts& Other);

  /// The names with their counts, the most frequent first, then in the order of their bytes. Views
  /// of this.
  std::vector<NameCount> Sorted() const;

  /// All names, in the order in which they came first.
  std::size_t Size() const { return vCounts.size(); }
  NameCount At(std::uint32_t Number) const { return {Names.Name(Number), vCounts[Number]}; }

  /// The number of a name; `SymbolTable::None` if it has none.
  std::uint32_t Find(std::string_view Name) const { return Names.Find(Name); }

  /// The counts of all names together.
  std::uint64_t Sum() const;

 private:
  std::uint32_t CountName(std::uint32_t Number, std::uint64_t Count) {
    if (Number == vCounts.size()) {
      vCounts.push_back(0);
    }
    vCounts[Number] += Count;
    return Number;
  }

  SymbolTable Names;
  std::vector<std::uint64_t> vCounts;
};

}  // namespace Grammar
