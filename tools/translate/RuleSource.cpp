// Sections: small texts, single lines, components, sources, findings, the whole rule.

#include "RuleSource.h"

#include "Bytes.h"
#include "HeaderText.h"
#include "LineKind.h"
#include "RuleChecker.h"
#include "RuleRecord.h"

#include <AlignmentLine.h>
#include <ConstraintFormat.h>
#include <HeaderLine.h>
#include <RuleLine.h>

#include <algorithm>
#include <optional>
#include <tuple>

namespace Translate {

using Grammar::Finding;
using Grammar::LineKind;
using Grammar::LineParts;
using Grammar::RuleText;
using TrRuleInternal::ConstraintParts;
using TrRuleInternal::NodeText;
using TrRuleInternal::RightKind;

// ---- Small texts ------------------------------------------------------------------------------

bool IsSameUpper(std::string_view Left, std::string_view Right) {
  return Left.size() == Right.size() &&
         std::equal(Left.begin(), Left.end(), Right.begin(), [](char One, char Other) {
           return Grammar::ToUpper(One) == Grammar::ToUpper(Other);
         });
}

namespace {

/// Cuts a text at white space and adds its words.
void AddWords(std::string_view Text, std::vector<std::string_view>& vWordsReturn) {
  for (;;) {
    Text = Grammar::WithoutLeadingSpace(Text);
    if (Text.empty()) {
      return;
    }
    const auto End = std::find_if(Text.begin(), Text.end(), Grammar::IsSpace);
    const auto Size = static_cast<std::size_t>(End - Text.begin());
    vWordsReturn.push_back(Text.substr(0, Size));
    Text.remove_prefix(Size);
  }
}

/// Cuts labels at blanks; other white space is only dropped at their ends, as the record does.
void ParseLabels(std::string_view Text, std::vector<std::string_view>& vLabelsReturn) {
  vLabelsReturn.clear();
  while (!Text.empty()) {
    const std::size_t End = std::min(Text.find(' '), Text.size());
    const std::string_view Label = Grammar::Trimmed(Text.substr(0, End));
    if (!Label.empty()) {
      vLabelsReturn.push_back(Label);
    }
    Text.remove_prefix(std::min(End + 1, Text.size()));
  }
}

/// The digits at the front of a text as a number; 1 where there is none, or 0.
std::uint32_t ParseCount(std::string_view Text) {
  constexpr std::uint64_t MaxCount = 2147483647;
  std::uint64_t Count = 0;
  for (const char Byte : Text) {
    if (!Grammar::IsDigit(Byte)) {
      break;
    }
    Count = std::min(Count * 10 + static_cast<std::uint64_t>(Byte - '0'), MaxCount);
  }
  return Count == 0 ? 1 : static_cast<std::uint32_t>(Count);
}

// ---- Single lines -----------------------------------------------------------------------------

/// Reads the lines of one rule; stops caring for what they mean once one of them is wrong.
class Reader {
 public:
  Reader(const RuleText& TextPassIn, SourceRule& RulePassIn) : Text(TextPassIn), Rule(RulePassIn) {}

  /// @return whether all lines are in the format and name components that are there
  bool Read();

  void AddOwnFindings(std::vector<Finding>& vFindingsReturn) const;
  void Exchange();
  bool FindSources(bool IsReversed, std::vector<Finding>& vFindingsReturn);
  bool CountsFor(const Finding& Each) const;

 private:
  struct Misfit {
    std::size_t Line;
    std::string_view Part;
    std::string Code;
    std::string Message;
  };

