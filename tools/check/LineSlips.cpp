// Sections: rule lines, constraints, comments.

#include "LineSlips.h"

#include "Bytes.h"
#include "Literal.h"
#include "LookAlikes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace Grammar {

using TrRuleInternal::ConstraintParts;
using TrRuleInternal::RightKind;
using TrRuleInternal::RuleLineParts;

namespace {

constexpr std::size_t None = std::string_view::npos;

/// A part of the same text from one place to another.
std::string_view From(std::string_view Text, std::size_t Begin, std::size_t End) {
  return Text.substr(Begin, End - Begin);
}

/// The part of a text at an end where another text is left.
std::string_view Byte(std::string_view Text, std::size_t At) {
  return At == None ? std::string_view() : Text.substr(At, 1);
}

}  // namespace

// ---- Rule lines -------------------------------------------------------------------------------

namespace {

constexpr std::array<bool, 256> SignsInNames() {
  std::array<bool, 256> Table{};
  for (const char Sign :
       {',', ';', '"', '[', ']', '(', ')', '{', '}', '<', '>', '=', '|', '\t', '\v', '\f', '\r'}) {
    Table[static_cast<unsigned char>(Sign)] = true;
  }
  return Table;
}

bool IsSignInNames(char Byte_) {
  static constexpr std::array<bool, 256> IsSign = SignsInNames();
  return IsSign[static_cast<unsigned char>(Byte_)];
}

/// A literal word may hold any sign but another double quote; a bar over a label is written "'".
std::string_view SignInLabel(std::string_view Label) {
  if (IsLiteral(Label)) {
    const std::size_t Inner = Label.find('"', 1);
    return Inner + 1 == Label.size() ? std::string_view() : Byte(Label, Inner);
  }
  if (Label.front() == '\'' && Label.size() > 1) {
    return Byte(Label, 0);
  }
  const auto* const Found = std::find_if(Label.begin(), Label.end(), IsSignInNames);
  return Found == Label.end() ? std::string_view()
                              : Byte(Label, static_cast<std::size_t>(Found - Label.begin()));
}

/// Types are hardly ever literal words; where they are, the same holds for them.
std::string_view SignInType(std::string_view Type) {
  const std::string_view Sign = SignInLabel(Type);
  const std::size_t Colon = Type.front() == '"' ? None : Type.find(':');
  return Colon < OffsetIn(Type, Sign) || Sign.empty() ? Byte(Type, Colon) : Sign;
}

void AddLabelSlips(std::string_view Labels, std::vector<NameSlip>& vSlipsReturn) {
  for (std::size_t Start = 0; Start < Labels.size();) {
    const std::size_t End = std::min(Labels.find(' ', Start), Labels.size());
    const std::string_view Label = From(Labels, Start, End);
    const std::string_view Sign = Label.empty() ? Label : SignInLabel(Label);
    if (!Sign.empty()) {
      vSlipsReturn.push_back({Sign, Label, false});
    }
    Start = End + 1;
  }
}

}  // namespace

std::vector<NameSlip> FindNameSlips(const RuleLineParts& Parts) {
  std::vector<NameSlip> vSlips;
  for (const std::string_view Type : {Parts.SLType, Parts.TLType}) {
    const std::string_view Sign = SignInType(Type);
    if (!Sign.empty()) {
      vSlips.push_back({Sign, Type, true});
    }
  }
  AddLabelSlips(Parts.SLLabels, vSlips);
  AddLabelSlips(Parts.TLLabels, vSlips);
  return vSlips;
}

// ---- Constraints ------------------------------------------------------------------------------

namespace {

bool IsQuoted(std::string_view Value) {
  return Value.size() > 1 && Value.front() == '"' && Value.back() == '"';
}

}  // namespace

std::string_view FindSignSlip(const ConstraintParts& Parts) {
  const std::string_view Right = Parts.Right;
  if (Right.size() < 2 || Parts.Equals.data() + Parts.Equals.size() != Right.data()) {
    return {};
  }
  const bool IsSign = Contains(":<>~!", Right.substr(0, 1));
  const bool IsLetter = ToUpper(Right.front()) == 'C' && IsSpace(Right[1]);
  return IsSign || IsLetter ? Right.substr(0, 1) : std::string_view();
}

bool IsBareList(const ConstraintParts& Parts) {
  return Parts.Kind == RightKind::Value && Parts.Value.front() == '*' &&
         (IsSameInCapitals(Parts.Value.substr(0, 4), "*OR*") ||
          IsSameInCapitals(Parts.Value.substr(0, 5), "*NOT*"));
}

