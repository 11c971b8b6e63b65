#include "RuleRecord.h"

#include "Bytes.h"
#include "ConstraintText.h"
#include "CountText.h"
#include "HeaderText.h"
#include "LibraryScope.h"
#include "LineTexts.h"
#include "NormalForm.h"
#include "RuleChecker.h"
#include "StrayText.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace Grammar {

namespace {

/// How many bytes the library looks at behind a cut.
constexpr std::size_t ReaderLimit = 100000;

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
  const auto IsLong = [](const RuleText::Span& Each) {
    return Each.End - Each.Begin > ReaderLimit;
  };
  return IsCut(TextPassIn.Text) ||
         std::any_of(TextPassIn.vLines.begin(), TextPassIn.vLines.end(), IsLong);
}

RuleRecord::RuleRecord() : Record(std::make_unique<TrRule>()) {}

void RuleRecord::Clear() {
  Record = std::make_unique<TrRule>();
  RuleHead = RuleHeader();
  vsComments.clear();
  Comparison.clear();
  Body.clear();
  IsRestored = false;
  HasStray = false;
}

bool RuleRecord::Read(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn) {
  Clear();
  Reading State;
  State.IsSound = !IsTooLong(TextPassIn);
  // What is written is longer than what was read, but not so much longer.
  State.NeedsProof = TextPassIn.Text.size() > ReaderLimit / 8;
  for (std::size_t Line = 0; State.IsSound && Line < TextPassIn.vLines.size(); ++Line) {
    ReadLine(TextPassIn.Parts(Line), State);
  }
  std::string Why;
  if (State.IsSound && ReadBody(State, Why) && (!State.NeedsProof || IsStable())) {
    if (HasStray) {
      ReportStrayText(TextPassIn, vFindingsReturn);
    }
    return true;
  }
  ExplainUnreadable(TextPassIn, Why, vFindingsReturn);
  return false;
}

namespace {

/// Without the blanks in it, which the library would keep in a pair and write again.
/// @return whether the text is an alignment
bool AppendAlignment(std::string_view Code, std::string& BodyReturn) {
  const std::optional<AlignmentLine> Parts = ParseAlignmentLine(Code);
  if (Parts) {
    BodyReturn.append("(").append(Parts->XText).append("::").append(Parts->YText).append(")\n");
  }
  return Parts.has_value();
}

/// @return whether the text is a constraint
bool AppendConstraint(std::string_view Code, std::string& BodyReturn) {
  std::size_t Stopped = 0;
  const std::optional<ConstraintText> Parts = ParseConstraint(Code, Stopped);
  if (Parts && IsMistakenForValue(*Parts)) {
    BodyReturn.append(ForLibrary(Code, *Parts));
  } else {
    BodyReturn.append(Code);
  }
  BodyReturn += '\n';
  return Parts.has_value();
}

}  // namespace

/// Takes a line: comments and header are kept here, the lines of the rule are for the library.
void RuleRecord::ReadLine(const LineParts& Parts, Reading& StateReturn) {
  switch (Parts.Kind) {
    case LineKind::Header:
      RuleHead = ParseHeader(Parts.Code);
      break;
    case LineKind::Sequence: {
      SequenceText Sequence;
      StateReturn.IsSound = ParseSequenceLine(Parts.Code, Sequence) == SequenceFault::None;
      Body.append(Parts.Code).append(1, '\n');
      break;
    }
    case LineKind::Alignment:
      StateReturn.IsSound = AppendAlignment(Parts.Code, Body);
      break;
    case LineKind::Constraint:
      StateReturn.IsSound = AppendConstraint(Parts.Code, Body);
      break;
    default:
      break;
  }
  for (const std::string_view Stray : StrayTexts(Parts)) {
    vsComments.push_back(StrayComment(Stray));
    HasStray = true;
  }
  if (!Parts.Comment.empty()) {
    vsComments.emplace_back(Parts.Comment);
  }
  // Quotes hide the sign of a comment; the written line may have other quotes than this one.
  StateReturn.NeedsProof =
      StateReturn.NeedsProof ||
      (Parts.HasQuotes && (!Parts.Comment.empty() || Contains(Parts.Code, ";;")));
}

namespace {

/// Whether all that the library said tells of values that it has merged.
bool IsMergingOnly(std::string_view Messages) {
  while (!Messages.empty()) {
    if (!StartsWith(Messages, "OldFeat:|") && !StartsWith(Messages, "InsertFeat:|") &&
        !StartsWith(Messages, "NewKey is now:")) {
      return false;
    }
    Messages.remove_prefix(std::min(Messages.find('\n'), Messages.size() - 1) + 1);
  }
  return true;
}

}  // namespace

