#include "RepeatedRules.h"

#include "LineKind.h"

#include <algorithm>
#include <cstring>
#include <functional>

namespace Grammar {

namespace {

/// The first line of a rule that is of a kind, or its first line that is no comment.
std::size_t LineOfKind(const RuleText& Text, LineKind Kind) {
  std::size_t First = Text.vLines.size();
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const RuleText::Span& Range = Text.vLines[Line];
    if (Range.Kind == Kind) {
      return Line;
    }
    if (First == Text.vLines.size() && Range.CodeEnd > Range.CodeBegin) {
      First = Line;
    }
  }
  return First;
}

/// A second sum that has nothing in common with the standard library's.
std::uint64_t OtherSumOf(std::string_view Text) {
  std::uint64_t Sum = 0xCBF29CE484222325U ^ Text.size();
  while (!Text.empty()) {
    std::uint64_t Eight = 0;
    const std::size_t Size = std::min(Text.size(), sizeof Eight);
    std::memcpy(&Eight, Text.data(), Size);
    Sum = (Sum ^ Eight) * 0x9E3779B97F4A7C15U;
    Sum ^= Sum >> 29U;
    Text.remove_prefix(Size);
  }
  return Sum;
}

std::uint64_t SumOf(std::string_view Text) {
  return std::hash<std::string_view>()(Text);
}

}  // namespace

/// The block of the normal form decides what the library reads, and so stands for the comparison
/// text, too.
RuleIdentity RepeatedRules::IdentityOf(const RuleRecord& RecordPassIn,
                                       std::string& BufferReturn) const {
  RuleIdentity Identity;
  const RuleHeader& Header = RecordPassIn.Header();
  if (WantsNumbers && Header.IsPresent && Header.IsReadable) {
    Identity.Header = '{' + Header.Type + ',' + Header.Number + '}';
  }
  if (WantsForms) {
    BufferReturn.clear();
    RecordPassIn.Form().AppendBlock(BufferReturn);
    Identity.FormSum = SumOf(BufferReturn);
    Identity.OtherFormSum = OtherSumOf(BufferReturn);
  }
  return Identity;
}

void RepeatedRules::Check(const RuleText& TextPassIn, const RuleIdentity& IdentityPassIn,
                          std::vector<Finding>& vFindingsReturn) {
  if (vsFiles.empty() || vsFiles.back() != TextPassIn.File) {
    vsFiles.push_back(TextPassIn.File);
  }
  const std::string& Header = IdentityPassIn.Header;
  if (!Header.empty()) {
    const std::size_t Line = LineOfKind(TextPassIn, LineKind::Header);
    if (const Place* First =
            FindOrAdd(Numbers, SumOf(Header), OtherSumOf(Header), TextPassIn.FirstLine + Line)) {
      Report("TR034", Header + " is also the header of another rule", TextPassIn, Line, *First,
             vFindingsReturn);
    }
  }
  if (WantsForms) {
    const std::size_t Line = LineOfKind(TextPassIn, LineKind::Sequence);
    if (const Place* First = FindOrAdd(Forms, IdentityPassIn.FormSum, IdentityPassIn.OtherFormSum,
                                       TextPassIn.FirstLine + Line)) {
      Report("TR033", "this rule duplicates another one", TextPassIn, Line, *First,
             vFindingsReturn);
    }
  }
}

/// The place of an equal text; null if there is none, and then it is noted.
const RepeatedRules::Place* RepeatedRules::FindOrAdd(Places& PlacesReturn, std::uint64_t Sum,
                                                     std::uint64_t OtherSum, std::size_t Line) {
  const Place New{OtherSum, static_cast<std::uint32_t>(vsFiles.size() - 1),
                  static_cast<std::uint32_t>(Line)};
  const auto [Found, IsNew] = PlacesReturn.emplace(Sum, New);
  return !IsNew && Found->second.OtherSum == OtherSum ? &Found->second : nullptr;
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
