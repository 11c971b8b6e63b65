#include "AlignmentLine.h"

#include "Ascii.h"
#include "Splitter.h"

#include <cstddef>

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

// Alignment = any "(" XIndex space "::" space YIndex ")" any
std::optional<AlignmentParts> ParseAlignment(std::string_view Code) {
  AlignmentParts Parts;
  if (ParseCommonAlignment(Code, Parts)) {
    return Parts;
  }
  const std::size_t Open = Code.find('(');
  const std::size_t Close = Code.rfind(')');
  if (Open == std::string_view::npos || Close == std::string_view::npos || Close < Open) {
    return std::nullopt;
  }
  const std::string_view Inner = Code.substr(Open + 1, Close - Open - 1);
  const std::size_t Sign = Inner.find("::");
  if (Sign == std::string_view::npos) {
    return std::nullopt;
  }
  std::string_view X = WithoutTrailingSpace(Inner.substr(0, Sign));
  std::string_view Y = TrimmedField(Inner.substr(Sign + 2));
  const bool IsRead = TakeIndex(X, 'X', Parts.XText, Parts.X) && X.empty() &&
                      TakeIndex(Y, 'Y', Parts.YText, Parts.Y) && Y.empty();
  return IsRead ? std::optional<AlignmentParts>(Parts) : std::nullopt;
}

std::string_view WithinParentheses(std::string_view Line) {
  const auto IsNotOpen = [](char Byte) { return Byte != '('; };
  const auto IsNotClose = [](char Byte) { return Byte != ')'; };
  return DropBack(DropFront(Line, IsNotOpen), IsNotClose);
}

// AlignmentLine = any "(X" X "::" "Y" Y ")" any
AlignmentFault ReadAlignment(std::string_view Line, AlignmentTexts& TextsReturn) {
  const std::optional<FieldPair> Sides = SplitInTwoTrimmed(WithinParentheses(Line), "::");
  if (!Sides) {
    return AlignmentFault::NoPair;
  }
  const auto& [XSide, YSide] = *Sides;
  if (XSide.size() <= 2 || !StartsWith(XSide, "(X")) {
    return AlignmentFault::XSide;
  }
  if (YSide.size() <= 2 || YSide.front() != 'Y' || YSide.back() != ')') {
    return AlignmentFault::YSide;
  }
  TextsReturn.X = XSide.substr(2);
  TextsReturn.Y = YSide.substr(1, YSide.size() - 2);
  return AlignmentFault::None;
}

}  // namespace TrRuleInternal