bool RuleRecord::ReadBody(Reading& StateReturn, std::string& WhyReturn) {
  // In a feature, "__" makes the library mistake one feature for another, and what is merged then
  // depends on the order of the constraints, which is another one when they are written.
  StateReturn.NeedsProof = StateReturn.NeedsProof || Contains(Body, "__");
  {
    const LibraryScope Scope;
    try {
      if (!Record->SetTrRuleFromString(Body) || !IsMergingOnly(Scope.Messages())) {
        WhyReturn = Scope.Messages();
        return false;
      }
      StateReturn.NeedsProof = StateReturn.NeedsProof || Contains(Scope.Messages(), "*NOT*");
    } catch (const LibraryHalt& Halt) {
      WhyReturn = Halt.what();
      return false;
    }
  }
  Record->SetRuleIndex(RuleHead.IsPresent ? NumberOf(RuleHead) : -1);
  return Renew(WhyReturn);
}

bool RuleRecord::Renew(std::string& WhyReturn) {
  const LibraryScope Scope;
  try {
    Comparison = Record->ReturnAsStringForComparison();
    return true;
  } catch (const LibraryHalt& Halt) {
    WhyReturn = Halt.what();
    return false;
  }
}

std::string_view RuleRecord::Block() const {
  return std::string_view(Comparison).substr(Comparison.find('\n') + 1);
}

/// Whether reading what is written gives the same again.
bool RuleRecord::IsStable() const {
  RuleText Written;
  AppendNormalForm(*this, FormOptions(), Written.Text);
  RuleRecord Again;
  Reading State;
  std::string_view Rest = Written.Text;
  State.IsSound = !IsCut(Rest);
  while (State.IsSound && !Rest.empty()) {
    const std::size_t End = Rest.find('\n');
    Again.ReadLine(PartsOf(Rest.substr(0, End)), State);
    State.IsSound = State.IsSound && End <= ReaderLimit;
    Rest.remove_prefix(End + 1);
  }
  std::string Why;
  std::string WrittenAgain;
  if (State.IsSound && Again.ReadBody(State, Why)) {
    AppendNormalForm(Again, FormOptions(), WrittenAgain);
  }
  return Written.Text == WrittenAgain;
}

// ---- What stands in comments ------------------------------------------------------------------

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

namespace {

/// The first comment with a label, and what stands behind it; the end where there is none.
std::vector<std::string>::const_iterator FindLabel(const std::vector<std::string>& vsComments,
                                                   std::string_view Label,
                                                   std::string_view& RestReturn) {
  return std::find_if(vsComments.begin(), vsComments.end(), [&](const std::string& sComment) {
    return TakeLabel(sComment, Label, RestReturn);
  });
}

}  // namespace

int CountIn(const std::vector<std::string>& vsComments) {
  std::string_view Rest;
  return FindLabel(vsComments, ScoreLabel, Rest) == vsComments.end() ? 1 : ParseCount(Rest).Value;
}

TrRule& RuleRecord::Rule() {
  if (!IsRestored) {
    RestoreExample();
  }
  return *Record;
}

void RuleRecord::RestoreExample() {
  const LibraryScope Scope;
  std::string_view Rest;
  IsRestored = true;
  if (FindLabel(vsComments, "SL:", Rest) != vsComments.end()) {
    Record->SetSLWords(std::string(Rest));
  }
  if (FindLabel(vsComments, "TL:", Rest) != vsComments.end()) {
    Record->SetTLWords(std::string(Rest));
  }
  if (FindLabel(vsComments, "C-Structure:", Rest) != vsComments.end()) {
    Record->SetCStructure(std::string(Rest));
  }
  Record->SetNumTrExamples(CountIn(vsComments));
}

int RuleRecord::Count() const {
  return IsRestored ? Record->GetNumTrExamples() : CountIn(vsComments);
}

void RuleRecord::SetCount(int CountPassIn) {
  Rule().SetNumTrExamples(CountPassIn);
  std::string sLine = ";;" + std::string(ScoreLabel) + std::to_string(CountPassIn);
  std::string_view Rest;
  const auto Found = FindLabel(vsComments, ScoreLabel, Rest);
  if (Found == vsComments.end()) {
    vsComments.push_back(std::move(sLine));
  } else {
    vsComments[static_cast<std::size_t>(Found - vsComments.begin())] = std::move(sLine);
  }
}

void RuleRecord::SetHeader(RuleHeader HeaderPassIn) {
  RuleHead = std::move(HeaderPassIn);
  Record->SetRuleIndex(RuleHead.IsPresent ? NumberOf(RuleHead) : -1);
}

void RuleRecord::SetComments(std::vector<std::string> vsCommentsPassIn) {
  Rule();
  vsComments = std::move(vsCommentsPassIn);
}

}  // namespace Grammar
