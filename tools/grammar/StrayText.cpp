// Sections: what is stray on a line, the comment that keeps it.

#include "StrayText.h"

#include "Bytes.h"

#include <AlignmentLine.h>
#include <HeaderLine.h>
#include <RuleLine.h>

namespace Grammar {

namespace {

using Texts = std::vector<std::string_view>;

// ---- What is stray on a line ------------------------------------------------------------------

/// The two texts, where they are not blank. Hardly a line has any: the others need not be read.
template <typename IsReadT>
Texts StrayOf(std::string_view Before, std::string_view After, IsReadT IsRead) {
  Texts vStray;
  if ((Before.empty() && After.empty()) || !IsRead()) {
    return vStray;
  }
  for (const std::string_view Text : {Trimmed(Before), Trimmed(After)}) {
    if (!Text.empty()) {
      vStray.push_back(Text);
    }
  }
  return vStray;
}

/// The text without the blanks and the word that may stand at its beginning.
std::string_view Without(std::string_view Text, std::string_view Allowed) {
  const std::string_view Rest = WithoutLeadingSpace(Text);
  return StartsWith(Rest, Allowed) ? WithoutLeadingSpace(Rest.substr(Allowed.size())) : Rest;
}

// Header = stray "{" Type "," Number "}" stray; one that cannot be read is kept unchanged
Texts StrayInHeader(std::string_view Code) {
  const std::size_t Open = Code.find('{');
  return StrayOf(Code.substr(0, Open), Code.substr(Code.find('}', Open) + 1),
                 [&] { return TrRuleInternal::ParseHeader(Code).has_value(); });
}

// SequenceLine = Types blank [ ":" ] stray "[" Labels "] -> [" Labels "]" stray
Texts StrayInSequence(std::string_view Code) {
  const std::size_t Types = Code.find(' ');
  return StrayOf(Without(Code.substr(Types, Code.find('[') - Types), ":"),
                 Code.substr(Code.rfind(']') + 1), [&] {
                   TrRuleInternal::RuleLineParts Ignored;
                   return TrRuleInternal::ParseRuleLine(Code, Ignored) ==
                          TrRuleInternal::RuleLineFault::None;
                 });
}

// AlignmentLine = [ ";--;" ] stray "(" XNode "::" YNode ")" stray
Texts StrayInAlignment(std::string_view Code) {
  // As good as all of them, and most lines of a grammar.
  if (Code.front() == '(' && Code.back() == ')') {
    return {};
  }
  return StrayOf(Without(Code.substr(0, Code.find('(')), ";--;"), Code.substr(Code.rfind(')') + 1),
                 [&] { return TrRuleInternal::ParseAlignment(Code).has_value(); });
}

}  // namespace

std::vector<std::string_view> StrayTexts(const LineParts& Parts) {
  switch (Parts.Kind) {
    case LineKind::Header:
      return StrayInHeader(Parts.Code);
    case LineKind::Sequence:
      return StrayInSequence(Parts.Code);
    case LineKind::Alignment:
      return StrayInAlignment(Parts.Code);
    case LineKind::Other:
      return {Parts.Code};
    default:
      // Nothing may stand around a constraint: with such text it is not in the format.
      return {};
  }
}

// ---- The comment that keeps it ----------------------------------------------------------------

namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";

bool IsHexDigit(char Byte) {
  return Contains(HexDigits, {&Byte, 1}) || (Byte >= 'a' && Byte <= 'f');
}

bool EndsWith(std::string_view Text, std::string_view End) {
  return Text.size() >= End.size() && Text.substr(Text.size() - End.size()) == End;
}

/// Whether the first byte of `Rest` has to be hidden after what is written already.
bool IsHidden(std::string_view Written, std::string_view Rest) {
  switch (Rest.front()) {
    case '{':
    case '=':
      return true;
    case ':':
      return EndsWith(Written, ":");
    case '[':
      return EndsWith(Written, "] -> ");
    case '%':
      return Rest.size() > 2 && IsHexDigit(Rest[1]) && IsHexDigit(Rest[2]);
    default:
      return false;
  }
}

}  // namespace

std::string HiddenText(std::string_view Text) {
  std::string Hidden;
  for (; !Text.empty(); Text.remove_prefix(1)) {
    if (IsHidden(Hidden, Text)) {
      const auto Value = static_cast<unsigned char>(Text.front());
      Hidden.append("%").append(1, HexDigits[Value >> 4U]).append(1, HexDigits[Value & 15U]);
    } else {
      Hidden += Text.front();
    }
  }
  return Hidden;
}

std::string StrayComment(std::string_view Text) {
  return ";; not read: " + HiddenText(Text);
}

}  // namespace Grammar
