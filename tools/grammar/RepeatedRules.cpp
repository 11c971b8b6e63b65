#include "RepeatedRules.h"

#include "LineKind.h"

#include <functional>

namespace Grammar {

namespace {

/// The first line of a rule that is of a kind, or its first line that is no comment.
std::size_t LineOfKind(const RuleText& Text, LineKind Kind) {
  std::size_t First = Text.vLines.size();
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const LineParts Parts = Text.Parts(Line);
    if (Parts.Kind == Kind) {
      return Line;
    }
    if (First == Text.vLines.size() && !Parts.Code.empty()) {
      First = Line;
    }
  }
  return First;
}

/// A second sum that has nothing in common with the standard library's.
std::uint64_t SecondSum(const std::string& Text) {
  std::uint64_t Sum = 0xCBF29CE484222325U;
  for (const char Byte : Text) {
    Sum = (Sum ^ static_cast<unsigned char>(Byte)) * 0x100000001B3U;
  }
  return Sum;
}

}  // namespace

void RepeatedRules::Check(const RuleText& TextPassIn, const RuleRecord& RecordPassIn,
                          std::vector<Finding>& vFindingsReturn) {
  if (vsFiles.empty() || vsFiles.back() != TextPassIn.File) {
    vsFiles.push_back(TextPassIn.File);
  }
  const RuleHeader& Header = RecordPassIn.Header();
  if (WantsNumbers && Header.IsPresent && Header.IsReadable) {
    const std::size_t Line = LineOfKind(TextPassIn, LineKind::Header);
    const std::string Text = '{' + Header.Type + ',' + Header.Number + '}';
    if (const Place* First = FindOrAdd(Numbers, Text, TextPassIn.FirstLine + Line)) {
      Report("TR034", Text + " is the header of another rule, too", TextPassIn, Line, *First,
             vFindingsReturn);
    }
  }
  if (WantsForms) {
    const std::size_t Line = LineOfKind(TextPassIn, LineKind::Sequence);
    if (const Place* First =
            FindOrAdd(Forms, RecordPassIn.SamenessText(), TextPassIn.FirstLine + Line)) {
      Report("TR033", "this rule says the same as another one", TextPassIn, Line, *First,
             vFindingsReturn);
    }
  }
}

/// The place of an equal text; null where there is none, and then it is noted.
const RepeatedRules::Place* RepeatedRules::FindOrAdd(Places& PlacesReturn, const std::string& Text,
                                                     std::size_t Line) {
  const Place New{SecondSum(Text), static_cast<std::uint32_t>(vsFiles.size() - 1),
                  static_cast<std::uint32_t>(Line)};
  const auto [Found, IsNew] = PlacesReturn.emplace(std::hash<std::string>()(Text), New);
  return !IsNew && Found->second.SecondSum == New.SecondSum ? &Found->second : nullptr;
}

void RepeatedRules::Report(std::string_view Code, const std::string& Message, const RuleText& Text,
                           std::size_t LineIndex, const Place& First,
                           std::vector<Finding>& vFindingsReturn) {
  const std::string_view Line = Text.Line(LineIndex);
  const LineParts Parts = Text.Parts(LineIndex);
  Finding New;
  New.File = Text.File;
  New.Line = Text.FirstLine + LineIndex;
  New.Column = static_cast<std::size_t>(Parts.Code.data() - Line.data()) + 1;
  New.Length = Parts.Code.size();
  New.Level = FindCode(Code)->Level;
  New.Code = Code;
  New.Message = Message;
  New.LineText = Line;
  New.OtherFile = vsFiles[First.File];
  New.OtherLine = First.Line;
  vFindingsReturn.push_back(std::move(New));
}

}  // namespace Grammar
