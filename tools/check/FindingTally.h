#pragma once

#include "FindingCodes.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace Grammar {

/// How many findings there are of each code and severity.
///
/// @code
/// FindingTally Tally;
/// Tally.Add("TR009", Severity::Error);
/// Tally.Summary();  // "1 error, 0 warnings, 0 notes"
/// @endcode
class FindingTally {
 public:
  void Add(std::string_view Code, Severity Level) { ++CountsOf(Code)[IndexOf(Level)]; }

  std::uint64_t Count(std::string_view Code, Severity Level) const;

  /// All of a severity.
  std::uint64_t Count(Severity Level) const;

  /// "2 errors, 1 warning, 0 notes"
  std::string Summary() const;

  /// A line for each code and severity that there are findings of: count, code, severity and title
  /// in columns.
  std::string Table() const;

  /// The same as a JSON array with one object on each line.
  std::string JsonTable() const;

 private:
  static constexpr std::size_t Severities = 3;
  static constexpr std::size_t Numbers = 100;

  using Counts = std::array<std::uint64_t, Severities>;

  static std::size_t IndexOf(Severity Level) { return static_cast<std::size_t>(Level); }
  static std::size_t NumberOf(std::string_view Code);
  Counts& CountsOf(std::string_view Code) { return All[NumberOf(Code)]; }

  std::array<Counts, Numbers> All{};  // by the number of the code
};

}  // namespace Grammar
