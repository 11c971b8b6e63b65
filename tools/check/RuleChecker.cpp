// Sections: single lines, comments, headers and rule lines, alignments and constraints, the rule as
// a whole, what is not readable, all of it.

#include "RuleChecker.h"

#include "Bytes.h"
#include "ConflictComment.h"
#include "ConstraintChecker.h"
#include "ConstraintCycles.h"
#include "CountText.h"
#include "LineCorrections.h"
#include "LineSlips.h"
#include "Literal.h"
#include "LookAlikes.h"
#include "RuleFindings.h"
#include "StrayText.h"
#include "SuggestionTrial.h"

#include <AlignmentLine.h>
#include <ConstraintStore.h>
#include <LineScan.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

namespace Grammar {

using TrRuleInternal::AlignmentTexts;
using TrRuleInternal::ConstraintFields;
using TrRuleInternal::LineMarks;
using TrRuleInternal::NodeText;
using TrRuleInternal::RuleLineFault;
using TrRuleInternal::RuleLineParts;

namespace {

/// Goes through the lines of one rule and then through what they say together.
class Checker {
 public:
  Checker(const RuleRecord& RecordPassIn, std::vector<Finding>& vFindingsPassIn,
          HiddenNotes* HiddenPassIn)
      : Record(RecordPassIn),
        Rule(RecordPassIn.Lines()),
        Text(Rule.Text()),
        Findings(Text, vFindingsPassIn, HiddenPassIn),
        Constraints(Rule, Findings) {}

  void Check();
  void CheckOrder();
  void AddToRule(std::string_view Code, std::string Message, std::string Example = "");

 private:
  void CheckLine(std::size_t Line);
  void CheckCode(std::size_t Line, const LineParts& Parts);
  void CheckComment(std::size_t Line, std::string_view Comment);
  void CheckLabel(std::size_t Line, std::string_view Comment);
  void CheckLookAlike(std::size_t Line, std::string_view Code);
  void CheckStrayTexts(std::size_t Line, const LineParts& Parts);
  void SetStrayLevel(Finding& FindingReturn) const;
  void CheckConflict(std::size_t Line, std::string_view Comment);
  void CheckCount(std::size_t Line, std::string_view Comment);
  void CheckStraySequence(std::size_t Line, std::string_view Code);
  void CheckOther(std::size_t Line, std::string_view Code);
  void CheckCommentAfter(std::size_t Line, const LineParts& Parts);
  bool ReadsTheSame(std::size_t Line, const LineParts& Parts) const;
  void CheckHeader(std::size_t Line, std::string_view Code);
  void CheckHeaderParts(std::size_t Line, const TrRuleInternal::HeaderParts& Parts);
  void CheckHeaderType();
  void CheckSequence(std::size_t Line, std::string_view Code);
  void CheckSecondSequence(std::size_t Line, std::string_view Code);
  void CheckArrow(std::size_t Line, std::string_view Code);
  void CheckNames(std::size_t Line, std::string_view Code, const RuleLineParts& Parts);
  bool CheckMisspeltSequence(std::size_t Line, std::string_view Code);
  void CheckAlignment(std::size_t Line, std::string_view Code);
  void CheckConstraint(std::size_t Line, std::string_view Code);

  void CheckAlignments();
  void CheckRepeatedAlignments();
  void CheckIndex(std::size_t Line, char Side, int Index, std::string_view Digits);
  void CheckComponents();
  void CheckComponent(const NodeText& Node, std::size_t Line);
  void CheckRepetitions();
  void AddRepetition(const SourceRule::ConstraintLine& First,
                     const SourceRule::ConstraintLine& Line);

  const RuleRecord& Record;
  const SourceRule& Rule;
  const RuleText& Text;
  RuleFindings Findings;
  ConstraintChecker Constraints;

  // The parts of the rule whose lines come next.
  std::size_t NextHeader = 0;
  std::size_t NextRuleLine = 0;
  std::size_t NextConstraint = 0;
  std::size_t NextBroken = 0;

