// Sections: what is collected, single lines, headers and rule lines, alignments, constraints, the
// rule as a whole, what is not readable, suggestions.

#include "RuleChecker.h"

#include "Bytes.h"
#include "ConstraintCycles.h"
#include "ConstraintText.h"
#include "CountText.h"
#include "HeaderText.h"
#include "LibraryScope.h"
#include "LineKind.h"
#include "LineMends.h"
#include "LineSlips.h"
#include "LineTexts.h"
#include "LookAlikes.h"
#include "RuleReader.h"
#include "StrayText.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <sstream>
#include <tuple>
#include <utility>

namespace Grammar {

namespace {

/// A constraint that is in the format, as it is written and as the library reads it.
struct CheckedConstraint {
  ConstraintText Parts;
  Constraint Record;
  std::string_view Code;
  std::size_t Line;
};

struct CheckedAlignment {
  AlignmentLine Parts;
  std::size_t Line;
};

/// What to write in the place of a part of a line; nothing, where that is empty.
struct Mend {
  std::string_view Of;
  std::string By;
};

/// Goes through the lines of one rule and then through what they say together.
class Checker {
 public:
  Checker(const RuleText& TextPassIn, std::vector<Finding>& vFindingsPassIn)
      : Text(TextPassIn), vFindings(vFindingsPassIn) {}

  void Check();
  void CheckOrder();
  void AddToRule(std::string_view Code, std::string Message, std::string Example = "");
  void AddLibraryMessage(const std::string& Why);

 private:
  Finding& Add(std::string_view Code, std::size_t Line, std::string_view Part, std::string Message,
               const Mend& Mended = {});
  void AddFault(std::string_view Code, std::size_t Line, std::string_view Part,
                const std::string& Message, std::string Mended);

  void CheckLine(std::size_t Line);
  void CheckCode(std::size_t Line, const LineParts& Parts);
  void CheckComment(std::size_t Line, std::string_view Comment);
  void CheckLabel(std::size_t Line, std::string_view Comment);
  void CheckLookAlike(std::size_t Line, std::string_view Code);
  void CheckStrayTexts(std::size_t Line, const LineParts& Parts);
  void AddStray(std::size_t Line, std::string_view Part, std::string Message, const Mend& Mended);
  void CheckCount(std::size_t Line, std::string_view Comment);
  void CheckOther(std::size_t Line, std::string_view Code);
  void CheckCommentBehind(std::size_t Line, const LineParts& Parts);
  void CheckHeader(std::size_t Line, std::string_view Code);
  void CheckHeaderType();
  void CheckSequence(std::size_t Line, std::string_view Code);
  void CheckSecondSequence(std::size_t Line, std::string_view Code);
  void CheckArrow(std::size_t Line, std::string_view Code);
  void CheckNames(std::size_t Line, std::string_view Code, const SequenceText& Sequence);
  void CheckAlignment(std::size_t Line, std::string_view Code);
  void CheckConstraint(std::size_t Line, std::string_view Code);

  void CheckWording(const CheckedConstraint& Each);
  void CheckEquals(const CheckedConstraint& Each);
  void CheckFeatures(const CheckedConstraint& Each);
  void CheckLetters(const CheckedConstraint& Each);
  void CheckValue(const CheckedConstraint& Each);
  void CheckWords(const CheckedConstraint& Each);
  bool CheckAgreement(const CheckedConstraint& Each);

  void CheckAlignments();
  void CheckComponents();
  void CheckComponent(const NodeText& Node, std::size_t Line, std::set<std::string>& ssToldReturn);
  void CheckRepetitions();

  std::size_t LabelsOf(char Side) const { return Side == 'X' ? vsSource.size() : vsTarget.size(); }

