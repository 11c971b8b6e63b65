#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace Grammar {

/// A character that people take for one of ASCII.
struct LookAlike {
  enum class Sort { Letter, Sign, Space, Invisible };

  std::uint32_t CodePoint;
  Sort What;
  std::string_view Ascii;  ///< what it is taken for; nothing, where it cannot be seen
  std::string_view Name;   ///< as Unicode names it
};

/// A look-alike, and where in a text it stands.
struct FoundLookAlike {
  const LookAlike* Which;
  std::string_view Place;
};

/// Finds the first look-alike that is a slip rather than part of a word of another script.
///
/// Spaces, signs and invisible characters are slips outside of double quotes. A letter is one where
/// all other letters of its word are of ASCII or look like it, with one of ASCII among them at
/// least, and where it stands for an X or Y before a digit. Apostrophes and joiners within a word
/// are none.
///
/// @code
/// FindLookAlike("(Х1::Y1)")->Which->Name;          // "CYRILLIC CAPITAL LETTER HA"
/// FindLookAlike("((x1 lex) = дом)").has_value();  // false
/// @endcode
std::optional<FoundLookAlike> FindLookAlike(std::string_view Text);

/// The text with the ASCII that its look-alikes are taken for.
std::string WithoutLookAlikes(std::string_view Text);

/// "U+0425 CYRILLIC CAPITAL LETTER HA, which looks like X"
std::string Described(const LookAlike& Which);

/// Whether there are bytes beyond ASCII. Eight bytes are looked at in one go.
bool HasBytesBeyondAscii(std::string_view Text);

/// The first small letter beyond ASCII, of the Latin, Greek and Cyrillic scripts: the library does
/// not make it a capital. Empty where there is none.
std::string_view FirstSmallLetterBeyondAscii(std::string_view Text);

/// The text with these letters as capitals; those of ASCII stay as they are.
std::string WithCapitalsBeyondAscii(std::string_view Text);

}  // namespace Grammar