  void ReadLine(std::size_t Line, const LineParts& Parts);
  void ReadComment(std::size_t Line, std::string_view Comment);
  void ReadHeader(std::string_view Code);
  void ReadSequence(std::size_t Line, std::string_view Code);
  void ReadAlignment(std::string_view Code);
  void ReadConstraint(std::size_t Line, std::string_view Code);
  void AddEquation(std::size_t Line, const ConstraintParts& Parts);
  void CheckIndices();
  void CheckNode(std::size_t Line, const NodeText& Node);
  void AddSource(std::size_t Target, std::vector<Misfit>& vMisfitsReturn);
  void CheckWanted(std::vector<Misfit>& vMisfitsReturn) const;
  Finding ToFinding(const Misfit& Each) const;

  struct NamedNode {
    std::size_t Line;
    NodeText Node;
  };

  const RuleText& Text;
  SourceRule& Rule;
  std::vector<std::pair<std::uint32_t, std::uint32_t>> vAlignments;
  std::vector<NamedNode> vNodes;
  std::vector<std::size_t> vNoNodeLines;  // whose right side is no node, and would have to be one
  std::vector<Misfit> vOwn;               // what only the use of a rule minds
  std::size_t SequenceLine = 0;
  bool HasSequence = false;
  bool HasLabels = false;
  bool HasAlignmentLine = false;
  bool HasCount = false;
  bool IsSound = true;
};

void Reader::ReadLine(std::size_t Line, const LineParts& Parts) {
  switch (Parts.Kind) {
    case LineKind::Header:
      ReadHeader(Parts.Code);
      break;
    case LineKind::Sequence:
      ReadSequence(Line, Parts.Code);
      break;
    case LineKind::Alignment:
      ReadAlignment(Parts.Code);
      break;
    case LineKind::Constraint:
      ReadConstraint(Line, Parts.Code);
      break;
    default:
      break;
  }
  if (!Parts.Comment.empty()) {
    ReadComment(Line, Parts.Comment);
  }
}

void Reader::ReadComment(std::size_t Line, std::string_view Comment) {
  using Kind = SourceExample::Kind;
  std::string_view Rest;
  if (!HasCount && Grammar::TakeLabel(Comment, "Score:", Rest)) {
    HasCount = true;
    Rule.Count = ParseCount(Rest);
  } else if (Grammar::TakeLabel(Comment, "SL:", Rest)) {
    Rule.vExamples.push_back({Kind::Source, Text.FirstLine + Line, Rest});
  } else if (Grammar::TakeLabel(Comment, "TL:", Rest)) {
    Rule.vExamples.push_back({Kind::Target, Text.FirstLine + Line, Rest});
  } else if (Grammar::TakeLabel(Comment, "*SL:", Rest)) {
    Rule.vExamples.push_back({Kind::Refused, Text.FirstLine + Line, Rest});
  }
}

void Reader::ReadHeader(std::string_view Code) {
  const Grammar::RuleHeader Header = Grammar::HeaderOf(TrRuleInternal::ParseHeader(Code), Code);
  Rule.HasHeader = Header.IsReadable;
  Rule.Header.clear();
  if (Header.IsReadable) {
    Rule.Header.append(Header.Type).append(1, ',').append(Header.Number);
  }
}

void Reader::ReadSequence(std::size_t Line, std::string_view Code) {
  TrRuleInternal::RuleLineParts Sequence;
  IsSound = IsSound && !HasSequence &&
            TrRuleInternal::ParseRuleLine(Code, Sequence) == TrRuleInternal::RuleLineFault::None;
  if (HasSequence) {
    return;
  }
  HasSequence = true;
  SequenceLine = Line;
  if (IsSound) {
    HasLabels = true;
    Rule.X.Type = Sequence.SLType;
    Rule.Y.Type = Sequence.TLType;
    ParseLabels(Sequence.SLLabels, Rule.X.vLabels);
    ParseLabels(Sequence.TLLabels, Rule.Y.vLabels);
  }
}

void Reader::ReadAlignment(std::string_view Code) {
  HasAlignmentLine = true;
  const std::optional<TrRuleInternal::AlignmentParts> Parts = TrRuleInternal::ParseAlignment(Code);
  if (!Parts) {
    IsSound = false;
    return;
  }
  vAlignments.emplace_back(static_cast<std::uint32_t>(Parts->X),
                           static_cast<std::uint32_t>(Parts->Y));
}

void Reader::ReadConstraint(std::size_t Line, std::string_view Code) {
  TrRuleInternal::ConstraintStop Stop;
  const std::optional<ConstraintParts> Parts = TrRuleInternal::ParseConstraint(Code, Stop);
  if (!Parts) {
    IsSound = false;
    return;
  }
  if (Parts->IsWholeNode && !Parts->RightNode) {
    vNoNodeLines.push_back(Line);
    IsSound = false;
    return;
  }
  vNodes.push_back({Line, Parts->Left});
  if (Parts->RightNode) {
    vNodes.push_back({Line, *Parts->RightNode});
  }
  const bool IsList = Parts->Kind == RightKind::Or || Parts->Kind == RightKind::Not;
  const std::size_t Open = Parts->Value.find('(');
  if (IsList && Open != std::string_view::npos) {
    vOwn.push_back({Line, Parts->Value.substr(Open), "TR008",
                    "the constraint is not in the format from here on"});
  }
  AddEquation(Line, *Parts);
}

void SetPath(const NodeText& Node, std::string_view Features, SourcePath& PathReturn) {
  PathReturn.Of = Node.Side == 'X' ? Side::X : Side::Y;
  PathReturn.Index = static_cast<std::uint32_t>(Node.Index);
  AddWords(Features, PathReturn.vFeatures);
}

void Reader::AddEquation(std::size_t Line, const ConstraintParts& Parts) {
  SourceEquation& New = Rule.vEquations.emplace_back();
  New.Line = Text.FirstLine + Line;
  SetPath(Parts.Left, Parts.Feature, New.Left);
  if (Parts.RightNode) {
    New.Kind = ValueKind::Path;
    SetPath(*Parts.RightNode, Parts.RightFeature, New.Right);
    return;
  }
  New.Kind = Parts.Kind == RightKind::Not ? ValueKind::None : ValueKind::Any;
  if (Parts.Kind == RightKind::Value) {
    New.vAtoms.push_back(Grammar::Trimmed(Parts.Value));
  } else {
    AddWords(Parts.Value, New.vAtoms);
  }
}

// ---- Components -------------------------------------------------------------------------------

std::string CountOf(std::size_t Labels, char Side) {
  return std::string("the ") + (Side == 'X' ? "source" : "target") + " side has " +
         std::to_string(Labels) + (Labels == 1 ? " component" : " components");
}

void Reader::CheckNode(std::size_t Line, const NodeText& Node) {
  const std::size_t Labels = (Node.Side == 'X' ? Rule.X : Rule.Y).vLabels.size();
  if (Node.Index < 0 || static_cast<std::size_t>(Node.Index) > Labels) {
    vOwn.push_back({Line, Node.Text, "TR009",
                    "there is no " + std::string(Node.Text) + ": " + CountOf(Labels, Node.Side)});
  }
}

/// Looks for components that are not there.
void Reader::CheckIndices() {
  for (const auto& [X, Y] : vAlignments) {
    IsSound =
        IsSound && X >= 1 && X <= Rule.X.vLabels.size() && Y >= 1 && Y <= Rule.Y.vLabels.size();
  }
  for (const NamedNode& Each : vNodes) {
    CheckNode(Each.Line, Each.Node);
  }
}

bool Reader::Read() {
  if (Grammar::IsTooLong(Text)) {
    return false;
  }
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    ReadLine(Line, Text.Parts(Line));
  }
  if (HasLabels) {
    CheckIndices();
  }
  Rule.Line = LineOfRule(Text);
  return IsSound && HasSequence && HasAlignmentLine && vOwn.empty();
}

/// All but the comments of a rule looks from the other side.
void Reader::Exchange() {
  const auto Turn = [](SourcePath& Path) { Path.Of = Path.Of == Side::X ? Side::Y : Side::X; };
  std::swap(Rule.X, Rule.Y);
  for (auto& [X, Y] : vAlignments) {
    std::swap(X, Y);
  }
  for (SourceEquation& Each : Rule.vEquations) {
    Turn(Each.Left);
    Turn(Each.Right);
  }
}

// ---- Sources ----------------------------------------------------------------------------------

/// Finds the place that a target place gets its constituent from: the one that it is aligned with,
/// or, of several, the only one with its own label.
void Reader::AddSource(std::size_t Target, std::vector<Misfit>& vMisfitsReturn) {
  const std::string_view Label = Rule.Y.vLabels[Target];
  std::uint32_t& Source = Rule.vSources.emplace_back(NoPlace);
  if (IsLiteral(Label)) {
    return;
  }
  std::vector<std::uint32_t> vAligned;
  for (const auto& [X, Y] : vAlignments) {
    if (Y == Target + 1 && !IsLiteral(Rule.X.vLabels[X - 1])) {
      vAligned.push_back(X - 1);
    }
  }
  std::sort(vAligned.begin(), vAligned.end());
  vAligned.erase(std::unique(vAligned.begin(), vAligned.end()), vAligned.end());
  if (vAligned.size() > 1) {
    const auto HasOtherLabel = [&](std::uint32_t Each) {
      return !IsSameUpper(Rule.X.vLabels[Each], Label);
    };
    vAligned.erase(std::remove_if(vAligned.begin(), vAligned.end(), HasOtherLabel), vAligned.end());
    if (vAligned.size() != 1) {
      vMisfitsReturn.push_back(
          {SequenceLine, Label, "TR015", "the target component has more than one source"});
      return;
    }
  }
  if (vAligned.empty()) {
    vMisfitsReturn.push_back(
        {SequenceLine, Label, "TR015", "the target component has no source to come from"});
    return;
  }
  Source = vAligned.front();
}

/// A constituent that is written several times is translated once, and so has one label.
void Reader::CheckWanted(std::vector<Misfit>& vMisfitsReturn) const {
  std::vector<std::string_view> vWanted(Rule.X.vLabels.size());
  std::vector<bool> vIsFaulty(Rule.X.vLabels.size());
  for (std::size_t Target = 0; Target < Rule.vSources.size(); ++Target) {
    const std::uint32_t Source = Rule.vSources[Target];
    if (Source == NoPlace) {
      continue;
    }
    std::string_view& Wanted = vWanted[Source];
    vIsFaulty[Source] =
        vIsFaulty[Source] || (!Wanted.empty() && !IsSameUpper(Wanted, Rule.Y.vLabels[Target]));
    Wanted = Rule.Y.vLabels[Target];
  }
  for (std::size_t Source = 0; Source < vIsFaulty.size(); ++Source) {
    if (vIsFaulty[Source]) {
      vMisfitsReturn.push_back({SequenceLine, Rule.X.vLabels[Source], "TR015",
                                "the source component is wanted with two labels"});
    }
  }
}

bool Reader::FindSources(bool IsReversed, std::vector<Finding>& vFindingsReturn) {
  if (IsReversed) {
    Exchange();
  }
  std::vector<Misfit> vMisfits;
  Rule.vSources.clear();
  for (std::size_t Target = 0; Target < Rule.Y.vLabels.size(); ++Target) {
    AddSource(Target, vMisfits);
  }
  CheckWanted(vMisfits);
  std::vector<Finding> vFindings;
  for (const Misfit& Each : vMisfits) {
    vFindings.push_back(ToFinding(Each));
  }
  Grammar::SortFindings(vFindings);
  std::move(vFindings.begin(), vFindings.end(), std::back_inserter(vFindingsReturn));
  return vMisfits.empty();
}

// ---- Findings ---------------------------------------------------------------------------------

Finding Reader::ToFinding(const Misfit& Each) const {
  constexpr std::size_t MaxLineText = 1000;
  const std::string_view Whole = Text.Line(Each.Line);
  Finding New;
  New.File = Text.File;
  New.Line = Text.FirstLine + Each.Line;
  New.Column = Grammar::OffsetIn(Whole, Each.Part) + 1;
  New.Length = std::max<std::size_t>(Each.Part.size(), 1);
  New.Level = Grammar::Severity::Error;
  New.Code = Each.Code;
  New.Message = Each.Message;
  New.LineText = Whole.substr(0, MaxLineText);
  return New;
}

/// Whether what the checker has found keeps the rule from being used, and not only the library from
/// writing it.
bool Reader::CountsFor(const Finding& Each) const {
  if (Each.Code <= "TR010" || Each.Code == "TR013") {
    return true;
  }
  return Each.Code == "TR012" && std::find(vNoNodeLines.begin(), vNoNodeLines.end(),
                                           Each.Line - Text.FirstLine) != vNoNodeLines.end();
}

/// Adds what the checker does not say: it takes a list as the library writes it, and does not look
/// for the components of a constraint that the library cannot write.
void Reader::AddOwnFindings(std::vector<Finding>& vFindingsReturn) const {
  for (const Misfit& Each : vOwn) {
    Finding New = ToFinding(Each);
    const auto IsThere = [&](const Finding& Other) {
      return std::tie(New.Line, New.Column, New.Code) ==
             std::tie(Other.Line, Other.Column, Other.Code);
    };
    if (std::none_of(vFindingsReturn.begin(), vFindingsReturn.end(), IsThere)) {
      vFindingsReturn.push_back(std::move(New));
    }
  }
  Grammar::SortFindings(vFindingsReturn);
}

void Clear(const RuleText& Text, SourceRule& RuleReturn) {
  RuleReturn.File = Text.File;
  RuleReturn.Line = 0;
  RuleReturn.Header.clear();
  RuleReturn.HasHeader = false;
  RuleReturn.X = SourceSide();
  RuleReturn.Y = SourceSide();
  RuleReturn.vSources.clear();
  RuleReturn.vEquations.clear();
  RuleReturn.Count = 1;
  RuleReturn.vExamples.clear();
}

}  // namespace

