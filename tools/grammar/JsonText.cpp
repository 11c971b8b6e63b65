#include "JsonText.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace Grammar {

namespace {

/// The bytes of U+F780 to U+F7FF begin with EF 9E or EF 9F; the third byte says which it is.
constexpr unsigned char StandInFirst = 0xEF;
constexpr unsigned char StandInLow = 0x9E;
constexpr unsigned char StandInHigh = 0x9F;

unsigned char At(std::string_view Text, std::size_t Position) {
  return static_cast<unsigned char>(Text[Position]);
}

bool IsStandIn(std::string_view Text) {
  return Text.size() >= 3 && At(Text, 0) == StandInFirst &&
         (At(Text, 1) == StandInLow || At(Text, 1) == StandInHigh);
}

/// How many bytes a character has, by its first; 0 if no character begins with that byte.
std::size_t LengthBy(unsigned char First) {
  if (First < 0x80) {
    return 1;
  }
  if (First >= 0xC2 && First < 0xE0) {
    return 2;
  }
  if (First >= 0xE0 && First < 0xF0) {
    return 3;
  }
  return First >= 0xF0 && First < 0xF5 ? 4 : 0;
}

/// Whether the second byte of a character goes with the first: no character is written longer than
/// it has to be, none lies among the surrogates or beyond the last.
bool SecondFits(unsigned char First, unsigned char Second) {
  const bool IsTooLong = (First == 0xE0 && Second < 0xA0) || (First == 0xF0 && Second < 0x90);
  const bool IsNone = (First == 0xED && Second > 0x9F) || (First == 0xF4 && Second > 0x8F);
  return !IsTooLong && !IsNone;
}

/// The length of the character that a text begins with; 0 if it begins with none.
std::size_t CharacterLength(std::string_view Text) {
  const std::size_t Length = LengthBy(At(Text, 0));
  if (Length == 0 || Text.size() < Length) {
    return 0;
  }
  for (std::size_t Position = 1; Position < Length; ++Position) {
    if ((At(Text, Position) & 0xC0U) != 0x80) {
      return 0;
    }
  }
  return Length == 1 || SecondFits(At(Text, 0), At(Text, 1)) ? Length : 0;
}

void AppendStandIn(char Byte, std::string& TextReturn) {
  const auto Value = static_cast<unsigned char>(Byte);
  TextReturn += static_cast<char>(StandInFirst);
  TextReturn += static_cast<char>(Value < 0xC0 ? StandInLow : StandInHigh);
  TextReturn += static_cast<char>(0x80U | (Value & 0x3FU));
}

/// How many bytes at the beginning of a text are ASCII. Looks at eight of them at a time.
std::size_t AsciiSize(std::string_view Bytes) {
  constexpr std::uint64_t HighBits = 0x8080808080808080;
  std::size_t Size = 0;
  for (std::uint64_t Word = 0; Size + sizeof(Word) <= Bytes.size(); Size += sizeof(Word)) {
    std::memcpy(&Word, Bytes.data() + Size, sizeof(Word));
    if ((Word & HighBits) != 0) {
      break;
    }
  }
  while (Size < Bytes.size() && At(Bytes, Size) < 0x80) {
    ++Size;
  }
  return Size;
}

}  // namespace

bool IsAscii(std::string_view Bytes) {
  return AsciiSize(Bytes) == Bytes.size();
}

std::size_t Utf8Size(std::string_view Bytes) {
  std::size_t Size = AsciiSize(Bytes);
  while (Size < Bytes.size()) {
    const std::size_t Length = CharacterLength(Bytes.substr(Size));
    if (Length == 0) {
      break;
    }
    Size += Length;
  }
  return Size;
}

std::string ToUnicode(std::string_view Bytes) {
  std::string Text;
  Text.reserve(Bytes.size());
  while (!Bytes.empty()) {
    const std::size_t Length = IsStandIn(Bytes) ? 0 : CharacterLength(Bytes);
    if (Length == 0) {
      AppendStandIn(Bytes.front(), Text);
    } else {
      Text.append(Bytes, 0, Length);
    }
    Bytes.remove_prefix(Length == 0 ? 1 : Length);
  }
  return Text;
}

bool HasStandIns(std::string_view Unicode) {
  return Unicode.find(static_cast<char>(StandInFirst)) != std::string_view::npos;
}

std::string ToBytes(std::string_view Unicode) {
  if (!HasStandIns(Unicode)) {
    return std::string(Unicode);
  }
  std::string Bytes;
  Bytes.reserve(Unicode.size());
  while (!Unicode.empty()) {
    if (IsStandIn(Unicode)) {
      const unsigned Base = At(Unicode, 1) == StandInLow ? 0x80U : 0xC0U;
      Bytes += static_cast<char>(static_cast<unsigned char>(Base | (At(Unicode, 2) & 0x3FU)));
      Unicode.remove_prefix(3);
    } else {
      Bytes += Unicode.front();
      Unicode.remove_prefix(1);
    }
  }
  return Bytes;
}

}  // namespace Grammar
