// Sections: characters, widths, direction.

#include "Characters.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>

namespace Picture {

// ---- Characters -------------------------------------------------------------------------------

namespace {

constexpr char32_t Replacement = 0xFFFD;

constexpr bool IsPlain(char Byte) {
  return Byte >= ' ' && Byte <= '~';
}

/// How many bytes a character takes by its first one; 0 if none begins like that.
std::size_t SizeOf(unsigned char First) {
  if (First < 0x80) {
    return 1;
  }
  if (First < 0xC2 || First > 0xF4) {
    return 0;
  }
  return First < 0xE0 ? 2 : First < 0xF0 ? 3 : 4;
}

/// The least character that takes that many bytes.
constexpr std::array<char32_t, 5> Least{0, 0, 0x80, 0x800, 0x10000};

bool CanBeShown(char32_t Character) {
  const bool IsControl = Character < 0x20 || (Character >= 0x7F && Character < 0xA0);
  const bool IsSurrogate = Character >= 0xD800 && Character <= 0xDFFF;
  const bool IsNone = (Character & 0xFFFEU) == 0xFFFE || Character > 0x10FFFF;
  // These turn the text around them, and the picture with it.
  const bool Turns = (Character >= 0x202A && Character <= 0x202E) ||
                     (Character >= 0x2066 && Character <= 0x2069) || Character == 0x2028 ||
                     Character == 0x2029;
  return !IsControl && !IsSurrogate && !IsNone && !Turns;
}

/// The bits that a byte after the first one adds.
bool AddByte(char Byte, char32_t& CharacterReturn) {
  const auto Bits = static_cast<unsigned char>(Byte);
  CharacterReturn = (CharacterReturn << 6U) | (Bits & 0x3FU);
  return (Bits & 0xC0U) == 0x80;
}

}  // namespace

char32_t TakeCharacter(std::string_view& TextReturn) {
  const auto First = static_cast<unsigned char>(TextReturn.front());
  const std::size_t Size = SizeOf(First);
  char32_t Character = Size == 1 ? First : First & (0x7FU >> Size);
  std::size_t At = 1;
  while (At < Size && At < TextReturn.size() && AddByte(TextReturn[At], Character)) {
    ++At;
  }
  if (Size == 0 || At < Size || Character < Least[Size]) {
    TextReturn.remove_prefix(1);
    return Replacement;
  }
  TextReturn.remove_prefix(Size);
  return CanBeShown(Character) ? Character : Replacement;
}

bool IsShown(std::string_view Text) {
  if (std::all_of(Text.begin(), Text.end(), IsPlain)) {
    return true;
  }
  constexpr std::string_view Written = "\xEF\xBF\xBD";
  while (!Text.empty()) {
    const std::string_view Before = Text;
    if (TakeCharacter(Text) == Replacement && Before.substr(0, Written.size()) != Written) {
      return false;
    }
  }
  return true;
}

std::string ShownText(std::string_view Text) {
  if (IsShown(Text)) {
    return std::string(Text);
  }
  std::string Shown;
  while (!Text.empty()) {
    const std::string_view Before = Text;
    if (TakeCharacter(Text) == Replacement) {
      Shown += "\xEF\xBF\xBD";
    } else {
      Shown += Before.substr(0, Before.size() - Text.size());
    }
  }
  return Shown;
}

// ---- Widths -----------------------------------------------------------------------------------

namespace {

/// Of the characters from the blank to the tilde, in hundredths.
constexpr std::array<std::uint8_t, 95> PlainWidths{
    32, 41, 46, 84, 64, 96, 78, 28, 40,  40, 50, 84, 32, 37, 32, 34, 64, 64, 64, 64, 64, 64, 64, 64,
    64, 64, 34, 34, 84, 84, 84, 54, 100, 69, 69, 70, 77, 64, 58, 78, 76, 30, 30, 66, 56, 87, 75, 79,
    61, 79, 70, 64, 62, 74, 69, 99, 69,  62, 69, 40, 34, 40, 84, 50, 50, 62, 64, 55, 64, 62, 36, 64,
    64, 28, 28, 58, 28, 98, 64, 62, 64,  64, 42, 53, 40, 64, 60, 82, 60, 60, 53, 64, 34, 64, 84,
};

struct Range {
  char32_t First;
  char32_t Last;
};

/// What takes no column: marks, and characters that only steer others.
constexpr Range NoColumn[] = {
    {0x300, 0x36F},   {0x483, 0x489},     {0x591, 0x5BD},     {0x5BF, 0x5BF},   {0x5C1, 0x5C2},
    {0x5C4, 0x5C5},   {0x5C7, 0x5C7},     {0x600, 0x605},     {0x610, 0x61A},   {0x61C, 0x61C},
    {0x64B, 0x65F},   {0x670, 0x670},     {0x6D6, 0x6DD},     {0x6DF, 0x6E4},   {0x6E7, 0x6E8},
    {0x6EA, 0x6ED},   {0x70F, 0x70F},     {0x711, 0x711},     {0x730, 0x74A},   {0x7A6, 0x7B0},
    {0x7EB, 0x7F3},   {0x7FD, 0x7FD},     {0x816, 0x819},     {0x81B, 0x823},   {0x825, 0x827},
    {0x829, 0x82D},   {0x859, 0x85B},     {0x890, 0x89F},     {0x8CA, 0x902},   {0x93A, 0x93A},
    {0x93C, 0x93C},   {0x941, 0x948},     {0x94D, 0x94D},     {0x951, 0x957},   {0x962, 0x963},
    {0x981, 0x981},   {0x9BC, 0x9BC},     {0x9C1, 0x9C4},     {0x9CD, 0x9CD},   {0x9E2, 0x9E3},
    {0x9FE, 0xA02},   {0xA3C, 0xA3C},     {0xA41, 0xA51},     {0xA70, 0xA71},   {0xA75, 0xA75},
    {0xA81, 0xA82},   {0xABC, 0xABC},     {0xAC1, 0xAC8},     {0xACD, 0xACD},   {0xAE2, 0xAE3},
    {0xAFA, 0xB01},   {0xB3C, 0xB3C},     {0xB3F, 0xB3F},     {0xB41, 0xB44},   {0xB4D, 0xB56},
    {0xB62, 0xB63},   {0xB82, 0xB82},     {0xBC0, 0xBC0},     {0xBCD, 0xBCD},   {0xC00, 0xC00},
    {0xC04, 0xC04},   {0xC3C, 0xC3C},     {0xC3E, 0xC40},     {0xC46, 0xC56},   {0xC62, 0xC63},
    {0xC81, 0xC81},   {0xCBC, 0xCBC},     {0xCBF, 0xCBF},     {0xCC6, 0xCC6},   {0xCCC, 0xCCD},
    {0xCE2, 0xCE3},   {0xD00, 0xD01},     {0xD3B, 0xD3C},     {0xD41, 0xD44},   {0xD4D, 0xD4D},
    {0xD62, 0xD63},   {0xD81, 0xD81},     {0xDCA, 0xDCA},     {0xDD2, 0xDD6},   {0xE31, 0xE31},
    {0xE34, 0xE3A},   {0xE47, 0xE4E},     {0xEB1, 0xEB1},     {0xEB4, 0xEBC},   {0xEC8, 0xECD},
    {0xF18, 0xF19},   {0xF35, 0xF35},     {0xF37, 0xF37},     {0xF39, 0xF39},   {0xF71, 0xF7E},
    {0xF80, 0xF84},   {0xF86, 0xF87},     {0xF8D, 0xFBC},     {0xFC6, 0xFC6},   {0x102D, 0x1030},
    {0x1032, 0x1037}, {0x1039, 0x103A},   {0x103D, 0x103E},   {0x1058, 0x1059}, {0x105E, 0x1060},
    {0x1071, 0x1074}, {0x1082, 0x1082},   {0x1085, 0x1086},   {0x108D, 0x108D}, {0x109D, 0x109D},
    {0x135D, 0x135F}, {0x1712, 0x1714},   {0x1732, 0x1733},   {0x1752, 0x1753}, {0x1772, 0x1773},
    {0x17B4, 0x17B5}, {0x17B7, 0x17BD},   {0x17C6, 0x17C6},   {0x17C9, 0x17D3}, {0x17DD, 0x17DD},
    {0x180B, 0x180F}, {0x1885, 0x1886},   {0x18A9, 0x18A9},   {0x1920, 0x1922}, {0x1927, 0x1928},
    {0x1932, 0x1932}, {0x1939, 0x193B},   {0x1A17, 0x1A18},   {0x1A1B, 0x1A1B}, {0x1A56, 0x1A56},
    {0x1A58, 0x1A60}, {0x1A62, 0x1A62},   {0x1A65, 0x1A6C},   {0x1A73, 0x1A7F}, {0x1AB0, 0x1B03},
    {0x1B34, 0x1B34}, {0x1B36, 0x1B3A},   {0x1B3C, 0x1B3C},   {0x1B42, 0x1B42}, {0x1B6B, 0x1B73},
    {0x1B80, 0x1B81}, {0x1BA2, 0x1BA5},   {0x1BA8, 0x1BA9},   {0x1BAB, 0x1BAD}, {0x1BE6, 0x1BE6},
    {0x1BE8, 0x1BE9}, {0x1BED, 0x1BED},   {0x1BEF, 0x1BF1},   {0x1C2C, 0x1C33}, {0x1C36, 0x1C37},
    {0x1CD0, 0x1CD2}, {0x1CD4, 0x1CE0},   {0x1CE2, 0x1CE8},   {0x1CED, 0x1CED}, {0x1CF4, 0x1CF4},
    {0x1CF8, 0x1CF9}, {0x1DC0, 0x1DFF},   {0x200B, 0x200F},   {0x202A, 0x202E}, {0x2060, 0x206F},
    {0x20D0, 0x20F0}, {0x2CEF, 0x2CF1},   {0x2D7F, 0x2D7F},   {0x2DE0, 0x2DFF}, {0x302A, 0x302D},
    {0x3099, 0x309A}, {0xA66F, 0xA672},   {0xA674, 0xA67D},   {0xA69E, 0xA69F}, {0xA6F0, 0xA6F1},
    {0xA802, 0xA802}, {0xA806, 0xA806},   {0xA80B, 0xA80B},   {0xA825, 0xA826}, {0xA82C, 0xA82C},
    {0xA8C4, 0xA8C5}, {0xA8E0, 0xA8F1},   {0xA8FF, 0xA8FF},   {0xA926, 0xA92D}, {0xA947, 0xA951},
    {0xA980, 0xA982}, {0xA9B3, 0xA9B3},   {0xA9B6, 0xA9B9},   {0xA9BC, 0xA9BD}, {0xA9E5, 0xA9E5},
    {0xAA29, 0xAA2E}, {0xAA31, 0xAA32},   {0xAA35, 0xAA36},   {0xAA43, 0xAA43}, {0xAA4C, 0xAA4C},
    {0xAA7C, 0xAA7C}, {0xAAB0, 0xAAB0},   {0xAAB2, 0xAAB4},   {0xAAB7, 0xAAB8}, {0xAABE, 0xAABF},
    {0xAAC1, 0xAAC1}, {0xAAEC, 0xAAED},   {0xAAF6, 0xAAF6},   {0xABE5, 0xABE5}, {0xABE8, 0xABE8},
    {0xABED, 0xABED}, {0xFB1E, 0xFB1E},   {0xFE00, 0xFE0F},   {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF},
    {0xFFF9, 0xFFFB}, {0x1D167, 0x1D169}, {0xE0001, 0xE01EF},
};

/// What takes two columns.
constexpr Range TwoColumns[] = {
    {0x1100, 0x115F},   {0x231A, 0x231B},   {0x2329, 0x232A},   {0x2E80, 0x303E},
    {0x3041, 0xA4CF},   {0xA960, 0xA97C},   {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},
    {0xFE10, 0xFE19},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},   {0xFFE0, 0xFFE6},
    {0x16FE0, 0x18CFF}, {0x1AFF0, 0x1B2FF}, {0x1F004, 0x1F004}, {0x1F0CF, 0x1F0CF},
    {0x1F18E, 0x1F19A}, {0x1F200, 0x1F64F}, {0x1F680, 0x1F6FF}, {0x1F7E0, 0x1F7F0},
    {0x1F90C, 0x1FAFF}, {0x20000, 0x3FFFD},
};

template <std::size_t Size>
bool IsIn(const Range (&Ranges)[Size], char32_t Character) {
  const auto* const Found =
      std::lower_bound(std::begin(Ranges), std::end(Ranges), Character,
                       [](const Range& Current, char32_t Wanted) { return Current.Last < Wanted; });
  return Found != std::end(Ranges) && Found->First <= Character;
}

/// Of a character beyond the plain ones, in hundredths.
int WidthBeyond(char32_t Character) {
  constexpr int Latin = 85;
  constexpr int Letter = 125;
  constexpr int Ligature = 400;  // words that are one character
  constexpr int Mark = 40;       // some fonts put marks beside the letter
  if (IsIn(NoColumn, Character)) {
    return Character < 0x370 ? 0 : Mark;
  }
  if (Character < 0x180) {
    return Character == 0x152 || Character == 0x132 ? Letter : Latin + 15;
  }
  return Character >= 0xFDF0 && Character <= 0xFDFF ? Ligature : Letter;
}

}  // namespace

