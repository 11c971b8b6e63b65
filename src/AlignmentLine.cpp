#include "AlignmentLine.h"

#include "Ascii.h"

namespace TrRuleInternal {

namespace {

// Index = Side Digit { Digit }
bool TakeIndex(std::string_view& LineReturn, char Side, std::string_view& TextReturn,
               int& IndexReturn) {
  std::string_view Rest = LineReturn;
  if (Rest.empty() || ToUpper(Rest.front()) != Side) {
    return false;
  }
  Rest.remove_prefix(1);
  IndexReturn = TakeNumber(Rest);
  TextReturn = LineReturn.substr(1, LineReturn.size() - Rest.size() - 1);
  LineReturn = Rest;
  return IndexReturn >= 0;
}

}  // namespace

// CommonAlignment = "(" XIndex "::" YIndex ")"
bool ParseCommonAlignment(std::string_view Line, AlignmentParts& PartsReturn) {
  return Take(Line, "(") && TakeIndex(Line, 'X', PartsReturn.XText, PartsReturn.X) &&
         Take(Line, "::") && TakeIndex(Line, 'Y', PartsReturn.YText, PartsReturn.Y) && Line == ")";
}

}  // namespace TrRuleInternal
