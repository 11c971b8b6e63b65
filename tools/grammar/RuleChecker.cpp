// Sections: what is collected, single lines, constraints, the rule as a whole, what is not
// readable.

#include "RuleChecker.h"

#include "Bytes.h"
#include "ConstraintCycles.h"
#include "ConstraintText.h"
#include "CountText.h"
#include "HeaderText.h"
#include "LibraryScope.h"
#include "LineKind.h"
#include "LineTexts.h"
#include "StrayText.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <set>
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

/// Goes through the lines of one rule and then through what they say together.
class Checker {
 public:
  Checker(const RuleText& TextPassIn, std::vector<Finding>& vFindingsPassIn)
      : Text(TextPassIn), vFindings(vFindingsPassIn) {}

  void Check();
  void CheckOrder();
  void AddToRule(std::string_view Code, std::string Message, std::string Suggestion = "");
  void AddLibraryMessage(const std::string& Why);

 private:
  void Add(std::string_view Code, std::size_t Line, std::string_view Part, std::string Message,
           std::string Suggestion = "");

  void CheckLine(std::size_t Line);
  void CheckComment(std::size_t Line, std::string_view Comment);
  void CheckCommentBehind(std::size_t Line, const LineParts& Parts);
  void CheckCount(std::size_t Line, std::string_view Comment);
  void CheckStrayTexts(std::size_t Line, const LineParts& Parts);
  void CheckHeader(std::size_t Line, std::string_view Code);
  void CheckSequence(std::size_t Line, std::string_view Code);
  void CheckAlignment(std::size_t Line, std::string_view Code);
  void CheckConstraint(std::size_t Line, std::string_view Code);

  void CheckWording(const CheckedConstraint& Each);
  void CheckEquals(const CheckedConstraint& Each);
  void CheckFeatures(const CheckedConstraint& Each);
  void CheckValue(const CheckedConstraint& Each);
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
  bool HasAlignmentLine = false;
  bool HasLabels = false;
  std::vector<std::string> vsSource;
  std::vector<std::string> vsTarget;
  std::vector<CheckedAlignment> vAlignments;
  std::vector<CheckedConstraint> vConstraints;
};

std::string Quoted(std::string_view Part) {
  return "\"" + std::string(Part) + "\"";
}

// ---- What is collected ------------------------------------------------------------------------

void Checker::Add(std::string_view Code, std::size_t Line, std::string_view Part,
                  std::string Message, std::string Suggestion) {
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
  New.Suggestion = std::move(Suggestion);
  vFindings.push_back(std::move(New));
}

void Checker::AddToRule(std::string_view Code, std::string Message, std::string Suggestion) {
  const std::size_t Line = SequenceLine.value_or(HeaderLine.value_or(FirstCodeLine));
  Add(Code, Line, Trimmed(Text.Line(Line)), std::move(Message), std::move(Suggestion));
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
    default:
      break;
  }
  CheckStrayTexts(Line, Parts);
  if (!Parts.Comment.empty()) {
    CheckCommentBehind(Line, Parts);
  }
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

/// The first comment with the label is the one that is read.
void Checker::CheckCount(std::size_t Line, std::string_view Comment) {
  std::string_view Written;
  if (!Text.HasRule || !TakeLabel(Comment, ScoreLabel, Written)) {
    return;
  }
  const std::string_view Part = Written.empty() ? Comment : Written;
  const CountText Count = ParseCount(Written);
  if (CountLine) {
    Add("TR039", Line, Part,
        "the rule has a count already, on line " + std::to_string(Text.FirstLine + *CountLine));
    return;
  }
  CountLine = Line;
  if (!Count.IsExact) {
    Add("TR039", Line, Part,
        Quoted(Written) + " is not a count: it is read as " + std::to_string(Count.Value));
  }
}

/// What means nothing is an error within a rule, where something was meant to be part of it.
void Checker::CheckStrayTexts(std::size_t Line, const LineParts& Parts) {
  const bool BeginsRule = Parts.Kind == LineKind::Header || Parts.Kind == LineKind::Sequence;
  IsInside = IsInside || BeginsRule || Parts.Kind == LineKind::Open;
  const bool IsWholeLine = Parts.Kind == LineKind::Other;
  for (const std::string_view Stray : StrayTexts(Parts)) {
    Add("TR035", Line, Stray,
        std::string("this ") + (IsWholeLine ? "line" : "text") + " is no part of a rule",
        IsWholeLine ? ";; " + std::string(Stray) : "");
    vFindings.back().Level = IsInside ? Severity::Error : Severity::Warning;
  }
  IsInside = IsInside && Parts.Kind != LineKind::Close && !ClosesBody(Parts.Code);
}