// ---- The whole rule ---------------------------------------------------------------------------

std::size_t LineOfRule(const RuleText& Text) {
  std::optional<std::size_t> Header;
  std::optional<std::size_t> First;
  for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
    const LineKind Kind = Text.vLines[Line].Kind;
    if (Kind == LineKind::Sequence) {
      return Text.FirstLine + Line;
    }
    if (Kind == LineKind::Header && !Header) {
      Header = Line;
    }
    if (Kind != LineKind::Blank && Kind != LineKind::Comment && !First) {
      First = Line;
    }
  }
  return Text.FirstLine + Header.value_or(First.value_or(0));
}

bool ReadSourceRule(const RuleText& Text, bool IsReversed, SourceRule& RuleReturn,
                    std::vector<Finding>& vFindingsReturn) {
  Clear(Text, RuleReturn);
  Reader Lines(Text, RuleReturn);
  if (Lines.Read()) {
    return Lines.FindSources(IsReversed, vFindingsReturn);
  }
  std::vector<Finding> vAll;
  std::vector<Finding> vFindings;
  Grammar::RuleRecord Record;
  Grammar::CheckRule(Text, Record, vAll);
  std::copy_if(vAll.begin(), vAll.end(), std::back_inserter(vFindings),
               [&](const Finding& Each) { return Lines.CountsFor(Each); });
  Lines.AddOwnFindings(vFindings);
  std::move(vFindings.begin(), vFindings.end(), std::back_inserter(vFindingsReturn));
  return false;
}

}  // namespace Translate