  const RuleText& Text;
  std::vector<Finding>& vFindings;
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
  bool IsMerged = false;  // what comes now belongs to another rule, whose header is missing
  bool HasBytesBeyond = false;
  std::optional<std::size_t> BlamedLine;  // a look-alike on it has been told
  std::vector<std::string> vsSource;
  std::vector<std::string> vsTarget;
  std::vector<CheckedAlignment> vAlignments;
  std::vector<CheckedConstraint> vConstraints;
};

std::string Quoted(std::string_view Part) {
  return "\"" + std::string(Part) + "\"";
}

// ---- What is collected ------------------------------------------------------------------------

/// A text with a part of it replaced.
std::string Replaced(std::string_view Code, std::string_view Part, std::string_view By) {
  const std::size_t Start = OffsetIn(Code, Part);
  std::string Text(Code.substr(0, Start));
  return Text.append(By).append(Code.substr(Start + Part.size()));
}

Finding& Checker::Add(std::string_view Code, std::size_t Line, std::string_view Part,
                      std::string Message, const Mend& Mended) {
  constexpr std::size_t MaxLineText = 1000;
  const std::string_view Whole = Text.Line(Line);
  Finding New;
  New.File = Text.File;
  New.Line = Text.FirstLine + Line;
  New.Column = Part.empty() ? 1 : OffsetIn(Whole, Part) + 1;
  New.Length = std::max<std::size_t>(Part.size(), 1);
  New.Level = FindCode(Code)->Level;
  New.Code = Code;
  New.Message = std::move(Message);
  New.LineText = Whole.substr(0, MaxLineText);
  if (!Mended.By.empty() && Whole.size() <= MaxLineText) {
    New.Suggestion = Replaced(Whole, Mended.Of, Mended.By);
  }
  vFindings.push_back(std::move(New));
  return vFindings.back();
}

void Checker::AddToRule(std::string_view Code, std::string Message, std::string Example) {
  const std::size_t Line = SequenceLine.value_or(HeaderLine.value_or(FirstCodeLine));
  Add(Code, Line, Trimmed(Text.Line(Line)), std::move(Message)).Example = std::move(Example);
}

/// For a line that cannot be read: where it holds a look-alike, that is the reason.
void Checker::AddFault(std::string_view Code, std::size_t Line, std::string_view Part,
                       const std::string& Message, std::string Mended) {
  const std::string_view Whole = Text.Parts(Line).Code;
  const std::optional<FoundLookAlike> Found = HasBytesBeyond ? FindLookAlike(Whole) : std::nullopt;
  if (!Found) {
    Add(Code, Line, Part, Message, {Whole, std::move(Mended)});
    return;
  }
  BlamedLine = Line;
  Add(Code, Line, Found->Place, Message + "; here stands " + Described(*Found->Which),
      {Text.Line(Line), std::string(WithoutTrailingSpace(
                            Replaced(Text.Line(Line), Whole, WithoutLookAlikes(Whole))))});
}

// ---- Single lines -----------------------------------------------------------------------------

void Checker::CheckLine(std::size_t Line) {
  const LineParts Parts = Text.Parts(Line);
  CheckCount(Line, Parts.Comment);
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
  CheckStrayTexts(Line, Parts);
  CheckLookAlike(Line, Parts.Code);
  IsInside = IsInside && Parts.Kind != LineKind::Close && !ClosesBody(Parts.Code);
  if (!Parts.Comment.empty()) {
    CheckCommentBehind(Line, Parts);
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
  if (!HasBytesBeyond || BlamedLine == Line || !HasBytesBeyondAscii(Code)) {
    return;
  }
  if (const std::optional<FoundLookAlike> Found = FindLookAlike(Code)) {
    Add("TR048", Line, Found->Place, "here stands " + Described(*Found->Which),
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

/// The first comment with the label is the one that is read.
void Checker::CheckCount(std::size_t Line, std::string_view Comment) {
  std::string_view Written;
  if (!Text.HasRule || !TakeLabel(Comment, ScoreLabel, Written)) {
    return;
  }
  const std::string_view Part = Written.empty() ? Comment : Written;
  const CountText Count = ParseCount(Written);
  if (CountLine) {
    Add("TR049", Line, Part,
        "the rule has a count already, on line " + std::to_string(Text.FirstLine + *CountLine));
    return;
  }
  CountLine = Line;
  if (!Count.IsExact) {
    Add("TR049", Line, Part,
        Quoted(Written) + " is not a count: it is read as " + std::to_string(Count.Value));
  }
}

/// What means nothing is an error within a rule, where something was meant to be part of it. A
/// whole line is looked at by `CheckOther`.
void Checker::CheckStrayTexts(std::size_t Line, const LineParts& Parts) {
  if (Parts.Kind != LineKind::Other) {
    for (const std::string_view Stray : StrayTexts(Parts)) {
      const std::string Message = "this text is no part of a rule";
      if (HasBytesBeyond && FindLookAlike(Stray)) {
        AddFault("TR035", Line, Stray, Message, "");
        vFindings.back().Level = IsInside ? Severity::Error : Severity::Warning;
      } else {
        AddStray(Line, Stray, Message, {Parts.Code, WithTextAsComment(Parts.Code, Stray)});
      }
    }
  }
}

/// What is stray is an error where it stands inside a rule.
void Checker::AddStray(std::size_t Line, std::string_view Part, std::string Message,
                       const Mend& Mended) {
  Finding& New = Add("TR035", Line, Part, std::move(Message), Mended);
  New.Level = IsInside ? Severity::Error : Severity::Warning;
}

/// What a line that means nothing was probably meant as.
struct Meaning {
  std::string Hint;
  std::string Mended;
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
  std::string Mended = MendedAlignment(Code);
  if (!Mended.empty()) {
    return {"; an alignment needs \"::\"", std::move(Mended)};
  }
  Mended = Code.front() == '(' ? MendedConstraint(Code) : "";
  if (!Mended.empty()) {
    return {"; a constraint needs \"=\"", std::move(Mended)};
  }
  Mended = LooksLikeHeader(Code) ? MendedHeader(Code) : "";
  if (!Mended.empty()) {
    return {"; a header is written " + Mended, std::move(Mended)};
  }
  return {"", AsComment(Code)};
}

void Checker::CheckOther(std::size_t Line, std::string_view Code) {
  const std::string Plain = HasBytesBeyond ? WithoutLookAlikes(Code) : std::string(Code);
  const std::string Message = "this line is no part of a rule";
  if (Plain != Code && (Plain.empty() || PartsOf(Plain).Kind != LineKind::Other)) {
    AddFault("TR035", Line, Code, Message, "");
    vFindings.back().Level = IsInside ? Severity::Error : Severity::Warning;
    return;
  }
  if (!SequenceLine && LooksLikeSequence(Plain) && !MendedSequence(Plain).empty()) {
    CheckArrow(Line, Code);
    return;
  }
  Meaning Meant = MeaningOf(Plain);
  const bool IsMeantAsComment = Meant.Hint.empty();
  if (Plain != Code && !IsMeantAsComment) {
    AddFault("TR035", Line, Code, Message + Meant.Hint, "");
    vFindings.back().Level = IsInside ? Severity::Error : Severity::Warning;
    return;
  }
  BlamedLine = Line;
  AddStray(Line, Code, Message + Meant.Hint,
           {Code, IsMeantAsComment && Plain != Code ? AsComment(Code) : std::move(Meant.Mended)});
}

/// What the reader takes a comment for, too; null where it is only a comment.
const char* AlsoReadAs(std::string_view Comment) {
  if (Contains(Comment, "] -> [")) {
    return "a sequence line";
  }
  if (Contains(Comment, "::")) {
    return "an alignment";
  }
  if (Contains(Comment, "=")) {
    return "a constraint";
  }
  return Contains(Comment, "{") ? "a header" : nullptr;
}

void Checker::CheckComment(std::size_t Line, std::string_view Comment) {
  if (const char* Kind = AlsoReadAs(Comment)) {
    Add("TR029", Line, Comment,
        std::string("the library's reader takes this comment for ") + Kind +
            ", too; here it stays a comment");
  }
  CheckLabel(Line, Comment);
}

void Checker::CheckLabel(std::size_t Line, std::string_view Comment) {
  const LabelSlip Slip = FindLabelSlip(Comment);
  if (Slip.Label.empty()) {
    return;
  }
  const std::string_view Behind = Comment.substr(OffsetIn(Comment, Slip.Place) + Slip.Place.size());
  const bool LacksSign = Slip.Place.data() == Comment.data();
  Add("TR047", Line, Slip.Place,
      "this is kept as a mere comment: the label is written \";;" + std::string(Slip.Label) + '"',
      {Comment, std::string(LacksSign ? ";; " : Comment.substr(0, OffsetIn(Comment, Slip.Place)))
                    .append(Slip.Label)
                    .append(Behind)});
}

/// A comment behind a line is harmless, as long as the reader understands the same without it.
void Checker::CheckCommentBehind(std::size_t Line, const LineParts& Parts) {
  const std::string Whole(Text.Line(Line));
  bool IsSame = !Contains(Parts.Comment, "{") && !Contains(Parts.Comment, "] -> [");
  if (Parts.Kind == LineKind::Alignment) {
    TrRule With;
    TrRule Without;
    const LibraryScope Scope;
    With.AddAlignment(Whole);
    Without.AddAlignment(std::string(Parts.Code));
    IsSame = IsSame && With.GetAlignmentStr() == Without.GetAlignmentStr();
  } else if (Parts.Kind == LineKind::Constraint) {
    const LibraryScope Scope;
    IsSame =
        IsSame && !Contains(Parts.Comment, "::") &&
        Constraint(Whole).ReturnAsString() == Constraint(std::string(Parts.Code)).ReturnAsString();
  } else {
    IsSame = AlsoReadAs(Parts.Comment) == nullptr;
  }
  if (!IsSame) {
    Add("TR029", Line, Parts.Comment,
        "the library's reader takes this comment for part of the line; here it stays a comment");
  }
}

// ---- Headers and rule lines -------------------------------------------------------------------

void Checker::CheckHeader(std::size_t Line, std::string_view Code) {
  constexpr std::size_t KeptLetters = 2;
  HeaderLine = Line;
  const RuleHeader Header = ParseHeader(Code);
  if (!Header.IsReadable) {
    std::string Mended = MendedHeader(Code);
    const bool IsMended = !Mended.empty();
    AddFault("TR023", Line, Code, "the header is not {type,number}: it gives the rule no number",
             std::move(Mended));
    if (!IsMended && vFindings.back().Suggestion.empty()) {
      vFindings.back().Example = "{NP,8}";
    }
  } else {
    const std::string_view Type = Trimmed(Code.substr(Code.find('{') + 1));
    HeaderType = Type.substr(0, Header.Type.size());
    if (Header.Type.size() > KeptLetters) {
      Add("TR021", Line, Type.substr(0, Header.Type.size()),
          "the library's reader keeps two letters of this type, " +
              Quoted(Header.Type.substr(0, KeptLetters)) + "; here it stays whole");
    }
    if (Header.Number.size() > 1) {
      const std::string_view Number = Trimmed(Code.substr(Code.find(',', Code.find('{')) + 1));
      Add("TR022", Line, Trimmed(Number.substr(0, Number.find('}'))),
          "the library's reader keeps the last digit of this number, " +
              Header.Number.substr(Header.Number.size() - 1) + "; here it stays whole");
    }
  }
  for (std::size_t Before = FirstCodeLine; Before < Line; ++Before) {
    const LineParts Parts = Text.Parts(Before);
    if (!Parts.Code.empty()) {
      Add("TR037", Before, Parts.Code, "this line stands before the header of its rule");
    }
  }
}

std::vector<std::string> LabelsIn(std::string_view Text) {
  TrRule Rule;
  Rule.SetSLPOS(std::string(Text));
  return Rule.GetSLPOS();
}

/// In a file of rules, the header has the type of the source side; flipping a rule keeps it, and
/// the library's own writer cuts it to two letters.
void Checker::CheckHeaderType() {
  constexpr std::size_t KeptLetters = 2;
  if (HeaderType.empty() || SLType.empty() || HeaderType == SLType) {
    return;
  }
  const std::string Type = Upper(HeaderType);
  for (const std::string& sOfRule : {Upper(SLType), Upper(TLType)}) {
    if (Type == sOfRule || (Type.size() == KeptLetters && StartsWith(sOfRule, Type))) {
      return;
    }
  }
  Add("TR040", *HeaderLine, HeaderType,
      "the header has the type " + Quoted(HeaderType) + ", and the rule on line " +
          std::to_string(Text.FirstLine + *SequenceLine) + " has " + Quoted(SLType));
}

void Checker::CheckSecondSequence(std::size_t Line, std::string_view Code) {
  std::string Message = "the rule has a sequence line already, on line " +
                        std::to_string(Text.FirstLine + *SequenceLine);
  if (HasBodyLine) {
    Message += "; if another rule begins here, it lacks its header";
    IsMerged = true;
  }
  AddFault("TR003", Line, Code, Message, "");
}

/// A rule line whose arrow is not "] -> [", so that it is none for the library.
void Checker::CheckArrow(std::size_t Line, std::string_view Code) {
  if (SequenceLine) {
    CheckSecondSequence(Line, Code);
    return;
  }
  SequenceLine = Line;
  AddFault("TR001", Line, ArrowIn(Code),
           "the rule has no sequence line: the \"] -> [\" of this one is spelt otherwise",
           MendedSequence(Code));
}

void Checker::CheckSequence(std::size_t Line, std::string_view Code) {
  if (SequenceLine) {
    CheckSecondSequence(Line, Code);
    return;
  }
  SequenceLine = Line;
  SequenceText Sequence;
  const std::size_t Arrow = Code.find(" -> ");
  const std::string_view Types = Code.substr(0, Code.find(' '));
  switch (ParseSequenceLine(Code, Sequence)) {
    case SequenceFault::Types:
      AddFault("TR004", Line, Types, "the line does not begin with two types, as in NP::NP",
               MendedSequence(Code));
      break;
    case SequenceFault::SourceSide:
      AddFault("TR005", Line, Code.substr(0, Arrow), "the source side is no [sequence of labels]",
               MendedSequence(Code));
      break;
    case SequenceFault::TargetSide:
      AddFault("TR006", Line, Code.substr(Arrow + 4), "the target side is no [sequence of labels]",
               MendedSequence(Code));
      break;
    case SequenceFault::None:
      HasLabels = true;
      vsSource = LabelsIn(Sequence.SLLabels);
      vsTarget = LabelsIn(Sequence.TLLabels);
      SLType = Sequence.SLType;
      TLType = Sequence.TLType;
      CheckNames(Line, Code, Sequence);
      break;
  }
}

void Checker::CheckNames(std::size_t Line, std::string_view Code, const SequenceText& Sequence) {
  const std::vector<NameSlip> vSlips = FindNameSlips(Sequence);
  const std::string Mended = vSlips.empty() ? "" : MendedSequence(Code);
  for (const NameSlip& Each : vSlips) {
    const std::string Sign = IsSpace(Each.Sign.front()) ? "a tab" : Quoted(Each.Sign);
    Add("TR039", Line, Each.Sign,
        Sign + " becomes part of the " + (Each.IsType ? "type " : "label ") + Quoted(Each.Name),
        {Code, Mended});
  }
  if (!HasBytesBeyond) {
    return;
  }
  for (const std::string_view Side : {Sequence.SLLabels, Sequence.TLLabels}) {
    const std::string_view Letter = FirstSmallLetterBeyondAscii(Side);
    if (!Letter.empty() && !Contains(Side, "\"")) {
      Add("TR046", Line, Letter,
          Quoted(Letter) + " stays small: of a label, only the letters of ASCII become capitals",
          {Side, WithCapitalsBeyondAscii(Upper(Side))});
    }
  }
}

// ---- Alignments -------------------------------------------------------------------------------

void Checker::CheckAlignment(std::size_t Line, std::string_view Code) {
  const std::optional<AlignmentLine> Parts = ParseAlignmentLine(Code);
  if (!Parts && LooksLikeSequence(HasBytesBeyond ? WithoutLookAlikes(Code) : std::string(Code))) {
    CheckArrow(Line, Code);
    return;
  }
  HasAlignmentLine = true;
  HasBodyLine = SequenceLine.has_value();
  if (!Parts) {
    const bool IsOne = Code.find("::") == Code.rfind("::");
    AddFault("TR007", Line, Code,
             IsOne ? "this is no alignment of one x with one y"
                   : "this is more than one alignment: each stands on a line of its own",
             MendedAlignment(Code));
    return;
  }
  if (!IsMerged) {
    vAlignments.push_back({*Parts, Line});
  }
}

// ---- Constraints ------------------------------------------------------------------------------

void Checker::CheckConstraint(std::size_t Line, std::string_view Code) {
  ConstraintStop Stop;
  const std::optional<ConstraintText> Parts = ParseConstraint(Code, Stop);
  if (!Parts && LooksLikeSequence(HasBytesBeyond ? WithoutLookAlikes(Code) : std::string(Code))) {
    CheckArrow(Line, Code);
    return;
  }
  HasBodyLine = SequenceLine.has_value();
  if (!Parts) {
    const std::string_view Rest = Code.substr(Stop.Place);
    AddFault("TR008", Line, Rest.empty() ? Code : Rest,
             std::string(Rest.empty() ? "the constraint ends too early"
                                      : "the constraint is not in the format from here on") +
                 ": expected " + std::string(Stop.Expected),
             MendedConstraint(Code));
    return;
  }
  CheckedConstraint New{*Parts, Constraint(ForLibrary(Code, *Parts)), Code, Line};
  if (CheckAgreement(New)) {
    CheckWording(New);
    if (!IsMerged) {
      vConstraints.push_back(std::move(New));
    }
  }
}

bool Checker::CheckAgreement(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  if (Parts.IsWholeNode && !Parts.RightNode) {
    const std::string Node(Parts.Left.Text);
    const std::string_view Sign = FindSignSlip(Parts);
    AddFault("TR012", Each.Line, Parts.Right,
             Quoted(Parts.Right) + " is no node, and only a node can equal " + Node,
             Sign.empty() ? "" : Replaced(Each.Code, Sign, ""));
    if (vFindings.back().Suggestion.empty()) {
      vFindings.back().Example = "((" + Node + " feature) = " + std::string(Parts.Right) + ')';
    }
    return false;
  }
  if (!Each.Record.IsValueConstraint() &&
      Each.Record.GetAgreedIndex(Each.Record.GetFeatValue()) == -1) {
    Add("TR012", Each.Line, Parts.Right,
        "no number stands behind the last X or Y on this side, where the library looks for one");
    return false;
  }
  return true;
}

void Checker::CheckWording(const CheckedConstraint& Each) {
  CheckEquals(Each);
  CheckFeatures(Each);
  CheckValue(Each);
  CheckWords(Each);
  if (HasBytesBeyond) {
    CheckLetters(Each);
  }
  if (IsAboutItself(Each.Parts)) {
    Add("TR044", Each.Line, Each.Code, "the constraint says nothing: both sides are the same");
  }
}

std::string WithoutSpace(std::string_view Text) {
  std::string Result;
  for (const char Byte : Text) {
    if (!IsSpace(Byte)) {
      Result += Byte;
    }
  }
  return Result;
}

/// The constraint as it is kept: with one equals sign, its features in one word, and the left one
/// on the right, too. Empty where both sides would be the same.
std::string AsKept(std::string_view Code, const ConstraintText& Parts) {
  const std::string Feature = WithoutSpace(Parts.Feature);
  std::string Text(Code);
  if (!Parts.RightFeature.empty()) {
    if (Parts.RightNode->Side == Parts.Left.Side && Parts.RightNode->Index == Parts.Left.Index) {
      return "";
    }
    const std::size_t Size = Parts.RightFeature.size();
    Text.replace(OffsetIn(Code, Parts.RightFeature), Size,
                 Parts.IsWholeNode ? WithoutSpace(Parts.RightFeature)
                 : Upper(Feature) == Upper(WithoutSpace(Parts.RightFeature))
                     ? WithoutSpace(Parts.RightFeature)
                     : Feature);
  }
  Text.replace(OffsetIn(Code, Parts.Equals), Parts.Equals.size(), "=");
  if (!Parts.Feature.empty()) {
    Text.replace(OffsetIn(Code, Parts.Feature), Parts.Feature.size(), Feature);
  }
  return Text;
}

void Checker::CheckEquals(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  if (Parts.Equals.size() == 1) {
    return;
  }
  std::string Message = Quoted(Parts.Equals) + " is kept as \"=\"";
  if (IsMistakenForValue(Parts)) {
    Message += "; the library's reader takes the reference behind it for a value: " +
               Constraint(std::string(Each.Code)).ReturnAsString();
  }
  Add("TR024", Each.Line, Parts.Equals, std::move(Message), {Each.Code, AsKept(Each.Code, Parts)});
}

void Checker::CheckFeatures(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  for (const std::string_view Feature : {Parts.Feature, Parts.RightFeature}) {
    const std::string Joined = WithoutSpace(Feature);
    if (Joined.size() != Feature.size()) {
      Add("TR025", Each.Line, Feature,
          "a feature of several words is kept as one word: " + Upper(Joined),
          {Each.Code, AsKept(Each.Code, Parts)});
    }
  }
  if (!Parts.IsWholeNode && Parts.Kind == RightKind::Reference &&
      Upper(WithoutSpace(Parts.Feature)) != Upper(WithoutSpace(Parts.RightFeature))) {
    Add("TR026", Each.Line, Parts.RightFeature,
        "the feature on the right is not kept: " + Each.Record.ReturnAsString(),
        {Each.Code, AsKept(Each.Code, Parts)});
  }
}

/// Values are words of a language, and may be in small letters throughout.
void Checker::CheckLetters(const CheckedConstraint& Each) {
  for (const std::string_view Feature : {Each.Parts.Feature, Each.Parts.RightFeature}) {
    const std::string_view Letter = FirstSmallLetterBeyondAscii(Feature);
    if (!Letter.empty()) {
      Add("TR046", Each.Line, Letter,
          Quoted(Letter) +
              " stays small: of a feature, only the letters of ASCII become capitals: " +
              Upper(Feature),
          {Each.Code, Replaced(Each.Code, Feature, WithCapitalsBeyondAscii(Upper(Feature)))});
    }
  }
}

void Checker::CheckValue(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  const auto Closes = std::count(Parts.Right.begin(), Parts.Right.end(), ')');
  const std::string_view Behind =
      Each.Code.substr(OffsetIn(Each.Code, Parts.Right) + Parts.Right.size());
  if (Parts.Kind == RightKind::Not && Closes > 0 && Contains(Behind, ")")) {
    Add("TR027", Each.Line, Parts.Right,
        "a negation is kept without its own parenthesis: " + Each.Record.ReturnAsString());
  }
  if (Parts.Left.Side == 'Y' && !Parts.IsWholeNode && !Parts.RightNode &&
      Contains(Upper(Parts.Value), "X")) {
    Add("TR028", Each.Line, Parts.Value,
        "a value with an X counts as a reference to the source side: the constraint is of "
        "category 2");
  }
  if (!Parts.SpaceAfterNode.empty()) {
    Add("TR038", Each.Line, Parts.SpaceAfterNode,
        "the blank becomes part of the value: " + Each.Record.ReturnAsString(),
        {Each.Code, Replaced(Each.Code, Parts.SpaceAfterNode, "")});
  }
}

/// The words of a list or value with blanks between them, and no other signs.
std::string PlainWords(std::string_view Words) {
  std::string Plain;
  for (const char Byte : Words) {
    const bool IsGap = IsSpace(Byte) || Byte == ',' || Byte == '|';
    if (!IsGap) {
      Plain += Byte;
    } else if (!Plain.empty() && Plain.back() != ' ') {
      Plain += ' ';
    }
  }
  return std::string(WithoutTrailingSpace(Plain));
}

/// What of the right side is probably not meant as part of a value, or as one value.
void Checker::CheckWords(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  const std::string_view Sign = FindSignSlip(Parts);
  if (!Sign.empty()) {
    Add("TR041", Each.Line, Sign,
        "the sign is read as \"=\", and " + Quoted(Sign) +
            " becomes part of the value: " + Each.Record.ReturnAsString(),
        {Each.Code, Replaced(Each.Code, Sign, "")});
    return;
  }
  if (IsBareList(Parts)) {
    Add("TR042", Each.Line, Parts.Right,
        "the list has no parentheses of its own, and is one value: " + Each.Record.ReturnAsString(),
        {Each.Code, Replaced(Each.Code, Parts.Right, '(' + std::string(Parts.Right) + ')')});
    return;
  }
  const std::string_view Gap = FindWordGap(Parts);
  if (Gap.empty()) {
    return;
  }
  const std::string Plain = PlainWords(Parts.Value);
  if (Parts.Kind != RightKind::Value) {
    Add("TR039", Each.Line, Gap, Quoted(Gap) + " becomes part of a word of the list",
        {Each.Code, Replaced(Each.Code, Parts.Value, Plain)});
    return;
  }
  const std::string List = Replaced(Each.Code, Parts.Value, "(*OR* " + Plain + ')');
  Finding& New = Add("TR043", Each.Line, Parts.Value,
                     Quoted(Parts.Value) + " is one value; alternatives are written as a list",
                     {Each.Code, IsSpace(Gap.front()) ? "" : List});
  New.Example = New.Suggestion.empty() ? List : "";
}

// ---- The rule as a whole ----------------------------------------------------------------------

void Checker::Check() {
  if (IsTooLong(Text)) {
    // Of a rule in pieces, the first one tells.
    if (!Text.Continues) {
      Add("TR013", 0, {},
          "the library's reader takes 100,000 bytes behind the first line of a rule, and as many of "
          "a line");
    }
    return;
  }
  HasBytesBeyond = HasBytesBeyondAscii(Text.Text);
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    CheckLine(Line);
  }
  if (!Text.HasRule) {
    return;
  }
  if (!SequenceLine) {
    AddToRule("TR001", "the rule has no sequence line", "NP::NP : [DET N] -> [N DET]");
  }
  if (!HasAlignmentLine) {
    AddToRule("TR002", "the rule has no alignment", "(X1::Y1)");
  }
  CheckHeaderType();
  CheckAlignments();
  CheckComponents();
  CheckRepetitions();
}

std::string CountOf(std::size_t Labels, char Side) {
  return std::string("the ") + (Side == 'X' ? "source" : "target") + " side has " +
         std::to_string(Labels) + (Labels == 1 ? " component" : " components");
}

void Checker::CheckAlignments() {
  std::set<std::pair<int, int>> ssPairs;
  for (const auto& [Parts, Line] : vAlignments) {
    if (!ssPairs.emplace(Parts.X, Parts.Y).second) {
      Add("TR036", Line, Trimmed(Text.Line(Line)), "this alignment stands here twice");
    }
    for (const auto& [Index, Written, Side] :
         {std::tuple(Parts.X, Parts.XText, 'X'), std::tuple(Parts.Y, Parts.YText, 'Y')}) {
      if (HasLabels && (Index < 1 || static_cast<std::size_t>(Index) > LabelsOf(Side))) {
        Add("TR010", Line, Written,
            "there is no " + std::string(Written) + ": " + CountOf(LabelsOf(Side), Side));
      }
    }
  }
}

void Checker::CheckComponents() {
  if (!HasLabels) {
    return;
  }
  std::set<std::string> ssTold;
  for (const CheckedConstraint& Each : vConstraints) {
    CheckComponent(Each.Parts.Left, Each.Line, ssTold);
    if (Each.Parts.RightNode) {
      CheckComponent(*Each.Parts.RightNode, Each.Line, ssTold);
    }
  }
}

bool IsLiteral(const std::string& sLabel) {
  return sLabel.size() > 1 && sLabel.front() == '"' && sLabel.back() == '"';
}

/// A component that is not there is told wherever it is named, one without an alignment once.
void Checker::CheckComponent(const NodeText& Node, std::size_t Line,
                             std::set<std::string>& ssToldReturn) {
  if (Node.Index == 0) {
    return;
  }
  const std::string Name(Node.Text);
  const auto Index = static_cast<std::size_t>(Node.Index);
  if (Index > LabelsOf(Node.Side)) {
    Add("TR009", Line, Node.Text,
        "there is no " + Name + ": " + CountOf(LabelsOf(Node.Side), Node.Side));
    return;
  }
  const bool IsAligned =
      std::any_of(vAlignments.begin(), vAlignments.end(), [&](const CheckedAlignment& Each) {
        return (Node.Side == 'X' ? Each.Parts.X : Each.Parts.Y) == Node.Index;
      });
  const std::string& sLabel = (Node.Side == 'X' ? vsSource : vsTarget)[Index - 1];
  if (!IsAligned && !IsLiteral(sLabel) && ssToldReturn.insert(Upper(Name)).second) {
    Add("TR030", Line, Node.Text, Name + " (" + sLabel + ") has no alignment");
  }
}

/// What the library tells constraints apart by.
std::string KeyOf(const Constraint& Record) {
  return std::to_string(Record.GetCategory()) + "__" +
         std::to_string(Record.GetConstrainedIndex()) + "__" + Record.GetFeature() + "__" +
         Record.GetFeatValue();
}

void Checker::CheckRepetitions() {
  using Slot = std::tuple<int, int, std::string>;
  std::map<std::string, const CheckedConstraint*> mKeys;
  std::map<Slot, std::size_t> mSlots;
  for (const CheckedConstraint& Each : vConstraints) {
    const Constraint& Record = Each.Record;
    const auto [Same, IsNew] = mKeys.emplace(KeyOf(Record), &Each);
    if (!IsNew) {
      const std::string First = std::to_string(Text.FirstLine + Same->second->Line);
      Add("TR031", Each.Line, Each.Code,
          Same->second->Record.ReturnAsString() == Record.ReturnAsString()
              ? "this constraint stands on line " + First + " already"
              : "the library takes this constraint for the one on line " + First +
                    ", and drops it");
      continue;
    }
    if (!Record.IsValueConstraint()) {
      continue;
    }
    const Slot Place(Record.GetCategory(), Record.GetConstrainedIndex(), Record.GetFeature());
    const auto [SameSlot, IsNewSlot] = mSlots.emplace(Place, Each.Line);
    if (!IsNewSlot) {
      Add("TR032", Each.Line, Each.Parts.Right,
          "the value is merged with the one on line " +
              std::to_string(Text.FirstLine + SameSlot->second) + " into one *OR*");
    }
  }
}

// ---- What is not readable ---------------------------------------------------------------------

void Checker::CheckOrder() {
  std::vector<PlacedConstraint> vPlaced;
  for (const CheckedConstraint& Each : vConstraints) {
    vPlaced.push_back({Each.Record, Each.Line});
  }
  for (const ConstraintCycle& Cycle : FindCycles(vPlaced)) {
    Add("TR011", Cycle.Line, Text.Parts(Cycle.Line).Code,
        "the constraints refer to each other in a cycle: " + Cycle.Nodes);
  }
}

/// For a rule whose lines are all in the format, but which the library does not take.
void Checker::AddLibraryMessage(const std::string& Why) {
  const std::string First = Why.substr(0, Why.find('\n'));
  AddToRule("TR014", First.empty() ? "what the library writes of this rule is another rule"
                                   : "the library says: " + First);
}

/// Whether a rule with such an error cannot be used; the others can be written all the same.
bool IsUnreadable(const Finding& Each) {
  return Each.Level == Severity::Error && Each.Code != "TR009" && Each.Code != "TR010" &&
         Each.Code != "TR035";
}

}  // namespace

void ExplainUnreadable(const RuleText& TextPassIn, const std::string& WhyPassIn,
                       std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  Checker Each(TextPassIn, vAll);
  Each.Check();
  Each.CheckOrder();
  if (!TextPassIn.Continues && std::none_of(vAll.begin(), vAll.end(), IsUnreadable)) {
    Each.AddLibraryMessage(WhyPassIn);
  }
  for (Finding& Found : vAll) {
    if (IsUnreadable(Found)) {
      Found.Suggestion.clear();
      vFindingsReturn.push_back(std::move(Found));
    }
  }
}

void ReportStrayText(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  Checker(TextPassIn, vAll).Check();
  for (Finding& Found : vAll) {
    if (Found.Code == "TR035") {
      Found.Suggestion.clear();
      vFindingsReturn.push_back(std::move(Found));
    }
  }
}

// ---- Suggestions ------------------------------------------------------------------------------

namespace {

/// Adds the findings that are not there yet.
void AddMissing(std::vector<Finding> vMore, std::vector<Finding>& vAllReturn) {
  if (vMore.empty()) {
    return;
  }
  std::set<std::tuple<std::size_t, std::size_t, std::string>> ssPlaces;
  for (const Finding& Each : vAllReturn) {
    ssPlaces.emplace(Each.Line, Each.Column, Each.Code);
  }
  for (Finding& Each : vMore) {
    if (ssPlaces.count({Each.Line, Each.Column, Each.Code}) == 0) {
      vAllReturn.push_back(std::move(Each));
    }
  }
}

/// All that is found in a rule, with suggestions that nobody has tried.
bool CheckOnce(const RuleText& Text, RuleRecord& RecordReturn, std::vector<Finding>& vAllReturn) {
  std::vector<Finding> vErrors;
  Checker(Text, vAllReturn).Check();
  const bool IsRead = Text.HasRule && RecordReturn.Read(Text, vErrors);
  AddMissing(std::move(vErrors), vAllReturn);
  SortFindings(vAllReturn);
  return IsRead;
}

/// Whether mending such a finding leaves the constraint as the library keeps it, so that nothing
/// else can be found in it than before. Their suggestions mend all three.
bool KeepsRecord(const Finding& Each) {
  return Each.Code == "TR024" || Each.Code == "TR025" || Each.Code == "TR026";
}

/// Tries suggestions: a rule is checked again for each, up to a number of bytes.
class SuggestionTrial {
 public:
  SuggestionTrial(const RuleText& TextPassIn, std::vector<Finding>& vFindingsPassIn)
      : Text(TextPassIn), vFindings(vFindingsPassIn) {}

  /// Leaves those suggestions whose line then has no finding. All findings of a line get the same.
  void Settle() {
    using Iterator = std::vector<Finding>::iterator;
    for (Iterator First = vFindings.begin(); First != vFindings.end();) {
      const Iterator Last = std::find_if(
          First, vFindings.end(), [&](const Finding& Each) { return Each.Line != First->Line; });
      const auto Count =
          std::count_if(First, Last, [](const Finding& Each) { return !Each.Suggestion.empty(); });
      if (Count > 0 && !(Count == Last - First && std::all_of(First, Last, KeepsRecord))) {
        const std::string Mended = Count == Last - First ? Tried(First->Line, *First) : "";
        std::for_each(First, Last, [&](Finding& Each) { Each.Suggestion = Mended; });
      }
      First = Last;
    }
  }

 private:
  /// The suggestion, with those for what is found in it, until nothing is.
  std::string Tried(std::size_t Number, const Finding& First) {
    constexpr int MaxRounds = 6;
    const std::size_t Line = Number - Text.FirstLine;
    std::string Mended = First.Suggestion;
    for (int Round = 0; Round < MaxRounds; ++Round) {
      const std::optional<Finding> Next = FirstFindingIn(Line, Mended);
      if (!Next) {
        return IsOutOfBytes ? "" : Mended;
      }
      if (Next->Suggestion.empty() || Next->Suggestion == Mended) {
        break;
      }
      Mended = Next->Suggestion;
    }
    return "";
  }

  /// What is found first on a line with another text.
  std::optional<Finding> FirstFindingIn(std::size_t Line, const std::string& Mended) {
    constexpr std::size_t MaxBytes = std::size_t{1} << 20;
    const RuleText::Span& Place = Text.vLines[Line];
    std::string Whole = Text.Text;
    Whole.replace(Place.Begin, Place.End - Place.Begin, Mended);
    BytesTried += Whole.size();
    IsOutOfBytes = BytesTried > MaxBytes;
    if (IsOutOfBytes) {
      return std::nullopt;
    }
    std::istringstream Stream(Whole);
    RuleReader Reader(Stream, Text.File);
    RuleRecord Record;
    std::vector<Finding> vAll;
    for (RuleText Rule; Reader.Next(Rule);) {
      CheckOnce(Rule, Record, vAll);
    }
    const auto Found = std::find_if(vAll.begin(), vAll.end(),
                                    [&](const Finding& Each) { return Each.Line == Line + 1; });
    return Found == vAll.end() ? std::nullopt : std::optional<Finding>(std::move(*Found));
  }

  const RuleText& Text;
  std::vector<Finding>& vFindings;
  std::size_t BytesTried = 0;
  bool IsOutOfBytes = false;
};

}  // namespace

bool CheckRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
               std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  const bool IsRead = CheckOnce(TextPassIn, RecordReturn, vAll);
  SuggestionTrial(TextPassIn, vAll).Settle();
  std::move(vAll.begin(), vAll.end(), std::back_inserter(vFindingsReturn));
  return IsRead;
}

}  // namespace Grammar
