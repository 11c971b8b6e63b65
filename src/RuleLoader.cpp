#include "RuleLoader.h"

#include "AlignmentText.h"
#include "Ascii.h"
#include "TrRule.h"

#include <tuple>
#include <utility>

namespace TrRuleInternal {

void RuleLoader::AddComment(std::string_view Line) {
  constexpr std::size_t UsualCount = 4;
  if (Rule.Comments.empty()) {
    Rule.Comments.reserve(UsualCount);
  }
  Rule.Comments.emplace_back(Line);
}

void RuleLoader::SetHeader(std::string_view Type, int Number) {
  Rule.POS = Type;
  Rule.RuleIndex = Number;
}

bool RuleLoader::NoteRuleLine() {
  const bool IsFirst = !HasRuleLine;
  HasRuleLine = true;
  return IsFirst;
}

namespace {

/// Sets the labels of one side, in both forms.
void SetLabels(std::string_view Labels, std::vector<std::string>& vsLabelsReturn,
               std::vector<std::string>& vsWordLevelReturn) {
  std::string UpperLabels(Labels);
  MakeUpper(UpperLabels);
  vsLabelsReturn = ParseLabels(UpperLabels);
  vsWordLevelReturn = vsLabelsReturn;
}

}  // namespace

bool RuleLoader::SetRuleLine(const RuleLineParts& Parts) {
  if (!NoteRuleLine()) {
    return false;
  }
  Rule.SLType = Parts.SLType;
  Rule.TLType = Parts.TLType;
  SetLabels(Parts.SLLabels, Rule.SLPOS, Rule.WordLevelSLPOS);
  Rule.InitSLWord2Comp();
  SetLabels(Parts.TLLabels, Rule.TLPOS, Rule.WordLevelTLPOS);
  Rule.InitTLWord2Comp();
  return true;
}

void RuleLoader::LookAtAlignments() {
  const std::optional<IndexPair> Last =
      Rule.AlignmentString.empty() ? IndexPair(-1, -1) : LastOfCanonical(Rule.AlignmentString);
  Alignments = Last ? AlignmentState::InOrder : AlignmentState::NotInOrder;
  LastPair = Last.value_or(IndexPair(-1, -1));
}

bool RuleLoader::AddAlignment(const AlignmentParts& Parts) {
  if (Alignments == AlignmentState::NotLookedAt) {
    LookAtAlignments();
  }
  if (Alignments == AlignmentState::NotInOrder) {
    return false;
  }
  HasAlignment = true;
  AppendPair(Rule.AlignmentString, Parts.XText, Parts.YText);
  const IndexPair New(Parts.X, Parts.Y);
  if (LastPair < New) {
    LastPair = New;
  } else {
    // All pairs have both indices, so none is missing.
    std::vector<MissingIndex> vMissing;
    Rule.AlignmentString = CanonicalAlignments(Rule.AlignmentString, vMissing);
  }
  return true;
}

void RuleLoader::NoteAlignment() {
  HasAlignment = true;
  Alignments = AlignmentState::NotLookedAt;
}

void RuleLoader::AddConstraint(const ConstraintParts& Parts,
                               std::vector<Merging>& vMergingsReturn) {
  constexpr int UnknownRank = -1;
  AddConstraint(FieldsOfCommonForm(Parts), UnknownRank, vMergingsReturn);
}

bool RuleLoader::AddConstraint(ConstraintFields Fields, int Rank,
                               std::vector<Merging>& vMergingsReturn) {
  auto& Constraints = Rule.ConstraintsMap;
  std::string Key =
      ConstraintKey(Fields.Category, Fields.ConstrainedIndex, Fields.Feature, Fields.FeatValue);
  auto Place = Constraints.lower_bound(Key);
  if (Place != Constraints.end() && Place->first == Key) {
    return false;
  }
  const std::size_t PrefixSize = Key.size() - Fields.FeatValue.size();
  if (Fields.ValueConstraint &&
      HasNeighbour(Constraints, Place, std::string_view(Key).substr(0, PrefixSize))) {
    const auto ValueOf = [](const Constraint& Stored) {
      return Stored.IsValueConstraint() ? &Stored.FeatValue : nullptr;
    };
    TakeOutAndMerge(Constraints, ValueOf, PrefixSize, Key, vMergingsReturn);
    Fields.FeatValue = Key.substr(PrefixSize);
    Place = Constraints.lower_bound(Key);
  }
  Constraints.emplace_hint(
      Place, std::piecewise_construct, std::forward_as_tuple(std::move(Key)),
      std::forward_as_tuple(Fields.Category, Fields.ConstrainedIndex, std::move(Fields.Feature),
                            std::move(Fields.FeatValue), Rank, Fields.ValueConstraint));
  return true;
}

bool RuleLoader::Finish() {
  const bool IsWhole = HasRuleLine && HasAlignment;
  if (IsWhole) {
    Rule.vsAllAlignments.push_back(Rule.AlignmentString);
  }
  return IsWhole;
}

}  // namespace TrRuleInternal
