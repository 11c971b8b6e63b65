#include "SymbolTable.h"

#include "Bytes.h"

#include <algorithm>

namespace Grammar {

std::uint32_t SymbolTable::InternUpper(std::string_view Text) {
  Capitals.assign(Text);
  std::transform(Capitals.begin(), Capitals.end(), Capitals.begin(), ToUpper);
  return Intern(Capitals);
}

}  // namespace Grammar
