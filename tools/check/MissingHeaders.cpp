#include "MissingHeaders.h"

#include "Bytes.h"
#include "UsableRule.h"

#include <algorithm>
#include <utility>

namespace Grammar {

namespace {

bool HasLineOfKind(const RuleText& Text, LineKind Kind) {
  return std::any_of(Text.vLines.begin(), Text.vLines.end(),
                     [Kind](const RuleText::Span& Current) { return Current.Kind == Kind; });
}

}  // namespace

void MissingHeaders::Check(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn) {
  if (TextPassIn.FirstLine == 1 || File != TextPassIn.File) {
    File = TextPassIn.File;
    HasSeenHeader = false;
  }
  if (!TextPassIn.HasRule || TextPassIn.Continues) {
    return;
  }
  if (HasLineOfKind(TextPassIn, LineKind::Header)) {
    HasSeenHeader = true;
    return;
  }
  if (!HasSeenHeader) {
    return;
  }
  constexpr std::size_t MaxLineText = 1000;
  const std::size_t Line = LineOfRule(TextPassIn) - TextPassIn.FirstLine;
  const LineParts Parts = TextPassIn.Parts(Line);
  Finding New;
  New.File = TextPassIn.File;
  New.Line = TextPassIn.FirstLine + Line;
  New.Column = OffsetIn(TextPassIn.Line(Line), Parts.Code) + 1;
  New.Length = Parts.Code.size();
  New.Code = "TR045";
  New.Level = FindCode(New.Code)->Level;
  New.Message = "this rule has no header, while rules before it have one";
  New.LineText = TextPassIn.Line(Line).substr(0, MaxLineText);
  vFindingsReturn.push_back(std::move(New));
}

}  // namespace Grammar
