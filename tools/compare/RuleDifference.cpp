// Sections: names; finding differences; applying them; comparing and describing them.

#include "RuleDifference.h"

#include "Bytes.h"
#include "CommonLines.h"
#include "CountText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace Grammar {

using Strings = std::vector<std::string>;

constexpr std::size_t Source = ComparedRule::Source;
constexpr std::size_t Target = ComparedRule::Target;

// ---- Names ------------------------------------------------------------------------------------

std::string_view NameOf(PartKind KindPassIn) {
  constexpr std::array<std::string_view, 11> Names{
      "header",           "source type",      "target type", "source sequence", "target sequence",
      "source component", "target component", "alignment",   "constraint",      "count",
      "comment"};
  return Names[static_cast<std::size_t>(KindPassIn)];
}

std::string_view LeftSideOf(std::string_view ConstraintPassIn) {
  return WithoutTrailingSpace(ConstraintPassIn.substr(0, ConstraintPassIn.find('=')));
}

namespace {

// What each side of a rule calls its parts.
constexpr std::array<PartKind, 2> TypeKinds{PartKind::SourceType, PartKind::TargetType};
constexpr std::array<PartKind, 2> SequenceKinds{PartKind::SourceSequence, PartKind::TargetSequence};
constexpr std::array<PartKind, 2> ComponentKinds{PartKind::SourceComponent,
                                                 PartKind::TargetComponent};

std::size_t SideOf(PartKind Kind) {
  const bool IsTarget = Kind == PartKind::TargetType || Kind == PartKind::TargetSequence ||
                        Kind == PartKind::TargetComponent;
  return IsTarget ? Target : Source;
}

// ---- Finding differences ----------------------------------------------------------------------

/// A part that may be missing, as a list.
Strings OneOrNone(const std::string& Text) {
  return Text.empty() ? Strings() : Strings{Text};
}

void CompareSide(std::size_t Side, const ComparedRule& Old, const ComparedRule& New,
                 std::vector<PartChange>& vReturn) {
  const Strings& vsOld = Old.Labels[Side];
  const Strings& vsNew = New.Labels[Side];
  if (vsOld.size() != vsNew.size()) {
    vReturn.push_back({SequenceKinds[Side], 0, "", vsOld, vsNew});
    return;
  }
  for (std::size_t At = 0; At < vsOld.size(); ++At) {
    if (vsOld[At] != vsNew[At]) {
      vReturn.push_back({ComponentKinds[Side], At + 1, "", {vsOld[At]}, {vsNew[At]}});
    }
  }
}

/// The lines that have the same name, together, in the order in which the names come first.
using Named = std::vector<std::pair<std::string_view, Strings>>;

template <typename NameT>
Named ByName(const Strings& vsLines, NameT NameOfLine) {
  std::vector<std::pair<std::string_view, std::size_t>> vPlaces;
  for (std::size_t At = 0; At < vsLines.size(); ++At) {
    vPlaces.emplace_back(NameOfLine(vsLines[At]), At);
  }
  std::sort(vPlaces.begin(), vPlaces.end());
  Named vNamed;
  for (const auto& [Name, Place] : vPlaces) {
    if (vNamed.empty() || vNamed.back().first != Name) {
      vNamed.emplace_back(Name, Strings());
    }
    vNamed.back().second.push_back(vsLines[Place]);
  }
  return vNamed;
}

/// Compares two lists of lines name by name; both are in the order of the names.
void CompareNamed(PartKind Kind, const Named& vOld, const Named& vNew,
                  std::vector<PartChange>& vReturn) {
  const auto Add = [&](std::string_view Name, const Strings& vsOld, const Strings& vsNew) {
    if (vsOld != vsNew) {
      vReturn.push_back({Kind, 0, std::string(Name), vsOld, vsNew});
    }
  };
  auto Old = vOld.begin();
  auto New = vNew.begin();
  while (Old != vOld.end() || New != vNew.end()) {
    if (New == vNew.end() || (Old != vOld.end() && Old->first < New->first)) {
      Add(Old->first, Old->second, {});
      ++Old;
    } else if (Old == vOld.end() || New->first < Old->first) {
      Add(New->first, {}, New->second);
      ++New;
    } else {
      Add(Old->first, Old->second, New->second);
      ++Old;
      ++New;
    }
  }
}

std::string_view WholeLine(std::string_view Line) {
  return Line;
}

/// Where the count of a rule is among its comments; their number if it has none.
std::size_t CountPlace(const Strings& vsComments) {
  std::string_view Rest;
  return static_cast<std::size_t>(FindLabel(vsComments, ScoreLabel, Rest) - vsComments.begin());
}

/// The changes from one list of comments to another, in which the counts are taken for equal.
void CompareComments(const Strings& vsOld, const Strings& vsNew, std::vector<PartChange>& vReturn) {
  const std::size_t OldCount = CountPlace(vsOld);
  const std::size_t NewCount = CountPlace(vsNew);
  const CommonLines Common(vsOld.size(), vsNew.size(), [&](std::size_t Old, std::size_t New) {
    const bool IsCount = Old == OldCount;
    return IsCount == (New == NewCount) && (IsCount || vsOld[Old] == vsNew[New]);
  });
  const auto KindAt = [](std::size_t At, std::size_t CountAt) {
    return At == CountAt ? PartKind::Count : PartKind::Comment;
  };
  for (std::size_t At = vsOld.size(); At-- > 0;) {
    if (!Common.HasOld(At)) {
      vReturn.push_back({KindAt(At, OldCount), At, "", {vsOld[At]}, {}});
    }
  }
  for (std::size_t At = 0; At < vsNew.size(); ++At) {
    if (!Common.HasNew(At)) {
      vReturn.push_back({KindAt(At, NewCount), At, "", {}, {vsNew[At]}});
    }
  }
  if (OldCount < vsOld.size() && NewCount < vsNew.size() && Common.HasOld(OldCount) &&
      vsOld[OldCount] != vsNew[NewCount]) {
    vReturn.push_back({PartKind::Count, NewCount, "", {vsOld[OldCount]}, {vsNew[NewCount]}});
  }
}

}  // namespace

