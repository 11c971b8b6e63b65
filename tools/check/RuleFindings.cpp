#include "RuleFindings.h"

#include "Bytes.h"
#include "LookAlikes.h"

#include <algorithm>
#include <utility>

namespace Grammar {

std::string Quoted(std::string_view Text) {
  return "\"" + std::string(Text) + "\"";
}

std::string MissingComponent(std::string_view Name, char Side, std::size_t Count) {
  return "there is no " + std::string(Name) + ": the " + (Side == 'X' ? "source" : "target") +
         " side has " + std::to_string(Count) + (Count == 1 ? " component" : " components");
}

std::string Replaced(std::string_view Text, std::string_view Part, std::string_view By) {
  const std::size_t Start = OffsetIn(Text, Part);
  std::string Result(Text.substr(0, Start));
  return Result.append(By).append(Text.substr(Start + Part.size()));
}

RuleFindings::RuleFindings(const RuleText& TextPassIn, std::vector<Finding>& vFindingsPassIn,
                           HiddenNotes* HiddenPassIn)
    : Text(TextPassIn),
      vFindings(vFindingsPassIn),
      Hidden(HiddenPassIn),
      HasOthers(HasBytesBeyondAscii(TextPassIn.Text)) {}

bool RuleFindings::TakesNote(std::string_view Code) {
  if (Hidden != nullptr) {
    if (Hidden->empty()) {
      constexpr std::size_t TypicalCount = 8;
      Hidden->reserve(TypicalCount);
    }
    Hidden->push_back(FindCode(Code));
  }
  return Hidden == nullptr;
}

Finding& RuleFindings::Add(std::string_view Code, std::size_t Line, std::string_view Part,
                           std::string Message, const Correction& Corrected) {
  constexpr std::size_t MaxLineText = 1000;
  constexpr std::size_t TypicalCount = 4;
  const std::string_view Whole = Text.Line(Line);
  if (vFindings.empty()) {
    vFindings.reserve(TypicalCount);
  }
  Finding& New = vFindings.emplace_back();
  New.File = Text.File;
  New.Line = Text.FirstLine + Line;
  New.Column = Part.empty() ? 1 : OffsetIn(Whole, Part) + 1;
  New.Length = std::max<std::size_t>(Part.size(), 1);
  New.Level = FindCode(Code)->Level;
  New.Code = Code;
  New.Message = std::move(Message);
  New.LineText = Whole.substr(0, MaxLineText);
  if (!Corrected.By.empty() && Whole.size() <= MaxLineText) {
    New.Suggestion = Replaced(Whole, Corrected.Part, Corrected.By);
  }
  return New;
}

Finding& RuleFindings::AddFault(std::string_view Code, std::size_t Line, std::string_view Part,
                                const std::string& Message, std::string Corrected) {
  const std::string_view Whole = Text.Parts(Line).Code;
  const std::optional<FoundLookAlike> Found = HasOthers ? FindLookAlike(Whole) : std::nullopt;
  if (!Found) {
    return Add(Code, Line, Part, Message, {Whole, std::move(Corrected)});
  }
  ExplainedLine = Line;
  const std::string Plain = Replaced(Text.Line(Line), Whole, WithoutLookAlikes(Whole));
  return Add(Code, Line, Found->Place, Message + "; found " + Described(*Found->Which),
             {Text.Line(Line), std::string(WithoutTrailingSpace(Plain))});
}

}  // namespace Grammar
