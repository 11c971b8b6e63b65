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
bool ConstraintChecker::Check(const Constraint& Each) {
  if (!CheckAgreement(Each)) {
    return false;
  }
  CheckEquals(Each);
  CheckFeatures(Each);
  CheckRightFeature(Each);
  CheckNegation(Each);
  CheckCategory(Each);
  if (!Each.IsCommon) {
    CheckBlank(Each);
    CheckWords(Each);
    CheckLetters(Each);
  }
  if (IsAboutItself(Each.Parts)) {
    Findings.Add("TR044", Each.Line, CodeOf(Each),
                 "the constraint says nothing: both sides are the same");
  }
  return true;
}

// ---- Agreements -------------------------------------------------------------------------------

namespace {

/// Whether a constraint names its node in a place where the library finds it for sure.
bool NamesNode(const SourceRule::ConstraintLine& Each) {
  return Each.IsCommon && !(Each.Parts.IsWholeNode && Each.Parts.Kind == RightKind::Reference);
}

}  // namespace

bool ConstraintChecker::CheckAgreement(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  if (NamesNode(Each)) {
    return true;
  }
  if (Parts.IsWholeNode && !Parts.RightNode) {
    const std::string Node(Parts.Left.Text);
    const std::string_view Sign = FindSignSlip(Parts);
    Finding& New =
        Findings.AddFault("TR012", Each.Line, Parts.Right,
                          Quoted(Parts.Right) + " is no node, and only a node can equal " + Node,
                          Sign.empty() ? "" : Replaced(CodeOf(Each), Sign, ""));
    if (New.Suggestion.empty()) {
      New.Example = "((" + Node + " feature) = " + std::string(Parts.Right) + ')';
    }
    return false;
  }
  const ConstraintFields Fields = Rule.FieldsOf(Each);
  if (!Fields.ValueConstraint && TrRuleInternal::AgreedIndexIn(Fields.FeatValue) == -1) {
    Findings.Add("TR012", Each.Line, Parts.Right,
                 "no number stands behind the last X or Y on this side, where the library looks "
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

std::string ConstraintChecker::LibraryTextOf(const Constraint& Each) const {
  return TextOf(Rule.FieldsOf(Each));
}

void ConstraintChecker::CheckEquals(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  if (Parts.Equals.size() == 1 || !Findings.TakesNote("TR024")) {
    return;
  }
  const std::string_view Code = CodeOf(Each);
  std::string Message = Quoted(Parts.Equals) + " is kept as \"=\"";
  if (TrRuleInternal::IsMistakenForValue(Parts)) {
    ConstraintFields Fields;
    TrRuleInternal::ReadConstraint(Code, Fields);
    Message +=
        "; the library's reader takes the reference behind it for a value: " + TextOf(Fields);
  }
  Findings.Add("TR024", Each.Line, Parts.Equals, std::move(Message), {Code, AsKept(Code, Parts)});
}

void ConstraintChecker::CheckFeatures(const Constraint& Each) {
  for (const std::string_view Feature : {Each.Parts.Feature, Each.Parts.RightFeature}) {
    if (std::any_of(Feature.begin(), Feature.end(), IsSpace) && Findings.TakesNote("TR025")) {
      Findings.Add("TR025", Each.Line, Feature,
                   "the library makes one word of this feature, " + Upper(WithoutSpace(Feature)) +
                       "; here its words stay apart",
                   {CodeOf(Each), AsKept(CodeOf(Each), Each.Parts)});
    }
  }
}

void ConstraintChecker::CheckRightFeature(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  if (Parts.Kind != RightKind::Reference || Parts.IsWholeNode ||
      IsSameFeature(Parts.Feature, Parts.RightFeature) || !Findings.TakesNote("TR026")) {
    return;
  }
  Findings.Add("TR026", Each.Line, Parts.RightFeature,
               "the library does not keep the feature on the right: " + LibraryTextOf(Each) +
                   "; here it stays",
               {CodeOf(Each), AsKept(CodeOf(Each), Parts)});
}

void ConstraintChecker::CheckNegation(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  if (Parts.Kind != RightKind::Not) {
    return;
  }
  const std::string_view Code = CodeOf(Each);
  const std::string_view Behind = Code.substr(OffsetIn(Code, Parts.Right) + Parts.Right.size());
  if (Contains(Parts.Right, ")") && Contains(Behind, ")") && Findings.TakesNote("TR027")) {
    Findings.Add("TR027", Each.Line, Parts.Right,
                 "the library writes a negation without its own parenthesis: " +
                     LibraryTextOf(Each) + "; here it stays");
  }
}

void ConstraintChecker::CheckCategory(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  if (Parts.Left.Side == 'Y' && !Parts.IsWholeNode && !Parts.RightNode &&
      Parts.Value.find_first_of("Xx") != std::string_view::npos && Findings.TakesNote("TR028")) {
    Findings.Add("TR028", Each.Line, Parts.Value,
                 "a value with an X counts as a reference to the source side: the constraint is of "
                 "category 2");
  }
}

// ---- What is probably not meant ---------------------------------------------------------------

void ConstraintChecker::CheckBlank(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  if (!Parts.SpaceAfterNode.empty()) {
    Findings.Add("TR038", Each.Line, Parts.SpaceAfterNode,
                 "the blank becomes part of the value: " + LibraryTextOf(Each),
                 {CodeOf(Each), Replaced(CodeOf(Each), Parts.SpaceAfterNode, "")});
  }
}

/// What of the right side is probably not meant as part of a value, or as one value.
void ConstraintChecker::CheckWords(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  const std::string_view Code = CodeOf(Each);
  const std::string_view Sign = FindSignSlip(Parts);
  if (!Sign.empty()) {
    Findings.Add("TR041", Each.Line, Sign,
                 "the sign is read as \"=\", and " + Quoted(Sign) +
                     " becomes part of the value: " + LibraryTextOf(Each),
                 {Code, Replaced(Code, Sign, "")});
  } else if (IsBareList(Parts)) {
    Findings.Add("TR042", Each.Line, Parts.Right,
                 "the list has no parentheses of its own, and is one value: " + LibraryTextOf(Each),
                 {Code, Replaced(Code, Parts.Right, '(' + std::string(Parts.Right) + ')')});
  } else {
    CheckWordGap(Each);
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

void ConstraintChecker::CheckWordGap(const Constraint& Each) {
  const ConstraintParts& Parts = Each.Parts;
  const std::string_view Gap = FindWordGap(Parts);
  if (Gap.empty()) {
    return;
  }
  const std::string_view Code = CodeOf(Each);
  const std::string Plain = PlainWords(Parts.Value);
  if (Parts.Kind != RightKind::Value) {
    Findings.Add("TR039", Each.Line, Gap, Quoted(Gap) + " becomes part of a word of the list",
                 {Code, Replaced(Code, Parts.Value, Plain)});
    return;
  }
  const std::string List = Replaced(Code, Parts.Value, "(*OR* " + Plain + ')');
  Finding& New =
      Findings.Add("TR043", Each.Line, Parts.Value,
                   Quoted(Parts.Value) + " is one value; alternatives are written as a list",
                   {Code, IsSpace(Gap.front()) ? "" : List});
  New.Example = New.Suggestion.empty() ? List : "";
}

/// Values are words of a language, and may be in small letters throughout.
void ConstraintChecker::CheckLetters(const Constraint& Each) {
  if (!Findings.HasBytesBeyond()) {
    return;
  }
  const std::string_view Code = CodeOf(Each);
  for (const std::string_view Feature : {Each.Parts.Feature, Each.Parts.RightFeature}) {
    const std::string_view Letter = FirstSmallLetterBeyondAscii(Feature);
    if (!Letter.empty()) {
      Findings.Add("TR046", Each.Line, Letter,
                   Quoted(Letter) +
                       " stays small: of a feature, only the letters of ASCII become capitals: " +
                       Upper(Feature),
                   {Code, Replaced(Code, Feature, WithCapitalsBeyondAscii(Upper(Feature)))});
    }
  }
}

}  // namespace Grammar
