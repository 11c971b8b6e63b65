#pragma once

#include <cstddef>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace Grammar {

/// Names of files for things with any names: letters and digits of ASCII, and "-" for what stands
/// between them. No two are the same, also where capitals do not count.
///
/// @code
/// FileNames Names("rule");
/// Names.NewName("NP::NP");  // "NP-NP"
/// Names.NewName("np,np");   // "np-np-2"
/// Names.NewName("../");     // "rule-2"
/// @endcode
class FileNames {
 public:
  /// No name is longer, but for its number: files have names of at most 255 bytes.
  static constexpr std::size_t MaxSize = 100;

  /// @param OtherwisePassIn begins the name of what has no letters and digits
  explicit FileNames(std::string OtherwisePassIn) : Otherwise(std::move(OtherwisePassIn)) {}

  /// @return a name that none before has, without an ending
  std::string NewName(std::string_view Thing);

 private:
  std::string Otherwise;
  std::set<std::string> ssTaken;                     // in capitals
  std::map<std::string, std::size_t> ssRepetitions;  // of a name in capitals, without number
};

}  // namespace Grammar
