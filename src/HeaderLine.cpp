#include "HeaderLine.h"

#include "Ascii.h"

namespace TrRuleInternal {

namespace {

bool IsTypeByte(char Byte) {
  return IsDigit(Byte) || (ToUpper(Byte) >= 'A' && ToUpper(Byte) <= 'Z') || Byte == '-' ||
         Byte == '_';
}

}  // namespace

// CommonHeader = "{" Type "," Digit { Digit } "}"
bool ParseCommonHeader(std::string_view Line, HeaderParts& PartsReturn) {
  if (!Take(Line, "{")) {
    return false;
  }
  PartsReturn.Type = Line;
  Line = DropFront(Line, IsTypeByte);
  PartsReturn.Type.remove_suffix(Line.size());
  if (!Take(Line, ",")) {
    return false;
  }
  PartsReturn.Number = Line;
  Line = DropFront(Line, IsDigit);
  PartsReturn.Number.remove_suffix(Line.size());
  return Line == "}" && !PartsReturn.Type.empty() && !PartsReturn.Number.empty();
}

}  // namespace TrRuleInternal
