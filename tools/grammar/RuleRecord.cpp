#include "RuleRecord.h"

#include "Bytes.h"
#include "CountText.h"
#include "RuleReader.h"
#include "StrayText.h"

#include <Splitter.h>
#include <TrRule.h>

#include <algorithm>
#include <utility>

namespace Grammar {

namespace {

/// How many bytes the library reads after a cut.
constexpr std::size_t ReaderLimit = TrRuleInternal::Splitter::MaxRest;

/// Whether the library does not get to see the end of a text.
bool IsCut(std::string_view Text) {
  const std::size_t Cut = Text.find('\n') + 1;
  return Cut != 0 && Text.size() - Cut > ReaderLimit &&
         !Trimmed(Text.substr(Cut + ReaderLimit)).empty();
}

}  // namespace

bool IsTooLong(const RuleText& TextPassIn) {
  if (TextPassIn.IsPiece) {
    return true;
  }
  if (TextPassIn.Text.size() <= ReaderLimit) {
    return false;
  }
  const auto IsLong = [](const RuleText::Span& Current) {
    return Current.End - Current.Begin > ReaderLimit;
  };
  return IsCut(TextPassIn.Text) ||
         std::any_of(TextPassIn.vLines.begin(), TextPassIn.vLines.end(), IsLong);
}

RuleRecord::RuleRecord() = default;

void RuleRecord::Clear() {
  RuleHead = RuleHeader();
  HasStray = false;
  HasForm = false;
  Succeeded = false;
}

bool RuleRecord::Read(const RuleText& TextPassIn) {
  Clear();
  Source.Read(TextPassIn);
  HasForm = Source.IsWhole() && !IsTooLong(TextPassIn);
  if (HasForm && OrderedForm.Read(Source) == RuleForm::Failure::None) {
    ReadComments(TextPassIn);
    Succeeded = !NeedsRoundTrip(TextPassIn) || IsStable();
  } else {
    vsComments.clear();
  }
  return Succeeded;
}

/// Keeps the header, the comments, and what is not part of the rule. The comments of the rule
/// before are written over, which saves their storage.
void RuleRecord::ReadComments(const RuleText& TextPassIn) {
  for (const SourceRule::HeaderLine& Line : Source.Headers()) {
    RuleHead = HeaderOf(Line.Parts, TextPassIn.Parts(Line.Line).Code);
  }
  std::size_t Count = 0;
  const auto Add = [&](std::string_view Comment) {
    if (Count < vsComments.size()) {
      vsComments[Count] = Comment;
    } else {
      vsComments.emplace_back(Comment);
    }
    ++Count;
  };
  for (std::size_t Line = 0; Line < TextPassIn.vLines.size(); ++Line) {
    const RuleText::Span& Span = TextPassIn.vLines[Line];
    if (MayHaveStrayTexts(Span.Kind)) {
      for (const std::string_view Stray : StrayTexts(TextPassIn.Parts(Line))) {
        Add(StrayComment(Stray));
        HasStray = true;
      }
    }
    if (Span.CommentEnd > Span.CommentBegin) {
      Add(TextPassIn.Parts(Line).Comment);
    }
  }
  vsComments.resize(Count);
}

/// Whether reading the written rule is the only way to know that it says the same: quotes hide the
/// sign of a comment, and the written line may have other quotes; keys that hold their own
/// separator merge in ways that depend on their order; and what is written may be too long.
bool RuleRecord::NeedsRoundTrip(const RuleText& TextPassIn) const {
  const auto HidesSign = [&](std::size_t Line) {
    const LineParts Parts = TextPassIn.Parts(Line);
    return Parts.HasQuotes && (!Parts.Comment.empty() || Contains(Parts.Code, ";;"));
  };
  bool Needed = OrderedForm.HasSeparatorInKey() || TextPassIn.Text.size() > ReaderLimit / 8;
  for (std::size_t Line = 0; !Needed && Line < TextPassIn.vLines.size(); ++Line) {
    Needed = HidesSign(Line);
  }
  return Needed;
}

bool ReadOnlyRule(std::string Written, RuleText& TextReturn) {
  const std::size_t Size = Written.size();
  RuleReader Reader(std::move(Written));
  return Reader.Next(TextReturn) && TextReturn.Text.size() == Size;
}

/// Whether reading what is written gives the same again.
bool RuleRecord::IsStable() const {
  std::string Written;
  AppendLines(false, Written);
  Written += '\n';
  RuleText Again;
  if (IsCut(Written) || !ReadOnlyRule(Written, Again) || IsTooLong(Again)) {
    return false;
  }
  RuleRecord Other;
  Other.Source.Read(Again);
  if (!Other.Source.IsWhole() || Other.OrderedForm.Read(Other.Source) != RuleForm::Failure::None) {
    return false;
  }
  Other.ReadComments(Again);
  std::string WrittenAgain;
  Other.AppendLines(false, WrittenAgain);
  WrittenAgain += '\n';
  return Written == WrittenAgain && ComparisonText() == Other.ComparisonText();
}

std::string RuleRecord::Block() const {
  std::string Text;
  OrderedForm.AppendBlock(Text);
  return Text;
}

void RuleRecord::AppendComments(std::string& TextReturn) const {
  for (const std::string& sComment : vsComments) {
    TextReturn.append(sComment).append(1, '\n');
  }
}

void RuleRecord::AppendLines(bool NoComments, std::string& TextReturn) const {
  if (!NoComments) {
    AppendComments(TextReturn);
  }
  AppendHeader(RuleHead, TextReturn);
  OrderedForm.AppendBlock(TextReturn);
}

void RuleRecord::AppendSamenessText(std::string& TextReturn) const {
  const std::size_t Begin = TextReturn.size();
  if (OrderedForm.AppendComparisonText(TextReturn)) {
    return;
  }
  const std::string OwnBlock = Block();
  const std::size_t BlockBegin = TextReturn.find('\n', Begin) + 1;
  if (TextReturn.compare(BlockBegin, std::string::npos, OwnBlock) != 0) {
    TextReturn.append(1, '\0').append(OwnBlock);
  }
}

std::string RuleRecord::ComparisonText() const {
  std::string Text;
  OrderedForm.AppendComparisonText(Text);
  return Text;
}

// ---- The text in comments ------------------------------------------------------------------

bool TakeLabel(std::string_view Comment, std::string_view Label, std::string_view& RestReturn) {
  std::string_view Rest = WithoutLeadingSpace(Comment);
  if (!StartsWith(Rest, ";;")) {
    return false;
  }
  Rest = WithoutLeadingSpace(Rest.substr(2));
  if (!StartsWith(Rest, Label)) {
    return false;
  }
  RestReturn = Trimmed(Rest.substr(Label.size()));
  return true;
}

std::vector<std::string>::const_iterator FindLabel(const std::vector<std::string>& vsComments,
                                                   std::string_view Label,
                                                   std::string_view& RestReturn) {
  return std::find_if(vsComments.begin(), vsComments.end(), [&](const std::string& sComment) {
    return TakeLabel(sComment, Label, RestReturn);
  });
}

int CountIn(const std::vector<std::string>& vsComments) {
  std::string_view Rest;
  return FindLabel(vsComments, ScoreLabel, Rest) == vsComments.end() ? 1 : ParseCount(Rest).Value;
}

void RuleRecord::SetCount(int CountPassIn) {
  std::string sLine = ";;" + std::string(ScoreLabel) + std::to_string(CountPassIn);
  std::string_view Rest;
  const auto Found = FindLabel(vsComments, ScoreLabel, Rest);
  if (Found == vsComments.end()) {
    vsComments.push_back(std::move(sLine));
  } else {
    vsComments[static_cast<std::size_t>(Found - vsComments.begin())] = std::move(sLine);
  }
}

void RuleRecord::SetComments(std::vector<std::string> vsCommentsPassIn) {
  vsComments = std::move(vsCommentsPassIn);
}

// ---- Flipping and the library's record --------------------------------------------------------

namespace {

/// The comment with the label of the other side, where it has one of the two.
std::string Flipped(const std::string& sComment) {
  std::string_view Rest;
  const bool IsSource = TakeLabel(sComment, "SL:", Rest);
  if (!IsSource && !TakeLabel(sComment, "TL:", Rest)) {
    return sComment;
  }
  std::string sFlipped = sComment;
  sFlipped[sFlipped.find(IsSource ? "SL:" : "TL:")] = IsSource ? 'T' : 'S';
  return sFlipped;
}

}  // namespace

void RuleRecord::Flip() {
  OrderedForm.Flip();
  std::transform(vsComments.begin(), vsComments.end(), vsComments.begin(), Flipped);
}

void RuleRecord::Load(TrRule& RecordReturn) const {
  OrderedForm.Load(RecordReturn);
  RecordReturn.SetRuleIndex(RuleHead.IsPresent ? NumberOf(RuleHead) : -1);
  std::string_view Rest;
  if (FindLabel(vsComments, "SL:", Rest) != vsComments.end()) {
    RecordReturn.SetSLWords(std::string(Rest));
  }
  if (FindLabel(vsComments, "TL:", Rest) != vsComments.end()) {
    RecordReturn.SetTLWords(std::string(Rest));
  }
  if (FindLabel(vsComments, "C-Structure:", Rest) != vsComments.end()) {
    RecordReturn.SetCStructure(std::string(Rest));
  }
  RecordReturn.SetNumTrExamples(Count());
}

}  // namespace Grammar
