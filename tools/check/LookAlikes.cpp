// Sections: characters, the table, what is a slip, small letters.

#include "LookAlikes.h"

#include "Bytes.h"

#include <algorithm>
#include <cstring>

namespace Grammar {

namespace {

// ---- Characters -------------------------------------------------------------------------------

struct Character {
  std::uint32_t CodePoint = 0;
  std::string_view Bytes;  ///< one byte, where it begins no character
};

constexpr unsigned char ValueOf(char Byte) {
  return static_cast<unsigned char>(Byte);
}

constexpr bool IsAscii(char Byte) {
  return ValueOf(Byte) < 0x80U;
}

/// How many bytes a character has that begins with this one; 0 if none does.
constexpr std::size_t SizeFrom(unsigned char First) {
  if (First < 0x80U) {
    return 1;
  }
  if (First < 0xC2U || First > 0xF4U) {
    return 0;
  }
  return First < 0xE0U ? 2 : First < 0xF0U ? 3 : 4;
}

/// The character at a place in a text, which is not its end.
Character CharacterAt(std::string_view Text, std::size_t At) {
  const unsigned char First = ValueOf(Text[At]);
  const std::size_t Size = SizeFrom(First);
  if (Size < 2 || Size > Text.size() - At) {
    return {First < 0x80U ? First : 0U, Text.substr(At, 1)};
  }
  std::uint32_t CodePoint = First & (0x7FU >> Size);
  for (const char Byte : Text.substr(At + 1, Size - 1)) {
    if ((ValueOf(Byte) & 0xC0U) != 0x80U) {
      return {0, Text.substr(At, 1)};
    }
    CodePoint = CodePoint << 6U | (ValueOf(Byte) & 0x3FU);
  }
  return {CodePoint, Text.substr(At, Size)};
}

void AppendCharacter(std::uint32_t CodePoint, std::string& TextReturn) {
  constexpr std::uint32_t TwoBytes = 0x800;
  if (CodePoint < TwoBytes) {
    TextReturn += static_cast<char>(0xC0U | CodePoint >> 6U);
  } else {
    TextReturn += static_cast<char>(0xE0U | CodePoint >> 12U);
    TextReturn += static_cast<char>(0x80U | (CodePoint >> 6U & 0x3FU));
  }
  TextReturn += static_cast<char>(0x80U | (CodePoint & 0x3FU));
}

constexpr bool IsAsciiLetter(char Byte) {
  return ToUpper(Byte) >= 'A' && ToUpper(Byte) <= 'Z';
}

constexpr bool IsBetween(std::uint32_t Value, std::uint32_t First, std::uint32_t Last) {
  return Value >= First && Value <= Last;
}

// ---- The table --------------------------------------------------------------------------------

constexpr auto Letter = LookAlike::Sort::Letter;
constexpr auto Sign = LookAlike::Sort::Sign;
constexpr auto Space = LookAlike::Sort::Space;
constexpr auto Invisible = LookAlike::Sort::Invisible;

/// Ascending.
constexpr LookAlike Table[] = {
    {0x00A0, Space, " ", "NO-BREAK SPACE"},
    {0x00AD, Invisible, "", "SOFT HYPHEN"},
    {0x00D7, Letter, "x", "MULTIPLICATION SIGN"},
    {0x0391, Letter, "A", "GREEK CAPITAL LETTER ALPHA"},
    {0x0392, Letter, "B", "GREEK CAPITAL LETTER BETA"},
    {0x0395, Letter, "E", "GREEK CAPITAL LETTER EPSILON"},
    {0x0396, Letter, "Z", "GREEK CAPITAL LETTER ZETA"},
    {0x0397, Letter, "H", "GREEK CAPITAL LETTER ETA"},
    {0x0399, Letter, "I", "GREEK CAPITAL LETTER IOTA"},
    {0x039A, Letter, "K", "GREEK CAPITAL LETTER KAPPA"},
    {0x039C, Letter, "M", "GREEK CAPITAL LETTER MU"},
    {0x039D, Letter, "N", "GREEK CAPITAL LETTER NU"},
    {0x039F, Letter, "O", "GREEK CAPITAL LETTER OMICRON"},
    {0x03A1, Letter, "P", "GREEK CAPITAL LETTER RHO"},
    {0x03A4, Letter, "T", "GREEK CAPITAL LETTER TAU"},
    {0x03A5, Letter, "Y", "GREEK CAPITAL LETTER UPSILON"},
    {0x03A7, Letter, "X", "GREEK CAPITAL LETTER CHI"},
    {0x03B1, Letter, "a", "GREEK SMALL LETTER ALPHA"},
    {0x03B3, Letter, "y", "GREEK SMALL LETTER GAMMA"},
    {0x03BD, Letter, "v", "GREEK SMALL LETTER NU"},
    {0x03BF, Letter, "o", "GREEK SMALL LETTER OMICRON"},
    {0x03C1, Letter, "p", "GREEK SMALL LETTER RHO"},
    {0x03C7, Letter, "x", "GREEK SMALL LETTER CHI"},
    {0x0405, Letter, "S", "CYRILLIC CAPITAL LETTER DZE"},
    {0x0406, Letter, "I", "CYRILLIC CAPITAL LETTER BYELORUSSIAN-UKRAINIAN I"},
    {0x0408, Letter, "J", "CYRILLIC CAPITAL LETTER JE"},
    {0x0410, Letter, "A", "CYRILLIC CAPITAL LETTER A"},
    {0x0412, Letter, "B", "CYRILLIC CAPITAL LETTER VE"},
    {0x0415, Letter, "E", "CYRILLIC CAPITAL LETTER IE"},
    {0x041A, Letter, "K", "CYRILLIC CAPITAL LETTER KA"},
    {0x041C, Letter, "M", "CYRILLIC CAPITAL LETTER EM"},
    {0x041D, Letter, "H", "CYRILLIC CAPITAL LETTER EN"},
    {0x041E, Letter, "O", "CYRILLIC CAPITAL LETTER O"},
    {0x0420, Letter, "P", "CYRILLIC CAPITAL LETTER ER"},
    {0x0421, Letter, "C", "CYRILLIC CAPITAL LETTER ES"},
    {0x0422, Letter, "T", "CYRILLIC CAPITAL LETTER TE"},
    {0x0423, Letter, "Y", "CYRILLIC CAPITAL LETTER U"},
    {0x0425, Letter, "X", "CYRILLIC CAPITAL LETTER HA"},
    {0x0430, Letter, "a", "CYRILLIC SMALL LETTER A"},
    {0x0435, Letter, "e", "CYRILLIC SMALL LETTER IE"},
    {0x043E, Letter, "o", "CYRILLIC SMALL LETTER O"},
    {0x0440, Letter, "p", "CYRILLIC SMALL LETTER ER"},
    {0x0441, Letter, "c", "CYRILLIC SMALL LETTER ES"},
    {0x0443, Letter, "y", "CYRILLIC SMALL LETTER U"},
    {0x0445, Letter, "x", "CYRILLIC SMALL LETTER HA"},
    {0x0455, Letter, "s", "CYRILLIC SMALL LETTER DZE"},
    {0x0456, Letter, "i", "CYRILLIC SMALL LETTER BYELORUSSIAN-UKRAINIAN I"},
    {0x0458, Letter, "j", "CYRILLIC SMALL LETTER JE"},
    {0x1680, Space, " ", "OGHAM SPACE MARK"},
    {0x2000, Space, " ", "EN QUAD"},
    {0x2001, Space, " ", "EM QUAD"},
    {0x2002, Space, " ", "EN SPACE"},
    {0x2003, Space, " ", "EM SPACE"},
    {0x2004, Space, " ", "THREE-PER-EM SPACE"},
    {0x2005, Space, " ", "FOUR-PER-EM SPACE"},
    {0x2006, Space, " ", "SIX-PER-EM SPACE"},
    {0x2007, Space, " ", "FIGURE SPACE"},
    {0x2008, Space, " ", "PUNCTUATION SPACE"},
    {0x2009, Space, " ", "THIN SPACE"},
    {0x200A, Space, " ", "HAIR SPACE"},
    {0x200B, Invisible, "", "ZERO WIDTH SPACE"},
    {0x200C, Invisible, "", "ZERO WIDTH NON-JOINER"},
    {0x200D, Invisible, "", "ZERO WIDTH JOINER"},
    {0x200E, Invisible, "", "LEFT-TO-RIGHT MARK"},
    {0x200F, Invisible, "", "RIGHT-TO-LEFT MARK"},
    {0x2010, Sign, "-", "HYPHEN"},
    {0x2011, Sign, "-", "NON-BREAKING HYPHEN"},
    {0x2012, Sign, "-", "FIGURE DASH"},
    {0x2013, Sign, "-", "EN DASH"},
    {0x2014, Sign, "-", "EM DASH"},
    {0x2018, Sign, "'", "LEFT SINGLE QUOTATION MARK"},
    {0x2019, Sign, "'", "RIGHT SINGLE QUOTATION MARK"},
    {0x201C, Sign, "\"", "LEFT DOUBLE QUOTATION MARK"},
    {0x201D, Sign, "\"", "RIGHT DOUBLE QUOTATION MARK"},
    {0x201E, Sign, "\"", "DOUBLE LOW-9 QUOTATION MARK"},
    {0x202F, Space, " ", "NARROW NO-BREAK SPACE"},
    {0x205F, Space, " ", "MEDIUM MATHEMATICAL SPACE"},
    {0x2060, Invisible, "", "WORD JOINER"},
    {0x2080, Sign, "0", "SUBSCRIPT ZERO"},
    {0x2081, Sign, "1", "SUBSCRIPT ONE"},
    {0x2082, Sign, "2", "SUBSCRIPT TWO"},
    {0x2083, Sign, "3", "SUBSCRIPT THREE"},
    {0x2084, Sign, "4", "SUBSCRIPT FOUR"},
    {0x2085, Sign, "5", "SUBSCRIPT FIVE"},
    {0x2086, Sign, "6", "SUBSCRIPT SIX"},
    {0x2087, Sign, "7", "SUBSCRIPT SEVEN"},
    {0x2088, Sign, "8", "SUBSCRIPT EIGHT"},
    {0x2089, Sign, "9", "SUBSCRIPT NINE"},
    {0x2192, Sign, "->", "RIGHTWARDS ARROW"},
    {0x21D2, Sign, "->", "RIGHTWARDS DOUBLE ARROW"},
    {0x2212, Sign, "-", "MINUS SIGN"},
    {0x2217, Sign, "*", "ASTERISK OPERATOR"},
    {0x2236, Sign, ":", "RATIO"},
    {0x2237, Sign, "::", "PROPORTION"},
    {0x27F6, Sign, "->", "LONG RIGHTWARDS ARROW"},
    {0x3000, Space, " ", "IDEOGRAPHIC SPACE"},
    {0xA789, Sign, ":", "MODIFIER LETTER COLON"},
    {0xFEFF, Invisible, "", "ZERO WIDTH NO-BREAK SPACE"},
    {0xFF02, Sign, "\"", "FULLWIDTH QUOTATION MARK"},
    {0xFF08, Sign, "(", "FULLWIDTH LEFT PARENTHESIS"},
    {0xFF09, Sign, ")", "FULLWIDTH RIGHT PARENTHESIS"},
    {0xFF0A, Sign, "*", "FULLWIDTH ASTERISK"},
    {0xFF0B, Sign, "+", "FULLWIDTH PLUS SIGN"},
    {0xFF0C, Sign, ",", "FULLWIDTH COMMA"},
    {0xFF0D, Sign, "-", "FULLWIDTH HYPHEN-MINUS"},
    {0xFF10, Sign, "0", "FULLWIDTH DIGIT ZERO"},
    {0xFF11, Sign, "1", "FULLWIDTH DIGIT ONE"},
    {0xFF12, Sign, "2", "FULLWIDTH DIGIT TWO"},
    {0xFF13, Sign, "3", "FULLWIDTH DIGIT THREE"},
    {0xFF14, Sign, "4", "FULLWIDTH DIGIT FOUR"},
    {0xFF15, Sign, "5", "FULLWIDTH DIGIT FIVE"},
    {0xFF16, Sign, "6", "FULLWIDTH DIGIT SIX"},
    {0xFF17, Sign, "7", "FULLWIDTH DIGIT SEVEN"},
    {0xFF18, Sign, "8", "FULLWIDTH DIGIT EIGHT"},
    {0xFF19, Sign, "9", "FULLWIDTH DIGIT NINE"},
    {0xFF1A, Sign, ":", "FULLWIDTH COLON"},
    {0xFF1B, Sign, ";", "FULLWIDTH SEMICOLON"},
    {0xFF1D, Sign, "=", "FULLWIDTH EQUALS SIGN"},
    {0xFF1E, Sign, ">", "FULLWIDTH GREATER-THAN SIGN"},
    {0xFF38, Letter, "X", "FULLWIDTH LATIN CAPITAL LETTER X"},
    {0xFF39, Letter, "Y", "FULLWIDTH LATIN CAPITAL LETTER Y"},
    {0xFF3B, Sign, "[", "FULLWIDTH LEFT SQUARE BRACKET"},
    {0xFF3D, Sign, "]", "FULLWIDTH RIGHT SQUARE BRACKET"},
    {0xFF58, Letter, "x", "FULLWIDTH LATIN SMALL LETTER X"},
    {0xFF59, Letter, "y", "FULLWIDTH LATIN SMALL LETTER Y"},
    {0xFF5B, Sign, "{", "FULLWIDTH LEFT CURLY BRACKET"},
    {0xFF5D, Sign, "}", "FULLWIDTH RIGHT CURLY BRACKET"},
};

const LookAlike* FindInTable(std::uint32_t CodePoint) {
  const auto* const Found = std::lower_bound(
      std::begin(Table), std::end(Table), CodePoint,
      [](const LookAlike& Alike, std::uint32_t Wanted) { return Alike.CodePoint < Wanted; });
  return Found != std::end(Table) && Found->CodePoint == CodePoint ? Found : nullptr;
}

// ---- What is a slip ---------------------------------------------------------------------------

/// Whether a character beyond ASCII may be part of a word: everything that is in no way a sign.
bool IsWordPart(const Character& Current) {
  const LookAlike* Which = FindInTable(Current.CodePoint);
  return Which == nullptr ? Current.CodePoint >= 0xC0U && Current.CodePoint != 0xF7U &&
                                !IsBetween(Current.CodePoint, 0x2000, 0x2BFF) &&
                                !IsBetween(Current.CodePoint, 0x3000, 0x303F)
                          : Which->What == Letter;
}

bool IsLetterAt(std::string_view Text, std::size_t At) {
  return IsAscii(Text[At]) ? IsAsciiLetter(Text[At]) : IsWordPart(CharacterAt(Text, At));
}

/// Whether all letters of a word are of ASCII or look like it.
bool LooksAscii(std::string_view Word) {
  bool HasAscii = false;
  for (std::size_t At = 0; At < Word.size();) {
    const Character Next = CharacterAt(Word, At);
    HasAscii = HasAscii || IsAscii(Word[At]);
    if (!IsAscii(Word[At]) && FindInTable(Next.CodePoint) == nullptr) {
      return false;
    }
    At += Next.Bytes.size();
  }
  return HasAscii;
}

/// Whether a word of one character is taken for the X or Y of a node.
bool IsNodeLetter(std::string_view Word, std::string_view After) {
  const Character First = CharacterAt(Word, 0);
  const LookAlike* Which = FindInTable(First.CodePoint);
  if (First.Bytes.size() != Word.size() || Which == nullptr || After.empty()) {
    return false;
  }
  const LookAlike* Digit = FindInTable(CharacterAt(After, 0).CodePoint);
  const char Next = Digit != nullptr && !Digit->Ascii.empty() ? Digit->Ascii[0] : After[0];
  return Contains("XYxy", Which->Ascii) && IsDigit(Next);
}

/// Goes over a text from one look-alike that is a slip to the next.
class SlipFinder {
 public:
  explicit SlipFinder(std::string_view TextPassIn) : Text(TextPassIn) {}

