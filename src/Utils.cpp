#include "Utils.h"

#include "Ascii.h"

#include <utility>

std::string Utils::AllCaps(std::string SmallCaps) {
  return TrRuleInternal::Upper(std::move(SmallCaps));
}