std::string_view FindWordGap(const ConstraintParts& Parts) {
  const std::string_view Value = Parts.Value;
  if (Value.size() < 3 || IsQuoted(Value)) {
    return {};
  }
  const bool IsList = Parts.Kind != RightKind::Value;
  for (std::size_t At = 1; At < Value.size(); ++At) {
    const bool IsSign = Value[At] == ',' || Value[At] == '|';
    if (IsList ? IsSign && !IsSpace(Value[At - 1])
               : (IsSign || IsSpace(Value[At])) && At + 1 < Value.size()) {
      return Value.substr(At, 1);
    }
  }
  return {};
}

bool IsAboutItself(const ConstraintParts& Parts) {
  if (!Parts.RightNode || Parts.RightNode->Side != Parts.Left.Side ||
      Parts.RightNode->Index != Parts.Left.Index) {
    return false;
  }
  return Parts.Kind == RightKind::Node ||
         (Parts.Kind == RightKind::Reference && !Parts.IsWholeNode &&
          IsSameInCapitals(Parts.Feature, Parts.RightFeature));
}

// ---- Comments ---------------------------------------------------------------------------------

namespace {

constexpr std::array<std::string_view, 4> Labels = {"SL:", "TL:", "Score:", "C-Structure:"};

/// Whether a text begins with a word, in small letters or capitals, and that word ends there.
bool StartsWithWord(std::string_view Text, std::string_view Word) {
  if (Text.size() < Word.size()) {
    return false;
  }
  const bool IsSame = std::equal(Word.begin(), Word.end(), Text.begin(), [](char Left, char Right) {
    return ToUpper(Left) == ToUpper(Right);
  });
  return IsSame &&
         (Text.size() == Word.size() || IsSpace(Text[Word.size()]) || Text[Word.size()] == ':' ||
          static_cast<unsigned char>(Text[Word.size()]) > 127);
}

/// The sign after a label: ":", also a look-alike; empty if something else follows.
std::string_view ColonAt(std::string_view Text) {
  if (StartsWith(Text, ":")) {
    return Text.substr(0, 1);
  }
  const std::optional<FoundLookAlike> Found = FindLookAlike(Text);
  return Found && Found->Place.data() == Text.data() && Found->Which->Ascii == ":"
             ? Found->Place
             : std::string_view();
}

/// The text in a comment in the place of a label; empty if it is the label, or other words.
std::string_view SlipOf(std::string_view Label, std::string_view Text, bool IsSemicolonMissing) {
  const std::string_view Word = Label.substr(0, Label.size() - 1);
  if (!StartsWithWord(Text, Word)) {
    return {};
  }
  const std::string_view After = Text.substr(Word.size());
  const std::string_view Next = WithoutLeadingSpace(After);
  const std::string_view Colon = ColonAt(Next);
  if (!Colon.empty()) {
    const std::string_view Written = From(Text, 0, OffsetIn(Text, Colon) + Colon.size());
    return Written == Label && !IsSemicolonMissing ? std::string_view() : Written;
  }
  // Without a colon, only the label as it should be is not a word of a sentence.
  const bool IsLabel = StartsWith(Text, Word) && !Next.empty() && !IsSemicolonMissing;
  const bool IsCounted = Label != "Score:" || (IsLabel && IsDigit(Next.front()));
  return IsLabel && IsCounted && After.size() != Next.size() ? Text.substr(0, Word.size())
                                                             : std::string_view();
}

}  // namespace

LabelSlip FindLabelSlip(std::string_view Comment) {
  const bool IsSemicolonMissing = !StartsWith(Comment, ";;");
  const std::string_view Text = WithoutLeadingSpace(Comment.substr(IsSemicolonMissing ? 1 : 2));
  if (Text.empty() || !Contains("STCstc", Text.substr(0, 1))) {
    return {};
  }
  for (const std::string_view Label : Labels) {
    if (StartsWith(Text, Label) && !IsSemicolonMissing) {
      return {};
    }
    const std::string_view Place = SlipOf(Label, Text, IsSemicolonMissing);
    if (!Place.empty()) {
      const std::size_t Start = IsSemicolonMissing ? 0 : OffsetIn(Comment, Place);
      return {Label, From(Comment, Start, OffsetIn(Comment, Place) + Place.size())};
    }
  }
  return {};
}

}  // namespace Grammar