  std::size_t FirstCodeLine = 0;  // where the findings go that concern the rule as a whole
  bool HasCode = false;
  std::optional<std::size_t> HeaderLine;
  std::optional<std::size_t> SequenceLine;
  std::optional<std::size_t> CountLine;
  bool IsInside = false;  // between the first line of the rule and the one that closes its body
  std::string_view HeaderType;
  std::string_view SLType;
  std::string_view TLType;
  bool HasAlignmentLine = false;
  bool HasLabels = false;
  bool HasBodyLine = false;
  bool IsMerged = false;       // what comes now belongs to another rule, whose header is missing
  std::size_t Alignments = 0;  // how many of the rule's alignments are its own
  std::vector<const SourceRule::ConstraintLine*> vConstraints;  // those that the library can use
  std::vector<bool> vIsAligned[2];  // components with an alignment, or reported to have none
};

/// The part of a line, where it is the one that comes next.
template <typename PartT>
const PartT* TakePart(const std::vector<PartT>& vParts, std::size_t Line, std::size_t& NextReturn) {
  const bool IsHere = NextReturn < vParts.size() && vParts[NextReturn].Line == Line;
  return IsHere ? &vParts[NextReturn++] : nullptr;
}

// ---- Single lines -----------------------------------------------------------------------------

void Checker::CheckLine(std::size_t Line) {
  const LineParts Parts = Text.Parts(Line);
  if (!Parts.Comment.empty()) {
    CheckConflict(Line, Parts.Comment);
    CheckCount(Line, Parts.Comment);
  }
  if (Parts.Kind == LineKind::Comment) {
    CheckComment(Line, Parts.Comment);
    return;
  }
  if (Parts.Kind == LineKind::Blank) {
    return;
  }
  if (!HasCode) {
    HasCode = true;
    FirstCodeLine = Line;
  }
  const bool BeginsRule = Parts.Kind == LineKind::Header || Parts.Kind == LineKind::Sequence;
  IsInside = IsInside || BeginsRule || Parts.Kind == LineKind::Open;
  CheckCode(Line, Parts);
  if (!Record.IsRead() || Record.HasStrayText()) {
    CheckStrayTexts(Line, Parts);
    IsInside = IsInside && Parts.Kind != LineKind::Close && !ClosesBody(Parts.Code);
  }
  CheckLookAlike(Line, Parts.Code);
  if (!Parts.Comment.empty()) {
    CheckCommentAfter(Line, Parts);
  }
}

void Checker::CheckCode(std::size_t Line, const LineParts& Parts) {
  switch (Parts.Kind) {
    case LineKind::Header:
      CheckHeader(Line, Parts.Code);
      break;
    case LineKind::Sequence:
      CheckSequence(Line, Parts.Code);
      break;
    case LineKind::Alignment:
      CheckAlignment(Line, Parts.Code);
      break;
    case LineKind::Constraint:
      CheckConstraint(Line, Parts.Code);
      break;
    case LineKind::Other:
      CheckOther(Line, Parts.Code);
      break;
    default:
      break;
  }
}

/// A line that can be read, and holds a look-alike.
void Checker::CheckLookAlike(std::size_t Line, std::string_view Code) {
  if (!Findings.HasBytesBeyond() || Findings.IsExplained(Line) || !HasBytesBeyondAscii(Code)) {
    return;
  }
  if (const std::optional<FoundLookAlike> Found = FindLookAlike(Code)) {
    Findings.Add("TR048", Line, Found->Place, "found " + Described(*Found->Which),
                 {Code, std::string(Trimmed(WithoutLookAlikes(Code)))});
  }
}

std::string_view WithoutColons(std::string_view Part) {
  while (!Part.empty() && (Part.back() == ':' || IsSpace(Part.back()))) {
    Part.remove_suffix(1);
  }
  return Part;
}

/// The line without a text that is passed over: that becomes a comment, unless it is a mere sign.
std::string WithTextAsComment(std::string_view Code, std::string_view Part) {
  const bool IsMarker = Part.find_first_not_of("-*+.;,0123456789()") == std::string_view::npos;
  const bool IsAtEnd = Part.data() + Part.size() == Code.data() + Code.size();
  std::string Rest(Trimmed(Replaced(Code, Part, IsMarker || IsAtEnd ? "" : ":")));
  if (Part.data() == Code.data()) {
    Rest = Trimmed(Code.substr(Part.size()));
  }
  return IsMarker ? Rest : Rest.append(1, ' ').append(AsComment(WithoutColons(Part)));
}

void Checker::CheckConflict(std::size_t Line, std::string_view Comment) {
  std::string_view Rest;
  if (TakeLabel(Comment, ConflictLabel, Rest)) {
    Findings.Add("TR017", Line, Comment, "the comments from here on show what is to be merged");
  }
}

/// The first comment with the label is the read one.
void Checker::CheckCount(std::size_t Line, std::string_view Comment) {
  std::string_view Written;
  if (!Text.HasRule || !TakeLabel(Comment, ScoreLabel, Written)) {
    return;
  }
  const std::string_view Part = Written.empty() ? Comment : Written;
  const CountText Count = ParseCount(Written);
  if (CountLine) {
    Findings.Add(
        "TR049", Line, Part,
        "the rule has a count already, on line " + std::to_string(Text.FirstLine + *CountLine));
    return;
  }
  CountLine = Line;
  if (!Count.IsExact) {
    Findings.Add("TR049", Line, Part,
                 Quoted(Written) + " is not a count: it is read as " + std::to_string(Count.Value));
  }
}

/// What is stray is an error where it stands inside a rule.
void Checker::SetStrayLevel(Finding& FindingReturn) const {
  FindingReturn.Level = IsInside ? Severity::Error : Severity::Warning;
}

/// A whole line is looked at by `CheckOther`.
void Checker::CheckStrayTexts(std::size_t Line, const LineParts& Parts) {
  if (Parts.Kind == LineKind::Other) {
    return;
  }
  const std::string Message = "this text is not part of a rule";
  for (const std::string_view Stray : StrayTexts(Parts)) {
    const bool HasLookAlike = Findings.HasBytesBeyond() && FindLookAlike(Stray);
    SetStrayLevel(HasLookAlike ? Findings.AddFault("TR035", Line, Stray, Message)
                               : Findings.Add("TR035", Line, Stray, Message,
                                              {Parts.Code, WithTextAsComment(Parts.Code, Stray)}));
  }
}

/// What a line that means nothing was probably meant as.
struct Meaning {
  std::string Hint;
  std::string Corrected;
};

bool IsParenthesesOnly(std::string_view Code) {
  return Code.find_first_not_of("() \t") == std::string_view::npos;
}

/// Whether a text could be a header in other brackets, or in none.
bool LooksLikeHeader(std::string_view Code) {
  const bool HasBracket = Contains("([<", Code.substr(0, 1));
  return Code == Upper(Code) && (HasBracket || Contains(Code, ","));
}

Meaning MeaningOf(std::string_view Code) {
  if (IsParenthesesOnly(Code)) {
    const bool IsMixed = Contains(Code, "(") && Contains(Code, ")");
    return {"", IsMixed ? "" : std::string(Code.substr(0, 1))};
  }
  if (LooksLikeComment(Code)) {
    return {"; a comment begins with \";;\"", AsComment(Code)};
  }
  std::string Corrected = CorrectedAlignment(Code);
  if (!Corrected.empty()) {
    return {"; an alignment needs \"::\"", std::move(Corrected)};
  }
  Corrected = Code.front() == '(' ? CorrectedConstraint(Code) : "";
  if (!Corrected.empty()) {
    return {"; a constraint needs \"=\"", std::move(Corrected)};
  }
  Corrected = LooksLikeHeader(Code) ? CorrectedHeader(Code) : "";
  if (!Corrected.empty()) {
    return {"; a header is written " + Corrected, std::move(Corrected)};
  }
  return {"", AsComment(Code)};
}

constexpr std::string_view StrayLine = "this line is not part of a rule";

/// A line meant as a rule line, which the library passes over. If the rule has a good one, it is
/// read without this line.
void Checker::CheckStraySequence(std::size_t Line, std::string_view Code) {
  if (!SequenceLine && Rule.RuleLines().empty()) {
    CheckArrow(Line, Code);
  } else {
    SetStrayLevel(Findings.AddFault("TR035", Line, Code,
                                    std::string(StrayLine) + "; a rule line needs \"] -> [\""));
  }
}

void Checker::CheckOther(std::size_t Line, std::string_view Code) {
  const std::string Plain = Findings.HasBytesBeyond() ? WithoutLookAlikes(Code) : std::string(Code);
  const bool HasLookAlike = Plain != Code;
  const std::string Message(StrayLine);
  if (HasLookAlike && (Plain.empty() || PartsOf(Plain).Kind != LineKind::Other)) {
    SetStrayLevel(Findings.AddFault("TR035", Line, Code, Message));
    return;
  }
  if (LooksLikeSequence(Plain) && !CorrectedSequence(Plain).empty()) {
    CheckStraySequence(Line, Code);
    return;
  }
  Meaning Meant = MeaningOf(Plain);
  const bool IsMeantAsComment = Meant.Hint.empty();
  if (HasLookAlike && !IsMeantAsComment) {
    SetStrayLevel(Findings.AddFault("TR035", Line, Code, Message + Meant.Hint));
    return;
  }
  Findings.SetExplained(Line);
  SetStrayLevel(Findings.Add("TR035", Line, Code, Message + Meant.Hint,
                             {Code, HasLookAlike ? AsComment(Code) : std::move(Meant.Corrected)}));
}

// ---- Comments ---------------------------------------------------------------------------------

/// What the library's reader takes a line with some marks for, which is a comment here; null if
/// it is a comment there, too.
const char* AlsoReadAs(const LineMarks& Marks) {
  if (Marks.HasArrow) {
    return "a rule line";
  }
  if (Marks.HasColons) {
    return "an alignment";
  }
  if (Marks.HasEquals) {
    return "a constraint";
  }
  return Marks.HasBrace ? "a header" : nullptr;
}

/// Most comments have no sign of a mark, which is quick to see.
LineMarks MarksOf(std::string_view Comment) {
  const bool HasSign = Contains(Comment, "=") || Contains(Comment, "::") ||
                       Contains(Comment, "{") || Contains(Comment, "] -> [");
  return HasSign ? TrRuleInternal::ScanLine(Comment).Whole : LineMarks();
}

void Checker::CheckComment(std::size_t Line, std::string_view Comment) {
  const char* Kind = AlsoReadAs(MarksOf(Comment));
  if (Kind != nullptr && Findings.TakesNote("TR029")) {
    Findings.Add("TR029", Line, Comment,
                 std::string("the library's reader also reads this comment as ") + Kind +
                     "; trrule keeps it as a comment");
  }
  CheckLabel(Line, Comment);
}

void Checker::CheckLabel(std::size_t Line, std::string_view Comment) {
  const LabelSlip Slip = FindLabelSlip(Comment);
  if (Slip.Label.empty()) {
    return;
  }
  const std::string_view After = Comment.substr(OffsetIn(Comment, Slip.Place) + Slip.Place.size());
  const bool LacksSign = Slip.Place.data() == Comment.data();
  Findings.Add(
      "TR047", Line, Slip.Place,
      "this is only a comment: the label is written \";;" + std::string(Slip.Label) + '"',
      {Comment, std::string(LacksSign ? ";; " : Comment.substr(0, OffsetIn(Comment, Slip.Place)))
                    .append(Slip.Label)
                    .append(After)});
}

/// Whether the library's reader takes two texts for the same alignment.
bool IsSameAlignment(std::string_view Left, std::string_view Right) {
  const std::string Capitals[] = {Upper(Left), Upper(Right)};
  AlignmentTexts Texts[2];
  const auto LeftFault = TrRuleInternal::ReadAlignment(Capitals[0], Texts[0]);
  const auto RightFault = TrRuleInternal::ReadAlignment(Capitals[1], Texts[1]);
  const bool IsRead = LeftFault == TrRuleInternal::AlignmentFault::None;
  return IsRead == (RightFault == TrRuleInternal::AlignmentFault::None) &&
         (!IsRead || (Texts[0].X == Texts[1].X && Texts[0].Y == Texts[1].Y));
}

/// Whether the library's reader takes two texts for the same constraint.
bool IsSameConstraint(std::string_view Left, std::string_view Right) {
  ConstraintFields Fields[2];
  TrRuleInternal::ReadConstraint(Left, Fields[0]);
  TrRuleInternal::ReadConstraint(Right, Fields[1]);
  const auto AsTuple = [](const ConstraintFields& Read) {
    return std::tie(Read.Category, Read.ConstrainedIndex, Read.Feature, Read.FeatValue,
                    Read.ValueConstraint);
  };
  return AsTuple(Fields[0]) == AsTuple(Fields[1]);
}

/// Whether the library's reader, which reads the whole line, takes it for what it is without its
/// comment.
bool Checker::ReadsTheSame(std::size_t Line, const LineParts& Parts) const {
  const LineMarks Marks = MarksOf(Parts.Comment);
  switch (Parts.Kind) {
    case LineKind::Alignment:
      return !Marks.HasBrace && !Marks.HasArrow && IsSameAlignment(Text.Line(Line), Parts.Code);
    case LineKind::Constraint:
      return !Marks.HasBrace && !Marks.HasArrow && !Marks.HasColons &&
             IsSameConstraint(Text.Line(Line), Parts.Code);
    default:
      return AlsoReadAs(Marks) == nullptr;
  }
}

void Checker::CheckCommentAfter(std::size_t Line, const LineParts& Parts) {
  if (!ReadsTheSame(Line, Parts) && Findings.TakesNote("TR029")) {
    Findings.Add(
        "TR029", Line, Parts.Comment,
        "the library's reader reads this comment as part of the line; trrule keeps it as a comment");
  }
}

// ---- Headers and rule lines -------------------------------------------------------------------

void Checker::CheckHeader(std::size_t Line, std::string_view Code) {
  HeaderLine = Line;
  const SourceRule::HeaderLine* Header = TakePart(Rule.Headers(), Line, NextHeader);
  if (Header->Parts) {
    CheckHeaderParts(Line, *Header->Parts);
  } else {
    std::string Corrected = CorrectedHeader(Code);
    const bool IsCorrected = !Corrected.empty();
    Finding& New = Findings.AddFault("TR023", Line, Code,
                                     "the header is not {type,number}: it gives the rule no number",
                                     std::move(Corrected));
    New.Example = !IsCorrected && New.Suggestion.empty() ? "{NP,8}" : "";
  }
  for (std::size_t Before = FirstCodeLine; Before < Line; ++Before) {
    const LineParts Parts = Text.Parts(Before);
    if (!Parts.Code.empty()) {
      Findings.Add("TR037", Before, Parts.Code, "this line comes before the header of its rule");
    }
  }
}

void Checker::CheckHeaderParts(std::size_t Line, const TrRuleInternal::HeaderParts& Parts) {
  using TrRuleInternal::KeptLetters;
  HeaderType = Parts.Type;
  if (Parts.Type.size() > KeptLetters && Findings.TakesNote("TR021")) {
    Findings.Add("TR021", Line, Parts.Type,
                 "the library's reader keeps two letters of this type, " +
                     Quoted(Parts.Type.substr(0, KeptLetters)) + "; trrule keeps all of it");
  }
  if (Parts.Number.size() == 1) {
    return;
  }
  const std::string Number = std::to_string(*TrRuleInternal::ParseWholeNumber(Parts.Number));
  if (Number.size() > 1 && Findings.TakesNote("TR022")) {
    Findings.Add("TR022", Line, Parts.Number,
                 "the library's reader keeps the last digit of this number, " +
                     Number.substr(Number.size() - 1) + "; trrule keeps all of it");
  }
}

/// In a file of rules, the header has the type of the source side; flipping a rule keeps it, and
/// the library's own writer cuts it to two letters.
void Checker::CheckHeaderType() {
  using TrRuleInternal::KeptLetters;
  if (HeaderType.empty() || SLType.empty() || HeaderType == SLType) {
    return;
  }
  for (const std::string_view OfRule : {SLType, TLType}) {
    const std::string_view Kept =
        HeaderType.size() == KeptLetters ? OfRule.substr(0, KeptLetters) : OfRule;
    if (IsSameInCapitals(HeaderType, Kept)) {
      return;
    }
  }
  Findings.Add("TR040", *HeaderLine, HeaderType,
               "the header has the type " + Quoted(HeaderType) + ", and the rule on line " +
                   std::to_string(Text.FirstLine + *SequenceLine) + " has " + Quoted(SLType));
}

void Checker::CheckSecondSequence(std::size_t Line, std::string_view Code) {
  std::string Message =
      "the rule already has a rule line, on line " + std::to_string(Text.FirstLine + *SequenceLine);
  if (HasBodyLine) {
    Message += "; if another rule begins here, it lacks its header";
    IsMerged = true;
  }
  Findings.AddFault("TR003", Line, Code, Message);
}

/// A rule line whose arrow is not "] -> [", so that it is not one for the library.
void Checker::CheckArrow(std::size_t Line, std::string_view Code) {
  if (SequenceLine) {
    CheckSecondSequence(Line, Code);
    return;
  }
  SequenceLine = Line;
  Findings.AddFault("TR001", Line, ArrowIn(Code),
                    "the rule has no rule line: the \"] -> [\" of this line is misspelt",
                    CorrectedSequence(Code));
}

void Checker::CheckSequence(std::size_t Line, std::string_view Code) {
  const SourceRule::RuleLine& Parsed = *TakePart(Rule.RuleLines(), Line, NextRuleLine);
  if (SequenceLine) {
    CheckSecondSequence(Line, Code);
    return;
  }
  SequenceLine = Line;
  const std::size_t Arrow = Code.find(" -> ");
  switch (Parsed.Fault) {
    case RuleLineFault::Types:
      Findings.AddFault("TR004", Line, Code.substr(0, Code.find(' ')),
                        "the line does not begin with two types, as in NP::NP",
                        CorrectedSequence(Code));
      break;
    case RuleLineFault::SourceSide:
      Findings.AddFault("TR005", Line, Code.substr(0, Arrow),
                        "the source side is not a [sequence of labels]", CorrectedSequence(Code));
      break;
    case RuleLineFault::TargetSide:
      Findings.AddFault("TR006", Line, Code.substr(Arrow + 4),
                        "the target side is not a [sequence of labels]", CorrectedSequence(Code));
      break;
    case RuleLineFault::None:
      HasLabels = true;
      SLType = Parsed.Parts.SLType;
      TLType = Parsed.Parts.TLType;
      CheckNames(Line, Code, Parsed.Parts);
      break;
  }
}

void Checker::CheckNames(std::size_t Line, std::string_view Code, const RuleLineParts& Parts) {
  const std::vector<NameSlip> vSlips = FindNameSlips(Parts);
  const std::string Corrected = vSlips.empty() ? "" : CorrectedSequence(Code);
  for (const NameSlip& Slip : vSlips) {
    const std::string Sign = IsSpace(Slip.Sign.front()) ? "a tab" : Quoted(Slip.Sign);
    Findings.Add(
        "TR039", Line, Slip.Sign,
        Sign + " becomes part of the " + (Slip.IsType ? "type " : "label ") + Quoted(Slip.Name),
        {Code, Corrected});
  }
  if (!Findings.HasBytesBeyond()) {
    return;
  }
  for (const std::string_view Side : {Parts.SLLabels, Parts.TLLabels}) {
    const std::string_view Letter = FirstSmallLetterBeyondAscii(Side);
    if (!Letter.empty() && !Contains(Side, "\"")) {
      Findings.Add(
          "TR046", Line, Letter,
          Quoted(Letter) + " stays small: of a label, only the letters of ASCII become capitals",
          {Side, WithCapitalsBeyondAscii(Upper(Side))});
    }
  }
}

// ---- Alignments and constraints ---------------------------------------------------------------

/// For a line that is not in the format: whether it was meant as a rule line.
bool Checker::CheckMisspeltSequence(std::size_t Line, std::string_view Code) {
  const bool IsMeant =
      LooksLikeSequence(Findings.HasBytesBeyond() ? WithoutLookAlikes(Code) : std::string(Code));
  if (IsMeant) {
    CheckArrow(Line, Code);
  }
  return IsMeant;
}

void Checker::CheckAlignment(std::size_t Line, std::string_view Code) {
  const bool IsBroken = TakePart(Rule.BrokenLines(), Line, NextBroken) != nullptr;
  if (IsBroken && CheckMisspeltSequence(Line, Code)) {
    return;
  }
  HasAlignmentLine = true;
  HasBodyLine = SequenceLine.has_value();
  if (IsBroken) {
    const bool IsOne = Code.find("::") == Code.rfind("::");
    Findings.AddFault("TR007", Line, Code,
                      IsOne ? "this is not an alignment of one x with one y"
                            : "this is more than one alignment: write each on its own line",
                      CorrectedAlignment(Code));
  } else if (!IsMerged) {
    ++Alignments;
  }
}

void Checker::CheckConstraint(std::size_t Line, std::string_view Code) {
  const SourceRule::ConstraintLine* Parsed = TakePart(Rule.Constraints(), Line, NextConstraint);
  if (Parsed == nullptr && CheckMisspeltSequence(Line, Code)) {
    ++NextBroken;
    return;
  }
  HasBodyLine = SequenceLine.has_value();
  if (Parsed == nullptr) {
    const auto& Stop = TakePart(Rule.BrokenLines(), Line, NextBroken)->Stop;
    const std::string_view Rest = Code.substr(Stop.Place);
    Findings.AddFault("TR008", Line, Rest.empty() ? Code : Rest,
                      std::string(Rest.empty() ? "the constraint ends too early" : NotInFormat) +
                          ": expected " + std::string(Stop.Expected),
                      CorrectedConstraint(Code));
  } else if (Constraints.Check(*Parsed) && !IsMerged) {
    vConstraints.push_back(Parsed);
  }
}

// ---- The rule as a whole ----------------------------------------------------------------------

void Checker::Check() {
  if (IsTooLong(Text)) {
    // Of a rule in pieces, only the first one reports.
    if (!Text.Continues) {
      Findings.Add(
          "TR013", 0, {},
          "the library's reader reads 100,000 bytes after the first line of a rule, and as many of "
          "a line");
    }
    return;
  }
  vConstraints.reserve(Rule.Constraints().size());
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    CheckLine(Line);
  }
  if (!Text.HasRule) {
    return;
  }
  if (!SequenceLine) {
    AddToRule("TR001", "the rule has no rule line", "NP::NP : [DET N] -> [N DET]");
  }
  if (!HasAlignmentLine) {
    AddToRule("TR002", "the rule has no alignment", "(X1::Y1)");
  }
  CheckHeaderType();
  CheckAlignments();
  CheckComponents();
  CheckRepetitions();
}

void Checker::CheckAlignments() {
  CheckRepeatedAlignments();
  vIsAligned[0].resize(Rule.SLLabels().size() + 1);
  vIsAligned[1].resize(Rule.TLLabels().size() + 1);
  for (std::size_t Place = 0; HasLabels && Place < Alignments; ++Place) {
    const auto& [Line, Parts] = Rule.Alignments()[Place];
    CheckIndex(Line, 'X', Parts.X, Parts.XText);
    CheckIndex(Line, 'Y', Parts.Y, Parts.YText);
  }
}

/// Alignments in ascending order, as most rules have them, hold no pair twice.
void Checker::CheckRepeatedAlignments() {
  const auto First = Rule.Alignments().begin();
  const auto Last = First + static_cast<std::ptrdiff_t>(Alignments);
  const auto PairOf = [](const SourceRule::AlignmentLine& Line) {
    return std::pair(Line.Parts.X, Line.Parts.Y);
  };
  const auto IsAfter = [&](const auto& Left, const auto& Right) {
    return PairOf(Left) >= PairOf(Right);
  };
  if (std::adjacent_find(First, Last, IsAfter) == Last) {
    return;
  }
  std::set<std::pair<int, int>> ssPairs;
  std::for_each(First, Last, [&](const SourceRule::AlignmentLine& Line) {
    if (!ssPairs.insert(PairOf(Line)).second) {
      Findings.Add("TR036", Line.Line, Trimmed(Text.Line(Line.Line)), "this alignment is repeated");
    }
  });
}

/// Whether a side has a component of a number.
bool HasComponent(const std::vector<std::string_view>& vLabels, int Index) {
  return Index > 0 && static_cast<std::size_t>(Index) <= vLabels.size();
}

/// Looks at one side of an alignment, and notes the component as aligned.
void Checker::CheckIndex(std::size_t Line, char Side, int Index, std::string_view Digits) {
  const std::vector<std::string_view>& vLabels = Rule.LabelsOf(Side);
  if (HasComponent(vLabels, Index)) {
    vIsAligned[Side == 'X' ? 0 : 1][static_cast<std::size_t>(Index)] = true;
    return;
  }
  const std::string_view Name(Digits.data() - 1, Digits.size() + 1);
  Findings.Add("TR010", Line, Name, MissingComponent(Name, Side, vLabels.size()));
}

void Checker::CheckComponents() {
  if (!HasLabels) {
    return;
  }
  for (const SourceRule::ConstraintLine* Line : vConstraints) {
    CheckComponent(Line->Parts.Left, Line->Line);
    if (Line->Parts.RightNode) {
      CheckComponent(*Line->Parts.RightNode, Line->Line);
    }
  }
}

/// A component that is not there is reported wherever it is named, one without an alignment once.
void Checker::CheckComponent(const NodeText& Node, std::size_t Line) {
  const std::vector<std::string_view>& vLabels = Rule.LabelsOf(Node.Side);
  const auto Index = static_cast<std::size_t>(Node.Index);
  if (Index > vLabels.size()) {
    Findings.Add("TR009", Line, Node.Text, MissingComponent(Node.Text, Node.Side, vLabels.size()));
    return;
  }
  std::vector<bool>& vAligned = vIsAligned[Node.Side == 'X' ? 0 : 1];
  if (Index == 0 || vAligned[Index] || IsLiteral(vLabels[Index - 1])) {
    return;
  }
  vAligned[Index] = true;
  std::string Message;
  TrRuleInternal::Append(Message,
                         {Node.Text, " (", Upper(vLabels[Index - 1]), ") has no alignment"});
  Findings.Add("TR030", Line, Node.Text, std::move(Message));
}

/// Whether two features have the same words.
bool HasSameWords(std::string_view Left, std::string_view Right) {
  const auto TakeWord = [](std::string_view& TextReturn) {
    TextReturn = WithoutLeadingSpace(TextReturn);
    const auto* const End = std::find_if(TextReturn.begin(), TextReturn.end(), IsSpace);
    const std::string_view Word =
        TextReturn.substr(0, static_cast<std::size_t>(End - TextReturn.begin()));
    TextReturn.remove_prefix(Word.size());
    return Word;
  };
  while (!Left.empty() && !Right.empty()) {
    if (!IsSameInCapitals(TakeWord(Left), TakeWord(Right))) {
      return false;
    }
  }
  return Trimmed(Left).empty() && Trimmed(Right).empty();
}

/// A constraint with one of the same key before it: it says the same, or the library drops what
/// it says.
void Checker::AddRepetition(const SourceRule::ConstraintLine& First,
                            const SourceRule::ConstraintLine& Line) {
  const std::string FirstLine = std::to_string(Text.FirstLine + First.Line);
  if (TextOf(Rule.FieldsOf(First)) == TextOf(Rule.FieldsOf(Line)) &&
      HasSameWords(First.Parts.Feature, Line.Parts.Feature) &&
      HasSameWords(First.Parts.RightFeature, Line.Parts.RightFeature)) {
    Findings.Add("TR031", Line.Line, Rule.CodeOf(Line.Line),
                 "this constraint repeats line " + FirstLine);
  } else if (Findings.TakesNote("TR031")) {
    Finding& New = Findings.Add("TR031", Line.Line, Rule.CodeOf(Line.Line),
                                "the library reads this constraint as the one on line " +
                                    FirstLine + ", and drops it; trrule keeps it");
    New.Level = Severity::Note;
  }
}

/// Where the record knows that no two constraints have anything in common, nothing is compared.
void Checker::CheckRepetitions() {
  if (!Record.MayHaveRepetitions()) {
    return;
  }
  using Slot = std::tuple<int, int, std::string>;
  std::map<std::string, const SourceRule::ConstraintLine*> mKeys;
  std::map<Slot, std::size_t> mSlots;
  for (const SourceRule::ConstraintLine* Line : vConstraints) {
    const ConstraintFields Fields = Rule.FieldsOf(*Line);
    const auto [Same, IsNew] =
        mKeys.try_emplace(TrRuleInternal::MakeKey(Fields.Category, Fields.ConstrainedIndex,
                                                  Fields.Feature, Fields.FeatValue)
                              .Text,
                          Line);
    if (!IsNew) {
      AddRepetition(*Same->second, *Line);
      continue;
    }
    if (!Fields.ValueConstraint) {
      continue;
    }
    const auto [SameSlot, IsNewSlot] = mSlots.try_emplace(
        Slot(Fields.Category, Fields.ConstrainedIndex, Fields.Feature), Line->Line);
    if (!IsNewSlot) {
      Findings.Add("TR032", Line->Line, Line->Parts.Right,
                   "the value is merged with the one on line " +
                       std::to_string(Text.FirstLine + SameSlot->second) + " into one *OR*");
    }
  }
}

// ---- What is not readable ---------------------------------------------------------------------

void Checker::CheckOrder() {
  std::vector<Reference> vReferences;
  for (const SourceRule::ConstraintLine* Line : vConstraints) {
    const ConstraintFields Fields = Rule.FieldsOf(*Line);
    if (!Fields.ValueConstraint) {
      vReferences.push_back({Fields.Category, Fields.ConstrainedIndex,
                             TrRuleInternal::AgreedIndexIn(Fields.FeatValue), Line->Line});
    }
  }
  for (const ConstraintCycle& Cycle : FindCycles(vReferences)) {
    Findings.Add("TR011", Cycle.Line, Rule.CodeOf(Cycle.Line),
                 "the constraints refer to each other in a cycle: " + Cycle.Nodes);
  }
}

void Checker::AddToRule(std::string_view Code, std::string Message, std::string Example) {
  const std::size_t Line = SequenceLine.value_or(HeaderLine.value_or(FirstCodeLine));
  Findings.Add(Code, Line, Trimmed(Text.Line(Line)), std::move(Message)).Example =
      std::move(Example);
}

/// Whether a rule with such an error cannot be used; the others can be written anyway.
bool IsUnreadable(const Finding& Found) {
  return Found.Level == Severity::Error && Found.Code != "TR009" && Found.Code != "TR010" &&
         Found.Code != "TR035";
}

// ---- All of it --------------------------------------------------------------------------------

/// Adds all that is found in a rule that the record has read or not, with suggestions that nobody
/// has tried.
void CheckRecord(const RuleRecord& Record, std::vector<Finding>& vFindingsReturn,
                 HiddenNotes* HiddenReturn) {
  const RuleText& Text = Record.Lines().Text();
  const std::size_t Before = vFindingsReturn.size();
  Checker Checks(Record, vFindingsReturn, HiddenReturn);
  Checks.Check();
  if (!Text.HasRule || Record.IsRead()) {
    return;
  }
  Checks.CheckOrder();
  const auto First = vFindingsReturn.begin() + static_cast<std::ptrdiff_t>(Before);
  if (!Text.Continues && std::none_of(First, vFindingsReturn.end(), IsUnreadable)) {
    Checks.AddToRule("TR014", "the library writes this rule as another rule");
  }
}

}  // namespace