int WidthInFont(std::string_view Text) {
  int Width = 0;
  while (!Text.empty()) {
    if (IsPlain(Text.front())) {
      Width += PlainWidths[static_cast<std::size_t>(Text.front() - ' ')];
      Text.remove_prefix(1);
    } else {
      Width += WidthBeyond(TakeCharacter(Text));
    }
  }
  return Width;
}

int WidthAtTerminal(std::string_view Text) {
  int Width = 0;
  while (!Text.empty()) {
    if (IsPlain(Text.front())) {
      ++Width;
      Text.remove_prefix(1);
      continue;
    }
    const char32_t Character = TakeCharacter(Text);
    Width += IsIn(NoColumn, Character) ? 0 : IsIn(TwoColumns, Character) ? 2 : 1;
  }
  return Width;
}

// ---- Direction --------------------------------------------------------------------------------

bool IsRightToLeft(std::string_view Text) {
  while (!Text.empty()) {
    if (IsPlain(Text.front())) {
      Text.remove_prefix(1);
      continue;
    }
    const char32_t Character = TakeCharacter(Text);
    if ((Character >= 0x590 && Character <= 0x8FF) ||
        (Character >= 0xFB1D && Character <= 0xFDFF) ||
        (Character >= 0xFE70 && Character <= 0xFEFC) ||
        (Character >= 0x10800 && Character <= 0x10FFF) ||
        (Character >= 0x1E800 && Character <= 0x1EFFF)) {
      return true;
    }
  }
  return false;
}

}  // namespace Picture
