#include "StartTypes.h"

#include <algorithm>

namespace Grammar {

std::vector<std::string> ParseStartTypes(std::string_view Written) {
  std::string Text(Written);
  Text.erase(std::remove(Text.begin(), Text.end(), ' '), Text.end());
  std::vector<std::string> vsTypes;
  for (std::size_t From = 0; From <= Text.size();) {
    const std::size_t End = std::min(Text.find(',', From), Text.size());
    vsTypes.push_back(Text.substr(From, End - From));
    From = End + 1;
  }
  return vsTypes;
}

std::string MissingStartText(std::string_view Type) {
  return "trrule: --start: no usable rule has the type \"" + std::string(Type) + '"';
}

}  // namespace Grammar