std::vector<PartChange> DifferencesOf(const ComparedRule& OldPassIn,
                                      const ComparedRule& NewPassIn) {
  std::vector<PartChange> vChanges;
  if (OldPassIn.Header != NewPassIn.Header) {
    vChanges.push_back(
        {PartKind::Header, 0, "", OneOrNone(OldPassIn.Header), OneOrNone(NewPassIn.Header)});
  }
  for (const std::size_t Side : {Source, Target}) {
    if (OldPassIn.Types[Side] != NewPassIn.Types[Side]) {
      vChanges.push_back(
          {TypeKinds[Side], 0, "", {OldPassIn.Types[Side]}, {NewPassIn.Types[Side]}});
    }
  }
  for (const std::size_t Side : {Source, Target}) {
    CompareSide(Side, OldPassIn, NewPassIn, vChanges);
  }
  CompareNamed(PartKind::Alignment, ByName(OldPassIn.vsAlignments, WholeLine),
               ByName(NewPassIn.vsAlignments, WholeLine), vChanges);
  CompareNamed(PartKind::Constraint, ByName(OldPassIn.vsConstraints, LeftSideOf),
               ByName(NewPassIn.vsConstraints, LeftSideOf), vChanges);
  CompareComments(OldPassIn.vsComments, NewPassIn.vsComments, vChanges);
  return vChanges;
}

// ---- Applying differences ---------------------------------------------------------------------