  std::optional<FoundLookAlike> Next() {
    while (At < Text.size()) {
      if (At >= WordEnd && IsLetterAt(Text, At)) {
        EnterWord();
      }
      const std::size_t Start = At;
      const Character Next = CharacterAt(Text, At);
      At += Next.Bytes.size();
      if (Text[Start] == '"' && Start >= QuotesEnd) {
        QuotesEnd = Text.find('"', Start + 1) + 1;
      }
      const LookAlike* Which = IsAscii(Text[Start]) ? nullptr : FindInTable(Next.CodePoint);
      if (Which != nullptr && IsSlip(*Which, Start)) {
        return FoundLookAlike{Which, Next.Bytes};
      }
    }
    return std::nullopt;
  }

 private:
  void EnterWord() {
    WordEnd = At;
    while (WordEnd < Text.size() && IsLetterAt(Text, WordEnd)) {
      WordEnd += CharacterAt(Text, WordEnd).Bytes.size();
    }
    const std::string_view Word = Text.substr(At, WordEnd - At);
    IsMixed = LooksAscii(Word) || IsNodeLetter(Word, Text.substr(WordEnd));
  }

  bool IsSlip(const LookAlike& Which, std::size_t Start) const {
    if (Which.What == Letter) {
      return IsMixed;
    }
    return Start >= QuotesEnd && !(IsOfWords(Which) && IsWithinWord(Start));
  }

