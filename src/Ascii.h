#pragma once

#include <array>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>

/// @file
/// Byte classes and number reading that do not depend on the host program's locale.
///
/// Every text of the library is a string of bytes. Only ASCII letters, digits and white space have
/// a meaning; NUL and bytes over 127 are passed through.
/// @code
///   Upper("x1 = ä");  // "X1 = ä"
///   ToInt(" 12)");    // 12
/// @endcode

namespace TrRuleInternal {

/// True for space, tab, line feed, vertical tab, form feed and carriage return.
constexpr bool IsSpace(char Byte) {
  return Byte == ' ' || (Byte >= '\t' && Byte <= '\r');
}

/// True for the ten decimal digits.
constexpr bool IsDigit(char Byte) {
  return Byte >= '0' && Byte <= '9';
}

/// The capital of a lower-case ASCII letter; any other byte unchanged.
constexpr char ToUpper(char Byte) {
  return Byte >= 'a' && Byte <= 'z' ? static_cast<char>(Byte - 'a' + 'A') : Byte;
}

/// The small letter of an ASCII capital; any other byte unchanged.
constexpr char ToLower(char Byte) {
  return Byte >= 'A' && Byte <= 'Z' ? static_cast<char>(Byte - 'A' + 'a') : Byte;
}

/// A table of the capital of each byte. The texts are short, so that a lookup is faster than the
/// setup of a loop that handles many bytes at once.
constexpr std::array<char, 256> UpperBytes() {
  std::array<char, 256> Table{};
  for (std::size_t Byte = 0; Byte < Table.size(); ++Byte) {
    Table[Byte] = ToUpper(static_cast<char>(static_cast<unsigned char>(Byte)));
  }
  return Table;
}

/// Upper-cases a text in place, from a position on.
inline void MakeUpper(std::string& TextReturn, std::size_t From = 0) {
  static constexpr std::array<char, 256> Table = UpperBytes();
  for (std::size_t Position = From; Position < TextReturn.size(); ++Position) {
    TextReturn[Position] = Table[static_cast<unsigned char>(TextReturn[Position])];
  }
}

/// The text with every byte upper-cased, in the same storage.
inline std::string Upper(std::string Text) {
  MakeUpper(Text);
  return Text;
}

/// The text with every byte lower-cased, in the same storage.
inline std::string Lower(std::string Text) {
  for (char& Byte : Text) {
    Byte = ToLower(Byte);
  }
  return Text;
}

/// True when `Text` begins with `Start`.
constexpr bool StartsWith(std::string_view Text, std::string_view Start) {
  if (Text.size() < Start.size()) {
    return false;
  }
  for (std::size_t Position = 0; Position < Start.size(); ++Position) {
    if (Text[Position] != Start[Position]) {
      return false;
    }
  }
  return true;
}

/// The position of the first `Part` in `Text`; npos if there is none or `Part` is empty. The texts
/// are short, so that searching for the first byte is faster than a general search.
constexpr std::size_t Find(std::string_view Text, std::string_view Part) {
  if (Part.empty()) {
    return std::string_view::npos;
  }
  std::size_t Position = Text.find(Part.front());
  if (Part.size() == 1) {
    return Position;
  }
  while (Position != std::string_view::npos && !StartsWith(Text.substr(Position), Part)) {
    Position = Text.find(Part.front(), Position + 1);
  }
  return Position;
}

/// True when `Part`, which must not be empty, occurs anywhere in `Text`.
constexpr bool Contains(std::string_view Text, std::string_view Part) {
  return Find(Text, Part) != std::string_view::npos;
}

/// The text without the bytes at its front for which `Drop` is true.
template <typename DropT>
constexpr std::string_view DropFront(std::string_view Text, DropT Drop) {
  while (!Text.empty() && Drop(Text.front())) {
    Text.remove_prefix(1);
  }
  return Text;
}

/// The text without the bytes at its end for which `Drop` is true.
template <typename DropT>
constexpr std::string_view DropBack(std::string_view Text, DropT Drop) {
  while (!Text.empty() && Drop(Text.back())) {
    Text.remove_suffix(1);
  }
  return Text;
}

/// The text without its leading white space. If there is any, the text after its first byte is cut
/// to `MaxRest` bytes.
constexpr std::string_view WithoutLeadingSpace(std::string_view Text, std::size_t MaxRest) {
  if (Text.empty() || !IsSpace(Text.front())) {
    return Text;
  }
  return DropFront(Text.substr(1, MaxRest), IsSpace);
}

/// The text without its trailing white space.
constexpr std::string_view WithoutTrailingSpace(std::string_view Text) {
  return DropBack(Text, IsSpace);
}

/// The value of a run of digits, clamped to 2^63 - 1, or to 2^63 when `Negative`.
constexpr std::uint64_t DigitsValue(std::string_view Digits, bool Negative) {
  const std::uint64_t Limit =
      static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()) + (Negative ? 1U : 0U);
  std::uint64_t Value = 0;
  for (const char Byte : Digits) {
    const auto Digit = static_cast<std::uint64_t>(Byte - '0');
    if (Value > (Limit - Digit) / 10) {
      return Limit;
    }
    Value = Value * 10 + Digit;
  }
  return Value;
}