namespace {

bool Replace(const PartChange& Change, std::string& TextReturn) {
  if (OneOrNone(TextReturn) != Change.vsOld) {
    return false;
  }
  TextReturn = Change.vsNew.empty() ? "" : Change.vsNew.front();
  return true;
}

bool ReplaceComponent(const PartChange& Change, Strings& vsReturn) {
  const bool IsThere = Change.Place > 0 && Change.Place <= vsReturn.size();
  return IsThere && Replace(Change, vsReturn[Change.Place - 1]);
}

bool ReplaceSequence(const PartChange& Change, Strings& vsReturn) {
  if (vsReturn != Change.vsOld) {
    return false;
  }
  vsReturn = Change.vsNew;
  return true;
}

/// Replaces the lines with a name, where the first of them is, or after all others.
template <typename NameT>
bool ReplaceNamed(const PartChange& Change, NameT NameOfLine, Strings& vsReturn) {
  const auto HasName = [&](const std::string& sLine) { return NameOfLine(sLine) == Change.Name; };
  Strings vsHad;
  std::copy_if(vsReturn.begin(), vsReturn.end(), std::back_inserter(vsHad), HasName);
  if (vsHad != Change.vsOld) {
    return false;
  }
  const auto First = std::find_if(vsReturn.begin(), vsReturn.end(), HasName) - vsReturn.begin();
  vsReturn.erase(std::remove_if(vsReturn.begin(), vsReturn.end(), HasName), vsReturn.end());
  vsReturn.insert(vsReturn.begin() + First, Change.vsNew.begin(), Change.vsNew.end());
  return true;
}

/// Changes, removes or adds a line of the comments; the count is wherever it is.
bool ReplaceComment(const PartChange& Change, Strings& vsReturn) {
  const bool IsCount = Change.Kind == PartKind::Count;
  const auto At = static_cast<std::ptrdiff_t>(std::min(Change.Place, vsReturn.size()));
  if (Change.vsOld.empty()) {
    if (IsCount && CountPlace(vsReturn) < vsReturn.size()) {
      return false;
    }
    vsReturn.insert(vsReturn.begin() + At, Change.vsNew.begin(), Change.vsNew.end());
    return true;
  }
  const std::string& sOld = Change.vsOld.front();
  const bool IsAtPlace =
      !IsCount && Change.Place < vsReturn.size() && vsReturn[Change.Place] == sOld;
  const auto Found = IsAtPlace ? vsReturn.begin() + At
                     : IsCount
                         ? vsReturn.begin() + static_cast<std::ptrdiff_t>(CountPlace(vsReturn))
                         : std::find(vsReturn.begin(), vsReturn.end(), sOld);
  if (Found == vsReturn.end() || *Found != sOld) {
    return false;
  }
  if (Change.vsNew.empty()) {
    vsReturn.erase(Found);
  } else {
    *Found = Change.vsNew.front();
  }
  return true;
}

}  // namespace

bool Apply(const PartChange& ChangePassIn, ComparedRule& RuleReturn) {
  const std::size_t Side = SideOf(ChangePassIn.Kind);
  switch (ChangePassIn.Kind) {
    case PartKind::Header:
      return Replace(ChangePassIn, RuleReturn.Header);
    case PartKind::SourceType:
    case PartKind::TargetType:
      return Replace(ChangePassIn, RuleReturn.Types[Side]);
    case PartKind::SourceSequence:
    case PartKind::TargetSequence:
      return ReplaceSequence(ChangePassIn, RuleReturn.Labels[Side]);
    case PartKind::SourceComponent:
    case PartKind::TargetComponent:
      return ReplaceComponent(ChangePassIn, RuleReturn.Labels[Side]);
    case PartKind::Alignment:
      return ReplaceNamed(ChangePassIn, WholeLine, RuleReturn.vsAlignments);
    case PartKind::Constraint:
      return ReplaceNamed(ChangePassIn, LeftSideOf, RuleReturn.vsConstraints);
    case PartKind::Count:
    case PartKind::Comment:
      return ReplaceComment(ChangePassIn, RuleReturn.vsComments);
  }
  return false;
}

PartChange Inverse(PartChange ChangePassIn) {
  std::swap(ChangePassIn.vsOld, ChangePassIn.vsNew);
  return ChangePassIn;
}

// ---- Comparing and describing changes ---------------------------------------------------------

namespace {

bool IsSequence(PartKind Kind) {
  return Kind == PartKind::SourceSequence || Kind == PartKind::TargetSequence;
}

/// Whether a part is named by the numbers of components.
bool DependsOnNumbers(PartKind Kind) {
  return Kind == PartKind::Alignment || Kind == PartKind::Constraint;
}

/// Whether a change of a sequence concerns what another change is about.
bool Moves(const PartChange& Sequence, const PartChange& Other) {
  return IsSequence(Sequence.Kind) &&
         (DependsOnNumbers(Other.Kind) || (Other.Kind == ComponentKinds[SideOf(Sequence.Kind)]));
}

}  // namespace