  /// Whether words of some languages hold such a character.
  static bool IsOfWords(const LookAlike& Which) {
    constexpr std::uint32_t Apostrophe = 0x2019;
    return Which.CodePoint == Apostrophe || IsBetween(Which.CodePoint, 0x200C, 0x200D) ||
           IsBetween(Which.CodePoint, 0x2010, 0x2011);
  }

  bool IsWithinWord(std::size_t Start) const {
    return Start > 0 && (!IsAscii(Text[Start - 1]) || IsAsciiLetter(Text[Start - 1])) &&
           At < Text.size() && IsLetterAt(Text, At);
  }

  std::string_view Text;
  std::size_t At = 0;
  std::size_t WordEnd = 0;
  std::size_t QuotesEnd = 0;
  bool IsMixed = false;
};

}  // namespace

std::optional<FoundLookAlike> FindLookAlike(std::string_view Text) {
  return SlipFinder(Text).Next();
}

std::string WithoutLookAlikes(std::string_view Text) {
  std::string Result;
  std::size_t Copied = 0;
  SlipFinder Slips(Text);
  while (const std::optional<FoundLookAlike> Found = Slips.Next()) {
    const std::size_t Start = OffsetIn(Text, Found->Place);
    Result.append(Text.substr(Copied, Start - Copied)).append(Found->Which->Ascii);
    Copied = Start + Found->Place.size();
  }
  return Result.append(Text.substr(Copied));
}

std::string Described(const LookAlike& Which) {
  constexpr std::string_view Digits = "0123456789ABCDEF";
  std::string Result = "U+";
  for (unsigned Shift = 16; Shift != 0;) {
    Shift -= 4;
    Result += Digits[Which.CodePoint >> Shift & 0xFU];
  }
  Result.append(" ").append(Which.Name);
  switch (Which.What) {
    case LookAlike::Sort::Invisible:
      return Result + ", which cannot be seen";
    case LookAlike::Sort::Space:
      return Result + ", which looks like a blank";
    default:
      return Result.append(", which looks like ").append(Which.Ascii);
  }
}

bool HasBytesBeyondAscii(std::string_view Text) {
  constexpr std::uint64_t HighBits = 0x8080808080808080U;
  std::uint64_t Found = 0;
  while (Text.size() >= sizeof Found) {
    std::uint64_t Eight = 0;
    std::memcpy(&Eight, Text.data(), sizeof Eight);
    Found |= Eight;
    Text.remove_prefix(sizeof Eight);
  }
  return (Found & HighBits) != 0 ||
         !std::all_of(Text.begin(), Text.end(), [](char Byte) { return IsAscii(Byte); });
}

// ---- Small letters ----------------------------------------------------------------------------

namespace {

/// The capital of a small letter beyond ASCII; the character itself if it is not such a letter.
std::uint32_t CapitalOf(std::uint32_t Letter_) {
  if ((IsBetween(Letter_, 0xE0, 0xFE) && Letter_ != 0xF7U) ||
      (IsBetween(Letter_, 0x3B1, 0x3C9) && Letter_ != 0x3C2U) || IsBetween(Letter_, 0x430, 0x44F)) {
    return Letter_ - 0x20U;
  }
  if (IsBetween(Letter_, 0x450, 0x45F)) {
    return Letter_ - 0x50U;
  }
  // Here small letters and capitals take turns; between them, two have no other, and two have it
  // elsewhere.
  if (IsBetween(Letter_, 0x100, 0x137) && Letter_ != 0x131U) {
    return Letter_ & ~1U;
  }
  if (IsBetween(Letter_, 0x14A, 0x177)) {
    return Letter_ & ~1U;
  }
  if ((IsBetween(Letter_, 0x139, 0x148) || IsBetween(Letter_, 0x179, 0x17E)) && Letter_ % 2 == 0) {
    return Letter_ - 1;
  }
  switch (Letter_) {
    case 0xFF:
      return 0x178;
    case 0x3AC:
      return 0x386;
    case 0x3AD:
    case 0x3AE:
    case 0x3AF:
      return Letter_ - 37U;
    case 0x3CC:
      return 0x38C;
    default:
      return Letter_;
  }
}

}  // namespace

std::string_view FirstSmallLetterBeyondAscii(std::string_view Text) {
  for (std::size_t At = 0; At < Text.size();) {
    const Character Next = CharacterAt(Text, At);
    if (!IsAscii(Text[At]) && CapitalOf(Next.CodePoint) != Next.CodePoint) {
      return Next.Bytes;
    }
    At += Next.Bytes.size();
  }
  return {};
}

std::string WithCapitalsBeyondAscii(std::string_view Text) {
  std::string Result;
  for (std::size_t At = 0; At < Text.size();) {
    const Character Next = CharacterAt(Text, At);
    const std::uint32_t Capital = CapitalOf(Next.CodePoint);
    if (!IsAscii(Text[At]) && Capital != Next.CodePoint) {
      AppendCharacter(Capital, Result);
    } else {
      Result.append(Next.Bytes);
    }
    At += Next.Bytes.size();
  }
  return Result;
}

}  // namespace Grammar
