#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace Grammar {

/// Texts as numbers from 0, in the order in which they came first.
///
/// @code
/// SymbolTable Labels;
/// Labels.Intern("NP");   // 0
/// Labels.Intern("DET");  // 1
/// Labels.Find("N");      // SymbolTable::None
/// @endcode
class SymbolTable {
 public:
  static constexpr std::uint32_t None = 0xFFFFFFFFU;

  SymbolTable() = default;
  SymbolTable(const SymbolTable&) = delete;
  SymbolTable& operator=(const SymbolTable&) = delete;

  /// The number of a text, a new one if it has none.
  std::uint32_t Intern(std::string_view Text) {
    const auto Found = Numbers.find(Text);
    if (Found != Numbers.end()) {
      return Found->second;
    }
    const auto Number = static_cast<std::uint32_t>(Names.size());
    Numbers.emplace(Names.emplace_back(Text), Number);
    return Number;
  }

  /// The same for a text in any case, which is kept in ASCII capitals.
  std::uint32_t InternUpper(std::string_view Text);

  /// The number of a text; `None` if it has none.
  std::uint32_t Find(std::string_view Text) const {
    const auto Found = Numbers.find(Text);
    return Found == Numbers.end() ? None : Found->second;
  }

  const std::string& Name(std::uint32_t Number) const { return Names[Number]; }
  std::size_t Size() const { return Names.size(); }

 private:
  std::deque<std::string> Names;  // the keys point into it
  std::unordered_map<std::string_view, std::uint32_t> Numbers;
  std::string Capitals;
};

}  // namespace Grammar
