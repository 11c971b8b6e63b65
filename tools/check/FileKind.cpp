#include "FileKind.h"

#include "Bytes.h"
#include "LineCorrections.h"
#include "LineKind.h"
#include "LookAlikes.h"

#include <AlignmentLine.h>
#include <ConstraintFormat.h>
#include <HeaderLine.h>
#include <RuleLine.h>

#include <algorithm>

namespace Grammar {

namespace {

bool IsControl(char Byte) {
  constexpr unsigned char Delete = 0x7F;
  const auto Value = static_cast<unsigned char>(Byte);
  return (Value < ' ' && !IsSpace(Byte)) || Value == Delete;
}

/// In UTF-16, each letter of ASCII has a NUL beside it.
bool IsUtf16(std::string_view Start) {
  std::size_t Even = 0;
  std::size_t Odd = 0;
  for (std::size_t At = 0; At < Start.size(); ++At) {
    (At % 2 == 0 ? Even : Odd) += Start[At] == '\0' ? 1 : 0;
  }
  const std::size_t Quarter = Start.size() / 4;
  return StartsWith(Start, "\xFF\xFE") || StartsWith(Start, "\xFE\xFF") ||
         (Start.size() > 3 && std::max(Even, Odd) > Quarter && std::min(Even, Odd) <= Quarter / 8);
}

bool IsBinary(std::string_view Start) {
  constexpr std::ptrdiff_t OneIn = 100;
  return std::count_if(Start.begin(), Start.end(), IsControl) * OneIn >
         static_cast<std::ptrdiff_t>(Start.size());
}

bool IsValid(const LineParts& Parts) {
  TrRuleInternal::RuleLineParts RuleLine;
  TrRuleInternal::ConstraintStop Stop;
  switch (Parts.Kind) {
    case LineKind::Header:
      return TrRuleInternal::ParseHeader(Parts.Code).has_value();
    case LineKind::Sequence:
      return TrRuleInternal::ParseRuleLine(Parts.Code, RuleLine) ==
             TrRuleInternal::RuleLineFault::None;
    case LineKind::Alignment:
      return TrRuleInternal::ParseAlignment(Parts.Code).has_value();
    case LineKind::Constraint:
      return TrRuleInternal::ParseConstraint(Parts.Code, Stop).has_value();
    default:
      return false;
  }
}

/// Whether a line could be one of a rule, unchanged or with a mistake corrected.
bool IsOfRule(const LineParts& Parts) {
  if (IsValid(Parts)) {
    return true;
  }
  const std::string Code = WithoutLookAlikes(Parts.Code);
  return IsValid(PartsOf(Code)) || LooksLikeSequence(Code) || !CorrectedSequence(Code).empty() ||
         !CorrectedAlignment(Code).empty() || !CorrectedConstraint(Code).empty() ||
         (Parts.Kind == LineKind::Header && !CorrectedHeader(Code).empty());
}

struct LineCounts {
  std::size_t All = 0;
  std::size_t OfRules = 0;
  std::size_t Folded = 0;  ///< rules on one line each
};

/// Leaves out a last line whose end is not there.
LineCounts CountLines(std::string_view Start) {
  if (Start.size() >= FileStartSize) {
    Start = Start.substr(0, Start.rfind('\n') + 1);
  }
  LineCounts Counts;
  while (!Start.empty()) {
    const std::size_t End = std::min(Start.find('\n'), Start.size() - 1) + 1;
    const std::string_view Line = WithoutTrailingSpace(Start.substr(0, End));
    const LineParts Parts = PartsOf(Line);
    const bool IsFolded = Contains(Line, "\t(\t");
    const bool IsParenthesis = Parts.Kind == LineKind::Open || Parts.Kind == LineKind::Close;
    if (IsFolded || (!Parts.Code.empty() && !IsParenthesis)) {
      ++Counts.All;
      Counts.Folded += IsFolded ? 1 : 0;
      Counts.OfRules += !IsFolded && IsOfRule(Parts) ? 1 : 0;
    }
    Start.remove_prefix(End);
  }
  return Counts;
}

}  // namespace

std::optional<std::string> OtherFileKind(std::string_view Start) {
  constexpr std::size_t MinLines = 4;
  constexpr std::size_t OneIn = 4;
  if (IsUtf16(Start)) {
    return "this is not a grammar, or it is one in UTF-16: rules are read in UTF-8";
  }
  if (IsBinary(Start)) {
    return "this is not a grammar: it holds bytes that no text holds";
  }
  const LineCounts Counts = CountLines(Start);
  if (Counts.All == 0 || Counts.OfRules * OneIn >= Counts.All) {
    return std::nullopt;
  }
  if (StartsWith(WithoutLeadingSpace(Start), "{\"")) {
    return "this is not a grammar but JSON: trrule from-json reads what trrule json has written";
  }
  if (Counts.Folded * 2 > Counts.All) {
    return "these are rules on one line each: trrule print --from-one-line reads them";
  }
  if (Counts.All < MinLines) {
    return std::nullopt;
  }
  return "this is not a grammar: of its first " + std::to_string(Counts.All) + " lines, " +
         (Counts.OfRules == 0 ? "none" : std::to_string(Counts.OfRules)) +
         " could be one of a rule";
}

}  // namespace Grammar
