#include "RuleLoader.h"

#include "AlignmentText.h"
#include "Ascii.h"
#include "TrRule.h"

#include <tuple>
#include <utility>

namespace TrRuleInternal {

void RuleLoader::AddComment(std::string_view Line) {
  constexpr std::size_t TypicalCount = 4;
  if (Rule.Comments.empty()) {
    Rule.Comments.reserve(TypicalCount);
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

/// Sets the labels of one side, also as word-level labels.
void SetLabels(std::string_view Labels, std::vector<std::string>& vsLabelsReturn,
               std::vector<std::string>& vsWordLevelReturn) {
  vsLabelsReturn = UpperLabels(Labels);
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

void RuleLoader::CheckAlignments() {
  const std::optional<IndexPair> Last =
      Rule.AlignmentString.empty() ? IndexPair(-1, -1) : LastOfCanonical(Rule.AlignmentString);
  Alignments = Last ? AlignmentState::InOrder : AlignmentState::NotInOrder;
  LastPair = Last.value_or(IndexPair(-1, -1));
}

bool RuleLoader::AddAlignment(const AlignmentParts& Parts) {
  if (Alignments == AlignmentState::Unknown) {
    CheckAlignments();
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
    // No index is missing: all pairs have both.
    std::vector<MissingIndex> vMissing;
    Rule.AlignmentString = CanonicalAlignments(Rule.AlignmentString, vMissing);
  }
  return true;
}

void RuleLoader::NoteAlignment() {
  HasAlignment = true;
  Alignments = AlignmentState::Unknown;
}

void RuleLoader::AddConstraint(const ConstraintParts& Parts,
                               std::vector<Merging>& vMergingsReturn) {
  constexpr int UnknownRank = -1;
  const ConstraintView Fields = ViewOfCommonForm(Parts);
  Insert(MakeKey(Parts, Fields), Fields, UnknownRank, vMergingsReturn);
}

bool RuleLoader::AddConstraint(const ConstraintView& Fields, int Rank,
                               std::vector<Merging>& vMergingsReturn) {
  return Insert(MakeKey(Fields.Category, Fields.ConstrainedIndex, Fields.Feature, Fields.FeatValue),
                Fields, Rank, vMergingsReturn);
}

bool RuleLoader::Insert(ConstraintKey Key, const ConstraintView& Fields, int Rank,
                        std::vector<Merging>& vMergingsReturn) {
  auto& Constraints = Rule.ConstraintsMap;
  const auto [Entry, IsNew] = Constraints.emplace(
      std::piecewise_construct, std::forward_as_tuple(std::move(Key.Text)), std::tuple<>());
  if (!IsNew) {
    return false;
  }
  // The key has feature and value as they are stored.
  auto& [Text, New] = *Entry;
  New.Category = Fields.Category;
  New.ConstrainedIndex = Fields.ConstrainedIndex;
  New.Feature.append(Text, Key.FeatureBegin, Key.FeatureSize);
  New.FeatValue.append(Text, Key.ValueBegin);
  New.RankInCategory = Rank;
  New.ValueConstraint = Fields.ValueConstraint;
  const std::string_view Prefix = std::string_view(Text).substr(0, Key.ValueBegin);
  if (Fields.ValueConstraint && HasNeighbour(Constraints, Entry, Prefix)) {
    auto Taken = Constraints.extract(Entry);
    const auto ValueOf = [](const Constraint& Stored) {
      return Stored.IsValueConstraint() ? &Stored.FeatValue : nullptr;
    };
    ExtractAndMerge(Constraints, ValueOf, Key.ValueBegin, Taken.key(), vMergingsReturn);
    Taken.mapped().FeatValue = Taken.key().substr(Key.ValueBegin);
    Constraints.insert(std::move(Taken));
  }
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
