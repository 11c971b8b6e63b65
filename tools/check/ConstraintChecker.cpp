// Sections: one constraint, agreements, what the library does not keep, what is probably not meant.

#include "ConstraintChecker.h"

#include "Bytes.h"
#include "LineSlips.h"
#include "LookAlikes.h"

#include <ConstraintFormat.h>
#include <LineWriting.h>

#include <algorithm>
#include <utility>

namespace Grammar {

using TrRuleInternal::ConstraintFields;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::RightKind;

// ---- One constraint ---------------------------------------------------------------------------

/// A constraint in the common form has no white space, signs or letters that mean nothing there,
/// but for the blanks in a feature of several words.
bool ConstraintChecker::Check(const Constraint& Stored) {
  if (!CheckAgreement(Stored)) {
    return false;
  }
  CheckEquals(Stored);
  CheckFeatures(Stored);
  CheckRightFeature(Stored);
  CheckNegation(Stored);
  CheckCategory(Stored);
  if (!Stored.IsCommon) {
    CheckBlank(Stored);
    CheckWords(Stored);
    CheckLetters(Stored);
  }
  if (IsAboutItself(Stored.Parts)) {
    Findings.Add("TR044", Stored.Line, CodeOf(Stored),
                 "the constraint has no effect: both sides are the same");
  }
  return true;
}

// ---- Agreements -------------------------------------------------------------------------------

namespace {

/// Whether a constraint names its node in a place where the library finds it for sure.
bool NamesNode(const SourceRule::ConstraintLine& Line) {
  return Line.IsCommon && !(Line.Parts.IsWholeNode && Line.Parts.Kind == RightKind::Reference);
}

}  // namespace

bool ConstraintChecker::CheckAgreement(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  if (NamesNode(Stored)) {
    return true;
  }
  if (Parts.IsWholeNode && !Parts.RightNode) {
    const std::string Node(Parts.Left.Text);
    const std::string_view Sign = FindSignSlip(Parts);
    Finding& New =
        Findings.AddFault("TR012", Stored.Line, Parts.Right,
                          Quoted(Parts.Right) + " is not a node, and only a node can equal " + Node,
                          Sign.empty() ? "" : Replaced(CodeOf(Stored), Sign, ""));
    if (New.Suggestion.empty()) {
      New.Example = "((" + Node + " feature) = " + std::string(Parts.Right) + ')';
    }
    return false;
  }
  const ConstraintFields Fields = Rule.FieldsOf(Stored);
  if (!Fields.ValueConstraint && TrRuleInternal::AgreedIndexIn(Fields.FeatValue) == -1) {
    Findings.Add("TR012", Stored.Line, Parts.Right,
                 "there is no number after the last X or Y on this side, where the library looks "
                 "for one");
    return false;
  }
  return true;
}

// ---- What the library does not keep -----------------------------------------------------------

std::string TextOf(const ConstraintFields& Fields) {
  std::string Text;
  TrRuleInternal::AppendConstraint(Text, {Fields.Category, Fields.ConstrainedIndex, Fields.Feature,
                                          Fields.FeatValue, Fields.ValueConstraint});
  return Text;
}

namespace {

std::string WithoutSpace(std::string_view Text) {
  std::string Result;
  for (const char Byte : Text) {
    if (!IsSpace(Byte)) {
      Result += Byte;
    }
  }
  return Result;
}

/// Whether two features are the same for the library.
bool IsSameFeature(std::string_view Left, std::string_view Right) {
  return IsSameInCapitals(Left, Right) || IsSameInCapitals(WithoutSpace(Left), WithoutSpace(Right));
}

/// The constraint as the library keeps it: with one equals sign, its features in one word, and the
/// left one on the right, too. Empty where both sides would be the same.
std::string AsKept(std::string_view Code, const ConstraintParts& Parts) {
  const std::string Feature = WithoutSpace(Parts.Feature);
  std::string Text(Code);
  if (!Parts.RightFeature.empty()) {
    if (Parts.RightNode->Side == Parts.Left.Side && Parts.RightNode->Index == Parts.Left.Index) {
      return "";
    }
    const bool StaysRight = Parts.IsWholeNode || IsSameFeature(Feature, Parts.RightFeature);
    Text.replace(OffsetIn(Code, Parts.RightFeature), Parts.RightFeature.size(),
                 StaysRight ? WithoutSpace(Parts.RightFeature) : Feature);
  }
  Text.replace(OffsetIn(Code, Parts.Equals), Parts.Equals.size(), "=");
  if (!Parts.Feature.empty()) {
    Text.replace(OffsetIn(Code, Parts.Feature), Parts.Feature.size(), Feature);
  }
  return Text;
}

}  // namespace

std::string ConstraintChecker::LibraryTextOf(const Constraint& Stored) const {
  return TextOf(Rule.FieldsOf(Stored));
}

void ConstraintChecker::CheckEquals(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  if (Parts.Equals.size() == 1 || !Findings.TakesNote("TR024")) {
    return;
  }
  const std::string_view Code = CodeOf(Stored);
  std::string Message = Quoted(Parts.Equals) + " is kept as \"=\"";
  if (TrRuleInternal::IsMistakenForValue(Parts)) {
    ConstraintFields Fields;
    TrRuleInternal::ReadConstraint(Code, Fields);
    Message += "; the library's reader reads the reference after it as a value: " + TextOf(Fields);
  }
  Findings.Add("TR024", Stored.Line, Parts.Equals, std::move(Message), {Code, AsKept(Code, Parts)});
}

void ConstraintChecker::CheckFeatures(const Constraint& Stored) {
  for (const std::string_view Feature : {Stored.Parts.Feature, Stored.Parts.RightFeature}) {
    if (std::any_of(Feature.begin(), Feature.end(), IsSpace) && Findings.TakesNote("TR025")) {
      Findings.Add("TR025", Stored.Line, Feature,
                   "the library makes one word of this feature, " + Upper(WithoutSpace(Feature)) +
                       "; trrule keeps its words",
                   {CodeOf(Stored), AsKept(CodeOf(Stored), Stored.Parts)});
    }
  }
}

void ConstraintChecker::CheckRightFeature(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  if (Parts.Kind != RightKind::Reference || Parts.IsWholeNode ||
      IsSameFeature(Parts.Feature, Parts.RightFeature) || !Findings.TakesNote("TR026")) {
    return;
  }
  Findings.Add("TR026", Stored.Line, Parts.RightFeature,
               "the library does not keep the feature on the right: " + LibraryTextOf(Stored) +
                   "; trrule keeps it",
               {CodeOf(Stored), AsKept(CodeOf(Stored), Parts)});
}

void ConstraintChecker::CheckNegation(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  if (Parts.Kind != RightKind::Not) {
    return;
  }
  const std::string_view Code = CodeOf(Stored);
  const std::string_view After = Code.substr(OffsetIn(Code, Parts.Right) + Parts.Right.size());
  if (Contains(Parts.Right, ")") && Contains(After, ")") && Findings.TakesNote("TR027")) {
    Findings.Add("TR027", Stored.Line, Parts.Right,
                 "the library writes a negation without its own parenthesis: " +
                     LibraryTextOf(Stored) + "; trrule keeps it");
  }
}

void ConstraintChecker::CheckCategory(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  if (Parts.Left.Side == 'Y' && !Parts.IsWholeNode && !Parts.RightNode &&
      Parts.Value.find_first_of("Xx") != std::string_view::npos && Findings.TakesNote("TR028")) {
    Findings.Add("TR028", Stored.Line, Parts.Value,
                 "a value with an X counts as a reference to the source side: the constraint is of "
                 "category 2");
  }
}

// ---- What is probably not meant ---------------------------------------------------------------

void ConstraintChecker::CheckBlank(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  if (!Parts.SpaceAfterNode.empty()) {
    Findings.Add("TR038", Stored.Line, Parts.SpaceAfterNode,
                 "the blank becomes part of the value: " + LibraryTextOf(Stored),
                 {CodeOf(Stored), Replaced(CodeOf(Stored), Parts.SpaceAfterNode, "")});
  }
}

/// What of the right side is probably not meant as part of a value, or as one value.
void ConstraintChecker::CheckWords(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  const std::string_view Code = CodeOf(Stored);
  const std::string_view Sign = FindSignSlip(Parts);
  if (!Sign.empty()) {
    Findings.Add("TR041", Stored.Line, Sign,
                 "the sign is read as \"=\", and " + Quoted(Sign) +
                     " becomes part of the value: " + LibraryTextOf(Stored),
                 {Code, Replaced(Code, Sign, "")});
  } else if (IsBareList(Parts)) {
    Findings.Add("TR042", Stored.Line, Parts.Right,
                 "the list has no parentheses, and is one value: " + LibraryTextOf(Stored),
                 {Code, Replaced(Code, Parts.Right, '(' + std::string(Parts.Right) + ')')});
  } else {
    CheckWordGap(Stored);
  }
}

namespace {

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

}  // namespace

void ConstraintChecker::CheckWordGap(const Constraint& Stored) {
  const ConstraintParts& Parts = Stored.Parts;
  const std::string_view Gap = FindWordGap(Parts);
  if (Gap.empty()) {
    return;
  }
  const std::string_view Code = CodeOf(Stored);
  const std::string Plain = PlainWords(Parts.Value);
  if (Parts.Kind != RightKind::Value) {
    Findings.Add("TR039", Stored.Line, Gap, Quoted(Gap) + " becomes part of a word of the list",
                 {Code, Replaced(Code, Parts.Value, Plain)});
    return;
  }
  const std::string List = Replaced(Code, Parts.Value, "(*OR* " + Plain + ')');
  Finding& New =
      Findings.Add("TR043", Stored.Line, Parts.Value,
                   Quoted(Parts.Value) + " is one value; alternatives are written as a list",
                   {Code, IsSpace(Gap.front()) ? "" : List});
  New.Example = New.Suggestion.empty() ? List : "";
}

/// Values are words of a language, and may be in small letters throughout.
void ConstraintChecker::CheckLetters(const Constraint& Stored) {
  if (!Findings.HasBytesBeyond()) {
    return;
  }
  const std::string_view Code = CodeOf(Stored);
  for (const std::string_view Feature : {Stored.Parts.Feature, Stored.Parts.RightFeature}) {
    const std::string_view Letter = FirstSmallLetterBeyondAscii(Feature);
    if (!Letter.empty()) {
      Findings.Add("TR046", Stored.Line, Letter,
                   Quoted(Letter) +
                       " stays small: of a feature, only the letters of ASCII become capitals: " +
                       Upper(Feature),
                   {Code, Replaced(Code, Feature, WithCapitalsBeyondAscii(Upper(Feature)))});
    }
  }
}

}  // namespace Grammar
