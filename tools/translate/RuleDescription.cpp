// Sections: names, descriptions.

#include "RuleDescription.h"

#include "Bytes.h"
#include "HeaderText.h"

#include <algorithm>
#include <utility>

namespace Translate {

// ---- Names ------------------------------------------------------------------------------------

namespace {

/// Cuts digits off the end of a name, and the sign before them.
/// @return false if they do not stand there, or nothing before them
bool CutNumber(std::string_view Name, char Sign, std::string_view& RestReturn,
               std::string_view& DigitsReturn) {
  const std::size_t At = Name.rfind(Sign);
  if (At == std::string_view::npos || At == 0 || At + 1 == Name.size()) {
    return false;
  }
  RestReturn = Name.substr(0, At);
  DigitsReturn = Name.substr(At + 1);
  return std::all_of(DigitsReturn.begin(), DigitsReturn.end(),
                     [](char Byte) { return Byte >= '0' && Byte <= '9'; });
}

std::string_view WithoutZeros(std::string_view Digits) {
  while (Digits.size() > 1 && Digits.front() == '0') {
    Digits.remove_prefix(1);
  }
  return Digits;
}

bool IsHeaderMeant(std::string_view Name, std::string_view Header) {
  std::string_view Type;
  std::string_view Number;
  std::string_view OwnType;
  std::string_view OwnNumber;
  return CutNumber(Name, ',', Type, Number) && CutNumber(Header, ',', OwnType, OwnNumber) &&
         Grammar::Upper(Type) == Grammar::Upper(OwnType) &&
         WithoutZeros(Number) == WithoutZeros(OwnNumber);
}

bool IsPlaceMeant(std::string_view Name, const Grammar::RuleText& Text) {
  std::string_view File;
  std::string_view Digits;
  if (!CutNumber(Name, ':', File, Digits) || File != Text.File) {
    return false;
  }
  const std::string_view Line = WithoutZeros(Digits);
  constexpr std::size_t MaxDigits = 18;
  if (Line.size() > MaxDigits) {
    return false;
  }
  const std::size_t Wanted = std::stoull(std::string(Line));
  return Wanted >= Text.FirstLine && Wanted - Text.FirstLine < Text.vLines.size();
}

}  // namespace

std::string HeaderTextOf(const Grammar::SourceRule& Lines) {
  if (Lines.Headers().empty()) {
    return "";
  }
  const auto& First = Lines.Headers().front();
  const Grammar::RuleHeader Header = Grammar::HeaderOf(First.Parts, Lines.CodeOf(First.Line));
  return Header.IsReadable ? Header.Type + ',' + Header.Number : "";
}

bool IsRuleMeant(std::string_view Name, const Grammar::SourceRule& Lines) {
  return IsHeaderMeant(Name, HeaderTextOf(Lines)) || IsPlaceMeant(Name, Lines.Text());
}

bool IsHeaderName(std::string_view Name) {
  std::string_view Type;
  std::string_view Number;
  return CutNumber(Name, ',', Type, Number);
}

std::optional<std::string_view> FileOfPlace(std::string_view Name) {
  std::string_view File;
  std::string_view Line;
  return CutNumber(Name, ':', File, Line) ? std::optional(File) : std::nullopt;
}

// ---- Descriptions -----------------------------------------------------------------------------

namespace {

bool IsSamePath(const Grammar::NodePath& Left, const Grammar::NodePath& Right) {
  const auto IsSameFeature = [](std::string_view One, std::string_view Other) {
    return Grammar::Upper(One) == Grammar::Upper(Other);
  };
  return Left.OnSide == Right.OnSide && Left.Index == Right.Index &&
         std::equal(Left.vFeatures.begin(), Left.vFeatures.end(), Right.vFeatures.begin(),
                    Right.vFeatures.end(), IsSameFeature);
}

/// Adds an equation, or a line to one that it is an alternative of.
void AddEquation(const Grammar::RuleText& Text, const std::vector<Grammar::Equation>& vAll,
                 std::size_t Index, RuleDescription& DescriptionReturn) {
  using Grammar::EquationKind;
  const Grammar::Equation& Current = vAll[Index];
  const auto Found = std::find_if(vAll.begin(), vAll.begin() + static_cast<std::ptrdiff_t>(Index),
                                  [&](const Grammar::Equation& Other) {
                                    return Current.Kind == EquationKind::Any &&
                                           Other.Kind == EquationKind::Any &&
                                           IsSamePath(Current.Left, Other.Left);
                                  });
  const std::string_view Code = Text.Parts(Found->Line - Text.FirstLine).Code;
  RuleDescription::Equation& Equation = DescriptionReturn.Equations[Found->Line];
  Equation.Text = Grammar::Trimmed(Code);
  Equation.vLines.push_back(Current.Line);
}

}  // namespace

RuleDescription DescribeRule(const Grammar::SourceRule& Lines, const Grammar::UsableRule* Rule) {
  RuleDescription New;
  New.File = Lines.Text().File;
  New.Line = Grammar::LineOfRule(Lines.Text());
  New.Header = HeaderTextOf(Lines);
  if (!Lines.RuleLines().empty()) {
    New.Sequence = Grammar::Trimmed(Lines.CodeOf(Lines.RuleLines().front().Line));
  }
  for (std::size_t Index = 0; Rule != nullptr && Index < Rule->vEquations.size(); ++Index) {
    AddEquation(Lines.Text(), Rule->vEquations, Index, New);
  }
  return New;
}

}  // namespace Translate