void ReportReading(const RuleRecord& RecordPassIn, std::vector<Finding>& vFindingsReturn) {
  if (RecordPassIn.IsRead() && !RecordPassIn.HasStrayText()) {
    return;
  }
  std::vector<Finding> vAll;
  HiddenNotes Hidden;
  CheckRecord(RecordPassIn, vAll, &Hidden);
  for (Finding& Found : vAll) {
    if (RecordPassIn.IsRead() ? Found.Code == "TR035" : IsUnreadable(Found)) {
      Found.Suggestion.clear();
      vFindingsReturn.push_back(std::move(Found));
    }
  }
}

bool ReadRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
              std::vector<Finding>& vFindingsReturn) {
  RecordReturn.Read(TextPassIn);
  ReportReading(RecordReturn, vFindingsReturn);
  return RecordReturn.IsRead();
}

bool CheckRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
               std::vector<Finding>& vFindingsReturn, HiddenNotes* HiddenReturn) {
  const bool WantsNotes = HiddenReturn == nullptr;
  RecordReturn.Read(TextPassIn);
  std::vector<Finding> vBefore;
  if (!vFindingsReturn.empty()) {
    vBefore.swap(vFindingsReturn);
  }
  CheckRecord(RecordReturn, vFindingsReturn, HiddenReturn);
  SortFindings(vFindingsReturn);
  const auto CheckAgain = [WantsNotes](const RuleText& Text, std::vector<Finding>& vReturn) {
    RuleRecord Record;
    HiddenNotes Hidden;
    Record.Read(Text);
    CheckRecord(Record, vReturn, WantsNotes ? nullptr : &Hidden);
    SortFindings(vReturn);
  };
  SuggestionTrial(TextPassIn, CheckAgain, vFindingsReturn).Settle();
  if (!vBefore.empty()) {
    vFindingsReturn.insert(vFindingsReturn.begin(), std::make_move_iterator(vBefore.begin()),
                           std::make_move_iterator(vBefore.end()));
  }
  return RecordReturn.IsRead();
}

}  // namespace Grammar