bool Overlap(const PartChange& LeftPassIn, const PartChange& RightPassIn) {
  if (LeftPassIn.Kind != RightPassIn.Kind) {
    return Moves(LeftPassIn, RightPassIn) || Moves(RightPassIn, LeftPassIn);
  }
  switch (LeftPassIn.Kind) {
    case PartKind::SourceComponent:
    case PartKind::TargetComponent:
      return LeftPassIn.Place == RightPassIn.Place;
    case PartKind::Comment:
      return LeftPassIn.vsOld == RightPassIn.vsOld && LeftPassIn.vsNew == RightPassIn.vsNew;
    default:
      return LeftPassIn.Name == RightPassIn.Name;
  }
}

namespace {

std::string Joined(const Strings& vsTexts, std::string_view Separator) {
  std::string Text;
  for (const std::string& sText : vsTexts) {
    Text.append(&sText == &vsTexts.front() ? "" : Separator).append(sText);
  }
  return Text;
}

/// The values of constraints with one left side: what is between the sign and the last parenthesis.
std::string ValuesOf(const Strings& vsConstraints) {
  Strings vsValues;
  for (const std::string& sConstraint : vsConstraints) {
    const std::size_t Begin = std::min(sConstraint.find('='), sConstraint.size() - 1) + 1;
    const std::string_view Right = Trimmed(std::string_view(sConstraint).substr(Begin));
    vsValues.emplace_back(Right.substr(0, Right.size() - (Right.empty() ? 0 : 1)));
  }
  return Joined(vsValues, ", ");
}

/// The number that a count line bears.
std::string CountOf(const Strings& vsLine) {
  return std::to_string(CountIn(vsLine));
}

std::string ValueOf(PartKind Kind, const Strings& vsTexts) {
  switch (Kind) {
    case PartKind::SourceSequence:
    case PartKind::TargetSequence:
      return '[' + Joined(vsTexts, " ") + ']';
    case PartKind::Constraint:
      return ValuesOf(vsTexts);
    case PartKind::Count:
      return CountOf(vsTexts);
    default:
      return Joined(vsTexts, ", ");
  }
}

std::string PartName(const PartChange& Change) {
  switch (Change.Kind) {
    case PartKind::SourceComponent:
    case PartKind::TargetComponent:
      return "component " + std::to_string(Change.Place) +
             (SideOf(Change.Kind) == Source ? " of the source" : " of the target");
    case PartKind::Constraint:
      return "constraint " + Change.Name + " = …)";
    default:
      return std::string(NameOf(Change.Kind));
  }
}

}  // namespace

std::string Describe(const PartChange& ChangePassIn) {
  const Strings& vsOld = ChangePassIn.vsOld;
  const Strings& vsNew = ChangePassIn.vsNew;
  const bool HasBoth = !vsOld.empty() && !vsNew.empty();
  if (HasBoth || IsSequence(ChangePassIn.Kind)) {
    return PartName(ChangePassIn) + ": " + ValueOf(ChangePassIn.Kind, vsOld) + " becomes " +
           ValueOf(ChangePassIn.Kind, vsNew);
  }
  const std::string Action = vsOld.empty() ? " added" : " removed";
  const Strings& vsOnly = vsOld.empty() ? vsNew : vsOld;
  switch (ChangePassIn.Kind) {
    case PartKind::Comment:
      return "comment" + Action + ": " + vsOnly.front();
    case PartKind::Constraint:
      return "constraint " + Joined(vsOnly, ", ") + Action;
    default:
      return std::string(NameOf(ChangePassIn.Kind)) + ' ' + ValueOf(ChangePassIn.Kind, vsOnly) +
             Action;
  }
}

std::string DescribeMismatch(const PartChange& ChangePassIn) {
  const auto Value = [&](const Strings& vsTexts) {
    return vsTexts.empty() ? std::string("none") : ValueOf(ChangePassIn.Kind, vsTexts);
  };
  const bool IsAlignment = ChangePassIn.Kind == PartKind::Alignment;
  return PartName(ChangePassIn) + (IsAlignment ? ' ' + ChangePassIn.Name : "") + ": expected " +
         Value(ChangePassIn.vsOld) + ", found " + Value(ChangePassIn.vsNew);
}

}  // namespace Grammar
