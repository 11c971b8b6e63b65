#include "SuggestionTrial.h"

#include "RuleReader.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace Grammar {

SuggestionTrial::SuggestionTrial(const RuleText& TextPassIn, Checker CheckPassIn,
                                 std::vector<Finding>& vFindingsPassIn)
    : Text(TextPassIn), Check(std::move(CheckPassIn)), vFindings(vFindingsPassIn) {}

namespace {

/// Whether correcting such a finding leaves the constraint as the library keeps it, so that nothing
/// else can be found in it than before. Their suggestions correct all three.
bool KeepsRecord(const Finding& Found) {
  return Found.Code == "TR024" || Found.Code == "TR025" || Found.Code == "TR026";
}

bool HasSuggestion(const Finding& Found) {
  return !Found.Suggestion.empty();
}

}  // namespace

void SuggestionTrial::Settle() {
  using Iterator = std::vector<Finding>::iterator;
  for (Iterator First = vFindings.begin(); First != vFindings.end();) {
    const Iterator Last = std::find_if(
        First, vFindings.end(), [&](const Finding& Found) { return Found.Line != First->Line; });
    const bool IsCorrectable = std::all_of(First, Last, HasSuggestion);
    if (std::any_of(First, Last, HasSuggestion) &&
        !(IsCorrectable && std::all_of(First, Last, KeepsRecord))) {
      const std::string Corrected = IsCorrectable ? Tried(First->Line, *First) : "";
      std::for_each(First, Last, [&](Finding& Found) { Found.Suggestion = Corrected; });
    }
    First = Last;
  }
}

/// The suggestion, with those for what is found in it, until nothing is.
std::string SuggestionTrial::Tried(std::size_t Number, const Finding& First) {
  constexpr int MaxRounds = 6;
  const std::size_t Line = Number - Text.FirstLine;
  std::string Corrected = First.Suggestion;
  for (int Round = 0; Round < MaxRounds; ++Round) {
    const std::optional<Finding> Next = FirstFindingIn(Line, Corrected);
    if (!Next) {
      return IsOutOfBytes ? "" : Corrected;
    }
    if (Next->Suggestion.empty() || Next->Suggestion == Corrected) {
      break;
    }
    Corrected = Next->Suggestion;
  }
  return "";
}

/// What is found first on a line with another text.
std::optional<Finding> SuggestionTrial::FirstFindingIn(std::size_t Line,
                                                       const std::string& Corrected) {
  constexpr std::size_t MaxBytes = std::size_t{1} << 20;
  const RuleText::Span& Place = Text.vLines[Line];
  std::string Whole = Text.Text;
  Whole.replace(Place.Begin, Place.End - Place.Begin, Corrected);
  BytesTried += Whole.size();
  IsOutOfBytes = BytesTried > MaxBytes;
  if (IsOutOfBytes) {
    return std::nullopt;
  }
  std::istringstream Stream(Whole);
  RuleReader Reader(Stream, Text.File);
  std::vector<Finding> vAll;
  for (RuleText Rule; Reader.Next(Rule);) {
    Check(Rule, vAll);
  }
  const auto Found = std::find_if(vAll.begin(), vAll.end(),
                                  [&](const Finding& Listed) { return Listed.Line == Line + 1; });
  return Found == vAll.end() ? std::nullopt : std::optional<Finding>(std::move(*Found));
}

}  // namespace Grammar