/// The number at the front of a text: leading white space, an optional sign, and digits up to the
/// first other byte; 0 without digits. A number that does not fit is clamped to 64 bits and its low
/// 32 bits are returned, so that every text has a defined value.
constexpr int ToInt(std::string_view Text) {
  Text = DropFront(Text, IsSpace);
  const bool Negative = !Text.empty() && Text.front() == '-';
  if (Negative || (!Text.empty() && Text.front() == '+')) {
    Text.remove_prefix(1);
  }
  std::size_t End = 0;
  while (End < Text.size() && IsDigit(Text[End])) {
    ++End;
  }
  const std::uint64_t Value = DigitsValue(Text.substr(0, End), Negative);
  return static_cast<int>(static_cast<std::uint32_t>(Negative ? ~Value + 1 : Value));
}

/// Takes a prefix off the front of a text; false when the text does not begin with it.
constexpr bool Take(std::string_view& TextReturn, std::string_view Start) {
  if (!StartsWith(TextReturn, Start)) {
    return false;
  }
  TextReturn.remove_prefix(Start.size());
  return true;
}

/// Takes a number without a sign off the front of a text.
/// @return the number; -1 if there is none or it has more than nine digits
constexpr int TakeNumber(std::string_view& TextReturn) {
  constexpr std::size_t MaxDigits = 9;
  int Number = 0;
  std::size_t Size = 0;
  for (; Size < TextReturn.size() && IsDigit(TextReturn[Size]); ++Size) {
    if (Size == MaxDigits) {
      return -1;
    }
    Number = Number * 10 + (TextReturn[Size] - '0');
  }
  TextReturn.remove_prefix(Size);
  return Size == 0 ? -1 : Number;
}

/// The decimal text of a number, with a minus sign when negative, for use within one expression.
class Decimal {
 public:
  explicit Decimal(int Number)
      : End(std::to_chars(Digits.data(), Digits.data() + Digits.size(), Number).ptr) {}

  Decimal(const Decimal&) = delete;
  Decimal& operator=(const Decimal&) = delete;

  operator std::string_view() const {
    return {Digits.data(), static_cast<std::size_t>(End - Digits.data())};
  }

 private:
  std::array<char, std::numeric_limits<int>::digits10 + 2> Digits{};
  const char* End;
};

/// Appends several texts with one reallocation at most.
inline void Append(std::string& TextReturn, std::initializer_list<std::string_view> Texts) {
  std::size_t Size = 0;
  for (const std::string_view Text : Texts) {
    Size += Text.size();
  }
  std::size_t Position = TextReturn.size();
  TextReturn.append(Size, '\0');
  for (const std::string_view Text : Texts) {
    Position += Text.copy(TextReturn.data() + Position, Text.size());
  }
}

}  // namespace TrRuleInternal
