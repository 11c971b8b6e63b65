#include "AlignmentLine.h"

#include "Ascii.h"

namespace TrRuleInternal {

namespace {

// Index = Side Digit { Digit }
bool TakeIndex(std::string_view& LineReturn, char Side, std::string_view& TextReturn,
               int& IndexReturn) {
  if (LineReturn.empty() || ToUpper(LineReturn.front()) != Side) {
    return false;
  }
  LineReturn.remove_prefix(1);
  TextReturn = LineReturn;
  IndexReturn = TakeNumber(LineReturn);
  TextReturn.remove_suffix(LineReturn.size());
  return IndexReturn >= 0;
}

}  // namespace

// CommonAlignment = "(" XIndex "::" YIndex ")"
bool ParseCommonAlignment(std::string_view Line, AlignmentParts& PartsReturn) {
  return Take(Line, "(") && TakeIndex(Line, 'X', PartsReturn.XText, PartsReturn.X) &&
         Take(Line, "::") && TakeIndex(Line, 'Y', PartsReturn.YText, PartsReturn.Y) && Line == ")";
}

}  // namespace TrRuleInternal
