#include "RepeatedRules.h"

#include "Bytes.h"
#include "LineKind.h"

#include <algorithm>
#include <utility>

namespace Grammar {

namespace {

/// The first line of a kind. A whole rule has a rule line, and a header that was read its own.
std::size_t LineOfKind(const RuleText& Text, LineKind Kind) {
  const auto Found = std::find_if(Text.vLines.begin(), Text.vLines.end(),
                                  [&](const RuleText::Span& Line) { return Line.Kind == Kind; });
  return static_cast<std::size_t>(Found - Text.vLines.begin());
}

}  // namespace

/// The block of the normal form decides what the library reads, and so stands for the comparison
/// text, too.
void RepeatedRules::Identify(const RuleRecord& RecordPassIn, std::string& BufferReturn,
                             RuleIdentity& IdentityReturn) const {
  const RuleHeader& Header = RecordPassIn.Header();
  IdentityReturn.Header.clear();
  if (WantsNumbers && Header.IsPresent && Header.IsReadable) {
    TrRuleInternal::Append(IdentityReturn.Header, {"{", Header.Type, ",", Header.Number, "}"});
  }
  if (WantsForms) {
    IdentityReturn.Form = RecordPassIn.Form().BlockSums(BufferReturn);
  }
}

void RepeatedRules::Check(const RuleText& TextPassIn, const RuleIdentity& IdentityPassIn,
                          std::vector<Finding>& vFindingsReturn) {
  if (vsFiles.empty() || vsFiles.back() != TextPassIn.File) {
    vsFiles.push_back(TextPassIn.File);
  }
  const std::string& Header = IdentityPassIn.Header;
  if (!Header.empty()) {
    const std::size_t Line = LineOfKind(TextPassIn, LineKind::Header);
    SumPair Sums;
    Sums.AddText(Header);
    if (const Place* First = FindOrAdd(Numbers, Sums, TextPassIn.FirstLine + Line)) {
      Report("TR034", Header + " is also the header of another rule", TextPassIn, Line, *First,
             vFindingsReturn);
    }
  }
  if (WantsForms) {
    const std::size_t Line = LineOfKind(TextPassIn, LineKind::Sequence);
    if (const Place* First = FindOrAdd(Forms, IdentityPassIn.Form, TextPassIn.FirstLine + Line)) {
      Report("TR033", "this rule duplicates another one", TextPassIn, Line, *First,
             vFindingsReturn);
    }
  }
}

/// The place of an equal text; null if there is none, and then it is noted.
const RepeatedRules::Place* RepeatedRules::FindOrAdd(Seen& SeenReturn, const SumPair& Sums,
                                                     std::size_t Line) {
  std::uint32_t& Slot = SeenReturn.Index.Find(
      Sums.Hash(), [&](std::uint32_t Number) { return SeenReturn.vSums[Number] == Sums; });
  if (Slot != NoEntry) {
    return &SeenReturn.vPlaces[Slot];
  }
  Slot = static_cast<std::uint32_t>(SeenReturn.vSums.size());
  SeenReturn.vSums.push_back(Sums);
  SeenReturn.vPlaces.push_back(
      {static_cast<std::uint32_t>(vsFiles.size() - 1), static_cast<std::uint32_t>(Line)});
  SeenReturn.Index.NoteAdded([&](std::uint32_t Number) { return SeenReturn.vSums[Number].Hash(); });
  return nullptr;
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
