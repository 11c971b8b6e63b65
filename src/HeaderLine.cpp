#include "HeaderLine.h"

#include "Ascii.h"
#include "Splitter.h"

#include <charconv>
#include <cstddef>
#include <system_error>

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

std::optional<int> ParseWholeNumber(std::string_view Text) {
  int Number = 0;
  const char* const End = Text.data() + Text.size();
  const auto Result = std::from_chars(Text.data(), End, Number);
  if (Result.ec != std::errc() || Result.ptr != End) {
    return std::nullopt;
  }
  return Number;
}

// Header = any "{" Type "," Number "}" any
std::optional<HeaderParts> ParseHeader(std::string_view Code) {
  HeaderParts Parts;
  if (ParseCommonHeader(Code, Parts) && ParseWholeNumber(Parts.Number)) {
    return Parts;
  }
  const std::size_t Open = Code.find('{');
  const std::size_t Close = Code.find('}', Open);
  const std::size_t Comma = Code.substr(0, Close).find(',', Open);
  if (Open == std::string_view::npos || Close == std::string_view::npos ||
      Comma == std::string_view::npos) {
    return std::nullopt;
  }
  Parts.Type = TrimmedField(Code.substr(Open + 1, Comma - Open - 1));
  Parts.Number = TrimmedField(Code.substr(Comma + 1, Close - Comma - 1));
  return ParseWholeNumber(Parts.Number) ? std::optional<HeaderParts>(Parts) : std::nullopt;
}

// Header = any "{" Type "," any Digit "}" any
bool ReadHeader(std::string_view Line, HeaderParts& PartsReturn) {
  Splitter Pieces(Line, ",");
  std::string_view TypePiece;
  std::string_view NumberPiece;
  if (!Pieces.Next(TypePiece) || !Pieces.Next(NumberPiece)) {
    return false;
  }
  const std::size_t Open = TypePiece.find('{');
  const std::size_t Close = NumberPiece.find('}');
  if (Open == std::string_view::npos || Close == std::string_view::npos || Close == 0) {
    return false;
  }
  PartsReturn.Type = TypePiece.substr(Open + 1, Open + KeptLetters);
  PartsReturn.Number = NumberPiece.substr(Close - 1, 1);
  return true;
}

}  // namespace TrRuleInternal
