#include "RuleQuery.h"

#include "Bytes.h"
#include "UsableRule.h"

#include <algorithm>
#include <cstddef>
#include <variant>

namespace Query {

namespace {

using Grammar::RuleText;
using Grammar::SourceRule;

/// A comment without its sign and without white space at its ends.
std::string_view TextOf(std::string_view Comment) {
  return Grammar::Trimmed(Grammar::StartsWith(Comment, ";;") ? Comment.substr(2) : Comment);
}

std::size_t CountComments(const RuleText& Text) {
  return static_cast<std::size_t>(std::count_if(
      Text.vLines.begin(), Text.vLines.end(),
      [](const RuleText::Span& Line) { return Line.CommentBegin != Line.CommentEnd; }));
}

std::size_t NumberOf(const SourceRule& Rule, Measure What) {
  switch (What) {
    case Measure::Count:
      return Grammar::CountIn(Rule.Text());
    case Measure::Components:
      return Rule.SLLabels().size() + Rule.TLLabels().size();
    case Measure::SourceComponents:
      return Rule.SLLabels().size();
    case Measure::TargetComponents:
      return Rule.TLLabels().size();
    case Measure::Alignments:
      return Rule.Alignments().size();
    case Measure::Constraints:
      return Rule.Constraints().size();
    case Measure::Comments:
      break;
  }
  return CountComments(Rule.Text());
}

bool Compare(std::size_t Left, Comparison How, std::size_t Right) {
  switch (How) {
    case Comparison::Equal:
      return Left == Right;
    case Comparison::Unequal:
      return Left != Right;
    case Comparison::Less:
      return Left < Right;
    case Comparison::AtMost:
      return Left <= Right;
    case Comparison::More:
      return Left > Right;
    case Comparison::AtLeast:
      break;
  }
  return Left >= Right;
}

/// Answers one condition.
struct ConditionTest {
  const SourceRule& Rule;

  bool operator()(const SequenceCondition& Asked) const {
    return (Asked.OnSide != Side::Target && Asked.Pattern.Fits(Rule.SLLabels())) ||
           (Asked.OnSide != Side::Source && Asked.Pattern.Fits(Rule.TLLabels()));
  }

  bool operator()(const TypeCondition& Asked) const {
    const TrRuleInternal::RuleLineParts& Parts = Rule.RuleLines().front().Parts;
    return FitsComponent(Asked.SLType, Parts.SLType) && FitsComponent(Asked.TLType, Parts.TLType);
  }

  bool operator()(Grammar::ShapeTrait Asked) const {
    Grammar::AlignmentShape Shape;
    Shape.Read(Rule);
    return Shape.Has(Asked);
  }

  bool operator()(const ConstraintPattern& Asked) const {
    return HasConstraint(
        [&](const SourceRule::ConstraintLine& Line) { return Asked.Fits(Line.Parts); });
  }

  bool operator()(const PassCondition& Asked) const {
    return HasConstraint([&](const SourceRule::ConstraintLine& Line) {
      return PassesFeature(Line.Parts, Asked.Features);
    });
  }

  bool operator()(const NumberCondition& Asked) const {
    return Compare(NumberOf(Rule, Asked.What), Asked.How, Asked.Number);
  }

  bool operator()(const TextCondition& Asked) const {
    const RuleText& Text = Rule.Text();
    for (std::size_t Line = 0; Line < Text.vLines.size(); ++Line) {
      const bool HasComment = Text.vLines[Line].CommentBegin != Text.vLines[Line].CommentEnd;
      if (Asked.IsOfComments ? HasComment && Asked.Pattern.Fits(TextOf(Text.Parts(Line).Comment))
                             : Asked.Pattern.Fits(Text.Line(Line))) {
        return true;
      }
    }
    return false;
  }

 private:
  template <typename IsWantedT>
  bool HasConstraint(IsWantedT IsWanted) const {
    return std::any_of(Rule.Constraints().begin(), Rule.Constraints().end(), IsWanted);
  }
};

}  // namespace

bool Fits(const QueryNode& TreePassIn, const Grammar::SourceRule& RulePassIn) {
  const auto IsSo = [&](const QueryNode& Part) { return Fits(Part, RulePassIn); };
  switch (TreePassIn.What) {
    case QueryNode::Kind::Own:
      break;
    case QueryNode::Kind::And:
      return std::all_of(TreePassIn.vParts.begin(), TreePassIn.vParts.end(), IsSo);
    case QueryNode::Kind::Or:
      return std::any_of(TreePassIn.vParts.begin(), TreePassIn.vParts.end(), IsSo);
    case QueryNode::Kind::Not:
      return !IsSo(TreePassIn.vParts.front());
  }
  return std::visit(ConditionTest{RulePassIn}, TreePassIn.Own);
}

}  // namespace Query