void Checker::CheckHeader(std::size_t Line, std::string_view Code) {
  constexpr std::size_t KeptLetters = 2;
  HeaderLine = Line;
  const RuleHeader Header = ParseHeader(Code);
  if (!Header.IsReadable) {
    Add("TR023", Line, Code, "the header is not {type,number}: it gives the rule no number",
        "{NP,8}");
  } else {
    const std::string_view Type = Trimmed(Code.substr(Code.find('{') + 1));
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

/// The line without the blanks around its "::", if that makes the types readable.
std::string WithJoinedTypes(std::string_view Code) {
  const std::size_t Sign = Code.find("::");
  if (Sign == std::string_view::npos) {
    return "";
  }
  std::string Joined(WithoutTrailingSpace(Code.substr(0, Sign)));
  Joined.append("::").append(WithoutLeadingSpace(Code.substr(Sign + 2)));
  SequenceText Sequence;
  return ParseSequenceLine(Joined, Sequence) == SequenceFault::None ? Joined : "";
}

void Checker::CheckSequence(std::size_t Line, std::string_view Code) {
  if (SequenceLine) {
    Add("TR003", Line, Code,
        "the rule has a sequence line already, on line " +
            std::to_string(Text.FirstLine + *SequenceLine));
    return;
  }
  SequenceLine = Line;
  SequenceText Sequence;
  const std::size_t Arrow = Code.find(" -> ");
  const std::string_view Types = Code.substr(0, Code.find(' '));
  switch (ParseSequenceLine(Code, Sequence)) {
    case SequenceFault::Types:
      Add("TR004", Line, Types, "the line does not begin with two types, as in NP::NP",
          WithJoinedTypes(Code));
      break;
    case SequenceFault::SourceSide:
      Add("TR005", Line, Code.substr(0, Arrow), "the source side is no [sequence of labels]");
      break;
    case SequenceFault::TargetSide:
      Add("TR006", Line, Code.substr(Arrow + 4), "the target side is no [sequence of labels]");
      break;
    case SequenceFault::None:
      HasLabels = true;
      vsSource = LabelsIn(Sequence.SLLabels);
      vsTarget = LabelsIn(Sequence.TLLabels);
      break;
  }
}

/// The digits behind a place in the text.
std::string_view DigitsAt(std::string_view Code, std::size_t Start) {
  std::size_t End = Start;
  while (End < Code.size() && IsDigit(Code[End])) {
    ++End;
  }
  return Code.substr(Start, End - Start);
}

/// "(X1::Y1)" for a line that names one x and one y in some way.
std::string AsAlignment(std::string_view Code) {
  const std::string Capitals = Upper(Code);
  const std::string_view View = Capitals;
  const std::size_t X = View.find('X');
  const std::size_t Y = View.find('Y');
  if (X == std::string_view::npos || Y == std::string_view::npos || View.rfind('X') != X ||
      View.rfind('Y') != Y || DigitsAt(View, X + 1).empty() || DigitsAt(View, Y + 1).empty()) {
    return "";
  }
  std::string Written = "(X";
  Written.append(DigitsAt(View, X + 1)).append("::Y").append(DigitsAt(View, Y + 1));
  return Written + ')';
}

void Checker::CheckAlignment(std::size_t Line, std::string_view Code) {
  HasAlignmentLine = true;
  if (const std::optional<AlignmentLine> Parts = ParseAlignmentLine(Code)) {
    vAlignments.push_back({*Parts, Line});
  } else {
    Add("TR007", Line, Code, "this is no alignment of one x with one y", AsAlignment(Code));
  }
}

// ---- Constraints ------------------------------------------------------------------------------

/// The text with the parentheses that it lacks at its ends, if they make it readable.
std::string WithParentheses(std::string_view Code) {
  const std::string Text(Code);
  std::size_t Stopped = 0;
  for (const std::string& sTried : {Text + ')', '(' + Text, '(' + Text + ')', "((" + Text + ")"}) {
    if (ParseConstraint(sTried, Stopped)) {
      return sTried;
    }
  }
  return "";
}

void Checker::CheckConstraint(std::size_t Line, std::string_view Code) {
  std::size_t Stopped = 0;
  const std::optional<ConstraintText> Parts = ParseConstraint(Code, Stopped);
  if (!Parts) {
    const std::string_view Rest = Code.substr(Stopped);
    Add("TR008", Line, Rest.empty() ? Code : Rest,
        Rest.empty() ? "the constraint ends too early"
                     : "the constraint is not in the format from here on",
        WithParentheses(Code));
    return;
  }
  CheckedConstraint New{*Parts, Constraint(ForLibrary(Code, *Parts)), Code, Line};
  if (CheckAgreement(New)) {
    CheckWording(New);
    vConstraints.push_back(std::move(New));
  }
}

bool Checker::CheckAgreement(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  if (Parts.IsWholeNode && !Parts.RightNode) {
    const std::string Node(Parts.Left.Text);
    Add("TR012", Each.Line, Parts.Right,
        Quoted(Parts.Right) + " is no node, and only a node can equal " + Node,
        "((" + Node + " feature) = " + std::string(Parts.Right) + ')');
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
}

/// The constraint with a part of it replaced.
std::string Replaced(std::string_view Code, std::string_view Part, std::string_view By) {
  const std::size_t Start = OffsetIn(Code, Part);
  std::string Text(Code.substr(0, Start));
  return Text.append(By).append(Code.substr(Start + Part.size()));
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
  Add("TR024", Each.Line, Parts.Equals, std::move(Message), Replaced(Each.Code, Parts.Equals, "="));
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

void Checker::CheckFeatures(const CheckedConstraint& Each) {
  const ConstraintText& Parts = Each.Parts;
  for (const std::string_view Feature : {Parts.Feature, Parts.RightFeature}) {
    const std::string Joined = WithoutSpace(Feature);
    if (Joined.size() != Feature.size()) {
      Add("TR025", Each.Line, Feature,
          "a feature of several words is kept as one word: " + Upper(Joined), Joined);
    }
  }
  if (!Parts.IsWholeNode && Parts.Kind == RightKind::Reference &&
      Upper(WithoutSpace(Parts.Feature)) != Upper(WithoutSpace(Parts.RightFeature))) {
    Add("TR026", Each.Line, Parts.RightFeature,
        "the feature on the right is not kept: " + Each.Record.ReturnAsString(),
        Replaced(Each.Code, Parts.RightFeature, Parts.Feature));
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
        Replaced(Each.Code, Parts.SpaceAfterNode, ""));
  }
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

bool IsAtSamePlace(const Finding& Left, const Finding& Right) {
  return std::tie(Left.Line, Left.Column, Left.Code) ==
         std::tie(Right.Line, Right.Column, Right.Code);
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
  std::copy_if(vAll.begin(), vAll.end(), std::back_inserter(vFindingsReturn), IsUnreadable);
}

void ReportUnwritable(const RuleText& TextPassIn, const std::string& WhyPassIn,
                      std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  Checker Each(TextPassIn, vAll);
  Each.Check();
  vAll.clear();
  Each.AddToRule("TR014", WhyPassIn.substr(0, WhyPassIn.find('\n')));
  std::move(vAll.begin(), vAll.end(), std::back_inserter(vFindingsReturn));
}

void ReportStrayText(const RuleText& TextPassIn, std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  Checker(TextPassIn, vAll).Check();
  std::copy_if(vAll.begin(), vAll.end(), std::back_inserter(vFindingsReturn),
               [](const Finding& Each) { return Each.Code == "TR035"; });
}

bool CheckRule(const RuleText& TextPassIn, RuleRecord& RecordReturn,
               std::vector<Finding>& vFindingsReturn) {
  std::vector<Finding> vAll;
  std::vector<Finding> vErrors;
  Checker(TextPassIn, vAll).Check();
  const bool IsRead = TextPassIn.HasRule && RecordReturn.Read(TextPassIn, vErrors);
  for (Finding& Each : vErrors) {
    if (std::none_of(vAll.begin(), vAll.end(),
                     [&](const Finding& Other) { return IsAtSamePlace(Each, Other); })) {
      vAll.push_back(std::move(Each));
    }
  }
  std::stable_sort(vAll.begin(), vAll.end(), ComesBefore);
  std::move(vAll.begin(), vAll.end(), std::back_inserter(vFindingsReturn));
  return IsRead;
}

}  // namespace Grammar
