#include "HeaderText.h"

#include "Bytes.h"

#include <charconv>
#include <optional>
#include <string>

namespace Grammar {

namespace {

std::optional<int> ParseInt(std::string_view Text) {
  int Number = 0;
  const char* End = Text.data() + Text.size();
  const auto Result = std::from_chars(Text.data(), End, Number);
  if (Result.ec != std::errc() || Result.ptr != End) {
    return std::nullopt;
  }
  return Number;
}

}  // namespace

// Header = any "{" Type "," Number "}" any
RuleHeader ParseHeader(std::string_view Code) {
  RuleHeader Header;
  Header.IsPresent = true;
  const std::size_t Open = Code.find('{');
  const std::size_t Close = Code.find('}', Open);
  const std::size_t Comma = Code.substr(0, Close).find(',', Open);
  if (Open != std::string_view::npos && Close != std::string_view::npos &&
      Comma != std::string_view::npos) {
    const std::string_view Number = Trimmed(Code.substr(Comma + 1, Close - Comma - 1));
    if (const std::optional<int> Value = ParseInt(Number)) {
      Header.Type = Trimmed(Code.substr(Open + 1, Comma - Open - 1));
      Header.Number = std::to_string(*Value);
      return Header;
    }
  }
  Header.IsReadable = false;
  Header.Type = Code;
  return Header;
}

int NumberOf(const RuleHeader& Header) {
  constexpr int NoNumber = -1;
  return ParseInt(Header.Number).value_or(NoNumber);
}

}  // namespace Grammar
